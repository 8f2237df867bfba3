"""The picture's size, background and look, none of which changes what the module made."""
import json
import re
import shutil
import subprocess
import unittest
import xml.etree.ElementTree as ElementTree

from command_support import CommandTest, LINE, dxf, entities

SVG = "{http://www.w3.org/2000/svg}"
# A line of 100 by 50 units, 104 by 54 with the margin, whose stroke is too thin to count.
LONG_LINE = ("0", "LINE", "8", "0", "370", "1", "10", "0", "20", "0", "11", "100", "21", "50")


def header(*variables):
    return dxf("0", "SECTION", "2", "HEADER", *variables, "0", "ENDSEC")


def insunits(code):
    return header("9", "$INSUNITS", "70", str(code))


def inside(picture):
    """What is between the root's start tag and its end tag, without a style element."""
    text = picture[picture.index(">", picture.index("<svg")) + 1:picture.rindex("</svg>")]
    return re.sub(r"\n?<style>[^<]*</style>", "", text)


class PictureTest(CommandTest):
    def draw(self, content, *options, code=0):
        """The picture, and what was printed."""
        self.write("plan.dxf", content)
        printed = self.expect(code, "plan.dxf", *options)
        return self.read("plan.svg"), printed

    def side(self, content, *options):
        """The width's number and unit."""
        root = ElementTree.fromstring(self.draw(content, *options)[0].encode())
        number, unit = re.match(r"^([\d.e+-]+)([a-z]*)$", root.get("width")).groups()
        return float(number), unit


