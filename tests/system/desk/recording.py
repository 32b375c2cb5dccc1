# SPDX-License-Identifier: MIT
"""A recording of a microphone."""

import array
import cmath
from typing import BinaryIO

# Of the power: 20 dB. In a quarter of a second a tone leaks -31 dB to 46 Hz away, half an octave from 110 Hz, and
# less to the octave, where an instrument's note has a partial.
LOUDER = 100
MOST_QUARTERS = 240


class Recording:
    """Reads one channel of native 16-bit samples from `stream` in real time."""

    RATE = 8000

    def __init__(self, stream: BinaryIO):
        self._stream = stream

    def wait_for_tone(self, hertz: float) -> bool:
        """True once a quarter of a second has this tone and none half an octave or an octave away; False after a
        minute."""
        quarters = (self.quarter() for _ in range(MOST_QUARTERS))
        return any(_power(quarter, hertz) > LOUDER * max(_power(quarter, hertz * 2 ** 0.5),
                                                         _power(quarter, hertz * 2))
                   for quarter in quarters)

    def quarter(self) -> array.array:
        """The next quarter of a second."""
        return array.array("h", self._stream.read(self.RATE // 4 * 2))


def _power(sound: array.array, hertz: float) -> float:
    """The power of `sound` at `hertz`: the squared Fourier transform."""
    step = -2j * cmath.pi * hertz / Recording.RATE
    return abs(sum(sample * cmath.exp(step * at) for at, sample in enumerate(sound))) ** 2
