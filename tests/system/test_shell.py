"""The window itself, its menu, and two of it at once."""

import os
import pathlib

from desk import system_test
from desk.browser import Browser, privacy_page
from desk.controls import LEFT_HANDED, Controls
from desk.pull_down import PullDown
from desk.screen import ANSWER_SECONDS, Screen
from desk.settings import read_settings, settings_file, write_settings
from desk.sizes import FIRST_SIZE, SMALLEST
from desk.tuner import Tuner
from desk.waiting import wait_until

POLICY = "Privacy Policy"


class ShellTest(system_test.SystemTest):
    def open(self, config_home: pathlib.Path, **variables: str) -> tuple[Tuner, Screen]:
        tuner = self.start_tuner(config_home, {**os.environ, **variables})
        screen = Screen(tuner.process.pid)
        screen.activate()
        return tuner, screen


class TheWindow(ShellTest):
    def test_opens_at_its_first_size(self) -> None:
        _, screen = self.open(self.desktop.folder("config"))
        self.assertEqual(screen.frame()[2:], FIRST_SIZE)

    def test_is_not_made_smaller_than_its_content_allows(self) -> None:
        _, screen = self.open(self.desktop.folder("config"))
        frame = screen.frame()
        # By the right end of the handle that the window manager puts under it.
        screen.drag((frame.right - 2, frame.bottom + 2), (frame.x + 100, frame.y + 100))
        self.wait_for_size(screen, SMALLEST)
        screen.resize(100, 100)
        screen.resize(*FIRST_SIZE)
        self.wait_for_size(screen, FIRST_SIZE)
        screen.resize(100, 100)
        self.wait_for_size(screen, SMALLEST)

    def test_quits_the_program_when_it_is_closed(self) -> None:
        tuner, _ = self.open(self.desktop.folder("config"))
        self.assertEqual(tuner.quit(), 0)

    def wait_for_size(self, screen: Screen, size: tuple[int, int]) -> None:
        wait_until(lambda: screen.frame()[2:] == size, ANSWER_SECONDS,
                   lambda: f"the window is {screen.frame()}")


class ThePrivacyPolicy(ShellTest):
    def test_is_all_there_is_in_the_help_menu(self) -> None:
        _, screen = self.open(self.desktop.folder("config"))
        with PullDown(screen, screen.find(name="Help")) as opened:
            self.assertEqual(opened.titles(), [POLICY])
            self.assertEqual(opened.sections(), [])

    def test_is_opened_from_the_help_menu(self) -> None:
        browser, screen = self.open_with_browser()
        with PullDown(screen, screen.find(name="Help")) as opened:
            opened.choose(POLICY, [POLICY])
        self.assert_is_opened(browser)

    def test_is_opened_from_the_footer(self) -> None:
        browser, screen = self.open_with_browser()
        screen.press(name=POLICY)
        self.assert_is_opened(browser)

    def open_with_browser(self) -> tuple[Browser, Screen]:
        browser = Browser(self.desktop)
        _, screen = self.open(self.desktop.folder("config"), **browser.environment)
        return browser, screen

    def assert_is_opened(self, browser: Browser) -> None:
        address, = browser.wait_for_addresses(1)
        self.assertEqual(address, privacy_page())
        page = pathlib.Path(address.removeprefix("file://")).read_text(encoding="utf-8")
        self.assertIn("What Corvane does with sound", page)


class TwoAtOnce(ShellTest):
    def test_both_save_and_the_file_stays_whole(self) -> None:
        config_home = self.desktop.folder("config")
        write_settings(config_home, "guitar", "g6-standard")
        (first, one), (second, other) = self.open(config_home), self.open(config_home)
        for left, hertz in (("true", "415"), ("false", "432"), ("true", "466")):
            one.activate()
            one.press(name=LEFT_HANDED)
            Controls(one, config_home).wait_until_saved(left=left)
            other.activate()
            other.press(name=f"{hertz} Hz")
            Controls(other, config_home).wait_until_saved(a4=hertz)
            self.assert_is_whole(config_home)
        self.assertEqual([first.quit(), second.quit()], [0, 0])
        self.assert_is_whole(config_home)

    def assert_is_whole(self, config_home: pathlib.Path) -> None:
        self.assertEqual(sorted(read_settings(config_home)),
                         ["tuner.a4", "tuner.instrument", "tuner.left", "tuner.tuning"])
        self.assertEqual(os.listdir(settings_file(config_home).parent),
                         [settings_file(config_home).name])


if __name__ == "__main__":
    system_test.main()
