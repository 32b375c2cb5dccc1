# SPDX-License-Identifier: MIT
"""The measured program, and areas of its window."""

import contextlib
import pathlib
import re
import subprocess
import time
from collections.abc import Callable, Iterator

from desk.desktop import PrivateDesktop
from desk.settings import write_settings
from desk.waiting import wait_until

from .microphone import PipedRoom
from .picture import Area, Picture

# In the window at its first size, 480x888.
NOTE = Area(120, 160, 240, 90)
LEVEL = Area(28, 426, 424, 12)
PLAY_BUTTON = Area(40, 724, 400, 28)

SECONDS = 20
POLL_SECONDS = 0.0005


class Subject:
    def __init__(self, desktop: PrivateDesktop, room: PipedRoom, program: pathlib.Path):
        self._desktop = desktop
        self._room = room
        self._program = program
        self.picture = Picture(desktop.picture)
        self._left_top: tuple[int, int] | None = None

    @contextlib.contextmanager
    def running(self) -> Iterator[subprocess.Popen]:
        """Runs it with a guitar tuning and private settings."""
        config_home = self._desktop.folder("config")
        write_settings(config_home, "guitar", "g6-standard")
        process = self._desktop.processes.start(
            [str(self._program)], {**self._room.environment, "XDG_CONFIG_HOME": str(config_home)})
        try:
            yield process
        finally:
            self._desktop.processes.end(process)

    def find_window(self, process: subprocess.Popen) -> str:
        """The window's id for xdotool. Also stores its position: the window manager always places it alike."""
        search = ["xdotool", "search", "--onlyvisible", "--pid", str(process.pid), "--name", "."]
        window = wait_until(lambda: subprocess.run(search, capture_output=True, text=True).stdout,
                            lambda: "no window").split()[0]
        info = subprocess.run(["xwininfo", "-id", window], check=True, capture_output=True,
                              text=True).stdout
        x, y = (int(re.search(rf"Absolute upper-left {axis}:\s+(-?\d+)", info)[1])
                for axis in "XY")
        self._left_top = (x, y)
        return window

    def pixels(self, area: Area) -> bytes:
        return self.picture.pixels(area.moved(*self._left_top))

    def minimise(self, window: str) -> None:
        subprocess.run(["xdotool", "windowminimize", window], check=True)


def moment_when(condition: Callable[[], bool], seconds: float = SECONDS) -> float | None:
    """The time of the monotonic clock, to about a millisecond; nothing if it never became true."""
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            return None
        time.sleep(POLL_SECONDS)
    return time.monotonic()
