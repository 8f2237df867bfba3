"""The scripts: what they install, what they print, how results are summed up."""
import os
import shutil
import subprocess
import sys
import tempfile
import textwrap
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(ROOT, "scripts", "lib"))
import lint  # noqa: E402
import summary  # noqa: E402


def run(script, *arguments, **options):
    return subprocess.run([os.path.join(ROOT, script), *arguments], capture_output=True, text=True, **options)


class Help(unittest.TestCase):
    def test_every_script_says_what_it_does(self):
        scripts = [name for name in os.listdir(os.path.join(ROOT, "scripts"))
                   if os.path.isfile(os.path.join(ROOT, "scripts", name))]
        self.assertLessEqual({"import", "setup", "test"}, set(scripts))
        for name in scripts:
            with self.subTest(script=name):
                result = run(f"scripts/{name}", "--help")
                self.assertEqual((result.returncode, result.stderr), (0, ""))
                self.assertTrue(result.stdout.startswith(f"scripts/{name} "), result.stdout)

    def test_wrong_usage_is_reported(self):
        for script, arguments in (("setup", ["everything"]), ("test", ["debug"]), ("import", []),
                                  ("import", ["a", "b", "c"]), ("package", ["macos"]), ("package", ["-o"])):
            result = run(f"scripts/{script}", *arguments)
            self.assertEqual((result.returncode, result.stdout), (2, ""))
            self.assertIn(f"scripts/{script} --help", result.stderr)

    def test_import_of_a_missing_drawing(self):
        result = run("scripts/import", "none.dxf")
        self.assertEqual((result.returncode, result.stderr), (3, "import: none.dxf: no such file\n"))


def of_a_file(text, check):
    """What check finds in a file of that text, which it calls FILE. The rules are those of the folder: the file is made
    within the project."""
    os.makedirs(os.path.join(ROOT, "build"), exist_ok=True)
    with tempfile.NamedTemporaryFile("w", suffix=".cpp", dir=os.path.join(ROOT, "build")) as file:
        file.write(text)
        file.flush()
        return [line.replace(file.name, "FILE") for line in check(file.name)]


class Format(unittest.TestCase):
    def setUp(self):
        if shutil.which(lint.FORMATTER) is None:
            self.skipTest("no " + lint.FORMATTER)

    def check(self, text):
        return of_a_file(text, lambda path: lint.run_clang_format([path]))

    def test_a_file_that_differs_is_found_once(self):
        self.assertEqual(self.check("int a;\nint  b;\nint  c;\n"),
                         ["FILE:2: format differs; run clang-format-14 -i on the file"])

    def test_a_file_as_it_should_be(self):
        self.assertEqual(self.check("int a;\n"), [])

    def test_every_folder_with_sources_is_looked_at(self):
        folders = {path.split(os.sep)[0] for path in lint.formatted_sources()}
        self.assertLessEqual({"src", "svghost", "cli", "tests", "fuzz", "bench", "examples"}, folders)


class Names(unittest.TestCase):
    def setUp(self):
        if shutil.which("clang-tidy-19") is None:
            self.skipTest("no clang-tidy-19")

    def check(self, text):
        lines = of_a_file(text, lambda path: lint.clang_tidy(path, ["-std=c++20"]).splitlines())
        return [line.split(" [")[0] for line in lines if ": error: " in line]

    def test_wrong_names_are_found(self):
        self.assertEqual(self.check("class wrong_class {\n    int size = 0;\n};\n"
                                    "int WrongLocal()\n{\n    const int Size = 1;\n    return Size;\n}\n"
                                    "void wrong_function() {}\n"),
                         ["FILE:1:7: error: invalid case style for class 'wrong_class'",
                          "FILE:2:9: error: invalid case style for private member 'size'",
                          "FILE:6:15: error: invalid case style for variable 'Size'",
                          "FILE:9:6: error: invalid case style for function 'wrong_function'"])

    def test_names_as_they_should_be(self):
        self.assertEqual(self.check("class Right {\n    int m_size = 0;\n};\n"
                                    "int RightLocal()\n{\n    const int size = 1;\n    return size;\n}\n"), [])


class Import(unittest.TestCase):
    def test_passes_the_exit_code_on(self):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "plan.dxf")
            with open(path, "wb") as file:
                file.write(b"PK\x03\x04")
            result = run("scripts/import", path)
            self.assertEqual((result.returncode, result.stdout), (4, ""))
            self.assertEqual(os.listdir(folder), ["plan.dxf"])

    def test_names_the_picture_of_which_nothing_is_visible(self):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "plan.dxf")
            with open(path, "wb") as file:
                file.write(b"0\nSECTION\n2\nENTITIES\n0\nLINE\n60\n1\n0\nENDSEC\n0\nEOF\n")
            result = run("scripts/import", path)
            self.assertEqual((result.returncode, result.stdout), (6, os.path.join(folder, "plan.svg") + "\n"))

    def test_takes_a_name_for_the_picture(self):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "a plan.DXF")
            with open(path, "wb") as file:
                file.write(b"0\nEOF\n")
            self.assertEqual(run("scripts/import", path).stdout, os.path.join(folder, "a plan.svg") + "\n")
            self.assertEqual(run("scripts/import", "a plan.DXF", "-p.svg", cwd=folder).stdout, "-p.svg\n")
            self.assertEqual(sorted(os.listdir(folder)), ["-p.svg", "a plan.DXF", "a plan.svg"])


