"""The whole screen without a mouse: every control is reached, and every state that the mouse can
reach."""

import os

import pyatspi

from desk import system_test
from desk.browser import Browser, privacy_page
from desk.controls import LEFT_HANDED, Controls
from desk.controls_test import ControlsTest
from desk.library import BASS, GUITAR, MODERN_PITCHES, OLDER_PITCHES, PIANO, QUICK_PITCHES, Tuning
from desk.screen import Item, Screen
from desk.screen_reader import ScreenReader

STEPPER = "Concert pitch in hertz"
POLICY = "Privacy Policy"
PLAY = "Play reference"
ALLOW = "Allow Microphone"
BACK = "shift+Tab"
NO_MICROPHONE = "No microphone is available."
# As they are read: in rows from the top, and from the left in each.
ORDER = ["Help", "Guitar", "Bass", "Piano", LEFT_HANDED, "Standard", "Auto", *GUITAR[0].chips,
         "440  Modern", STEPPER, *(f"{hertz} Hz" for hertz in QUICK_PITCHES), PLAY, ALLOW, POLICY]
PITCHES = OLDER_PITCHES | MODERN_PITCHES


class KeyboardTest(ControlsTest):
    def open_without_mouse(self, *tuning: str) -> Controls:
        controls = self.open_controls(*tuning)
        controls.screen.rest_mouse()
        return controls

    def walk(self, controls: Controls, face: str, titles: list[str]) -> None:
        """Down the list of `face` by these entries, one by one, of which the last is chosen."""
        self.open_list(controls, face)
        for title in titles:
            controls.screen.keys("Down")
            controls.screen.wait_until_focused(title)
        controls.screen.keys("Return")

    def open_list(self, controls: Controls, face: str) -> None:
        """By the key for it, from wherever the keyboard is."""
        if controls.screen.focused() != face:
            controls.screen.focus(face)
        controls.screen.keys("space")
        controls.screen.find(role=pyatspi.ROLE_POPUP_MENU)


class TheRound(KeyboardTest):
    def test_tab_goes_in_reading_order_and_around_and_shift_tab_back(self) -> None:
        screen = self.open_without_mouse().screen
        screen.find(name=ALLOW)
        for name in [*ORDER, ORDER[0]]:
            screen.keys("Tab")
            screen.wait_until_focused(name)
        for name in [*reversed(ORDER), ORDER[-1]]:
            screen.keys("shift+Tab")
            screen.wait_until_focused(name)

    def test_a_screen_reader_reads_in_the_order_of_the_eyes(self) -> None:
        for tuning in (("guitar", "g8-standard"), ("piano", "piano-chromatic")):
            screen = self.open_without_mouse(*tuning).screen
            items = [item for item in screen.items() if item.role != pyatspi.ROLE_FRAME]
            self.assertGreater(len(items), 20)
            for before, after in zip(items, items[1:]):
                self.assertTrue(is_read_before(before, after), f"{before.name}, {after.name}")


def is_read_before(one: Item, other: Item) -> bool:
    """By the eyes of one who reads from left to right: in the same row when the middle of one is
    within the other."""
    middle = other.box.y + other.box.height / 2
    if one.box.y <= middle <= one.box.bottom:
        return one.box.x <= other.box.x
    return one.box.y < middle


class EveryChoice(KeyboardTest):
    def test_every_instrument_by_the_arrows(self) -> None:
        controls = self.open_without_mouse()
        controls.screen.focus("Guitar")
        for key, name, press in (("Right", "Bass", "space"), ("Right", "Piano", "Return"),
                                 ("Home", "Guitar", "space"), ("End", "Piano", "KP_Enter"),
                                 ("Left", "Bass", "space")):
            controls.screen.keys(key)
            controls.screen.wait_until_focused(name)
            controls.screen.keys(press)
            controls.wait_until_saved(instrument=name.lower())

    def test_every_tuning_by_the_arrows(self) -> None:
        for instrument, tunings in (("guitar", GUITAR), ("bass", BASS), ("piano", PIANO)):
            controls = self.open_without_mouse(instrument, tunings[0].id)
            self.walk(controls, tunings[0].name, [tuning.name for tuning in tunings[1:]])
            controls.wait_until_saved(tuning=tunings[-1].id)
            controls.screen.wait_until_focused(tunings[-1].name)
            self.assertEqual(controls.strings(), tunings[-1].chips)
            self.assertEqual(self.tuner.quit(), 0)

    def test_a_tuning_by_its_letter_and_by_the_end_of_the_list(self) -> None:
        controls = self.open_without_mouse()
        self.choose(controls, GUITAR[0], GUITAR[-1], "End")
        dropped = next(tuning for tuning in GUITAR if tuning.name == "Drop D")
        self.choose(controls, GUITAR[-1], dropped, "d")

    def test_escape_chooses_nothing(self) -> None:
        controls = self.open_without_mouse()
        self.open_list(controls, "Standard")
        controls.screen.keys("End")
        controls.screen.wait_until_focused(GUITAR[-1].name)
        controls.screen.keys("Escape")
        controls.screen.wait_until_focused("Standard")
        controls.wait_until_saved(tuning=GUITAR[0].id)

    def choose(self, controls: Controls, before: Tuning, tuning: Tuning, key: str) -> None:
        with self.subTest(tuning.name):
            self.open_list(controls, before.name)
            controls.screen.wait_until_focused(before.name)
            controls.screen.keys(key)
            controls.screen.wait_until_focused(tuning.name)
            controls.screen.keys("Return")
            controls.wait_until_saved(tuning=tuning.id)
            controls.screen.wait_until_focused(tuning.name)
            self.assertEqual(controls.strings(), tuning.chips)

    def test_every_string_is_locked_and_released(self) -> None:
        controls = self.open_without_mouse()
        screen = controls.screen
        screen.focus("Auto")
        for name in controls.strings():
            screen.keys("Right")
            screen.wait_until_focused(name)
            screen.keys("space")
            controls.wait_until_locked(name)
            screen.keys("Return")
            controls.wait_until_locked("Auto")
        screen.keys("space")
        controls.wait_until_locked(name)
        screen.keys("Home", "Return")
        controls.wait_until_locked("Auto")

    def test_left_handed_and_right_handed_again(self) -> None:
        controls = self.open_without_mouse()
        controls.screen.focus(LEFT_HANDED)
        for press, left in (("space", "true"), ("Return", "false")):
            controls.screen.keys(press)
            controls.wait_until_saved(left=left)


