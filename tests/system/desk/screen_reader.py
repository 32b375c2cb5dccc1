"""What a blind user of the tuner hears: what its screen reader says of the events that reach it."""

import contextlib
import time
from collections.abc import Callable
from typing import NamedTuple

import pyatspi
from gi.repository import Atspi, GLib

from .waiting import wait_until
from .window import Window

# Those that Orca, Debian's screen reader, asks for and answers with speech.
FOCUS = "object:state-changed:focused"
SHOWING = "object:state-changed:showing"
CHECKED = "object:state-changed:checked"
VALUE = "object:property-change:accessible-value"
# And those that a reader who asks again takes notice of.
NAME = "object:property-change:accessible-name"
DESCRIPTION = "object:property-change:accessible-description"

# Until Qt 6.8, a button that opens a menu has the role of any other.
BUTTONS = (pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_PUSH_BUTTON_MENU)
ROLES = {**dict.fromkeys(BUTTONS, "button"), pyatspi.ROLE_RADIO_BUTTON: "radio button",
         pyatspi.ROLE_CHECK_BOX: "check box", pyatspi.ROLE_SPIN_BUTTON: "spin button",
         pyatspi.ROLE_LINK: "link", pyatspi.ROLE_POPUP_MENU: "menu"}
STATES = {pyatspi.ROLE_RADIO_BUTTON: ("not selected", "selected"),
          pyatspi.ROLE_CHECK_BOX: ("not checked", "checked"),
          pyatspi.ROLE_MENU_ITEM: ("", "checked")}


class Change(NamedTuple):
    """Of a text on the screen."""

    seconds: float  # of the monotonic clock, no earlier than the change
    kind: str
    of: str  # the item's name by then


class ScreenReader:
    """Listens to every program of the desktop from now on. Events arrive while one of its waits
    goes on, none is lost, and their order is that in which they happened."""

    def __init__(self) -> None:
        self.words: list[str] = []  # that were said
        self.changes: list[Change] = []  # of which nothing is said
        self._focused: pyatspi.Accessible | None = None
        self._answers: dict[str, Callable[[Atspi.Event], str]] = {
            FOCUS: self._on_focus, SHOWING: self._on_showing, CHECKED: self._on_checked,
            VALUE: self._on_value}
        pyatspi.Registry.registerEventListener(self._hear, *self._answers, NAME, DESCRIPTION)

    def wait_for(self, condition: Callable[[], bool]) -> None:
        wait_until(lambda: self.listen() or condition(),
                   lambda: f"said is {self.words}, changed {self.changes}, keys {self.focused()}")

    def wait_for_words(self, words: str) -> None:
        """Until this is said, since the last `forget`."""
        self.wait_for(lambda: words in self.words)

    def wait_until_focused(self, name: str) -> None:
        """Until the keyboard is at an item of this name."""
        self.wait_for(lambda: self.focused() == name)

    def tab_to(self, window: Window, name: str, key: str = "Tab") -> None:
        """Goes to an item with the key for it, past every other one at most once."""
        for _ in window.items():
            before = self.focused()
            window.keys(key)
            self.wait_for(lambda: self.focused() != before)
            if self.focused() == name:
                return
        raise LookupError(f"the keyboard does not get to {name}")

    def focused(self) -> str:
        """The name of the item that has the keyboard."""
        with contextlib.suppress(GLib.Error):
            return self._focused.name if self._focused else ""
        return ""

    def forget(self, window: Window | None = None) -> None:
        """All until now."""
        self.hear_out(window)
        self.words.clear()
        self.changes.clear()

    def hear_out(self, window: Window | None) -> None:
        """What happened in the window before it answers a question comes before the answer."""
        if window:
            window.frame()
        self.listen()

    def listen(self) -> None:
        context = GLib.MainContext.default()
        while context.iteration(False):
            pass

    def _hear(self, event: Atspi.Event) -> None:
        with contextlib.suppress(GLib.Error):  # What it is of may have gone away since.
            kind = event.type.removesuffix(":system")
            if kind in (NAME, DESCRIPTION):
                self.changes.append(Change(time.monotonic(), kind, event.source.name))
            elif words := self._answers[kind](event):
                self.words.append(words)

    def _on_focus(self, event: Atspi.Event) -> str:
        if not event.detail1:
            return ""
        self._focused = event.source
        return in_words(event.source)

    def _on_showing(self, event: Atspi.Event) -> str:
        """Only of what appears in order to be read."""
        is_told = event.detail1 and event.source.getRole() == pyatspi.ROLE_NOTIFICATION
        return event.source.name if is_told else ""

    def _on_checked(self, event: Atspi.Event) -> str:
        return state(event.source) if event.source == self._focused else ""

    def _on_value(self, event: Atspi.Event) -> str:
        return value(event.source) if event.source == self._focused else ""


def in_words(item: pyatspi.Accessible) -> str:
    """Its name, what it is, in which state, and what else there is to say of it."""
    parts = (item.name, value(item), state(item), ROLES.get(item.getRole(), ""), item.description)
    return ", ".join(part for part in parts if part)


def state(item: pyatspi.Accessible) -> str:
    unchecked, checked = STATES.get(item.getRole(), ("", ""))
    return checked if item.getState().contains(pyatspi.STATE_CHECKED) else unchecked


def value(item: pyatspi.Accessible) -> str:
    if item.getRole() != pyatspi.ROLE_SPIN_BUTTON:
        return ""
    return f"{item.queryValue().currentValue:.0f}"
