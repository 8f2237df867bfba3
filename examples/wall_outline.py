"""Plans' walls from rectangles: the outlines of their union, and a hatch that fills it.

Rectangles are (left, bottom, right, top). Walls are laid over one another, holes are then cut out.
"""


def _cells(walls, holes):
    """The union as a grid: the cut positions in x and y, and which (column, row) cells are filled."""
    every = walls + holes
    xs = sorted({x for rect in every for x in (rect[0], rect[2])})
    ys = sorted({y for rect in every for y in (rect[1], rect[3])})

    def inside(rects, x, y):
        return any(left < x < right and bottom < y < top for left, bottom, right, top in rects)

    filled = set()
    for column in range(len(xs) - 1):
        for row in range(len(ys) - 1):
            x, y = (xs[column] + xs[column + 1]) / 2, (ys[row] + ys[row + 1]) / 2
            if inside(walls, x, y) and not inside(holes, x, y):
                filled.add((column, row))
    return xs, ys, filled


def _edges(filled):
    """The edges of the filled cells that no neighbour shares, start -> ends, with the filled side on the left."""
    edges = {}
    for column, row in sorted(filled):
        for neighbour, start, end in (((column, row - 1), (column, row), (column + 1, row)),
                                      ((column + 1, row), (column + 1, row), (column + 1, row + 1)),
                                      ((column, row + 1), (column + 1, row + 1), (column, row + 1)),
                                      ((column - 1, row), (column, row + 1), (column, row))):
            if neighbour not in filled:
                edges.setdefault(start, []).append(end)
    return edges


def _corners(loop):
    """The loop without the points at which it goes straight on."""
    kept = []
    for before, here, after in zip(loop[-1:] + loop[:-1], loop, loop[1:] + loop[:1]):
        if (before[0] == here[0]) != (here[0] == after[0]):
            kept.append(here)
    return kept


def outlines(walls, holes):
    """The closed outlines of the walls without the holes, each a list of corner points."""
    xs, ys, filled = _cells(walls, holes)
    edges = _edges(filled)
    loops = []
    for first in sorted(edges):
        while edges[first]:
            loop, here = [], first
            while edges[here]:
                loop.append(here)
                here = edges[here].pop()
            loops.append([(xs[column], ys[row]) for column, row in _corners(loop)])
    return loops


def hatch_lines(walls, holes, spacing):
    """Lines (x1, y1, x2, y2) rising at 45 degrees that fill the walls without the holes."""
    xs, ys, filled = _cells(walls, holes)
    spans = {}
    for column, row in filled:
        left, right, bottom, top = xs[column], xs[column + 1], ys[row], ys[row + 1]
        first = int((bottom - right) // spacing) + 1
        last = int((top - left) // spacing)
        for index in range(first, last + 1):
            shift = index * spacing  # the line y = x + shift
            start, end = max(left, bottom - shift), min(right, top - shift)
            if end - start > 1e-9:
                spans.setdefault(index, []).append((start, end))
    lines = []
    for index in sorted(spans):
        for start, end in _joined(sorted(spans[index])):
            lines.append((start, start + index * spacing, end, end + index * spacing))
    return lines


def _joined(spans):
    """Sorted spans, with those that touch made one."""
    joined = []
    for start, end in spans:
        if joined and start - joined[-1][1] < 1e-9:
            joined[-1] = (joined[-1][0], max(joined[-1][1], end))
        else:
            joined.append((start, end))
    return joined
