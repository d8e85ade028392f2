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
        wait(lambda: self.elapsed() >= 2, "the time to advance", 20)
        self.take_picture("playing")
        wait(lambda: self.elapsed() < 2, "the next song", 20)

    def test_the_player_seeks_and_goes_on_to_the_next_song(self):
        p = self.start_with_final_playlist(seconds=100)
        p.click_row("final", 0, times=2)
        wait(lambda: self.elapsed() >= 1, "the time to advance", 20)
        left, right = program.SEEK_BAR
        screen.click(((left + right) // 2, program.SEEK_HEIGHT))
        wait(lambda: 40 < self.elapsed() < 70, "the middle of the song", 20)
        screen.click(program.NEXT_SONG)
        wait(lambda: 1 <= self.elapsed() < 20, "the next song", 20)

    def elapsed(self):
        """The seconds played of the current song, as the title shows them; 0 before it does."""
        found = re.search(r"Elapsed Time : (\d+) : (\d+)", self.program.title())
        return int(found[1]) * 60 + int(found[2]) if found else 0

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

    def test_a_song_is_copied_to_another_drive(self):
        self.start_with_scratch_playlist()
        screen.key("v", "c")
        screen.click(program.DRIVE_BOX)
        screen.key("End", "Return")
        self.take_picture("copy")
        screen.click(program.START_COPYING)
        copy = self.stick / "Alder - Birch.mp3"
        self.assert_file(copy, self.song("Alder", "Birch").read_bytes())
        self.assertEqual(int(copy.stat().st_mtime), int(self.song("Alder", "Birch").stat().st_mtime))

    def test_a_song_is_deleted(self):
        p = self.start_with_scratch_playlist()
        screen.key("v", "d", "d", "Return")
        p.answer("Return")  # No is the default
        self.assertEqual(len(self.titles()), 5)
        screen.key("v", "d", "d", "Return")
        p.answer("y")
        wait(lambda: self.titles() == ["Ash", "Cedar", "Damson", "Elm"], "the deletion")
        p.answer("n")


class Settings(WindowsTestCase):
    def open_preferences(self):
        p = self.start_with_lists()
        screen.key("alt+s", "Return")
        return p

    def settings_lines(self):
        return (self.data / "plimo.ini").read_bytes().split(b"\r\n")

    def test_accepted_preferences_are_written(self):
        self.open_preferences()
        before = self.settings_lines()
        self.take_picture("preferences")
        screen.click(program.START_COMPACT)
        screen.click(program.ACCEPT)
        wait(lambda: self.settings_lines() != before, "the settings to be written")
        after = self.settings_lines()
        self.assertEqual(len(after), len(before))
        self.assertNotEqual(after[5], before[5])
        self.assertEqual(after[6:], before[6:])

    def test_closing_in_the_colour_editor_keeps_the_colours(self):
        p = self.open_preferences()
        before = self.settings_lines()
        screen.click(program.SHOW_COLOURS)
        screen.click(program.ACCEPT)
        p.answer("Return")
        self.take_picture("colours")
        screen.key("alt+F4")
        self.assertEqual(p.wait_for_exit(), 0)
        self.assertEqual(self.settings_lines()[6:], before[6:])


if __name__ == "__main__":
    import unittest
    unittest.main()
