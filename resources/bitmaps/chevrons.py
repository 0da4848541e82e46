#!/usr/bin/env python3
"""Draws the two faces of the manager's expand button, expand.bmp and contract.bmp, beside this file.

Double chevrons, 32 by 32. With --check nothing is written; the files must then be what would be.
"""
import drawing

SIZE = 32
STROKE = 3.0
INK = (0x40, 0x40, 0x40)  # red, green, blue: dark grey, as text-like symbols have on a light button
# Two right-pointing chevrons, as points in a 32 by 32 square.
CHEVRONS = [[(5.5, 6), (15.5, 16), (5.5, 26)], [(16.5, 6), (26.5, 16), (16.5, 26)]]


def face(mirrored):
    strokes = [drawing.stroke(line, STROKE) for line in CHEVRONS]
    picture = drawing.Picture(SIZE)
    picture.fill(lambda point: min(stroke(point) for stroke in strokes), INK)
    # The clear pixels have the ink's colour too, so that nothing dark or light shines through where they are stretched.
    rows = [[pixel if pixel[3] else (*INK, 0) for pixel in row] for row in picture.rows]
    return drawing.colour_bitmap([row[::-1] for row in rows] if mirrored else rows)


drawing.main({"expand.bmp": face(False), "contract.bmp": face(True)})
