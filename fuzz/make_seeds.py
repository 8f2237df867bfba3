#!/usr/bin/env python3
"""Writes the first inputs of every fuzz target: fuzz/make_seeds.py FOLDER makes FOLDER/<target>/ for each.

They come from the drawings of the tests and examples, and from the texts in this file.
"""
import os
import struct
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))

NUMBERS = ["0", "-0", "1.5", "-12.345678", " 70abc", "1e308", "1e400", "-1e-400", "5e-324", ".5", "5.", "-.5e+3",
           "0x10", "inf", "nan", "1e", "1e+", "2147483648", "-4294967276", "99999999999999999999", "  0", " 10", "999",
           "0.1234567890123456", "1234567.8", "12345678901234567890.5", "1.7976931348623159e308",
           "2.4703282292062327208e-324", "9007199254740993", "9007199254740993.01", "900719925474099.301", "4503599627370497.501",
           "0.9479386933143907901", "12973211367780.69629", "3417600573.981182337", "3975778186.293219805", "0000000000000000000001", "\t\v\f\r +7 ", "1.2.3", "--1"]
DOUBLES = [0.0, -0.0, 1.5, 0.005, 99.995, 999999.5, 9999995.0, 0.00009999995, 1e12, 2.0 ** -10, 1e308, 5e-324,
           float("inf"), float("-inf"), float("nan"), -123456.789]


def drawings():
    for folder in ("tests/trace", "tests/issues", "tests/robust/drawings", "tests/hosting", "examples"):
        path = os.path.join(ROOT, folder)
        for name in sorted(os.listdir(path)) if os.path.isdir(path) else []:
            if name.endswith(".dxf"):
                with open(os.path.join(path, name), "rb") as file:
                    yield name[:-len(".dxf")], file.read()


def of_drawings(*headers):
    """Each drawing after each of the headers."""
    for name, drawing in drawings():
        for number, header in enumerate(headers):
            yield f"{name}-{number}", header + drawing


def stream():
    yield from of_drawings(b"\x00\x00", b"\x01\x07", b"\x02\x01", b"\x04\x01")
    for size in (1021, 1022, 1023, 1024, 1025):
        line = b"x\x0E\xFE" + b"y" * (size - 1 - 4 * 254)
        for number, end in enumerate((b"", b"\n", b"\r\n", b"\r", b"\0z\n")):
            yield f"length-{size}-{number}", b"\x40\x00" + line + end + b"a"
            yield f"length-{size}-{number}-short", b"\x40\x80" + line + end + b"a"
    yield "ends", b"\x00\x01a\r\nb\r\r\nc\0d\ne\n\n\x1af\n"


def numbers():
    yield "texts", b"\x00" + "\n".join(NUMBERS).encode()
    yield "long", b"\x02" + b"\n".join([b"1\x0E\x60", b"0.0\x0E\x601e400", b"0\x0E\x40.5e-3", b"1\x0E\x60e-400",
                                        b".0\x0E\x601", b"1.0\x0E\x60e-330", b"9\x0E\x10.9\x0E\x10", b"-0.\x0E\x50"])
    yield "doubles", b"\x01" + b"".join(struct.pack("<di", value, int(-2 ** 31 + 97 * i))
                                        for i, value in enumerate(DOUBLES))


def import_():
    yield from of_drawings(b"\x00\x00\x00", b"\x03\x1f\x00", b"\x04\x40\x09", b"\x08\x00\x00")


def lines(text):
    return b"\x00\x00" + "\n".join(text.split(" ")).encode() + b"\n"


def fields():
    yield from of_drawings(b"\x00\x00", b"\x01\x0d")
    # Files that are out of step where readers meet.
    for number, after in enumerate(("x 0", "1 TABLE 0", "0 x 0", "0 TABLE 2 A 0 ENDTAB 0", "0 ENDSEC 0")):
        yield f"empty-table-{number}", lines(f"0 SECTION 2 TABLES 0 TABLE 2 A 0 ENDTAB {after} SECTION 2 X 0 EOF")
        yield f"table-{number}", lines("0 SECTION 2 TABLES 0 TABLE 0 LAYER 5 A 100 B 2 C 62 3 0 ENDTAB "
                                       f"{after} SECTION 2 X 0 EOF")
    for number, styles in enumerate(("1002 { 40 1 1002 }", "1002 1002 40 1 1002 }", "40 1", "1002 { 1070 1002 40 1")):
        yield f"styles-{number}", lines("0 SECTION 2 ENTITIES 0 DIMENSION 8 A 100 AcDbDimension 1 B 100 "
                                        f"AcDbRotatedDimension 1000 DSTYLE {styles} 0 ENDSEC 0 EOF")


