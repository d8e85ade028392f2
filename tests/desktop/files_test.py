"""Deleting, renaming and copying song files, with every question answered both ways."""
import os
import time

import cases
import screen
import songs
from cases import check, content, current, equal
from screen import wait
from window import SLOW_DISK

ALDER = [" Ash", " Birch", " Cedar", " Damson", " Elm"]
DELETE_SELECTED = "You are gonna have to say goodbye to the selected files! You sure ??"
DELETE_ALL = "You are gonna have to say goodbye to all the files in this list! You sure ??"
SCAN_AFTER_DELETING = "The Files have been deleted! Do you want to re-scan your hard drive for Mp3s? "
SCAN_AFTER_RENAMING = "Would you like to Re-scan your hard drive to incorporate the changes (RECOMMENDED)?"
NO_SCAN = ("You have chosen not to scan any drive in 'Preferences'. Please choose to scan this drive in preferences to "
           "incorporate the changes")
NEW_NAME = ("Please enter the new name for this file (without the extension) \r\n"
            "EXISTING FILES WILL BE OVERWRITTEN SO DON'T BLAME ME LATER!")


def _scratch(world, *before, scan=False):
    """The program with five songs in the scratch playlist."""
    p = world.settled(*before, scan=scan)
    p.tick("Artists", "ALDER")
    wait(lambda: p.list("Scratch playlist").count() >= 5, "songs")
    return p


def _song(world, title):
    return world.collection / f"Alder - {title}.mp3"


def _titles(world):
    """The titles of the artist's songs that are on the disk."""
    return [" " + path.stem.split(" - ")[1] for path in sorted(world.collection.glob("Alder - *.mp3"))]


def _from_menu(p, row, item):
    p.click_row("Scratch playlist", row)
    screen.key("v")
    screen.click(p.pop_up()[item].centre())


def _asked(p, text, button):
    """Answers a box, which must have this text."""
    seen = p.answer(button)
    check(seen == text, f"the box says {seen!r}, not {text!r}")


def _no_box(p):
    time.sleep(0.3)
    check(p.boxes_text() is None, f"a box says {p.boxes_text()!r}")


# --- Deleting ---


def no_keeps_a_song_from_being_deleted(world):
    p = _scratch(world)
    catalogue = (world.data / "plimo.kvx").read_bytes()
    _from_menu(p, "Birch", "Delete Selected")
    _asked(p, DELETE_SELECTED, "No")
    _no_box(p)
    check(_titles(world) == ALDER, "a song is gone")
    check(p.list("Scratch playlist").rows() == ALDER, "a row is gone")
    check((world.data / "plimo.kvx").read_bytes() == catalogue, "the catalogue is another")


def yes_deletes_the_selected_song_and_its_row_stays_until_a_scan(world):
    p = _scratch(world)
    catalogue = (world.data / "plimo.kvx").read_bytes()
    _from_menu(p, "Birch", "Delete Selected")
    _asked(p, DELETE_SELECTED, "Yes")
    _asked(p, SCAN_AFTER_DELETING, "No")
    _no_box(p)
    check(_titles(world) == [" Ash", " Cedar", " Damson", " Elm"], f"there are {_titles(world)}")
    check(p.list("Scratch playlist").rows() == ALDER, "the rows are others")
    check((world.data / "plimo.kvx").read_bytes() == catalogue, "the catalogue is another")


def after_a_deletion_yes_is_refused_where_no_drive_is_scanned(world):
    p = _scratch(world)
    _from_menu(p, "Birch", "Delete Selected")
    _asked(p, DELETE_SELECTED, "Yes")
    _asked(p, SCAN_AFTER_DELETING, "Yes")
    _asked(p, NO_SCAN, "OK")
    _no_box(p)
    check(p.list("Scratch playlist").rows() == ALDER, "the rows are others")


def after_a_deletion_yes_scans_the_drives(world):
    p = _scratch(world, scan=True)
    _from_menu(p, "Birch", "Delete Selected")
    _asked(p, DELETE_SELECTED, "Yes")
    _asked(p, SCAN_AFTER_DELETING, "Yes")
    equal(lambda: p.list("Scratch playlist").rows(), [], "songs after the scan")
    equal(lambda: content(world.data / "plimo.kvx"), songs.expected_catalogue(str(world.collection)), "plimo.kvx")
    p.tick("Artists", "ALDER")
    equal(lambda: p.list("Scratch playlist").rows(), [" Ash", " Cedar", " Damson", " Elm"], "songs")


