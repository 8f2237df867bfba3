"""The command line: options, defaults, wrong usage."""
import os
import xml.etree.ElementTree as ElementTree

import command_support
from command_support import CommandTest, DRAWING_WITH_MESSAGE


class Options(CommandTest):
    def test_help_names_every_option_and_exit_code(self):
        result = self.plexorn("--help")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        for text in ("plexorn [OPTIONS] FILE...", "plexorn info", "-o,--output", "--background", "#1e1e1e", "--quiet", "--version",
                     "0 drawn", "1 drawn, but not all of a drawing is shown as it should be", "2 wrong usage", "3 the file cannot be read",
                     "4 the file is not a DXF that can be read", "5 of several drawings, at least one failed",
                     "6 drawn, but nothing is visible",
                     "Limits and faults:", "100,000 for each drawing", "those from whom you have plexorn"):
            self.assertIn(text, " ".join(result.stdout.split()))

    def test_help_fills_its_lines(self):
        lines = self.plexorn("--help").stdout.splitlines()
        self.assertEqual(max(map(len, lines)), 96)
        for line, following in zip(lines, lines[1:]):
            if following.startswith(" " * 26) and len(line) > 26 and line[25] == " ":
                self.assertGreater(len(line) + 1 + len(following.split()[0]), 96, line)

    def test_help_has_three_examples_that_run(self):
        for command in ([], ["info"], ["prepare"]):
            listed = self.plexorn(*command, "--help").stdout.split("\nExamples:\n")[1].split("\n\n")[0]
            examples = [line.split("  ")[1] for line in listed.splitlines() if line.startswith("  plexorn ")]
            self.assertEqual(len(examples), 3, listed)
            os.makedirs(self.path("in"), exist_ok=True)
            for name in ("plan.dxf", "a.dxf", "in/b.dxf"):
                self.write(name)
            for example in examples:
                quiet = () if command == ["info"] or " info " in example else ("-q",)
                self.assertEqual(self.expect(0, *example.split()[1:], *quiet), "", example)

    def test_version(self):
        result = self.plexorn("--version")
        self.assertEqual((result.returncode, result.stdout), (0, f"plexorn {command_support.VERSION}\n"))

    def test_the_picture_goes_beside_the_drawing(self):
        self.write("plan.dxf")
        self.expect(0, "plan.dxf")
        self.assertEqual(self.names(), ["plan.dxf", "plan.svg"])
        root = ElementTree.parse(self.path("plan.svg")).getroot()
        self.assertEqual(root.tag, "{http://www.w3.org/2000/svg}svg")
        self.assertEqual(len(root.findall(".//{http://www.w3.org/2000/svg}line")), 1)

    def test_the_ending_is_replaced_whatever_its_letters_case(self):
        self.write("PLAN.DXF")
        self.expect(0, "PLAN.DXF")
        self.assertEqual(self.names(), ["PLAN.DXF", "PLAN.svg"])

    def test_another_ending_stays(self):
        self.write("plan.txt")
        self.expect(0, "plan.txt")
        self.assertEqual(self.names(), ["plan.txt", "plan.txt.svg"])

    def test_the_picture_goes_where_output_says(self):
        self.write("plan.dxf")
        for option in (["-o", "a.svg"], ["--output", "b.svg"], ["--output=c.svg"]):
            self.expect(0, "plan.dxf", *option)
        self.assertEqual(self.names(), ["a.svg", "b.svg", "c.svg", "plan.dxf"])
        self.assertEqual(self.read("a.svg"), self.read("b.svg"))

    def test_options_may_come_before_the_file(self):
        self.write("plan.dxf")
        self.expect(0, "-o", "a.svg", "--quiet", "plan.dxf")
        self.assertEqual(self.names(), ["a.svg", "plan.dxf"])

    def test_after_two_dashes_comes_a_file(self):
        self.write("-q.dxf")
        self.expect(0, "--", "-q.dxf")
        self.assertEqual(self.names(), ["-q.dxf", "-q.svg"])

    def test_the_background_is_dark_unless_told_otherwise(self):
        self.write("plan.dxf")
        self.expect(0, "plan.dxf", "-o", "default.svg")
        self.expect(0, "plan.dxf", "-o", "none.svg", "--background", "none")
        self.assertIn("#1e1e1e", self.read("default.svg"))
        self.assertNotIn("#1e1e1e", self.read("none.svg"))

    def test_the_background_is_any_colour(self):
        self.write("plan.dxf")
        for colour in ("#AbC123", "#fff", "#12345678", "navy", "rgb(1, 2, 3)", "hsl(120deg 50% 20% / 0.5)"):
            self.expect(0, "plan.dxf", "--background", colour)
            self.assertIn(f'"{colour}"', self.read("plan.svg"))

    def test_what_is_no_colour_is_wrong_usage(self):
        self.write("plan.dxf")
        for text in ("#12", "#ggg", '"/><script>', "a;b", "url(#x)", "url(1/2)", "URL(deg)", "", "rgb(1",
                     "rgb(0,0,0);x:url(http://host/a)", "rgb(a)", "rgb(1;2)"):
            self.assertIn("is not a colour", self.expect(2, "plan.dxf", "--background", text))
        self.assertEqual(self.names(), ["plan.dxf"])

    def test_quiet_keeps_messages_and_summary_back(self):
        self.write("plan.dxf", DRAWING_WITH_MESSAGE)
        for option in ("--quiet", "-q"):
            self.assertEqual(self.expect(0, "plan.dxf", option), "")
        self.assertIn("plan.svg", self.names())

    def test_quiet_still_reports_errors(self):
        self.assertEqual(self.expect(3, "-q", "none.dxf"), "none.dxf: cannot be read: No such file or directory\n")

    def test_wrong_usage(self):
        self.write("plan.dxf")
        for arguments in ([], ["info"], ["plan.dxf", "more.dxf", "-o", "one.svg"], ["plan.dxf", "--colour"], ["plan.dxf", "-o"],
                          ["plan.dxf", "-o", ""], [""], ["plan.dxf", "--quiet=perhaps"], ["-", "-"],
                          ["-", "--files-from", "-"], ["plan.dxf", "more.dxf", "-o", "-"]):
            with self.subTest(arguments=arguments):
                self.assertIn("--help", self.expect(2, *arguments))

    def test_info_comes_first(self):
        self.write("plan.dxf")
        for words in (["--strict", "info", "plan.dxf"], ["plan.dxf", "info"], ["plan.dxf", "--strict", "info"]):
            self.assertIn("info comes first", self.expect(2, *words))
        self.assertEqual(self.names(), ["plan.dxf"])
        self.write("info")
        self.expect(0, "--strict", "info", "plan.dxf")
        self.assertEqual(self.names(), ["info", "info.svg", "plan.dxf", "plan.svg"])

    def test_values_that_cannot_be(self):
        self.write("plan.dxf")
        for option, values in (("-j", ("0", "-1", "x", "1000", "")), ("--units", ("mile", "MM", "")),
                               ("--max-messages", ("-1", "x", "1e3", "")), ("--messages", ("xml", "JSON", ""))):
            for value in values:
                with self.subTest(option=option, value=value):
                    self.assertIn("--help", self.expect(2, "plan.dxf", f"{option}={value}" if option[1] == "-" else
                                                        f"{option}{value}"))
        self.assertEqual(self.names(), ["plan.dxf"])

    def test_the_drawing_is_never_its_own_picture(self):
        self.write("plan.svg")
        before = self.read("plan.svg")
        self.assertIn("is the drawing itself", self.expect(2, "plan.svg", "-o", "./plan.svg"))
        self.assertEqual(self.read("plan.svg"), before)
