"""What of a drawing is shown, and what the exit code says about it."""
import json
import math
import os
import re

from command_support import CommandTest, DRAWING, LINE, dxf, entities

HATCH = ("0", "HATCH", "8", "0")
WIPEOUT = ("0", "WIPEOUT", "100", "AcDbEntity", "8", "0", "100", "AcDbWipeout", "10", "0", "20", "0", "11", "10", "21", "0",
           "12", "0", "22", "10", "13", "1", "23", "1", "71", "2", "91", "5", "14", "-0.5", "24", "-0.5", "14", "0.5", "24",
           "-0.5", "14", "0.5", "24", "0.5", "14", "-0.5", "24", "0.5", "14", "-0.5", "24", "-0.5")
HIDDEN_LINE = ("0", "LINE", "8", "0", "60", "1", *LINE[4:])


def blocks(*lines):
    return dxf("0", "SECTION", "2", "BLOCKS", *lines, "0", "ENDSEC")


def block(name, *lines):
    return ("0", "BLOCK", "2", name, *lines, "0", "ENDBLK")


def insert(name, *lines):
    return ("0", "INSERT", "8", "0", "2", name, *lines)


def dimension(part, *lines, stated="10"):
    return ("0", "DIMENSION", "100", "AcDbEntity", "8", "0", "100", "AcDbDimension", "10", "10", "20", "5", "70", "1",
            "42", stated, "100", part, *lines)


def aligned(stated):
    return dimension("AcDbAlignedDimension", "13", "0", "23", "0", "14", "10", "24", "0", stated=stated)


HEADER = dxf("0", "SECTION", "2", "HEADER", "9", "$ACADVER", "1", "AC1015")
BROKEN = {
    "the file ends before any entity": (
        HEADER, HEADER[:9], b"  0", dxf("0", ""), blocks(), dxf("0", "SECTION", "2", "ENTITIES", "0", "ENDSEC")),
    "the file ends before any entity outside of its blocks": (blocks(*block("A", *LINE)),),
    "no entity can be read in it": (HEADER + b"w8;&\nx)\n" * 9, HEADER + dxf("no", "code") + entities()),
}


class OutcomeTest(CommandTest):
    def drawn(self, content, *options, code=0):
        """The object about the drawing."""
        self.write("plan.dxf", content)
        printed = self.expect(code, "--messages=json", "plan.dxf", *options)
        [found] = [entry for entry in map(json.loads, printed.splitlines()) if entry["type"] == "drawn"]
        return found

    def info(self, content):
        self.write("plan.dxf", content)
        return json.loads(self.plexorn("info", "--json", "plan.dxf").stdout)


class NothingVisible(OutcomeTest):
    BLANK = {
        "it cannot draw 2 HATCH": entities(*HATCH * 2),
        "it cannot draw 1 INSERT": entities(*insert("NOWHERE")),
        "1 entity is invisible": entities(*HIDDEN_LINE),
        "what it draws is empty or has no usable place": blocks(*block("A"), *block("B")) + entities(*insert("A"), *insert("B")),
        "nothing inserts the blocks that its entities are in": blocks(*block("A", *LINE)) + entities(),
        "the entry at line 10 has no subclass marker": dxf(
            "0", "SECTION", "2", "TABLES", "0", "TABLE", "2", "LAYER", "0", "LAYER", "2", "A", "0", "ENDTAB", "0",
            "ENDSEC") + DRAWING,
    }
    EMPTY = {
        "text": entities("0", "TEXT", "8", "0", "10", "1", "20", "1", "40", "2", "1", ""),
        "polyline": entities("0", "LWPOLYLINE", "8", "0", "90", "0", "70", "0"),
        "circle": entities("0", "CIRCLE", "8", "0", "10", "1", "20", "1", "40", "0"),
        "nested": blocks(*block("A"), *block("B", *insert("A"))) + entities(*insert("B")),
        "hidden in a block": blocks(*block("A", *HIDDEN_LINE)) + entities(*insert("A")),
        "no number": entities("0", "CIRCLE", "8", "0", "10", "1e999", "20", "1", "40", "1"),
    }

    def test_one_line_says_why_and_the_code_is_6(self):
        for reason, content in self.BLANK.items():
            for options in ([], ["-q"], ["--strict"], ["-q", "--strict"], ["--min-drawn", "0"]):
                with self.subTest(reason=reason, options=options):
                    self.write("plan.dxf", content)
                    printed = self.expect(6, "plan.dxf", *options)
                    lines = [line for line in printed.splitlines() if "nothing of it is visible" in line]
                    self.assertEqual(len(lines), 1, printed)
                    self.assertIn("plan.dxf: nothing of it is visible: ", lines[0])
                    self.assertIn(reason, lines[0])
                    self.assertTrue(self.read("plan.svg").endswith("</svg>\n"))

    def test_what_is_empty_is_not_visible(self):
        for name, content in self.EMPTY.items():
            with self.subTest(name=name):
                self.write("plan.dxf", content)
                self.assertIn("nothing of it is visible", self.expect(6, "-q", "plan.dxf"))

    def test_programs_get_it_too(self):
        self.write("plan.dxf", self.BLANK["it cannot draw 2 HATCH"])
        doubtful, drawn = map(json.loads, self.expect(6, "--messages=json", "plan.dxf").splitlines())
        self.assertEqual(doubtful, {"type": "doubtful", "file": "plan.dxf", "exit": 6,
                                    "text": "nothing of it is visible: it cannot draw 2 HATCH"})
        self.assertIs(drawn["blank"], True)
        self.assertEqual(drawn["share"], {"entities": 2, "shown": 0, "percent": 0, "missing": {"HATCH": 2},
                                          "otherwise": {}, "hidden": {}})

    def test_one_visible_element_is_enough(self):
        for content in (entities(*HATCH, *LINE), blocks(*block("A", *LINE)) + entities(*insert("A"), *HIDDEN_LINE)):
            self.assertIs(self.drawn(content)["blank"], False)

    def test_a_drawing_without_entities_is_no_failure(self):
        for content in (entities(), blocks(*block("A")) + entities(), dxf("0", "EOF")):
            self.write("plan.dxf", content)
            self.assertNotIn("visible", self.expect(0, "--strict", "plan.dxf"))
            self.assertEqual(self.expect(0, "-q", "plan.dxf"), "")
            if not self.AS_IS:
                self.assertEqual(self.expect(0, "prepare", "-q", "-o", "out.dxf", "plan.dxf"), "")

    def test_of_a_broken_file_nobody_knows_what_it_should_hold(self):
        ways = ([], ["-q"], ["--strict"]) if self.AS_IS else (
            [], ["-q"], ["--strict"], ["prepare", "-o", "out.dxf"], ["prepare", "-q", "-o", "out.dxf"])
        for reason, contents in BROKEN.items():
            for content in contents:
                for words in ways:
                    with self.subTest(reason=reason, content=content, words=words):
                        self.write("plan.dxf", content)
                        said = self.expect(6, *words, "plan.dxf")
                        self.assertEqual(said.count("nothing of it is visible"), 1, said)
                        self.assertIn(f"plan.dxf: nothing of it is visible: {reason}\n", said)

    def test_of_several_a_failure_comes_first(self):
        self.write("a.dxf", entities(*HATCH))
        self.write("b.dxf")
        printed = self.expect(6, "a.dxf", "b.dxf")
        self.assertRegex(printed.splitlines()[-1], r"^2 drawn, of them 1 blank, 0 failed, ")
        self.expect(6, "--strict", "a.dxf", "b.dxf")
        self.expect(5, "a.dxf", "b.dxf", "none.dxf")


