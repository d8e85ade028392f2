"""The scene of the tour: from the first start to a playlist that is saved and played, and through all panels.

    scripts/with-display /usr/bin/python3 -m tests.tour.scene PROGRAM FOLDER

Each step is checked against the window and the files on the disk. The folder receives the pictures and the playlist.
"""
import os
import pathlib
import re
import shutil
import sys
import tempfile
import time

from tests.support.desktop import screen, songs
from tests.support.desktop.program import SLOW_DISK, Program
from tests.support.desktop.settings_file import settings
from tests.support.desktop.waiting import wait

FINAL = [" First Snow", " Letters Home", " Morning Light"]


def check(condition, message):
    if not condition:
        raise AssertionError(message)


def check_equal(actual, expected, what):
    if actual != expected:
        raise AssertionError(f"{what}:\n  is       {actual!r}\n  expected {expected!r}")


class Scene:
    def __init__(self, program, out, home):
        self.out = out
        self.home = home
        self.data = home / "data"
        self.collection = home / "library"
        self.stick = home / "stick"
        self.number = 0
        songs.make_library(self.collection)
        songs.write_song(self.stick / "Wanderer - Milestone.mp3")
        songs.write_song(self.stick / "Wanderer - Crossroads.mp3")
        self.program = Program(*SLOW_DISK, str(program), "--folder", str(self.data), "--drive", f"C={self.collection}",
                               "--drive", f"D={self.stick}:removable")

    def picture(self, name):
        self.number += 1
        time.sleep(0.15)  # the last change is painted
        screen.screenshot(self.out / f"{self.number:02}-{name}.png")
        print(f"  {self.number:2}  {name.replace('-', ' ')}", flush=True)

    def read(self, name):
        path = self.data / name
        check(path.exists(), f"there is no {name}")
        return path.read_bytes()

    def rows(self, name):
        return self.program.list(name).rows()

    def wait_for_final(self, rows):
        wait(lambda: self.rows("Final playlist") == rows, f"the final playlist to be {rows}")

    # --- The first start ---

    def splash(self):
        wait(lambda: self.program.visible("Plimo!", "push button"), "the splash")
        self.picture("splash")
        self.program.wait_until_gone("Plimo!", "push button")

    def first_run(self):
        p = self.program
        p.find("A Warm Welcome to Plimo!", "panel")
        p.find("Settings", "panel")
        check(not p.visible("Artists", "list"), "the artists are visible before the settings are accepted")
        check_equal(self.rows("Drives to scan during startup"), ["C: Hard Drive", "D: REMOVABLE"], "drives")
        check(not p.find("Do not scan for Mp3s during startup").has("enabled"), "the first run offers not to scan")
        self.picture("first-run")
        p.tick("Drives to scan during startup", "C: Hard Drive")
        wait(lambda: p.visible("Scan the Following drives during Startup").has("checked"), "scanning to be chosen")
        check_equal(p.list("Drives to scan during startup").ticked(), ["C: Hard Drive"], "ticked drives")
        self.picture("drive-ticked")
        p.press("Accept")
        wait(lambda: p.visible("Artists", "list") and p.list("Artists").count(), "the artists", 20)
        check_equal(self.read("plimo.ini"), settings(scan=True), "plimo.ini")
        check_equal(self.read("plimo.kvx"), songs.expected_catalogue(self.collection), "plimo.kvx")
        check_equal(self.rows("Artists"), songs.library_artists(self.collection), "artists")
        self.picture("scanned")
        p.press("Yeah, Yeah.....")
        p.wait_until_gone("A Warm Welcome to Plimo!", "panel")
        self.picture("welcome-closed")

    # --- The playlists ---

    def pick_songs(self):
        p = self.program
        for artist in ("ANNA BERG", "TRIO NORD", "CAF\ufffd NOIR", "東京カルテット", "MARLOW, REED & SONS"):
            before = len(self.rows("Scratch playlist"))
            p.tick("Artists", artist)
            wait(lambda: len(self.rows("Scratch playlist")) > before, f"songs of {artist}")
        check_equal(self.rows("Scratch playlist"),
                    [" First Snow", " Letters Home", " Morning Light", " Paper Boats", " The Long Way Round",
                     " Under the Lime Trees", " Fjord", " Derni\ufffdre danse", " 夜の電車", " Rain, Rain"], "songs")
        self.picture("artists-ticked")
        p.press("Show the song commands")
        p.find("Add to playlist", "push button")
        p.click_row("Scratch playlist", "First Snow")
        for title in ("Letters Home", "Morning Light"):
            with screen.holding("ctrl"):
                p.click_row("Scratch playlist", title)
        wait(lambda: p.list("Scratch playlist").selected() == FINAL, "three songs to be selected")
        screen.move(p.find("Add to playlist", "push button").centre())
        self.picture("songs-selected")
        p.press("Add to playlist")
        self.wait_for_final(FINAL)
        check_equal(p.list("Scratch playlist").selected(), [], "selected after adding")
        self.picture("added")
        p.press("Fold the song commands")
        p.wait_until_gone("Add to playlist", "push button")

    def save(self):
        p = self.program
        p.press("Show the playlist commands")
        p.press("Save")
        check_equal(p.answer("Yes"), "Would you like to make this the default play list ?", "question")
        p.find("File name:", "text")
        screen.type_text(str(self.data / "evening"))
        self.picture("saving")
        screen.key("Return")
        playlist = self.data / "evening.m3u"
        wait(playlist.exists, "evening.m3u")
        p.wait_until_gone("Save", "dialog")
        album = self.collection / "Albums" / "Anna Berg"
        expected = b"".join(os.fsencode(album / f"Anna Berg -{title}.mp3") + b"\r\n" for title in FINAL)
        check_equal(playlist.read_bytes(), expected, "evening.m3u")
        wait((self.data / "default.m3u").exists, "default.m3u")
        check_equal(self.read("default.m3u"), expected, "default.m3u")
        shutil.copy(playlist, self.out)

    def clear_and_open(self):
        p = self.program
        p.press("Show the playlist commands")
        p.press("Remove all")
        self.wait_for_final([])
        self.picture("cleared")
        p.press("Show the playlist commands")
        p.press("Open")
        p.find("Open your play list file", "dialog")
        screen.type_text(str(self.data / "evening.m3u"))
        self.picture("opening")
        screen.key("Return")
        self.wait_for_final(FINAL)
        check_equal(p.list("Artists").ticked(), ["ANNA BERG"], "ticked artists")
        check(len(self.rows("Scratch playlist")) == 6, "the scratch playlist does not have the six songs of the artist")
        self.picture("opened")

    # --- Playing ---

    def play(self):
        p = self.program
        p.press("Play all songs on the final playlist")
        caption = re.compile(r"Plimo! by the Plimo! team\.  Total length of current song (\d+ : \d+)"
                             r"(?: minutes\. Elapsed Time : (\d+) : (\d+))?$")
        lengths, elapsed = {}, {}  # of each song, as shown in the title of the window
        pictured = False
        end = time.monotonic() + 3 * songs.PLAYED_SECONDS + 20
        while True:
            labels = [label.name for label in p.elements(role="notification")]
            song = next((label for label in labels if re.match(r"\d / 3 ", label)), None)
            title = caption.match(screen.active_title())
            if song and title:
                lengths.setdefault(song, title[1])
                elapsed.setdefault(song, set())
                if title[2]:
                    elapsed[song].add(int(title[2]) * 60 + int(title[3]))
                if len(lengths) == 2 and len(elapsed[song]) >= 2 and not pictured:
                    pictured = True
                    self.picture("playing")
            if len(lengths) == 3 and not song:
                break
            check(time.monotonic() < end, f"three songs were not played to the end: {elapsed}")
            time.sleep(0.1)
        played = [song.split(None, 3)[3] for song in sorted(lengths)]
        check_equal(played, [f"Anna Berg -{title}.mp3" for title in FINAL], "songs played")
        for song in lengths:
            check_equal(lengths[song], f"0 : {songs.PLAYED_SECONDS}", f"length of {song}")
            check(len(elapsed[song]) >= 2, f"the elapsed time did not advance in {song}: {elapsed[song]}")
        self.picture("played")

    def compact(self):
        p = self.program
        whole = screen.size()
        p.choose("View", "Compact")
        p.wait_until_gone("Artists", "list")
        check(p.find("Player").rect[2] < whole[0], "the compact view is not smaller")
        time.sleep(1)
        self.picture("compact")
        p.choose("View", "Large")
        p.find("Artists", "list")
        wait(lambda: p.list("Artists").rect[3] > whole[1] // 2, "the large view")
        self.wait_for_final(FINAL)
        self.picture("large-again")

    # --- The panels ---

    def other_drives(self):
        p = self.program
        p.choose("Function", "Scan other drives for Mp3s")
        p.find("Drive Selection", "panel")
        check_equal(self.rows("Drives to scan"), ["C: Hard Drive", "D: REMOVABLE"], "drives")
        p.click_row("Drives to scan", "D: REMOVABLE")
        self.picture("drive-selection")
        p.press("Okay")
        wait(lambda: p.visible("Artists", "list") and self.rows("Artists") == ["WANDERER"], "the other drive's artist")
        check_equal(self.read("plimo.kvx"), songs.expected_catalogue(self.stick), "plimo.kvx")
        self.picture("other-drive")
        p.choose("Function", "Scan preferred drives for Mp3s")
        wait(lambda: self.rows("Artists") == songs.library_artists(self.collection), "the artists of the preferred drive")
        check_equal(self.read("plimo.kvx"), songs.expected_catalogue(self.collection), "plimo.kvx")

    def copy(self):
        p = self.program
        songs.enlarge(self.collection / "Singles" / "Kestrel - Gliding.Mp3", 25)
        p.tick("Artists", "KESTREL")
        wait(lambda: "Gliding" in "".join(self.rows("Scratch playlist")), "the songs")
        p.click_row("Scratch playlist", "Gliding")
        screen.key("v")
        items = p.context_menu()
        check({"Play", "Information", "Rename"} <= set(items), f"the menu has {list(items)}")
        self.picture("menu")
        screen.click(items["Copy Selected files to .."].centre())
        p.find("Copy Files to ..", "panel")
        screen.click(p.find(None, "combo box").centre())
        screen.key("End", "Return")
        wait(lambda: p.list("Folder to copy to").rows() and p.list("Folder to copy to").rows()[0] == str(self.stick),
             "the other drive's folders")
        self.picture("copying")
        button = p.find("Start Copying", "push button")
        screen.click(button.centre())
        panel = wait(lambda: p.progress_panel("Copying"), "the progress panel")
        check_equal(button.name, "Please Wait", "the button")
        self.picture("please-wait")
        check(panel.name.startswith("Copying. File 1 of 1  ·  "), f"the panel shows {panel.name!r}")
        copy = self.stick / "Kestrel - Gliding.Mp3"
        check(not copy.exists(), "the copy is visible before it is complete")
        wait(copy.exists, "the copy")
        check_equal(copy.stat().st_size, 25 << 20, "bytes of the copy")
        p.wait_until_gone("Copy Files to ..", "panel")

    def information(self):
        p = self.program
        p.click_row("Scratch playlist", "Gliding", button=3)
        screen.click(p.context_menu()["Information"].centre())
        text = p.message()
        check(str(self.collection / "Singles" / "Kestrel - Gliding.Mp3") in text, f"the message is {text!r}")
        self.picture("information")
        p.answer()
        screen.key("space")
        self.wait_for_final([" Gliding"])

    def hotkeys(self):
        p = self.program
        p.choose("Function", "Hotkeys")
        text = p.message()
        check("8)  Plimo! also allows drag and drop on the final playlist." in text, f"the message is {text!r}")
        self.picture("hotkeys")
        p.answer()

    def choose_from_menu(self, row, item):
        self.program.click_row("Scratch playlist", row, button=3)
        screen.click(self.program.context_menu()[item].centre())

    def confirm(self, text, name, button):
        """Checks the text of a message box, takes its picture and answers it."""
        seen = self.program.message()
        check(text in seen, f"the message is {seen!r}, not {text!r}")
        self.picture(name)
        self.program.answer(button)

    def tick_after_scan(self, artist):
        wait(lambda: self.rows("Scratch playlist") == [] and self.rows("Artists"), "the lists after the scan")
        check_equal(self.read("plimo.kvx"), songs.expected_catalogue(self.collection), "plimo.kvx")
        self.program.tick("Artists", artist)
        wait(lambda: self.rows("Scratch playlist"), f"songs of {artist}")

    def rename(self):
        p = self.program
        self.choose_from_menu("Gliding", "Rename")
        p.find("Rename", "dialog")
        screen.type_text("Kestrel - Soaring")
        self.picture("rename")
        screen.key("Return")
        self.confirm("incorporate the changes (RECOMMENDED)?", "renamed", "Yes")
        check((self.collection / "Singles" / "Kestrel - Soaring.mp3").exists(), "the song was not renamed")
        self.tick_after_scan("KESTREL")

    def delete(self):
        self.choose_from_menu("Soaring", "Delete Selected")
        self.confirm("say goodbye to the selected files!", "delete", "Yes")
        self.confirm("Do you want to re-scan your hard drive", "deleted", "Yes")
        check(not (self.collection / "Singles" / "Kestrel - Soaring.mp3").exists(), "the song was not deleted")
        self.tick_after_scan("KESTREL")
        check_equal(self.rows("Scratch playlist"), [" Thermal", " Windhover"], "songs")
        (self.collection / "Albums" / "Kestrel" / "Kestrel - Thermal.mp3").unlink()
        self.choose_from_menu("Thermal", "Delete Selected")
        self.program.answer("Yes")
        self.confirm("could not be deleted", "delete-failed", "OK")
        self.program.answer("No")
        self.program.click_row("Scratch playlist", "Windhover")
        screen.key("space")
        self.wait_for_final([" Windhover"])

    def help_panels(self):
        p = self.program
        p.choose("Help", "What's Plimo! all about")
        p.find("A Warm Welcome to Plimo!", "panel")
        check(not p.visible("Artists", "list"), "the artists are visible beside the welcome")
        self.picture("welcome")
        p.press("Ok!")
        p.find("Artists", "list")
        p.choose("Help", "Credits")
        p.find("Credits!", "panel")
        self.picture("credits")
        p.press("Ok!")
        p.wait_until_gone("Credits!", "panel")

    def preferences(self):
        p = self.program
        p.choose("Settings", "Preferences")
        check("save your final playlist" in p.answer("Yes"), "there is no warning that the lists will be cleared")
        p.find("Settings", "panel")
        check_equal(p.list("Drives to scan during startup").ticked(), ["C: Hard Drive"], "ticked drives")
        check(not p.visible("Artists", "list"), "the artists are visible beside the settings")
        screen.click(p.find("Use Winamp to play").inside(20))
        p.find("Winamp's folder", "list")
        self.picture("preferences")
        screen.click(p.find("Use Winamp to play").inside(20))
        p.wait_until_gone("Winamp's folder", "list")
        screen.click(p.find("Show the Color Settings").inside(20))
        p.press("Accept")
        check_equal(p.answer(), "Please use the slider bars to customize the colour of Plimo!", "message")

    def colours(self):
        p = self.program
        p.find("Accept All Changes", "push button")
        p.press("Artists", "radio button")
        screen.click(p.find("Background", "check box").inside(20))
        for name, value in (("Red", 64), ("Green", 16), ("Blue", 96)):
            slider = p.find(name, "slider")
            screen.click(slider.inside(15))
            screen.key("Home")
            while int(slider.value) < value:
                before = int(slider.value)
                screen.key("Prior" if value - before >= 16 else "Right")
                check(int(slider.value) > before, f"the slider {name} does not move")
            check_equal(int(slider.value), value, f"the slider {name}")
        left, top, width, height = p.list("Artists").rect
        lower = (left + 10, top + height - 40, width - 40, 20)
        check_equal(screen.main_colour(lower), (64, 16, 96), "the artist list's colour on the screen")
        self.picture("colours")
        p.press("Accept All Changes")
        wait(lambda: p.visible("Artists", "list") and p.list("Artists").count() > 1, "the artists")
        stored = settings(scan=True, artists_background=64 + 256 * 16 + 65536 * 96)
        check_equal(self.read("plimo.ini"), stored, "plimo.ini")
        check(not (self.data / "plimo2.ini").exists(), "there is still a plimo2.ini")
        self.picture("new-colours")

    def exit(self):
        self.program.choose("Function", "Exit")
        check_equal(self.program.wait_for_exit(), 0, "exit status")


def play(program, out):
    """Plays the scene. Prints the step that fails, and returns the exit status."""
    with tempfile.TemporaryDirectory(prefix="plimo-tour-") as folder:
        scene = Scene(program, out, pathlib.Path(folder))
        with scene.program:
            for step in (scene.splash, scene.first_run, scene.pick_songs, scene.save, scene.clear_and_open, scene.play,
                         scene.compact, scene.other_drives, scene.copy, scene.information, scene.hotkeys, scene.rename,
                         scene.delete, scene.preferences, scene.colours, scene.help_panels, scene.exit):
                try:
                    step()
                except AssertionError as failure:
                    print(f"failed: {step.__name__.replace('_', ' ')}: {failure}", flush=True)
                    screen.screenshot(out / "failed.png")
                    return 1
    return 0


if __name__ == "__main__":
    sys.exit(play(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])))
