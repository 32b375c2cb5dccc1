"""The open strings of sampled instruments, from the room to the window."""

from desk import system_test
from desk.instruments import FINGERED_BASS, GRAND_PIANO, STEEL_GUITAR, Note
from desk.pipewire import PipeWireRoom
from desk.readings import cents, middle
from desk.room import Room

# The font's samples are themselves up to 7 cents away from the notes they stand for.
MOST_CENTS_OFF = 10


class OpenStrings(system_test.SystemTest):
    def test_each_open_string_of_a_guitar_is_read(self) -> None:
        self.assert_each_is_read(self.enter_room(), "guitar", "g6-standard", STEEL_GUITAR,
                                 {40: "E2", 45: "A2", 50: "D3", 55: "G3", 59: "B3", 64: "E4"})

    def test_each_open_string_of_a_five_string_bass_is_read(self) -> None:
        self.assert_each_is_read(self.enter_room(), "bass", "b5-standard", FINGERED_BASS,
                                 {23: "B0", 28: "E1", 33: "A1", 38: "D2", 43: "G2"})

    def test_the_ends_and_the_middle_of_a_piano_are_read(self) -> None:
        self.assert_each_is_read(self.enter_room(), "piano", "piano-chromatic", GRAND_PIANO,
                                 {21: "A0", 69: "A4", 108: "C8"})

    def test_a_string_is_read_on_pipewire_too(self) -> None:
        room = self.enterContext(PipeWireRoom(self.desktop))
        self.assert_each_is_read(room, "guitar", "g6-standard", STEEL_GUITAR, {45: "A2"})

    def assert_each_is_read(self, room: Room, instrument: str, tuning: str, program: int,
                            names: dict[int, str]) -> None:
        tuner = self.start_listening(room, instrument, tuning)
        for key, name in names.items():
            with self.subTest(name):
                heard = self.hear(tuner, room, Note(program, key))
                self.assert_reads(name, heard)
                self.assertLessEqual(abs(cents(middle(heard))), MOST_CENTS_OFF)


if __name__ == "__main__":
    system_test.main()
