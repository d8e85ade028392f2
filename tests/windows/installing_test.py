"""The installer, run silently, what it leaves, and the portable archive."""
import os
import pathlib
import subprocess
import unittest
import zipfile

from tests.support.desktop.program_test_case import ROOT
from tests.support.desktop.waiting import wait
from tests.support.windows import places, program
from tests.support.windows.program import DEADLINE, WindowsProgram, wine
from tests.support.windows.test_case import WindowsTestCase

PACKAGES = pathlib.Path(os.environ.get("PLIMO_PACKAGES", ROOT / "build-windows"))
UNINSTALL = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Plimo"
APPLICATION = r"HKCU\Software\Classes\Applications\plimo.exe"


def package(pattern):
    found, = PACKAGES.glob(pattern)
    return found


class Installing(WindowsTestCase):
    def folder(self, name):
        """One of the user's folders, from a variable of Windows."""
        text = wine("wine", "cmd", "/c", "echo", f"%{name}%").stdout.decode().strip()
        return program.prefix() / "drive_c" / text[3:].replace("\\", "/")

    def registered(self, key):
        return wine("wine", "reg", "query", key).returncode == 0

    def test_setup_installs_for_one_user_and_the_uninstaller_leaves_the_users_files(self):
        self.assertEqual(wine(package("plimo-*-setup.exe"), "/S").returncode, 0)
        installed = self.folder("LOCALAPPDATA") / "Programs" / "Plimo"
        data = self.folder("APPDATA") / "Plimo"
        shortcut = self.folder("APPDATA") / "Microsoft/Windows/Start Menu/Programs/Plimo!.lnk"
        self.assertEqual(sorted(os.listdir(installed)),
                         ["CHANGELOG.txt", "LICENSE.txt", "README.txt", "plimo.exe", "uninstall.exe"])
        self.assertTrue(shortcut.exists())
        self.assertTrue(data.is_dir())
        self.assertTrue(self.registered(UNINSTALL))
        self.assertTrue(self.registered(APPLICATION + r"\SupportedTypes"))
        version = subprocess.run([program.WITH_WINE, installed / "plimo.exe", "--version"], capture_output=True,
                                 check=True)
        self.assertEqual(version.stdout.split()[0], b"plimo")

        (data / "mine.m3u").write_bytes(b"")
        (installed / "notes.txt").write_bytes(b"")
        self.assertEqual(wine(installed / "uninstall.exe", "/S").returncode, 0)
        # The uninstaller goes on as a copy of itself.
        wait(lambda: not (installed / "uninstall.exe").exists() and not self.registered(UNINSTALL), "the uninstaller",
             DEADLINE)
        self.assertEqual(os.listdir(installed), ["notes.txt"])
        self.assertEqual(os.listdir(data), ["mine.m3u"])
        self.assertFalse(shortcut.exists())
        self.assertFalse(self.registered(APPLICATION))
        (data / "mine.m3u").unlink()
        (installed / "notes.txt").unlink()

    def test_the_portable_program_keeps_its_files_next_to_itself(self):
        self.add_songs()
        with zipfile.ZipFile(package("plimo-*-portable.zip")) as archive:
            archive.extractall(self.home)
        folder = self.home / "Plimo"
        self.program = WindowsProgram(folder / "plimo.exe", "--drive", f"C={self.windows(self.collection)}")
        self.program.wait_for_main_window()
        self.program.tick("drives", 0)
        self.program.click(places.ACCEPT, (folder / "plimo.ini").exists, "the settings")
        self.assert_file(folder / "plimo.kvx", self.catalogue())
        self.assertTrue((folder / "plimo.ini").exists())

    def test_the_program_needs_only_the_systems_libraries(self):
        with zipfile.ZipFile(package("plimo-*-portable.zip")) as archive:
            names = sorted(archive.namelist())
        self.assertEqual([name for name in names if name.endswith((".exe", ".dll"))], ["Plimo/plimo.exe"])
        dump = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", os.environ.get("PLIMO_PROGRAM") or
                               ROOT / "build-windows/bin/plimo.exe"], capture_output=True, text=True, check=True).stdout
        libraries = {line.split()[-1].lower() for line in dump.splitlines() if "DLL Name:" in line}
        self.assertFalse({name for name in libraries if name.startswith(("lib", "qt", "zlib"))}, libraries)
        for protection in ("HIGH_ENTROPY_VA", "DYNAMIC_BASE", "NX_COMPAT"):
            self.assertIn(protection, dump)
        for directory in ("Base Relocation Directory", "Load Configuration Directory"):
            line, = [line for line in dump.splitlines() if directory in line]
            self.assertNotEqual(int(line.split()[3], 16), 0, directory)


if __name__ == "__main__":
    unittest.main()
