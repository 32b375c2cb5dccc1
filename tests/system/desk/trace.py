# SPDX-License-Identifier: MIT
"""System calls of a program: files, connections and started programs."""

import collections
import itertools
import pathlib
import re
import shlex
from collections.abc import Iterator
from typing import NamedTuple

from .waiting import wait_until

# All calls with a file name, a program or an address, including those that fail.
CALLS = "%file,%process,connect,bind,listen,sendto,sendmsg"
WRITING = ("O_WRONLY", "O_RDWR", "O_CREAT", "O_TRUNC", "O_APPEND")
CHANGING = ("rename", "renameat", "renameat2", "unlink", "unlinkat", "mkdir", "mkdirat", "link",
            "linkat", "symlink", "symlinkat", "truncate", "chmod", "fchmodat", "rmdir", "mknod",
            "mknodat", "creat", "utimensat", "setxattr")
LINE = re.compile(r"^(?P<time>\d+\.\d+) (?P<name>\w+)\((?P<arguments>.*)\)\s+= (?P<result>-?\w+)")
TEXT = re.compile(r'"((?:[^"\\]|\\.)*)"')


class Call(NamedTuple):
    time: float  # seconds of the wall clock
    name: str
    arguments: str
    succeeded: bool

    @property
    def becomes_a_program(self) -> bool:
        return self.name in ("execve", "execveat") and self.succeeded

    @property
    def texts(self) -> list[str]:
        """The strings among the arguments."""
        return TEXT.findall(self.arguments)


class Trace:
    """`command` runs `program` in `directory` in the same process and records its calls in `folder`."""

    def __init__(self, folder: pathlib.Path, program: pathlib.Path, directory: pathlib.Path):
        self._program = str(program)
        self._records = folder / "record"
        self.command = folder / "traced"
        strace = ["strace", "--daemonize=grandchild", "--follow-forks", "--output-separately",
                  "--absolute-timestamps=format:unix,precision:us", "--string-limit=4096",
                  f"--trace={CALLS}", f"--output={self._records}", self._program]
        self.command.write_text(
            f"#!/bin/sh\ncd {shlex.quote(str(directory))}\nexec {shlex.join(strace)}\n")
        self.command.chmod(0o755)

    def wait_until_complete(self) -> None:
        """Until each thread's record ends with its exit."""
        wait_until(lambda: all(text.rstrip().endswith("+++") for text in self._texts()),
                   lambda: "the record of the program's calls has no end")

    def calls(self) -> list[Call]:
        found = [call for text in self._texts() for call in _calls(text)]
        return sorted(found)

    def connections(self) -> set[str]:
        """The addresses connected or sent to: a socket's path, "@" and an abstract name, or for other families
        the whole address."""
        return {_address(call.arguments) for call in self.calls()
                if call.name in ("connect", "bind", "sendto", "sendmsg")
                and "sa_family=" in call.arguments}

    def started(self) -> list[Call]:
        """The programs that this process and its children executed, in order."""
        return [call for call in self.calls() if call.becomes_a_program]

    def written(self) -> dict[str, set[str]]:
        """Each file that the program itself opened for writing, created, renamed or removed, with the calls."""
        files = collections.defaultdict(set)
        for call in self._own_calls():
            opens = call.name in ("open", "openat") and any(flag in call.arguments
                                                            for flag in WRITING)
            if call.succeeded and (opens or call.name in CHANGING):
                for name in call.texts:
                    files[name].add(call.name)
        return files

    def tried(self) -> set[str]:
        """All files that the program itself tried to open, existing or not."""
        return {name for call in self._own_calls()
                if not call.name.startswith(("exec", "send", "connect")) for name in call.texts}

    def _own_calls(self) -> Iterator[Call]:
        """Without the calls after a process executed another program."""
        for text in self._texts():
            yield from itertools.takewhile(self._is_own, _calls(text))

    def _is_own(self, call: Call) -> bool:
        return not (call.becomes_a_program and call.texts[0] != self._program)

    def _texts(self) -> list[str]:
        return [path.read_text(errors="replace")
                for path in self._records.parent.glob(f"{self._records.name}.*")]


def _calls(text: str) -> Iterator[Call]:
    for line in text.splitlines():
        if match := LINE.match(line):
            yield Call(float(match["time"]), match["name"], match["arguments"],
                       not match["result"].startswith("-"))


def _address(arguments: str) -> str:
    if match := re.search(r'sun_path=(@?)"([^"]*)"', arguments):
        return match[1] + match[2]
    return arguments
