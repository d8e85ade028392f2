"""What plays, in the large view."""
from tests.support.desktop.test_case import WindowTestCase, read_file
from tests.support.desktop.waiting import wait

class WhatPlays(WindowTestCase):
    def start_playing(self):
        p = self.start_with_final_playlist(seconds=60)
        p.press("Play all songs on the final playlist")
        self.assert_becomes(lambda: self.playing(p), [" Ash"], "the song that plays")
        return p

    def playing(self, p):
        rows = p.list("Final playlist").children()
        return [row.name for row in rows if row.accessible.get_description() == "playing"]

    def test_the_song_that_plays_is_marked_in_the_final_playlist(self):
        p = self.start_playing()
        p.press("Stop")
        wait(lambda: not self.playing(p), "no mark after Stop")

    def test_the_large_view_keeps_the_controls_of_a_player_that_it_hides(self):
        p = self.start_playing()
        p.choose("View", "Large")
        wait(lambda: p.visible("Artists", "list"), "the lists")
        p.find("View \u203a Compact shows the player")
        p.press("Pause")
        p.press("Play")
        p.press("Stop")
        p.wait_until_gone("Stop")

    def test_volume_and_mute_are_remembered(self):
        p = self.start_playing()
        p.press("Mute", "check box")
        wait(lambda: b"muted=true" in (read_file(self.data / "plimo-window.ini") or b""), "the file of the window")
        p.close()
        p = self.start()
        wait(lambda: p.visible("Artists", "list"), "the lists")
        p.tick("Artists", "ALDER")
        p.press("Show the song commands")
        p.press("Add All")
        p.press("Play all songs on the final playlist")
        wait(lambda: p.find("Mute").has("checked"), "mute as before")
