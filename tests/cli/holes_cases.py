"""Drawings that cannot be read to their end, and short memory: a picture with holes is never written as if it were whole.
Linux only."""
import json
import os
import re
import resource
import subprocess

import command_support
from command_support import CommandTest, dxf, entities


def text(number):
    return ("0", "TEXT", "8", "0", "10", str(number), "20", "2", "40", "3", "1", f"text {number}")


class Holes(CommandTest):
    COUNT = 3000

    def setUp(self):
        super().setUp()
        texts = (line for number in range(self.COUNT) for line in text(number))
        self.write("plan.dxf", entities(*texts))
        self.write("plan.svg", b"old")

    def texts(self):
        return self.read("plan.svg").count("<text")

    AFTER = 20_000

    def failing(self, by, after=AFTER):
        return {**os.environ, "LD_PRELOAD": command_support.PRELOAD, "FAILING_READS_AFTER": str(after),
                "FAILING_READS_BY": by}

    def check_standard_input(self):
        """With --keep-going, what it brings before a failed read is drawn, as of a file."""
        for options in ([], ["-q"]):
            with self.subTest(options=options), open(self.path("plan.dxf"), "rb") as drawing:
                self.write("plan.svg", b"old")
                lines = self.expect(1, "--keep-going", "-", "-o", "plan.svg", *options, stdin=drawing,
                                    env=self.failing("read")).splitlines()
                self.assertEqual(lines[0], "<stdin>: cannot be read to its end: Input/output error; the picture lacks what "
                                           "follows")
                self.assertEqual(len(lines), 1 if options else 2)
                self.assertTrue(self.read("plan.svg").endswith("</svg>\n"))
                self.assertGreater(self.texts(), 100)
                self.assertLess(self.texts(), self.COUNT)
        with open(self.path("plan.dxf"), "rb") as drawing:
            self.assertEqual(self.expect(3, "--keep-going", "-", "-o", "plan.svg", stdin=drawing, env=self.failing("read", 0)),
                             "<stdin>: cannot be read: Input/output error\n")

    def limited(self, kilobytes, *options, command=("-j", "1")):
        def limit():
            resource.setrlimit(resource.RLIMIT_AS, (kilobytes * 1024, kilobytes * 1024))
        return self.plexorn(*command, "plan.dxf", *options, preexec_fn=limit)


class FailingReads(Holes):
    def test_the_library_is_loaded(self):
        result = subprocess.run(["cat", "plan.dxf"], cwd=self.folder, env=self.failing("read"), capture_output=True)
        self.assertIn(b"Input/output error", result.stderr)
        self.assertEqual(len(result.stdout), self.AFTER)

    def test_one_line_and_the_older_picture_stays(self):
        reasons = {"read": r"cannot be read beyond line \d+", "fread": "cannot be read to its end: Input/output error",
                   "read fread": "cannot be read( to its end: Input/output error| beyond line \\d+)"}
        for by, reason in reasons.items():
            for options in ([], ["-q"], ["--strict"], ["-q", "--strict"]):
                with self.subTest(by=by, options=options):
                    if (by, "-q" in options and "--strict" not in options) == ("fread", True):
                        continue  # the header alone is read then, which ends before
                    printed = self.expect(3, "plan.dxf", *options, env=self.failing(by))
                    self.assertRegex(printed, "^plan.dxf: " + reason + "\n$")
                    self.assertEqual(self.names(), ["plan.dxf", "plan.svg"])
                    self.assertEqual(self.read("plan.svg"), "old")

    def test_a_header_that_cannot_be_read(self):
        """Without messages nothing but the header is read by the command itself."""
        variables = [line for number in range(2000) for line in ("9", f"$USER{number}", "70", "1")]
        self.write("plan.dxf", dxf("0", "SECTION", "2", "HEADER", *variables, "0", "ENDSEC") + command_support.DRAWING)
        self.assertEqual(self.expect(3, "-q", "plan.dxf", env=self.failing("fread")),
                         "plan.dxf: cannot be read to its end: Input/output error\n")
        self.assertEqual(self.read("plan.svg"), "old")

    def test_to_keep_going_draws_what_there_is(self):
        for by in ("read", "read fread"):
            for options in ([], ["-q"]):
                with self.subTest(by=by, options=options):
                    self.write("plan.svg", b"old")
                    printed = self.expect(1, "--keep-going", "plan.dxf", *options, env=self.failing(by)).splitlines()
                    self.assertRegex(printed[0], "^plan.dxf: cannot be read .*; the picture lacks what follows$")
                    self.assertEqual(len(printed), 1 if options else 2)
                    self.assertTrue(self.read("plan.svg").endswith("</svg>\n"))
                    self.assertGreater(self.texts(), 100)
                    self.assertLess(self.texts(), self.COUNT)
                    if not options:
                        self.assertRegex(printed[1], ", at most .*, 0 messages, ")

    def test_to_keep_going_changes_nothing_of_a_whole_drawing(self):
        self.expect(0, "-q", "plan.dxf")
        whole = self.read("plan.svg")
        self.assertEqual(self.expect(0, "-q", "--keep-going", "plan.dxf"), "")
        self.assertEqual(self.read("plan.svg"), whole)

    def test_a_start_that_cannot_be_read(self):
        for arguments in (["-q", "plan.dxf"], ["info", "plan.dxf"], ["--keep-going", "plan.dxf"]):
            self.assertEqual(self.expect(3, *arguments, env=self.failing("fread", 0)),
                             "plan.dxf: cannot be read: Input/output error\n")

    def test_the_standard_input(self):
        with open(self.path("plan.dxf"), "rb") as drawing:
            printed = self.expect(3, "-", "-o", "plan.svg", stdin=drawing, env=self.failing("read"))
        self.assertEqual(printed, "<stdin>: cannot be read: Input/output error\n")
        self.assertEqual(self.read("plan.svg"), "old")

    def test_to_keep_going_with_the_standard_input(self):
        self.check_standard_input()

    def test_info(self):
        for options in ([], ["--json"], ["--summary"]):
            result = self.plexorn("info", "plan.dxf", *options, env=self.failing("fread"))
            self.assertEqual((result.returncode, result.stderr),
                             (3, "plan.dxf: cannot be read: Input/output error\n"))

    def test_a_list(self):
        self.write("list", b"plan.dxf\n" * 10_000)
        for command in ([], ["info"]):
            printed = self.expect(2, *command, "--files-from", "list", env=self.failing("fread", 50_000))
            self.assertIn("list: cannot be read: Input/output error\n", printed)
        self.assertEqual(self.read("plan.svg"), "old")


