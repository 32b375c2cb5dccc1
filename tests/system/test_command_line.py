# SPDX-License-Identifier: MIT
"""The program's command line, which needs no display."""

import os
import subprocess
import unittest

PROGRAM = os.environ["CORVANE_PROGRAM"]
VERSION = os.environ["CORVANE_VERSION"]
DISPLAYS = ("DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR", "QT_QPA_PLATFORM")


def run(*arguments: str, stdout: int = subprocess.PIPE,
        **environment: str) -> subprocess.CompletedProcess[str]:
    """Runs the program without the variables of a display."""
    bare = {name: value for name, value in os.environ.items() if name not in DISPLAYS}
    return subprocess.run([PROGRAM, *arguments], env={**bare, **environment}, stdout=stdout,
                          stderr=subprocess.PIPE, text=True)


class Option(unittest.TestCase):
    def test_prints_the_version_or_the_options(self) -> None:
        done = run("--version")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, f"corvane {VERSION}\n", ""))
        done = run("--help")
        told = [word for word in done.stdout.split() if word.startswith("-")]
        self.assertEqual((done.returncode, told, done.stderr), (0, ["--help", "--version"], ""))

    def test_fails_if_the_output_cannot_be_written(self) -> None:
        with open("/dev/full", "w", encoding="utf-8") as full:
            self.assertEqual(run("--version", stdout=full.fileno()).returncode, 1)


class InvalidArgument(unittest.TestCase):
    def test_gives_one_line_and_status_2(self) -> None:
        # Including options that Qt would consume or that it adds.
        for arguments in (["--verbose"], ["-v"], ["-h"], ["--help-all"], ["note.wav"], [""],
                          ["-platform", "offscreen"], ["-qmljsdebugger=port:1"], ["--help=me"],
                          ["--version", "again"], ["--two\nlines"]):
            with self.subTest(arguments):
                done = run(*arguments)
                self.assertEqual((done.returncode, done.stdout), (2, ""))
                self.assertRegex(done.stderr, r"\Acorvane: .+\n\Z")


class WithoutADisplay(unittest.TestCase):
    def test_fails_with_one_line(self) -> None:
        for environment in ({}, {"DISPLAY": "nowhere.invalid:7"},
                            {"WAYLAND_DISPLAY": "/nowhere", "QT_QPA_PLATFORM": "wayland"}):
            with self.subTest(environment):
                done = run(**environment)
                self.assertEqual((done.returncode, done.stdout, done.stderr),
                                 (1, "", "corvane: there is no display to show the tuner on\n"))


if __name__ == "__main__":
    unittest.main()
