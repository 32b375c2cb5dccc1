# SPDX-License-Identifier: MIT
"""A synthesised string with an exact, constant pitch, unlike sampled instruments."""

import array
import math
import pathlib
import wave

SAMPLE_RATE = 24000  # sufficient for a string, and fast
PARTIALS = (1.0, 0.6, 0.4, 0.25, 0.15)  # amplitudes
PEAK = 0.4  # of full scale
DECAY_SECONDS = 1.5  # to a third
SECONDS = 1.2


def write_plucked(path: pathlib.Path, key: int, cents: float = 0.0) -> pathlib.Path:
    """Writes a string `cents` from the note `key` (69 is A, 440 Hz)."""
    hertz = 440 * 2 ** ((key - 69 + cents / 100) / 12)
    scale = 32767 * PEAK / sum(PARTIALS)
    with wave.open(str(path), "wb") as sound:
        sound.setnchannels(1)
        sound.setsampwidth(2)
        sound.setframerate(SAMPLE_RATE)
        sound.writeframes(array.array("h", (
            round(scale * _sample(hertz, frame / SAMPLE_RATE))
            for frame in range(round(SECONDS * SAMPLE_RATE)))))
    return path


def _sample(hertz: float, time: float) -> float:
    turn = 2 * math.pi * hertz * time
    return math.exp(-time / DECAY_SECONDS) * sum(
        loud * math.sin(number * turn) for number, loud in enumerate(PARTIALS, 1))