class FailingSync(Holes):
    def test_what_does_not_reach_the_disk_replaces_nothing(self):
        environment = {**os.environ, "LD_PRELOAD": command_support.PRELOAD, "FAILING_CALLS": "sync", "FAILING_AT": "1+"}
        for arguments in (["plan.dxf"], ["prepare", "plan.dxf", "-o", "out.dxf"]):
            printed = self.expect(3, *arguments, "-q", env=environment)
            self.assertRegex(printed, r"^\S+: cannot be written: Input/output error\n$")
            self.assertEqual(self.names(), ["plan.dxf", "plan.svg"])
            self.assertEqual(self.read("plan.svg"), "old")


class ShortMemory(Holes):
    COUNT = 35_249
    LEAST_KILOBYTES = 12_000
    NOT_DRAWN = "^plan.dxf: is not drawn[^\n]*: memory is short[^\n]*\n$"

    def test_a_picture_is_whole_or_the_older_one_stays(self):
        codes = set()
        for kilobytes in range(self.LEAST_KILOBYTES, 44_000, 2_000):
            for options in ([], ["-q"]):
                with self.subTest(kilobytes=kilobytes, options=options):
                    self.write("plan.svg", b"old")
                    result = self.limited(kilobytes, *options)
                    if result.returncode == 127:
                        continue  # the command itself cannot be loaded
                    codes.add(result.returncode)
                    if result.returncode == 0:
                        self.assertEqual(self.texts(), self.COUNT)
                    else:
                        self.assertEqual(result.returncode, 3)
                        self.assertRegex(result.stderr, self.NOT_DRAWN + "|"
                                                        "^plan.svg: cannot be written: Cannot allocate memory\n$")
                        self.assertEqual(self.read("plan.svg"), "old")
        self.assertEqual(codes, {0, 3})

    def test_messages_do_not_come_with_the_failure(self):
        with open(self.path("plan.dxf"), "rb") as drawing:
            texts = drawing.read()
        self.write("plan.dxf", texts.replace(b"\n0\nTEXT\n", b"\n0\nSOLID\n0\n3DSOLID\n0\nTEXT\n", 1))
        failed = 0
        for kilobytes in range(self.LEAST_KILOBYTES, 44_000, 1_000):
            with self.subTest(kilobytes=kilobytes):
                result = self.limited(kilobytes)
                if result.returncode == 3:
                    self.assertRegex(result.stderr, "^plan[^\n]*: [^\n]*(memory is short|allocate memory)[^\n]*\n$")
                    failed += 1
        self.assertGreater(failed, 0)

    def test_to_keep_going_counts_no_more_than_is_drawn(self):
        holes = 0
        for kilobytes in range(14_000, 32_000, 2_000):
            with self.subTest(kilobytes=kilobytes):
                result = self.limited(kilobytes, "--messages=json", "--keep-going")
                if result.returncode != 1:
                    continue
                [share] = [found["share"] for found in map(json.loads, result.stderr.splitlines())
                           if found["type"] == "drawn" and found["holes"]]
                self.assertLessEqual(share["shown"], self.texts())
                self.assertLess(share["percent"], 100)
                holes += 1
        self.assertGreater(holes, 0)

    def test_to_keep_going_says_what_is_missing(self):
        holes = 0
        for kilobytes in range(12_000, 44_000, 1_000):
            with self.subTest(kilobytes=kilobytes):
                self.write("plan.svg", b"old")
                result = self.limited(kilobytes, "-q", "--keep-going")
                if result.returncode == 1:
                    self.assertRegex(result.stderr, "^plan.dxf: [^\n]*; the picture lacks what follows\n")
                    self.assertTrue(self.read("plan.svg").endswith("</svg>\n"))
                    self.assertLess(self.texts(), self.COUNT)
                    holes += 1
                elif result.returncode == 0:
                    self.assertEqual(self.texts(), self.COUNT)
        self.assertGreater(holes, 0)


