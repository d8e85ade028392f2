"""What the lists do under the mouse and the keys."""
import os

import cases
import screen
import songs
from cases import check, content, current, equal
from screen import wait

ALDER = [" Ash", " Birch", " Cedar", " Damson", " Elm"]


def _scratch(world):
    """The program with five songs in the scratch playlist, which has the keyboard at the first."""
    p = world.settled()
    p.tick("Artists", "ALDER")
    equal(lambda: p.list("Scratch playlist").rows(), ALDER, "songs")
    p.click_row("Scratch playlist", "Ash")
    equal(lambda: current(p.list("Scratch playlist")), " Ash", "current row")
    return p, p.list("Scratch playlist")


def _final(world):
    """The program with five songs in the final playlist, which has the keyboard at the first."""
    p = world.listening()
    p.click_row("Final playlist", "Ash")
    equal(lambda: current(p.list("Final playlist")), " Ash", "current row")
    return p


def a_click_on_an_artists_box_and_the_space_key_tick_it(world):
    p = world.settled()
    artists = p.list("Artists")
    p.tick("Artists", "BEECH")
    equal(artists.ticked, ["BEECH"], "ticked")
    screen.key("Down", "space")
    equal(artists.ticked, ["BEECH", "CYPRESS"], "ticked")
    equal(lambda: p.list("Scratch playlist").rows(), [" Fir", " Gorse", " Hazel"], "songs")
    screen.key("Up", "space")
    equal(artists.ticked, ["CYPRESS"], "ticked")
    equal(lambda: p.list("Scratch playlist").rows(), [" Hazel"], "songs")


def clicks_select_one_row_or_with_control_and_shift_several(world):
    p, songs_list = _scratch(world)
    p.click_row("Scratch playlist", "Cedar")
    equal(songs_list.selected, [" Cedar"], "selected by a click")
    screen.hand("keydown", "ctrl")
    p.click_row("Scratch playlist", "Ash")
    screen.hand("keyup", "ctrl")
    equal(songs_list.selected, [" Ash", " Cedar"], "selected with control")
    p.click_row("Scratch playlist", "Birch")
    screen.hand("keydown", "shift")
    p.click_row("Scratch playlist", "Damson")
    screen.hand("keyup", "shift")
    equal(songs_list.selected, [" Birch", " Cedar", " Damson"], "selected with shift")


def a_drag_over_rows_selects_them(world):
    _, songs_list = _scratch(world)
    screen.drag(songs_list.row("Birch").inside(60), songs_list.row("Elm").inside(60))
    equal(songs_list.selected, ALDER[1:], "selected")


def z_selects_c_clears_and_x_removes_in_the_scratch_playlist(world):
    _, songs_list = _scratch(world)
    screen.key("c", "Down", "z", "Down", "z")
    equal(songs_list.selected, [" Birch", " Cedar"], "selected by z")
    screen.key("c")
    equal(songs_list.selected, [], "selected after c")
    screen.key("x", "x")
    equal(songs_list.rows, [" Ash", " Birch", " Elm"], "rows after x, x")
    equal(lambda: current(songs_list), " Elm", "current row")
    screen.key("z", "Escape")
    equal(songs_list.selected, [], "selected after Escape")


def space_adds_the_current_song_and_enter_plays_it(world):
    p, _ = _scratch(world)
    screen.key("Down", "space", "Down", "space", "space")
    equal(lambda: p.list("Final playlist").rows(), [" Birch", " Cedar", " Cedar"], "final playlist")
    screen.key("Return")
    p.find("Alder - Cedar.mp3", "label")


def home_end_and_the_page_keys_move_the_current_row_and_leave_the_selection(world):
    numbers = [f"{number:03}" for number in range(1, 121)]
    p = world.settled(artists={"Many": numbers})
    p.tick("Artists", "MANY")
    songs_list = p.list("Scratch playlist")
    equal(songs_list.count, 120, "songs")
    wait(lambda: songs_list.child(119).has("showing"), "the last song to be in view")
    screen.key("Tab", "Home")
    equal(lambda: songs_list.child(0).has("focused"), True, "Home")
    equal(lambda: songs_list.child(0).has("showing"), True, "the first row in view")
    screen.key("Next")
    wait(lambda: not songs_list.child(0).has("focused"), "the page key to move")
    page = next(i for i in range(120) if songs_list.child(i).has("focused"))
    check(10 < page < 80, f"a page of {page} rows")
    screen.key("Next", "Prior", "Prior")
    equal(lambda: songs_list.child(0).has("focused"), True, "two pages back")
    screen.key("End")
    equal(lambda: songs_list.child(119).has("focused"), True, "End")
    check(songs_list.selected() == [], "the keys selected something")
    screen.key("shift+Home")
    equal(lambda: len(songs_list.selected()), 120, "selected by Shift and Home")


def shift_and_the_arrow_keys_extend_the_selection(world):
    _, songs_list = _scratch(world)
    screen.key("Down", "shift+Down", "shift+Down")
    equal(songs_list.selected, ALDER[1:4], "selected")
    screen.key("shift+Up")
    equal(songs_list.selected, ALDER[1:3], "selected after one back")


