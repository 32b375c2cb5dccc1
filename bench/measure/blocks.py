# SPDX-License-Identifier: MIT
"""When the blocks suffice to name a string."""

import array
import pathlib
import subprocess
import tempfile
import wave
from typing import NamedTuple

from .microphone import RATE

BLOCK, HOP = 8192, 4096
STEP = 64  # frames between the phases
SOON = 1.0  # seconds; every string of a sequence is longer
NAMES = ("C", "C♯", "D", "D♯", "E", "F", "F♯", "G", "G♯", "A", "A♯", "B")


class Needed(NamedTuple):
    """For one string, in seconds from its onset."""

    whole: float  # to the end of the first block of this string alone
    named: float  # to the end of the first block that names it


def needed(replay: pathlib.Path, sound: array.array,
           strings: list[tuple[int, int]]) -> list[list[Needed]]:
    """For each possible first frame of the first block, in steps: the blocks that each string (its key, A4 is 69, and its
    first frame) needs until `replay` names it."""
    samples = array.array("h", (round(32767 * value) for value in sound))
    return [[_needed(blocks, key, begin) for key, begin in strings]
            for blocks in (_blocks(replay, samples, first) for first in range(0, HOP, STEP))]


def _needed(blocks: list[tuple[int, int | None]], key: int, begin: int) -> Needed:
    after = [(end, found) for end, found in blocks if begin < end < begin + SOON * RATE]
    whole = next(end for end, _ in after if end - BLOCK >= begin)
    named = next((end for end, found in after if found == key), None)
    if named is None:
        raise RuntimeError(f"no block names the string {key} at frame {begin}")
    return Needed((whole - begin) / RATE, (named - begin) / RATE)


def _blocks(replay: pathlib.Path, samples: array.array, first: int) -> list[tuple[int, int | None]]:
    """The end of each block, and the key detected in it."""
    with tempfile.TemporaryDirectory() as folder:
        recording = pathlib.Path(folder) / "sound.wav"
        _write(recording, samples[first:])
        printed = subprocess.run([str(replay), str(recording)], check=True, capture_output=True,
                                 text=True).stdout
    heading, *lines = (line.split("\t") for line in printed.splitlines())
    rows = (dict(zip(heading, line)) for line in lines)
    return [(first + int(row["sample"]) + BLOCK, _key(row)) for row in rows]


def _key(row: dict[str, str]) -> int | None:
    if row["heard"] != "yes":
        return None
    return NAMES.index(row["note"]) + 12 * (int(row["octave"]) + 1)


def _write(recording: pathlib.Path, samples: array.array) -> None:
    with wave.open(str(recording), "wb") as opened:
        opened.setnchannels(1)
        opened.setsampwidth(2)
        opened.setframerate(RATE)
        opened.writeframes(samples)