class ShortMemoryOfSeveral(Holes):
    """Drawings that are drawn at the same time: what one takes, another lacks."""
    COUNT = 8_000
    AS_IS = False
    DRAWINGS = ["a.dxf", "line.dxf", "b.dxf"]

    def setUp(self):
        super().setUp()
        os.rename(self.path("plan.dxf"), self.path("a.dxf"))
        os.link(self.path("a.dxf"), self.path("b.dxf"))
        self.write("line.dxf")

    def run_limited(self, kilobytes, *options):
        def limit():
            resource.setrlimit(resource.RLIMIT_AS, (kilobytes * 1024, kilobytes * 1024))
        return self.plexorn("-j", "3", *options, *self.DRAWINGS, "-o", "out/", preexec_fn=limit)

    @staticmethod
    def drawing_of(name):
        """What fails may be its picture."""
        return re.sub(r"^out/(\w+)\.svg$", r"\1.dxf", name)

    def test_each_has_its_line_and_the_sum_follows(self):
        codes = set()
        for kilobytes in range(10_000, 20_000, 500):
            with self.subTest(kilobytes=kilobytes):
                result = self.run_limited(kilobytes)
                if result.returncode == 127:
                    continue  # the command itself cannot be loaded
                codes.add(result.returncode)
                self.assertIn(result.returncode, (0, 3, 5), result.stderr)
                *lines, total = result.stderr.splitlines()
                self.assertEqual([self.drawing_of(line.split(":")[0]) for line in lines],
                                 [] if result.returncode == 3 else self.DRAWINGS, result.stderr)
                self.assertRegex(total, r"^plexorn: memory is short$|^\d drawn, \d failed, \d messages, ")
        self.assertIn(5, codes)

    def test_each_has_its_object(self):
        codes = set()
        for kilobytes in range(10_000, 20_000, 1_000):
            with self.subTest(kilobytes=kilobytes):
                result = self.run_limited(kilobytes, "--messages=json")
                if result.returncode in (3, 127):
                    continue
                codes.add(result.returncode)
                found = [json.loads(line) for line in result.stderr.splitlines()]
                self.assertEqual([self.drawing_of(entry.get("file", "")) for entry in found], [*self.DRAWINGS, ""])
                self.assertEqual(found[-1]["drawn"] + found[-1]["failed"], 3)
        self.assertIn(5, codes)


class ShortMemoryElsewhere(Holes):
    """A drawing whose bytes are decoded while they are read, which takes memory, too."""
    COUNT = 35_249
    LEAST_KILOBYTES = 8_000
    AS_IS = False

    def setUp(self):
        super().setUp()
        with open(self.path("plan.dxf"), encoding="ascii") as drawing:
            self.write("plan.dxf", drawing.read().encode("utf-16"))

    def test_each_command_says_so(self):
        for command in (["prepare", "-o", "plain.dxf"], ["info"], ["info", "--texts"]):
            codes = set()
            for kilobytes in range(self.LEAST_KILOBYTES, 14_000, 500):
                with self.subTest(command=command, kilobytes=kilobytes):
                    result = self.limited(kilobytes, command=command)
                    if result.returncode not in (0, 127):
                        self.assertEqual(result.returncode, 3)
                        self.assertRegex(result.stderr, "^(plan.dxf: [^\n]*: |plexorn: )memory is short\n$")
                    codes.add(result.returncode)
            self.assertIn(3, codes, command)