class EveryPitch(KeyboardTest):
    def test_each_of_the_list(self) -> None:
        controls = self.open_without_mouse()
        self.walk(controls, "440  Modern", list(PITCHES.values()))
        controls.wait_until_saved(a4=str(list(PITCHES)[-1]))
        controls.screen.wait_until_focused(list(PITCHES.values())[-1])

    def test_each_quick_one(self) -> None:
        controls = self.open_without_mouse()
        controls.screen.focus("415 Hz", BACK)
        for key, hertz in zip(("Home", "Right", "Right", "Right"), QUICK_PITCHES):
            controls.screen.keys(key, "space")
            controls.wait_until_saved(a4=str(hertz))

    def test_every_other_one_by_the_stepper(self) -> None:
        controls = self.open_without_mouse()
        controls.screen.focus(STEPPER, BACK)
        for keys, hertz in ((["Up"], 441), (["Down"] * 2, 439), (["Prior"], 449),
                            (["Next"] * 8, 377), (["Down"], 377), (["Up"], 378),
                            (["Prior"] * 20, 560)):
            controls.screen.keys(*keys)
            controls.wait_until_saved(a4=str(hertz))


class EveryAction(KeyboardTest):
    def test_the_privacy_policy_from_the_help_menu_and_from_the_footer(self) -> None:
        browser = Browser(self.desktop)
        screen = self.open(**browser.environment)
        screen.focus(LEFT_HANDED)
        screen.keys("alt+h")
        screen.find(role=pyatspi.ROLE_POPUP_MENU)
        screen.keys("Down", "Return")
        browser.wait_for_addresses(1)
        screen.wait_until_focused("Help")
        screen.keys("shift+Tab")
        screen.wait_until_focused(POLICY)
        screen.keys("Return")
        self.assertEqual(browser.wait_for_addresses(2), 2 * [privacy_page()])

    def test_alt_and_h_do_not_open_help_over_another_list(self) -> None:
        controls = self.open_without_mouse()
        self.open_list(controls, "Standard")
        controls.screen.keys("alt+h", "Escape")
        controls.screen.wait_until_focused("Standard")
        self.assertEqual(controls.screen.names(pyatspi.ROLE_POPUP_MENU), [])

    def test_the_reference_tone(self) -> None:
        screen = self.open(**self.enter_room().environment)
        screen.focus(PLAY, BACK)
        screen.keys("space")
        screen.find(name="Playing")
        screen.find(name=PLAY)

    def test_allow_microphone_which_keeps_the_keyboard_when_it_was_in_vain(self) -> None:
        screen = self.open()
        reader = self.enterContext(ScreenReader())
        screen.focus(ALLOW, BACK)
        for key in ("space", "Return"):
            reader.forget()
            screen.keys(key)
            # The prompt goes while the server is asked, and comes back with the answer.
            reader.wait_for(lambda said: said[-1:] == [f"{ALLOW}, button"])
            self.assertIn(f"{POLICY}, link", reader.words)
            screen.find(name=NO_MICROPHONE)

    def open(self, **variables: str) -> Screen:
        tuner = self.start_tuner(self.desktop.folder("config"), {**os.environ, **variables})
        screen = Screen(tuner.process.pid)
        screen.activate()
        screen.rest_mouse()
        return screen


if __name__ == "__main__":
    system_test.main()
