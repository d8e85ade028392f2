"""The program for Windows: from the first run to a playlist that plays."""
import os
import re

from tests.support.desktop import screen
from tests.support.desktop.settings_file import settings
from tests.support.desktop.waiting import wait
from tests.support.windows import program
from tests.support.windows.test_case import WindowsTestCase


class Story(WindowsTestCase):
    def test_the_first_run_leads_from_a_drive_to_a_saved_playlist(self):
        self.add_songs()
        link = program.prefix() / "dosdevices" / "c:"
        self.assertTrue(link.exists())
        drive = link.with_name("m:")
        drive.unlink(missing_ok=True)
        drive.symlink_to(self.collection)
        self.addCleanup(drive.unlink)
        program.wine("wineserver", "--kill")  # it looks for drives when it starts
        p = self.start(drives=False)
        self.take_picture("first-run")
        # C is the first drive, M the second.
        screen.click((program.FIRST_DRIVE[0], program.FIRST_DRIVE[1] + program.ROW))
        screen.click(program.ACCEPT)
        self.assert_file(self.data / "plimo.kvx", self.catalogue("M:"))
        self.assert_file(self.data / "plimo.ini", settings(drives="M:", scan=True))
        screen.click(program.CLOSE_WELCOME)
        p.tick("artists", 1)
        p.click_row("scratch", 0)
        screen.key("End", "space", "Home", "space")
        self.take_picture("lists")
        screen.key("alt+f", "a")
        p.answer("Return")
        p.type_path(self.windows(self.data / "mine"))
        lines = b"M:\\Beech - Gorse.mp3\r\nM:\\Beech - Fir.mp3\r\n"
        self.assert_saved("mine", lines)
        self.assert_file(self.data / "default.m3u", lines)

    def test_songs_are_reordered_by_keys_and_saved_in_their_new_order(self):
        p = self.start_with_final_playlist()
        self.save_as("before")
        self.assert_saved("before", self.playlist("Ash", "Birch", "Cedar", "Damson", "Elm"))
        p.click_row("final", 0)
        screen.key("q", "Down", "Down", "w")
        screen.key("alt+v", "l")
        self.save_as("after")
        self.assert_saved("after", self.playlist("Birch", "Cedar", "Ash", "Damson", "Elm"))

    def test_a_saved_playlist_is_opened_again(self):
        p = self.start_with_lists()
        (self.data / "old.m3u").write_bytes(self.playlist("Elm", "Ash"))
        screen.key("alt+f", "o")
        self.assertEqual(p.box(), "Open your play list file")
        self.take_picture("open")
        p.type_path(self.windows(self.data / "old.m3u"))
        self.save_as("new")
        self.assert_saved("new", self.playlist("Elm", "Ash"))

    def test_a_playlist_named_on_the_command_line_is_opened(self):
        self.add_songs()
        self.write_state()
        (self.data / "old.m3u").write_bytes(self.playlist("Elm", "Ash"))
        self.start(self.windows(self.data / "old.m3u"))
        self.save_as("new")
        self.assert_saved("new", self.playlist("Elm", "Ash"))

    def test_songs_play_one_after_the_other(self):
        p = self.start_with_final_playlist(seconds=4)
        p.click_row("final", 1, times=2)
        self.assert_file(self.data / "list.m3u", self.playlist("Birch", "Cedar", "Damson", "Elm"))
        wait(lambda: re.search(r"0 ?[:m].*[1-9]", p.title()), "the time in the title", 20)
        self.take_picture("playing")

    def test_the_compact_view_is_small_and_the_large_one_fills_the_screen(self):
        p = self.start_with_lists()
        large = p.size()
        screen.key("alt+v", "c")
        wait(lambda: p.size()[0] < large[0] / 2 + 300 and p.size()[1] < large[1] / 2, "the compact view")
        self.take_picture("compact")
        screen.key("alt+v", "l")
        wait(lambda: p.size() == large, "the large view")

    def test_what_is_closed_ends_with_status_0_and_starts_again(self):
        p = self.start_with_lists()
        screen.key("alt+F4")
        self.assertEqual(p.wait_for_exit(), 0)
        before = (self.data / "plimo.ini").read_bytes()
        self.start()
        self.assertEqual((self.data / "plimo.ini").read_bytes(), before)


class Songs(WindowsTestCase):
    def start_with_scratch_playlist(self):
        p = self.start_with_lists()
        p.tick("artists", 0)
        p.click_row("scratch", 1)
        return p

    def titles(self):
        return sorted(name[len("Alder - "):-4] for name in os.listdir(self.collection) if name.startswith("Alder"))

    def test_a_song_is_renamed(self):
        p = self.start_with_scratch_playlist()
        screen.key("v", "n")
        p.box()
        screen.key("ctrl+a")
        screen.type_text("Alder - Beta")
        p.answer("Return")
        wait(lambda: self.titles() == ["Ash", "Beta", "Cedar", "Damson", "Elm"], "the new name")
        p.answer("n")

    def test_a_song_is_deleted(self):
        p = self.start_with_scratch_playlist()
        screen.key("v", "d", "d", "Return")
        p.answer("Return")  # No is the default
        self.assertEqual(len(self.titles()), 5)
        screen.key("v", "d", "d", "Return")
        p.answer("y")
        wait(lambda: self.titles() == ["Ash", "Cedar", "Damson", "Elm"], "the deletion")
        p.answer("n")


if __name__ == "__main__":
    import unittest
    unittest.main()
