"""plexorn info counts what an independent reader counts: the Debian package python3-ezdxf. The tree's own examples always,
real drawings where they are."""
import argparse
import json
import os
import subprocess
import sys
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
EXAMPLES = os.path.join(os.path.dirname(os.path.dirname(HERE)), "examples")
ARGS = None

# Those that the other reader takes whole, and adds nothing to.
REAL_DRAWINGS = (
    "all-entities-r12-handles", "architecture-imperial-r2000", "blocks-array-rotated-r2007",
    "colors-truecolor-byblock-r2018", "dimension-in-nested-blocks-r2013", "dimensions-of-every-subtype-r2018",
    "dimensions-r12", "everything-in-blocks-entities-empty-r2013", "floorplan-nested-blocks-dims-r2004",
    "insert-with-attribs-array-r2013", "lineweights-all-r2013", "mtext-caret-codes-r2013",
    "mtext-inline-codes-long-lines-r2013", "pavilion-plan-exported-r12", "profile-dims-layers-r2018",
    "roof-dimensions-polylines-r2007", "supported-entities-r2000", "texts-in-block-linetypes-r2007",
    "unicode-escapes-in-table-names-r2013", "visibility-layers-off-frozen-r2018", "woodshed-plan-dims-r2007")

# These belong to the entity before them there, and are entities of their own in a file.
PARTS = {"VERTEX", "SEQEND", "ATTRIB"}
# Layers that the other reader adds to every drawing.
ADDED_LAYERS = {"0", "Defpoints"}


def other_python():
    """A Python that has the package: the tests' own one need not be the system's."""
    for python in (sys.executable, "/usr/bin/python3"):
        if os.path.exists(python) and subprocess.run([python, os.path.join(HERE, "ezdxf_counts.py")]).returncode == 0:
            return python
    return None


def lines_of(*command):
    result = subprocess.run(command, capture_output=True, text=True, check=True)
    return [json.loads(line) for line in result.stdout.splitlines()]


class Counts(unittest.TestCase):
    maxDiff = None

    def compare(self, paths):
        found = lines_of(ARGS.command, "info", "--json", *paths)
        expected = lines_of(ARGS.python, os.path.join(HERE, "ezdxf_counts.py"), *paths)
        self.assertEqual(len(found), len(paths))
        for path, info, other in zip(paths, found, expected):
            with self.subTest(drawing=os.path.basename(path)):
                self.assertEqual({entry["name"]: entry["inDrawing"] + entry["inBlocks"] for entry in info["entities"]
                                  if entry["name"] not in PARTS}, other["types"])
                self.assertEqual({layer["name"] for layer in info["layers"] if layer["defined"]} - ADDED_LAYERS,
                                 set(other["names"]) - ADDED_LAYERS)

    def test_the_examples(self):
        paths = sorted(os.path.join(EXAMPLES, name) for name in os.listdir(EXAMPLES) if name.endswith(".dxf"))
        self.assertGreater(len(paths), 1)
        self.compare(paths)

    def test_real_drawings(self):
        paths = [os.path.join(ARGS.corpus, name + ".dxf") for name in REAL_DRAWINGS]
        paths = [path for path in paths if os.path.exists(path)]
        if not paths:
            self.skipTest("there are no real drawings here")
        self.compare(paths)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--command", required=True)
    parser.add_argument("--corpus", required=True)
    ARGS, rest = parser.parse_known_args()
    ARGS.python = other_python()
    if not ARGS.python:
        print("python3-ezdxf is missing; run scripts/setup test")
        sys.exit(77)
    unittest.main(argv=sys.argv[:1] + rest)
