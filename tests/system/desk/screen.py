"""What is on the tuner's screen and where, handled with the mouse and the keys of a person."""

import contextlib
import functools
from collections.abc import Iterator
from typing import NamedTuple

import pyatspi
from gi.repository import GLib

from .waiting import wait_until
from .window import Window, below
from .xdotool import xdotool

ANSWER_SECONDS = 5
LEFT_BUTTON = "1"
DRAG_STEPS = 10


class Box(NamedTuple):
    """In pixels of the whole screen, from its upper left corner."""

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

    def holds(self, other: "Box") -> bool:
        return (self.x <= other.x and other.right <= self.right and self.y <= other.y
                and other.bottom <= self.bottom)


class Item:
    """What a screen reader is told of `found`, in the state in which it was found."""

    def __init__(self, found: pyatspi.Accessible, states: pyatspi.StateSet):
        self._found = found
        self.role = found.getRole()
        self.name = found.name
        self.checked = states.contains(pyatspi.STATE_CHECKED)
        self.focused = states.contains(pyatspi.STATE_FOCUSED)

    # Asked only when it is wanted: each question is a message to the program and back.
    @functools.cached_property
    def description(self) -> str:
        with contextlib.suppress(GLib.Error):
            return self._found.description
        return ""

    @functools.cached_property
    def box(self) -> Box:
        """Empty when it takes up no room, as when it has gone away since."""
        with contextlib.suppress(GLib.Error, NotImplementedError):
            place = self._found.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
            return Box(place.x, place.y, place.width, place.height)
        return Box(0, 0, 0, 0)

    def invoke(self, action: str) -> bool:
        """Does what a screen reader does to press it; False when it has no such action."""
        actions = self._found.queryAction()
        for index in range(actions.nActions):
            if actions.getName(index) == action:
                return actions.doAction(index)
        return False


def has_keyboard(found: pyatspi.Accessible) -> bool:
    states = found.getState()
    return states.contains(pyatspi.STATE_FOCUSED) and states.contains(pyatspi.STATE_SHOWING)


class Screen(Window):
    """The window of process `pid` in all its items."""

    def items(self) -> list[Item]:
        """Those that show, of which there is at least one: the window."""
        return wait_until(self._items_unless_changing, ANSWER_SECONDS, lambda: "there is no window")

    def _items_unless_changing(self) -> list[Item]:
        try:
            return [Item(found, states) for found in self._items()
                    if (states := found.getState()).contains(pyatspi.STATE_SHOWING)]
        except GLib.Error:  # An item went away while it was being asked.
            return []

    def open_list(self) -> list[Item]:
        """The list that is open, which is the last thing in the window, with what is in it; empty
        while none is."""
        try:
            return [Item(found, states) for found in self._items_of_list()
                    if (states := found.getState()).contains(pyatspi.STATE_SHOWING)]
        except GLib.Error:  # It went away while it was being asked.
            return []

    def _items_of_list(self) -> Iterator[pyatspi.Accessible]:
        for application in self._applications():
            window = application.get_child_at_index(0)
            last = window and window.get_child_at_index(window.get_child_count() - 1)
            if last and last.getRole() == pyatspi.ROLE_POPUP_MENU:
                yield last
                yield from below(last)

    def find(self, **wanted) -> Item:
        """The one item that has these values, as soon as there is exactly one."""
        found: list[Item] = []

        def is_there() -> bool:
            found[:] = [item for item in self.items()
                        if all(getattr(item, key) == value for key, value in wanted.items())]
            return len(found) == 1

        wait_until(is_there, ANSWER_SECONDS,
                   lambda: f"not one {wanted} but {len(found)} among "
                           f"{[(item.name, item.checked) for item in self.items()]}")
        return found[0]

    def names(self, role: int) -> list[str]:
        return [item.name for item in self.items() if item.role == role]

    def frame(self) -> Box:
        """Where the window's own area is, without what the window manager puts around it."""
        return self.find(role=pyatspi.ROLE_FRAME).box

    def press(self, **wanted) -> None:
        """Clicks in the middle of an item."""
        self.click_at(self.find(**wanted).box)

    def click_at(self, box: Box, button: str = LEFT_BUTTON) -> None:
        xdotool("mousemove", str(box.x + box.width // 2), str(box.y + box.height // 2),
                 "click", "--delay", "0", button)

    def keys(self, *names: str) -> None:
        xdotool("key", *names)

    def focus(self, name: str, key: str = "Tab") -> None:
        """Goes to an item with the key for it, past every other one at most once."""
        for _ in self.items():
            before = self.focused()
            self.keys(key)
            wait_until(lambda: self.focused() not in ("", before), ANSWER_SECONDS,
                       lambda: f"the keyboard stays at {before}")
            if self.focused() == name:
                return
        raise LookupError(f"the keyboard does not get to {name}")

    def wait_until_focused(self, name: str) -> None:
        wait_until(lambda: self.focused() == name, ANSWER_SECONDS,
                   lambda: f"the keyboard is at {self.focused()}, not {name}")

    def focused(self) -> str:
        """The name of the item that has the keyboard; empty when none has."""
        with contextlib.suppress(GLib.Error):  # An item went away while it was being asked.
            holders = [item for item in self._items() if has_keyboard(item)]
            # What an item stands in has the keyboard too, and comes before it.
            return holders[-1].name if holders else ""
        return ""

    def rest_mouse(self) -> None:
        """Moves it out of the way, to the lower right corner of the screen."""
        xdotool("mousemove", "9999", "9999")

    def resize(self, width: int, height: int) -> None:
        """Asks for a size of the window's own area, in the upper left corner of the screen."""
        window = self._id()
        xdotool("windowmove", window, "0", "0", "windowsize", window, str(width), str(height))

    def drag(self, start: tuple[int, int], end: tuple[int, int]) -> None:
        """Moves the mouse from one place to the other with its button held. The window manager
        takes the first steps for the sign that something is to be dragged at all."""
        xdotool("mousemove", *map(str, start), "mousedown", LEFT_BUTTON)
        for step in range(1, DRAG_STEPS + 1):
            xdotool("mousemove", *(str(s + (e - s) * step // DRAG_STEPS)
                                    for s, e in zip(start, end)))
        xdotool("mouseup", LEFT_BUTTON)
