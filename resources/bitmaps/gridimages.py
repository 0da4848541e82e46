#!/usr/bin/env python3
"""Draws the images of the layer grid, those of its headings and the icons of its two buttons, beside this file.

Each is drawn on a square of 16 units, at 16, 24 and 32 pixels, so that it is sharp at 100, 150 and 200 %. The light
comes from the upper left. The first line of pixels is clear: in the grid it lies in the row above, whose next painting
would take it away. Two images of one property differ in shape, not only in colour. With --check nothing is written; the
files must then be what would be.
"""
import functools
import math

import drawing
from drawing import arc, box, disc, grown, outline, polygon, stroke

SIZES = (16, 24, 32)

INK = (0x40, 0x40, 0x40)
# Each with a light and a dark side.
GLASS = ((0xF4, 0xF7, 0xFA), (0xB4, 0xBF, 0xCA))
DARK_GLASS = ((0xA4, 0xAF, 0xBB), (0x66, 0x72, 0x80))
PAPER = ((0xFF, 0xFF, 0xFF), (0xDC, 0xE4, 0xEC))
METAL = ((0x9A, 0xA5, 0xB1), (0x5C, 0x68, 0x76))
LIT = ((0xFF, 0xF2, 0x9A), (0xF2, 0xB2, 0x10))
GOLD = ((0xFF, 0xD8, 0x6A), (0xC8, 0x84, 0x10))
SUN = ((0xFF, 0xC8, 0x38), (0xE8, 0x80, 0x08))
ICE = ((0x4A, 0xA8, 0xF0), (0x18, 0x5C, 0xB8))
GREEN = ((0x38, 0xB0, 0x50), (0x10, 0x78, 0x30))
RED = ((0xE8, 0x50, 0x48), (0xB4, 0x1C, 0x1C))
WHITE = (0xFF, 0xFF, 0xFF)


def together(*shapes):
    return lambda point: min(shape(point) for shape in shapes)


class Sketch(drawing.Picture):
    """A picture that is drawn in units."""

    def __init__(self, size):
        super().__init__(size)
        self.unit = size / 16

    def at(self, x, y):
        return (x * self.unit, y * self.unit)

    def edge(self, units):
        """Where a straight edge has to lie to be sharp: between two pixels."""
        return math.floor(units * self.unit + 0.5)

    def line(self, units=1.0):
        """The width of a straight line: whole pixels."""
        return max(1, self.edge(units))

    def rect(self, left, top, right, bottom, radius=0.0):
        return box(*(self.edge(side) for side in (left, top, right, bottom)), radius * self.unit)

    def lit(self, sides):
        """A colour that goes from the light side at the upper left to the dark one."""
        light, dark = sides

        def paint(point):
            along = min(1.0, max(0.0, (point[0] + point[1]) / (2 * self.size)))
            return tuple(a + (b - a) * along for a, b in zip(light, dark))

        return paint

    def body(self, shape, sides, ink=INK):
        """A shape with an outline."""
        self.fill(shape, ink)
        self.fill(grown(shape, -self.line()), self.lit(sides))

    def centre(self, units):
        """Where the middle of a straight line has to lie to be sharp."""
        return self.edge(units) + (0.5 if self.line() % 2 else 0)

    def away(self, middle, units, degrees):
        """The place that lies so far from a point, clockwise from above it."""
        angle = math.radians(degrees)
        return (middle[0] + units * self.unit * math.sin(angle), middle[1] - units * self.unit * math.cos(angle))

    def star(self, middle, count, first, last, width, turned=0.0):
        """Lines outwards from a point, from one distance to another, both in units."""
        angles = (turned + 360 * i / count for i in range(count))
        return together(*(stroke([self.away(middle, way, angle) for way in (first, last)], width) for angle in angles))


def lamp(to, glass, shines):
    bulb = disc(to.at(8, 6.5), 4.2 * to.unit)
    neck = polygon([to.at(5.5, 9), to.at(10.5, 9), to.at(10, 12), to.at(6, 12)])
    to.body(to.rect(6, 10, 10, 15, 1), METAL)
    to.body(together(bulb, neck), glass)
    if shines:
        for last, turns in ((6.4, (-42, 42)), (7.6, (-118, -80, 80, 118))):
            for turned in turns:
                to.fill(to.star(to.at(8, 6.5), 1, 5.5, last, 1.4 * to.unit, turned), SUN[1])


