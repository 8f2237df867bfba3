#!/usr/bin/env python3
"""Writes a big drawing to measure with. The same arguments give the same bytes, on every machine.

KIND is what the drawing is made of:
  mixed       as in an architect's drawing: mostly lines and polylines, 200 layers, 300 blocks, some nested
  lines       lines alone
  polylines   polylines of 2 to 40 vertices
  texts       texts, multi-line texts and inserts
  dimensions  dimensions of five kinds, some with style overrides
  layers      100,000 layers, each with something on it (fewer when SIZE_MB is below 50)
  blocks      100,000 blocks, each inserted (fewer when SIZE_MB is below 130)

The file comes out within one per cent of SIZE_MB times 1,000,000 bytes. Reals have 16 or 17 digits, and
everything has a handle, an owner and subclass markers. No record gives a reader cause for complaint.
"""
import argparse
import itertools
import random
import sys

BATCH = 10  # entities made between two looks at the size
MANY = 100_000
MODEL, PAPER = "1F", "1B"  # block records of the model space and the paper space
PICTURES = 40  # blocks *D1 ... that dimensions name as their picture

WORDS = ("wall door window stair kitchen bath terrace level roof slab beam +3.20 -0.15 DN100 C25/30 EI90 sheet axis "
         "detail A-101 oak tiles see 1:50 insulation 160mm Küche Fenêtre Κλίμακα Лестница 楼梯 & <B> \"void\" "
         "30x50 column joint screed primer").split(" ")

LTYPES = (("ByBlock", ()), ("ByLayer", ()), ("Continuous", ()), ("DASHED", (12.7, -6.35)),
          ("CENTER", (31.75, -6.35, 6.35, -6.35)), ("HIDDEN", (6.35, -3.175)),
          ("DASHDOT", (12.7, -6.35, 0.0, -6.35)))

LINE = " 10\n%r\n 20\n%r\n 30\n0.0\n 11\n%r\n 21\n%r\n 31\n0.0\n"
CENTER = " 10\n%r\n 20\n%r\n 30\n0.0\n"
VERTEX = " 10\n%r\n 20\n%r\n"
XDATA = "1001\nACAD\n1000\nDSTYLE\n1002\n{\n1070\n   140\n1040\n2.5\n1070\n    41\n1040\n1.25\n1002\n}\n"


