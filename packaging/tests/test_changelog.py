# SPDX-License-Identifier: MIT
"""CHANGELOG.md in the metainfo and in packages."""

import datetime
import pathlib
import sys
import unittest
from xml.etree import ElementTree

PACKAGING = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(PACKAGING))

import changelog  # noqa: E402

TODAY = datetime.date(2031, 5, 17)
TWO = """# Changelog

## 1.1.0 - 2031-03-02

- Hears violins.

## 1.0.0 - 2030-12-24

- Says "In tune" & more,
  on a second line: `corvane-replay <file>`.
- Plays.
"""


def entries(text: str, version: str) -> list[changelog.Entry]:
    return changelog.parse(text, version, TODAY)


class Entries(unittest.TestCase):
    def test_have_version_date_and_notes(self) -> None:
        first, second = entries(TWO, "1.1.0")
        self.assertEqual((first.version, first.day.isoformat(), first.notes),
                         ("1.1.0", "2031-03-02", ["Hears violins."]))
        self.assertEqual(second.notes, [
            'Says "In tune" & more, on a second line: `corvane-replay <file>`.', "Plays."])

    def test_unreleased_has_the_program_version(self) -> None:
        newest = entries(TWO.replace("1.1.0 - 2031-03-02", "Unreleased"), "1.1.0")[0]
        self.assertEqual((newest.version, newest.day, newest.released), ("1.1.0~dev", TODAY, False))


class InvalidChangeLog(unittest.TestCase):
    def test_is_rejected_with_the_reason(self) -> None:
        newest, oldest = "1.1.0 - 2031-03-02", "1.0.0 - 2030-12-24"
        for text, version, reason in (
                (TWO, "1.2.0", "newest release .* is 1.1.0, but the program is 1.2.0"),
                (TWO.replace(newest, "Unreleased"), "1.0.0", "do not go down"),
                (TWO.replace(oldest, "Unreleased"), "1.1.0", "only the newest"),
                (TWO + "\nThat is all.\n", "1.1.0", ":13: neither"),
                (TWO.replace("2030-12-24", "2030-13-24"), "1.1.0", ":7: "),
                (TWO.replace(oldest, "v1.0.0, 2030-12-24"), "1.1.0", ":7: a heading is"),
                ("# Changelog\n", "1.0.0", "no entry"),
                ("## Unreleased\n", "1.0.0", "says nothing about 1.0.0~dev")):
            with self.subTest(reason), self.assertRaisesRegex(changelog.Failure, reason):
                entries(text, version)


class Metainfo(unittest.TestCase):
    def test_has_a_release_for_every_entry(self) -> None:
        releases = ElementTree.fromstring("\n".join(changelog.metainfo(entries(TWO, "1.1.0"))))
        self.assertEqual([release.attrib for release in releases], [
            {"version": "1.1.0", "date": "2031-03-02", "type": "stable"},
            {"version": "1.0.0", "date": "2030-12-24", "type": "stable"}])
        self.assertEqual(["".join(note.itertext()) for note in releases.iter("li")], [
            "Hears violins.", 'Says "In tune" & more, on a second line: corvane-replay <file>.',
            "Plays."])

    def test_unreleased_is_a_development_release(self) -> None:
        text = "\n".join(changelog.metainfo(entries("## Unreleased\n- New.\n", "1.0.0")))
        self.assertIn('version="1.0.0~dev" date="2031-05-17" type="development"', text)


class DebianChangeLog(unittest.TestCase):
    def test_has_an_entry_with_its_notes_for_every_entry(self) -> None:
        self.assertEqual("\n".join(changelog.debian(entries(TWO, "1.1.0"))), """\
corvane (1.1.0-1) unstable; urgency=medium

  * Hears violins.

 -- The Corvane developers <developers@corvane.example>  Sun, 02 Mar 2031 00:00:00 +0000

corvane (1.0.0-1) unstable; urgency=medium

  * Says "In tune" & more, on a second line: `corvane-replay <file>`.
  * Plays.

 -- The Corvane developers <developers@corvane.example>  Tue, 24 Dec 2030 00:00:00 +0000
""")


class RpmChangeLog(unittest.TestCase):
    def test_has_an_entry_with_its_notes_for_every_entry(self) -> None:
        self.assertEqual("\n".join(changelog.rpm(entries(TWO.replace("Plays", "50% more"), "1.1.0"))), """\
* Sun Mar 02 2031 The Corvane developers <developers@corvane.example> - 1.1.0-1
- Hears violins.

* Tue Dec 24 2030 The Corvane developers <developers@corvane.example> - 1.0.0-1
- Says "In tune" & more, on a second line: `corvane-replay <file>`.
- 50%% more.
""")


if __name__ == "__main__":
    unittest.main()
