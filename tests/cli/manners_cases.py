"""What is left alone, what is refused before anything is written, and what was meant by a word that is wrong."""
import os
import subprocess

import command_support
from command_support import CommandTest, DRAWING, DRAWING_WITH_MESSAGE, LINE, dxf, entities

OTHER = entities(*LINE * 2)


class Manners(CommandTest):
    def aged(self, name, seconds):
        """Gives the file that age."""
        at = os.stat(self.path(name)).st_mtime - seconds
        os.utime(self.path(name), (at, at))


class NoClobber(Manners):
    def test_a_picture_that_exists_is_left_alone(self):
        self.write("plan.dxf")
        self.write("plan.svg", b"mine")
        self.assertEqual(self.expect(0, "--no-clobber", "plan.dxf"), "plan.dxf: skipped, plan.svg exists\n")
        self.assertEqual(self.expect(0, "--no-clobber", "-q", "--strict", "plan.dxf"), "")
        self.assertEqual(self.read("plan.svg"), "mine")

    def test_an_empty_file_is_a_picture_that_exists(self):
        self.write("plan.dxf")
        self.write("plan.svg", b"")
        self.assertIn("skipped", self.expect(0, "--no-clobber", "plan.dxf"))
        self.assertEqual(self.read("plan.svg"), "")

    def test_the_others_are_drawn(self):
        for name in ("a.dxf", "b.dxf", "c.dxf"):
            self.write(name)
        self.write("b.svg", b"mine")
        printed = self.expect(0, "--no-clobber", "a.dxf", "b.dxf", "c.dxf")
        self.assertIn("b.dxf: skipped, b.svg exists\n", printed)
        self.assertIn("2 drawn, 1 skipped, 0 failed, 0 messages", printed)
        self.assertIn("</svg>", self.read("c.svg"))

    def test_what_cannot_be_drawn_fails_all_the_same(self):
        self.write("plan.svg", b"mine")
        self.expect(3, "--no-clobber", "plan.dxf")
        self.write("plan.dxf", b"")
        self.expect(4, "--no-clobber", "plan.dxf")

    def test_the_standard_output_is_not_skipped(self):
        self.write("plan.dxf")
        self.write("-", b"mine")
        with open(self.path("out"), "wb") as out:
            code = subprocess.run([*command_support.EMULATOR, command_support.COMMAND, "--no-clobber", "-q", "plan.dxf",
                                   "-o", "-"], stdout=out, cwd=self.folder, check=False).returncode
        self.assertEqual(code, 0)
        self.assertIn("</svg>", self.read("out"))


class NewerOnly(Manners):
    def test_a_drawing_is_drawn_when_it_is_newer_than_its_picture(self):
        self.write("plan.dxf")
        self.write("plan.svg", b"mine")
        self.aged("plan.dxf", 60)
        self.assertEqual(self.expect(0, "--newer-only", "plan.dxf"), "plan.dxf: skipped, plan.svg is not older\n")
        self.assertEqual(self.read("plan.svg"), "mine")
        self.aged("plan.svg", 120)
        self.expect(0, "--newer-only", "plan.dxf")
        self.assertIn("</svg>", self.read("plan.svg"))

    def test_a_picture_of_the_same_age_is_not_older(self):
        for name, content in (("plan.dxf", DRAWING), ("plan.svg", b"mine")):
            self.write(name, content)
            os.utime(self.path(name), (1_000_000_000, 1_000_000_000))
        self.assertEqual(self.expect(0, "--newer-only", "plan.dxf"), "plan.dxf: skipped, plan.svg is not older\n")
        self.assertEqual(self.read("plan.svg"), "mine")

    def test_a_drawing_without_a_picture_is_drawn(self):
        self.write("plan.dxf")
        self.assertIn(" drawn to plan.svg", self.expect(0, "--newer-only", "plan.dxf"))

    def test_a_second_run_skips_everything(self):
        for name in ("a.dxf", "b.dxf"):
            self.write(name)
            self.aged(name, 60)
        self.expect(0, "--newer-only", ".")
        self.assertIn("0 drawn, 2 skipped, 0 failed", self.expect(0, "--newer-only", "."))
        self.assertEqual(self.expect(0, "-q", "--newer-only", "."), "")


