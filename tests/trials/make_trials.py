#!/usr/bin/env python3
"""Writes the trial drawings of texts and dimensions: tests/trials/make_trials.py FOLDER.

Each is a page to look at: every alignment, attachment, rotation, flag and code, every kind of dimension in two styles,
mirrored blocks with attributes, and alphabets in their old code pages.
"""
import os
import sys

CROSS = 0.6
ALIGNMENTS = [(0, 0), (1, 0), (2, 0), (3, 0), (4, 0), (5, 0), (0, 1), (1, 1), (2, 1), (0, 2), (1, 2), (2, 2), (0, 3),
              (1, 3), (2, 3)]
MARKERS = {"TEXT": "AcDbText", "MTEXT": "AcDbMText", "LINE": "AcDbLine", "CIRCLE": "AcDbCircle", "ARC": "AcDbCircle",
           "LWPOLYLINE": "AcDbPolyline", "INSERT": "AcDbBlockReference", "ATTRIB": "AcDbText"}
LINE_CODES = ["%%c 12 %%p0.1 45%%d", "%%uunder%%u %%oover%%o", "%%kstruck%%k 100%%%", r"\U+00C4\U+03A9 ^I tab",
              "%%065%%128 caret ^ x", "a very long word"]
PARAGRAPH_CODES = [
    r"one {\C1;red} {\C5;blue} {\c255;own} end", r"{\H2x;high} {\H0.5x;low} {\W2;wide} {\Q20;slant}",
    r"\LUnder\l \OOver\o \KStruck\k", r"1\S1/2; 2\S+0.1^-0.2; 3\S1#4; end", r"a^Ib^Ic\P\pt3,9;a^Ib^Ic",
    r"\pi-2,l2;1.^Ifirst words of a list\P2.^Isecond words of a list", r"\pqc;centred\P\pqr;to the right\P\pql;to the left",
    r"\pqj;justified words take all of the width of their lines\Pbut for the last", r"\A0;{\H0.5x;low}A \A1;{\H0.5x;half}A \A2;{\H0.5x;high}A",
    r"braces \{ \} back \\ hard\~blank", r"{nested {\C3;braces {\H1.5x;in} each} other}",
    "ideographs \u4e2d\u6587\u5b57\u4f53 break anywhere \u4e2d\u6587\u5b57\u4f53\u4e2d\u6587"]
# The end of the last paragraph is no line; blanks that are wider than the column are one.
ENDS_AND_BEGINNINGS = [(r"ends here\P",), (r"ends\Phere\P", 71, 4), (r"ends here\P", 71, 8), (" " * 30 + "after blanks",)]
# Variables of DIMSTYLE: metric ones, and those of the inch.
METRIC = [(41, 2.5), (42, 0.625), (44, 1.25), (140, 2.5), (147, 0.625), (73, 0), (74, 0), (77, 1), (78, 8), (271, 2),
          (278, 44), (172, 1), (141, 2.5), (179, 0)]
INCH = [(41, 1.8), (42, 0.625), (44, 1.8), (140, 1.8), (147, 0.9), (73, 1), (74, 1), (77, 0), (78, 0), (271, 3), (277, 2),
        (141, -0.9), (179, 2)]
ALPHABETS = {
    "cyrillic": ("ANSI_1251", "cp1251", "Съешь же ещё этих мягких французских булок"),
    "greek": ("ANSI_1253", "cp1253", "Ξεσκεπάζω την ψυχοφθόρα βδελυγμία"),
    "central": ("ANSI_1250", "cp1250", "Příliš žluťoučký kůň úpěl ďábelské ódy"),
    "turkish": ("ANSI_1254", "cp1254", "Pijamalı hasta yağız şoföre çabucak güvendi"),
    "hebrew": ("ANSI_1255", "cp1255", "דג סקרן שט בים מאוכזב"),
    "thai": ("ANSI_874", "cp874", "เป็นมนุษย์สุดประเสริฐเลิศคุณค่า"),
    "japanese": ("ANSI_932", "cp932", "いろはにほへと 図面 カタカナ"),
    "chinese": ("GB2312", "gb2312", "天地玄黄 宇宙洪荒"),
    "korean": ("KSC5601", "euc_kr", "다람쥐 헌 쳇바퀴에 타고파"),
    "dos": ("dos850", "cp850", "Zwölf große Boxkämpfer ½ ± Ø"),
}


