"""The program for Windows under Wine, used by keys and clicks.

Wine has no accessibility tree that could be read here, so tests watch windows, their titles, colours on the screen and
the files written. Wine takes the keyboard focus late at times, and what is sent before is lost: each key and click
names the effect that it must have, and is repeated until that is seen.
"""
import os
import pathlib
import re
import subprocess
import time

from tests.support.desktop import screen
from tests.support.desktop.program_test_case import ROOT
from tests.support.desktop.waiting import wait
from tests.support.windows import places

WITH_WINE = str(ROOT / "scripts" / "with-wine")
DEADLINE = 30.0  # seconds; a busy computer may be slow
PATIENCE = 3.0   # seconds until something is done again, which doubles each time


def _xdotool(*words):
    done = subprocess.run(["xdotool", *map(str, words)], capture_output=True, text=True, check=False)
    return done.stdout.split("\n")[0].strip()


def wine(*command, **options):
    """Runs a command in the Windows of the tests, and waits for its end."""
    return subprocess.run([WITH_WINE, *map(str, command)], stdin=subprocess.DEVNULL, capture_output=True, timeout=120,
                          check=False, **options)


def prefix():
    """The folder of the Windows of the tests."""
    return pathlib.Path(os.environ.get("WINEPREFIX", ROOT / "build-windows" / "wine"))


def environment():
    """The variables that the program is started with."""
    return os.environ | {
        # Wine would otherwise use the sound server of the computer.
        "PULSE_SERVER": "/nowhere",
        "ALSA_CONFIG_PATH": str(ROOT / "tests" / "platform" / "directshow" / "null_device.conf"),
    }


def changed(area):
    """A condition: the area of the screen is not what it is now."""
    before = screen.pixels(area)
    return lambda: screen.pixels(area) != before


def changed_colour(point):
    """A condition: the colour around a point is another one than now. A button that the pointer makes a little lighter
    does not count."""
    area = places.around(point)
    before = screen.main_colour(area)
    return lambda: sum(abs(a - b) for a, b in zip(before, screen.main_colour(area))) > 100


