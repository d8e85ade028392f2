"""Closing the window, and requests to end the program, while it works or a box is open."""
import signal

from tests.support.desktop import screen, songs
from tests.support.desktop.program import SLOW_DISK
from tests.support.desktop.settings_file import settings
from tests.support.desktop.test_case import ALDER, WindowTestCase
from tests.support.desktop.waiting import wait


class Closing(WindowTestCase):
    def start_long_scan(self):
        self.add_songs()
        for number in range(1500):
            (self.collection / f"empty {number}").mkdir()
        (self.data / "plimo.ini").write_bytes(settings("C:" * 9000, scan=True))
        p = self.start()
        wait(lambda: p.progress_panel("song"), "the progress panel", 20)
        return p

    def test_closing_the_window_during_a_scan_keeps_what_was_found_and_ends(self):
        p = self.start_long_scan()
        screen.key("alt+F4")
        self.assertEqual(p.wait_for_exit(), 0)
        self.assertTrue((self.data / "plimo.kvx").stat().st_size > 0, "the songs found are lost")

    def test_a_signal_during_a_scan_ends_the_program_as_closing_does(self):
        p = self.start_long_scan()
        p.process.send_signal(signal.SIGTERM)
        self.assertEqual(p.wait_for_exit(), 0)
        self.assertTrue((self.data / "plimo.kvx").stat().st_size > 0, "the songs found are lost")

    def test_closing_the_window_during_a_copy_leaves_no_part_of_a_file(self):
        self.add_songs()
        for title in ALDER:
            songs.enlarge(self.collection / f"Alder -{title}.mp3", 40)
        p = self.start_with_lists(*SLOW_DISK, artists={"Beech": ["Fir"]})
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
        wait(lambda: p.progress_panel("Copying"), "the progress panel", 20)
        screen.key("alt+F4")
        self.assertEqual(p.wait_for_exit(), 0)
        copies = list(self.stick.iterdir())
        self.assertLess(len(copies), 5)
        self.assertTrue(all(copy.stat().st_size >= 40 << 20 for copy in copies), copies)

    def test_closing_the_window_during_a_deletion_keeps_the_remaining_files(self):
        artists = {"Alder": [f"Song {number}" for number in range(60)]}
        p = self.start_with_lists(*SLOW_DISK, artists=artists)
        p.tick("Artists", "ALDER")
        wait(lambda: p.list("Scratch playlist").count() == 60, "the songs")
        p.press("Show the song commands")
        p.press("Delete All")
        p.answer("Yes")
        wait(lambda: p.progress_panel("Deleting"), "the progress panel", 20)
        screen.key("alt+F4")
        self.assertEqual(p.wait_for_exit(), 0)
        self.assertGreater(len(list(self.collection.iterdir())), 0)

    def test_a_signal_ends_the_program_while_a_box_is_open(self):
        p = self.start_with_lists()
        p.choose("Function", "Hotkeys")
        p.message()
        p.process.send_signal(signal.SIGINT)
        self.assertEqual(p.wait_for_exit(), 0)

    def test_a_signal_in_the_colour_editor_leaves_whole_settings(self):
        p = self.start_with_lists()
        p.choose("Settings", "Preferences")
        p.press("Show the Color Settings", "check box")
        p.press("Accept")
        p.answer("OK")
        p.find("Restore Old Colour scheme", "push button")
        p.process.send_signal(signal.SIGTERM)
        self.assertEqual(p.wait_for_exit(), 0)
        lines = (self.data / "plimo.ini").read_bytes().splitlines()
        self.assertEqual(len(lines), 12)


class StartingAnew(WindowTestCase):
    def test_a_damaged_settings_file_is_moved_aside_and_the_program_starts_again(self):
        (self.data / "plimo.ini").write_bytes(b'0\r\n#TRUE#\r\n')
        p = self.start()
        p.answer("OK")
        self.assertEqual(p.answer("Yes"), "Start anew without this file? It is kept as plimo.ini.old; "
                                          "songs and playlists are not touched.")
        p.find("A Warm Welcome to Plimo!", "panel")
        self.assertEqual((self.data / "plimo.ini.old").read_bytes(), b'0\r\n#TRUE#\r\n')
        screen.key("alt+F4")
        self.assertEqual(p.wait_for_exit(), 0)

    def test_no_is_the_default_and_ends_the_program(self):
        (self.data / "plimo.ini").write_bytes(b'0\r\n#TRUE#\r\n')
        p = self.start()
        p.answer("OK")
        p.answer()
        self.assertEqual(p.wait_for_exit(), 1)
        self.assertFalse((self.data / "plimo.ini.old").exists())
