"""Deleting, renaming and copying song files, with every question answered both ways."""
import filecmp
import hashlib
import os
import time

from tests.support.desktop import screen, songs
from tests.support.desktop.program import SLOW_DISK
from tests.support.desktop.test_case import ALDER, WindowTestCase
from tests.support.desktop.waiting import wait

DELETE_SELECTED = "You are gonna have to say goodbye to the selected files! You sure ??"
DELETE_ALL = "You are gonna have to say goodbye to all the files in this list! You sure ??"
SCAN_AFTER_DELETING = "The Files have been deleted! Do you want to re-scan your hard drive for Mp3s? "
SCAN_AFTER_RENAMING = "Would you like to Re-scan your hard drive to incorporate the changes (RECOMMENDED)?"
NO_SCAN = ("You have chosen not to scan any drive in 'Preferences'. Please choose to scan this drive in preferences to "
           "incorporate the changes")
NEW_NAME = ("Please enter the new name for this file (without the extension) \r\n"
            "EXISTING FILES WILL BE OVERWRITTEN SO DON'T BLAME ME LATER!")


class FilesTestCase(WindowTestCase):
    def start_with_scratch_playlist(self, *wrapper, scan=False):
        """Starts the program, with the five songs of the artist ALDER in the scratch playlist."""
        p = self.start_with_lists(*wrapper, scan=scan)
        p.tick("Artists", "ALDER")
        wait(lambda: p.list("Scratch playlist").count() >= 5, "songs")
        return p

    def alder(self, title):
        return self.collection / f"Alder - {title}.mp3"

    def titles_on_disk(self):
        """The titles of the artist's songs that are on the disk."""
        return [" " + path.stem.split(" - ")[1] for path in sorted(self.collection.glob("Alder - *.mp3"))]

    def choose_from_menu(self, row, item):
        self.program.click_row("Scratch playlist", row)
        screen.key("v")
        screen.click(self.program.context_menu()[item].centre())

    def assert_no_message(self):
        time.sleep(0.3)
        self.assertIsNone(self.program.visible_message())

    def open_copy_panel(self, folder=None):
        """Opens the copy panel by the context menu, and enters the other drive and a folder on it."""
        screen.key("v")
        screen.click(self.program.context_menu()["Copy Selected files to .."].centre())
        self.program.find("Copy Files to ..", "panel")
        screen.click(self.program.find(None, "combo box").centre())
        screen.key("End", "Return")
        folders = self.program.list("Folder to copy to")
        wait(lambda: folders.rows()[:1] == [str(self.stick)], "the other drive's folders")
        if folder is not None:
            screen.click(folders.row(folder).inside(60), times=2)
            wait(lambda: folders.row(folder).has("selected"), "the folder to be entered")


