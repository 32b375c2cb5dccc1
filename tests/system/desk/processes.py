# SPDX-License-Identifier: MIT
"""The programs of a private desktop. Each ends with it."""

import ctypes
import os
import pathlib
import signal
import subprocess
from collections.abc import Iterator

LOG_TAIL_LINES = 15
END_SECONDS = 5

_libc = ctypes.CDLL(None, use_errno=True)
_PR_SET_PDEATHSIG = 1
_PR_SET_CHILD_SUBREAPER = 36


class Processes:
    """Starts programs, stores their output in `logs`, and ends them and their descendants."""

    def __init__(self, logs: pathlib.Path):
        self._logs = logs
        self._running: list[subprocess.Popen] = []
        # Orphans of a service become our children instead of init's.
        _libc.prctl(_PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)

    def start(self, command: list, env: dict[str, str] | None = None,
              pass_fds: tuple[int, ...] = (), stdin: int = subprocess.DEVNULL) -> subprocess.Popen:
        with open(self._log(command[0]), "ab") as log:
            process = subprocess.Popen(command, env=env, stdin=stdin, stdout=log, stderr=log,
                                       bufsize=0, pass_fds=pass_fds,
                                       preexec_fn=_die_with_parent, start_new_session=True)
        self._running.append(process)
        return process

    def end(self, process: subprocess.Popen) -> None:
        if process in self._running:
            self._running.remove(process)
        _end(process)

    def end_all(self) -> None:
        while self._running:
            self.end(self._running[-1])
        while orphans := list(_children_of(os.getpid())):
            for pid in orphans:
                os.kill(pid, signal.SIGKILL)
                os.waitpid(pid, 0)

    def last_words(self, program: str | os.PathLike) -> str:
        """The end of the output of `program`, for failure reports."""
        log = self._log(program)
        lines = log.read_text(errors="replace").splitlines() if log.exists() else []
        return "\n".join([f"{program} printed:", *lines[-LOG_TAIL_LINES:]])

    def _log(self, program: str | os.PathLike) -> pathlib.Path:
        return self._logs / f"{pathlib.Path(program).name}.log"


def _die_with_parent() -> None:
    """In the child before exec: it ends even if this process is killed, for example by a test's timeout."""
    _libc.prctl(_PR_SET_PDEATHSIG, signal.SIGTERM, 0, 0, 0)


def _end(process: subprocess.Popen) -> None:
    process.terminate()
    try:
        process.wait(END_SECONDS)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


def _children_of(parent: int) -> Iterator[int]:
    for status in pathlib.Path("/proc").glob("[0-9]*/status"):
        try:
            fields = dict(line.split(":", 1) for line in status.read_text().splitlines())
        except (FileNotFoundError, ProcessLookupError):
            continue
        if int(fields["PPid"]) == parent:
            yield int(status.parent.name)