class ReplacedPictures(Manners):
    AS_IS = False
    WORDS = "; replaced a file without plexorn's mark\n"

    def test_a_picture_of_another_program_is_replaced_with_a_word(self):
        self.write("plan.dxf")
        self.write("plan.svg", b'<svg xmlns="http://www.w3.org/2000/svg"/>')
        self.assertIn(self.WORDS, self.expect(0, "plan.dxf"))
        self.assertNotIn("replaced", self.expect(0, "plan.dxf"))

    def test_the_mark_is_in_the_first_tag(self):
        self.write("plan.dxf")
        mark = b'<g data-generator="plexorn"/>'
        for content in (b'<svg xmlns="http://www.w3.org/2000/svg">' + mark + b"</svg>", b"<html>" + mark, mark + b"<svg/>"):
            with self.subTest(content=content):
                self.write("plan.svg", content)
                self.assertIn(self.WORDS, self.expect(0, "plan.dxf"))

    def test_another_drawing_is_replaced_by_a_prepared_one_with_a_word(self):
        self.write("plan.dxf")
        self.write("out.dxf")
        self.assertIn(self.WORDS, self.expect(0, "prepare", "plan.dxf", "-o", "out.dxf"))
        self.assertNotIn("replaced", self.expect(0, "prepare", "plan.dxf", "-o", "out.dxf"))
        self.expect(0, "plan.dxf", "-o", "picture")
        self.assertNotIn("replaced", self.expect(0, "prepare", "plan.dxf", "-o", "picture"))

    def test_prepared_drawings_have_a_mark(self):
        self.write("plan.dxf")
        for reader in ("module", "standard"):
            self.expect(0, "prepare", "--for", reader, "-q", "plan.dxf", "-o", "out.dxf")
            self.assertTrue(self.read("out.dxf").startswith("999\nplexorn\n0\nSECTION\n"))
            self.assertIn(", 0 messages, ", self.expect(0, "--as-is", "out.dxf", "-o", "out.svg"))

    def test_an_empty_file_is_no_loss(self):
        self.write("plan.dxf")
        self.write("plan.svg", b"")
        self.assertNotIn("replaced", self.expect(0, "plan.dxf"))

    def test_pictures_have_a_mark(self):
        self.write("plan.dxf")
        self.expect(0, "plan.dxf")
        root = self.read("plan.svg").split("<svg ")[1].split(">")[0]
        self.assertIn(' data-generator="plexorn"', " " + root)


class OtherForms(Manners):
    def test_an_ending_that_cannot_be_written_is_refused(self):
        self.write("plan.dxf")
        for output in ("x.png", "X.PDF", "a/b.jpg", "x.svg.jpeg", "x.svgz", "x.zip", "x.xhtml", "x.3dm", "x.7z", ".doc",
                       "x.1.css", "../x.xyz"):
            printed = self.expect(2, "plan.dxf", "-o", output)
            self.assertIn(f"{output}: a picture is written as SVG, not as {output.split('.')[-1].lower()}; "
                          "give a name that ends in .svg", printed)
        self.assertEqual(self.names(), ["plan.dxf"])

    def test_a_folder_may_have_any_name(self):
        self.write("plan.dxf")
        self.expect(0, "plan.dxf", "-o", "pictures.png/")
        self.expect(0, "plan.dxf", "-o", "pictures.png")
        self.assertEqual(os.listdir(self.path("pictures.png")), ["plan.svg"])

    def test_other_endings_and_none_are_written(self):
        self.write("plan.dxf")
        for output in ("picture", "picture.xml", "picture.png.svg", ".svg", "plan 1.2", "plan.SVG.tmp", "tmp.Xa6pw80TqM",
                       "No. 7", "./plan", "plan.Süd", "dots."):
            self.expect(0, "plan.dxf", "-o", output)


