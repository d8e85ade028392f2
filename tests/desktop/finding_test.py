"""Finding in a list, and the usual shortcuts, in the real window."""
from tests.support.desktop import screen
from tests.support.desktop.test_case import ALDER, WindowTestCase, read_file
from tests.support.desktop.waiting import wait


class Find(WindowTestCase):
    def test_control_f_finds_in_the_list_with_the_focus_and_escape_returns_to_it(self):
        p = self.start_with_final_playlist()
        p.click_row("Final playlist", "Ash")
        screen.key("ctrl+f")
        field = wait(lambda: p.visible("Find in the list", "text"), "the field")
        screen.type_text("dam")
        self.assert_becomes(field.text, "dam", "the text of the field")
        screen.key("Return")
        screen.key("Escape")
        wait(lambda: p.visible("Find in the list", "text") is None, "the field to close")
        self.assert_current("Final playlist", " Damson")
        screen.key("x")
        self.assert_rows("Final playlist", [row for row in ALDER if row != " Damson"])

    def test_letters_go_to_an_artist_and_the_magnifier_opens_the_field(self):
        p = self.start_with_lists()
        p.click_row("Artists", "ALDER")
        screen.key("c", "space")
        self.assert_becomes(p.list("Artists").ticked, ["CYPRESS"], "ticked")
        p.press("Find in the list")
        wait(lambda: p.visible("Find in the list", "text"), "the field")
        p.press("Show only what is ticked", "check box")
        artists = p.list("Artists")
        wait(lambda: not artists.row("ALDER").rect[3], "the other artists to be hidden")
        screen.key("Escape")
        wait(lambda: artists.row("ALDER").rect[3], "all artists")


class Shortcuts(WindowTestCase):
    def test_control_a_and_delete_remove_from_the_list_and_never_a_file(self):
        p = self.start_with_lists()
        p.tick("Artists", "ALDER")
        self.assert_rows("Scratch playlist", ALDER)
        files = sorted(self.collection.iterdir())
        p.click_row("Scratch playlist", "Birch")
        screen.key("Delete")
        self.assert_rows("Scratch playlist", [row for row in ALDER if row != " Birch"])
        screen.key("ctrl+a", "Delete")
        self.assert_rows("Scratch playlist", [])
        self.assertEqual(sorted(self.collection.iterdir()), files)

    def test_control_a_ticks_all_artists(self):
        p = self.start_with_lists()
        p.click_row("Artists", "BEECH")
        screen.key("ctrl+a")
        self.assert_becomes(p.list("Artists").ticked, ["ALDER", "BEECH", "CYPRESS"], "ticked")

    def test_f5_asks_before_it_empties_the_playlists(self):
        p = self.start_with_lists()
        p.tick("Artists", "ALDER")
        self.assert_rows("Scratch playlist", ALDER)
        screen.key("F5")
        self.assert_answer("Scan the preferred drives again? This empties both playlists.", "No")
        self.assert_rows("Scratch playlist", ALDER)
        screen.key("F5")
        self.assert_answer("Scan the preferred drives again? This empties both playlists.", "Yes")
        self.assert_rows("Scratch playlist", [])

    def test_control_q_ends_the_program(self):
        p = self.start_with_lists()
        p.click_row("Artists", "BEECH")
        screen.key("ctrl+q")
        self.assertEqual(p.wait_for_exit(), 0)
        self.assertIsNotNone(read_file(self.data / "plimo.kvx"))
