"""The command draws a hostile drawing of a megabyte within 200 MB, at so many instructions for each byte.

    hostile_test.py --command PLEXORN [--megabytes N] [--count-instructions] [--emulator WINE]

With PLEXORN_FULL=1 in the environment all patterns are tried, otherwise the worst of them.
"""
import argparse
import os
import re
import sys
import tempfile
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, os.path.join(ROOT, "robust"))
import hostile  # noqa: E402
import instructions  # noqa: E402
import peak_memory  # noqa: E402

SIZE = 1_000_000

# The megabytes of what is beyond the limit, as docs/bounds.md says: its host gets the text of all points in one
# piece, of 317 wide characters each.
TOO_DEAR = {"polyline-far-x": (200, 350), "polyline-far-y": (200, 350)}

# Instructions for each byte that is repeated. A few bytes that draw a long text again make up to sixty calls of the host
# for each; of a small drawing, all of it is drawn.
MOST_INSTRUCTIONS = 3300
MORE_INSTRUCTIONS = {"measured-text-drawn-often": 7000, "stacked-text-drawn-often": 90_000}
# The repeated bytes of the smaller drawing that is counted.
COUNTED_SIZE = 5000
COUNTED_SIZE_OF_MANY_CALLS = 500

# What no drawing can be seen in.
NO_DRAWING = ("line-feeds", "zero-bytes")

# Of these nothing is visible: their entities are of kinds that are not drawn, empty, or too far away.
BLANK = ("blocks-that-insert", "blocks-with-a-name", "circle", "dimension", "dimension-3pointangulardimension",
         "dimension-ordinatedimension", "dimension-parts", "dimension-rotateddimension", "dimensions-with-a-part",
         "ellipse", "far-arcs", "far-ellipses", "far-mtexts", "far-texts", "insert", "insert-with-a-name",
         "inserts-far-apart", "lwpolyline", "markers", "mtext", "override-list", "override-lists", "point",
         "polyline-far-points", "polyline-far-x", "polyline-far-y", "text", "unknown-entity")

# The least elements of a picture, and their name.
LEAST = {
    "line": (140_000, "line"),
    "arc": (160_000, "path"),
    "circle": (110_000, "circle"),
    "lwpolyline": (75_000, "polyline"),
    "text": (140_000, "text"),
    "mtext": (120_000, "text"),
    "insert": (110_000, "use"),
    "line-with-a-name": (67_000, "line"),
    "styles": (39_000, "line"),
    "blocks-with-a-name": (29_000, "symbol"),
    "unknown-codes": (1, "line"),
    "bad-codes": (90_000, "line"),
    "polyline-points": (1, "polyline"),
    "dashes-used-often": (45_000, "line"),
    "far-dashes-used-often": (45_000, "line"),
    "far-dashes": (1, "line"),
    "nested-text-drawn-often": (41_000, "text"),
    "measured-text-drawn-often": (41_000, "text"),
    "stacked-text-drawn-often": (220_000, "text"),
    "dimension-2lineangulardimension": (24_000, "text"),
    "entity-sections": (27_000, "line"),
}

# The worst of the patterns, by what the module and the reference host take for them.
PATTERNS = ("line", "arc", "text", "mtext", "line-with-a-name", "styles", "blocks-with-a-name", "unknown-entity",
            "dashes-used-often", "far-dashes-used-often", "far-dashes", "polyline-far-points",
            "nested-text-drawn-often", "measured-text-drawn-often", "stacked-text-drawn-often",
            "dimension-2lineangulardimension", "line-feeds", "zero-bytes", *TOO_DEAR)

# The worst of them for what the command says of a drawing.
TOLD = ("line-with-a-name", "unknown-codes", "bad-codes", "polyline-far-x", "stacked-text-drawn-often")


