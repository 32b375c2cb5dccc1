#!/usr/bin/python3 -B
# SPDX-License-Identifier: MIT
"""hour.py PROGRAM [MINUTES]: plays a guitar to the tuner on a private desktop in real time and prints the usage.
Fails if a string was not shown or anything grew."""

import pathlib
import sys

REPOSITORY = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(REPOSITORY / "tests" / "system"))

from desk.desktop import PrivateDesktop  # noqa: E402
from desk.instruments import STEEL_GUITAR, Band, Note  # noqa: E402
from measure import endurance  # noqa: E402
from measure.microphone import PipedRoom, samples_of  # noqa: E402
from measure.subject import Subject  # noqa: E402

OPEN_STRINGS = (40, 45, 50, 55, 59, 64)
MOST_GROWTH = 1.0  # megabytes


def main(arguments: list[str]) -> int:
    if not 1 <= len(arguments) <= 2:
        print(__doc__, file=sys.stderr)
        return 2
    minutes = float(arguments[1]) if len(arguments) == 2 else 60.0
    with PrivateDesktop(read_aloud=False) as desktop, PipedRoom(desktop) as room:
        band = Band(desktop.folder("notes"))
        strings = [samples_of(band.wav(Note(STEEL_GUITAR, key))) for key in OPEN_STRINGS]
        subject = Subject(desktop, room, pathlib.Path(arguments[0]).resolve())
        done = endurance.measure(subject, room, strings, 60 * minutes,
                                 lambda line: print(line, flush=True))
    for what, value in figures(done).items():
        print(f"figure: {what} = {value}")
    return 0 if is_well(done) else 1


def figures(done: endurance.Endurance) -> dict[str, str]:
    before, after = done.before, done.after
    work = after.work.since(before.work)
    return {
        "minutes of real time": f"{done.seconds / 60:.1f}",
        "strings shown rightly": f"{done.right} of {done.played}",
        "resident memory, MB": f"{before.memory['Rss']:.1f}, then {after.memory['Rss']:.1f}",
        "memory written by the program, MB":
            f"{before.memory['Private_Dirty']:.1f}, then {after.memory['Private_Dirty']:.1f}",
        "descriptors": f"{before.descriptors}, then {after.descriptors}",
        "threads": f"{len(before.threads)}, then {len(after.threads)}",
        "processor, %": f"{100 * work.seconds / done.seconds:.2f}",
    }


def is_well(done: endurance.Endurance) -> bool:
    growth = done.after.memory["Rss"] - done.before.memory["Rss"]
    return (0 < done.played == done.right and growth < MOST_GROWTH
            and done.after.descriptors <= done.before.descriptors
            and len(done.after.threads) <= len(done.before.threads))


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
