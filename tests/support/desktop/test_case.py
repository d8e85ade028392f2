"""The base of the window tests: each test has folders of its own, and leaves a screenshot if it fails."""
import tempfile

from . import screen, songs
from .program import Program
from .program_test_case import ProgramTestCase, program_path
from .settings_file import settings
from .waiting import wait

PROGRAM = program_path("build/bin/plimo")

# The rows of the artist ALDER in a playlist.
ALDER = [" Ash", " Birch", " Cedar", " Damson", " Elm"]


def read_file(path):
    """The file's content; None if there is no file."""
    try:
        return path.read_bytes()
    except FileNotFoundError:
        return None


class WindowTestCase(ProgramTestCase):
    def setUp(self):
        home = tempfile.TemporaryDirectory(prefix="plimo-window-")
        self.addCleanup(home.cleanup)
        self.use_folders(home.name)

    # --- Starting and using the program ---

    def start(self, *wrapper, drives=()):
        """Starts the program, by the words of the wrapper command if there are any. Nothing is written before."""
        drives = drives or (f"C={self.collection}", f"D={self.stick}:removable")
        options = [word for drive in drives for word in ("--drive", drive)]
        self.program = Program(*wrapper, str(PROGRAM), "--folder", str(self.data), *options)
        return self.program

    def start_with_lists(self, *wrapper, artists=None, scan=False, seconds=0.2):
        """Starts the program with settings and a catalogue, and waits until the artists are listed."""
        self.add_songs(artists, seconds)
        (self.data / "plimo.ini").write_bytes(settings(scan=scan))
        (self.data / "plimo.kvx").write_bytes(songs.expected_catalogue(self.collection))
        p = self.start(*wrapper)
        wait(lambda: p.visible("Artists", "list") and p.list("Artists").count(), "the artists")
        return p

    def start_with_final_playlist(self, seconds=0.2):
        """The same, with the artist ALDER ticked and all the songs in the final playlist."""
        p = self.start_with_lists(seconds=seconds)
        p.tick("Artists", "ALDER")
        wait(lambda: p.list("Scratch playlist").count(), "songs")
        p.press("Show the song commands")
        p.press("Add All")
        wait(lambda: p.list("Final playlist").count(), "the final playlist")
        return p

    def tab_to(self, name, role):
        """Presses Tab until the element has the keyboard focus."""
        for _ in range(40):
            element = self.program.visible(name, role)
            if element is not None and element.has("focused"):
                return
            screen.key("Tab")
        self.fail(f'Tab does not reach "{name}"')

    # --- Assertions ---

    def assert_becomes(self, call, expected, what):
        """Waits until a call returns the expected value."""
        try:
            wait(lambda: call() == expected, what)
        except AssertionError as error:
            raise AssertionError(f"{error} to be {expected!r}: it is {call()!r}") from None

    def assert_rows(self, name, rows):
        """Waits until a list has these rows."""
        self.assert_becomes(lambda: self.program.list(name).rows(), rows, f"the rows of {name}")

    def assert_current(self, name, row):
        """Waits until this row of a list has the keyboard focus."""
        self.assert_becomes(lambda: self.program.list(name).current(), row, f"the current row of {name}")

    def assert_focused(self, name):
        """Waits until a list has the keyboard focus."""
        wait(lambda: self.program.list(name).has("focused"), f"the keyboard focus in {name}")

    def assert_catalogue_is_written(self):
        """Waits until plimo.kvx is the result of a scan of the library."""
        expected = songs.expected_catalogue(self.collection)
        self.assert_becomes(lambda: read_file(self.data / "plimo.kvx"), expected, "plimo.kvx")

    def assert_answer(self, text, button):
        """Answers the message box, which must have this text."""
        self.assertEqual(self.program.answer(button), text)
