"""scripts/lib/drawn.py counts what is drawn, and the README's figures are what it counts in real drawings, where these
are."""
import argparse
import math
import os
import re
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(ROOT, "scripts", "lib"))
import drawn  # noqa: E402

ARGS = None


def drawing(entities="", blocks="", tables=""):
    sections = (("TABLES", tables), ("BLOCKS", blocks), ("ENTITIES", entities))
    words = " ".join(f"0 SECTION 2 {name} {text} 0 ENDSEC" for name, text in sections if text) + " 0 EOF"
    return "\n".join(words.split()) + "\n"


LINE = "0 LINE 10 0 20 0 11 5 21 5"
BLOCK = f"0 BLOCK 2 Door {LINE} 0 POINT 0 ENDBLK"
DRAWINGS = {
    "a.dxf": drawing(f"{LINE} {LINE} 0 SOLID 0 POLYLINE 0 VERTEX 0 SEQEND"),
    "b.dxf": drawing(blocks=BLOCK),
    "c.DXF": drawing("0 INSERT 2 Door", BLOCK),
    "d.dxf": drawing(),
    "e.dxf": drawing(LINE, tables="0 TABLE 2 LAYER 0 LAYER 2 Walls 0 ENDTAB"),
    "f.dxf": "AutoCAD Binary DXF\r\n\x1a\0",
    "notes.txt": "",
}


class Counts(unittest.TestCase):
    def test_of_a_few_drawings(self):
        with tempfile.TemporaryDirectory() as folder:
            for name, text in DRAWINGS.items():
                with open(os.path.join(folder, name), "w", encoding="utf-8", newline="\n") as file:
                    file.write(text)
            result = drawn.count(ARGS.command, folder)
        self.assertEqual((result.files, result.drawings, result.losing), (6, 5, 3))
        self.assertEqual(result.empty, [("b.dxf", drawn.ONLY_IN_BLOCKS), ("d.dxf", drawn.NO_ENTITIES),
                                        ("e.dxf", drawn.NO_MARKERS)])
        self.assertEqual(result.types, [("LINE", True, 4, 3, 2), ("POINT", False, 2, 0, 2), ("INSERT", True, 1, 1, 0),
                                        ("POLYLINE", False, 1, 1, 0), ("SOLID", False, 1, 1, 0)])
        self.assertIn("4 of 10 entities are of types that are not drawn", drawn.report(result))

    def shows(self, content):
        head = '<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink">'
        return drawn.shows_something(ElementTree.fromstring(head + content + "</svg>"))

    def test_of_what_a_picture_shows(self):
        self.assertTrue(self.shows("<g><g><line/></g></g>"))
        self.assertTrue(self.shows('<g><path fill="none" stroke="#ffffff"/></g>'))
        self.assertTrue(self.shows('<g><path fill="#ffffff" stroke="none"/></g>'))
        self.assertFalse(self.shows('<g><path fill="none" stroke="none" style="fill:#1e1e1e"/></g>'))
        symbols = ('<defs><symbol id="a"><line/></symbol><symbol id="b"><use xlink:href="#a"/></symbol>'
                   '<symbol id="c"><use xlink:href="#c"/></symbol></defs>')
        self.assertFalse(self.shows(symbols + '<rect/><g><line visibility="hidden"/></g>'))
        for used, shown in (("a", True), ("b", True), ("c", False), ("d", False)):
            self.assertEqual(self.shows(f'{symbols}<g><use xlink:href="#{used}"/></g>'), shown, used)


    def test_of_what_is_shown(self):
        with tempfile.TemporaryDirectory() as folder:
            for name, text in {**DRAWINGS, "g.dxf": drawing(f"{LINE} 0 3DSOLID 0 3DSOLID")}.items():
                with open(os.path.join(folder, name), "w", encoding="utf-8", newline="\n") as file:
                    file.write(text)
            shown = drawn.count_shown(ARGS.command, folder)
        self.assertEqual((shown.drawings, shown.blank, shown.empty, shown.missing), (7, 2, 1, {"3DSOLID": 2, "POLYLINE": 1, "SOLID": 1}))
        self.assertEqual(shown.entities - shown.shown, 4)
        self.assertIn("missing: 2 3DSOLID, 1 POLYLINE, 1 SOLID", drawn.report_shown(shown)[1])


class Readme(unittest.TestCase):
    def test_the_command_shows_as_much_as_it_says(self):
        if not os.path.isdir(ARGS.corpus):
            self.skipTest("the real drawings are not here")
        shown = drawn.count_shown(ARGS.command, ARGS.corpus)
        with open(os.path.join(ROOT, "README.md"), encoding="utf-8") as file:
            text = re.sub(r"\s+", " ", file.read())
        told = re.search(r"In (\d+) real drawings, .* at least ([\d.]+) % of the entities .* What is missing is of the types "
                         r"([^.]+)\. .*?(\d+) pictures show nothing, [^.;]*; (\d+) drawings have no entities", text)
        self.assertEqual(shown.entities - shown.shown, sum(shown.missing.values()))
        self.assertEqual(shown.drawings, int(told[1]))
        self.assertEqual(math.floor(1000 * shown.shown / shown.entities) / 10, float(told[2]))
        self.assertEqual(set(shown.missing), set(re.split(", | and ", told[3])))
        self.assertEqual((shown.blank, shown.empty), (int(told[4]), int(told[5])))

    def test_its_figures_are_those_that_are_counted(self):
        if not os.path.isdir(ARGS.corpus):
            self.skipTest("the real drawings are not here")
        result = drawn.count(ARGS.command, ARGS.corpus)
        reasons = [why for _, why in result.empty]
        missing, others = (drawn.sum_of(result.types, one) for one in (False, True))
        most = [f"{one.in_drawing + one.in_blocks:,} {one.name}" for one in result.types if not one.drawn][:7]
        sentences = (
            f"Of {result.files} real drawings",
            f"{result.files - result.drawings} are binary DXF",
            f"{result.losing} of the other {result.drawings} have entities of types that are not drawn. "
            f"These are {missing:,} of {missing + others:,} entities",
            f"above all {', '.join(most[:-1])} and {most[-1]}.",
            f"{len(result.empty)} pictures show nothing. In {reasons.count(drawn.NO_MARKERS)} drawings, the entries",
            f"In {reasons.count(drawn.ONLY_IN_BLOCKS)}, everything that could be drawn is in blocks",
            f"{reasons.count(drawn.NO_ENTITIES)} drawings have no entities",
        )
        with open(os.path.join(ROOT, "README.md"), encoding="utf-8") as file:
            text = re.sub(r"\s+", " ", file.read())
        self.assertEqual([sentence for sentence in sentences if sentence not in text], [])


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--command", required=True)
    parser.add_argument("--corpus", required=True)
    ARGS, rest = parser.parse_known_args()
    unittest.main(argv=sys.argv[:1] + rest)
