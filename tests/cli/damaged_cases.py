"""Damaged drawings: what can be read is drawn, and each repair is a message with its line."""
import re
import xml.etree.ElementTree as ElementTree

from command_support import CommandTest, dxf

SVG = "{http://www.w3.org/2000/svg}"


def section(name, *lines):
    return ("0", "SECTION", "2", name, *lines, "0", "ENDSEC")


def line(y, *groups):
    return ("0", "LINE", "8", "Walls", "10", "0", "20", str(y), "11", "9", "21", str(y), *groups)


HEADER = section("HEADER", "9", "$INSUNITS", "70", "4")
TABLES = section("TABLES", "0", "TABLE", "2", "LAYER", "0", "LAYER", "2", "Walls", "70", "0", "62", "1", "0", "ENDTAB")
BLOCKS = section("BLOCKS", "0", "BLOCK", "2", "Door", "10", "0", "20", "0", *line(5), "0", "ENDBLK")
ENTITIES = section("ENTITIES", *line(1), "0", "INSERT", "8", "0", "2", "Door", "10", "0", "20", "0", *line(2), *line(3))
WHOLE = (*HEADER, *TABLES, *BLOCKS, *ENTITIES, "0", "EOF")


def without(*lines):
    """The whole drawing without the first place where these lines are."""
    for index in range(len(WHOLE)):
        if WHOLE[index:index + len(lines)] == lines:
            return WHOLE[:index] + WHOLE[index + len(lines):]
    raise AssertionError(lines)


