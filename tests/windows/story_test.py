"""The program for Windows: from the first run to a playlist that plays."""
import os

from tests.support.desktop import screen
from tests.support.desktop.settings_file import settings
from tests.support.desktop.waiting import wait
from tests.support.windows import places, program
from tests.support.windows.program import DEADLINE, changed, changed_colour
from tests.support.windows.test_case import WindowsTestCase


class Story(WindowsTestCase):
    def test_the_first_run_leads_from_a_drive_to_a_saved_playlist(self):
        self.add_songs()
        link = program.prefix() / "dosdevices" / "c:"
        self.assertTrue(link.exists())
        drive = link.with_name("d:")
        drive.unlink(missing_ok=True)
        drive.symlink_to(self.collection)
        self.addCleanup(drive.unlink)
        program.wine("wineserver", "--kill")  # it looks for drives when it starts
        p = self.start(drives=False)
        self.take_picture("first-run")
        p.tick("drives", 1)  # after C
        p.click(places.ACCEPT, (self.data / "plimo.ini").exists, "the settings")
        self.assert_file(self.data / "plimo.kvx", self.catalogue("D:"))
        self.assert_file(self.data / "plimo.ini", settings(drives="D:", scan=True))
        p.click(places.CLOSE_WELCOME, lambda: p.rows("artists") == 3, "the artists")
        self.tick_artist(1, 2)
        p.click_row("scratch", 0)
        p.press("End", places.area_of_rows("scratch"), "the last row")
        self.add_current_song(1)
        p.press("Home", places.area_of_rows("scratch"), "the first row")
        self.add_current_song(2)
        self.take_picture("lists")
        p.choose("alt+f", "a", p.other, "the question of Save")
        p.answer("Return")
        p.type_path(self.windows(self.data / "mine"))
        lines = b"D:\\Beech - Gorse.mp3\r\nD:\\Beech - Fir.mp3\r\n"
        self.assert_saved("mine", lines)
        self.assert_file(self.data / "default.m3u", lines)

    def test_songs_are_reordered_by_keys_and_saved_in_their_new_order(self):
        p = self.start_with_final_playlist()
        self.save_as("before")
        self.assert_saved("before", self.playlist("Ash", "Birch", "Cedar", "Damson", "Elm"))
        p.click_row("final", 0)
        p.press("q", places.scaled_area(places.STATUS), "the song to be picked up")
        p.press("Down", places.area_of_rows("final"), "the second row")
        p.press("Down", places.area_of_rows("final"), "the third row")
        p.press("w", places.scaled_area(places.STATUS), "the song to be dropped")
        p.choose("alt+v", "l", changed(places.scaled_area(places.STATUS)), "the new order")
        self.save_as("after")
        self.assert_saved("after", self.playlist("Birch", "Cedar", "Ash", "Damson", "Elm"))

    def test_a_saved_playlist_is_opened_again(self):
        p = self.start_with_lists()
        (self.data / "old.m3u").write_bytes(self.playlist("Elm", "Ash"))
        p.choose("alt+f", "o", p.other, "the dialog of Open")
        self.assertEqual(p.box(), "Open your play list file")
        self.take_picture("open")
        p.type_path(self.windows(self.data / "old.m3u"))
        self.save_as("new")
        self.assert_saved("new", self.playlist("Elm", "Ash"))

    def test_an_existing_playlist_is_replaced_under_its_own_name(self):
        p = self.start_with_final_playlist()
        (self.data / "old.m3u").write_bytes(self.playlist("Elm"))
        p.choose("alt+f", "a", p.other, "the question of Save")
        p.answer("n")
        dialog = p.fill_in_path(self.windows(self.data / "old.m3u"))
        p.act(lambda: p.focused() == dialog and screen.key("Return"), lambda: p.other() not in (None, dialog),
              "the question about the existing file")
        p.answer("y")
        self.assert_file(self.data / "old.m3u", self.playlist("Ash", "Birch", "Cedar", "Damson", "Elm"))
        self.assertFalse((self.data / "old.m3u.m3u").exists())

    def test_a_playlist_named_on_the_command_line_is_opened(self):
        self.add_songs()
        self.write_state()
        (self.data / "old.m3u").write_bytes(self.playlist("Elm", "Ash"))
        self.start(self.windows(self.data / "old.m3u"))
        self.save_as("new")
        self.assert_saved("new", self.playlist("Elm", "Ash"))

    def test_songs_play_one_after_the_other(self):
        p = self.start_with_final_playlist(seconds=4)
        p.click_row("final", 1, (self.data / "list.m3u").exists, times=2)
        self.assert_file(self.data / "list.m3u", self.playlist("Birch", "Cedar", "Damson", "Elm"))
        wait(lambda: self.elapsed() >= 2, "the time to advance", DEADLINE)
        self.take_picture("playing", moving=True)
        wait(lambda: self.elapsed() < 2, "the next song", DEADLINE)

    def test_the_player_seeks_and_goes_on_to_the_next_song(self):
        p = self.start_with_final_playlist(seconds=100)
        p.click_row("final", 0, (self.data / "list.m3u").exists, times=2)
        wait(lambda: self.elapsed() >= 1, "the time to advance", DEADLINE)
        left, right = places.SEEK_BAR
        p.click(((left + right) // 2, places.SEEK_HEIGHT), lambda: 40 < self.elapsed() < 90, "the middle of the song")
        p.click(places.NEXT_SONG, lambda: 1 <= self.elapsed() < 20, "the next song")

    def test_the_compact_view_is_small_and_the_large_one_fills_the_screen(self):
        p = self.start_with_lists()
        large = p.size()
        p.choose("alt+v", "c", lambda: p.size()[0] < large[0] * 3 / 4 and p.size()[1] < large[1] / 2,
                 "the compact view")
        wait(self.player_fills_window, "the player to fill the window", DEADLINE)
        self.take_picture("compact")
        p.choose("alt+v", "l", lambda: p.size() == large, "the large view")

    def player_fills_window(self):
        """Whether the line around the player is at the right and at the lower edge of the window."""
        left, top, width, height = self.program.area()
        right = screen.pixels((left + width - 1, top + height - 40, 1, 1))
        lower = screen.pixels((left + 40, top + height - 1, 1, 1))
        inside = screen.pixels((left + width - 10, top + height - 40, 1, 1))
        return right == lower != inside

    def test_what_is_closed_ends_with_status_0_and_starts_again(self):
        p = self.start_with_lists()
        self.assertEqual(p.close_by_keys(), 0)
        before = (self.data / "plimo.ini").read_bytes()
        self.start()
        self.assertEqual((self.data / "plimo.ini").read_bytes(), before)


class Songs(WindowsTestCase):
    def start_with_scratch_playlist(self):
        p = self.start_with_lists()
        self.tick_artist(0, 5)
        p.click_row("scratch", 1)
        return p

    def titles(self):
        return sorted(name[len("Alder - "):-4] for name in os.listdir(self.collection) if name.startswith("Alder"))

    def test_a_song_is_renamed(self):
        p = self.start_with_scratch_playlist()
        p.choose("v", "n", p.other, "the box for the name")
        screen.key("ctrl+a")
        screen.type_text("Alder - Beta")
        p.answer("Return")
        wait(lambda: self.titles() == ["Ash", "Beta", "Cedar", "Damson", "Elm"], "the new name", DEADLINE)
        p.answer("n")

    def test_a_song_is_copied_to_another_drive(self):
        p = self.start_with_scratch_playlist()
        copy = self.stick / "Alder - Birch.mp3"
        p.choose("v", "c", changed_colour(places.scaled(places.COPYING)), "the panel for copying")
        count = len(p.windows())
        p.click(places.DRIVE_BOX, lambda: len(p.windows()) > count, "the list of drives")
        p.act(lambda: screen.key("End", "Return"), lambda: len(p.windows()) == count, "the drive to be chosen")
        self.take_picture("copy")
        p.click(places.START_COPYING, copy.exists, "the copy")
        self.assert_file(copy, self.song("Alder", "Birch").read_bytes())
        self.assertEqual(int(copy.stat().st_mtime), int(self.song("Alder", "Birch").stat().st_mtime))

    def ask_for_deletion(self):
        self.program.choose("v", "d d Return", self.program.other, "the question before the deletion")

    def test_a_song_is_deleted(self):
        p = self.start_with_scratch_playlist()
        self.ask_for_deletion()
        p.answer("Return")  # No is the default
        self.assertEqual(len(self.titles()), 5)
        self.ask_for_deletion()
        p.answer("y")
        wait(lambda: self.titles() == ["Ash", "Cedar", "Damson", "Elm"], "the deletion", DEADLINE)
        p.answer("n")


class Settings(WindowsTestCase):
    def open_preferences(self):
        p = self.start_with_lists()
        p.open_settings()
        return p

    def settings_lines(self):
        return (self.data / "plimo.ini").read_bytes().split(b"\r\n")

    def test_accepted_preferences_are_written(self):
        p = self.open_preferences()
        before = self.settings_lines()
        self.take_picture("preferences")
        p.tick_box(places.START_COMPACT)
        p.click(places.ACCEPT, lambda: self.settings_lines() != before, "the settings to be written")
        after = self.settings_lines()
        self.assertEqual(len(after), len(before))
        self.assertNotEqual(after[5], before[5])
        self.assertEqual(after[6:], before[6:])

    def test_closing_in_the_colour_editor_keeps_the_colours(self):
        p = self.open_preferences()
        before = self.settings_lines()
        p.tick_box(places.SHOW_COLOURS)
        p.click(places.ACCEPT, p.other, "the box before the colour editor")
        p.answer("Return")
        self.take_picture("colours")
        self.assertEqual(p.close_by_keys(), 0)
        self.assertEqual(self.settings_lines()[6:], before[6:])


if __name__ == "__main__":
    import unittest
    unittest.main()
