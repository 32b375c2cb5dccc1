# SPDX-License-Identifier: MIT
"""Installing packages on each system, with fake package managers."""

import os
import pathlib
import pty
import subprocess
import tempfile
import unittest

TREE = pathlib.Path(__file__).resolve().parent.parent.parent
# Fake package managers record their commands. Only "cmake" is installed; "refused" does not exist.
FAKE = """#!/bin/sh
case "${0##*/} $*" in
  *" --deptest cmake" | "rpm "*" cmake" | "dpkg-query "*" cmake") echo installed; exit 0 ;;
  "rpm "* | "dpkg-query "* | *" --deptest "*) exit 1 ;;
  "id -u") echo "${FAKE_USER:-0}"; exit ;;
esac
echo "${0##*/} $*" >>"$NOTES"
case "${0##*/} $*" in
  "sudo "*) exec "$@" ;;
  *libpulse*) exit "${FAKE_STATUS:-0}" ;;
esac
"""
PROGRAMS = ("apt-get", "dnf", "dpkg-query", "id", "pacman", "rpm", "sudo", "zypper")
WANTED = "cmake qt6-base-dev qml6-module-qtqml libpulse-dev fonts-quicksand"


class NeedPackages(unittest.TestCase):
    def setUp(self) -> None:
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        for name in PROGRAMS:
            (self.folder / name).write_text(FAKE)
            (self.folder / name).chmod(0o755)

    def need(self, release: str, answer: str = "", **environment: str) -> tuple[str, list[str]]:
        """The output, and the commands of the package managers. `answer` is typed on a terminal."""
        (self.folder / "os-release").write_text(release)
        notes = self.folder / "notes"
        notes.write_text("")
        terminal, theirs = pty.openpty()
        os.write(terminal, answer.encode())
        with os.fdopen(terminal, "wb"), os.fdopen(theirs, "rb") as standard_input:
            done = subprocess.run(
                ["bash", "-euo", "pipefail", "-c",
                 f'. tools/packages.sh; need "a test" {WANTED}; echo "continued"'],
                cwd=TREE, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                stdin=standard_input if answer else subprocess.DEVNULL,
                env={"PATH": f"{self.folder}:{os.environ['PATH']}", "NOTES": str(notes),
                     "CORVANE_OS_RELEASE": str(self.folder / "os-release"), **environment})
        self.assertEqual(done.returncode, 0 if "continued" in done.stdout else 1, done.stdout)
        return done.stdout, notes.read_text().splitlines()

    def test_installs_on_debian_without_asking(self) -> None:
        said, asked = self.need("ID=debian\n")
        self.assertIn("continued", said)
        self.assertEqual(asked, [
            "apt-get -qq update",
            "apt-get -qq install --no-install-recommends --no-remove --yes "
            "qt6-base-dev qml6-module-qtqml libpulse-dev fonts-quicksand"])

    def test_asks_and_installs_by_each_systems_names(self) -> None:
        for release, command in {
                "ID=fedora": "dnf install --assumeyes pulseaudio-libs-devel qt6-qtbase-devel",
                'ID="rocky"\nID_LIKE="rhel centos fedora"':
                    "dnf install --assumeyes pulseaudio-libs-devel qt6-qtbase-devel",
                'ID="opensuse-tumbleweed"\nID_LIKE="opensuse suse"':
                    "zypper --non-interactive install --no-recommends libpulse-devel qt6-base-devel",
                "ID=manjaro\nID_LIKE=arch": "pacman --sync --needed --noconfirm libpulse qt6-base",
                "ID=ubuntu\nID_LIKE=debian":
                    "apt-get -qq install --no-install-recommends --no-remove --yes "
                    "qt6-base-dev qml6-module-qtqml libpulse-dev fonts-quicksand"}.items():
            with self.subTest(release):
                said, asked = self.need(release, "y\n")
                self.assertIn("[y/N]", said)
                self.assertIn("continued", said)
                self.assertEqual(asked[-1], command)
                self.assertEqual(asked[:-1], ["apt-get -qq update"] if "ubuntu" in release else [])
                if "ubuntu" not in release:
                    self.assertIn("Skipped, because this system's names are unknown: fonts-quicksand\n", said)

    def test_uses_sudo_unless_root(self) -> None:
        command = "pacman --sync --needed --noconfirm libpulse qt6-base"
        self.assertEqual(self.need("ID=arch", "y\n", FAKE_USER="1000")[1], [f"sudo {command}", command])

    def test_exits_unless_the_user_agrees(self) -> None:
        for answer in ("", "\n", "n\n"):
            with self.subTest(answer):
                said, asked = self.need("ID=arch", answer)
                self.assertNotIn("continued", said)
                self.assertIn("pacman --sync --needed --noconfirm libpulse qt6-base\n", said)
                self.assertEqual(asked, [])

    def test_continues_without_unavailable_packages(self) -> None:
        said, asked = self.need("ID=arch", "y\n", FAKE_STATUS="1")
        self.assertIn("Continuing without libpulse.\n", said)
        self.assertIn("continued", said)
        self.assertEqual(asked[1:], ["pacman --sync --needed --noconfirm libpulse",
                                     "pacman --sync --needed --noconfirm qt6-base"])

    def test_prints_debian_names_on_an_unknown_system(self) -> None:
        said, asked = self.need("ID=unheard-of")
        self.assertNotIn("continued", said)
        self.assertIn("  qt6-base-dev\n", said)
        self.assertEqual(asked, [])


if __name__ == "__main__":
    unittest.main()
