"""Drawings that cost preparing much for their size. Each is of about as many bytes as are asked for."""

SIZE = 1_000_000


def pairs(*groups):
    return "".join(f"{code}\n{value}\n" for code, value in groups)


def section(name, content):
    return pairs((0, "SECTION"), (2, name)) + content + pairs((0, "ENDSEC"))


def entities(content, before="", after=""):
    return before + section("ENTITIES", content) + after + pairs((0, "EOF"))


def block(name, content):
    return pairs((0, "BLOCK"), (2, name)) + content + pairs((0, "ENDBLK"))


def filled(text, size):
    """A text again and again."""
    return text * max(1, size // len(text))


def numbered(make, size):
    """make(0), make(1), ... up to that many bytes."""
    parts, total, number = [], 0, 0
    while total < size:
        parts.append(make(number))
        total += len(parts[-1])
        number += 1
    return "".join(parts)


def scattered(number, x=10, y=20):
    return pairs((x, number * 7919 % 1000), (y, number * 104729 % 1000))


LINE = pairs((0, "LINE"), (8, 0), (10, 0), (20, 0), (11, 9), (21, 5))
SQUARE = pairs((92, 2), (72, 0), (73, 1), (93, 4), (10, 0), (20, 0), (10, 9000), (20, 0), (10, 9000), (20, 9000), (10, 0),
               (20, 9000))


def bezier(*points):
    knots = pairs(*[(40, 0)] * 4, *[(40, 1)] * 4)
    return pairs((0, "SPLINE"), (71, 3)) + knots + "".join(pairs((10, x), (20, y)) for x, y in points)


def hatch(pattern, loops=SQUARE):
    return pairs((0, "HATCH"), (2, "X"), (70, 0), (91, 1)) + loops + pattern


def pattern_line(spacing, *dashes):
    return pairs((75, 0), (76, 1), (52, 0), (41, 1), (77, 0), (78, 1), (53, 45), (43, 0), (44, 0), (45, spacing),
                 (46, spacing), (79, len(dashes)), *((49, dash) for dash in dashes))


# Curves.

def splines(size):
    return entities(filled(bezier((0, 0), (900, 9), (8, 300), (1, 1)), size))


def splines_beside_a_speck(size):
    return entities(pairs((0, "LINE"), (10, 0), (20, 0), (11, "1e-3"), (21, 0)) +
                    filled(bezier((0, 0), (9, 9), (8, 3), (1, 1)), size))


def spline_of_control_points(size):
    return entities(pairs((0, "SPLINE"), (70, 8), (71, 3)) + numbered(scattered, size))


def spline_of_fit_points(size):
    return entities(pairs((0, "SPLINE"), (70, 8), (71, 3)) + numbered(lambda i: scattered(i, 11, 21), size))


def spline_of_one_span(size):
    # As many points as there are, and all knots but one at the ends.
    count = size // 17
    knots = pairs(*[(40, 0)] * (count // 2 + 2), *[(40, 1)] * (count - count // 2 + 2))
    return entities(pairs((0, "SPLINE"), (70, 8), (71, 3)) + knots +
                    "".join(pairs((10, i % 17), (20, i % 13)) for i in range(count)))


def bulges(size):
    return entities(pairs((0, "LWPOLYLINE"), (8, 0), (43, 5)) + numbered(lambda i: scattered(i) + pairs((42, 0.5)), size))


def tapered_bulges(size):
    return entities(pairs((0, "LWPOLYLINE"), (8, 0), (70, 1)) +
                    numbered(lambda i: scattered(i) + pairs((40, i % 5), (41, i % 7), (42, 0.9)), size))


def wide_polylines(size):
    return entities(filled(pairs((0, "LWPOLYLINE"), (43, 1), (10, 0), (20, 0), (42, 1), (10, 5), (20, 5)), size))


def far_arcs(size):
    return entities(pairs((0, "LINE"), (10, 0), (20, 0), (11, "1e-6"), (21, 0)) +
                    filled(pairs((0, "ARC"), (10, "1e10"), (20, 0), (40, "1e9"), (50, 0), (51, 90)), size))


def flat_ellipses(size):
    return entities(filled(pairs((0, "ELLIPSE"), (11, 1000), (21, 0), (40, "1e-9"), (41, 0), (42, 6.2)), size))


def tilted_circles(size):
    return entities(filled(pairs((0, "CIRCLE"), (40, 1000), (210, 0.5), (220, 0.5), (230, 0.1)), size))


# Blocks.

def array(_):
    return entities(pairs((0, "INSERT"), (2, "A"), (70, 32767), (71, 32767), (44, 1), (45, 1)),
                    section("BLOCKS", block("A", LINE)))


def arrays(size):
    insert = pairs((0, "INSERT"), (2, "A"), (70, 32767), (71, 32767), (44, 1), (45, 1))
    return entities(filled(insert, size), section("BLOCKS", block("A", LINE)))


def blocks_that_double(_):
    def inside(number):
        if number == 0:
            return LINE
        return (pairs((0, "INSERT"), (2, f"B{number - 1}"), (41, f"1.{number}")) +
                pairs((0, "INSERT"), (2, f"B{number - 1}"), (10, 1), (41, f"2.{number}")))
    return entities(pairs((0, "INSERT"), (2, "B59")),
                    section("BLOCKS", "".join(block(f"B{i}", inside(i)) for i in range(60))))


def inserts_of_any_scale(content):
    def make(size):
        return entities(numbered(lambda i: pairs((0, "INSERT"), (2, "A"), (41, f"{i}.5")), size // 2),
                        section("BLOCKS", block("A", content(size // 2))))
    return make


def nested_blocks(size):
    return entities(pairs((0, "INSERT"), (2, "B0")),
                    section("BLOCKS", numbered(lambda i: block(f"B{i}", pairs((0, "INSERT"), (2, f"B{i + 1}"))), size)))


def block_in_itself(size):
    return entities(filled(pairs((0, "INSERT"), (2, "A")), size // 2),
                    section("BLOCKS", block("A", filled(pairs((0, "INSERT"), (2, "A"), (41, 3)), size // 2))))


def clipped_inserts(size):
    # Jagged, and closed along its lower side: it does not cross itself.
    points = [(i, i * i % 97) for i in range(254)] + [(253, -1), (0, -1)]
    corners = pairs(*((code, value) for x, y in points for code, value in ((10, x), (20, y))))
    objects = section("OBJECTS", pairs((0, "DICTIONARY"), (5, 30), (330, 20), (0, "DICTIONARY"), (5, 31), (330, 30)) +
                      pairs((0, "SPATIAL_FILTER"), (330, 31)) + corners)
    circle = pairs((0, "CIRCLE"), (10, 50), (20, 50), (40, 60))
    return entities(filled(pairs((0, "INSERT"), (5, 20), (2, "A")), size // 2),
                    section("BLOCKS", block("A", filled(circle, size // 2))), objects)


def attributes(size):
    return entities(pairs((0, "INSERT"), (66, 1), (2, "A")) + filled(pairs((0, "ATTRIB"), (40, 1), (1, "x")), size))


# Sheets, which are drawn with --layout Layout1.

def viewport(*groups):
    return pairs((0, "VIEWPORT"), (67, 1), (69, 2), (90, 0), (10, 50), (20, 50), (40, 90), (41, 90), (12, 5), (22, 5),
                 (45, 900), *groups)


def viewports_over(make):
    """As many viewports as count over what make fills the model with."""
    return lambda size: entities(viewport() * 256 + numbered(make, size))


def viewports_along(make):
    """As many viewports as count, all cut off along one entity."""
    return lambda size: entities(viewport((340, 9)) * 256 + LINE + make(size, pairs((5, 9), (67, 1))))


def bulges_along(size, paper):
    return pairs((0, "LWPOLYLINE")) + paper + numbered(lambda i: scattered(i) + pairs((42, 0.5)), size)


def arrays_along(size, paper):
    insert = pairs((0, "INSERT")) + paper + pairs((2, "A"), (70, 32767), (71, 32767), (44, 1), (45, 1))
    return filled(insert, size) + pairs((0, "ENDSEC"), (0, "SECTION"), (2, "BLOCKS")) + block("A", LINE)


# Areas and meshes.

def hatch_of_many_rings(size):
    def ring(i):
        return pairs((92, 2), (72, 0), (73, 1), (93, 4), (10, i), (20, 0), (10, i + 1), (20, 0), (10, i + 1), (20, 100),
                     (10, i), (20, 100))
    return entities(pairs((0, "HATCH"), (2, "X"), (70, 1), (91, size // 50)) + numbered(ring, size))


def dense_hatches(size):
    return entities(filled(hatch(pattern_line("1e-7")), size))


def dashed_hatches(size):
    return entities(filled(hatch(pattern_line(50, 8, -8)), size))


def hatch_of_many_patterns(size):
    lines = numbered(lambda i: pairs((53, i % 180), (43, 0), (44, 0), (45, 5), (46, 5), (79, 0)), size)
    return entities(hatch(pairs((75, 0), (76, 1), (52, 0), (41, 1), (77, 0), (78, 20000)) + lines))


def mesh_sizes(size):
    return entities(filled(pairs((0, "POLYLINE"), (70, 16), (71, 32767), (72, 32767), (0, "VERTEX"), (70, 64), (10, 1),
                                 (20, 1), (0, "SEQEND")), size))


def polyface(size):
    vertices = numbered(lambda i: pairs((0, "VERTEX"), (70, 192), (10, i % 37), (20, i % 91)), size // 2)
    faces = numbered(lambda i: pairs((0, "VERTEX"), (70, 128), (71, i + 1), (72, i + 2), (73, 1), (74, i + 3)), size // 2)
    return entities(pairs((0, "POLYLINE"), (70, 64)) + vertices + faces + pairs((0, "SEQEND")))


def multiline_of_many_elements(size):
    first = pairs((11, 0), (21, 0)) + filled(pairs((74, 1), (41, 1)), size // 2)
    return entities(pairs((0, "MLINE"), (2, "S"), (40, 1)) + first +
                    numbered(lambda i: pairs((11, i % 991), (21, i % 97)), size // 2))


# Texts.

def long_mtext(part, *groups):
    def make(size):
        return entities(pairs((0, "MTEXT"), (10, 0), (20, 0), (40, 1), *groups) + filled(pairs((3, part)), size) +
                        pairs((1, "x")))
    return make


def mtexts_in_columns(size):
    return entities(filled(pairs((0, "MTEXT"), (40, 1), (75, 1), (76, 32767), (48, 0.001), (49, 0),
                                 (1, "a b c d e f g h")), size))


def tolerances(size):
    return entities(filled(pairs((0, "TOLERANCE"), (1, "{\\Fgdt;j}%%v{\\Fgdt;n}0.1%%v%%v%%v%%vA^J" * 6)), size))


def dimensions_of_their_values(size):
    return entities(filled(pairs((0, "DIMENSION"), (70, 0), (100, "AcDbDimension"), (10, 0), (20, 0), (13, 0), (23, 0),
                                 (14, 10), (24, 0), (1, "<>" * 500)), size))


def dimensions(size):
    return entities(filled(pairs((0, "DIMENSION"), (70, 0), (10, 5), (20, 5), (13, 0), (23, 0), (14, 10), (24, 0)), size))


def tables(size):
    return entities(filled(pairs((0, "ACAD_TABLE"), (91, 30000), (92, 30000), (141, 1), (142, 1), (171, 1), (1, "x")), size))


# Styles.

def line_type_of_many_dashes(size):
    line_type = pairs((0, "TABLE"), (2, "LTYPE"), (0, "LTYPE"), (2, "A")) + numbered(
        lambda i: pairs((49, 1 if i % 2 else -1)), size // 2) + pairs((0, "ENDTAB"))
    return entities(numbered(lambda i: pairs((0, "LINE"), (6, "A"), (48, f"{i + 1}.5"), (11, 9), (21, 5)), size // 2),
                    section("TABLES", line_type))


def dashes_of_any_scale(size):
    line_type = pairs((0, "TABLE"), (2, "LTYPE"), (0, "LTYPE"), (2, "A"),
                      *((49, -1.234567 if i % 2 else 1.234567) for i in range(50)), (0, "ENDTAB"))
    return entities(numbered(lambda i: pairs((0, "LINE"), (6, "A"), (48, 100 + i), (10, 99999)), size),
                    section("TABLES", line_type))


def points(size):
    return entities(filled(pairs((0, "POINT"), (10, 1), (20, 2)), size),
                    section("HEADER", pairs((9, "$PDMODE"), (70, 99), (9, "$PDSIZE"), (40, 10))))


PATTERNS = {
    "splines": splines,
    "splines-beside-a-speck": splines_beside_a_speck,
    "spline-of-control-points": spline_of_control_points,
    "spline-of-fit-points": spline_of_fit_points,
    "spline-of-one-span": spline_of_one_span,
    "bulges": bulges,
    "tapered-bulges": tapered_bulges,
    "wide-polylines": wide_polylines,
    "far-arcs": far_arcs,
    "flat-ellipses": flat_ellipses,
    "tilted-circles": tilted_circles,
    "array": array,
    "arrays": arrays,
    "blocks-that-double": blocks_that_double,
    "lines-of-any-scale": inserts_of_any_scale(lambda size: filled(LINE, size)),
    "polyline-of-any-scale": inserts_of_any_scale(lambda size: pairs((0, "LWPOLYLINE")) + numbered(scattered, size)),
    "text-of-any-scale": inserts_of_any_scale(
        lambda size: pairs((0, "MTEXT"), (40, 1)) + filled(pairs((3, "a b c d " * 30)), size)),
    "hatch-of-any-scale": inserts_of_any_scale(lambda size: hatch(pattern_line(50, 8, -8))),
    "nested-blocks": nested_blocks,
    "block-in-itself": block_in_itself,
    "clipped-inserts": clipped_inserts,
    "attributes": attributes,
    "viewports-over-lines": viewports_over(lambda i: LINE),
    "viewports-over-circles": viewports_over(lambda i: pairs((0, "CIRCLE"), (10, 5), (20, 5), (40, 440 + i % 90))),
    "viewports-over-polyline": lambda size: entities(
        viewport() * 256 + pairs((0, "LWPOLYLINE")) + numbered(scattered, size)),
    "viewports-along-bulges": viewports_along(bulges_along),
    "viewports-along-arrays": viewports_along(arrays_along),
    "hatch-of-many-rings": hatch_of_many_rings,
    "dense-hatches": dense_hatches,
    "dashed-hatches": dashed_hatches,
    "hatch-of-many-patterns": hatch_of_many_patterns,
    "mesh-sizes": mesh_sizes,
    "polyface": polyface,
    "multiline-of-many-elements": multiline_of_many_elements,
    "mtext-of-braces": long_mtext("{\\H2x;" * 30),
    "mtext-of-short-lines": long_mtext("a b c d " * 30, (41, 0.0001)),
    "mtext-of-tabs": long_mtext("^I\\P" * 40),
    "mtext-of-fractions": long_mtext("\\S1/2;" * 40),
    "mtexts-in-columns": mtexts_in_columns,
    "tolerances": tolerances,
    "dimensions-of-their-values": dimensions_of_their_values,
    "dimensions": dimensions,
    "tables": tables,
    "line-type-of-many-dashes": line_type_of_many_dashes,
    "dashes-of-any-scale": dashes_of_any_scale,
    "points": points,
}

# The options of the command for those that are not drawn by default.
OPTIONS = {name: ("--layout", "Layout1") for name in PATTERNS if name.startswith("viewports-")}