def deleting_all_is_answered_with_no_and_with_yes(world):
    p = _scratch(world)
    p.press("Show the song commands")
    p.press("Delete All")
    _asked(p, DELETE_ALL, "No")
    _no_box(p)
    check(_titles(world) == ALDER, "a song is gone")
    p.press("Delete All")
    _asked(p, DELETE_ALL, "Yes")
    _asked(p, SCAN_AFTER_DELETING, "No")
    check(_titles(world) == [], f"there are still {_titles(world)}")
    check(sorted(os.listdir(world.collection)) == ["Beech - Fir.mp3", "Beech - Gorse.mp3", "Cypress - Hazel.mp3"],
          "songs of others are gone")
    check(p.list("Scratch playlist").rows() == ALDER, "the rows are others")


def a_deletion_that_fails_says_so_and_leaves_the_rest(world):
    p = _scratch(world)
    _song(world, "Birch").unlink()
    _from_menu(p, "Birch", "Delete Selected")
    _asked(p, DELETE_SELECTED, "Yes")
    _asked(p, "The File(s) could not be deleted due to some mysterical problem!", "OK")
    _asked(p, SCAN_AFTER_DELETING, "No")
    _song(world, "Cedar").unlink()
    _song(world, "Cedar").mkdir()  # nobody, not even a superuser, deletes a folder as if it were a file
    songs.write_song(str(_song(world, "Birch")))
    p.press("Show the song commands")
    p.press("Delete All")
    _asked(p, DELETE_ALL, "Yes")
    _asked(p, "The file(s) could not be deleted due to some mysterical problem!", "OK")
    _asked(p, SCAN_AFTER_DELETING, "No")
    check(_titles(world) == [" Cedar", " Damson", " Elm"], f"there are {_titles(world)}")


# --- Renaming ---


def _ask_for_a_name(p, row):
    """Opens the box that asks for a new name. What it proposes."""
    _from_menu(p, row, "Rename")
    p.find("Rename", "dialog")
    check(p.box_text() == NEW_NAME, f"the box says {p.box_text()!r}")
    return p.find(NEW_NAME, "text").text()


def a_song_is_renamed_and_leaves_the_scratch_playlist(world):
    p = _scratch(world)
    before = _song(world, "Birch").read_bytes()
    proposed = _ask_for_a_name(p, "Birch")
    check(proposed == "Alder - Birch", f"{proposed!r} is proposed")
    screen.write("Alder - White, \"Birch\"")
    screen.key("Return")
    _asked(p, SCAN_AFTER_RENAMING, "No")
    _no_box(p)
    check(not _song(world, "Birch").exists(), "the old file stays")
    check(_song(world, 'White, "Birch"').read_bytes() == before, "the new file is another")
    equal(p.list("Scratch playlist").rows, [" Ash", " Cedar", " Damson", " Elm"], "songs")
    equal(lambda: current(p.list("Scratch playlist")), " Cedar", "current row")


def after_a_renaming_yes_scans_the_drives(world):
    p = _scratch(world, scan=True)
    _ask_for_a_name(p, "Birch")
    screen.write("Dogwood - Fig")
    screen.key("Return")
    _asked(p, SCAN_AFTER_RENAMING, "Yes")
    equal(lambda: p.list("Artists").rows(), ["ALDER", "BEECH", "CYPRESS", "DOGWOOD"], "artists")
    check(p.list("Scratch playlist").rows() == [], "songs stay in the scratch playlist")
    equal(lambda: content(world.data / "plimo.kvx"), songs.expected_catalogue(str(world.collection)), "plimo.kvx")


def after_a_renaming_yes_only_loads_the_lists_where_no_drive_is_scanned(world):
    p = _scratch(world)
    catalogue = (world.data / "plimo.kvx").read_bytes()
    _ask_for_a_name(p, "Birch")
    screen.write("Dogwood - Fig")
    screen.key("Return")
    _asked(p, SCAN_AFTER_RENAMING, "Yes")
    _asked(p, NO_SCAN, "OK")
    equal(lambda: p.list("Scratch playlist").rows(), [], "songs")
    equal(lambda: p.list("Artists").rows(), ["ALDER", "BEECH", "CYPRESS"], "artists")
    check((world.data / "plimo.kvx").read_bytes() == catalogue, "the catalogue is another")


