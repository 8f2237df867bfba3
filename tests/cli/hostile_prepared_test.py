"""The command prepares and draws a hostile drawing of a megabyte within 200 MB and 30 MB of picture.

    hostile_prepared_test.py --command PLEXORN [--megabytes N] [--count-instructions] [--emulator WINE]

With PLEXORN_FULL=1 in the environment all patterns are tried, and the instructions of more of them counted; otherwise
the worst of them.
"""
import argparse
import os
import sys
import tempfile
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, os.path.join(ROOT, "robust"))
import hostile_prepared  # noqa: E402
import instructions  # noqa: E402
import peak_memory  # noqa: E402

FULL = os.environ.get("PLEXORN_FULL") == "1"

# Bytes of picture for each byte of the drawing, and for what is drawn of any drawing, however small.
MOST_PICTURE = 30
MOST_PICTURE_OF_ANY = 12_000_000

# Nothing of these is visible.
BLANK = ("nested-blocks", "block-in-itself", "mesh-sizes", "mtext-of-braces", "mtext-of-tabs")

COARSER = "drawn coarser: the drawing has more curves than can be shown"
UNFOLDS = "its blocks and arrays unfold too far"
TOO_MUCH = "it has more in it than can be shown"

# What the command says of them.
TOLD = {
    "splines": COARSER,
    "splines-beside-a-speck": COARSER,
    "spline-of-fit-points": COARSER,
    "bulges": "arcs of its polylines are coarser: there are too many",
    "tapered-bulges": COARSER,
    "array": UNFOLDS,
    "arrays": UNFOLDS,
    "blocks-that-double": UNFOLDS,
    "lines-of-any-scale": TOO_MUCH,
    "polyline-of-any-scale": TOO_MUCH,
    "clipped-inserts": TOO_MUCH,
    "viewports-over-lines": "its viewports show too much",
    "viewports-over-circles": COARSER,
    "viewports-over-polyline": "its viewports show too much",
    "viewports-along-arrays": "its outline is missing",
    "nested-blocks": "blocks are nested too deep",
    "block-in-itself": "its block contains itself",
    "multiline-of-many-elements": "the drawing has more in it than can be shown",
    "mtext-of-braces": "a text of more than 256 KB",
    "dense-hatches": "its pattern is too dense to be seen",
    "line-type-of-many-dashes": "a pattern of more than 256 dashes",
}

# The worst of the patterns, by what they took before there were bounds.
PATTERNS = ("splines", "spline-of-fit-points", "spline-of-one-span", "bulges", "tapered-bulges", "arrays",
            "blocks-that-double", "polyline-of-any-scale", "hatch-of-any-scale", "clipped-inserts",
            "viewports-over-circles", "viewports-over-polyline", "viewports-along-bulges", "viewports-along-arrays",
            "multiline-of-many-elements", "tolerances", "dimensions-of-their-values", "line-type-of-many-dashes",
            "dashes-of-any-scale")


def options(name):
    return hostile_prepared.OPTIONS.get(name, ())


class Prepared(unittest.TestCase):
    def draw(self, name):
        with tempfile.TemporaryDirectory(prefix="plexorn-hostile-") as folder:
            path = os.path.join(folder, "plan.dxf")
            with open(path, "w", encoding="utf-8") as file:
                file.write(hostile_prepared.PATTERNS[name](hostile_prepared.SIZE))
            size = os.path.getsize(path)
            environment = {**os.environ, "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "") + ":quarantine_size_mb=1"}
            command = [*ARGUMENTS.emulator, ARGUMENTS.command, "--messages", "json", *options(name), "plan.dxf", "-o",
                       "plan.svg"]
            code, megabytes = peak_memory.run(command, folder, bool(ARGUMENTS.megabytes), environment)
            with open(os.path.join(folder, peak_memory.MESSAGES), encoding="utf-8", errors="replace") as file:
                messages = file.read()
            with open(os.path.join(folder, "plan.svg"), "rb") as file:
                picture = file.read()
        print(f"{name:34} code {code} {megabytes:8.1f} MB, picture {len(picture) / 1e6:6.1f} MB")
        self.assertTrue(picture.rstrip().endswith(b"</svg>"), picture[-100:])
        return size, code, megabytes, len(picture), messages

    def check(self, name):
        size, code, megabytes, picture, messages = self.draw(name)
        self.assertEqual(code, 6 if name in BLANK else 0, messages[:500])
        if ARGUMENTS.megabytes:
            self.assertLessEqual(megabytes, ARGUMENTS.megabytes)
        self.assertLessEqual(picture, MOST_PICTURE * size if size >= 100_000 else MOST_PICTURE_OF_ANY)
        if name in TOLD:
            self.assertIn(TOLD[name], messages)


# Instructions for each byte of a drawing of this size. Smaller ones may cost more: however few their bytes are, blocks may
# unfold to 100,000 entities.
COUNTED_SIZE = 300_000
MOST_INSTRUCTIONS = 12_000


class Work(unittest.TestCase):
    def check(self, name):
        if not ARGUMENTS.count_instructions:
            self.skipTest("instructions of this build are not counted")
        counts = []
        for size in (COUNTED_SIZE, 2 * COUNTED_SIZE):
            with tempfile.TemporaryDirectory(prefix="plexorn-hostile-") as folder:
                with open(os.path.join(folder, "plan.dxf"), "w", encoding="utf-8") as file:
                    file.write(hostile_prepared.PATTERNS[name](size))
                counts.append(instructions.count([ARGUMENTS.command, *options(name), "plan.dxf", "-o", "plan.svg"],
                                                 folder)[0])
        each, grown = counts[1] / (2 * COUNTED_SIZE), counts[1] / counts[0]
        print(f"{name:34} {each:8.1f} instructions for each byte, growth {grown:.3f}")
        self.assertLessEqual(grown, instructions.MOST_GROWTH)
        self.assertLessEqual(each, MOST_INSTRUCTIONS)


# Those whose instructions are counted each time; there is little time.
COUNTED = ("splines", "tolerances")


def make_test(name):
    return lambda self: self.check(name)


for pattern in hostile_prepared.PATTERNS if FULL else PATTERNS:
    setattr(Prepared, "test_" + pattern.replace("-", "_"), make_test(pattern))
for pattern in hostile_prepared.PATTERNS if FULL else COUNTED:
    setattr(Work, "test_" + pattern.replace("-", "_"), make_test(pattern))

if __name__ == "__main__":
    PARSER = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    PARSER.add_argument("--command", required=True)
    PARSER.add_argument("--megabytes", type=float, default=200, help="0 for any number")
    PARSER.add_argument("--count-instructions", action="store_true", help="needs valgrind and a release build")
    PARSER.add_argument("--emulator", nargs=1, default=[])
    ARGUMENTS, REST = PARSER.parse_known_args()
    unittest.main(argv=[sys.argv[0], "-v", *REST])
