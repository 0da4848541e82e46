"""The house's layer states: what each plan shows of the one model."""
from drawing import NamedColor, rgb

HIDE = {"on": False}
SHOW = {"on": True, "frozen": False}
PALE = rgb(190, 190, 190)
WALNUT = NamedColor(rgb(120, 84, 52), "Walnut")
# The building as a quiet background of a plan of services.
BACKGROUND = [("*", HIDE), ("Base", SHOW), ("A-WALL*", SHOW | {"color": PALE, "weight": 25, "style": "Screened 50"}),
              ("A-WALL-PATT", HIDE), ("A-WALL-DEMO", HIDE), ("A-DOOR", SHOW | {"color": PALE, "weight": 13}),
              ("A-GLAZ", SHOW | {"color": PALE, "weight": 13}), ("A-FLOR-STRS", SHOW | {"color": PALE, "weight": 13}),
              ("A-AREA-IDEN", SHOW | {"color": 8, "weight": 13}), ("G-ANNO-TEXT", SHOW), ("G-ANNO-SYMB", SHOW),
              ("G-ANNO-TTLB", SHOW), ("G-VPRT", SHOW)]
VISIBILITY = ("on", "frozen")
LOOK = ("color", "linetype", "weight", "style")


def add_states(drawing):
    state = drawing.state
    state("Working drawing", "The model as it is drawn in, all of its layers unlocked but the grid",
          ("on", "frozen", "locked", "plot", "newvp", *LOOK))
    state("Presentation", "For the client: furnished, planted, in soft colours, without dimensions and grid",
          ("on", "frozen", "plot", *LOOK),
          [("G-ANNO-DIMS", HIDE), ("S-*", HIDE), ("A-WALL-PATT", SHOW | {"color": rgb(120, 110, 100)}),
           ("A-WALL*", {"color": rgb(60, 56, 52), "style": "Presentation"}), ("A-WALL-DEMO", HIDE),
           ("A-F*", {"style": "Presentation"}), ("A-FLOR-BORD", SHOW | {"color": rgb(222, 202, 170)}),
           ("A-FURN*", {"color": rgb(150, 110, 70)}), ("A-CASE", {"color": WALNUT}),
           ("A-GLAZ*", {"color": rgb(90, 150, 190)}), ("A-GLAZ-IDEN", HIDE), ("L-*", SHOW | {"style": "Presentation"}),
           ("P-FIXT", {"color": rgb(110, 150, 160)}), ("A-AREA-IDEN", {"color": rgb(90, 90, 90)})])
    state("Plumbing plan", "Water, waste and rain pipes over a pale building",
          (*VISIBILITY, "plot", *LOOK),
          [*BACKGROUND, ("P-*", SHOW), ("A-EQPM", SHOW | {"color": PALE}), ("P-SANR-PIPE", {"weight": 70}),
           ("P-FIXT", {"color": 150, "weight": 35})])
    state("Electrical plan", "Sockets, lights, switches and their circuits over a pale building",
          (*VISIBILITY, "plot", *LOOK),
          [*BACKGROUND, ("E-*", SHOW), ("A-FURN*", SHOW | {"color": PALE, "weight": 13}),
           ("E-POWR-CIRC", {"weight": 25}), ("E-LITE-CIRC", {"weight": 25})])
    state("Heating plan", "Boiler, radiators, pipes and exhaust air over a pale building",
          (*VISIBILITY, *LOOK), [*BACKGROUND, ("M-*", SHOW), ("M-HTNG-SUPP", {"weight": 50}),
                                 ("M-HTNG-RETN", {"weight": 50})])
    # Saved before there were data outlets and exhaust ducts: it doesn't hold their layers.
    state("Structural frame", "Foundations, columns, beams and joists; as tendered, before the services were drawn",
          (*VISIBILITY, "locked", "color", "weight"),
          [("*", HIDE), ("Base", SHOW), ("A-WALL*", SHOW | {"color": PALE, "weight": 35}), ("A-WALL-PATT", HIDE),
           ("A-WALL-DEMO", HIDE), ("S-*", SHOW | {"locked": False}), ("G-ANNO-DIMS", SHOW), ("G-ANNO-TEXT", SHOW)],
          without=("E-COMM-DATA", "M-EXHS-DUCT", "M-ANNO-TEXT", "E-ANNO-TEXT", "X-SITE"))
    state("Demolition", "What stands, and in red what is taken down first", (*VISIBILITY, "color", "linetype"),
          [("*", HIDE), ("Base", SHOW), ("A-WALL*", SHOW | {"color": 8}), ("A-WALL-DEMO", {"color": 1}),
           ("A-DOOR", SHOW | {"color": 8}), ("A-GLAZ", SHOW | {"color": 8}), ("A-FLOR-STRS", SHOW | {"color": 8}),
           ("G-ANNO-NOTE", SHOW), ("G-ANNO-TEXT", SHOW)])
    state("Furniture layout", "For the talk about furniture; restores visibility only", VISIBILITY,
          [("G-ANNO-DIMS", HIDE), ("S-*", HIDE), ("L-*", HIDE), ("A-ROOF*", HIDE), ("A-FLOR-TILE", HIDE)])
    state("Dimensioned plan", "For the builder: walls, openings, dimensions, numbers of doors and windows",
          (*VISIBILITY, "locked", "plot", "weight"),
          [("A-FURN*", HIDE), ("A-FLOR-TILE", HIDE), ("L-*", HIDE), ("*-IDEN", SHOW), ("G-ANNO-NOTE", SHOW),
           ("A-WALL*", {"locked": True}), ("A-WALL-DEMO", HIDE), ("G-ANNO-DIMS", {"weight": 25})])
    state("Permit application", "Black lines on white, as the building office wants it", (*LOOK, "plot"),
          [("*", {"color": 7, "style": "Black"}), ("A-FURN*", {"plot": False}), ("A-WALL*", {"weight": 70}),
           ("A-WALL-PATT", {"weight": 13}), ("L-*", {"style": "Screened 50"})])
    state("Sheet - furnished", "Viewport of the ground floor: furniture shown, planting frozen in it",
          ("on", "vpfrozen", "color", "weight"),
          [("L-PLNT*", {"vpfrozen": True}), ("G-ANNO-DIMS", {"vpfrozen": True}), ("A-FURN*", {"color": 34})],
          viewport=True)
    state("Sheet - services", "Viewport of either floor: pipes, circuits and radiators, no furniture",
          ("on", "frozen", "vpfrozen", *LOOK),
          [*BACKGROUND, ("P-*", SHOW), ("E-*", SHOW), ("M-*", SHOW), ("A-FURN*", {"vpfrozen": True}),
           ("A-CASE", {"vpfrozen": True}), ("L-*", {"vpfrozen": True}), ("G-ANNO-DIMS", {"vpfrozen": True})],
          viewport=True)
    drawing.last_restored = "Working drawing"