class Drawing:
    """A drawing as pairs; texts in the encoding that it is made with."""

    def __init__(self, page="ANSI_1252", codec="utf-8", version="AC1021", styles=(), dim_styles=()):
        self.codec = codec
        self.lines = []
        self.pairs(0, "SECTION", 2, "HEADER", 9, "$ACADVER", 1, version, 9, "$DWGCODEPAGE", 3, page, 0, "ENDSEC",
                   0, "SECTION", 2, "TABLES", 0, "TABLE", 2, "STYLE")
        for name, *values in styles:
            self.pairs(0, "STYLE", 2, name, *values)
        self.pairs(0, "ENDTAB", 0, "TABLE", 2, "DIMSTYLE")
        for name, values in dim_styles:
            self.pairs(0, "DIMSTYLE", 2, name, *(part for pair in values for part in pair))
        self.pairs(0, "ENDTAB", 0, "ENDSEC", 0, "SECTION", 2, "BLOCKS")
        self.has_entities = False

    def pairs(self, *values):
        self.lines += [str(value) for value in values]

    def entity(self, kind, *values):
        if not self.has_entities:
            self.pairs(0, "ENDSEC", 0, "SECTION", 2, "ENTITIES")
        self.has_entities = True
        marker = (100, MARKERS[kind]) if kind in MARKERS else ()
        self.pairs(0, kind, 100, "AcDbEntity", 8, "0", *marker, *values)

    def cross(self, x, y):
        self.entity("LINE", 62, 1, 10, x - CROSS, 20, y, 11, x + CROSS, 21, y)
        self.entity("LINE", 62, 1, 10, x, 20, y - CROSS, 11, x, 21, y + CROSS)

    def text(self, x, y, words, *values):
        self.entity("TEXT", 10, x, 20, y, 40, 2, 1, words, *values)

    def box(self, x, y, width, height):
        self.entity("LWPOLYLINE", 62, 3, 90, 4, 70, 1, 10, x, 20, y, 10, x + width, 20, y, 10, x + width, 20, y + height,
                    10, x, 20, y + height)

    def paragraphs(self, x, y, words, width, *values):
        self.entity("MTEXT", 10, x, 20, y, 40, 1.5, 41, width, 1, words, *values)

    def content(self):
        return "\n".join([*self.lines, "0", "ENDSEC", "0", "EOF", ""]).encode(self.codec)


