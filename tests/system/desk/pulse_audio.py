# SPDX-License-Identifier: MIT
"""The room on PulseAudio."""

from .room import MICROPHONE, SPEAKER, Room


class PulseAudioRoom(Room):
    def open(self) -> None:
        modules = ["module-native-protocol-unix", f"module-null-sink sink_name={SPEAKER}"]
        self._start_server("pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1",
                           *(part for module in modules for part in ("-L", module)))
        self._wait_for_answer("pactl", "info")
        self.plug_in()

    def plug_in(self) -> None:
        self._microphone_module = self.control(
            "load-module", "module-remap-source", f"master={SPEAKER}.monitor",
            f"source_name={MICROPHONE}").strip()
        self.control("set-default-source", MICROPHONE)
        # A null sink works in blocks of two seconds unless a client requests a lower latency.
        self._start_server("parec", "--latency-msec=20", f"--device={MICROPHONE}", "/dev/null")