class PreparedNothingVisible(OutcomeTest):
    AS_IS = False
    test_a_drawing_without_entities_is_no_failure = NothingVisible.test_a_drawing_without_entities_is_no_failure
    test_of_a_broken_file_nobody_knows_what_it_should_hold = \
        NothingVisible.test_of_a_broken_file_nobody_knows_what_it_should_hold
    LAYER = ("0", "SECTION", "2", "TABLES", "0", "TABLE", "2", "LAYER", "0", "LAYER", "2", "0", "70", "1", "0", "ENDTAB", "0",
             "ENDSEC")
    BLANK = {
        "it cannot draw 2 3DSOLID": entities(*("0", "3DSOLID", "8", "0") * 2),
        "it cannot draw 1 INSERT": entities(*insert("NOWHERE")),
        "1 entity is invisible": entities(*HIDDEN_LINE),
        "1 entity is on layers that are off or frozen": dxf(*LAYER) + DRAWING,
        "2 entities are in the paper space": entities(*(*LINE, "67", "1") * 2),
        "nothing inserts the blocks that its entities are in": blocks(*block("A", *LINE)) + entities(),
        "nothing inserts the blocks that its entities are in; 1 entity is in the paper space":
            blocks(*block("A", *LINE)) + entities(*LINE, "67", "1"),
        "a WIPEOUT only hides what is behind it": entities(*WIPEOUT),
    }
    EMPTY = {
        "1 entity is empty or without a size": ("0", "LWPOLYLINE", "8", "0", "90", "0", "70", "0"),
        "what it holds is empty or has no usable place": ("0", "TEXT", "8", "0", "40", "1", "1", " "),
    }

    def test_one_line_says_why_and_the_code_is_6(self):
        empty = [(reason, content) for reason, lines in self.EMPTY.items()
                 for content in (entities(*lines), dxf(*lines, "0", "EOF"))]
        for reason, content in (*self.BLANK.items(), *empty):
            for words in ([], ["-q"], ["-q", "--strict"], ["prepare", "-o", "out.dxf"], ["prepare", "-q", "-o", "out.dxf"]):
                with self.subTest(reason=reason, words=words):
                    self.write("plan.dxf", content)
                    printed = self.expect(6, *words, "plan.dxf")
                    self.assertIn(f"plan.dxf: nothing of it is visible: {reason}\n", printed)

    def test_layers_that_are_not_shown_are_the_reason(self):
        layers = ("0", "SECTION", "2", "TABLES", "0", "TABLE", "2", "LAYER", "0", "LAYER", "2", "A", "70", "0", "62", "7",
                  "290", "0", "0", "ENDTAB", "0", "ENDSEC")
        line = ("0", "LINE", "8", "A", "11", "1", "21", "1")
        content = dxf(*layers) + entities(*line, *line)
        for options, reason in {
                ("--layer", "B"): "2 entities are on layers that were not chosen",
                ("--not-layer", "a*"): "2 entities are on layers that were not chosen",
                ("--paper",): "2 entities are on layers that are not plotted"}.items():
            with self.subTest(options=options):
                self.write("plan.dxf", content)
                self.assertIn(f"plan.dxf: nothing of it is visible: {reason}\n", self.expect(6, "plan.dxf", *options))
        self.write("plan.dxf", entities("0", "LINE", "8", "Defpoints", "11", "1", "21", "1"))
        self.assertIn("visible: 1 entity is on layers that are not plotted\n", self.expect(6, "plan.dxf"))

    def test_windows_of_sheets_are_no_reason(self):
        self.write("plan.dxf", blocks(*block("A", *LINE)) + entities("0", "VIEWPORT", "67", "1"))
        self.assertIn("visible: nothing inserts the blocks that its entities are in\n", self.expect(6, "plan.dxf"))

    def test_a_window_alone_is_in_the_paper_space(self):
        self.write("plan.dxf", entities("0", "VIEWPORT", "67", "1"))
        self.assertIn("visible: all that it holds is in the paper space\n", self.expect(6, "plan.dxf"))

    def test_line_types_with_texts_are_shown_otherwise(self):
        dashes = ("2", "GAS", "70", "0", "72", "65", "73", "2", "40", "1", "49", "0.5", "74", "0", "49", "-0.5", "74", "2",
                  "75", "0", "340", "11", "46", "0.1", "50", "0", "44", "0", "45", "0", "9", "GAS")
        table = ("0", "SECTION", "2", "TABLES", "0", "TABLE", "2", "LTYPE", "0", "LTYPE", *dashes, "0", "ENDTAB", "0", "ENDSEC")
        said = "without the texts or shapes of its line type"
        for kind in ("LINE", "3DLINE", "XLINE", "CIRCLE"):
            self.write("plan.dxf", dxf(*table) + entities("0", kind, "6", "GAS", "11", "9", "40", "5"))
            self.assertIn(f"; shown otherwise: 1 {kind} {said}\n", self.expect(1, "--strict", "plan.dxf"))
            self.write("plan.dxf", dxf(*table) + entities("0", kind, "11", "9", "40", "5"))
            self.assertNotIn(said, self.expect(0, "--strict", "plan.dxf"))

    def test_line_types_that_are_missing_are_solid_and_said_once_each(self):
        layer = ("0", "SECTION", "2", "TABLES", "0", "LAYER", "2", "Pipes", "6", "HIDDEN", "0", "ENDSEC")
        end = ("11", "9", "21", "5")
        self.write("plan.dxf", dxf(*layer) + entities(
            "0", "LINE", "6", "dot2", *end, "0", "LINE", "6", "DOT2", *end, "0", "LINE", "8", "Pipes", *end,
            "0", "LINE", "6", "ByLayer", *end, "0", "LINE", "6", "BYBLOCK", *end, "0", "LINE", "6", "continuous", *end,
            "0", "LINE", "60", "1", "6", "X", *end, "0", "TEXT", "6", "Y", "40", "1", "1", "A"))
        said = self.expect(1, "--strict", "plan.dxf").splitlines()
        self.assertEqual(said[:-1], ["plan.dxf:34: LINE: its line type HIDDEN is missing: a solid line",
                                     "plan.dxf:18: LINE: its line type dot2 is missing: a solid line (2 times)"])
        self.assertNotIn("stroke-dasharray", self.read("plan.svg"))

    def test_line_types_of_little_but_shapes_are_solid_and_shown_otherwise(self):
        for drawn, dashes in (("0.1", 0), ("2", 1)):
            waves = ("2", "WAVES", "70", "0", "72", "65", "73", "2", "40", "1", "49", drawn, "74", "0", "49", "-0.9", "74", "4",
                     "75", "134", "340", "11", "46", "1", "50", "0", "44", "0", "45", "0")
            table = ("0", "SECTION", "2", "TABLES", "0", "TABLE", "2", "LTYPE", "0", "LTYPE", *waves, "0", "ENDTAB", "0",
                     "ENDSEC")
            self.write("plan.dxf", dxf(*table) + entities("0", "LINE", "6", "WAVES", "11", "9", "20", "5"))
            self.assertIn("; shown otherwise: 1 LINE without the texts or shapes of its line type\n",
                          self.expect(1, "--strict", "plan.dxf"))
            self.assertEqual(self.read("plan.svg").count("stroke-dasharray"), dashes)

    def test_entities_with_broken_numbers_count(self):
        broken = ("0", "LINE", "10", "nan", "11", "1")
        self.write("plan.dxf", entities(*LINE, *broken))
        printed = self.expect(0, "--min-drawn", "50%", "plan.dxf")
        self.assertIn(", 1 of 2 entities shown (50.0 %), ", printed)
        self.assertIn("; missing: 1 LINE\n", printed)
        self.write("plan.dxf", blocks(*block("A", *LINE, *broken)) + entities(*LINE, *insert("A")))
        self.assertIn(", 3 of 4 entities shown (75.0 %), ", self.expect(0, "plan.dxf"))

    def test_what_a_mask_lies_beside_is_visible(self):
        self.write("plan.dxf", entities(*WIPEOUT, *LINE))
        self.assertEqual(self.expect(0, "-q", "--strict", "plan.dxf"), "")

    def test_entries_without_markers_hide_nothing(self):
        self.write("plan.dxf", NothingVisible.BLANK["the entry at line 10 has no subclass marker"])
        self.assertEqual(self.expect(0, "-q", "--strict", "plan.dxf"), "")


