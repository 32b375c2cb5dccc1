"""The hands on the private desktop: its mouse, its keys and its windows."""

import subprocess

SECONDS = 10


def xdotool(*command: str) -> str:
    """What the command prints."""
    return subprocess.run(["xdotool", *command], check=True, timeout=SECONDS, capture_output=True,
                          text=True).stdout
