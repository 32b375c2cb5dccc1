"""What the tests of the screen's controls have in common."""

import os

from .controls import Controls
from .screen import Screen
from .settings import write_settings
from .system_test import SystemTest


class ControlsTest(SystemTest):
    def open_controls(self, instrument: str = "guitar", tuning: str = "g6-standard",
                      a4: int = 440) -> Controls:
        """The program, started with these preferences of a right-handed player."""
        self.config_home = self.desktop.folder("config")
        write_settings(self.config_home, instrument, tuning, a4)
        return self.start_again()

    def start_again(self) -> Controls:
        self.tuner = self.start_tuner(self.config_home, dict(os.environ))
        screen = Screen(self.tuner.process.pid)
        screen.activate()
        return Controls(screen, self.config_home)
