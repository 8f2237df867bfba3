"""Many drawings with one command: folders, lists, clashes, the answer for each one."""
import os
import re

from command_support import CommandTest, DRAWING, DRAWING_WITH_MESSAGE, LINE, SOLID_TEXT, entities

DRAWN = re.compile(r"^(.+): (\d+) elements? drawn to (.+?), [^,]*, (\d+) messages?, \d+ ms, ")


def without_times(text):
    return re.sub(r"\d+ ms", "ms", text)


class Many(CommandTest):
    def write(self, name, content=DRAWING):
        os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
        super().write(name, content)

    def pictures(self, folder="."):
        """The files below folder that are no drawings."""
        found = []
        for parent, _, names in os.walk(self.path(folder)):
            below = os.path.relpath(parent, self.path(folder))
            found += [os.path.normpath(os.path.join(below, name)) for name in names if not name.endswith(".dxf")]
        return sorted(name.replace(os.sep, "/") for name in found)


class Places(Many):
    def test_each_picture_is_beside_its_drawing(self):
        self.write("a.dxf")
        self.write("sub/b.dxf")
        *lines, total = self.expect(0, "a.dxf", "sub/b.dxf").splitlines()
        self.assertEqual([DRAWN.match(line).group(1, 3) for line in lines],
                         [("a.dxf", "a.svg"), ("sub/b.dxf", "sub/b.svg")])
        self.assertRegex(total, r"^2 drawn, 0 failed, 0 messages, \d+ ms$")
        self.assertEqual(self.pictures(), ["a.svg", "sub/b.svg"])

    def test_a_folder_takes_the_pictures(self):
        self.write("a.dxf")
        self.write("sub/b.dxf")
        os.mkdir(self.path("old"))
        for output in ("old", "old/", "new/", "deep/new/"):
            with self.subTest(output=output):
                self.expect(0, "a.dxf", "sub/b.dxf", "-o", output)
                self.assertEqual(self.pictures(output), ["a.svg", "b.svg"])

    def test_a_name_that_is_no_folder_cannot_take_several(self):
        self.write("a.dxf")
        self.write("in/b.dxf")
        self.write("list", b"a.dxf\n")
        for arguments in (["a.dxf", "in/b.dxf"], ["in"], ["--files-from", "list"]):
            for output in ("new", "a.svg", "-"):
                with self.subTest(arguments=arguments, output=output):
                    self.assertIn("need a folder", self.expect(2, *arguments, "-o", output))
        self.assertEqual(self.pictures(), ["list"])

    def test_names_of_every_kind_in_folders_of_every_kind(self):
        names = ["Grundriß.dxf", "план этажа.dxf", "図面.dxf", "a b.dxf"]
        for name in names:
            self.write("вход/" + name)
        self.expect(0, "вход", "-o", "выход/")
        self.assertEqual(self.pictures("выход"), sorted(name.replace(".dxf", ".svg") for name in names))


class Folders(Many):
    def setUp(self):
        super().setUp()
        for name in ("in/b.dxf", "in/A.DXF", "in/sub/c.dxf", "in/sub/deep/b.dxf"):
            self.write(name)
        self.write("in/notes.txt", b"no drawing")

    def test_a_folder_stands_for_the_drawings_in_it(self):
        lines = self.expect(0, "in").splitlines()
        self.assertEqual([DRAWN.match(line).group(1) for line in lines[:-1]], ["in/A.DXF", "in/b.dxf"])
        self.assertEqual(self.pictures("in"), ["A.DXF", "A.svg", "b.svg", "notes.txt"])

    def test_folders_within_it_are_taken_when_asked_for_and_keep_their_places(self):
        for option in ("-r", "--recursive"):
            self.expect(0, "in", option, "-o", f"out{option}/")
            self.assertEqual(self.pictures(f"out{option}"), ["A.svg", "b.svg", "sub/c.svg", "sub/deep/b.svg"])

    def test_a_folder_without_drawings_is_reported_and_stops_nothing(self):
        os.mkdir(self.path("empty"))
        printed = self.expect(5, "empty", "in", "-o", "out/")
        self.assertIn("empty: holds no .dxf file; --recursive looks into its folders too\n", printed)
        self.assertIn("2 drawn, 1 failed, ", printed)
        self.assertIn("empty: holds no .dxf file\n", self.expect(3, "-r", "empty"))

    def test_an_ending_alone_is_no_drawing(self):
        self.write("hidden/.dxf")
        self.write("hidden/a.dxf")
        self.expect(0, "hidden", "-o", "out/")
        self.assertEqual(self.pictures("out"), ["a.svg"])


