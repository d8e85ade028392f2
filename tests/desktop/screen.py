"""The screen as a user has it: a hand on the mouse and the keyboard, and pictures of what is seen."""
import os
import struct
import subprocess
import time
import zlib


class Failure(Exception):
    """What was to be seen is not."""


def wait(condition, what, seconds=10.0):
    """Waits until the condition holds and returns its value; a Failure that names what was waited for otherwise."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Failure(f"waited {seconds:g} s in vain for {what}")
        time.sleep(0.03)


def hand(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True, stdout=subprocess.DEVNULL)


def move(place):
    hand("mousemove", *place)


def click(place, button=1, times=1):
    hand("mousemove", *place, "click", "--repeat", times, "--delay", 40, button)


def key(*keys):
    """Presses keys one after the other, by their X names: "Return", "shift+Down", "q"."""
    hand("key", "--delay", 15, *keys)


def write(text):
    hand("type", "--delay", 4, "--", text)


def drag(start, end):
    hand("mousemove", *start, "mousedown", 1, "mousemove", *end, "mouseup", 1)


def title():
    """The title of the window that has the keyboard; empty where none has it."""
    done = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], capture_output=True, text=True)
    return done.stdout.rstrip("\n")


def size():
    done = subprocess.run(["xdotool", "getdisplaygeometry"], capture_output=True, text=True, check=True)
    return tuple(map(int, done.stdout.split()))


def picture(path):
    """Takes a picture of the whole screen, a PNG file; a Failure where hardly anything is on it."""
    width, height = size()
    raw = _grab("-window", "root")
    if len(set(memoryview(raw)[:len(raw) // 3 * 3:21])) < 8:
        raise Failure(f"the picture {path} is blank")
    os.makedirs(os.path.dirname(os.path.abspath(path)), exist_ok=True)
    stride = 3 * width
    lines = b"".join(b"\0" + raw[y * stride:(y + 1) * stride] for y in range(height))
    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n")
        for kind, data in ((b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)),
                           (b"IDAT", zlib.compress(lines, 4)), (b"IEND", b"")):
            file.write(struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data)))


def pixels(rect):
    """The colours (red, green, blue) in a rectangle of the screen, row by row."""
    left, top, width, height = rect
    raw = _grab("-window", "root", "-crop", f"{width}x{height}+{left}+{top}")
    return [tuple(raw[i:i + 3]) for i in range(0, len(raw), 3)]


def _grab(*what):
    done = subprocess.run(["import", "-silent", *what, "-depth", "8", "rgb:-"], capture_output=True, check=True)
    return done.stdout


def main_colour(rect):
    """The colour that most of the rectangle has."""
    seen = pixels(rect)
    return max(set(seen), key=seen.count)