def texts():
    # Each formatting code, alone and in others, and what is cut off within one.
    codes = (r"one two\Pthree", r"{\H2x;{\C1;a}{\c255;b}}\W0.5;\Q15;\T2;c", r"\S1/2;\S1^2;\S1#2;\S+0.1^ -0.1;\S{a}\/b/c;",
             r"\LU\l\OO\o\KS\k%%uu%%oo%%kk", r"\A1;{\H0.5x;low}", r"\pi-3,l3,t3,6,c9;a^Ib^Ic\pqc;d\pqj,r2;e f g",
             r"\fArial|b1|i0;x\Fgdt;abcj", r"%%c%%d%%p%%%%65%%065%%128%%999", r"\U+00B0\U+D83D\U+DE00\M+182A0\M+182A",
             "^I^J^M^ ^^^", r"a\Nb\Xc\~d\\\{\}", "{" * 70 + "a" + "}" * 70, "\u4e2d\u6587\u5b57 \uac00\ud7a3", r"\S1/2", r"\H", "\\", r"\U+",
             r"\pxi99999999999999999999,t*,;", r"<script>&amp;\P]]>")
    headers = (b"\x00\x00\x02\x00\x00\x00\x00\x00", b"\x0f\x13\x01\x05\x01\x01\x00\x05", b"\x2b\x09\x02\x01\x04\x02\x08\x0a")
    for number, code in enumerate(codes):
        for kind, header in enumerate(headers):
            yield f"code-{number}-{kind}", header + code.encode()
    yield "all", headers[1] + "".join(codes).encode()


def svghost():
    # Every operation once, and each of the known attributes with each of the known values.
    operations = bytes(range(14))
    yield "operations", b"\x03\x04none" + b"\x40".join(bytes([op]) + b"\x05abcde" for op in operations)
    for name in range(16):
        yield f"attribute-{name}", b"\x00" + b"".join(
            b"\x00\x64\x65\x66\x67" + bytes([12, 0, name, value]) for value in range(24))
    # At most four elements: three, groups in each other, and more.
    yield "limit", b"\xa0" + b"\x00\x64\x65\x66\x67" * 3 + b"\x09\x0b\x00" * 3 + b"\x00\x64\x65\x66\x67" * 2
    yield "symbols", b"\x00\x08\x01a\x0b\x00\x07\x01b\x64\x64\x0b\xff\x08\x01b\x0b\x00\x07\x01a\x64\x64"


def pairs(text):
    """A drawing of pairs, given as "code value/code value"."""
    return "\n".join("\n".join(pair.split(" ", 1)) for pair in text.split("/")).encode() + b"\n"


# One of each kind that preparing draws in a way of its own.
KINDS = (
    "LWPOLYLINE/90 3/70 1/10 0/20 0/40 1/41 2/42 0.7/10 9/20 0/10 9/20 9",
    "POLYLINE/70 0/0 VERTEX/10 1/20 1/42 1/0 VERTEX/10 9/20 7/0 SEQEND",
    "POLYLINE/70 16/71 2/72 2" + "/0 VERTEX/70 64/10 1/20 2/0 VERTEX/70 64/10 9/20 4" * 2 + "/0 SEQEND",
    "POLYLINE/70 64" + "/0 VERTEX/70 192/10 1/20 2/0 VERTEX/70 192/10 9/20 4" * 2 +
    "/0 VERTEX/70 128/71 1/72 -2/73 3/74 4/0 SEQEND",
    "SPLINE/70 8/71 2/40 0/40 0/40 0/40 1/40 1/40 1/10 0/20 0/10 5/20 9/10 9/20 0",
    "SPLINE/70 1/71 3/74 3/11 0/21 0/11 5/21 9/11 9/21 0", "ELLIPSE/10 0/20 0/11 5/21 0/40 0.5/41 0/42 4/210 1/230 1",
    "SOLID/10 0/20 0/11 9/21 0/12 0/22 9/13 9/23 9", "3DFACE/10 0/20 0/11 9/21 0/12 0/22 9/13 9/23 9/70 1",
    "MLINE/2 STANDARD/40 1/72 2/73 2/10 0/20 0/11 0/21 0/12 1/22 0/13 0/23 1/74 1/41 0/75 0/74 1/41 1/75 0"
    "/11 9/21 0/12 1/22 0/13 0/23 1/74 1/41 0/75 0/74 1/41 1/75 0",
    "LEADER/71 1/72 1/76 3/10 0/20 0/10 5/20 5/10 9/20 9", "XLINE/10 0/20 0/11 1/21 1/0 LINE/11 9/21 9",
    "POINT/10 1/20 2", "IMAGE/10 0/20 0/11 1/21 0/12 0/22 1/13 8/23 4", "TOLERANCE/1 {\\Fgdt;j}%%v0.1%%vA^Jb/11 1",
    "HATCH/2 SOLID/70 1/91 1/92 2/72 1/73 1/93 3/10 0/20 0/42 1/10 9/20 0/10 9/20 9/75 0/76 1",
    "HATCH/2 LINES/70 0/91 1/92 1/93 2/72 2/10 5/20 5/40 5/50 0/51 180/73 1/72 1/10 0/20 5/11 10/21 5/97 0/75 0/76 1"
    "/52 0/41 1/77 0/78 1/53 45/43 0/44 0/45 -1/46 1/79 2/49 2/49 -1",
    "TEXT/10 1/20 2/40 3/1 %%uA%%u%%d\\U+00C4/72 4/11 5/21 5/50 30/51 10", "ATTDEF/10 1/20 2/40 3/1 A/2 TAG/70 2",
    "MTEXT/10 1/20 2/40 3/41 9/71 5/1 {\\H2x;\\C1;a b}\\P\\S1/2;^Ic", "RAY/10 1/20 1/11 1",
    "DIMENSION/70 0/100 AcDbDimension/10 5/20 5/13 0/23 0/14 10/24 0/1 <>x",
    "DIMENSION/70 5/100 AcDbDimension/10 5/20 5/13 5/23 0/14 0/24 5/15 0/25 0",
    "MULTILEADER/300 CONTEXT_DATA{/304 a/12 1/22 1/302 LEADER{/304 LEADER_LINE{/10 1/20 2/10 5/20 5/305 }/303 }/301 }"
    "/172 2", "ACAD_TABLE/10 0/20 0/91 1/92 2/141 1/142 5/142 5/171 1/1 a/171 1/1 b",
    "INSERT/2 B/10 5/20 5/41 2/42 -1/50 30/70 2/71 2/44 9/45 9/66 1/0 ATTRIB/10 1/20 1/40 1/1 a/2 T/0 SEQEND",
    "VIEWPORT/10 0/20 0/40 9/41 9/68 1/69 2/12 0/22 0/45 9", "WIPEOUT/10 0/20 0/11 9/21 0/12 0/22 9/71 1/91 0",
    "ACAD_PROXY_ENTITY/92 20/310 1400000001000000", "HELIX/10 0/20 0/11 5/21 0/12 0/22 0/32 1/40 5/41 3/42 9",
)


