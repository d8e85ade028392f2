"""The program is killed at random moments of a scan, of Accept and of Save. Every file is the old or the new one.

A scan begins with the deletion of the catalogue, so that may also be missing.

PLIMO_KILLS is the number of kills, 9 unless it is given.
"""
import os
import random
import threading
import time
import unittest

from tests.support.desktop import screen
from tests.support.desktop.settings_file import settings
from tests.support.windows import places
from tests.support.windows.program import DEADLINE, WindowsProgram
from tests.support.windows.test_case import PROGRAM, WindowsTestCase

SONGS = 1500
KILLS = int(os.environ.get("PLIMO_KILLS", "9"))
OLD_CATALOGUE = b'"C:\\old\\Old - Song.mp3"\r\n"Old"\r\n"Don\'t know!"\r\n" Song.mp3"\r\n' * 2000
FILES = ("plimo.ini", "plimo.kvx", "opened.m3u", "default.m3u", "evening.m3u.m3u")
OLD_PLAYLIST = b"C:\\old\\Old - Song.mp3\r\n" * 2000


class Killing(WindowsTestCase):
    def setUp(self):
        super().setUp()
        for number in range(SONGS):
            (self.collection / f"Artist {number % 40:02} - Song {number:04}.mp3").touch()
        self.new_catalogue = self.catalogue()
        self.random = random.Random(os.environ.get("PLIMO_SEED"))
        self.outcomes = {}

    def begin(self, *arguments, files):
        """Starts the program with these files. What a killed program has left is for the next one to remove."""
        for name in FILES:
            (self.data / name).unlink(missing_ok=True)
        for name, content in files.items():
            (self.data / name).write_bytes(content)
        drives = ("--drive", f"C={self.windows(self.collection)}", "--drive", f"D={self.windows(self.stick)}:removable")
        self.program = WindowsProgram(PROGRAM, "--folder", self.windows(self.data), *drives, *arguments)
        return self.program

    def kill(self, seconds, action=lambda: None):
        """Kills the program at a random moment within some seconds after the start of an action or of its writing."""
        before = self.names_and_sizes()
        thread = threading.Thread(target=action)
        thread.start()
        if self.random.random() < 0.5:
            end = time.monotonic() + DEADLINE
            while self.names_and_sizes() == before and time.monotonic() < end:
                pass
            seconds = 0.01
        time.sleep(self.random.uniform(0, seconds))
        self.program.close()
        thread.join()

    def names_and_sizes(self):
        found = {}
        for entry in os.scandir(self.data):
            try:
                found[entry.name] = entry.stat().st_size, entry.stat().st_ino
            except FileNotFoundError:
                pass
        return found

    def assert_one_of(self, name, **contents):
        try:
            content = (self.data / name).read_bytes()
        except FileNotFoundError:
            content = None
        found = [f"{name} {which}" for which, expected in contents.items() if content == expected]
        self.assertTrue(found, f"{name} is none of {', '.join(contents)}: {(content or b'')[-200:]}")
        self.outcomes[found[0]] = self.outcomes.get(found[0], 0) + 1

    def kill_often(self, once, kills):
        left = 0
        for number in range(1, kills + 1):
            once()
            left += any(name not in FILES for name in os.listdir(self.data))
            if number == kills or number % 10 == 0:
                print(f"\n{number} kills: {self.outcomes}, {left} in the middle of writing", flush=True)

    def share(self, part):
        return (KILLS + part) // 3

    def test_a_kill_during_a_scan_leaves_the_old_or_the_new_catalogue(self):
        def once():
            self.begin(files={"plimo.ini": settings(scan=True), "plimo.kvx": OLD_CATALOGUE})
            self.kill(4)
            self.assert_one_of("plimo.kvx", old=OLD_CATALOGUE, deleted=None, new=self.new_catalogue)
            self.assertEqual((self.data / "plimo.ini").read_bytes(), settings(scan=True))

        self.kill_often(once, self.share(0))

    def test_a_kill_during_accept_leaves_the_old_or_the_new_settings(self):
        old = settings()

        def change_settings():
            p = self.begin(files={"plimo.ini": old, "plimo.kvx": self.new_catalogue})
            p.wait_for_main_window()
            p.open_settings()
            p.tick_box(places.START_COMPACT)
            return p

        written = self.data / "plimo.ini"
        change_settings().click(places.ACCEPT, lambda: written.read_bytes() != old, "the settings")
        self.program.close()
        new = written.read_bytes()
        self.assertEqual(len(new), len(old))

        def once():
            change_settings()
            self.kill(0.4, lambda: screen.click(places.scaled(places.ACCEPT)))
            self.assert_one_of("plimo.ini", old=old, new=new)
            self.assert_one_of("plimo.kvx", old=self.new_catalogue, deleted=None)

        self.kill_often(once, self.share(1))

    def test_a_kill_during_save_leaves_the_old_or_the_new_playlists(self):
        root = self.windows(self.collection)
        new = b"".join(f"{root}\\{path.name}\r\n".encode() for path in sorted(self.collection.iterdir()))

        def once():
            p = self.begin(self.windows(self.data / "opened.m3u"),
                           files={"plimo.ini": settings(), "plimo.kvx": self.new_catalogue, "opened.m3u": new,
                                  "default.m3u": OLD_PLAYLIST})
            p.wait_for_main_window()
            p.choose("alt+f", "a", p.other, "the question of Save")
            p.answer("Return")  # Yes is the default
            p.fill_in_path(self.windows(self.data / "evening"))
            self.kill(0.8, lambda: screen.key("Return"))
            self.assert_one_of("evening.m3u.m3u", old=None, new=new)
            self.assert_one_of("default.m3u", old=OLD_PLAYLIST, new=new)

        self.kill_often(once, self.share(2))


if __name__ == "__main__":
    unittest.main()
