"""The things that stand in a plan, each drawn around its own origin. A symbol that stands at a wall has the wall along
x, with the origin on the wall's face and the room at positive y."""
import math


def door(place, width):
    """A door whose hinge is at the origin; it closes along x and opens towards y."""
    place.rect("A-DOOR", 0, 0, 45, width)
    place.arc("A-DOOR", 0, 0, width, 0, 90)


def double_door(place, width):
    door(place, width / 2)
    door(place.at(width, 0, mirror=True), width / 2)


def window(place, width, depth, sashes=2):
    """A window in a wall of the given depth, seen from the room: the wall lies at negative y."""
    place.rect("A-GLAZ", 0, -depth, width, 0)
    middle = -depth * 0.6
    place.rect("A-GLAZ", 0, middle - 40, width, middle + 40)
    place.line("A-GLAZ", 0, middle, width, middle)
    for sash in range(1, sashes):
        place.rect("A-GLAZ", sash * width / sashes - 30, middle - 40, sash * width / sashes + 30, middle + 40)
    place.rect("A-GLAZ-SILL", -60, -depth - 60, width + 60, -depth)


def bubble(place, layer, x, y, text, radius=220):
    place.circle(layer, x, y, radius)
    place.text(layer, x, y - radius * 0.4, radius * 0.8, text, centered=True)


def bed(place, width):
    """Head at the wall."""
    place.rect("A-FURN", 0, 0, width, 2050)
    pillows = 2 if width > 1200 else 1
    for index in range(pillows):
        left = 80 + index * width / pillows
        place.rect("A-FURN", left, 90, left + width / pillows - 160, 480)
    place.path("A-FURN", [(0, 760), (width, 760), (width, 1000), (width * 0.55, 760)])
    place.line("A-FURN", 0, 620, width, 620)


def night_table(place):
    place.rect("A-FURN", 0, 0, 450, 400)
    place.circle("A-FURN", 225, 200, 110)


def wardrobe(place, width, doors=4):
    place.rect("A-CASE", 0, 0, width, 600)
    place.line("A-CASE", 0, 300, width, 300)
    for index in range(1, doors * 4):
        x = width * index / (doors * 4)
        place.line("A-CASE", x - 15, 80, x + 15, 520)


def chair(place):
    """Its back at the origin, its seat towards y."""
    place.path("A-FURN-SEAT", [(-210, 60), (210, 60), (230, 450), (-230, 450)], True)
    place.arc("A-FURN-SEAT", 0, 330, 330, 225, 315)


def armchair(place):
    place.rect("A-FURN-SEAT", 0, 0, 850, 850)
    place.rect("A-FURN-SEAT", 150, 180, 700, 850)
    place.line("A-FURN-SEAT", 0, 180, 850, 180)


def sofa(place, width, seats=3):
    place.rect("A-FURN-SEAT", 0, 0, width, 900)
    place.line("A-FURN-SEAT", 180, 220, width - 180, 220)
    place.line("A-FURN-SEAT", 180, 0, 180, 900)
    place.line("A-FURN-SEAT", width - 180, 0, width - 180, 900)
    for seat in range(1, seats):
        x = 180 + (width - 360) * seat / seats
        place.line("A-FURN-SEAT", x, 220, x, 900)


def dining_table(place, length, width, a_side):
    """Centred on the origin, with chairs along both long sides and one at each end."""
    place.rect("A-FURN", -length / 2, -width / 2, length / 2, width / 2)
    for index in range(a_side):
        x = -length / 2 + length * (index + 0.5) / a_side
        chair(place.at(x, width / 2 + 330, 180))
        chair(place.at(x, -width / 2 - 330))
    chair(place.at(-length / 2 - 330, 0, 270))
    chair(place.at(length / 2 + 330, 0, 90))


def desk(place, width=1500):
    place.rect("A-FURN", 0, 0, width, 750)
    place.rect("A-FURN", width * 0.3, 80, width * 0.7, 150)
    place.rect("A-FURN", width * 0.28, 330, width * 0.72, 500)
    chair(place.at(width / 2, 1180, 180))


def toilet(place):
    place.rect("P-FIXT", -190, 0, 190, 170)
    place.path("P-FIXT", [(-180, 170), (-180, 400)])
    place.path("P-FIXT", [(180, 170), (180, 400)])
    place.arc("P-FIXT", 0, 400, 180, 0, 180)
    place.circle("P-FIXT", 0, 390, 110)


def basin(place, width=600):
    place.path("P-FIXT", [(-width / 2, 0), (width / 2, 0), (width / 2, 380), (width / 2 - 90, 480),
                          (90 - width / 2, 480), (-width / 2, 380)], True)
    place.circle("P-FIXT", 0, 250, 150)
    place.circle("P-FIXT", 0, 250, 20)
    place.line("P-FIXT", 0, 40, 0, 150)


def bath_tub(place):
    place.rect("P-FIXT", 0, 0, 1700, 750)
    place.path("P-FIXT", [(200, 80), (1360, 80)])
    place.path("P-FIXT", [(1360, 670), (200, 670), (100, 570), (100, 180), (200, 80)])
    place.arc("P-FIXT", 1360, 375, 295, 270, 90)
    place.circle("P-FIXT", 240, 375, 30)


