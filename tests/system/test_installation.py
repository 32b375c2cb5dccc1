"""The program where `cmake --install` has put it, as a desktop meets it."""

import configparser
import os
import re
import subprocess

from desk import system_test
from desk.browser import Browser
from desk.screen import Screen
from desk.tuner import Tuner
from desk.waiting import wait_until
from desk.xdotool import xdotool

ANSWER_SECONDS = 5
ICON_SIZES = [16, 32, 48]


class TheInstalledProgram(system_test.SystemTest):
    def setUp(self) -> None:
        self.prefix = self.desktop.folder("prefix")
        subprocess.run(["cmake", "--install", os.environ["CORVANE_BUILD"], "--prefix", self.prefix],
                       check=True, stdout=subprocess.DEVNULL)
        self.browser = Browser(self.desktop)
        tuner = self.enterContext(
            Tuner(self.desktop, self.prefix / "bin" / "corvane", self.desktop.folder("config"),
                  {**os.environ, **self.browser.environment}))
        self.screen = Screen(tuner.process.pid)
        self.screen.activate()

    def test_opens_the_privacy_page_that_was_installed_with_it(self) -> None:
        self.screen.press(name="Privacy Policy")
        page = self.prefix / "share" / "doc" / "corvane" / "privacy.html"
        self.assertEqual(self.browser.wait_for_addresses(1), [page.as_uri()])
        self.assertTrue(page.exists())

    def test_has_a_window_that_taskbars_find_the_desktop_entry_and_the_icon_of(self) -> None:
        entry = configparser.ConfigParser(interpolation=None)
        entry.read(self.prefix / "share/applications/org.corvane.Corvane.desktop")
        self.assertIn(f'"{entry["Desktop Entry"]["StartupWMClass"]}"', self.property("WM_CLASS"))
        wait_until(lambda: self.icon_sizes() == ICON_SIZES, ANSWER_SECONDS,
                   lambda: f"the icon has the sizes {self.icon_sizes()}")

    def property(self, name: str) -> str:
        window = xdotool("getactivewindow").strip()
        return subprocess.run(["xprop", "-id", window, name], capture_output=True, text=True,
                              check=True).stdout

    def icon_sizes(self) -> list[int]:
        return [int(side) for side in re.findall(r"Icon \((\d+) x \1\)", self.property("_NET_WM_ICON"))]


if __name__ == "__main__":
    system_test.main()