class Size(PictureTest):
    UNITS = {"in": 25.4, "ft": 304.8, "mi": 1609344, "mm": 1, "cm": 10, "m": 1000, "km": 1e6, "uin": 25.4e-6,
             "mil": 0.0254, "yd": 914.4, "angstrom": 1e-7, "nm": 1e-6, "um": 1e-3, "dm": 100, "dam": 1e4, "hm": 1e5,
             "Gm": 1e12, "au": 149597870700e3, "ly": 9460730472580800e3, "pc": 30856775814913673e3,
             "usft": 1200 / 3937 * 1000, "usin": 100 / 3937 * 1000, "usyd": 3600 / 3937 * 1000,
             "usmi": 5280 * 1200 / 3937 * 1000}

    def expect_width(self, found, unit):
        self.assertEqual(found[1], "mm")
        # The stroke adds a little to 100 units, the margin two parts in a hundred on each side.
        self.assertAlmostEqual(found[0] / self.UNITS[unit], 104, delta=0.1)

    def test_every_unit_of_the_header(self):
        for code, unit in enumerate(self.UNITS, start=1):
            with self.subTest(unit=unit):
                self.expect_width(self.side(insunits(code) + entities(*LONG_LINE), "--true-size"), unit)

    def test_a_unit_that_is_asked_for(self):
        for unit in ("in", "m", "usft", "angstrom"):  # the header's have shown that each one is known
            with self.subTest(unit=unit):
                self.expect_width(self.side(insunits(4) + entities(*LONG_LINE), "--units", unit, "--true-size"), unit)

    def test_units_of_the_survey_are_two_parts_in_a_million_longer(self):
        for ordinary, survey in (("in", "usin"), ("ft", "usft"), ("yd", "usyd"), ("mi", "usmi")):
            sides = [self.side(entities(*LONG_LINE), "--units", unit, "--true-size")[0] for unit in (ordinary, survey)]
            self.assertAlmostEqual(sides[1] / sides[0], 1.000002, delta=3e-7, msg=survey)

    def test_a_drawing_without_a_unit_is_sized_in_pixels(self):
        metric = header("9", "$MEASUREMENT", "70", "1")
        for content in (b"", insunits(0), insunits(25), insunits(-1), metric):
            self.assertEqual(self.side(content + entities(*LONG_LINE)), (1024, ""))
        self.assertEqual(self.side(insunits(4) + entities(*LONG_LINE), "--units", "none"), (1024, ""))

    def test_a_guess_is_made_when_asked_for(self):
        for content, unit in ((header("9", "$MEASUREMENT", "70", "0"), "in"), (b"", "mm"), (insunits(6), "m"),
                              (header("9", "$MEASUREMENT", "70", "1"), "mm")):
            self.expect_width(self.side(content + entities(*LONG_LINE), "--units", "guess", "--true-size"), unit)

    def test_what_was_assumed_is_said(self):
        for content, options, size in (
                (insunits(4), [], ", 104 x 54.01 mm (the unit is mm, by $INSUNITS)\n"),
                (insunits(4), ["--units", "cm"], ", 1040 x 540.1 mm (the unit is cm, as asked for)\n"),
                (b"", [], ", size in pixels (the drawing states no unit)\n"),
                (insunits(0), [], ", size in pixels (the drawing states no unit)\n"),
                (insunits(25), [], ", size in pixels ($INSUNITS 25 is no unit that is known)\n"),
                (insunits(-1), [], ", size in pixels ($INSUNITS -1 is no unit that is known)\n"),
                (insunits(99999999999), [], ", size in pixels ($INSUNITS 99999999999 is no unit that is known)\n"),
                (insunits(25), ["--units", "guess"],
                 " mm (the unit is mm, guessed, $INSUNITS 25 is no unit that is known)\n"),
                (b"", ["--units", "none"], ", size in pixels (as asked for)\n"),
                (b"", ["--units", "guess"], " mm (the unit is mm, guessed, the drawing states no unit)\n"),
                (header("9", "$MEASUREMENT", "70", "0"), ["--units", "guess"],
                 " mm (the unit is in, guessed from $MEASUREMENT)\n")):
            printed = self.draw(content + entities(*LONG_LINE), "--as-is", *options)[1]
            self.assertTrue(printed.endswith(size), printed)

    def test_nothing_to_measure_has_no_size_in_millimetres(self):
        for content, code in ((entities(), 0), (entities("0", "INSERT", "2", "NOWHERE"), 6),
                              (entities(*LONG_LINE[:2], "60", "1", *LONG_LINE[2:]), 6)):
            picture, printed = self.draw(insunits(6) + content, code=code)
            self.assertNotIn("mm", picture[:picture.index(">", picture.index("<svg"))])
            self.assertIn("size in pixels (there is nothing to measure)", printed)

    def test_the_unit_changes_nothing_else(self):
        content = insunits(6) + entities(*LONG_LINE, *LINE)
        pictures = [self.draw(content, "--units", unit)[0] for unit in ("none", "m", "in")]
        self.assertEqual(len({inside(picture) for picture in pictures}), 1)
        self.assertEqual(len({re.search(r'viewBox="([^"]*)"', picture).group(1) for picture in pictures}), 1)

    def test_quiet_sizes_the_same(self):
        content = insunits(6) + entities(*LONG_LINE)
        for options in ([], ["--as-is"]):
            picture = self.draw(content, *options)[0]
            self.assertRegex(picture, '<svg [^>]*width="[0-9.]+mm"')
            self.assertEqual(picture, self.draw(content, "-q", *options)[0])

    def setUp(self):
        super().setUp()
        self.AS_IS = False

    def size_of(self, content, *options):
        """What is said about the size, from the number of milliseconds on."""
        return self.draw(content, *options)[1].split(" ms, ")[1].rstrip("\n")

    def test_a_drawing_beyond_a0_is_written_at_a_standard_scale(self):
        metres = insunits(6) + entities(*LONG_LINE)
        self.assertEqual(self.size_of(metres), "1041 x 540.7 mm at 1:100 (the unit is m, by $INSUNITS)")
        self.assertAlmostEqual(self.side(metres)[0], 1040.7, delta=0.1)
        self.assertEqual(self.size_of(insunits(4) + entities(*LONG_LINE)),
                         "104.1 x 54.07 mm (the unit is mm, by $INSUNITS)")

    def test_a_scale_that_is_asked_for(self):
        metres = insunits(6) + entities(*LONG_LINE)
        self.assertEqual(self.size_of(metres, "--scale", "1:250"), "416.3 x 216.3 mm at 1:250 (the unit is m, by $INSUNITS)")
        self.assertIn(" at 1:50000000 (", self.size_of(metres, "--scale", "1:50000000"))
        self.assertAlmostEqual(self.side(metres, "--scale=1:7")[0], 104073 / 7, delta=1)
        for options in (["--true-size"], ["--scale", "1:1"]):
            self.assertAlmostEqual(self.side(metres, *options)[0], 104073, delta=1)
            self.assertEqual(self.size_of(metres, *options), "104072.8 x 54072.8 mm (the unit is m, by $INSUNITS)")
            self.assertEqual(self.size_of(metres, "--units", "usyd", *options),
                             "95164.36 x 49444.27 mm (the unit is usyd, as asked for)")
        self.assertEqual(self.size_of(entities(*LONG_LINE), "--scale", "1:5"),
                         "size in pixels (the drawing states no unit)")

    def test_what_is_no_scale_is_wrong_usage(self):
        self.write("plan.dxf")
        for text in ("", "50", "1:", "1:0", "1:00", "2:1", "1:2.5", "1:-5", "1:5 ", "1:1234567890"):
            self.assertIn("is not a scale", self.expect(2, "plan.dxf", "--scale", text))
        for options in (["--scale", "1:2", "--true-size"], ["--as-is", "--scale", "1:2"], ["--as-is", "--fit", "most"]):
            self.expect(2, "plan.dxf", *options)
        self.assertEqual(self.names(), ["plan.dxf"])

    def test_json_has_the_scale(self):
        for content, options, scale in ((insunits(6), [], 100), (insunits(6), ["--scale", "1:7"], 7),
                                        (insunits(4), [], 1), (b"", [], None)):
            printed = self.draw(content + entities(*LONG_LINE), "--messages", "json", *options)[1]
            drawn = json.loads(printed.splitlines()[-1])
            self.assertEqual(drawn["scale"], scale)
            self.assertEqual(drawn["filled"], 1)
            self.assertIs(drawn["cropped"], False)


