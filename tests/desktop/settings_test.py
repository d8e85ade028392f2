"""The preferences and the colour editor."""
from tests.support.desktop import screen
from tests.support.desktop.settings_file import settings
from tests.support.desktop.test_case import WindowTestCase
from tests.support.desktop.waiting import wait


class Settings(WindowTestCase):
    def test_the_settings_panel_hides_the_lists_and_cancel_shows_them_again(self):
        p = self.start_with_final_playlist()
        p.choose("Settings", "Preferences")
        self.assertIn("save your final playlist", p.answer("Yes"))
        p.find("Settings", "panel")
        for name in ("Artists", "Final playlist"):
            self.assertIsNone(p.visible(name, "list"), f"{name} is visible beside the panel")
        self.assertTrue(p.find("Do not scan for Mp3s during startup").has("checked"), "the stored choice is not shown")
        p.tick("Drives to scan during startup", "D: REMOVABLE")
        wait(lambda: p.find("Scan the Following drives during Startup").has("checked"), "the other choice")
        p.press("Cancel")
        self.assert_becomes(lambda: p.list("Final playlist").count(), 5, "songs in the final playlist")
        self.assertEqual((self.data / "plimo.ini").read_bytes(), settings())

    def test_no_to_the_preferences_keeps_the_lists(self):
        p = self.start_with_final_playlist()
        p.choose("Settings", "Preferences")
        p.answer("No")
        self.assertEqual(p.list("Final playlist").count(), 5)
        self.assertIsNone(p.visible("Settings", "panel"))


class Colours(WindowTestCase):
    def assert_list_colour(self, name, colour):
        """Waits until the empty lower end of a list has this colour."""
        left, top, width, height = self.program.list(name).rect
        lower_end = (left + 10, top + height - 40, width - 40, 20)
        self.assert_becomes(lambda: screen.main_colour(lower_end), colour, f"the colour of {name}")

    def test_sliders_are_moved_by_keys_and_clicks_and_colour_the_chosen_list(self):
        p = self.start_with_lists()
        p.choose("Settings", "Preferences")
        p.press("Show the Color Settings", "check box")
        p.press("Accept")
        p.answer()
        p.press("Scratch", "radio button")
        p.press("Background", "check box")
        red = p.find("Red", "slider")
        screen.click(red.centre())
        wait(lambda: 80 < red.value < 170, "the slider to follow the click")
        screen.key("Home", "Right", "Right", "Prior")
        self.assert_becomes(lambda: red.value, 7, "the slider")
        self.assert_list_colour("Scratch playlist", (7, 0, 0))
        p.press("Restore Old Colour scheme")
        p.find("Artists", "list")
        self.assertEqual((self.data / "plimo.ini").read_bytes(), settings(scan=True))

    def test_the_first_run_continues_with_the_colours_and_then_the_lists(self):
        self.add_songs()
        p = self.start()
        p.find("A Warm Welcome to Plimo!", "panel")
        p.tick("Drives to scan during startup", "C: Hard Drive")
        p.press("Show the Color Settings", "check box")
        p.press("Accept")
        self.assertIn("slider bars", p.answer())
        p.press("Yeah, Yeah.....")
        self.assert_rows("Artists", [" ", "This is the Artist Playlist"])
        self.assertFalse(p.visible("Function", "menu item"), "the menus are visible beside the editor")
        p.press("Artists", "radio button")
        p.press("Background", "check box")
        screen.click(p.find("Blue", "slider").centre())
        screen.key("Home", "Right")
        self.assert_list_colour("Artists", (0, 0, 1))
        p.press("Accept All Changes")
        self.assert_rows("Artists", ["ALDER", "BEECH", "CYPRESS"])
        self.assertEqual((self.data / "plimo.ini").read_bytes().split(b"\r\n")[7], b"65536")
        self.assertFalse((self.data / "plimo2.ini").exists(), "the file of the colour editor is still there")