class WindowsProgram:
    """A running plimo.exe."""

    def __init__(self, program, *arguments):
        self.process = subprocess.Popen([WITH_WINE, str(program), *arguments], env=environment(),
                                        stdin=subprocess.DEVNULL)
        self.main = None

    @staticmethod
    def wait_until_painted():
        """Waits until the screen has been the same for some time."""
        seen = [None] * 4

        def steady():
            seen.append(screen.content())
            return all(picture == seen[-1] for picture in seen[-4:-1])

        wait(steady, "a screen that does not change", DEADLINE)

    def close(self):
        """Ends the program at once, if it still runs. Its exit status."""
        if self.process.poll() is None:
            self.process.kill()
        return self.process.wait()

    def ended(self):
        return self.process.poll() is not None

    def close_by_keys(self):
        """Closes the main window by keys. The exit status."""
        self.act(lambda: screen.key("alt+F4"), self.ended, "the end of the program")
        return self.process.returncode

    def act(self, action, effect, what):
        """Does something until its effect is seen. Returns what the effect is."""
        end = time.monotonic() + DEADLINE
        patience = PATIENCE
        while True:
            action()
            try:
                return wait(effect, what, min(patience, max(PATIENCE, end - time.monotonic())))
            except AssertionError:
                if time.monotonic() > end or (self.ended() and effect != self.ended):
                    raise
            patience *= 2
            self.focus_again()

    def focus_again(self):
        """Gives the keyboard focus to the main window, unless a box or a dialog has it. Wine may not know that its
        window has it: a click tells it."""
        if not self.ended() and self.other() is None:
            _xdotool("windowactivate", self.main)
            screen.click(places.EMPTY)

    def wait_for_main_window(self):
        """Waits for the maximised window, and until it has the keyboard focus."""
        def main_window():
            if self.ended():
                raise AssertionError(f"the program ended ({self.process.returncode}) before its window was visible")
            window = _xdotool("search", "--onlyvisible", "--name", "^Plimo! by|^Plimo!$")
            return window if window and self.size(window)[0] == screen.size()[0] else None

        self.main = wait(main_window, "the main window", DEADLINE)
        self.activate()

    def activate(self):
        """Gives the keyboard focus to the main window."""
        def click():
            _xdotool("windowactivate", self.main)
            screen.click(places.EMPTY)

        self.act(click, self.main_is_focused, "the main window to have the focus")

    @staticmethod
    def focused():
        """The window with the keyboard focus. The one that the window manager says is active may not exist any more."""
        return _xdotool("getwindowfocus")

    def main_is_focused(self):
        return self.focused() == self.main

    @staticmethod
    def windows():
        """The visible windows, with menus."""
        done = subprocess.run(["xdotool", "search", "--onlyvisible", "--class", "^plimo.exe$"], capture_output=True,
                              text=True, check=False)
        return done.stdout.split()

    def title(self):
        """The title of the main window."""
        return _xdotool("getwindowname", self.main)

    def size(self, window=None):
        """The width and height of a window, usually the main window."""
        values = self._geometry(window or self.main)
        return values.get("WIDTH", 0), values.get("HEIGHT", 0)

    def area(self):
        """The main window on the screen, without its frame: left, top, width, height."""
        text = subprocess.run(["xwininfo", "-id", self.main], capture_output=True, text=True, check=True).stdout
        names = ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
        return tuple(int(re.search(name + r":\s+(-?\d+)", text)[1]) for name in names)

    @staticmethod
    def _geometry(window):
        done = subprocess.run(["xdotool", "getwindowgeometry", "--shell", window], capture_output=True, text=True,
                              check=False)
        return {name: int(value) for name, value in (line.split("=") for line in done.stdout.split() if "=" in line)}

    def other(self):
        """The window with the focus if it is a box or a dialog in front of the main window."""
        now = self.focused()
        return now if now and now != self.main and now in self.windows() else None

    def box(self):
        """Waits for a box or a dialog in front of the main window. Its title."""
        return _xdotool("getwindowname", wait(self.other, "a box", DEADLINE))

    def answer(self, *keys):
        """Answers a box by keys, and waits until it is closed."""
        self.box()
        box = self.other()

        def press():
            if self.focused() == box:
                screen.key(*keys)

        self.act(press, lambda: box not in self.windows(), "the box to close")

    def choose(self, menu, items, effect, what):
        """Chooses an item of a menu: a key that opens the menu, and the keys in it, separated by blanks."""
        def press():
            count = len(self.windows())
            if not effect():
                self.act(lambda: screen.key(menu), lambda: len(self.windows()) > count or effect(), f"the menu {menu}")
                screen.key(*items.split())

        self.act(press, effect, what)

    def open_settings(self):
        self.choose("alt+s", "Return", changed_colour(places.scaled(places.SETTINGS)), "the settings")

    def type_path(self, path):
        """Types a path into a file dialog, and accepts it."""
        dialog = self.fill_in_path(path)
        self.act(lambda: self.focused() == dialog and screen.key("Return"), lambda: dialog not in self.windows(),
                 "the dialog to close")
        # Wine leaves no window active after a dialog of the system's.
        if self.other() is None:
            self.activate()

    def fill_in_path(self, path):
        """Types a path into a file dialog. Returns the dialog's window."""
        self.box()
        dialog = self.other()
        place = self._geometry(dialog)
        foot = (place["X"], place["Y"] + place["HEIGHT"] - 60, place["WIDTH"] // 2 + 100, 40)

        def ink():
            return sum(sum(colour) < 300 for colour in screen.pixels(foot))

        def probe():
            screen.key("alt+n", "ctrl+a")
            screen.type_text("wwwwwwwwww")

        # Once the field takes keys, none is lost. The caret of the field blinks: it is less ink than the letters.
        before = ink()
        self.act(probe, lambda: ink() > before + 60, "the field for the name")
        screen.key("ctrl+a")
        screen.type_text(path)
        return dialog

    def click(self, place, effect, what, times=1):
        """Clicks a place of the large window."""
        self.act(lambda: screen.click(places.scaled(place), times=times), effect, what)

    def tick(self, name, row):
        """Ticks the check box of a row that is not ticked."""
        point = places.box_of_row(name, row)
        self._tick(point)

    def tick_box(self, place):
        """Ticks a check box that is not ticked."""
        self._tick(places.scaled(place))

    def _tick(self, point):
        self.act(lambda: screen.click(point), changed_colour(point), "the tick")

    def click_row(self, name, row, effect=None, times=1):
        """Clicks a row, until it looks different or has another effect."""
        effect = effect or changed(places.area_of_rows(name, row, 1))
        self.act(lambda: screen.click(places.middle_of_row(name, row), times=times), effect, f"row {row} of {name}")

    def press(self, key, area, what):
        """Presses a key until an area of the screen is different."""
        self.act(lambda: screen.key(key), changed(area), what)

    def rows(self, name):
        """The number of rows of a list with a text."""
        left, top, width, height = places.area_of_rows(name)
        # Without the line around the list.
        left, width = left + 4, width - 4
        colours = screen.pixels((left, top, width, height))
        row_size = width * places.ROW
        rows = (colours[i:i + row_size] for i in range(0, len(colours), row_size))
        return sum(len(set(row[width * 4:-width * 4])) > 1 for row in rows)
