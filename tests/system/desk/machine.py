"""What the machine around the private desktop has of a desktop, asked as `run` asks it."""

import os
import pathlib


def what_is_missing() -> list[str]:
    """Of a display and a sound server, in words for a person."""
    found = {"no display": has_display(), "no sound server": has_sound_server()}
    return [words for words, there in found.items() if not there]


def has_display() -> bool:
    """A local display is a socket; one that is named by a host is taken at its word."""
    wayland = os.environ.get("WAYLAND_DISPLAY")
    if wayland and (_runtime_folder() / wayland).is_socket():
        return True
    host, _, number = os.environ.get("DISPLAY", "").partition(":")
    screen = number.split(".")[0]
    return bool(host) or pathlib.Path(f"/tmp/.X11-unix/X{screen}").is_socket()


def has_sound_server() -> bool:
    pulse = os.environ.get("PULSE_RUNTIME_PATH") or _runtime_folder() / "pulse"
    return bool(os.environ.get("PULSE_SERVER")) or (pathlib.Path(pulse) / "native").is_socket()


def _runtime_folder() -> pathlib.Path:
    return pathlib.Path(os.environ.get("XDG_RUNTIME_DIR", ""))
