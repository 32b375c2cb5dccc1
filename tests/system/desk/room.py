# SPDX-License-Identifier: MIT
"""A room: its virtual microphone records what is played to its virtual speaker."""

import contextlib
import json
import os
import pathlib
import subprocess
import threading
import wave
from collections.abc import Iterator

from .desktop import PrivateDesktop
from .recording import Recording
from .waiting import EVENTUALLY_SECONDS, wait_until

SPEAKER = "room"
MICROPHONE = "mic"
PIECE = 4096  # bytes, written to a pipe atomically
REST_SECONDS = 0.25


class Sound:
    """Repeats the last sound given, with pauses, so that no block of the tuner has parts of two sounds."""

    def __init__(self, wav: pathlib.Path, player: subprocess.Popen):
        form, self._samples = _read(wav)
        self._rest = bytes(form.nchannels * form.sampwidth * round(REST_SECONDS * form.framerate))
        self._player = player
        self._feeder = threading.Thread(target=self._feed)
        self._feeder.start()

    def become(self, wav: pathlib.Path) -> None:
        """`wav` has the channel count and rate of the first sound."""
        self._samples = _read(wav)[1]

    def close(self) -> None:
        """Call after the player has ended."""
        self._feeder.join()
        self._player.stdin.close()

    def _feed(self) -> None:
        with contextlib.suppress(BrokenPipeError):  # The player has ended.
            while True:
                self._play(self._samples)
                self._play(self._rest)

    def _play(self, samples: bytes) -> None:
        for start in range(0, len(samples), PIECE):
            self._player.stdin.write(samples[start:start + PIECE])


class Room:
    """A private audio server while the context lasts. `environment`: for the programs that are to use it."""

    def __init__(self, desktop: PrivateDesktop):
        self._desktop = desktop
        self.environment = {**os.environ, "XDG_RUNTIME_DIR": str(desktop.folder("sound"))}
        self._servers: list[subprocess.Popen] = []
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
        """Kills the server; `open` starts a new one."""
        for server in self._servers:
            server.kill()
        self.close()

    def plug_in(self) -> None:
        """Adds the microphone."""
        raise NotImplementedError

    def unplug(self) -> None:
        self.control("unload-module", self._microphone_module)

    @contextlib.contextmanager
    def sounding(self, wav: pathlib.Path) -> Iterator[Sound]:
        """Repeats `wav` while the context lasts."""
        form, _ = _read(wav)
        player = self._desktop.processes.start(
            ["pacat", "--raw", f"--device={SPEAKER}", "--latency-msec=500", "--format=s16ne",
             f"--rate={form.framerate}", f"--channels={form.nchannels}"],
            self.environment, stdin=subprocess.PIPE)
        with contextlib.closing(Sound(wav, player)) as sound:
            try:
                yield sound
            finally:
                self._desktop.processes.end(player)

    @contextlib.contextmanager
    def recording(self) -> Iterator[Recording]:
        """Records the microphone while the context lasts."""
        with subprocess.Popen(
                ["parec", "--raw", "--format=s16ne", "--channels=1", f"--rate={Recording.RATE}",
                 "--latency-msec=20", f"--device={MICROPHONE}"], env=self.environment,
                stdout=subprocess.PIPE) as recorder:
            try:
                recording = Recording(recorder.stdout)
                recording.quarter()  # Discard the delayed start.
                yield recording
            finally:
                recorder.terminate()

    def is_listening(self, process: subprocess.Popen) -> bool:
        """Whether `process` is recording a microphone."""
        listing = self.control("--format=json", "list", "source-outputs")
        return any(output["properties"].get("application.process.id") == str(process.pid)
                   for output in json.loads(listing))

    def control(self, *command: str) -> str:
        return subprocess.run(["pactl", *command], env=self.environment, check=True,
                              timeout=EVENTUALLY_SECONDS, capture_output=True, text=True).stdout

    def _start_server(self, *command: str) -> None:
        self._servers.append(self._desktop.processes.start(list(command), self.environment))

    def _wait_for_answer(self, *command: str) -> None:
        """Repeats a command until the starting server executes it."""
        wait_until(lambda: subprocess.run(command, env=self.environment, capture_output=True,
                                          timeout=EVENTUALLY_SECONDS).returncode == 0,
                   lambda: f"no answer to {' '.join(command)}\n" + "\n".join(
                       self._desktop.processes.last_words(server.args[0])
                       for server in self._servers))


def _read(wav: pathlib.Path) -> tuple[wave._wave_params, bytes]:
    with wave.open(str(wav)) as opened:
        return opened.getparams(), opened.readframes(opened.getnframes())