def polyline(*vertices, flags="0"):
    return ("0", "POLYLINE", "8", "0", "70", flags, *(text for vertex in vertices for text in ("0", "VERTEX", *vertex)), "0",
            "SEQEND")


class PreparedShares(OutcomeTest):
    """Whatever gives nothing to the picture is missing, alone as beside what is seen."""
    AS_IS = False
    ONE = ("10", "1", "20", "2")
    # Nothing of these is seen, and they are not shown.
    MISSING = {
        "CIRCLE without radius": ("0", "CIRCLE", *ONE),
        "ARC without radius": ("0", "ARC", *ONE, "50", "0", "51", "90"),
        "ARC of equal angles": ("0", "ARC", *ONE, "40", "3", "50", "30", "51", "30"),
        "ELLIPSE without an axis": ("0", "ELLIPSE", *ONE, "11", "0", "40", "1", "41", "0", "42", "6.283185307179586"),
        "LWPOLYLINE without vertices": ("0", "LWPOLYLINE", "90", "0"),
        "LWPOLYLINE of one vertex": ("0", "LWPOLYLINE", "90", "1", *ONE),
        "LWPOLYLINE in one place": ("0", "LWPOLYLINE", "90", "3", *ONE * 3),
        "wide LWPOLYLINE in one place": ("0", "LWPOLYLINE", "90", "2", "43", "2", *ONE * 2),
        "round LWPOLYLINE in one place": ("0", "LWPOLYLINE", "90", "2", *("42", "1", *ONE) * 2),
        "POLYLINE without vertices": polyline(),
        "POLYLINE of one vertex": polyline(ONE),
        "3D POLYLINE in one place": polyline(ONE, ONE, flags="8"),
        "POLYLINE as a polyface that points nowhere": polyline(
            (*ONE, "70", "192"), ("70", "128", "71", "7", "72", "8", "73", "9"), flags="64"),
        "POLYLINE as a mesh of one vertex": polyline((*ONE, "70", "64"), flags="16"),
        "SPLINE without points": ("0", "SPLINE", "71", "3"),
        "LEADER without points": ("0", "LEADER"),
        "MLINE without points": ("0", "MLINE"),
        "MESH without faces": ("0", "MESH"),
        "MULTILEADER without content": ("0", "MULTILEADER"),
        "WIPEOUT without a size": ("0", "WIPEOUT"),
        "SOLID without corners": ("0", "SOLID"),
        "TRACE without corners": ("0", "TRACE"),
        "3DFACE without corners": ("0", "3DFACE"),
        "TOLERANCE without text": ("0", "TOLERANCE", *ONE),
        "RAY without direction": ("0", "RAY", *ONE, "11", "0"),
        "XLINE without direction": ("0", "XLINE", *ONE, "11", "0"),
        "XLINE end-on": ("0", "XLINE", *ONE, "11", "0", "31", "1"),
        "IMAGE without a size": ("0", "IMAGE", *ONE),
        "HATCH without a boundary": ("0", "HATCH", "91", "0"),
        "ACAD_TABLE without cells": ("0", "ACAD_TABLE", *ONE),
        "3DSOLID": ("0", "3DSOLID"),
        "INSERT of no block": insert("NOWHERE"),
        "LINE with a broken number": ("0", "LINE", *ONE, "11", "nan"),
    }
    # These are dots.
    DOTS = {
        "LINE without points": ("0", "LINE"),
        "LINE without length": ("0", "LINE", *ONE, "11", "1", "21", "2"),
        "LINE end-on": ("0", "LINE", *ONE, "11", "1", "21", "2", "31", "5"),
        "POINT": ("0", "POINT", *ONE),
    }
    # Nothing of these is seen either, as their drawings want it.
    SHOWN = {
        "TEXT": ("0", "TEXT", *ONE, "40", "1", "1", ""),
        "MTEXT": ("0", "MTEXT", *ONE, "40", "1"),
        "ATTDEF": ("0", "ATTDEF", *ONE, "40", "1"),
        "INSERT": insert("EMPTY"),
        "3DFACE": ("0", "3DFACE", "10", "1", "11", "4", "22", "4", "23", "4", "70", "15"),
        "polyface": polyline(("10", "1", "70", "192"), ("10", "4", "70", "192"), ("20", "4", "70", "192"),
                             ("70", "128", "71", "-1", "72", "-2", "73", "-3"), flags="64"),
    }
    BLOCKS = blocks(*block("EMPTY"))

    def count_shapes(self):
        """How many shapes and texts the picture has, whatever the command says of it."""
        return len(re.findall(r"<(?:line|path|circle|ellipse|polyline|polygon|text)\b(?![^>]*visibility=\"hidden\")",
                              self.read("plan.svg")))

    def assert_adds_up(self, content, shown, missing, code=0):
        """All that says something of a drawing's share says the same."""
        share = self.drawn(content, code=code)["share"]
        self.assertEqual((share["shown"], share["missing"]), (shown, missing))
        self.assertEqual(share["entities"], shown + sum(missing.values()))
        self.assertEqual(self.info(content)["share"], share)
        summary = json.loads(self.plexorn("info", "--summary", "--json", "plan.dxf").stdout)
        self.assertEqual(summary["share"], share)
        whole = "entity shown" if shown == 1 else f"{shown} entities shown"
        words = whole if not missing else f"{shown} of {share['entities']} entit"
        for command in ([], ["prepare", "-o", "out.dxf"]):
            said = self.expect(code, *command, "plan.dxf").splitlines()[-1]
            self.assertIn(words, said)
            for name, count in missing.items():
                self.assertIn(f"; missing: {count} {name}", said)

    def test_what_gives_nothing_is_missing(self):
        for name, lines in self.MISSING.items():
            for beside in (LINE, ()):
                for count in (1, 2):
                    with self.subTest(name=name, beside=beside, count=count):
                        self.assert_adds_up(entities(*beside, *lines * count), len(beside) // len(LINE), {lines[1]: count},
                                            0 if beside else 6)
                        self.assertEqual(self.expect(0 if beside else 6, "-q", "plan.dxf") == "", bool(beside))
                        self.assertEqual(self.count_shapes(), 1 if beside else 0)
            self.assertIn("shown:" if name != "INSERT of no block" else "", self.expect(6, "plan.dxf"))

    def test_what_is_a_dot_is_shown(self):
        for name, lines in self.DOTS.items():
            for beside in (LINE, ()):
                for profile in ("standard", "module"):
                    with self.subTest(name=name, beside=beside, profile=profile):
                        count = 1 + len(beside) // len(LINE)
                        self.assert_adds_up(entities(*beside, *lines), count, {})
                        self.assertEqual(self.count_shapes(), count)
                        self.plexorn("prepare", "--for", profile, "-o", "out.dxf", "plan.dxf")
                        self.assertEqual(self.read("out.dxf").count("\nLINE\n"), count)

    def test_it_is_missing_in_blocks_too(self):
        for name in ("LWPOLYLINE in one place", "CIRCLE without radius", "TOLERANCE without text"):
            lines = self.MISSING[name]
            with self.subTest(name=name):
                content = blocks(*block("A", *LINE, *lines)) + entities(*insert("A"), *insert("A", "50", "30"))
                self.assert_adds_up(content, 3, {lines[1]: 1})

    def test_what_has_nothing_to_be_seen_is_shown(self):
        for name, lines in self.SHOWN.items():
            with self.subTest(name=name):
                self.assert_adds_up(self.BLOCKS + entities(*LINE, *lines), 2, {})
                self.expect(0, "-q", "--strict", "plan.dxf")
                self.assert_adds_up(self.BLOCKS + entities(*lines), 1, {}, 6)

    def test_rays_that_do_not_meet_the_drawing_are_missing(self):
        for kind in ("RAY", "XLINE"):
            self.assert_adds_up(entities(*LINE, "0", kind, "20", "9", "11", "1"), 1, {kind: 1})
            self.assertIn(f"{kind} is not shown: it does not meet the drawing\n", self.expect(0, "plan.dxf"))
            self.assert_adds_up(entities("0", kind, "20", "9", "11", "1"), 1, {})

    def test_hatches_between_the_lines_of_their_pattern_are_shown(self):
        corners = [text for x, y in ((1, 1), (2, 1), (2, 2)) for text in ("10", str(x), "20", str(y))]
        for spacing, shapes in (("50", 1), ("0.25", 5)):
            hatch = ("0", "HATCH", "2", "A", "70", "0", "91", "1", "92", "3", "72", "0", "73", "1", "93", "3", *corners, "97",
                     "0", "76", "1", "78", "1", "53", "0", "43", "0", "44", "0", "45", "0", "46", spacing, "79", "0")
            self.assert_adds_up(entities(*LINE, *hatch), 2, {})
            self.assertEqual(self.count_shapes() > 1, shapes > 1)

    def test_points_without_marks_are_shown(self):
        header = dxf("0", "SECTION", "2", "HEADER", "9", "$PDMODE", "70", "1", "0", "ENDSEC")
        point = ("0", "POINT", "10", "1", "20", "2")
        self.assert_adds_up(header + entities(*LINE, *point), 2, {})
        self.assert_adds_up(entities(*LINE, *point), 2, {})
        self.assert_adds_up(entities(*point), 1, {})

    def test_what_has_a_size_is_shown(self):
        for lines in (LINE, ("0", "XLINE", "10", "2", "20", "3", "11", "1"), ("0", "RAY", "10", "2", "11", "0", "21", "1"), WIPEOUT,
                      ("0", "CIRCLE", "40", "1"), ("0", "TEXT", "40", "1", "1", "a"), aligned("10"),
                      ("0", "SOLID", "11", "1", "22", "1"), ("0", "TOLERANCE", "1", "a", "40", "1"),
                      ("0", "LEADER", "10", "0", "10", "5"), ("0", "ARC", "40", "1", "51", "90")):
            with self.subTest(lines=lines):
                self.assert_adds_up(entities(*LINE, *lines), 2, {})
                self.assertGreater(self.count_shapes(), 1)

    def test_an_entity_is_missing_once(self):
        itself = blocks(*block("A", *LINE, *insert("A", "70", "5", "71", "5", "44", "9", "45", "9")))
        self.assert_adds_up(itself + entities(*insert("A")), 2, {"INSERT": 1})

    def test_an_image_without_a_size_is_no_frame(self):
        self.write("plan.dxf", entities(*LINE, *self.MISSING["IMAGE without a size"]))
        self.assertNotIn("frame", self.expect(0, "plan.dxf"))

    def test_what_is_left_out_last_is_missing_too(self):
        far = ("0", "INSERT", "2", "A", "70", "30000", "71", "30000", "44", "1", "45", "1")
        share = self.drawn(blocks(*block("A", *LINE)) + entities(*LINE, *far))["share"]
        self.assertEqual(share["entities"], share["shown"] + sum(share["missing"].values()))

    def test_entities_of_hidden_layers_are_mentioned(self):
        off = dxf("0", "SECTION", "2", "TABLES", "0", "TABLE", "2", "LAYER", "0", "LAYER", "2", "Off", "62", "-1", "0",
                  "LAYER", "2", "Frozen", "70", "1", "0", "ENDTAB", "0", "ENDSEC")
        lines = [("0", "LINE", "8", layer, *LINE[4:]) for layer in ("Off", "Frozen")]
        for count, words in ((1, "; 1 more is on a layer that is off or frozen\n"),
                             (2, "; 2 more are on layers that are off or frozen\n")):
            content = off + entities(*LINE, *sum(lines[:count], ()))
            share = self.drawn(content, "--strict")["share"]
            self.assertEqual((share["entities"], share["shown"], share["hidden"]), (1, 1, {"offOrFrozen": count}))
            self.assertTrue(self.expect(0, "--strict", "plan.dxf").endswith(words))
            self.assertTrue(self.expect(0, "prepare", "-o", "out.dxf", "plan.dxf").endswith(words))
        share = self.drawn(content, "--layers", "all")["share"]
        self.assertEqual((share["entities"], share["hidden"]), (3, {}))
        self.assertEqual(self.drawn(content, "--layer", "0")["share"]["hidden"], {"notChosen": 2})

    def test_viewports_count(self):
        def window(number, *more):
            return ("0", "VIEWPORT", "67", "1", "69", number, "41", "10", "12", "2", "22", "2", "45", "10", *more)

        whole = window("1", "40", "10", "68", "1")
        on, off, flat = (window("2", *more) for more in (("40", "10", "68", "1"), ("40", "10", "68", "0"), ("68", "1")))
        paper = ("0", "LINE", "67", "1", *LINE[2:])
        for windows, shown, missing, hidden, words in (
                (on, 3, {}, {}, "all 3 entities shown"), (off, 1, {}, {"viewportsOff": 1}, "; 1 viewport is off\n"),
                (flat, 1, {"VIEWPORT": 1}, {}, "1 of 2 entities shown (50.0 %)")):
            with self.subTest(words=words):
                share = self.drawn(entities(*LINE, *paper, *whole, *windows), "--layout", "Layout1")["share"]
                self.assertEqual((share["shown"], share["missing"], share["hidden"]), (shown, missing, hidden))
                self.assertIn(words, self.expect(0, "--layout", "Layout1", "plan.dxf"))

    def test_what_is_cut_is_not_all(self):
        array = insert("A", "70", "9000", "71", "9000", "44", "1", "45", "1")
        self.write("plan.dxf", blocks(*block("A", *LINE)) + entities(*LINE, *array))
        said = self.expect(0, "plan.dxf").splitlines()[-1]
        self.assertIn(", 3 entities shown, 1 message", said)
        self.assertIn("; shown otherwise: 1 drawing not whole (its blocks and arrays unfold too far)", said)
        self.write("plan.dxf", entities(*LINE, "0", "TEXT", "40", "1", "1", "x" * 3000))
        said = self.expect(1, "--strict", "plan.dxf")
        self.assertIn("TEXT is not shown whole: its letters beyond 1000 bytes are left out\n", said)
        self.assertIn("; shown otherwise: 1 TEXT not whole (its letters beyond 1000 bytes are left out)\n", said)


