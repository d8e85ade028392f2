"""Strips, panels, views, and what assistive tools are told."""
import cases
import screen
from cases import check, current, equal
from screen import wait

GREEN, LIGHT_GREEN = (0, 128, 0), (192, 255, 192)
BROWN, LIGHT_ORANGE = (128, 64, 0), (255, 192, 128)
GREY = (128, 128, 128)
STRIPS = {
    "artist": ["Select all", "Deselect All"],
    "song": ["Add to playlist", "Remove from List", "Add All", "Remove All", "Delete Selected", "Delete All"],
    "playlist": ["Remove all", "Remove", "Open", "Save"],
}


def _shown(p, names):
    return [name for name in names if p.sees(name, "push button")]


def strips_open_and_close(world):
    p = world.settled()
    for strip, buttons in STRIPS.items():
        check(_shown(p, buttons) == [], f"the {strip} commands show before they are asked for")
        p.press(f"Show the {strip} commands")
        equal(lambda: _shown(p, buttons), buttons, f"the {strip} commands")
        p.press(f"Fold the {strip} commands")
        equal(lambda: _shown(p, buttons), [], f"the folded {strip} commands")
        p.find(f"Show the {strip} commands", "push button")


def _colour(p, button):
    left, top, width, _ = p.find(button, "push button").rect
    return screen.main_colour((left + 6, top + 4, width - 12, 3))


