"""The private desktop itself, of which nothing stays behind."""

import pathlib
import subprocess
import sys

from desk import system_test
from desk.waiting import wait_until

OPEN_A_DESKTOP = """
import signal
from desk.desktop import PrivateDesktop
from desk.pulse_audio import PulseAudioRoom
with PrivateDesktop() as desktop, PulseAudioRoom(desktop):
    print(desktop.root, flush=True)
    {then}
"""


class NothingStays(system_test.SystemTest):
    def test_when_something_fails_on_it(self) -> None:
        with open_desktop("1 / 0") as opened:
            root = opened.stdout.readline().strip()
        self.assert_is_gone(root)

    def test_when_it_is_asked_to_end(self) -> None:
        with open_desktop("signal.pause()") as opened:
            root = opened.stdout.readline().strip()
            self.assertTrue(programs_of(root))
            opened.terminate()
        self.assert_is_gone(root)

    def test_no_program_runs_on_when_it_is_killed(self) -> None:
        with open_desktop("signal.pause()") as opened:
            root = opened.stdout.readline().strip()
            self.assertTrue(programs_of(root))
            opened.kill()
        wait_until(lambda: not programs_of(root), lambda: f"left: {programs_of(root)}")

    def assert_is_gone(self, root: str) -> None:
        self.assertFalse(pathlib.Path(root).exists())
        self.assertEqual(programs_of(root), [])


def open_desktop(then: str) -> subprocess.Popen:
    """Another desktop, in a process of its own; the folder of its files is the first line that it
    prints."""
    return subprocess.Popen([sys.executable, "-c", OPEN_A_DESKTOP.format(then=then)], text=True,
                            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                            cwd=pathlib.Path(__file__).parent)


def programs_of(root: str) -> list[str]:
    """The running programs that were started on the desktop with its files in `root`."""
    found = []
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if f"={root}/".encode() in (process / "environ").read_bytes():
                found.append((process / "comm").read_text().strip())
        except OSError:  # It ended meanwhile, or is another user's.
            continue
    return found


if __name__ == "__main__":
    system_test.main()
