"""Pipes, cables, heating and the frame of both storeys."""
import symbols
import ground
import first
from storeys import DEPTH, INNER, SHELL, WIDTH

SOUTH, EAST, NORTH, WEST = 0, 90, 180, 270  # the turn of a thing at the wall of that side
STACK = (520, 1270)


def pipes(place, layer, *runs, shift=0):
    for run in runs:
        place.path(layer, [(x + shift, y + shift) for x, y in run])


def plumbing_ground(place):
    cold = [[(3300, -1400), (3300, 4550)], [(3300, 2140), (2850, 2140)], [(3300, 1180), (560, 1180), (560, 900)],
            [(815, 1180), (815, 1850)], [(3300, 2660), (700, 2660)], [(3300, 4550), (1300, 4550), (1300, 4300)],
            [(3300, 4550), (3300, 4600), (6780, 4600), (6780, 600), (8110, 600)], [(7570, 600), (7570, 720)]]
    hot = [[(3220, 4350), (3220, 1060)], [(3220, 2060), (2920, 2060)], [(3220, 1060), (900, 1060), (900, 1850)],
           [(3220, 2740), (700, 2740)], [(3220, 4480), (6860, 4480), (6860, 520), (8060, 520)]]
    pipes(place, "P-DOMW-COLD", *cold)
    pipes(place, "P-DOMW-HOTW", *hot)
    waste = [[(765, 900), STACK], [(815, 1850), (620, 1650), STACK], [(2850, 2050), (2300, 1500), (700, 1500), STACK],
             [(665, 2665), (520, 2520), STACK], [(1300, 4200), (520, 4200), (520, 2520)],
             [(8110, 665), (8110, -1500), (7900, -1700), (520, -1700)], [STACK, (520, -1700)],
             [(520, -1700), (-1800, -1700)]]
    pipes(place, "P-SANR-PIPE", *waste)
    stack(place)
    place.rect("P-SANR-RISR", 270, -1950, 770, -1450)
    place.circle("P-SANR-RISR", 520, -1700, 200)
    for x, y, text in ((3380, -1250, "COLD DN 32"), (-1600, -1600, "WASTE DN 150, 1:66"), (4200, 4650, "DN 20"),
                       (1700, -1600, "WASTE DN 110"), (1500, 2700, "DN 15"), (620, 1330, "STACK DN 110")):
        place.text("P-ANNO-TEXT", x, y, 110, text)
    for x in (-300, WIDTH + 300):
        for y in (-300, DEPTH + 300):
            place.circle("P-STRM-PIPE", x, y, 60)
    place.path("P-STRM-PIPE", [(-300, DEPTH + 300), (-300, -300), (-300, -2200)])
    place.path("P-STRM-PIPE", [(WIDTH + 300, DEPTH + 300), (WIDTH + 300, -300), (WIDTH + 300, -2200), (-300, -2200)])


def plumbing_first(place):
    cold = [[(3600, 2860), (2500, 2860), (2500, 2700)], [(3250, 2860), (3250, 2700)],
            [(2500, 2860), (2200, 2860), (2200, 1900), (560, 1900), (560, 800)],
            [(2200, 1900), (2200, 600), (3300, 600)], [(2200, 2600), (1950, 2600)]]
    hot = [[(3600, 2780), (2570, 2780), (2570, 2640)], [(3320, 2780), (3320, 2640)], [(2570, 2780), (2280, 2780),
           (2280, 680), (3300, 680)], [(2280, 2520), (1950, 2520)]]
    pipes(place, "P-DOMW-COLD", *cold)
    pipes(place, "P-DOMW-HOTW", *hot)
    pipes(place, "P-SANR-PIPE", [(755, 800), STACK], [(605, 2625), (520, 2500), STACK],
          [(3435, 815), (2900, 1270), STACK], [(3250, 2550), (2400, 2200), (1300, 1500), STACK],
          [(2500, 2550), (2400, 2200)])
    for x, y in ((3600, 2860), (3600, 2780)):
        place.circle("P-SANR-RISR", x, y, 35)
    stack(place)
    for x, y, text in ((620, 1330, "STACK DN 110"), (1250, 1960, "DN 20"), (2350, 2920, "DN 20")):
        place.text("P-ANNO-TEXT", x, y, 110, text)


def stack(place):
    place.circle("P-SANR-RISR", *STACK, 90)
    place.circle("P-SANR-RISR", *STACK, 55)


