"""A flange in two views and a pictorial one, 1 : 1, one unit to a millimetre.

The front view is around FRONT, the section beside it at the same height; the pictorial view looks at the
flange from the upper right. The title block is written in several scripts.
"""
import math

import dimensions
from dxf_writer import Drawing

FRONT = (56.0, 98.0)
SECTION_LEFT = 121.0  # x of the face of the flange in the section
RIM, BOLTS, BOLT, HUB, BORE = 42.0, 32.0, 4.0, 20.0, 11.0
PLATE, LENGTH = 12.0, 34.0  # thickness of the plate, and length with the hub
KEY_WIDTH, KEY_TOP = 6.0, 13.8

# name, colour number, line type, lineweight in hundredths of a millimetre
LAYERS = [
    ("0", 9, "Continuous", 18), ("OUTLINE", 150, "Continuous", 50), ("THIN", 150, "Continuous", 25),
    ("CENTER", 30, "CENTER", 18), ("HIDDEN", 92, "HIDDEN", 25), ("HATCH", 132, "Continuous", 13),
    ("CUT", 10, "PHANTOM", 35), ("PICTORIAL", 200, "Continuous", 35), ("PICTORIAL-HIDDEN", 203, "HIDDEN", 18),
    ("DIM", 94, "Continuous", 13), ("NOTE", 30, "Continuous", 18), ("SHEET", 9, "Continuous", 35),
    ("SHEET-THIN", 9, "Continuous", 18),
]


def define_blocks(part):
    bolt = part.block("BOLT-HOLE")
    bolt.circle("OUTLINE", 0, 0, BOLT)
    bolt.arc("THIN", 0, 0, BOLT + 1.2, 15, 285)
    bolt.line("CENTER", -BOLT - 3, 0, BOLT + 3, 0, ltype="DASHDOT")

    mark = part.block("CUT-MARK")
    mark.line("CUT", 0, 0, 0, 7, ltype="Continuous", weight=70)
    mark.line("CUT", 0, 5, 6, 5, ltype="Continuous", weight=25)
    mark.polyline("CUT", [(6, 5), (3.6, 5.7), (3.6, 4.3)], closed=True, ltype="Continuous", weight=25)

    surface = part.block("SURFACE")
    surface.polyline("NOTE", [(-1.6, 2.8), (0, 0), (3.4, 5.9), (7, 5.9)])
    surface.line("NOTE", -1.6, 2.8, 1.6, 2.8)

    note = part.block("SURFACE-1.6")
    note.insert("NOTE", "SURFACE", 0, 0)
    note.text("NOTE", 3.6, 8.6, 1.8, "1.6")


def draw_front(space):
    x, y = FRONT
    space.circle("OUTLINE", x, y, RIM)
    space.circle("THIN", x, y, RIM - 1.5)
    space.circle("CENTER", x, y, BOLTS)
    space.circle("OUTLINE", x, y, HUB)
    space.circle("HIDDEN", x, y, HUB + 3)
    side = math.degrees(math.asin(KEY_WIDTH / 2 / BORE))
    space.arc("OUTLINE", x, y, BORE, 90 + side, 90 - side)
    foot = math.sqrt(BORE * BORE - KEY_WIDTH * KEY_WIDTH / 4)
    half = KEY_WIDTH / 2
    space.polyline("OUTLINE", [(x - half, y + foot), (x - half, y + KEY_TOP), (x + half, y + KEY_TOP),
                               (x + half, y + foot)])
    for step in range(8):
        angle = 22.5 + 45 * step
        space.insert("OUTLINE", "BOLT-HOLE", x + BOLTS * math.cos(math.radians(angle)),
                     y + BOLTS * math.sin(math.radians(angle)), angle)
    space.line("CENTER", x - RIM - 5, y, x + RIM + 5, y)
    space.line("CENTER", x, y - RIM - 5, x, y + RIM + 5)
    space.line("CUT", x, y + RIM + 4, x, y - RIM - 4, weight=13)
    for top, flip in ((y + RIM + 2, 1.0), (y - RIM - 2, -1.0)):
        space.insert("CUT", "CUT-MARK", x, top, 0.0, 1.0, flip)
        space.text("CUT", x + 7.5, top + (6.2 if flip > 0 else -3.8), 3, "A", 0, 3)


def section_profiles():
    """The cut faces above and below the bore, as closed lists of points seen from the face and the axis.

    The bolt holes are turned into the plane of the cut.
    """
    upper_hole, lower_hole = BOLTS + BOLT, BOLTS - BOLT
    plate_outer = [(0, upper_hole), (PLATE, upper_hole), (PLATE, RIM - 1.5), (PLATE - 1.5, RIM),
                   (1.5, RIM), (0, RIM - 1.5)]
    hub = [(0, BORE), (LENGTH, BORE), (LENGTH, HUB - 2), (LENGTH - 2, HUB), (PLATE, HUB + 3), (PLATE, lower_hole),
           (0, lower_hole)]
    keyed = [(0, KEY_TOP), (LENGTH, KEY_TOP)] + hub[2:]
    return [plate_outer, keyed], [plate_outer, hub]


