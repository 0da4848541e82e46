"""A drawing being put together, and its text: JSON in the shape of the drawing schema, one record a line.

Geometry is drawn through a Place, which shifts, turns and mirrors, so that symbols are written once around their own
origin. Lengths are millimetres, angles degrees.
"""
import fnmatch
import json
import math
from typing import NamedTuple, Optional

ON, FROZEN, LOCKED, PLOT, NEW_VIEWPORTS_FROZEN, VIEWPORT_FROZEN = 1, 2, 4, 8, 16, 32
FLAGS = {"on": ON, "frozen": FROZEN, "locked": LOCKED, "plot": PLOT, "newvp": NEW_VIEWPORTS_FROZEN,
         "vpfrozen": VIEWPORT_FROZEN}
# The bits of a state's mask.
MASK = {"on": 1, "frozen": 2, "locked": 4, "plot": 8, "newvp": 16, "color": 32, "linetype": 64, "weight": 128,
        "style": 256, "vpfrozen": 512}


def rgb(red, green, blue):
    """A true colour in the form of the colour columns."""
    return 0xC2000000 | red << 16 | green << 8 | blue


class NamedColor(NamedTuple):
    """A true colour with a name, in a book of colours or on its own."""
    value: int
    name: str
    book: Optional[str] = None


def number(value):
    value = round(value, 4)
    return int(value) if value == int(value) else value


def point(x, y):
    return {"x": number(x), "y": number(y)}


class Place:
    """Draws into a list of entities, around an origin, turned by a multiple of any angle, mirrored in x if asked."""

    def __init__(self, drawing, entities, x=0.0, y=0.0, turn=0.0, mirror=False):
        self.drawing, self.entities = drawing, entities
        self.x, self.y, self.turn, self.mirror = x, y, turn, mirror
        self.cos, self.sin = math.cos(math.radians(turn)), math.sin(math.radians(turn))

    def at(self, x, y, turn=0.0, mirror=False):
        """A place within this one."""
        where = self.map(x, y)
        turned = self.turn + (-turn if self.mirror else turn)
        return Place(self.drawing, self.entities, *where, turned, self.mirror != mirror)

    def upright(self, x, y):
        """A place within this one that is neither turned nor mirrored, for texts."""
        return Place(self.drawing, self.entities, *self.map(x, y))

    def map(self, x, y):
        if self.mirror:
            x = -x
        return self.x + x * self.cos - y * self.sin, self.y + x * self.sin + y * self.cos

    def add(self, layer, kind, geometry, **own):
        self.entities.append({"layer": self.drawing.layer_index(layer), **own, "geometry_type": kind,
                              "geometry": geometry})

    def line(self, layer, x0, y0, x1, y1, **own):
        self.add(layer, "Line", {"from": point(*self.map(x0, y0)), "to": point(*self.map(x1, y1))}, **own)

    def path(self, layer, points, closed=False, **own):
        geometry = {"points": [point(*self.map(x, y)) for x, y in points]}
        self.add(layer, "Polyline", geometry | ({"closed": True} if closed else {}), **own)

    def rect(self, layer, x0, y0, x1, y1, **own):
        self.path(layer, [(x0, y0), (x1, y0), (x1, y1), (x0, y1)], True, **own)

    def circle(self, layer, x, y, radius, **own):
        self.add(layer, "Circle", {"center": point(*self.map(x, y)), "radius": number(radius)}, **own)

    def arc(self, layer, x, y, radius, start, end, **own):
        if self.mirror:
            start, end = 180 - end, 180 - start
        angles = [number(math.radians((angle + self.turn) % 360)) for angle in (start, end)]
        self.add(layer, "Arc", {"center": point(*self.map(x, y)), "radius": number(radius), "start_angle": angles[0],
                                "end_angle": angles[1]}, **own)

    def text(self, layer, x, y, height, text, turn=0.0, centered=False, **own):
        """A line of text; it is never mirrored. Centred by the usual width of a letter."""
        angle = self.turn + turn
        start_x, start_y = self.map(x, y)
        if centered:
            half = 0.32 * height * len(text)
            start_x -= half * math.cos(math.radians(angle))
            start_y -= half * math.sin(math.radians(angle))
        geometry = {"position": point(start_x, start_y), "height": number(height)}
        if angle % 360:
            geometry["rotation"] = number(math.radians(angle % 360))
        self.add(layer, "Text", geometry | {"text": text}, **own)


