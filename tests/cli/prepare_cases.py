"""plexorn prepare, and what the options of preparing do to a drawing and to its picture."""
import json
import os
import re

import command_support
from command_support import CommandTest, DRAWING, LINE, dxf, entities

SPLINE = ("0", "SPLINE", "8", "0", "70", "8", "71", "3", "72", "8", "73", "4",
          *(word for knot in "00001111" for word in ("40", knot)),
          *(word for point in ((0, 0), (0, 10), (10, 10), (10, 0)) for word in ("10", str(point[0]), "20", str(point[1]))))
SOLID = ("0", "3DSOLID", "8", "0")


def layer(name, colour="7", flags="0", plotted="1"):
    return ("0", "LAYER", "100", "AcDbLayerTableRecord", "2", name, "70", flags, "62", colour, "290", plotted)


def with_layers(layers, *lines):
    return (dxf("0", "SECTION", "2", "TABLES", "0", "TABLE", "2", "LAYER", *(word for row in layers for word in row),
                "0", "ENDTAB", "0", "ENDSEC") + entities(*lines))


def line_on(name, length):
    return ("0", "LINE", "8", name, "10", "0", "20", "0", "11", str(length), "21", "0")


class PrepareTest(CommandTest):
    AS_IS = False

    def pairs(self, name):
        lines = self.read(name).split("\n")
        return [(int(code), value) for code, value in zip(lines[0::2], lines[1::2])]

    def entity_values(self, name, wanted):
        """The values of a group code in a prepared drawing's ENTITIES section."""
        pairs = self.pairs(name)
        pairs = pairs[pairs.index((2, "ENTITIES")):]
        return [value for code, value in pairs[:pairs.index((0, "ENDSEC"))] if code == wanted]

    def types(self, name):
        return self.entity_values(name, 0)

    def ends(self, *options, content):
        """The ends of the lines that are shown, from a drawing of lines that begin at the origin."""
        self.write("plan.dxf", content)
        self.expect(0, "prepare", "--for", "standard", "-q", "plan.dxf", "-o", "out.dxf", *options)
        return self.entity_values("out.dxf", 11)


