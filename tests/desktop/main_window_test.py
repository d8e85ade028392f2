"""The command strips, the views, and closing the window."""
from tests.support.desktop import screen
from tests.support.desktop.test_case import WindowTestCase
from tests.support.desktop.waiting import wait

GREEN, LIGHT_GREEN = (0, 128, 0), (192, 255, 192)
BROWN, LIGHT_ORANGE = (128, 64, 0), (255, 192, 128)
GREY = (128, 128, 128)
STRIPS = {
    "artist": ["Select all", "Deselect All"],
    "song": ["Add to playlist", "Remove from List", "Add All", "Remove All", "Delete Selected", "Delete All"],
    "playlist": ["Remove all", "Remove", "Open", "Save"],
}


class CommandStrips(WindowTestCase):
    def visible_buttons(self, names):
        return [name for name in names if self.program.visible(name, "push button")]

    def assert_colours(self, buttons, colours):
        """Waits until these buttons have these colours."""

        def colour(button):
            left, top, width, _ = self.program.find(button, "push button").rect
            return screen.main_colour((left + 6, top + 4, width - 12, 3))

        self.assert_becomes(lambda: [colour(button) for button in buttons], colours, f"the colours of {buttons}")

    def test_strips_open_and_close(self):
        p = self.start_with_lists()
        for strip, buttons in STRIPS.items():
            self.assertEqual(self.visible_buttons(buttons), [])
            p.press(f"Show the {strip} commands")
            self.assert_becomes(lambda: self.visible_buttons(buttons), buttons, f"the {strip} commands")
            p.press(f"Fold the {strip} commands")
            self.assert_becomes(lambda: self.visible_buttons(buttons), [], f"the folded {strip} commands")
            p.find(f"Show the {strip} commands", "push button")

    def test_a_button_lights_up_under_the_pointer(self):
        p = self.start_with_lists()
        for strip in STRIPS:
            p.press(f"Show the {strip} commands")
        self.assert_colours(["Add All", "Save", "Select all"], [GREEN, BROWN, GREY])
        screen.move(p.find("Add All", "push button").centre())
        self.assert_colours(["Add All"], [LIGHT_GREEN])
        screen.move(p.find("Delete All", "push button").centre())
        self.assert_colours(["Add All", "Delete All"], [GREEN, LIGHT_GREEN])
        screen.move(p.find("Save", "push button").centre())
        self.assert_colours(["Delete All", "Save"], [LIGHT_GREEN, LIGHT_ORANGE])
        left, top, width, height = p.list("Artists").rect
        screen.move((left + width + 4, top + height // 2))
        self.assert_colours(["Delete All", "Save"], [GREEN, BROWN])


class Views(WindowTestCase):
    def test_the_compact_view_shows_only_the_player_and_large_restores_all(self):
        p = self.start_with_final_playlist()
        p.click_row("Final playlist", "Birch")
        p.choose("View", "Compact")
        p.wait_until_gone("Artists", "list")
        player = p.find("Player")
        window = p.find("Plimo!", "frame")
        wait(lambda: window.rect[2] < screen.size()[0] * 3 / 4, "a small window")
        wait(lambda: player.rect[2] == window.rect[2], "the player to be as wide as the window")
        bar = p.find(None, "menu bar").rect
        wait(lambda: bar[3] + player.rect[3] == window.rect[3], "the player to be as high as the rest of the window")
        p.choose("View", "Large")
        self.assert_becomes(lambda: p.list("Final playlist").count(), 5, "songs in the final playlist")
        wait(lambda: p.find("Plimo!", "frame").rect[2] == screen.size()[0], "the whole screen")

    def test_closing_the_window_ends_the_program(self):
        p = self.start_with_lists()
        screen.key("alt+F4")
        self.assertEqual(p.wait_for_exit(), 0)
