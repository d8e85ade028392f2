"""Other programs of the desktop show and control the player: media keys, panels."""
import os
import subprocess
import urllib.parse

from gi.repository import GLib

from tests.support.desktop import screen, songs
from tests.support.desktop.remote import NAME, PLAYER, ROOT, Remote
from tests.support.desktop.settings_file import settings
from tests.support.desktop.test_case import WindowTestCase
from tests.support.desktop.waiting import wait

TITLES = ["Ash", "Birch", "Cedar"]
SECONDS = 60


class RemoteTestCase(WindowTestCase):
    def start_with_songs(self, *wrapper):
        """Starts the program with three long songs in the final playlist."""
        return self.start_with_lists(*wrapper, artists={"Alder": TITLES}, seconds=SECONDS)

    def start_playing(self):
        p = self.start_with_songs()
        p.tick("Artists", "ALDER")
        p.press("Show the song commands")
        p.press("Add All")
        p.press("Play all songs on the final playlist")
        p.find("1 / 3   Alder - Ash.mp3")
        return p

    def remote(self, name=NAME):
        remote = Remote(name)
        remote.__enter__()
        self.addCleanup(remote.__exit__)
        return remote

    def uri(self, path):
        return "file://" + urllib.parse.quote(os.fsencode(path))

    def write_playlist(self, name, titles):
        path = self.home / name
        path.write_text("".join(f"{self.collection}/Alder - {title}.mp3\r\n" for title in titles))
        return path

    def assert_status(self, remote, status):
        self.assert_becomes(lambda: remote.get("PlaybackStatus"), status, "the playback status")


class Shown(RemoteTestCase):
    def test_the_program_introduces_itself(self):
        self.start_with_songs()
        remote = self.remote()
        root = remote.get_all(ROOT)
        self.assertEqual(root["Identity"], "Plimo!")
        self.assertEqual(root["DesktopEntry"], "plimo")
        self.assertEqual((root["CanQuit"], root["CanRaise"], root["HasTrackList"]), (True, True, False))
        self.assertEqual(root["SupportedUriSchemes"], ["file"])
        for mime_type in ("audio/mpeg", "audio/x-mpegurl"):
            self.assertIn(mime_type, root["SupportedMimeTypes"])

    def test_the_interfaces_are_described_completely(self):
        self.start_with_songs()
        interfaces = self.remote().introspect()
        root, player = interfaces[ROOT], interfaces[PLAYER]
        self.assertEqual({method.name for method in root.methods}, {"Raise", "Quit"})
        signature = lambda method: "".join(argument.signature for argument in method.in_args)
        arguments = {method.name: signature(method) for method in player.methods}
        self.assertEqual(arguments, {"Next": "", "Previous": "", "Pause": "", "PlayPause": "", "Stop": "", "Play": "",
                                     "Seek": "x", "SetPosition": "ox", "OpenUri": "s"})
        self.assertEqual([(signal.name, signal.args[0].signature) for signal in player.signals], [("Seeked", "x")])
        self.assertEqual({name.name: name.signature for name in player.properties},
                         {"PlaybackStatus": "s", "Rate": "d", "MinimumRate": "d", "MaximumRate": "d",
                          "Metadata": "a{sv}", "Volume": "d", "Position": "x", "CanGoNext": "b", "CanGoPrevious": "b",
                          "CanPlay": "b", "CanPause": "b", "CanSeek": "b", "CanControl": "b"})

    def test_nothing_is_playing_at_first(self):
        self.start_with_songs()
        properties = self.remote().get_all()
        self.assertEqual(properties["PlaybackStatus"], "Stopped")
        self.assertEqual(properties["Metadata"], {"mpris:trackid": "/org/mpris/MediaPlayer2/TrackList/NoTrack"})
        self.assertEqual(properties["Position"], 0)
        self.assertTrue(properties["CanControl"])
        for name in ("CanPlay", "CanPause", "CanGoNext", "CanGoPrevious", "CanSeek"):
            self.assertFalse(properties[name], name)

    def test_the_song_is_shown_as_its_name_says(self):
        self.start_playing()
        remote = self.remote()
        wait(lambda: "mpris:length" in remote.get("Metadata"), "the length")
        data = remote.get("Metadata")
        self.assertEqual((data["xesam:title"], data["xesam:artist"]), ("Ash", ["Alder"]))
        self.assertEqual(data["xesam:url"], self.uri(self.collection / "Alder - Ash.mp3"))
        self.assertAlmostEqual(data["mpris:length"] / 1e6, SECONDS, delta=1)
        properties = remote.get_all()
        self.assertEqual((properties["Rate"], properties["MinimumRate"], properties["MaximumRate"]), (1, 1, 1))
        for name in ("CanPlay", "CanPause", "CanGoNext", "CanGoPrevious", "CanSeek"):
            self.assertTrue(properties[name], name)
        wait(lambda: remote.get("Position") > 1_000_000, "the position to advance")

    def test_a_change_of_the_song_is_announced_once_and_without_the_position(self):
        self.start_playing()
        remote = self.remote()
        wait(lambda: "mpris:length" in remote.get("Metadata"), "the length")
        remote.receive()
        remote.changes.clear()
        self.program.press("Next song")
        title = lambda change: change.get("Metadata", {}).get("xesam:title")
        remote.wait_for(lambda: any("mpris:length" in change.get("Metadata", {}) for change in remote.changes),
                        "the next song")
        self.assertEqual({title(change) for change in remote.changes if "Metadata" in change}, {"Birch"})
        self.assertFalse(any("Position" in change for change in remote.changes))
        self.assertFalse(any("PlaybackStatus" in change for change in remote.changes), "a song was between the songs")
        tracks = {change["Metadata"]["mpris:trackid"] for change in remote.changes if "Metadata" in change}
        self.assertEqual(len(tracks), 1)


