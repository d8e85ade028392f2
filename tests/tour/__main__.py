"""The tour: the program is used on a display of its own, by real clicks and keys, and pictures are taken.

    python3 -m tests.tour [PROGRAM] [--out FOLDER] [--scene] [--pictures]

By default, the program is build/bin/plimo, and the pictures and the saved playlist are written to build/tour. First
comes the scene: the main job of the program, with a check after each step. Then a contact sheet is made: each panel on a
small and a large screen, at scale 1 and 2, light and dark. --scene leaves it out; --pictures also renews docs/pictures.
"""
import argparse
import concurrent.futures
import itertools
import os
import pathlib
import shutil
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]

# The contact sheet: a row for each picture, a column for each variant.
PICTURES = ["first-run", "main", "strips", "menu", "box", "information", "drive-selection", "copy", "please-wait",
            "rename", "question", "failure", "offer", "preferences", "colours", "welcome", "credits", "compact"]
VARIANTS = list(itertools.product(["1024x768", "1920x1080"], [1, 2], ["light", "dark"]))
PARALLEL = 3  # programs, each on a display of its own

# The pictures of README.md and the manual.
DOCUMENTED = ["main", "first-run", "strips", "menu", "drive-selection", "copy", "preferences", "colours", "compact"]


class Failed(Exception):
    pass


def run_on_display(size, module, program, out, *options):
    """Runs a module of the tour on a display of this size. What it writes to stderr is only shown if it fails."""
    out.mkdir(parents=True, exist_ok=True)
    # It must be /usr/bin/python3 because the Debian packages for accessibility are installed for it.
    command = [ROOT / "scripts" / "with-display", "/usr/bin/python3", "-B", "-m", f"tests.tour.{module}", program, out]
    done = subprocess.run([str(word) for word in (*command, *options)], cwd=ROOT, stderr=subprocess.PIPE, text=True,
                          env=os.environ | {"PLIMO_SCREEN": size}, errors="replace", check=False)
    if done.returncode != 0:
        raise Failed(f"{done.stderr}The tour failed. Its pictures so far are in {out}")


def renew_documentation(program, out):
    run_on_display("1280x800", "panels", program, out, "--documentation")
    documented = ROOT / "docs" / "pictures"
    documented.mkdir(exist_ok=True)
    for name in DOCUMENTED:
        subprocess.run(["convert", out / f"{name}.png", "-quality", "95", documented / f"{name}.png"], check=True)
    # Only the window, without the empty screen around it.
    subprocess.run(["mogrify", "-bordercolor", "black", "-border", "1", "-trim", "+repage", documented / "compact.png"],
                   check=True)


def make_contact_sheet(program, out):
    def take_variant(variant):
        size, scale, colours = variant
        folder = out / "sheet" / f"{size}-{scale}x-{colours}"
        run_on_display(size, "panels", program, folder, "--scale", scale, *(["--dark"] if colours == "dark" else []))
        print(f"  {folder.name}", flush=True)
        return folder

    with concurrent.futures.ThreadPoolExecutor(PARALLEL) as pool:
        folders = list(pool.map(take_variant, VARIANTS))
    # Each picture is reduced when it is read: in full size, all of them exceed the memory limit of montage.
    pictures = [f"{folder / name}.png[480x360]" for name in PICTURES for folder in folders]
    subprocess.run(["montage", *pictures, "-tile", f"{len(folders)}x", "-geometry", "480x360+6+6",
                    "-background", "#808080", out / "sheet.png"], check=True)


def main():
    parser = argparse.ArgumentParser(prog="python3 -m tests.tour")
    parser.add_argument("program", nargs="?", type=pathlib.Path, default=ROOT / "build" / "bin" / "plimo")
    parser.add_argument("--out", type=pathlib.Path, default=ROOT / "build" / "tour")
    parser.add_argument("--scene", action="store_true", help="only the scene, without the contact sheet")
    parser.add_argument("--pictures", action="store_true", help="also renew docs/pictures")
    options = parser.parse_args()
    program, out = options.program.resolve(), options.out.resolve()
    if not program.exists():
        sys.exit(f"There is no program {program}; make build builds it")

    start = time.monotonic()
    shutil.rmtree(out, ignore_errors=True)
    try:
        run_on_display("1280x1024", "scene", program, out)
        if options.pictures:
            renew_documentation(program, out / "documentation")
        if not options.scene:
            make_contact_sheet(program, out)
    except Failed as failure:
        sys.exit(str(failure))
    print(f"The tour took {time.monotonic() - start:.0f} s.")
    print(f"Pictures:       {out}")
    print(f"Saved playlist: {out / 'evening.m3u'}")
    if not options.scene:
        print(f"Contact sheet:  {out / 'sheet.png'}")


if __name__ == "__main__":
    main()
