"""The first floor: landing, bathroom, bedrooms, dressing, and the roof over them."""
import symbols
from ground import STAIRS, TREAD, TREADS
from storeys import (DEPTH, INNER, SHELL, WIDTH, Windows, boards, draw_walls, grid, measure, room, shell, tiles)
from walls import Wall

LEFT = (3885, 4000)
RIGHT = (6500, 6675)
BATH_NORTH = (3000, 3115)
CHILDREN = (5500, 5615)
LANDING_NORTH = (6600, 6715)

SOUTH = [(1400, 2200), (4200, 5300), (7800, 9600)]
EAST = [(2100, 3900), (6400, 7800)]
NORTH = [(1400, 3000), (4700, 5700), (7800, 9400)]
WEST = [(1300, 2100), (5200, 6800)]


def draw(place):
    exterior = shell(SOUTH, EAST, NORTH, WEST)
    interior = [Wall(LEFT[0], SHELL, LEFT[1], INNER[3], (1500, 2310), (5600, 6410), (7300, 8110)),
                Wall(RIGHT[0], SHELL, RIGHT[1], INNER[3], (4650, 5460), (5680, 6490)),
                Wall(INNER[0], BATH_NORTH[0], LEFT[0], BATH_NORTH[1]),
                Wall(RIGHT[1], CHILDREN[0], INNER[2], CHILDREN[1]),
                Wall(LEFT[1], LANDING_NORTH[0], RIGHT[0], LANDING_NORTH[1])]
    draw_walls(place, exterior, interior)
    openings(place)
    stairs(place)
    furnish_bathroom(place)
    furnish_bedrooms(place)
    roof(place)
    grid(place)
    measure(place, [x for opening in SOUTH for x in opening], [y for opening in WEST for y in opening])
    place.rect("A-WALL-DEMO", 8300, SHELL, 8415, CHILDREN[0])
    place.text("G-ANNO-NOTE", 8480, 900, 120, "TAKE DOWN")


def openings(place):
    windows = Windows(place, "W1")
    for side, wall in (("S", SOUTH), ("E", EAST), ("N", NORTH), ("W", WEST)):
        for low, high in wall:
            windows.add(side, low, high, 1 if high - low < 1000 else 2)
    symbols.door(place.at(LEFT[0], 1500, 90), 810)
    symbols.door(place.at(LEFT[0], 5600, 90), 810)
    symbols.door(place.at(LEFT[0], 7300, 90), 810)
    symbols.door(place.at(RIGHT[1], 4650, 270, mirror=True), 810)
    symbols.door(place.at(RIGHT[1], 6490, 270), 810)
    for index, (x, y) in enumerate(((3300, 1900), (3300, 6000), (3300, 7700), (7250, 4950), (7250, 6250)), 11):
        symbols.bubble(place, "A-DOOR-IDEN", x, y, f"D{index}", 170)


def stairs(place):
    x0, y0, x1, y1 = STAIRS
    layer = "A-FLOR-STRS"
    for index in range(TREADS + 1):
        place.line(layer, x0, y0 + index * TREAD, x1, y0 + index * TREAD)
    place.rect(layer, x0 - 60, y0 - 60, x0, y1)
    place.line(layer, x0 - 60, y0 - 60, x1, y0 - 60)
    middle = (x0 + x1) / 2
    place.line(layer, middle, y1 + 150, middle, y0 + 120)
    place.path(layer, [(middle - 90, y0 + 290), (middle, y0 + 120), (middle + 90, y0 + 290)])
    place.circle(layer, middle, y1 + 150, 50)
    place.text(layer, middle - 380, y1 + 100, 130, "DN")


def furnish_bathroom(place):
    tiles(place, INNER[0], INNER[1], LEFT[0], BATH_NORTH[0])
    room(place, 2000, 1750, "Bathroom", 9.3)
    symbols.bath_tub(place.at(INNER[0], BATH_NORTH[0] - 750))
    symbols.shower(place.at(2985, INNER[1]))
    symbols.toilet(place.at(INNER[0], 800, 270))
    for x in (2500, 3250):
        symbols.basin(place.at(x, BATH_NORTH[0], 180), 650)


def furnish_bedrooms(place):
    boards(place, INNER[0], BATH_NORTH[1], LEFT[0], INNER[3])
    boards(place, RIGHT[1], INNER[1], INNER[2], CHILDREN[0])
    boards(place, RIGHT[1], CHILDREN[1], INNER[2], INNER[3])
    room(place, 2500, 4950, "Bedroom", 19.4)
    symbols.bed(place.at(INNER[0], 7750, 270), 1800)
    symbols.night_table(place.at(INNER[0], 8250, 270))
    symbols.night_table(place.at(INNER[0], 5900, 270))
    symbols.wardrobe(place.at(INNER[0] + 150, BATH_NORTH[1]), 2600)
    room(place, 4980, 7450, "Dressing", 4.8)
    symbols.wardrobe(place.at(RIGHT[0], LANDING_NORTH[1], 90), 1900, 3)
    room(place, 4750, 3200, "Landing", 11.8)
    place.rect("A-FURN", LEFT[1], 3400, LEFT[1] + 350, 4800)
    room(place, 8700, 3350, "Child 1", 20.3)
    symbols.bed(place.at(INNER[2] - 1000, INNER[1]), 1000)
    symbols.night_table(place.at(INNER[2] - 1500, INNER[1]))
    symbols.desk(place.at(INNER[2], 2650, 90))
    symbols.wardrobe(place.at(RIGHT[1], 3800, 270), 2200)
    room(place, 8800, 7050, "Child 2", 12.0)
    symbols.bed(place.at(7675, INNER[3], 180), 1000)
    symbols.desk(place.at(INNER[2], 6350, 90))
    symbols.wardrobe(place.at(8600, CHILDREN[1]), 1600, 3)


def roof(place):
    eaves = 600
    place.rect("A-ROOF", -eaves, -eaves, WIDTH + eaves, DEPTH + eaves)
    middle = DEPTH / 2
    hip = middle + eaves
    place.line("A-ROOF-RIDG", hip - eaves, middle, WIDTH + eaves - hip, middle)
    for x, end in ((-eaves, hip - eaves), (WIDTH + eaves, WIDTH + eaves - hip)):
        place.line("A-ROOF-RIDG", x, -eaves, end, middle)
        place.line("A-ROOF-RIDG", x, DEPTH + eaves, end, middle)
    # Gutters and their down pipes.
    for x in (-300, WIDTH + 300):
        for y in (-300, DEPTH + 300):
            place.circle("P-STRM-PIPE", x, y, 60)
    place.rect("P-STRM-PIPE", -eaves - 120, -eaves - 120, WIDTH + eaves + 120, DEPTH + eaves + 120)