class Prepare(PrepareTest):
    def test_a_drawing_becomes_a_plain_one(self):
        self.write("plan.dxf", entities(*SPLINE, *LINE))
        said = self.expect(0, "prepare", "--for", "standard", "plan.dxf", "-o", "out.dxf")
        size = os.path.getsize(self.path("out.dxf"))
        self.assertRegex(said, rf"^plan.dxf: prepared to out.dxf \({size} bytes\), all 2 entities shown, 0 messages, \d+ ms\n$")
        self.assertEqual(self.types("out.dxf"), ["LWPOLYLINE", "LINE"])

    def test_a_failure_writes_nothing(self):
        for content, options in ((DRAWING, ("--layout", "Nope")), (dxf("no drawing"), ())):
            with self.subTest(options=options):
                result = self.plexorn("prepare", *options, "-", stdin=None, input=content)
                self.assertNotEqual(result.returncode, 0)
                self.assertEqual(result.stdout, "")

    def test_nothing_visible_is_said(self):
        for reason, content in {"it cannot draw 1 3DSOLID": entities(*SOLID),
                                "1 entity is in the paper space": entities(*LINE, "67", "1")}.items():
            for options in ([], ["-q"]):
                with self.subTest(reason=reason, options=options):
                    self.write("plan.dxf", content)
                    said = self.expect(6, "prepare", "plan.dxf", "-o", "out.dxf", *options)
                    self.assertIn(f"plan.dxf: nothing of it is visible: {reason}\n", said)
        self.write("plan.dxf", entities())
        self.expect(0, "prepare", "plan.dxf", "-o", "out.dxf")

    def test_entities_of_the_paper_space_are_said(self):
        self.write("plan.dxf", entities(*LINE, *LINE, "67", "1"))
        words = "; shown otherwise: 1 entity of the paper space left out\n"
        self.assertIn(words, self.expect(0, "prepare", "plan.dxf", "-o", "out.dxf"))
        self.assertIn(words, self.expect(1, "prepare", "--strict", "plan.dxf", "-o", "out.dxf"))

    def test_the_standard_streams(self):
        result = self.plexorn("prepare", "-", stdin=None, input=DRAWING)
        self.write("plan.dxf")
        self.expect(0, "prepare", "plan.dxf", "-o", "out.dxf")
        self.assertEqual(result.stdout, self.read("out.dxf"))
        self.assertEqual(self.plexorn("prepare", "plan.dxf", "-o", "-").stdout, result.stdout)

    def test_an_output_is_named_unless_the_drawing_is_the_standard_input(self):
        self.write("plan.dxf")
        self.assertIn("Say with -o where the prepared drawing goes", self.expect(2, "prepare", "plan.dxf"))
        self.assertEqual(self.names(), ["plan.dxf"])

    def test_several_drawings_go_into_a_folder(self):
        os.mkdir(self.path("in"))
        os.mkdir(self.path("in/deep"))
        for name in ("in/a.dxf", "in/deep/b.DXF"):
            self.write(name)
        said = self.expect(0, "prepare", "-r", "in", "-o", "out/")
        self.assertRegex(said.splitlines()[-1], r"^2 prepared, 0 failed, 0 messages, \d+ ms$")
        self.assertEqual(sorted(os.listdir(self.path("out"))), ["a.dxf", "deep"])
        self.assertEqual(os.listdir(self.path("out/deep")), ["b.dxf"])
        said = self.expect(2, "prepare", "in/a.dxf", "in/deep/b.DXF", "-o", "one.dxf")
        self.assertIn("several drawings need a folder for their prepared drawings", said)

    def test_long_words_of_the_drawing_are_cut_in_each_finding(self):
        self.write("plan.dxf", entities(*LINE, *("0", "X" * 3000, "8", "0") * 3))
        for options in (["--verbose"], ["--messages=json"]):
            said = self.expect(0, "prepare", "plan.dxf", "-o", "out.dxf", *options).splitlines()[:-1]
            self.assertEqual(len(said), 3)
            for line in said:
                self.assertIn("X" * 240 + "…", line)
                self.assertLess(len(line), 400)

    def test_the_drawing_itself_and_other_drawings_are_not_written_over(self):
        for name in ("a.dxf", "b.dxf"):
            self.write(name)
        self.assertIn("a.dxf is the drawing itself", self.expect(2, "prepare", "a.dxf", "-o", "a.dxf").replace(":", ""))
        os.mkdir(self.path("out"))
        self.write("out/a.dxf")
        self.assertIn("a.dxf: is not prepared: ", self.expect(5, "prepare", "a.dxf", "out/a.dxf", "-o", "out"))
        self.assertEqual(self.read("a.dxf"), DRAWING.decode())

    def test_an_ending_that_is_not_written_is_refused(self):
        self.write("plan.dxf")
        for ending in ("dwg", "svg", "zip", "xml", "dxfx", "7z"):
            self.assertIn(f"a drawing is prepared as ASCII DXF, not as {ending}; give a name that ends in .dxf",
                          self.expect(2, "prepare", "plan.dxf", "-o", "plan." + ending))
        self.assertEqual(self.names(), ["plan.dxf"])

    def test_a_prepared_drawing_that_exists_is_left_alone_if_asked(self):
        self.write("plan.dxf")
        self.write("out.dxf", b"older")
        self.assertIn("skipped, out.dxf exists", self.expect(0, "prepare", "--no-clobber", "plan.dxf", "-o", "out.dxf"))
        self.assertEqual(self.read("out.dxf"), "older")

    def test_what_is_no_drawing_leaves_nothing(self):
        self.write("plan.dxf", b"no drawing\n")
        self.expect(4, "prepare", "plan.dxf", "-o", "out.dxf")
        self.assertEqual(self.names(), ["plan.dxf"])

    def test_what_is_not_shown_is_said_and_counted(self):
        self.write("plan.dxf", entities(*LINE, *SOLID))
        said = self.expect(0, "prepare", "plan.dxf", "-o", "out.dxf")
        self.assertIn("plan.dxf:18: 3DSOLID is not shown: ", said)
        self.assertIn("1 of 2 entities shown (50.0 %)", said)
        self.expect(1, "prepare", "--strict", "plan.dxf", "-o", "out.dxf")
        self.expect(1, "prepare", "--min-drawn", "51%", "plan.dxf", "-o", "out.dxf")
        self.expect(0, "prepare", "--min-drawn", "50%", "plan.dxf", "-o", "out.dxf")
        *_, closing = map(json.loads, self.expect(0, "prepare", "--messages=json", "plan.dxf", "-o", "out.dxf").splitlines())
        self.assertEqual((closing["type"], closing["output"], closing["share"]["missing"]),
                         ("prepared", "out.dxf", {"3DSOLID": 1}))

    def test_the_module_is_drawn_from_it_without_a_message(self):
        self.write("plan.dxf", entities(*SPLINE, *SOLID, *LINE))
        self.expect(0, "prepare", "plan.dxf", "-o", "out.dxf")
        self.assertIn(" 0 messages", self.expect(0, "--as-is", "out.dxf"))

    def test_the_word_prepare_comes_first(self):
        self.write("plan.dxf")
        self.assertIn("prepare comes first, before options and drawings", self.expect(2, "-q", "prepare", "plan.dxf"))


