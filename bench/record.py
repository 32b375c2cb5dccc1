#!/usr/bin/python3 -B
"""record.py README PROGRAM DETECTOR: puts what bench/program and bench/detector printed between the
two marks in the readme."""

import os
import pathlib
import platform
import re
import sys

BEGIN = "<!-- bench/record writes what follows -->\n"
END = "<!-- until here -->\n"


def main(readme: str, program: str, detector: str) -> None:
    path = pathlib.Path(readme)
    before, between, after = parts(path.read_text())
    tables = [machine(pathlib.Path("/proc/cpuinfo").read_text()),
              pathlib.Path(program).read_text().strip(),
              "```\n" + detector_table(pathlib.Path(detector).read_text()) + "\n```"]
    path.write_text(before + BEGIN + "\n" + "\n\n".join(tables) + "\n\n" + END + after)


def parts(text: str) -> tuple[str, str, str]:
    before, begin, rest = text.partition(BEGIN)
    between, end, after = rest.partition(END)
    if not begin or not end:
        raise SystemExit(f"record.py: the readme lacks {BEGIN.strip()} or {END.strip()}")
    return before, between, after


def machine(processors: str) -> str:
    model = re.search(r"^model name\s*: (.+)$", processors, re.MULTILINE)
    virtual = re.search(r"^flags\s*:.* hypervisor( |$)", processors, re.MULTILINE)
    system = platform.freedesktop_os_release()["PRETTY_NAME"]
    return (f"Measured on {os.cpu_count()} processors ({model[1] if model else platform.machine()}), "
            f"{system}, Linux {platform.release()}{', in a virtual machine' if virtual else ''}:")


def detector_table(printed: str) -> str:
    """With what it says of paths that were not measured; what comes before tells about the machine's
    clock."""
    found = re.search(r"^(?:Not measured: .*\n)*one block of .*", printed,
                      re.MULTILINE | re.DOTALL)
    if found is None:
        raise SystemExit("record.py: the detector's table is missing")
    return found[0].strip()


if __name__ == "__main__":
    main(*sys.argv[1:])
