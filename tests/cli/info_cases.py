"""plexorn info: what a drawing holds, and what of it is drawn."""
import collections
import glob
import json
import os
import re
import subprocess

import command_support
from command_support import CommandTest, DRAWING, LINE, dxf, entities

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
EXAMPLES = sorted(glob.glob(os.path.join(ROOT, "examples", "*.dxf")))

HEADER = dxf("0", "SECTION", "2", "HEADER", "9", "$ACADVER", "1", "AC1015", "9", "$DWGCODEPAGE", "3", "ANSI_1252",
             "9", "$INSUNITS", "70", "4", "9", "$MEASUREMENT", "70", "1", "9", "$EXTMIN", "10", "-1.5", "20", "2",
             "30", "0", "9", "$EXTMAX", "10", "10", "20", "+20.25", "9", "$LIMMIN", "10", "0", "20", "0",
             "9", "$LIMMAX", "10", "420", "20", "297", "0", "ENDSEC")
MARKS = ("100", "AcDbSymbolTableRecord", "100", "AcDbLayerTableRecord")
TABLES = dxf("0", "SECTION", "2", "TABLES",
             "0", "TABLE", "2", "LTYPE", "0", "LTYPE", *MARKS, "2", "DASHED", "3", "Dashed __ __", "70", "0",
             "73", "2", "40", "2.5", "49", "2", "49", "-0.5", "0", "ENDTAB",
             "0", "TABLE", "2", "LAYER", "0", "LAYER", *MARKS, "2", "Walls", "70", "1", "62", "-3", "6", "DASHED",
             "370", "25", "0", "LAYER", *MARKS, "2", "Empty", "70", "0", "62", "7", "0", "ENDTAB", "0", "ENDSEC")
BLOCKS = dxf("0", "SECTION", "2", "BLOCKS", "0", "BLOCK", "2", "Door", "10", "0", "20", "0",
             "0", "LINE", "8", "Walls", "0", "MULTILEADER", "8", "Walls", "0", "SOLID", "8", "0",
             "0", "ENDBLK", "8", "0", "0", "ENDSEC")
WHOLE = HEADER + TABLES + BLOCKS + entities(
    "0", "INSERT", "8", "Walls", "2", "Door", "0", "INSERT", "8", "0", "2", "Nowhere", "0", "HATCH", "8", "Walls",
    "6", "DASHED", "0", "MULTILEADER", "8", "Notes", "0", "TEXT", "8", "Notes", "60", "1", "1", "Hello",
    "0", "MTEXT", "8", "Notes", "3", "first ", "1", "second")


def line_of(content, *lines):
    """The number of the line at which lines begin."""
    all_lines = content.decode("utf-8").split("\n")
    for index in range(len(all_lines)):
        if tuple(all_lines[index:index + len(lines)]) == lines:
            return index + 1
    raise AssertionError(lines)


class InfoTest(CommandTest):
    def info(self, content, *options, code=0):
        self.write("plan.dxf", content)
        result = self.plexorn("info", "--json", "plan.dxf", *options)
        self.assertEqual((result.returncode, result.stderr), (code, ""))
        self.assertEqual(result.stdout.count("\n"), 1)
        return json.loads(result.stdout)


