"""From the onset of a string at the microphone to its name on the screen."""

import array
import time
from typing import NamedTuple

from .microphone import RATE, PipedRoom, silence
from .picture import Shape
from .subject import NOTE, Subject, moment_when

LEARN_SECONDS = 1.2  # the name of a string is read from the screen this long after its onset
STRING_SECONDS = 1.0
# Of the period of the blocks between one onset and the next: the golden section spreads any number
# of onsets evenly over it.
SPREAD = (5 ** 0.5 - 1) / 2
BLOCK, HOP = 8192, 4096


class Delays(NamedTuple):
    """In milliseconds, from shortest to longest; those that were never shown are missing."""

    values: list[float]
    onsets: int

    def at(self, share: float) -> float:
        return self.values[min(int(share * len(self.values)), len(self.values) - 1)]

    def own_at(self, share: float) -> float:
        """Without what the blocks themselves take. The first one that is all of the new string
        ends between one block and a block and a hop after the onset, each moment as likely."""
        return self.at(share) - 1000 * (BLOCK + share * HOP) / RATE


def measure(subject: Subject, room: PipedRoom, strings: list[array.array], onsets: int) -> Delays:
    with subject.running() as process:
        subject.find_window(process)
        shapes = [learn(subject, room, string) for string in strings]
        turns = [turn % len(strings) for turn in range(onsets)]
        sound, begins = _sequence(strings, turns)
        start = room.hear(sound)
        values = [_delay(subject, shapes[turn], start + begin / RATE)
                  for turn, begin in zip(turns, begins)]
        room.hear_no_more()
    return Delays(sorted(1000 * value for value in values if value is not None), onsets)


def learn(subject: Subject, room: PipedRoom, string: array.array) -> Shape:
    room.hear(string)
    time.sleep(LEARN_SECONDS)
    return Shape(subject.pixels(NOTE))


def _sequence(strings: list[array.array], turns: list[int]) -> tuple[array.array, list[int]]:
    """Each string cut off by the next, and the frames at which they begin."""
    sound, begins = silence(LEARN_SECONDS), []
    for number, turn in enumerate(turns):
        begins.append(len(sound))
        extra = (number * SPREAD) % 1 * HOP
        sound.extend(strings[turn][:round(STRING_SECONDS * RATE + extra)])
    return sound, begins


def _delay(subject: Subject, shape: Shape, onset: float) -> float | None:
    """Seconds; nothing when the string was not shown before the next one."""
    time.sleep(max(0.0, onset - time.monotonic()))
    shown = moment_when(lambda: Shape(subject.pixels(NOTE)).is_like(shape),
                        onset + STRING_SECONDS - time.monotonic())
    return None if shown is None else shown - onset
