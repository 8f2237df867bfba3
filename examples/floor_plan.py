"""The plan of a one-storey house with a stair, 1 : 100, one unit to a millimetre on paper.

The axes of the walls are the origin of everything: 1 to 4 are at x = 0, 48, 92, 140 and A to D at
y = 0, 42, 58, 100. Dimension texts add a zero to the measured millimetres and so read as centimetres.
"""
import dimensions
import floor_plan_blocks as blocks
from dxf_writer import Drawing
from wall_outline import hatch_lines, outlines

AXES_X = [("1", 0), ("2", 48), ("3", 92), ("4", 140)]
AXES_Y = [("A", 0), ("B", 42), ("C", 58), ("D", 100)]

# name, colour number, line type, lineweight in hundredths of a millimetre
LAYERS = [
    ("0", 9, "Continuous", 18), ("GRID", 253, "CENTER", 13), ("WALL-OUTER", 30, "Continuous", 50),
    ("WALL-INNER", 32, "Continuous", 35), ("WALL-HATCH", 33, "Continuous", 9), ("DOOR", 94, "Continuous", 25),
    ("DOOR-SWING", 92, "DASHED", 13), ("WINDOW", 150, "Continuous", 18), ("STAIR", 9, "Continuous", 18),
    ("ABOVE", 9, "HIDDEN", 13), ("FURNITURE", 163, "Continuous", 18), ("SANITARY", 140, "Continuous", 18),
    ("KITCHEN", 20, "Continuous", 18), ("ROOM-NAME", 10, "Continuous", 18), ("ROOM-AREA", 253, "Continuous", 18),
    ("GARDEN", 84, "Continuous", 13), ("TERRACE", 42, "Continuous", 13), ("TERRACE-EDGE", 42, "PHANTOM", 30),
    ("DIM", 94, "Continuous", 13), ("SHEET", 9, "Continuous", 35),
]

# outer walls are 3 thick, inner ones 1.5; rectangles as left, bottom, right, top
OUTER_WALLS = [(-1.5, -1.5, 141.5, 1.5), (-1.5, 98.5, 141.5, 101.5), (-1.5, -1.5, 1.5, 101.5),
               (138.5, -1.5, 141.5, 101.5)]
INNER_WALLS = [(1.5, 41.25, 138.5, 42.75), (1.5, 57.25, 138.5, 58.75), (91.25, 1.5, 92.75, 42.75),
               (47.25, 57.25, 48.75, 98.5), (67.25, 57.25, 68.75, 98.5), (91.25, 57.25, 92.75, 98.5)]

# block, x, y, rotation, scale x, scale y, cut-out width (along the opening's own x axis)
OUTER_DOORS = [("DOOR", 0, 45, 90, 1.25, -1.25, 10)]
INNER_DOORS = [
    ("DOOR", 36, 42, 0, 1, -1, 8), ("DOOR", 96, 42, 0, 1, -1, 8), ("DOOR", 36, 58, 0, 1, 1, 8),
    ("DOOR", 67, 58, 180, 1, -1, 8), ("DOOR", 74, 58, 0, 1, 1, 8), ("DOOR", 102, 58, 180, -1, -1, 8),
]
TERRACE_DOOR = ("DOOR-DOUBLE", 38, 0, 0, 1, -1, 16)
WINDOWS = [("WINDOW-18", 12, 0, 0), ("WINDOW-18", 64, 0, 0), ("WINDOW-18", 107, 0, 0), ("WINDOW-12", 140, 16, 90),
           ("WINDOW-12", 0, 16, 90), ("WINDOW-18", 0, 70, 90), ("WINDOW-18", 15, 100, 0), ("WINDOW-12", 52, 100, 0),
           ("WINDOW-12", 74, 100, 0), ("WINDOW-18", 117, 100, 0), ("WINDOW-18", 140, 70, 90)]

FURNITURE = [
    ("LIVING-SET", 24, 15, 0, 1, 1), ("DINING-SET", 70, 25, 0, 1, 1), ("PLANT", 6, 36.5, 15, 1, 1),
    ("PLANT", 86.5, 6.5, 40, 0.9, 0.9), ("KITCHEN-LINE", 138.5, 1.5, 90, 1, 1), ("ROUND-TABLE", 108, 20, 20, 1, 1),
    ("BED-DOUBLE", 11, 98, 180, 1, 1), ("WARDROBE", 47.25, 76, 90, 1, -1), ("DESK", 38, 98, 180, 1, 1),
    ("BED-DOUBLE", 138, 79, 90, 1, 1), ("WARDROBE", 93.5, 98.5, 0, 1, 1), ("DESK", 116, 58.75, 0, 1, 1),
    ("DESK", 89, 98, 180, 1, 1), ("SHELF", 91.25, 62, 90, 1, 1), ("SHELF", 91.25, 76, 90, 1, 1),
    ("BATHTUB", 49, 98.2, -90, 1, 1), ("WC", 67.25, 73, 90, 1, 1), ("BASIN", 67.25, 84, 90, 1, 1),
    ("SHOWER", 48.75, 58.75, 0, 1, 1), ("PLANT", 134.5, 63, 70, 0.8, 0.8),
]
TREES = [("TREE", 2, -15, 50, 0.9, 0.9), ("TREE", 158, 90, 20, 1.1, 1.1), ("TREE", 157, 24, 80, 0.85, 0.85),
         ("BUSH", 156, 66, 0, 1, 1), ("BUSH", 161, 58, 35, 0.8, 0.8), ("BUSH", -13, -18, 10, 1, 1),
         ("BUSH", 154, 2, 60, 0.9, 0.9), ("BUSH", 162, -3, 15, 1.1, 1.1)]

