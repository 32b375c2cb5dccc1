"""What a blind user of the tuner hears: what its screen reader says of the events that reach it."""

import contextlib
import time
from collections.abc import Callable
from typing import NamedTuple

import pyatspi
from gi.repository import Atspi, GLib

from .waiting import wait_until

# Those that Orca, Debian's screen reader, asks for and answers with speech.
FOCUS = "object:state-changed:focused"
SHOWING = "object:state-changed:showing"
CHECKED = "object:state-changed:checked"
VALUE = "object:property-change:accessible-value"
# And those that a reader who asks again takes notice of.
NAME = "object:property-change:accessible-name"
DESCRIPTION = "object:property-change:accessible-description"

ROLES = {pyatspi.ROLE_PUSH_BUTTON: "button", pyatspi.ROLE_RADIO_BUTTON: "radio button",
         pyatspi.ROLE_CHECK_BOX: "check box", pyatspi.ROLE_SPIN_BUTTON: "spin button",
         pyatspi.ROLE_LINK: "link", pyatspi.ROLE_POPUP_MENU: "menu"}
STATES = {pyatspi.ROLE_RADIO_BUTTON: ("not selected", "selected"),
          pyatspi.ROLE_CHECK_BOX: ("not checked", "checked"),
          pyatspi.ROLE_MENU_ITEM: ("", "checked")}


class Said(NamedTuple):
    seconds: float  # since the reader was started
    words: str


class ScreenReader:
    """Listens to every program of the desktop while the context lasts. Events arrive while one of
    its waits goes on."""

    def __init__(self) -> None:
        self.said: list[Said] = []
        self.changes: list[Said] = []  # of names and descriptions, of which nothing is said
        self._focused: pyatspi.Accessible | None = None
        self._answers: dict[str, Callable[[Atspi.Event], str]] = {
            FOCUS: self._on_focus, SHOWING: self._on_showing, CHECKED: self._on_checked,
            VALUE: self._on_value}

    def __enter__(self) -> "ScreenReader":
        self._start = time.monotonic()
        pyatspi.Registry.registerEventListener(self._hear, *self._answers, NAME, DESCRIPTION)
        return self

    def __exit__(self, *_) -> None:
        pyatspi.Registry.deregisterEventListener(self._hear, *self._answers, NAME, DESCRIPTION)

    @property
    def words(self) -> list[str]:
        return [said.words for said in self.said]

    def wait_for(self, condition: Callable[[list[str]], bool], seconds: float = 5) -> None:
        """Until what was said since the last `forget` fulfils `condition`."""
        wait_until(lambda: self.listen() or condition(self.words), seconds,
                   lambda: f"said is {self.words}")

    def listen_while(self, lasting: Callable[[], bool]) -> None:
        while lasting():
            self.listen()
            time.sleep(0.01)

    def forget(self) -> None:
        self.listen()
        self.said.clear()
        self.changes.clear()

    def listen(self) -> None:
        """To what has come until now."""
        context = GLib.MainContext.default()
        while context.iteration(False):
            pass

    def _hear(self, event: Atspi.Event) -> None:
        with contextlib.suppress(GLib.Error):  # What it is of may have gone away since.
            seconds = time.monotonic() - self._start
            if words := self._answers.get(event.type.removesuffix(":system"), lambda _: "")(event):
                self.said.append(Said(seconds, words))
            elif event.type in (NAME, DESCRIPTION):
                self.changes.append(Said(seconds, f"{event.source.name}: "
                                                  f"{event.source.description}"))

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
