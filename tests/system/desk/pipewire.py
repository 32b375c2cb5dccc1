# SPDX-License-Identifier: MIT
"""The room on PipeWire, used through its PulseAudio interface."""

import pathlib

from .desktop import PrivateDesktop
from .room import MICROPHONE, SPEAKER, Room

# Keeps WirePlumber, 0.4 and 0.5, from using the machine's sound cards.
_NO_SOUND_CARDS = {
    "main.lua.d/51-no-sound-cards.lua": "alsa_monitor.enabled = false\n",
    "wireplumber.conf.d/51-no-sound-cards.conf":
        "wireplumber.profiles = { main = { hardware.audio = disabled } }\n",
}


class PipeWireRoom(Room):
    def __init__(self, desktop: PrivateDesktop):
        super().__init__(desktop)
        config = desktop.folder("pipewire")
        self.environment["XDG_CONFIG_HOME"] = str(config)
        _write_all(config / "wireplumber", _NO_SOUND_CARDS)

    def open(self) -> None:
        self._start_server("pipewire")
        # The other two exit if they cannot connect.
        self._wait_for_answer("pw-link", "--output")
        self._start_server("wireplumber")
        # PipeWire exits if a searching client creates this directory at the same moment.
        pathlib.Path(self.environment["XDG_RUNTIME_DIR"], "pulse").mkdir(0o700, exist_ok=True)
        self._start_server("pipewire-pulse")
        self._wait_for_answer("pactl", "info")
        self.control("load-module", "module-null-sink", f"sink_name={SPEAKER}")
        self.plug_in()

    def plug_in(self) -> None:
        self._microphone_module = self.control(
            "load-module", "module-null-sink", f"sink_name={MICROPHONE}",
            "media.class=Audio/Source/Virtual", "channel_map=front-left,front-right").strip()
        for side in ("FL", "FR"):
            self._wait_for_answer("pw-link", f"{SPEAKER}:monitor_{side}",
                                  f"{MICROPHONE}:input_{side}")
        self._wait_for_answer("pactl", "set-default-source", MICROPHONE)


def _write_all(folder: pathlib.Path, files: dict[str, str]) -> None:
    for name, text in files.items():
        path = folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)
