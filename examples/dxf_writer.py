"""Writes ASCII drawings in the Drawing Exchange Format: tables, blocks, entities and the few objects that
a complete file needs.

A Drawing holds layers and line types, a model space and blocks; Space has one method for each entity.
Everything is kept as (group code, value) pairs and comes out in the order in which it was made, so the same
calls give the same bytes on every machine.
"""
import math


def number(value):
    """The text of a real: at most nine decimals, so that the last digit of a sine never shows."""
    value = round(float(value), 9)
    return repr(value + 0.0) if value else "0.0"


def point(code, x, y, z=0.0):
    """The three pairs of a point whose x has this group code."""
    return [(code, x), (code + 10, y), (code + 20, z)]


def flat_point(code, x, y):
    return [(code, x), (code + 10, y)]


class Space:
    """A list of entities with one owner: the model space, the paper space or a block."""

    def __init__(self, drawing, name):
        self.drawing = drawing
        self.name = name
        self.record = drawing.next_handle()
        self.begin = drawing.next_handle()
        self.end = drawing.next_handle()
        self.layout = None
        self.entities = []

    def add(self, kind, layer, groups, color=None, ltype=None, weight=None, hidden=False):
        """Returns the entity's handle."""
        handle = self.drawing.next_handle()
        pairs = [(0, kind), (5, handle), (330, self.record), (100, "AcDbEntity")]
        pairs += [(67, 1)] if self is self.drawing.paper else []
        pairs.append((8, layer))
        if ltype is not None:
            pairs.append((6, ltype))
        if color is not None:
            pairs.append((62, color))
        if weight is not None:
            pairs.append((370, weight))
        if hidden:
            pairs.append((60, 1))
        self.entities.append(pairs + groups)
        return handle

    def line(self, layer, x1, y1, x2, y2, **style):
        self.add("LINE", layer, [(100, "AcDbLine")] + point(10, x1, y1) + point(11, x2, y2), **style)

    def polyline(self, layer, points, closed=False, **style):
        groups = [(100, "AcDbPolyline"), (90, len(points)), (70, 1 if closed else 0), (43, 0.0)]
        for x, y in points:
            groups += flat_point(10, x, y)
        self.add("LWPOLYLINE", layer, groups, **style)

    def rectangle(self, layer, x1, y1, x2, y2, **style):
        self.polyline(layer, [(x1, y1), (x2, y1), (x2, y2), (x1, y2)], closed=True, **style)

    def circle(self, layer, x, y, radius, **style):
        return self.add("CIRCLE", layer, [(100, "AcDbCircle")] + point(10, x, y) + [(40, radius)], **style)

    def arc(self, layer, x, y, radius, start, end, **style):
        """Counter-clockwise from start to end, in degrees."""
        self.add("ARC", layer, [(100, "AcDbCircle")] + point(10, x, y)
                 + [(40, radius), (100, "AcDbArc"), (50, start), (51, end)], **style)

    def ellipse(self, layer, x, y, major, ratio, start=0.0, end=2 * math.pi, **style):
        """major is the end of the long axis seen from the centre; start and end are in radians.

        Both are written with every digit: readers know a full ellipse by a sine of exactly nothing.
        """
        self.add("ELLIPSE", layer, [(100, "AcDbEllipse")] + point(10, x, y) + point(11, *major)
                 + [(40, ratio), (41, repr(start)), (42, repr(end))], **style)

    def text(self, layer, x, y, height, string, horizontal=0, vertical=0, second=None, **style):
        """One line of text. second is the second alignment point; it is (x, y) itself when left out."""
        groups = [(100, "AcDbText")] + point(10, x, y) + [(40, height), (1, string), (7, "Standard")]
        if horizontal or vertical:
            groups += [(72, horizontal)] + flat_point(11, *(second or (x, y)))
        groups.append((100, "AcDbText"))
        if vertical:
            groups.append((73, vertical))
        self.add("TEXT", layer, groups, **style)

    def mtext(self, layer, x, y, height, string, attachment=1, rotation=0.0, **style):
        groups = [(100, "AcDbMText")] + point(10, x, y)
        groups += [(40, height), (41, 0.0), (71, attachment), (72, 1), (1, string), (7, "Standard")]
        if rotation:
            groups.append((50, rotation))
        self.add("MTEXT", layer, groups, **style)

    def insert(self, layer, block, x, y, rotation=0.0, scale_x=1.0, scale_y=None, **style):
        scale_y = scale_x if scale_y is None else scale_y
        groups = [(100, "AcDbBlockReference"), (2, block)] + point(10, x, y)
        if (scale_x, scale_y) != (1.0, 1.0):
            groups += [(41, scale_x), (42, scale_y), (43, abs(scale_y))]
        if rotation:
            groups.append((50, rotation))
        self.add("INSERT", layer, groups, **style)

    def viewport(self, layer, number, x, y, width, height, view_x, view_y, scale, twist=0.0, frozen=(),
                 outline=None):
        """A window of the paper space around (x, y) that shows the model around (view_x, view_y); the sheet itself
        is number 1. twist is in degrees, frozen the names of layers, outline the handle of what it is cut along."""
        turned = math.radians(twist)
        centre = (view_x * math.cos(turned) - view_y * math.sin(turned),
                  view_x * math.sin(turned) + view_y * math.cos(turned))
        groups = [(100, "AcDbViewport")] + point(10, x, y) + [(40, width), (41, height), (68, number), (69, number)]
        groups += flat_point(12, *centre) + flat_point(13, 0, 0) + flat_point(14, 10, 10) + flat_point(15, 10, 10)
        groups += point(16, 0, 0, 1) + point(17, 0, 0) + [(42, 50.0), (43, 0.0), (44, 0.0), (45, height / scale),
                                                          (50, 0.0), (51, twist), (72, 1000)]
        groups += [(331, self.drawing.layer_handle(name)) for name in frozen]
        groups += [(90, 819232 + (0x10000 if outline else 0))] + ([(340, outline)] if outline else []) + [(1, "")]
        self.add("VIEWPORT", layer, groups)

    def dimension(self, layer, kind, definition, text_middle, subclasses, text=""):
        """A dimension and the block that pictures it; returns the block to draw into."""
        picture = self.drawing.block("*D%d" % self.drawing.next_dimension())
        groups = [(100, "AcDbDimension"), (2, picture.name)] + point(10, *definition) + point(11, *text_middle)
        groups += [(70, kind), (71, 5)]
        if text:
            groups.append((1, text))
        self.add("DIMENSION", layer, groups + [(3, "Standard")] + subclasses)
        return picture


