"""What the window tests of both systems share: the test songs, the program's end, and a screenshot of a failure."""
import os
import pathlib
import tempfile
import unittest

from tests.support.desktop import screen, songs

ROOT = pathlib.Path(__file__).resolve().parents[3]
# The folder for the screenshots of failed tests.
SCREENSHOTS = pathlib.Path(os.environ.get("PLIMO_TEST_PICTURES", tempfile.gettempdir()))

ARTISTS = {"Alder": ["Ash", "Birch", "Cedar", "Damson", "Elm"], "Beech": ["Fir", "Gorse"], "Cypress": ["Hazel"]}


def program_path(default):
    """The program under test: PLIMO_PROGRAM, or this path in the project."""
    return pathlib.Path(os.environ.get("PLIMO_PROGRAM", ROOT / default)).resolve()


class ProgramTestCase(unittest.TestCase):
    # Of the screenshots.
    prefix = "plimo-"

    def use_folders(self, home):
        """Makes the folders of the test in this one: for the program's files, the songs, and a removable drive."""
        self.home = pathlib.Path(home)
        self.data, self.collection, self.stick = (self.home / name for name in ("data", "library", "stick"))
        for folder in (self.data, self.collection, self.stick):
            folder.mkdir()
        self.program = None
        # Cleanups run in reverse order: the screenshot is taken while the program is still on the screen.
        self.addCleanup(self.close_program)
        self.addCleanup(self.take_screenshot_of_failure)

    def run(self, result=None):
        self.result = result if result is not None else self.defaultTestResult()
        return super().run(self.result)

    def close_program(self):
        if self.program is not None:
            self.program.close()

    def take_screenshot_of_failure(self):
        failed = [getattr(test, "test_case", test) for test, _ in self.result.failures + self.result.errors]
        if self not in failed:
            return
        path = SCREENSHOTS / f"{self.prefix}{self._testMethodName}.png"
        try:
            screen.screenshot(path)
            print(f"\nscreenshot of the failure: {path}", flush=True)
        except Exception as error:  # the test has failed already, and its report matters more
            print(f"\nno screenshot of the failure: {error}", flush=True)

    def song(self, artist, title):
        return self.collection / f"{artist} - {title}.mp3"

    def add_songs(self, artists=None, seconds=0.2):
        """Writes songs into the library, by default those of ARTISTS: all of one length, or each of that which a
        function returns for its title."""
        for artist, titles in (artists or ARTISTS).items():
            for title in titles:
                songs.write_song(self.song(artist, title), seconds(title) if callable(seconds) else seconds)