def a_renaming_that_is_given_up_changes_nothing(world):
    p = _scratch(world)
    for give_up in (lambda: screen.key("Escape"), lambda: p.press("Cancel"), lambda: screen.key("BackSpace", "Return")):
        _ask_for_a_name(p, "Birch")
        give_up()
        p.gone("Rename", "dialog")
        _no_box(p)
        check(_titles(world) == ALDER, f"there are {_titles(world)}")
        check(p.list("Scratch playlist").rows() == ALDER, "the rows are others")


def a_renaming_onto_another_song_takes_its_place(world):
    p = _scratch(world)
    _song(world, "Birch").write_bytes(b"birch")
    _ask_for_a_name(p, "Birch")
    screen.write("Alder - Elm")
    screen.key("Return")
    _asked(p, SCAN_AFTER_RENAMING, "No")
    check(_titles(world) == [" Ash", " Cedar", " Damson", " Elm"], f"there are {_titles(world)}")
    check(_song(world, "Elm").read_bytes() == b"birch", "the other song stays")


def a_renaming_that_fails_is_reported(world):
    p = _scratch(world)
    taken = world.collection / "Alder - Folder.mp3"
    taken.mkdir()
    cases_of_failure = (("Alder - Folder", "70", "Permission denied", str(taken)),
                        ("Alder - Birch", "70", "Permission denied", str(_song(world, "Birch"))),
                        ("Elsewhere/Birch", "52", "Bad file name or number", "Elsewhere/Birch"))
    for name, number, description, about in cases_of_failure:
        _ask_for_a_name(p, "Birch")
        screen.write(name)
        screen.key("Return")
        p.gone("Rename", "dialog")
        _asked(p, f"Run-time error '{number}':\n\n{description}\n{about}", "OK")
        _no_box(p)
        check(_song(world, "Birch").exists(), f"the song is gone after {name!r}")
        check(p.list("Scratch playlist").rows() == ALDER, "the rows are others")


# --- Copying ---


def _to_the_stick(p, world, folder=None):
    """Opens the copy panel by the menu and goes to the other drive, and to a folder on it."""
    screen.key("v")
    screen.click(p.pop_up()["Copy Selected files to .."].centre())
    p.find("Copy Files to ..", "panel")
    screen.click(p.find(None, "combo box").centre())
    screen.key("End", "Return")
    folders = p.list("Folder to copy to")
    wait(lambda: folders.rows()[:1] == [str(world.stick)], "the other drive's folders")
    if folder is not None:
        screen.click(folders.row(folder).inside(60), times=2)
        wait(lambda: folders.row(folder).has("selected"), "the folder to be entered")


def songs_are_copied_to_the_folder_that_was_entered(world):
    (world.stick / "Autumn").mkdir()
    p = _scratch(world)
    _song(world, "Damson").chmod(0o640)
    os.utime(_song(world, "Damson"), ns=(10**18, 10**18 + 123456789))
    p.click_row("Scratch playlist", "Birch")
    screen.hand("keydown", "ctrl")
    p.click_row("Scratch playlist", "Damson")
    screen.hand("keyup", "ctrl")
    _to_the_stick(p, world, "Autumn")
    p.press("Start Copying")
    p.gone("Copy Files to ..", "panel")
    check(sorted(os.listdir(world.stick / "Autumn")) == ["Alder - Birch.mp3", "Alder - Damson.mp3"],
          f"there are {os.listdir(world.stick / 'Autumn')}")
    for title in ("Birch", "Damson"):
        song, copy = _song(world, title), world.stick / "Autumn" / f"Alder - {title}.mp3"
        check(copy.read_bytes() == song.read_bytes(), f"the copy of {title} is another")
        check(copy.stat().st_mtime_ns == song.stat().st_mtime_ns, f"the copy of {title} has another time")
        check(copy.stat().st_mode == song.stat().st_mode, f"the copy of {title} has other permissions")
    equal(lambda: p.list("Scratch playlist").rows(), ALDER, "the lists are back")


def a_copy_never_takes_the_place_of_a_file(world):
    there = world.stick / "Alder - Birch.mp3"
    there.write_bytes(b"there first")
    p = _scratch(world)
    p.press("Show the song commands")
    p.click_row("Scratch playlist", "Birch")
    screen.hand("keydown", "shift")
    p.click_row("Scratch playlist", "Cedar")
    screen.hand("keyup", "shift")
    _to_the_stick(p, world)
    p.press("Start Copying")
    _asked(p, "This file Alder - Birch.mp3 is already present in the destination folder!", "OK")
    p.gone("Copy Files to ..", "panel")
    check(there.read_bytes() == b"there first", "the file that was there is another")
    check((world.stick / "Alder - Cedar.mp3").read_bytes() == _song(world, "Cedar").read_bytes(), "the next is not copied")