class Findings(PrepareTest):
    """What preparing finds is reported as messages, one line for each kind or one by one."""
    CONTENT = entities(*SOLID, *LINE, *SOLID, "0", "REGION", "8", "0", *SOLID)
    COMMANDS = ((), ("prepare", "-o", "out.dxf"))

    def said(self, *arguments):
        self.write("plan.dxf", self.CONTENT)
        *lines, closing = self.expect(0, *arguments, "plan.dxf").splitlines()
        self.assertIn(", 4 messages, ", closing)
        return [line.replace("a modelled solid or surface", "modelled") for line in lines]

    def test_one_line_for_each_kind(self):
        for command in self.COMMANDS:
            self.assertEqual(self.said(*command), ["plan.dxf:6: 3DSOLID is not shown: modelled (3 times)",
                                                   "plan.dxf:26: REGION is not shown: modelled"])

    def test_every_one(self):
        for command in self.COMMANDS:
            self.assertEqual(self.said(*command, "--verbose"), [
                "plan.dxf:6: 3DSOLID is not shown: modelled", "plan.dxf:22: 3DSOLID is not shown: modelled",
                "plan.dxf:26: REGION is not shown: modelled", "plan.dxf:30: 3DSOLID is not shown: modelled"])

    def test_programs_get_every_one(self):
        for command in self.COMMANDS:
            self.write("plan.dxf", self.CONTENT)
            *found, closing = map(json.loads, self.expect(0, *command, "--messages=json", "plan.dxf").splitlines())
            self.assertEqual([(one["type"], one["line"], one["count"], one["text"].split()[0]) for one in found],
                             [("finding", 6, 1, "3DSOLID"), ("finding", 22, 1, "3DSOLID"), ("finding", 26, 1, "REGION"),
                              ("finding", 30, 1, "3DSOLID")])
            self.assertEqual(closing["messages"], 4)

    def test_no_more_lines_than_asked_for(self):
        self.assertEqual(self.said("--max-messages", "1"),
                         ["plan.dxf:6: 3DSOLID is not shown: modelled (3 times)",
                          "plan.dxf: … and 1 more message of 1 kind"])
        self.assertEqual(self.said("--max-messages", "0"), ["plan.dxf: … and 4 more messages of 2 kinds"])
        self.assertEqual(self.said("--verbose", "--max-messages", "3")[3:], ["plan.dxf: … and 1 more"])

    def test_a_line_may_tell_several_messages(self):
        self.write("plan.dxf", entities(*LINE, "0", "TEXT", "10", "1\x002", "40", "1", "1", "AB\x00CD", *SOLID, *SOLID))
        for most, rest in (("0", 4), ("1", 2), ("2", 1)):
            printed = self.expect(0, "--verbose", "--max-messages", most, "plan.dxf")
            self.assertIn(f"plan.dxf: … and {rest} more\n", printed)
            printed = self.expect(0, "--messages=json", "--max-messages", most, "plan.dxf")
            self.assertIn(f'{{"type":"more","file":"plan.dxf","messages":{rest}}}\n', printed)