class Controlled(RemoteTestCase):
    def test_play_pause_and_stop(self):
        p = self.start_playing()
        remote = self.remote()
        self.assert_status(remote, "Playing")
        remote.call("Pause")
        p.find("Play", "push button")
        self.assert_status(remote, "Paused")
        remote.call("Pause")
        remote.call("Play")
        p.find("Pause", "push button")
        self.assert_status(remote, "Playing")
        remote.call("Play")
        remote.call("PlayPause")
        self.assert_status(remote, "Paused")
        remote.call("PlayPause")
        self.assert_status(remote, "Playing")
        remote.call("Stop")
        p.find("Nothing is playing")
        self.assert_status(remote, "Stopped")
        self.assertNotIn("xesam:title", remote.get("Metadata"))
        remote.call("Play")
        remote.wait_for_title("Ash")

    def test_next_and_previous(self):
        p = self.start_playing()
        remote = self.remote()
        remote.call("Next")
        p.find("2 / 3   Alder - Birch.mp3")
        remote.call("Next")
        p.find("3 / 3   Alder - Cedar.mp3")
        self.assertFalse(remote.get("CanGoNext"))
        remote.call("Next")
        remote.call("Previous")
        p.find("2 / 3   Alder - Birch.mp3")

    def test_the_position_is_set(self):
        self.start_playing()
        remote = self.remote()
        wait(lambda: remote.get("CanSeek"), "the length")
        remote.call("Pause")
        self.assert_status(remote, "Paused")
        track = remote.get("Metadata")["mpris:trackid"]
        remote.call("SetPosition", track, 20_000_000, types="ox")
        remote.wait_for(lambda: ("Seeked", (20_000_000,)) in remote.signals, "the new position")
        remote.call("Seek", 10_000_000, types="x")
        remote.wait_for(lambda: [name for name, _ in remote.signals].count("Seeked") == 2, "the jump")
        self.assertAlmostEqual(remote.get("Position") / 1e6, 30, delta=1)
        remote.call("Seek", -90_000_000, types="x")
        self.assert_becomes(lambda: remote.get("Position"), 0, "the position")
        for wrong, position in (("/plimo/track/999", 5_000_000), (track, -1), (track, (SECONDS + 5) * 1_000_000)):
            remote.call("SetPosition", wrong, position, types="ox")
        self.assertEqual(remote.get("Position"), 0)
        remote.call("Seek", (SECONDS + 5) * 1_000_000, types="x")
        remote.wait_for_title("Birch")

    def test_a_jump_in_the_window_is_announced(self):
        p = self.start_playing()
        remote = self.remote()
        wait(lambda: remote.get("CanSeek"), "the length")
        screen.click(p.find("Place in the song", "slider").centre())
        remote.wait_for(lambda: any(name == "Seeked" for name, _ in remote.signals), "the jump")
        self.assertAlmostEqual(remote.signals[-1][1][0] / 1e6, SECONDS / 2, delta=4)

    def test_the_volume_is_set(self):
        p = self.start_playing()
        remote = self.remote()
        self.assertEqual(remote.get("Volume"), 1)
        remote.set("Volume", GLib.Variant("d", 0.4))
        self.assert_becomes(lambda: p.find("Volume", "slider").value, 40, "the volume")
        screen.click(p.find("Mute").centre())
        remote.wait_for(lambda: {"Volume": 0} in remote.changes, "the silence")
        remote.set("Volume", GLib.Variant("d", -3))
        remote.set("Volume", GLib.Variant("d", 7))
        self.assert_becomes(lambda: remote.get("Volume"), 1, "the volume")
        remote.set("Rate", GLib.Variant("d", 0))
        self.assert_status(remote, "Paused")

    def test_a_playlist_is_opened_and_played(self):
        p = self.start_with_songs()
        playlist = self.write_playlist("an evening.m3u", ["Cedar", "Ash"])
        remote = self.remote()
        remote.call("OpenUri", self.uri(playlist), types="s")
        self.assert_rows("Final playlist", [" Cedar", " Ash"])
        p.find("1 / 2   Alder - Cedar.mp3")

    def test_a_song_is_played_and_the_lists_stay(self):
        p = self.start_playing()
        remote = self.remote()
        remote.call("OpenUri", self.uri(self.collection / "Alder - Cedar.mp3"), types="s")
        remote.wait_for_title("Cedar")
        self.assertEqual(p.list("Final playlist").rows(), [" Ash", " Birch", " Cedar"])

    def test_a_name_that_is_not_utf8_is_played_by_its_address(self):
        name = os.fsencode(self.collection) + b"/Alder - Caf\xe9.mp3"
        songs.write_song(name, SECONDS)
        self.start_with_songs()
        remote = self.remote()
        remote.call("OpenUri", self.uri(name), types="s")
        remote.wait_for_title("Caf\N{REPLACEMENT CHARACTER}")
        self.assertEqual(remote.get("Metadata")["xesam:url"], self.uri(name))

    def test_other_addresses_are_refused(self):
        self.start_with_songs()
        remote = self.remote()
        for uri in ("http://localhost/a.m3u", "file://elsewhere/a.m3u", "file:///etc/passwd", "a.m3u"):
            with self.assertRaises(GLib.Error, msg=uri):
                remote.call("OpenUri", uri, types="s")
        self.assertEqual(remote.get("PlaybackStatus"), "Stopped")

    def test_a_playlist_is_opened_when_the_box_is_closed(self):
        p = self.start_playing()
        playlist = self.write_playlist("evening.m3u", ["Birch"])
        p.choose("Function", "Save")
        p.message()
        remote = self.remote()
        remote.call("OpenUri", self.uri(playlist), types="s")
        remote.call("Next")
        remote.wait_for_title("Birch")
        self.assertEqual(p.list("Final playlist").rows(), [" Ash", " Birch", " Cedar"])
        screen.key("Escape")
        p.find("File name:", "text")
        screen.key("Escape")
        self.assert_rows("Final playlist", [" Birch"])

    def test_the_window_is_raised(self):
        self.start_with_songs()
        remote = self.remote()
        subprocess.run(["xdotool", "getactivewindow", "windowminimize"], check=True)
        wait(lambda: not screen.active_title().startswith("Plimo"), "the window to be minimised")
        remote.call_root("Raise")
        wait(lambda: screen.active_title().startswith("Plimo"), "the window in front")

    def test_the_program_is_ended(self):
        p = self.start_with_songs()
        remote = self.remote()
        remote.call_root("Quit")
        self.assertEqual(p.wait_for_exit(), 0)


class OnTheBus(RemoteTestCase):
    def test_a_second_program_has_a_name_of_its_own(self):
        first = self.start_with_songs()
        self.remote()
        self.data = self.home / "other"
        self.data.mkdir()
        self.addCleanup(first.close)
        second = self.start_with_songs()
        remote = self.remote(f"{NAME}.instance{second.process.pid}")
        self.assertEqual(remote.get("Identity", ROOT), "Plimo!")

    def test_without_a_bus_the_program_runs(self):
        for words in (["-u", "DBUS_SESSION_BUS_ADDRESS"], ["DBUS_SESSION_BUS_ADDRESS=unix:path=/none"]):
            (self.data / "plimo.ini").write_bytes(settings())
            (self.data / "plimo.kvx").write_bytes(songs.expected_catalogue(self.collection))
            p = self.start("env", *words)
            search = ["xdotool", "search", "--onlyvisible", "--name", "^Plimo"]
            wait(lambda: subprocess.run(search, capture_output=True, check=False).stdout, "the window")
            self.assertIsNone(p.process.poll())
            self.assertEqual(p.close(), 0)
