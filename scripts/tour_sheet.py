"""The contact sheet: each panel on a small and a large screen, at single and double scale, light and dark."""
import os
import pathlib
import subprocess
import tempfile
import time

PANELS = ["first-run", "main", "strips", "menu", "box", "information", "drive-selection", "copy", "please-wait",
          "rename", "question", "failure", "offer", "preferences", "colours", "welcome", "credits", "compact"]
SCREENS = ["1024x768", "1920x1080"]
SCALES = [1, 2]
AT_ONCE = 3  # programs, each on a screen of its own

# What a desktop with a dark scheme tells its programs: a colour scheme in the settings of the KDE desktop, which the
# toolkit reads by itself.
DARK = """[Colors:Window]
BackgroundNormal=32,34,40
ForegroundNormal=236,236,240
[Colors:View]
BackgroundNormal=24,26,30
ForegroundNormal=236,236,240
[Colors:Button]
BackgroundNormal=44,46,54
ForegroundNormal=236,236,240
"""


def variant(screen_size, scale, dark):
    return f"{screen_size}-{scale}x-{'dark' if dark else 'light'}"


def take(binary, out, scale=1, dark=False, for_documents=False):
    """Takes the pictures of one variant on the screen that is there; for the documents, of songs whose names can all be
    read."""
    import screen
    import songs
    from window import SLOW_DISK, Program, wait

    with tempfile.TemporaryDirectory(prefix="plimo-sheet-") as folder:
        home = pathlib.Path(folder)
        library = home / "library"
        songs.make_library(str(library))
        if for_documents:
            os.remove(os.path.join(os.fsencode(library), b"Singles", songs.NO_TEXT))
        for title in songs.PLAYED:
            songs.write_song(str(library / "Albums" / "Anna Berg" / f"Anna Berg - {title}.mp3"), 205)
        songs.enlarge(str(library / "Albums" / "Anna Berg" / "Anna Berg - The Long Way Round.mp3"), 60)
        (home / "stick").mkdir()
        environment = {}
        if dark:
            (home / "kdeglobals").write_text(DARK)
            environment = {"XDG_CONFIG_HOME": folder, "XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"}
        command = [str(binary), "--folder", str(home / "data"), "--drive", f"C={library}", "--drive",
                   f"D={home / 'stick'}:removable"]

        def picture(name, settle=0.3):
            time.sleep(settle)
            screen.picture(str(out / f"{name}.png"))

        def from_menu(p, row, item):
            place = p.list("Scratch playlist").row(row)
            place.act(1)
            screen.click(place.inside(30), 3)
            screen.click(p.pop_up()[item].centre())

        with Program(*command, scale=scale, environment=environment) as p:

            def press(name, role="push button"):
                """As an assistive tool presses it: wherever it is."""
                wait(lambda: p.things(name, role, showing=False), f'"{name}"')
                p.things(name, role, showing=False)[0].act()

            p.find("A Warm Welcome to Plimo!", "panel")
            picture("first-run")
            p.list("Drives to scan during startup").child(0).act()
            press("Accept")
            wait(lambda: p.sees("Artists", "list") and p.list("Artists").count() > 20, "the artists", 20)
            press("Yeah, Yeah.....")
            for row in (0, 1, 4, 8, 11):
                p.list("Artists").child(row).act()
            p.list("Artists").child(0).act(1)
            scratch = p.list("Scratch playlist")
            add = p.things("Add to playlist", "push button", showing=False)[0]
            for row in (0, 7, 14, 2, 19, 8, 5, 17, 10, 13):
                scratch.child(row).act()
                add.act()
                wait(lambda: not scratch.child(row).has("selected"), "the song to be added")
            scratch.child(1).act()
            press("Play all songs on the final playlist")
            p.find("Pause", "push button")
            wait(lambda: p.find("Place in the song", "slider").has("enabled"), "the song")
            slider = p.find("Place in the song", "slider")
            left, top, width, height = slider.rect
            screen.click((left + width // 3, top + height // 2))
            screen.move((2, screen.size()[1] - 2))
            time.sleep(1)
            picture("main")
            for strip in ("artist", "song", "playlist"):
                press(f"Show the {strip} commands")
            picture("strips")
            p.list("Scratch playlist").row("First Snow").act(1)
            screen.click(p.list("Scratch playlist").row("First Snow").inside(30), 3)
            picture("menu")
            screen.key("Escape")
            p.choose("Function", "Hotkeys")
            p.box_text()
            picture("box")
            p.answer()
            p.choose("Function", "Scan other drives for Mp3s")
            p.find("Drive Selection", "panel")
            picture("drive-selection")
            p.find("Drive Selection", "panel")
            next(b for b in p.things("Cancel", "push button")).act()
            p.gone("Drive Selection", "panel")
            from_menu(p, "Paper Boats", "Information")
            p.box_text()
            picture("information")
            p.answer()
            from_menu(p, "Paper Boats", "Copy Selected files to ..")
            p.find("Copy Files to ..", "panel")
            picture("copy")
            p.things("Cancel", "push button")[0].act()
            p.gone("Copy Files to ..", "panel")
            from_menu(p, "Paper Boats", "Rename")
            p.find("Rename", "dialog")
            picture("rename")
            screen.key("Escape")
            p.gone("Rename", "dialog")
            (library / "Albums" / "Anna Berg" / "Anna Berg - Paper Boats.mp3").unlink()
            from_menu(p, "Paper Boats", "Delete Selected")
            p.box_text()
            picture("question")
            p.answer("Yes")
            picture("failure")
            p.answer()
            picture("offer")
            p.answer("No")
            p.choose("View", "Compact")
            p.gone("Artists", "list")
            time.sleep(0.8)
            picture("compact")
            p.choose("View", "Large")
            p.find("Artists", "list")
            p.choose("Settings", "Preferences")
            p.answer("Yes")
            p.find("Settings", "panel")
            screen.click(p.find("Use Winamp to play").inside(12))
            p.find("Winamp's folder", "list")
            picture("preferences")
            screen.click(p.find("Use Winamp to play").inside(12))
            screen.click(p.find("Show the Color Settings").inside(12))
            press("Accept")
            p.answer()
            p.find("Accept All Changes", "push button")
            picture("colours")
            press("Accept All Changes")
            p.find("Artists", "list")
            p.choose("Help", "Credits")
            p.find("Credits!", "panel")
            picture("credits")
            p.things("Ok!", "push button")[0].act()
            p.choose("Help", "What's Plimo! all about")
            p.find("A Warm Welcome to Plimo!", "panel")
            picture("welcome")

        with Program(*SLOW_DISK, *command, scale=scale, environment=environment) as p:
            wait(lambda: p.sees("Artists", "list") and p.list("Artists").count() > 20, "the artists", 20)
            p.list("Artists").child(0).act()
            wait(lambda: p.list("Scratch playlist").count() > 4, "songs")
            from_menu(p, "The Long Way Round", "Copy Selected files to ..")
            screen.click(p.find("Start Copying", "push button").centre())
            wait(lambda: p.at_work("Copying"), "the panel that tells how far it is")
            picture("please-wait", 0)
            p.process.kill()
    return 0


def all_variants(binary, out, on_screen, finish):
    """Takes the pictures of all variants, a few at once, and lays them on one sheet. False where one failed."""
    waiting = [(size, scale, dark) for size in SCREENS for scale in SCALES for dark in (False, True)]
    names = [variant(*each) for each in waiting]
    sheet = out / "sheet"
    running = []
    good = True
    while waiting or running:
        while waiting and len(running) < AT_ONCE:
            size, scale, dark = waiting.pop(0)
            folder = sheet / variant(size, scale, dark)
            words = [binary.parent, "--out", folder, "--inside", "sheet", "--scale", scale]
            running.append((folder, on_screen(size, *words, *(["--dark"] if dark else []))))
        folder, run = running.pop(0)
        good = finish(run) == 0 and good
        print(f"  {folder.name}", flush=True)
    if not good:
        return False
    # Each is made small as it is read: all of them whole would be more than the tool may hold.
    pictures = [f"{sheet / name / panel}.png[480x360]" for panel in PANELS for name in names]
    subprocess.run(["montage", *pictures, "-tile", f"{len(names)}x", "-geometry", "480x360+6+6", "-background", "#808080",
                    str(out / "sheet.png")], check=True)
    return True