class Fit(PictureTest):
    AS_IS = False
    FAR = entities(*LONG_LINE, "0", "LINE", "8", "0", "10", "999.5", "20", "0", "11", "1000", "21", "0")

    def width(self, *options):
        """The width of the view box, and what was printed."""
        picture, printed = self.draw(self.FAR, *options)
        return float(re.search(r'viewBox="\S+ \S+ (\S+)', picture).group(1)), printed

    def test_what_lies_far_away_is_said(self):
        for options in ([], ["--fit", "all"], ["--as-is"]):
            width, printed = self.width(*options)
            self.assertAlmostEqual(width, 1040, delta=2)
            self.assertIn("; most of it fills 10 % of the picture's longer side, as something small lies far away "
                          "(--fit most leaves that out)", printed)
        self.assertNotIn("fills", self.draw(entities(*LONG_LINE))[1])

    def test_most_is_framed_when_asked_for(self):
        width, printed = self.width("--fit", "most")
        self.assertAlmostEqual(width, 104, delta=0.2)
        self.assertIn("; what lies far from the rest is outside the picture (--fit all shows it)", printed)
        self.assertEqual(self.read("plan.svg").count("<line"), 2)
        whole = entities(*LONG_LINE)
        self.assertEqual(self.draw(whole, "--fit", "most")[0], self.draw(whole)[0])

    def test_json_has_it(self):
        for options, cropped in ([], False), (["--fit", "most"], True):
            drawn = json.loads(self.width("--messages", "json", *options)[1].splitlines()[-1])
            self.assertAlmostEqual(drawn["filled"], 0.1, delta=0.001)
            self.assertIs(drawn["cropped"], cropped)

    def test_what_cannot_be_fitted_is_wrong_usage(self):
        self.write("plan.dxf")
        self.assertIn("cannot be fitted", self.expect(2, "plan.dxf", "--fit", "some"))


