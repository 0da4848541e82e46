"""What the two storeys share: the shell of the house, and how a storey's walls, openings and rooms are put down."""
import symbols
from walls import Wall, hatching, outlines

WIDTH, DEPTH, SHELL = 11000, 9000, 365
INNER = (SHELL, SHELL, WIDTH - SHELL, DEPTH - SHELL)
GRID_X = [("1", 182), ("2", 3657), ("3", 6587), ("4", WIDTH - 182)]
GRID_Y = [("A", 182), ("B", 4820), ("C", DEPTH - 182)]


def shell(south, east, north, west):
    """The four exterior walls with their openings."""
    return [Wall(0, 0, WIDTH, SHELL, *south), Wall(WIDTH - SHELL, SHELL, WIDTH, DEPTH - SHELL, *east),
            Wall(0, DEPTH - SHELL, WIDTH, DEPTH, *north), Wall(0, SHELL, SHELL, DEPTH - SHELL, *west)]


def draw_walls(place, exterior, interior):
    for layer, walls in (("A-WALL", exterior), ("A-WALL-INTR", interior)):
        for path in outlines(walls):
            place.path(layer, path, True)
    for line in hatching(exterior, 240):
        place.line("A-WALL-PATT", *line)


class Windows:
    """Puts windows into the shell and numbers them."""

    def __init__(self, place, prefix):
        self.place, self.prefix, self.count = place, prefix, 0

    def add(self, side, low, high, sashes=2):
        """`side` is the letter of the wall, low and high the opening along it."""
        x, y, turn = {"S": (low, SHELL, 0), "E": (WIDTH - SHELL, low, 90), "N": (high, DEPTH - SHELL, 180),
                      "W": (SHELL, high, 270)}[side]
        at_wall = self.place.at(x, y, turn)
        symbols.window(at_wall, high - low, SHELL, sashes)
        self.count += 1
        symbols.bubble(at_wall.upright((high - low) / 2, -SHELL - 420), "A-GLAZ-IDEN", 0, 0,
                       f"{self.prefix}{self.count:02}")


def room(place, x, y, name, area):
    place.text("A-AREA-IDEN", x, y, 200, name, centered=True)
    place.text("A-AREA-IDEN", x, y - 260, 140, f"{area:.1f} m²", centered=True)


def grid(place):
    low_x, high_x, low_y, high_y = -2700, WIDTH + 1500, -2500, DEPTH + 700
    for name, x in GRID_X:
        place.line("S-GRID", x, low_y, x, high_y)
        symbols.bubble(place, "S-GRID-IDEN", x, low_y - 300, name, 300)
    for name, y in GRID_Y:
        place.line("S-GRID", low_x, y, high_x, y)
        symbols.bubble(place, "S-GRID-IDEN", high_x + 300, y, name, 300)


def tiles(place, x0, y0, x1, y1, size=300):
    x, y = x0 + size, y0 + size
    while x < x1:
        place.line("A-FLOR-TILE", x, y0, x, y1)
        x += size
    while y < y1:
        place.line("A-FLOR-TILE", x0, y, x1, y)
        y += size


def boards(place, x0, y0, x1, y1, width=200):
    y = y0 + width
    while y < y1:
        place.line("A-FLOR-BORD", x0, y, x1, y)
        y += width


def measure(place, south, west):
    """Chains of dimensions along the south and the west, the openings in the inner one and the whole in the outer."""
    symbols.dimensions(place.at(0, -1300), [0, *south, WIDTH])
    symbols.dimensions(place.at(0, -1900), [0, WIDTH])
    symbols.dimensions(place.at(-1300, 0, 90), [0, *west, DEPTH], toward=-1)
    symbols.dimensions(place.at(-1900, 0, 90), [0, DEPTH], toward=-1)