class Drawing:
    """Layers, states, layouts and entities. A layer is a row: name, colour, linetype, weight, style, flags, text."""

    def __init__(self, linetypes, plot_styles, layers):
        self.handle = 0
        self.style_names = [""] + [row[0] for row in linetypes] + list(plot_styles)
        self.linetypes = [{"name": name, "handle": self.next_handle(), "description": text, "pattern": pattern}
                          for name, text, pattern in linetypes]
        self.plot_styles = [{"name": name, "handle": self.next_handle()} for name in plot_styles]
        self.rows = {row[0]: dict(zip(("color", "linetype", "weight", "style", "flags"), row[1:6])) for row in layers}
        self.layers = [{"name": row[0], "handle": self.next_handle(), "description": row[6]} for row in layers]
        self.layer_sets = [list(self.rows)]
        self.states, self.entities, self.layouts, self.references = [], [], [], []
        self.named_colors = []
        self.applications, self.extended_data = [], []
        self.last_restored = None
        self.model = Place(self, self.entities)

    def next_handle(self):
        self.handle += 1
        return self.handle

    def layer_index(self, name):
        return self.layer_sets[0].index(name)

    def color(self, color):
        """A colour as the columns keep it: a named one by its place in the drawing's table."""
        if not isinstance(color, NamedColor):
            return color
        if color not in self.named_colors:
            self.named_colors.append(color)
        return 0x40000000 + self.named_colors.index(color)

    def columns(self, rows):
        style = self.style_names.index
        return {"flags": [row["flags"] for row in rows], "colors": [self.color(row["color"]) for row in rows],
                "linetypes": [style(row["linetype"]) for row in rows],
                "line_weights": [row["weight"] for row in rows], "plot_styles": [style(row["style"]) for row in rows]}

    def layer_set(self, without):
        """The index of the set of all layers but those of the patterns."""
        names = [name for name in self.rows if not any(fnmatch.fnmatchcase(name, pattern) for pattern in without)]
        if names not in self.layer_sets:
            self.layer_sets.append(names)
        return self.layer_sets.index(names)

    def state(self, name, description, mask, rules=(), without=(), current="Base", viewport=False):
        """A state: the layers as they stand, changed by the rules (pattern of names, changes) in their order."""
        layer_set = self.layer_set(without)
        names = self.layer_sets[layer_set]
        rows = []
        for layer in names:
            row = dict(self.rows[layer])
            for pattern, changes in rules:
                if not fnmatch.fnmatchcase(layer, pattern):
                    continue
                for key, value in changes.items():
                    if key in FLAGS:
                        row["flags"] = row["flags"] & ~FLAGS[key] | (FLAGS[key] if value else 0)
                    else:
                        row[key] = value
            rows.append(row)
        record = {"name": name, "description": description, "handle": self.next_handle(),
                  "mask": sum(MASK[key] for key in mask), "layer_set": layer_set, "columns": self.columns(rows),
                  "current_layer": names.index(current)}
        self.states.append(record | ({"has_viewport_data": True} if viewport else {}))

    def layout(self, name, width, height):
        """A new sheet and the place that draws on it; viewports are added to its record."""
        layout = {"name": name, "paper_width": width, "paper_height": height, "viewports": [], "entities": []}
        self.layouts.append(layout)
        return layout, Place(self, layout["entities"])

    def text(self):
        """The whole drawing as JSON."""
        columns = self.columns(self.rows.values())
        colors = [{key: value for key, value in color._asdict().items() if value} for color in self.named_colors]
        parts = {
            "version": 2 if self.named_colors else 1, "style_names": self.style_names, "linetypes": self.linetypes,
            "plot_styles": self.plot_styles, "layers": self.layers, "columns": columns,
            "current_layer": 0, "layer_sets": [{"names": names} for names in self.layer_sets], "states": self.states,
            "last_restored": self.last_restored, "entities": self.entities, "layouts": self.layouts,
            "references": self.references, "applications": self.applications or None,
            "extended_data": self.extended_data or None, "named_colors": colors or None,
            # The counter that the next object's handle is taken from.
            "next_handle": self.handle + 1,
        }
        lines = []
        for key, value in parts.items():
            if value is None:
                continue
            if isinstance(value, list) and value and isinstance(value[0], dict):
                records = ",\n".join("    " + json.dumps(record, ensure_ascii=False) for record in value)
                lines.append(f'  "{key}": [\n{records}\n  ]')
            else:
                lines.append(f'  "{key}": {json.dumps(value, ensure_ascii=False)}')
        return "{\n" + ",\n".join(lines) + "\n}\n"
