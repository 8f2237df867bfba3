"""What only Windows has: a shell that leaves patterns to the command."""
import os

from command_support import CommandTest


class Patterns(CommandTest):
    def setUp(self):
        super().setUp()
        for folder in ("in", "in/b1", "in/b2", "in/c"):
            os.mkdir(self.path(folder))
        for name in ("a1.dxf", "a2.DXF", "b.dxf", "notes.txt", "in/b1/x.dxf", "in/b2/x.dxf", "in/c/x.dxf"):
            self.write(name)

    def drawn(self, *arguments):
        """The drawings that these arguments draw, in their order."""
        lines = self.expect(0, *arguments, "-o", "out/").splitlines()
        return [line.split(": ")[0] for line in lines if " drawn to " in line]

    def test_patterns_are_expanded(self):
        self.assertEqual(self.drawn("*.dxf"), ["a1.dxf", "a2.DXF", "b.dxf"])
        self.assertEqual(self.drawn("a?.dxf", "b*"), ["a1.dxf", "a2.DXF", "b.dxf"])
        self.assertEqual(self.drawn("./*1.dxf"), ["./a1.dxf"])

    def test_folders_too(self):
        self.assertEqual(self.drawn("in/c/*"), ["in/c/x.dxf"])
        self.assertEqual(self.drawn("in\\c\\*.dxf"), ["in/c/x.dxf"])
        printed = self.expect(0, "in/b?/x.dxf")
        self.assertIn("in/b1/x.dxf: ", printed)
        self.assertIn("in/b2/x.dxf: ", printed)
        self.assertIn("2 drawn", printed)
        self.assertIn("3 drawn", self.expect(0, "in/*"))

    def test_nothing_matches(self):
        for pattern in ("none*.dxf", "none?/x.dxf", "no*/*.dxf"):
            self.assertEqual(self.expect(3, pattern), f"{pattern}: cannot be read: No such file or directory\n")

    def test_a_pattern_may_stand_for_several_and_needs_a_folder(self):
        self.assertIn("need a folder", self.expect(2, "b*.dxf", "-o", "one.svg"))

    def test_info(self):
        self.assertEqual(self.plexorn("info", "a*.dxf", "--json").stdout.count('"file":"a'), 2)
