#!/usr/bin/python3 -B
# SPDX-License-Identifier: MIT
"""record.py FOLDER: appends what bench/program and bench/detector printed into FOLDER/program and
FOLDER/detector to docs/performance.md, and writes the main figures, with the size of
FOLDER/installed, between the two marks in README.md."""

import datetime
import os
import pathlib
import platform
import re
import subprocess
import sys

BEGIN = "<!-- bench/record writes what follows -->\n"
END = "<!-- until here -->\n"


def main(folder: pathlib.Path) -> None:
    program = (folder / "program").read_text().strip()
    detector = detector_table((folder / "detector").read_text())
    run = f"{datetime.date.today()}, commit {commit()}: {machine(pathlib.Path('/proc/cpuinfo').read_text())}"
    with pathlib.Path("docs/performance.md").open("a") as history:
        history.write(f"\n## {run}\n\n{program}\n\n```\n{detector}\n```\n")
    readme = pathlib.Path("README.md")
    before, after = parts(readme.read_text())
    readme.write_text(f"{before}{BEGIN}\n{main_figures(program, folder / 'installed')}\n\n"
                      f"Measured on {run}.\n\n{END}{after}")


def main_figures(program: str, installed: pathlib.Path) -> str:
    measured = dict(re.findall(r"^\| (.+?) \| (.+?) +\|", program, re.MULTILINE))

    def cost(when: str) -> str:
        return f"{measured[f'Processor {when}']} of a core, {measured[f'Ratio {when}']} times the least program"

    size = sum(file.stat().st_size for file in installed.rglob("*") if not file.is_symlink())
    first_frame = next(value for what, value in measured.items() if what.startswith("First frame"))
    rows = {"Processor while a guitar is played": cost("while a guitar is played"),
            "Processor in silence": cost("in silence"),
            "Resident memory": measured["Resident memory"],
            "First frame after the start": first_frame,
            "From a pluck to the right note, of it the program's own share":
                measured["Onset of a string to its name on the screen, median"] + ", " +
                measured["of it the program's own share, median"],
            "Installed": f"{size / 1e6:.3g} MB"}
    return "| What | Measured |\n|---|---|\n" + "\n".join(f"| {what} | {value} |"
                                                        for what, value in rows.items())


def parts(text: str) -> tuple[str, str]:
    before, begin, rest = text.partition(BEGIN)
    _, end, after = rest.partition(END)
    if not begin or not end:
        raise SystemExit(f"record.py: README.md lacks {BEGIN.strip()} or {END.strip()}")
    return before, after


def commit() -> str:
    return subprocess.run(["git", "describe", "--always", "--dirty"], check=True,
                          capture_output=True, text=True).stdout.strip()


def machine(processors: str) -> str:
    model = re.search(r"^model name\s*: (.+)$", processors, re.MULTILINE)
    virtual = re.search(r"^flags\s*:.* hypervisor( |$)", processors, re.MULTILINE)
    system = platform.freedesktop_os_release()["PRETTY_NAME"]
    return (f"{os.cpu_count()} processors ({model[1] if model else platform.machine()}), "
            f"{system}, Linux {platform.release()}{', in a virtual machine' if virtual else ''}")


def detector_table(printed: str) -> str:
    """Includes the note on paths that were not measured, but not the facts about the machine before it."""
    found = re.search(r"^(?:Not measured: .*\n)*one block of .*", printed,
                      re.MULTILINE | re.DOTALL)
    if found is None:
        raise SystemExit("record.py: the detector's table is missing")
    return found[0].strip()


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))