class PreparedSharesOfParts(OutcomeTest):
    AS_IS = False

    LOST = ("0", "ATTRIB", "8", "0", "10", "1", "20", "1e40", "40", "1", "1", "a", "0", "SEQEND")

    def array(self, places, spacing="1"):
        return ("66", "1", "70", str(places), "44", spacing, *self.LOST)

    def test_an_array_of_what_cannot_be_shown_is_missing_once(self):
        content = blocks(*block("A", *LINE, *insert("A", *self.array(5)))) + entities(*LINE, *insert("A"))
        share = self.drawn(content)["share"]
        self.assertEqual((share["entities"], share["shown"], share["missing"]), (9, 3, {"ATTRIB": 5, "INSERT": 1}))
        far = ("41", "1e30", "42", "1e30")
        content = blocks(*block("A", *insert("B", *far, *self.array(5))), *block("B", *LINE)) + entities(
            *LINE, *insert("A", *far))
        share = self.drawn(content)["share"]
        self.assertEqual((share["entities"], share["shown"], share["missing"]), (8, 2, {"ATTRIB": 5, "INSERT": 1}))

    def test_no_more_is_missing_than_there_is(self):
        """Each place but the first is beyond all numbers."""
        content = blocks(*block("A", *insert("B", *self.array(30, "1e30"))), *block("B", *LINE)) + entities(
            *LINE, *insert("A", "41", "1e30", "42", "1e30"))
        share = self.drawn(content)["share"]
        self.assertGreaterEqual(share["shown"], 0)
        self.assertLessEqual(share["shown"], share["entities"])
        self.assertEqual(share["entities"] - share["shown"], sum(share["missing"].values()))


