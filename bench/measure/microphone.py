# SPDX-License-Identifier: MIT
"""A microphone with given samples at known times."""

import array
import pathlib
import subprocess
import sys
import wave

from desk.desktop import PrivateDesktop
from desk.room import MICROPHONE, Room

RATE = 48000
FEEDER = pathlib.Path(__file__).with_name("feeder.py")

class PipedRoom(Room):
    """A PulseAudio server whose only microphone is a pipe."""

    def open(self) -> None:
        folder = self._desktop.folder("pipe")
        self._pipe = folder / "microphone"
        self._sound = folder / "sound"
        self._start_server(
            "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1",
            "-L", "module-native-protocol-unix", "-L",
            f"module-pipe-source source_name={MICROPHONE} file={self._pipe} format=float32le "
            f"rate={RATE} channels=1")
        self._wait_for_answer("pactl", "info")

    def hear(self, samples: array.array, again: bool = False) -> float:
        """Plays `samples`, one channel of floats, then silence, or repeats them. Returns the time of the monotonic clock
        at which the first was due."""
        self.hear_no_more()
        self._sound.write_bytes(samples.tobytes())
        self._feeder = subprocess.Popen([sys.executable, "-B", FEEDER, self._sound, self._pipe,
                                         *(["again"] if again else [])],
                                        stdout=subprocess.PIPE, text=True)
        return float(self._feeder.stdout.readline())

    def hear_no_more(self) -> None:
        if self._feeder is not None:
            self._feeder.terminate()
            self._feeder.wait()
            self._feeder.stdout.close()
        self._feeder = None

    def close(self) -> None:
        self.hear_no_more()
        super().close()

    def __init__(self, desktop: PrivateDesktop):
        super().__init__(desktop)
        self._feeder = None

def samples_of(wav: pathlib.Path) -> array.array:
    """The first channel, as floats."""
    with wave.open(str(wav)) as opened:
        channels = opened.getnchannels()
        whole = array.array("h", opened.readframes(opened.getnframes()))
    return array.array("f", (value / 32768 for value in whole[::channels]))

def silence(seconds: float) -> array.array:
    return array.array("f", bytes(4 * round(seconds * RATE)))
