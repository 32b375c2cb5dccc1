"""The settings file, from one start of the program to the next."""

import os
import pathlib

from desk import system_test
from desk.instruments import FINGERED_BASS, Note
from desk.settings import read_settings, settings_file, write_settings

FRESH = {"tuner.instrument": "guitar", "tuner.tuning": "g6-standard", "tuner.a4": "440",
         "tuner.left": "false"}
BASS = {**FRESH, "tuner.instrument": "bass", "tuner.tuning": "b5-standard"}

# Nothing at all; nothing of a settings file; a file cut off within a key; one group never closed.
DAMAGED = (b"", bytes(range(256)) * 16, b"[General]\ntuner.instr", b"[General\ntuner.a4=@@\x00=\n[[[")


class Settings(system_test.SystemTest):
    def test_the_first_start_leaves_four_values_that_the_second_keeps(self) -> None:
        config_home = self.desktop.folder("config")
        for _ in ("first start", "second start"):
            self.start_and_quit(config_home)
            self.assertEqual(read_settings(config_home), FRESH)

    def test_a_choice_is_still_made_after_a_second_start(self) -> None:
        config_home = self.desktop.folder("config")
        write_settings(config_home, "bass", "b5-standard")
        self.start_and_quit(config_home)
        self.assertEqual(read_settings(config_home), BASS)
        room = self.enter_room()
        tuner = self.start_tuner(config_home, room.environment)
        tuner.wait_until_listening(room)
        # Only five strings have a B this low: the guitar's lowest is an E above it.
        self.assert_reads("B0", self.hear(tuner, room, Note(FINGERED_BASS, 23)))

    def test_a_damaged_file_is_replaced_and_stops_nothing(self) -> None:
        for damage in DAMAGED:
            with self.subTest(damage[:24]):
                config_home = self.desktop.folder("config")
                settings_file(config_home).parent.mkdir()
                settings_file(config_home).write_bytes(damage)
                self.start_and_quit(config_home)
                self.assertLessEqual(FRESH.items(), read_settings(config_home).items())

    def test_a_folder_in_the_place_of_the_file_stops_nothing(self) -> None:
        config_home = self.desktop.folder("config")
        settings_file(config_home).mkdir(parents=True)
        self.start_and_quit(config_home)
        self.assertTrue(settings_file(config_home).is_dir())

    def start_and_quit(self, config_home: pathlib.Path) -> None:
        tuner = self.start_tuner(config_home, dict(os.environ))
        self.assertEqual(tuner.quit(), 0)


if __name__ == "__main__":
    system_test.main()
