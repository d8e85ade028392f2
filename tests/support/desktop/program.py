"""The running program, read as its accessibility tree and used by mouse and keyboard.

No element is found by its position: each is named as a screen reader would name it.
"""
import os
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  (the version is chosen first)

from . import screen  # noqa: E402
from .element import Element  # noqa: E402
from .waiting import wait  # noqa: E402

# Roles that are not descended into: their elements have no children, or rows by the thousand.
LEAVES = {"push button", "check box", "radio button", "label", "slider", "list", "list item", "text"}

# Written before a program, this simulates a slow disk: each step of a copy (one megabyte) and each deletion is delayed,
# so that both can be watched.
SLOW_DISK = ["strace", "-D", "-f", "--seccomp-bpf", "-qq", "-o", "/dev/null",
             "-e", "trace=copy_file_range,?unlink,unlinkat", "-e", "inject=copy_file_range:delay_exit=60000",
             "-e", "inject=?unlink,unlinkat:delay_exit=100000"]

class Program:
    """A running Plimo!, to be closed by close() or a with statement."""

    def __init__(self, *command, scale=1, environment=None):
        self.scale = scale
        self._application = None
        self._focused = None
        self._listener = Atspi.EventListener.new(self._on_focus)
        self._listener.register("object:state-changed:focused")
        variables = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "QT_SCALE_FACTOR": str(scale)}
        self.process = subprocess.Popen(command, env=os.environ | variables | (environment or {}))

    def _on_focus(self, event):
        if event.detail1:
            self._focused = event.source

    def close(self):
        """Ends the program if it still runs. Its exit status."""
        self._listener.deregister("object:state-changed:focused")
        if self.process.poll() is None:
            self.process.terminate()
            try:
                self.process.wait(5)
            except subprocess.TimeoutExpired:
                self.process.kill()
        return self.process.wait()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def wait_for_exit(self, seconds=10):
        """The exit status."""
        try:
            return self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise AssertionError("the program does not end") from None

    # --- Finding elements ---

    def _root(self):
        if self._application is None:
            desktop = Atspi.get_desktop(0)
            for i in range(desktop.get_child_count()):
                candidate = desktop.get_child_at_index(i)
                if candidate is not None and candidate.get_process_id() == self.process.pid:
                    candidate.set_cache_mask(Atspi.Cache.ROLE)
                    self._application = candidate
        return self._application

    def _search(self, name, role, showing):
        """Yields the elements of this name and role in the order of the tree, without the rows of lists."""

        def visit(accessible):
            for i in range(accessible.get_child_count()):
                child = accessible.get_child_at_index(i)
                if child is None:
                    continue
                element = Element(child, self.scale)
                found_role = element.role
                wanted = (role is None or found_role == role) and (name is None or element.name == name)
                leaf = found_role in LEAVES
                if leaf and not wanted and found_role != "list":
                    continue
                if showing and not element.has("showing"):
                    # The items of an open menu are visible even if the item that opens it is not.
                    if found_role == "menu item":
                        yield from visit(child)
                    continue
                if wanted:
                    yield element
                if not leaf:
                    yield from visit(child)
                elif found_role == "list":
                    # After the rows a list has the field for searching while it is open.
                    last = child.get_child_at_index(child.get_child_count() - 1)
                    if last is not None and last.get_role_name() != "list item":
                        yield from visit(last)

        root = self._root()
        if root is not None:
            yield from visit(root)

    def elements(self, name=None, role=None, showing=True):
        """All elements of this name and role; those that are not visible as well if `showing` is false."""
        for _ in range(3):
            try:
                return list(self._search(name, role, showing))
            except GLib.Error:
                time.sleep(0.03)  # the tree changed while it was read
        return []

    def visible(self, name=None, role=None):
        """The first visible element of this name and role, or None."""
        for _ in range(3):
            try:
                return next(self._search(name, role, showing=True), None)
            except GLib.Error:
                time.sleep(0.03)
        return None

    def find(self, name, role=None, seconds=10.0):
        """Waits until an element of this name and role is visible."""

        def visible_or_ended():
            if self.process.poll() is not None:
                raise AssertionError(f'the program ended ({self.process.returncode}) before "{name}" was visible')
            return self.visible(name, role)

        return wait(visible_or_ended, f'"{name}"' + (f" ({role})" if role else ""), seconds)

    def wait_until_gone(self, name, role=None, seconds=10.0):
        wait(lambda: not self.visible(name, role), f'"{name}" to disappear', seconds)

    def list(self, name):
        return self.find(name, "list")

    def progress_panel(self, word):
        """The panel that shows the progress of a long command, if it is visible and its text contains the word.

        It is looked up as the last child of a window, in a few calls: a busy program answers ten times a second.
        """
        root = self._root()
        for i in range(root.get_child_count() if root else 0):
            window = root.get_child_at_index(i)
            children = window.get_child_count()
            last = window.get_child_at_index(children - 1) if children else None
            if last is not None and word in (last.get_name() or ""):
                return Element(last, self.scale)
        return None

    # --- What a user does ---

    def press(self, name, role="push button"):
        screen.click(self.find(name, role).centre())

    def choose(self, menu, item):
        """Opens a menu of the menu bar and chooses an item."""

        def menu_in_bar():
            for bar in self.elements(role="menu bar"):
                for element in bar.children():
                    if element.name == menu and element.rect[2] > 0:
                        return element
            return None

        # On a busy machine the click may come while a command waits for the disk, and then it is ignored.
        for _ in range(3):
            screen.click(wait(menu_in_bar, f'the menu "{menu}"').centre())
            try:
                wait(lambda: self.visible(item, "menu item"), f'the item "{item}"', 3)
                break
            except AssertionError:
                pass
        screen.click(self.find(item, "menu item").centre())

    def context_menu(self):
        """The items of the context menu that was just opened, by name. It is found as a screen reader finds it: by the
        keyboard focus."""
        screen.key("Down")

        def focused_item():
            while GLib.MainContext.default().iteration(False):
                pass
            item = self._focused
            return item if item is not None and item.get_role_name() == "menu item" else None

        try:
            menu = wait(focused_item, "a context menu").get_parent()
            return {item.name: item for item in Element(menu, self.scale).children()}
        finally:
            self._focused = None

    def tick(self, list_name, row):
        """Clicks the check box of a row."""
        screen.click(self.list(list_name).row(row).inside(11))

    def click_row(self, list_name, row, button=1, times=1):
        screen.click(self.list(list_name).row(row).inside(60), button, times)

    # --- Message boxes ---

    def _boxes(self):
        """The visible boxes. Each is a window of its own, so nothing below the windows is read."""
        root = self._root()
        windows = Element(root, self.scale).children() if root else []
        return [window for window in windows if window.role in ("dialog", "alert") and window.has("showing")]

    def visible_message(self):
        """The text of the message box that is open, or None."""
        try:
            labels = [element for box in self._boxes() for element in box.children() if element.role == "label"]
            return next((label.name for label in labels if label.name), None)
        except GLib.Error:
            return None  # the box was closed while it was read

    def message(self, seconds=10.0):
        """Waits for a message box. Its text."""
        return wait(self.visible_message, "a message box", seconds)

    def answer(self, button=None):
        """Answers the message box by the Enter key (its default button) or by a click, and waits until it is closed.
        Its text."""
        text = self.message()
        boxes = len(self._boxes())

        def closed():
            try:
                return len(self._boxes()) < boxes or self.visible_message() != text
            except GLib.Error:
                return False

        if button is None:
            screen.key("Return")
        else:
            self.press(button)
        wait(closed, "the message box to close")
        return text
