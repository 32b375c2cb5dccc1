# SPDX-License-Identifier: MIT
"""Notes and strings from the room to the window, and when the tuner listens. tools/demo.py tests the open strings of a
guitar."""

from desk import system_test
from desk.instruments import FINGERED_BASS, GRAND_PIANO, Note
from desk.window import note, xdotool

# The samples themselves are up to 7 cents off.
MOST_CENTS_OFF = 10
A2, D3, BASS_E1 = 45, 50, 28


class SampledNotes(system_test.SystemTest):
    def test_open_strings_of_a_five_string_bass(self) -> None:
        self.assert_each_is_read("bass", "b5-standard", FINGERED_BASS,
                                 {23: "B0", 28: "E1", 33: "A1", 38: "D2", 43: "G2"})

    def test_lowest_middle_and_highest_piano_key(self) -> None:
        self.assert_each_is_read("piano", "piano-chromatic", GRAND_PIANO,
                                 {21: "A0", 69: "A4", 108: "C8"})

    def assert_each_is_read(self, instrument: str, tuning: str, program: int,
                            names: dict[int, str]) -> None:
        room = self.enter_room()
        tuner = self.open(room, instrument, tuning)
        for key, name in names.items():
            with self.subTest(name):
                self.hear(tuner, room, self.band.wav(Note(program, key)), name,
                          most_off=MOST_CENTS_OFF)


class DetunedStrings(system_test.SystemTest):
    def test_detuned_string_shows_its_deviation(self) -> None:
        room = self.enter_room()
        tuner = self.open(room)
        for key, name, off, status in ((A2, "A2", -20, "Flat"), (D3, "D3", 15, "Sharp"),
                                       (D3, "D3", 3, "In tune")):
            self.hear(tuner, room, self.plucked(key, off), name, status, off)

    def test_bass_string_8_cents_down_is_8_cents_flat(self) -> None:
        room = self.enter_room()
        tuner = self.open(room, "bass", "b4-standard")
        self.hear(tuner, room, self.plucked(BASS_E1, -8), "E1", "Flat", -8)

    def test_locked_string_is_the_target_of_another(self) -> None:
        room = self.enter_room()
        tuner = self.open(room)
        tuner.window.press(name="D3")
        self.controls.wait_until_locked("D3")
        with room.sounding(self.plucked(A2)):
            tuner.window.wait_for(lambda shown: (shown.get("Status"), note(shown)) == ("Flat", "D3"))
            tuner.window.find(name="D3", description="locked, being heard")
            tuner.window.press(name="Auto")
            tuner.window.find(name="A2", description="being heard")


class Listening(system_test.SystemTest):
    def setUp(self) -> None:
        self.room = self.enter_room()
        self.tuner = self.open(self.room)

    def test_last_note_stays_in_silence(self) -> None:
        self.hear_guitar()
        silent = {"Status": "Play a note", "Note": "A", "Octave": "2", "Cents": "0.0 ¢",
                  "Frequency": "— Hz"}
        self.tuner.window.wait_for(
            lambda shown: silent.items() <= shown.items() and "Heard note" not in shown)

    def test_stops_while_the_window_is_minimised(self) -> None:
        self.tuner.window.minimise()
        self.tuner.wait_until_listening(self.room, False)
        self.tuner.window.activate()
        self.tuner.wait_until_listening(self.room)
        self.hear_guitar()

    def test_stops_while_the_window_is_on_another_workspace(self) -> None:
        for desktop, listening in (("1", False), ("0", True)):
            xdotool("set_desktop", desktop)
            self.tuner.wait_until_listening(self.room, listening)
        self.hear_guitar()

    def test_continues_while_the_window_is_covered(self) -> None:
        self.open_other_window()
        self.hear_guitar()

    def hear_guitar(self) -> None:
        self.hear(self.tuner, self.room, self.plucked(A2), "A2", "In tune")


if __name__ == "__main__":
    system_test.main()