class Maker:
    """Makes the text of one entity at a time, on layers taken at random or each in its turn."""

    def __init__(self, seed, layers, blocks, kind):
        self.random = random.Random(seed).random
        self.handle = 0x100
        self.owner = MODEL
        self.blocks = blocks
        styles = [style for name in layers for style in self._styles(name, kind == "layers")]
        self.next_style = itertools.cycle(styles).__next__ if kind == "layers" else lambda: self.pick(styles)
        self.next_block = itertools.cycle(blocks).__next__ if kind == "blocks" else lambda: self.pick(blocks)

    @staticmethod
    def _styles(layer, alone):
        """The common groups that entities of this layer have, the usual one several times."""
        plain = "100\nAcDbEntity\n  8\n%s\n" % layer
        if alone:
            return [plain]
        return [plain] * 5 + [plain + " 62\n     3\n", "100\nAcDbEntity\n  8\n%s\n  6\nDASHED\n" % layer,
                              plain + " 62\n   256\n370\n    35\n"]

    def next_handle(self):
        self.handle += 1
        return self.handle

    def pick(self, values):
        return values[int(self.random() * len(values))]

    def head(self, kind):
        self.handle += 1
        return "  0\n%s\n  5\n%X\n330\n%s\n%s" % (kind, self.handle, self.owner, self.next_style())

    def place(self):
        return self.random() * 250_000, self.random() * 180_000

    def line(self):
        x, y = self.place()
        random_ = self.random
        return self.head("LINE") + "100\nAcDbLine\n" + LINE % (
            x, y, x + random_() * 900 - 450, y + random_() * 900 - 450)

    def polyline(self):
        random_ = self.random
        x, y = self.place()
        count = 2 + int(random_() * random_() * 39)
        vertices = "".join([VERTEX % (x + random_() * 800, y + random_() * 800) for _ in range(count)])
        return "%s100\nAcDbPolyline\n 90\n%9d\n 70\n%6d\n 43\n0.0\n%s" % (
            self.head("LWPOLYLINE"), count, count % 2, vertices)

    def arc(self):
        return "%s100\nAcDbCircle\n%s 40\n%r\n100\nAcDbArc\n 50\n%r\n 51\n%r\n" % (
            self.head("ARC"), CENTER % self.place(), self.random() * 500, self.random() * 360, self.random() * 360)

    def circle(self):
        return "%s100\nAcDbCircle\n%s 40\n%r\n" % (self.head("CIRCLE"), CENTER % self.place(), self.random() * 300)

    def ellipse(self):
        start, end = (0.0, 6.283185307179586) if self.random() < 0.5 else (self.random() * 3, 3 + self.random() * 3)
        return ("%s100\nAcDbEllipse\n%s 11\n%r\n 21\n%r\n 31\n0.0\n210\n0.0\n220\n0.0\n230\n1.0\n"
                " 40\n%r\n 41\n%r\n 42\n%r\n") % (
            self.head("ELLIPSE"), CENTER % self.place(), 1 + self.random() * 400, self.random() * 400,
            0.1 + 0.9 * self.random(), start, end)

    def words(self, most):
        return " ".join([self.pick(WORDS) for _ in range(1 + int(self.random() * most))])

    def text(self):
        x, y = self.place()
        justify = int(self.random() * 3)
        aligned = " 72\n%6d\n 11\n%r\n 21\n%r\n" % (justify, x, y) if justify else ""
        return "%s100\nAcDbText\n%s 40\n%r\n  1\n%s\n 50\n%r\n  7\nStandard\n%s100\nAcDbText\n%s" % (
            self.head("TEXT"), CENTER % (x, y), 2.5 + self.random() * 30, self.words(6), self.random() * 90, aligned,
            " 73\n     3\n" if justify else "")

    def mtext(self):
        lines = "\\P".join([self.words(7) for _ in range(1 + int(self.random() * 4))])
        if self.random() < 0.3:
            lines = "{\\fArial|b1|i0|c0|p34;%s}" % lines
        before = "  3\n%s\n" % self.words(40) if self.random() < 0.1 else ""
        return ("%s100\nAcDbMText\n%s 40\n%r\n 41\n%r\n 71\n%6d\n 72\n     1\n%s  1\n%s\n  7\nStandard\n"
                " 73\n     1\n 44\n1.0\n") % (
            self.head("MTEXT"), CENTER % self.place(), 2.5 + self.random() * 20, self.random() * 900,
            1 + int(self.random() * 9), before, lines)

    def insert(self, name=None):
        turned = ""
        if self.random() < 0.5:
            scale = 0.5 + self.random()
            turned = " 41\n%r\n 42\n%r\n 43\n%r\n 50\n%r\n" % (
                scale, -scale if self.random() < 0.2 else scale, scale, self.random() * 360)
        return "%s100\nAcDbBlockReference\n  2\n%s\n%s%s" % (
            self.head("INSERT"), name or self.next_block(), CENTER % self.place(), turned)

    def dimension(self):
        x, y = self.place()
        wide, high = 10 + self.random() * 5000, 10 + self.random() * 900
        which = int(self.random() * 10)
        kind = 0 if which < 5 else 1 if which < 7 else which - 4 if which < 9 else 2
        if kind < 2:
            tail = "100\nAcDbAlignedDimension\n 13\n%r\n 23\n%r\n 33\n0.0\n 14\n%r\n 24\n%r\n 34\n0.0\n" % (
                x, y, x + wide, y + (0 if kind == 0 else high))
            if kind == 0:
                tail += " 50\n0.0\n100\nAcDbRotatedDimension\n" + (XDATA if self.random() < 0.2 else "")
        elif kind == 2:
            tail = ("100\nAcDb2LineAngularDimension\n 13\n%r\n 23\n%r\n 33\n0.0\n 14\n%r\n 24\n%r\n 34\n0.0\n"
                    " 15\n%r\n 25\n%r\n 35\n0.0\n 16\n%r\n 26\n%r\n 36\n0.0\n") % (
                        x, y, x + wide, y, x, y - 1, x + wide / 2, y + high / 2)
        else:
            tail = "100\nAcDb%sDimension\n 15\n%r\n 25\n%r\n 35\n0.0\n 40\n0.0\n" % (
                "Diametric" if kind == 3 else "Radial", x, y)
        override = "  1\n%s\n" % self.pick(("<>", "R<>", "<> mm", "2\\S1/2;")) if self.random() < 0.2 else ""
        return ("%s100\nAcDbDimension\n  2\n*D%d\n 10\n%r\n 20\n%r\n 30\n0.0\n 11\n%r\n 21\n%r\n 31\n0.0\n 70\n%6d\n"
                " 71\n     5\n%s 42\n%r\n  3\nStandard\n%s") % (
                    self.head("DIMENSION"), 1 + self.handle % PICTURES, x + wide, y + high, x + wide / 2, y + high,
                    32 + kind if kind != 2 else 2, override, wide, tail)


