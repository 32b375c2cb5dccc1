"""The screen on other displays and for other users: Wayland, sizes, scale factors, larger texts,
other locales, fewer fonts."""

import os
import pathlib
import subprocess
import time
from typing import ClassVar

import pyatspi

from desk import system_test
from desk.screen import ANSWER_SECONDS, Box, Screen
from desk.settings import write_settings
from desk.sizes import FIRST_SIZE, LARGEST_DISPLAY, SMALLEST, SMALLEST_DISPLAY
from desk.system_test import SystemTest
from desk.waiting import wait_until
from desk.wayland import WaylandDisplay

# A place is told in whole pixels, whose sum may be one off on each side.
MOST_PIXELS_OFF = 2

FONTS_BUT_THE_ROUND_ONE = """<?xml version="1.0"?>
<fontconfig>
  <dir>/usr/share/fonts/truetype/dejavu</dir>
  <cachedir>{cache}</cachedir>
</fontconfig>
"""
LEVELS_OFF = 8
STILL_SECONDS = 0.7  # ten frames of a slow machine

LARGE_FONT = """[General]
font=DejaVu Sans,{points},-1,5,50,0,0,0,0,0
"""
USUAL_POINTS = 11


class DisplayTest(SystemTest):
    def open(self, environment: dict[str, str] | None = None, **variables: str) -> Screen:
        config_home = self.desktop.folder("config")
        write_settings(config_home, "guitar", "g6-half", 441)
        self.tuner = self.start_tuner(config_home, {**(environment or os.environ), **variables})
        return Screen(self.tuner.process.pid)

    def texts(self, screen: Screen) -> list[str]:
        """Once the screen has come to rest with its prompt, but for what is said of a change."""
        last: list[str] = []

        def are_still() -> bool:
            before = last[:]
            last[:] = [item.name for item in screen.items()
                       if item.role != pyatspi.ROLE_NOTIFICATION]
            return "Allow Microphone" in last and last == before

        wait_until(are_still, ANSWER_SECONDS, lambda: f"the screen keeps changing: {last}")
        return last

    def assert_is_inside(self, screen: Screen, enlarged: float = 1) -> None:
        """The places of enlarged items are told as they are drawn, but their sizes as they were
        before."""
        frame = screen.frame()
        room = Box(frame.x - MOST_PIXELS_OFF, frame.y - MOST_PIXELS_OFF,
                   frame.width + 2 * MOST_PIXELS_OFF, frame.height + 2 * MOST_PIXELS_OFF)
        for item in screen.items():
            if item.role != pyatspi.ROLE_FRAME:
                drawn = Box(item.box.x, item.box.y, round(item.box.width * enlarged),
                            round(item.box.height * enlarged))
                self.assertTrue(room.holds(drawn), f"{item.name} at {drawn} in {frame}")

    def resize(self, screen: Screen, width: int, height: int) -> None:
        screen.resize(width, height)
        self.wait_for_size(screen, (width, height))

    def wait_for_size(self, screen: Screen, size: tuple[int, int]) -> None:
        wait_until(lambda: screen.frame()[2:] == size, ANSWER_SECONDS,
                   lambda: f"the window is {screen.frame()}, not {size}")

    def compare(self, pictures: str, golden: pathlib.Path, **environment: str) -> str:
        """What the drawing of a set of pictures says, which are as in the folder."""
        fonts = pathlib.Path(os.environ["CORVANE_GOLDEN"]).parent / "fonts.conf"
        done = subprocess.run(
            [os.environ["CORVANE_CONTACT_SHEET"], "compare", pictures, golden,
             self.desktop.folder("seen")],
            env={**environment, "FONTCONFIG_FILE": str(fonts)}, capture_output=True, text=True,
            timeout=60)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        return done.stdout


class Wayland(DisplayTest):
    def test_the_same_texts_at_the_same_size(self) -> None:
        on_x11 = self.texts(self.open())
        with WaylandDisplay(self.desktop, LARGEST_DISPLAY) as display:
            screen = self.open(display.environment)
            self.assertEqual(self.texts(screen), on_x11)
            self.assertEqual(screen.frame()[2:], FIRST_SIZE)
            self.assert_is_inside(screen)

    def test_on_the_smallest_display_the_texts_of_the_smallest_window(self) -> None:
        smallest = self.open()
        self.resize(smallest, FIRST_SIZE[0], SMALLEST[1])
        with WaylandDisplay(self.desktop, SMALLEST_DISPLAY) as display:
            screen = self.open(display.environment)
            self.assertEqual(screen.frame()[2:], (FIRST_SIZE[0], SMALLEST[1]))
            self.assertEqual(self.texts(screen), self.texts(smallest))
            self.assert_is_inside(screen)

    def test_the_same_picture_at_every_scale_factor(self) -> None:
        golden = pathlib.Path(os.environ["CORVANE_GOLDEN"])
        with WaylandDisplay(self.desktop, LARGEST_DISPLAY) as display:
            for scale in ("1", "1.25", "1.5", "1.75", "2", "3"):
                with self.subTest(scale):
                    told = self.compare(
                        "scales", golden if scale == "1" else golden / f"x{scale}",
                        # A frame would take a fraction of a pixel of the picture.
                        **display.environment, QT_WAYLAND_DISABLE_WINDOWDECORATION="1",
                        QT_SCALE_FACTOR=scale)
                    self.assertIn("2 screens, 0 different", told)


