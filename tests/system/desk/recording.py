"""What a microphone hears."""

import array
import cmath
from typing import BinaryIO

# In power: 20 dB. A quarter of a second of one tone leaks 31 dB less than itself to 46 Hz away, half
# an octave from 110 Hz, and less to the octave, where an instrument's note has a partial.
LOUDER = 100
MOST_QUARTERS = 240


class Recording:
    """Of one channel of native 16-bit numbers, which `stream` gives as they are heard."""

    RATE = 8000

    def __init__(self, stream: BinaryIO):
        self._stream = stream

    def wait_for_tone(self, hertz: float) -> bool:
        """True as soon as a quarter of a second holds this tone and neither another half an octave
        away nor an octave; False when none of a minute does."""
        quarters = (self.quarter() for _ in range(MOST_QUARTERS))
        return any(_power(quarter, hertz) > LOUDER * max(_power(quarter, hertz * 2 ** 0.5),
                                                         _power(quarter, hertz * 2))
                   for quarter in quarters)

    def quarter(self) -> array.array:
        """The next quarter of a second."""
        return array.array("h", self._stream.read(self.RATE // 4 * 2))


def _power(sound: array.array, hertz: float) -> float:
    """How much of `sound` is a tone of `hertz`: its Fourier transform there, squared."""
    step = -2j * cmath.pi * hertz / Recording.RATE
    return abs(sum(sample * cmath.exp(step * at) for at, sample in enumerate(sound))) ** 2