def electrical(place, sockets, data, lights, switches, circuits):
    """Sockets are (x, y, wall, circuit), data and switches (x, y, wall), lights (x, y), circuits (layer, points...)."""
    for x, y, wall, circuit in sockets:
        symbols.socket(place.at(x, y, wall), circuit)
    for x, y, wall in data:
        symbols.data_outlet(place.at(x, y, wall))
    for x, y in lights:
        symbols.ceiling_light(place.at(x, y))
    for x, y, wall in switches:
        symbols.switch(place.at(x, y, wall))
    for layer, *points in circuits:
        for start, end in zip(points, points[1:]):
            symbols.cable(place, layer, start, end)


def electrical_ground(place):
    left, right, top = INNER[0], INNER[2], INNER[3]
    low, high = ground.SPINE
    panel = (3480, 3000)
    place.rect("E-POWR-PANL", 3360, 2700, 3600, 3200)
    place.line("E-POWR-PANL", 3360, 2700, 3600, 3200)
    place.text("E-ANNO-TEXT", 2950, 3260, 110, "PANEL")
    living = [(left, 5300, WEST, "1"), (1100, low + 240, SOUTH, "1"), (3000, high, SOUTH, "1"), (left, 7800, WEST, "1"),
              (5200, top, NORTH, "1"), (7700, top, NORTH, "2"), (right, 5400, EAST, "2"), (right, 8200, EAST, "2"),
              (6600, high, SOUTH, "2")]
    kitchen = [(7000, INNER[1], SOUTH, "3"), (7600, INNER[1], SOUTH, "4"), (9700, INNER[1], SOUTH, "3"),
               (right, 1250, EAST, "5"), (right, 3000, EAST, "3"), (right, 3750, EAST, "6"), (6675, 3000, WEST, "3")]
    others = [(3300, 2415, SOUTH, "7"), (1300, low, NORTH, "8"), (1950, low, NORTH, "8"), (left, 4300, WEST, "7"),
              (2300, 2300, NORTH, "7"), (3715, 2600, WEST, "9"), (5300, INNER[1], SOUTH, "9")]
    lights = [(2000, 1700), (2000, 3200), (4600, 1500), (4600, 3600), (7900, 2300), (9200, 2300), (7600, 3900),
              (2200, 6700), (4600, 6400), (8000, 6750), (9000, 6750), (4200, 9300), (1200, -400)]
    switches = [(3600, 2100, EAST), (3600, 4200, EAST), (5060, INNER[1], SOUTH), (3800, high, SOUTH),
                (5300, high, SOUTH), (7300, high, SOUTH), (3800, low, NORTH), (4600, top, NORTH)]
    circuits = [
        ("E-LITE-CIRC", (3540, 2100), (2000, 1700)), ("E-LITE-CIRC", (3540, 4200), (2000, 3200)),
        ("E-LITE-CIRC", (5060, 430), (4600, 1500), (4600, 3600), (3800, 4640)),
        ("E-LITE-CIRC", (3800, 5000), (2200, 6700), (4600, 6400), (5300, 5000)),
        ("E-LITE-CIRC", (7300, 5000), (8000, 6750), (9000, 6750)),
        ("E-LITE-CIRC", (7300, 5000), (7600, 3900), (7900, 2300), (9200, 2300)),
        ("E-LITE-CIRC", (4600, 8570), (4200, 9300)), ("E-LITE-CIRC", (2000, 3200), panel),
        ("E-POWR-CIRC", panel, (3000, 5060), (1100, 5060), (480, 5300), (480, 7800), (5200, 8515)),
        ("E-POWR-CIRC", panel, (6600, 5060), (10520, 5400), (10520, 8200), (7700, 8515)),
        ("E-POWR-CIRC", panel, (6790, 3000), (7000, 480), (9700, 480), (10520, 3000)),
        ("E-POWR-CIRC", panel, (7600, 480)), ("E-POWR-CIRC", panel, (10520, 1250)),
        ("E-POWR-CIRC", panel, (3300, 2530), (2300, 2180)),
        ("E-POWR-CIRC", panel, (1950, 4580), (1300, 4580), (480, 4300)),
        ("E-POWR-CIRC", panel, (3830, 2600), (5300, 480)),
        ("E-COMM-DATA", panel, (5600, 5000)), ("E-COMM-DATA", panel, (480, 6200))]
    electrical(place, living + kitchen + others, [(5600, high, SOUTH), (left, 6200, WEST), (right, 8400, EAST)], lights,
               switches, circuits)


