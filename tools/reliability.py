#!/usr/bin/python3 -B
"""Writes what is known about the program's reliability, from what test runs have printed.

reliability.py --patterns PRESET
    prints one pattern for all tests of that preset that show a promise
reliability.py --names BUILD
    fails when a promise names tests that the build directory lacks
reliability.py RESULTS DOCUMENT
    writes DOCUMENT. The directory RESULTS has PRESET.xml, in the format of JUnit, from each run of
    ctest, and, of each command that was run, what it printed in a file of its name with "-" for "/"
    and ".log" behind it; a command that was not keeps the figures that DOCUMENT has of it. Fails,
    naming them, when there are promises that nothing shows.

A test tells a figure in a line "figure: WHAT = VALUE".
"""

import json
import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree
from collections.abc import Iterable

from promises import GROUPS, PROMISES, Promise

FIGURE = re.compile(r"^(?:.*[ \t])?figure: (.+) = (.+)$", re.MULTILINE)
HEAD = """# What the program can be relied on for

Written by `tools/reliability`, which runs the tests, from what they print; not by hand. Where several
tests tell the same figure, the least and the largest of it are given.
"""


class Run:
    """What one run of ctest has told: the output of each test that was run and passed."""

    def __init__(self, file: pathlib.Path):
        self.passed: dict[str, str] = {}
        self.failed: list[str] = []
        cases = xml.etree.ElementTree.parse(file).iter("testcase") if file.exists() else ()
        for case in cases:
            if case.get("status") == "run":
                self.passed[case.get("name")] = case.findtext("system-out") or ""
            elif case.get("status") == "fail":
                self.failed.append(case.get("name"))


def names_matching(promise: Promise, names: Iterable[str]) -> list[str]:
    return [name for name in names if re.match(promise.tests, name)]


def figures(outputs: Iterable[str]) -> list[str]:
    told: dict[str, list[str]] = {}
    for output in outputs:
        for what, value in FIGURE.findall(output):
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


def figures_from_tests(promise: Promise, run: Run) -> list[str] | None:
    """None when nothing shows the promise."""
    passed = names_matching(promise, run.passed)
    if not passed or names_matching(promise, run.failed):
        return None
    return [f"{len(passed)} passed"] + figures(run.passed[name] for name in passed)


def figures_from_command(promise: Promise, results: pathlib.Path, before: str) -> list[str] | None:
    log = results / (promise.command.replace("/", "-") + ".log")
    if log.exists():
        return figures([log.read_text(errors="replace")]) or None
    row = re.search(rf"^\| .* \| `{re.escape(promise.command)}` \| (.+) \|$", before, re.MULTILINE)
    return row[1].split("; ") if row and row[1] != "none" else None


def write(results: pathlib.Path, document: pathlib.Path) -> list[str]:
    """The promises that nothing shows."""
    before = document.read_text(encoding="utf-8") if document.exists() else ""
    runs = {preset: Run(results / f"{preset}.xml") for preset in {p.preset for p in PROMISES}}
    lines, unshown = [HEAD], []
    for title, promises in GROUPS.items():
        lines += [f"## {title}\n", "| Promise | Shown by | Last figures |", "|---|---|---|"]
        for promise in promises:
            told = (figures_from_command(promise, results, before) if promise.command
                    else figures_from_tests(promise, runs[promise.preset]))
            unshown += [promise.text] if told is None else []
            shown_by = promise.shown_by.replace("|", "\\|")
            lines.append(f"| {promise.text} | `{shown_by}` | {'; '.join(told or ['none'])} |")
        lines.append("")
    document.write_text("\n".join(lines), encoding="utf-8")
    return unshown


def missing(build: str) -> list[str]:
    listing = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"], check=True,
                             capture_output=True, text=True).stdout
    names = [test["name"] for test in json.loads(listing)["tests"]]
    return [f"no test is called {promise.tests}" for promise in PROMISES
            if promise.tests and promise.preset == "dev" and not names_matching(promise, names)]


def main(arguments: list[str]) -> int:
    match arguments:
        case ["--patterns", preset]:
            print("|".join(f"^{p.tests}" for p in PROMISES if p.tests and p.preset == preset))
            return 0
        case ["--names", build]:
            lacking = missing(build)
        case [results, document]:
            lacking = [f"nothing shows: {text}"
                       for text in write(pathlib.Path(results), pathlib.Path(document))]
        case _:
            print(__doc__, file=sys.stderr)
            return 2
    print("\n".join(lacking) or "each promise is shown")
    return 1 if lacking else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
