"""One element of the accessibility tree: a button, a list, a row."""
import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402  (the version is chosen first)


class Element:
    """Every property is read from the program each time, except the role, which never changes."""

    def __init__(self, accessible, scale):
        self.accessible = accessible
        self.scale = scale

    @property
    def name(self):
        return self.accessible.get_name() or ""

    @property
    def role(self):
        return self.accessible.get_role_name()

    @property
    def value(self):
        return Atspi.Value.get_current_value(self.accessible)

    def states(self):
        return {state.value_nick for state in self.accessible.get_state_set().get_states()}

    def has(self, state):
        return state in self.states()

    def text(self):
        """The content of a text field."""
        return Atspi.Text.get_text(self.accessible, 0, Atspi.Text.get_character_count(self.accessible))

    def activate(self, action=0):
        """Invokes an accessible action, as a screen reader does."""
        return Atspi.Action.do_action(self.accessible, action)

    # --- Geometry, in pixels of the screen ---

    @property
    def rect(self):
        """Left, top, width, height."""
        extents = Atspi.Component.get_extents(self.accessible, Atspi.CoordType.SCREEN)
        return tuple(round(value * self.scale) for value in (extents.x, extents.y, extents.width, extents.height))

    def centre(self):
        left, top, width, height = self.rect
        return left + width // 2, top + height // 2

    def inside(self, x):
        """A point x unscaled pixels from the left edge, at half the height."""
        left, top, _, height = self.rect
        return left + round(x * self.scale), top + height // 2

    # --- Children; those of a list are its rows ---

    def count(self):
        return self.accessible.get_child_count()

    def child(self, index):
        return Element(self.accessible.get_child_at_index(index), self.scale)

    def children(self):
        found = (self.accessible.get_child_at_index(i) for i in range(self.count()))
        return [Element(child, self.scale) for child in found if child is not None]

    def rows(self):
        """The texts of all rows; a field for searching is none."""
        return [row.name for row in self.children() if row.role == "list item"]

    def ticked(self):
        return [row.name for row in self.children() if row.has("checked")]

    def selected(self):
        return [row.name for row in self.children() if row.has("selected")]

    def current(self):
        """The text of the row with the keyboard focus; None if no row has it."""
        return next((row.name for row in self.children() if row.has("focused")), None)

    def row(self, text):
        for row in self.children():
            if row.name.strip() == text:
                return row
        raise AssertionError(f'no row "{text}" in "{self.name}"; there are {self.rows()}')
