"""What is printed about a drawing."""
import os
import re

import command_support
from command_support import CommandTest, DRAWING, DRAWING_WITH_MESSAGE, LINE, SOLID_TEXT, dxf, entities

SUMMARY = re.compile(r"^plan\.dxf: (\d+) elements? drawn to plan\.svg, [^,]*, (\d+) messages?, \d+ ms, "
                     r"size in pixels \(the drawing states no unit\)(.*)$")


class Printed(CommandTest):
    def messages(self, content, *options, code=0):
        """Draws content; the lines printed before the closing one, and the closing one's parts."""
        self.write("plan.dxf", content)
        *lines, last = self.expect(code, "plan.dxf", *options).splitlines()
        self.assertRegex(last, SUMMARY)
        if code == 6:
            self.assertIn("nothing of it is visible", lines.pop())
        return lines, SUMMARY.match(last).groups()


class Messages(Printed):
    def test_nothing_goes_to_the_standard_output(self):
        self.write("plan.dxf", DRAWING_WITH_MESSAGE)
        self.assertEqual(self.plexorn("plan.dxf").stdout, "")

    def test_a_clean_drawing_has_one_closing_line(self):
        self.assertEqual(self.messages(DRAWING), ([], ("1", "0", "")))

    def test_a_line_number_in_parentheses(self):
        lines, summary = self.messages(DRAWING_WITH_MESSAGE)
        self.assertEqual(lines, [f"plan.dxf:6: {SOLID_TEXT}"])
        self.assertEqual(summary, ("1", "1", "; missing: 1 SOLID"))

    def test_a_line_number_in_parentheses_after_the_word(self):
        lines, _ = self.messages(dxf("0", "SECTION", "2", "HOUSES", "0", "ENDSEC", "0", "EOF"))
        self.assertEqual(lines, ["plan.dxf:4: HOUSES - Unknown Section Name"])

    def test_a_line_number_after_a_colon(self):
        lines, _ = self.messages(entities("0", "LINE", "abc", "0", "LINE"))
        self.assertEqual(lines[:2], ["plan.dxf:7: ReadENTITIES_LINE Failed to read integer from 'abc'",
                                     "plan.dxf:7: ReadENTITIES_LINE() Failed to read line"])

    def test_a_number_that_is_part_of_a_name_is_no_line_number(self):
        lines, _ = self.messages(entities("0", "WALL (3)", *LINE))
        self.assertEqual(lines, ["plan.dxf:6: WALL (3) - Unknown Object Type Name"])

    def test_a_message_without_a_line(self):
        part = ("100", "AcDbDimension")
        lines, _ = self.messages(entities("0", "DIMENSION", *part, *part), code=6)
        self.assertEqual(lines, ["plan.dxf: AcDbDimension data duplicated."])

    def test_control_characters_of_the_file_do_not_reach_the_terminal(self):
        lines, _ = self.messages(entities("0", "A\x1b[2JB\x7f", *LINE))
        self.assertEqual(lines, [r"plan.dxf:6: A\x1B[2JB\x7F - Unknown Object Type Name"])

    def test_what_the_host_met_is_in_the_closing_line(self):
        _, (_, _, findings) = self.messages(entities("0", "INSERT", "2", "NOWHERE", "0", "INSERT", "2", "NOWHERE"), code=6)
        self.assertEqual(findings, "; 2 inserts of missing blocks; missing: 2 INSERT")

    def test_a_block_that_inserts_itself_is_reported(self):
        block = ("0", "BLOCK", "2", "A", "0", "INSERT", "2", "A", "0", "ENDBLK", "0", "ENDSEC")
        content = dxf("0", "SECTION", "2", "BLOCKS", *block) + entities("0", "INSERT", "2", "A")
        _, (_, _, findings) = self.messages(content, code=6)
        self.assertEqual(findings, "; 1 insert left out (its block inserts itself)")

    def test_elements_that_cannot_be_drawn_are_reported_and_not_counted_as_drawn(self):
        flat = ("0", "INSERT", "2", "NOWHERE", "41", "0.0")
        _, (drawn, _, findings) = self.messages(entities(*flat, *LINE))
        self.assertEqual(drawn, "1")
        self.assertEqual(findings, "; 1 insert of a missing block; 1 element could not be drawn "
                                   "(a number of its place or size cannot be used); missing: 1 INSERT")
        _, (drawn, _, findings) = self.messages(entities(*("0", "ELLIPSE", "40", "0.5") * 2, *LINE))
        self.assertEqual(drawn, "1")
        self.assertEqual(findings, "; 2 elements could not be drawn (numbers of their place or size cannot be used)")

    def test_a_pattern_of_thousands_of_dashes_makes_no_big_picture(self):
        count = 4000
        pattern = ("0", "TABLE", "2", "LTYPE", "0", "LTYPE", "100", "AcDbSymbolTableRecord", "100",
                   "AcDbLinetypeTableRecord", "2", "P", *("49", "1") * count, "0", "ENDTAB", "0", "ENDSEC")
        content = dxf("0", "SECTION", "2", "TABLES", *pattern) + entities(*("0", "LINE", "6", "P") * count)
        _, (drawn, _, findings) = self.messages(content)
        self.assertEqual(drawn, str(count))
        self.assertEqual(findings, f"; {count} elements drawn solid (their dash patterns are too long)")
        self.assertLess(len(self.read("plan.svg")), 1_000_000)

    def test_more_elements_than_a_drawing_of_its_size_holds_are_left_out_and_reported(self):
        # Each of the dimension's repeated parts draws its text of hundreds of pieces again.
        parts = 600
        text = "\\S1^2;" * 166
        content = entities("0", "DIMENSION", "100", "AcDbDimension", "1", text, "100", "AcDbRadialDimension", "15", "1",
                           *("100", "AcDbRadialDimension") * parts)
        most = 100_000 + len(content) // 8
        _, (drawn, _, findings) = self.messages(content)
        self.assertEqual(drawn, str(most))
        self.assertRegex(findings, r"^; [0-9]+ elements left out \(too many for a drawing of this size\)$")
        self.assertGreater(int(findings.split()[1]), 1000)
        self.assertIn(", 0 of 1 entity shown (0.0 %), ", self.expect(0, "plan.dxf"))

    # A dimension draws its text of so many values again for each of its repeated parts.
    LONG_TEXTS = ("0", "DIMENSION", "100", "AcDbDimension", "1", "<>" * 510, "100", "AcDbRadialDimension", "15", "1e37",
                  *("100", "AcDbRadialDimension") * 45_000)

    def test_what_makes_the_picture_too_large_is_left_out_and_reported(self):
        content = entities(*self.LONG_TEXTS)
        most = 17_000_000 + 12 * len(content)
        _, (drawn, _, findings) = self.messages(content)
        size = os.path.getsize(self.path("plan.svg"))
        self.assertLessEqual(size, most * 1.01)
        self.assertGreater(size, most * 0.99)
        self.assertRegex(findings,
                         r"; [0-9]+ elements left out \(the picture is too large for a drawing of this size\)$")
        self.assertGreater(int(re.search(r"; ([0-9]+) elements", findings)[1]), 100)
        picture = self.read("plan.svg")
        self.assertEqual(int(drawn), sum(map(picture.count, ("<line ", "<text ", "<g>"))))
        self.assertGreater(int(drawn), 2000)
        self.write("plan.dxf", entities(*LINE * 1000, *self.LONG_TEXTS))
        self.assertNotIn(", 0 of ", self.expect(0, "plan.dxf"))

    def test_a_long_dash_pattern_is_written_once(self):
        dashes = (word for number in range(50) for word in ("49", f"{'-' * (number % 2)}0.{number + 1234567}"))
        pattern = ("0", "TABLE", "2", "LTYPE", "0", "LTYPE", "100", "AcDbSymbolTableRecord", "100",
                   "AcDbLinetypeTableRecord", "2", "P", *dashes, "0", "ENDTAB", "0", "ENDSEC")
        lines = ("0", "LINE", "6", "P", "11", "9") * 2000
        self.messages(dxf("0", "SECTION", "2", "TABLES", *pattern) + entities(*lines))
        self.assertEqual(self.read("plan.svg").count(" stroke-dasharray="), 2000)
        self.AS_IS = False
        self.messages(dxf("0", "SECTION", "2", "TABLES", *pattern) + entities(*lines))
        self.assertEqual(self.read("plan.svg").count("stroke-dasharray"), 1)
        self.assertEqual(self.read("plan.svg").count(' class="dashes-1"'), 2000)

    def test_a_hundred_thousand_messages(self):
        count = 100_000
        self.write("plan.dxf", entities(*LINE, *("0", "SOLID") * count))
        lines = self.expect(0, "--verbose", "plan.dxf").splitlines()
        self.assertEqual(len(lines), count + 1)
        self.assertEqual(lines[-2], f"plan.dxf:{len(LINE) + 2 * count + 4}: {SOLID_TEXT}")