class Sheets(PrepareTest):
    """What is in the paper space is not drawn, and the command says so."""
    ON_SHEET = (*LINE, "67", "1")
    WORDS = "; shown otherwise: 1 entity of the paper space left out"

    def test_they_are_counted(self):
        in_block = dxf("0", "SECTION", "2", "BLOCKS", "0", "BLOCK", "2", "*Paper_Space0", *LINE, "0", "VIEWPORT", "0", "ENDBLK",
                       "0", "ENDSEC")
        for content in (entities(*LINE, *self.ON_SHEET), in_block + DRAWING):
            self.write("plan.dxf", content)
            printed = self.expect(0, "plan.dxf")
            self.assertIn(", 1 entity shown, ", printed)
            self.assertTrue(printed.endswith(self.WORDS + "\n"), printed)
            self.assertIn(self.WORDS, self.expect(1, "-q", "--strict", "plan.dxf"))
            self.assertIn(self.WORDS, self.plexorn("info", "plan.dxf").stdout)
            self.assertIn("1 drawing, 0 shown as stated, 0 failed;", self.plexorn("info", "--summary", "plan.dxf").stdout)
            told = json.loads(self.expect(0, "--messages=json", "plan.dxf"))
            self.assertEqual(told["share"]["otherwise"], {"paperSpaceLeftOut": 1})

    def test_windows_to_the_model_and_what_is_invisible_do_not_count(self):
        self.write("plan.dxf", entities(*LINE, "0", "VIEWPORT", "67", "1", *self.ON_SHEET, "60", "1"))
        self.assertEqual(self.expect(0, "-q", "--strict", "plan.dxf"), "")


