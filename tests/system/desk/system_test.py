# SPDX-License-Identifier: MIT
"""The base of the tests of the whole program."""

import os
import pathlib
import sys
import unittest
from typing import ClassVar

from .controls import Controls
from .desktop import SCREEN, PrivateDesktop, Size
from .instruments import Band
from .plucked import write_plucked
from .pulse_audio import PulseAudioRoom
from .room import Room
from .screen_reader import ScreenReader
from .settings import write_settings
from .tuner import Tuner
from .window import Reading, cents, note, xdotool

# In points.
MENU_BAR = 28
FIRST_SIZE = (480, 860 + MENU_BAR)
SMALLEST = (420, 680 + MENU_BAR)


class SystemTest(unittest.TestCase):
    maxDiff = None
    desktop: ClassVar[PrivateDesktop]
    band: ClassVar[Band]
    reader: ClassVar[ScreenReader]
    _room: ClassVar[PulseAudioRoom | None] = None

    def enter_room(self) -> PulseAudioRoom:
        """Returns the room, shared by all tests of this process."""
        if not SystemTest._room:
            SystemTest._room = self.desktop.enter_context(PulseAudioRoom(self.desktop))
        return SystemTest._room

    def open(self, room: Room | None = None, instrument: str = "guitar",
             tuning: str = "g6-standard", a4: int = 440, **variables: str) -> Tuner:
        """Starts the program with these preferences in the foreground. Returns once it listens, or without a
        room shows that there is no microphone."""
        self.config_home = self.desktop.folder("config")
        write_settings(self.config_home, instrument, tuning, a4)
        return self.open_again(room, **variables)

    def open_again(self, room: Room | None = None, **variables: str) -> Tuner:
        environment = {**(room.environment if room else os.environ), **variables}
        program = pathlib.Path(os.environ["CORVANE_PROGRAM"])
        tuner = self.enterContext(Tuner(self.desktop, program, self.config_home, environment))
        self.controls = Controls(tuner.window, self.config_home)
        if room:
            tuner.wait_until_listening(room)
        else:
            tuner.wait_until_deaf()
        if environment["DISPLAY"]:
            tuner.window.rest_mouse()
            tuner.window.activate()
        return tuner

    def open_other_window(self) -> None:
        """Opens a window that covers the program's."""
        other = self.desktop.processes.start(["xev", "-geometry", "{}x{}".format(*SCREEN)])
        self.addCleanup(self.desktop.processes.end, other)
        go_to_other_window()

    def plucked(self, key: int, detuned: float = 0.0) -> pathlib.Path:
        return write_plucked(self.desktop.folder("string") / "plucked.wav", key, detuned)

    def hear(self, tuner: Tuner, room: Room, wav: pathlib.Path, name: str,
             status: str | None = None, off: float = 0.0, most_off: float = 1.0) -> Reading:
        """Repeats the sound until it is read as this note with this deviation in cents."""
        def is_read(shown: Reading) -> bool:
            return (note(shown) == name and status in (None, shown["Status"])
                    and abs(cents(shown) - off) <= most_off)

        with room.sounding(wav):
            return tuner.window.wait_for_note(is_read)


def go_to_other_window() -> None:
    xdotool("search", "--sync", "--name", "^Event Tester$", "windowactivate", "--sync")


def main(screen: Size = SCREEN) -> None:
    """Runs the tests of the calling program on a private desktop with a display of this size."""
    with PrivateDesktop(screen=screen) as desktop:
        SystemTest.desktop = desktop
        SystemTest.band = Band(desktop.folder("notes"))
        SystemTest.reader = ScreenReader()
        result = unittest.main("__main__", verbosity=2, exit=False).result
    sys.exit(0 if result.testsRun and result.wasSuccessful() else 1)
