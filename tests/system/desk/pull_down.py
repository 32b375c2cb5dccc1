"""A list that opens over a control, used as a person does: scrolled with the wheel and clicked."""

import pyatspi

from .screen import ANSWER_SECONDS, Item, Screen
from .waiting import wait_until

# The toolkit tells the second of an item of any list.
ENTRY_ROLES = (pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_LIST_ITEM)
WHEEL_UP = "4"
WHEEL_DOWN = "5"


class PullDown:
    """Within the context the list of the control `face` is open, unless an entry is chosen."""

    def __init__(self, screen: Screen, face: Item):
        self._screen = screen
        self._face = face
        self._is_done = False

    def __enter__(self) -> "PullDown":
        self._screen.click_at(self._face.box)
        self._wait_until_open(True)
        return self

    def __exit__(self, failure, *_) -> None:
        if failure is None and not self._is_done:
            self._screen.keys("Escape")
            self._wait_until_open(False)

    def choose(self, title: str, order: list[str]) -> None:
        """Clicks the entry of this title among `order`, the titles from first to last."""
        while title not in (entries := {entry.name: entry for entry in self._entries()}):
            above = order.index(title) < order.index(next(iter(entries)))
            self._screen.click_at(self._screen.open_list()[0].box, WHEEL_UP if above else WHEEL_DOWN)
        self._screen.click_at(entries[title].box)
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
        return [item.name for item in _top_to_bottom(self._screen.open_list())
                if item.role == pyatspi.ROLE_HEADING]

    def _entries(self) -> list[Item]:
        """The entries inside the list's area, once they no longer move."""
        last: list[Item] = []

        def are_still() -> bool:
            before = [item.box for item in last]
            area = self._screen.open_list()
            last[:] = [item for item in area[1:]
                       if item.role in ENTRY_ROLES and area[0].box.holds(item.box)]
            return bool(last) and [item.box for item in last] == before

        wait_until(are_still, ANSWER_SECONDS,
                   lambda: f"the list keeps moving: {[item.name for item in last]}")
        return _top_to_bottom(last)

    def _wait_until_open(self, is_open: bool) -> None:
        wait_until(lambda: bool(self._screen.open_list()) == is_open, ANSWER_SECONDS,
                   lambda: f"whether the list of {self._face.name} is open should be {is_open}")


def _top_to_bottom(items: list[Item]) -> list[Item]:
    return sorted(items, key=lambda item: item.box.y)
