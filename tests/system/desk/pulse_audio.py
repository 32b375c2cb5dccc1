"""The room on PulseAudio."""

import select

from .desktop import PrivateDesktop
from .room import MICROPHONE, SPEAKER, START_SECONDS, Room


class PulseAudioRoom(Room):
    """Without a microphone the server still offers what the speaker plays as a source."""

    def __init__(self, desktop: PrivateDesktop, microphone: bool = True):
        super().__init__(desktop)
        self._microphone = microphone

    def open(self) -> None:
        modules = ["module-native-protocol-unix", f"module-null-sink sink_name={SPEAKER}"]
        self._start_server("pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1",
                           *(part for module in modules for part in ("-L", module)))
        self._wait_for_answer("pactl", "info")
        if self._microphone:
            self.plug_in()

    def plug_in(self) -> None:
        self._microphone_module = self.control(
            "load-module", "module-remap-source", f"master={SPEAKER}.monitor",
            f"source_name={MICROPHONE}").strip()
        self.control("set-default-source", MICROPHONE)
        self._keep_awake()

    def _keep_awake(self) -> None:
        """A sink without hardware works in blocks of two seconds while nobody needs it sooner, and
        a whole note can fall between two of them. So somebody does, from the next block on."""
        self._start_server("parec", "--latency-msec=20", f"--device={MICROPHONE}", "/dev/null")
        with self.record(rate=8000) as recorder:
            told, _, _ = select.select([recorder.stdout], [], [], START_SECONDS)
            recorder.terminate()
        if not told:
            raise TimeoutError("the microphone gives no sound, not even silence")
