"""Whether every block of sound that is heard is also seen."""

import array
import math
import random
import time
from typing import NamedTuple

from .microphone import RATE, PipedRoom
from .subject import LEVEL, POLL_SECONDS, Subject

HOP = 4096


class Frames(NamedTuple):
    shown: int
    expected: int


def measure(subject: Subject, room: PipedRoom, seconds: float) -> Frames:
    """The level bar has no animation: it changes once for each block, if the level does."""
    with subject.running() as process:
        subject.find_window(process)
        room.hear(_restless(seconds + 4))
        time.sleep(2)
        shown = _changes(subject, seconds)
        room.hear_no_more()
    return Frames(shown, math.floor(seconds * RATE / HOP))


def _restless(seconds: float) -> array.array:
    """Another loudness every half hop, so that no two blocks have the same."""
    dice = random.Random(1)
    sound = array.array("f")
    while len(sound) < seconds * RATE:
        peak = dice.uniform(0.01, 0.1)
        sound.extend(peak * math.sin(2 * math.pi * 110 * (len(sound) + i) / RATE)
                     for i in range(HOP // 2))
    return sound


def _changes(subject: Subject, seconds: float) -> int:
    changes, last = 0, subject.pixels(LEVEL)
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        time.sleep(POLL_SECONDS)
        now = subject.pixels(LEVEL)
        changes += now != last
        last = now
    return changes