class Lists(Many):
    def test_names_come_from_the_standard_input(self):
        self.write("a b.dxf")
        self.write("план.dxf")
        for separator, options in (("\n", []), ("\r\n", []), ("\0", ["-0"]), ("\0", ["--null"])):
            for ending in (separator, ""):
                names = separator.join(["a b.dxf", "план.dxf"]) + ending
                printed = self.expect(0, "--files-from", "-", *options, "-o", "out/", stdin=None,
                                      input=names.encode("utf-8"))
                self.assertIn("2 drawn, 0 failed", printed)
        self.assertEqual(self.pictures("out"), ["a b.svg", "план.svg"])

    def test_names_come_from_a_file_behind_those_that_are_given(self):
        for name in ("a.dxf", "b.dxf", "in/c.dxf"):
            self.write(name)
        self.write("list", b"b.dxf\n\nin\n")
        lines = self.expect(0, "--files-from", "list", "a.dxf").splitlines()
        self.assertEqual([DRAWN.match(line).group(1) for line in lines[:-1]], ["a.dxf", "b.dxf", "in/c.dxf"])

    def test_a_list_is_read_to_its_last_byte(self):
        self.write("a.dxf")
        for size in (1 << 14, (1 << 14) + 1, (1 << 16) + 1):
            self.write("list", b"a.dxf".rjust(size, b"\n"))
            self.expect(0, "-q", "--files-from", "list")

    def test_a_list_that_cannot_be_read(self):
        self.assertIn("none: cannot be read: No such file or directory", self.expect(2, "--files-from", "none"))

    def test_a_list_with_nul_bytes_is_wrong_usage_without_null(self):
        for name in ("a.dxf", "b.dxf"):
            self.write(name)
        for command in ([], ["info"]):
            for end in (b"", b"\0"):
                printed = self.expect(2, *command, "--files-from", "-", stdin=None, input=b"a.dxf\0b.dxf" + end)
                self.assertIn("the list has NUL bytes; give --null\n", printed)
        self.assertEqual(self.names(), ["a.dxf", "b.dxf"])

    def test_a_list_on_the_standard_input_cannot_name_it(self):
        self.write("a.dxf")
        for command in ([], ["info"]):
            printed = self.expect(2, *command, "--files-from", "-", stdin=None, input=b"a.dxf\n-\n")
            self.assertIn("can be read once only", printed)
        self.write("list", b"-\n")
        self.expect(0, "--files-from", "list", "-o", "out/", stdin=None, input=DRAWING)
        self.expect(2, "--files-from", "list", "-", "-o", "out/", stdin=None, input=DRAWING)
        self.assertEqual(self.names(), ["a.dxf", "list", "out"])

    def test_null_without_a_list_is_wrong_usage(self):
        self.write("a.dxf")
        for command in ([], ["info"]):
            for option in ("-0", "--null"):
                self.assertIn("give --files-from", self.expect(2, *command, option, "a.dxf"))

    def test_an_empty_list_draws_nothing(self):
        self.assertRegex(self.expect(0, "--files-from", "-", "-o", "out/"), r"^0 drawn, 0 failed, 0 messages, \d+ ms$")
        self.assertEqual(self.names(), [])


