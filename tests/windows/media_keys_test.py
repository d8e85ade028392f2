"""The media keys of a keyboard, and the commands of other devices, while the window plays."""
from tests.support.desktop import screen
from tests.support.desktop.waiting import wait
from tests.support.windows import places, program
from tests.support.windows.program import DEADLINE
from tests.support.windows.test_case import PROGRAM, WindowsTestCase

# APPCOMMAND_MEDIA_... in winuser.h
COMMANDS = {"Next": 11, "Prev": 12, "Stop": 13, "Play": 14}
# Each of another length, by which it is recognised.
SECONDS = {"Ash": 95, "Birch": 105, "Cedar": 115, "Damson": 125, "Elm": 135}


class MediaKeys(WindowsTestCase):
    def start_playing(self):
        p = self.start_with_final_playlist(seconds=lambda title: SECONDS.get(title, 0) + 0.5)
        p.click_row("final", 1, lambda: self.is_playing("Birch"), times=2)
        wait(lambda: self.elapsed() >= 1, "the time to advance", DEADLINE)

    def press(self, name):
        """A key of the keyboard. Windows sends a command after it, which must not count a second time."""
        screen.key(f"XF86Audio{name}")

    def send(self, name):
        """The command of another device."""
        done = program.wine(PROGRAM.parent / "plimo-test-app-command.exe", COMMANDS[name])
        self.assertEqual(done.returncode, 0, done.stderr)

    def is_playing(self, song):
        minutes, seconds = divmod(SECONDS[song], 60)
        return f"current song {minutes} : {seconds}" in self.program.title()

    def play_button(self):
        return screen.pixels(places.scaled_area(places.PLAY_BUTTON))

    def check_next_and_previous(self, do):
        self.start_playing()
        do("Next")
        wait(lambda: self.is_playing("Cedar"), "the next song", DEADLINE)
        do("Prev")
        wait(lambda: self.is_playing("Birch"), "the previous song", DEADLINE)

    def check_pause_and_stop(self, do):
        self.start_playing()
        playing = self.play_button()
        do("Play")
        wait(lambda: self.play_button() != playing, "the pause", DEADLINE)
        do("Play")
        wait(lambda: self.play_button() == playing, "the song to go on", DEADLINE)
        before = self.elapsed()
        wait(lambda: self.elapsed() > before, "the time to advance", DEADLINE)
        do("Stop")
        wait(lambda: self.play_button() != playing, "the end of the song", DEADLINE)
        self.take_picture("stopped")

    def test_keys_go_to_the_next_and_the_previous_song(self):
        self.check_next_and_previous(self.press)

    def test_keys_pause_and_stop(self):
        self.check_pause_and_stop(self.press)

    def test_commands_go_to_the_next_and_the_previous_song(self):
        self.check_next_and_previous(self.send)

    def test_commands_pause_and_stop(self):
        self.check_pause_and_stop(self.send)


if __name__ == "__main__":
    import unittest
    unittest.main()
