# SPDX-License-Identifier: MIT
"""The program's usage while a guitar is played for a long time."""

import array
import itertools
import time
from collections.abc import Callable, Iterator
from typing import NamedTuple

from . import usage
from .delay import LEARN_SECONDS, learn
from .microphone import RATE, PipedRoom
from .picture import Shape
from .subject import NOTE, Subject

# Memory of the first use does not count as growth.
SETTLE_SECONDS = 30


class State(NamedTuple):
    memory: dict[str, float]  # in megabytes
    descriptors: int
    threads: list[str]
    work: usage.Work


class Endurance(NamedTuple):
    seconds: float
    before: State
    after: State
    right: int
    played: int


def measure(subject: Subject, room: PipedRoom, strings: list[array.array], seconds: float,
            tell: Callable[[str], None]) -> Endurance:
    """Reports progress with `tell`."""
    with subject.running() as process:
        subject.find_window(process)
        shapes = [learn(subject, room, string) for string in strings]
        # A name in another colour differs a little, but less than from other names.
        limit = min(one.difference(other) for one, other in itertools.combinations(shapes, 2)) / 2
        turns = _turns(subject, room, strings, shapes, limit)
        _play(turns, SETTLE_SECONDS)
        before, began = _state(process.pid), time.monotonic()
        right, played = 0, 0
        while time.monotonic() - began < seconds:
            now_right, now_played = _play(turns, min(60.0, seconds))
            right, played = right + now_right, played + now_played
            tell(f"{(time.monotonic() - began) / 60:.0f} min: {right} of {played} strings right, "
                 f"{usage.memory(process.pid)['Rss']:.1f} MB")
        after, lasted = _state(process.pid), time.monotonic() - began
        room.hear_no_more()
    return Endurance(lasted, before, after, right, played)


def _turns(subject: Subject, room: PipedRoom, strings: list[array.array], shapes: list[Shape],
           limit: float) -> Iterator[bool]:
    """Endlessly, whether each string is shown in its turn."""
    onset = room.hear(sum(strings, start=strings[0][:0]), again=True)
    for string, shape in itertools.cycle(zip(strings, shapes)):
        time.sleep(max(0.0, onset + LEARN_SECONDS - time.monotonic()))
        yield Shape(subject.pixels(NOTE)).difference(shape) < limit
        onset += len(string) / RATE


def _play(turns: Iterator[bool], seconds: float) -> tuple[int, int]:
    end = time.monotonic() + seconds
    results = []
    while time.monotonic() < end:
        results.append(next(turns))
    return sum(results), len(results)


def _state(pid: int) -> State:
    return State(usage.memory(pid), usage.descriptors(pid), usage.threads(pid), usage.work(pid))