class PreparedFailingReads(Holes):
    """The drawing is read to be prepared, by fread, and read back prepared, by read."""
    AS_IS = False

    def test_one_line_and_the_older_picture_stays(self):
        reasons = {"fread": "cannot be read to its end: Input/output error",
                   "read": "cannot be read back as it was prepared"}
        for by, reason in reasons.items():
            for options in ([], ["-q"], ["--strict"], ["--messages", "text"]):
                with self.subTest(by=by, options=options):
                    self.assertEqual(self.expect(3, "plan.dxf", *options, env=self.failing(by)), f"plan.dxf: {reason}\n")
                    self.assertEqual(self.names(), ["plan.dxf", "plan.svg"])
                    self.assertEqual(self.read("plan.svg"), "old")

    def test_to_keep_going_draws_what_there_is(self):
        for options in ([], ["-q"]):
            with self.subTest(options=options):
                self.write("plan.svg", b"old")
                lines = self.expect(1, "--keep-going", "plan.dxf", *options, env=self.failing("fread")).splitlines()
                place = 0 if options else -2
                self.assertEqual(lines[place], "plan.dxf: cannot be read to its end: Input/output error; the picture "
                                               "lacks what follows")
                self.assertTrue(self.read("plan.svg").endswith("</svg>\n"))
                self.assertGreater(self.texts(), 100)
                self.assertLess(self.texts(), self.COUNT)
                if not options:
                    self.assertIn(", at most ", lines[-1])

    def test_to_keep_going_with_the_standard_input(self):
        self.check_standard_input()

    def types_of_objects(self, *arguments, by):
        printed = self.plexorn("--messages", "json", *arguments, "-o", "out/", env=self.failing(by)).stderr
        return [json.loads(line)["type"] for line in printed.splitlines()]

    def test_a_failed_read_is_one_report_and_no_fault_of_the_file(self):
        block = [line for number in range(3000) for line in text(number)]
        self.write("block.dxf", dxf("0", "SECTION", "2", "BLOCKS", "0", "BLOCK", "2", "A", *block))
        vertices = ["0", "VERTEX", "10", "1", "20", "2"] * 3000
        self.write("polyline.dxf", entities("0", "POLYLINE", "66", "1", *vertices, "0", "SEQEND"))
        for name in ("plan.dxf", "block.dxf", "polyline.dxf"):
            for options in ([], ["--layout", "all"]):
                with self.subTest(name=name, options=options):
                    self.assertEqual(self.types_of_objects(name, *options, by="fread"), ["failed"])
            with self.subTest(name=name):
                *doubts, last = self.types_of_objects(name, "--keep-going", by="fread")
                self.assertEqual((set(doubts), last), ({"doubtful"}, "drawn"))
        for options in ([], ["--as-is"]):
            with self.subTest(options=options):
                self.assertEqual(self.types_of_objects("plan.dxf", *options, by="read"), ["failed"])
                self.assertEqual(self.types_of_objects("plan.dxf", "--keep-going", *options, by="read"),
                                 ["doubtful", "drawn"])

    def test_all_of_what_was_read_is_at_most_that(self):
        printed = self.expect(1, "--keep-going", "plan.dxf", env=self.failing("fread"))
        self.assertRegex(printed, r", at most all \d+ entities that were read, 0 messages, ")
        self.assertNotIn("EOF", printed)

    def test_no_line_of_the_prepared_drawing_is_given(self):
        printed = self.plexorn("--keep-going", "plan.dxf", env=self.failing("read")).stderr
        self.assertIn("plan.dxf: cannot be read back as it was prepared; the picture lacks what follows\n", printed)
        self.assertNotRegex(printed, r"plan\.dxf:\d")

    def test_to_keep_going_changes_nothing_of_a_whole_drawing(self):
        self.expect(0, "-q", "plan.dxf")
        whole = self.read("plan.svg")
        self.assertEqual(self.expect(0, "-q", "--keep-going", "plan.dxf"), "")
        self.assertEqual(self.read("plan.svg"), whole)


class PreparedShortMemory(ShortMemory):
    AS_IS = False
    LEAST_KILOBYTES = 8_000
    NOT_DRAWN = "^plan.dxf: is not drawn[^\n]*: memory is short\n$"

    def test_to_keep_going_says_what_is_missing(self):
        unprepared = 0
        for kilobytes in range(7_000, 44_000, 1_000):
            with self.subTest(kilobytes=kilobytes):
                self.write("plan.svg", b"old")
                result = self.limited(kilobytes, "-q", "--keep-going")
                if result.returncode == 1:
                    self.assertRegex(result.stderr, "^plan.dxf: [^\n]*memory is short")
                    self.assertTrue(self.read("plan.svg").endswith("</svg>\n"))
                    unprepared += "plan.dxf: is not prepared: memory is short; it is drawn as with --as-is\n" in result.stderr
                elif result.returncode == 0:
                    self.assertEqual(self.texts(), self.COUNT)
        self.assertGreater(unprepared, 0)
