"""Another program of the desktop that shows and controls the player, over the session bus."""
import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402  (the version is chosen first)

from .waiting import wait  # noqa: E402

NAME = "org.mpris.MediaPlayer2.plimo"
PATH = "/org/mpris/MediaPlayer2"
ROOT = "org.mpris.MediaPlayer2"
PLAYER = "org.mpris.MediaPlayer2.Player"
PROPERTIES = "org.freedesktop.DBus.Properties"


class Remote:
    """To be used in a with statement: signals are received meanwhile."""

    def __init__(self, name=NAME):
        self.name = name
        self.signals = []  # of the interface's own: (name, values)
        self.changes = []  # of properties: dictionaries
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)

    def __enter__(self):
        wait(lambda: self.name in self.names(), f"{self.name} on the bus")
        self._subscription = self.bus.signal_subscribe(self.name, None, None, PATH, None, Gio.DBusSignalFlags.NONE,
                                                       self._on_signal)
        return self

    def __exit__(self, *_):
        self.bus.signal_unsubscribe(self._subscription)

    def _on_signal(self, _bus, _sender, _path, interface, name, values):
        if interface == PROPERTIES and name == "PropertiesChanged":
            self.changes.append(values.unpack()[1])
        else:
            self.signals.append((name, values.unpack()))

    def names(self):
        bus = "org.freedesktop.DBus"
        answer = self.bus.call_sync(bus, "/org/freedesktop/DBus", bus, "ListNames", None, None,
                                    Gio.DBusCallFlags.NONE, 5000, None)
        return answer.unpack()[0]

    def _call(self, interface, method, arguments=None):
        answer = self.bus.call_sync(self.name, PATH, interface, method, arguments, None,
                                    Gio.DBusCallFlags.NO_AUTO_START, 5000, None)
        return answer.unpack() if answer is not None else ()

    def call(self, method, *arguments, types=""):
        """Calls a method of the player; `types` are those of the arguments, as the bus writes them."""
        return self._call(PLAYER, method, GLib.Variant(f"({types})", arguments) if types else None)

    def call_root(self, method):
        return self._call(ROOT, method)

    def get(self, name, interface=PLAYER):
        return self._call(PROPERTIES, "Get", GLib.Variant("(ss)", (interface, name)))[0]

    def get_all(self, interface=PLAYER):
        return self._call(PROPERTIES, "GetAll", GLib.Variant("(s)", (interface,)))[0]

    def set(self, name, value):
        self._call(PROPERTIES, "Set", GLib.Variant("(ssv)", (PLAYER, name, value)))

    def introspect(self):
        """The interfaces of the player's object, by name."""
        xml = self._call("org.freedesktop.DBus.Introspectable", "Introspect")[0]
        return {interface.name: interface for interface in Gio.DBusNodeInfo.new_for_xml(xml).interfaces}

    def title(self):
        return self.get("Metadata").get("xesam:title")

    def receive(self):
        """Takes the signals that have arrived."""
        while GLib.MainContext.default().iteration(False):
            pass

    def wait_for(self, condition, what):
        """Waits for a condition of the signals received."""

        def received():
            self.receive()
            return condition()

        return wait(received, what)

    def wait_for_title(self, title):
        wait(lambda: self.title() == title, f'"{title}" to be played')