# what a drawing of each kind is made of: parts of a hundred
MIXES = {
    "mixed": (("line", 44), ("polyline", 22), ("arc", 6), ("circle", 5), ("ellipse", 2), ("text", 7), ("mtext", 3),
              ("insert", 8), ("dimension", 3)),
    "unblocked": (("line", 44), ("polyline", 22), ("arc", 6), ("circle", 5), ("ellipse", 2), ("text", 7), ("mtext", 3)),
    "lines": (("line", 100),),
    "polylines": (("polyline", 100),),
    "texts": (("text", 50), ("mtext", 25), ("insert", 25)),
    "dimensions": (("dimension", 100),),
    "layers": (("line", 70), ("circle", 30)),
    "blocks": (("insert", 100),),
}


class Output:
    """The file: counts bytes and ends lines as asked."""

    def __init__(self, path, crlf):
        self.file = open(path, "wb", buffering=1 << 20)
        self.crlf = crlf
        self.size = 0

    def bytes(self, text):
        return (text.replace("\n", "\r\n") if self.crlf else text).encode("utf-8")

    def write(self, text):
        self.size += self.file.write(self.bytes(text))


def table(name, handle, entries, marker=""):
    return "  0\nTABLE\n  2\n%s\n  5\n%s\n330\n0\n100\nAcDbSymbolTable\n 70\n%6d\n%s%s  0\nENDTAB\n" % (
        name, handle, len(entries), marker, "".join(entries))


def entry(maker, kind, table_handle, marker, groups, handle=None, code="  5"):
    return "  0\n%s\n%s\n%s\n330\n%s\n100\nAcDbSymbolTableRecord\n100\n%s\n%s" % (
        kind, code, handle or "%X" % maker.next_handle(), table_handle, marker, groups)


def ltype_groups(name, dashes):
    return "  2\n%s\n 70\n     0\n  3\n\n 72\n    65\n 73\n%6d\n 40\n%r\n%s" % (
        name, len(dashes), float(sum(map(abs, dashes))), "".join([" 49\n%r\n 74\n     0\n" % dash for dash in dashes]))


def tables(maker, layers, records):
    """The TABLES section. records: (name, handle) of each block."""
    view = ("  2\n*Active\n 70\n     0\n 10\n0.0\n 20\n0.0\n 11\n1.0\n 21\n1.0\n 12\n0.0\n 22\n0.0\n 40\n1000.0\n"
            " 41\n1.5\n 42\n50.0\n 43\n0.0\n 44\n0.0\n")
    layer = "  2\n%s\n 70\n     0\n 62\n%6d\n  6\n%s\n370\n%6d\n390\nF\n"
    used = [ltype for ltype, _ in LTYPES[2:]]
    layer_entries = [entry(maker, "LAYER", "2", "AcDbLayerTableRecord", layer % (
        name, 1 + number % 255, used[number % 17 if number % 17 < len(used) else 0], (25, 13, 50, -3)[number % 4]))
        for number, name in enumerate(layers)]
    style = "  2\nStandard\n 70\n     0\n 40\n0.0\n 41\n1.0\n 50\n0.0\n 71\n     0\n 42\n2.5\n  3\ntxt\n  4\n\n"
    blocks = [entry(maker, "BLOCK_RECORD", "1", "AcDbBlockTableRecord", "  2\n%s\n340\n0\n" % name, handle)
              for name, handle in records]
    return "  0\nSECTION\n  2\nTABLES\n" + "".join([
        table("VPORT", "8", [entry(maker, "VPORT", "8", "AcDbViewportTableRecord", view)]),
        table("LTYPE", "5", [entry(maker, "LTYPE", "5", "AcDbLinetypeTableRecord", ltype_groups(*e)) for e in LTYPES]),
        table("LAYER", "2", layer_entries),
        table("STYLE", "3", [entry(maker, "STYLE", "3", "AcDbTextStyleTableRecord", style)]),
        table("VIEW", "6", []), table("UCS", "7", []),
        table("APPID", "9", [entry(maker, "APPID", "9", "AcDbRegAppTableRecord", "  2\nACAD\n 70\n     0\n")]),
        table("DIMSTYLE", "A", [entry(maker, "DIMSTYLE", "A", "AcDbDimStyleTableRecord",
                                      "  2\nStandard\n 70\n     0\n", code="105")], "100\nAcDbDimStyleTable\n"),
        table("BLOCK_RECORD", "1", blocks)]) + "  0\nENDSEC\n"


def block(maker, name, record, entities):
    begin, end = maker.next_handle(), maker.next_handle()
    return ("  0\nBLOCK\n  5\n%X\n330\n%s\n100\nAcDbEntity\n  8\n0\n100\nAcDbBlockBegin\n  2\n%s\n 70\n%6d\n 10\n0.0\n"
            " 20\n0.0\n 30\n0.0\n  3\n%s\n  1\n\n%s  0\nENDBLK\n  5\n%X\n330\n%s\n100\nAcDbEntity\n  8\n0\n"
            "100\nAcDbBlockEnd\n") % (begin, record, name, name.startswith("*D"), name, entities, end, record)