def buttons_light_up_under_the_pointer(world):
    p = world.settled()
    for strip in STRIPS:
        p.press(f"Show the {strip} commands")
    equal(lambda: [_colour(p, name) for name in ("Add All", "Save", "Select all")], [GREEN, BROWN, GREY], "at rest")
    screen.move(p.find("Add All", "push button").centre())
    equal(lambda: _colour(p, "Add All"), LIGHT_GREEN, "under the pointer")
    screen.move(p.find("Delete All", "push button").centre())
    equal(lambda: [_colour(p, name) for name in ("Add All", "Delete All")], [GREEN, LIGHT_GREEN], "the next of its group")
    screen.move(p.find("Save", "push button").centre())
    equal(lambda: [_colour(p, name) for name in ("Delete All", "Save")], [LIGHT_GREEN, LIGHT_ORANGE], "another group")
    left, top, width, height = p.list("Artists").rect
    screen.move((left + width + 4, top + height // 2))
    equal(lambda: [_colour(p, name) for name in ("Delete All", "Save")], [GREEN, BROWN], "over the bare window")


def tab_goes_from_list_to_list(world):
    p = world.listening()
    p.click_row("Artists", "BEECH")
    for name in ("Scratch playlist", "Final playlist"):
        screen.key("Tab")
        equal(lambda: p.list(name).has("focused"), True, f"the keyboard in the {name.lower()}")
    screen.key("shift+Tab", "shift+Tab")
    equal(lambda: p.list("Artists").has("focused"), True, "the keyboard in the artists")


def the_settings_panel_takes_the_place_of_the_lists_and_cancel_brings_them_back(world):
    p = world.listening()
    p.choose("Settings", "Preferences")
    check("save your final playlist" in p.answer("Yes"), "there is no warning")
    p.find("Settings", "panel")
    check(not p.sees("Artists", "list") and not p.sees("Final playlist", "list"), "lists show beside the panel")
    check(p.sees("Do not scan for Mp3s during startup").has("checked"), "the stored choice is not shown")
    p.tick("Drives to scan during startup", "D: REMOVABLE")
    equal(lambda: p.sees("Scan the Following drives during Startup").has("checked"), True, "the other choice")
    p.press("Cancel")
    equal(lambda: p.list("Final playlist").count(), 5, "songs in the final playlist")
    check((world.data / "plimo.ini").read_bytes() == cases.settings(), "settings were written")


def no_keeps_the_lists_when_the_preferences_are_asked_for(world):
    p = world.listening()
    p.choose("Settings", "Preferences")
    p.answer("No")
    check(p.list("Final playlist").count() == 5 and not p.sees("Settings", "panel"), "the panel opened")


def sliders_answer_keys_and_clicks_and_colour_the_chosen_list(world):
    p = world.settled()
    p.choose("Settings", "Preferences")
    p.press("Show the Color Settings", "check box")
    p.press("Accept")
    p.answer()
    p.press("Scratch", "radio button")
    p.press("Background", "check box")
    red = p.find("Red", "slider")
    left, top, width, height = red.rect
    screen.click((left + width // 2, top + height // 2))
    wait(lambda: 80 < red.value < 170, "the slider to follow the click")
    screen.key("Home", "Right", "Right", "Prior")
    equal(lambda: red.value, 7, "the slider after Home, twice right and page up")
    left, top, width, height = p.list("Scratch playlist").rect
    equal(lambda: screen.main_colour((left + 10, top + height - 40, width - 40, 20)), (7, 0, 0), "the list's colour")
    p.press("Restore Old Colour scheme")
    p.find("Artists", "list")
    check((world.data / "plimo.ini").read_bytes() == cases.settings(scan=True), "the old colours were not stored")


def the_first_run_goes_on_to_the_colours_and_back_to_the_lists(world):
    world.plant()
    p = world.start()
    p.find("A Warm Welcome to Plimo!", "panel")
    p.tick("Drives to scan during startup", "C: Hard Drive")
    p.press("Show the Color Settings", "check box")
    p.press("Accept")
    check("slider bars" in p.answer(), "the box before the colours is another")
    p.press("Yeah, Yeah.....")
    equal(lambda: p.list("Artists").rows(), [" ", "This is the Artist Playlist"], "sample of the artists")
    check(not p.sees("Function", "menu item"), "menus show beside the editor")
    p.press("Artists", "radio button")
    p.press("Background", "check box")
    blue = p.find("Blue", "slider")
    left, top, width, height = blue.rect
    screen.click((left + width // 2, top + height // 2))
    screen.key("Home", "Right")
    left, top, width, height = p.list("Artists").rect
    equal(lambda: screen.main_colour((left + 10, top + height - 40, width - 40, 20)), (0, 0, 1), "the list's colour")
    p.press("Accept All Changes")
    equal(lambda: p.list("Artists").rows(), ["ALDER", "BEECH", "CYPRESS"], "artists")
    stored = (world.data / "plimo.ini").read_bytes().split(b"\r\n")
    equal(lambda: stored[7], b"65536", "the stored background of the artists")
    check(not (world.data / "plimo2.ini").exists(), "the editor's file stays")


def the_compact_view_shows_the_player_alone_and_large_brings_all_back(world):
    p = world.listening()
    p.click_row("Final playlist", "Birch")
    p.choose("View", "Compact")
    p.gone("Artists", "list")
    player = p.find("Player")
    window = p.find("Plimo!", "frame")
    wait(lambda: abs(window.rect[2] - player.rect[2] * 41 / 40) < 12, "the window to be as wide as the player")
    p.choose("View", "Large")
    equal(lambda: p.list("Final playlist").count(), 5, "songs in the final playlist")
    wait(lambda: p.find("Plimo!", "frame").rect[2] == screen.size()[0], "the whole screen")


def the_credits_and_the_welcome_open_and_close_by_the_keyboard(world):
    p = world.settled()
    screen.key("alt+h", "r")
    p.find("Credits!", "panel")
    p.find("Ok!", "push button")
    wait(lambda: _tab_reaches(p, "Ok!"), "Tab to come to the button")
    screen.key("Return")
    p.gone("Credits!", "panel")
    screen.key("alt+h", "p")
    p.find("A Warm Welcome to Plimo!", "panel")
    wait(lambda: _tab_reaches(p, "Ok!"), "Tab to come to the button")
    screen.key("space")
    p.gone("A Warm Welcome to Plimo!", "panel")


def _tab_reaches(p, name):
    if p.sees(name, "push button").has("focused"):
        return True
    screen.key("Tab")
    return False


def everything_that_can_be_used_has_a_name(world):
    p = world.listening()
    for strip in STRIPS:
        if p.sees(f"Show the {strip} commands", "push button"):
            p.press(f"Show the {strip} commands")
    p.press("Play all songs on the final playlist")
    p.find("Volume", "slider")
    usable = ("push button", "check box", "radio button", "list", "slider", "combo box", "text", "frame", "panel",
              "menu item")
    _all_named(p, usable)
    p.choose("Settings", "Preferences")
    p.answer("Yes")
    p.press("Use Winamp to play", "check box")
    p.find("Winamp's folder", "list")
    _all_named(p, usable)


def _all_named(p, roles):
    for thing in p.things():
        if thing.role in roles:
            check(thing.name, f"a {thing.role} at {thing.rect} has no name")


def rows_tell_their_text_state_and_place(world):
    p = world.settled()
    artists = p.list("Artists")
    p.tick("Artists", "BEECH")
    row = artists.row("BEECH")
    equal(lambda: {"checked", "focused", "showing"} - row.states(), set(), "states that are missing")
    check(row.role == "list item", f"a row is a {row.role}")
    check("checked" not in artists.row("ALDER").states(), "a row is ticked that is not")
    left, top, width, height = artists.rect
    x, y, w, h = row.rect
    check(left <= x and x + w <= left + width and top <= y and y + h <= top + height, "a row is outside of its list")


def assistive_tools_can_tick_and_press(world):
    p = world.settled()
    p.list("Artists").row("ALDER").act()
    equal(lambda: p.list("Scratch playlist").count(), 5, "songs")
    p.choose("Settings", "Preferences")
    p.find("Use Winamp to play", "check box").act()
    p.find("Winamp's folder", "list")
    check(p.find("Use Winamp to play").has("checked"), "the box is not ticked")
    p.find("Scan the Following drives during Startup", "radio button").act()
    equal(lambda: p.find("Do not scan for Mp3s during startup").has("checked"), False, "the other choice")


def a_click_into_a_list_gives_it_the_keyboard(world):
    p = world.listening()
    p.click_row("Final playlist", "Cedar")
    equal(lambda: current(p.list("Final playlist")), " Cedar", "the row with the keyboard")
    screen.key("Up")
    equal(lambda: current(p.list("Final playlist")), " Birch", "the row with the keyboard")


def _has_keyboard(p, name, role):
    thing = p.sees(name, role)
    return bool(thing) and thing.has("focused")


def _copy_panel(p):
    p.click_row("Scratch playlist", "Birch")
    screen.key("v")
    screen.click(p.pop_up()["Copy Selected files to .."].centre())
    p.find("Copy Files to ..", "panel")


def a_panel_takes_the_keyboard_and_gives_it_back(world):
    p = world.listening()
    _copy_panel(p)
    wait(lambda: _has_keyboard(p, None, "combo box"), "the keyboard in the copy panel")
    screen.key("Tab", "Tab", "Tab", "Return")
    p.gone("Copy Files to ..", "panel")
    wait(lambda: current(p.list("Scratch playlist")) == " Birch", "the keyboard back at the song")
    p.choose("Function", "Scan other drives for Mp3s")
    wait(lambda: p.sees("Drives to scan", "list") and p.list("Drives to scan").has("focused"), "the keyboard in the drives")
    screen.key("Tab", "Tab", "Return")
    p.gone("Drive Selection", "panel")
    wait(lambda: current(p.list("Scratch playlist")) == " Birch", "the keyboard back at the song")
    p.choose("Help", "Credits")
    wait(lambda: _has_keyboard(p, "Ok!", "push button"), "the keyboard on the only button")
    screen.key("Return")
    p.gone("Credits!", "panel")


def escape_leaves_a_panel_wherever_in_it_the_keyboard_is(world):
    p = world.listening()
    for tabs in range(4):
        _copy_panel(p)
        screen.key(*["Tab"] * tabs, "Escape")
        p.gone("Copy Files to ..", "panel")
    p.choose("Function", "Scan other drives for Mp3s")
    wait(lambda: p.sees("Drives to scan", "list") and p.list("Drives to scan").has("focused"), "the keyboard in the drives")
    screen.key("Escape")
    p.gone("Drive Selection", "panel")
    p.choose("Help", "What's Plimo! all about")
    p.find("A Warm Welcome to Plimo!", "panel")
    screen.key("Escape")
    p.gone("A Warm Welcome to Plimo!", "panel")
    p.choose("Settings", "Preferences")
    p.answer("Yes")
    p.find("Settings", "panel")
    screen.key("Escape")
    p.gone("Settings", "panel")
    equal(lambda: p.list("Final playlist").count(), 5, "songs in the final playlist")


def a_panel_waits_under_the_one_opened_over_it(world):
    p = world.listening()
    _copy_panel(p)
    p.choose("Function", "Scan other drives for Mp3s")
    p.find("Drive Selection", "panel")
    p.gone("Copy Files to ..", "panel")
    p.choose("Help", "Credits")
    p.find("Credits!", "panel")
    p.gone("Drive Selection", "panel")
    screen.key("Return")
    p.find("Drive Selection", "panel")
    check(not p.sees("Copy Files to ..", "panel"), "the panel below shows too early")
    p.press("Cancel")
    p.find("Copy Files to ..", "panel")
    p.press("Cancel")
    p.gone("Copy Files to ..", "panel")
    wait(lambda: current(p.list("Scratch playlist")) == " Birch", "the keyboard back at the song")


def a_panel_asked_for_again_comes_to_the_front(world):
    p = world.settled()
    p.choose("Help", "Credits")
    p.find("Credits!", "panel")
    p.choose("Function", "Scan other drives for Mp3s")
    p.gone("Credits!", "panel")
    p.choose("Help", "Credits")
    p.find("Credits!", "panel")
    check(not p.sees("Drive Selection", "panel"), "the other panel covers it")
    screen.key("Return")
    p.find("Drive Selection", "panel")


def escape_closes_no_panel_that_is_out_of_view(world):
    p = world.listening()
    _copy_panel(p)
    p.choose("View", "Compact")
    p.gone("Copy Files to ..", "panel")
    screen.key("Escape")
    p.choose("View", "Large")
    p.find("Copy Files to ..", "panel")


def a_scan_of_chosen_drives_gives_the_keyboard_back(world):
    p = world.listening()
    p.click_row("Scratch playlist", "Birch")
    p.choose("Function", "Scan other drives for Mp3s")
    p.click_row("Drives to scan", "C: Hard Drive")
    p.press("Okay")
    p.gone("Drive Selection", "panel")
    wait(lambda: p.list("Scratch playlist").has("focused"), "the keyboard back in the scratch playlist")


def closing_the_window_ends_the_program(world):
    p = world.settled()
    screen.key("alt+F4")
    check(p.ends() == 0, "the exit status is not 0")


if __name__ == "__main__":
    cases.run(globals())