class Meant(Manners):
    def test_an_option_that_is_written_wrongly(self):
        self.write("plan.dxf")
        for wrong, meant in (("--backgroun=red", "--background"), ("--pape", "--paper"), ("--strcit", "--strict"),
                             ("--hairlines", "--hairline"), ("--max-message", "--max-messages"),
                             ("--json", "plexorn info --json"), ("--recursiv", "--recursive"), ("--out", "--output"),
                             ("--red", "--redraw-dimensions"), ("--verb=1", "--verbose"), ("-strict", "--strict"),
                             ("-v", "--verbose"), ("-V", "--version"), ("-paepr", "--paper")):
            printed = self.expect(2, "plan.dxf", wrong)
            self.assertIn(f"\nDid you mean {meant}?\n", printed)
            self.assertIn("--help", printed)
        for wrong, meant in (("--text", "--texts"), ("--paper", "plexorn --paper")):
            self.assertIn(f"\nDid you mean {meant}?\n", self.expect(2, "info", wrong, "plan.dxf"))
        self.assertEqual(self.names(), ["plan.dxf"])

    def test_a_flag_takes_no_value(self):
        self.write("plan.dxf")
        for flag in ("--strict", "--paper", "--quiet", "--no-clobber"):
            for value in ("false", "3", "banana"):
                self.assertIn(f"{flag} takes no value\n", self.expect(2, f"{flag}={value}", "plan.dxf"))
        self.assertEqual(self.names(), ["plan.dxf"])

    def test_nothing_is_guessed_when_nothing_is_near(self):
        self.write("plan.dxf")
        for wrong in ("--colour", "--x", "-x", "--no", "--" + "a" * 5000):
            self.assertNotIn("Did you mean", self.expect(2, "plan.dxf", wrong))

    def test_a_command_that_is_written_wrongly(self):
        self.write("plan.dxf")
        for wrong, meant in (("inof", "plexorn info"), ("nfo", "plexorn info"), ("infos", "plexorn info"), ("prep", "plexorn prepare"),
                             ("INFO", "plexorn info"), ("help", "plexorn --help"), ("version", "plexorn --version")):
            self.assertIn(f"{wrong}: there is no such file\nDid you mean {meant}?\n", self.expect(2, wrong, "plan.dxf"))
        self.assertEqual(self.names(), ["plan.dxf"])
        self.write("inof")
        self.expect(0, "inof", "plan.dxf")
        self.expect(3, "inside")

    def test_quiet_and_strict_together_say_why(self):
        self.write("a.dxf")
        self.write("b.dxf", DRAWING_WITH_MESSAGE)
        printed = self.expect(1, "-q", "--strict", "a.dxf", "b.dxf")
        self.assertRegex(printed, r"^b\.dxf: 1 element drawn to b\.svg, [^,]*, 1 message, .*\n$")
        self.write("b.dxf", DRAWING[:-len(b"  0\nEOF\n")])
        self.assertRegex(self.expect(1, "-q", "--strict", "b.dxf"), r"^b\.dxf: .*the file has no EOF.*\n$")
        self.assertEqual(self.expect(0, "-q", "--strict", "a.dxf"), "")


class QuietAndStrict(Manners):
    AS_IS = False
    # A second entry of a name is a message about a drawing of which all is shown.
    TWICE = dxf("0", "SECTION", "2", "TABLES", "0", "TABLE", "2", "STYLE", *("0", "STYLE", "2", "Roman") * 2, "0", "ENDTAB",
                "0", "ENDSEC") + DRAWING

    def test_a_message_alone_is_a_reason_that_is_named(self):
        self.write("plan.dxf", self.TWICE)
        self.assertRegex(self.expect(1, "-q", "--strict", "plan.dxf"),
                         r"^plan\.dxf: .*, 1 message, .*; --strict accepts no message \(they are printed without --quiet\)\n$")
        self.assertNotIn("--strict", self.expect(1, "--strict", "plan.dxf"))
        self.write("plan.dxf", entities(*LINE, "0", "3DSOLID"))
        self.assertRegex(self.expect(1, "-q", "--strict", "plan.dxf"), r"^plan\.dxf: .*; missing: 1 3DSOLID\n$")


