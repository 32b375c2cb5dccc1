# SPDX-License-Identifier: MIT
"""The resource usage of a process."""

import pathlib
import re
from typing import NamedTuple


class Work(NamedTuple):
    """Since the process began."""

    seconds: float  # of one processor
    wakeups: dict[str, int]  # by thread name

    def since(self, earlier: "Work") -> "Work":
        return Work(self.seconds - earlier.seconds,
                    {name: count - earlier.wakeups.get(name, 0)
                     for name, count in self.wakeups.items()})


def work(pid: int) -> Work:
    nanoseconds = 0
    wakeups: dict[str, int] = {}
    for task in pathlib.Path(f"/proc/{pid}/task").iterdir():
        nanoseconds += int((task / "schedstat").read_text().split()[0])
        name = (task / "comm").read_text().strip()
        switches = re.search(r"^voluntary_ctxt_switches:\s+(\d+)", (task / "status").read_text(),
                             re.MULTILINE)
        wakeups[name] = wakeups.get(name, 0) + int(switches[1])
    return Work(nanoseconds / 1e9, wakeups)


def memory(pid: int) -> dict[str, float]:
    """In megabytes: "Rss", "Pss", "Private_Dirty" and the other sums that the kernel keeps."""
    rollup = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text()
    return {name: int(kilobytes) / 1024
            for name, kilobytes in re.findall(r"^(\w+):\s+(\d+) kB$", rollup, re.MULTILINE)}


def descriptors(pid: int) -> int:
    return sum(1 for _ in pathlib.Path(f"/proc/{pid}/fd").iterdir())


def threads(pid: int) -> list[str]:
    return sorted((task / "comm").read_text().strip()
                  for task in pathlib.Path(f"/proc/{pid}/task").iterdir())
