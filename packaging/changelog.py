#!/usr/bin/python3 -B
# SPDX-License-Identifier: MIT
"""changelog.py VERSION: converts CHANGELOG.md for the metainfo; recipe.py uses it for packages.

Reads the change log from standard input and prints the metainfo's list of releases. VERSION is the program's, which the
newest entry must match:

    ## 1.2.0 - 2026-11-21    the program is 1.2.0
    ## Unreleased            VERSION is not released yet

Each heading is followed by a list of notes. An unreleased entry has the date of SOURCE_DATE_EPOCH, or today."""

import dataclasses
import datetime
import email.utils
import os
import re
import sys
import textwrap
import time
from collections.abc import Iterator, Sequence
from xml.sax.saxutils import escape

# Of every package. The address is reserved (RFC 2606): a publisher replaces it.
MAINTAINER = "The Corvane developers <developers@corvane.example>"

HEADING = re.compile(r"## (?:(?P<version>\d+\.\d+\.\d+) - (?P<date>\d{4}-\d\d-\d\d)|Unreleased)")


class Failure(Exception):
    """An error in the change log."""


@dataclasses.dataclass
class Entry:
    version: str
    day: datetime.date
    released: bool
    notes: list[str] = dataclasses.field(default_factory=list)


def parse(text: str, version: str, today: datetime.date) -> list[Entry]:
    """The entries, newest first."""
    entries: list[Entry] = []
    for number, line in enumerate(text.splitlines(), 1):
        try:
            read_line(line, entries, version, today)
        except ValueError as error:
            raise Failure(f"CHANGELOG.md:{number}: {error}") from error
    check(entries, version)
    return entries


def read_line(line: str, entries: list[Entry], version: str, today: datetime.date) -> None:
    if not line or line == "# Changelog":
        return
    if line.startswith("## "):
        entries.append(heading(line, version, today))
    elif line.startswith("- ") and entries:
        entries[-1].notes.append(line.removeprefix("- "))
    elif line.startswith("  ") and entries and entries[-1].notes:
        entries[-1].notes[-1] += " " + line.strip()
    else:
        raise ValueError("neither an entry's heading nor a note")


def heading(line: str, version: str, today: datetime.date) -> Entry:
    found = HEADING.fullmatch(line)
    if not found:
        raise ValueError('a heading is "## Unreleased" or like "## 1.2.0 - 2026-11-21"')
    if found["version"]:
        return Entry(found["version"], datetime.date.fromisoformat(found["date"]), released=True)
    return Entry(f"{version}~dev", today, released=False)


def check(entries: Sequence[Entry], version: str) -> None:
    if not entries:
        raise Failure("CHANGELOG.md has no entry")
    for entry in entries:
        if not entry.notes:
            raise Failure(f"CHANGELOG.md says nothing about {entry.version}")
    if not all(entry.released for entry in entries[1:]):
        raise Failure("only the newest entry of CHANGELOG.md can be unreleased")
    if entries[0].released and entries[0].version != version:
        raise Failure(f"the newest release in CHANGELOG.md is {entries[0].version}, but the program "
                      f"is {version}")
    numbers = [tuple(map(int, entry.version.removesuffix("~dev").split("."))) for entry in entries]
    if numbers != sorted(set(numbers), reverse=True):
        raise Failure("the versions in CHANGELOG.md do not go down from entry to entry; after a "
                      "release, that in CMakeLists.txt has to be raised")


def metainfo(entries: Sequence[Entry]) -> Iterator[str]:
    yield "  <releases>"
    for entry in entries:
        kind = "stable" if entry.released else "development"
        yield f'    <release version="{entry.version}" date="{entry.day}" type="{kind}">'
        yield "      <description>"
        yield "        <ul>"
        yield from (f"          <li>{marked_up(note)}</li>" for note in entry.notes)
        yield "        </ul>"
        yield "      </description>"
        yield "    </release>"
    yield "  </releases>"


def marked_up(note: str) -> str:
    return re.sub(r"`([^`]+)`", r"<code>\1</code>", escape(note))


def debian(entries: Sequence[Entry]) -> Iterator[str]:
    for entry in entries:
        distribution = "unstable" if entry.released else "UNRELEASED"
        yield f"corvane ({entry.version}-1) {distribution}; urgency=medium"
        yield ""
        yield from (textwrap.fill(note, 78, initial_indent="  * ", subsequent_indent="    ",
                                  break_long_words=False, break_on_hyphens=False)
                    for note in entry.notes)
        midnight = datetime.datetime.combine(entry.day, datetime.time(), datetime.timezone.utc)
        yield ""
        yield f" -- {MAINTAINER}  {email.utils.format_datetime(midnight)}"
        yield ""


def rpm(entries: Sequence[Entry]) -> Iterator[str]:
    for entry in entries:
        yield f"* {entry.day:%a %b %d %Y} {MAINTAINER} - {entry.version}-1"
        yield from (textwrap.fill(note.replace("%", "%%"), 78, initial_indent="- ", subsequent_indent="  ",
                                  break_long_words=False, break_on_hyphens=False)
                    for note in entry.notes)
        yield ""


def current_day() -> datetime.date:
    now = int(os.environ.get("SOURCE_DATE_EPOCH", time.time()))
    return datetime.datetime.fromtimestamp(now, datetime.timezone.utc).date()


def main(arguments: list[str]) -> int:
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    try:
        entries = parse(sys.stdin.read(), arguments[0], current_day())
    except Failure as failure:
        print(failure, file=sys.stderr)
        return 1
    print("\n".join(metainfo(entries)))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
