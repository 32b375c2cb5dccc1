"""What the tests of the whole program have in common."""

import collections
import os
import pathlib
import sys
import unittest
from typing import ClassVar

from .desktop import SCREEN, PrivateDesktop, Size
from .instruments import Band, Note
from .pulse_audio import PulseAudioRoom
from .readings import Reading, note
from .room import Room
from .settings import write_settings
from .tuner import Tuner

# A pluck reaches into the two overlapping blocks around it, whose reading may be of anything. The
# shortest of the notes, the piano's highest, sounds for a dozen.
LEAST_SHARE_READ_RIGHT = 0.8


class SystemTest(unittest.TestCase):
    desktop: ClassVar[PrivateDesktop]
    band: ClassVar[Band]
    _room: ClassVar[PulseAudioRoom | None] = None

    def enter_room(self) -> PulseAudioRoom:
        """All tests of a program are in the same, which takes seconds to hear. It is quiet again
        when the next one enters."""
        if not SystemTest._room:
            SystemTest._room = self.desktop.enter_context(PulseAudioRoom(self.desktop))
        self.addCleanup(SystemTest._room.hush)
        return SystemTest._room

    def enter_another_room(self, room: Room) -> Room:
        """One of a test's own. Two servers of the same kind cannot be on one desktop."""
        if SystemTest._room:
            SystemTest._room.close()
            SystemTest._room = None
        return self.enterContext(room)

    def start_tuner(self, config_home: pathlib.Path, environment: dict[str, str]) -> Tuner:
        program = pathlib.Path(os.environ["CORVANE_PROGRAM"])
        return self.enterContext(Tuner(self.desktop, program, config_home, environment))

    def start_listening(self, room: Room, instrument: str, tuning: str) -> Tuner:
        config_home = self.desktop.folder("config")
        write_settings(config_home, instrument, tuning)
        tuner = self.start_tuner(config_home, room.environment)
        tuner.wait_until_listening(room)
        return tuner

    def hear(self, tuner: Tuner, room: Room, played: Note) -> list[Reading]:
        """The readings of a note from its beginning to its end: at least one."""
        player = room.start_playing(self.band.wav(played))
        heard = tuner.readings_while(lambda: player.poll() is None)
        self.assertTrue(heard, f"the window never showed a reading of {played}")
        return heard

    def assert_reads(self, name: str, heard: list[Reading]) -> None:
        shown = collections.Counter(note(reading) for reading in heard)
        self.assertGreaterEqual(shown[name] / shown.total(), LEAST_SHARE_READ_RIGHT, shown)


def main(screen: Size = SCREEN) -> None:
    """Runs the tests of the calling program on a private desktop with a display of this size."""
    with PrivateDesktop(screen=screen) as desktop:
        SystemTest.desktop = desktop
        SystemTest.band = Band(desktop.folder("notes"))
        result = unittest.main("__main__", verbosity=2, exit=False).result
    sys.exit(0 if result.testsRun and result.wasSuccessful() else 1)
