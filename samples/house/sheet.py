"""The sheet: two viewports at 1:50, a title block and a legend, in millimetres of paper."""
from drawing import rgb
from storeys import DEPTH, WIDTH

PAPER = (841, 594)
SCALE = 1 / 50
FIRST_FLOOR_X = 32000  # where in the model the first floor is drawn
VIEW = (342, 400)


def draw(drawing):
    sheet, place = drawing.layout("A1 sheet", *PAPER)
    place.rect("G-ANNO-TTLB", 20, 10, PAPER[0] - 10, PAPER[1] - 10)
    low = 176
    for left, x, title, number in ((28, 0, "GROUND FLOOR", 2), (378, FIRST_FLOOR_X, "FIRST FLOOR", 3)):
        viewport = {"handle": drawing.next_handle(), "number": number,
                    "corner": {"x": left, "y": low}, "width": VIEW[0], "height": VIEW[1],
                    "view_center": {"x": x + WIDTH / 2 - 300, "y": DEPTH / 2 + 500}, "scale": SCALE}
        sheet["viewports"].append(viewport)
        place.rect("G-VPRT", left, low, left + VIEW[0], low + VIEW[1])
        place.text("G-ANNO-LEGN", left + 4, low - 12, 7, title)
        place.text("G-ANNO-LEGN", left + 4, low - 19, 4, "1 : 50")
        place.line("G-ANNO-LEGN", left, low - 14, left + 90, low - 14)
    ground, upper = sheet["viewports"]
    index = drawing.layer_index
    style = drawing.style_names.index
    # The ground floor is the furnished plan; the first floor has its partitions drawn lighter and no planting.
    ground["frozen_layers"] = [index("S-GRID"), index("S-GRID-IDEN")]
    ground["overrides"] = [{"layer": index("A-FURN"), "mask": 32 | 128, "color": rgb(150, 110, 70), "line_weight": 25}]
    upper["frozen_layers"] = sorted(index(name) for name in ("L-PLNT-BEDS", "L-PLNT-SHRB", "L-WATR", "X-SITE"))
    upper["overrides"] = [{"layer": index("A-WALL-INTR"), "mask": 64 | 128 | 256, "linetype": style("Continuous"),
                           "line_weight": 35, "plot_style": style("Black")}]
    title_block(place)
    legend(place)


def title_block(place):
    left, right, low, high = PAPER[0] - 200, PAPER[0] - 10, 10, 100
    layer = "G-ANNO-TTLB"
    place.rect(layer, left, low, right, high)
    for y in (28, 46, 64, 80):
        place.line(layer, left, y, right, y)
    for x, y0, y1 in ((left + 62, low, 46), (left + 126, low, 46), (left + 126, 46, 64)):
        place.line(layer, x, y0, x, y1)
    # Left edge, lower and upper edge, name, value, height of the value.
    fields = [(0, 80, 100, "PROJECT", "House with garden, two storeys", 7), (0, 64, 80, "CONTENT", "Floor plans", 5),
              (0, 46, 64, "CLIENT", "Private", 4), (126, 46, 64, "PHASE", "Execution", 4),
              (0, 28, 46, "DRAWN", "A. Lind", 4), (62, 28, 46, "CHECKED", "M. Okoro", 4),
              (126, 28, 46, "DATE", "2024-03-18", 4), (0, 10, 28, "SCALE", "1 : 50", 4),
              (62, 10, 28, "FORMAT", "A1, 841 x 594", 4), (126, 10, 28, "SHEET", "A-101", 6)]
    for x, bottom, top, name, value, height in fields:
        place.text(layer, left + x + 3, top - 4, 2.2, name, line_weight=18)
        place.text(layer, left + x + 3, bottom + 3, height, value, line_weight=25)


def legend(place):
    """A row stands on the layer that it explains, so that the legend shows what the plan shows."""
    rows = [("A-WALL", "Exterior wall, 365 mm"), ("A-WALL-INTR", "Interior wall"), ("A-WALL-DEMO", "To be taken down"),
            ("P-DOMW-COLD", "Cold water"), ("P-DOMW-HOTW", "Hot water"), ("P-SANR-PIPE", "Waste"),
            ("E-POWR-CIRC", "Socket circuit"), ("E-LITE-CIRC", "Lighting circuit"), ("M-HTNG-SUPP", "Heating, supply"),
            ("M-HTNG-RETN", "Heating, return"), ("S-BEAM", "Beam above"), ("S-FNDN", "Foundation")]
    left, top = 733, 570
    place.text("G-ANNO-LEGN", left, top, 5, "LEGEND")
    for index, (layer, text) in enumerate(rows):
        y = top - 14 - 11 * index
        place.line(layer, left, y + 1.2, left + 20, y + 1.2)
        place.text(layer, left + 25, y, 3, text, line_weight=18)
    notes = ["NOTES", "Dimensions in metres, below 1 m in", "centimetres; raw construction.",
             "Check dimensions on site.", "Levels: ground floor +0.00,", "first floor +2.80."]
    for index, text in enumerate(notes):
        place.text("G-ANNO-LEGN", left, 400 - 7 * index, 5 if index == 0 else 3, text)
