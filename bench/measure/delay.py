# SPDX-License-Identifier: MIT
"""From the onset of a string at the microphone to its name on the screen."""

import array
import itertools
import pathlib
import statistics
import time
from typing import NamedTuple

from . import blocks
from .blocks import HOP
from .microphone import RATE, PipedRoom, silence
from .picture import Shape
from .subject import NOTE, Subject, moment_when

LEARN_SECONDS = 1.2  # from the onset of a string to reading its name from the screen
STRING_SECONDS = 1.0
# The golden section spreads any number of onsets evenly over the period of the blocks.
SPREAD = (5 ** 0.5 - 1) / 2
AUDIBLE = 0.01  # of the loudest sample; skips the sampler's initial silence


class Delays(NamedTuple):
    """In milliseconds, ascending, without strings that were never shown."""

    values: list[float]
    own: list[float]  # the program's share, by string
    onsets: int
    late_blocks: int  # onsets whose first block of this string alone does not name it


def at(values: list[float], share: float) -> float:
    return values[min(int(share * len(values)), len(values) - 1)]


def measure(subject: Subject, room: PipedRoom, replay: pathlib.Path,
            strings: dict[int, array.array], onsets: int) -> Delays:
    """Plays `strings`, by their keys (A4 is 69), in turn."""
    keys = [list(strings)[turn % len(strings)] for turn in range(onsets)]
    sound, begins = _sequence([_from_onset(strings[key]) for key in keys])
    phases = blocks.needed(replay, sound, list(zip(keys, begins)))
    with subject.running() as process:
        subject.find_window(process)
        shapes = _learn_all(subject, room, strings)
        start = room.hear(sound)
        delays = [_delay(subject, shapes[key], start + begin / RATE)
                  for key, begin in zip(keys, begins)]
        room.hear_no_more()
    needed = min(phases, key=lambda phase: statistics.pstdev(_own(delays, phase)))
    return Delays(sorted(1000 * delay for delay in delays if delay is not None),
                  sorted(1000 * own for own in _own(delays, needed)), onsets,
                  sum(each.named > each.whole for each in needed))


def _own(delays: list[float | None], needed: list[blocks.Needed]) -> list[float]:
    """The program's share of the delays. The phase of its blocks is unknown, but only the right one leaves about the same
    share for every string: at others the naming blocks of some are a whole hop earlier or later."""
    return [delay - each.named for delay, each in zip(delays, needed) if delay is not None]


def _from_onset(string: array.array) -> array.array:
    loudest = max(map(abs, string))
    return string[next(at for at, value in enumerate(string) if abs(value) > AUDIBLE * loudest):]


def _learn_all(subject: Subject, room: PipedRoom,
               strings: dict[int, array.array]) -> dict[int, Shape]:
    shapes = {key: learn(subject, room, string) for key, string in strings.items()}
    if any(one.is_like(other) for one, other in itertools.combinations(shapes.values(), 2)):
        raise RuntimeError("two strings look alike on the screen")
    return shapes


def learn(subject: Subject, room: PipedRoom, string: array.array) -> Shape:
    room.hear(string)
    time.sleep(LEARN_SECONDS)
    return Shape(subject.pixels(NOTE))


def _sequence(strings: list[array.array]) -> tuple[array.array, list[int]]:
    """The strings, each cut off by the next, and their first frames."""
    sound, begins = silence(LEARN_SECONDS), []
    for number, string in enumerate(strings):
        begins.append(len(sound))
        extra = (number * SPREAD) % 1 * HOP
        sound.extend(string[:round(STRING_SECONDS * RATE + extra)])
    return sound, begins


def _delay(subject: Subject, shape: Shape, onset: float) -> float | None:
    """In seconds; nothing if the string was not shown before the next one."""
    time.sleep(max(0.0, onset - time.monotonic()))
    shown = moment_when(lambda: Shape(subject.pixels(NOTE)).is_like(shape),
                        onset + STRING_SECONDS - time.monotonic())
    return None if shown is None else shown - onset
