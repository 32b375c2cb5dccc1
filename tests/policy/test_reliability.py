#!/usr/bin/python3 -B
# SPDX-License-Identifier: MIT
"""The document that tools/reliability generates."""

import pathlib
import subprocess
import tempfile
import unittest

import reliability
from promises import Promise

CASES = """<testsuite>
<testcase name="a_test.Passes/one  # GetParam() = one" status="run"><system-out>
figure: s until sound is back = 0.25
figure: here: kB grown = 12
</system-out></testcase>
<testcase name="a_test.Passes/other" status="run"><system-out>
figure: s until sound is back = 0.5
figure: there: kB grown = 4
</system-out></testcase>
<testcase name="a_test.Skips/one" status="notrun"><system-out>a_test.cpp:1: Skipped
there is no such device
</system-out></testcase>
<testcase name="a_test.Fails/one" status="fail"/>
</testsuite>"""


class Reliability(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.results = pathlib.Path(folder.name)
        (self.results / "dev.xml").write_text(CASES, encoding="utf-8")
        self.tests = reliability.Run(self.results / "dev.xml")

    def of_tests(self, pattern: str, figures: str = ".*") -> reliability.Cell:
        return reliability.from_tests(Promise("It works", pattern, figures=figures), self.tests)

    def of_command(self, before: str = "") -> reliability.Cell:
        return reliability.from_command(Promise("It works", command="a/b"), self.results, before)

    def test_combines_figures_of_several_tests(self) -> None:
        self.assertEqual(self.of_tests(r"a_test\.Passes"), reliability.Cell(
            ["2 passed", "s until sound is back: 0.25 to 0.5", "kB grown: 4 to 12"]))

    def test_omits_figures_of_other_promises(self) -> None:
        self.assertEqual(self.of_tests(r"a_test\.Passes", figures="kB").told,
                         ["2 passed", "kB grown: 4 to 12"])

    def test_prints_the_reason_of_a_skipped_test(self) -> None:
        self.assertEqual(self.of_tests(r"a_test\.(Passes/one|Skips)").told[:2], [
            "1 passed", "skipped: Skips/one, for there is no such device"])

    def test_skipped_tests_do_not_show_a_promise(self) -> None:
        cell = self.of_tests(r"a_test\.Skips")
        self.assertEqual(cell.told, ["skipped: Skips/one, for there is no such device"])
        self.assertTrue(cell.fault)

    def test_names_a_failed_test(self) -> None:
        self.assertEqual(self.of_tests(r"a_test\..*"),
                         reliability.Cell(["1 FAILED"], "failed: a_test.Fails/one"))

    def test_missing_results_show_nothing(self) -> None:
        self.tests = reliability.Run(self.results / "none.xml")
        self.assertEqual(self.of_tests(".*"), reliability.Cell(["none"], "no such test passed"))

    def test_names_a_command_without_figures(self) -> None:
        (self.results / "a-b.log").write_text("all is well\n", encoding="utf-8")
        self.assertEqual(self.of_command(), reliability.Cell(["none"], "no figure in a-b.log"))

    def test_failed_command_loses_its_figures(self) -> None:
        (self.results / "a-b.failed").write_text("figure: hours = 1\n", encoding="utf-8")
        cell = self.of_command("| It works | `a/b` | hours: 24 |\n")
        self.assertEqual(cell, reliability.Cell(["FAILED"], "it failed, see a-b.failed"))

    def test_command_not_run_keeps_its_figures(self) -> None:
        cell = self.of_command("| It works | `a/b` | hours: 24; buffers: 7 |\n")
        self.assertEqual(cell, reliability.Cell(["hours: 24", "buffers: 7"]))
        self.assertTrue(self.of_command().fault)

    def test_invalid_arguments_give_one_line(self) -> None:
        command = pathlib.Path(reliability.__file__).with_name("reliability")
        for arguments in (["0"], ["-1"], ["twenty"], [""], ["20", "commands"],
                          ["2", "with-commands", "3"]):
            with self.subTest(arguments):
                done = subprocess.run([command, *arguments], capture_output=True, text=True, timeout=10)
                self.assertEqual((done.returncode, done.stderr.count("\n")), (2, 1))


if __name__ == "__main__":
    unittest.main()
