"""Strings that are out of tune by a known amount, and what the window says of them."""

from desk import system_test
from desk.instruments import FINGERED_BASS, STEEL_GUITAR, Note
from desk.readings import cents, middle

# Both of the two compared texts are rounded to a tenth, and a sample's pitch wavers by up to a cent
# from block to block, so that the middle of two playings differs.
MOST_CENTS_OFF = 2

GUITAR_A = Note(STEEL_GUITAR, 45)
GUITAR_D = Note(STEEL_GUITAR, 50)
BASS_E = Note(FINGERED_BASS, 28)


class DetunedStrings(system_test.SystemTest):
    def test_a_string_twenty_cents_down_is_flat_by_twenty(self) -> None:
        self.assert_shows("guitar", "g6-standard", GUITAR_A, -20, "A2", "Flat")

    def test_a_string_fifteen_cents_up_is_sharp_by_fifteen(self) -> None:
        self.assert_shows("guitar", "g6-standard", GUITAR_D, 15, "D3", "Sharp")

    def test_a_bass_string_eight_cents_down_is_flat_by_eight(self) -> None:
        self.assert_shows("bass", "b4-standard", BASS_E, -8, "E1", "Flat")

    def assert_shows(self, instrument: str, tuning: str, string: Note, detune: float, name: str,
                     status: str) -> None:
        room = self.enter_room()
        tuner = self.start_listening(room, instrument, tuning)
        samples_own = cents(middle(self.hear(tuner, room, string)))
        heard = self.hear(tuner, room, string.detuned(detune))
        self.assert_reads(name, heard)
        self.assertAlmostEqual(cents(middle(heard)), samples_own + detune, delta=MOST_CENTS_OFF)
        self.assertEqual(middle(heard)["Status"], status)


if __name__ == "__main__":
    system_test.main()
