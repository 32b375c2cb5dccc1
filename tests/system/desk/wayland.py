"""Wayland displays of their own on the private desktop."""

import os
import subprocess

from .desktop import PrivateDesktop, Size
from .waiting import wait_until
from .window import xdotool

SOCKET = "wayland-corvane"


class WaylandDisplay:
    """For as long as the context lasts; `environment` is that of the programs that are to use it.
    Nobody sees it, and it has no mouse and no keyboard."""

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
        """Not merely the socket: the first answer."""
        return (self._folder / SOCKET).exists() and subprocess.run(
            ["wayland-info"], env=self.environment, capture_output=True).returncode == 0


# Of the tuner's smallest window, where the display has no room to put it elsewhere.
_CLOSE_BUTTON = (470, 47)


class WaylandWindow(WaylandDisplay):
    """A display in a window of the X11 desktop, which has room for one of the tuner alone."""

    _backend = "x11"

    def __init__(self, desktop: PrivateDesktop):
        super().__init__(desktop, (486, 760))

    def close_window(self) -> None:
        """Presses the button in the tuner's frame, if it is there yet."""
        # The compositor takes the mouse's place anew when it comes in.
        xdotool("mousemove", "0", "0")
        xdotool("mousemove", "--window", xdotool("getactivewindow").strip(),
                *map(str, _CLOSE_BUTTON), "click", "1")
