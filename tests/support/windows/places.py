"""Where things are in the maximised window.

The window scales its controls with the screen; rows, texts and boxes in lists keep their size. All places are given as
they are on a screen of 1280 x 1024 and scaled to the one that is used.
"""
from tests.support.desktop import screen

WIDTH, HEIGHT = 1280, 1024
TOP = 44  # below the title and the menu bar, which keep their height

LISTS = {"artists": (22, 208), "scratch": (416, 208), "final": (850, 208), "drives": (691, 340)}
ROW = 18
# On the first run and in the settings.
ACCEPT = (1018, 942)
CLOSE_WELCOME = (478, 942)
SETTINGS = (900, 800)  # nothing but the background of the panel
# In the settings, also those of the first run.
START_COMPACT = (675, 546)
SHOW_COLOURS = (675, 584)
# In the panel for copying.
DRIVE_BOX = (640, 279)
START_COPYING = (690, 814)
COPYING = (600, 600)  # inside its list of folders
# In the player.
PLAY_BUTTON = (478, 940, 34, 36)
NEXT_SONG = (588, 958)
SEEK_BAR = (627, 972)  # its left and right ends
SEEK_HEIGHT = 958
# The line at the foot of the window.
STATUS = (10, 1000, 500, 20)
# To the right of the menus; no view has a control there.
EMPTY = (640, 30)


def scaled(place):
    """A place on the screen that is used."""
    width, height = screen.size()
    x, y = place
    return round(x * width / WIDTH), round(y if y < TOP else TOP + (y - TOP) * (height - TOP) / (HEIGHT - TOP))


def scaled_area(area):
    """An area, left, top, width and height, on the screen that is used."""
    left, top, width, height = area
    first, last = scaled((left, top)), scaled((left + width, top + height))
    return first + (last[0] - first[0], last[1] - first[1])


def box_of_row(name, row):
    """The middle of the check box of a row."""
    left, top = scaled(LISTS[name])
    return left + 11, top + ROW * row + ROW // 2


def middle_of_row(name, row):
    """A point right of the check box."""
    left, top = scaled(LISTS[name])
    return left + 60, top + ROW * row + ROW // 2


def area_of_rows(name, first=0, count=12):
    """The left part of some rows, with most of their texts."""
    left, top = scaled(LISTS[name])
    return left, top + ROW * first, 160, ROW * count


def around(point, size=6):
    return point[0] - size // 2, point[1] - size // 2, size, size