class Contents(InfoTest):
    def test_the_header(self):
        info = self.info(WHOLE)
        self.assertEqual({name: info[name] for name in ("file", "bytes", "lines", "version", "release", "codePage",
                                                        "insunits", "unit", "measurement", "extents", "limits")},
                         {"file": "plan.dxf", "bytes": len(WHOLE), "lines": WHOLE.count(b"\n"), "version": "AC1015",
                          "release": "R2000", "codePage": "ANSI_1252", "insunits": 4, "unit": "mm",
                          "measurement": 1, "extents": {"min": [-1.5, 2], "max": [10, 20.25]},
                          "limits": {"min": [0, 0], "max": [420, 297]}})

    def test_a_drawing_without_a_header_states_nothing(self):
        info = self.info(DRAWING)
        for name in ("version", "release", "codePage", "insunits", "unit", "measurement", "extents", "limits"):
            self.assertIsNone(info[name], name)

    def test_layers(self):
        self.assertEqual(self.info(WHOLE)["layers"], [
            {"name": "Walls", "defined": True, "colour": -3, "off": True, "frozen": True, "lineType": "DASHED",
             "weight": 25, "entities": 4},
            {"name": "Empty", "defined": True, "colour": 7, "off": False, "frozen": False, "lineType": None,
             "weight": 0, "entities": 0},
            {"name": "0", "defined": False, "colour": 0, "off": False, "frozen": False, "lineType": None,
             "weight": 0, "entities": 2},
            {"name": "Notes", "defined": False, "colour": 0, "off": False, "frozen": False, "lineType": None,
             "weight": 0, "entities": 3}])

    def test_what_an_entry_without_a_marker_takes_is_not_shown(self):
        marked = (*LINE[:2], "100", "AcDbEntity", *LINE[2:])
        share = self.info(entities("0", "DIMENSION", "8", "0", *LINE, *marked, *LINE, *LINE))["share"]
        self.assertEqual((share["shown"], share["missing"]), (2, {"DIMENSION": 1, "LINE": 2}))
        self.expect(0, "-q", "plan.dxf")
        self.assertEqual(self.read("plan.svg").count("<line"), 2)

    def test_a_layer_that_is_off_is_not_frozen(self):
        layers = [("0", "LAYER", "100", "AcDbLayerTableRecord", "2", name, "70", flags, "62", colour)
                  for name, flags, colour in (("Off", "0", "-7"), ("Frozen", "1", "7"))]
        content = dxf("0", "SECTION", "2", "TABLES", "0", "TABLE", "2", "LAYER", *layers[0], *layers[1], "0", "ENDTAB",
                      "0", "ENDSEC") + DRAWING
        for options in ([], ["--as-is"]):
            self.assertEqual([(layer["name"], layer["off"], layer["frozen"])
                              for layer in self.info(content, *options)["layers"]][:2],
                             [("Off", True, False), ("Frozen", False, True)])

    def test_an_entity_without_a_type_has_a_name(self):
        self.write("a.dxf", entities("  0", "", "  8", "0", *LINE))
        for options in ([], ["--as-is"]):
            with self.subTest(options=options):
                self.assertIn("missing: 1 (no type)\n", self.plexorn("info", *options, "a.dxf").stdout)

    def test_line_types(self):
        self.assertEqual(self.info(WHOLE)["lineTypes"], [
            {"name": "DASHED", "defined": True, "description": "Dashed __ __", "dashes": 2, "length": 2.5,
             "entities": 1}])

    def test_blocks(self):
        self.assertEqual(self.info(WHOLE)["blocks"], [
            {"name": "Door", "definitions": 1, "line": line_of(WHOLE, "BLOCK"), "entities": 3, "inserts": 1},
            {"name": "Nowhere", "definitions": 0, "line": 0, "entities": 0, "inserts": 1}])

    def test_entities_and_what_becomes_of_them(self):
        found = {entry["name"]: (entry["inDrawing"], entry["inBlocks"], entry["fate"], entry["fateInBlocks"],
                                 entry["line"]) for entry in self.info(WHOLE)["entities"]}
        self.assertEqual(found, {
            "LINE": (0, 1, "drawn", "drawn", line_of(WHOLE, "LINE")),
            "MULTILEADER": (1, 1, "unknown", "passed over", line_of(WHOLE, "MULTILEADER")),
            "SOLID": (0, 1, "unknown", "unknown", line_of(WHOLE, "SOLID")),
            "INSERT": (2, 0, "drawn", "drawn", line_of(WHOLE, "INSERT")),
            "HATCH": (1, 0, "skipped", "skipped", line_of(WHOLE, "HATCH")),
            "TEXT": (1, 0, "drawn", "drawn", line_of(WHOLE, "TEXT")),
            "MTEXT": (1, 0, "drawn", "drawn", line_of(WHOLE, "MTEXT"))})

    def test_texts_when_they_are_asked_for(self):
        self.assertNotIn("texts", self.info(WHOLE))
        self.assertEqual(self.info(WHOLE, "--texts")["texts"], [
            {"line": line_of(WHOLE, "TEXT"), "type": "TEXT", "layer": "Notes", "block": None, "text": "Hello"},
            {"line": line_of(WHOLE, "MTEXT"), "type": "MTEXT", "layer": "Notes", "block": None,
             "text": "firstsecond"}])

    def test_notes(self):
        self.assertEqual(self.info(WHOLE)["notes"], [
            "4 entities are on layers that are off or frozen; they are drawn all the same",
            "1 entity is invisible by a flag of its own; it is in the picture, hidden",
            "1 block is inserted but not defined"])
        self.assertEqual(self.info(DRAWING)["notes"], [])
        self.assertIn("cut off", self.info(DRAWING[:-8])["notes"][0])
        old = dxf("0", "SECTION", "2", "TABLES", "0", "TABLE", "2", "LAYER", "0", "LAYER", "2", "A", "0", "ENDTAB",
                  "0", "ENDSEC") + DRAWING
        self.assertIn("the entry at line 10 has no subclass marker", self.info(old)["notes"][0])
        self.assertIn("the entry at line 6 has no subclass marker", self.info(entities("0", "DIMENSION"))["notes"][0])
        odd = entities(*LINE, "not a code", *LINE)
        self.assertIn("1 line is no group code and should be one, the first at line 17",
                      self.info(odd)["notes"][0])
        self.assertEqual(self.info(odd)["entities"][0]["inDrawing"], 2)

    def test_the_table_shows_what_json_has(self):
        self.write("plan.dxf", WHOLE)
        result = self.plexorn("info", "plan.dxf", "--texts")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        words = " ".join(result.stdout.split())
        for text in ("plan.dxf size ", "version AC1015 (R2000)", "units mm ($INSUNITS 4)", "measurement metric",
                     "extents (-1.5, 2) to (10, 20.25)", "limits (0, 0) to (420, 297)",
                     f"HATCH 1 0 {line_of(WHOLE, 'HATCH')} skipped: not drawn by this version",
                     f"MULTILEADER 1 1 {line_of(WHOLE, 'MULTILEADER')} reported as unknown; in blocks passed over",
                     "weight (0.01 mm)", "Walls 4 -3 DASHED 25 off, frozen", "Notes 3 0 default not in the table",
                     "DASHED 1 2 2.5 Dashed __ __", "Door 3 1 ", "Nowhere 0 1 0 not defined", "Notes Hello",
                     "note: 1 block is inserted but not defined"):
            self.assertIn(text, words)


    def test_a_unit_that_is_not_known_is_shown_as_it_stands(self):
        for code in ("25", "-1", "99999999999"):
            self.write("plan.dxf", dxf("0", "SECTION", "2", "HEADER", "9", "$INSUNITS", "70", code, "0", "ENDSEC"))
            self.assertIn(f"unknown ($INSUNITS {code})\n", self.plexorn("info", "plan.dxf").stdout)


