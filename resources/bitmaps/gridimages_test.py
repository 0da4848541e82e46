#!/usr/bin/env python3
"""Tests of the grid's images: what a person must be able to tell apart, and what a list of images needs."""
import itertools
import unittest

import drawing
import gridimages

PROPERTIES = [(9, 2, 18), (6, 0, 22), (8, 5, 19), (36, 35, 37), (13, 12, 20), (25, 26)]


def grey(pixel):
    """How light a pixel is on white."""
    red, green, blue, alpha = pixel
    return 255 + (0.3 * red + 0.59 * green + 0.11 * blue - 255) * alpha / 255


def greys(size, number):
    """The image as it stands on white for somebody who sees no colours."""
    return [grey(pixel) for row in gridimages.drawn(size, gridimages.IMAGES[number]).rows for pixel in row]


def clearly_different(one, other):
    """How much of the picture's area differs so that it can be seen."""
    return sum(abs(a - b) > 64 for a, b in zip(one, other)) / len(one)


class GridImagesTest(unittest.TestCase):
    def test_the_images_of_a_property_differ_without_their_colours(self):
        for size in gridimages.SIZES:
            for numbers in PROPERTIES:
                for one, other in itertools.combinations(numbers, 2):
                    with self.subTest(size=size, one=one, other=other):
                        self.assertGreater(clearly_different(greys(size, one), greys(size, other)), 0.1)

    def test_a_strip_holds_each_image_at_its_number_and_nothing_where_there_is_none(self):
        for size in gridimages.SIZES:
            rows = gridimages.strip(size)
            self.assertEqual([len(row) for row in rows], [38 * size] * size)
            for number in range(38):
                image = [pixel for row in rows for pixel in row[number * size : (number + 1) * size]]
                self.assertEqual(any(pixel[3] for pixel in image), number in gridimages.IMAGES, number)

    def test_each_narrow_heading_has_an_image_of_its_own(self):
        for size in gridimages.SIZES:
            rows = gridimages.headings(size)
            self.assertEqual([len(row) for row in rows], [6 * size] * size)
            images = [[pixel for row in rows for pixel in row[i * size : (i + 1) * size]] for i in range(6)]
            for one, other in itertools.combinations(images, 2):
                self.assertGreater(clearly_different([grey(pixel) for pixel in one], [grey(pixel) for pixel in other]), 0.1)

    def test_the_edge_of_a_headings_image_is_clear_so_that_a_low_heading_cuts_nothing_off(self):
        for size, edge in ((16, 1), (24, 1), (32, 2)):
            for steps in gridimages.HEADINGS:
                rows = gridimages.heading(size, steps).rows
                self.assertEqual(len(rows), size)
                for row in rows[:edge] + rows[-edge:]:
                    self.assertEqual(row, [drawing.CLEAR] * size)

    def test_only_the_heading_of_the_colours_is_coloured(self):
        pictures = [gridimages.drawn(16, steps) for steps in gridimages.HEADINGS]
        coloured = [any(max(pixel[:3]) - min(pixel[:3]) > 50 for row in picture.rows for pixel in row)
                    for picture in pictures]
        self.assertEqual(coloured, [False, False, False, True, False, False])

    def test_the_first_line_of_pixels_is_clear_since_it_lies_in_the_row_above(self):
        for size in gridimages.SIZES:
            for number, steps in gridimages.IMAGES.items():
                with self.subTest(size=size, number=number):
                    self.assertFalse([pixel for pixel in gridimages.drawn(size, steps).rows[0] if not drawing.is_clear(pixel)])

    def test_the_mask_is_white_where_the_image_is_clear(self):
        picture = drawing.Picture(2)
        picture.rows = [[(9, 9, 9, 1), drawing.CLEAR], [drawing.CLEAR, (9, 9, 9, 255)]]
        mask = drawing.mask_bitmap(picture.rows)
        self.assertEqual(mask[-8:], bytes((0b10000000, 0, 0, 0, 0b01000000, 0, 0, 0)))
        self.assertEqual(mask[-16:-8], bytes((0, 0, 0, 0, 255, 255, 255, 0)))

    def test_the_buttons_icons_have_each_size(self):
        for steps in gridimages.ICONS.values():
            data = drawing.icon([gridimages.drawn(size, steps) for size in gridimages.SIZES])
            self.assertEqual([data[6 + 16 * i] for i in range(data[4])], [16, 24, 32])


if __name__ == "__main__":
    unittest.main()
