"""What a private display shows, read from its memory without a word to the display."""

import mmap
import pathlib
import struct
from typing import NamedTuple

BYTES_PER_PIXEL = 4
# The fields of an xwd header that matter here, as indices of its big-endian words.
HEADER_SIZE, BYTES_PER_LINE, COLOURS = 0, 12, 19
COLOUR_BYTES = 12


class Area(NamedTuple):
    """In pixels from the upper left corner."""

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
        """All of an area at this moment, line by line; one that changes meanwhile may be torn."""
        first = self._start + area.y * self._line + area.x * BYTES_PER_PIXEL
        length = area.width * BYTES_PER_PIXEL
        return b"".join(self._memory[at:at + length] for at in
                        range(first, first + area.height * self._line, self._line))


class Shape:
    """What stands out from a dark ground, whatever its colour."""

    # Of the pixels. The edges of a letter come out different in each colour, in up to 0.03 of them; two
    # letters differ in more than 0.3.
    SAME = 0.1

    def __init__(self, pixels: bytes):
        brightness = pixels[1::BYTES_PER_PIXEL]  # green, which every colour of a note has
        middle = (min(brightness) + max(brightness)) // 2
        table = bytes(1 if value > middle else 0 for value in range(256))
        self._mask = int.from_bytes(brightness.translate(table), "little")
        self._size = self._mask.bit_count()

    def is_like(self, other: "Shape") -> bool:
        """Also false when nothing stands out."""
        return 0 < self._size and self.difference(other) <= self.SAME

    def difference(self, other: "Shape") -> float:
        """The share of the pixels of the larger one that are not the other's too."""
        return (self._mask ^ other._mask).bit_count() / max(1, self._size, other._size)
