"""What scripts/mutate changes, what scripts/coverage counts and what scripts/lint passes on."""
import json
import os
import re
import shutil
import sys
import tempfile
import textwrap
import unittest
import xml.etree.ElementTree as ElementTree

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(ROOT, "scripts", "lib"))
import coverage  # noqa: E402
import lint  # noqa: E402
import mutants  # noqa: E402
import mutate  # noqa: E402


def changes(source):
    with tempfile.TemporaryDirectory() as folder:
        with open(os.path.join(folder, "a.cpp"), "w", encoding="utf-8") as file:
            file.write(source)
        return [(mutant.old, mutant.new) for mutant in mutants.find(folder, "a.cpp")]


class Mutants(unittest.TestCase):
    def test_comparisons_move_by_one_and_turn(self):
        self.assertEqual(changes("return a < b;"), [("<", "<="), ("<", ">=")])
        self.assertEqual(changes("return a == b;"), [("==", "!=")])

    def test_numbers_change_and_keep_their_suffix(self):
        self.assertEqual(changes("x = 0;"), [("0", "1")])
        self.assertEqual(changes("x = 1u;"), [("1u", "0u")])
        self.assertEqual(changes("x = 0x10;"), [("0x10", "17")])
        self.assertEqual(changes("x = 2.5f;"), [("2.5f", "3.5f")])
        self.assertEqual(changes("x = 3e38;"), [("3e38", "6e+38")])

    def test_arguments_of_templates_pointers_and_references_stay(self):
        self.assertEqual(changes("std::vector<int*> f(const A& a, A&& b, char* const c);"), [])

    def test_comments_texts_and_directives_stay(self):
        self.assertEqual(changes('#include "a<1>.h"\n// a < 1\nf("a < 1", \'1\'); /* 1 + 1 */\n'), [])

    def test_what_this_machine_does_not_compile_stays(self):
        source = "#if defined(PLEXORN_SSE2)\nx = 0;\n#else\nx = 5;\n#endif\n"
        self.assertEqual(changes(source), [("0", "1")])

    def test_a_change_is_made_where_it_was_found(self):
        with tempfile.TemporaryDirectory() as folder:
            with open(os.path.join(folder, "a.cpp"), "w", encoding="utf-8") as file:
                file.write("// 1\nx = a && b;\n")
            mutant, = mutants.find(folder, "a.cpp")
            self.assertEqual((mutant.line, mutants.apply(folder, mutant)), (2, "// 1\nx = a || b;\n"))


class Subjects(unittest.TestCase):
    """The folders that are changed, and what runs against each change."""

    def test_each_folder_of_what_is_shipped_can_be_changed(self):
        folders = {name for name in os.listdir(ROOT) if os.path.isfile(os.path.join(ROOT, name, "CMakeLists.txt"))}
        self.assertEqual(folders - {"bench", "docs", "examples", "fuzz", "tests"}, set(mutate.SUBJECTS))

    def test_the_command_is_tested_by_its_cases(self):
        folder = os.path.join(ROOT, "tests", "cli")
        modules = {name[:-3] for name in os.listdir(folder) if name.endswith("_cases.py")}
        # These need a library to be loaded, libraries to be linked with, Windows and valgrind.
        others = {"failing_cases", "holes_cases", "placement_cases", "windows_cases", "work_cases"}
        self.assertEqual(modules - others, set(mutate.SUBJECTS["cli"].cases))
        self.assertLessEqual(set(mutate.SUBJECTS["svghost"].cases), modules)

    def test_what_a_program_is_linked_from(self):
        commands, inputs, program = mutate.read_commands([
            f"ccache g++ -O3 -MF a.o.d -o a.o -c {ROOT}/cli/a.cpp",
            "cmake -E touch b.stamp",
            ": && cmake -E rm -f lib/libA.a && ar qc lib/libA.a  a.o && ranlib lib/libA.a && :",
            "g++ -shared -Wl,-soname,libB.so -o lib/libB.so  b.o  src/import/libQuillmarLib.so  lib/libA.a && :",
            "g++ -O3 c.o -o bin/tests  lib/libB.so  /usr/lib/libpugixml.so.1.13  lib/libA.a && :"])
        self.assertEqual({name: words[-1] for name, words in commands.items()}, {"a.o": f"{ROOT}/cli/a.cpp"})
        self.assertEqual(inputs, {
            "lib/libA.a": ["a.o"], "lib/libB.so": ["b.o", "lib/libA.a"],
            "bin/tests": ["c.o", "lib/libB.so", "/usr/lib/libpugixml.so.1.13", "lib/libA.a"]})
        self.assertEqual(program, "bin/tests")


