# SPDX-License-Identifier: MIT
"""Other displays and users: Wayland, sizes, scale factors, larger texts, other locales, missing fonts."""

import os
import pathlib
import subprocess

import pyatspi

from desk import system_test
from desk.system_test import FIRST_SIZE, SMALLEST
from desk.waiting import wait_until
from desk.wayland import WaylandDisplay, WaylandWindow
from desk.window import Box, Window

LARGEST_DISPLAY = (3840, 2160)
SMALLEST_DISPLAY = (1280, 720)
# Fits on the smallest display.
LOW = (FIRST_SIZE[0], SMALLEST[1])
EXITS = 20
GOLDEN = pathlib.Path(os.environ["CORVANE_GOLDEN"])

FONTS_BUT_THE_ROUND_ONE = """<?xml version="1.0"?>
<fontconfig>
  <dir>/usr/share/fonts/truetype/dejavu</dir>
  <cachedir>{cache}</cachedir>
</fontconfig>
"""
LARGE_FONT = """[General]
font=DejaVu Sans,22,-1,5,50,0,0,0,0,0
"""


class DisplayTest(system_test.SystemTest):
    def show(self, environment: dict[str, str] | None = None, **variables: str) -> Window:
        return self.open(tuning="g6-half", a4=441, **{**(environment or {}), **variables}).window

    def texts(self, window: Window) -> list[str]:
        """All texts except notifications."""
        return [item.name for item in window.items() if item.role != pyatspi.ROLE_NOTIFICATION]

    def assert_has_texts(self, window: Window, texts: list[str], enlarged: float = 1) -> None:
        """Waits until exactly these texts are shown, and checks that they are inside the window."""
        wait_until(lambda: self.texts(window) == texts, lambda: f"{self.texts(window)}, not {texts}")
        wait_until(lambda: not window.outside(enlarged), lambda: f"{window.outside(enlarged)}")

    def texts_at(self, size: tuple[int, int]) -> list[str]:
        """The texts of a window that the user resized to this size."""
        window = self.show()
        window.resize(*size)
        window.wait_for_size(size)
        # Texts that depend on the size are updated last.
        wait_until(lambda: ("Version 1.0.0" in self.texts(window)) == (size != LOW),
                   lambda: f"{self.texts(window)}")
        return self.texts(window)

    def compare(self, pictures: str, golden: pathlib.Path, **environment: str) -> None:
        """Draws a set of pictures and compares them with those in the directory."""
        done = subprocess.run(
            [os.environ["CORVANE_CONTACT_SHEET"], "compare", pictures, golden,
             self.desktop.folder("seen")],
            env={**os.environ, **environment, "FONTCONFIG_FILE": str(GOLDEN.parent / "fonts.conf")},
            capture_output=True, text=True)
        self.assertEqual((done.returncode, done.stdout), (0, "2 screens, 0 different\n"), done)


class Wayland(DisplayTest):
    def test_smallest_display_shows_the_texts_of_the_smallest_window(self) -> None:
        texts = self.texts_at(LOW)
        with WaylandDisplay(self.desktop, SMALLEST_DISPLAY) as display:
            window = self.show(display.environment)
            window.wait_for_size(LOW)
            self.assert_has_texts(window, texts)

    def test_program_ends_when_its_window_is_closed(self) -> None:
        with WaylandWindow(self.desktop) as display:
            for _ in range(EXITS):
                tuner = self.open(**display.environment)

                def has_ended() -> bool:
                    display.close_window()
                    return tuner.process.poll() is not None

                wait_until(has_ended, lambda: "the process stays")
                self.assertEqual(tuner.process.returncode, 0)

    def test_same_pictures_at_every_scale_factor(self) -> None:
        with WaylandDisplay(self.desktop, LARGEST_DISPLAY) as display:
            for scale in ("1", "1.25", "1.5", "1.75", "2", "3"):
                with self.subTest(scale):
                    self.compare("scales", GOLDEN if scale == "1" else GOLDEN / f"x{scale}",
                                 # A frame would shift the picture by a fraction of a pixel.
                                 **display.environment, QT_WAYLAND_DISABLE_WINDOWDECORATION="1",
                                 QT_SCALE_FACTOR=scale)