def shower(place, size=900):
    place.rect("P-FIXT", 0, 0, size, size)
    place.rect("P-FIXT", 40, 40, size - 40, size - 40)
    place.line("P-FIXT", 40, 40, size - 40, size - 40)
    place.line("P-FIXT", 40, size - 40, size - 40, 40)
    place.circle("P-FIXT", size / 2, size / 2, 50)


def washer(place, label):
    place.rect("A-EQPM", 0, 0, 600, 600)
    place.circle("A-EQPM", 300, 320, 210)
    place.upright(300, 320).text("A-EQPM", 0, -40, 90, label, centered=True)


def kitchen_sink(place):
    place.rect("P-FIXT", 0, 80, 860, 520)
    place.rect("P-FIXT", 50, 130, 420, 470)
    for index in range(6):
        place.line("P-FIXT", 470 + 65 * index, 140, 470 + 65 * index, 460)
    place.circle("P-FIXT", 235, 300, 30)
    place.line("P-FIXT", 235, 60, 235, 200)


def hob(place):
    place.rect("A-EQPM", 0, 60, 600, 560)
    for x, y, radius in ((160, 190, 80), (430, 190, 105), (160, 430, 105), (430, 430, 80)):
        place.circle("A-EQPM", x, y, radius)
        place.circle("A-EQPM", x, y, radius * 0.55)


def fridge(place):
    place.rect("A-EQPM", 0, 0, 600, 620)
    place.line("A-EQPM", 0, 0, 600, 620)
    place.line("A-EQPM", 0, 620, 600, 0)


def socket(place, circuit):
    """A double socket, with the number of its circuit."""
    place.arc("E-POWR-WALL", 0, 120, 110, 180, 360)
    place.line("E-POWR-WALL", -110, 120, 110, 120)
    place.line("E-POWR-WALL", 0, 0, 0, 10)
    place.line("E-POWR-WALL", -40, 120, -40, 210)
    place.line("E-POWR-WALL", 40, 120, 40, 210)
    place.upright(0, 320).text("E-ANNO-TEXT", 0, -45, 90, circuit, centered=True)


def data_outlet(place):
    place.path("E-COMM-DATA", [(-90, 30), (90, 30), (0, 180)], True)
    place.line("E-COMM-DATA", 0, 0, 0, 30)


def ceiling_light(place, radius=150):
    place.circle("E-LITE-CLNG", 0, 0, radius)
    reach = radius * math.sqrt(0.5)
    place.line("E-LITE-CLNG", -reach, -reach, reach, reach)
    place.line("E-LITE-CLNG", -reach, reach, reach, -reach)


def switch(place):
    place.circle("E-LITE-SWCH", 0, 60, 50)
    place.line("E-LITE-SWCH", 35, 95, 150, 210)
    place.line("E-LITE-SWCH", 150, 210, 200, 160)


def cable(place, layer, start, end):
    """A cable as electricians draw it: an arc from one point to the other, to the right of the way there."""
    (x0, y0), (x1, y1) = start, end
    length = math.hypot(x1 - x0, y1 - y0)
    depth = min(0.18 * length, 450)
    radius = (length * length / 4 + depth * depth) / (2 * depth)
    # The centre lies to the left of the way, at what the radius has more than the depth.
    off = (radius - depth) / length
    center = ((x0 + x1) / 2 - (y1 - y0) * off, (y0 + y1) / 2 + (x1 - x0) * off)
    angle = [math.degrees(math.atan2(y - center[1], x - center[0])) for x, y in (start, end)]
    place.arc(layer, *center, radius, *angle)


def radiator(place, width):
    place.rect("M-HTNG-EQPM", 0, 40, width, 140)
    for index in range(1, 6):
        place.line("M-HTNG-EQPM", width * index / 6, 40, width * index / 6, 140)


def shrub(place, radius):
    """A ring of small arcs around a stem."""
    place.circle("L-PLNT-SHRB", 0, 0, radius * 0.12)
    lobes = 7
    for index in range(lobes):
        angle = 360 * index / lobes
        x, y = (0.62 * radius * f(math.radians(angle)) for f in (math.cos, math.sin))
        place.arc("L-PLNT-SHRB", x, y, radius * 0.38, angle - 75, angle + 75)


def dimensions(place, points, toward=1):
    """A chain of dimensions along x at the origin's height, between the given x. The measured things lie at positive y,
    or at negative y with `toward` -1."""
    place.line("G-ANNO-DIMS", points[0] - 150, 0, points[-1] + 150, 0)
    for x in points:
        place.line("G-ANNO-DIMS", x, -120 * toward, x, 350 * toward)
        place.line("G-ANNO-DIMS", x - 80, -80, x + 80, 80)
    for start, end in zip(points, points[1:]):
        text = f"{(end - start) / 1000:.2f}" if end - start >= 1000 else f"{(end - start) / 10:g}"
        place.text("G-ANNO-DIMS", (start + end) / 2, 60, 150, text, centered=True)