def electrical_first(place):
    left, right, top = INNER[0], INNER[2], INNER[3]
    riser = (3700, 3300)
    sockets = [(left, 5700, WEST, "11"), (left, 8300, WEST, "11"), (3885, 5000, EAST, "11"), (2400, top, NORTH, "11"),
               (3885, 2800, EAST, "12"), (2900, 3000, NORTH, "12"), (4000, 4200, WEST, "13"), (6500, 6000, EAST, "13"),
               (right, 1700, EAST, "14"), (right, 2500, EAST, "14"), (7000, INNER[1], SOUTH, "14"),
               (6675, 3000, WEST, "14"),
               (right, 6000, EAST, "15"), (right, 7900, EAST, "15"), (7900, top, NORTH, "15"), (4300, top, NORTH, "13")]
    lights = [(2100, 1500), (1200, 2500), (2100, 5600), (2100, 7300), (4900, 2000), (4900, 5600), (5200, 7700),
              (8600, 2200), (8600, 4300), (8600, 7100)]
    switches = [(3885, 2420, EAST), (3885, 6500, EAST), (4000, 5500, WEST), (6675, 4550, WEST), (6675, 6600, WEST),
                (3885, 7200, EAST), (5300, 6600, NORTH), (left, 5800, WEST)]
    circuits = [
        ("E-LITE-CIRC", (3820, 2420), (2100, 1500), (1200, 2500)),
        ("E-LITE-CIRC", (3820, 6500), (2100, 7300), (2100, 5600), (430, 5800)),
        ("E-LITE-CIRC", (4060, 5500), (4900, 5600), (4900, 2000)), ("E-LITE-CIRC", (5300, 6540), (4900, 5600)),
        ("E-LITE-CIRC", (3820, 7200), (5200, 7700)), ("E-LITE-CIRC", (6740, 4550), (8600, 4300), (8600, 2200)),
        ("E-LITE-CIRC", (6740, 6600), (8600, 7100)), ("E-LITE-CIRC", riser, (4900, 2000)),
        ("E-POWR-CIRC", riser, (3770, 5000), (480, 5700), (480, 8300), (2400, 8515)),
        ("E-POWR-CIRC", riser, (3770, 2800), (2900, 2880)),
        ("E-POWR-CIRC", riser, (4120, 4200), (6380, 6000), (4300, 8515)),
        ("E-POWR-CIRC", riser, (6790, 3000), (7000, 480), (10520, 1700), (10520, 2500)),
        ("E-POWR-CIRC", riser, (10520, 6000), (10520, 7900), (7900, 8515)),
        ("E-COMM-DATA", riser, (10520, 2900)), ("E-COMM-DATA", riser, (10520, 7000))]
    place.circle("E-POWR-PANL", *riser, 70)
    data = [(right, 2900, EAST), (right, 7000, EAST), (left, 5000, WEST)]
    electrical(place, sockets, data, lights, switches, circuits)


def heating(place, start, radiators):
    """Radiators are (x, y, wall, width); a pair of pipes leads from the start to each, first along one axis, then along
    the other."""
    for x, y, wall, width in radiators:
        symbols.radiator(place.at(x, y, wall), width)
        # Where the pair comes up beside the radiator, 90 mm off the wall.
        end_x, end_y = {SOUTH: (x + width, y + 90), NORTH: (x - width, y - 90), EAST: (x - 90, y + width),
                        WEST: (x + 90, y - width)}[wall]
        for layer, shift in (("M-HTNG-SUPP", 0), ("M-HTNG-RETN", 90)):
            first_x, first_y = start[0] + shift, start[1] + shift
            if wall in (EAST, WEST):
                place.path(layer, [(first_x, first_y), (first_x, end_y + shift), (end_x, end_y + shift)])
            else:
                place.path(layer, [(first_x, first_y), (end_x + shift, first_y), (end_x + shift, end_y)])
        place.at(x, y, wall).upright(width / 2, 320).text("M-ANNO-TEXT", 0, -50, 100, f"{round(width * 1.1, -2):g} W",
                                                          centered=True)