class Package(unittest.TestCase):
    """scripts/package with a CMake that only notes what it is asked for, and a cpack that packs nothing."""

    TOOLS = {
        "scripts/setup": "true",
        "tools/cmake": """
            echo "$*" >>"$NOTES"
            [[ $1 != --build ]] || exit 0
            folder=$1
            [[ $1 != --preset ]] || folder=$4
            mkdir -p "$folder"
            touch "$folder/build.ninja"
            echo "PLEXORN_HAS_STATIC_RUNTIME:INTERNAL=$RUNTIME" >"$folder/CMakeCache.txt"
            """,
        "tools/cpack": 'touch "$2/plexorn-1.tar.gz"',
    }

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="plexorn-package-")
        self.addCleanup(folder.cleanup)
        self.root = os.path.realpath(folder.name)
        shutil.copytree(os.path.join(ROOT, "scripts"), self.path("scripts"))
        os.mkdir(self.path("tools"))
        for name, text in self.TOOLS.items():
            with open(self.path(name), "w", encoding="ascii") as file:
                file.write("#!/usr/bin/env bash\n" + textwrap.dedent(text) + "\n")
            os.chmod(self.path(name), 0o755)

    def path(self, name):
        return os.path.join(self.root, name)

    def package(self, system, runtime):
        tools = self.path("tools") + os.pathsep + os.environ["PATH"]
        result = subprocess.run([self.path("scripts/package"), system], capture_output=True, text=True,
                                env={**os.environ, "PATH": tools, "NOTES": self.path("notes"), "RUNTIME": runtime})
        with open(self.path("notes"), encoding="utf-8") as file:
            return result, file.read().replace(self.root + "/", "").splitlines()

    def test_windows_is_built_apart_from_the_tests(self):
        result, asked = self.package("windows", "")
        self.assertEqual((result.returncode, result.stderr), (0, "Building the preset windows\n"))
        folder = "build/package-windows"
        self.assertEqual(asked[0], f"--preset windows -B {folder} -DPLEXORN_TESTS=OFF -DPLEXORN_BENCH=OFF")
        self.assertEqual(asked[1], f"{folder} -UPLEXORN_HAS_STATIC_RUNTIME -DPLEXORN_UNITY=OFF")
        self.assertTrue(asked[2].startswith(f"--build {folder} "), asked)

    def test_linux_is_built_with_the_static_runtime(self):
        result, asked = self.package("linux", "1")
        self.assertEqual((result.returncode, result.stderr), (0, "Building the preset release\n"))
        self.assertTrue(asked[-1].startswith("--build build/release "), asked)
        self.assertTrue(os.path.exists(self.path("build/packages/plexorn-1.tar.gz")))

    def test_nothing_is_made_without_the_static_runtime(self):
        result, asked = self.package("linux", "")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr.splitlines()[1:],
                         ["package: what is built would need the shared C++ runtime: there is no static one, or "
                          "PLEXORN_STATIC_RUNTIME is off"])
        self.assertFalse(any(line.startswith("--build") for line in asked), asked)
        self.assertEqual(os.listdir(self.path("build/packages")), [])


