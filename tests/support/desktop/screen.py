"""The screen of a user: mouse and keyboard events by xdotool, screenshots and colours by ImageMagick."""
import contextlib
import os
import subprocess


def _xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True, stdout=subprocess.DEVNULL)


def move(point):
    _xdotool("mousemove", *point)


def click(point, button=1, times=1):
    _xdotool("mousemove", *point, "click", "--repeat", times, "--delay", 40, button)


def drag(start, end):
    _xdotool("mousemove", *start, "mousedown", 1, "mousemove", *end, "mouseup", 1)


def key(*keys):
    """Presses keys one after the other, by their X names: "Return", "shift+Down", "q"."""
    _xdotool("key", "--delay", 15, *keys)


@contextlib.contextmanager
def holding(modifier):
    """Holds a key down: "ctrl" or "shift"."""
    _xdotool("keydown", modifier)
    try:
        yield
    finally:
        _xdotool("keyup", modifier)


def type_text(text):
    _xdotool("type", "--delay", 4, "--", text)


def active_title():
    """The title of the active window; empty if no window is active."""
    done = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], capture_output=True, text=True, check=False)
    return done.stdout.rstrip("\n")


def size():
    """Width and height in pixels."""
    done = subprocess.run(["xdotool", "getdisplaygeometry"], capture_output=True, text=True, check=True)
    return tuple(map(int, done.stdout.split()))


def screenshot(path):
    """Saves the whole screen as a PNG file; an AssertionError if it is blank, which is less than 8 colours."""
    os.makedirs(os.path.dirname(os.path.abspath(path)), exist_ok=True)
    # The lowest compression level: the file is only a little larger, and written in half the time.
    subprocess.run(["import", "-silent", "-window", "root", "-quality", "10", str(path)], check=True)
    colours = subprocess.run(["identify", "-format", "%k", str(path)], capture_output=True, text=True, check=True)
    if int(colours.stdout) < 8:
        raise AssertionError(f"the screenshot {path} is blank")


def pixels(rect):
    """The colours (red, green, blue) of a rectangle of the screen, row by row."""
    left, top, width, height = rect
    area = f"{width}x{height}+{left}+{top}"
    done = subprocess.run(["import", "-silent", "-window", "root", "-crop", area, "-depth", "8", "rgb:-"],
                          capture_output=True, check=True)
    return [tuple(done.stdout[i:i + 3]) for i in range(0, len(done.stdout), 3)]


def content():
    """What the whole screen shows, only to be compared."""
    return subprocess.run(["import", "-silent", "-window", "root", "-depth", "8", "rgb:-"], capture_output=True,
                          check=True).stdout


def main_colour(rect):
    """The most frequent colour of a rectangle."""
    colours = pixels(rect)
    return max(set(colours), key=colours.count)