class Clashes(Many):
    def test_two_drawings_do_not_share_a_picture(self):
        self.write("a/x.dxf")
        self.write("b/x.dxf", entities(*LINE * 2))
        self.write("c.dxf")
        printed = self.expect(5, "a/x.dxf", "b/x.dxf", "c.dxf", "-o", "out/")
        self.assertIn("b/x.dxf: is not drawn: out/x.svg is the picture of a/x.dxf already\n", printed)
        self.assertIn("2 drawn, 1 failed", printed)
        self.assertEqual(self.read("out/x.svg").count("<line"), 1)

    def test_a_drawing_that_is_named_twice_is_drawn_once(self):
        self.write("in/x.dxf")
        self.assertIn(" drawn to ", self.expect(0, "in/x.dxf", "in/x.dxf", "in/../in/x.dxf", "in"))
        self.assertNotIn("drawn, 0 failed", self.expect(0, "in/x.dxf", "in"))

    def test_a_picture_is_not_named_like_a_drawing(self):
        self.write("a.dxf")
        self.write("b.dxf", entities(*LINE * 2))
        before = self.read("a.dxf")
        for output in ("a.dxf", "./A.DXF", "new.Dxf"):
            self.assertIn("cannot end in .dxf", self.expect(2, "b.dxf", "-o", output))
        self.assertEqual((self.names(), self.read("a.dxf")), (["a.dxf", "b.dxf"], before))
        os.mkdir(self.path("folder.dxf"))
        self.expect(0, "b.dxf", "-o", "folder.dxf")
        self.expect(0, "b.dxf", "-o", "other.dxf/")
        self.assertEqual(self.pictures(), ["folder.dxf/b.svg", "other.dxf/b.svg"])

    def test_no_drawing_is_replaced_by_the_picture_of_another(self):
        self.write("plan.dxf")
        self.write("plan.svg")
        before = self.read("plan.svg")
        printed = self.expect(5, "plan.dxf", "plan.svg")
        self.assertIn("plan.dxf: is not drawn: plan.svg is one of the drawings", printed)
        self.assertEqual(self.read("plan.svg"), before)
        self.assertEqual(self.names(), ["plan.dxf", "plan.svg", "plan.svg.svg"])


class Answers(Many):
    def test_a_hundred_files_bring_a_hundred_answers(self):
        kinds = [(DRAWING, None), (DRAWING_WITH_MESSAGE, None), (b"PK\x03\x04", "is a ZIP archive; unpack it first"),
                 (b"", "is empty"), (b"hello\n", "is not a DXF: its first line is not a group code"),
                 (b"AC1015" + bytes(50), "is a DWG drawing; save it as an ASCII DXF"), (DRAWING[:40], None),
                 (b"AutoCAD Binary DXF\r\n\x1a\0", "is a binary DXF; only the text form is read"),
                 (DRAWING.replace(b"\n", b"\r\n"), None), (b"%PDF-1.4\n", "is a PDF document")]
        for number in range(100):
            self.write(f"in/{number:02}.dxf", kinds[number % 10][0])
        os.remove(self.path("in/99.dxf"))
        os.mkdir(self.path("in/99.dxf"))
        names = [f"in/{number:02}.dxf" for number in range(100)]
        lines = self.expect(5, *names, "-o", "out/", "-j", "3").splitlines()
        total = lines.pop()
        lines = [line for line in lines if not re.match(r"^in/\d\d\.dxf:\d+: ", line)]
        self.assertEqual(len(lines), 100)
        for number, line in enumerate(lines):
            reason = kinds[number % 10][1]
            if number == 99:
                self.assertEqual(line, "in/99.dxf: holds no .dxf file; --recursive looks into its folders too")
            elif reason:
                self.assertEqual(line, f"{names[number]}: {reason}")
            else:
                self.assertTrue(line.startswith(f"{names[number]}: "), line)
                self.assertEqual(DRAWN.match(line).group(3), f"out/{number:02}.svg")
        self.assertRegex(total, r"^40 drawn, 60 failed, \d+ messages, \d+ ms$")
        self.assertEqual(len(self.pictures("out")), 40)

    def test_the_order_of_the_answers_does_not_depend_on_the_number_at_a_time(self):
        self.write("in/00.dxf", entities(*LINE * 20_000, *("0", "SOLID") * 2000))
        for number in range(1, 30):
            self.write(f"in/{number:02}.dxf", DRAWING_WITH_MESSAGE if number % 3 else b"")
        printed = [without_times(self.expect(5, "in", "-j", str(jobs), "-o", "out/")) for jobs in (1, 2, 8)]
        self.assertEqual(printed[0], printed[1])
        self.assertEqual(printed[0], printed[2])
        self.assertEqual(printed[0].count(f":6: {SOLID_TEXT}\n"), 20)
        self.assertIn(f"in/00.dxf:{12 * 20_000 + 6}: {SOLID_TEXT} (2000 times)\n", printed[0])

    def test_pictures_do_not_depend_on_the_number_at_a_time(self):
        for number in range(8):
            self.write(f"in/{number}.dxf", entities(*LINE * (number * 100 + 1)))
        self.expect(0, "-q", "in", "-j1", "-o", "one/")
        self.expect(0, "-q", "in", "-j", "8", "-o", "many/")
        for number in range(8):
            self.assertEqual(self.read(f"one/{number}.svg"), self.read(f"many/{number}.svg"))
            self.assertEqual(self.read(f"one/{number}.svg").count("<line"), number * 100 + 1)

    def test_quiet_reports_failures_only(self):
        self.write("a.dxf", DRAWING_WITH_MESSAGE)
        self.write("b.dxf", b"")
        self.assertEqual(self.expect(5, "-q", "a.dxf", "b.dxf", "none.dxf"),
                         "b.dxf: is empty\nnone.dxf: cannot be read: No such file or directory\n")

    def test_strict_ends_with_one_when_there_were_messages(self):
        self.write("a.dxf")
        self.write("b.dxf", DRAWING_WITH_MESSAGE)
        self.write("c.dxf", b"")
        self.expect(0, "--strict", "a.dxf")
        self.expect(1, "--strict", "-q", "b.dxf")
        self.expect(1, "--strict", "--max-messages", "0", "a.dxf", "b.dxf")
        self.expect(5, "--strict", "a.dxf", "b.dxf", "c.dxf")
        self.expect(4, "--strict", "c.dxf")

    def test_strict_counts_a_file_that_is_cut_off(self):
        self.write("a.dxf")
        self.write("b.dxf", DRAWING[:-len(b"  0\nEOF\n")])
        self.expect(0, "b.dxf")
        self.expect(1, "--strict", "b.dxf")
        self.expect(1, "--strict", "-q", "a.dxf", "b.dxf")
        self.assertIn("; the file has no EOF: it may have been cut off\n", self.expect(0, "a.dxf", "b.dxf"))


