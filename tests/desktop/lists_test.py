"""The three lists, used by mouse and keyboard."""
import os

from tests.support.desktop import screen, songs
from tests.support.desktop.test_case import ALDER, WindowTestCase, read_file
from tests.support.desktop.waiting import wait


class ListsTestCase(WindowTestCase):
    def start_with_scratch_playlist(self):
        """Starts the program with five songs in the scratch playlist and the focus on the first."""
        p = self.start_with_lists()
        p.tick("Artists", "ALDER")
        self.assert_rows("Scratch playlist", ALDER)
        p.click_row("Scratch playlist", "Ash")
        self.assert_current("Scratch playlist", " Ash")
        return p, p.list("Scratch playlist")

    def start_with_final_focus(self):
        """Starts the program with five songs in the final playlist and the focus on the first."""
        p = self.start_with_final_playlist()
        p.click_row("Final playlist", "Ash")
        self.assert_current("Final playlist", " Ash")
        return p


class Artists(ListsTestCase):
    def test_a_click_on_the_check_box_and_the_space_key_tick_an_artist(self):
        p = self.start_with_lists()
        artists = p.list("Artists")
        p.tick("Artists", "BEECH")
        self.assert_becomes(artists.ticked, ["BEECH"], "ticked")
        screen.key("Down", "space")
        self.assert_becomes(artists.ticked, ["BEECH", "CYPRESS"], "ticked")
        self.assert_rows("Scratch playlist", [" Fir", " Gorse", " Hazel"])
        screen.key("Up", "space")
        self.assert_becomes(artists.ticked, ["CYPRESS"], "ticked")
        self.assert_rows("Scratch playlist", [" Hazel"])

    def test_names_that_are_no_valid_text_are_shown_and_kept(self):
        name = b"N\xfcrnberg - Stra\xdfe \xff.mp3"
        songs.write_song(os.path.join(os.fsencode(self.collection), name), 0.2)
        p = self.start_with_lists(artists={"Alder": ["Ash"]})
        self.assertIn("N\ufffdRNBERG", p.list("Artists").rows())
        p.tick("Artists", "N\ufffdRNBERG")
        self.assert_rows("Scratch playlist", [" Stra\ufffde \ufffd"])
        p.click_row("Scratch playlist", "Stra\ufffde \ufffd")
        screen.key("space")
        p.press("Play all songs on the final playlist")
        line = os.path.join(os.fsencode(self.collection), name) + b"\r\n"
        self.assert_becomes(lambda: read_file(self.data / "list.m3u"), line, "list.m3u")


class ScratchPlaylist(ListsTestCase):
    def test_clicks_select_one_row_or_with_control_and_shift_several(self):
        p, songs_list = self.start_with_scratch_playlist()
        p.click_row("Scratch playlist", "Cedar")
        self.assert_becomes(songs_list.selected, [" Cedar"], "selected by a click")
        with screen.holding("ctrl"):
            p.click_row("Scratch playlist", "Ash")
        self.assert_becomes(songs_list.selected, [" Ash", " Cedar"], "selected with control")
        p.click_row("Scratch playlist", "Birch")
        with screen.holding("shift"):
            p.click_row("Scratch playlist", "Damson")
        self.assert_becomes(songs_list.selected, [" Birch", " Cedar", " Damson"], "selected with shift")

    def test_a_drag_over_rows_selects_them(self):
        _, songs_list = self.start_with_scratch_playlist()
        screen.drag(songs_list.row("Birch").inside(60), songs_list.row("Elm").inside(60))
        self.assert_becomes(songs_list.selected, ALDER[1:], "selected")

    def test_z_selects_c_clears_and_x_removes_in_the_scratch_playlist(self):
        _, songs_list = self.start_with_scratch_playlist()
        screen.key("c", "Down", "z", "Down", "z")
        self.assert_becomes(songs_list.selected, [" Birch", " Cedar"], "selected by z")
        screen.key("c")
        self.assert_becomes(songs_list.selected, [], "selected after c")
        screen.key("x", "x")
        self.assert_becomes(songs_list.rows, [" Ash", " Birch", " Elm"], "rows after x, x")
        self.assert_becomes(songs_list.current, " Elm", "current row")
        screen.key("z", "Escape")
        self.assert_becomes(songs_list.selected, [], "selected after Escape")

    def test_space_adds_the_current_song_and_enter_plays_it(self):
        p, _ = self.start_with_scratch_playlist()
        screen.key("Down", "space", "Down", "space", "space")
        self.assert_rows("Final playlist", [" Birch", " Cedar", " Cedar"])
        screen.key("Return")
        p.find("Alder - Cedar.mp3", "notification")

    def test_home_end_and_the_page_keys_move_the_current_row_and_leave_the_selection(self):
        numbers = [f"{number:03}" for number in range(1, 121)]
        p = self.start_with_lists(artists={"Many": numbers})
        p.tick("Artists", "MANY")
        songs_list = p.list("Scratch playlist")
        self.assert_becomes(songs_list.count, 120, "songs")
        wait(lambda: songs_list.child(119).has("showing"), "the last song to be visible")
        screen.key("Tab", "Home")
        self.assert_becomes(lambda: songs_list.child(0).has("focused"), True, "the focus after Home")
        self.assert_becomes(lambda: songs_list.child(0).has("showing"), True, "the first row visible")
        screen.key("Next")
        wait(lambda: not songs_list.child(0).has("focused"), "the focus after the page key")
        page = next(i for i in range(120) if songs_list.child(i).has("focused"))
        self.assertTrue(10 < page < 80, f"a page of {page} rows")
        screen.key("Next", "Prior", "Prior")
        self.assert_becomes(lambda: songs_list.child(0).has("focused"), True, "the focus two pages back")
        screen.key("End")
        self.assert_becomes(lambda: songs_list.child(119).has("focused"), True, "the focus after End")
        self.assertEqual(songs_list.selected(), [])
        screen.key("shift+Home")
        self.assert_becomes(lambda: len(songs_list.selected()), 120, "selected by Shift and Home")

    def test_shift_and_the_arrow_keys_extend_the_selection(self):
        _, songs_list = self.start_with_scratch_playlist()
        screen.key("Down", "shift+Down", "shift+Down")
        self.assert_becomes(songs_list.selected, ALDER[1:4], "selected")
        screen.key("shift+Up")
        self.assert_becomes(songs_list.selected, ALDER[1:3], "selected after one back")


