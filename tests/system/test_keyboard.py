# SPDX-License-Identifier: MIT
"""The whole screen without a mouse: every control and every state is reachable."""

import pyatspi

from desk import system_test
from desk.browser import Browser, privacy_page
from desk.controls import ALLOW, LEFT_HANDED, NO_MICROPHONE, PLAY, POLICY, STEPPER
from desk.waiting import wait_until
from desk.window import Item

BACK = "shift+Tab"
STRINGS = ["E2", "A2", "D3", "G3", "B3", "E4"]
# In reading order: rows from the top, each from the left.
ORDER = ["Help", "Guitar", "Bass", "Piano", LEFT_HANDED, "Standard", "Auto", *STRINGS,
         "440  Modern", STEPPER, "415 Hz", "432 Hz", "440 Hz", "466 Hz", PLAY, ALLOW, POLICY]


class KeyboardTest(system_test.SystemTest):
    def start(self, **options) -> None:
        self.tuner = self.open(**options)
        self.window = self.tuner.window

    def type(self, *keys: str, at: str) -> None:
        """Presses the keys and waits for the focus."""
        for key in keys:
            self.window.keys(key)
        self.reader.wait_until_focused(at)

    def open_list(self, face: str) -> None:
        """Moves the focus to the control and opens its list."""
        self.reader.tab_to(self.window, face)
        self.window.keys("space")
        self.window.find(role=pyatspi.ROLE_POPUP_MENU)


class FocusOrder(KeyboardTest):
    def test_tab_and_shift_tab_follow_the_reading_order(self) -> None:
        self.start()
        for key, order in (("Tab", [*ORDER, ORDER[0]]), (BACK, [*reversed(ORDER), ORDER[-1]])):
            for name in order:
                self.type(key, at=name)

    def test_accessible_items_are_in_visual_order(self) -> None:
        self.start(tuning="g8-standard")
        wait_until(lambda: self.out_of_order() == [], lambda: f"{self.out_of_order()}")

    def out_of_order(self) -> list[tuple[str, str]]:
        items = [item for item in self.window.items() if item.role != pyatspi.ROLE_FRAME]
        if len(items) < 20:
            return [("not all", "is there")]
        return [(before.name, after.name) for before, after in zip(items, items[1:])
                if not is_read_before(before, after)]


def is_read_before(one: Item, other: Item) -> bool:
    """In visual order: two items are in the same row if the middle of one is within the other."""
    middle = other.box.y + other.box.height / 2
    if one.box.y <= middle <= one.box.bottom:
        return one.box.x <= other.box.x
    return one.box.y < middle


class EveryChoice(KeyboardTest):
    def test_every_control_works_with_its_keys(self) -> None:
        self.start()
        for name, keys, saved in (
                ("Guitar", ["Right", "space"], {"instrument": "bass"}),
                (LEFT_HANDED, ["Return"], {"left": "true"}),
                ("4-string standard", ["space", "End", "Return"], {"tuning": "b6-standard"}),
                ("440  Modern", ["space", "Home", "Return"], {"a4": "377"}),
                # Limited to its range.
                (STEPPER, ["Down", "Up"], {"a4": "378"}),
                ("415 Hz", ["End", "space"], {"a4": "466"}),
                (STEPPER, ["Prior"] * 10, {"a4": "560"})):
            self.reader.tab_to(self.window, name, BACK if name == STEPPER else "Tab")
            self.window.keys(*keys)
            self.controls.wait_until_saved(**saved)

    def test_list_follows_arrows_letters_and_escape(self) -> None:
        self.start()
        self.open_list("Standard")
        for key, name in (("Down", "Half step down"), ("End", "12-string standard"),
                          ("Up", "8-string drop E"), ("d", "Drop D")):
            self.type(key, at=name)
        self.type("Escape", at="Standard")
        self.controls.wait_until_saved(tuning="g6-standard")
        self.window.keys("space")
        self.window.find(role=pyatspi.ROLE_POPUP_MENU)
        self.type("Down", at="Half step down")
        self.window.keys("Return")
        self.controls.wait_for_tuning("Half step down", "E♭2 A♭2 D♭3 G♭3 B♭3 E♭4", tuning="g6-half")
        self.type("Tab", at="Auto")

    def test_every_string_can_be_locked_and_released(self) -> None:
        self.start()
        self.reader.tab_to(self.window, "Auto")
        for name in STRINGS:
            self.type("Right", at=name)
            for key, locked in (("space", name), ("Return", "Auto")):
                self.window.keys(key)
                self.controls.wait_until_locked(locked)


class EveryAction(KeyboardTest):
    def test_help_menu_and_footer_open_the_privacy_policy(self) -> None:
        browser = Browser(self.desktop)
        self.start(**browser.environment)
        self.reader.tab_to(self.window, LEFT_HANDED)
        self.window.keys("alt+h")
        self.window.find(role=pyatspi.ROLE_POPUP_MENU)
        self.type("Down", "Return", at="Help")
        browser.wait_for_addresses(1)
        self.type(BACK, at=POLICY)
        self.window.keys("Return")
        self.assertEqual(browser.wait_for_addresses(2), 2 * [privacy_page()])

    def test_alt_h_does_not_open_help_over_a_list(self) -> None:
        self.start()
        self.open_list("Standard")
        self.type("alt+h", "End", at="12-string standard")
        self.type("Escape", at="Standard")
        self.window.wait_until_gone(role=pyatspi.ROLE_POPUP_MENU)

    def test_reference_tone(self) -> None:
        room = self.enter_room()
        self.start(room=room)
        self.reader.tab_to(self.window, PLAY, BACK)
        with room.recording() as recording:
            self.window.keys("space")
            self.assertTrue(recording.wait_for_tone(110.0))

    def test_allow_microphone_keeps_the_focus_without_success(self) -> None:
        self.start()
        self.reader.tab_to(self.window, ALLOW, BACK)
        for key in ("space", "Return"):
            self.reader.forget(self.window)
            self.window.keys(key)
            # The prompt disappears during the request and returns with the answer.
            self.reader.wait_for_words(f"{ALLOW}, button")
            self.assertIn(f"{POLICY}, link", self.reader.words)
            self.window.find(name=NO_MICROPHONE)


if __name__ == "__main__":
    system_test.main()