def crossings(polygon, shift):
    """The stretches, as x ranges, of the line y = x + shift inside the polygon."""
    hits = []
    for (x1, y1), (x2, y2) in zip(polygon, polygon[1:] + polygon[:1]):
        before, after = y1 - x1 - shift, y2 - x2 - shift
        if (before < 0) != (after < 0):
            hits.append(x1 + (x2 - x1) * before / (before - after))
    hits.sort()
    return list(zip(hits[::2], hits[1::2]))


def draw_hatched(space, polygon, spacing):
    space.polyline("OUTLINE", polygon, closed=True)
    shifts = [y - x for x, y in polygon]
    for index in range(math.ceil(min(shifts) / spacing), math.ceil(max(shifts) / spacing)):
        # a hair beside the round value, so that no line runs through a corner
        shift = index * spacing + 0.01
        for start, end in crossings(polygon, shift):
            space.line("HATCH", start, start + shift, end, end + shift)


def draw_section(space):
    y = FRONT[1]
    above, below = section_profiles()
    for faces, sign in ((above, 1), (below, -1)):
        for face in faces:
            draw_hatched(space, [(SECTION_LEFT + px, y + sign * py) for px, py in face], 2.0)
    for radius in (KEY_TOP, -BORE):
        for x in (0, LENGTH):
            space.line("THIN", SECTION_LEFT + x, y, SECTION_LEFT + x, y + radius)
    space.line("THIN", SECTION_LEFT, y + BORE, SECTION_LEFT + LENGTH, y + BORE)
    for radius in (BOLTS, -BOLTS):
        space.line("CENTER", SECTION_LEFT - 4, y + radius, SECTION_LEFT + PLATE + 4, y + radius)
    space.line("CENTER", SECTION_LEFT - 6, y, SECTION_LEFT + LENGTH + 8, y)
    space.text("CUT", SECTION_LEFT + 17, y + RIM + 10.5, 3, "A - A", 1, 3)
    space.insert("NOTE", "SURFACE-1.6", SECTION_LEFT + LENGTH - 8, y + HUB + 0.4)


class Pictorial:
    """Circles in planes across one axis, seen from aside: ellipses whose long axis is turned."""

    def __init__(self, space, x, y, angle, ratio):
        self.space, self.origin, self.ratio = space, (x, y), ratio
        turned = math.radians(angle)
        self.long = math.cos(turned), math.sin(turned)
        self.depth = self.long[1], -self.long[0]  # where the axis goes, away from the viewer

    def center(self, back, right=0.0, up=0.0):
        """The place of a point: back along the axis, right and up in the plane of the circle."""
        depth = back * math.sqrt(1 - self.ratio * self.ratio)
        return (self.origin[0] + depth * self.depth[0] + right * self.long[0] - up * self.ratio * self.long[1],
                self.origin[1] + depth * self.depth[1] + right * self.long[1] + up * self.ratio * self.long[0])

    def ring(self, layer, back, radius, start=0.0, end=2.0, right=0.0, up=0.0, **style):
        """start and end in half turns."""
        x, y = self.center(back, right, up)
        self.space.ellipse(layer, x, y, (radius * self.long[0], radius * self.long[1]), self.ratio,
                           start * math.pi, end * math.pi, **style)

    def hides(self, radius, back, right, up):
        """Whether a disc of this radius at 0 hides the point that lies back units further away."""
        shift = back * math.sqrt(1 - self.ratio * self.ratio) / self.ratio
        return math.hypot(right, up - shift) < radius


def draw_hub(view, plate, hub, foot, bore):
    layer = "PICTORIAL"
    view.ring(layer, 0, hub)
    view.ring(layer, 0, bore)
    # the far end of the bore shows as far as the near end lets it
    depth = 6.0
    shift = depth * math.sqrt(1 - view.ratio * view.ratio) / view.ratio
    start = round(math.asin(shift / 2 / bore) / math.pi, 3)
    view.ring(layer, depth, bore, start, 1 - start, weight=18)
    view.ring(layer, plate, foot, 1.0, 2.0)
    for side in (-1, 1):
        view.space.line(layer, *view.center(0, side * hub), *view.center(plate, side * foot))


