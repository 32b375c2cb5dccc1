# SPDX-License-Identifier: MIT
"""A screen reader: the texts that it speaks for the events that it receives."""

import contextlib
import time
from collections.abc import Callable
from typing import NamedTuple

import pyatspi
from gi.repository import Atspi, GLib

from .waiting import wait_until
from .window import Window

# Events that Orca, Debian's screen reader, subscribes to and speaks.
FOCUS = "object:state-changed:focused"
SHOWING = "object:state-changed:showing"
CHECKED = "object:state-changed:checked"
VALUE = "object:property-change:accessible-value"
# Events that are not spoken but change what a review of the screen reads.
NAME = "object:property-change:accessible-name"
DESCRIPTION = "object:property-change:accessible-description"

# Until Qt 6.8 a menu button has the role of a push button.
BUTTONS = (pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_PUSH_BUTTON_MENU)
ROLES = {**dict.fromkeys(BUTTONS, "button"), pyatspi.ROLE_RADIO_BUTTON: "radio button",
         pyatspi.ROLE_CHECK_BOX: "check box", pyatspi.ROLE_SPIN_BUTTON: "spin button",
         pyatspi.ROLE_LINK: "link", pyatspi.ROLE_POPUP_MENU: "menu"}
STATES = {pyatspi.ROLE_RADIO_BUTTON: ("not selected", "selected"),
          pyatspi.ROLE_CHECK_BOX: ("not checked", "checked"),
          pyatspi.ROLE_MENU_ITEM: ("", "checked")}


class Change(NamedTuple):
    """A changed text on the screen."""

    seconds: float  # monotonic clock, not before the change
    kind: str
    of: str  # the item's name at that time


class ScreenReader:
    """Receives the events of all programs on the desktop, in order, without loss. Events arrive only during its
    waits."""

    def __init__(self) -> None:
        self.words: list[str] = []  # spoken
        self.changes: list[Change] = []  # not spoken
        self._focused: pyatspi.Accessible | None = None
        self._answers: dict[str, Callable[[Atspi.Event], str]] = {
            FOCUS: self._on_focus, SHOWING: self._on_showing, CHECKED: self._on_checked,
            VALUE: self._on_value}
        pyatspi.Registry.registerEventListener(self._hear, *self._answers, NAME, DESCRIPTION)

    def wait_for(self, condition: Callable[[], bool]) -> None:
        wait_until(lambda: self.listen() or condition(),
                   lambda: f"said is {self.words}, changed {self.changes}, keys {self.focused()}")

    def wait_for_words(self, words: str) -> None:
        """Until this was spoken since the last `forget`."""
        self.wait_for(lambda: words in self.words)

    def wait_until_focused(self, name: str) -> None:
        """Until an item of this name has the focus."""
        self.wait_for(lambda: self.focused() == name)

    def tab_to(self, window: Window, name: str, key: str = "Tab") -> None:
        """Presses `key` until the item has the focus, at most once around."""
        for _ in window.items():
            before = self.focused()
            window.keys(key)
            self.wait_for(lambda: self.focused() != before)
            if self.focused() == name:
                return
        raise LookupError(f"{name} did not get the focus")

    def focused(self) -> str:
        """The name of the focused item."""
        with contextlib.suppress(GLib.Error):
            return self._focused.name if self._focused else ""
        return ""

    def forget(self, window: Window | None = None) -> None:
        """Drops all events until now."""
        self.hear_out(window)
        self.words.clear()
        self.changes.clear()

    def hear_out(self, window: Window | None) -> None:
        """Receives pending events: those sent before the window answers a query arrive before the answer."""
        if window:
            window.frame()
        self.listen()

    def listen(self) -> None:
        context = GLib.MainContext.default()
        while context.iteration(False):
            pass

    def _hear(self, event: Atspi.Event) -> None:
        with contextlib.suppress(GLib.Error):  # The item may no longer exist.
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
        """Only notifications are spoken when they appear."""
        is_told = event.detail1 and event.source.getRole() == pyatspi.ROLE_NOTIFICATION
        return event.source.name if is_told else ""

    def _on_checked(self, event: Atspi.Event) -> str:
        return state(event.source) if event.source == self._focused else ""

    def _on_value(self, event: Atspi.Event) -> str:
        return value(event.source) if event.source == self._focused else ""


def in_words(item: pyatspi.Accessible) -> str:
    """Its name, value, state, role and description."""
    parts = (item.name, value(item), state(item), ROLES.get(item.getRole(), ""), item.description)
    return ", ".join(part for part in parts if part)


def state(item: pyatspi.Accessible) -> str:
    unchecked, checked = STATES.get(item.getRole(), ("", ""))
    return checked if item.getState().contains(pyatspi.STATE_CHECKED) else unchecked


def value(item: pyatspi.Accessible) -> str:
    if item.getRole() != pyatspi.ROLE_SPIN_BUTTON:
        return ""
    return f"{item.queryValue().currentValue:.0f}"