def sun(to, middle=(8, 8), size=1.0):
    middle = tuple(to.centre(way) for way in middle)
    face = disc(middle, 3.4 * size * to.unit)
    to.fill(to.star(middle, 8, 4.4 * size, 6.6 * size, to.line()), SUN[1])
    to.body(face, SUN, SUN[1])


def flake(to, middle=(8, 8), size=1.0, sides=ICE):
    middle = tuple(to.centre(way) for way in middle)
    # What lies askew is drawn a little wider, or it would look paler than what is straight.
    arms = [to.star(middle, 2, 0, 6.6 * size, to.line())]
    arms += [to.star(middle, 2, 0, 6.6 * size, 1.2 * to.line(), turned) for turned in (60, 120)]
    if size * to.unit >= 0.85:  # otherwise they would run into each other
        for arm in range(0, 360, 60):
            fork = to.away(middle, 4 * size, arm)
            arms += [to.star(fork, 1, 0, 2.6 * size, 0.8 * to.line(), arm + turned) for turned in (-50, 50)]
    to.fill(together(*arms), to.lit(sides))


def padlock(to, sides, closed):
    left, bow, foot = (3, (8, 5.5), 9) if closed else (1, (11, 5), 7.5)
    bend = arc(to.at(*bow), 3 * to.unit, 180, 360)
    to.fill(stroke([(bend[0][0], 9 * to.unit), *bend, (bend[-1][0], foot * to.unit)], 1.9 * to.unit), INK)
    to.body(to.rect(left, 7, left + 10, 15, 1), sides)
    middle = to.edge(left + 5)
    to.fill(disc((middle, to.edge(10.5)), 1.3 * to.unit), INK)
    to.fill(box(middle - 1, to.edge(10.5), middle + 1, to.edge(13)), INK)


def printer(to):
    to.body(to.rect(4, 1, 12, 8), PAPER)
    to.body(to.rect(1, 5, 15, 12, 1), METAL)
    to.body(to.rect(4, 9, 12, 15), PAPER)
    to.fill(to.rect(6, 11, 10, 13), METAL[1])


def struck_out(to):
    line = [to.at(2, 2), to.at(14, 14)]
    to.cut(stroke(line, 4 * to.unit))
    to.fill(stroke(line, 2 * to.unit), to.lit(RED))


def viewport(to):
    to.body(to.rect(1, 1, 14, 12), PAPER)
    to.fill(outline(to.rect(3, 3, 12, 10), to.line()), ICE[0])


def new_viewport(to, weather):
    viewport(to)
    to.cut(disc(to.at(10.8, 10.8), 5.6 * to.unit))
    weather(to, (10.4, 10.4), 0.74)


def mixed(to):
    """Some have it and some haven't, said as a box with three states says it."""
    frame = to.rect(9, 9, 16, 16)
    to.cut(grown(frame, to.line()))
    to.body(frame, (WHITE, WHITE))
    to.fill(to.rect(11, 11, 14, 14), INK)


def sheet_at(to, y, half):
    return polygon([to.at(8, y - half), to.at(15.5, y), to.at(8, y + half), to.at(0.5, y)])


def tick(to):
    line = [to.at(5, 7.5), to.at(8, 10.5), to.at(13.5, 2.5)]
    to.cut(stroke(line, 3.6 * to.unit))
    to.fill(stroke(line, 2.4 * to.unit), to.lit(GREEN))


def question(to):
    bend = arc(to.at(8, 5.5), 3 * to.unit, 180, 410)
    to.fill(stroke([*bend, to.at(8, 10)], 1.9 * to.unit), METAL[1])
    to.fill(disc(to.at(8, 13.5), 1.3 * to.unit), METAL[1])


def corner_mark(to):
    to.body(polygon([to.at(4, 8), to.at(8, 12), to.at(4, 16), to.at(0, 12)]), ICE)