class Damaged(CommandTest):
    AS_IS = False

    def drawn(self, lines, *messages, shown=4):
        """Draws these lines; messages are what is said before the last line. shown is the number of lines in it."""
        self.write("plan.dxf", dxf(*lines))
        result = self.plexorn("plan.dxf")
        self.assertEqual(result.returncode, 0)
        self.assertEqual(result.stderr.splitlines()[:-1], [f"plan.dxf:{message}" for message in messages])
        root = ElementTree.parse(self.path("plan.svg")).getroot()
        self.assertEqual(len(list(root.iter(SVG + "line"))), shown)

    def test_a_whole_one_needs_no_repair(self):
        self.drawn(WHOLE)

    def test_a_missing_end_of_each_section(self):
        for number, name in enumerate((HEADER, TABLES, BLOCKS, ENTITIES)):
            before = sum(map(len, (HEADER, TABLES, BLOCKS, ENTITIES)[:number + 1])) - 1
            lines = WHOLE[:before - 1] + WHOLE[before + 1:]
            self.drawn(lines, f"{before}: file: a section ends without ENDSEC")

    def test_a_missing_end_of_the_file(self):
        self.drawn(WHOLE[:-2], f"{len(WHOLE) - 2}: file: ends without EOF")

    def test_an_entity_that_is_cut_off(self):
        cut = WHOLE.index("EOF") - 3
        self.drawn(WHOLE[:cut - 4], f"{cut - 5}: file: a section ends without ENDSEC",
                   f"{cut - 4}: file: ends without EOF")

    def test_lines_too_many_and_too_few(self):
        place = WHOLE.index("INSERT") - 1
        for extra in ("junk", "", "1e"):
            self.drawn(WHOLE[:place] + (extra,) + WHOLE[place:],
                       f"{place + 1}: file: a line is skipped that is not a group code")

    def test_a_line_lost_among_numbers(self):
        for lost in range(4, len(line(2))):
            lines = (*section("ENTITIES", *line(1), *line(2)[:lost], *line(2)[lost + 1:], *line(3)), "0", "EOF")
            with self.subTest(lost=lost):
                self.write("plan.dxf", dxf(*lines))
                printed = self.plexorn("plan.dxf").stderr
                self.assertRegex(printed, r"^plan.dxf:\d+: file: a line is skipped that is not a group code")
                self.assertNotIn("missing", printed)
                self.assertRegex(printed, r"all [23] entities shown")
                info = self.plexorn("info", "plan.dxf").stdout
                self.assertEqual(re.findall(r"^    (\S+) ", info, re.MULTILINE), [])

    def test_nul_bytes(self):
        lines = section("ENTITIES", *line(1), "0", "TEXT", "8", "0", "10", "1\x002", "20", "0", "40", "1", "1", "AB\x00CD")
        self.write("plan.dxf", dxf(*lines, "0", "EOF"))
        said = f"plan.dxf:{4 + len(line(1)) + 6}: file is not shown whole: a NUL byte ends its line's text (2 times)\n"
        self.assertTrue(self.expect(0, "plan.dxf").startswith(said))
        self.assertIn(">AB<", self.read("plan.svg"))
        self.expect(1, "--strict", "plan.dxf")

    def test_entries_without_a_name(self):
        for kind in ("LAYER", "LTYPE", "STYLE", "DIMSTYLE"):
            self.drawn((*section("TABLES", "0", kind, "70", "0"), *section("ENTITIES", *line(1)), "0", "EOF"),
                       f"6: {kind}: one without a name is left out", shown=1)

    def test_an_insert_without_the_end_of_its_attributes(self):
        attributes = ("66", "1", "0", "ATTRIB", "8", "0", "10", "0", "20", "0", "40", "1", "1", "A")
        place = WHOLE.index("INSERT") + 9
        self.drawn(WHOLE[:place] + attributes + WHOLE[place:], f"{WHOLE.index('INSERT') + 1}: INSERT: ends without SEQEND")

    def test_polylines_that_lack_vertices_or_a_part_of_them(self):
        vertices = ("10", "0", "20", "0", "10", "9", "20", "9")
        first = 4 + len(line(1)) + 2
        for groups, said in (((*vertices, "90", "3"), "it has fewer vertices than it states"),
                             (vertices[:-2], "a vertex without its y: 0 is read")):
            self.drawn((*section("ENTITIES", *line(1), "0", "LWPOLYLINE", "8", "0", *groups), "0", "EOF"),
                       f"{first}: LWPOLYLINE: {said}", shown=2)

    def test_tables_that_are_there_twice(self):
        again = len(HEADER) + len(TABLES) + TABLES.index("LAYER", TABLES.index("LAYER") + 1) + 1
        self.drawn((*HEADER, *TABLES, *TABLES, *BLOCKS, *ENTITIES, "0", "EOF"),
                   f"{again}: LAYER: a second one of the same name is left out",
                   f"{len(HEADER) + len(TABLES) + 3}: file: a second section TABLES is read, too")
        for entry in (("LTYPE", "2", "A"), ("STYLE", "2", "A"), ("DIMSTYLE", "2", "A")):
            tables = section("TABLES", "0", *entry, "0", *entry)
            self.drawn((*tables, *section("ENTITIES", *line(1)), "0", "EOF"),
                       f"10: {entry[0]}: a second one of the same name is left out", shown=1)

    def test_sections_that_are_there_twice(self):
        other = section("HEADER", "9", "$INSUNITS", "70", "1")
        self.drawn((*HEADER, *other, *WHOLE[len(HEADER):]), f"{len(HEADER) + 3}: file: a second section HEADER is read, too")
        self.drawn((*WHOLE[:-2], *section("ENTITIES", *line(7)), "0", "EOF"),
                   f"{len(WHOLE) - 2 + 3}: file: a second section ENTITIES is read, too", shown=5)

    def test_the_unit_is_read_wherever_the_header_is(self):
        classes, rest = section("CLASSES", "0", "CLASS", "1", "X"), section("ENTITIES", *line(1))
        small = tuple(word.lower() if word in ("SECTION", "HEADER", "ENDSEC") else word for word in HEADER)
        for words in ((*HEADER, *rest), (*classes, *HEADER, *rest), (*rest, *HEADER), ("0", "ENDSEC", *HEADER, *rest),
                      (*small, *rest)):
            for quiet in ([], ["-q"]):
                with self.subTest(words=words, quiet=quiet):
                    self.write("plan.dxf", dxf(*words, "0", "EOF"))
                    self.expect(0, *quiet, "plan.dxf")
                    self.assertRegex(self.read("plan.svg"), r'^<[^>]*>\s*<svg[^>]* width="[0-9.]+mm"')

    def test_values_that_are_words(self):
        bad = ("0", "LINE", "8", "Walls", "10", "abc", "20", "-", "11", "9", "21", "7x", "62", "")
        self.drawn((*section("ENTITIES", *line(1), *bad), "0", "EOF"),
                   f"{4 + len(line(1)) + 2}: LINE: a value is not a number: 0 is read", shown=2)
        for words in (("ten", "abc"), ("none", "big"), ("INFO", "Nano")):
            bad = ("0", "LINE", "8", "Walls", "10", words[0], "20", words[1], "11", "9", "21", "7")
            self.drawn((*section("ENTITIES", *line(1), *bad), "0", "EOF"),
                       f"{4 + len(line(1)) + 2}: LINE: a value is not a number: 0 is read", shown=2)
        bad = ("0", "LINE", "8", "Walls", "10", "abc", "20", "nan", "11", "9", "21", "7")
        self.drawn((*section("ENTITIES", *line(1), *bad), "0", "EOF"),
                   f"{4 + len(line(1)) + 2}: LINE is not shown: a number is not finite", shown=1)
        self.drawn((*section("BLOCKS", "0", "BLOCK", "2", "Door", "10", "abc", "0", "ENDBLK"),
                    *section("ENTITIES", *line(1)), "0", "EOF"),
                   "6: BLOCK: a value is not a number: 0 is read", shown=1)

    def test_numbers_that_are_out_of_range(self):
        for value, why in (("1e31", "a number is beyond 1e30"), ("-1e300", "a number is beyond 1e30"),
                           ("1e999", "a number is beyond 1e30"), ("nan", "a number is not finite"),
                           ("-1.#IND", "a number is not finite")):
            self.drawn((*section("ENTITIES", *line(1), *line(value)), "0", "EOF"),
                       f"{4 + len(line(1)) + 2}: LINE is not shown: {why}", shown=1)
            self.drawn((*section("ENTITIES", *line(1), *line(value, "67", "1")), "0", "EOF"), shown=1)
            points = [word for y in ("0", value, "9") for word in ("0", "VERTEX", "10", "0", "20", y)]
            self.drawn((*section("ENTITIES", *line(1), "0", "POLYLINE", "8", "0", *points, "0", "SEQEND"), "0", "EOF"),
                       f"{4 + len(line(1)) + 4 + 6 + 2}: VERTEX: {why}", shown=2)

    def test_a_block_without_its_end(self):
        begin = len(HEADER) + len(TABLES) + BLOCKS.index("BLOCK") + 1
        self.drawn(without("0", "ENDBLK"), f"{begin}: BLOCK: ends without ENDBLK")

    def test_a_lost_start_of_each_section(self):
        for name, record, said in (("TABLES", "LAYER", "this entry of a table is outside of sections and is taken"),
                                   ("BLOCKS", "BLOCK", "this block is outside of sections and is taken")):
            lines = without("0", "SECTION", "2", name)
            after = lines.index(record, lines.index("LAYER") + 1) if record == "LAYER" else lines.index(record)
            self.drawn(lines, f"{after}: file: {said}")
        lines = without("0", "SECTION", "2", "ENTITIES")
        first = len(HEADER) + len(TABLES) + len(BLOCKS) + 1
        self.drawn(lines, f"{first}: file: an entity outside of sections is taken (4 times)")

    def picture(self, *lines):
        self.drawn(lines, shown=2)
        return self.read("plan.svg")

    def test_a_lost_start_of_the_header(self):
        whole = self.picture(*HEADER, *section("ENTITIES", *line(1), *line(2)), "0", "EOF")
        bare = self.picture(*section("ENTITIES", *line(1), *line(2)), "0", "EOF")
        self.assertNotEqual(whole, bare)
        self.drawn((*HEADER[4:], *section("ENTITIES", *line(1), *line(2)), "0", "EOF"),
                   "1: file: a header outside of sections is taken", shown=2)
        self.assertEqual(self.read("plan.svg"), whole)

    def test_a_lost_start_of_the_objects(self):
        before = (*section("TABLES"), *section("BLOCKS"),
                  *section("ENTITIES", *line(1, "5", "A", "62", "1"), *line(2, "5", "B", "62", "5")))
        order = section("OBJECTS", "0", "SORTENTSTABLE", "5", "C", "331", "A", "5", "B", "331", "B", "5", "A")
        whole = self.picture(*before, *order, "0", "EOF")
        self.assertNotEqual(whole, self.picture(*before, "0", "EOF"))
        self.drawn((*before, *order[4:], "0", "EOF"), f"{len(before) + 1}: file: an object outside of sections is taken", shown=2)
        self.assertEqual(self.read("plan.svg"), whole)

    def test_a_lost_end_and_a_lost_start(self):
        lines = without("0", "ENDSEC", "0", "SECTION", "2", "ENTITIES")
        first = len(HEADER) + len(TABLES) + len(BLOCKS) - 1
        self.drawn(lines, f"{first}: file: an entity outside of sections is taken (4 times)")

    def colours(self, lines, *messages, shown=2):
        """Draws these lines and gives the colours of the picture's lines, in its order."""
        self.drawn(lines, *messages, shown=shown)
        root = ElementTree.parse(self.path("plan.svg")).getroot()
        return [element.get("stroke") for element in root.iter(SVG + "line")]

    def test_entries_of_tables_after_the_entities_are_applied(self):
        said = "this entry of a table is outside of sections and is taken"
        before = (*section("TABLES"), *section("BLOCKS"), *section("ENTITIES", *line(1), *line(2, "62", "5")))
        for colour, name in (("1", "Walls"), ("1", "WALLS")):
            layer = ("0", "LAYER", "2", name, "70", "0", "62", colour)
            self.assertEqual(self.colours((*before, *layer, "0", "EOF"), f"{len(before) + 1}: file: {said}"),
                             ["#ff0000", "#0000ff"])
            self.assertEqual(self.colours((*before, *section("TABELS", *layer), "0", "EOF"), f"{len(before) + 5}: file: {said}"),
                             ["#ff0000", "#0000ff"])
        hidden = ("0", "LAYER", "2", "Walls", "70", "0", "62", "-1")
        self.drawn((*before, *hidden, *line(3, "8", "0"), "0", "EOF"),
                   f"{len(before) + len(hidden) + 1}: file: an entity outside of sections is taken",
                   f"{len(before) + 1}: file: {said}", shown=1)

    def test_broken_entities_outside_of_sections_are_reported(self):
        broken = line("nan")
        self.drawn((*line(1), *broken, *broken, "0", "EOF"),
                   f"{len(line(1)) + 2}: LINE is not shown: a number is not finite (2 times)",
                   "1: file: an entity outside of sections is taken (3 times)", shown=1)

    def test_solids_outside_of_sections_are_reported(self):
        for solid in ("3DSOLID", "REGION", "BODY"):
            self.drawn((*line(1), "0", solid, "8", "0", "0", "EOF"),
                       f"{len(line(1)) + 2}: {solid} is not shown: a modelled solid or surface",
                       "1: file: an entity outside of sections is taken (2 times)", shown=1)

    def test_blocks_and_tables_among_the_entities(self):
        layer = ("0", "LAYER", "2", "Walls", "70", "0", "62", "1")
        door = ("0", "BLOCK", "2", "Door", "10", "0", "20", "0", *line(5), "0", "ENDBLK")
        strays = ("0", "TABLE", "2", "LAYER", *layer, "0", "ENDTAB", *door)
        for before in ((), (*section("TABLES"), *section("BLOCKS"))):
            first = len(before) + 4 + len(line(1))
            self.assertEqual(self.colours((*before, *section("ENTITIES", *line(1), *strays, *line(2)), "0", "EOF"),
                                          f"{first + 4 + len(layer) + 3}: file: this block is outside of sections and is taken",
                                          f"{first + 5}: file: this entry of a table is outside of sections and is taken"),
                             ["#ff0000", "#ff0000"])

    def test_objects_after_the_entities_without_their_section(self):
        objects = ("0", "DICTIONARY", "5", "C", "0", "MLINESTYLE", "5", "18", "2", "S", "0", "XRECORD", "5", "19")
        for before in ((), (*section("TABLES"), *section("BLOCKS"))):
            lines = (*before, "0", "SECTION", "2", "ENTITIES", *line(1))
            self.drawn((*lines, *objects, *line(2), "0", "ENDSEC", "0", "EOF"),
                       f"{len(lines) + 1}: file: a section ends without ENDSEC",
                       f"{len(lines) + len(objects) + 1}: file: an entity outside of sections is taken", shown=2)

    def test_info_lists_repairs_as_notes(self):
        self.write("plan.dxf", dxf(*without("0", "ENDBLK")))
        begin = len(HEADER) + len(TABLES) + BLOCKS.index("BLOCK") + 1
        self.assertIn(f"  note: line {begin}: BLOCK: ends without ENDBLK\n", self.plexorn("info", "plan.dxf").stdout)
