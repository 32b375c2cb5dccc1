"""What the controls of the tuner's screen say, and the file in which a choice is kept."""

import pathlib

import pyatspi

from .screen import ANSWER_SECONDS, Item, Screen
from .settings import read_settings
from .waiting import wait_until

LEFT_HANDED = "Left-handed string order"
PRESETS = "Concert pitch presets"


class Controls:
    def __init__(self, screen: Screen, config_home: pathlib.Path):
        self.screen = screen
        self._config_home = config_home

    def tuning_face(self) -> Item:
        """The control under the caption of the tuning, of which it has the left edge."""
        items = self.screen.items()
        caption = next(item for item in items if item.name in ("Tuning", "Mode"))
        return next(item for item in items if item.role == pyatspi.ROLE_PUSH_BUTTON
                    and item.box.x == caption.box.x and item.box.y > caption.box.y)

    def presets_face(self) -> Item:
        return self.screen.find(description=PRESETS)

    def chips(self) -> list[Item]:
        """The chips of the string row from left to right, "Auto" first; empty without the row."""
        items = self.screen.items()
        tops = [item.box.y for item in items if item.name == "Auto"]
        return sorted((item for item in items if [item.box.y] == tops),
                      key=lambda item: item.box.x)

    def strings(self) -> list[str]:
        return [chip.name for chip in self.chips()[1:]]

    def locked(self) -> list[str]:
        """The marked chips of the string row."""
        return [chip.name for chip in self.chips() if chip.checked]

    def quick_pitches(self) -> list[str]:
        """The marked ones."""
        return [item.name for item in self.screen.items()
                if item.name.endswith(" Hz") and item.checked]

    def wait_until_locked(self, name: str) -> None:
        wait_until(lambda: self.locked() == [name], ANSWER_SECONDS,
                   lambda: f"marked are {self.locked()} and not {name}")

    def wait_until_saved(self, **values: str) -> None:
        """Until the settings file has these values: `a4="440"` for the key "tuner.a4"."""
        wanted = {f"tuner.{key}": value for key, value in values.items()}
        wait_until(lambda: wanted.items() <= read_settings(self._config_home).items(),
                   ANSWER_SECONDS,
                   lambda: f"{wanted} not in {read_settings(self._config_home)}")
