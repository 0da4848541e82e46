"""The ground floor: hall with the stairs, WC, utility, kitchen, living and dining, terrace."""
import symbols
from storeys import (DEPTH, INNER, SHELL, Windows, boards, draw_walls, grid, measure, room, shell, tiles)
from walls import Wall

SPINE = (4700, 4940)  # the loadbearing wall, in y
LEFT = (3600, 3715)   # WC and utility | hall
RIGHT = (6500, 6675)  # hall | kitchen
BETWEEN = (2300, 2415)  # WC | utility
STAIRS = (5500, 850, 6500, 4630)
TREADS, TREAD = 14, 270

SOUTH = [(1400, 2200), (3950, 4960), (7800, 9600)]
EAST = [(1500, 2700), (5800, 7800)]
NORTH = [(1500, 4500), (6000, 7200), (8200, 9800)]
WEST = [(3100, 3900), (5900, 7500)]


def draw(place):
    exterior = shell(SOUTH, EAST, NORTH, WEST)
    interior = [Wall(INNER[0], SPINE[0], INNER[2], SPINE[1], (4000, 5200), (7400, 9600)),
                Wall(LEFT[0], SHELL, LEFT[1], SPINE[0], (1200, 2010), (3300, 4110)),
                Wall(RIGHT[0], SHELL, RIGHT[1], SPINE[0]),
                Wall(INNER[0], BETWEEN[0], LEFT[0], BETWEEN[1])]
    draw_walls(place, exterior, interior)
    openings(place)
    stairs(place)
    furnish_wet_rooms(place)
    furnish_kitchen(place)
    furnish_living(place)
    outside(place)
    grid(place)
    measure(place, [x for opening in SOUTH for x in opening], [y for opening in WEST for y in opening])
    # What stood here before: the partition between kitchen and dining, and a chimney.
    place.rect("A-WALL-DEMO", 7400, SPINE[0], 9600, SPINE[1])
    place.rect("A-WALL-DEMO", 9100, 3300, 9215, SPINE[0])
    place.rect("A-WALL-DEMO", 2600, 4940, 3400, 5540)
    place.line("A-WALL-DEMO", 2600, 4940, 3400, 5540)
    place.line("A-WALL-DEMO", 2600, 5540, 3400, 4940)
    place.text("G-ANNO-NOTE", 7300, 5080, 120, "TAKE DOWN, PROP FIRST")
    place.text("G-ANNO-NOTE", 2450, 5640, 120, "CHIMNEY: TAKE DOWN")


def openings(place):
    windows = Windows(place, "W0")
    for side, wall in (("S", (SOUTH[0], SOUTH[2])), ("E", EAST), ("N", NORTH), ("W", WEST)):
        for low, high in wall:
            windows.add(side, low, high, 1 if high - low < 1000 else 3 if high - low > 2500 else 2)
    symbols.door(place.at(4960, SHELL, mirror=True), 1010)
    place.line("A-GLAZ-SILL", 3890, -60, 5020, -60)
    symbols.door(place.at(LEFT[0], 1200, 90), 810)
    symbols.door(place.at(LEFT[0], 3300, 90), 810)
    symbols.double_door(place.at(4000, SPINE[1]), 1200)
    for index, (x, y) in enumerate(((4450, 1600), (3250, 1600), (3250, 3700), (4600, 4350)), 1):
        symbols.bubble(place, "A-DOOR-IDEN", x, y, f"D{index:02}", 170)


def stairs(place):
    x0, y0, x1, _ = STAIRS
    layer = "A-FLOR-STRS"
    for index in range(TREADS + 1):
        place.line(layer, x0, y0 + index * TREAD, x1, y0 + index * TREAD)
    place.line(layer, x0, y0, x0, y0 + TREADS * TREAD)
    place.rect(layer, x0 - 60, y0 - 60, x0, y0 + TREADS * TREAD)
    middle = (x0 + x1) / 2
    place.path(layer, [(middle, y0 - 150), (middle, y0 + TREADS * TREAD - 120)])
    place.path(layer, [(middle - 90, 4340), (middle, 4510), (middle + 90, 4340)])
    place.circle(layer, middle, y0 - 150, 50)
    place.path(layer, [(x0 - 120, 2700), (middle - 80, 3000), (middle - 20, 2850), (middle + 60, 3180),
                       (x1, 3420)])
    place.text(layer, middle - 330, y0 - 190, 130, "UP")


