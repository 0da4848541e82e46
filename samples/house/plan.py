#!/usr/bin/env python3
"""Writes the sample house and its site plan as text: house.json and site.json in the folder that is named.

The two storeys stand side by side in the model, the ground floor at the origin; the site is attached around it.
"""
import pathlib
import sys

import first
import ground
import services
import sheet
import site_plan
import storeys
from drawing import Drawing
from layers import LAYERS, LINETYPES, PLOT_STYLES
from states import add_states


def titles(place, text):
    place.text("G-ANNO-TEXT", 0, -4000, 300, text)
    place.line("G-ANNO-TEXT", 0, -4130, 3500, -4130)
    place.text("G-ANNO-TEXT", 0, -4480, 200, "1 : 50")


def north_arrow(place):
    place.circle("G-ANNO-SYMB", 0, 0, 700)
    place.path("G-ANNO-SYMB", [(0, 700), (-260, -520), (0, -300), (260, -520)], True)
    place.line("G-ANNO-SYMB", 0, 700, 0, -300)
    place.text("G-ANNO-SYMB", -110, 800, 320, "N")


def section_mark(place, y):
    for x in (-3100, storeys.WIDTH + 1300):
        place.line("G-ANNO-SYMB", x, y, x + 700, y)
        mark = place.at(x + 350, y)
        mark.path("G-ANNO-SYMB", [(-130, 0), (0, 230), (130, 0)], True)
        mark.text("G-ANNO-SYMB", 180, 90, 220, "A")


def house():
    drawing = Drawing(LINETYPES, PLOT_STYLES, LAYERS)
    lower = drawing.model
    upper = lower.at(sheet.FIRST_FLOOR_X, 0)
    ground.draw(lower)
    services.plumbing_ground(lower)
    services.electrical_ground(lower)
    services.heating_ground(lower)
    services.frame_ground(lower)
    first.draw(upper)
    services.plumbing_first(upper)
    services.electrical_first(upper)
    services.heating_first(upper)
    services.frame_first(upper)
    for place, title in ((lower, "GROUND FLOOR"), (upper, "FIRST FLOOR")):
        titles(place, title)
        section_mark(place, 6200)
    north_arrow(lower.at(12600, -3000))
    add_states(drawing)
    sheet.draw(drawing)
    drawing.references.append({"name": "site", "path": "site.zdr", "insertion": {"x": 0, "y": 0}})
    return drawing


def main(folder):
    for name, drawing in (("house", house()), ("site", site_plan.draw())):
        (pathlib.Path(folder) / f"{name}.json").write_text(drawing.text(), "utf-8")


main(sys.argv[1])
