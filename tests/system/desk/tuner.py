# SPDX-License-Identifier: MIT
"""The program under test on the private desktop."""

import pathlib

from .controls import ALLOW, PLAY, POLICY
from .desktop import PrivateDesktop
from .room import Room
from .waiting import EVENTUALLY_SECONDS, wait_until
from .window import Window


class Tuner:
    """Runs `program` with its preferences in `config_home` and the audio server of `environment`. Its window is on
    the screen while the context lasts."""

    def __init__(self, desktop: PrivateDesktop, program: pathlib.Path, config_home: pathlib.Path,
                 environment: dict[str, str]):
        self._desktop = desktop
        self._program = program
        self._environment = {**environment, "XDG_CONFIG_HOME": str(config_home)}

    def __enter__(self) -> "Tuner":
        self.process = self._desktop.processes.start([str(self._program)], self._environment)
        self.window = Window(self.process.pid)
        try:
            wait_until(self._is_there, self._last_words)
        except BaseException:
            self._end()
            raise
        return self

    def __exit__(self, *_) -> None:
        self._end()

    def wait_until_listening(self, room: Room, listening: bool = True) -> None:
        wait_until(lambda: room.is_listening(self.process) == listening,
                   lambda: f"listening should be {listening}\n{self._last_words()}")

    def wait_until_deaf(self) -> None:
        """Until it shows that there is no microphone, and the layout has settled."""
        wait_until(lambda: self._has_in_order(PLAY, ALLOW, POLICY), self._last_words)

    def quit(self) -> int:
        """Closes the window and returns the exit status."""
        self.window.close()
        return self.process.wait(EVENTUALLY_SECONDS)

    def _is_there(self) -> bool:
        if self.process.poll() is not None:
            raise RuntimeError(f"ended with {self.process.returncode}\n{self._last_words()}")
        return self._has_in_order(PLAY, POLICY)

    def _has_in_order(self, *names: str) -> bool:
        """Whether the items are laid out in this order from top to bottom."""
        tops = {item.box.y: item.name for item in self.window.items() if item.name in names}
        return [tops[top] for top in sorted(tops)] == list(names)

    def _last_words(self) -> str:
        return self._desktop.processes.last_words(self._program)

    def _end(self) -> None:
        self._desktop.processes.end(self.process)