def furnish_wet_rooms(place):
    tiles(place, INNER[0], INNER[1], LEFT[0], BETWEEN[0])
    room(place, 2100, 1250, "WC", 6.3)
    symbols.shower(place.at(INNER[0], 1400))
    symbols.toilet(place.at(INNER[0], 900, 270))
    symbols.basin(place.at(2850, BETWEEN[0], 180))
    tiles(place, INNER[0], BETWEEN[1], LEFT[0], SPINE[0])
    room(place, 2200, 3650, "Utility", 7.4)
    symbols.washer(place.at(1600, SPINE[0], 180), "WASH")
    symbols.washer(place.at(2250, SPINE[0], 180), "DRY")
    place.rect("A-CASE", 2500, BETWEEN[1], 3500, 2815)
    place.rect("P-FIXT", INNER[0], BETWEEN[1], 965, 2915)
    place.circle("P-FIXT", 665, 2665, 40)
    room(place, 4870, 3500, "Hall", 12.1)
    symbols.wardrobe(place.at(LEFT[1], 3150, 270), 1000, 2)


def furnish_kitchen(place):
    tiles(place, RIGHT[1], INNER[1], INNER[2], SPINE[0], 400)
    room(place, 8750, 3550, "Kitchen", 17.2)
    # The worktop runs along the south, the east, and part of the west wall.
    place.path("A-CASE", [(RIGHT[1], 965), (10035, 965), (10035, 3400), (10635, 3400)])
    for x in (7275, 7875, 8735, 9335):
        place.line("A-CASE", x, INNER[1], x, 965)
    for y in (1565, 2165, 2765):
        place.line("A-CASE", 10035, y, 10635, y)
    symbols.kitchen_sink(place.at(7875, INNER[1]))
    symbols.hob(place.at(INNER[2], 1500, 90))
    symbols.fridge(place.at(INNER[2], 3450, 90))
    place.rect("A-EQPM", 7275, INNER[1] + 10, 7865, 945)
    place.text("A-EQPM", 7570, 640, 90, "DISH", centered=True)
    place.rect("A-CASE", RIGHT[1], 2600, 7075, 4500)
    place.line("A-CASE", RIGHT[1], 3550, 7075, 3550)
    place.rect("A-CASE", 7900, 1900, 9100, 2700)
    for index in range(2):
        symbols.chair(place.at(8200 + 600 * index, 3080, 180))


def furnish_living(place):
    boards(place, INNER[0], SPINE[1], INNER[2], INNER[3])
    room(place, 4600, 7250, "Living", 24.3)
    room(place, 8300, 7950, "Dining", 13.6)
    symbols.sofa(place.at(900, SPINE[1] + 60), 2400)
    symbols.sofa(place.at(INNER[0] + 60, 8250, 270), 2000, 2)
    symbols.armchair(place.at(3450, 7900, 180))
    place.rect("A-FURN", 1600, 6350, 2700, 7000)
    place.rect("A-FURN", 1650, 6400, 2650, 6950)
    place.rect("A-FURN", 5400, 4960, 6900, 5380)
    place.path("A-FURN", [(5550, 5120), (6750, 5120)])
    symbols.dining_table(place.at(8500, 6750), 2000, 950, 3)
    place.rect("A-CASE", 6700, 8180, 7900, 8630)
    place.circle("A-FURN", 10200, 8250, 200)


def outside(place):
    terrace = [(900, DEPTH), (900, 12400), (7400, 12400), (7400, DEPTH)]
    place.path("L-HARD-EDGE", terrace)
    for index in range(1, 13):
        place.line("L-HARD-PATT", 900 + 500 * index, DEPTH, 900 + 500 * index, 12400)
    for index in range(1, 7):
        place.line("L-HARD-PATT", 900, DEPTH + 500 * index, 7400, DEPTH + 500 * index)
    room(place, 5500, 11500, "Terrace", 22.1)
    table = place.at(3000, 10800)
    symbols.dining_table(table, 1600, 900, 2)
    place.rect("L-HARD-EDGE", 3700, -1100, 5200, 0)
    place.rect("L-HARD-EDGE", 3950, -700, 4960, -60)
    for x, y, radius in ((-700, 400, 480), (-750, 1500, 420), (-650, 7200, 560), (-800, 8300, 500), (300, 9700, 460),
                         (8300, 9800, 560), (9500, 9700, 420), (10400, 10000, 620), (11800, 8400, 520),
                         (11700, 700, 450), (11850, 1800, 520)):
        symbols.shrub(place.at(x, y), radius)
    place.path("L-PLNT-BEDS", [(7700, 9150), (11100, 9150), (11200, 10700), (9800, 10600), (8600, 10450),
                               (7700, 10500)], True)
    place.path("L-PLNT-BEDS", [(-200, 6500), (-1250, 6600), (-1400, 7900), (-1300, 9000), (-200, 9000)], True)
    place.path("L-PLNT-BEDS", [(-200, 100), (-1250, 150), (-1250, 2050), (-200, 2100)], True)
    pond = [(8600, 11700), (9400, 11500), (10300, 11750), (10700, 12300), (10200, 12800), (9200, 12900), (8500, 12500)]
    place.path("L-WATR", pond, True)
    place.path("L-WATR", [(x + (9550 - x) * 0.15, y + (12200 - y) * 0.15) for x, y in pond], True)
