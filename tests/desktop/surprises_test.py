"""The window under unusual conditions: small, with a large font, with long texts, over panels."""
import subprocess

from tests.support.desktop import screen, songs
from tests.support.desktop.settings_file import settings
from tests.support.desktop.test_case import ALDER, PROGRAM, WindowTestCase
from tests.support.desktop.waiting import wait


class CommandLine(WindowTestCase):
    def refuse(self, *words):
        done = subprocess.run([PROGRAM, *words], capture_output=True, text=True, check=False, timeout=20)
        self.assertEqual(done.returncode, 2)
        return done.stderr.splitlines()[0]

    def test_a_drive_without_its_folder_is_refused(self):
        self.assertEqual(self.refuse("--drive", f"C={self.home}/none"),
                         f"plimo: There is no folder '{self.home}/none' for the drive C.")

    def test_a_mistyped_kind_is_refused(self):
        self.assertEqual(self.refuse("--drive", f"C={self.home}:remvable"),
                         "plimo: 'remvable' is no kind of drive: fixed, cdrom, removable, network or ramdisk.")

    def test_a_missing_value_is_named(self):
        for words in (["--folder", ""], ["--folder="], ["--folder", "--drive", "C=/"]):
            self.assertEqual(self.refuse(*words), "plimo: The value of '--folder' is missing.")


class Lists(WindowTestCase):
    def start_with_songs(self):
        p = self.start_with_lists()
        p.tick("Artists", "ALDER")
        self.assert_rows("Scratch playlist", ALDER)
        return p

    def test_control_a_selects_all_and_control_space_toggles(self):
        p = self.start_with_songs()
        p.click_row("Scratch playlist", "Birch")
        screen.key("ctrl+a")
        self.assert_becomes(p.list("Scratch playlist").selected, ALDER, "selected")
        screen.key("ctrl+space")
        self.assert_becomes(p.list("Scratch playlist").selected, [" Ash", " Cedar", " Damson", " Elm"], "selected")

    def test_drives_are_selected_by_keyboard(self):
        p = self.start_with_lists()
        p.choose("Function", "Scan other drives for Mp3s")
        self.assert_focused("Drives to scan")
        screen.key("Home", "space", "Down", "ctrl+space")
        self.assert_becomes(p.list("Drives to scan").selected, ["C: Hard Drive", "D: REMOVABLE"], "selected")

    def test_the_focus_returns_from_the_compact_view(self):
        p = self.start_with_songs()
        p.click_row("Scratch playlist", "Birch")
        p.choose("View", "Compact")
        p.wait_until_gone("Artists", "list")
        screen.key("Tab", "Tab")
        p.choose("View", "Large")
        self.assert_focused("Scratch playlist")

    def test_long_titles_are_shown_in_short(self):
        row = b'"' + b"x" * 3_000_000 + b'"'
        (self.data / "plimo.ini").write_bytes(settings())
        (self.data / "plimo.kvx").write_bytes(b'"/x/A - B.mp3"\r\n' + row + b'\r\n"Don\'t know!"\r\n' + row + b"\r\n")
        p = self.start()
        rows = wait(lambda: p.visible("Artists", "list") and p.list("Artists").rows(), "the artists")
        self.assertEqual([len(name) for name in rows], [500])


    def test_a_playlist_of_one_huge_line_is_skipped(self):
        self.add_songs()
        compact = settings().split(b"\r\n")
        compact[5] = b"1"
        (self.data / "plimo.ini").write_bytes(b"\r\n".join(compact))
        (self.data / "plimo.kvx").write_bytes(songs.expected_catalogue(self.collection))
        with open(self.data / "default.m3u", "wb") as playlist:
            playlist.truncate(200_000_000)
        p = self.start()
        wait(lambda: [note for note in p.elements(role="notification") if "Skipped" in note.name], "the note", 30)

    def test_a_huge_path_of_winamp_does_not_hold_the_window(self):
        self.add_songs()
        (self.data / "plimo.ini").write_bytes(b"1" + settings()[1:])
        (self.data / "path.kvx").write_bytes(b'"' + b"/x" * 500_000 + b'"\r\n')
        (self.data / "plimo.kvx").write_bytes(songs.expected_catalogue(self.collection))
        p = self.start()
        wait(lambda: p.visible("Artists", "list"), "the artists")
        p.choose("Settings", "Preferences")
        p.find("Settings", "panel")


