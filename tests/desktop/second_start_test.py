"""A second start in the same folder."""
import os
import pathlib
import signal
import subprocess

from tests.support.desktop import screen, songs
from tests.support.desktop.program import Program
from tests.support.desktop.settings_file import settings
from tests.support.desktop.test_case import ALDER, PROGRAM, WindowTestCase
from tests.support.desktop.waiting import wait

HUNG = "Plimo! is running in this folder already, and does not answer."


class SecondStartTestCase(WindowTestCase):
    def start_again(self, *files, folder=None, directory=None):
        """Starts the program a second time and waits for its end. Its exit status."""
        command = [PROGRAM, "--folder", str(folder or self.data), *map(str, files)]
        return subprocess.run(command, check=False, timeout=20, cwd=directory).returncode

    def start_beside(self):
        """Starts the program a second time, and lets it run."""
        second = Program(str(PROGRAM), "--folder", str(self.data), "--drive", f"C={self.collection}")
        self.addCleanup(second.close)
        return second

    def write_playlist(self, name, titles):
        path = self.home / name
        path.write_text("".join(f"{self.collection}/Alder - {title}.mp3\r\n" for title in titles))
        return path

    def minimise(self):
        subprocess.run(["xdotool", "getactivewindow", "windowminimize"], check=True)
        wait(lambda: not self.in_front(), "the window to be minimised")

    def in_front(self):
        return screen.active_title().startswith("Plimo")

    def status(self):
        return self.program.elements(role="notification")[-1].name


class SecondStart(SecondStartTestCase):
    def test_raises_the_first_one_and_ends(self):
        p = self.start_with_lists()
        self.minimise()
        self.assertEqual(self.start_again(), 0)
        wait(self.in_front, "the window in front")
        self.assertIsNone(p.process.poll())

    def test_finds_the_first_one_under_another_name_of_the_folder(self):
        self.start_with_lists()
        link = self.home / "link"
        link.symlink_to(self.data)
        self.minimise()
        self.assertEqual(self.start_again(folder=link), 0)
        wait(self.in_front, "the window in front")

    def test_hands_over_a_playlist(self):
        self.start_with_lists()
        self.write_playlist("evening.m3u", ["Damson", "Ash"])
        self.assertEqual(self.start_again("evening.m3u", directory=self.home), 0)
        self.assert_rows("Final playlist", [" Damson", " Ash"])
        self.assertEqual(self.program.list("Artists").ticked(), ["ALDER"])

    def test_hands_over_the_first_of_several_playlists(self):
        self.start_with_lists()
        files = [self.collection / "Alder - Ash.mp3", self.write_playlist("one.m3u", ["Elm"]),
                 self.write_playlist("two.m3u", ["Ash"])]
        self.assertEqual(self.start_again(*files), 0)
        self.assert_rows("Final playlist", [" Elm"])
        self.assert_becomes(self.status, "2 more files not opened: one playlist is opened at a time", "the status")

    def test_hands_over_a_name_that_is_not_utf8(self):
        self.start_with_lists()
        name = os.fsencode(self.home) + b"/caf\xe9.m3u"
        pathlib.Path(os.fsdecode(name)).write_text(f"{self.collection}/Alder - Elm.mp3\r\n")
        self.assertEqual(self.start_again(os.fsdecode(name)), 0)
        self.assert_rows("Final playlist", [" Elm"])

    def test_raises_a_box_and_the_playlist_is_opened_after_it(self):
        p = self.start_with_final_playlist()
        before = p.list("Final playlist").rows()
        p.choose("Function", "Save")
        p.message()
        self.assertEqual(self.start_again(self.write_playlist("evening.m3u", ["Birch"])), 0)
        wait(self.in_front, "the box in front")
        self.assertEqual(p.list("Final playlist").rows(), before)
        p.answer("No")
        p.find("File name:", "text")
        self.assertEqual(p.list("Final playlist").rows(), before)
        screen.key("Escape")
        self.assert_rows("Final playlist", [" Birch"])

    def test_with_the_preferences_open_the_playlist_waits_for_them(self):
        p = self.start_with_final_playlist()
        p.choose("Settings", "Preferences")
        p.answer("Yes")
        p.find("Settings", "panel")
        self.assertEqual(self.start_again(self.write_playlist("evening.m3u", ["Birch"])), 0)
        self.assert_becomes(self.status, "the file is opened when this is finished", "the status")
        self.assertTrue(p.visible("Settings", "panel"))
        screen.key("Escape")
        self.assert_rows("Final playlist", [" Birch"])

    def test_in_another_folder_runs_beside_the_first_one(self):
        first = self.start_with_lists()
        self.addCleanup(first.close)
        self.data = self.home / "other"
        self.data.mkdir()
        second = self.start_with_lists()
        self.assertIsNone(first.process.poll())
        self.assertNotEqual(first.process.pid, second.process.pid)

    def test_after_a_crash_starts(self):
        p = self.start_with_lists()
        p.process.send_signal(signal.SIGKILL)
        p.process.wait()
        p.close()
        files = sorted(path.name for path in self.data.iterdir())
        p = self.start()
        self.assert_rows("Artists", ["ALDER", "BEECH", "CYPRESS"])
        self.assertEqual(files, ["plimo.ini", "plimo.kvx"])

    def test_after_the_end_of_the_first_one_starts(self):
        self.assertEqual(self.start_with_lists().close(), 0)
        self.start()
        self.assert_rows("Artists", ["ALDER", "BEECH", "CYPRESS"])

    def test_that_follows_a_damaged_one_inside_the_process_does_not_find_itself(self):
        self.add_songs()
        (self.data / "plimo.ini").write_bytes(b"0\r\n")
        p = self.start()
        p.answer("OK")
        p.answer("Yes")
        p.find("Settings", "panel")
        self.assertEqual(self.start_again(), 0)
        self.assertIsNone(p.process.poll())


class HungProgram(SecondStartTestCase):
    def start_beside_a_hung_one(self):
        first = self.start_with_lists()
        first.process.send_signal(signal.SIGSTOP)
        self.addCleanup(first.process.send_signal, signal.SIGCONT)
        second = self.start_beside()
        # A program that is stopped does not answer the accessibility bus either, which a search would wait for.
        return first, second

    def test_is_reported_and_quit_is_the_default(self):
        _, second = self.start_beside_a_hung_one()
        wait(lambda: second.visible_message() == HUNG, "the box", 30)
        wait(lambda: second.find("Quit", "push button").has("focused"), "the keyboard focus")
        screen.key("Return")
        self.assertEqual(second.wait_for_exit(), 1)

    def test_may_be_left_alone(self):
        first, second = self.start_beside_a_hung_one()
        wait(lambda: second.visible_message() == HUNG, "the box", 30)
        second.press("Start nevertheless")
        wait(lambda: second.visible("Artists", "list") and second.list("Artists").count() == 3, "the artists", 30)
        first.process.send_signal(signal.SIGCONT)
        self.assertEqual(second.close(), 0)
        self.assertIsNone(first.process.poll())