def draw_pictorial(space):
    view = Pictorial(space, 200, 108, 35, 0.78)
    scale = 0.62
    rim, bolts, hub = RIM * scale, BOLTS * scale, HUB * scale
    front, back = (LENGTH - PLATE) * scale, LENGTH * scale
    draw_hub(view, front, hub, hub + 3 * scale, BORE * scale)
    view.ring("PICTORIAL", front, rim)
    view.ring("PICTORIAL", back, rim, 1.0, 2.0)
    for side in (-1, 1):
        space.line("PICTORIAL", *view.center(front, side * rim), *view.center(back, side * rim))
    view.ring("CENTER", front, bolts)
    for step in range(8):
        angle = math.radians(22.5 + 45 * step)
        right, up = bolts * math.cos(angle), bolts * math.sin(angle)
        hidden = view.hides(hub, front, right, up)
        view.ring("PICTORIAL-HIDDEN" if hidden else "PICTORIAL", front, BOLT * scale, right=right, up=up)
    space.line("CENTER", *view.center(-12), *view.center(back + 14))


def draw_dimensions(space):
    y = FRONT[1]
    left, right = SECTION_LEFT, SECTION_LEFT + LENGTH
    dimensions.radial(space, "DIM", FRONT, RIM, 191.25, "R<>", 0.72)
    dimensions.radial(space, "DIM", FRONT, BORE, 225, "R<>", 0.55)
    dimensions.diametric(space, "DIM", FRONT, BOLTS, 135, "Ø64", 0.93)
    dimensions.linear(space, "DIM", (right, y - HUB + 2), (right, y + HUB - 2), (right + 15, 0), "Ø36 h7", 90.0)
    dimensions.angular(space, "DIM", FRONT, RIM + 13, [(67.5, BOLTS + 8, RIM + 15), (112.5, BOLTS + 8, RIM + 15)])
    dimensions.linear(space, "DIM", (left, y - RIM + 1.5), (left + PLATE, y - RIM + 1.5), (0, y - RIM - 8), "", 0.0)
    dimensions.linear(space, "DIM", (left, y - RIM + 1.5), (right, y - HUB + 2), (0, y - RIM - 14), "", 0.0)
    dimensions.linear(space, "DIM", (right, y - BORE), (right, y + KEY_TOP), (right + 8, 0), "<> +0.2", 90.0)
    dimensions.linear(space, "DIM", (left + 1.5, y - RIM), (left + 1.5, y + RIM), (left - 8, 0), "Ø<>", 90.0)
    dimensions.linear(space, "DIM", (left + PLATE, y + HUB + 3), (right - 2, y + HUB),
                      (left + PLATE + 1, y + HUB + 12), "20.2")


def draw_notes(space):
    for row, line in enumerate(["1. All edges 1 × 45° unless shown otherwise.", "2. Bolt holes 8 × Ø8, evenly spaced.",
                                "3. Tolerances: < 30 ± 0.1, > 30 ± 0.2 & keyway H9."]):
        space.mtext("NOTE", 12, 34 - 4.5 * row, 2.2, line, 1)


def draw_title_block(space):
    space.rectangle("SHEET", 4, 4, 236, 166)
    space.rectangle("SHEET", 136, 4, 236, 40)
    for y in (31, 22, 13):
        space.line("SHEET-THIN", 136, y, 236, y)
    for x, bottom, top in ((186, 13, 31), (170, 4, 13), (204, 4, 13)):
        space.line("SHEET-THIN", x, bottom, x, top)
    space.text("SHEET", 186, 37.4, 4, 'FLANGE "A" & COVER <B>', 1, 3, color=30)
    cells = [(138, 29, "Ελληνικά", "Φλάντζα σύνδεσης"), (188, 29, "Русский", "Фланец крепёжный"),
             (138, 20, "中文", "法兰盘 \"甲\""), (188, 20, "Čeština", "Příruba & víko"),
             (138, 11, "scale", "1 : 1"), (172, 11, "material", "C45 <steel>"), (206, 11, "sheet", "M-204")]
    for x, y, label, value in cells:
        space.mtext("SHEET-THIN", x, y + 1.4, 1.5, label, 1, color=253)
        space.text("SHEET", x, y - 1.2, 2.6, value, 0, 3)


def drawing():
    # names and notes are in UTF-8, which drawings are written in from AC1021 on
    part = Drawing("AC1021", "A flange, drawn for the examples of this project")
    part.ltype("CENTER", "Center ____ _ ____ _", [7.0, -1.2, 1.2, -1.2])
    part.ltype("DASHDOT", "Dash dot __ . __ .", [2.5, -0.8, 0.4, -0.8])
    part.ltype("HIDDEN", "Hidden __ __ __", [1.6, -1.0])
    part.ltype("PHANTOM", "Phantom ____ _ _ ____", [9.0, -1.0, 1.0, -1.0, 1.0, -1.0])
    for layer in LAYERS:
        part.layer(*layer)
    define_blocks(part)
    space = part.model
    draw_title_block(space)
    draw_front(space)
    draw_section(space)
    draw_pictorial(space)
    draw_dimensions(space)
    draw_notes(space)
    return part
