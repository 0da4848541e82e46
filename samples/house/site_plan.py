"""The site plan that the house attaches: the plot and its neighbours, trees, drive and street."""
import math

from drawing import FROZEN, ON, PLOT, Drawing, rgb
from layers import LINETYPES, PLOT_STYLES

SHOWN = ON | PLOT
LAYERS = [
    ("Base", 7, "Continuous", -3, "Normal", SHOWN, ""),
    ("C-PROP-LINE", 1, "Phantom", 70, "Heavy outline", SHOWN, "Boundary of the plot"),
    ("C-PROP-ADJN", 8, "Phantom", 25, "Screened 50", SHOWN, "Boundaries of the neighbours"),
    ("C-PROP-BRNG", 1, "Continuous", 18, "Normal", SHOWN, "Lengths of boundaries"),
    ("C-ROAD-CURB", 8, "Continuous", 35, "Normal", SHOWN, "Kerbs"),
    ("C-ROAD-CNTR", 8, "Center", 18, "Normal", SHOWN, "Middle of the street"),
    ("C-PKNG-STRP", 30, "Continuous", 25, "Normal", SHOWN, "Drive and parking"),
    ("C-TOPO-MINR", 34, "Dot", 13, "Screened 25", PLOT, "Contour lines"),
    ("C-SSWR-PIPE", 52, "Hidden", 50, "Normal", PLOT | ON | FROZEN, "Public sewer"),
    ("C-WATR-PIPE", 150, "Dashed", 35, "Normal", PLOT | ON | FROZEN, "Public water main"),
    ("L-PLNT-TREE", rgb(64, 128, 60), "Continuous", 25, "Normal", SHOWN, "Trees"),
    ("L-PLNT-HEDG", rgb(84, 140, 70), "Continuous", 25, "Normal", SHOWN, "Hedges"),
    ("L-SITE-FENC", 8, "Dashdot", 18, "Normal", SHOWN, "Fences"),
    ("L-LAWN", rgb(150, 190, 120), "Continuous", 13, "Screened 25", SHOWN, "Edge of the lawn"),
    ("G-ANNO-TEXT", 7, "Continuous", 25, "Black", SHOWN, "Texts"),
]

# The corners of the plot; the street lies to the south.
PLOT_CORNERS = [(-6500, -7500), (18500, -7500), (18900, 19800), (-6200, 20600)]


def draw():
    drawing = Drawing(LINETYPES, PLOT_STYLES, LAYERS)
    place = drawing.model
    boundaries(place)
    street(place)
    planting(place)
    states(drawing)
    return drawing


def boundaries(place):
    place.path("C-PROP-LINE", PLOT_CORNERS, True)
    for index, (x, y) in enumerate(PLOT_CORNERS):
        place.circle("C-PROP-LINE", x, y, 200)
        next_x, next_y = PLOT_CORNERS[(index + 1) % len(PLOT_CORNERS)]
        length = math.hypot(next_x - x, next_y - y)
        # Read from the south and the east, like all dimensions.
        angle = (math.degrees(math.atan2(next_y - y, next_x - x)) + 89) % 180 - 89
        place.at((x + next_x) / 2, (y + next_y) / 2, angle).text("C-PROP-BRNG", 0, 250, 350, f"{length / 1000:.2f}",
                                                                  centered=True)
    place.line("C-PROP-ADJN", -6500, -7500, -15000, -7500)
    place.line("C-PROP-ADJN", -6200, 20600, -15000, 20900)
    place.line("C-PROP-ADJN", 18500, -7500, 27000, -7500)
    place.line("C-PROP-ADJN", 18900, 19800, 27000, 19600)
    place.text("G-ANNO-TEXT", 13200, 17500, 500, "Plot 114/2")
    place.text("G-ANNO-TEXT", 13200, 16800, 350, f"{area(PLOT_CORNERS):.0f} m²")
    for index in range(5):
        y = -5000 + 5600 * index
        place.path("C-TOPO-MINR", [(-6400, y), (-1500, y + 500), (4000, y + 350), (10500, y + 900), (18600, y + 1500)])


def area(corners):
    twice = sum(x0 * y1 - x1 * y0 for (x0, y0), (x1, y1) in zip(corners, corners[1:] + corners[:1]))
    return twice / 2e6


