# SPDX-License-Identifier: MIT
"""The private desktop leaves nothing behind."""

import pathlib
import subprocess
import sys
from collections.abc import Callable

from desk import system_test
from desk.waiting import wait_until

# Prints the directory of its files.
OPEN_A_DESKTOP = """
import signal
from desk.desktop import PrivateDesktop
from desk.pulse_audio import PulseAudioRoom
with PrivateDesktop() as desktop, PulseAudioRoom(desktop):
    print(desktop.root, flush=True)
    signal.pause()
"""


class Desk(system_test.SystemTest):
    def test_leaves_nothing_when_terminated(self) -> None:
        root = self.open_and(subprocess.Popen.terminate)
        self.assertFalse(pathlib.Path(root).exists())
        self.assertEqual(programs_of(root), [])

    def test_leaves_only_files_when_killed(self) -> None:
        root = self.open_and(subprocess.Popen.kill)
        wait_until(lambda: not programs_of(root), lambda: f"left: {programs_of(root)}")

    def open_and(self, end: Callable[[subprocess.Popen], None]) -> str:
        """Opens and ends another desktop. Returns the directory of its files."""
        with subprocess.Popen([sys.executable, "-c", OPEN_A_DESKTOP], text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              cwd=pathlib.Path(__file__).parent) as opened:
            root = opened.stdout.readline().strip()
            self.assertTrue(programs_of(root))
            end(opened)
        return root


def programs_of(root: str) -> list[str]:
    """The running programs of the desktop with its files in `root`."""
    found = []
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if f"={root}/".encode() in (process / "environ").read_bytes():
                found.append((process / "comm").read_text().strip())
        except OSError:  # Ended, or another user's.
            continue
    return found


if __name__ == "__main__":
    system_test.main()