def stack(to):
    for y in (10.5, 7.5, 4.5):
        to.body(sheet_at(to, y, 4), PAPER)


def badge(to, sides, plus):
    thick = to.line(2) / 2
    x = y = to.edge(11.5) + thick % 1
    to.cut(disc((x, y), 5.3 * to.unit))
    to.fill(disc((x, y), 4.5 * to.unit), to.lit(sides))
    half = to.edge(2.5) + thick % 1
    to.fill(box(x - half, y - thick, x + half, y + thick), WHITE)
    if plus:
        to.fill(box(x - thick, y - half, x + thick, y + half), WHITE)


def row_mark(to):
    to.body(sheet_at(to, 8, 5), PAPER, METAL[0])


def palette(to):
    for left, top, sides in ((2, 2, RED), (8, 2, GREEN), (2, 8, LIT), (8, 8, ICE)):
        to.body(to.rect(left, top, left + 6, top + 6), sides, METAL[1])


def greyed(to):
    """Takes the colours away, and leaves how light or dark each place is."""
    for row in to.rows:
        for x, (red, green, blue, alpha) in enumerate(row):
            row[x] = (*[0.3 * red + 0.59 * green + 0.11 * blue] * 3, alpha)


call = functools.partial
# What stands at which number of the strip, as steps of its drawing; the third image of a property is for layers that
# differ in it.
IMAGES = {
    9: [call(lamp, glass=LIT, shines=True)],
    2: [call(lamp, glass=DARK_GLASS, shines=False)],
    18: [call(lamp, glass=GLASS, shines=False), mixed],
    6: [sun],  # thawed
    0: [flake],  # frozen
    22: [call(flake, sides=METAL), mixed],
    8: [call(padlock, sides=GLASS, closed=False)],
    5: [call(padlock, sides=GOLD, closed=True)],
    19: [call(padlock, sides=GLASS, closed=True), mixed],
    36: [printer, struck_out],
    35: [printer],
    37: [printer, mixed],
    13: [call(new_viewport, weather=sun)],
    12: [call(new_viewport, weather=flake)],
    20: [viewport, mixed],
    25: [row_mark],
    26: [row_mark, tick],  # the current layer
    14: [corner_mark],  # lies over others
    23: [question],  # a value that nobody knows
}
# Over the columns that are as narrow as an image, in their order: what the column is about, without the colours of a value.
HEADINGS = [
    [call(lamp, glass=GLASS, shines=True), greyed],
    [flake, greyed],
    [call(padlock, sides=GOLD, closed=True), greyed],
    [palette],
    [printer, greyed],
    [call(new_viewport, weather=flake), greyed],
]
ICONS = {
    "addlayers.ico": [stack, call(badge, sides=GREEN, plus=True)],
    "removelayers.ico": [stack, call(badge, sides=RED, plus=False)],
}


def drawn(size, steps):
    to = Sketch(size)
    for step in steps:
        step(to)
    return to


def side_by_side(pictures):
    """The rows of a strip of pictures."""
    return [[pixel for row in rows for pixel in row] for rows in zip(*(picture.rows for picture in pictures))]


def strip(size):
    """The rows of all images, each at its number."""
    return side_by_side([drawn(size, IMAGES.get(number, [])) for number in range(max(IMAGES) + 1)])


def heading(size, steps):
    """Smaller than the picture, whose edge is clear: a row of headings is lower than the images of the grid."""
    edge = size // 16
    picture = drawing.Picture(size)
    for row, inner in zip(picture.rows[edge:], drawn(size - 2 * edge, steps).rows):
        row[edge:-edge] = inner
    return picture


def headings(size):
    return side_by_side([heading(size, steps) for steps in HEADINGS])


def main():
    files = {name: drawing.icon([drawn(size, steps) for size in SIZES]) for name, steps in ICONS.items()}
    for size in SIZES:
        rows = strip(size)
        files[f"gridimages{size}.bmp"] = drawing.colour_bitmap(rows)
        files[f"gridmask{size}.bmp"] = drawing.mask_bitmap(rows)
        files[f"gridheadings{size}.bmp"] = drawing.colour_bitmap(headings(size))
    drawing.main(files)


if __name__ == "__main__":
    main()
