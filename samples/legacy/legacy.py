#!/usr/bin/env python3
"""Writes two small drawings as text, legacy.json and annex.json, in the folder that is named.

legacy is a shed whose layers carry three states of the older layer tool, which kept them in the extended data of the
layers. annex is an extension of the sample house with five states to import, two of them under names that the house has.
"""
import pathlib
import sys

sys.path.append(str(pathlib.Path(__file__).parents[1] / "house"))

from drawing import ON, PLOT, Drawing  # noqa: E402

SHOWN = ON | PLOT
STRING, INTEGER, LONG, HANDLE = 1000, 1070, 1071, 1005
LINETYPES = [
    ("Continuous", "Solid line", []),
    ("Hidden", "Hidden __ __ __ __ __ __", [3.0, -1.5]),
    ("Center", "Center ____ _ ____ _ ____", [16.0, -2.5, 2.5, -2.5]),
]
PLOT_STYLES = ["Normal", "Black"]
SHED_LAYERS = [
    ("Base", 7, "Continuous", -3, "Normal", SHOWN, ""),
    ("A-WALL", 7, "Continuous", 50, "Normal", SHOWN, "Walls of boards"),
    ("A-DOOR", 30, "Continuous", 25, "Normal", SHOWN, "The door"),
    ("A-ROOF", 11, "Hidden", 25, "Normal", SHOWN, "Edge of the roof above"),
    ("G-ANNO-DIMS", 3, "Continuous", 18, "Black", SHOWN, "Dimensions"),
]
ANNEX_LAYERS = SHED_LAYERS + [
    ("P-DOMW-COLD", 150, "Continuous", 35, "Normal", PLOT, "Cold water"),
    ("E-LITE-CLNG", 2, "Continuous", 25, "Normal", PLOT, "Ceiling lights"),
]


def room(drawing, width, depth):
    place = drawing.model
    place.rect("A-WALL", 0, 0, width, depth)
    place.rect("A-WALL", 120, 120, width - 120, depth - 120)
    place.line("A-DOOR", 800, 0, 800, -900)
    place.arc("A-DOOR", 800, 0, 900, 270, 360)
    place.rect("A-ROOF", -400, -400, width + 400, depth + 400)
    place.line("G-ANNO-DIMS", 0, -1400, width, -1400)
    place.text("G-ANNO-DIMS", width / 2, -1300, 200, f"{width / 1000:.2f}", centered=True)


def value(code, content):
    return {"code": code, "text" if isinstance(content, str) else "number": content}


def block(drawing, state, flags, color, linetype, weight, plots=1, current=False, frozen_in_viewport=""):
    """What a layer carries of one state of the older tool. A colour below 0 is that of a layer that is off."""
    style = next(row["handle"] for row in drawing.plot_styles if row["name"] == "Normal")
    marks = ([value(INTEGER, 1)] if current else []) + (
        [value(STRING, frozen_in_viewport)] if frozen_in_viewport else [])
    return [value(STRING, "{" + state), value(INTEGER, flags), value(INTEGER, color), value(STRING, linetype), *marks,
            value(LONG, weight), value(LONG, plots), value(HANDLE, f"{style:X}"), value(STRING, state + "}")]


def shed():
    drawing = Drawing(LINETYPES, PLOT_STYLES, SHED_LAYERS)
    room(drawing, 3600, 2400)
    # DIMENSIONS has every mark that the format knows: A-WALL was the current layer, A-ROOF is frozen in the viewport.
    # Its name, and that of the state that is cut short, can be a layer state's; "SHED|PLAN" can't.
    layers = {
        "Base": [block(drawing, "DIMENSIONS", 0, 7, "Continuous", -3)],
        "A-WALL": [block(drawing, "DIMENSIONS", 4, 8, "Continuous", 35, current=True),
                   block(drawing, "SHED|PLAN", 0, 5, "Continuous", 70)],
        "A-DOOR": [block(drawing, "DIMENSIONS", 0, -30, "Hidden", 25, plots=0),
                   # Cut short: nothing behind the colour, and then its end.
                   [value(STRING, "{CUT SHORT"), value(INTEGER, 0), value(INTEGER, 1), value(STRING, "CUT SHORT}")]],
        "A-ROOF": [block(drawing, "DIMENSIONS", 0, 11, "Center", 18, frozen_in_viewport="A-ROOF"),
                   block(drawing, "SHED|PLAN", 1, 11, "Hidden", 25)],
        "G-ANNO-DIMS": [block(drawing, "DIMENSIONS", 2, 1, "Continuous", 50)],
    }
    handles = {row["name"]: row["handle"] for row in drawing.layers}
    drawing.applications = ["ZVH"]
    drawing.extended_data = [{"object": handles[layer], "application": "ZVH", "values": sum(blocks, [])}
                             for layer, blocks in layers.items()]
    return drawing


def annex():
    drawing = Drawing(LINETYPES, PLOT_STYLES, ANNEX_LAYERS)
    room(drawing, 5400, 4200)
    drawing.model.path("P-DOMW-COLD", [(5280, 4080), (5280, 600), (4600, 600)])
    drawing.model.circle("E-LITE-CLNG", 2700, 2100, 200)
    hide, show = {"on": False}, {"on": True, "frozen": False}
    look = ("on", "frozen", "color", "linetype", "weight")
    drawing.state("Plumbing plan", "Water of the annex; the house has a state of this name", look,
                  [("*", {"color": 9}), ("P-*", show | {"color": 150, "weight": 50}), ("G-*", hide)])
    drawing.state("Presentation", "The annex for the client; the house has a state of this name", look,
                  [("G-*", hide), ("A-WALL", {"color": 8})])
    drawing.state("Lighting", "Lamps over a pale room", ("on", "color"), [("A-*", {"color": 9}), ("E-*", show)])
    drawing.state("Shell", "Walls and roof alone", ("on", "frozen"),
                  [("*", hide), ("Base", show), ("A-WALL", show), ("A-ROOF", show)])
    drawing.state("Without roof", "For a look inside", ("frozen",), [("A-ROOF", {"frozen": True})])
    return drawing


def main(folder):
    for name, drawing in (("legacy", shed()), ("annex", annex())):
        (pathlib.Path(folder) / f"{name}.json").write_text(drawing.text(), "utf-8")


main(sys.argv[1])
