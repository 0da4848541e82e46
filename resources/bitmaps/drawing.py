"""Draws small pictures by shapes whose edges fade over one pixel, and writes them as bitmaps and icons.

A shape is a function of a point, in pixels: how far outside of it the point lies, negative inside.
"""
import math
import pathlib
import struct
import sys

CLEAR = (0, 0, 0, 0)


def distance(point, start, end):
    """How far a point is from the nearest place on a line segment."""
    dx, dy = end[0] - start[0], end[1] - start[1]
    along = ((point[0] - start[0]) * dx + (point[1] - start[1]) * dy) / (dx * dx + dy * dy)
    along = min(1.0, max(0.0, along))
    return math.hypot(point[0] - start[0] - along * dx, point[1] - start[1] - along * dy)


def stroke(points, width):
    """A line through the points, with round ends."""
    return lambda point: min(distance(point, *ends) for ends in zip(points, points[1:])) - width / 2


def disc(centre, radius):
    return lambda point: math.dist(point, centre) - radius


def box(left, top, right, bottom, radius=0.0):
    """A rectangle with sides along the axes and round corners."""
    def outside(point):
        dx = abs(point[0] - (left + right) / 2) - (right - left) / 2 + radius
        dy = abs(point[1] - (top + bottom) / 2) - (bottom - top) / 2 + radius
        return math.hypot(max(dx, 0), max(dy, 0)) + min(max(dx, dy), 0) - radius

    return outside


def polygon(points):
    sides = list(zip(points, points[1:] + points[:1]))

    def outside(point):
        x, y = point
        crossed = sum((a[1] <= y) != (b[1] <= y) and x < a[0] + (y - a[1]) * (b[0] - a[0]) / (b[1] - a[1])
                      for a, b in sides)
        nearest = min(distance(point, *side) for side in sides)
        return -nearest if crossed % 2 else nearest

    return outside


def grown(shape, by):
    return lambda point: shape(point) - by


def outline(shape, width):
    """The inner edge of a shape."""
    return lambda point: max(shape(point), -shape(point) - width)


def arc(centre, radius, first, last, steps=24):
    """Points on a circle, by angles in degrees, clockwise from the right."""
    angles = (math.radians(first + (last - first) * i / steps) for i in range(steps + 1))
    return [(centre[0] + radius * math.cos(angle), centre[1] + radius * math.sin(angle)) for angle in angles]


class Picture:
    """Square, with the pixels as (red, green, blue, alpha) from 0 to 255, alpha apart from the colours."""

    def __init__(self, size):
        self.size = size
        self.rows = [[CLEAR] * size for _ in range(size)]

    def fill(self, shape, paint):
        """Lays a colour over what is there; `paint` is a colour, or a function of a point that tells it."""
        for x, y, covered in self.covered(shape):
            colour = paint((x + 0.5, y + 0.5)) if callable(paint) else paint
            below = self.rows[y][x]
            kept = below[3] / 255 * (1 - covered)
            alpha = covered + kept
            mixed = (round((above * covered + under * kept) / alpha) for above, under in zip(colour, below))
            self.rows[y][x] = (*mixed, 255 * alpha)

    def cut(self, shape):
        """Takes away what is there."""
        for x, y, covered in self.covered(shape):
            self.rows[y][x] = (*self.rows[y][x][:3], self.rows[y][x][3] * (1 - covered))

    def covered(self, shape):
        for y in range(self.size):
            for x in range(self.size):
                covered = min(1.0, max(0.0, 0.5 - shape((x + 0.5, y + 0.5))))
                if covered > 0:
                    yield x, y, covered


def bgra(pixel):
    red, green, blue, alpha = (round(part) for part in pixel)
    return bytes((blue, green, red, alpha))


def bits(rows):
    """Rows of yes and no as a bitmap holds them: from the bottom up, a bit a pixel, each row filled up to four bytes."""
    packed = bytearray()
    for row in reversed(rows):
        number = int("".join("1" if bit else "0" for bit in row).ljust((len(row) + 31) // 32 * 32, "0"), 2)
        packed += number.to_bytes((len(row) + 31) // 32 * 4, "big")
    return bytes(packed)


def info_header(width, height, depth, length, dots_a_metre=3780):
    return struct.pack("<IiiHHIIiiII", 40, width, height, 1, depth, 0, length, dots_a_metre, dots_a_metre, 0, 0)


def bitmap_file(info, palette, pixels):
    start = 14 + len(info) + len(palette)
    return struct.pack("<2sIHHI", b"BM", start + len(pixels), 0, 0, start) + info + palette + pixels


def colour_bitmap(rows):
    """The bytes of a bitmap file with 32 bits a pixel."""
    pixels = b"".join(bgra(pixel) for row in reversed(rows) for pixel in row)
    return bitmap_file(info_header(len(rows[0]), len(rows), 32, len(pixels)), b"", pixels)


def is_clear(pixel):
    # Whatever covers a little counts as covering, or the mask would take away the edges that fade.
    return round(pixel[3]) == 0


def mask_bitmap(rows):
    """The bytes of a bitmap file with one bit a pixel: white where the picture is clear, black where it covers."""
    pixels = bits([[is_clear(pixel) for pixel in row] for row in rows])
    return bitmap_file(info_header(len(rows[0]), len(rows), 1, len(pixels)), bytes((0, 0, 0, 0, 255, 255, 255, 0)), pixels)


def icon(pictures):
    """The bytes of an icon file with one image a picture."""
    images = []
    for picture in pictures:
        pixels = b"".join(bgra(pixel) for row in reversed(picture.rows) for pixel in row)
        mask = bits([[is_clear(pixel) for pixel in row] for row in picture.rows])
        images.append(info_header(picture.size, 2 * picture.size, 32, len(pixels) + len(mask), 0) + pixels + mask)
    place = 6 + 16 * len(images)
    directory = struct.pack("<HHH", 0, 1, len(images))
    for picture, image in zip(pictures, images):
        directory += struct.pack("<BBBBHHII", picture.size, picture.size, 0, 0, 1, 32, len(image), place)
        place += len(image)
    return directory + b"".join(images)


def main(files):
    """Writes the files, contents by name, beside this one; with --check nothing is written, and they must be the same."""
    status = 0
    for name, content in files.items():
        file = pathlib.Path(__file__).parent / name
        if "--check" not in sys.argv:
            file.write_bytes(content)
        elif not file.exists() or file.read_bytes() != content:
            print(f"{file} isn't what {pathlib.Path(sys.argv[0]).name} draws; run it")
            status = 1
    sys.exit(status)
