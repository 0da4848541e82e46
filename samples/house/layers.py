"""The house's linetypes, plot styles and layers, named by discipline as building offices do."""
from drawing import FROZEN, LOCKED, NEW_VIEWPORTS_FROZEN, ON, PLOT, NamedColor, rgb

# Name, description, pattern in millimetres on paper: dashes positive, gaps negative.
LINETYPES = [
    ("Continuous", "Solid line", []),
    ("Hidden", "Hidden __ __ __ __ __ __", [3.0, -1.5]),
    ("Dashed", "Dashed ____  ____  ____", [6.0, -3.0]),
    ("Center", "Center ____ _ ____ _ ____", [16.0, -2.5, 2.5, -2.5]),
    ("Phantom", "Phantom ____ _ _ ____ _ _", [16.0, -2.5, 2.5, -2.5, 2.5, -2.5]),
    ("Dot", "Dot . . . . . . . . . .", [0.0, -2.0]),
    ("Dashdot", "Dash dot __ . __ . __ .", [6.0, -2.0, 0.0, -2.0]),
]

PLOT_STYLES = ["Normal", "Black", "Screened 50", "Screened 25", "Presentation", "Heavy outline"]

SANDSTONE = NamedColor(rgb(168, 156, 140), "Sandstone", "Garden Colors")
POND_BLUE = NamedColor(rgb(70, 130, 180), "Pond Blue", "Garden Colors")

SHOWN = ON | PLOT
OFF = PLOT
FREEZE = ON | PLOT | FROZEN
LOCK = ON | PLOT | LOCKED
NO_PLOT = ON
SHEET = ON | PLOT | NEW_VIEWPORTS_FROZEN