def texts():
    drawing = Drawing(styles=[("wide", 41, 1.5, 50, 0), ("slanted", 41, 1, 50, 15), ("fixed", 40, 3)])
    for number, (across, up) in enumerate(ALIGNMENTS):
        x, y = 30 * (number % 3), -6 * (number // 3)
        drawing.cross(x, y)
        drawing.text(x, y, f"Align {across}{up}", 72, across, 73, up, 11, x + (15 if across in (3, 5) else 0), 21, y)
    for number, angle in enumerate(range(0, 360, 45)):
        drawing.text(100, -12, f"at {angle}", 50, angle)
        drawing.text(130, -12, f"end {angle}", 50, angle, 72, 2, 73, 2, 11, 130, 21, -12)
    for number, values in enumerate(((71, 2), (71, 4), (71, 6), (41, 0.5), (41, 2), (51, 20), (51, -20), (7, "wide"),
                                     (7, "slanted"), (7, "fixed", 40, 0), (230, -1), (51, 20, 50, 30, 71, 4))):
        x, y = 30 * (number % 4), -40 - 6 * (number // 4)
        drawing.cross(-x if values[0] == 230 else x, y)
        drawing.text(x, y, "Flag", *values)
    for number, code in enumerate(LINE_CODES):
        drawing.text(130, -30 - 5 * number, code)
    return drawing


def paragraphs():
    drawing = Drawing()
    for number in range(9):
        x, y = 30 * (number % 3), -14 * (number // 3)
        drawing.cross(x, y)
        drawing.paragraphs(x, y, rf"Attached at {number + 1}\Pand more", 16, 71, number + 1)
    for angle in range(0, 360, 60):
        drawing.paragraphs(110, -14, f"turned {angle}", 0, 50, angle)
    for number, code in enumerate(PARAGRAPH_CODES):
        x, y = 30 * (number % 4), -50 - 14 * (number // 4)
        drawing.box(x, y - 12, 24, 12)
        drawing.paragraphs(x, y, code, 24)
    for number, values in enumerate(((90, 1, 63, 2), (90, 3, 45, 1.2), (90, 16), (90, 17, 421, 0x80C0FF), (73, 2, 44, 0.8),
                                     (44, 2), (11, 0.6, 21, 0.8), (230, -1))):
        x, y = 30 * (number % 4), -98 - 16 * (number // 4)
        drawing.entity("LINE", 62, 4, 10, x - 3, 20, y - 4, 11, x + 20, 21, y + 2)
        drawing.paragraphs(x, y, r"Behind it\Por apart", 16, *values)
    for number, (words, *values) in enumerate(ENDS_AND_BEGINNINGS):
        x, y = 30 * number, -150
        drawing.cross(x, y)
        drawing.paragraphs(x, y, words, 16, 90, 16, *values)
    drawing.entity("MTEXT", 10, 0, 20, -130, 40, 1.5, 41, 20, 75, 1, 76, 3, 48, 24, 49, 3, 46, 8, 1,
                   "words in columns that go on from one to the next as long as there is room in it and no longer " * 2)
    return drawing


def dimensions(style, values):
    """Every kind of dimension without a picture of its own."""
    drawing = Drawing(dim_styles=[(style, values)])

    def dimension(kind, marker, *values):
        drawing.entity("DIMENSION", 100, "AcDbDimension", 3, style, 70, kind, *values, 100, marker)

    drawing.box(0, 0, 40, 25)
    dimension(0, "AcDbRotatedDimension", 10, 40, 20, 35, 13, 0, 23, 25, 14, 40, 24, 25)
    dimension(0, "AcDbRotatedDimension", 10, -10, 20, 25, 13, 0, 23, 0, 14, 0, 24, 25, 50, 90)
    dimension(0, "AcDbRotatedDimension", 10, 3, 20, -8, 13, 0, 23, 0, 14, 3, 24, 0)
    dimension(0, "AcDbRotatedDimension", 10, 40, 20, -15, 13, 10, 23, 0, 14, 40, 24, 0, 52, 60)
    dimension(1, "AcDbAlignedDimension", 10, 36, 20, 29, 13, 0, 23, 0, 14, 40, 24, 25)
    dimension(1, "AcDbAlignedDimension", 10, 30, 20, 5, 13, 10, 23, 15, 14, 25, 24, 0, 1, "about <>")
    for x, kind, point in ((70, 3, (60, 12)), (100, 4, (107.07, 19.07))):
        drawing.entity("CIRCLE", 10, x, 20, 12, 40, 10)
        centre = (2 * x - point[0], 12) if kind == 3 else (x, 12)
        dimension(kind, "AcDbRadialDimension", 10, centre[0], 20, centre[1], 15, point[0], 25, point[1], 40, 5)
    drawing.entity("LINE", 10, 0, 20, -40, 11, 30, 21, -40)
    drawing.entity("LINE", 10, 0, 20, -40, 11, 20, 21, -25)
    dimension(2, "AcDb2LineAngularDimension", 13, 0, 23, -40, 14, 30, 24, -40, 15, 0, 25, -40, 10, 20, 20, -25, 16, 24, 26, -35)
    dimension(5, "AcDb3PointAngularDimension", 15, 60, 25, -40, 13, 80, 23, -40, 14, 60, 24, -20, 10, 70, 20, -30)
    dimension(6, "AcDbOrdinateDimension", 10, 0, 20, 0, 13, 40, 23, 25, 14, 50, 24, 30)
    dimension(70, "AcDbOrdinateDimension", 10, 0, 20, 0, 13, 40, 23, 0, 14, 46, 24, -6)
    drawing.entity("ARC", 10, 100, 20, -40, 40, 15, 50, 20, 51, 100)
    drawing.entity("ARC_DIMENSION", 100, "AcDbDimension", 3, style, 70, 8, 10, 110, 20, -20, 100, "AcDbArcDimension",
                   13, 114.095, 23, -34.87, 14, 97.395, 24, -25.228, 15, 100, 25, -40, 70, 0, 40, 0.349, 41, 1.745)
    drawing.entity("LARGE_RADIAL_DIMENSION", 100, "AcDbDimension", 3, style, 70, 9, 10, 160, 20, -60, 100,
                   "AcDbRadialDimensionLarge", 13, 150, 23, -20, 14, 140, 24, 0, 15, 130, 25, 20, 40, 0.785)
    return drawing


def blocks():
    """A block with a constant text, in every mirror, with the attributes that each insert has."""
    drawing = Drawing()
    drawing.pairs(0, "BLOCK", 2, "DOOR", 70, 2, 10, 0, 20, 0, 0, "LWPOLYLINE", 100, "AcDbEntity", 8, "0", 100, "AcDbPolyline", 90, 3, 10, 0, 20, 0, 10, 12, 20, 0,
                  10, 12, 20, 5, 0, "TEXT", 8, "0", 10, 1, 20, 1, 40, 2, 1, "Door",
                  0, "ATTDEF", 8, "0", 10, 1, 20, -3, 40, 1.5, 2, "NAME", 1, "none", 70, 0,
                  0, "ATTDEF", 8, "0", 10, 6, 20, 6, 40, 1, 2, "KIND", 1, "constant", 70, 2, 0, "ENDBLK")
    scales = ((1, 1), (-1, 1), (1, -1), (-1, -1), (2, 1), (1, 0.5))
    for row, angle in enumerate((0, 30, 180)):
        for column, (across, up) in enumerate(scales):
            x, y = 40 * column, -30 * row
            drawing.cross(x, y)
            drawing.entity("INSERT", 2, "DOOR", 10, x, 20, y, 41, across, 42, up, 50, angle, 66, 1)
            drawing.entity("ATTRIB", 10, x, 20, y - 9, 40, 1.5, 2, "NAME", 1, f"D{row}{column}",
                           71, 2 * (across < 0) + 4 * (up < 0))
            drawing.pairs(0, "SEQEND")
    return drawing


def alphabet(page, codec, words):
    drawing = Drawing(page, codec, "AC1015")
    drawing.text(0, 0, words)
    drawing.paragraphs(0, -4, words, 30)
    return drawing


def all_drawings():
    yield "texts", texts()
    yield "paragraphs", paragraphs()
    yield "dimensions-metric", dimensions("METRIC", METRIC)
    yield "dimensions-inch", dimensions("INCH", INCH)
    yield "blocks", blocks()
    for name, (page, codec, words) in ALPHABETS.items():
        yield f"alphabet-{name}", alphabet(page, codec, words)


def main(folder):
    os.makedirs(folder, exist_ok=True)
    for name, drawing in all_drawings():
        with open(os.path.join(folder, name + ".dxf"), "wb") as file:
            file.write(drawing.content())


if __name__ == "__main__":
    if len(sys.argv) != 2 or sys.argv[1].startswith("-"):
        print(__doc__.strip(), file=sys.stderr if len(sys.argv) != 2 else sys.stdout)
        sys.exit(2 if len(sys.argv) != 2 else 0)
    main(sys.argv[1])
