# SPDX-License-Identifier: MIT
"""The generated recipes of each distribution."""

import pathlib
import re
import sys
import tempfile
import unittest

PACKAGING = pathlib.Path(__file__).resolve().parent.parent
TREE = PACKAGING.parent
sys.path.insert(0, str(PACKAGING))

import recipe  # noqa: E402

# All files that name build dependencies.
BUILT_BY = {"debian/control": "cmake (>= 3.25),", "others/corvane.spec": "cmake >= 3.25",
            "others/PKGBUILD": "'cmake>=3.25'"}


class Recipes(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        cls.folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        archive = cls.folder / "corvane-9.9.9.tar.xz"
        archive.write_bytes(b"an archive")
        for name in ("debian", "others"):
            recipe.main([str(archive), name, str(cls.folder / name)])

    def text(self, name: str) -> str:
        return (self.folder / name).read_text(encoding="utf-8")

    def test_have_no_placeholders_left(self) -> None:
        files = [path for path in self.folder.rglob("*") if path.is_file() and path.suffix != ".xz"]
        self.assertGreater(len(files), 10)
        for path in files:
            self.assertNotRegex(path.read_text(encoding="utf-8"), "@[A-Za-z ]+@", path)

    def test_have_the_same_version_summary_and_dependencies(self) -> None:
        project = (TREE / "CMakeLists.txt").read_text(encoding="utf-8")
        version = re.search(r"VERSION ([\d.]+)$", project, re.MULTILINE)[1]
        for name, cmake in BUILT_BY.items():
            with self.subTest(name):
                self.assertIn(cmake, self.text(name))
                self.assertIn("uner for guitar, bass and piano", self.text(name))
        self.assertIn(f"\nVersion:        {version}", self.text("others/corvane.spec"))
        self.assertIn(f"\npkgver={version}", self.text("others/PKGBUILD"))
        self.assertIn(f"corvane ({version}", self.text("debian/changelog"))

    def test_require_the_versions_that_cmake_requires(self) -> None:
        least = re.findall(r"(?:cmake|qt6-[a-z]+-dev) \(>= ([\d.]+)\)", self.text("debian/control"))
        asked = re.search(r"VERSION ([\d.]+)\)", (TREE / "CMakeLists.txt").read_text(encoding="utf-8"))[1]
        qt = re.search(r"Qt6 ([\d.]+) REQUIRED", (TREE / "ui/CMakeLists.txt").read_text(encoding="utf-8"))[1]
        self.assertEqual(least, [asked, qt, qt])

    def test_flatpak_permits_only_microphone_and_display(self) -> None:
        manifest = self.text("others/org.corvane.Corvane.yml")
        self.assertEqual(set(re.findall(r"- (--\S+)", manifest)),
                         {"--socket=pulseaudio", "--socket=wayland", "--socket=fallback-x11", "--share=ipc"})


if __name__ == "__main__":
    unittest.main()