class Usage(InfoTest):
    def test_several_drawings_and_failures(self):
        os.mkdir(self.path("in"))
        self.write("in/a.dxf")
        self.write("in/b.dxf", b"")
        result = self.plexorn("info", "--json", "in", "none.dxf", "in/a.dxf")
        self.assertEqual(result.returncode, 5)
        self.assertEqual([json.loads(line)["file"] for line in result.stdout.splitlines()], ["in/a.dxf", "in/a.dxf"])
        self.assertEqual(result.stderr,
                         "in/b.dxf: is empty\nnone.dxf: cannot be read: No such file or directory\n")

    def test_one_failure_has_the_exit_code_of_its_reason(self):
        self.write("plan.dxf", b"PK\x03\x04")
        self.expect(4, "info", "plan.dxf")
        self.expect(3, "info", "none.dxf")

    def test_the_standard_input_and_lists(self):
        result = self.plexorn("info", "-", "--json", stdin=None, input=DRAWING)
        self.assertEqual((result.returncode, json.loads(result.stdout)["bytes"]), (0, len(DRAWING)))
        self.write("plan.dxf")
        result = self.plexorn("info", "--files-from", "-", "-0", "--json", stdin=None, input=b"plan.dxf\0")
        self.assertEqual(json.loads(result.stdout)["file"], "plan.dxf")

    def test_nothing_is_written(self):
        self.write("plan.dxf")
        self.plexorn("info", "plan.dxf")
        self.assertEqual(self.names(), ["plan.dxf"])

    def test_help(self):
        result = self.plexorn("info", "--help")
        self.assertEqual(result.returncode, 0)
        self.assertIn("plexorn info [OPTIONS] FILE...", result.stdout)
        self.assertNotIn("--background", result.stdout)

    def test_a_drawing_of_the_commands_name(self):
        self.write("info")
        self.expect(0, "./info")
        self.assertEqual(self.names(), ["info", "info.svg"])


