"""Files that cannot be read or written, names of every kind, and pictures whole or not at all."""
import os

from command_support import CommandTest, DRAWING, DRAWING_WITH_MESSAGE, SOLID_TEXT

NAMES = ("Grundriß.dxf", "план этажа.dxf", "図面.dxf", "café & 'co'.dxf", "\U0001F3E0.dxf", "a b.dxf", "100%.dxf")


class Files(CommandTest):
    def test_a_missing_file(self):
        self.assertEqual(self.expect(3, "none.dxf"), "none.dxf: cannot be read: No such file or directory\n")
        self.assertEqual(self.names(), [])

    def test_a_file_in_a_missing_folder(self):
        self.assertIn("cannot be read: No such file or directory", self.expect(3, "none/plan.dxf"))

    def test_a_directory(self):
        os.mkdir(self.path("plan.dxf"))
        self.assertEqual(self.expect(3, "plan.dxf"),
                         "plan.dxf: holds no .dxf file; --recursive looks into its folders too\n")

    def test_an_output_that_is_a_directory_takes_the_picture(self):
        self.write("plan.dxf")
        os.mkdir(self.path("out"))
        self.expect(0, "plan.dxf", "-q", "-o", "out")
        self.assertEqual(os.listdir(self.path("out")), ["plan.svg"])

    def test_a_picture_whose_name_is_a_directory(self):
        self.write("plan.dxf")
        os.mkdir(self.path("plan.svg"))
        self.assertEqual(self.expect(3, "plan.dxf", "-q"), "plan.svg: cannot be written: Is a directory\n")
        self.assertEqual(os.listdir(self.path("plan.svg")), [])

    def test_an_output_in_a_missing_folder(self):
        self.write("plan.dxf")
        self.assertEqual(self.expect(3, "plan.dxf", "-q", "-o", "none/plan.svg"),
                         "none/plan.svg: cannot be written: No such file or directory\n")
        self.assertEqual(self.names(), ["plan.dxf"])

    def test_an_older_picture_is_replaced(self):
        self.write("plan.dxf")
        self.write("plan.svg", b"old" * 100_000)
        self.expect(0, "plan.dxf")
        self.assertIn("</svg>", self.read("plan.svg"))
        self.assertNotIn("old", self.read("plan.svg"))
        self.assertEqual(self.names(), ["plan.dxf", "plan.svg"])

    def test_names_of_every_kind(self):
        self.write("plan.dxf")
        self.expect(0, "plan.dxf", "-o", "plain.svg")
        for name in NAMES:
            with self.subTest(name=name):
                self.write(name, DRAWING)
                picture = name.replace(".dxf", ".svg")
                printed = self.expect(0, name)
                self.assertTrue(printed.startswith(f"{name}: 1 element drawn to {picture}"), printed)
                self.assertEqual(self.read(picture), self.read("plain.svg"))

    def test_a_whole_drawing_on_the_standard_input_is_no_failure_with_keep_going(self):
        for options in ([], ["--keep-going"]):
            result = self.plexorn("-q", *options, "-", stdin=None, input=DRAWING)
            self.assertEqual((result.returncode, result.stderr), (0, ""))
            self.assertEqual(result.stdout.count("<line"), 1)

    def test_folders_of_every_kind(self):
        for name in NAMES:
            folder = name.replace(".dxf", "")
            os.mkdir(self.path(folder))
            self.write(f"{folder}/plan.dxf", DRAWING_WITH_MESSAGE)
            with self.subTest(folder=folder):
                printed = self.expect(0, f"{folder}/plan.dxf", "-o", f"{folder}/{name}.svg")
                self.assertIn(f"{folder}/plan.dxf:6: {SOLID_TEXT}\n", printed)
                self.assertEqual(sorted(os.listdir(self.path(folder))), sorted(["plan.dxf", f"{name}.svg"]))

    def test_line_ends_do_not_show_in_the_picture(self):
        self.write("lf.dxf", DRAWING)
        self.write("crlf.dxf", DRAWING.replace(b"\n", b"\r\n"))
        self.expect(0, "lf.dxf")
        self.expect(0, "crlf.dxf")
        self.assertEqual(self.read("lf.svg"), self.read("crlf.svg"))