class Hostile(unittest.TestCase):
    def cost(self, name, *arguments):
        """The exit code and the megabytes of a pattern, and the picture, None without a picture."""
        with tempfile.TemporaryDirectory(prefix="plexorn-hostile-") as folder:
            path = os.path.join(folder, "plan.dxf")
            with open(path, "wb") as file:
                file.write(hostile.drawing(hostile.patterns()[name], SIZE))
            # What a sanitizer keeps of freed memory is not the command's.
            environment = {**os.environ, "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "") + ":quarantine_size_mb=1"}
            as_is = [] if arguments[0] == "info" else ["--as-is"]
            command = [*ARGUMENTS.emulator, ARGUMENTS.command, *as_is, *arguments]
            code, megabytes = peak_memory.run(command, folder, bool(ARGUMENTS.megabytes), environment)
            picture = None
            if os.path.exists(os.path.join(folder, "plan.svg")):
                with open(os.path.join(folder, "plan.svg"), "rb") as file:
                    picture = file.read()
        return code, megabytes, picture

    def check(self, name, code, megabytes, is_drawn=True):
        self.assertEqual(code, 4 if name in NO_DRAWING else 6 if is_drawn and name in BLANK else 0)
        if ARGUMENTS.megabytes:
            least, most = TOO_DEAR[name] if is_drawn and name in TOO_DEAR else (0, ARGUMENTS.megabytes)
            self.assertLessEqual(megabytes, most)
            self.assertGreaterEqual(megabytes, least)

    def check_picture(self, name, picture):
        if name in NO_DRAWING:
            self.assertIsNone(picture)
            return
        self.assertIsNotNone(picture, "no picture was written")
        self.assertTrue(picture.rstrip().endswith(b"</svg>"), picture[-100:])
        least, element = LEAST.get(name, (0, "svg"))
        self.assertGreaterEqual(len(re.findall(rb"<%s\b" % element.encode(), picture)), least, element)


class Work(unittest.TestCase):
    def setUp(self):
        if not ARGUMENTS.count_instructions:
            self.skipTest("instructions of this build are not counted")

    def count(self, content, *arguments):
        with tempfile.TemporaryDirectory(prefix="plexorn-hostile-") as folder:
            with open(os.path.join(folder, "plan.dxf"), "wb") as file:
                file.write(content)
            return instructions.count([ARGUMENTS.command, *arguments], folder)[0]

    def check(self, name, *arguments):
        pattern = hostile.patterns()[name]
        nothing = hostile.empty(pattern)
        size = COUNTED_SIZE_OF_MANY_CALLS if name.startswith("stacked-") else COUNTED_SIZE
        drawings = [hostile.drawing(pattern, len(nothing) + times * size) for times in (1, 2)]
        counts = [self.count(content, *arguments) for content in (nothing, *drawings)]
        # A pattern is repeated whole: a large one not quite twice as often in twice the size.
        half, whole = (len(drawing) - len(nothing) for drawing in drawings)
        grown, each = instructions.growth(*counts) * 2 * half / whole, (counts[2] - counts[0]) / whole
        print(f"{name:34} {each:8.1f} instructions for each byte, growth {grown:.3f} {' '.join(arguments)}")
        self.assertLessEqual(grown, instructions.MOST_GROWTH)
        self.assertLessEqual(each, MORE_INSTRUCTIONS.get(name, MOST_INSTRUCTIONS))


def make_work_test(name, *runs):
    def test(self):
        for arguments in runs:
            with self.subTest(arguments=arguments):
                self.check(name, *arguments)
    return test


def make_test(name):
    def test(self):
        *cost, picture = self.cost(name, "plan.dxf", "-o", "plan.svg")
        print("{:34} code {} {:8.1f} MB".format(name, *cost))
        self.check(name, *cost)
        self.check_picture(name, picture)
    return test


def make_told_test(name):
    def test(self):
        for arguments in (["info", "plan.dxf"], ["--messages", "json", "plan.dxf", "-o", "plan.svg"]):
            with self.subTest(arguments=arguments):
                code, megabytes, _ = self.cost(name, *arguments)
                print(f"{name:34} code {code} {megabytes:8.1f} MB {' '.join(arguments)}")
                self.check(name, code, megabytes, is_drawn=arguments[0] != "info")
    return test


# Each pattern with PLEXORN_FULL=1 in the environment.
for pattern in hostile.patterns() if os.environ.get("PLEXORN_FULL") == "1" else PATTERNS:
    setattr(Hostile, "test_" + pattern.replace("-", "_"), make_test(pattern))
    setattr(Work, "test_" + pattern.replace("-", "_"), make_work_test(pattern, ["plan.dxf", "-o", "plan.svg"]))
for pattern in TOLD:
    setattr(Hostile, "test_told_" + pattern.replace("-", "_"), make_told_test(pattern))
    setattr(Work, "test_told_" + pattern.replace("-", "_"),
            make_work_test(pattern, ["info", "plan.dxf"], ["--messages", "json", "plan.dxf", "-o", "plan.svg"]))

if __name__ == "__main__":
    PARSER = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    PARSER.add_argument("--command", required=True)
    PARSER.add_argument("--megabytes", type=float, default=200, help="0 for any number")
    PARSER.add_argument("--count-instructions", action="store_true", help="needs valgrind and a release build")
    PARSER.add_argument("--emulator", nargs=1, default=[])
    ARGUMENTS, REST = PARSER.parse_known_args()
    unittest.main(argv=[sys.argv[0], "-v", *REST])
