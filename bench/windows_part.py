"""The measurements of the program for Windows, under Wine.

They need the programs of build-windows and Wine itself; `missing` says what is not there. Only wall-clock time is
measured, because much of the processor time is spent in Wine's server.
"""

import json
import os
import shutil
import statistics
import subprocess
import time
from pathlib import Path

from report_table import Row, number

ROOT = Path(__file__).resolve().parent.parent
PROGRAMS = ROOT / "build-windows" / "bin"
WITH_WINE = ROOT / "scripts" / "with-wine"
WITH_DISPLAY = ROOT / "scripts" / "with-display"
SONGS_PER_FOLDER = 20
SCAN_TARGET = 1.0
START_TARGET = 1.5
GROWTH_TARGET = 12
ROUNDS = 3  # at most: `dir` takes long
COMMANDS = {"select": "tick all artists", "save-all": "save all songs", "open-all": "open all songs"}


def missing():
    """Why the program for Windows cannot be measured; empty if it can."""
    if shutil.which("wine") is None:
        return "Wine is not installed"
    absent = [name for name in ("plimo", "plimo-bench-run", "plimo-bench-library")
              if not (PROGRAMS / f"{name}.exe").exists()]
    return "`make windows` has not been run" if absent else ""


def windows_path(path):
    """The path as Windows programs have it: in Wine, drive Z is the root folder."""
    return "Z:" + str(path).replace("/", "\\")


class WindowsBench:
    def __init__(self, collection, quick, rounds, settings, say):
        self.collection = collection / "windows"
        self.songs = 10_000 if quick else 100_000
        self.rounds = min(rounds, ROUNDS)
        self.settings = settings
        self.say = say
        self.collection.mkdir(parents=True, exist_ok=True)
        variables = subprocess.run([WITH_WINE, "env", "-0"], stdout=subprocess.PIPE, check=True).stdout
        self.environment = dict(text.split("=", 1) for text in os.fsdecode(variables).rstrip("\0").split("\0"))

    def rows(self):
        # While a program waits for a key, Wine's server does not end, so no measurement has to start it.
        waiting = subprocess.Popen(["wine", "cmd", "/c", "pause"], env=self.environment, stdin=subprocess.PIPE,
                                   stdout=subprocess.DEVNULL)
        try:
            return [self.scan(), *self.commands(), *self.starts()]
        finally:
            waiting.communicate(b"\n")

    def wine(self, folder, *words):
        """What a program prints, and its seconds."""
        begin = time.monotonic()
        output = subprocess.run(["wine", *map(str, words)], cwd=folder, env=self.environment, stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, check=True).stdout
        return output, time.monotonic() - begin

    def generate(self, what, target, songs):
        """A folder tree or a catalogue, by the generator for Windows: its names are allowed there."""
        if not target.exists():
            self.say(f"generating a {what} of {number(songs)} songs for Windows")
            unfinished = self.collection / "new"
            shutil.rmtree(unfinished, ignore_errors=True)
            unfinished.mkdir()
            self.wine(unfinished, PROGRAMS / "plimo-bench-library.exe", what, "new", songs, songs // SONGS_PER_FOLDER)
            target.parent.mkdir(parents=True, exist_ok=True)
            (unfinished / "new").rename(target)
        return target

    def catalogue(self, songs):
        """A program folder whose catalogue has this number of songs."""
        return self.generate("catalogue", self.collection / str(songs) / "plimo.kvx", songs).parent

    def measure(self, folder, *words):
        """The seconds that a measurement prints."""
        return float(self.wine(folder, PROGRAMS / "plimo-bench-run.exe", *words)[0].split()[0])

    def alternate(self, measures):
        """The medians of functions that return seconds, called in alternation."""
        for measure in measures:
            measure()  # warms the page cache
        times = [[measure() for measure in measures] for _ in range(self.rounds)]
        return [statistics.median(results) for results in zip(*times)]

    def scan(self):
        tree = windows_path(self.generate("tree", self.collection / f"tree-{self.songs}", self.songs))
        folder = self.collection / "scan"
        folder.mkdir(exist_ok=True)
        self.say("scanning under Wine")
        scan, listing, start = self.alternate([
            lambda: self.measure(folder, "catalogue", tree),
            lambda: self.wine(folder, "cmd", "/c", "dir", "/s", "/b", tree)[1],
            lambda: self.wine(folder, "cmd", "/c", "exit")[1],
        ])
        what = f"scan of {number(self.songs // SONGS_PER_FOLDER)} folders to the catalogue on the disk"
        return Row(what, self.songs, scan, (), "`dir /s /b`", listing - start, [("ratio", SCAN_TARGET)])

    def commands(self):
        sizes = [self.songs // 10, self.songs]
        names = ["start", *COMMANDS, "read"]
        cases = [(name, songs) for songs in sizes for name in names]
        for songs in sizes:
            self.catalogue(songs)
        self.say("running commands under Wine")
        times = dict(zip(cases, self.alternate(
            [lambda name=name, songs=songs: self.measure(self.catalogue(songs),
                                                         *([name] if name == "start" else [name, songs]))
             for name, songs in cases])))
        rows = []
        for name in names[:-1]:
            steps = [(times[name, sizes[0]], times[name, sizes[1]])]
            baseline_steps = [(times["read", sizes[0]], times["read", sizes[1]])]
            rows.append(Row(COMMANDS.get(name, "the whole start, without a scan and without the window"), self.songs,
                            times[name, self.songs], steps, "reading", times["read", self.songs],
                            [("growth", GROWTH_TARGET)], baseline_steps=baseline_steps))
        return rows

    def starts(self):
        """The time from the program's start to its first painted window and to the painted artist list."""
        folders = {songs: self.catalogue(songs) for songs in (1, self.songs)}
        for folder in folders.values():
            (folder / "plimo.ini").write_bytes(self.settings)
        self.say("measuring the start-up time under Wine")
        words = [f"{songs}={folder}" for songs, folder in folders.items()]
        output = subprocess.run([WITH_DISPLAY, WITH_WINE, ROOT / "bench" / "startup_time", PROGRAMS / "plimo.exe",
                                 *words, "--rounds", str(self.rounds)], stdout=subprocess.PIPE,
                                stderr=subprocess.DEVNULL, check=True, timeout=600).stdout
        times = json.loads(output)
        return [Row(what, self.songs, times[str(self.songs)][which], (), "one song", times["1"][which],
                    [("ratio", START_TARGET)])
                for which, what in enumerate(["start to the first painted window",
                                              "start to the painted list of artists"])]
