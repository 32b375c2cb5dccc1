"""What a recording of the microphone holds."""

import array
import cmath
from typing import BinaryIO

RATE = 8000
QUIET = 100  # of 32767


def first_sound(recording: BinaryIO) -> array.array:
    """The first whole quarter of a second of sound in 16-bit samples; silence when there is none in
    ten seconds."""
    quarters = (array.array("h", recording.read(RATE // 4 * 2)) for _ in range(40))
    silence = next(quarters)
    if any(max(quarter) > QUIET for quarter in quarters):
        return next(quarters, silence)
    return silence


def power(sound: array.array, hertz: float) -> float:
    """How much of `sound` is a tone of `hertz`: its Fourier transform there, squared."""
    step = -2j * cmath.pi * hertz / RATE
    return abs(sum(sample * cmath.exp(step * at) for at, sample in enumerate(sound))) ** 2
