"""What a screen reader hears: events, and texts that are painted only."""
from tests.support.desktop import screen, songs
from tests.support.desktop.element import Element
from tests.support.desktop.events import Events
from tests.support.desktop.settings_file import settings
from tests.support.desktop.test_case import ALDER, WindowTestCase
from tests.support.desktop.waiting import wait

NEW_ORDER = "new order, not yet in what Save writes - View > Large takes it over"


class Heard(WindowTestCase):
    def test_ticking_by_mouse_and_by_key_is_heard(self):
        p = self.start_with_lists()
        p.list("Artists").rows()
        with Events("object:state-changed:checked") as events:
            p.tick("Artists", "BEECH")
            wait(lambda: events.has("object:state-changed:checked", "BEECH", 1), "the tick")
            screen.key("space")
            wait(lambda: events.has("object:state-changed:checked", "BEECH", 0), "the tick that is removed")

    def test_selecting_by_mouse_and_by_z_and_c_is_heard(self):
        p = self.start_with_lists()
        p.tick("Artists", "ALDER")
        self.assert_rows("Scratch playlist", ALDER)
        with Events("object:state-changed:selected") as events:
            p.click_row("Scratch playlist", "Ash")
            wait(lambda: events.has("object:state-changed:selected", " Ash", 1), "the selection by mouse")
            screen.key("Down", "z")
            wait(lambda: events.has("object:state-changed:selected", " Birch", 1), "the selection by z")
            screen.key("c")
            wait(lambda: events.has("object:state-changed:selected", " Ash", 0), "the end of the selection")

    def test_the_current_row_is_heard(self):
        p = self.start_with_lists()
        p.click_row("Artists", "ALDER")
        with Events("object:state-changed:focused") as events:
            screen.key("Down")
            wait(lambda: events.has("object:state-changed:focused", "BEECH", 1), "the row")

    def test_removing_by_x_and_dropping_by_w_are_heard(self):
        p = self.start_with_final_playlist()
        p.click_row("Final playlist", "Ash")
        with Events("object:state-changed:focused", "object:property-change:accessible-name") as events:
            screen.key("x")
            wait(lambda: events.has("object:state-changed:focused", " Birch", 1), "the row that moves up")
            screen.key("q", "Down")
            wait(lambda: events.has("object:state-changed:focused", " Cedar", 1), "the row to drop it after")
            screen.key("w")
            wait(lambda: events.has("object:property-change:accessible-name", NEW_ORDER), "the status line")
            wait(lambda: sum(name == " Birch" and on == 1 for _, name, on in events.received()) >= 2, "the dropped row")

    def test_counts_are_the_descriptions_of_the_lists(self):
        p = self.start_with_lists()
        p.tick("Artists", "BEECH")
        description = lambda name: p.list(name).accessible.get_description()
        self.assert_becomes(lambda: description("Artists"), "3 artists  ·  1 ticked", "the artists' description")
        self.assert_becomes(lambda: description("Scratch playlist"), "2 songs", "the scratch playlist's description")

    def test_drive_rows_carry_their_folders(self):
        p = self.start_with_lists()
        p.choose("Function", "Scan other drives for Mp3s")
        row = p.list("Drives to scan").row("C: Hard Drive")
        self.assertEqual(row.accessible.get_description(), str(self.collection))

    def test_an_artist_without_a_name_is_named(self):
        songs.write_song(self.collection / " - Nobody.mp3", 0.2)
        p = self.start_with_lists(artists={"Alder": ["Ash"]})
        self.assertEqual(p.list("Artists").rows(), ["(no artist)", "ALDER"])

    def test_a_hidden_list_has_no_focused_row(self):
        p = self.start_with_lists()
        p.click_row("Artists", "ALDER")
        row = p.list("Artists").row("ALDER")
        self.assertTrue(row.has("focused"))
        p.choose("View", "Compact")
        p.wait_until_gone("Artists", "list")
        self.assertFalse(row.has("focused"), "the row of a hidden list has the focus")

    def test_context_menus_have_names(self):
        p = self.start_with_lists()
        p.tick("Artists", "ALDER")
        p.click_row("Scratch playlist", "Ash")
        screen.key("v")
        item = next(iter(p.context_menu().values()))
        self.assertEqual(Element(item.accessible.get_parent(), 1).name, "Scratch playlist commands")

    def test_the_position_in_a_song_is_a_time_and_songs_are_announced(self):
        songs.write_song(self.collection / "Alder - Ash.mp3", 30)
        songs.write_song(self.collection / "Beech - Fir.mp3", 30)
        (self.data / "plimo.ini").write_bytes(settings())
        (self.data / "plimo.kvx").write_bytes(songs.expected_catalogue(self.collection))
        p = self.start()
        wait(lambda: p.visible("Artists", "list") and p.list("Artists").count(), "the artists")
        p.press("Select all") if p.visible("Select all", "push button") else p.tick("Artists", "ALDER")
        p.tick("Artists", "BEECH")
        p.press("Show the song commands")
        p.press("Add All")
        with Events("object:property-change:accessible-name", "object:property-change:accessible-value") as events:
            p.press("Play all songs on the final playlist")
            wait(lambda: events.has("object:property-change:accessible-name", "1 / 2   Alder - Ash.mp3"), "the song")
            seek = p.find("Place in the song", "slider")
            wait(lambda: seek.value >= 1, "the first second")
            self.assertLess(seek.value, 30)
            self.assertRegex(seek.accessible.get_description(), r"^0:\d\d of 0:(29|30)$")
            self.assertFalse(events.has("object:property-change:accessible-value", "Place in the song"))
        self.assertEqual(p.find("Player").role, "panel")
