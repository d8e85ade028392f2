"""From the first start to a saved playlist, and errors at start-up."""
import os

from tests.support.desktop import screen
from tests.support.desktop.settings_file import settings
from tests.support.desktop.test_case import WindowTestCase, read_file
from tests.support.desktop.waiting import wait


class FirstRun(WindowTestCase):
    def test_the_first_run_leads_to_a_saved_playlist_by_keyboard_alone(self):
        self.add_songs()
        p = self.start()
        p.find("A Warm Welcome to Plimo!", "panel")
        wait(lambda: p.find("Scan the Following drives during Startup").has("focused"), "the keyboard focus")
        self.tab_to("Drives to scan during startup", "list")
        screen.key("Home", "space")
        self.assert_becomes(p.list("Drives to scan during startup").ticked, ["C: Hard Drive"], "ticked drives")
        self.tab_to("Accept", "push button")
        screen.key("Return")
        self.assert_rows("Artists", ["ALDER", "BEECH", "CYPRESS"])
        self.tab_to("Yeah, Yeah.....", "push button")
        screen.key("Return")
        self.tab_to("Artists", "list")
        screen.key("Home", "Down", "space")
        self.assert_rows("Scratch playlist", [" Fir", " Gorse"])
        screen.key("Tab")
        self.assertTrue(p.list("Scratch playlist").has("focused"), "Tab does not move from the artists to the songs")
        screen.key("End", "space", "Home", "space")
        self.assert_rows("Final playlist", [" Gorse", " Fir"])
        screen.key("alt+f", "a")
        self.assertEqual(p.message(), "Would you like to make this the default play list ?")
        screen.key("Return")
        p.find("File name:", "text")
        screen.type_text(str(self.data / "mine"))
        screen.key("Return")
        paths = (self.collection / "Beech - Gorse.mp3", self.collection / "Beech - Fir.mp3")
        lines = b"".join(os.fsencode(path) + b"\r\n" for path in paths)
        self.assert_becomes(lambda: read_file(self.data / "mine.m3u"), lines, "playlist")
        self.assert_becomes(lambda: read_file(self.data / "default.m3u"), lines, "default playlist")
        self.assert_catalogue_is_written()

    def test_the_splash_comes_first_when_there_are_no_settings(self):
        p = self.start()
        wait(lambda: p.visible("Plimo!", "push button"), "the splash")
        self.assertFalse(p.visible("Settings", "panel"), "the settings are visible during the splash")
        p.find("Settings", "panel")
        self.assertFalse(p.visible("Plimo!", "push button"), "the splash is still visible")

    def test_nothing_of_the_logo_shows_between_the_lists_after_accepting(self):
        self.add_songs()
        p = self.start()
        p.tick("Drives to scan during startup", "C: Hard Drive")
        p.press("Accept")
        self.assert_rows("Artists", ["ALDER", "BEECH", "CYPRESS"])
        scratch, final = p.list("Scratch playlist").rect, p.list("Final playlist").rect
        right = scratch[0] + scratch[2] + 4
        gap = (right, scratch[1], final[0] - 4 - right, scratch[3])
        self.assertGreater(gap[2], 2)
        self.assert_becomes(lambda: len(set(screen.pixels(gap))), 1, "the number of colours in the gap")

    def test_accepting_without_a_drive_is_refused(self):
        p = self.start()
        p.press("Accept")
        self.assertEqual(p.answer(), "You will have to select atleast 1 drive to scan for Mp3s!")
        self.assertFalse((self.data / "plimo.ini").exists(), "settings were written")

    def test_settings_that_cannot_be_written_are_reported_and_the_window_stays(self):
        self.add_songs()
        self.data.chmod(0o555)
        # A superuser may write everywhere, so that capability is dropped.
        wrapper = ["setpriv", "--bounding-set", "-dac_override,-dac_read_search"] if os.geteuid() == 0 else []
        try:
            p = self.start(*wrapper)
            p.tick("Drives to scan during startup", "C: Hard Drive")
            p.press("Accept")
            self.assertRegex(p.answer(), "(?s)^Run-time error '7.*plimo\\.ini")
            self.assertTrue(p.find("Settings", "panel").has("showing"), "the window was closed")
            self.assertEqual(os.listdir(self.data), [])
        finally:
            self.data.chmod(0o755)


class StartErrors(WindowTestCase):
    def test_a_damaged_settings_file_is_reported_and_ends_the_program(self):
        (self.data / "plimo.ini").write_bytes(b'0\r\n#TRUE#\r\n#FALSE#\r\n"C:"\r\n')
        p = self.start()
        self.assertRegex(p.message(), "^Run-time error '62':\n\nInput past end of file")
        p.answer("OK")
        p.answer("No")
        self.assertEqual(p.wait_for_exit(), 1)

    def test_the_root_folder_of_a_drive_is_refused(self):
        p = self.start(drives=(f"C={self.data}",))
        self.assertEqual(p.answer(),
                         "Sorry, Plimo cannot be installed in the root folder! "
                         "Please install Plimo in any sub-directory")
        p.wait_for_exit()
        self.assertEqual(os.listdir(self.data), [])


class ScanAtStart(WindowTestCase):
    def start_long_scan(self):
        """Starts the program with a scan of minutes. The Cancel button."""
        self.add_songs()
        for number in range(1500):
            (self.collection / f"empty {number}").mkdir()
        # The same drive is scanned 9000 times.
        (self.data / "plimo.ini").write_bytes(settings("C:" * 9000, scan=True))
        p = self.start()
        panel = wait(lambda: p.progress_panel("song"), "the progress panel", 20)
        before = panel.name
        wait(lambda: panel.name != before, "progress of the scan")
        cancel = panel.child(0)
        self.assertEqual(cancel.name, "Cancel")
        return cancel

    def test_a_scan_shows_its_progress_and_can_be_cancelled(self):
        cancel = self.start_long_scan()
        screen.click(cancel.centre())
        self.assert_rows("Artists", ["ALDER", "BEECH", "CYPRESS"])
        wait(lambda: not cancel.has("showing"), "the progress panel to disappear")

    def test_escape_cancels_a_scan_wherever_the_keyboard_focus_is(self):
        cancel = self.start_long_scan()
        screen.key("Tab", "Escape")
        self.assert_rows("Artists", ["ALDER", "BEECH", "CYPRESS"])
        wait(lambda: not cancel.has("showing"), "the progress panel to disappear")
