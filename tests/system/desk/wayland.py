"""A Wayland display of its own on the private desktop: nobody sees it, and it has no keyboard."""

import os
import subprocess

from .desktop import PrivateDesktop, Size
from .waiting import wait_until

SOCKET = "wayland-corvane"


class WaylandDisplay:
    """For as long as the context lasts; `environment` is that of the programs that are to use it."""

    def __init__(self, desktop: PrivateDesktop, screen: Size):
        self._desktop = desktop
        self._screen = screen
        self._folder = desktop.folder("wayland")
        self.environment = {**os.environ, "XDG_RUNTIME_DIR": str(self._folder),
                            "WAYLAND_DISPLAY": SOCKET, "DISPLAY": "",
                            "QT_QPA_PLATFORM": "wayland"}

    def __enter__(self) -> "WaylandDisplay":
        width, height = self._screen
        self._weston = self._desktop.processes.start(
            ["weston", "--backend=headless-backend.so", "--use-pixman", "--no-config",
             "--idle-time=0", f"--width={width}", f"--height={height}", f"--socket={SOCKET}"],
            self.environment)
        wait_until(self._is_ready, lambda: self._desktop.processes.last_words("weston"))
        return self

    def __exit__(self, *_) -> None:
        self._desktop.processes.end(self._weston)

    def _is_ready(self) -> bool:
        """Not merely the socket: the first answer."""
        return (self._folder / SOCKET).exists() and subprocess.run(
            ["wayland-info"], env=self.environment, capture_output=True).returncode == 0
