"""The keyboard focus in the window, and the panels over it."""
from tests.support.desktop import screen
from tests.support.desktop.test_case import WindowTestCase
from tests.support.desktop.waiting import wait


class PanelsTestCase(WindowTestCase):
    def has_focus(self, name, role):
        element = self.program.visible(name, role)
        return element is not None and element.has("focused")

    def open_copy_panel(self):
        self.program.click_row("Scratch playlist", "Birch")
        screen.key("v")
        screen.click(self.program.context_menu()["Copy Selected files to .."].centre())
        self.program.find("Copy Files to ..", "panel")


class KeyboardFocus(PanelsTestCase):
    def test_tab_moves_from_list_to_list(self):
        p = self.start_with_final_playlist()
        p.click_row("Artists", "BEECH")
        for name in ("Scratch playlist", "Final playlist"):
            screen.key("Tab")
            self.assert_focused(name)
        screen.key("shift+Tab", "shift+Tab")
        self.assert_focused("Artists")

    def test_a_click_into_a_list_gives_it_the_focus(self):
        p = self.start_with_final_playlist()
        p.click_row("Final playlist", "Cedar")
        self.assert_current("Final playlist", " Cedar")
        screen.key("Up")
        self.assert_current("Final playlist", " Birch")

    def test_a_panel_takes_the_focus_and_returns_it(self):
        p = self.start_with_final_playlist()
        self.open_copy_panel()
        wait(lambda: self.has_focus(None, "combo box"), "the keyboard focus in the copy panel")
        screen.key("Tab", "Tab", "Tab", "Return")
        p.wait_until_gone("Copy Files to ..", "panel")
        self.assert_current("Scratch playlist", " Birch")
        p.choose("Function", "Scan other drives for Mp3s")
        self.assert_focused("Drives to scan")
        screen.key("Tab", "Tab", "Return")
        p.wait_until_gone("Drive Selection", "panel")
        self.assert_current("Scratch playlist", " Birch")
        p.choose("Help", "Credits")
        wait(lambda: self.has_focus("Ok!", "push button"), "the keyboard focus on the only button")
        screen.key("Return")
        p.wait_until_gone("Credits!", "panel")

    def test_a_scan_of_chosen_drives_returns_the_focus(self):
        p = self.start_with_final_playlist()
        p.click_row("Scratch playlist", "Birch")
        p.choose("Function", "Scan other drives for Mp3s")
        p.click_row("Drives to scan", "C: Hard Drive")
        p.press("Okay")
        p.wait_until_gone("Drive Selection", "panel")
        self.assert_focused("Scratch playlist")


class PanelStack(PanelsTestCase):
    def test_the_credits_and_the_welcome_open_and_close_by_keyboard(self):
        p = self.start_with_lists()
        screen.key("alt+h", "r")
        p.find("Credits!", "panel")
        p.find("Ok!", "push button")
        self.tab_to("Ok!", "push button")
        screen.key("Return")
        p.wait_until_gone("Credits!", "panel")
        screen.key("alt+h", "p")
        p.find("A Warm Welcome to Plimo!", "panel")
        self.tab_to("Ok!", "push button")
        screen.key("space")
        p.wait_until_gone("A Warm Welcome to Plimo!", "panel")

    def test_escape_closes_a_panel_wherever_in_it_the_focus_is(self):
        p = self.start_with_final_playlist()
        for tabs in range(4):
            self.open_copy_panel()
            screen.key(*["Tab"] * tabs, "Escape")
            p.wait_until_gone("Copy Files to ..", "panel")
        p.choose("Function", "Scan other drives for Mp3s")
        self.assert_focused("Drives to scan")
        screen.key("Escape")
        p.wait_until_gone("Drive Selection", "panel")
        p.choose("Help", "What's Plimo! all about")
        p.find("A Warm Welcome to Plimo!", "panel")
        screen.key("Escape")
        p.wait_until_gone("A Warm Welcome to Plimo!", "panel")
        p.choose("Settings", "Preferences")
        p.answer("Yes")
        p.find("Settings", "panel")
        screen.key("Escape")
        p.wait_until_gone("Settings", "panel")
        self.assert_becomes(lambda: p.list("Final playlist").count(), 5, "songs in the final playlist")

    def test_a_panel_opened_over_another_hides_it_until_it_is_closed(self):
        p = self.start_with_final_playlist()
        self.open_copy_panel()
        p.choose("Function", "Scan other drives for Mp3s")
        p.find("Drive Selection", "panel")
        p.wait_until_gone("Copy Files to ..", "panel")
        p.choose("Help", "Credits")
        p.find("Credits!", "panel")
        p.wait_until_gone("Drive Selection", "panel")
        screen.key("Return")
        p.find("Drive Selection", "panel")
        self.assertFalse(p.visible("Copy Files to ..", "panel"), "the lowest panel is visible too early")
        p.press("Cancel")
        p.find("Copy Files to ..", "panel")
        p.press("Cancel")
        p.wait_until_gone("Copy Files to ..", "panel")
        self.assert_current("Scratch playlist", " Birch")

    def test_a_panel_opened_again_comes_to_the_front(self):
        p = self.start_with_lists()
        p.choose("Help", "Credits")
        p.find("Credits!", "panel")
        p.choose("Function", "Scan other drives for Mp3s")
        p.wait_until_gone("Credits!", "panel")
        p.choose("Help", "Credits")
        p.find("Credits!", "panel")
        self.assertFalse(p.visible("Drive Selection", "panel"), "the other panel covers it")
        screen.key("Return")
        p.find("Drive Selection", "panel")

    def test_large_closes_the_panels_and_escape_none_that_is_hidden(self):
        p = self.start_with_final_playlist()
        self.open_copy_panel()
        p.choose("View", "Compact")
        p.wait_until_gone("Copy Files to ..", "panel")
        screen.key("Escape")
        p.choose("View", "Large")
        p.list("Artists")
        self.assertIsNone(p.visible("Copy Files to ..", "panel"))
