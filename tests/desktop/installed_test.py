"""The program as a package installs it."""
import os
import pathlib
import shutil

from tests.support.desktop.program import Program
from tests.support.desktop.test_case import PROGRAM, WindowTestCase


class Installed(WindowTestCase):
    def test_an_installed_program_keeps_its_files_in_the_data_folder(self):
        prefix = self.home / "usr"
        (prefix / "bin").mkdir(parents=True)
        (prefix / "share" / "applications").mkdir(parents=True)
        (prefix / "share" / "applications" / "plimo.desktop").touch()
        shutil.copy(PROGRAM, prefix / "bin" / "plimo")
        person = self.home / "person"
        person.mkdir()
        before = pathlib.Path.cwd()
        self.addCleanup(os.chdir, before)
        os.chdir(person)
        environment = {"HOME": str(person), "XDG_DATA_HOME": str(self.home / "data-home")}
        self.program = Program(str(prefix / "bin" / "plimo"), "--drive", f"C={self.collection}", environment=environment)
        self.program.find("Accept")
        self.assertEqual((self.home / "data-home" / "plimo").is_dir(), True)
        self.assertEqual(list(person.iterdir()), [])
