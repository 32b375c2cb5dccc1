#!/usr/bin/python3 -B
"""Writes what is known about the program's reliability, from what test runs have printed.

reliability.py --patterns PRESET
    prints one pattern for all tests of that preset that show a promise
reliability.py --names BUILD
    fails when a promise names tests that the build directory lacks, or is not in docs/reliability.md
reliability.py RESULTS DOCUMENT
    writes DOCUMENT. The directory RESULTS has PRESET.xml, in the format of JUnit, from each run of
    ctest, and, of each command that was run, what it printed in a file of its name with "-" for "/"
    and ".log" behind it, or ".failed" when it failed; a command that was not run keeps the figures
    that DOCUMENT has of it. Fails, naming them, when there are promises that nothing shows, and says
    for each of them why.

A test tells a figure in a line "figure: WHAT = VALUE", or "figure: CASE: WHAT = VALUE".
"""

import json
import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree
from collections.abc import Iterable
from typing import NamedTuple

from promises import GROUPS, PROMISES, Promise

DOCUMENT = pathlib.Path(__file__).resolve().parent.parent / "docs" / "reliability.md"
FIGURE = re.compile(r"^(?:.*[ \t])?figure: (?:.+: )?(.+) = (.+)$", re.MULTILINE)
# What a test says when it is skipped: GoogleTest in the line below the place, unittest behind "skipped".
REASON = re.compile(r"(?:: Skipped\n|\bskipped ['\"])([^\n'\"]+)")
HEAD = """# What the program can be relied on for

Written by `tools/reliability`, which runs the tests, from what they print; not by hand. Where several
tests, or cases of one, tell the same figure, the least and the largest of it are given.
"""


class Cell(NamedTuple):
    """What stands beside a promise, and why that does not show it, which is nothing when it does."""

    told: list[str]
    fault: str = ""


class Run:
    """What one run of ctest has told of each test, by its name."""

    def __init__(self, file: pathlib.Path):
        self.passed: dict[str, str] = {}  # what it printed
        self.skipped: dict[str, str] = {}  # why
        self.failed: list[str] = []
        cases = xml.etree.ElementTree.parse(file).iter("testcase") if file.exists() else ()
        for case in cases:
            # GoogleTest says behind "#" with what it was run.
            name = case.get("name").partition("  #")[0]
            output = case.findtext("system-out") or ""
            match case.get("status"):
                case "run":
                    self.passed[name] = output
                case "notrun":
                    reason = REASON.search(output)
                    self.skipped[name] = reason[1].strip() if reason else "it does not say why"
                case _:
                    self.failed.append(name)


def names_matching(promise: Promise, names: Iterable[str]) -> list[str]:
    return [name for name in names if re.match(promise.tests, name)]


def figures(promise: Promise, outputs: Iterable[str]) -> list[str]:
    told: dict[str, list[str]] = {}
    for output in outputs:
        for what, value in FIGURE.findall(output):
            if re.match(promise.figures, what):
                told.setdefault(what, []).append(value.strip())
    return [f"{what}: {spread(values)}" for what, values in told.items()]


def spread(values: list[str]) -> str:
    """From the least to the largest, to three digits."""
    try:
        numbers = [float(value) for value in values]
    except ValueError:
        return ", ".join(dict.fromkeys(values))
    low, high = (f"{number:.3g}" if number < 1000 else f"{number:.0f}"
                 for number in (min(numbers), max(numbers)))
    return low if low == high else f"{low} to {high}"


def from_tests(promise: Promise, run: Run) -> Cell:
    passed = names_matching(promise, run.passed)
    skipped = [f"skipped: {name.rpartition('.')[2]}, for {run.skipped[name]}"
               for name in names_matching(promise, run.skipped)]
    failed = names_matching(promise, run.failed)
    if failed:
        return Cell([f"{len(failed)} FAILED"], f"failed: {', '.join(failed)}")
    if not passed:
        return Cell(skipped or ["none"], "no such test has passed")
    told = figures(promise, (run.passed[name] for name in passed))
    return Cell([f"{len(passed)} passed"] + skipped + told)


def from_command(promise: Promise, results: pathlib.Path, before: str) -> Cell:
    log = results / (promise.command.replace("/", "-") + ".log")
    failure = log.with_suffix(".failed")
    if failure.exists():
        return Cell(["FAILED"], f"it failed, see {failure.name}")
    if log.exists():
        told = figures(promise, [log.read_text(errors="replace")])
        return Cell(told) if told else Cell(["none"], f"no figure stands in {log.name}")
    row = re.search(rf"^\| .* \| `{re.escape(promise.command)}` \| (.+) \|$", before, re.MULTILINE)
    if row and row[1] not in ("none", "FAILED"):
        return Cell(row[1].split("; "))
    return Cell(["none"], "it was never run")


def write(results: pathlib.Path, document: pathlib.Path) -> list[str]:
    """The promises that nothing shows, and why."""
    before = document.read_text(encoding="utf-8") if document.exists() else ""
    runs = {preset: Run(results / f"{preset}.xml") for preset in {p.preset for p in PROMISES}}
    lines, unshown = [HEAD], []
    for title, promises in GROUPS.items():
        lines += [f"## {title}\n", "| Promise | Shown by | Last figures |", "|---|---|---|"]
        for promise in promises:
            cell = (from_command(promise, results, before) if promise.command
                    else from_tests(promise, runs[promise.preset]))
            unshown += [f"{promise.shown_by}: {cell.fault}"] if cell.fault else []
            told = escaped("; ".join(cell.told))
            lines.append(f"| {promise.text} | `{escaped(promise.shown_by)}` | {told} |")
        lines.append("")
    document.write_text("\n".join(lines), encoding="utf-8")
    return unshown


def missing(build: str) -> list[str]:
    listing = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"], check=True,
                             capture_output=True, text=True).stdout
    names = [test["name"] for test in json.loads(listing)["tests"]]
    return [f"no test is called {promise.tests}" for promise in PROMISES
            if promise.tests and promise.preset == "dev" and not names_matching(promise, names)]


def escaped(text: str) -> str:
    return text.replace("|", "\\|")


def unwritten(document: str) -> list[str]:
    return [f"{DOCUMENT.name} does not say: {promise.text}" for promise in PROMISES
            if f"| {promise.text} | `{escaped(promise.shown_by)}` |" not in document]


def main(arguments: list[str]) -> int:
    match arguments:
        case ["--patterns", preset]:
            print("|".join(f"^{p.tests}" for p in PROMISES if p.tests and p.preset == preset))
            return 0
        case ["--names", build]:
            lacking = missing(build) + unwritten(DOCUMENT.read_text(encoding="utf-8"))
        case [results, document]:
            lacking = [f"not shown by {reason}"
                       for reason in write(pathlib.Path(results), pathlib.Path(document))]
        case _:
            print(__doc__, file=sys.stderr)
            return 2
    print("\n".join(lacking) or "each promise is shown")
    return 1 if lacking else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
