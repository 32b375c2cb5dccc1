"""A list that opens over a control."""

import pyatspi

from .waiting import wait_until
from .window import Item, Window

# The toolkit tells the second of an item of any list.
ENTRY_ROLES = (pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_LIST_ITEM)


class PullDown:
    """Within the context the list of the control `face` is open, unless an entry is chosen."""

    def __init__(self, window: Window, face: Item):
        self._window = window
        self._face = face
        self._is_done = False

    def __enter__(self) -> "PullDown":
        self._window.click_at(self._face.box)
        self._wait_until_open(True)
        return self

    def __exit__(self, failure, *_) -> None:
        if failure is None and not self._is_done:
            self._window.keys("Escape")
            self._wait_until_open(False)

    def choose(self, title: str) -> None:
        """Clicks the entry of this title, which is to be seen."""
        self._window.click_at(next(entry for entry in self._entries() if entry.name == title).box)
        self._wait_until_open(False)
        self._is_done = True

    def titles(self) -> list[str]:
        """Those of the entries that are to be seen, from top to bottom."""
        return [entry.name for entry in self._entries()]

    def chosen(self) -> list[str]:
        """Those of the entries with the checkmark."""
        return [entry.name for entry in self._entries() if entry.checked]

    def sections(self) -> list[str]:
        """The headings, from top to bottom."""
        return [item.name for item in _open_list(self._window)
                if item.role == pyatspi.ROLE_HEADING]

    def _entries(self) -> list[Item]:
        area, *items = _open_list(self._window)
        return [item for item in items if item.role in ENTRY_ROLES and area.box.holds(item.box)]

    def _wait_until_open(self, is_open: bool) -> None:
        wait_until(lambda: bool(_open_list(self._window)) == is_open,
                   lambda: f"whether the list of {self._face.name} is open should be {is_open}")


def _open_list(window: Window) -> list[Item]:
    """The list, which is the last thing in the window, with what is in it from top to bottom; empty
    while none is open."""
    items = window.items()
    start = next((at for at, item in enumerate(items) if item.role == pyatspi.ROLE_POPUP_MENU),
                 len(items))
    return items[start:start + 1] + sorted(items[start + 1:], key=lambda item: item.box.y)
