"""Takes a picture of each panel and message box, on the display that is there.

    scripts/with-display /usr/bin/python3 -m tests.tour.panels PROGRAM FOLDER [--scale N] [--dark] [--documentation]

With --documentation, the test library contains only names that are valid text.
"""
import argparse
import os
import pathlib
import tempfile
import time

from tests.support.desktop import screen, songs
from tests.support.desktop.program import SLOW_DISK, Program
from tests.support.desktop.waiting import wait

# A dark colour scheme in the settings of the KDE desktop, which Qt reads.
DARK_SCHEME = """[Colors:Window]
BackgroundNormal=32,34,40
ForegroundNormal=236,236,240
[Colors:View]
BackgroundNormal=24,26,30
ForegroundNormal=236,236,240
[Colors:Button]
BackgroundNormal=44,46,54
ForegroundNormal=236,236,240
"""


class Panels:
    def __init__(self, program, out, home, options):
        self.out = out
        self.collection = home / "library"
        self.album = self.collection / "Albums" / "Anna Berg"
        self.scale = options.scale
        self.environment = {}
        self.program = None
        songs.make_library(self.collection)
        if options.documentation:
            os.remove(os.path.join(os.fsencode(self.collection), b"Singles", songs.NOT_UTF8))
        for title in songs.PLAYED:
            songs.write_song(self.album / f"Anna Berg - {title}.mp3", 205)
        songs.enlarge(self.album / "Anna Berg - The Long Way Round.mp3", 60)
        (home / "stick").mkdir()
        if options.dark:
            (home / "kdeglobals").write_text(DARK_SCHEME)
            self.environment = {"XDG_CONFIG_HOME": str(home), "XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"}
        self.command = [str(program), "--folder", str(home / "data"), "--drive", f"C={self.collection}",
                        "--drive", f"D={home / 'stick'}:removable"]

    def start(self, *wrapper):
        self.program = Program(*wrapper, *self.command, scale=self.scale, environment=self.environment)
        return self.program

    def take_all(self):
        with self.start():
            self.first_run()
            self.main_window()
            self.menus_and_panels()
            self.delete_missing_song()
            self.compact_view()
            self.preferences_and_colours()
            self.help_panels()
        with self.start(*SLOW_DISK):
            self.long_copy()

    def picture(self, name, delay=0.3):
        time.sleep(delay)
        screen.screenshot(self.out / f"{name}.png")

    def wait_for_artists(self):
        p = self.program
        wait(lambda: p.visible("Artists", "list") and p.list("Artists").count() > 20, "the artists", 20)

    def activate(self, name):
        """Presses a button by its accessible action, even if the screen is too small to show it."""
        buttons = wait(lambda: self.program.elements(name, "push button", showing=False), f'"{name}"')
        buttons[0].activate()

    def close_panel(self, button, panel):
        """Presses a visible button by its accessible action."""
        self.program.find(button, "push button").activate()
        self.program.wait_until_gone(panel, "panel")

    def choose_from_menu(self, row, item):
        element = self.program.list("Scratch playlist").row(row)
        element.activate(1)
        screen.click(element.inside(30), 3)
        screen.click(self.program.context_menu()[item].centre())

    # --- The pictures ---

    def first_run(self):
        p = self.program
        p.find("A Warm Welcome to Plimo!", "panel")
        self.picture("first-run")
        p.list("Drives to scan during startup").child(0).activate()
        self.activate("Accept")
        self.wait_for_artists()
        self.activate("Yeah, Yeah.....")

    def main_window(self):
        p = self.program
        for row in (0, 1, 4, 8, 11):
            p.list("Artists").child(row).activate()
        p.list("Artists").child(0).activate(1)
        scratch = p.list("Scratch playlist")
        for row in (0, 7, 14, 2, 19, 8, 5, 17, 10, 13):
            scratch.child(row).activate()
            self.activate("Add to playlist")
            wait(lambda: not scratch.child(row).has("selected"), "the song to be added")
        scratch.child(1).activate()
        self.activate("Play all songs on the final playlist")
        p.find("Pause", "push button")
        wait(lambda: p.find("Place in the song", "slider").has("enabled"), "the song")
        left, top, width, height = p.find("Place in the song", "slider").rect
        screen.click((left + width // 3, top + height // 2))
        screen.move((2, screen.size()[1] - 2))
        self.picture("main", 1.3)
        for strip in ("artist", "song", "playlist"):
            self.activate(f"Show the {strip} commands")
        self.picture("strips")

    def menus_and_panels(self):
        p = self.program
        song = p.list("Scratch playlist").row("First Snow")
        song.activate(1)
        screen.click(song.inside(30), 3)
        self.picture("menu")
        screen.key("Escape")
        p.choose("Function", "Hotkeys")
        p.message()
        self.picture("box")
        p.answer()
        p.choose("Function", "Scan other drives for Mp3s")
        p.find("Drive Selection", "panel")
        self.picture("drive-selection")
        self.close_panel("Cancel", "Drive Selection")
        self.choose_from_menu("Paper Boats", "Information")
        p.message()
        self.picture("information")
        p.answer()
        self.choose_from_menu("Paper Boats", "Copy Selected files to ..")
        p.find("Copy Files to ..", "panel")
        self.picture("copy")
        self.close_panel("Cancel", "Copy Files to ..")
        self.choose_from_menu("Paper Boats", "Rename")
        p.find("Rename", "dialog")
        self.picture("rename")
        screen.key("Escape")
        p.wait_until_gone("Rename", "dialog")

    def delete_missing_song(self):
        p = self.program
        (self.album / "Anna Berg - Paper Boats.mp3").unlink()
        self.choose_from_menu("Paper Boats", "Delete Selected")
        p.message()
        self.picture("question")
        p.answer("Yes")
        self.picture("failure")
        p.answer()
        self.picture("offer")
        p.answer("No")

    def compact_view(self):
        p = self.program
        p.choose("View", "Compact")
        p.wait_until_gone("Artists", "list")
        self.picture("compact", 1.1)
        p.choose("View", "Large")
        p.find("Artists", "list")

    def preferences_and_colours(self):
        p = self.program
        p.choose("Settings", "Preferences")
        p.answer("Yes")
        p.find("Settings", "panel")
        screen.click(p.find("Use Winamp to play").inside(12))
        p.find("Winamp's folder", "list")
        self.picture("preferences")
        screen.click(p.find("Use Winamp to play").inside(12))
        screen.click(p.find("Show the Color Settings").inside(12))
        self.activate("Accept")
        p.answer()
        p.find("Accept All Changes", "push button")
        self.picture("colours")
        self.activate("Accept All Changes")
        p.find("Artists", "list")

    def help_panels(self):
        p = self.program
        p.choose("Help", "Credits")
        p.find("Credits!", "panel")
        self.picture("credits")
        p.find("Ok!", "push button").activate()
        p.choose("Help", "What's Plimo! all about")
        p.find("A Warm Welcome to Plimo!", "panel")
        self.picture("welcome")

    def long_copy(self):
        p = self.program
        self.wait_for_artists()
        p.list("Artists").child(0).activate()
        wait(lambda: p.list("Scratch playlist").count() > 4, "songs")
        self.choose_from_menu("The Long Way Round", "Copy Selected files to ..")
        screen.click(p.find("Start Copying", "push button").centre())
        wait(lambda: p.progress_panel("Copying"), "the progress panel")
        self.picture("please-wait", 0)
        p.process.kill()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program", type=pathlib.Path)
    parser.add_argument("out", type=pathlib.Path)
    parser.add_argument("--scale", type=int, default=1)
    parser.add_argument("--dark", action="store_true")
    parser.add_argument("--documentation", action="store_true")
    options = parser.parse_args()
    with tempfile.TemporaryDirectory(prefix="plimo-panels-") as home:
        Panels(options.program, options.out, pathlib.Path(home), options).take_all()


if __name__ == "__main__":
    main()