# Name, colour (palette index or true colour), linetype, lineweight, plot style, flags, description.
LAYERS = [
    ("Base", 7, "Continuous", -3, "Normal", SHOWN, ""),
    ("A-WALL", 7, "Continuous", 70, "Heavy outline", SHOWN, "Exterior walls"),
    ("A-WALL-INTR", 7, "Continuous", 50, "Heavy outline", SHOWN, "Interior walls"),
    ("A-WALL-PATT", 8, "Continuous", 13, "Screened 50", SHOWN, "Wall hatching"),
    ("A-WALL-DEMO", 1, "Dashed", 35, "Normal", OFF, "Walls to be taken down"),
    ("A-DOOR", 30, "Continuous", 25, "Normal", SHOWN, "Doors and their swings"),
    ("A-DOOR-IDEN", 30, "Continuous", 18, "Normal", FREEZE, "Door numbers"),
    ("A-GLAZ", 5, "Continuous", 25, "Normal", SHOWN, "Windows"),
    ("A-GLAZ-SILL", 5, "Continuous", 13, "Normal", SHOWN, "Window sills"),
    ("A-GLAZ-IDEN", 5, "Continuous", 18, "Normal", FREEZE, "Window numbers"),
    ("A-FLOR-STRS", 6, "Continuous", 25, "Normal", SHOWN, "Stairs"),
    ("A-FLOR-TILE", 9, "Continuous", 13, "Screened 25", SHOWN, "Floor tiles"),
    ("A-FLOR-BORD", 9, "Continuous", 13, "Screened 25", OFF, "Floor boards"),
    ("A-FURN", 40, "Continuous", 18, "Normal", SHOWN, "Furniture"),
    ("A-FURN-SEAT", 40, "Continuous", 18, "Normal", SHOWN, "Seats"),
    ("A-CASE", 34, "Continuous", 25, "Normal", SHOWN, "Kitchen cupboards and wardrobes"),
    ("A-EQPM", 34, "Continuous", 18, "Normal", SHOWN, "Appliances"),
    ("A-ROOF", 11, "Hidden", 25, "Normal", SHOWN, "Edge of the roof above"),
    ("A-ROOF-RIDG", 11, "Center", 18, "Normal", FREEZE, "Ridge and hips"),
    ("A-AREA-IDEN", 3, "Continuous", 25, "Normal", SHOWN, "Room names and areas"),
    ("S-GRID", 8, "Center", 18, "Screened 50", LOCK, "Building grid"),
    ("S-GRID-IDEN", 8, "Continuous", 18, "Screened 50", LOCK, "Grid bubbles"),
    ("S-COLS", 1, "Continuous", 50, "Black", OFF, "Columns"),
    ("S-BEAM", 1, "Dashed", 35, "Black", OFF, "Beams above"),
    ("S-JOIS", 12, "Center", 18, "Black", FREEZE, "Joists"),
    ("S-FNDN", 14, "Hidden", 35, "Black", FREEZE, "Strip foundations"),
    ("S-SLAB", 14, "Phantom", 25, "Black", FREEZE, "Slab edges"),
    ("S-ANNO-TEXT", 1, "Continuous", 18, "Black", OFF, "Structural notes"),
    ("P-FIXT", 4, "Continuous", 25, "Normal", SHOWN, "Sanitary fixtures"),
    ("P-DOMW-COLD", 150, "Continuous", 35, "Normal", OFF, "Cold water"),
    ("P-DOMW-HOTW", 10, "Continuous", 35, "Normal", OFF, "Hot water"),
    ("P-SANR-PIPE", 52, "Hidden", 50, "Normal", OFF, "Waste pipes"),
    ("P-SANR-RISR", 52, "Continuous", 35, "Normal", OFF, "Stacks and vents"),
    ("P-STRM-PIPE", 132, "Dashdot", 35, "Normal", FREEZE, "Rain water"),
    ("P-ANNO-TEXT", 150, "Continuous", 18, "Normal", OFF, "Pipe sizes"),
    ("E-POWR-WALL", 6, "Continuous", 25, "Normal", OFF, "Sockets"),
    ("E-POWR-CIRC", 6, "Dashed", 18, "Normal", OFF, "Socket circuits"),
    ("E-POWR-PANL", 6, "Continuous", 50, "Normal", OFF, "Distribution board"),
    ("E-LITE-CLNG", 2, "Continuous", 25, "Normal", OFF, "Ceiling lights"),
    ("E-LITE-SWCH", 2, "Continuous", 25, "Normal", OFF, "Switches"),
    ("E-LITE-CIRC", 2, "Hidden", 18, "Normal", OFF, "Lighting circuits"),
    ("E-COMM-DATA", 90, "Dot", 18, "Normal", FREEZE, "Data outlets"),
    ("E-ANNO-TEXT", 6, "Continuous", 18, "Normal", OFF, "Circuit numbers"),
    ("M-HTNG-EQPM", 20, "Continuous", 35, "Normal", OFF, "Boiler and radiators"),
    ("M-HTNG-SUPP", 10, "Continuous", 25, "Normal", FREEZE, "Heating, supply"),
    ("M-HTNG-RETN", 140, "Dashed", 25, "Normal", FREEZE, "Heating, return"),
    ("M-EXHS-DUCT", 94, "Continuous", 25, "Normal", FREEZE, "Exhaust air"),
    ("M-ANNO-TEXT", 20, "Continuous", 18, "Normal", FREEZE, "Heating notes"),
    ("L-HARD-PATT", SANDSTONE, "Continuous", 13, "Screened 25", SHOWN, "Terrace paving"),
    ("L-HARD-EDGE", rgb(140, 126, 108), "Continuous", 35, "Normal", SHOWN, "Terrace and path edges"),
    ("L-PLNT-BEDS", rgb(92, 140, 74), "Continuous", 25, "Normal", SHOWN, "Planting beds"),
    ("L-PLNT-SHRB", rgb(64, 120, 58), "Continuous", 18, "Normal", SHOWN, "Shrubs"),
    ("L-WATR", POND_BLUE, "Continuous", 25, "Normal", SHOWN, "Pond"),
    ("G-ANNO-DIMS", 3, "Continuous", 18, "Black", SHOWN, "Dimensions"),
    ("G-ANNO-TEXT", 7, "Continuous", 25, "Black", SHOWN, "Titles of drawings"),
    ("G-ANNO-NOTE", 7, "Continuous", 18, "Black", FREEZE, "General notes"),
    ("G-ANNO-SYMB", 7, "Continuous", 25, "Black", SHOWN, "North arrow and section marks"),
    ("G-ANNO-TTLB", 7, "Continuous", 50, "Black", SHEET, "Title block"),
    ("G-ANNO-LEGN", 7, "Continuous", 18, "Black", SHEET, "Legend of the sheet"),
    ("G-VPRT", 8, "Continuous", 13, "Normal", NO_PLOT, "Viewport frames"),
    ("X-SITE", 8, "Continuous", 18, "Screened 50", SHOWN, "The attached site plan"),
]
