# SPDX-License-Identifier: MIT
"""The files of `cmake --install`, and their consistency."""

import configparser
import os
import pathlib
import re
import shutil
import struct
import subprocess
import tempfile
import unittest
from xml.etree import ElementTree

PACKAGING = pathlib.Path(__file__).resolve().parent.parent
BUILD = os.environ["CORVANE_BUILD"]
VERSION = os.environ["CORVANE_VERSION"]
ID = "org.corvane.Corvane"
ICON_SIZES = (16, 24, 32, 48, 64, 128, 256, 512)
PROGRAMS = ("corvane", "corvane-diagnose", "corvane-replay")
FILES = {
    *(f"bin/{program}" for program in PROGRAMS), *(f"share/man/man1/{program}.1" for program in PROGRAMS),
    "share/doc/corvane/LICENSE", "share/doc/corvane/privacy.html",
    f"share/applications/{ID}.desktop", f"share/metainfo/{ID}.metainfo.xml",
    f"share/icons/hicolor/scalable/apps/{ID}.svg",
    f"share/icons/hicolor/symbolic/apps/{ID}-symbolic.svg",
    *(f"share/icons/hicolor/{size}x{size}/apps/{ID}.png" for size in ICON_SIZES)}


def install(*arguments: str, **environment: str) -> None:
    subprocess.run(["cmake", "--install", BUILD, *arguments], env={**os.environ, **environment},
                   check=True, stdout=subprocess.DEVNULL)


def files_below(folder: pathlib.Path) -> set[str]:
    return {str(path.relative_to(folder)) for path in folder.rglob("*") if not path.is_dir()}


def options(text: str) -> set[str]:
    return set(re.findall(r"--\w+", text))


def size_of(png: pathlib.Path) -> tuple[int, int]:
    """From the header after the signature of eight bytes."""
    _, kind, width, height = struct.unpack(">I4sII", png.read_bytes()[8:24])
    return (width, height) if kind == b"IHDR" else (0, 0)


class Installation(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        cls.prefix = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory())) / "some prefix"
        install("--prefix", str(cls.prefix))
        cls.share = cls.prefix / "share"

    def test_has_exactly_the_expected_files(self) -> None:
        self.assertEqual(files_below(self.prefix), FILES)

    def test_supports_destdir(self) -> None:
        with tempfile.TemporaryDirectory() as gathered:
            install("--prefix", "/somewhere", DESTDIR=gathered)
            self.assertEqual(files_below(pathlib.Path(gathered, "somewhere")), FILES)

    def test_programs_run_and_manual_pages_have_their_options(self) -> None:
        for name in ("corvane", "corvane-diagnose"):
            self.assertEqual(self.output_of(name, "--version"), f"{name} {VERSION}\n")
        for name in PROGRAMS:
            page = (self.share / f"man/man1/{name}.1").read_text(encoding="utf-8").replace("\\-", "-")
            self.assertEqual(options(page), options(self.output_of(name, "--help")) | {"--help"}, name)

    def test_desktop_entry_names_program_and_icon(self) -> None:
        parser = configparser.ConfigParser(interpolation=None)
        parser.optionxform = str  # the keys are case-sensitive
        parser.read(self.share / f"applications/{ID}.desktop", encoding="utf-8")
        entry = parser["Desktop Entry"]
        for key in ("Exec", "TryExec"):
            self.assertEqual(shutil.which(entry[key], path=self.prefix / "bin"),
                             str(self.prefix / "bin/corvane"))
        expected = {"Name": "Corvane", "Icon": ID, "Categories": "AudioVideo;Audio;Music;",
                    "Terminal": "false"}
        self.assertEqual({key: entry[key] for key in expected}, expected)
        self.assertTrue(entry["Keywords"])

    def test_metainfo_has_id_version_and_short_summary(self) -> None:
        root = self.metainfo()
        expected = {"id": ID, "launchable": f"{ID}.desktop", "provides/binary": "corvane",
                    "name": "Corvane"}
        self.assertEqual({path: root.findtext(path) for path in expected}, expected)
        newest = root.find("releases/release").get("version")
        self.assertEqual(newest.removesuffix("~dev"), VERSION)
        # The limit of software centres.
        self.assertRegex(root.findtext("summary"), r"\A(?!A |An |The ).{9,34}[^.]\Z")

    def test_icons_have_every_size_and_screenshots_exist(self) -> None:
        for size in ICON_SIZES:
            icon = self.share / f"icons/hicolor/{size}x{size}/apps/{ID}.png"
            self.assertEqual(size_of(icon), (size, size))
        shown = {image.text.rsplit("/", 1)[1]: (int(image.get("width")), int(image.get("height")))
                 for image in self.metainfo().iter("image")}
        there = {png.name: size_of(png) for png in (PACKAGING / "screenshots").glob("*.png")}
        self.assertEqual(shown, there)
        self.assertTrue(there)

    def output_of(self, program: str, option: str) -> str:
        return subprocess.run([self.prefix / "bin" / program, option], capture_output=True,
                              text=True, check=True).stdout

    def metainfo(self) -> ElementTree.Element:
        return ElementTree.parse(self.share / f"metainfo/{ID}.metainfo.xml").getroot()


if __name__ == "__main__":
    unittest.main()