class Groups(Printed):
    """Messages that say the same are one line."""

    @staticmethod
    def circles(*pairs):
        """Each of these codes and values in a circle of its own, which knows none of them."""
        return entities(*(text for code, value in pairs
                          for text in ("0", "CIRCLE", "100", "AcDbCircle", code, value)), *LINE)

    def test_the_same_message_is_one_line_with_the_line_of_the_first_and_the_number(self):
        lines, (_, count, _) = self.messages(entities("0", "SOLID", *LINE, *("0", "SOLID") * 99))
        self.assertEqual(lines, [f"plan.dxf:6: {SOLID_TEXT} (100 times)"])
        self.assertEqual(count, "100")

    def test_a_hundred_thousand_messages_are_one_line(self):
        lines, (_, count, _) = self.messages(entities(*("0", "SOLID") * 100_000, *LINE))
        self.assertEqual((len(lines), count), (1, "100000"))

    def test_types_are_messages_of_their_own_in_the_order_of_the_drawing(self):
        lines, _ = self.messages(entities(*("0", "SOLID", "0", "WALL") * 3, *LINE))
        self.assertEqual(lines, [f"plan.dxf:6: {SOLID_TEXT} (3 times)",
                                 "plan.dxf:8: WALL - Unknown Object Type Name (3 times)"])

    def test_values_of_a_group_code_do_not_make_messages_differ(self):
        lines, _ = self.messages(self.circles(("71", "1"), ("71", "2"), ("72", "5"), ("72", "5"), ("73", "x")))
        prefix = "ReadENTITIES_COMMON Unknown Dimension type AcDbCircle"
        self.assertEqual([line.split(": ", 1)[1] for line in lines],
                         [f"{prefix} ('71' = '…') (2 times)", f"{prefix} ('72' = '5') (2 times)",
                          f"{prefix} ('73' = 'x')"])

    def test_what_is_no_group_code_does_not_make_messages_differ(self):
        lines, _ = self.messages(entities("0", "SOLID", "abc", "1", "0", "SOLID", "it's", "1", *LINE))
        self.assertIn("plan.dxf:7: Read_UNKNOWN() Failed to read integer from '…' (2 times)", lines)

    def test_verbose_prints_every_message(self):
        lines, _ = self.messages(self.circles(("71", "1"), ("71", "2")), "--verbose")
        prefix = "ReadENTITIES_COMMON Unknown Dimension type AcDbCircle"
        self.assertEqual(lines, [f"plan.dxf:10: {prefix} ('71' = '1')", f"plan.dxf:16: {prefix} ('71' = '2')"])

    def test_a_long_text_is_cut_between_characters_unless_verbose(self):
        if command_support.EMULATOR:
            self.skipTest("the module reads texts in another code page there")
        name = "Ä" * 400
        [line], _ = self.messages(entities("0", name, *LINE))
        self.assertRegex(line, r"^plan\.dxf:6: Ä{100,200}…$")
        [line], _ = self.messages(entities("0", name, *LINE), "--verbose")
        self.assertEqual(line, f"plan.dxf:6: {name} - Unknown Object Type Name")

    def test_a_text_of_240_bytes_is_whole(self):
        for name, is_whole in (("N" * (240 - len(" - Unknown Object Type Name")), True),
                               ("N" * (241 - len(" - Unknown Object Type Name")), False)):
            [line], _ = self.messages(entities("0", name, *LINE))
            self.assertEqual(line, f"plan.dxf:6: {name} - Unknown Object Type Nam" + ("e" if is_whole else "…"))

    def test_no_drawing_brings_more_lines_than_some_hundred(self):
        types = (text for number in range(700) for text in ("0", f"T{number}") * 2)
        lines, (_, count, _) = self.messages(entities(*types, *LINE))
        self.assertEqual(count, "1400")
        self.assertEqual(len(lines), 301)
        self.assertEqual(lines[299], "plan.dxf:1202: T299 - Unknown Object Type Name (2 times)")
        self.assertEqual(lines[300], "plan.dxf: … and 800 more messages of 400 kinds")

    def test_kinds_beyond_counting(self):
        lines, _ = self.messages(entities(*(text for number in range(12_000) for text in ("0", f"T{number}")), *LINE))
        self.assertEqual(lines[-1], "plan.dxf: … and 11700 more messages of 10000 kinds or more")

    def test_max_messages_counts_lines(self):
        content = entities(*("0", "SOLID", "0", "WALL", "0", "ROOF") * 3, "0", "DOOR", *LINE)
        lines, _ = self.messages(content, "--max-messages", "3")
        self.assertEqual(lines[2:], ["plan.dxf:10: ROOF - Unknown Object Type Name (3 times)",
                                     "plan.dxf: … and 1 more message of 1 kind"])
        lines, _ = self.messages(content, "--max-messages", "0")
        self.assertEqual(lines, ["plan.dxf: … and 10 more messages of 4 kinds"])

    def test_quiet_says_nothing_of_messages_that_are_not_listed(self):
        self.write("plan.dxf", entities(*("0", "SOLID") * 9, *LINE))
        for options in ([], ["--verbose"], ["--messages=json"]):
            for most in (["--max-messages", "1"], []):
                self.assertEqual(self.expect(0, "-q", "plan.dxf", *options, *most), "")