class Setup(unittest.TestCase):
    """scripts/setup with a package system that only notes what it is asked for."""

    TOOLS = {
        "dpkg-query": 'case " $MISSING " in *" ${@: -1} "*) exit 1;; esac; echo -n installed',
        "apt-cache": 'case " $UNKNOWN " in *" ${@: -1} "*) exit 1;; esac',
        "apt-get": 'echo "apt-get $*" >>"$NOTES"',
        "sudo": 'echo sudo >>"$NOTES"; exec "$@"',
    }

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="plexorn-setup-")
        self.addCleanup(folder.cleanup)
        self.notes = os.path.join(folder.name, "notes")
        self.path = folder.name
        for name, text in self.TOOLS.items():
            path = os.path.join(folder.name, name)
            with open(path, "w", encoding="utf-8") as file:
                file.write(f"#!/bin/bash\n{text}\n")
            os.chmod(path, 0o755)

    def setup_notes(self, *groups, missing="", unknown=""):
        """What was asked of apt-get, and what was printed."""
        environment = {**os.environ, "PATH": f"{self.path}:{os.environ['PATH']}", "MISSING": missing,
                       "UNKNOWN": unknown, "NOTES": self.notes}
        result = run("scripts/setup", *groups, env=environment)
        self.assertEqual((result.returncode, result.stdout), (0, ""))
        if not os.path.exists(self.notes):
            return [], result.stderr
        with open(self.notes, encoding="utf-8") as file:
            return [line.split("Timeout=300 ")[-1].strip() for line in file if "apt-get" in line], result.stderr

    def test_nothing_is_done_or_printed_when_nothing_is_missing(self):
        self.assertEqual(self.setup_notes("build", "test"), ([], ""))

    def test_only_what_is_missing_is_installed(self):
        calls, printed = self.setup_notes("build", missing="cmake googletest ninja-build")
        self.assertEqual(calls, ["install -y --no-install-recommends cmake ninja-build"])
        self.assertEqual(printed, "Installing cmake ninja-build\n")

    def test_a_package_that_two_groups_name_is_installed_once(self):
        calls, _ = self.setup_notes("build", "test", missing="cmake googletest")
        self.assertEqual(calls, ["install -y --no-install-recommends cmake googletest"])

    def test_packing_asks_for_no_tests(self):
        everything = "g++ cmake dpkg-dev file libcli11-dev googletest libpugixml-dev clang lintian wine " \
                     "g++-mingw-w64-x86-64-posix"
        for group, expected in (("package", "g++ cmake libcli11-dev dpkg-dev file"),
                                ("cross", "g++ cmake libcli11-dev g++-mingw-w64-x86-64-posix")):
            with self.subTest(group=group):
                calls, _ = self.setup_notes(group, missing=everything)
                self.assertEqual(calls, ["install -y --no-install-recommends " + expected])
                os.remove(self.notes)

    def test_package_lists_are_fetched_when_they_do_not_know_a_package(self):
        calls, _ = self.setup_notes("build", missing="cmake", unknown="cmake")
        self.assertEqual(calls, ["update", "install -y --no-install-recommends cmake"])


class Summary(unittest.TestCase):
    def counts(self, *cases):
        with tempfile.TemporaryDirectory() as folder:
            with open(os.path.join(folder, "run.xml"), "w", encoding="utf-8") as file:
                file.write("<testsuite>" + "".join(cases) + "</testsuite>")
            return summary.summarise(folder, ["run"])

    @staticmethod
    def case(output, status="run", extra=""):
        text = textwrap.dedent(output)
        return f'<testcase name="t" status="{status}">{extra}<system-out>{text}</system-out></testcase>'

    def test_a_plain_test_counts_once(self):
        self.assertEqual(self.counts(self.case("fine")), ([1, 0, 0], []))

    def test_each_test_of_a_gtest_program_counts(self):
        output = """\
            [==========] 12 tests from 2 test suites ran. (0 ms total)
            [  PASSED  ] 10 tests.
            [  SKIPPED ] 2 tests.
            """
        self.assertEqual(self.counts(self.case(output)), ([10, 0, 2], []))

    def test_failures_that_gtest_does_not_count_are_counted(self):
        output = """\
            [  FAILED  ] A.Bad (0 ms)
            [==========] 3 tests from 1 test suite ran. (0 ms total)
            [  PASSED  ] 1 test.
            """
        self.assertEqual(self.counts(self.case(output, "fail")), ([1, 2, 0], ["run: t"]))

    def test_a_shard_without_tests_counts_nothing(self):
        output = """\
            [==========] 0 tests from 0 test suites ran. (0 ms total)
            [  PASSED  ] 0 tests.
            """
        self.assertEqual(self.counts(self.case(output)), ([0, 0, 0], []))

    def test_each_test_of_a_python_program_counts(self):
        self.assertEqual(self.counts(self.case("Ran 5 tests in 0.1s\n\nOK (skipped=2)\n")), ([3, 0, 2], []))
        self.assertEqual(self.counts(self.case("Ran 5 tests in 0.1s\n\nOK\n")), ([5, 0, 0], []))
        self.assertEqual(self.counts(self.case("Ran 5 tests in 1s\n\nFAILED (failures=1, errors=1)\n", "fail")),
                         ([3, 2, 0], ["run: t"]))

    def test_a_program_that_passed_all_and_then_failed_counts_as_failed(self):
        output = """\
            [==========] 3 tests from 1 test suite ran. (0 ms total)
            [  PASSED  ] 3 tests.
            SUMMARY: leaked
            """
        self.assertEqual(self.counts(self.case(output, "fail")), ([3, 1, 0], ["run: t"]))

    def test_a_test_that_did_not_run_is_skipped(self):
        self.assertEqual(self.counts(self.case("", "notrun", "<skipped/>")), ([0, 0, 1], []))

    def test_a_run_without_results_failed(self):
        with tempfile.TemporaryDirectory() as folder:
            self.assertEqual(summary.summarise(folder, ["windows"]), ([0, 1, 0], ["windows: not built"]))


if __name__ == "__main__":
    unittest.main()
