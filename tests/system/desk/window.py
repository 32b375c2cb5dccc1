# SPDX-License-Identifier: MIT
"""The tuner's window, read through the accessibility interface and operated with mouse and keys."""

import contextlib
import functools
import itertools
import pathlib
import subprocess
from collections.abc import Callable, Iterator
from typing import NamedTuple

import pyatspi
from gi.repository import GLib

from .waiting import EVENTUALLY_SECONDS, wait_until

Reading = dict[str, str]  # description of an item to its name

VERDICTS = ("In tune", "Flat", "Sharp")
# The roles of items in a list; Qt uses the second for items of any list.
IN_LISTS = (pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_LIST_ITEM, pyatspi.ROLE_HEADING)
LEFT_BUTTON = "1"
LEAD = 5
# Positions and sizes are rounded to whole pixels.
MOST_PIXELS_OFF = 2


class Box(NamedTuple):
    """In pixels, from the upper left corner of the screen."""

    x: int
    y: int
    width: int
    height: int

    @property
    def right(self) -> int:
        return self.x + self.width

    @property
    def bottom(self) -> int:
        return self.y + self.height

    def holds(self, other: "Box", margin: int = 0) -> bool:
        return (self.x - margin <= other.x and other.right <= self.right + margin
                and self.y - margin <= other.y and other.bottom <= self.bottom + margin)


class Item:
    """The accessible properties of `found` when it was found."""

    def __init__(self, found: pyatspi.Accessible, states: pyatspi.StateSet):
        self._found = found
        self.role = found.getRole()
        self.name = found.name
        self.checked = states.contains(pyatspi.STATE_CHECKED)

    # Lazy: each query is a round trip to the program.
    @functools.cached_property
    def toolkit(self) -> tuple[int, int]:
        """The version of Qt."""
        major, minor, *_ = self._found.getApplication().toolkitVersion.split(".")
        return int(major), int(minor)

    @functools.cached_property
    def description(self) -> str:
        with contextlib.suppress(GLib.Error):
            return self._found.description
        return ""

    @functools.cached_property
    def box(self) -> Box:
        """Empty if the item has no size or no longer exists."""
        with contextlib.suppress(GLib.Error, NotImplementedError):
            place = self._found.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
            return Box(place.x, place.y, place.width, place.height)
        return Box(0, 0, 0, 0)

    def invoke(self, action: str) -> bool:
        """Invokes an action, as a screen reader does. False if the item does not have it."""
        actions = self._found.queryAction()
        names = [actions.getName(index) for index in range(actions.nActions)]
        return action in names and actions.doAction(names.index(action))