class Strokes(PictureTest):
    AS_IS = False
    # A line of the default width, and one of a weight below the thinnest.
    DRAWING = entities("0", "LINE", "8", "0", "10", "0", "20", "0", "11", "42000", "21", "0",
                       "0", "LINE", "8", "0", "370", "5", "10", "0", "20", "0", "11", "42000", "21", "21000")

    def widths(self, *options):
        picture = self.draw(self.DRAWING, *options)[0]
        side = float(re.search(r'viewBox="\S+ \S+ (\S+)', picture).group(1))
        return side, [float(width) for width in re.findall(r'<line [^>]*stroke-width="([^"]*)"', picture)]

    def test_widths_are_those_of_a_sheet(self):
        # Both are thinner on a sheet than the thinnest, 1/1500 of it.
        self.assertEqual(self.widths()[1], [28, 28])

    def test_widths_stay_as_they_are_when_asked_for(self):
        for options in (["--as-is"], ["--as-is", "--hairline"]):
            self.assertEqual(self.widths(*options)[1], [0.5, 0.05])

    def test_hairlines_are_a_pixel_wide(self):
        self.assertIn("vector-effect:non-scaling-stroke;stroke-width:1px}", self.draw(self.DRAWING, "--hairline")[0])


class AsTheModuleDraws(PictureTest):
    """With --as-is the bytes of a picture stay from version to version."""
    CONTENT = dxf(
        "0", "SECTION", "2", "TABLES", "0", "TABLE", "2", "LAYER", "0", "LAYER", "100", "AcDbLayerTableRecord", "2", "WALLS",
        "70", "0", "62", "1", "370", "50", "0", "ENDTAB", "0", "ENDSEC",
        "0", "SECTION", "2", "BLOCKS", "0", "BLOCK", "2", "DOOR", "0", "LINE", "8", "0", "11", "1", "21", "2", "0", "ENDBLK",
        "0", "ENDSEC", "0", "SECTION", "2", "ENTITIES",
        "0", "LINE", "8", "WALLS", "10", "1", "20", "2", "11", "30.5", "21", "-4",
        "0", "CIRCLE", "8", "0", "10", "5", "20", "5", "40", "2.5",
        "0", "LWPOLYLINE", "8", "0", "90", "3", "70", "1", "10", "0", "20", "0", "10", "4", "20", "0", "10", "4", "20", "3",
        "0", "TEXT", "8", "WALLS", "10", "1", "20", "1", "40", "0.5", "1", "a < b",
        "0", "INSERT", "8", "0", "2", "DOOR", "10", "7", "20", "8", "41", "2", "50", "30",
        "0", "ENDSEC", "0", "EOF")
    PICTURE = """\
<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" width="1024" height="530" viewBox="-0.87 -11.818557 32.24 16.688557">
<defs>
<symbol id="s-DOOR" data-name="DOOR" overflow="visible">
<line x1="0" y1="0" x2="1" y2="-2" stroke-width="0.5" stroke="#ffffff" />
</symbol>
</defs>
<rect x="-16.99" y="-20.162836" width="64.48" height="33.377113" fill="#1e1e1e" />
<g fill="none" stroke="#00ff00" stroke-linejoin="round" font-family="sans-serif">
<line x1="1" y1="-2" x2="30.5" y2="4" stroke-width="0.5" stroke="#ff0000" />
<circle r="2.5" cx="5" cy="-5" stroke-width="0.5" stroke="#ffffff" fill-opacity="0" />
<polygon points="0,0 4,0 4,-3" stroke-width="0.5" stroke="#ffffff" fill-opacity="0" />
<text x="1" y="-0.5" fill="#ff0000" stroke="none" font-size="0.5">a &lt; b</text>
<use xlink:href="#s-DOOR" transform="translate(7,-8) rotate(-30) scale(2,1)" />
</g>
</svg>
"""

    def test_the_bytes_stay(self):
        self.write("plan.dxf", self.CONTENT)
        self.expect(0, "plan.dxf")
        self.assertEqual(self.read("plan.svg"), self.PICTURE)


