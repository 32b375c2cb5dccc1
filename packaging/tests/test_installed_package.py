"""The package as it is installed, used by somebody on a private desktop."""

import os
import pathlib
import re
import subprocess
import sys

# Beside this file where the package is tested, and in the tree's own tests.
HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent.parent / "tests" / "system")]

from desk import system_test  # noqa: E402
from desk.instruments import STEEL_GUITAR, Note  # noqa: E402
from desk.tuner import Tuner  # noqa: E402

PROGRAM = pathlib.Path("/usr/bin/corvane")
# The cursors of the display and the tables of the language: taken up where they are, and done without.
OPTIONAL = {"libxcursor1", "libxrender1", "libc-bin"}
# The font's samples are themselves some cents away from the notes they stand for.
MOST_CENTS_OFF = 10
PREFERENCES = pathlib.Path(os.environ["HOME"], ".config")


def output_of(*command: str) -> str:
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def mapped_files(pid: int) -> set[str]:
    maps = pathlib.Path(f"/proc/{pid}/maps").read_text()
    return set(re.findall(r" (/\S+)$", maps, re.MULTILINE))


def owners(files: set[str]) -> set[str]:
    """The packages that own `files`, as far as any does; a library may be known by its old place."""
    return {line.split(":")[0] for file in files for path in (file, file.removeprefix("/usr"))
            for line in subprocess.run(["dpkg", "--search", path], capture_output=True,
                                       text=True).stdout.splitlines()}


def needed() -> set[str]:
    """The package with everything that it depends on, directly or not."""
    told = output_of("apt-cache", "depends", "--recurse", "--installed", "--no-recommends",
                     "--no-suggests", "--no-conflicts", "--no-breaks", "--no-replaces",
                     "--no-enhances", "corvane")
    return set(re.findall(r"^(\w\S*)", told, re.MULTILINE))


def recommended() -> set[str]:
    """Used where they are installed; the proof on a clean system has none of them."""
    return set(re.findall(r"[a-z][a-z0-9.+-]+", output_of("dpkg-query", "--show", "--showformat=${Recommends}",
                                                          "corvane")))


class TheInstalledPackage(system_test.SystemTest):
    def test_is_used_and_needs_nothing_that_it_does_not_depend_on(self) -> None:
        room = self.enter_room()
        tuner = self.enterContext(Tuner(self.desktop, PROGRAM, PREFERENCES, room.environment))
        tuner.wait_until_listening(room)
        for key, name in {40: "E2", 64: "E4"}.items():
            self.hear(tuner, room, self.band.wav(Note(STEEL_GUITAR, key)), name,
                      most_off=MOST_CENTS_OFF)
        loaded = owners(mapped_files(tuner.process.pid))
        self.assertIn("corvane", loaded)
        self.assertEqual(loaded - needed() - recommended() - OPTIONAL, set())
        print("Packages it has loaded from:", *sorted(loaded))
        self.assertEqual(tuner.quit(), 0)


if __name__ == "__main__":
    system_test.main()
