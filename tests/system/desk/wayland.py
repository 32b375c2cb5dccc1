# SPDX-License-Identifier: MIT
"""Private Wayland displays."""

import os
import subprocess

from .desktop import PrivateDesktop, Size
from .waiting import wait_until
from .window import xdotool

SOCKET = "wayland-corvane"


class WaylandDisplay:
    """A headless display without mouse and keyboard while the context lasts. `environment`: for the programs that
    are to use it."""

    _backend = "headless"

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
            ["weston", f"--backend={self._backend}-backend.so", "--use-pixman", "--no-config",
             "--idle-time=0", f"--width={width}", f"--height={height}", f"--socket={SOCKET}"],
            {**self.environment, "DISPLAY": os.environ["DISPLAY"]})
        wait_until(self._is_ready, lambda: self._desktop.processes.last_words("weston"))
        return self

    def __exit__(self, *_) -> None:
        self._desktop.processes.end(self._weston)

    def _is_ready(self) -> bool:
        """Whether it answers; the socket alone does not suffice."""
        return (self._folder / SOCKET).exists() and subprocess.run(
            ["wayland-info"], env=self.environment, capture_output=True).returncode == 0


# In a display just large enough for the tuner's smallest window.
_CLOSE_BUTTON = (470, 47)


class WaylandWindow(WaylandDisplay):
    """A display in a window of the X11 desktop, with room for one window of the tuner."""

    _backend = "x11"

    def __init__(self, desktop: PrivateDesktop):
        super().__init__(desktop, (486, 760))

    def close_window(self) -> None:
        """Clicks the close button of the tuner's frame, if present."""
        # The compositor updates the pointer position when it enters.
        xdotool("mousemove", "0", "0")
        xdotool("mousemove", "--window", xdotool("getactivewindow").strip(),
                *map(str, _CLOSE_BUTTON), "click", "1")
