"""The blocks of the floor plan: openings, furniture (blocks within blocks), sanitary ware, garden, sheet.

Every block's base point is its origin. Openings lie along the x axis from 0, centred on the wall; furniture
that belongs against a wall has the wall at y = 0 and itself above it.
"""
import math


def _polar(radius, degrees, x=0.0, y=0.0):
    return x + radius * math.cos(math.radians(degrees)), y + radius * math.sin(math.radians(degrees))


def _openings(plan):
    door = plan.block("DOOR")
    for x in (0.0, 8.0):
        door.line("DOOR", x, -0.75, x, 0.75)
    door.polyline("DOOR", [(0, 0), (0.5, 0), (0.5, 8), (0, 8)], closed=True)
    door.arc("DOOR-SWING", 0, 0, 8, 0, 90)

    double = plan.block("DOOR-DOUBLE")
    double.insert("DOOR", "DOOR", 0, 0)
    double.insert("DOOR", "DOOR", 16, 0, 0, -1.0, 1.0)
    double.line("WINDOW", 0, 1.5, 16, 1.5)
    double.line("WINDOW", 0, -1.5, 16, -1.5)

    for width in (12, 18):
        window = plan.block("WINDOW-%d" % width)
        for y in (-1.5, -0.4, 0.4, 1.5):
            window.line("WINDOW", 0, y, width, y)
        window.line("WINDOW", width / 2, -0.4, width / 2, 0.4)


def _seats(plan):
    chair = plan.block("CHAIR")
    chair.polyline("FURNITURE", [(-2, -2.2), (2, -2.2), (2.2, 2), (-2.2, 2)], closed=True)
    chair.arc("FURNITURE", 0, -1.5, 4.4, 60, 120, weight=30)

    sofa = plan.block("SOFA")
    sofa.rectangle("FURNITURE", -10, 0, 10, 8)
    sofa.rectangle("FURNITURE", -8.2, 0, 0, 5.6)
    sofa.rectangle("FURNITURE", 0, 0, 8.2, 5.6)

    armchair = plan.block("ARMCHAIR")
    armchair.rectangle("FURNITURE", -4, 0, 4, 7.5)
    armchair.rectangle("FURNITURE", -2.6, 0, 2.6, 5.4)
    armchair.arc("FURNITURE", 0, 1.6, 4.2, 40, 140)


def _sets(plan):
    living = plan.block("LIVING-SET")
    living.rectangle("FURNITURE", -13, -8, 13, 10, ltype="DASHED", color=173)
    living.insert("FURNITURE", "SOFA", 0, 5)
    living.insert("FURNITURE", "ARMCHAIR", -11, 0, 75)
    living.insert("FURNITURE", "ARMCHAIR", 11, 0, 75, -1.0, -1.0)
    living.insert("FURNITURE", "SIDE-TABLE", 0, -1.5)

    side = plan.block("SIDE-TABLE")
    side.ellipse("FURNITURE", 0, 0, (5, 0), 0.5)
    side.ellipse("FURNITURE", 0, 0, (4.3, 0), 0.45)

    dining = plan.block("DINING-SET")
    dining.rectangle("FURNITURE", -9, -4.5, 9, 4.5, weight=30)
    dining.rectangle("FURNITURE", -8.4, -3.9, 8.4, 3.9)
    for x in (-6, 0, 6):
        dining.insert("FURNITURE", "CHAIR", x, 6)
        dining.insert("FURNITURE", "CHAIR", x, -6, 180)
    dining.insert("FURNITURE", "CHAIR", 10.5, 0, -90)
    dining.insert("FURNITURE", "CHAIR", -10.5, 0, 90)

    table = plan.block("ROUND-TABLE")
    table.circle("FURNITURE", 0, 0, 4, weight=30)
    table.circle("FURNITURE", 0, 0, 3.5)
    for angle in (45, 135, 225, 315):
        x, y = _polar(5.3, angle)
        table.insert("FURNITURE", "CHAIR", x, y, angle - 90, 0.85)


def _cabinets(plan):
    bed = plan.block("BED-DOUBLE")
    bed.rectangle("FURNITURE", -8, 0, 8, 20)
    for x in (-4, 4):
        bed.polyline("FURNITURE", [(x - 3, 1.2), (x - 2.6, 0.8), (x + 2.6, 0.8), (x + 3, 1.2), (x + 3, 4.4),
                                   (x + 2.6, 4.8), (x - 2.6, 4.8), (x - 3, 4.4)], closed=True)
    bed.polyline("FURNITURE", [(-8, 7), (3, 7), (8, 12)])
    bed.polyline("FURNITURE", [(3, 7), (2.2, 11.2), (8, 12)])

    wardrobe = plan.block("WARDROBE")
    wardrobe.rectangle("FURNITURE", 0, 0, 20, -6)
    wardrobe.line("FURNITURE", 0, -3, 20, -3, ltype="CENTER")
    for step in range(9):
        x = 2 + 2 * step
        wardrobe.line("FURNITURE", x, -1, x + (0.5 if step % 2 else -0.4), -5)

    desk = plan.block("DESK")
    desk.rectangle("FURNITURE", 0, 0, 14, 7)
    desk.rectangle("FURNITURE", 4.5, 1, 9.5, 2.2)
    desk.polyline("FURNITURE", [(4, 3.6), (10, 3.6), (10, 5.4), (4, 5.4)], closed=True)
    desk.insert("FURNITURE", "CHAIR", 7, 8.6, 0)

    shelf = plan.block("SHELF")
    shelf.rectangle("FURNITURE", 0, 0, 14, 3)
    shelf.line("FURNITURE", 0, 0, 14, 3)
    shelf.line("FURNITURE", 0, 3, 14, 0)