class Lines(InfoTest):
    """Lines are cut as the reader cuts them."""

    def lines_of(self, content):
        info = self.info(content)
        return sum(entry["inDrawing"] for entry in info["entities"]), info["layers"]

    def test_line_ends_and_the_end_mark(self):
        for content in (DRAWING, DRAWING.replace(b"\n", b"\r\n"), DRAWING + b"\x1a" + DRAWING, DRAWING[:-1],
                        DRAWING.replace(b"  0\nENDSEC", b"  0\x00junk\nENDSEC")):
            self.assertEqual(self.lines_of(content)[0], 1)

    def test_a_long_line_counts_with_its_first_characters(self):
        for size in (1023, 1024, 70_000, 1_000_000):
            count, layers = self.lines_of(entities("0", "LINE", "8", "x" * size, *LINE))
            self.assertEqual((count, len(layers[0]["name"])), (2, min(size, 65_536)))

    def test_lines_at_every_place_of_a_block(self):
        for size in range(65_400, 65_560, 7):
            comment = "c" * 900
            lines = []
            while sum(len(line) + 1 for line in lines) < size - 1000:
                lines += ["999", comment]
            lines += ["999", "d" * (size - sum(len(line) + 1 for line in lines) - 5)]
            self.assertEqual(self.lines_of(dxf(*lines) + entities(*LINE * 40))[0], 40)

    def test_texts_of_the_code_page_and_of_utf_8(self):
        page = HEADER.replace(b"ANSI_1252", b"ANSI_1251")
        for header, layer, shown in ((HEADER, b"T\xfcr", "Tür"), (page, b"\xd1\xf2\xe5\xed\xe0", "Стена"),
                                     (HEADER, "Стена".encode("utf-8"), "Стена"), (b"", b"T\xfcr", "Tür")):
            content = header + entities("0", "LINE", "8", "LAYER").replace(b"LAYER", layer)
            self.assertEqual(self.info(content)["layers"][0]["name"], shown)

    def test_control_characters_do_not_reach_the_terminal(self):
        self.write("plan.dxf", entities("0", "A\x1b[2J", "8", "L\x1b[2J\x07", "1", "\x9b".encode().decode()))
        printed = self.plexorn("info", "plan.dxf", "--texts").stdout
        self.assertIn(r"A\x1B[2J", printed)
        self.write("plan.dxf", entities("0", "TEXT", "10", "1", "40", "1", "1", "a\x1b[31mb%%007c\u009b31md"))
        texts = self.plexorn("info", "plan.dxf", "--texts").stdout
        self.assertIn(r"c\x9B31md", texts)
        printed += texts
        self.assertEqual([character for character in printed if ord(character) < 32 and character != "\n"], [])


