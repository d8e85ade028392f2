"""The running program: started and ended here, found on the screen and read back through what it tells assistive tools.

Nothing is found by its place: a thing is named as a screen reader would name it.
"""
import os
import subprocess

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  (the version is chosen first)

import screen  # noqa: E402
from screen import Failure, wait  # noqa: E402


# What is not looked into: it holds nothing, or rows by the thousand.
LEAVES = {"push button", "check box", "radio button", "label", "slider", "list", "list item", "text"}


# Words before a program that put it on a slow disk: each step of a copy (a megabyte) and each deletion is held up, so
# that both can be watched.
SLOW_DISK = ["strace", "-D", "-f", "--seccomp-bpf", "-qq", "-o", "/dev/null",
             "-e", "trace=copy_file_range,?unlink,unlinkat", "-e", "inject=copy_file_range:delay_exit=60000",
             "-e", "inject=?unlink,unlinkat:delay_exit=100000"]


class Thing:
    """Something on the screen. What it says of itself is asked anew each time."""

    def __init__(self, access, scale):
        self.access = access
        self.scale = scale

    @property
    def name(self):
        return self.access.get_name() or ""

    @property
    def role(self):
        return self.access.get_role_name()

    @property
    def description(self):
        return self.access.get_description() or ""

    @property
    def value(self):
        return self.access.get_value_iface().get_current_value()

    def states(self):
        return {state.value_nick for state in self.access.get_state_set().get_states()}

    def has(self, state):
        return state in self.states()

    @property
    def rect(self):
        """Left, top, width and height in pixels of the screen."""
        extents = Atspi.Component.get_extents(self.access, Atspi.CoordType.SCREEN)
        return tuple(round(value * self.scale) for value in (extents.x, extents.y, extents.width, extents.height))

    def centre(self):
        left, top, width, height = self.rect
        return left + width // 2, top + height // 2

    def inside(self, x, y=None):
        """A place so many pixels from the left edge, at half the height where no other is named."""
        left, top, _, height = self.rect
        return left + round(x * self.scale), top + (height // 2 if y is None else round(y * self.scale))

    def children(self):
        found = (self.access.get_child_at_index(i) for i in range(self.access.get_child_count()))
        return [Thing(child, self.scale) for child in found if child is not None]

    def text(self):
        """What stands in a text field."""
        field = self.access.get_text_iface()
        return Atspi.Text.get_text(field, 0, Atspi.Text.get_character_count(field))

    def child(self, index):
        return Thing(self.access.get_child_at_index(index), self.scale)

    def count(self):
        return self.access.get_child_count()

    def act(self, index=0):
        """Does what an assistive tool would do to it."""
        return Atspi.Action.do_action(self.access, index)

    def rows(self):
        """The texts of a list's rows."""
        return [child.name for child in self.children()]

    def ticked(self):
        return [child.name for child in self.children() if child.has("checked")]

    def selected(self):
        return [child.name for child in self.children() if child.has("selected")]

    def row(self, text):
        for child in self.children():
            if child.name.strip() == text:
                return child
        raise Failure(f'no row "{text}" in "{self.name}"; there are {self.rows()}')


class Program:
    """A running Plimo!."""

    def __init__(self, binary, *arguments, scale=1, environment=None):
        self.scale = scale
        surroundings = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_SCALE_FACTOR=str(scale))
        surroundings.update(environment or {})
        self.application = None
        self.focused = None
        self.listener = Atspi.EventListener.new(self._hear)
        self.listener.register("object:state-changed:focused")
        self.process = subprocess.Popen([binary, *arguments], env=surroundings)

    def _hear(self, event):
        if event.detail1:
            self.focused = event.source

    def close(self):
        """Ends it if it still runs. Its exit status."""
        self.listener.deregister("object:state-changed:focused")
        if self.process.poll() is None:
            self.process.terminate()
            try:
                self.process.wait(5)
            except subprocess.TimeoutExpired:
                self.process.kill()
        return self.process.wait()

    def ends(self, seconds=10):
        """The exit status, waited for."""
        try:
            return self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise Failure("the program does not end") from None

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def tree(self):
        if self.application is None:
            desktop = Atspi.get_desktop(0)
            for i in range(desktop.get_child_count()):
                candidate = desktop.get_child_at_index(i)
                if candidate is not None and candidate.get_process_id() == self.process.pid:
                    candidate.set_cache_mask(Atspi.Cache.NONE)
                    self.application = candidate
        return self.application

    def things(self, name=None, role=None, showing=True):
        """All things of this name and role, the rows of lists left out."""
        found = []

        def visit(access):
            for i in range(access.get_child_count()):
                child = access.get_child_at_index(i)
                if child is None:
                    continue
                thing = Thing(child, self.scale)
                kind = thing.role
                wanted = (role is None or kind == role) and (name is None or thing.name == name)
                leaf = kind in LEAVES
                if leaf and not wanted:
                    continue
                if showing and not thing.has("showing"):
                    # What is in a menu shows when the menu does, whatever the entry that opens it says.
                    if kind == "menu item":
                        visit(child)
                    continue
                if wanted:
                    found.append(thing)
                if not leaf:
                    visit(child)

        try:
            application = self.tree()
            if application is not None:
                visit(application)
        except GLib.Error:
            return []  # it changed while it was read
        return found

    def sees(self, name=None, role=None):
        found = self.things(name, role)
        return found[0] if found else None

    def find(self, name, role=None, seconds=10.0):
        """The thing of this name that is to be seen, waited for."""

        def look():
            if self.process.poll() is not None:
                raise Failure(f'the program has ended (status {self.process.returncode}) before "{name}" was seen')
            return self.sees(name, role)

        return wait(look, f'"{name}"' + (f" ({role})" if role else ""), seconds)

    def gone(self, name, role=None, seconds=10.0):
        wait(lambda: not self.things(name, role), f'"{name}" to go', seconds)

    def at_work(self, word):
        """The panel over the window that tells how far a long command is, if one with this word is to be seen. It is the
        window's last child, and found in a few questions: a program at work answers ten times a second."""
        tree = self.tree()
        for i in range(tree.get_child_count() if tree else 0):
            window = tree.get_child_at_index(i)
            children = window.get_child_count()
            last = window.get_child_at_index(children - 1) if children else None
            if last is not None and word in (last.get_name() or ""):
                return Thing(last, self.scale)
        return None

    # --- What a user does ---

    def press(self, name, role="push button"):
        screen.click(self.find(name, role).centre())

    def choose(self, menu, item):
        """Opens a menu of the bar and chooses an item."""
        screen.click(self.find_menu(menu).centre())
        screen.click(self.find(item, "menu item").centre())

    def find_menu(self, name):
        def look():
            for bar in self.things(role="menu bar"):
                for menu in bar.children():
                    if menu.name == name and menu.rect[2] > 0:
                        return menu
            return None

        return wait(look, f'the menu "{name}"')

    def pop_up(self):
        """The items of the menu that has just popped up, by their names. It is found as a screen reader finds it:
        by what gets the keyboard."""
        screen.key("Down")

        def look():
            while GLib.MainContext.default().iteration(False):
                pass
            item = self.focused
            return item if item is not None and item.get_role_name() == "menu item" else None

        try:
            menu = wait(look, "a menu").get_parent()
            return {item.name: item for item in Thing(menu, self.scale).children()}
        finally:
            self.focused = None

    def list(self, name):
        return self.find(name, "list")

    def tick(self, list_name, row):
        """Clicks the box of a row."""
        place = self.list(list_name).row(row)
        screen.click(place.inside(11))

    def click_row(self, list_name, row, button=1, times=1):
        place = self.list(list_name).row(row)
        screen.click(place.inside(60), button, times)

    def box_text(self, seconds=10.0):
        """The text of the box that is open."""

        def look():
            for box in self.things(role="dialog") + self.things(role="alert"):
                for label in box.children():
                    if label.role == "label" and label.name:
                        return label.name
            return None

        return wait(look, "a box", seconds)

    def answer(self, button=None):
        """Answers the box that is open, by its default button (the Enter key) or by a click, and waits until it has gone.
        Its text."""
        text = self.box_text()
        before = len(self.boxes())
        if button is None:
            screen.key("Return")
        else:
            self.press(button)
        wait(lambda: len(self.boxes()) < before or self.boxes_text() != text, "the box to close")
        return text

    def boxes(self):
        return self.things(role="dialog") + self.things(role="alert")

    def boxes_text(self):
        for box in self.boxes():
            for label in box.children():
                if label.role == "label" and label.name:
                    return label.name
        return None
