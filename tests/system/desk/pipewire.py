"""The room on PipeWire, reached through its PulseAudio side."""

import pathlib

from .desktop import PrivateDesktop
from .room import MICROPHONE, SPEAKER, Room

# The session manager would otherwise take hold of the machine's own sound cards. It looks for the
# first in version 0.4 and for the second from 0.5 on.
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
        # The two others end at once when there is nothing to connect to.
        self._wait_for_answer("pw-link", "--output")
        self._start_server("wireplumber")
        # It ends when a client that already looks for it makes this folder at the same moment.
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
