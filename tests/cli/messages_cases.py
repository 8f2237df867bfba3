"""What is printed about a drawing."""
import re

from command_support import CommandTest, DRAWING, DRAWING_WITH_MESSAGE, LINE, SOLID_MESSAGE, dxf, entities

SUMMARY = re.compile(r"^plan\.dxf: (\d+) elements? drawn to plan\.svg, [^,]*, (\d+) messages?, \d+ ms, "
                     r"size in pixels \(the drawing states no unit\)(.*)$")


class Messages(CommandTest):
    def messages(self, content, code=0):
        """Draws content; the lines printed before the closing one, and the closing one's parts."""
        self.write("plan.dxf", content)
        *lines, last = self.expect(code, "plan.dxf").splitlines()
        self.assertRegex(last, SUMMARY)
        if code == 6:
            self.assertIn("nothing of it is visible", lines.pop())
        return lines, SUMMARY.match(last).groups()

    def test_nothing_goes_to_the_standard_output(self):
        self.write("plan.dxf", DRAWING_WITH_MESSAGE)
        self.assertEqual(self.plexorn("plan.dxf").stdout, "")

    def test_a_clean_drawing_has_one_closing_line(self):
        self.assertEqual(self.messages(DRAWING), ([], ("1", "0", "")))

    def test_a_line_number_in_parentheses(self):
        lines, summary = self.messages(DRAWING_WITH_MESSAGE)
        self.assertEqual(lines, [f"plan.dxf:6: {SOLID_MESSAGE}"])
        self.assertEqual(summary, ("1", "1", "; missing: 1 SOLID"))

    def test_a_line_number_in_parentheses_after_the_word(self):
        lines, _ = self.messages(dxf("0", "SECTION", "2", "HOUSES", "0", "ENDSEC", "0", "EOF"))
        self.assertEqual(lines, ["plan.dxf:4: HOUSES - Unknown Section Name Line (4)"])

    def test_a_line_number_after_a_colon(self):
        lines, _ = self.messages(entities("0", "LINE", "abc", "0", "LINE"))
        self.assertEqual(lines[:2], ["plan.dxf:7: ReadENTITIES_LINE Failed to read integer from 'abc', Line:7",
                                     "plan.dxf:7: ReadENTITIES_LINE() Failed to read line, Line:7"])

    def test_a_number_that_is_part_of_a_name_is_no_line_number(self):
        lines, _ = self.messages(entities("0", "WALL (3)", *LINE))
        self.assertEqual(lines, ["plan.dxf:6: WALL (3) - Unknown Object Type Name (6)"])

    def test_a_message_without_a_line(self):
        part = ("100", "AcDbDimension")
        lines, _ = self.messages(entities("0", "DIMENSION", *part, *part), code=6)
        self.assertEqual(lines, ["plan.dxf: AcDbDimension data duplicated."])

    def test_control_characters_of_the_file_do_not_reach_the_terminal(self):
        lines, _ = self.messages(entities("0", "A\x1b[2JB\x7f", *LINE))
        self.assertEqual(lines, [r"plan.dxf:6: A\x1B[2JB\x7F - Unknown Object Type Name (6)"])

    def test_what_the_host_met_stands_in_the_closing_line(self):
        _, (_, _, findings) = self.messages(entities("0", "INSERT", "2", "NOWHERE", "0", "INSERT", "2", "NOWHERE"), code=6)
        self.assertEqual(findings, "; 2 inserts of missing blocks; missing: 2 INSERT")

    def test_a_block_that_inserts_itself_is_told(self):
        block = ("0", "BLOCK", "2", "A", "0", "INSERT", "2", "A", "0", "ENDBLK", "0", "ENDSEC")
        content = dxf("0", "SECTION", "2", "BLOCKS", *block) + entities("0", "INSERT", "2", "A")
        _, (_, _, findings) = self.messages(content, code=6)
        self.assertEqual(findings, "; 1 insert left out (its block inserts itself)")

    def test_elements_that_cannot_be_drawn_are_told_and_not_counted_as_drawn(self):
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

    def test_more_elements_than_a_drawing_of_its_size_holds_are_left_out_and_told(self):
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

    def test_a_hundred_thousand_messages(self):
        count = 100_000
        self.write("plan.dxf", entities(*LINE, *("0", "SOLID") * count))
        lines = self.expect(0, "plan.dxf").splitlines()
        self.assertEqual(len(lines), count + 1)
        last = len(LINE) + 2 * count + 4
        self.assertEqual(lines[-2], f"plan.dxf:{last}: SOLID - Unknown Object Type Name ({last})")
