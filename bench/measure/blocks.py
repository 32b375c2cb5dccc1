"""How soon the blocks themselves let a string be named."""

import array
import pathlib
import subprocess
import tempfile
import wave

from .microphone import RATE

BLOCK, HOP = 8192, 4096
PHASES = 8  # moments of the period of the blocks, evenly spread, at which the first one may begin
NAMES = ("C", "C♯", "D", "D♯", "E", "F", "F♯", "G", "G♯", "A", "A♯", "B")


def seconds_needed(replay: pathlib.Path, sound: array.array,
                   strings: list[tuple[int, int]]) -> list[float]:
    """From the onset of each string (its key, A4 is 69, and the frame at which it begins) to the end
    of the first block in which `replay` finds it, for every phase that the blocks may have."""
    needed = []
    for skipped in range(0, HOP, HOP // PHASES):
        ends = _named_blocks(replay, sound[skipped:])
        for key, begin in strings:
            first = next(end + skipped for end, named in ends
                         if named == key and end + skipped > begin)
            needed.append((first - begin) / RATE)
    return needed


def _named_blocks(replay: pathlib.Path, sound: array.array) -> list[tuple[int, int]]:
    """The frame at which each block ends that holds a note, and the key of it."""
    with tempfile.TemporaryDirectory() as folder:
        recording = pathlib.Path(folder) / "sound.wav"
        _write(recording, sound)
        printed = subprocess.run([str(replay), str(recording)], check=True, capture_output=True,
                                 text=True).stdout
    heading, *lines = (line.split("\t") for line in printed.splitlines())
    rows = (dict(zip(heading, line)) for line in lines)
    return [(int(row["sample"]) + BLOCK, NAMES.index(row["note"]) + 12 * (int(row["octave"]) + 1))
            for row in rows if row["heard"] == "yes"]


def _write(recording: pathlib.Path, sound: array.array) -> None:
    with wave.open(str(recording), "wb") as opened:
        opened.setnchannels(1)
        opened.setsampwidth(2)
        opened.setframerate(RATE)
        opened.writeframes(array.array("h", (round(32767 * value) for value in sound)))
