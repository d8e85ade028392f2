"""The line at the foot of the window."""
import os

from tests.support.desktop import screen
from tests.support.desktop.test_case import ALDER, WindowTestCase
from tests.support.desktop.waiting import wait


class StatusLine(WindowTestCase):
    def line(self):
        """The status line: the last notification, after those of the player."""
        return self.program.elements(role="notification")[-1]

    def status(self):
        return self.line().name

    def test_a_saved_playlist_is_reported_below_the_lists_and_the_player(self):
        p = self.start_with_final_playlist()
        p.choose("Function", "Save")
        p.answer("No")
        p.find("File name:", "text")
        screen.type_text(str(self.data / "evening"))
        screen.key("Return")
        self.assert_becomes(self.status, "5 songs saved to evening.m3u", "the status")
        _, top, _, height = self.line().rect
        _, list_top, _, list_height = p.list("Artists").rect
        self.assertGreaterEqual(top, list_top + list_height)
        _, window_top, _, window_height = p.find("Plimo!", "frame").rect
        self.assertLessEqual(top + height, window_top + window_height)
        p.choose("View", "Compact")
        p.wait_until_gone("Artists", "list")
        self.assertFalse(p.visible("5 songs saved to evening.m3u"), "the status is visible in the compact view")
        p.choose("View", "Large")
        p.list("Artists")

    def test_the_heading_of_the_final_playlist_stays_while_a_file_is_chosen(self):
        p = self.start_with_final_playlist()
        left, top, width, _ = p.list("Final playlist").rect
        heading = (left, top - 100, width, 60)
        before = screen.pixels(heading)
        self.assertGreater(len(set(before)), 2, "the heading is not painted")
        p.choose("Function", "Save")
        p.answer("No")
        p.find("File name:", "text")
        self.assert_becomes(lambda: screen.pixels(heading) == before, True, "the same heading")

    def test_a_deletion_says_beforehand_how_much_and_no_is_the_default(self):
        p = self.start_with_final_playlist()
        p.press("Show the song commands")
        p.press("Delete All")
        p.find("5 files in 1 folder will be deleted.", "label")
        p.answer()
        self.assertEqual(len(list(self.collection.glob("Alder*"))), 5)
        p.press("Delete All")
        p.answer("Yes")
        p.answer("No")
        self.assert_becomes(self.status, "5 files deleted", "the status")

    def test_equal_names_while_copying_may_be_silenced(self):
        for title in ALDER:
            (self.stick / f"Alder -{title}.mp3").write_bytes(b"there first")
        p = self.start_with_lists()
        p.tick("Artists", "ALDER")
        self.assert_rows("Scratch playlist", ALDER)
        p.click_row("Scratch playlist", "Ash")
        with screen.holding("shift"):
            p.click_row("Scratch playlist", "Elm")
        screen.key("v")
        screen.click(p.context_menu()["Copy Selected files to .."].centre())
        p.find("Copy Files to ..", "panel")
        screen.click(p.find(None, "combo box").centre())
        screen.key("End", "Return")
        p.find(f"Copies go to {self.stick}")
        p.press("Start Copying")
        p.message()
        self.assertIsNone(p.visible("Say no more", "push button"))
        p.answer("OK")
        p.answer("Say no more")
        p.wait_until_gone("Copy Files to ..", "panel")
        self.assertIsNone(p.visible_message())
        self.assertIn("already there 5", self.status())


class UnreadableFolders(WindowTestCase):
    def start_scan(self):
        self.add_songs()
        for name in ("one", "two"):
            (self.collection / name).mkdir()
            (self.collection / name).chmod(0)
            self.addCleanup((self.collection / name).chmod, 0o755)
        wrapper = ["setpriv", "--bounding-set", "-dac_override,-dac_read_search"] if os.geteuid() == 0 else []
        p = self.start_with_lists(*wrapper, artists={"Alder": ["Ash"]})
        p.choose("Function", "Scan other drives for Mp3s")
        p.click_row("Drives to scan", "C: Hard Drive")
        p.press("Okay")
        return p

    def test_each_may_be_skipped(self):
        p = self.start_scan()
        for name in ("one", "two"):
            self.assertEqual(p.answer("Skip"), f"This folder cannot be read:\n\n{self.collection / name}")
        self.assert_rows("Artists", ["ALDER", "BEECH", "CYPRESS"])
        wait(lambda: p.visible("2 folders skipped"), "the status")

    def test_all_may_be_skipped_at_once(self):
        p = self.start_scan()
        p.answer("Skip all")
        wait(lambda: p.visible("2 folders skipped"), "the status")

    def test_escape_stops(self):
        p = self.start_scan()
        p.message()
        screen.key("Escape")
        self.assertRegex(p.answer(), "^Run-time error '7[05]'")
