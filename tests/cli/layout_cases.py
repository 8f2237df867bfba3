"""Sheets: --list-layouts, --layout NAME, --layout all."""
import json
import os
import re
import xml.etree.ElementTree as ElementTree

from command_support import CommandTest, DRAWING, LINE, dxf

SVG = "{http://www.w3.org/2000/svg}"


def section(name, *lines):
    return ("0", "SECTION", "2", name, *lines, "0", "ENDSEC")


def layout(name, record, order, width="200"):
    """A sheet of 200 x 100 mm without margins."""
    return ("0", "LAYOUT", "330", "1A", "44", width, "45", "100", "72", "1", "1", name, "71", order, "330", record)


def line(x1, y1, x2, y2, *groups):
    return ("0", "LINE", "8", "0", *groups, "10", str(x1), "20", str(y1), "11", str(x2), "21", str(y2))


def viewport(number, x, y, size, height, *groups):
    """A square window that shows the model around its origin."""
    return ("0", "VIEWPORT", "8", "0", "67", "1", "10", str(x), "20", str(y), "40", str(size), "41", str(size), "69", number,
            "90", "0", "45", str(height), *groups)


RECORDS = section("TABLES", "0", "BLOCK_RECORD", "5", "20", "2", "*Paper_Space", "0", "BLOCK_RECORD", "5", "30", "2",
                  "*Paper_Space0")
PAPER_BLOCK = section("BLOCKS", "0", "BLOCK", "2", "*Paper_Space0", "330", "30", *line(0, 0, 9, 9), "0", "ENDBLK")
SHEETS = dxf(*RECORDS, *PAPER_BLOCK,
             *section("ENTITIES", *line(-50, 0, 50, 0), *line(10, 10, 190, 10, "67", "1"),
                      *viewport("1", 100, 50, 100, 100), *viewport("2", 50, 50, 40, 40), *viewport("3", 150, 50, 40, 8)),
             *section("OBJECTS", *layout("Second: b/c", "30", "2"), *layout("First", "20", "1")), "0", "EOF")


