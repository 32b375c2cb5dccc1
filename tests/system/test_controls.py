"""Every choice on the screen but the concert pitch, made with the mouse and the keyboard."""

import pyatspi

from desk import system_test
from desk.controls import LEFT_HANDED, Controls
from desk.controls_test import ControlsTest
from desk.library import BASS, GUITAR, PIANO, Tuning
from desk.pull_down import PullDown
from desk.screen import ANSWER_SECONDS
from desk.sizes import SMALLEST
from desk.waiting import wait_until

FIRST = {"guitar": GUITAR[0], "bass": BASS[0], "piano": PIANO[0]}
SECTIONS = {"guitar": ["6-string", "Open and alternate", "Baritone", "7-string", "8-string",
                       "12-string"],
            "bass": ["4-string", "5-string", "6-string"]}


class TuningTest(ControlsTest):
    def assert_shows(self, controls: Controls, tuning: Tuning) -> None:
        controls.wait_until_saved(tuning=tuning.id)
        wait_until(lambda: controls.tuning_face().name == tuning.name, ANSWER_SECONDS,
                   lambda: f"{controls.tuning_face().name} is shown, not {tuning.name}")
        self.assertEqual(controls.strings(), tuning.chips)


class Instruments(TuningTest):
    def test_each_is_chosen_with_its_first_tuning(self) -> None:
        controls = self.open_controls("guitar", "g6-dropd")
        for instrument in ("bass", "piano", "guitar"):
            with self.subTest(instrument):
                controls.screen.press(name=instrument.title())
                controls.screen.find(name=instrument.title(), checked=True)
                self.assert_shows(controls, FIRST[instrument])
                controls.wait_until_saved(instrument=instrument)

    def test_the_arrow_keys_go_from_one_to_the_next(self) -> None:
        controls = self.open_controls()
        controls.screen.focus("Guitar")
        controls.screen.keys("End", "Left")
        controls.screen.wait_until_focused("Bass")
        controls.screen.keys("Return")
        self.assert_shows(controls, FIRST["bass"])

    def test_the_piano_has_a_mode_and_no_strings(self) -> None:
        controls = self.open_controls()
        controls.screen.find(name="Tuning")
        controls.screen.press(name="Piano")
        controls.screen.find(name="Mode")
        controls.screen.find(name="Piano chromatic")
        self.assertNotIn("Tuning", controls.screen.names(pyatspi.ROLE_LABEL))
        self.assertEqual(controls.chips(), [])


class Tunings(TuningTest):
    def test_every_tuning_of_the_guitar_is_chosen_from_the_list(self) -> None:
        self.assert_each_is_chosen(self.open_controls(), GUITAR)

    def test_every_tuning_of_the_bass_is_chosen_from_the_list(self) -> None:
        self.assert_each_is_chosen(self.open_controls("bass", "b4-standard"), BASS)

    def test_the_one_mode_of_the_piano_is_chosen_from_the_list(self) -> None:
        self.assert_each_is_chosen(self.open_controls("piano", "piano-chromatic"), PIANO)

    def test_every_tuning_is_chosen_in_the_smallest_window_too(self) -> None:
        for instrument, tunings in (("guitar", GUITAR), ("bass", BASS)):
            controls = self.open_controls(instrument, tunings[0].id)
            controls.screen.resize(*SMALLEST)
            wait_until(lambda: controls.screen.frame().width == SMALLEST[0], ANSWER_SECONDS,
                       lambda: f"the window is {controls.screen.frame()}")
            self.assert_each_is_chosen(controls, tunings)

    def test_the_list_is_in_sections_and_marks_the_current_tuning(self) -> None:
        for instrument, tunings in (("guitar", GUITAR), ("bass", BASS)):
            controls = self.open_controls(instrument, tunings[2].id)
            with PullDown(controls.screen, controls.tuning_face()) as opened:
                self.assertEqual(opened.sections(), SECTIONS[instrument])
                self.assertEqual(opened.titles(), [tuning.name for tuning in tunings])
                self.assertEqual(opened.chosen(), [tunings[2].name])
            self.assert_shows(controls, tunings[2])
            self.assertEqual(self.tuner.quit(), 0)

    def test_the_sections_are_those_of_the_instrument_also_after_it_was_switched(self) -> None:
        controls = self.open_controls()
        for instrument in ("guitar", "bass", "guitar"):
            controls.screen.press(name=instrument.title())
            self.assert_shows(controls, FIRST[instrument])
            with PullDown(controls.screen, controls.tuning_face()) as opened:
                self.assertEqual(opened.sections(), SECTIONS[instrument])

    def test_one_is_chosen_with_the_keyboard_alone(self) -> None:
        controls = self.open_controls()
        controls.screen.rest_mouse()
        controls.screen.focus("Standard")
        controls.screen.keys("space")
        controls.screen.find(role=pyatspi.ROLE_POPUP_MENU)
        controls.screen.keys("Down", "Down", "Return")
        self.assert_shows(controls, GUITAR[2])

    def test_the_keyboard_comes_back_to_the_control_that_opened_the_list(self) -> None:
        controls = self.open_controls()
        screen = controls.screen
        screen.rest_mouse()
        screen.focus("Standard")
        for close in ("Escape", "Return"):
            screen.keys("space")
            screen.find(role=pyatspi.ROLE_POPUP_MENU)
            screen.keys(close)
            screen.wait_until_focused("Standard")
        screen.keys("Return")
        screen.find(role=pyatspi.ROLE_POPUP_MENU)
        screen.keys("Down", "Return")
        self.assert_shows(controls, GUITAR[1])
        screen.wait_until_focused(GUITAR[1].name)
        screen.keys("Tab")
        screen.wait_until_focused("Auto")

    def assert_each_is_chosen(self, controls: Controls, tunings: list[Tuning]) -> None:
        for tuning in tunings:
            with self.subTest(tuning.name):
                self.choose(controls, tuning, tunings)
                self.assert_shows(controls, tuning)

    def choose(self, controls: Controls, tuning: Tuning, tunings: list[Tuning]) -> None:
        with PullDown(controls.screen, controls.tuning_face()) as opened:
            opened.choose(tuning.name, [each.name for each in tunings])