class Shares(OutcomeTest):
    def test_the_line_has_the_share_and_what_is_missing(self):
        self.write("plan.dxf", entities(*LINE, *LINE, *HATCH, "0", "SOLID", *insert("NOWHERE")))
        printed = self.expect(0, "plan.dxf")
        self.assertIn(", 2 of 5 entities shown (40.0 %), ", printed)
        self.assertIn("; missing: 1 HATCH, 1 INSERT, 1 SOLID\n", printed)
        self.write("plan.dxf")
        self.assertIn(", 1 entity shown, ", self.expect(0, "plan.dxf"))

    def test_of_many_types_the_most_frequent_are_named(self):
        types = (text for number in range(30) for text in ("0", f"T{number:02}") * (number + 1))
        self.write("plan.dxf", entities(*LINE, *types))
        named = ", ".join(f"{number + 1} T{number:02}" for number in range(29, 9, -1))
        self.assertIn(f"; missing: {named}, 55 of 10 other types\n", self.expect(0, "--max-messages=0", "plan.dxf"))
        self.assertEqual(len(self.share(entities(*LINE, *("0", "A", "0", "B") * 20, *(
            text for number in range(30) for text in ("0", f"T{number}"))))["missing"]), 32)

    def test_the_share_is_rounded_down(self):
        self.write("plan.dxf", entities(*LINE * 2999, *HATCH))
        self.assertIn(", 2999 of 3000 entities shown (99.9 %), ", self.expect(0, "plan.dxf"))

    def share(self, content, code=0):
        drawn = self.drawn(content, code=code)["share"]
        self.assertEqual(self.info(content)["share"], drawn)
        return drawn

    def test_blocks_count_once_when_they_are_inserted(self):
        content = blocks(*block("A", *LINE, *LINE, *HATCH), *block("B", *HATCH * 5), *block("A", *HATCH * 7)) + entities(
            *insert("A") * 3)
        self.assertEqual(self.share(content), {"entities": 6, "shown": 5, "percent": 5 * 100 / 6, "missing": {"HATCH": 1},
                                               "otherwise": {}, "hidden": {}})

    def test_blocks_in_blocks_that_nothing_inserts_do_not_count(self):
        nested = blocks(*block("A", *LINE, *HATCH), *block("B", *insert("A"), *insert("NOWHERE"), *HIDDEN_LINE))
        self.assertEqual(self.share(nested + entities(), code=6)["entities"], 0)
        self.write("plan.dxf", nested + entities())
        self.assertIn("visible: nothing inserts the blocks that its entities are in\n", self.expect(6, "-q", "plan.dxf"))
        share = self.share(nested + entities(*insert("B")))
        self.assertEqual((share["entities"], share["shown"], share["missing"]), (5, 3, {"HATCH": 1, "INSERT": 1}))

    def test_parts_and_what_is_invisible_do_not_count(self):
        polyline = ("0", "POLYLINE", "8", "0", *("0", "VERTEX", "8", "0") * 4, "0", "SEQEND")
        content = blocks(*block("A", *LINE, "0", "ATTDEF", "2", "T")) + entities(*insert("A"), *polyline, *HIDDEN_LINE)
        share = self.share(content)
        self.assertEqual((share["entities"], share["shown"], share["missing"]), (3, 2, {"POLYLINE": 1}))

    def test_what_is_left_out_is_not_shown(self):
        content = entities(*LINE, "0", "CIRCLE", "8", "0", "10", "1e999", "20", "1", "40", "1")
        share = self.drawn(content)["share"]
        self.assertEqual((share["entities"], share["shown"]), (2, 1))

    def test_each_insert_that_is_left_out_is_not_shown(self):
        chain = (word for number in range(150) for word in block(f"B{number}", *insert(f"B{number - 1}" if number else "END")))
        for finding, content in (
                ("insertsOfThemselves", blocks(*block("A", *LINE, *insert("A"))) + entities(*LINE, *insert("A"))),
                ("insertsUnfoldingTooFar", blocks(*block("END", *LINE), *chain) + entities(*LINE, *insert("B149")))):
            with self.subTest(finding):
                drawn = self.drawn(content)
                self.assertEqual(drawn["findings"], {finding: 1})
                self.assertEqual(drawn["share"]["shown"], drawn["share"]["entities"] - 1)
                # Blocks are elements, too.
                self.assertEqual(drawn["elements"], drawn["share"]["shown"] + content.count(b"\nBLOCK\n"))

    def test_each_element_beyond_those_of_a_drawing_of_its_size_is_not_shown(self):
        texts = ("0", "DIMENSION", "100", "AcDbDimension", "1", "\\S1^2;" * 166, "100", "AcDbRadialDimension", "15", "1",
                 *("100", "AcDbRadialDimension") * 370)
        drawn = self.drawn(entities(*LINE * 5000, *texts))
        left_out = drawn["findings"]["elementsBeyondLimit"]
        self.assertTrue(0 < left_out < 5000, left_out)
        self.assertEqual((drawn["share"]["entities"], drawn["share"]["shown"]), (5001, 5001 - left_out))

    def test_what_is_shown_otherwise(self):
        off = dxf("0", "SECTION", "2", "TABLES", "0", "TABLE", "2", "LAYER", "0", "LAYER", "100", "AcDbSymbolTableRecord",
                  "2", "Off", "62", "-1", "0", "ENDTAB", "0", "ENDSEC")
        text = ("0", "TEXT", "8", "0", "10", "1", "20", "1", "40", "2", "1", "a")
        mtext = ("0", "MTEXT", "8", "0", "10", "1", "20", "1", "40", "2")
        vertices = ("10", "1", "20", "1", "10", "5", "20", "1")
        for name, content in {
                "bulgesStraight": entities("0", "LWPOLYLINE", *vertices, "42", "0.5", "42", "1"),
                "widthsLeftOut": entities("0", "LWPOLYLINE", "43", "2", *vertices),
                "textsUnturned": entities(*text, "50", "30"),
                "textsMoved": entities(*text, "72", "1"),
                "formattingCodes": entities(*mtext, "1", "a\\Pb"),
                "piecesLost": entities(*mtext, "3", "a", "1", "b"),
                "onHiddenLayers": off + entities("0", "LINE", "8", "Off", *LINE[4:]),
                "invisibleShown": entities(*text, "60", "1", *LINE),
                "extrusionsLeftOut": entities("0", "CIRCLE", "10", "1", "20", "1", "40", "1", "230", "-1"),
                "rowsAndColumnsOnce": blocks(*block("A", *LINE)) + entities(*insert("A", "70", "2")),
                "basePointsLeftOut": blocks(*block("A", "10", "5", "20", "0", *LINE)) + entities(*insert("A")),
                "paperSpaceOverModel": entities(*LINE, *LINE, "67", "1"),
                "dimensionsOfOtherNumber": entities(*aligned("11")),
        }.items():
            with self.subTest(name=name):
                self.assertEqual(self.share(content)["otherwise"], {name: 1})
                self.assertIn("; shown otherwise: 1 ", self.expect(0, "plan.dxf"))
                self.expect(1, "--strict", "plan.dxf")
                self.expect(1, "-q", "--strict", "plan.dxf")

    def test_widths_of_a_polyline_are_those_of_all_or_of_one_of_its_segments(self):
        for code in ("40", "41", "43"):
            content = entities("0", "LWPOLYLINE", "10", "1", "20", "1", code, "2", "10", "5", "20", "1")
            self.assertEqual(self.share(content)["otherwise"], {"widthsLeftOut": 1}, code)

    def test_a_base_point_is_left_out_when_it_is_not_the_origin(self):
        for point, counts in (("0", False), ("x", False), ("1", True), ("-2", True)):
            for code in ("10", "20"):
                content = blocks(*block("A", code, point, *LINE)) + entities(*insert("A"))
                self.assertEqual(self.share(content)["otherwise"], {"basePointsLeftOut": 1} if counts else {}, (code, point))

    def test_what_follows_an_embedded_object_is_looked_at(self):
        mtext = ("0", "MTEXT", "8", "0", "10", "1", "20", "1", "40", "2", "1", "a", "101", "Embedded Object", "50", "7")
        text = ("0", "TEXT", "8", "0", "10", "1", "20", "1", "40", "2", "1", "a", "50", "30")
        self.assertEqual(self.share(entities(*mtext, *text))["otherwise"], {"textsUnturned": 1})

    def test_an_extrusion_does_not_move_what_has_coordinates_of_the_world(self):
        for content in (("0", "LINE", "8", "0", *LINE[4:], "230", "-1"),
                        ("0", "ELLIPSE", "10", "1", "20", "1", "11", "5", "21", "0", "40", "0.5", "41", "0", "42", "6.28",
                         "230", "-1"),
                        ("0", "MTEXT", "8", "0", "10", "1", "20", "1", "40", "2", "1", "a", "230", "-1")):
            with self.subTest(type=content[1]):
                self.assertEqual(self.share(entities(*content))["otherwise"], {})

    def test_rows_of_an_insert_are_drawn_once_as_columns_are(self):
        for many in (("71", "3"), ("70", "2", "71", "3")):
            content = blocks(*block("A", *LINE)) + entities(*insert("A", *many))
            self.assertEqual(self.share(content)["otherwise"], {"rowsAndColumnsOnce": 1})

    def test_sheets_alone_are_over_nothing(self):
        self.assertEqual(self.share(entities(*LINE, "67", "1"))["otherwise"], {})

    def test_numbers_of_dimensions(self):
        for content, differs in (
                (aligned("10"), False), (aligned("10.0000001"), False), (aligned("10.01"), True), (aligned("-1"), False),
                (dimension("AcDbRadialDimension", "15", "0", "25", "5"), False),
                (dimension("AcDbDiametricDimension", "15", "0", "25", "5"), True),
                (dimension("AcDbDiametricDimension", "15", "0", "25", "5", stated="5"), False)):
            with self.subTest(content=content):
                otherwise = self.share(entities(*content))["otherwise"]
                self.assertEqual(otherwise, {"dimensionsOfOtherNumber": 1} if differs else {})
        self.assertEqual(self.share(entities(*aligned("11"), "1", "own"))["otherwise"], {})
        self.assertEqual(self.share(entities(*aligned("11"), "1", "<> mm"))["otherwise"], {"dimensionsOfOtherNumber": 1})

    def assert_tells_what_is_shown(self, kind, lines):
        self.drawn(entities(*dimension(kind, *lines)))
        shown = float(self.read("plan.svg").split("</text>")[0].rsplit(">", 1)[1].strip("\u02da"))
        if "Angular" in kind:
            shown = math.radians(shown)
        for stated, differs in ((shown, False), (shown * 1.01 + 0.01, True)):
            content = entities(*dimension(kind, *lines, stated=str(stated)))
            otherwise = self.drawn(content)["share"]["otherwise"]
            self.assertEqual(otherwise, {"dimensionsOfOtherNumber": 1} if differs else {})
        return shown

    def test_the_number_is_the_one_in_the_picture(self):
        """What the command computes is what the module writes, for every kind of dimension."""
        points = ("13", "1", "23", "2", "14", "9", "24", "4")
        kinds = [("AcDbAlignedDimension", points), ("AcDbRadialDimension", ("15", "1", "25", "2")),
                 ("AcDbDiametricDimension", ("15", "1", "25", "2"))]
        kinds += [("AcDbAlignedDimension", (*points, "50", angle, "100", "AcDbRotatedDimension"))
                  for angle in ("0", "90", "30", "none")]
        kinds += [("AcDbAlignedDimension", (*points, "100", "AcDbRotatedDimension")),
                  ("AcDbAlignedDimension", (*points[:-1], "none"))]
        # The side from (10, 5) is level or upright but for rounding.
        kinds += [("AcDbAlignedDimension", ("13", "1", "23", "90", *side))
                  for side in (("14", "20", "24", "5.000000000000001"), ("14", "10.000000000000002", "24", "20"))]
        for kind, lines in kinds:
            with self.subTest(kind=kind, lines=lines):
                self.assert_tells_what_is_shown(kind, lines)

    def test_the_angle_is_the_one_in_the_picture(self):
        """One line is that of the points 13 and 14, the other begins at (10, 5); the last point is on the arc."""
        for name, shown, *points in (
                ("lines that cross", 63.43, "0", "0", "0", "10", "0", "0", "3", "8"),
                ("lines that cross, at the other side", 123.69, "-5", "8", "40", "8", "16", "14", "5", "10"),
                ("parallel lines", 165.96, "0", "0", "10", "0", "20", "5", "3", "4"),
                ("one start, at right angles", 49.4, "10", "5", "20", "5", "10", "20", "7", "13"),
                ("above the last bound (quirk 109)", 0, "0", "5", "30", "5", "27", "-5", "13", "10"),
                ("below the first bound (quirk 108)", 630, "0", "10.773502691896258", "27.320508075688775", "-5", "15",
                 "13.660254037844386", "20", "3.2367301929153"),
                ("a level line but for rounding", 90, "0", "20", "30", "20.000000000000004", "10", "30", "15", "25")):
            with self.subTest(name):
                codes = ("13", "23", "14", "24", "15", "25", "16", "26")
                lines = [line for pair in zip(codes, points) for line in pair]
                found = self.assert_tells_what_is_shown("AcDb2LineAngularDimension", lines)
                self.assertAlmostEqual(math.degrees(found), shown, places=2)

    def test_dimensions_that_are_not_drawn_are_missing(self):
        for kind in ("AcDbOrdinateDimension", "AcDb3PointAngularDimension"):
            share = self.share(entities(*LINE, *dimension(kind, "13", "0", "23", "0")))
            self.assertEqual((share["shown"], share["missing"]), (1, {"DIMENSION": 1}))

    def test_strict_needs_no_message(self):
        for content in (entities(*LINE, *HATCH), entities(*LINE, *insert("NOWHERE"))):
            self.write("plan.dxf", content)
            self.expect(1, "--strict", "plan.dxf")
            self.expect(1, "-q", "--strict", "plan.dxf")
            self.expect(0, "plan.dxf")
        self.write("plan.dxf")
        self.expect(0, "--strict", "plan.dxf")