class Displays(DisplayTest):
    def test_the_smallest_shows_the_texts_of_the_smallest_window(self) -> None:
        smallest = self.open()
        self.resize(smallest, FIRST_SIZE[0], SMALLEST[1])
        texts = self.texts(smallest)
        with self.desktop.another_display(SMALLEST_DISPLAY):
            screen = self.open()
            self.assertEqual(screen.frame()[2:], (FIRST_SIZE[0], SMALLEST[1]))
            self.assertEqual(self.texts(screen), texts)
            self.assert_is_inside(screen)
            screen.resize(100, 100)
            self.wait_for_size(screen, SMALLEST)

    def test_the_largest_is_filled_without_a_change_of_the_column(self) -> None:
        screen = self.open()
        texts = self.texts(screen)
        width, height = LARGEST_DISPLAY
        self.resize(screen, width, height - 100)  # room for a title bar
        self.assertEqual(self.texts(screen), texts)
        self.assert_is_inside(screen)

    def test_both_have_the_same_picture_as_without_a_display(self) -> None:
        told = self.compare("displays", pathlib.Path(os.environ["CORVANE_GOLDEN"]), **os.environ)
        self.assertIn("2 screens, 0 different", told)


class Scales(DisplayTest):
    def test_the_texts_of_a_window_of_as_many_points_at_every_scale_factor(self) -> None:
        usual = self.open()
        for scale in (1.25, 1.5, 1.75, 2, 3):
            with self.subTest(scale):
                screen = self.open(QT_SCALE_FACTOR=str(scale))
                width, height = (round(pixels / scale) for pixels in screen.size_in_pixels())
                self.assertAlmostEqual(width, FIRST_SIZE[0], delta=1)
                self.assertGreaterEqual(height, SMALLEST[1])
                self.resize(usual, FIRST_SIZE[0], height)
                self.assertEqual(self.texts(screen), self.texts(usual))
                self.assert_is_inside(screen)
                self.assertEqual(self.tuner.quit(), 0)


class LargerTexts(DisplayTest):
    def test_at_200_percent_by_the_desktops_font_everything_is_twice_as_large(self) -> None:
        usual = self.open()
        self.assert_is_twice(self.open(**self.font(2 * USUAL_POINTS)), usual)

    def test_at_200_percent_by_the_desktops_font_on_wayland(self) -> None:
        with WaylandDisplay(self.desktop, LARGEST_DISPLAY) as display:
            usual = self.open(display.environment)
            self.assert_is_twice(
                self.open(display.environment, **self.font(2 * USUAL_POINTS)), usual)

    def test_at_200_percent_by_the_resolution_of_texts_everything_is_twice_as_large(self) -> None:
        usual = self.texts(self.open())
        # As GNOME puts "Large Text" into the resources of the display.
        self.addCleanup(xprop, "-remove", "RESOURCE_MANAGER")
        xprop("-format", "RESOURCE_MANAGER", "8s", "-set", "RESOURCE_MANAGER", "Xft.dpi:\t192\n")
        screen = self.open()
        self.assertEqual(screen.size_in_pixels(), tuple(2 * points for points in FIRST_SIZE))
        self.assertEqual(self.texts(screen), usual)
        self.assert_is_inside(screen)

    def test_in_the_smallest_window_the_texts_are_as_large_as_there_is_room_for(self) -> None:
        screen = self.open(**self.font(2 * USUAL_POINTS))
        self.resize(screen, *SMALLEST)
        self.assert_is_inside(screen)

    def test_the_largest_font_that_a_desktop_starts_with_changes_nothing(self) -> None:
        screen = self.open(**self.font(USUAL_POINTS))
        self.assertEqual(screen.frame()[2:], FIRST_SIZE)

    def assert_is_twice(self, large: Screen, usual: Screen) -> None:
        self.assertEqual(large.frame()[2:], tuple(2 * points for points in FIRST_SIZE))
        self.assertEqual(self.texts(large), self.texts(usual))
        for one, other in zip(self.steps(large), self.steps(usual)):
            self.assertAlmostEqual(one, 2 * other, delta=MOST_PIXELS_OFF)
        self.assert_is_inside(large, enlarged=2)

    def steps(self, screen: Screen) -> tuple[int, int]:
        """From one string to the last, and from the picker down to the play button."""
        first, last, picker, play = (screen.find(name=name).box for name in (
            "E♭2", "E♭4", "Instrument", "Play reference"))
        return last.x - first.x, play.y - picker.y

    def font(self, points: float) -> dict[str, str]:
        """The variables of a desktop that writes in this size: KDE's, whose settings are the only
        ones that Qt 6.4 reads on X11 and on Wayland by itself."""
        settings = self.desktop.folder("kde")
        (settings / "kdeglobals").write_text(LARGE_FONT.format(points=points))
        return {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5",
                "XDG_CONFIG_DIRS": str(settings)}