def _kitchen(plan):
    burner = plan.block("BURNER")
    burner.circle("KITCHEN", 0, 0, 1.1)
    burner.circle("KITCHEN", 0, 0, 0.4)

    stove = plan.block("STOVE")
    stove.rectangle("KITCHEN", 0, 0, 6, 6)
    for x, y, scale in ((1.7, 1.7, 1.0), (4.3, 1.7, 0.8), (1.7, 4.3, 0.8), (4.3, 4.3, 1.0)):
        stove.insert("KITCHEN", "BURNER", x, y, 0, scale)

    sink = plan.block("SINK")
    sink.rectangle("KITCHEN", 0, 0, 10, 6)
    sink.rectangle("KITCHEN", 0.8, 0.8, 5, 4.6)
    sink.circle("KITCHEN", 2.9, 2.7, 0.4)
    sink.line("KITCHEN", 2.9, 5.4, 2.9, 3.8, weight=35)
    for x in (6, 7, 8, 9):
        sink.line("KITCHEN", x, 0.8, x, 4.6)

    line = plan.block("KITCHEN-LINE")
    line.polyline("KITCHEN", [(0, 0), (39.7, 0), (39.7, 6), (6, 6), (6, 27), (0, 27)], closed=True, weight=30)
    line.insert("KITCHEN", "SINK", 12.5, 0)
    line.insert("KITCHEN", "STOVE", 25, 0)
    line.rectangle("KITCHEN", 33.7, 0, 39.7, 6)
    line.line("KITCHEN", 33.7, 0, 39.7, 6)
    line.line("KITCHEN", 33.7, 6, 39.7, 0)
    line.rectangle("ABOVE", 0.3, 9, 3.5, 26.7)


def _sanitary(plan):
    tub = plan.block("BATHTUB")
    tub.rectangle("SANITARY", 0, 0, 8.5, 18)
    tub.line("SANITARY", 1.2, 5, 1.2, 15)
    tub.line("SANITARY", 7.3, 5, 7.3, 15)
    tub.ellipse("SANITARY", 4.25, 5, (0, -3.8), 3.05 / 3.8, -math.pi / 2, math.pi / 2)
    tub.ellipse("SANITARY", 4.25, 15, (3.05, 0), 0.6, 0.0, math.pi)
    tub.circle("SANITARY", 4.25, 3.4, 0.5)

    wc = plan.block("WC")
    wc.rectangle("SANITARY", -2.2, 0, 2.2, 2)
    wc.ellipse("SANITARY", 0, 4.4, (0, 2.9), 0.64)
    wc.ellipse("SANITARY", 0, 4.5, (0, 2.1), 0.6)

    basin = plan.block("BASIN")
    basin.rectangle("SANITARY", -3.5, 0, 3.5, 5)
    basin.ellipse("SANITARY", 0, 2.8, (2.6, 0), 0.62)
    basin.circle("SANITARY", 0, 2.2, 0.35)

    shower = plan.block("SHOWER")
    shower.rectangle("SANITARY", 0, 0, 9, 9)
    shower.rectangle("SANITARY", 0.6, 0.6, 8.4, 8.4)
    shower.line("SANITARY", 0.6, 0.6, 8.4, 8.4)
    shower.line("SANITARY", 0.6, 8.4, 8.4, 0.6)
    shower.circle("SANITARY", 4.5, 4.5, 0.8)


def _garden(plan):
    leaf = plan.block("LEAF")
    leaf.ellipse("GARDEN", 1.9, 0, (1.8, 0), 0.32, color=92)
    leaf.line("GARDEN", 0, 0, 3.2, 0, color=92)
    plant = plan.block("PLANT")
    plant.circle("GARDEN", 0, 0, 1.3)
    for step in range(9):
        plant.insert("GARDEN", "LEAF", 0, 0, 40.0 * step)

    tree = plan.block("TREE")
    tree.circle("GARDEN", 0, 0, 0.9, weight=35)
    for step in range(12):
        x, y = _polar(7, 30 * step)
        tree.arc("GARDEN", x, y, 2.1, (30 * step + 255) % 360, (30 * step + 105) % 360, weight=25)
        ray = _polar(5 if step % 2 else 6.2, 30 * step + 8)
        tree.line("GARDEN", *_polar(1.6, 30 * step), *ray)
    bush = plan.block("BUSH")
    for step in range(7):
        x, y = _polar(2.4, 360 / 7 * step)
        bush.arc("GARDEN", x, y, 1.5, (360 / 7 * step + 262) % 360, (360 / 7 * step + 98) % 360, weight=20)
    bush.circle("GARDEN", 0, 0, 0.5)


def _north(plan):
    north = plan.block("NORTH")
    north.circle("SHEET", 0, 0, 6, weight=18)
    north.polyline("SHEET", [(0, 6), (2.2, -4.8), (0, -2.8), (-2.2, -4.8)], closed=True)
    north.line("SHEET", 0, 6, 0, -2.8)
    north.text("SHEET", 0, 9.8, 3, "N", 1, 3)


def define(plan):
    """Adds every block. Some come before the blocks that they insert: the order is free."""
    for part in (_openings, _seats, _sets, _cabinets, _kitchen, _sanitary, _garden, _north):
        part(plan)