def block_entities(maker, number, plain):
    """What block `number` holds. The first third holds no inserts, each later one inserts two of the third before:
    no block goes deeper than that, and a drawing of them stays finite to draw."""
    if plain:
        inner = maker.insert(maker.blocks[number - 1]) if number % 10 == 9 else ""
        return maker.line() + inner
    third = max(1, len(maker.blocks) // 3)
    parts = [maker.line() for _ in range(3)] + [maker.polyline(), maker.arc(), maker.circle()]
    if number >= third:
        start = (number // third - 1) * third
        parts += [maker.insert(maker.blocks[start + int(maker.random() * third)]) for _ in range(2)]
    return "".join(parts)


def write_blocks(out, maker, records, kind):
    out.write("  0\nSECTION\n  2\nBLOCKS\n")
    own = {name: number for number, name in enumerate(maker.blocks)}
    for name, record in records:
        maker.owner = record
        if name in own:
            entities = block_entities(maker, own[name], kind == "blocks")
        else:
            entities = maker.line() + maker.line() if name.startswith("*D") else ""
        out.write(block(maker, name, record, entities))
    maker.owner = MODEL
    out.write("  0\nENDSEC\n")


HEADER = ("  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1021\n  9\n$DWGCODEPAGE\n  3\nANSI_1252\n"
          "  9\n$HANDSEED\n  5\n7FFFFFFF\n  0\nENDSEC\n  0\nSECTION\n  2\nCLASSES\n  0\nENDSEC\n")
FOOTER = ("  0\nENDSEC\n  0\nSECTION\n  2\nOBJECTS\n  0\nDICTIONARY\n  5\nC\n330\n0\n100\nAcDbDictionary\n281\n     1\n"
          "  3\nACAD_GROUP\n350\nD\n  0\nDICTIONARY\n  5\nD\n330\nC\n100\nAcDbDictionary\n281\n     1\n"
          "  0\nENDSEC\n  0\nEOF\n")


def counts(kind, size, many):
    """How many layers and blocks a drawing of this kind and size has."""
    layers = min(many, size // 500) if kind == "layers" else min(200, size // 5000)
    if kind == "blocks":
        return max(1, layers), max(1, min(many, size // 1300))
    return max(1, layers), max(3, min(300, size // 12_000))


def generate(kind, size, path, seed=1, crlf=False, many=MANY):
    """Writes the drawing and returns the number of bytes written."""
    layer_count, block_count = counts(kind, size, many)
    layers = ["0"] + ["L%06d-%s" % (number, WORDS[number % 11].upper()) for number in range(1, layer_count)]
    blocks = ["B%06d_%s" % (number, WORDS[number % 7]) for number in range(block_count)]
    maker = Maker(seed, layers, blocks, kind)
    names = ["*D%d" % (number + 1) for number in range(PICTURES)] + blocks
    records = [("*Model_Space", MODEL), ("*Paper_Space", PAPER)]
    records += [(name, "%X" % maker.next_handle()) for name in names]
    makers = [getattr(maker, name) for name, parts in MIXES[kind] for _ in range(parts)]
    out = Output(path, crlf)
    with out.file:
        out.write(HEADER)
        out.write(tables(maker, layers, records))
        write_blocks(out, maker, records, kind)
        out.write("  0\nSECTION\n  2\nENTITIES\n")
        target = size - len(out.bytes(FOOTER)) - BATCH * 100  # half a batch before, on average
        while out.size < target:
            out.write("".join([maker.pick(makers)() for _ in range(BATCH)]))
        out.write(FOOTER)
    return out.size


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("kind", metavar="KIND", choices=sorted(MIXES), help="one of " + ", ".join(MIXES))
    parser.add_argument("size", metavar="SIZE_MB", type=float, help="size in millions of bytes, 0.1 or more")
    parser.add_argument("path", metavar="OUT.dxf")
    parser.add_argument("--seed", type=int, default=1, metavar="N", help="another drawing of the same kind")
    parser.add_argument("--many", type=int, default=MANY, metavar="N",
                        help="the number of layers or blocks in drawings of these kinds, 100,000 unless given")
    parser.add_argument("--crlf", action="store_true", help="end lines with CR-LF instead of LF")
    arguments = parser.parse_args()
    if arguments.size < 0.1:
        parser.error("SIZE_MB is less than 0.1")
    size = generate(arguments.kind, int(arguments.size * 1_000_000), arguments.path, arguments.seed, arguments.crlf,
                    arguments.many)
    print("%s: %d bytes" % (arguments.path, size))
    return 0


if __name__ == "__main__":
    sys.exit(main())