class Explanations(unittest.TestCase):
    """What no test can notice and what no test can reach is explained for code that is there."""

    def lines_of(self, path):
        with open(os.path.join(ROOT, path), encoding="utf-8") as file:
            return [line.strip() for line in file]

    def test_each_change_that_no_test_can_notice_is_of_a_line(self):
        explained = mutate.explained()
        self.assertGreater(len(explained), 30)
        self.assertEqual([entry for entry in explained if entry[1] not in self.lines_of(entry[0])], [])

    def test_each_line_that_no_test_can_reach_is_there_once(self):
        _, entries = coverage.read_exceptions()
        self.assertGreater(len(entries), 5)
        self.assertEqual([entry[:2] for entry in entries if self.lines_of(entry[0]).count(entry[1]) != 1], [])


class Coverage(unittest.TestCase):
    def collect(self, lcov, files):
        with tempfile.TemporaryDirectory() as folder:
            lines, decisions = os.path.join(folder, "lcov"), os.path.join(folder, "json")
            with open(lines, "w", encoding="utf-8") as file:
                file.write(textwrap.dedent(lcov))
            with open(decisions, "w", encoding="utf-8") as file:
                json.dump({"data": [{"files": files}]}, file)
            return coverage.collect(coverage.read_lines(lines), *coverage.read_decisions(decisions))

    def test_a_line_counts_when_any_copy_of_it_ran(self):
        report = self.collect("SF:src/a.h\nDA:1,0\nDA:2,0\nSF:src/a.h\nDA:1,3\nDA:2,0\n", [])
        self.assertEqual((report.reached["lines"], report.totals["lines"]), (1, 2))
        self.assertEqual(report.missed, [("src/a.h", 2, "lines", "")])

    def test_a_branch_has_two_sides_summed_over_copies(self):
        files = [{"filename": "src/a.h", "branches": [[4, 7, 4, 9, 5, 0, 0, 0, 4], [4, 7, 4, 9, 1, 0, 0, 0, 4]]}]
        report = self.collect("", files)
        self.assertEqual((report.reached["branches"], report.totals["branches"]), (1, 2))
        self.assertEqual(report.missed, [("src/a.h", 4, "branches", "column 7 is never false")])

    def test_each_condition_has_to_turn_its_decision(self):
        files = [{"filename": "src/a.h", "branches": [], "mcdc_records": [[4, 7, 4, 20, 0, 5, [True, False]]]}]
        report = self.collect("", files)
        self.assertEqual((report.reached["conditions"], report.totals["conditions"]), (1, 2))


class Lint(unittest.TestCase):
    def test_a_tool_that_found_something_failed(self):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "results", "lint.xml")
            lint.write_junit(path, {"cppcheck": [], "clang-tidy": ["src/a.cpp:1: bad"]})
            cases = ElementTree.parse(path).getroot().findall("testcase")
            self.assertEqual([(case.get("name"), case.findtext("failure")) for case in cases],
                             [("cppcheck", None), ("clang-tidy", "src/a.cpp:1: bad")])

    def findings(self, *sources):
        """What clang-tidy says of a group of these files."""
        with tempfile.TemporaryDirectory() as folder:
            paths = [os.path.join(folder, "src", f"file{i}.cpp") for i in range(len(sources))]
            os.mkdir(os.path.join(folder, "src"))
            for path, source in zip(paths, sources):
                with open(path, "w", encoding="utf-8") as file:
                    file.write(source)
            output = lint.look_over(folder, 0, paths, dict.fromkeys(paths, ["-std=c++20"]))
            return re.findall(r"(?m)^\S+/(file\d)\.cpp:(\d+):\d+: (?:error|warning): .*\[([^],]+)", output)

    @unittest.skipUnless(shutil.which("clang-tidy-19"), "clang-tidy-19 is not there")
    def test_a_finding_in_one_of_a_group_is_reported(self):
        bad, good = "int* Place()\n{\n    return 0;\n}\n", "int Number()\n{\n    return 0;\n}\n"
        finding = ("3", "modernize-use-nullptr")
        self.assertEqual(self.findings(good, bad), [("file1", *finding)])
        self.assertEqual(self.findings(bad, good), [("file0", *finding)])
        self.assertEqual(self.findings(good, good.replace("Number", "Other")), [])
        # One name for two things: each file by itself.
        self.assertEqual(self.findings(bad, bad), [("file0", *finding), ("file1", *finding)])


if __name__ == "__main__":
    unittest.main()
