"""Walls as rectangles with openings: their merged outlines, and the hatching between them."""


class Wall:
    """A straight wall. Openings are (from, to) along it, in the coordinate in which it is long."""

    def __init__(self, x0, y0, x1, y1, *openings):
        self.box = (x0, y0, x1, y1)
        self.along_x = x1 - x0 > y1 - y0
        self.openings = sorted(openings)

    def pieces(self):
        """What is left of the wall between its openings, as rectangles."""
        x0, y0, x1, y1 = self.box
        start, end = (x0, x1) if self.along_x else (y0, y1)
        for low, high in [*self.openings, (end, end)]:
            if low > start:
                yield (start, y0, low, y1) if self.along_x else (x0, start, x1, low)
            start = high


def outlines(walls):
    """The outlines of the walls merged, as closed paths: where walls meet there is no line."""
    boxes = [piece for wall in walls for piece in wall.pieces()]
    xs = sorted({x for box in boxes for x in (box[0], box[2])})
    ys = sorted({y for box in boxes for y in (box[1], box[3])})

    def filled(i, j):
        if not (0 <= i < len(xs) - 1 and 0 <= j < len(ys) - 1):
            return False
        x, y = (xs[i] + xs[i + 1]) / 2, (ys[j] + ys[j + 1]) / 2
        return any(box[0] < x < box[2] and box[1] < y < box[3] for box in boxes)

    # Edges of the filled cells that have no filled neighbour, each with the wall on its left.
    edges = {}
    for i in range(len(xs) - 1):
        for j in range(len(ys) - 1):
            if not filled(i, j):
                continue
            for neighbour, start, end in (((i, j - 1), (i, j), (i + 1, j)), ((i + 1, j), (i + 1, j), (i + 1, j + 1)),
                                          ((i, j + 1), (i + 1, j + 1), (i, j + 1)), ((i - 1, j), (i, j + 1), (i, j))):
                if not filled(*neighbour):
                    edges.setdefault(start, []).append(end)
    paths = []
    while edges:
        first = at = next(iter(edges))
        path = []
        while True:
            path.append((xs[at[0]], ys[at[1]]))
            ends = edges[at]
            following = ends.pop()
            if not ends:
                del edges[at]
            at = following
            if at == first:
                break
        paths.append(corners(path))
    return paths


def corners(path):
    """The closed path without the points that lie on a straight stretch."""
    return [at for index, at in enumerate(path)
            if not (path[index - 1][0] == at[0] == path[(index + 1) % len(path)][0]
                    or path[index - 1][1] == at[1] == path[(index + 1) % len(path)][1])]


def hatching(walls, spacing):
    """Lines at 45 degrees through the walls, as (x0, y0, x1, y1)."""
    for wall in walls:
        for x0, y0, x1, y1 in wall.pieces():
            # A line holds the points of one x - y; start where the rectangle's upper left corner lies.
            difference = -(-(x0 - y1) // spacing) * spacing
            while difference < x1 - y0:
                low, high = max(x0, y0 + difference), min(x1, y1 + difference)
                if low < high:
                    yield low, low - difference, high, high - difference
                difference += spacing