class Hostile(InfoTest):
    def test_a_hundred_thousand_names(self):
        count = 100_000
        lines = [text for number in range(count) for text in ("0", f"T{number}", "8", f"L{number}", "6", f"D{number}")]
        info = self.info(entities(*lines))
        for name in ("layers", "lineTypes", "entities"):
            self.assertEqual(len(info[name]), count)

    def test_nesting_that_never_ends(self):
        info = self.info(dxf("0", "SECTION", "2", "BLOCKS", *("0", "BLOCK", "2", "A") * 200_000))
        self.assertEqual(info["blocks"][0]["definitions"], 200_000)
        info = self.info(b"0\nSECTION\n" * 300_000)
        self.assertEqual((info["lines"], info["blocks"], info["entities"]), (600_000, [], []))

    def test_what_is_no_pair(self):
        start, cut = b"0\nSECTION\n2\n", "the file has no EOF: it may have been cut off"
        for content, lines, entities_found, notes in (
                (b"0", 1, 0, [cut]),
                (b"0\n", 1, 0, [cut]),
                (b"0\n\n" * 1000, 2000, 0, [cut]),
                (start + b"\xff" * 100_000, 4, 0, [cut]),
                (start + b"ENTITIES\n" + b"x\n" * 500_000, 500_004, 0,
                 ["500000 lines are no group codes and should be one, the first at line 5", cut]),
                # The format has no such code.
                (DRAWING[:-len(b"0\nEOF\n")] + b"99999999999999999999\n0\nENDSEC\n" + DRAWING, 41, 2,
                 ["1 line is no group code and should be one, the first at line 19"])):
            with self.subTest(content=content[:40]):
                info = self.info(content)
                self.assertEqual((info["bytes"], info["lines"]), (len(content), lines))
                self.assertEqual(sum(entry["inDrawing"] for entry in info["entities"]), entities_found)
                self.assertEqual(info["notes"], notes)


