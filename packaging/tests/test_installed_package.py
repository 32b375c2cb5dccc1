# SPDX-License-Identifier: MIT
"""Uses the installed package on a private desktop."""

import os
import pathlib
import re
import subprocess
import sys

# Beside this file on the clean system, else in the tree.
HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent.parent / "tests" / "system")]

from desk import system_test  # noqa: E402
from desk.instruments import STEEL_GUITAR, Note  # noqa: E402
from desk.tuner import Tuner  # noqa: E402

PROGRAM = pathlib.Path("/usr/bin/corvane")
# Cursors and locale tables: used if installed, not required.
OPTIONAL = {"libxcursor1", "libxrender1", "libc-bin"}
# The samples themselves are some cents off.
MOST_CENTS_OFF = 10
PREFERENCES = pathlib.Path(os.environ["HOME"], ".config")


def output_of(*command: str) -> str:
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def mapped_files(pid: int) -> set[str]:
    maps = pathlib.Path(f"/proc/{pid}/maps").read_text()
    return set(re.findall(r" (/\S+)$", maps, re.MULTILINE))


def owners(files: set[str]) -> set[str]:
    """The packages that own `files`. A library may be registered without /usr."""
    return {line.split(":")[0] for file in files for path in (file, file.removeprefix("/usr"))
            for line in subprocess.run(["dpkg", "--search", path], capture_output=True,
                                       text=True).stdout.splitlines()}


def needed() -> set[str]:
    """The package and its transitive dependencies."""
    told = output_of("apt-cache", "depends", "--recurse", "--installed", "--no-recommends",
                     "--no-suggests", "--no-conflicts", "--no-breaks", "--no-replaces",
                     "--no-enhances", "corvane")
    return set(re.findall(r"^(\w\S*)", told, re.MULTILINE))


def recommended() -> set[str]:
    """Recommended packages; not installed on the clean system."""
    return set(re.findall(r"[a-z][a-z0-9.+-]+", output_of("dpkg-query", "--show", "--showformat=${Recommends}",
                                                          "corvane")))


class InstalledPackage(system_test.SystemTest):
    def test_loads_only_files_of_its_dependencies(self) -> None:
        room = self.enter_room()
        tuner = self.enterContext(Tuner(self.desktop, PROGRAM, PREFERENCES, room.environment))
        tuner.wait_until_listening(room)
        for key, name in {40: "E2", 64: "E4"}.items():
            self.hear(tuner, room, self.band.wav(Note(STEEL_GUITAR, key)), name,
                      most_off=MOST_CENTS_OFF)
        loaded = owners(mapped_files(tuner.process.pid))
        self.assertIn("corvane", loaded)
        self.assertEqual(loaded - needed() - recommended() - OPTIONAL, set())
        print("Packages with loaded files:", *sorted(loaded))
        self.assertEqual(tuner.quit(), 0)

    def test_diagnose_reports_its_server(self) -> None:
        report = subprocess.run(["corvane-diagnose"], env=self.enter_room().environment,
                                capture_output=True, text=True, check=True).stdout
        for line in (r"^audio server +pulseaudio ", r"^permission +granted$", r"^sound +\d+ blocks "):
            self.assertRegex(report, re.compile(line, re.MULTILINE))


if __name__ == "__main__":
    system_test.main()