def prepare():
    blocks = "0 SECTION/2 BLOCKS/0 BLOCK/2 B/10 1/20 1/0 LINE/8 0/62 0/11 9/21 5/0 CIRCLE/8 A/40 3/0 ENDBLK/0 ENDSEC/"
    for number, kind in enumerate(KINDS):
        drawing = pairs(f"{blocks}0 SECTION/2 ENTITIES/0 {kind}/0 ENDSEC/0 EOF")
        for how in (b"\x00\x00\x00", b"\x0b\x07\x00"):
            yield f"kind-{number}-{how[0]}", how + drawing
    yield from of_drawings(b"\x00\x00\x00", b"\x35\x1d\x00", b"\x00\x00\x01")


def command():
    arguments = (b"\x01\x00", b"\x03\x00\x01\x02", b"\x02\x00\x03", b"\x01\x08", b"\x01\x09", b"\x03\x00\x04\x06")
    for number, header in enumerate(arguments):
        yield f"arguments-{number}", header + b"  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n 11\n5\n  0\nENDSEC\n  0\nEOF\n"
    # Each is spelled out: it then keeps its meaning when the target's own words change.
    for number, words in enumerate((
            "info in.dxf", "info --json --texts in.dxf", "in.dxf --units mm --paper --hairline",
            "in.dxf --units=guess --background red", "in.dxf --units none --background none --strict",
            "in.dxf --messages json --max-messages 2", "in.dxf --max-messages=0 -o-", ". -r -j2 -o .",
            "--files-from in.dxf -0 -o .", "--files-from - -q", "in.dxf missing.dxf --messages=json -j 3",
            "info --files-from in.dxf --json", "info . -r", "in.dxf --background url(1)", "in.dxf -o stdin")):
        header = bytes([len(words.split())]) + b"".join(b"\xff" + bytes([len(word)]) + word.encode()
                                                      for word in words.split())
        yield f"options-{number}", header + b"  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n 11\n5\n  0\nENDSEC\n  0\nEOF\n"
        yield f"options-{number}-list", header + b"in.dxf\nmissing.dxf\0in.dxf\0.\n"
    yield from of_drawings(b"\x01\x00")


TARGETS = {"stream": stream, "numbers": numbers, "import": import_, "fields": fields, "texts": texts,
           "svghost": svghost, "prepare": prepare, "command": command}


def main(folder):
    for target, seeds in TARGETS.items():
        os.makedirs(os.path.join(folder, target), exist_ok=True)
        for name, content in seeds():
            with open(os.path.join(folder, target, name), "wb") as file:
                file.write(content)


if __name__ == "__main__":
    if len(sys.argv) != 2 or sys.argv[1].startswith("-"):
        print(__doc__.strip(), file=sys.stderr if len(sys.argv) != 2 else sys.stdout)
        sys.exit(2 if len(sys.argv) != 2 else 0)
    main(sys.argv[1])
