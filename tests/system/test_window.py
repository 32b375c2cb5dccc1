# SPDX-License-Identifier: MIT
"""The window and its menu, also of the installed program."""

import configparser
import os
import pathlib
import re
import socket
import subprocess

import pyatspi

from desk import system_test
from desk.browser import Browser, privacy_page
from desk.controls import POLICY
from desk.system_test import FIRST_SIZE, MENU_BAR, SMALLEST
from desk.tuner import Tuner
from desk.waiting import wait_until
from desk.window import Window, xdotool

HINT = ("A=440 is the modern standard. Older concerts used many other pitches, from about 377 Hz "
        "to above 560 Hz. In tune means within 5 cents.")
ICON_SIZES = [16, 32, 48]
# By content size: whether hint and version are shown.
SIZES = {(420, 680): (False, False), (480, 860): (True, True), (480, 800): (True, True),
         (480, 720): (False, False), (700, 1000): (True, True), (2000, 1200): (True, True)}


class TheWindow(system_test.SystemTest):
    def test_first_size_and_minimum_size(self) -> None:
        tuner = self.open()
        window = tuner.window
        self.assertEqual(window.frame()[2:], FIRST_SIZE)
        window.resize(100, 100)
        window.wait_for_size(SMALLEST)
        self.assertEqual(tuner.quit(), 0)

    def test_asks_the_window_manager_for_a_dark_frame(self) -> None:
        window = self.open().window
        self.assertEqual(window.property("_GTK_THEME_VARIANT"),
                         '_GTK_THEME_VARIANT(UTF8_STRING) = "dark"\n')

    def test_everything_is_inside_at_every_size(self) -> None:
        window = self.open().window
        for (width, height), expected in SIZES.items():
            with self.subTest(f"{width} x {height}"):
                window.resize(width, height + MENU_BAR)
                window.wait_for_size((width, height + MENU_BAR))
                wait_until(lambda: window.outside() == [], lambda: f"{window.outside()}")
                wait_until(lambda: hint_and_version(window) == expected,
                           lambda: f"{hint_and_version(window)}")


def hint_and_version(window: Window) -> tuple[bool, bool]:
    names = window.names(pyatspi.ROLE_LABEL)
    return HINT in names, "Version 1.0.0" in names


class UnresponsiveSession(system_test.SystemTest):
    def test_shows_the_window_and_ignores_the_session_manager(self) -> None:
        folder = self.desktop.folder("hung")
        bus, manager = (self.listen(folder / name) for name in ("bus", "manager"))
        program = self.desktop.processes.start([os.environ["CORVANE_PROGRAM"]], {
            **os.environ, "XDG_CONFIG_HOME": str(folder),
            "DBUS_SESSION_BUS_ADDRESS": f"unix:path={folder}/bus",
            "SESSION_MANAGER": f"local/{socket.gethostname()}:{folder}/manager"})
        self.addCleanup(self.desktop.processes.end, program)
        xdotool("search", "--sync", "--onlyvisible", "--all", "--pid", str(program.pid), "--name", ".")
        bus.accept()[0].close()
        with self.assertRaises(BlockingIOError):
            manager.accept()

    def listen(self, path: pathlib.Path) -> socket.socket:
        listener = self.enterContext(socket.socket(socket.AF_UNIX))
        listener.bind(str(path))
        listener.listen()
        listener.setblocking(False)
        return listener


class ThePrivacyPolicy(system_test.SystemTest):
    def test_is_the_only_help_item_and_opens_the_page(self) -> None:
        browser = Browser(self.desktop)
        window = self.open(**browser.environment).window
        window.choose(window.open_list(window.find(name="Help"), [POLICY]), POLICY)
        address, = browser.wait_for_addresses(1)
        self.assertEqual(address, privacy_page())
        page = pathlib.Path(address.removeprefix("file://")).read_text(encoding="utf-8")
        self.assertIn("What Corvane does with sound", page)


class TheInstalledProgram(system_test.SystemTest):
    def setUp(self) -> None:
        self.prefix = self.desktop.folder("prefix")
        subprocess.run(["cmake", "--install", os.environ["CORVANE_BUILD"], "--prefix", self.prefix],
                       check=True, stdout=subprocess.DEVNULL)
        self.browser = Browser(self.desktop)
        tuner = self.enterContext(
            Tuner(self.desktop, self.prefix / "bin" / "corvane", self.desktop.folder("config"),
                  {**os.environ, **self.browser.environment}))
        self.window = tuner.window
        tuner.wait_until_deaf()

    def test_opens_its_installed_privacy_page(self) -> None:
        self.window.press(name=POLICY)
        page = self.prefix / "share" / "doc" / "corvane" / "privacy.html"
        self.assertEqual(self.browser.wait_for_addresses(1), [page.as_uri()])
        self.assertTrue(page.exists())

    def test_window_matches_its_desktop_entry_and_icon(self) -> None:
        entry = configparser.ConfigParser(interpolation=None)
        entry.read(self.prefix / "share/applications/org.corvane.Corvane.desktop")
        self.assertIn(f'"{entry["Desktop Entry"]["StartupWMClass"]}"',
                      self.window.property("WM_CLASS"))
        wait_until(lambda: self.icon_sizes() == ICON_SIZES,
                   lambda: f"the icon has the sizes {self.icon_sizes()}")

    def icon_sizes(self) -> list[int]:
        return [int(side) for side in re.findall(r"Icon \((\d+) x \1\)",
                                                 self.window.property("_NET_WM_ICON"))]


if __name__ == "__main__":
    system_test.main()
