"""Sizes of displays, in pixels, and of the tuner's window, in points."""

LARGEST_DISPLAY = (3840, 2160)
SMALLEST_DISPLAY = (1280, 720)

MENU_BAR = 28
FIRST_SIZE = (480, 860 + MENU_BAR)
SMALLEST = (420, 680 + MENU_BAR)