class Prepared(InfoTest):
    """What becomes of entities when the drawing is prepared, as the command draws it."""
    AS_IS = False
    FACE = ("0", "3DFACE", "8", "0", "10", "0", "20", "0", "11", "5", "21", "0", "12", "5", "22", "5", "13", "0", "23", "5")
    UNSHOWN = ("0", "3DSOLID", "8", "0")

    def test_into_how_many_of_what_and_what_is_not_shown(self):
        info = self.info(entities(*LINE, *self.FACE, *self.FACE, *self.UNSHOWN))
        self.assertEqual({entry["name"]: entry["becomes"] for entry in info["entities"]}, {
            "LINE": {"into": None, "notShown": {}, "changed": {}},
            "3DFACE": {"into": "2 polylines", "notShown": {}, "changed": {}},
            "3DSOLID": {"into": None, "notShown": {"a modelled solid or surface": 1}, "changed": {}}})
        self.assertEqual((info["share"]["entities"], info["share"]["shown"], info["share"]["missing"]), (4, 3, {"3DSOLID": 1}))

    def test_the_table_says_it_in_words(self):
        self.write("plan.dxf", entities(*LINE, *self.FACE, *self.UNSHOWN, "0", "VIEWPORT", "8", "0"))
        printed = self.plexorn("info", "plan.dxf").stdout
        for type_, words in (("LINE", "drawn"), ("3DFACE", "drawn as 1 polyline"),
                             ("3DSOLID", "1 not shown: a modelled solid or surface"),
                             ("VIEWPORT", "not shown: a window of a layout")):
            self.assertRegex(printed, rf"(?m)^  {type_} +1 +0 +\d+  {words}$")
        self.assertIn("share         2 of 3 entities shown (66.6 %); missing: 1 3DSOLID\n", printed)

    def test_columns_are_level_whatever_letters_are_in_them(self):
        self.write("plan.dxf", entities("0", "LINE", "8", "Tür", *LINE[4:], "0", "LINE", "8", "Tor", *LINE[4:]))
        rows = [line for line in self.plexorn("info", "plan.dxf").stdout.splitlines() if line.startswith(("  Tür ", "  Tor "))]
        self.assertEqual(len(rows), 2)
        self.assertEqual(rows[0].replace("Tür", "Tor"), rows[1].replace("Tür", "Tor"))

    def test_it_counts_what_preparing_reads(self):
        block = ("0", "BLOCK", "2", "B", "0", "line", "8", "0", "0", "ENDBLK")
        polyline = ("0", "POLYLINE", "8", "0", "0", "VERTEX", "8", "0", "0", "VERTEX", "8", "0", "0", "SEQEND")
        content = dxf("0", "SECTION", "2", "BLOCKS", *block, *block, "0", "ENDSEC",
                      "0", "SECTION", "2", "ENTITIES", *LINE, *polyline, "0", "Line", *LINE[2:], "0", "INSERT", "66", "1",
                      "0", "ATTRIB", "1", "a", "0", "ATTRIB", "1", "b", "0", "SEQEND", *self.UNSHOWN, "0", "ENDSEC",
                      "0", "circle", "8", "0", "40", "1", "0", "EOF")
        expected = [("LINE", 2, 2, line_of(content, "line")), ("POLYLINE", 1, 0, line_of(content, "POLYLINE")),
                    ("VERTEX", 2, 0, line_of(content, "VERTEX")), ("SEQEND", 2, 0, line_of(content, "SEQEND")),
                    ("INSERT", 1, 0, line_of(content, "INSERT")), ("ATTRIB", 2, 0, line_of(content, "ATTRIB")),
                    ("3DSOLID", 1, 0, line_of(content, "3DSOLID")), ("CIRCLE", 1, 0, line_of(content, "circle"))]
        self.assertEqual([(entry["name"], entry["inDrawing"], entry["inBlocks"], entry["line"])
                          for entry in self.info(content)["entities"]], expected)
        self.write("plan.dxf", content)
        self.assertRegex(self.plexorn("info", "plan.dxf").stdout, rf"(?m)^  CIRCLE +1 +0 +{expected[-1][3]}  drawn$")

    def test_entities_before_the_tables_count_once(self):
        content = dxf("0", "SECTION", "2", "ENTITIES", *LINE, "0", "ENDSEC", *LINE,
                      "0", "SECTION", "2", "BLOCKS", "0", "BLOCK", "2", "B", *LINE, "0", "ENDBLK", "0", "ENDSEC", "0", "EOF")
        self.assertEqual([(entry["name"], entry["inDrawing"], entry["inBlocks"], entry["line"])
                          for entry in self.info(content)["entities"]], [("LINE", 2, 1, line_of(content, "LINE"))])

    def test_notes_say_what_was_repaired_and_what_is_left_out(self):
        content = dxf("0", "SECTION", "2", "TABLES", "0", "TABLE", "2", "LAYER", "0", "LAYER", "100", "AcDbLayerTableRecord",
                      "2", "OFF", "70", "0", "62", "-7", "0", "ENDTAB", "0", "ENDSEC",
                      "0", "SECTION", "2", "ENTITIES", *LINE, "0", "LINE", "8", "OFF", *LINE[4:], "junk")
        self.assertEqual(self.info(content)["notes"], [
            "the file has no EOF: it may have been cut off",
            "line 51: file: a line is skipped that is not a group code",
            "line 50: file: a section ends without ENDSEC",
            "line 51: file: ends without EOF",
            "1 entity is on layers that are off or frozen (--layers all shows such layers)"])

    def test_texts_are_listed_in_plain_words_with_their_places(self):
        drawing = dxf("0", "SECTION", "2", "BLOCKS", "0", "BLOCK", "2", "B",
                      "0", "ATTDEF", "8", "Notes", "10", "1", "20", "2", "2", "TAG", "1", "%%uof a block%%u",
                      "0", "ENDBLK", "0", "ENDSEC", "0", "SECTION", "2", "ENTITIES",
                      "0", "MTEXT", "10", "1.5", "20", "-2", "1", r"{\C1;one}\Ptwo \S1/2;~\U+00B0",
                      "0", "TEXT", "10", "3", "20", "4", "230", "-1", "1", "%%c 5^I%%p",
                      "0", "INSERT", "2", "B", "66", "1",
                      "0", "ATTRIB", "10", "7", "20", "8", "1", "value", "0", "SEQEND",
                      "0", "TOLERANCE", "10", "9", "1", r"{\Fgdt;j}%%v0.1^JA", "0", "TEXT", "1", "",
                      "0", "ENDSEC", "0", "EOF")
        texts = self.info(drawing, "--texts")["texts"]
        self.assertEqual([(text["type"], text["block"], text["words"], text["place"]) for text in texts],
                         [("ATTDEF", "B", "of a block", [1, 2]),
                          ("MTEXT", None, "one\ntwo 1/2~°", [1.5, -2]),
                          ("TEXT", None, "Ø 5 ±", [-3, 4]),
                          ("ATTRIB", None, "value", [7, 8]),
                          ("TOLERANCE", None, "⌖   0.1\nA", [9, 0])])
        self.assertEqual((texts[0]["line"], texts[0]["layer"], texts[0]["text"]),
                         (line_of(drawing, "ATTDEF"), "Notes", "%%uof a block%%u"))
        words = " ".join(self.plexorn("info", "plan.dxf", "--texts").stdout.split())
        self.assertIn("(1.5, -2) one two 1/2~° TEXT", words)

    def test_texts_of_a_sheet_are_listed_once_and_in_no_block(self):
        drawing = dxf("0", "SECTION", "2", "BLOCKS", "0", "BLOCK", "2", "*Paper_Space0",
                      "0", "TEXT", "10", "1", "1", "title", "0", "ENDBLK", "0", "ENDSEC", "0", "EOF")
        self.assertEqual([(text["words"], text["block"]) for text in self.info(drawing, "--texts")["texts"]],
                         [("title", None)])

    def test_texts_before_the_blocks_are_listed_in_the_order_of_the_file(self):
        text = ("0", "TEXT", "10", "1", "1")
        drawing = dxf("0", "SECTION", "2", "ENTITIES", *text, "first", "0", "ENDSEC",
                      "0", "SECTION", "2", "BLOCKS", "0", "BLOCK", "2", "B", *text, "second", "0", "ENDBLK",
                      "0", "ENDSEC", "0", "EOF")
        self.assertEqual([(text["words"], text["block"]) for text in self.info(drawing, "--texts")["texts"]],
                         [("first", None), ("second", "B")])

    def test_the_sum_of_several(self):
        self.write("a.dxf", entities(*LINE, *self.UNSHOWN))
        self.write("b.dxf", entities(*LINE, *self.UNSHOWN, *self.UNSHOWN))
        self.assertEqual(self.plexorn("info", "--summary", "a.dxf", "b.dxf").stdout.split("\n"), [
            "2 drawings, 0 shown as stated, 0 failed; 2 of 5 entities shown (40.0 %)", "",
            "  missing  entities  drawings", "  3DSOLID         3         2", ""])

    def test_the_sum_of_what_layers_hide(self):
        frozen = dxf("0", "SECTION", "2", "TABLES", "0", "TABLE", "2", "LAYER", "0", "LAYER", "2", "F", "70", "1", "0", "ENDTAB",
                     "0", "ENDSEC")
        self.write("a.dxf", frozen + entities(*LINE, *("0", "LINE", "8", "F", "11", "9") * 2))
        self.write("b.dxf", frozen + entities(*LINE, "0", "LINE", "8", "F", "11", "9"))
        printed = self.plexorn("info", "--json", "--summary", "a.dxf", "b.dxf").stdout
        self.assertIn('"hidden":{"offOrFrozen":3}', printed)

    def test_the_sum_counts_drawings_that_are_changed_and_says_all_of_none_that_is_cut(self):
        self.write("cut.dxf", entities(*LINE, "0", "TEXT", "10", "1\x002", "40", "1", "1", "AB\x00CD"))
        self.write("whole.dxf")
        self.assertEqual(self.plexorn("info", "--summary", "cut.dxf", "whole.dxf").stdout.split("\n"), [
            "2 drawings, 1 shown as stated, 0 failed; 3 entities shown", "",
            "  shown otherwise                                   entities  drawings",
            "  file not whole (a NUL byte ends its line's text)         2         1", ""])

    def test_what_is_in_blocks_alone_is_drawn(self):
        self.write("plan.dxf", dxf("0", "SECTION", "2", "BLOCKS", "0", "BLOCK", "2", "B", *LINE, "0", "ATTDEF", "2", "A",
                                   "0", "ENDBLK", "0", "ENDSEC") + entities("0", "INSERT", "2", "B"))
        lines = [line.split(None, 4) for line in self.plexorn("info", "plan.dxf").stdout.splitlines()]
        self.assertEqual({line[0]: line[4] for line in lines if line[0:1] in (["LINE"], ["ATTDEF"], ["INSERT"])},
                         {"LINE": "drawn", "ATTDEF": "inserts have their own texts for it", "INSERT": "drawn"})

    def test_other_forms_are_shown_too(self):
        wide = entities(*LINE).decode().encode("utf-16")
        self.assertEqual(self.info(wide)["entities"][0]["name"], "LINE")
        self.expect(4, "info", "--as-is", "plan.dxf")

    def test_it_agrees_with_the_picture(self):
        self.write("plan.dxf", entities(*LINE, *self.FACE, *self.UNSHOWN))
        [share] = [entry["share"] for entry in map(json.loads, self.expect(0, "--messages=json", "plan.dxf").splitlines())
                   if entry["type"] == "drawn"]
        self.assertEqual(json.loads(self.plexorn("info", "--json", "plan.dxf").stdout)["share"], share)


