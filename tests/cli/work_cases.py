"""Twice the drawing costs the command about twice the instructions; counted in the release build."""
import unittest

import command_support
import instructions
from command_support import DRAWING, CommandTest, dxf, entities


class Proportion(CommandTest):
    def counted(self, content, *arguments):
        self.write("plan.dxf", content)
        found, code = instructions.count([command_support.COMMAND, *arguments], self.folder)
        self.assertEqual(code, 0)
        return found

    def check(self, content_of, count, *arguments):
        """content_of gives the drawing with so many of something."""
        counts = [self.counted(content_of(number), *arguments) for number in (0, count, 2 * count)]
        grown = instructions.growth(*counts)
        print(f"{self.id()}: {(counts[1] - counts[0]) / count:.0f} instructions for each, growth {grown:.3f}")
        self.assertLessEqual(grown, instructions.MOST_GROWTH)

    def test_messages(self):
        for options in ([], ["--messages", "json"], ["-q"]):
            with self.subTest(options=options):
                self.check(lambda count: entities(*command_support.LINE, *("0", "SOLID") * count), 2000, "plan.dxf", *options)

    def test_elements(self):
        self.check(lambda count: entities(*command_support.LINE * count), 1000, "plan.dxf")

    def test_info_of_names(self):
        def names(count):
            return entities(*(text for number in range(count)
                              for text in ("0", f"T{number}", "8", f"L{number}", "6", f"D{number}")))
        for options in ([], ["--json"]):
            with self.subTest(options=options):
                self.check(names, 1000, "info", "plan.dxf", *options)

    def test_info_of_nesting_that_never_ends(self):
        self.check(lambda count: dxf("0", "SECTION", "2", "BLOCKS", *("0", "BLOCK", "2", "A") * count), 2000,
                   "info", "--json", "plan.dxf")
        self.check(lambda count: dxf("0", "SECTION") + b"0\nSECTION\n" * count, 5000, "info", "--json", "plan.dxf")

    def test_info_of_what_is_no_pair(self):
        start = b"0\nSECTION\n2\nENTITIES\n"
        self.check(lambda count: start + b"x\n" * count, 10_000, "info", "--json", "plan.dxf")
        self.check(lambda count: start + b"\xff" * count, 10_000, "info", "--json", "plan.dxf")
        self.check(lambda count: DRAWING + b"0\n\n" * count, 10_000, "info", "--json", "plan.dxf")


class Judge(unittest.TestCase):
    """The comparison sees what it is there for."""

    def test_growth(self):
        self.assertEqual(instructions.growth(10 ** 6, 10 ** 6 + 50, 10 ** 6 + 100), 2)
        self.assertEqual(instructions.growth(10 ** 6, 10 ** 6 + 50, 10 ** 6 + 200), 4)