class X11(DisplayTest):
    def test_whole_display_equals_the_picture_without_a_display(self) -> None:
        self.compare("displays", GOLDEN)

    def test_same_texts_at_every_scale_factor(self) -> None:
        texts = {size: self.texts_at(size) for size in (FIRST_SIZE, LOW)}
        for scale in (1.25, 1.5, 1.75, 2, 3):
            with self.subTest(scale):
                tuner = self.open(tuning="g6-half", a4=441, QT_SCALE_FACTOR=str(scale))
                width, height = (pixels / scale for pixels in tuner.window.size_in_pixels())
                size = FIRST_SIZE if height > LOW[1] + 1 else LOW
                self.assertAlmostEqual(width, size[0], delta=1)
                self.assertAlmostEqual(height, size[1], delta=1)
                self.assert_has_texts(tuner.window, texts[size])
                self.assertEqual(tuner.quit(), 0)


class LargerTexts(DisplayTest):
    def test_desktop_font_at_200_percent_doubles_everything(self) -> None:
        texts = self.texts_at(FIRST_SIZE)
        self.assert_is_twice(self.show(**self.font()), texts)
        with WaylandDisplay(self.desktop, LARGEST_DISPLAY) as display:
            self.assert_is_twice(self.show(display.environment, **self.font()), texts)

    def test_text_resolution_at_200_percent_doubles_everything(self) -> None:
        texts = self.texts_at(FIRST_SIZE)
        # As GNOME sets "Large Text".
        self.addCleanup(xprop, "-remove", "RESOURCE_MANAGER")
        xprop("-format", "RESOURCE_MANAGER", "8s", "-set", "RESOURCE_MANAGER", "Xft.dpi:\t192\n")
        window = self.show()
        self.assertEqual(window.size_in_pixels(), tuple(2 * points for points in FIRST_SIZE))
        self.assert_has_texts(window, texts)

    def assert_is_twice(self, large: Window, texts: list[str]) -> None:
        large.wait_for_size((2 * FIRST_SIZE[0], 2 * FIRST_SIZE[1]))
        self.assert_has_texts(large, texts, enlarged=2)

    def font(self) -> dict[str, str]:
        """The environment of a KDE desktop with a font of twice the size. Qt 6.4 reads only KDE's settings on both
        X11 and Wayland."""
        settings = self.desktop.folder("kde")
        (settings / "kdeglobals").write_text(LARGE_FONT)
        return {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5",
                "XDG_CONFIG_DIRS": str(settings)}


class OtherUsers(DisplayTest):
    def test_same_in_right_to_left_and_decimal_comma_locales(self) -> None:
        usual = self.show()
        for locale in ("ar_EG", "he_IL", "de_DE", "fa_IR"):
            with self.subTest(locale):
                window = self.show(**self.speaking(locale))
                wait_until(lambda: self.texts(window) == self.texts(usual)
                           and self.places(window) == self.places(usual),
                           lambda: f"{self.texts(window)} at {self.places(window)}")

    def test_same_texts_without_quicksand(self) -> None:
        texts = self.texts_at(FIRST_SIZE)
        folder = self.desktop.folder("fonts")
        fonts = folder / "fonts.conf"
        fonts.write_text(FONTS_BUT_THE_ROUND_ONE.format(cache=folder))
        self.assert_has_texts(self.show(FONTCONFIG_FILE=str(fonts)), texts)

    def test_same_pictures_with_a_broken_colour_profile(self) -> None:
        self.addCleanup(xprop, "-remove", "_ICC_PROFILE")
        xprop("-format", "_ICC_PROFILE", "8c", "-set", "_ICC_PROFILE", "1")
        self.compare("scales", GOLDEN)

    def speaking(self, locale: str) -> dict[str, str]:
        """The environment of a user of the locale, which is generated here."""
        folder = self.desktop.folder("locales")
        subprocess.run(["localedef", "-i", locale, "-f", "UTF-8", folder / f"{locale}.UTF-8"],
                       check=True, capture_output=True)
        return {"LOCPATH": str(folder), "LC_ALL": f"{locale}.UTF-8", "LANG": f"{locale}.UTF-8"}

    def places(self, window: Window) -> list[Box]:
        """The positions of all items relative to the window."""
        frame, *items = window.items()
        return [Box(item.box.x - frame.box.x, item.box.y - frame.box.y, *item.box[2:])
                for item in items if item.role != pyatspi.ROLE_NOTIFICATION]


def xprop(*arguments: str) -> None:
    subprocess.run(["xprop", "-root", *arguments], check=True)


if __name__ == "__main__":
    system_test.main(LARGEST_DISPLAY)
