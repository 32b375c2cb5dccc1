# SPDX-License-Identifier: MIT
"""The states of the tuner's controls, and the saved settings."""

import pathlib

from .screen_reader import BUTTONS
from .settings import read_settings
from .waiting import wait_until
from .window import Item, Window

LEFT_HANDED = "Left-handed string order"
STEPPER = "Concert pitch in hertz"
PLAY = "Play reference"
ALLOW = "Allow Microphone"
POLICY = "Privacy Policy"
NO_MICROPHONE = "No microphone is available."
DENIED = "Microphone access is off. Allow Corvane under Settings, Privacy, Microphone."


class Controls:
    def __init__(self, window: Window, config_home: pathlib.Path):
        self.window = window
        self.config_home = config_home

    def tuning_face(self) -> Item:
        """The control below the tuning's caption, aligned with its left edge."""
        items = self.window.items()
        caption = next(item for item in items if item.name in ("Tuning", "Mode"))
        return next(item for item in items if item.role in BUTTONS
                    and item.box.x == caption.box.x and item.box.y > caption.box.y)

    def strings(self) -> list[str]:
        """The chips of the string row from left to right, without "Auto"."""
        return [chip.name for chip in self._chips()[1:]]

    def wait_until_locked(self, name: str) -> None:
        """Until only this chip of the string row is marked."""
        wait_until(lambda: [chip.name for chip in self._chips() if chip.checked] == [name],
                   lambda: f"not {name} alone: {[(c.name, c.checked) for c in self._chips()]}")

    def wait_for_tuning(self, name: str, strings: str, **saved: str) -> None:
        """Until the tuning and these chips are on the screen, and `saved` is in the file."""
        self.wait_until_saved(**saved)
        wait_until(lambda: (self.tuning_face().name, self.strings()) == (name, strings.split()),
                   lambda: f"{self.tuning_face().name} is shown, {self.strings()}")

    def wait_for_pitch(self, hertz: int, title: str) -> None:
        """Until the pitch is on the screen and saved, and its quick pitch, if any, is marked."""
        self.wait_until_saved(a4=str(hertz))
        wait_until(lambda: self._shows_pitch(f"A4  {hertz}", title, f"{hertz} Hz"),
                   lambda: f"{hertz} is not shown: {self.window.read()}")

    def wait_until_saved(self, **values: str) -> None:
        """Until the settings file has these values: `a4="440"` for the key "tuner.a4"."""
        wanted = {f"tuner.{key}": value for key, value in values.items()}
        wait_until(lambda: wanted.items() <= read_settings(self.config_home).items(),
                   lambda: f"{wanted} not in {read_settings(self.config_home)}")

    def _chips(self) -> list[Item]:
        """From left to right, "Auto" first; empty without the row."""
        items = self.window.items()
        tops = [item.box.y for item in items if item.name == "Auto"]
        return sorted((item for item in items if [item.box.y] == tops),
                      key=lambda item: item.box.x)

    def _shows_pitch(self, number: str, title: str, quick: str) -> bool:
        items = self.window.items()
        names = {item.name for item in items}
        marked = {item.name for item in items if item.name.endswith(" Hz") and item.checked}
        return {number, title} <= names and marked == {quick} & names
