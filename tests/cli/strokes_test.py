"""Strokes can be seen and pictures can be opened, and none is blank whose exit code says that it was drawn: of the
drawings that are here, fitted into a screen, and of their sizes."""
import argparse
import collections
import glob
import math
import os
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

ARGS = None
ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(ROOT, "scripts", "lib"))
import drawn  # noqa: E402

SVG = "{http://www.w3.org/2000/svg}"
HREF = "{http://www.w3.org/1999/xlink}href"
STROKED = {SVG + name for name in ("line", "path", "circle", "ellipse", "polyline", "polygon")}

SCREEN = (1210, 900)
VISIBLE = (0.5, 4)  # pixels
LEAST_SHARE = 0.95
LARGEST = 1300  # millimetres


class Picture:
    def __init__(self, text):
        self.root = ElementTree.fromstring(text)
        self.symbols = {"#" + symbol.get("id"): symbol for symbol in self.root.iter(SVG + "symbol")}
        self.known = {}

    def longest(self):
        """The longer side in millimetres; 0 in pixels."""
        return max(self.millimetres(self.root.get(side)) for side in ("width", "height"))

    @staticmethod
    def millimetres(side):
        """0 of a plain number, which is in pixels. Any other unit is an error."""
        if side.endswith("mm"):
            return float(side[:-2])
        float(side)
        return 0

    def median(self):
        """The median width of the strokes that are shown, in pixels of the screen; None without a stroke."""
        box = [float(number) for number in self.root.get("viewBox").split()]
        pixels = min(SCREEN[0] / box[2], SCREEN[1] / box[3])
        counts = collections.Counter()
        for child in self.root:
            if child.tag == SVG + "g":
                counts += self.widths(child, float(child.get("stroke-width", 1)))
        half = sum(counts.values()) / 2
        for width in sorted(counts):
            half -= counts[width]
            if half <= 0:
                return width * pixels
        return None

    def widths(self, element, inherited):
        """How many strokes of which width the element shows, in its own units."""
        counts = collections.Counter()
        if element.get("visibility") == "hidden":
            return counts
        width = float(element.get("stroke-width", inherited))
        if element.tag in STROKED and element.get("stroke") != "none":
            counts[width] += 1
        elif element.tag == SVG + "use":
            counts += self.widths_of_symbol(element.get(HREF), width)
        else:
            for child in element:
                counts += self.widths(child, width)
        scale = scale_of(element.get("transform"))
        return collections.Counter({inner * scale: count for inner, count in counts.items()})

    def widths_of_symbol(self, name, inherited):
        if (name, inherited) not in self.known:
            symbol = self.symbols.get(name)
            self.known[name, inherited] = (self.widths(symbol, inherited) if symbol is not None
                                           else collections.Counter())
        return self.known[name, inherited]


def scale_of(transform):
    found = re.search(r"scale\(([^,]+),([^)]+)\)", transform or "")
    return math.sqrt(abs(float(found[1]) * float(found[2]))) if found else 1


class Strokes(unittest.TestCase):
    def check(self, pattern, least, blank=0):
        """At least so many of the drawings have strokes, and so many show nothing and say so."""
        drawings = sorted(glob.glob(os.path.join(ROOT, pattern)))
        with tempfile.TemporaryDirectory(prefix="plexorn-strokes-") as folder:
            medians, blank_ones = {}, []
            for drawing in drawings:
                path = os.path.join(folder, "picture.svg")
                code = subprocess.run([ARGS.command, "-q", drawing, "-o", path], stderr=subprocess.DEVNULL).returncode
                self.assertIn(code, (0, 6), drawing)
                if code == 6:
                    blank_ones.append(drawing)
                else:
                    with open(path, "rb") as file:
                        picture = Picture(file.read())
                    self.assertLessEqual(picture.longest(), LARGEST, drawing)
                    self.assertTrue(drawn.shows_something(picture.root) or self.is_empty(drawing), drawing)
                    medians[os.path.basename(drawing)] = picture.median()
                    os.unlink(path)
        self.assertEqual(len(blank_ones), blank, blank_ones)
        self.judge({name: median for name, median in medians.items() if median is not None}, least)

    def is_empty(self, drawing):
        info = drawn.info_of(ARGS.command, drawing)
        return info is not None and not info["entities"]

    def judge(self, medians, least):
        self.assertGreaterEqual(len(medians), least, "there are too few pictures with strokes")
        off = {name: median for name, median in medians.items() if not VISIBLE[0] <= median <= VISIBLE[1]}
        print(f"{self.id()}: {len(medians) - len(off)} of {len(medians)} median strokes are {VISIBLE[0]} to "
              f"{VISIBLE[1]} pixels wide", *(f"{name} {median:.3g}" for name, median in off.items()), sep="\n  ")
        self.assertGreaterEqual(len(medians) - len(off), LEAST_SHARE * len(medians))

    def test_examples(self):
        self.check("examples/*.dxf", 2)

    def test_drawings_of_the_traces(self):
        self.check("tests/trace/*.dxf", 10, 1)

    def test_real_drawings(self):
        if not os.path.isdir(ARGS.corpus):
            self.skipTest("there is no corpus")
        self.check(os.path.join(ARGS.corpus, "*.dxf"), 57, 3)


class Judge(unittest.TestCase):
    """The measure sees what it is there for."""

    def median(self, body, box="0 0 1210 900"):
        return Picture(f'<svg xmlns="{SVG[1:-1]}" xmlns:xlink="{HREF[1:-5]}" viewBox="{box}" width="9" '
                       f'height="9">{body}</svg>').median()

    def test_widths_are_those_on_the_screen(self):
        line = '<g><line stroke-width="3" /></g>'
        self.assertAlmostEqual(self.median(line), 3)
        self.assertAlmostEqual(self.median(line, "0 0 12100 10"), 0.3)
        self.assertAlmostEqual(self.median(line, "0 0 10 9000"), 0.3)
        self.assertIsNone(self.median("<g><text>a</text></g>"))

    def test_sizes_are_in_millimetres_or_pixels(self):
        def longest(width):
            return Picture(f'<svg xmlns="{SVG[1:-1]}" width="{width}" height="9"/>').longest()

        self.assertEqual((longest("1400mm"), longest("1400")), (1400, 0))
        for width in ("2m", "9in", "90%", ""):
            with self.assertRaises(ValueError):
                longest(width)

    def test_symbols_count_with_their_scale_as_often_as_they_are_shown(self):
        symbol = '<defs><symbol id="s-A"><path stroke-width="1" /></symbol></defs>'
        use = '<use xlink:href="#s-A" transform="translate(1,1) scale(-4,1)" />'
        self.assertAlmostEqual(self.median(f'{symbol}<g>{use * 3}<line stroke-width="9" /></g>'), 2)
        self.assertAlmostEqual(self.median(f'{symbol}<g>{use}<line stroke-width="9" /><line stroke-width="9" /></g>'), 9)
        self.assertIsNone(self.median(symbol))

    def test_a_share_below_the_least_fails(self):
        test = Strokes()
        fine = {str(number): 1.0 for number in range(19)}
        test.judge(fine | {"thin": 0.4}, 10)
        for medians in (fine | {"thin": 0.4, "wide": 4.1}, {"one": 1.0}):
            with self.assertRaises(AssertionError):
                test.judge(medians, 10)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--command", required=True)
    parser.add_argument("--corpus", required=True)
    ARGS, rest = parser.parse_known_args()
    unittest.main(argv=[sys.argv[0], *rest])