def heating_ground(place):
    boiler = (2900, 4150, 3550, 4680)
    place.rect("M-HTNG-EQPM", *boiler)
    place.circle("M-HTNG-EQPM", 3225, 4415, 150)
    place.text("M-ANNO-TEXT", 2350, 3950, 110, "BOILER 12 kW")
    heating(place, (3350, 4350),
            [(1400, SHELL, SOUTH, 800), (8000, SHELL, SOUTH, 1400), (INNER[2], 6100, EAST, 1400),
             (7200, INNER[3], NORTH, 1200), (9800, INNER[3], NORTH, 1500), (SHELL, 7500, WEST, 1500)])
    place.rect("M-EXHS-DUCT", 9975, 1650, 10265, 1950)
    place.path("M-EXHS-DUCT", [(10265, 1720), (11250, 1720)])
    place.path("M-EXHS-DUCT", [(10265, 1880), (11250, 1880)])
    place.circle("M-EXHS-DUCT", 1900, 2150, 75)
    place.text("M-ANNO-TEXT", 9250, 1400, 100, "HOOD DN 150")


def heating_first(place):
    heating(place, (3750, 3250),
            [(1400, SHELL, SOUTH, 800), (4300, SHELL, SOUTH, 900), (8000, SHELL, SOUTH, 1400),
             (INNER[2], 6500, EAST, 1200), (2900, INNER[3], NORTH, 1400), (5600, INNER[3], NORTH, 800),
             (9300, INNER[3], NORTH, 1400), (SHELL, 6700, WEST, 1400)])
    place.circle("M-EXHS-DUCT", 2700, 2850, 75)
    place.path("M-EXHS-DUCT", [(2700, 2925), (2700, 3400), (3800, 3400)])


def frame_ground(place):
    top, low, high = INNER[3], ground.SPINE[0], ground.SPINE[1]
    for grow in (-150, SHELL + 150):
        place.rect("S-FNDN", grow, grow, WIDTH - grow, DEPTH - grow)
    place.line("S-FNDN", SHELL + 150, low - 150, WIDTH - SHELL - 150, low - 150)
    place.line("S-FNDN", SHELL + 150, high + 150, WIDTH - SHELL - 150, high + 150)
    place.rect("S-SLAB", 120, 120, WIDTH - 120, DEPTH - 120)
    for x, y in ((7250, 4820), (9750, 4820), (6587, 4820), (3657, 4820)):
        place.rect("S-COLS", x - 120, y - 120, x + 120, y + 120)
        place.line("S-COLS", x - 120, y - 120, x + 120, y + 120)
        place.line("S-COLS", x - 120, y + 120, x + 120, y - 120)
    beams(place, [(3800, low, 5400, high), (7200, low, 9800, high)])
    beams(place, [(x0 - 200, DEPTH - SHELL, x1 + 200, DEPTH) for x0, x1 in ground.NORTH])
    beams(place, [(x0 - 200, 0, x1 + 200, SHELL) for x0, x1 in ground.SOUTH])
    beams(place, [(WIDTH - SHELL, y0 - 200, WIDTH, y1 + 200) for y0, y1 in ground.EAST])
    joists(place, ((SHELL, low), (high, top)))
    for x, y, text in ((7500, 5080, "HEB 220, S235"), (3800, 5080, "IPE 180"),
                       (700, -130, "STRIP FOOTING 665 x 500, C25/30"), (4100, 7800, "JOISTS 100/220, e = 625")):
        place.text("S-ANNO-TEXT", x, y, 110, text)


def frame_first(place):
    top = INNER[3]
    beams(place, [(x0 - 200, 0, x1 + 200, SHELL) for x0, x1 in first.SOUTH])
    beams(place, [(x0 - 200, DEPTH - SHELL, x1 + 200, DEPTH) for x0, x1 in first.NORTH])
    place.rect("S-SLAB", 120, 120, WIDTH - 120, DEPTH - 120)
    joists(place, ((SHELL, 4820), (4820, top)))
    place.text("S-ANNO-TEXT", 700, -130, 110, "RAFTERS 80/200, e = 625")


def beams(place, boxes):
    for x0, y0, x1, y1 in boxes:
        place.rect("S-BEAM", x0, y0, x1, y1)


def joists(place, spans, spacing=625):
    x = SHELL + spacing
    while x < WIDTH - SHELL:
        for low, high in spans:
            place.line("S-JOIS", x, low, x, high)
        x += spacing