class Look(PictureTest):
    DRAWING = entities(*LONG_LINE, "0", "TEXT", "8", "0", "10", "1", "20", "1", "40", "5", "1", "white",
                       "0", "TEXT", "8", "0", "62", "1", "10", "1", "20", "9", "40", "5", "1", "red")

    def test_paper_has_a_white_background_unless_told_otherwise(self):
        self.assertIn('fill="white"', self.draw(self.DRAWING, "--paper")[0])
        self.assertIn('fill="#eee"', self.draw(self.DRAWING, "--paper", "--background", "#eee")[0])
        self.assertNotIn("<rect", self.draw(self.DRAWING, "--paper", "--background", "none")[0])

    def test_neither_paper_nor_hairlines_change_an_element(self):
        as_is = ["--background", "white", "--as-is"]
        for options, common in ((["--paper"], as_is), (["--hairline"], as_is), (["--paper", "--hairline"], as_is),
                                (["--paper"], as_is[:2])):
            plain = self.draw(self.DRAWING, *common)[0]
            other = self.draw(self.DRAWING, *options, *common)[0]
            self.assertNotEqual(other, plain)
            self.assertEqual(inside(other), inside(plain))
            self.assertEqual(other.count("<style>"), 1)
            self.assertEqual(other[:other.index("<style>")], plain[:other.index("<style>")])

    @unittest.skipUnless(shutil.which("rsvg-convert"), "there is no rsvg-convert")
    def test_paper_shows_white_as_black(self):
        self.assertGreater(self.dark_pixels("--paper"), 500)
        self.assertEqual(self.dark_pixels("--background", "white"), 0)

    def test_hairlines_are_asked_of_every_element_with_a_stroke(self):
        style = re.search(r"<style>([^<]*)</style>", self.draw(self.DRAWING, "--hairline")[0]).group(1)
        self.assertEqual(style, "line,path,circle,ellipse,polyline,polygon{vector-effect:non-scaling-stroke}")

    def dark_pixels(self, *options):
        """How many pixels of a white line's picture are dark."""
        self.draw(entities(*(text.replace("370", "48") for text in LONG_LINE)), "--as-is", *options)
        subprocess.run(["rsvg-convert", "-w", "800", "plan.svg", "-o", "plan.png"], cwd=self.folder, check=True)
        return len([level for level in png_levels(self.path("plan.png")) if level < 128])


def png_levels(path):
    """The red of every pixel."""
    import struct
    import zlib
    with open(path, "rb") as file:
        data = file.read()
    at, width, height, depth, kind, packed = 8, 0, 0, 0, 0, b""
    while at < len(data):
        size, name = struct.unpack(">I4s", data[at:at + 8])
        body = data[at + 8:at + 8 + size]
        if name == b"IHDR":
            width, height, depth, kind = struct.unpack(">IIBB", body[:10])
        elif name == b"IDAT":
            packed += body
        at += size + 12
    assert depth == 8
    step = {2: 3, 6: 4}[kind]
    rows, previous = zlib.decompress(packed), bytearray(width * step)
    levels = []
    for row in range(height):
        start = row * (width * step + 1)
        line = bytearray(rows[start + 1:start + 1 + width * step])
        unfilter(rows[start], line, previous, step)
        levels += line[::step]
        previous = line
    return levels


def unfilter(kind, line, previous, step):
    for i in range(len(line)):
        left = line[i - step] if i >= step else 0
        above, corner = previous[i], previous[i - step] if i >= step else 0
        if kind == 1:
            line[i] = (line[i] + left) & 255
        elif kind == 2:
            line[i] = (line[i] + above) & 255
        elif kind == 3:
            line[i] = (line[i] + (left + above) // 2) & 255
        elif kind == 4:
            guess = left + above - corner
            best = min((abs(guess - left), 0, left), (abs(guess - above), 1, above), (abs(guess - corner), 2, corner))
            line[i] = (line[i] + best[2]) & 255
