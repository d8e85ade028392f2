"""A disk that does not answer, as a network drive may for minutes: the window goes on working.

The deadlines are long because the machine may be busy; without the means that are tested it would take a minute.
"""
from tests.support.desktop import screen, songs
from tests.support.desktop.settings_file import settings
from tests.support.desktop.test_case import ALDER, PROGRAM, WindowTestCase
from tests.support.desktop.waiting import wait

PATIENCE = 20


def held_up(path):
    """Written before the program, this holds up its calls on a file or folder for a minute."""
    return ["env", f"LD_PRELOAD={PROGRAM.parent / 'libplimo-held-up-disk.so'}", f"PLIMO_HELD_UP={path}"]


class FolderHeldUp(WindowTestCase):
    def start_scan(self):
        """Starts the program with a scan that is held up at its last folder. Its progress panel."""
        self.add_songs()
        folder = self.collection / "no answer"
        folder.mkdir()
        (self.data / "plimo.ini").write_bytes(settings("C:", scan=True))
        p = self.start(*held_up(folder))
        return wait(lambda: p.progress_panel("8 songs found"), "the progress panel", PATIENCE)

    def test_cancel_ends_the_scan_and_keeps_what_was_found(self):
        panel = self.start_scan()
        screen.click(panel.child(0).centre())
        wait(lambda: self.program.visible("Artists", "list"), "the lists", PATIENCE)
        self.assert_rows("Artists", ["ALDER", "BEECH", "CYPRESS"])
        self.assert_catalogue_is_written()
        screen.key("alt+F4")
        self.assertEqual(self.program.wait_for_exit(PATIENCE), 0)

    def test_closing_the_window_ends_the_program_and_keeps_what_was_found(self):
        self.start_scan()
        screen.key("alt+F4")
        self.assertEqual(self.program.wait_for_exit(PATIENCE), 0)
        self.assert_catalogue_is_written()


class FileHeldUp(WindowTestCase):
    def start_copy(self):
        """Starts to copy a song, which is held up. The progress panel."""
        p = self.start_with_lists(*held_up(self.collection / "Alder - Birch.mp3"))
        p.tick("Artists", "ALDER")
        self.assert_rows("Scratch playlist", ALDER)
        p.click_row("Scratch playlist", "Birch")
        screen.key("v")
        screen.click(p.context_menu()["Copy Selected files to .."].centre())
        p.find("Copy Files to ..", "panel")
        screen.click(p.find(None, "combo box").centre())
        screen.key("End", "Return")
        p.find(f"Copies go to {self.stick}")
        p.press("Start Copying")
        return wait(lambda: p.progress_panel("Copying"), "the progress panel", PATIENCE)

    def test_closing_the_window_during_a_copy_ends_the_program(self):
        self.start_copy()
        screen.key("alt+F4")
        self.assertEqual(self.program.wait_for_exit(PATIENCE), 0)
        self.assertEqual(list(self.stick.iterdir()), [])

    def start_reading(self):
        """Starts the program, which is held up at its catalogue. The panel over its window."""
        self.add_songs()
        (self.data / "plimo.ini").write_bytes(settings())
        (self.data / "plimo.kvx").write_bytes(songs.expected_catalogue(self.collection))
        p = self.start(*held_up(self.data / "plimo.kvx"))
        return wait(lambda: p.progress_panel("Waiting"), "the panel", PATIENCE)

    def test_cancel_gives_up_a_catalogue_that_cannot_be_read(self):
        panel = self.start_reading()
        screen.click(panel.child(0).centre())
        self.assertIn("song list file is missing", self.program.message(PATIENCE))

    def test_closing_the_window_while_the_catalogue_cannot_be_read_ends_the_program(self):
        self.start_reading()
        screen.key("alt+F4")
        self.assertEqual(self.program.wait_for_exit(PATIENCE), 0)
        self.assertTrue((self.data / "plimo.kvx").stat().st_size > 0)
