"""The program for Windows under Wine, used by keys and clicks.

Wine has no accessibility tree that could be read here, so tests watch windows, their titles and the files written.
Places are those of the maximised window on a screen of 1280 x 1024.
"""
import os
import pathlib
import subprocess

from tests.support.desktop import screen
from tests.support.desktop.waiting import wait

ROOT = pathlib.Path(__file__).resolve().parents[3]
WITH_WINE = str(ROOT / "scripts" / "with-wine")

# The left and top of each list, and the height of a row.
LISTS = {"artists": (22, 208), "scratch": (424, 208), "final": (858, 208)}
ROW = 18
# On the first run and in the settings.
ACCEPT = (1018, 942)
CLOSE_WELCOME = (478, 942)
FIRST_DRIVE = (702, 341)
# In the settings, also those of the first run.
START_COMPACT = (675, 546)
SHOW_COLOURS = (675, 584)
# In the panel for copying.
DRIVE_BOX = (640, 283)
START_COPYING = (690, 818)
# In the player.
NEXT_SONG = (588, 958)
SEEK_BAR = (640, 972)  # its left and right ends
SEEK_HEIGHT = 958
# Right of the menus, where there is no control in any view.
EMPTY = (640, 30)
TITLE_BAR = (640, 8)


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


class WindowsProgram:
    """A running plimo.exe."""

    def __init__(self, program, *arguments):
        environment = os.environ | {
            # Wine would otherwise use the sound server of the computer.
            "PULSE_SERVER": "/nowhere",
            "ALSA_CONFIG_PATH": str(ROOT / "tests" / "platform" / "directshow" / "null_device.conf"),
        }
        self.process = subprocess.Popen([WITH_WINE, str(program), *arguments], env=environment,
                                        stdin=subprocess.DEVNULL)
        self.main = None

    def close(self):
        """Ends the program at once, if it still runs. Its exit status."""
        if self.process.poll() is None:
            self.process.kill()
        return self.process.wait()

    def wait_for_exit(self, seconds=15):
        """The exit status."""
        try:
            return self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise AssertionError("the program does not end") from None

    def wait_for_main_window(self):
        """Waits for the maximised window, and clicks into its title for the keyboard focus."""
        def main_window():
            if self.process.poll() is not None:
                raise AssertionError(f"the program ended ({self.process.returncode}) before its window was visible")
            window = _xdotool("search", "--onlyvisible", "--name", "^Plimo! by|^Plimo!$")
            if not window:
                return None
            lines = subprocess.run(["xdotool", "getwindowgeometry", "--shell", window], capture_output=True, text=True,
                                   check=False).stdout
            return window if "WIDTH=1280" in lines else None

        self.main = wait(main_window, "the main window", 30)
        self.activate()

    def activate(self):
        """Makes the main window the active one, with the keyboard focus."""
        def activated():
            if self.main_is_active():
                return True
            _xdotool("windowactivate", "--sync", self.main)
            screen.click(TITLE_BAR)
            return False

        wait(activated, "the main window to be active")
        # Wine takes the keyboard focus later than the window manager says, but before a click that comes after it.
        screen.click(EMPTY)

    def main_is_active(self):
        return _xdotool("getactivewindow") == self.main

    def title(self):
        """The title of the main window."""
        return _xdotool("getwindowname", self.main)

    def size(self):
        """The width and height of the main window."""
        done = subprocess.run(["xdotool", "getwindowgeometry", "--shell", self.main], capture_output=True, text=True,
                              check=False)
        values = dict(line.split("=") for line in done.stdout.split() if "=" in line)
        return int(values["WIDTH"]), int(values["HEIGHT"])

    def box(self):
        """Waits for a box or a dialog in front of the main window. Its title."""
        def active():
            now = _xdotool("getactivewindow")
            return now if now and now != self.main else None

        return _xdotool("getwindowname", wait(active, "a box"))

    def answer(self, *keys):
        """Answers a box by keys, and waits until the main window is active again or another box has come."""
        self.box()
        box = _xdotool("getactivewindow")
        screen.key(*keys)
        wait(lambda: _xdotool("getactivewindow") not in ("", box), "the box to close")

    def type_path(self, path):
        """Types a path into a file dialog, and accepts it."""
        title = self.box()
        screen.key("alt+n")
        screen.type_text(path)
        screen.key("Return")
        wait(lambda: not _xdotool("search", "--onlyvisible", "--name", f"^{title}$"), "the dialog to close")
        # Wine leaves no window active after a dialog of the system's.
        self.activate()

    def tick(self, name, row):
        """Clicks the check box of a row."""
        left, top = LISTS[name]
        screen.click((left + 11, top + ROW * row + ROW // 2))

    def click_row(self, name, row, times=1):
        left, top = LISTS[name]
        screen.click((left + 60, top + ROW * row + ROW // 2), times=times)
