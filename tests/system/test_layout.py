"""Where everything stands on the screen, in windows of several sizes."""

import dataclasses
import os

import pyatspi

from desk import system_test
from desk.library import GUITAR
from desk.screen import ANSWER_SECONDS, Box, Screen
from desk.sizes import MENU_BAR
from desk.waiting import wait_until

WIDEST_COLUMN = 640
STRING_SPACING = 6

SUBTITLE = "E A D G B E"
NOTE = "—"
SWITCH = "Left-handed string order"
HINT = ("A=440 is the modern standard. Older concerts used many other pitches, from about 377 Hz "
        "to above 560 Hz. In tune means within 5 cents.")
PROBLEM = "No microphone is available."
ALLOW = "Allow Microphone"
VERSION = "Version 1.0.0"

ALWAYS_THERE = ("Corvane", "Corvane 2", SUBTITLE, NOTE, "0.0 ¢", "Play a note", "Cents", "Cents 2",
                "Fine", "Fine 2", "Level", "Level 2", "— Hz", "Guitar", SWITCH, "Standard", "Auto",
                "Raise", "415 Hz", "Play reference", "Privacy Policy")

# A place is told in whole pixels, which is half a pixel off, and the column stands on whole pixels
# before it shrinks, which moves its centre by up to another half.
MOST_PIXELS_OFF = 1
# The height of a line is some multiple of its type size in whole pixels. Both the line and the one
# that gives the multiple are up to a pixel off, and the type size up to half a point.
MOST_LINE_OFF = 2.7


@dataclasses.dataclass(frozen=True)
class Sizes:
    """Of the regions, in points, in a window whose content has one certain size."""

    note: float
    gap: float
    pad: float
    side: float
    chip: float
    bar: float
    compact: bool
    hint: bool
    version: bool

    @property
    def card_padding(self) -> float:
        return 10 if self.compact else 14

    @property
    def card_spacing(self) -> float:
        return 6 if self.compact else 8

    @property
    def meter_spacing(self) -> float:
        return 6 if self.compact else 10


SIZES = {
    (420, 680): Sizes(71.4, 6, 8, 18, 36, 14, compact=True, hint=False, version=False),
    (480, 860): Sizes(90.3, 8, 12, 18, 376 / 9, 16, compact=True, hint=True, version=True),
    (700, 1000): Sizes(100, 12, 12, 18, 54, 16, compact=False, hint=True, version=True),
    (2000, 1200): Sizes(100, 12, 12, 18, 54, 16, compact=False, hint=True, version=True),
}


Seen = dict[str, Box]
WHOLE_COLUMN = "the column"


class Layout(system_test.SystemTest):
    def test_every_region_has_its_size_and_place(self) -> None:
        room = self.enter_room()
        tuner = self.start_listening(room, "guitar", "g6-standard")
        self.assert_all_sizes(Screen(tuner.process.pid), shown=set(), hidden={PROBLEM, ALLOW})

    def test_with_the_microphone_prompt_the_column_shrinks_to_fit(self) -> None:
        tuner = self.start_tuner(self.desktop.folder("config"), dict(os.environ))
        self.assert_all_sizes(Screen(tuner.process.pid), shown={PROBLEM, ALLOW}, hidden=set())

    def assert_all_sizes(self, screen: Screen, shown: set[str], hidden: set[str]) -> None:
        screen.rest_mouse()
        lines = {}
        for (width, height), sizes in SIZES.items():
            with self.subTest(f"{width} x {height}"):
                screen.resize(width, height + MENU_BAR)
                seen = self.look_until_right(screen, sizes, width, height)
                lines[sizes.note] = seen[NOTE].height
                self.assertLessEqual(shown, set(seen))
                self.assertFalse(hidden & set(seen))
                self.assertEqual(HINT in seen, sizes.hint)
                self.assertEqual(VERSION in seen, sizes.version)
        for size, line in lines.items():
            self.assertAlmostEqual(line, lines[100] / 100 * size, delta=MOST_LINE_OFF)

    def look_until_right(self, screen: Screen, sizes: Sizes, width: int, height: int) -> Seen:
        seen: Seen = {}

        def is_right() -> bool:
            nonlocal seen
            seen = look(screen)
            return not wrong(seen, sizes, width, height)

        wait_until(is_right, ANSWER_SECONDS, lambda: "\n".join(wrong(seen, sizes, width, height)))
        return seen