class WhatIsRead(Manners):
    """Nothing that is read is replaced by a picture."""

    def setUp(self):
        super().setUp()
        if command_support.EMULATOR:
            self.skipTest("the emulator does not say which file a stream is")

    def drawn_from(self, name, *arguments):
        with open(self.path(name), "rb") as file:
            return self.plexorn(*arguments, stdin=file)

    def test_the_file_of_the_standard_input(self):
        self.write("same")
        for output in ("same", "./same"):
            result = self.drawn_from("same", "-", "-o", output)
            self.assertEqual((result.returncode, result.stderr),
                             (2, f"<stdin>: is not drawn: {output} is the file of the standard input; give another "
                                 "place with -o\n"))
        self.write("same.dxf")
        self.assertEqual(self.drawn_from("same.dxf", "-", "-o", "same.dxf").returncode, 2)
        self.assertEqual(self.read("same"), DRAWING.decode())
        self.assertEqual(self.read("same.dxf"), DRAWING.decode())
        self.assertEqual(self.drawn_from("same", "-", "-o", "other.svg").returncode, 0)

    def test_the_file_of_the_standard_input_while_another_is_drawn(self):
        self.write("plan.dxf")
        self.write("plan.svg", OTHER)
        self.assertEqual(self.drawn_from("plan.svg", "plan.dxf").returncode, 2)
        self.assertEqual(self.read("plan.svg"), OTHER.decode())

    def test_a_second_name_of_another_drawing(self):
        self.write("a.dxf")
        self.write("b.dxf", OTHER)
        os.link(self.path("b.dxf"), self.path("a.svg"))
        self.assertIn("a.dxf: is not drawn: a.svg is one of the drawings; give another place with -o\n",
                      self.expect(5, "a.dxf", "b.dxf"))
        self.assertEqual(self.read("a.svg"), OTHER.decode())

    def test_the_list(self):
        self.write("a.dxf")
        self.write("a.svg", b"a.dxf\n")
        self.assertIn("a.svg is the list of the drawings", self.expect(2, "--files-from", "a.svg"))
        self.assertEqual(self.drawn_from("a.svg", "--files-from", "-").returncode, 2)
        self.assertEqual(self.read("a.svg"), "a.dxf\n")

    def test_what_a_drawing_holds_is_not_printed_into_it(self):
        self.write("a.dxf")
        self.write("list", b"a.dxf\n")
        for arguments, into, what in ((["info", "a.dxf"], "a.dxf", "one of the drawings"),
                                      (["info", "--summary", "."], "a.dxf", "one of the drawings"),
                                      (["info", "--files-from", "list"], "list", "the list of the drawings"),
                                      (["--list-layouts", "a.dxf"], "a.dxf", "one of the drawings"),
                                      (["--list-layouts", "-"], "a.dxf", "the file of the standard input"),
                                      (["--list-layouts", "--files-from", "list"], "list", "the list of the drawings")):
            before = self.read(into)
            with open(self.path(into), "ab") as out, open(self.path("a.dxf"), "rb") as drawing:
                result = subprocess.run([*command_support.EMULATOR, command_support.COMMAND, *arguments], stdout=out,
                                        stderr=subprocess.PIPE, cwd=self.folder, check=False,
                                        stdin=drawing if "-" in arguments else subprocess.DEVNULL)
            with self.subTest(arguments=arguments):
                self.assertEqual(result.returncode, 2)
                self.assertIn(f"the standard output is {what}; give it another place", result.stderr.decode())
                self.assertEqual(self.read(into), before)

    def test_the_standard_output_that_is_a_drawing(self):
        self.write("a.dxf")
        with open(self.path("a.dxf"), "ab") as out:
            result = subprocess.run([*command_support.EMULATOR, command_support.COMMAND, "a.dxf", "-o", "-"],
                                    stdout=out, stderr=subprocess.PIPE, stdin=subprocess.DEVNULL, cwd=self.folder,
                                    check=False)
        self.assertEqual(result.returncode, 2)
        self.assertEqual(self.read("a.dxf"), DRAWING.decode())