TOP = 3  # vertical justification: the text hangs below its point


def opening(x, y, rotation, width, flip=1):
    """The rectangle that an opening of this width cuts out of its wall."""
    reach = 2.0
    if rotation % 180 == 0:
        end = x + width * flip * (1 if rotation == 0 else -1)
        return min(x, end), y - reach, max(x, end), y + reach
    return x - reach, y, x + reach, y + width


def draw_walls(space):
    doors = OUTER_DOORS + INNER_DOORS + [TERRACE_DOOR]
    holes = [opening(x, y, rotation, width, 1 if sx > 0 else -1) for _, x, y, rotation, sx, _, width in doors]
    holes += [opening(x, y, rotation, int(name[-2:])) for name, x, y, rotation in WINDOWS]
    for loop in outlines(OUTER_WALLS + INNER_WALLS, holes):
        outer = any(x in (-1.5, 141.5) or y in (-1.5, 101.5) for x, y in loop)
        space.polyline("WALL-OUTER" if outer else "WALL-INNER", loop, closed=True)
    for x1, y1, x2, y2 in hatch_lines(OUTER_WALLS + INNER_WALLS, holes, 1.25):
        space.line("WALL-HATCH", x1, y1, x2, y2)


def draw_openings(space):
    for name, x, y, rotation, sx, sy, _ in OUTER_DOORS + INNER_DOORS + [TERRACE_DOOR]:
        space.insert("DOOR", name, x, y, rotation, sx, sy)
    for name, x, y, rotation in WINDOWS:
        space.insert("WINDOW", name, x, y, rotation)


def draw_stair(space):
    """Twelve treads up to the right; the upper flight is cut off and dashed."""
    left, bottom, top = 104.0, 42.75, 57.25
    for step in range(13):
        x = left + 2.8 * step
        space.line("STAIR" if step < 7 else "ABOVE", x, bottom, x, top)
    space.polyline("STAIR", [(122, bottom), (122.6, 49), (121.2, 50), (124, 51), (122.6, 52), (123.2, top)])
    space.circle("STAIR", left, 50, 0.6)
    space.line("STAIR", left + 0.6, 50, 119.5, 50)
    space.polyline("STAIR", [(117.5, 51), (119.5, 50), (117.5, 49)])
    space.text("ROOM-AREA", 103, 47.5, 1.4, "up", 2, TOP)


def draw_grid(space):
    for name, x in AXES_X:
        space.line("GRID", x, -6, x, 112)
        space.circle("GRID", x, 116, 4, ltype="Continuous", weight=25)
        space.text("GRID", x, 117.8, 3, name, 1, TOP, color=10)
    for name, y in AXES_Y:
        space.line("GRID", -24, y, 146, y)
        space.circle("GRID", -28, y, 4, ltype="Continuous", weight=25)
        space.text("GRID", -28, y + 1.8, 3, name, 1, TOP, color=10)


def draw_rooms(space):
    """Every justification of TEXT and the three upper attachments of MTEXT are used once or more."""
    def area(x, y, string, attachment=2):
        space.mtext("ROOM-AREA", x, y, 1.4, string, attachment)

    space.text("ROOM-NAME", 24, 37, 2.4, "LIVING ROOM", 1, TOP)
    area(24, 32.5, "38.4 sqm, oak")
    space.text("ROOM-NAME", 90, 40, 2, "DINING", 2, TOP)
    area(90, 36.5, "parquet", 3)
    space.text("ROOM-NAME", 94, 33.5, 2, "KITCHEN", 0, TOP)
    area(94, 30, "19.4 sqm, tiles", 1)
    space.text("ROOM-NAME", 56, 52.5, 2, "HALL", 1, TOP)
    area(56, 49, "21.7 sqm, slate")
    space.text("ROOM-NAME", 26, 79, 2, "BEDROOM", 3, 0, second=(38.5, 79))
    area(26, 76, "18.9 sqm", 1)
    space.text("ROOM-NAME", 50.5, 83, 2, "BATH", 4, 0, second=(54, 84.2))
    area(54, 79.5, "8.1 sqm")
    space.text("ROOM-NAME", 72.5, 81.5, 2, "STUDY", 5, 0, second=(82, 81.5))
    area(77.2, 78, "9.4 sqm")
    space.text("ROOM-NAME", 106, 75, 2, "BEDROOM", 1, TOP)
    area(106, 71.5, "18.9 sqm")
    space.text("ROOM-AREA", 46, -9.8, 2.2, "TERRACE", 1, TOP, color=42)