class MinDrawn(OutcomeTest):
    def test_a_share_below_it_is_said(self):
        self.write("plan.dxf", entities(*LINE * 3, *HATCH))
        for share in ("75", "75%", "0", "0%", "74.9%"):
            self.assertEqual(self.expect(0, "-q", "--min-drawn", share, "plan.dxf"), "")
        for share in ("75.1", "76%", "100"):
            self.assertEqual(self.expect(1, "-q", f"--min-drawn={share}", "plan.dxf"),
                             f"plan.dxf: 3 of 4 entities shown (75.0 %), less than {share} (--min-drawn)\n")

    def test_a_drawing_without_entities_is_whole(self):
        self.write("plan.dxf", entities())
        self.expect(0, "--min-drawn", "100", "plan.dxf")

    def test_of_several_one_is_enough(self):
        self.write("a.dxf")
        self.write("b.dxf", entities(*LINE, *HATCH))
        printed = self.expect(1, "-q", "--min-drawn", "95%", "a.dxf", "b.dxf")
        self.assertTrue(printed.startswith("b.dxf: 1 of 2 entities shown (50.0 %), "), printed)

    def test_a_blank_drawing_comes_before_it(self):
        self.write("a.dxf", entities(*LINE, *HATCH))
        self.write("b.dxf", entities(*HATCH))
        for names in (["b.dxf"], ["a.dxf", "b.dxf"], ["b.dxf", "a.dxf"]):
            self.expect(6, "-q", "--min-drawn", "95%", *names)

    def test_what_is_no_percentage(self):
        self.write("plan.dxf")
        for text in ("101", "-1", "-0", "x", "95%%", "", "%", "1e1", "nan", "inf", "95 %", "0x1"):
            with self.subTest(text=text):
                self.assertIn(f"'{text}' is not a percentage; give 0 to 100, as in 95%",
                              self.expect(2, f"--min-drawn={text}", "plan.dxf") if text else
                              self.expect(2, "--min-drawn", "", "plan.dxf"))


