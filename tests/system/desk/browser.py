# SPDX-License-Identifier: MIT
"""A fake browser, or another program, that records what it is asked to open."""

import os
import pathlib
import urllib.parse

from .desktop import PrivateDesktop
from .waiting import wait_until

# Replaces the desktop's URL opener.
SCRIPT = """#!/bin/sh
echo "$@" >> {note}
"""


class Browser:
    """`environment`: for the programs that are to use it."""

    def __init__(self, desktop: PrivateDesktop, name: str = "xdg-open"):
        programs = desktop.folder("programs")
        self._note = programs / "opened"
        self.program = programs / name
        self.program.write_text(SCRIPT.format(note=self._note))
        self.program.chmod(0o755)
        self.environment = {"PATH": f"{programs}:{os.environ['PATH']}"}

    def wait_for_addresses(self, count: int) -> list[str]:
        """The requested addresses, once there are `count`."""
        wait_until(lambda: self._text().count("\n") >= count,
                   lambda: f"opened is {self._text()}")
        return self._text().splitlines()

    def _text(self) -> str:
        return self._note.read_text() if self._note.exists() else ""


def privacy_page() -> str:
    """The configured address, relative to the program."""
    program = pathlib.Path(os.environ["CORVANE_PROGRAM"]).as_uri()
    return urllib.parse.urljoin(program, os.environ["CORVANE_PRIVACY_URL"])