def draw_terrace(space):
    edge = [(20, -1.5), (20, -12), (27, -19), (85, -19), (85, -1.5)]
    space.polyline("TERRACE-EDGE", edge)
    for y in range(-17, -2, 3):
        left = 20 if y >= -12 else 20 - (y + 12)
        for start, end in ((left, 36), (56, 85)) if -14 < y < -4 else ((left, 85),):
            space.line("TERRACE", start, y, end, y)
    space.insert("FURNITURE", "ROUND-TABLE", 71, -10, 45)
    # a lamp's cable, drawn for the electrician and not shown on this sheet
    space.line("TERRACE", 71, -10, 20, -12, hidden=True)


def draw_dimensions(space):
    for (_, left), (_, right) in zip(AXES_X, AXES_X[1:]):
        dimensions.linear(space, "DIM", (left, 101.5), (right, 101.5), (0, 105), "<>0", 0.0)
    dimensions.linear(space, "DIM", (0, 101.5), (140, 101.5), (0, 109.5), "<>0", 0.0)
    for (_, low), (_, high) in zip(AXES_Y, AXES_Y[1:]):
        dimensions.linear(space, "DIM", (-1.5, low), (-1.5, high), (-10, 0), "<>0", 90.0)
    dimensions.linear(space, "DIM", (-1.5, 0), (-1.5, 100), (-18, 0), "<>0", 90.0)
    for left, right in ((92, 107), (107, 125), (125, 140)):
        dimensions.linear(space, "DIM", (left, -1.5), (right, -1.5), (0, -7), "<>0", 0.0)
    dimensions.linear(space, "DIM", (20, -12), (27, -19), (20 - 2.5, -14.5), "99")


def draw_sheet(space):
    space.rectangle("SHEET", -36, -34, 172, 124)
    space.insert("SHEET", "NORTH", 158, 112, 12)
    space.rectangle("SHEET", 100, -34, 172, -14)
    space.line("SHEET", 100, -21, 172, -21, weight=18)
    space.line("SHEET", 100, -27.5, 172, -27.5, weight=18)
    space.line("SHEET", 146, -34, 146, -21, weight=18)
    space.text("SHEET", 136, -15.6, 3.5, "HOUSE BY THE LAKE", 1, TOP, color=30)
    space.mtext("SHEET", 102, -23, 2.2, "Ground floor", 1)
    space.mtext("SHEET", 144, -23, 2.2, "axes in cm", 3)
    space.mtext("SHEET", 159, -23, 2.2, "1 : 100", 2)
    space.text("SHEET", 102, -29.5, 2.2, "Sheet 1 of 1", 0, TOP)
    space.text("SHEET", 159, -29.5, 2.2, "A-101", 1, TOP)
    for metre in range(5):
        x = -30 + 10 * metre
        space.rectangle("SHEET", x, -29, x + 10, -28 if metre % 2 else -27, weight=18)
        space.text("SHEET", x, -30, 1.4, str(metre), 1, TOP)
    space.text("SHEET", 20, -30, 1.4, "5 m", 1, TOP)


def drawing():
    plan = Drawing("AC1015", "A floor plan, drawn for the examples of this project")
    plan.ltype("CENTER", "Center ____ _ ____ _", [6.0, -1.0, 1.0, -1.0])
    plan.ltype("DASHED", "Dashed __ __ __", [1.2, -0.8])
    plan.ltype("HIDDEN", "Hidden _ _ _", [0.8, -0.8])
    plan.ltype("PHANTOM", "Phantom ____ _ _ ____", [5.0, -0.8, 0.8, -0.8, 0.8, -0.8])
    for layer in LAYERS:
        plan.layer(*layer)
    blocks.define(plan)
    space = plan.model
    draw_sheet(space)
    draw_terrace(space)
    draw_grid(space)
    draw_walls(space)
    draw_openings(space)
    draw_stair(space)
    for name, x, y, rotation, sx, sy in FURNITURE:
        space.insert("FURNITURE", name, x, y, rotation, sx, sy)
    for name, x, y, rotation, sx, sy in TREES:
        space.insert("GARDEN", name, x, y, rotation, sx, sy)
    draw_rooms(space)
    draw_dimensions(space)
    return plan
