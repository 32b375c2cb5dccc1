#!/usr/bin/python3 -B
# SPDX-License-Identifier: MIT
"""demo.py PROGRAM: demonstrates the tuner on a machine without a display or an audio server.

Plays the six open strings of a guitar, one of them out of tune, on a private desktop and prints what the window shows.
Exits with 1 if a string is read wrongly."""

import dataclasses
import os
import pathlib
import sys

REPOSITORY = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(REPOSITORY / "tests" / "system"))

from desk.desktop import PrivateDesktop  # noqa: E402
from desk.instruments import STEEL_GUITAR, Band, Note  # noqa: E402
from desk.pulse_audio import PulseAudioRoom  # noqa: E402
from desk.room import Room  # noqa: E402
from desk.settings import write_settings  # noqa: E402
from desk.tuner import Tuner  # noqa: E402
from desk.window import Reading, cents, note  # noqa: E402

PICTURES = REPOSITORY / "build" / "demo"
MOST_CENTS_OFF = 5  # of the samples themselves
COLUMNS = "{:<8}{:<20}{:<8}{:>9}   {:<9}{:>9}"


@dataclasses.dataclass(frozen=True)
class Plucked:
    number: int
    key: int
    name: str
    detune_cents: float = 0.0
    status: str = "In tune"

    @property
    def played(self) -> str:
        if self.detune_cents == 0:
            return self.name
        side = "flat" if self.detune_cents < 0 else "sharp"
        return f"{self.name}, {abs(self.detune_cents):.0f} cents {side}"

    def is_shown(self, shown: Reading) -> bool:
        return ((note(shown), shown.get("Status")) == (self.name, self.status)
                and abs(cents(shown) - self.detune_cents) <= MOST_CENTS_OFF)


STRINGS = (Plucked(6, 40, "E2"), Plucked(5, 45, "A2", -20, "Flat"), Plucked(4, 50, "D3"),
           Plucked(3, 55, "G3"), Plucked(2, 59, "B3"), Plucked(1, 64, "E4"))


def main(arguments: list[str]) -> int:
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    return demonstrate(pathlib.Path(arguments[0]).resolve())


def demonstrate(program: pathlib.Path) -> int:
    with PrivateDesktop() as desktop, PulseAudioRoom(desktop) as room:
        print("The tuner runs on a temporary private desktop:\n"
              f"a private display ({os.environ['DISPLAY']}), D-Bus, accessibility bus, window "
              "manager and PulseAudio server.\nWhat the window shows is read through the "
              "accessibility bus while a sampled guitar plays:\n")
        config_home = desktop.folder("config")
        write_settings(config_home, "guitar", "g6-standard")
        with Tuner(desktop, program, config_home, room.environment) as tuner:
            tuner.wait_until_listening(room)
            wrong = play_all(tuner, room, Band(desktop.folder("notes")))
    print(f"\n{verdict(wrong)} The samples themselves are 1 to 3 cents sharp.\n"
          f"Pictures of the window: {PICTURES.relative_to(REPOSITORY)}/")
    return 1 if wrong else 0


def play_all(tuner: Tuner, room: Room, band: Band) -> int:
    """Returns the number of strings read wrongly."""
    print(COLUMNS.format("String", "Played", "Shown", "Cents", "Status", "Frequency"))
    wrong = 0
    for string in STRINGS:
        shown = pluck(string, tuner, room, band)
        right = string.is_shown(shown)
        print(line(string, shown) + ("" if right else "   WRONG"), flush=True)
        wrong += not right
    return wrong


def pluck(string: Plucked, tuner: Tuner, room: Room, band: Band) -> Reading:
    """Plucks the string until it is read correctly. Returns the right reading, or else the last."""
    sound = band.wav(Note(STEEL_GUITAR, string.key, detune_cents=string.detune_cents))
    with room.sounding(sound):
        try:
            return tuner.window.wait_for_note(string.is_shown)
        except TimeoutError:
            return tuner.window.read()
        finally:
            tuner.window.screenshot(PICTURES / f"string-{string.number}-{string.name}.png")


def line(string: Plucked, shown: Reading) -> str:
    return COLUMNS.format(string.number, string.played, note(shown), shown["Cents"],
                          shown["Status"], shown["Frequency"])


def verdict(wrong: int) -> str:
    return f"{wrong} of {len(STRINGS)} strings were read wrongly." if wrong else (
        f"All {len(STRINGS)} strings were read correctly.")


if __name__ == "__main__":
    try:
        sys.exit(main(sys.argv[1:]))
    except KeyboardInterrupt:
        sys.exit("\nInterrupted; all started programs have ended.")
