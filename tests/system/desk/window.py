"""The tuner's window, read as a screen reader reads it and handled as by a person."""

import pathlib
import subprocess
from collections.abc import Callable, Iterator

import pyatspi
from gi.repository import GLib

from .readings import Reading
from .waiting import wait_until
from .xdotool import xdotool


class Window:
    """The window of process `pid`, which need not be there yet."""

    def __init__(self, pid: int):
        self._pid = pid

    def read(self) -> Reading:
        """Description and text of every item that is on the screen and has both; empty while there
        is no window."""
        try:
            return {item.description: item.name for item in self._items()
                    if item.description and item.getState().contains(pyatspi.STATE_SHOWING)}
        except GLib.Error:  # An item went away while it was being asked.
            return {}

    def wait_for(self, condition: Callable[[Reading], bool], seconds: float = 5) -> Reading:
        """The first reading that fulfils `condition`; else TimeoutError with the last one."""
        last: Reading = {}

        def fulfilled() -> bool:
            nonlocal last
            last = self.read()
            return condition(last)

        wait_until(fulfilled, seconds, lambda: f"the window shows {last}")
        return last

    def buttons(self) -> list[str]:
        """The names of the push buttons that are on the screen."""
        return [button.name for button in self._buttons()]

    def click(self, name: str) -> None:
        """Presses the button of this name with the mouse."""
        button = next(button for button in self._buttons() if button.name == name)
        place = button.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        self.activate()
        xdotool("mousemove", str(place.x + place.width // 2), str(place.y + place.height // 2),
                 "click", "--delay", "0", "1")

    def minimise(self) -> None:
        xdotool("windowminimize", self._id())

    def activate(self) -> None:
        """Brings it to the front, also when it is minimised."""
        xdotool("windowactivate", "--sync", self._id())

    def close(self) -> None:
        """Presses the window manager's key for it."""
        self.activate()
        xdotool("key", "alt+F4")

    def screenshot(self, png: pathlib.Path) -> None:
        png.parent.mkdir(parents=True, exist_ok=True)
        subprocess.run(["import", "-window", self._id(), f"png:{png}"], check=True, timeout=20)

    def pixels(self) -> bytes:
        """Of its own area, three bytes each."""
        return subprocess.run(["import", "-window", self._id(), "-depth", "8", "rgb:-"], check=True,
                              capture_output=True, timeout=20).stdout

    def size_in_pixels(self) -> tuple[int, int]:
        told = xdotool("getwindowgeometry", "--shell", self._id())
        values = dict(line.split("=") for line in told.split())
        return int(values["WIDTH"]), int(values["HEIGHT"])

    def _id(self) -> str:
        # The toolkit has windows of its own that never show; only this one has a title.
        return xdotool("search", "--all", "--pid", str(self._pid), "--name", ".").split()[0]

    def _buttons(self) -> list[pyatspi.Accessible]:
        try:
            return [item for item in self._items() if item.getRole() == pyatspi.ROLE_PUSH_BUTTON
                    and item.getState().contains(pyatspi.STATE_SHOWING)]
        except GLib.Error:  # An item went away while it was being asked.
            return []

    def _items(self) -> Iterator[pyatspi.Accessible]:
        for application in self._applications():
            yield from below(application)

    def _applications(self) -> list[pyatspi.Accessible]:
        return [application for application in pyatspi.Registry.getDesktop(0)
                if application and application.get_process_id() == self._pid]


def below(item: pyatspi.Accessible) -> Iterator[pyatspi.Accessible]:
    # Not by iteration, which asks for the number of children before each of them.
    for index in range(item.get_child_count()):
        if child := item.get_child_at_index(index):
            yield child
            yield from below(child)