def look(screen: Screen) -> Seen:
    """The boxes of all items but what is told of a change, which is not to be seen. A caption has the
    name of the meter under it, and the window that of the title in it: the second of a name is
    "... 2"."""
    seen: Seen = {}
    for item in screen.items():
        if item.role == pyatspi.ROLE_NOTIFICATION:
            continue
        seen[f"{item.name} 2" if item.name in seen else item.name] = item.box
    return seen


def wrong(seen: Seen, sizes: Sizes, width: int, height: int) -> list[str]:
    """What is not where it should be, in words."""
    prompt = {PROBLEM, ALLOW} if {PROBLEM, ALLOW} & set(seen) else set()
    if missing := {*ALWAYS_THERE, *GUITAR[0].chips, *prompt} - set(seen):
        return [f"{missing} are not there, as while the screen changes"]
    frame = seen["Corvane"]
    found = [f"the window is {frame}"] if frame[2:] != (width, height + MENU_BAR) else []
    column_width = min(width, WIDEST_COLUMN)
    tops = natural_tops(seen, sizes)
    shrunk = min(1, height / tops[WHOLE_COLUMN])
    for name, top in tops.items() - {(WHOLE_COLUMN, tops[WHOLE_COLUMN])}:
        expected = frame.y + MENU_BAR + height / 2 + shrunk * (top - tops[WHOLE_COLUMN] / 2)
        if not abs(seen[name].y - expected) <= MOST_PIXELS_OFF:
            found.append(f"the top of {name} is at {seen[name].y}, not {expected}")
    for name, left in natural_lefts(sizes).items():
        expected = frame.x + width / 2 + shrunk * (left - column_width / 2)
        if not abs(seen[name].x - expected) <= MOST_PIXELS_OFF:
            found.append(f"the left of {name} is at {seen[name].x}, not {expected}")
    for name, size in natural_sizes(sizes, column_width).items():
        if seen[name][2:] != size:
            found.append(f"{name} is {seen[name][2:]} large, not {size}")
    return found


def natural_tops(seen: Seen, sizes: Sizes) -> dict[str, float]:
    """Of each item, from the top of the column before it shrinks; and the height of all of it."""
    tops: dict[str, float] = {}
    top = 0.0
    for part in column(seen, sizes):
        if isinstance(part, str):
            tops[part] = top
            top += sizes.chip if part == "Auto" else seen[part].height
        else:
            top += part
    return tops | {WHOLE_COLUMN: top}


def column(seen: Seen, sizes: Sizes) -> list[float | str]:
    """From top to bottom: items, whose heights are those of their texts, and the spaces around."""
    card, between, meters = sizes.card_padding, sizes.card_spacing, sizes.meter_spacing
    hint = [between, HINT] if HINT in seen else []
    prompt = [PROBLEM, 8, ALLOW, sizes.gap] if PROBLEM in seen else []
    return [
        sizes.pad, "Corvane 2", 2, SUBTITLE, sizes.gap,
        NOTE, 2, "0.0 ¢", 2, "Play a note", sizes.gap,
        card, "Cents", 4, "Cents 2", meters, "Fine", 4, "Fine 2", meters, "Level", 4, "Level 2",
        card, sizes.gap, "— Hz", sizes.gap,
        card, 2, "Guitar", 2, between, SWITCH, between, "Standard", between, "Auto", between,
        "Raise", between, "415 Hz", between, "Play reference", *hint, card, sizes.gap,
        *prompt, "Privacy Policy", sizes.pad]


def natural_lefts(sizes: Sizes) -> dict[str, float]:
    """Of each item, from the left edge of the column before it shrinks."""
    inside = sizes.side + sizes.card_padding
    chips = {name: inside + place * (sizes.chip + STRING_SPACING)
             for place, name in enumerate(["Auto", *GUITAR[0].chips])}
    on_the_ground = dict.fromkeys(["Corvane 2", SUBTITLE, "— Hz"], sizes.side)
    in_a_card = dict.fromkeys(["Cents 2", "Fine 2", "Level 2", "Standard", "415 Hz",
                               "Play reference"], inside)
    return chips | on_the_ground | in_a_card


def natural_sizes(sizes: Sizes, column_width: int) -> dict[str, tuple[int, int]]:
    """Widths and heights before the column shrinks, which are told without their fractions."""
    chip = int(sizes.chip)
    inside = int(column_width - 2 * sizes.side - 2 * sizes.card_padding)
    return (dict.fromkeys(["Auto", *GUITAR[0].chips], (chip, chip))
            | dict.fromkeys(["Cents 2", "Fine 2"], (inside, int(sizes.bar)))
            | {"Level 2": (inside, 6)})


if __name__ == "__main__":
    system_test.main()