class Streams(Many):
    def test_a_drawing_from_the_standard_input(self):
        self.write("plan.dxf")
        self.expect(0, "plan.dxf", "-o", "file.svg")
        result = self.plexorn("-", stdin=None, input=DRAWING)
        self.assertEqual((result.returncode, result.stdout), (0, self.read("file.svg")))
        self.assertTrue(result.stderr.startswith("<stdin>: 1 element drawn to -, "), result.stderr)
        self.expect(0, "-", "-o", "input.svg", stdin=None, input=DRAWING)
        self.expect(0, "-", "-o", "out/", stdin=None, input=DRAWING)
        self.assertEqual(self.read("input.svg"), self.read("file.svg"))
        self.assertEqual(self.pictures("out"), ["stdin.svg"])

    def test_a_picture_on_the_standard_output_is_the_same_bytes(self):
        self.write("plan.dxf", entities(*LINE * 5000))
        self.expect(0, "plan.dxf")
        import subprocess
        import command_support
        result = subprocess.run([*command_support.EMULATOR, command_support.COMMAND, "--as-is", "-q", "plan.dxf",
                                 "-o", "-"],
                                cwd=self.folder, capture_output=True, stdin=subprocess.DEVNULL, check=True)
        with open(self.path("plan.svg"), "rb") as file:
            self.assertEqual(result.stdout, file.read())

    def test_what_is_no_drawing_is_refused_on_the_standard_input_too(self):
        self.assertEqual(self.expect(4, "-", stdin=None, input=b"PK\x03\x04"), "<stdin>: is a ZIP archive; unpack it first\n")
        self.assertEqual(self.expect(4, "-"), "<stdin>: is empty\n")
        self.assertEqual(self.names(), [])

    def test_messages_about_the_standard_input_have_their_lines(self):
        printed = self.expect(0, "-", "-o", "plan.svg", stdin=None, input=DRAWING_WITH_MESSAGE)
        self.assertIn(f"<stdin>:6: {SOLID_TEXT}\n", printed)