class Layouts(CommandTest):
    AS_IS = False

    def listed(self, *arguments):
        result = self.plexorn("--list-layouts", *arguments)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        return result.stdout

    def lines(self, name):
        """The ends of the lines in a picture, in drawing order, as "x1 y1 x2 y2"; none of them is moved."""
        root = ElementTree.parse(self.path(name)).getroot()
        for group in root.iter(SVG + "g"):
            self.assertIn(group.get("transform"), (None, "translate(0,0)"))
        return [" ".join(element.get(end) for end in ("x1", "y1", "x2", "y2")) for element in root.iter(SVG + "line")]

    def test_info_has_the_sheets_with_their_sizes(self):
        self.write("plan.dxf", SHEETS)
        sheets = [{"name": "First", "width": 200, "height": 100}, {"name": "Second: b/c", "width": 200, "height": 100}]
        self.assertEqual(json.loads(self.plexorn("info", "--json", "plan.dxf").stdout)["layouts"], sheets)
        self.assertNotIn("layouts", json.loads(self.plexorn("info", "--as-is", "--json", "plan.dxf").stdout))
        lines = self.plexorn("info", "plan.dxf").stdout.splitlines()
        rows = [line.split() for line in lines[lines.index(next(line for line in lines if "sheets" in line)):]]
        self.assertEqual(rows[:3], [["sheets", "width", "(mm)", "height", "(mm)"], ["First", "200", "100"],
                                    ["Second:", "b/c", "200", "100"]])
        self.write("plain.dxf")
        self.assertEqual(json.loads(self.plexorn("info", "--json", "plain.dxf").stdout)["layouts"], [])
        self.write("old.dxf", dxf(*section("ENTITIES", *line(0, 0, 9, 9, "67", "1")), "0", "EOF"))
        self.assertEqual(json.loads(self.plexorn("info", "--json", "old.dxf").stdout)["layouts"],
                         [{"name": "Layout1", "width": None, "height": None}])

    def test_the_names_in_the_order_of_the_tabs(self):
        self.write("plan.dxf", SHEETS)
        self.write("plain.dxf")
        self.assertEqual(self.listed("plan.dxf"), "First\nSecond: b/c\n")
        self.assertEqual(self.listed("plain.dxf"), "")
        self.assertEqual(self.listed("plain.dxf", "plan.dxf"), "plan.dxf: First\nplan.dxf: Second: b/c\n")
        self.assertEqual(self.names(), ["plain.dxf", "plan.dxf"])

    def test_a_list_of_what_cannot_be_read(self):
        self.write("plan.dxf", SHEETS)
        self.write("text.dxf", b"no drawing at all")
        result = self.plexorn("--list-layouts", "text.dxf", "none.dxf", "plan.dxf")
        self.assertEqual((result.returncode, result.stdout), (5, "plan.dxf: First\nplan.dxf: Second: b/c\n"))
        self.assertIn("none.dxf: ", result.stderr)
        self.assertEqual(self.plexorn("--list-layouts", "text.dxf").returncode, 4)

    def test_a_folder_with_one_drawing_has_the_code_of_that_one(self):
        os.mkdir(self.path("in"))
        self.write("in/text.dxf", b"no drawing at all")
        for words in (["--list-layouts"], ["info"], ["-o", "out/"], ["prepare", "-o", "out/"]):
            self.expect(4, *words, "in")

    def test_a_sheet_has_its_size_and_shows_the_model_in_its_windows(self):
        self.write("plan.dxf", SHEETS)
        said = self.expect(0, "--layout", "first", "plan.dxf")
        self.assertIn(" ms, 200 x 100 mm (the unit is mm, by the paper of First)\n", said)
        root = ElementTree.parse(self.path("plan.svg")).getroot()
        self.assertEqual([root.get(name) for name in ("width", "height", "viewBox")], ["200mm", "100mm", "0 -100 200 100"])
        self.assertEqual(self.lines("plan.svg"), ["30 -50 70 -50", "130 -50 170 -50", "10 -10 190 -10"])

    def test_a_sheet_is_white_paper(self):
        self.write("plan.dxf", SHEETS)
        self.expect(0, "-q", "--layout", "First", "plan.dxf")
        root = ElementTree.parse(self.path("plan.svg")).getroot()
        self.assertEqual(root.find(SVG + "rect").get("fill"), "white")
        self.assertIn("[stroke=\"#ffffff\"]{stroke:#000000}", root.find(SVG + "style").text)
        self.expect(0, "-q", "--layout", "First", "--background", "black", "plan.dxf")
        self.assertEqual(ElementTree.parse(self.path("plan.svg")).getroot().find(SVG + "rect").get("fill"), "black")

    def test_scale_and_units_are_of_the_paper(self):
        self.write("plan.dxf", SHEETS)
        for options, width in ((["--scale", "1:2"], "100mm"), (["--units", "none"], "1024"), (["--units", "m"], "200mm")):
            self.expect(0, "-q", "--layout", "First", *options, "plan.dxf")
            self.assertEqual(ElementTree.parse(self.path("plan.svg")).getroot().get("width"), width)

    def test_all_of_them_have_a_picture_each(self):
        self.write("plan.dxf", SHEETS)
        said = self.expect(0, "--layout", "all", "plan.dxf")
        self.assertRegex(said.splitlines()[-1], r"^2 drawn, 0 failed, 0 messages, \d+ ms$")
        self.assertEqual(self.names(), ["plan-First.svg", "plan-Second_ b_c.svg", "plan.dxf"])
        self.assertEqual(self.lines("plan-Second_ b_c.svg"), ["0 0 9 -9"])
        self.expect(0, "-q", "--layout", "all", "plan.dxf", "-o", "out/")
        self.assertEqual(self.read("out/plan-First.svg"), self.read("plan-First.svg"))
        said = self.expect(2, "--layout", "all", "plan.dxf", "-o", "one.svg")
        self.assertIn("several layouts need a folder for their pictures", said)

    def test_of_two_sheets_with_one_name_of_a_picture_the_second_is_refused(self):
        self.write("plan.dxf", SHEETS.replace(b"Second: b/c", b"A:1").replace(b"First", b"A/1"))
        self.assertIn("plan-A_1.svg is the picture of plan.dxf already", self.expect(5, "--layout", "all", "plan.dxf"))
        self.assertEqual(self.names(), ["plan-A_1.svg", "plan.dxf"])
        self.assertEqual(len(self.lines("plan-A_1.svg")), 3)

    def test_sheets_of_two_drawings_are_two_though_their_names_in_a_row_are_one(self):
        self.write("plan", SHEETS.replace(b"Second: b/c", b"-A"))
        self.write("plan-", SHEETS.replace(b"Second: b/c", b"A"))
        self.assertIn("plan-: is not drawn: plan--A.svg is the picture of plan already\n",
                      self.expect(5, "--layout", "all", "plan", "plan-"))
        self.assertEqual(self.names(), ["plan", "plan-", "plan--A.svg", "plan--First.svg", "plan-First.svg"])

    def test_a_sheet_larger_than_any_standard_has_its_own_size(self):
        sheet = layout("Wide", "20", "1", width="2000")
        self.write("plan.dxf", dxf(*RECORDS, *section("ENTITIES", *line(0, 0, 9, 9, "67", "1")), *section("OBJECTS", *sheet),
                                   "0", "EOF"))
        self.assertIn(", 2000 x 100 mm (the unit is mm, by the paper of Wide)", self.expect(0, "--layout", "Wide", "plan.dxf"))

    def test_the_name_of_a_file_has_nothing_that_a_system_refuses(self):
        self.write("plan.dxf", SHEETS.replace(b"Second: b/c", b'a\tb\x01c/\\:*?"<>|d'))
        self.expect(0, "-q", "--layout", "all", "plan.dxf")
        self.assertEqual(self.names(), ["plan-First.svg", "plan-a_b_c_________d.svg", "plan.dxf"])

    def test_all_of_the_standard_input(self):
        said = self.expect(2, "--layout", "all", "-")
        self.assertIn("The standard input can be read once only", said)
        result = self.plexorn("-q", "--layout", "First", "-", stdin=None, input=SHEETS)
        self.assertEqual(result.returncode, 0)
        self.assertIn('viewBox="0 -100 200 100"', result.stdout)

    def test_a_name_that_is_none(self):
        self.write("plan.dxf", SHEETS)
        self.write("plain.dxf")
        self.assertEqual(self.expect(2, "--layout", "Third", "plan.dxf"),
                         "plan.dxf: has no layout 'Third', but 'First', 'Second: b/c'\n")
        self.assertEqual(self.expect(2, "--layout", "all", "plain.dxf"), "plain.dxf: has no layouts\n")
        self.assertEqual(self.expect(2, "prepare", "--layout", "Third", "plan.dxf", "-o", "out.dxf"),
                         "plan.dxf: has no layout 'Third', but 'First', 'Second: b/c'\n")
        self.assertIn("a layout's name is empty", self.expect(2, "--layout", "", "plan.dxf"))
        self.assertEqual(self.names(), ["plain.dxf", "plan.dxf"])

    def test_the_model_is_the_default_and_has_a_name(self):
        self.write("plan.dxf", SHEETS)
        self.expect(0, "-q", "plan.dxf", "-o", "a.svg")
        self.assertEqual(self.lines("a.svg"), ["-50 0 50 0"])

    def test_an_empty_sheet_is_said(self):
        solid = ("0", "3DSOLID", "330", "30", "8", "0", "67", "1")
        for more, reason in (((), "the layout Empty is empty"), (solid, "it cannot draw 1 3DSOLID")):
            self.write("plan.dxf", dxf(*RECORDS, *section("BLOCKS"), *section("ENTITIES", *LINE, *more),
                                       *section("OBJECTS", *layout("Empty", "30", "1")), "0", "EOF"))
            for words in (["plan.dxf"], ["prepare", "plan.dxf", "-o", "out.dxf"]):
                said = self.expect(6, *words, "--layout", "Empty")
                self.assertIn(f"plan.dxf: nothing of it is visible: {reason}\n", said)

    def test_a_sheet_without_a_paper_frames_what_is_on_it(self):
        self.write("plan.dxf", SHEETS.replace(b"\n200\n45", b"\n0\n45"))
        said = self.expect(0, "--layout", "First", "plan.dxf")
        self.assertIn("the layout has no paper size", said)
        self.assertEqual(self.lines("plan.svg"), ["30 -50 70 -50", "130 -50 170 -50", "10 -10 190 -10"])

    def test_preparing_a_sheet(self):
        self.write("plan.dxf", SHEETS)
        self.expect(0, "prepare", "-q", "--for", "standard", "--layout", "First", "plan.dxf", "-o", "first.dxf")
        self.assertIn("$INSUNITS\n70\n4\n", re.sub(r"(?m)^ +", "", self.read("first.dxf")))
        self.expect(0, "prepare", "-q", "--layout", "all", "plan.dxf", "-o", "out/")
        self.expect(0, "-q", "out/plan-First.dxf", "-o", "again.svg")
        self.assertEqual(len(self.lines("again.svg")), 3)

    def test_not_with_as_is(self):
        self.write("plan.dxf", DRAWING)
        self.assertIn("--as-is draws what the module draws by itself", self.expect(2, "--as-is", "--layout", "First", "plan.dxf"))

    def test_hostile_windows(self):
        windows = [viewport("2", 50, 50, 40, height) for height in ("0", "-1", "nan", "1e-300", "1e300")]
        windows += [viewport("2", 50, 50, 40, 40, "5", "AB", "340", "AB")]
        self.write("plan.dxf", dxf(*RECORDS, *section("BLOCKS"),
                                   *section("ENTITIES", *line(-50, 0, 50, 0), *(word for window in windows for word in window),
                                            *viewport("2", 50, 50, 40, 40) * 10000),
                                   *section("OBJECTS", *layout("First", "20", "1")), "0", "EOF"))
        said = self.expect(0, "--layout", "First", "plan.dxf")
        for text in ("VIEWPORT is not shown: it has no size", "VIEWPORT is not shown: a number is not finite",
                     "VIEWPORT: its outline is missing: its rectangle is in its place",
                     "layout is not shown whole: more than 256 viewports"):
            self.assertIn(text, said)
