# SPDX-License-Identifier: MIT
"""The content of a private display, read from its memory without a request."""

import mmap
import pathlib
import struct
from typing import NamedTuple

BYTES_PER_PIXEL = 4
# Indices of 32-bit big-endian fields in an xwd header.
HEADER_SIZE, BYTES_PER_LINE, COLOURS = 0, 12, 19
COLOUR_BYTES = 12


class Area(NamedTuple):
    """In pixels, from the upper left corner."""

    x: int
    y: int
    width: int
    height: int

    def moved(self, x: int, y: int) -> "Area":
        return self._replace(x=self.x + x, y=self.y + y)


class Picture:
    def __init__(self, file: pathlib.Path):
        with open(file, "rb") as opened:
            self._memory = mmap.mmap(opened.fileno(), 0, access=mmap.ACCESS_READ)
        header = struct.unpack(">25I", self._memory[:100])
        self._start = header[HEADER_SIZE] + header[COLOURS] * COLOUR_BYTES
        self._line = header[BYTES_PER_LINE]

    def pixels(self, area: Area) -> bytes:
        """The pixels of an area, line by line; may be torn while it changes."""
        first = self._start + area.y * self._line + area.x * BYTES_PER_PIXEL
        length = area.width * BYTES_PER_PIXEL
        return b"".join(self._memory[at:at + length] for at in
                        range(first, first + area.height * self._line, self._line))


class Shape:
    """The bright pixels on a dark ground, of any colour."""

    # Share of pixels. The edges of a letter differ between colours by up to 0.03; two letters differ by more than 0.3.
    SAME = 0.1

    def __init__(self, pixels: bytes):
        brightness = pixels[1::BYTES_PER_PIXEL]  # green, a part of every note colour
        middle = (min(brightness) + max(brightness)) // 2
        table = bytes(1 if value > middle else 0 for value in range(256))
        self._mask = int.from_bytes(brightness.translate(table), "little")
        self._size = self._mask.bit_count()

    def is_like(self, other: "Shape") -> bool:
        """False if there are no bright pixels."""
        return 0 < self._size and self.difference(other) <= self.SAME

    def difference(self, other: "Shape") -> float:
        """The differing pixels as a share of the larger shape."""
        return (self._mask ^ other._mask).bit_count() / max(1, self._size, other._size)
