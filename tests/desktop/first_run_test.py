"""From the first start to a saved playlist, and what stops a start."""
import os

import cases
import screen
import songs
from cases import check, content, equal
from screen import wait


def tab_to(p, name, role):
    """Presses Tab until the thing has the keyboard."""
    for _ in range(40):
        thing = p.sees(name, role)
        if thing is not None and thing.has("focused"):
            return thing
        screen.key("Tab")
    raise screen.Failure(f'Tab does not come to "{name}"')


def the_first_run_leads_to_a_saved_playlist_by_the_keyboard_alone(world):
    world.plant()
    p = world.start()
    p.find("A Warm Welcome to Plimo!", "panel")
    wait(lambda: p.find("Scan the Following drives during Startup", "radio button").has("focused"), "the keyboard")
    tab_to(p, "Drives to scan during startup", "list")
    screen.key("Home", "space")
    equal(p.list("Drives to scan during startup").ticked, ["C: Hard Drive"], "ticked drives")
    tab_to(p, "Accept", "push button")
    screen.key("Return")
    equal(lambda: p.list("Artists").rows(), ["ALDER", "BEECH", "CYPRESS"], "artists")
    tab_to(p, "Yeah, Yeah.....", "push button")
    screen.key("Return")
    tab_to(p, "Artists", "list")
    screen.key("Home", "Down", "space")
    equal(lambda: p.list("Scratch playlist").rows(), [" Fir", " Gorse"], "songs")
    screen.key("Tab")
    check(p.list("Scratch playlist").has("focused"), "Tab does not go from the artists to the scratch playlist")
    screen.key("End", "space", "Home", "space")
    equal(lambda: p.list("Final playlist").rows(), [" Gorse", " Fir"], "final playlist")
    screen.key("alt+f", "a")
    check(p.box_text() == "Would you like to make this the default play list ?", "the question is another")
    screen.key("Return")
    p.find("File name:", "text")
    screen.write(str(world.data / "mine"))
    screen.key("Return")
    paths = (world.collection / "Beech - Gorse.mp3", world.collection / "Beech - Fir.mp3")
    lines = b"".join(os.fsencode(path) + b"\r\n" for path in paths)
    equal(lambda: content(world.data / "mine.m3u"), lines, "playlist")
    equal(lambda: content(world.data / "default.m3u"), lines, "default playlist")
    equal(lambda: content(world.data / "plimo.kvx"), songs.expected_catalogue(str(world.collection)), "catalogue")


def the_splash_comes_first_when_there_are_no_settings(world):
    p = world.start()
    wait(lambda: p.sees("Plimo!", "push button"), "the splash")
    check(not p.sees("Settings", "panel"), "the settings show beside the splash")
    p.find("Settings", "panel")
    check(not p.sees("Plimo!", "push button"), "the splash stays")


def accepting_without_a_drive_is_refused(world):
    p = world.start()
    p.press("Accept")
    check(p.answer() == "You will have to select atleast 1 drive to scan for Mp3s!", "the message is another")
    check(not (world.data / "plimo.ini").exists(), "settings were written")


def a_damaged_settings_file_is_reported_and_ends_the_program(world):
    (world.data / "plimo.ini").write_bytes(b'0\r\n#TRUE#\r\n#FALSE#\r\n"C:"\r\n')
    p = world.start()
    text = p.box_text()
    check(text.startswith("Run-time error '62':\n\nInput past end of file"), f"the report says {text!r}")
    p.answer("OK")
    check(p.ends() == 1, "the exit status is not 1")


def the_root_folder_of_a_drive_is_refused(world):
    p = world.start(drives=(f"C={world.data}",))
    text = p.answer()
    check(text == "Sorry, Plimo cannot be installed in the root folder! Please install Plimo in any sub-directory",
          f"the message says {text!r}")
    p.ends()
    check(os.listdir(world.data) == [], "files were written")


def settings_that_cannot_be_written_are_reported_and_the_window_stays(world):
    world.plant()
    world.data.chmod(0o555)
    # A superuser may write everywhere; without this right he is like everyone else.
    without = ["setpriv", "--bounding-set", "-dac_override,-dac_read_search"] if os.geteuid() == 0 else []
    try:
        p = world.start(*without)
        p.tick("Drives to scan during startup", "C: Hard Drive")
        p.press("Accept")
        text = p.answer()
        check(text.startswith("Run-time error '7") and "plimo.ini" in text, f"the report says {text!r}")
        check(p.find("Settings", "panel").has("showing"), "the window does not stay")
        check(os.listdir(world.data) == [], "files were left behind")
    finally:
        world.data.chmod(0o755)


def _scan_without_end(world):
    """The program in the midst of a scan of minutes, and its Cancel button."""
    world.plant()
    for number in range(1500):
        (world.collection / f"empty {number}").mkdir()
    # The drive over and over again.
    (world.data / "plimo.ini").write_bytes(cases.settings("C:" * 9000, scan=True))
    p = world.start()

    panel = wait(lambda: p.at_work("song"), "the scan's panel", 20)
    before = panel.name
    wait(lambda: panel.name != before, "the scan to go on")
    cancel = panel.child(0)
    check(cancel.name == "Cancel", "there is no Cancel")
    return p, cancel


def a_scan_shows_how_far_it_is_and_can_be_cancelled(world):
    p, cancel = _scan_without_end(world)
    screen.click(cancel.centre())
    equal(lambda: p.list("Artists").rows(), ["ALDER", "BEECH", "CYPRESS"], "what was found so far")
    wait(lambda: not cancel.has("showing"), "the panel to go")


def escape_cancels_a_scan_whatever_has_the_keyboard(world):
    p, cancel = _scan_without_end(world)
    screen.key("Tab", "Escape")
    equal(lambda: p.list("Artists").rows(), ["ALDER", "BEECH", "CYPRESS"], "what was found so far")
    wait(lambda: not cancel.has("showing"), "the panel to go")


if __name__ == "__main__":
    cases.run(globals())