class Deleting(FilesTestCase):
    def test_no_keeps_a_song_from_being_deleted(self):
        p = self.start_with_scratch_playlist()
        catalogue = (self.data / "plimo.kvx").read_bytes()
        self.choose_from_menu("Birch", "Delete Selected")
        self.assert_answer(DELETE_SELECTED, "No")
        self.assert_no_message()
        self.assertEqual(self.titles_on_disk(), ALDER)
        self.assertEqual(p.list("Scratch playlist").rows(), ALDER)
        self.assertEqual((self.data / "plimo.kvx").read_bytes(), catalogue)

    def test_yes_deletes_the_selected_song_and_its_row_stays_until_a_scan(self):
        p = self.start_with_scratch_playlist()
        catalogue = (self.data / "plimo.kvx").read_bytes()
        self.choose_from_menu("Birch", "Delete Selected")
        self.assert_answer(DELETE_SELECTED, "Yes")
        self.assert_answer(SCAN_AFTER_DELETING, "No")
        self.assert_no_message()
        self.assertEqual(self.titles_on_disk(), [" Ash", " Cedar", " Damson", " Elm"])
        self.assertEqual(p.list("Scratch playlist").rows(), ALDER)
        self.assertEqual((self.data / "plimo.kvx").read_bytes(), catalogue)

    def test_after_a_deletion_yes_is_refused_if_no_drive_is_scanned(self):
        p = self.start_with_scratch_playlist()
        self.choose_from_menu("Birch", "Delete Selected")
        self.assert_answer(DELETE_SELECTED, "Yes")
        self.assert_answer(SCAN_AFTER_DELETING, "Yes")
        self.assert_answer(NO_SCAN, "OK")
        self.assert_no_message()
        self.assertEqual(p.list("Scratch playlist").rows(), ALDER)

    def test_after_a_deletion_yes_scans_the_drives(self):
        p = self.start_with_scratch_playlist(scan=True)
        self.choose_from_menu("Birch", "Delete Selected")
        self.assert_answer(DELETE_SELECTED, "Yes")
        self.assert_answer(SCAN_AFTER_DELETING, "Yes")
        self.assert_rows("Scratch playlist", [])
        self.assert_catalogue_is_written()
        p.tick("Artists", "ALDER")
        self.assert_rows("Scratch playlist", [" Ash", " Cedar", " Damson", " Elm"])

    def test_deleting_all_is_answered_with_no_and_with_yes(self):
        p = self.start_with_scratch_playlist()
        p.press("Show the song commands")
        p.press("Delete All")
        self.assert_answer(DELETE_ALL, "No")
        self.assert_no_message()
        self.assertEqual(self.titles_on_disk(), ALDER)
        p.press("Delete All")
        self.assert_answer(DELETE_ALL, "Yes")
        self.assert_answer(SCAN_AFTER_DELETING, "No")
        self.assertEqual(self.titles_on_disk(), [])
        self.assertEqual(sorted(os.listdir(self.collection)),
                         ["Beech - Fir.mp3", "Beech - Gorse.mp3", "Cypress - Hazel.mp3"])
        self.assertEqual(p.list("Scratch playlist").rows(), ALDER)

    def test_a_failed_deletion_is_reported_and_ends_the_command(self):
        p = self.start_with_scratch_playlist()
        self.alder("Birch").unlink()
        self.choose_from_menu("Birch", "Delete Selected")
        self.assert_answer(DELETE_SELECTED, "Yes")
        self.assert_answer("The File(s) could not be deleted due to some mysterical problem!", "OK")
        self.assert_answer(SCAN_AFTER_DELETING, "No")
        self.alder("Cedar").unlink()
        self.alder("Cedar").mkdir()  # nobody, not even a superuser, deletes a folder as if it were a file
        songs.write_song(self.alder("Birch"))
        p.press("Show the song commands")
        p.press("Delete All")
        self.assert_answer(DELETE_ALL, "Yes")
        self.assert_answer("The file(s) could not be deleted due to some mysterical problem!", "OK")
        self.assert_answer(SCAN_AFTER_DELETING, "No")
        self.assertEqual(self.titles_on_disk(), [" Cedar", " Damson", " Elm"])