class FinalPlaylist(ListsTestCase):
    def test_q_and_w_move_a_song_in_the_final_playlist(self):
        self.start_with_final_focus()
        screen.key("Down", "q", "Down", "Down", "w")
        self.assert_rows("Final playlist", [" Ash", " Cedar", " Damson", " Birch", " Elm"])
        self.assert_current("Final playlist", " Birch")
        screen.key("q", "Home", "w")
        self.assert_rows("Final playlist", [" Ash", " Birch", " Cedar", " Damson", " Elm"])

    def test_x_removes_song_after_song_from_the_final_playlist(self):
        p = self.start_with_final_focus()
        final_list = p.list("Final playlist")
        p.click_row("Final playlist", "Birch")
        self.assert_becomes(final_list.selected, [" Birch"], "selected")
        for rows, row in (([" Ash", " Cedar", " Damson", " Elm"], " Cedar"), ([" Ash", " Damson", " Elm"], " Damson"),
                         ([" Ash", " Elm"], " Elm"), ([" Ash"], " Ash"), ([], None)):
            screen.key("x")
            self.assert_becomes(final_list.rows, rows, "rows")
            self.assert_becomes(final_list.current, row, "current row")
            self.assertEqual(final_list.selected(), [])
        screen.key("x", "q", "w", "z")
        self.assertEqual(p.list("Final playlist").rows(), [])

    def test_z_c_and_x_work_in_the_final_playlist(self):
        p = self.start_with_final_focus()
        final_list = p.list("Final playlist")
        screen.key("c", "End", "z")
        self.assert_becomes(final_list.selected, [" Elm"], "selected by z")
        screen.key("c")
        self.assert_becomes(final_list.selected, [], "selected after c")
        screen.key("BackSpace", "x")
        self.assert_becomes(final_list.rows, [" Ash", " Birch", " Cedar"], "rows after two removals")

    def test_a_double_click_plays_from_that_song_onwards(self):
        p = self.start_with_final_focus()
        p.click_row("Final playlist", "Damson", times=2)
        paths = [self.collection / f"Alder - {title}.mp3" for title in ("Damson", "Elm")]
        lines = b"".join(os.fsencode(path) + b"\r\n" for path in paths)
        self.assert_becomes(lambda: read_file(self.data / "list.m3u"), lines, "list.m3u")
        p.find("Place in the song", "slider")

    def test_shuffle_and_sort_keep_the_current_song(self):
        p = self.start_with_final_focus()
        screen.key("Down")
        for item, rows in (("Shuffle", [" Ash", " Cedar", " Elm", " Birch", " Damson"]), ("Sort", ALDER)):
            screen.key("v")
            screen.click(p.context_menu()[item].centre())
            self.assert_rows("Final playlist", rows)
            self.assert_current("Final playlist", " Birch")


class ContextMenus(ListsTestCase):
    def test_the_menus_pop_up_by_the_right_button_the_menu_key_and_v(self):
        p, _ = self.start_with_scratch_playlist()
        song_items = ["Play", "Add to Playlist", "Add all", "Remove from List", "Remove all", "Deselect all",
                      "Information", "Copy Selected files to ..", "Rename", "Delete Selected"]
        final_items = ["Play the selected song onwards", "Play this song alone", "Open", "Save", "Shuffle", "Sort",
                       "Remove selected", "Remove All"]
        for open_menu in (lambda: screen.key("v"), lambda: screen.key("Menu"),
                          lambda: p.click_row("Scratch playlist", "Birch", button=3)):
            open_menu()
            self.assertEqual(list(p.context_menu()), song_items)
            screen.key("Escape")
        p.click_row("Scratch playlist", "Cedar", button=3)
        screen.click(p.context_menu()["Add to Playlist"].centre())
        self.assert_rows("Final playlist", [" Cedar"])
        p.click_row("Final playlist", "Cedar", button=3)
        self.assertEqual(list(p.context_menu()), final_items)
        screen.key("Escape")
        p.click_row("Artists", "BEECH", button=3)
        items = p.context_menu()
        self.assertEqual(list(items), ["Select all", "Deselect All"])
        screen.click(items["Select all"].centre())
        self.assert_becomes(lambda: p.list("Artists").ticked(), ["ALDER", "BEECH", "CYPRESS"], "ticked")
