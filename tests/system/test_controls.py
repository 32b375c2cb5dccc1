# SPDX-License-Identifier: MIT
"""Every kind of choice, made with the mouse, and the settings file."""

import os

import pyatspi

from desk import system_test
from desk.controls import LEFT_HANDED
from desk.settings import read_settings, settings_file
from desk.tuner import Tuner

STANDARD = "E2 A2 D3 G3 B3 E4"
BASSES = ["4-string", "4-string standard", "4-string drop D", "4-string drop C",
          "4-string half step down", "4-string whole step down", "Tenor", "5-string",
          "5-string standard", "5-string drop A", "6-string", "6-string standard"]
PITCHES = ["Older pitches", "377  Low historical", "392  French Baroque", "415  Baroque",
           "422  Handel, Mozart era", "430  Classical", "432", "435  French 1859", "Modern",
           "440  Modern", "442  Orchestra", "466  High choir", "560  High historical"]
FRESH = {"tuner.instrument": "guitar", "tuner.tuning": "g6-standard", "tuner.a4": "440",
         "tuner.left": "false"}


class Choices(system_test.SystemTest):
    def test_choosing_an_instrument_selects_its_first_tuning(self) -> None:
        window = self.open(tuning="g6-dropd").window
        for name, caption, tuning, identifier, strings in (
                ("Bass", "Tuning", "4-string standard", "b4-standard", "E1 A1 D2 G2"),
                ("Guitar", "Tuning", "Standard", "g6-standard", STANDARD),
                ("Piano", "Mode", "Chromatic", "piano-chromatic", "")):
            window.press(name=name)
            window.find(name=name, checked=True)
            window.find(name=caption, role=pyatspi.ROLE_LABEL)
            self.controls.wait_for_tuning(tuning, strings, tuning=identifier,
                                          instrument=name.lower())

    def test_choosing_a_tuning_from_the_list_releases_the_lock(self) -> None:
        window = self.open(instrument="bass", tuning="b4-dropc").window
        window.press(name="G1")
        self.controls.wait_until_locked("G1")
        opened = window.open_list(self.controls.tuning_face(), BASSES)
        self.assertEqual([item.name for item in opened if item.checked], ["4-string drop C"])
        window.choose(opened, "5-string standard")
        self.controls.wait_for_tuning("5-string standard", "B0 E1 A1 D2 G2", tuning="b5-standard")
        self.controls.wait_until_locked("Auto")

    def test_pressing_chips_moves_and_releases_the_lock(self) -> None:
        window = self.open().window
        for name, locked in (("A2", "A2"), ("E4", "E4"), ("E4", "Auto"), ("D3", "D3"),
                             ("Auto", "Auto")):
            window.press(name=name)
            self.controls.wait_until_locked(locked)

    def test_left_handed_row_is_reversed_and_chips_lock_their_own_string(self) -> None:
        window = self.open().window
        window.press(name=LEFT_HANDED)
        window.find(name=LEFT_HANDED, checked=True)
        self.controls.wait_for_tuning("Standard", "E4 B3 G3 D3 A2 E2", left="true")
        window.press(name="A2")
        self.controls.wait_until_locked("A2")
        window.press(name=LEFT_HANDED)
        self.controls.wait_for_tuning("Standard", STANDARD, left="false")
        self.controls.wait_until_locked("A2")

    def test_concert_pitch_from_list_quick_pitches_and_stepper(self) -> None:
        window = self.open().window
        opened = window.open_list(window.find(description="Concert pitch presets"), PITCHES)
        window.choose(opened, "435  French 1859")
        self.controls.wait_for_pitch(435, "435  French 1859")
        for name, hertz, title in (("432 Hz", 432, "432"), ("440 Hz", 440, "440  Modern"),
                                   ("Raise", 441, "Custom"), ("Raise", 442, "442  Orchestra"),
                                   ("Lower", 441, "Custom")):
            window.press(name=name)
            self.controls.wait_for_pitch(hertz, title)

    def test_a_screen_reader_presses_every_kind_of_control(self) -> None:
        window = self.open().window
        for name in ("Bass", LEFT_HANDED, "415 Hz", "E1"):
            self.assertTrue(window.find(name=name).invoke("Press"), name)
            window.find(name=name, checked=True)
        self.assertTrue(self.controls.tuning_face().invoke("Press"))
        window.find(role=pyatspi.ROLE_POPUP_MENU)
        self.assertTrue(window.find(name="4-string drop D").invoke("Press"))
        self.controls.wait_until_saved(tuning="b4-dropd", a4="415", left="true")


class Settings(system_test.SystemTest):
    def test_restart_restores_all_four(self) -> None:
        tuner = self.open(instrument="bass", tuning="b5-dropa", a4=414)
        tuner.window.press(name=LEFT_HANDED)
        tuner.window.press(name="Raise")
        self.controls.wait_until_saved(left="true", a4="415")
        self.assertEqual(tuner.quit(), 0)
        tuner = self.open_again()
        tuner.window.find(name="Bass", checked=True)
        tuner.window.find(name=LEFT_HANDED, checked=True)
        self.controls.wait_for_tuning("5-string drop A", "G2 D2 A1 E1 A0", tuning="b5-dropa")
        self.controls.wait_for_pitch(415, "415  Baroque")

    def test_first_start_saves_four_values_over_a_damaged_file(self) -> None:
        for damage in (b"", bytes(range(256)) * 16):
            self.config_home = self.desktop.folder("config")
            settings_file(self.config_home).parent.mkdir()
            settings_file(self.config_home).write_bytes(damage)
            self.assertEqual(self.open_again().quit(), 0)
            self.assertLessEqual(FRESH.items(), read_settings(self.config_home).items())

    def test_starts_with_a_directory_in_place_of_the_file(self) -> None:
        self.config_home = self.desktop.folder("config")
        settings_file(self.config_home).mkdir(parents=True)
        self.assertEqual(self.open_again().quit(), 0)
        self.assertTrue(settings_file(self.config_home).is_dir())

    def test_file_stays_whole_when_two_programs_save(self) -> None:
        first, second = self.open(), self.open_again()
        for left, hertz in (("true", "415"), ("false", "432")):
            self.press(first, LEFT_HANDED, left=left)
            self.press(second, f"{hertz} Hz", a4=hertz)
            self.assertEqual(set(read_settings(self.config_home)), set(FRESH))
            self.assertEqual(os.listdir(settings_file(self.config_home).parent),
                             [settings_file(self.config_home).name])
        self.assertEqual([first.quit(), second.quit()], [0, 0])

    def press(self, tuner: Tuner, name: str, **saved: str) -> None:
        tuner.window.activate()
        tuner.window.press(name=name)
        self.controls.wait_until_saved(**saved)


if __name__ == "__main__":
    system_test.main()
