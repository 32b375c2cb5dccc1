#!/usr/bin/python3 -B
# SPDX-License-Identifier: MIT
"""program.py PROGRAM [--quick]: measures the tuner, which has corvane-replay and floor beside it, on a
private desktop with a private audio server and prints one table. --quick measures everything too briefly to
be believed."""

import array
import pathlib
import sys

REPOSITORY = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(REPOSITORY / "tests" / "system"))

from desk.desktop import PrivateDesktop  # noqa: E402
from desk.instruments import STEEL_GUITAR, Band, Note  # noqa: E402
from measure import delay, frames, load, startup  # noqa: E402
from measure.microphone import PipedRoom, samples_of  # noqa: E402
from measure.subject import Subject  # noqa: E402

OPEN_STRINGS = (40, 45, 50, 55, 59, 64)


class Row:
    def __init__(self, what: str, value: float, unit: str, goal: float | None = None):
        self._what, self._value, self._unit, self._goal = what, value, unit, goal

    def __str__(self) -> str:
        if self._goal is None:
            return f"| {self._what} | {self._value:.3g} {self._unit} | | |"
        verdict = "met" if self._value <= self._goal else "missed"
        return f"| {self._what} | {self._value:.3g} {self._unit} | {self._goal:g} {self._unit} | {verdict} |"


def main(arguments: list[str]) -> int:
    options = [each for each in arguments if each.startswith("--")]
    programs = [each for each in arguments if not each.startswith("--")]
    if len(programs) != 1 or options not in ([], ["--quick"]):
        print(__doc__, file=sys.stderr)
        return 2
    program = pathlib.Path(programs[0]).resolve()
    report(program, quick=bool(options))
    return 0


def report(program: pathlib.Path, quick: bool) -> None:
    with PrivateDesktop(read_aloud=False) as desktop, PipedRoom(desktop) as room:
        band = Band(desktop.folder("notes"))
        strings = {key: samples_of(band.wav(Note(STEEL_GUITAR, key))) for key in OPEN_STRINGS}
        guitar = sum(strings.values(), start=array.array("f")) * 5
        subject = Subject(desktop, room, program)
        floor = Subject(desktop, room, program.with_name("floor"))
        print("| What | Measured | Goal | |\n|---|---|---|---|")
        show(startup_rows(startup.measure(subject, room, strings[45], 2 if quick else 15)))
        show(load_rows(load.measure(subject, floor, room, guitar, 3 if quick else 20)))
        show(delay_rows(delay.measure(subject, room, program.with_name("corvane-replay"), strings,
                                     6 if quick else 120)))
        show(frame_rows(frames.measure(subject, room, 3 if quick else 30)))


def show(rows: list[Row]) -> None:
    print(*rows, sep="\n", flush=True)


def startup_rows(times: startup.Startup) -> list[Row]:
    return [Row(f"First frame after the start (median of {times.runs}, warm)", times.first_frame,
                "ms", 90),
            Row("First reading after the start", times.first_reading, "ms")]


def load_rows(loads: load.Loads) -> list[Row]:
    rows = []
    for when, ours, floor in (("while a guitar is played", loads.playing, loads.floor_playing),
                              ("in silence", loads.silent, loads.floor_silent)):
        rows += [Row(f"Processor {when}", ours.percent, "%"),
                 Row(f"of the least program {when}", floor.percent, "%"),
                 Row(f"Ratio {when}", ours.percent / floor.percent, "", 1.5)]
    rows += [Row("Processor while minimised", loads.minimised.percent, "%", 0),
            Row("Resident memory", loads.memory["Rss"], "MB", 46),
            Row("of it, its proportional share (PSS)", loads.memory["Pss"], "MB"),
            Row("of it written by this program alone", loads.memory["Private_Dirty"], "MB", 16),
            Row(f"Threads ({', '.join(loads.threads)})", len(loads.threads), "")]
    for name, part in (("silence", loads.silent), ("the minimised window", loads.minimised)):
        rows.append(Row(f"Wake-ups in {name}", part.all_wakeups, "a second"))
        rows += [Row(f"of them {thread}", count, "a second")
                 for thread, count in sorted(part.wakeups.items()) if count > 0]
    return rows


def delay_rows(delays: delay.Delays) -> list[Row]:
    shown, at = len(delays.values), delay.at
    return [Row("Onset of a string to its name on the screen, median", at(delays.values, 0.5), "ms"),
            Row("at the 99th percentile", at(delays.values, 0.99), "ms"),
            Row("of it the program's own share, median", at(delays.own, 0.5), "ms", 25),
            Row("the program's own share, 99th percentile", at(delays.own, 0.99), "ms", 40),
            Row(f"Strings that the first block of their own does not yet name, of {delays.onsets}",
                delays.late_blocks, ""),
            Row(f"Strings not shown within a second, of {delays.onsets}", delays.onsets - shown,
                "", 0)]


def frame_rows(seen: frames.Frames) -> list[Row]:
    return [Row(f"Blocks heard but not shown, of {seen.expected}", seen.expected - seen.shown,
                "", 0)]


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