class Strings(ControlsTest):
    def test_the_lock_moves_with_each_press_and_goes_with_the_second(self) -> None:
        controls = self.open_controls("guitar", "g8-standard")
        controls.wait_until_locked("Auto")
        for name in controls.strings():
            controls.screen.press(name=name)
            controls.wait_until_locked(name)
        controls.screen.press(name=name)
        controls.wait_until_locked("Auto")

    def test_auto_releases_the_lock(self) -> None:
        controls = self.open_controls("bass", "b5-standard")
        for name in controls.strings():
            controls.screen.press(name=name)
            controls.wait_until_locked(name)
            controls.screen.press(name="Auto")
            controls.wait_until_locked("Auto")

    def test_choosing_a_tuning_releases_the_lock(self) -> None:
        controls = self.open_controls()
        for tuning in (GUITAR[3], GUITAR[3]):  # Another one, and the same once more.
            controls.screen.press(name="A2")
            controls.wait_until_locked("A2")
            with PullDown(controls.screen, controls.tuning_face()) as opened:
                opened.choose(tuning.name, [each.name for each in GUITAR])
            controls.wait_until_locked("Auto")

    def test_left_handed_the_row_is_reversed_and_a_chip_still_locks_its_own_string(self) -> None:
        controls = self.open_controls()
        controls.screen.press(name=LEFT_HANDED)
        controls.screen.find(name=LEFT_HANDED, checked=True)
        controls.wait_until_saved(left="true")
        self.assertEqual(controls.strings(), GUITAR[0].chips[::-1])
        controls.screen.press(name="A2")
        controls.wait_until_locked("A2")
        controls.screen.press(name=LEFT_HANDED)
        controls.wait_until_saved(left="false")
        self.assertEqual(controls.strings(), GUITAR[0].chips)
        controls.wait_until_locked("A2")


class WithoutMouseAndKeys(ControlsTest):
    def test_a_screen_reader_presses_every_kind_of_control(self) -> None:
        controls = self.open_controls()
        screen = controls.screen
        for name in ("Bass", LEFT_HANDED, "415 Hz", "E1"):
            self.assertTrue(screen.find(name=name).invoke("Press"), name)
            screen.find(name=name, checked=True)
        self.assertTrue(controls.tuning_face().invoke("Press"))
        screen.find(role=pyatspi.ROLE_POPUP_MENU)
        self.assertTrue(screen.find(name="4-string drop D").invoke("Press"))
        controls.wait_until_saved(tuning="b4-dropd", a4="415", left="true")


class FromOneStartToTheNext(ControlsTest):
    def test_all_four_preferences_are_on_the_screen_again(self) -> None:
        controls = self.open_controls()
        controls.screen.press(name="Bass")
        with PullDown(controls.screen, controls.tuning_face()) as opened:
            opened.choose("5-string drop A", [tuning.name for tuning in BASS])
        controls.screen.press(name=LEFT_HANDED)
        controls.screen.press(name="415 Hz")
        controls.wait_until_saved(instrument="bass", tuning="b5-dropa", a4="415", left="true")
        self.assertEqual(self.tuner.quit(), 0)
        self.assert_shows_them(self.start_again())

    def assert_shows_them(self, controls: Controls) -> None:
        controls.screen.find(name="Bass", checked=True)
        controls.screen.find(name=LEFT_HANDED, checked=True)
        controls.screen.find(name="A4  415")
        self.assertEqual(controls.tuning_face().name, "5-string drop A")
        self.assertEqual(controls.presets_face().name, "415  Baroque")
        self.assertEqual(controls.quick_pitches(), ["415 Hz"])
        self.assertEqual(controls.strings(), ["G2", "D2", "A1", "E1", "A0"])


if __name__ == "__main__":
    system_test.main()