def a_copy_that_is_cancelled_copies_nothing(world):
    p = _scratch(world)
    p.click_row("Scratch playlist", "Birch")
    _to_the_stick(p, world)
    p.press("Cancel")
    p.gone("Copy Files to ..", "panel")
    equal(lambda: p.list("Scratch playlist").selected(), [" Birch"], "the selection")
    check(os.listdir(world.stick) == [], "something was copied")


# --- On a slow disk ---


def _begin_a_long_copy(world, megabytes):
    """The program in the midst of copying a small and a large song. Its button, and its panel."""
    p = _scratch(world, *SLOW_DISK)
    songs.enlarge(str(_song(world, "Birch")), megabytes)
    p.click_row("Scratch playlist", "Ash")
    screen.key("shift+Down")
    _to_the_stick(p, world)
    button = p.find("Start Copying", "push button")
    screen.click(button.centre())
    return p, button, wait(lambda: p.at_work("Copying"), "the panel")


def a_long_copy_shows_how_far_it_is_and_its_song_only_when_it_is_whole(world):
    p, button, panel = _begin_a_long_copy(world, 50)
    copy = world.stick / "Alder - Birch.mp3"
    check(button.name == "Please Wait", f"the button says {button.name!r}")
    check(not button.has("enabled"), "the button can be pressed")
    told, seen = [], set()
    left, top, width, height = panel.rect
    middle = (left + width // 2 - 200, top + height // 2 - 60, 400, 120)
    while len(told) < 4:
        check(not copy.exists(), "the copy is seen before it is whole")
        text = wait(lambda: panel.name not in told and panel.name, "the copy to go on")
        check(text.startswith("Copying. File 2 of 2  ·  ") and text.endswith(" of 50.0 MB"), f"the panel says {text!r}")
        told.append(text)
        time.sleep(0.1)
        seen.add(tuple(screen.pixels(middle)))
    check(len(seen) >= 3, "the window is not painted while it copies")
    check(not copy.exists(), "the copy is over too soon to be watched")
    wait(copy.exists, "the copy")
    check(copy.read_bytes() == _song(world, "Birch").read_bytes(), "the copy is another")
    p.gone("Copy Files to ..", "panel")
    check(button.name == "Start Copying", f"the button says {button.name!r}")
    equal(lambda: p.list("Scratch playlist").selected(), [" Ash", " Birch"], "the lists are back")


def a_program_killed_while_it_copies_leaves_no_half_song(world):
    p, _, _ = _begin_a_long_copy(world, 50)
    whole = _song(world, "Birch").read_bytes()

    def copies():
        return [path.name for path in world.stick.glob("*.mp3")]

    check(copies() == ["Alder - Ash.mp3"], f"there are {copies()} while it copies")
    p.process.kill()
    p.process.wait()
    check(copies() == ["Alder - Ash.mp3"], f"there are {copies()}")
    check(_song(world, "Birch").read_bytes() == whole, "the song is another")
    p.close()
    p = world.start()
    equal(lambda: p.list("Artists").rows(), ["ALDER", "BEECH", "CYPRESS"], "artists of the new start")
    p.tick("Artists", "ALDER")
    equal(lambda: p.list("Scratch playlist").rows(), ALDER, "songs")


def a_long_deletion_shows_how_far_it_is(world):
    numbers = [f"{number:02}" for number in range(1, 61)]
    p = world.settled(*SLOW_DISK, artists={"Alder": numbers})
    p.tick("Artists", "ALDER")
    equal(lambda: p.list("Scratch playlist").count(), 60, "songs")
    p.press("Show the song commands")
    p.press("Delete All")
    check(p.box_text() == DELETE_ALL, f"the box says {p.box_text()!r}")
    p.press("Yes")
    panel = wait(lambda: p.at_work("Deleting"), "the panel")
    first = panel.name
    check(first.startswith("Deleting. File ") and first.endswith(" of 60"), f"the panel says {first!r}")
    wait(lambda: panel.name not in ("", first), "the deletion to go on")
    check(_titles(world) != [], "the deletion is over too soon to be watched")
    _asked(p, SCAN_AFTER_DELETING, "No")
    check(_titles(world) == [], f"there are still {_titles(world)}")


if __name__ == "__main__":
    cases.run(globals())
