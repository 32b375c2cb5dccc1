#!/usr/bin/python3 -B
# SPDX-License-Identifier: MIT
"""naming.py REPLAY...: how often the tuner names sampled strings correctly.

Renders every string of every tuning of guitar and bass, and every key of the piano, from Debian's sound font, runs each
through corvane-replay (the path REPLAY) with its tuning, and counts the analysed blocks by result: the string's pitch to
within half a semitone, that pitch some octaves off, another pitch, or none. Prints a tab-separated line per tuning. Fails
if several REPLAY, for example of different processors, do not print the same bytes."""

import collections
import concurrent.futures
import dataclasses
import math
import os
import pathlib
import re
import subprocess
import sys
import tempfile

REPOSITORY = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(REPOSITORY / "tests" / "system"))

from desk.instruments import FINGERED_BASS, GRAND_PIANO, STEEL_GUITAR, Band, Note  # noqa: E402

OUTCOMES = ("right", "octave", "other", "none")
PIANO_KEYS = range(21, 109)


@dataclasses.dataclass(frozen=True)
class Sounding:
    instrument: str
    tuning: str
    program: int
    keys: tuple[int, ...]


def soundings() -> list[Sounding]:
    found = []
    for instrument, program in (("guitar", STEEL_GUITAR), ("bass", FINGERED_BASS)):
        table = (REPOSITORY / "tunings" / f"{instrument}.cpp").read_text(encoding="utf-8")
        for tuning, keys in re.findall(r'\{"([gb]\d+-\w+)"[^{}]*\{([\d, ]+)\}', table):
            found.append(Sounding(instrument, tuning, program, tuple(map(int, keys.split(", ")))))
    return found + [Sounding("piano", "piano-chromatic", GRAND_PIANO, tuple(PIANO_KEYS))]


def outcome(frequency: str, key: int) -> str:
    if frequency == "-":
        return "none"
    semitones = 12 * math.log2(float(frequency) / 440) + 69 - key
    if abs(semitones) < 0.5:
        return "right"
    return "octave" if abs(semitones - 12 * round(semitones / 12)) < 0.5 else "other"


def readings(replays: list[str], *arguments: str | pathlib.Path) -> str:
    printed = [subprocess.run([replay, *arguments], capture_output=True, text=True, check=True).stdout
               for replay in replays]
    for replay, other in zip(replays, printed, strict=True):
        if other != printed[0]:
            raise ValueError(f"{replays[0]} and {replay} differ: {arguments}\n{printed[0]}\n{other}")
    return printed[0]


def count(replays: list[str], sounding: Sounding, key: int, wav: pathlib.Path) -> collections.Counter:
    lines = readings(replays, wav, "--instrument", sounding.instrument, "--tuning", sounding.tuning)
    return collections.Counter(outcome(line.split("\t")[1], key) for line in lines.splitlines()[1:])


def report(replays: list[str], band: Band) -> None:
    print("tuning", "strings", "blocks", *OUTCOMES, sep="\t")
    total: collections.Counter = collections.Counter()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for sounding in soundings():
            # Render sequentially first, because tunings share strings.
            wavs = [band.wav(Note(sounding.program, key)) for key in sounding.keys]
            counts = pool.map(lambda pair: count(replays, sounding, *pair),
                              zip(sounding.keys, wavs, strict=True))
            print_row(sounding.tuning, len(wavs), tally := sum(counts, collections.Counter()))
            total += tally
    print_row("all", "", total)


def print_row(name: str, strings: int | str, tally: collections.Counter) -> None:
    print(name, strings, tally.total(), *(tally[outcome] for outcome in OUTCOMES), sep="\t")


def main(arguments: list[str]) -> int:
    if not arguments:
        print(__doc__, file=sys.stderr)
        return 2
    with tempfile.TemporaryDirectory() as notes:
        report(arguments, Band(pathlib.Path(notes)))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
