"""What only Windows has: a shell that leaves patterns to the command, and code pages."""
import os

from command_support import CommandTest, entities


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


class Texts(CommandTest):
    """The module reads texts in the system's code page, and gets prepared ones in it."""
    AS_IS = False

    def drawn(self, text):
        """What is said about a drawing with that text, and its picture."""
        self.write("plan.dxf", entities("0", "TEXT", "8", "0", "10", "0", "20", "0", "40", "1", "1", text))
        return self.expect(0, "plan.dxf"), self.read("plan.svg")

    def test_letters_of_the_code_page_are_drawn(self):
        said, picture = self.drawn("8 × 45° ± 0.1")
        self.assertIn(">8 × 45° ± 0.1<", picture)
        self.assertNotIn("code page", said)

    def test_letters_that_it_lacks_are_reported(self):
        said, picture = self.drawn("Ж א あ")
        self.assertEqual("TEXT without letters that the system's code page lacks" in said, ">Ж א あ<" not in picture)
