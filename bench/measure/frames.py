# SPDX-License-Identifier: MIT
"""Whether every block heard is shown."""

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
    """Counts changes of the level bar, which has no animation: one per block whose level differs."""
    with subject.running() as process:
        subject.find_window(process)
        room.hear(_restless(seconds + 4))
        time.sleep(2)
        shown = _changes(subject, seconds)
        room.hear_no_more()
    expected = math.floor(seconds * RATE / HOP)
    if shown > expected + 1:  # one more may be partly within the time
        raise RuntimeError(f"{shown} levels seen for {expected} blocks")
    return Frames(min(shown, expected), expected)


def _restless(seconds: float) -> array.array:
    """A steady note whose level changes with every hop, so that no two blocks are equal."""
    dice = random.Random(1)
    sound = array.array("f")
    peak = 0.05
    for _ in range(math.ceil(seconds * RATE / HOP)):
        step = (dice.uniform(0.02, 0.1) - peak) / HOP
        for _ in range(HOP):
            peak += step
            sound.append(peak * math.sin(2 * math.pi * 110 * len(sound) / RATE))
    return sound


def _changes(subject: Subject, seconds: float) -> int:
    """A picture counts when it was seen twice: the first may be torn."""
    changes, shown = 0, subject.pixels(LEVEL)
    before = shown
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        time.sleep(POLL_SECONDS)
        now = subject.pixels(LEVEL)
        changes += now == before != shown
        shown = now if now == before else shown
        before = now
    return changes