def q_and_w_move_a_song_in_the_final_playlist(world):
    p = _final(world)
    screen.key("Down", "q", "Down", "Down", "w")
    equal(lambda: p.list("Final playlist").rows(), [" Ash", " Cedar", " Damson", " Birch", " Elm"], "after q and w")
    equal(lambda: current(p.list("Final playlist")), " Birch", "current row")
    screen.key("q", "Home", "w")
    equal(lambda: p.list("Final playlist").rows(), [" Ash", " Birch", " Cedar", " Damson", " Elm"], "and back")


def x_works_its_way_down_the_final_playlist(world):
    p = _final(world)
    final_list = p.list("Final playlist")
    p.click_row("Final playlist", "Birch")
    equal(final_list.selected, [" Birch"], "selected")
    for rows, at in (([" Ash", " Cedar", " Damson", " Elm"], " Cedar"), ([" Ash", " Damson", " Elm"], " Damson"),
                     ([" Ash", " Elm"], " Elm"), ([" Ash"], " Ash"), ([], None)):
        screen.key("x")
        equal(final_list.rows, rows, "rows")
        equal(lambda: current(final_list), at, "current row")
        check(final_list.selected() == [], f"{final_list.selected()} is selected")
    screen.key("x", "q", "w", "z")
    check(p.list("Final playlist").rows() == [], "keys on an empty list bring rows")


def z_c_and_x_work_in_the_final_playlist(world):
    p = _final(world)
    final_list = p.list("Final playlist")
    screen.key("c", "End", "z")
    equal(final_list.selected, [" Elm"], "selected by z")
    screen.key("c")
    equal(final_list.selected, [], "selected after c")
    screen.key("BackSpace", "x")
    equal(final_list.rows, [" Ash", " Birch", " Cedar"], "rows after two removals")


def a_double_click_plays_from_that_song_onwards(world):
    p = _final(world)
    p.click_row("Final playlist", "Damson", times=2)
    paths = [world.collection / f"Alder - {title}.mp3" for title in ("Damson", "Elm")]
    lines = b"".join(os.fsencode(path) + b"\r\n" for path in paths)
    equal(lambda: content(world.data / "list.m3u"), lines, "list.m3u")
    p.find("Place in the song", "slider")


def the_menus_pop_up_by_the_right_button_the_menu_key_and_v(world):
    p, _ = _scratch(world)
    song_items = ["Play", "Add to Playlist", "Add all", "Remove from List", "Remove all", "Deselect all", "Information",
                  "Copy Selected files to ..", "Rename", "Delete Selected"]
    for ask in (lambda: screen.key("v"), lambda: screen.key("Menu"),
                lambda: p.click_row("Scratch playlist", "Birch", button=3)):
        ask()
        check(list(p.pop_up()) == song_items, "the scratch playlist's menu is another")
        screen.key("Escape")
    p.click_row("Scratch playlist", "Cedar", button=3)
    screen.click(p.pop_up()["Add to Playlist"].centre())
    equal(lambda: p.list("Final playlist").rows(), [" Cedar"], "final playlist")
    p.click_row("Final playlist", "Cedar", button=3)
    check(list(p.pop_up()) == ["Play the selected song onwards", "Play this song alone", "Open", "Save", "Shuffle", "Sort",
                               "Remove selected", "Remove All"], "the final playlist's menu is another")
    screen.key("Escape")
    p.click_row("Artists", "BEECH", button=3)
    items = p.pop_up()
    check(list(items) == ["Select all", "Deselect All"], "the artists' menu is another")
    screen.click(items["Select all"].centre())
    equal(lambda: p.list("Artists").ticked(), ["ALDER", "BEECH", "CYPRESS"], "ticked")


def shuffle_and_sort_keep_the_current_song(world):
    p = _final(world)
    screen.key("Down")
    for item, rows in (("Shuffle", [" Ash", " Cedar", " Elm", " Birch", " Damson"]), ("Sort", ALDER)):
        screen.key("v")
        screen.click(p.pop_up()[item].centre())
        equal(lambda: p.list("Final playlist").rows(), rows, item)
        equal(lambda: current(p.list("Final playlist")), " Birch", "current row")


def names_that_are_no_text_are_shown_and_kept(world):
    name = b"N\xfcrnberg - Stra\xdfe \xff.mp3"
    songs.write_song(os.path.join(os.fsencode(world.collection), name), 0.2)
    p = world.settled(artists={"Alder": ["Ash"]})
    check("N\ufffdRNBERG" in p.list("Artists").rows(), "the artist is not shown")
    p.tick("Artists", "N\ufffdRNBERG")
    equal(lambda: p.list("Scratch playlist").rows(), [" Stra\ufffde \ufffd"], "the song")
    p.click_row("Scratch playlist", "Stra\ufffde \ufffd")
    screen.key("space")
    p.press("Play all songs on the final playlist")
    run = world.data / "list.m3u"
    equal(lambda: content(run), os.path.join(os.fsencode(world.collection), name) + b"\r\n", "list.m3u")


if __name__ == "__main__":
    cases.run(globals())