class Examples(InfoTest):
    def counts(self, path):
        """Types of entities in the drawing and in blocks, counted from the file's pairs alone."""
        with open(path, encoding="utf-8") as file:
            lines = [line.strip() for line in file]
        section, block, counts = None, False, collections.Counter()
        for code, value, following in zip(lines[::2], lines[1::2], lines[3::2] + [None]):
            if code != "0":
                continue
            if value == "SECTION":
                section = following
            elif value in ("BLOCK", "ENDBLK"):
                block = value == "BLOCK"
            elif section == "ENTITIES" and value not in ("ENDSEC", "EOF"):
                counts[value, "inDrawing"] += 1
            elif section == "BLOCKS" and block:
                counts[value, "inBlocks"] += 1
            if value == "ENDSEC":
                section = None
        return counts

    def test_the_examples_are_counted_as_their_pairs_are(self):
        self.assertGreater(len(EXAMPLES), 1)
        for path in EXAMPLES:
            with open(path, "rb") as file:
                info = self.info(file.read())
            found = collections.Counter()
            for entry in info["entities"]:
                for place in ("inDrawing", "inBlocks"):
                    if entry[place]:
                        found[entry["name"], place] = entry[place]
            self.assertEqual(found, self.counts(path))

    def test_fates_agree_with_what_the_reader_reports(self):
        names = ("LINE", "3DFACE", "HATCH", "MULTILEADER", "ACAD_TABLE", "SOLID", "SPLINE", "POINT", "VIEWPORT",
                 "POLYLINE", "VERTEX", "SEQEND", "ATTRIB", "ATTDEF", "LEADER", "WIPEOUT", "DIMENSION", "MESH",
                 "MLEADERSTYLE", "XLINE", "ARC", "TOLERANCE", "line", "PROXY")
        marks = ("100", "AcDbEntity", "100", "AcDbDimension", "70", "0", "100", "AcDbAlignedDimension")
        body = [text for name in names for text in ("0", name, "8", "0", *(marks if name == "DIMENSION" else ()))]
        content = dxf("0", "SECTION", "2", "BLOCKS", "0", "BLOCK", "2", "B", *body, "0", "ENDBLK", "0", "ENDSEC") + \
            entities(*body)
        info = self.info(content)
        messages = [json.loads(line) for line in self.expect(0, "plan.dxf", "--messages=json").splitlines()]
        reported = collections.Counter(message["text"].split(" - ")[0] for message in messages
                                       if message.get("kind") == 6)
        expected = collections.Counter()
        for entry in info["entities"]:
            expected[entry["name"]] += (entry["fate"] == "unknown") + (entry["fateInBlocks"] == "unknown")
        self.assertEqual(reported, +expected)
        silent = {entry["name"]: (entry["fate"] in ("skipped", "passed over")) +
                  (entry["fateInBlocks"] in ("skipped", "passed over")) for entry in info["entities"]}
        self.assertEqual(messages[-1]["skipped"], {name: count for name, count in silent.items() if count})
        self.assertEqual(len(info["entities"]), len(names))
