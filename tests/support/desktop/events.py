"""The events that a screen reader receives."""
import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  (the version is chosen first)


class Events:
    """Records events of some types while it is used in a with statement: (type, name of the element, value)."""

    def __init__(self, *types):
        self.types = types
        self.seen = []
        self._listener = Atspi.EventListener.new(self._on_event)

    def _on_event(self, event):
        try:
            self.seen.append((event.type, event.source.get_name(), event.detail1))
        except GLib.Error:
            pass  # the element is gone

    def __enter__(self):
        for kind in self.types:
            self._listener.register(kind)
        return self

    def __exit__(self, *_):
        for kind in self.types:
            self._listener.deregister(kind)

    def received(self):
        """All events so far."""
        while GLib.MainContext.default().iteration(False):
            pass
        return list(self.seen)

    def has(self, kind, name, value=None):
        return any(event[0].startswith(kind) and event[1] == name and value in (None, event[2])
                   for event in self.received())
