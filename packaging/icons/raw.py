#!/usr/bin/python3 -B
# SPDX-License-Identifier: MIT
"""raw.py PNG RAW: writes the pixels of a PNG row by row, four bytes each: red, green, blue, alpha.

The window's icon is raw, because Qt loads all its image readers to read one image. Supports the output of
rsvg-convert: 8 bits per channel, not interlaced."""

import pathlib
import struct
import sys
import zlib

MARK_BYTES = 8  # the signature of a PNG
PIXEL_BYTES = 4
RGBA_OF_8_BITS = (8, 6, 0, 0, 0)


def pixels(png: bytes) -> bytes:
    data = b""
    for kind, content in chunks(png):
        if kind == b"IHDR":
            width, _, *form = struct.unpack(">II5B", content)
        elif kind == b"IDAT":
            data += content
    if tuple(form) != RGBA_OF_8_BITS:
        raise ValueError(f"not 8 bits each of red, green, blue and alpha: {form}")
    return unfiltered(zlib.decompress(data), width * PIXEL_BYTES)


def chunks(png: bytes):
    at = MARK_BYTES
    while at < len(png):
        length, kind = struct.unpack(">I4s", png[at:at + 8])
        yield kind, png[at + 8:at + 8 + length]
        at += length + 12


def unfiltered(data: bytes, row_bytes: int) -> bytes:
    """Each byte is stored as the difference from the prediction of its row's filter."""
    rows = [bytes(row_bytes)]
    for start in range(0, len(data), row_bytes + 1):
        above, row = rows[-1], bytearray(data[start + 1:start + 1 + row_bytes])
        for i in range(row_bytes):
            left, above_left = (row[i - PIXEL_BYTES], above[i - PIXEL_BYTES]) if i >= PIXEL_BYTES else (0, 0)
            row[i] = (row[i] + expected(data[start], left, above[i], above_left)) % 256
        rows.append(bytes(row))
    return b"".join(rows[1:])


def expected(kind: int, left: int, above: int, above_left: int) -> int:
    """The prediction of filter 0 to 4."""
    nearest = min((left, above, above_left), key=lambda near: abs(left + above - above_left - near))
    return (0, left, above, (left + above) // 2, nearest)[kind]


if __name__ == "__main__":
    pathlib.Path(sys.argv[2]).write_bytes(pixels(pathlib.Path(sys.argv[1]).read_bytes()))
