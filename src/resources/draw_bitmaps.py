#!/usr/bin/env python3
"""Draws the bitmaps of the designer's components: uncompressed 24-bit BMP files in the folder bitmaps beside this file.

Magenta stands for transparent.
"""
import pathlib
import struct

FOLDER = pathlib.Path(__file__).parent / "bitmaps"


def write_bmp(path, rows):
    """Writes rows of (red, green, blue) pixels, top row first, as an uncompressed 24-bit BMP."""
    height, width = len(rows), len(rows[0])
    padding = b"\0" * (-3 * width % 4)
    data = b"".join(b"".join(bytes((b, g, r)) for r, g, b in row) + padding for row in reversed(rows))
    header = struct.pack("<2sIHHI", b"BM", 54 + len(data), 0, 0, 54)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(data), 2835, 2835, 0, 0)
    path.write_bytes(header + info + data)


PIECES = {"TABLE_SEPERATOR": [[(122, 138, 153)]]}

if __name__ == "__main__":
    FOLDER.mkdir(exist_ok=True)
    for name, rows in PIECES.items():
        write_bmp(FOLDER / f"{name}.bmp", rows)
