"""The desktop's own way to open an address, as far as the program can tell."""

import os

from .desktop import PrivateDesktop
from .waiting import wait_until

OPEN_SECONDS = 5
SCRIPT = """#!/bin/sh
echo "$@" >> {note}
"""


class Browser:
    """Opens nothing, but notes what it is to open. `path` is the PATH of programs that are to find
    it."""

    def __init__(self, desktop: PrivateDesktop):
        programs = desktop.folder("programs")
        self._note = programs / "opened"
        self.path = f"{programs}:{os.environ['PATH']}"
        opener = programs / "xdg-open"
        opener.write_text(SCRIPT.format(note=self._note))
        opener.chmod(0o755)

    def wait_for_address(self) -> str:
        wait_until(lambda: self._note.exists() and self._note.read_text().endswith("\n"),
                   OPEN_SECONDS, lambda: "nothing is opened")
        return self._note.read_text().removesuffix("\n")