class Drawing:
    """A whole file. Layers, line types and blocks are written in the order in which they were made."""

    def __init__(self, version, title):
        self.version = version
        self.title = title
        self.handles = 0x2F
        self.dimensions = 0
        self.ltypes = [("ByBlock", "", []), ("ByLayer", "", []), ("Continuous", "Solid line", [])]
        self.layers = []
        self.layer_handles = {}
        self.page = (0.0, 0.0, 0.0)  # of Layout1: its paper's width, height and margin, in millimetres
        self.blocks = []
        self.model = self.block("*Model_Space")
        self.paper = self.block("*Paper_Space")

    def next_handle(self):
        self.handles += 1
        return "%X" % self.handles

    def next_dimension(self):
        self.dimensions += 1
        return self.dimensions

    def ltype(self, name, description, dashes):
        self.ltypes.append((name, description, dashes))

    def layer(self, name, color, ltype="Continuous", weight=-3):
        self.layers.append((name, color, ltype, weight))

    def layer_handle(self, name):
        """The handle of a layer that something refers to."""
        if name not in self.layer_handles:
            self.layer_handles[name] = self.next_handle()
        return self.layer_handles[name]

    def block(self, name):
        space = Space(self, name)
        self.blocks.append(space)
        return space

    def text(self, line_end):
        """The file as one string, every line ended by line_end."""
        def section(name, body):
            return [(0, "SECTION"), (2, name)] + body + [(0, "ENDSEC")]

        # the header comes first, but it is made last: it holds the next free handle
        rest = (section("CLASSES", []) + section("TABLES", self._tables()) + section("BLOCKS", self._blocks())
                + section("ENTITIES", self._entities()) + section("OBJECTS", self._objects()))
        pairs = [(999, self.title)] + section("HEADER", self._header()) + rest + [(0, "EOF")]
        lines = []
        for code, value in pairs:
            lines.append("%3d" % code)
            lines.append(value if isinstance(value, str) else self._written(code, value))
        return line_end.join(lines) + line_end

    @staticmethod
    def _written(code, value):
        return number(value) if isinstance(value, float) or 10 <= code <= 59 else str(value)

    def _header(self):
        xs, ys = self._extent()
        return ([(9, "$ACADVER"), (1, self.version), (9, "$DWGCODEPAGE"), (3, "ANSI_1252"), (9, "$INSBASE")]
                + point(10, 0, 0)
                + [(9, "$EXTMIN")] + point(10, min(xs), min(ys)) + [(9, "$EXTMAX")] + point(10, max(xs), max(ys))
                + [(9, "$LIMMIN")] + flat_point(10, min(xs), min(ys))
                + [(9, "$LIMMAX")] + flat_point(10, max(xs), max(ys))
                + [(9, "$LTSCALE"), (40, 1.0), (9, "$CLAYER"), (8, "0"), (9, "$DIMTXT"), (40, 2.0),
                   (9, "$DIMASZ"), (40, 1.0), (9, "$MEASUREMENT"), (70, 1), (9, "$INSUNITS"), (70, 4),
                   (9, "$HANDSEED"), (5, "%X" % (self.handles + 1))])

    def _extent(self):
        """The x and the y values of the points that model space entities name; not the long axes of ellipses."""
        xs, ys = [], []
        for entity in self.model.entities:
            codes = (10,) if entity[0][1] == "ELLIPSE" else (10, 11)
            xs += [value for code, value in entity if code in codes]
            ys += [value for code, value in entity if code - 10 in codes]
        return xs, ys

    def _table(self, name, handle, marker, entries, entry_handle=5):
        """entries: (subclass marker's groups, handle) for each record of the table."""
        pairs = [(0, "TABLE"), (2, name), (5, handle), (330, "0"), (100, "AcDbSymbolTable"), (70, len(entries))]
        if name == "DIMSTYLE":
            pairs.append((100, "AcDbDimStyleTable"))
        for groups, own in entries:
            pairs += [(0, name), (entry_handle, own or self.next_handle()), (330, handle),
                      (100, "AcDbSymbolTableRecord"), (100, marker)] + groups
        return pairs + [(0, "ENDTAB")]

    def _tables(self):
        view = ([(2, "*Active"), (70, 0)] + flat_point(10, 0, 0) + flat_point(11, 1, 1)
                + flat_point(12, 100, 70) + flat_point(13, 0, 0) + flat_point(14, 10, 10) + flat_point(15, 10, 10)
                + point(16, 0, 0, 1) + point(17, 0, 0, 0) + [(40, 180.0), (41, 1.5), (42, 50.0), (43, 0.0),
                (44, 0.0), (50, 0.0), (51, 0.0), (71, 0), (72, 100), (73, 1), (74, 3), (75, 0), (76, 0),
                (77, 0), (78, 0)])
        style = [(2, "Standard"), (70, 0), (40, 0.0), (41, 1.0), (50, 0.0), (71, 0), (42, 2.0), (3, "txt"), (4, "")]
        dimstyle = [(2, "Standard"), (70, 0), (41, 1.0), (42, 0.6), (44, 1.0), (140, 2.0), (147, 0.6),
                    (77, 1), (73, 0), (74, 0)]
        return (self._table("VPORT", "8", "AcDbViewportTableRecord", [(view, None)])
                + self._table("LTYPE", "5", "AcDbLinetypeTableRecord", [(self._ltype(*e), None) for e in self.ltypes])
                + self._table("LAYER", "2", "AcDbLayerTableRecord", [(self._layer(*e), self.layer_handles.get(e[0])) for e in self.layers])
                + self._table("STYLE", "3", "AcDbTextStyleTableRecord", [(style, None)])
                + self._table("VIEW", "6", "", []) + self._table("UCS", "7", "", [])
                + self._table("APPID", "9", "AcDbRegAppTableRecord", [([(2, "ACAD"), (70, 0)], None)])
                + self._table("DIMSTYLE", "A", "AcDbDimStyleTableRecord", [(dimstyle, None)], entry_handle=105)
                + self._table("BLOCK_RECORD", "1", "AcDbBlockTableRecord",
                              [(self._block_record(space), space.record) for space in self.blocks]))

    @staticmethod
    def _ltype(name, description, dashes):
        groups = [(2, name), (70, 0), (3, description), (72, 65), (73, len(dashes)),
                  (40, float(sum(abs(dash) for dash in dashes)))]
        for dash in dashes:
            groups += [(49, dash), (74, 0)]
        return groups

    @staticmethod
    def _layer(name, color, ltype, weight):
        return [(2, name), (70, 0), (62, color), (6, ltype), (370, weight), (390, "F")]

    def _block_record(self, space):
        layout = {self.model.name: "1B", self.paper.name: "1E"}.get(space.name, "0")
        return [(2, space.name), (340, layout)]

    def _blocks(self):
        pairs = []
        for space in self.blocks:
            anonymous = 1 if space.name.startswith("*D") else 0
            paper = [(67, 1)] if space is self.paper else []
            pairs += [(0, "BLOCK"), (5, space.begin), (330, space.record), (100, "AcDbEntity")] + paper
            pairs += [(8, "0"), (100, "AcDbBlockBegin"), (2, space.name), (70, anonymous)]
            pairs += point(10, 0, 0) + [(3, space.name), (1, "")]
            if space not in (self.model, self.paper):
                pairs += [pair for entity in space.entities for pair in entity]
            pairs += [(0, "ENDBLK"), (5, space.end), (330, space.record), (100, "AcDbEntity")] + paper
            pairs += [(8, "0"), (100, "AcDbBlockEnd")]
        return pairs

    def _entities(self):
        return [pair for entity in self.model.entities + self.paper.entities for pair in entity]

    def _objects(self):
        def dictionary(handle, owner, entries, kind="DICTIONARY", tail=()):
            pairs = [(0, kind), (5, handle), (330, owner), (100, "AcDbDictionary"), (281, 1)]
            for name, target in entries:
                pairs += [(3, name), (350, target)]
            return pairs + list(tail)

        root = dictionary("C", "0", [("ACAD_GROUP", "D"), ("ACAD_LAYOUT", "1A"), ("ACAD_PLOTSTYLENAME", "E")])
        plot_styles = dictionary("E", "C", [("Normal", "F")], "ACDBDICTIONARYWDFLT",
                                 [(100, "AcDbDictionaryWithDefault"), (340, "F")])
        return (root + dictionary("D", "C", []) + plot_styles
                + [(0, "ACDBPLACEHOLDER"), (5, "F"), (330, "E")]
                + dictionary("1A", "C", [("Model", "1B"), ("Layout1", "1E")])
                + self._layout("1B", "Model", 0, self.model, 1024) + self._layout("1E", "Layout1", 1, self.paper, 0))

    def _layout(self, handle, name, order, space, flags):
        plot = [(1, ""), (2, "none_device"), (4, ""), (6, "")]
        width, height, margin = self.page if space is self.paper else (0.0, 0.0, 0.0)
        plot += [(code, margin) for code in (40, 41, 42, 43)] + [(44, width), (45, height)]
        plot += [(code, 0.0) for code in (46, 47, 48, 49, 140, 141)]
        plot += [(142, 1.0), (143, 1.0), (70, flags), (72, 1 if width else 0), (73, 0), (74, 5), (7, ""), (75, 16), (147, 1.0)]
        return ([(0, "LAYOUT"), (5, handle), (330, "1A"), (100, "AcDbPlotSettings")] + plot
                + [(148, 0.0), (149, 0.0), (100, "AcDbLayout"), (1, name), (70, 1), (71, order)]
                + flat_point(10, 0, 0) + flat_point(11, 420, 297) + point(12, 0, 0) + point(14, 0, 0)
                + point(15, 0, 0) + [(146, 0.0)] + point(13, 0, 0) + point(16, 1, 0) + point(17, 0, 1)
                + [(76, 0), (330, space.record)])