class Renaming(FilesTestCase):
    def ask_for_a_name(self, row):
        """Opens the box that asks for a new name. The name that it proposes."""
        self.choose_from_menu(row, "Rename")
        self.program.find("Rename", "dialog")
        self.assertEqual(self.program.message(), NEW_NAME)
        return self.program.find(NEW_NAME, "text").text()

    def test_a_song_is_renamed_and_leaves_the_scratch_playlist(self):
        self.start_with_scratch_playlist()
        before = self.alder("Birch").read_bytes()
        proposed = self.ask_for_a_name("Birch")
        self.assertEqual(proposed, "Alder - Birch")
        screen.type_text("Alder - White, \"Birch\"")
        screen.key("Return")
        self.assert_answer(SCAN_AFTER_RENAMING, "No")
        self.assert_no_message()
        self.assertFalse(self.alder("Birch").exists(), "the old file is still there")
        self.assertEqual(self.alder('White, "Birch"').read_bytes(), before)
        self.assert_rows("Scratch playlist", [" Ash", " Cedar", " Damson", " Elm"])
        self.assert_current("Scratch playlist", " Cedar")

    def test_after_a_renaming_yes_scans_the_drives(self):
        p = self.start_with_scratch_playlist(scan=True)
        self.ask_for_a_name("Birch")
        screen.type_text("Dogwood - Fig")
        screen.key("Return")
        self.assert_answer(SCAN_AFTER_RENAMING, "Yes")
        self.assert_rows("Artists", ["ALDER", "BEECH", "CYPRESS", "DOGWOOD"])
        self.assertEqual(p.list("Scratch playlist").rows(), [])
        self.assert_catalogue_is_written()

    def test_after_a_renaming_yes_only_loads_the_lists_if_no_drive_is_scanned(self):
        self.start_with_scratch_playlist()
        catalogue = (self.data / "plimo.kvx").read_bytes()
        self.ask_for_a_name("Birch")
        screen.type_text("Dogwood - Fig")
        screen.key("Return")
        self.assert_answer(SCAN_AFTER_RENAMING, "Yes")
        self.assert_answer(NO_SCAN, "OK")
        self.assert_rows("Scratch playlist", [])
        self.assert_rows("Artists", ["ALDER", "BEECH", "CYPRESS"])
        self.assertEqual((self.data / "plimo.kvx").read_bytes(), catalogue)

    def test_a_cancelled_renaming_changes_nothing(self):
        p = self.start_with_scratch_playlist()
        for cancel in (lambda: screen.key("Escape"), lambda: p.press("Cancel"),
                       lambda: screen.key("BackSpace", "Return")):
            self.ask_for_a_name("Birch")
            cancel()
            p.wait_until_gone("Rename", "dialog")
            self.assert_no_message()
            self.assertEqual(self.titles_on_disk(), ALDER)
            self.assertEqual(p.list("Scratch playlist").rows(), ALDER)

    def test_a_renaming_to_the_name_of_another_song_replaces_it(self):
        self.start_with_scratch_playlist()
        self.alder("Birch").write_bytes(b"birch")
        self.ask_for_a_name("Birch")
        screen.type_text("Alder - Elm")
        screen.key("Return")
        self.assert_answer(SCAN_AFTER_RENAMING, "No")
        self.assertEqual(self.titles_on_disk(), [" Ash", " Cedar", " Damson", " Elm"])
        self.assertEqual(self.alder("Elm").read_bytes(), b"birch")

    def test_a_failed_renaming_is_reported(self):
        p = self.start_with_scratch_playlist()
        taken = self.collection / "Alder - Folder.mp3"
        taken.mkdir()
        failures = (("Alder - Folder", "70", "Permission denied", str(taken)),
                    ("Alder - Birch", "70", "Permission denied", str(self.alder("Birch"))),
                    ("Elsewhere/Birch", "52", "Bad file name or number", "Elsewhere/Birch"))
        for name, number, description, path in failures:
            self.ask_for_a_name("Birch")
            screen.type_text(name)
            screen.key("Return")
            p.wait_until_gone("Rename", "dialog")
            self.assert_answer(f"Run-time error '{number}':\n\n{description}\n{path}", "OK")
            self.assert_no_message()
            self.assertTrue(self.alder("Birch").exists(), f"the song was removed after {name!r}")
            self.assertEqual(p.list("Scratch playlist").rows(), ALDER)


class Copying(FilesTestCase):
    def test_songs_are_copied_to_the_folder_that_was_entered(self):
        (self.stick / "Autumn").mkdir()
        p = self.start_with_scratch_playlist()
        self.alder("Damson").chmod(0o640)
        os.utime(self.alder("Damson"), ns=(10**18, 10**18 + 123456789))
        p.click_row("Scratch playlist", "Birch")
        with screen.holding("ctrl"):
            p.click_row("Scratch playlist", "Damson")
        self.open_copy_panel("Autumn")
        p.press("Start Copying")
        p.wait_until_gone("Copy Files to ..", "panel")
        self.assertEqual(sorted(os.listdir(self.stick / "Autumn")), ["Alder - Birch.mp3", "Alder - Damson.mp3"])
        for title in ("Birch", "Damson"):
            song, copy = self.alder(title), self.stick / "Autumn" / f"Alder - {title}.mp3"
            self.assertEqual(copy.read_bytes(), song.read_bytes())
            self.assertEqual(copy.stat().st_mtime_ns, song.stat().st_mtime_ns)
            self.assertEqual(copy.stat().st_mode, song.stat().st_mode)
        self.assert_rows("Scratch playlist", ALDER)

    def test_a_copy_never_replaces_a_file(self):
        existing = self.stick / "Alder - Birch.mp3"
        existing.write_bytes(b"there first")
        p = self.start_with_scratch_playlist()
        p.press("Show the song commands")
        p.click_row("Scratch playlist", "Birch")
        with screen.holding("shift"):
            p.click_row("Scratch playlist", "Cedar")
        self.open_copy_panel()
        p.press("Start Copying")
        self.assert_answer("This file Alder - Birch.mp3 is already present in the destination folder!", "OK")
        p.wait_until_gone("Copy Files to ..", "panel")
        self.assertEqual(existing.read_bytes(), b"there first")
        self.assertEqual((self.stick / "Alder - Cedar.mp3").read_bytes(), self.alder("Cedar").read_bytes())

    def test_a_cancelled_copy_copies_nothing(self):
        p = self.start_with_scratch_playlist()
        p.click_row("Scratch playlist", "Birch")
        self.open_copy_panel()
        p.press("Cancel")
        p.wait_until_gone("Copy Files to ..", "panel")
        self.assert_becomes(p.list("Scratch playlist").selected, [" Birch"], "the selected rows")
        self.assertEqual(os.listdir(self.stick), [])


