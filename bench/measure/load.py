# SPDX-License-Identifier: MIT
"""The program's usage while a guitar is played, in silence, and while minimised."""

import array
import subprocess
import time
from typing import NamedTuple

from . import usage
from .microphone import PipedRoom
from .subject import Subject

SETTLE_SECONDS = 8
TURNS = 3


class Load(NamedTuple):
    percent: float  # of one processor
    wakeups: dict[str, float]  # per second, by thread name

    @property
    def all_wakeups(self) -> float:
        return sum(self.wakeups.values())


class Loads(NamedTuple):
    playing: Load
    silent: Load
    minimised: Load
    floor_playing: Load
    floor_silent: Load
    memory: dict[str, float]  # in megabytes
    threads: list[str]


def measure(subject: Subject, floor: Subject, room: PipedRoom, guitar: array.array,
            seconds: float) -> Loads:
    """In turns, so that a machine that becomes slower or faster does so for both."""
    turns = [(_turn(subject, room, guitar, seconds), _turn(floor, room, guitar, seconds))
             for _ in range(TURNS)]
    ours, least = ([list(column) for column in zip(*side)] for side in zip(*turns))
    with subject.running() as process:
        window = subject.find_window(process)
        room.hear(guitar)
        time.sleep(SETTLE_SECONDS)
        memory, threads = usage.memory(process.pid), usage.threads(process.pid)
        room.hear(array.array("f"))
        subject.minimise(window)
        minimised = _load(process, seconds)
        room.hear_no_more()
    return Loads(*map(_median, ours), minimised, *map(_median, least), memory, threads)


def _turn(subject: Subject, room: PipedRoom, guitar: array.array,
          seconds: float) -> tuple[Load, Load]:
    with subject.running() as process:
        subject.find_window(process)
        room.hear(guitar)
        playing = _load(process, seconds)
        room.hear(array.array("f"))
        silent = _load(process, seconds)
        room.hear_no_more()
    return playing, silent


def _median(loads: list[Load]) -> Load:
    return sorted(loads, key=lambda load: load.percent)[len(loads) // 2]


def _load(process: subprocess.Popen, seconds: float) -> Load:
    time.sleep(SETTLE_SECONDS)
    before = usage.work(process.pid)
    time.sleep(seconds)
    done = usage.work(process.pid).since(before)
    return Load(100 * done.seconds / seconds,
                {name: count / seconds for name, count in done.wakeups.items()})
