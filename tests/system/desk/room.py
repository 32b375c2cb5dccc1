"""A room: what is played in it is heard by its microphone. No sound card is touched."""

import json
import os
import pathlib
import subprocess

from .desktop import PrivateDesktop
from .waiting import wait_until

START_SECONDS = 20
SPEAKER = "room"
MICROPHONE = "mic"


class Room:
    """An audio server of its own, for as long as the context lasts. `environment` is that of the
    programs that are to use it."""

    def __init__(self, desktop: PrivateDesktop):
        self._desktop = desktop
        self.environment = {**os.environ, "XDG_RUNTIME_DIR": str(desktop.folder("sound"))}
        self._servers: list[subprocess.Popen] = []
        self._players: list[subprocess.Popen] = []
        self._microphone_module = ""

    def __enter__(self) -> "Room":
        try:
            self.open()
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *_) -> None:
        self.close()

    def open(self) -> None:
        """Starts the server with the speaker and the microphone."""
        raise NotImplementedError

    def close(self) -> None:
        while self._servers:
            self._desktop.processes.end(self._servers.pop())

    def crash(self) -> None:
        """Ends the server without a goodbye to anybody; `open` has a new one."""
        for server in self._servers:
            server.kill()
        self.close()

    def plug_in(self) -> None:
        """Gives the room its microphone."""
        raise NotImplementedError

    def unplug(self) -> None:
        self.control("unload-module", self._microphone_module)

    def start_playing(self, wav: pathlib.Path) -> subprocess.Popen:
        """The process that ends by itself when the last of the sound has been heard."""
        player = self._desktop.processes.start(["paplay", f"--device={SPEAKER}", str(wav)],
                                               self.environment)
        self._players.append(player)
        return player

    def hush(self) -> None:
        """Ends whatever is still played."""
        while self._players:
            self._desktop.processes.end(self._players.pop())

    def record(self, rate: int) -> subprocess.Popen:
        """A process that prints what the microphone hears: one channel of native 16-bit numbers."""
        return subprocess.Popen(
            ["parec", "--raw", "--format=s16ne", "--channels=1", f"--rate={rate}",
             "--latency-msec=20", f"--device={MICROPHONE}"], env=self.environment,
            stdout=subprocess.PIPE)

    def is_listening(self, process: subprocess.Popen) -> bool:
        """Whether the server gives `process` the sound of a microphone at this moment."""
        listing = self.control("--format=json", "list", "source-outputs")
        return any(output["properties"].get("application.process.id") == str(process.pid)
                   for output in json.loads(listing))

    def control(self, *command: str) -> str:
        return subprocess.run(["pactl", *command], env=self.environment, check=True, timeout=10,
                              capture_output=True, text=True).stdout

    def _start_server(self, *command: str) -> None:
        self._servers.append(self._desktop.processes.start(list(command), self.environment))

    def _wait_for_answer(self, *command: str) -> None:
        """Repeats a command until the server, which starts on its own time, carries it out."""
        wait_until(lambda: subprocess.run(command, env=self.environment, timeout=10,
                                          capture_output=True).returncode == 0,
                   START_SECONDS, lambda: f"no answer to {' '.join(command)}\n" + "\n".join(
                       self._desktop.processes.last_words(server.args[0])
                       for server in self._servers))
