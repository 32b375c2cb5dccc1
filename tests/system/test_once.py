# SPDX-License-Identifier: MIT
"""One run of the program: a string and the reference tone."""

from desk import system_test
from desk.controls import PLAY

GUITAR_A = 45
D3_HERTZ = 146.8


class Once(system_test.SystemTest):
    def test_names_a_string_plays_a_tone_and_quits(self) -> None:
        room = self.enter_room()
        tuner = self.open(room)
        shown = self.hear(tuner, room, self.plucked(GUITAR_A), "A2", "In tune")
        self.assertEqual((shown["Note"], shown["Octave"]), ("A", "2"))
        tuner.window.press(name="D3")
        self.controls.wait_until_locked("D3")
        with room.recording() as recording:
            tuner.window.press(name=PLAY)
            self.assertTrue(recording.wait_for_tone(D3_HERTZ))
        self.assertEqual(tuner.quit(), 0)


if __name__ == "__main__":
    system_test.main()