class SlowDisk(FilesTestCase):
    """Long commands, slow enough to be watched."""

    def begin_a_long_copy(self, megabytes):
        """Starts to copy a small and a large song. The program, the button, and the progress panel."""
        p = self.start_with_scratch_playlist(*SLOW_DISK)
        songs.enlarge(self.alder("Birch"), megabytes)
        p.click_row("Scratch playlist", "Ash")
        screen.key("shift+Down")
        self.open_copy_panel()
        button = p.find("Start Copying", "push button")
        screen.click(button.centre())
        return p, button, wait(lambda: p.progress_panel("Copying"), "the progress panel")

    def test_a_long_copy_shows_its_progress_and_the_copied_song_only_when_it_is_complete(self):
        p, button, panel = self.begin_a_long_copy(50)
        copy = self.stick / "Alder - Birch.mp3"
        self.assertEqual(button.name, "Please Wait")
        self.assertFalse(button.has("enabled"), "the button can be pressed")
        texts, pictures = [], set()
        left, top, width, height = panel.rect
        middle = (left + width // 2 - 200, top + height // 2 - 60, 400, 120)
        while len(texts) < 4:
            self.assertFalse(copy.exists(), "the copy is visible before it is complete")
            text = wait(lambda: panel.name not in texts and panel.name, "progress of the copy")
            self.assertRegex(text, r"^Copying\. File 2 of 2  ·  .* of 50\.0 MB$")
            texts.append(text)
            time.sleep(0.1)
            pictures.add(tuple(screen.pixels(middle)))
        self.assertGreaterEqual(len(pictures), 3, "the window is not painted during the copy")
        self.assertFalse(copy.exists(), "the copy is too fast to be watched")
        wait(copy.exists, "the copy")
        self.assertTrue(filecmp.cmp(copy, self.alder("Birch"), shallow=False), "the copy has another content")
        p.wait_until_gone("Copy Files to ..", "panel")
        self.assertEqual(button.name, "Start Copying")
        self.assert_becomes(p.list("Scratch playlist").selected, [" Ash", " Birch"], "the selected rows")

    def test_a_program_killed_during_a_copy_leaves_no_partial_song(self):
        p, _, _ = self.begin_a_long_copy(50)
        original = hashlib.sha256(self.alder("Birch").read_bytes()).digest()

        def copies():
            return [path.name for path in self.stick.glob("*.mp3")]

        self.assertEqual(copies(), ["Alder - Ash.mp3"])
        p.process.kill()
        p.process.wait()
        self.assertEqual(copies(), ["Alder - Ash.mp3"])
        self.assertEqual(hashlib.sha256(self.alder("Birch").read_bytes()).digest(), original)
        p.close()
        p = self.start()
        self.assert_rows("Artists", ["ALDER", "BEECH", "CYPRESS"])
        p.tick("Artists", "ALDER")
        self.assert_rows("Scratch playlist", ALDER)

    def test_a_long_deletion_shows_its_progress(self):
        numbers = [f"{number:02}" for number in range(1, 61)]
        p = self.start_with_lists(*SLOW_DISK, artists={"Alder": numbers})
        p.tick("Artists", "ALDER")
        self.assert_becomes(lambda: p.list("Scratch playlist").count(), 60, "songs")
        p.press("Show the song commands")
        p.press("Delete All")
        self.assertEqual(p.message(), DELETE_ALL)
        p.press("Yes")
        panel = wait(lambda: p.progress_panel("Deleting"), "the progress panel")
        first = panel.name
        self.assertRegex(first, r"^Deleting\. File .* of 60$")
        wait(lambda: panel.name not in ("", first), "progress of the deletion")
        self.assertNotEqual(self.titles_on_disk(), [], "the deletion is too fast to be watched")
        self.assert_answer(SCAN_AFTER_DELETING, "No")
        self.assertEqual(self.titles_on_disk(), [])
