"""The base of the window tests for Windows: folders in the Windows of the tests, and a screenshot of a failure."""
import os
import pathlib
import re
import shutil
import tempfile

from tests.support.desktop import screen, songs
from tests.support.desktop.program_test_case import ProgramTestCase, program_path
from tests.support.desktop.settings_file import settings
from tests.support.desktop.waiting import wait
from tests.support.windows import places, program
from tests.support.windows.program import DEADLINE, WindowsProgram

PROGRAM = program_path("build-windows/bin/plimo.exe")


class WindowsTestCase(ProgramTestCase):
    prefix = "plimo-windows-"

    def setUp(self):
        program.wine()  # creates the Windows if it does not exist
        home = tempfile.mkdtemp(prefix="plimo-", dir=program.prefix() / "drive_c")
        self.addCleanup(shutil.rmtree, home)
        self.use_folders(home)

    def take_picture(self, name, moving=False):
        """Takes a picture if the tests are asked for pictures; once all is painted, unless something moves."""
        if "PLIMO_WINDOWS_PICTURES" in os.environ:
            if not moving:
                self.program.wait_until_painted()
            screen.screenshot(pathlib.Path(os.environ["PLIMO_WINDOWS_PICTURES"]) / f"{name}.png")

    def windows(self, path):
        """A path below drive C as Windows has it."""
        relative = pathlib.Path(path).relative_to(program.prefix() / "drive_c")
        return "C:\\" + str(relative).replace("/", "\\")

    def catalogue(self, root=None):
        """The catalogue of the collection, whose folder Windows has under the name `root`."""
        text = songs.expected_catalogue(self.collection)
        folder = os.fsencode((root or self.windows(self.collection)) + "\\")
        return text.replace(os.fsencode(self.collection) + b"/", folder)

    def start(self, *arguments, drives=True):
        """Starts the program, and waits for its window."""
        if drives:
            for drive in (f"C={self.windows(self.collection)}", f"D={self.windows(self.stick)}:removable"):
                arguments += ("--drive", drive)
        self.program = WindowsProgram(PROGRAM, "--folder", self.windows(self.data), *arguments)
        self.program.wait_for_main_window()
        return self.program

    def write_state(self, scan=False):
        """Writes settings and a catalogue, as an earlier run has left them."""
        (self.data / "plimo.ini").write_bytes(settings(scan=scan))
        (self.data / "plimo.kvx").write_bytes(self.catalogue())

    def start_with_lists(self, seconds=0.2):
        self.add_songs(seconds=seconds)
        self.write_state()
        return self.start()

    def start_with_final_playlist(self, seconds=0.2):
        """The same, with the five songs of the artist ALDER in the scratch and the final playlist."""
        p = self.start_with_lists(seconds)
        self.tick_artist(0, 5)
        p.click_row("scratch", 0)
        for row in range(5):
            if row > 0:
                p.press("Down", places.area_of_rows("scratch"), "the next row")
            self.add_current_song(row + 1)
        return p

    def tick_artist(self, row, songs_listed):
        """Ticks an artist, and waits for the songs in the scratch playlist."""
        self.program.tick("artists", row)
        wait(lambda: self.program.rows("scratch") == songs_listed, "the songs of the artist", DEADLINE)

    def add_current_song(self, count):
        """Adds the current song to the final playlist, which has this many then."""
        p = self.program
        p.act(lambda: screen.key("space"), lambda: p.rows("final") == count, f"song {count} of the final playlist")

    def elapsed(self):
        """The seconds played of the current song, as the title shows them; 0 before it does."""
        found = re.search(r"Elapsed Time : (\d+) : (\d+)", self.program.title())
        return int(found[1]) * 60 + int(found[2]) if found else 0

    def assert_file(self, path, content):
        """Waits until a file has this content."""
        def read():
            try:
                return path.read_bytes()
            except OSError:
                return None

        try:
            wait(lambda: read() == content, path.name, DEADLINE)
        except AssertionError:
            self.assertEqual(read(), content, path.name)

    def playlist(self, *titles, artist="Alder"):
        """The content of a playlist of these songs."""
        return b"".join(os.fsencode(self.windows(self.song(artist, title))) + b"\r\n" for title in titles)

    def save_as(self, name):
        """Saves the final playlist; not as the default one."""
        self.program.choose("alt+f", "a", self.program.other, "the question of Save")
        self.program.answer("n")
        self.program.type_path(self.windows(self.data / name))

    def assert_saved(self, name, content):
        """Waits until the playlist of this name has been saved. Wine's dialog adds the ending of the file type, as that
        of Windows does only if it is asked to; the program adds its own."""
        self.assert_file(self.data / (name + ".m3u.m3u"), content)
