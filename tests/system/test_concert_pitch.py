"""The concert pitch: its list, its quick choices and its single steps."""

from desk import system_test
from desk.controls import LEFT_HANDED, Controls
from desk.controls_test import ControlsTest
from desk.library import MODERN_PITCHES, OLDER_PITCHES, QUICK_PITCHES
from desk.pull_down import PullDown
from desk.screen import ANSWER_SECONDS
from desk.waiting import wait_until

PRESETS = OLDER_PITCHES | MODERN_PITCHES
STEPPER = "Concert pitch in hertz"


class ConcertPitch(ControlsTest):
    def test_the_list_has_the_older_pitches_and_the_modern_ones(self) -> None:
        controls = self.open_controls()
        with PullDown(controls.screen, controls.presets_face()) as opened:
            self.assertEqual(opened.sections(), ["Older pitches", "Modern"])
            self.assertEqual(opened.titles(), list(PRESETS.values()))

    def test_each_of_the_list_is_chosen(self) -> None:
        controls = self.open_controls()
        for hertz, title in PRESETS.items():
            with self.subTest(title):
                with PullDown(controls.screen, controls.presets_face()) as opened:
                    opened.choose(title, list(PRESETS.values()))
                self.assert_shows(controls, hertz, title)

    def test_each_quick_one_is_chosen(self) -> None:
        controls = self.open_controls()
        for hertz in QUICK_PITCHES:
            controls.screen.press(name=f"{hertz} Hz")
            self.assert_shows(controls, hertz, PRESETS[hertz])

    def test_the_stepper_goes_up_and_down_by_one(self) -> None:
        controls = self.open_controls()
        for name, hertz, title in (("Raise", 441, "Custom"), ("Raise", 442, PRESETS[442]),
                                   ("Lower", 441, "Custom"), ("Lower", 440, PRESETS[440]),
                                   ("Lower", 439, "Custom")):
            controls.screen.press(name=name)
            self.assert_shows(controls, hertz, title)

    def test_the_stepper_goes_by_the_keyboard_too(self) -> None:
        controls = self.open_controls()
        controls.screen.focus(STEPPER)
        controls.screen.keys("Up")
        self.assert_shows(controls, 441, "Custom")
        controls.screen.keys("Down", "Down")
        self.assert_shows(controls, 439, "Custom")

    def test_the_stepper_stays_within_its_ends(self) -> None:
        for name, key, near, end in (("Lower", "Down", 378, 377), ("Raise", "Up", 559, 560)):
            with self.subTest(end):
                controls = self.open_controls(a4=near)
                controls.screen.press(name=name)
                self.assert_shows(controls, end, PRESETS[end])
                controls.screen.press(name=name)
                controls.screen.focus(STEPPER)
                controls.screen.keys(key)
                # What is pressed later is answered later: nothing has changed meanwhile.
                controls.screen.press(name=LEFT_HANDED)
                controls.wait_until_saved(left="true")
                self.assert_shows(controls, end, PRESETS[end])
                self.assertEqual(self.tuner.quit(), 0)

    def assert_shows(self, controls: Controls, hertz: int, title: str) -> None:
        controls.wait_until_saved(a4=str(hertz))
        controls.screen.find(name=f"A4  {hertz}")
        wait_until(lambda: controls.presets_face().name == title, ANSWER_SECONDS,
                   lambda: f"{controls.presets_face().name} is shown, not {title}")
        self.assertEqual(controls.quick_pitches(),
                         [f"{hertz} Hz"] if hertz in QUICK_PITCHES else [])


if __name__ == "__main__":
    system_test.main()