class Summary(OutcomeTest):
    def summary(self, code, *arguments):
        result = self.plexorn("info", "--summary", *arguments)
        self.assertEqual(result.returncode, code)
        return result.stdout

    def test_several_drawings_are_summed_up(self):
        os.mkdir(self.path("in"))
        self.write("in/a.dxf")
        self.write("in/b.dxf", entities(*LINE, *HATCH * 2))
        self.write("in/c.dxf", entities("0", "TEXT", "40", "1", "1", "a", "50", "90", *HATCH))
        self.write("in/d.dxf", b"")
        found = json.loads(self.summary(5, "--json", "-r", "in"))
        self.assertEqual(found, {"drawings": 3, "failed": 1, "whole": 1, "share": {
            "entities": 6, "shown": 3, "percent": 50, "missing": {"HATCH": 3}, "otherwise": {"textsUnturned": 1},
            "hidden": {}}})
        words = [" ".join(line.split()) for line in self.summary(5, "-r", "in").splitlines()]
        self.assertEqual(words, ["3 drawings, 1 shown as stated, 1 failed; 3 of 6 entities shown (50.0 %)", "",
                                 "missing entities drawings", "HATCH 3 2", "",
                                 "shown otherwise entities drawings", "texts not turned 1 1"])

    def test_no_drawing(self):
        result = self.plexorn("info", "--summary", "--files-from", "-")
        self.assertEqual((result.returncode, result.stdout),
                         (0, "0 drawings, 0 shown as stated, 0 failed; no entities\n"))
