"""What docs/hosting.md shows is compiled and run as shown, with an installed tree and nothing else."""
import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

from example_programs import ROOT, run_text

ARGS = None
SVG = "{http://www.w3.org/2000/svg}"


def document():
    with open(os.path.join(ROOT, "docs", "hosting.md"), encoding="utf-8") as file:
        return file.read()


def named_blocks():
    """The blocks that are files, by their names."""
    return dict(re.findall(r"^`([\w.]+)`:\n\n```\w+\n(.*?)^```$", document(), re.MULTILINE | re.DOTALL))


def blocks(language):
    return re.findall(rf"^```{language}\n(.*?)^```$", document(), re.MULTILINE | re.DOTALL)


def recorded_calls():
    """What the document says is printed for its drawing."""
    [calls] = [block for block in blocks("text") if block.startswith("qlm")]
    return calls


class Reports(unittest.TestCase):
    def test_the_table_has_every_kind_of_the_header(self):
        with open(os.path.join(ROOT, "src", "host", "ReportKinds.h"), encoding="utf-8") as file:
            kinds = re.findall(r"DXF_ERROR_\w+ = (\d+)", file.read())
        self.assertGreater(len(kinds), 0)
        table = document().split("| kind | what was met |")[1].split("\n\n")[0]
        self.assertEqual(re.findall(r"^\| (\d+) \|", table, re.MULTILINE), kinds)


class Document(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="plexorn-hosting-")
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        for name, content in named_blocks().items():
            with open(os.path.join(self.folder, name), "w", encoding="utf-8") as file:
                file.write(content)

    def install(self):
        prefix = os.path.join(self.folder, "installed")
        subprocess.run(["cmake", "--install", ARGS.build, "--prefix", prefix], check=True, capture_output=True)
        return prefix

    def compile(self, *arguments):
        result = subprocess.run([ARGS.cc, "-std=c11", "-Wall", "-Wextra", "-Werror", *arguments], cwd=self.folder,
                                capture_output=True, text=True)
        self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_every_block_is_a_file_or_is_run(self):
        names = set(named_blocks())
        self.assertEqual(names, {"draw.c", "load.c", "load_windows.c", "drawing.dxf"})
        self.assertEqual(len(blocks(r"\w*")), len(names) + len(blocks("sh")) + 1)

    def test_every_link_leads_somewhere(self):
        for link in re.findall(r"\]\(([^)#]+)\)", document()):
            self.assertTrue(os.path.exists(os.path.join(ROOT, "docs", link)), link)

    def test_every_file_that_is_named_is_there(self):
        for name in re.findall(r"`((?:examples|entry|host|svghost)/[\w./]+)`", document()):
            found = [base for base in ("", "src") if os.path.exists(os.path.join(ROOT, base, name))]
            self.assertTrue(found, name)

    def test_every_operation_is_told_of(self):
        with open(os.path.join(ROOT, "src", "host", "QuillmarLib.def"), encoding="utf-8") as file:
            operations = [line.strip() for line in file if line.startswith(" ")]
        table = document().split("### The operations")[1].split("###")[0]
        self.assertEqual([name for name in operations if f"`{name}" not in table], [])

    def test_every_attribute_is_told_of_and_no_other(self):
        # The names are literals of the sources that set them.
        used = set()
        for folder in ("convert", "dimension"):
            for name in os.listdir(os.path.join(ROOT, "src", folder)):
                with open(os.path.join(ROOT, "src", folder, name), encoding="utf-8") as file:
                    used |= set(re.findall(r'L"((?:pg-)?[a-z]+(?:-[a-z]+)+|stroke|rotate|visibility)"', file.read()))
        table = document().split("### Attributes")[1].split("###")[0]
        told = {name for row in re.findall(r"^\| (`.*?`) \|", table, re.MULTILINE)
                for name in re.findall(r"`([^`]+)`", row)}
        self.assertEqual(told, used)

    def test_the_commands_run_and_print_what_is_shown(self):
        if ARGS.emulator:
            self.skipTest("they are those of another system")
        prefix = self.install()
        os.symlink(os.path.join(prefix, "share", "doc", "plexorn", "examples"), os.path.join(self.folder, "examples"))
        message = re.search(r'"DXF", \d+, "(.*?)"', recorded_calls()).group(1)
        environment = {**os.environ, "PKG_CONFIG_PATH": os.path.join(prefix, "lib", "pkgconfig"),
                       "CMAKE_PREFIX_PATH": prefix}
        printed = []
        for command in (line for block in blocks("sh") for line in block.splitlines()):
            code, out, errors = run_text("sh", "-c", command, cwd=self.folder, env=environment)
            messages = message + "\n" if command.startswith("./draw") else ""
            self.assertEqual((code, errors), (0, messages), command)
            printed.append((command, out))
        self.assertIn(("build/own_host/record_calls drawing.dxf", recorded_calls()), printed)
        self.assertEqual(printed[-1][1], "3\n")
        picture = ElementTree.parse(os.path.join(self.folder, "drawing.svg")).getroot()
        self.assertEqual(len(picture.findall(f".//{SVG}use")), 1)

    def test_a_host_that_is_loaded_first_is_the_one_that_is_called(self):
        prefix = self.install()
        own = os.path.join(ARGS.build, "examples", "own_host")
        includes = ["-I", os.path.join(prefix, "include", "plexorn")]
        if ARGS.emulator:
            # Away from the module: nothing but its being loaded leads to the host.
            host = os.path.join(self.folder, "host", "QuillmarLib.dll")
            os.mkdir(os.path.dirname(host))
            shutil.copy(os.path.join(own, "QuillmarLib.dll"), host)
            module = os.path.join(self.folder, "Plexorn.dll")
            shutil.copy(os.path.join(prefix, "bin", "Plexorn.dll"), module)
            self.compile("load_windows.c", "-o", "load.exe", *includes)
            libraries = [path.replace(self.folder, ".").replace("/", "\\") for path in (host, module)]
        else:
            self.compile("load.c", "-o", "load", *includes)
            libraries = [os.path.join(own, "libQuillmarLib.so"),
                         os.path.join(prefix, "lib", "plexorn", "module", "libPlexorn.so")]
        program = [*ARGS.emulator, "./load" + (".exe" if ARGS.emulator else "")]
        self.assertEqual(run_text(*program, *libraries, cwd=self.folder), (0, recorded_calls(), ""))
        code, out, _ = run_text(*program, libraries[1], cwd=self.folder)
        self.assertEqual((code, out), (1, ""))

    def test_without_a_host_the_module_does_not_load(self):
        if ARGS.emulator:
            self.skipTest("a window would tell")
        self.compile("load.c", "-o", "load", "-I", os.path.join(self.install(), "include", "plexorn"))
        module = os.path.join("installed", "lib", "plexorn", "module", "libPlexorn.so")
        code, _, errors = run_text("./load", "libm.so.6", module, cwd=self.folder)
        self.assertEqual(code, 1)
        self.assertIn("libQuillmarLib.so", errors)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", required=True)
    parser.add_argument("--cc", required=True)
    parser.add_argument("--emulator", nargs=1, default=[])
    ARGS, rest = parser.parse_known_args()
    unittest.main(argv=sys.argv[:1] + rest)
