"""The tour's scene: one user's way from the first start to a saved, played playlist and through all panels."""
import os
import pathlib
import re
import shutil
import tempfile
import time

import screen
import songs
from screen import Failure, wait
from window import SLOW_DISK, Program

FINAL = [" First Snow", " Letters Home", " Morning Light"]
FIRST_SETTINGS = (b'0\r\n#FALSE#\r\n#TRUE#\r\n"C:"\r\n0\r\n0\r\n'
                  b'65535\r\n4194304\r\n65535\r\n4194304\r\n65535\r\n"4194304"\r\n')


def must(holds, what):
    if not holds:
        raise Failure(what)


def same(seen, expected, what):
    if seen != expected:
        raise Failure(f"{what}:\n  seen     {seen!r}\n  expected {expected!r}")


class Scene:
    def __init__(self, binary, out, home):
        self.out = out
        self.home = home
        self.data = home / "data"
        self.collection = home / "library"
        self.stick = home / "stick"
        self.number = 0
        songs.make_library(str(self.collection))
        songs.write_song(str(self.stick / "Wanderer - Milestone.mp3"))
        songs.write_song(str(self.stick / "Wanderer - Crossroads.mp3"))
        self.program = Program(*SLOW_DISK, str(binary), "--folder", str(self.data), "--drive", f"C={self.collection}",
                               "--drive", f"D={self.stick}:removable")

    def picture(self, name):
        self.number += 1
        time.sleep(0.15)  # what was just asked for is painted
        screen.picture(str(self.out / f"{self.number:02}-{name}.png"))
        print(f"  {self.number:2}  {name.replace('-', ' ')}", flush=True)

    def file(self, name):
        path = self.data / name
        must(path.exists(), f"{name} was not written")
        return path.read_bytes()

    def rows(self, name):
        return self.program.list(name).rows()

    def final_is(self, rows):
        wait(lambda: self.rows("Final playlist") == rows, f"the final playlist to be {rows}")

    # --- The first start ---

    def splash(self):
        wait(lambda: self.program.sees("Plimo!", "push button"), "the splash")
        self.picture("splash")
        self.program.gone("Plimo!", "push button")

    def first_run(self):
        p = self.program
        p.find("A Warm Welcome to Plimo!", "panel")
        p.find("Settings", "panel")
        must(not p.sees("Artists", "list"), "the artists show before the settings are accepted")
        same(self.rows("Drives to scan during startup"), ["C: Hard Drive", "D: REMOVABLE"], "drives")
        must(not p.find("Do not scan for Mp3s during startup").has("enabled"), "not scanning can be chosen at first")
        self.picture("first-run")
        p.tick("Drives to scan during startup", "C: Hard Drive")
        wait(lambda: p.sees("Scan the Following drives during Startup").has("checked"), "scanning to be chosen")
        same(p.list("Drives to scan during startup").ticked(), ["C: Hard Drive"], "ticked drives")
        self.picture("drive-ticked")
        p.press("Accept")
        wait(lambda: p.sees("Artists", "list") and p.list("Artists").count(), "the artists", 20)
        same(self.file("plimo.ini"), FIRST_SETTINGS, "plimo.ini")
        same(self.file("plimo.kvx"), songs.expected_catalogue(str(self.collection)), "plimo.kvx")
        same(self.rows("Artists"), songs.library_artists(str(self.collection)), "artists")
        self.picture("scanned")
        p.press("Yeah, Yeah.....")
        p.gone("A Warm Welcome to Plimo!", "panel")
        self.picture("welcome-closed")

    # --- The playlists ---

    def pick_songs(self):
        p = self.program
        for artist in ("ANNA BERG", "TRIO NORD", "CAF\ufffd NOIR", "東京カルテット", "MARLOW, REED & SONS"):
            before = len(self.rows("Scratch playlist"))
            p.tick("Artists", artist)
            wait(lambda: len(self.rows("Scratch playlist")) > before, f"songs of {artist}")
        same(self.rows("Scratch playlist"),
             [" First Snow", " Letters Home", " Morning Light", " Paper Boats", " The Long Way Round",
              " Under the Lime Trees", " Fjord", " Derni\ufffdre danse", " 夜の電車", " Rain, Rain"], "scratch playlist")
        self.picture("artists-ticked")
        p.press("Show the song commands")
        p.find("Add to playlist", "push button")
        p.click_row("Scratch playlist", "First Snow")
        for title in ("Letters Home", "Morning Light"):
            screen.hand("keydown", "ctrl")
            p.click_row("Scratch playlist", title)
            screen.hand("keyup", "ctrl")
        wait(lambda: p.list("Scratch playlist").selected() == FINAL, "three songs to be selected")
        screen.move(p.find("Add to playlist", "push button").centre())
        self.picture("songs-selected")
        p.press("Add to playlist")
        self.final_is(FINAL)
        same(p.list("Scratch playlist").selected(), [], "selected after adding")
        self.picture("added")
        p.press("Fold the song commands")
        p.gone("Add to playlist", "push button")

    def save(self):
        p = self.program
        p.press("Show the playlist commands")
        p.press("Save")
        same(p.answer("Yes"), "Would you like to make this the default play list ?", "question")
        p.find("File name:", "text")
        screen.write(str(self.data / "evening"))
        self.picture("saving")
        screen.key("Return")
        playlist = self.data / "evening.m3u"
        wait(playlist.exists, "evening.m3u")
        p.gone("Save", "dialog")
        album = self.collection / "Albums" / "Anna Berg"
        expected = b"".join(os.fsencode(album / f"Anna Berg -{title}.mp3") + b"\r\n" for title in FINAL)
        same(playlist.read_bytes(), expected, "evening.m3u")
        wait((self.data / "default.m3u").exists, "default.m3u")
        same(self.file("default.m3u"), expected, "default.m3u")
        shutil.copy(playlist, self.out)

    def clear_and_open(self):
        p = self.program
        p.press("Show the playlist commands")
        p.press("Remove all")
        self.final_is([])
        self.picture("cleared")
        p.press("Show the playlist commands")
        p.press("Open")
        p.find("Open your play list file", "dialog")
        screen.write(str(self.data / "evening.m3u"))
        self.picture("opening")
        screen.key("Return")
        self.final_is(FINAL)
        same(p.list("Artists").ticked(), ["ANNA BERG"], "ticked artists")
        must(len(self.rows("Scratch playlist")) == 6, "the scratch playlist does not hold the artist's songs")
        self.picture("opened")

    # --- Playing ---

    def play(self):
        p = self.program
        p.press("Play all songs on the final playlist")
        told = {}
        pattern = re.compile(r"Plimo! by the Plimo! team\.  Total length of current song (\d+ : \d+)"
                             r"(?: minutes\. Elapsed Time : (\d+) : (\d+))?$")
        end = time.monotonic() + 3 * songs.PLAYED_SECONDS + 20
        while True:
            playing = next((label.name for label in p.things(role="label") if re.match(r"\d / 3 ", label.name)), "")
            caption = pattern.match(screen.title())
            if playing and caption:
                heard = told.setdefault(playing, (caption[1], set()))
                if caption[2]:
                    heard[1].add(int(caption[2]) * 60 + int(caption[3]))
                if len(told) == 2 and len(heard[1]) >= 2 and not (self.out / "playing.seen").exists():
                    (self.out / "playing.seen").touch()
                    self.picture("playing")
            if len(told) == 3 and len(told[max(told)][1]) >= 2 and not playing:
                break
            if len(told) == 3 and any(label.name == "Nothing is playing" for label in p.things(role="label")):
                break
            if time.monotonic() > end:
                raise Failure(f"three songs were not played to their end: {told}, caption {screen.title()!r}")
            time.sleep(0.1)
        (self.out / "playing.seen").unlink(missing_ok=True)
        same([name.split(None, 3)[3] for name in sorted(told)], [f"Anna Berg -{title}.mp3" for title in FINAL],
             "songs played")
        for name, (length, elapsed) in told.items():
            same(length, f"0 : {songs.PLAYED_SECONDS}", f"length of {name}")
            must(len(elapsed) >= 2, f"the time did not advance in {name}: {elapsed}")
        self.picture("played")

    def compact(self):
        p = self.program
        whole = screen.size()
        p.choose("View", "Compact")
        p.gone("Artists", "list")
        must(p.find("Player").rect[2] < whole[0], "the compact view is not small")
        time.sleep(1)
        self.picture("compact")
        p.choose("View", "Large")
        p.find("Artists", "list")
        wait(lambda: p.list("Artists").rect[3] > whole[1] // 2, "the large view")
        self.final_is(FINAL)
        self.picture("large-again")

    # --- The panels ---

    def other_drives(self):
        p = self.program
        p.choose("Function", "Scan other drives for Mp3s")
        p.find("Drive Selection", "panel")
        same(self.rows("Drives to scan"), ["C: Hard Drive", "D: REMOVABLE"], "drives")
        p.click_row("Drives to scan", "D: REMOVABLE")
        self.picture("drive-selection")
        p.press("Okay")
        wait(lambda: p.sees("Artists", "list") and self.rows("Artists") == ["WANDERER"], "the artist of the other drive")
        same(self.file("plimo.kvx"), songs.expected_catalogue(str(self.stick)), "plimo.kvx")
        self.picture("other-drive")
        p.choose("Function", "Scan preferred drives for Mp3s")
        wait(lambda: self.rows("Artists") == songs.library_artists(str(self.collection)), "the artists of the preferred drive")
        same(self.file("plimo.kvx"), songs.expected_catalogue(str(self.collection)), "plimo.kvx")

    def copy(self):
        p = self.program
        songs.enlarge(str(self.collection / "Singles" / "Kestrel - Gliding.Mp3"), 25)
        p.tick("Artists", "KESTREL")
        wait(lambda: "Gliding" in "".join(self.rows("Scratch playlist")), "the songs")
        p.click_row("Scratch playlist", "Gliding")
        screen.key("v")
        items = p.pop_up()
        must({"Play", "Information", "Rename"} <= set(items), f"the menu holds {list(items)}")
        self.picture("menu")
        screen.click(items["Copy Selected files to .."].centre())
        p.find("Copy Files to ..", "panel")
        drive = p.find(None, "combo box")  # its name is what it shows
        screen.click(drive.centre())
        screen.key("End", "Return")
        wait(lambda: p.list("Folder to copy to").rows() and p.list("Folder to copy to").rows()[0] == str(self.stick),
             "the other drive's folders")
        self.picture("copying")
        button = p.find("Start Copying", "push button")
        screen.click(button.centre())
        panel = wait(lambda: p.at_work("Copying"), "the panel that tells how far it is")
        same(button.name, "Please Wait", "the button")
        self.picture("please-wait")
        must(panel.name.startswith("Copying. File 1 of 1  ·  "), f"the panel says {panel.name!r}")
        copy = self.stick / "Kestrel - Gliding.Mp3"
        must(not copy.exists(), "the copy is seen before it is whole")
        wait(copy.exists, "the copy")
        same(copy.stat().st_size, 25 << 20, "bytes of the copy")
        p.gone("Copy Files to ..", "panel")

    def information(self):
        p = self.program
        p.click_row("Scratch playlist", "Gliding", button=3)
        screen.click(p.pop_up()["Information"].centre())
        text = p.box_text()
        must(str(self.collection / "Singles" / "Kestrel - Gliding.Mp3") in text, f"the box says {text!r}")
        self.picture("information")
        p.answer()
        screen.key("space")
        self.final_is([" Gliding"])

    def hotkeys(self):
        p = self.program
        p.choose("Function", "Hotkeys")
        must("8)  Plimo! also allows drag and drop on the final playlist." in p.box_text(), "the keys are not explained")
        self.picture("hotkeys")
        p.answer()

    def from_menu(self, row, item):
        self.program.click_row("Scratch playlist", row, button=3)
        screen.click(self.program.pop_up()[item].centre())

    def box(self, text, name, button):
        """A box that must say this: its picture, and the answer."""
        seen = self.program.box_text()
        must(text in seen, f"the box says {seen!r}, not {text!r}")
        self.picture(name)
        self.program.answer(button)

    def scanned_again(self, artist):
        wait(lambda: self.rows("Scratch playlist") == [] and self.rows("Artists"), "the lists after the scan")
        same(self.file("plimo.kvx"), songs.expected_catalogue(str(self.collection)), "plimo.kvx")
        self.program.tick("Artists", artist)
        wait(lambda: self.rows("Scratch playlist"), f"songs of {artist}")

    def rename(self):
        p = self.program
        self.from_menu("Gliding", "Rename")
        p.find("Rename", "dialog")
        screen.write("Kestrel - Soaring")
        self.picture("rename")
        screen.key("Return")
        self.box("incorporate the changes (RECOMMENDED)?", "renamed", "Yes")
        must((self.collection / "Singles" / "Kestrel - Soaring.mp3").exists(), "the song has not its new name")
        self.scanned_again("KESTREL")

    def delete(self):
        self.from_menu("Soaring", "Delete Selected")
        self.box("say goodbye to the selected files!", "delete", "Yes")
        self.box("Do you want to re-scan your hard drive", "deleted", "Yes")
        must(not (self.collection / "Singles" / "Kestrel - Soaring.mp3").exists(), "the song is still there")
        self.scanned_again("KESTREL")
        same(self.rows("Scratch playlist"), [" Thermal", " Windhover"], "songs")
        (self.collection / "Albums" / "Kestrel" / "Kestrel - Thermal.mp3").unlink()
        self.from_menu("Thermal", "Delete Selected")
        self.program.answer("Yes")
        self.box("could not be deleted", "delete-failed", "OK")
        self.program.answer("No")
        self.program.click_row("Scratch playlist", "Windhover")
        screen.key("space")
        self.final_is([" Windhover"])

    def help_panels(self):
        p = self.program
        p.choose("Help", "What's Plimo! all about")
        p.find("A Warm Welcome to Plimo!", "panel")
        must(not p.sees("Artists", "list"), "the artists show beside the welcome")
        self.picture("welcome")
        p.press("Ok!")
        p.find("Artists", "list")
        p.choose("Help", "Credits")
        p.find("Credits!", "panel")
        self.picture("credits")
        p.press("Ok!")
        p.gone("Credits!", "panel")

    def preferences(self):
        p = self.program
        p.choose("Settings", "Preferences")
        must("save your final playlist" in p.answer("Yes"), "the user is not warned that the lists will be cleared")
        p.find("Settings", "panel")
        same(p.list("Drives to scan during startup").ticked(), ["C: Hard Drive"], "ticked drives")
        must(not p.sees("Artists", "list"), "the artists show beside the settings")
        screen.click(p.find("Use Winamp to play").inside(20))
        p.find("Winamp's folder", "list")
        self.picture("preferences")
        screen.click(p.find("Use Winamp to play").inside(20))
        p.gone("Winamp's folder", "list")
        screen.click(p.find("Show the Color Settings").inside(20))
        p.press("Accept")
        same(p.answer(), "Please use the slider bars to customize the colour of Plimo!", "message")

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
                must(int(slider.value) > before, f"the slider {name} does not move")
            same(int(slider.value), value, f"the slider {name}")
        left, top, width, height = p.list("Artists").rect
        lower = (left + 10, top + height - 40, width - 40, 20)
        same(screen.main_colour(lower), (64, 16, 96), "the artist list's colour on the screen")
        self.picture("colours")
        p.press("Accept All Changes")
        wait(lambda: p.sees("Artists", "list") and p.list("Artists").count() > 1, "the artists")
        same(self.file("plimo.ini"),
             FIRST_SETTINGS.replace(b"65535\r\n4194304\r\n65535", f"65535\r\n{64 + 256 * 16 + 65536 * 96}\r\n65535".encode(), 1),
             "plimo.ini")
        must(not (self.data / "plimo2.ini").exists(), "plimo2.ini was left behind")
        self.picture("new-colours")

    def leave(self):
        self.program.choose("Function", "Exit")
        same(self.program.ends(), 0, "exit status")


def play(binary, out):
    out.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory(prefix="plimo-tour-") as folder:
        scene = Scene(binary, out, pathlib.Path(folder))
        with scene.program:
            for step in (scene.splash, scene.first_run, scene.pick_songs, scene.save, scene.clear_and_open, scene.play,
                         scene.compact, scene.other_drives, scene.copy, scene.information, scene.hotkeys,
                         scene.rename, scene.delete, scene.preferences, scene.colours, scene.help_panels, scene.leave):
                try:
                    step()
                except Failure as failure:
                    screen.picture(str(out / "failed.png"))
                    print(f'tour: {step.__name__.replace("_", " ")}: {failure}', flush=True)
                    return 1
    return 0