class OptionsOfPreparing(PrepareTest):
    LAYERS = with_layers([layer("SHOWN"), layer("OFF", "-7"), layer("FROZEN", "7", "1"), layer("DEFPOINTS"),
                          layer("UNPLOTTED", plotted="0")],
                         *line_on("SHOWN", 1), *line_on("OFF", 2), *line_on("FROZEN", 3), *line_on("DEFPOINTS", 4),
                         *line_on("UNPLOTTED", 5))

    def test_layers(self):
        for options, shown in (((), "15"), (("--layers", "all"), "12345"), (("--paper",), "1"), (("--layer", "SHOWN"), "1"),
                               (("--layer", "*N*", "--layers=all"), "1345"), (("--not-layer", "un*"), "1"),
                               (("--layer", "SHOWN", "--layer", "UNPLOTTED"), "15"),
                               (("--layers=all", "--not-layer", "OFF", "--not-layer", "DEF*"), "135")):
            with self.subTest(options):
                self.assertEqual(self.ends(*options, content=self.LAYERS), [*shown])

    def test_the_picture_shows_the_same_layers(self):
        self.write("plan.dxf", self.LAYERS)
        for options, lines in (((), 2), (("--layers=all",), 5), (("--layer", "SHOWN"), 1)):
            self.expect(0, "plan.dxf", *options)
            self.assertEqual(self.read("plan.svg").count("<line"), lines, options)

    def test_white_runs_of_a_text_are_black_on_paper(self):
        self.write("plan.dxf", entities("0", "MTEXT", "8", "0", "10", "0", "20", "0", "40", "2", "1", r"{\C1;red} white"))
        self.expect(0, "--paper", "plan.dxf")
        picture = self.read("plan.svg")
        self.assertRegex(picture, r'<text [^>]*fill="#ff0000"[^>]*>red *<tspan [^>]*fill="#ffffff"[^>]*> *white</tspan>')
        self.assertIn('tspan[fill="#ffffff"]{fill:#000000}', picture)
        self.expect(0, "--paper", "--as-is", "plan.dxf")
        self.assertNotIn("tspan", self.read("plan.svg"))

    def test_tolerance(self):
        self.write("plan.dxf", entities(*SPLINE))
        vertices = []
        for tolerance in ("1", "0.1", "1e-4"):
            self.expect(0, "prepare", "--for=standard", "--tolerance", tolerance, "plan.dxf", "-o", "out.dxf")
            [count] = map(int, self.entity_values("out.dxf", 90))
            vertices.append(count)
        self.assertLess(vertices[0] * 2, vertices[1])
        self.assertLess(vertices[1] * 10, vertices[2])
        for wrong in ("0", "-1", "nan", "inf", "1mm", ""):
            self.assertIn("is no tolerance", self.expect(2, "--tolerance", wrong, "plan.dxf"))

    def test_no_wrap(self):
        self.write("plan.dxf", entities("0", "LINE", "8", "0", "10", "2500000", "20", "5600000", "11", "2500020", "21", "5600000"))
        self.expect(0, "prepare", "plan.dxf", "-o", "out.dxf")
        self.assertEqual(self.types("out.dxf"), ["INSERT"])
        self.expect(0, "prepare", "--no-wrap", "plan.dxf", "-o", "out.dxf")
        self.assertEqual(self.types("out.dxf"), ["LINE"])

    def test_encoding(self):
        text = entities("0", "TEXT", "8", "0", "10", "0", "20", "0", "40", "1", "1", "VALUE").replace(b"VALUE", b"\xcf\xf0\xe8")
        self.write("plan.dxf", text)
        for name, shown in (("ANSI_1251", "При"), ("ansi_1252", "Ïðè"), ("1251", "При")):
            self.expect(0, "prepare", "--for=standard", "--encoding", name, "plan.dxf", "-o", "out.dxf")
            escaped = "".join(letter if ord(letter) < 256 else f"\\U+{ord(letter):04X}" for letter in shown)
            with open(self.path("out.dxf"), "rb") as file:
                self.assertIn(b"\n1\n" + escaped.encode("cp1252") + b"\n", file.read())
            # On Windows the module reads texts in the system's code page, which may lack these letters.
            if not command_support.EMULATOR:
                self.expect(0, "--encoding", name, "plan.dxf")
                self.assertIn(f">{shown}<", self.read("plan.svg"))
        self.assertIn("is not an encoding", self.expect(2, "--encoding", "klingon", "plan.dxf"))

    def test_names_with_letters_that_are_spelled_out(self):
        door = ("0", "BLOCK", "2", r"\U+5C42", "0", "LINE", "8", r"\U+5c42", "11", "9", "0", "ENDBLK")
        inserted = entities("0", "INSERT", "8", "0", "2", "\u5c42")
        self.write("plan.dxf", dxf("0", "SECTION", "2", "BLOCKS", *door, "0", "ENDSEC") + inserted)
        self.expect(0, "-q", "--strict", "plan.dxf")
        if not command_support.EMULATOR:
            self.assertIn('data-layer="\u5c42"', self.read("plan.svg"))
        self.expect(0, "prepare", "--for=standard", "plan.dxf", "-o", "once.dxf")
        self.expect(0, "prepare", "--for=standard", "once.dxf", "-o", "twice.dxf")
        self.assertIn("\\U+5C42\n", self.read("once.dxf"))
        self.assertEqual(self.read("twice.dxf"), self.read("once.dxf"))

    def test_lines_that_end_with_a_carriage_return_alone(self):
        drawing = entities("0", "LINE", "8", "0", "11", "9")
        self.write("lf.dxf", drawing)
        self.write("cr.dxf", drawing.replace(b"\n", b"\r"))
        self.expect(0, "-q", "--strict", "lf.dxf", "cr.dxf")
        self.assertEqual(self.read("cr.svg"), self.read("lf.svg"))
        self.assertIn("its first line is not a group code", self.expect(4, "--as-is", "cr.dxf", "-o", "other.svg"))

    def test_first_codes_that_the_module_alone_takes(self):
        for code in ("+0", "9999", "-1"):
            with self.subTest(code=code):
                self.write("plan.dxf", dxf(code, "anything") + entities("0", "LINE", "8", "0", "11", "9"))
                self.expect(0, "-q", "--as-is", "plan.dxf")
                self.assertIn("<line ", self.read("plan.svg"))
                if code != "-1":
                    self.assertIn("its first line is not a group code", self.expect(4, "plan.dxf"))

    def test_a_dimension_of_another_number_than_the_file_states(self):
        words = "shown otherwise: 1 DIMENSION its number is not the one that the file states"
        for stated, text, is_other in (("10", "", False), ("10.00001", "", False), ("11", "", True), ("11", "<> mm", True),
                                       ("11", "wide", False), ("-1", "", False), ("0", "", False)):
            with self.subTest(stated=stated, text=text):
                self.write("plan.dxf", entities(
                    "0", "DIMENSION", "100", "AcDbEntity", "8", "0", "100", "AcDbDimension", "10", "10", "20", "5", "70", "1",
                    "1", text, "42", stated, "100", "AcDbAlignedDimension", "13", "0", "23", "0", "14", "10", "24", "0"))
                self.assertEqual(words in self.expect(0, "plan.dxf"), is_other)
                self.expect(1 if is_other else 0, "-q", "--strict", "plan.dxf")

    def test_redrawn_dimensions(self):
        dimension = ("0", "DIMENSION", "100", "AcDbEntity", "8", "0", "100", "AcDbDimension", "2", "*D1", "10", "10", "20", "5",
                     "70", "1", "100", "AcDbAlignedDimension", "13", "0", "23", "0", "14", "10", "24", "0")
        self.write("plan.dxf", dxf("0", "SECTION", "2", "BLOCKS", "0", "BLOCK", "2", "*D1", "10", "0", "20", "0", *LINE,
                                   "0", "ENDBLK", "0", "ENDSEC") + entities(*dimension))
        self.expect(0, "plan.dxf")
        self.assertNotIn("<text", self.read("plan.svg"))
        self.expect(0, "--redraw-dimensions", "plan.dxf")
        self.assertRegex(self.read("plan.svg"), r">10<")

    def test_areas_are_filled_or_outlined(self):
        corners = ("10", "0", "20", "0", "11", "9", "21", "0", "12", "0", "22", "9", "13", "9", "23", "9")
        self.write("plan.dxf", entities("0", "SOLID", "8", "0", *corners))
        for how in ((), ("--fill", "filled")):
            self.expect(0, *how, "plan.dxf")
            self.assertRegex(self.read("plan.svg"), r'<path [^>]*fill-rule="evenodd"')
        self.expect(0, "--fill", "outline", "plan.dxf")
        self.assertNotIn("<path", self.read("plan.svg"))
        self.assertEqual(self.read("plan.svg").count("<polygon"), 1)
        for reader, filled in (("module", "PLEXORN_FILL_1"), ("standard", "AcDbHatch")):
            self.expect(0, "prepare", "--for", reader, "plan.dxf", "-o", "filled.dxf")
            self.expect(0, "prepare", "--for", reader, "--fill=outline", "plan.dxf", "-o", "outline.dxf")
            self.assertIn(filled, self.read("filled.dxf"))
            self.assertNotIn(filled, self.read("outline.dxf"))
            self.assertEqual(self.read("outline.dxf").count("LWPOLYLINE"), 1)

    def test_a_way_to_fill_that_is_none(self):
        self.write("plan.dxf")
        self.assertIn("'solid' is no way to fill; give filled or outline", self.expect(2, "--fill", "solid", "plan.dxf"))

    def test_what_the_module_draws_by_itself_is_not_prepared(self):
        self.write("plan.dxf")
        for option in ("--layers=all", "--layer=0", "--not-layer=0", "--tolerance=1", "--no-wrap", "--encoding=1252",
                       "--redraw-dimensions", "--fill=outline"):
            self.assertIn("--as-is draws what the module draws by itself", self.expect(2, "--as-is", option, "plan.dxf"))
        self.assertIsNone(re.search("svg", " ".join(self.names())))