def street(place):
    for y in (-8700, -14200):
        place.line("C-ROAD-CURB", -15000, y, 12800 if y == -8700 else 27000, y)
    place.line("C-ROAD-CURB", 17400, -8700, 27000, -8700)
    place.line("C-ROAD-CNTR", -15000, -11450, 27000, -11450)
    place.text("G-ANNO-TEXT", 2500, -11200, 600, "Linden Street")
    place.arc("C-PKNG-STRP", 12800, -7500, 1200, 270, 360)
    place.arc("C-PKNG-STRP", 17400, -7500, 1200, 180, 270)
    place.path("C-PKNG-STRP", [(14000, -7500), (14000, 4500), (18000, 4500)])
    place.line("C-PKNG-STRP", 16200, -7500, 16200, -1500)
    place.line("C-PKNG-STRP", 16200, -1500, 18000, -1500)
    for y in (-1200, 1650):
        car(place.at(14350, y))
    place.path("C-PKNG-STRP", [(3900, -7500), (3900, -1100)])
    place.path("C-PKNG-STRP", [(5000, -7500), (5000, -1100)])
    for index in range(10):
        place.line("C-PKNG-STRP", 3900, -7300 + 620 * index, 5000, -7300 + 620 * index)
    place.line("C-SSWR-PIPE", -15000, -10200, 27000, -10200)
    place.path("C-SSWR-PIPE", [(-1800, -1700), (-1800, -10200)])
    place.circle("C-SSWR-PIPE", -1800, -10200, 500)
    place.line("C-WATR-PIPE", -15000, -13200, 27000, -13200)
    place.path("C-WATR-PIPE", [(3300, -1400), (3300, -13200)])


def car(place):
    place.path("C-PKNG-STRP", [(0, 250), (200, 0), (3400, 0), (3500, 300), (3500, 1400), (3400, 1700), (200, 1700),
                               (0, 1450)], True)
    place.path("C-PKNG-STRP", [(900, 200), (1200, 350), (1200, 1350), (900, 1500)])
    place.path("C-PKNG-STRP", [(2900, 200), (2600, 350), (2600, 1350), (2900, 1500)])


def planting(place):
    for x, y, radius in ((-4200, 17800, 2100), (1500, 18300, 1700), (7000, 17200, 2300), (15800, 13500, 2600),
                         (15500, 8000, 1800), (-4300, 11500, 1600), (-4500, 4200, 1900), (-4400, -4200, 1700),
                         (9300, -4700, 1900)):
        tree(place.at(x, y), radius)
    for x in (-9000, -2500, 8200, 22000):
        tree(place.at(x, -15600), 1200)
    hedge = [(-6200, -7200), (-5900, 20200), (18500, 19500), (18300, 5200)]
    place.path("L-PLNT-HEDG", hedge)
    place.path("L-PLNT-HEDG", [(-5600, -7200), (-5300, 19600), (17900, 18900), (17700, 5200), (18300, 5200)])
    place.line("L-PLNT-HEDG", -6200, -7200, -5600, -7200)
    place.line("L-SITE-FENC", -5600, -7350, 3700, -7350)
    place.line("L-SITE-FENC", 5200, -7350, 13800, -7350)
    place.path("L-LAWN", [(-2600, 9600), (-3200, 14500), (0, 15500), (5200, 14400), (11200, 15200), (12700, 11200),
                          (12600, 7200)])


def tree(place, radius):
    """A crown of arcs around a trunk."""
    place.circle("L-PLNT-TREE", 0, 0, radius * 0.08)
    lobes = 11
    for index in range(lobes):
        angle = 360 * index / lobes
        x, y = (0.78 * radius * f(math.radians(angle)) for f in (math.cos, math.sin))
        place.arc("L-PLNT-TREE", x, y, radius * 0.26, angle - 80, angle + 80)
        if index % 3 == 0:
            place.line("L-PLNT-TREE", x * 0.2, y * 0.2, x * 0.8, y * 0.8)


def states(drawing):
    hide, show = {"on": False}, {"on": True, "frozen": False}
    look = ("on", "frozen", "color", "linetype", "weight")
    drawing.state("Survey", "Boundaries, contour lines and public pipes", look,
                  [("L-*", hide), ("C-TOPO-MINR", show), ("C-SSWR-PIPE", show), ("C-WATR-PIPE", show),
                   ("C-PKNG-STRP", hide)])
    drawing.state("Planting", "Trees, hedges and lawn", ("on", "frozen", "color"),
                  [("C-*", {"color": 8}), ("C-PROP-BRNG", hide), ("C-ROAD-CNTR", hide)])
    drawing.state("Access and parking", "Street, drive and path", look,
                  [("L-*", hide), ("C-PKNG-STRP", {"weight": 50, "color": 1}), ("C-TOPO-MINR", hide)])
