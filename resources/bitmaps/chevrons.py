#!/usr/bin/env python3
"""Draws the two faces of the manager's expand button, expand.bmp and contract.bmp, beside this file.

Double chevrons, 32 by 32, 32 bits a pixel with straight alpha, uncompressed. With --check nothing is written; the
files must then be what would be.
"""
import math
import pathlib
import struct
import sys

SIZE = 32
STROKE = 3.0
INK = (0x40, 0x40, 0x40)  # red, green, blue: dark grey, as text-like symbols have on a light button
# Two right-pointing chevrons, as points in a 32 by 32 square.
CHEVRONS = [[(5.5, 6), (15.5, 16), (5.5, 26)], [(16.5, 6), (26.5, 16), (16.5, 26)]]


def distance(point, start, end):
    """How far a point is from the nearest place on a line segment."""
    dx, dy = end[0] - start[0], end[1] - start[1]
    along = ((point[0] - start[0]) * dx + (point[1] - start[1]) * dy) / (dx * dx + dy * dy)
    along = min(1.0, max(0.0, along))
    return math.hypot(point[0] - start[0] - along * dx, point[1] - start[1] - along * dy)


def coverage(x, y):
    """How much of the pixel the strokes cover, 0 to 1: their edge fades over one pixel."""
    centre = (x + 0.5, y + 0.5)
    nearest = min(distance(centre, line[i], line[i + 1]) for line in CHEVRONS for i in range(len(line) - 1))
    return min(1.0, max(0.0, STROKE / 2 - nearest + 0.5))


def bitmap(mirrored):
    """The bytes of a bitmap file; rows run from the bottom up."""
    red, green, blue = INK
    pixels = bytearray()
    for y in reversed(range(SIZE)):
        for x in range(SIZE):
            alpha = coverage(SIZE - 1 - x if mirrored else x, y)
            pixels += bytes((blue, green, red, round(255 * alpha)))
    info = struct.pack("<IiiHHIIiiII", 40, SIZE, SIZE, 1, 32, 0, len(pixels), 3780, 3780, 0, 0)
    header = struct.pack("<2sIHHI", b"BM", 14 + len(info) + len(pixels), 0, 0, 14 + len(info))
    return header + info + bytes(pixels)


def main():
    folder = pathlib.Path(__file__).parent
    status = 0
    for name, mirrored in (("expand.bmp", False), ("contract.bmp", True)):
        file = folder / name
        if "--check" not in sys.argv:
            file.write_bytes(bitmap(mirrored))
        elif file.read_bytes() != bitmap(mirrored):
            print(f"{file} isn't what chevrons.py draws; run it")
            status = 1
    return status


sys.exit(main())
