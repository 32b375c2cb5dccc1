"""From the onset of a string at the microphone to its name on the screen."""

import array
import itertools
import pathlib
import time
from typing import NamedTuple

from . import blocks
from .blocks import BLOCK, HOP
from .microphone import RATE, PipedRoom, silence
from .picture import Shape
from .subject import NOTE, Subject, moment_when

LEARN_SECONDS = 1.2  # the name of a string is read from the screen this long after its onset
STRING_SECONDS = 1.0
# Of the period of the blocks between one onset and the next: the golden section spreads any number
# of onsets evenly over it.
SPREAD = (5 ** 0.5 - 1) / 2
AUDIBLE = 0.01  # of the loudest sample: what comes before is the sampler's own silence


class Delays(NamedTuple):
    """In milliseconds, from shortest to longest; those that were never shown are missing."""

    values: list[float]
    onsets: int
    needed: list[float]  # what a program that takes no time would come to

    def at(self, share: float) -> float:
        return _quantile(self.values, share)

    def own_at(self, share: float) -> float:
        """The quantile less that of the blocks themselves: the first one that is all of the new
        string ends between one block and a block and a hop after the onset, each moment as
        likely."""
        return self.at(share) - 1000 * (BLOCK + share * HOP) / RATE

    def beyond_needed_at(self, share: float) -> float:
        """The quantile less that of the first blocks in which the detector finds the string, which
        need not be the first that are all of it: a string begins with the noise of the plectrum."""
        return self.at(share) - _quantile(self.needed, share)


def _quantile(values: list[float], share: float) -> float:
    return values[min(int(share * len(values)), len(values) - 1)]


def measure(subject: Subject, room: PipedRoom, replay: pathlib.Path,
            strings: dict[int, array.array], onsets: int) -> Delays:
    """Of `strings`, by their keys (A4 is 69), one after the other and again."""
    keys = [list(strings)[turn % len(strings)] for turn in range(onsets)]
    sound, begins = _sequence([_from_onset(strings[key]) for key in keys])
    needed = blocks.seconds_needed(replay, sound, list(zip(keys, begins)))
    with subject.running() as process:
        subject.find_window(process)
        shapes = _learn_all(subject, room, strings)
        start = room.hear(sound)
        values = [_delay(subject, shapes[key], start + begin / RATE)
                  for key, begin in zip(keys, begins)]
        room.hear_no_more()
    return Delays(sorted(1000 * value for value in values if value is not None), onsets,
                  sorted(1000 * value for value in needed))


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
    """Each string cut off by the next, and the frames at which they begin."""
    sound, begins = silence(LEARN_SECONDS), []
    for number, string in enumerate(strings):
        begins.append(len(sound))
        extra = (number * SPREAD) % 1 * HOP
        sound.extend(string[:round(STRING_SECONDS * RATE + extra)])
    return sound, begins


def _delay(subject: Subject, shape: Shape, onset: float) -> float | None:
    """Seconds; nothing when the string was not shown before the next one."""
    time.sleep(max(0.0, onset - time.monotonic()))
    shown = moment_when(lambda: Shape(subject.pixels(NOTE)).is_like(shape),
                        onset + STRING_SECONDS - time.monotonic())
    return None if shown is None else shown - onset
