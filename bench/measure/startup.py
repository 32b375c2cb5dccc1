# SPDX-License-Identifier: MIT
"""From the start of the program to its first frame and to its first reading."""

import array
import statistics
import time
from typing import NamedTuple

from .microphone import PipedRoom
from .picture import Shape
from .subject import NOTE, PLAY_BUTTON, SECONDS, Subject, moment_when


class Startup(NamedTuple):
    """Medians, in milliseconds."""

    first_frame: float
    first_reading: float
    runs: int


def measure(subject: Subject, room: PipedRoom, note: array.array, runs: int) -> Startup:
    room.hear(note * round(SECONDS * (runs + 3)))
    button, shape = _learn(subject)
    times = [_start_once(subject, button, shape) for _ in range(runs)]
    room.hear_no_more()
    return Startup(*(1000 * statistics.median(column) for column in zip(*times)), runs)


def _learn(subject: Subject) -> tuple[bytes, Shape]:
    """The final content of the window. Also warms the caches."""
    with subject.running() as process:
        subject.find_window(process)
        time.sleep(3)
        return subject.pixels(PLAY_BUTTON), Shape(subject.pixels(NOTE))


def _start_once(subject: Subject, button: bytes, shape: Shape) -> tuple[float, float]:
    if moment_when(lambda: subject.pixels(PLAY_BUTTON) != button) is None:
        raise RuntimeError("the previous window still exists")
    start = time.monotonic()
    with subject.running():
        frame = moment_when(lambda: subject.pixels(PLAY_BUTTON) == button)
        reading = moment_when(lambda: Shape(subject.pixels(NOTE)).is_like(shape))
    if frame is None or reading is None:
        raise RuntimeError("the window did not appear, or heard nothing")
    return frame - start, reading - start
