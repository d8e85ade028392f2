"""What the tests of the window share: a world of their own to start the program in, and the run that tells ok from FAIL.

A test is a function with one argument, the world; its name is the sentence that it shows to be true (what begins with an
underscore only helps). Each file of tests
is run on a screen of its own:  scripts/with-display python3 tests/desktop/FILE PROGRAM [WORD]
With WORD, only the tests whose names hold it are run.
"""
import inspect
import os
import pathlib
import sys
import tempfile
import time
import traceback

import screen
import songs
from screen import Failure, wait
from window import Program

COLOURS = b'65535\r\n4194304\r\n65535\r\n4194304\r\n65535\r\n"4194304"\r\n'
TREES = {"Alder": ["Ash", "Birch", "Cedar", "Damson", "Elm"], "Beech": ["Fir", "Gorse"], "Cypress": ["Hazel"]}


def settings(drives="C:", scan=False):
    """A settings file's bytes."""
    choice = b"#FALSE#\r\n#TRUE#" if scan else b"#TRUE#\r\n#FALSE#"
    return b'0\r\n' + choice + b'\r\n"' + drives.encode() + b'"\r\n0\r\n0\r\n' + COLOURS


class World:
    def __init__(self, binary, home):
        self.binary = binary
        self.home = home
        self.data = home / "data"
        self.collection = home / "library"
        self.stick = home / "stick"
        self.program = None
        for folder in (self.data, self.collection, self.stick):
            folder.mkdir()

    def plant(self, artists=None):
        """Puts songs into the library: by default three artists' trees, tiny files."""
        for artist, titles in (artists or TREES).items():
            for title in titles:
                songs.write_song(str(self.collection / f"{artist} - {title}.mp3"), 0.2)

    def start(self, *before, drives=(), **words):
        """Starts the program, by the words before it where there are some."""
        drives = drives or (f"C={self.collection}", f"D={self.stick}:removable")
        named = [word for drive in drives for word in ("--drive", drive)]
        command = [*before, str(self.binary)]
        self.program = Program(command[0], *command[1:], "--folder", str(self.data), *named, **words)
        return self.program

    def settled(self, *before, artists=None, scan=False):
        """Starts the program as on any later day: settings and catalogue are there, the lists are loaded."""
        self.plant(artists)
        (self.data / "plimo.ini").write_bytes(settings(scan=scan))
        (self.data / "plimo.kvx").write_bytes(songs.expected_catalogue(str(self.collection)))
        p = self.start(*before)
        wait(lambda: p.sees("Artists", "list") and p.list("Artists").count(), "the artists")
        return p

    def listening(self, artist="ALDER"):
        """The same, with an artist ticked and all of the songs in the final playlist as well."""
        p = self.settled()
        p.tick("Artists", artist)
        wait(lambda: p.list("Scratch playlist").count(), "songs")
        p.press("Show the song commands")
        p.press("Add All")
        wait(lambda: p.list("Final playlist").count(), "the final playlist")
        return p


def content(path):
    """The file's bytes; nothing where it does not stand there (yet)."""
    try:
        return path.read_bytes()
    except FileNotFoundError:
        return None


def equal(seen, expected, what):
    """Waits until a call gives the expected value."""
    try:
        wait(lambda: seen() == expected, what)
    except Failure:
        raise Failure(f"{what}: saw {seen()!r}, expected {expected!r}") from None


def check(holds, what):
    if not holds:
        raise Failure(what)


def current(thing):
    """The text of the row that has the keyboard."""
    return next((row.name for row in thing.children() if row.has("focused")), None)


def run(module):
    binary = pathlib.Path(sys.argv[1]).resolve()
    word = sys.argv[2] if len(sys.argv) > 2 else ""
    tests = [f for f in module.values() if inspect.isfunction(f) and f.__code__.co_varnames[:1] == ("world",)
             and f.__code__.co_argcount == 1 and not f.__name__.startswith("_") and word in f.__name__]
    pictures = pathlib.Path(os.environ.get("PLIMO_TEST_PICTURES", tempfile.gettempdir()))
    failed = 0
    for test in tests:
        began = time.monotonic()
        with tempfile.TemporaryDirectory(prefix="plimo-window-") as home:
            world = World(binary, pathlib.Path(home))
            try:
                test(world)
                verdict, reason = "ok  ", ""
            except Exception as error:  # a test that cannot go on has failed, whatever the reason
                failed += 1
                picture = pictures / f"plimo-{test.__name__}.png"
                try:
                    screen.picture(str(picture))
                except Exception:
                    picture = "none"
                reason = str(error) if isinstance(error, Failure) else traceback.format_exc()
                reason = f"\n     {reason}\n     picture: {picture}"
                verdict = "FAIL"
            finally:
                if world.program is not None:
                    world.program.close()
        print(f"{verdict} {test.__name__.replace('_', ' ')} ({time.monotonic() - began:.1f} s){reason}", flush=True)
    print(f"{len(tests) - failed} ok, {failed} failed")
    sys.exit(1 if failed or not tests else 0)