class Panels(WindowTestCase):
    def test_the_player_does_not_show_behind_a_panel(self):
        p = self.start_with_final_playlist()
        p.press("Play all songs on the final playlist")
        p.find("Volume", "slider")
        p.choose("Help", "What's Plimo! all about")
        p.wait_until_gone("Volume", "slider")
        p.press("Ok!")
        p.find("Volume", "slider")

    def test_a_button_lights_up_again_after_an_answer(self):
        p = self.start_with_final_playlist()
        p.press("Show the song commands")
        button = p.find("Delete All", "push button")
        left, top, width, _ = button.rect
        colour = lambda: screen.main_colour((left + 6, top + 4, width - 12, 3))
        screen.click(button.centre())
        p.message()
        screen.key("Escape")
        self.assert_becomes(colour, (0, 128, 0), "the resting colour")
        x, y = button.centre()
        screen.move((x + 3, y))
        self.assert_becomes(colour, (192, 255, 192), "the colour under the pointer")

    def test_the_window_does_not_become_too_small(self):
        p = self.start_with_lists()
        screen.key("super+Down")
        window = p.find("Plimo!", "frame")
        p.choose("View", "Compact")
        p.wait_until_gone("Artists", "list")
        p.choose("View", "Large")
        p.list("Artists")
        number = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Plimo"], capture_output=True,
                                text=True, check=True).stdout.split()[0]
        hints = subprocess.run(["xprop", "-id", number, "WM_NORMAL_HINTS"], capture_output=True, text=True,
                               check=True).stdout
        self.assertIn("minimum size: 640 by 480", hints)
        self.assertTrue(window.has("showing"))


class Fonts(WindowTestCase):
    def row_height(self):
        return self.program.list("Artists").row("ALDER").rect[3]

    def test_rows_shrink_with_the_window(self):
        p = self.start_with_lists()
        before = self.row_height()
        left, _, width, _ = p.find("Plimo!", "frame").rect
        screen.click((left + width // 2, 8), times=2)
        number = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Plimo"], capture_output=True,
                                text=True, check=True).stdout.split()[0]
        subprocess.run(["xdotool", "windowsize", number, "700", "520"], check=True)
        wait(lambda: self.row_height() <= before * 3 // 4, "smaller rows")

    def test_a_large_font_of_the_desktop_leaves_the_rows_and_captions_room(self):
        (self.home / "kdeglobals").write_text("[General]\nfont=DejaVu Sans,18,-1,5,50,0,0,0,0,0\n")
        desktop = ["env", f"XDG_CONFIG_HOME={self.home}", "QT_QPA_PLATFORMTHEME=kde", "XDG_CURRENT_DESKTOP=KDE",
                   "KDE_FULL_SESSION=true", "KDE_SESSION_VERSION=5"]
        self.start_with_lists(*desktop)
        self.assertLessEqual(self.row_height(), 32)


class Boxes(WindowTestCase):
    def test_a_long_path_is_broken_into_lines(self):
        deep = self.data
        for _ in range(3):
            deep = deep / ("folder" * 30)
        deep.mkdir(parents=True)
        self.data = deep
        (deep / "plimo.ini").write_bytes(b"0\r\n")
        p = self.start()
        text = p.message()
        self.assertIn("plimo.ini", text)
        left, top, width, height = p.find(text, "label").rect
        edge = screen.pixels((left + width - 2, top, 2, height))
        self.assertEqual(len(set(edge)), 1, "a line is cut at the right edge")
        box = p.find("Plimo!", "alert") if p.visible("Plimo!", "alert") else p.find("Plimo!", "dialog")
        left, _, width, _ = box.rect
        self.assertGreaterEqual(left, 0)
        self.assertLessEqual(width, 900)

    def test_a_name_with_a_star_is_refused_with_a_word(self):
        p = self.start_with_final_playlist()
        p.choose("Function", "Save")
        p.answer("No")
        p.find("File name:", "text")
        screen.type_text("a*b")
        screen.key("Return")
        p.find("Please type a name without a * in it.", "label")
        screen.key("Return")
        p.find("File name:", "text")
        screen.key("Escape")


class Drives(WindowTestCase):
    def test_a_drive_behind_one_that_is_not_ready_is_reached_by_keys(self):
        usb = self.home / "usb"
        usb.mkdir()
        self.add_songs()
        p = self.start_with_lists_on(f"C={self.collection}", f"D={self.stick}:removable", f"E={usb}:removable")
        self.stick.rmdir()
        self.addCleanup(self.stick.mkdir)
        p.click_row("Scratch playlist", "Ash")
        screen.key("v")
        screen.click(p.context_menu()["Copy Selected files to .."].centre())
        p.find("Copy Files to ..", "panel")
        combo = p.find(None, "combo box")
        self.assertNotIn("C:", combo.name.replace("Drive to copy to", ""))
        screen.key("Down", "End", "Return")
        p.find(f"Copies go to {usb}")

    def start_with_lists_on(self, *drives):
        (self.data / "plimo.ini").write_bytes(settings())
        (self.data / "plimo.kvx").write_bytes(songs.expected_catalogue(self.collection))
        p = self.start(drives=drives)
        wait(lambda: p.visible("Artists", "list") and p.list("Artists").count(), "the artists")
        p.tick("Artists", "ALDER")
        self.assert_rows("Scratch playlist", ALDER)
        return p
