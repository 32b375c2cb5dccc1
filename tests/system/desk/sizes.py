"""Sizes of the tuner's window, in points."""

MENU_BAR = 28
FIRST_SIZE = (480, 860 + MENU_BAR)
SMALLEST = (420, 680 + MENU_BAR)
