"""The program under test, running on the private desktop."""

import pathlib
import time
from collections.abc import Callable

from .desktop import PrivateDesktop
from .readings import Reading, is_heard
from .room import Room
from .waiting import POLL_SECONDS, wait_until
from .window import Window

START_SECONDS = 20
END_SECONDS = 10


class Tuner:
    """`program` with its preferences in `config_home`, hearing what the audio server of
    `environment` lets it hear. Within the context its window is on the screen."""

    def __init__(self, desktop: PrivateDesktop, program: pathlib.Path, config_home: pathlib.Path,
                 environment: dict[str, str]):
        self._desktop = desktop
        self._program = program
        self._environment = {**environment, "XDG_CONFIG_HOME": str(config_home)}

    def __enter__(self) -> "Tuner":
        self.process = self._desktop.processes.start([str(self._program)], self._environment)
        self.window = Window(self.process.pid)
        try:
            wait_until(self._shows_a_status, START_SECONDS, self._last_words)
        except BaseException:
            self._end()
            raise
        return self

    def __exit__(self, *_) -> None:
        self._end()

    def wait_until_listening(self, room: Room, listening: bool = True) -> None:
        wait_until(lambda: room.is_listening(self.process) == listening, START_SECONDS,
                   lambda: f"listening should be {listening}\n{self._last_words()}")

    def quit(self) -> int:
        """Closes the window; the program's exit status."""
        self.window.close()
        return self.process.wait(END_SECONDS)

    def readings_while(self, lasting: Callable[[], bool]) -> list[Reading]:
        """What the window shows while `lasting` is true, as far as a note is heard."""
        readings = []
        while lasting():
            readings.append(self.window.read())
            time.sleep(POLL_SECONDS)
        return [reading for reading in readings if is_heard(reading)]

    def _shows_a_status(self) -> bool:
        if self.process.poll() is not None:
            raise RuntimeError(f"ended with {self.process.returncode}\n{self._last_words()}")
        return "Status" in self.window.read()

    def _last_words(self) -> str:
        return self._desktop.processes.last_words(self._program)

    def _end(self) -> None:
        self._desktop.processes.end(self.process)