class Window:
    """The window of process `pid`, which may not exist yet."""

    def __init__(self, pid: int):
        self._pid = pid

    def items(self) -> list[Item]:
        """The visible items; empty without a window."""
        try:
            return [Item(found, states) for found in self._all()
                    if (states := found.getState()).contains(pyatspi.STATE_SHOWING)]
        except GLib.Error:  # An item disappeared during the query.
            return []

    def _wait_for_items(self) -> list[Item]:
        return wait_until(self.items, lambda: "there is no window")

    def read(self) -> Reading:
        return {item.description: item.name for item in self.items()
                if item.name and item.description}

    def wait_for(self, condition: Callable[[Reading], bool]) -> Reading:
        """The first reading for which `condition` holds."""
        last: Reading = {}

        def is_fulfilled() -> bool:
            nonlocal last
            last = self.read()
            return condition(last)

        wait_until(is_fulfilled, lambda: f"the window shows {last}")
        return last

    def wait_for_note(self, is_right: Callable[[Reading], bool]) -> Reading:
        """The reading with which right readings lead wrong ones by `LEAD`: a pluck may be misread, and polling has
        no fixed rate."""
        lead = 0

        def leads(shown: Reading) -> bool:
            nonlocal lead
            right = is_heard(shown) and is_right(shown)
            lead = max(0, lead + (1 if right else -1 if is_heard(shown) else 0))
            return right and lead >= LEAD

        return self.wait_for(leads)

    def find(self, **wanted) -> Item:
        """The item with these values, once there is exactly one."""
        found: list[Item] = []

        def is_there() -> bool:
            found[:] = [item for item in self.items()
                        if all(getattr(item, key) == value for key, value in wanted.items())]
            return len(found) == 1

        wait_until(is_there, lambda: f"not one {wanted} but {len(found)} among "
                   f"{[(item.name, item.checked, item.description) for item in self.items()]}")
        return found[0]

    def wait_until_gone(self, **wanted) -> None:
        wait_until(lambda: (items := self.items()) and not any(
            all(getattr(item, key) == value for key, value in wanted.items()) for item in items),
                   lambda: f"{wanted} does not go away")

    def names(self, role: int) -> list[str]:
        return [item.name for item in self._wait_for_items() if item.role == role]

    def frame(self) -> Box:
        """The window's area without its frame."""
        return self.find(role=pyatspi.ROLE_FRAME).box

    def wait_for_size(self, size: tuple[int, int]) -> None:
        wait_until(lambda: self.frame()[2:] == size, lambda: f"the window is {self.frame()}")

    def outside(self, enlarged: float = 1) -> list[str]:
        """The items outside the window. Up to Qt 6.8 scaled items are reported at their drawn position but with
        their unscaled size."""
        frame, *items = self._wait_for_items()
        if frame.toolkit > (6, 8):
            enlarged = 1
        drawn = {item.name: Box(item.box.x, item.box.y, round(item.box.width * enlarged),
                                round(item.box.height * enlarged)) for item in items}
        return [f"{name} at {box} in {frame.box}" for name, box in drawn.items()
                if not frame.box.holds(box, MOST_PIXELS_OFF)]

    def press(self, **wanted) -> None:
        self.click(self.find(**wanted))

    def open_list(self, face: Item, names: list[str]) -> list[Item]:
        """Clicks the control of a list and waits for these headings and entries, from top to bottom, including
        those out of view."""
        self.click(face)
        listed: list[Item] = []

        def is_there() -> bool:
            # The list is last, because it is on top.
            inside = itertools.dropwhile(lambda item: item.role != pyatspi.ROLE_POPUP_MENU, self.items())
            listed[:] = sorted((item for item in inside if item.role in IN_LISTS),
                               key=lambda item: item.box.y)
            return [item.name for item in listed] == names

        wait_until(is_there, lambda: f"{[item.name for item in listed]} in the list, not {names}")
        return listed

    def choose(self, entries: list[Item], title: str) -> None:
        """Clicks the entry of this title, which must be in view, in an open list."""
        self.click(next(entry for entry in entries if entry.name == title))
        self.wait_until_gone(role=pyatspi.ROLE_POPUP_MENU)

    def click(self, item: Item) -> None:
        box = item.box
        xdotool("mousemove", str(box.x + box.width // 2), str(box.y + box.height // 2),
                "click", "--delay", "0", LEFT_BUTTON)

    def keys(self, *names: str) -> None:
        xdotool("key", *names)

    def rest_mouse(self) -> None:
        """Moves the mouse to the lower right corner of the screen."""
        xdotool("mousemove", "9999", "9999")

    def resize(self, width: int, height: int) -> None:
        """Resizes the window's area without its frame, in the upper left corner of the screen."""
        window = self._id()
        xdotool("windowmove", window, "0", "0", "windowsize", window, str(width), str(height))

    def minimise(self) -> None:
        xdotool("windowminimize", self._id())

    def activate(self) -> None:
        """Brings the window to the front, also if minimised."""
        xdotool("windowactivate", "--sync", self._id())

    def close(self) -> None:
        """Closes the window with the window manager's key."""
        self.activate()
        xdotool("key", "alt+F4")

    def screenshot(self, png: pathlib.Path) -> None:
        png.parent.mkdir(parents=True, exist_ok=True)
        subprocess.run(["import", "-window", self._id(), f"png:{png}"], check=True,
                       timeout=EVENTUALLY_SECONDS)

    def size_in_pixels(self) -> tuple[int, int]:
        told = xdotool("getwindowgeometry", "--shell", self._id())
        values = dict(line.split("=") for line in told.split())
        return int(values["WIDTH"]), int(values["HEIGHT"])

    def property(self, name: str) -> str:
        """The X11 property as printed by xprop."""
        return subprocess.run(["xprop", "-id", self._id(), name], capture_output=True, text=True,
                              check=True).stdout

    def _id(self) -> str:
        # Qt has hidden windows; only this one has a title.
        return xdotool("search", "--all", "--pid", str(self._pid), "--name", ".").split()[0]

    def _all(self) -> Iterator[pyatspi.Accessible]:
        for application in pyatspi.Registry.getDesktop(0):
            if application and application.get_process_id() == self._pid:
                yield from _below(application)


def _below(item: pyatspi.Accessible) -> Iterator[pyatspi.Accessible]:
    # Iteration would query the number of children for each child.
    for index in range(item.get_child_count()):
        if child := item.get_child_at_index(index):
            yield child
            yield from _below(child)


def is_heard(reading: Reading) -> bool:
    return reading.get("Status") in VERDICTS


def note(reading: Reading) -> str:
    """The note with its octave, such as "E2"."""
    return reading.get("Note", "") + reading.get("Octave", "")


def cents(reading: Reading) -> float:
    return float(reading["Cents"].removesuffix(" ¢").replace("\N{MINUS SIGN}", "-"))


def xdotool(*command: str) -> str:
    """The command's output."""
    return subprocess.run(["xdotool", *command], check=True, timeout=EVENTUALLY_SECONDS,
                          capture_output=True, text=True).stdout
