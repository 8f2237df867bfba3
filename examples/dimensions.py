"""Dimensions for the example drawings: the entity with its definition points, and the block that pictures it.

A picture's text is centred on the line it measures, 0.7 above it, with a height of 2.0. The text middle point
of the entity is one height above the foot of the text, wherever the text is turned to.
"""
import math

from dxf_writer import number, point

TEXT_HEIGHT = 2.0
TEXT_GAP = 0.7
TEXT_FOOT = 2.0
FLAG_OWN_BLOCK = 32
FLAG_TEXT_MOVED = 128


def unit(x, y):
    length = math.hypot(x, y)
    return x / length, y / length


def text_middle(x, y, direction):
    """The text middle point of a text on a line through (x, y) of this direction."""
    return x - TEXT_GAP * direction[1], y + TEXT_GAP * direction[0] + TEXT_FOOT


def shown(text, value):
    measured = number(round(value, 4))
    measured = measured[:-2] if measured.endswith(".0") else measured
    return text.replace("<>", measured) if text else measured


def draw_text(picture, x, y, direction, string):
    middle = TEXT_GAP + TEXT_HEIGHT / 2
    angle = math.degrees(math.atan2(direction[1], direction[0]))
    picture.mtext("0", x - middle * direction[1], y + middle * direction[0], TEXT_HEIGHT, string, 5, angle)


def draw_arrow(picture, x, y, direction):
    """An open arrow whose tip is at (x, y) and points along direction."""
    dx, dy = direction
    for side in (0.25, -0.25):
        picture.line("0", x, y, x - dx - side * dy, y - dy + side * dx)


def linear(space, layer, first, second, through, text="", rotation=None):
    """The distance of two points along the line through `through`; aligned, or rotated when an angle is given.

    Give as second the point that the text's line of reading ends at (the right one, or the upper one).
    """
    if rotation is None:
        along = unit(second[0] - first[0], second[1] - first[1])
    else:
        along = math.cos(math.radians(rotation)), math.sin(math.radians(rotation))
    ends = []
    for x, y in (first, second):
        reach = (x - through[0]) * along[0] + (y - through[1]) * along[1]
        ends.append((through[0] + reach * along[0], through[1] + reach * along[1]))
    (ax, ay), (bx, by) = ends
    mid = (ax + bx) / 2, (ay + by) / 2
    groups = [(100, "AcDbAlignedDimension")] + point(13, *first) + point(14, *second)
    if rotation is not None:
        groups += [(50, rotation), (100, "AcDbRotatedDimension")]
    kind = (1 if rotation is None else 0) + FLAG_OWN_BLOCK + FLAG_TEXT_MOVED
    picture = space.dimension(layer, kind, (bx, by), text_middle(*mid, along), groups, text)
    picture.line("0", *first, ax, ay)
    picture.line("0", *second, bx, by)
    picture.line("0", ax, ay, bx, by)
    draw_arrow(picture, bx, by, along)
    draw_arrow(picture, ax, ay, (-along[0], -along[1]))
    draw_text(picture, *mid, along, shown(text, math.hypot(bx - ax, by - ay)))


def _across(space, layer, marker, kind, start, end, text, place):
    """A radial or diametric dimension from start to end, its text at `place` of the way (0 to 1)."""
    along = unit(start[0] - end[0], start[1] - end[1])
    spot = start[0] + place * (end[0] - start[0]), start[1] + place * (end[1] - start[1])
    groups = [(100, marker)] + point(15, *end) + [(40, 0.0)]
    picture = space.dimension(layer, kind + FLAG_OWN_BLOCK + FLAG_TEXT_MOVED, start, text_middle(*spot, along),
                              groups, text)
    picture.line("0", *start, *end)
    draw_arrow(picture, *end, (-along[0], -along[1]))
    draw_text(picture, *spot, along, shown(text, math.hypot(end[0] - start[0], end[1] - start[1])))
    return picture, along


def radial(space, layer, center, radius, angle, text="R<>", place=0.6):
    """Give an angle that points to the left, so that the text is not upside down."""
    tip = (center[0] + radius * math.cos(math.radians(angle)), center[1] + radius * math.sin(math.radians(angle)))
    _across(space, layer, "AcDbRadialDimension", 4, center, tip, text, place)


def diametric(space, layer, center, radius, angle, text, place=0.5):
    """As radial; the text is given whole, because the measured value is read differently by readers."""
    dx, dy = radius * math.cos(math.radians(angle)), radius * math.sin(math.radians(angle))
    start, tip = (center[0] - dx, center[1] - dy), (center[0] + dx, center[1] + dy)
    picture, along = _across(space, layer, "AcDbDiametricDimension", 3, start, tip, text, place)
    draw_arrow(picture, *start, along)


def angular(space, layer, apex, radius, lines, text=""):
    """The angle between two lines through apex, above it.

    lines: (angle in degrees, from radius, to radius) of each, the right one first. The arc has this radius.
    """
    ends = [[(apex[0] + r * math.cos(math.radians(a)), apex[1] + r * math.sin(math.radians(a))) for r in (near, far)]
            for a, near, far in lines]
    middle = math.radians((lines[0][0] + lines[1][0]) / 2)
    spot = apex[0] + radius * math.cos(middle), apex[1] + radius * math.sin(middle)
    along = math.sin(middle), -math.cos(middle)
    groups = ([(100, "AcDb2LineAngularDimension")] + point(13, *ends[0][0]) + point(14, *ends[0][1])
              + point(15, *ends[1][0]) + point(16, *spot))
    # The kind is written alone, without flags: readers that compare it whole then know it for an angle in degrees.
    picture = space.dimension(layer, 2, ends[1][1], text_middle(*spot, along), groups, text)
    picture.arc("0", *apex, radius, lines[0][0], lines[1][0])
    draw_text(picture, *spot, along, shown(text, lines[1][0] - lines[0][0]) + "\u00b0")
