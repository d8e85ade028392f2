"""The accessible interface of the window."""
from tests.support.desktop.test_case import WindowTestCase
from tests.support.desktop.waiting import wait


# The roles of everything that can be used.
USABLE = {"push button", "check box", "radio button", "list", "slider", "combo box", "text", "frame", "panel",
          "menu item"}


class Accessibility(WindowTestCase):
    """What a screen reader finds."""

    def assert_all_named(self):
        for element in self.program.elements():
            if element.role in USABLE:
                self.assertTrue(element.name, f"a {element.role} at {element.rect} has no name")

    def test_everything_that_can_be_used_has_a_name(self):
        p = self.start_with_final_playlist()
        for strip in ("artist", "song", "playlist"):
            if p.visible(f"Show the {strip} commands", "push button"):
                p.press(f"Show the {strip} commands")
        p.press("Play all songs on the final playlist")
        p.find("Volume", "slider")
        self.assert_all_named()
        p.choose("Settings", "Preferences")
        p.answer("Yes")
        p.press("Use Winamp to play", "check box")
        p.find("Winamp's folder", "list")
        self.assert_all_named()

    def test_a_row_has_a_role_states_and_a_position(self):
        p = self.start_with_lists()
        artists = p.list("Artists")
        p.tick("Artists", "BEECH")
        row = artists.row("BEECH")
        self.assert_becomes(lambda: {"checked", "focused", "showing"} - row.states(), set(), "the missing states")
        self.assertEqual(row.role, "list item")
        self.assertFalse(artists.row("ALDER").has("checked"))
        left, top, width, height = artists.rect
        x, y, w, h = row.rect
        self.assertTrue(left <= x and x + w <= left + width, "the row is outside of its list")
        self.assertTrue(top <= y and y + h <= top + height, "the row is outside of its list")

    def test_assistive_tools_can_tick_and_press(self):
        p = self.start_with_lists()
        p.list("Artists").row("ALDER").activate()
        self.assert_becomes(lambda: p.list("Scratch playlist").count(), 5, "songs")
        p.choose("Settings", "Preferences")
        p.find("Use Winamp to play", "check box").activate()
        p.find("Winamp's folder", "list")
        self.assertTrue(p.find("Use Winamp to play").has("checked"), "the check box is not ticked")
        p.find("Scan the Following drives during Startup", "radio button").activate()
        wait(lambda: not p.find("Do not scan for Mp3s during startup").has("checked"), "the other choice to be cleared")