class OtherUsers(DisplayTest):
    usual: ClassVar[list[str]] = []
    picture: ClassVar[bytes]

    def setUp(self) -> None:
        """How it looks to others, once for all tests."""
        if self.usual:
            return
        screen = self.open()
        screen.activate()
        screen.rest_mouse()
        OtherUsers.usual = self.texts(screen)
        OtherUsers.picture = self.at_rest(screen)
        self.assertEqual(self.tuner.quit(), 0)

    def test_from_right_to_left_and_with_a_decimal_comma(self) -> None:
        for locale in ("ar_EG", "he_IL", "de_DE", "fa_IR"):
            with self.subTest(locale):
                screen = self.open(**self.speaking(locale))
                self.assertEqual(self.texts(screen), self.usual)
                self.assert_looks_as_usual(screen)
                self.assertEqual(self.tuner.quit(), 0)

    def test_without_the_round_font(self) -> None:
        folder = self.desktop.folder("fonts")
        fonts = folder / "fonts.conf"
        fonts.write_text(FONTS_BUT_THE_ROUND_ONE.format(cache=folder))
        screen = self.open(FONTCONFIG_FILE=str(fonts))
        self.assertEqual(self.texts(screen), self.usual)
        self.assert_is_inside(screen)

    def test_with_and_without_a_colour_profile(self) -> None:
        self.assertIn("not found", xprop("_ICC_PROFILE"))
        self.addCleanup(xprop, "-remove", "_ICC_PROFILE")
        xprop("-format", "_ICC_PROFILE", "8c", "-set", "_ICC_PROFILE", "1")
        screen = self.open()
        self.assertEqual(self.texts(screen), self.usual)
        self.assert_looks_as_usual(screen)

    def speaking(self, locale: str) -> dict[str, str]:
        """The variables of a user of it, with the locale itself, which need not be installed."""
        folder = self.desktop.folder("locales")
        subprocess.run(["localedef", "-i", locale, "-f", "UTF-8", folder / f"{locale}.UTF-8"],
                       check=True, capture_output=True, timeout=60)
        return {"LOCPATH": str(folder), "LC_ALL": f"{locale}.UTF-8", "LANG": f"{locale}.UTF-8"}

    def at_rest(self, screen: Screen) -> bytes:
        """The picture that no longer changes: what is told of the screen can be ahead of it."""
        last, since = b"", time.monotonic()

        def is_still() -> bool:
            nonlocal last, since
            before, last = last, screen.pixels()
            if last != before:
                since = time.monotonic()
            return time.monotonic() - since > STILL_SECONDS

        wait_until(is_still, ANSWER_SECONDS, lambda: "the picture keeps changing")
        return last

    def assert_looks_as_usual(self, screen: Screen) -> None:
        screen.activate()
        wait_until(lambda: looks_the_same(screen.pixels(), self.picture), ANSWER_SECONDS,
                   lambda: "not the same")


def looks_the_same(one: bytes, other: bytes) -> bool:
    """But for what is lost in rounding where a curve is painted in parts, as after a move of the
    mouse over it: up to 4 of 255 levels were seen."""
    return one == other or (len(one) == len(other) and all(
        abs(a - b) <= LEVELS_OFF for a, b in zip(one, other)))


def xprop(*arguments: str) -> str:
    return subprocess.run(["xprop", "-root", *arguments], check=True, capture_output=True,
                          text=True, timeout=10).stdout


if __name__ == "__main__":
    system_test.main(LARGEST_DISPLAY)
