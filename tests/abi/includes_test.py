"""Which folder may include which: the arrows of the design, read from the #include lines. symbols_test.py reads them
from what is compiled."""
import argparse
import os
import re
import sys
import tempfile
import unittest

ARGS = None
SOURCE = (".h", ".cpp", ".c", ".in", ".rc")
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"]', re.MULTILINE)

# The folders of src/ that each one may include from, besides itself.
ARROWS = {
    "entry": {"convert", "host", "base"},
    "convert": {"dimension", "drawing", "entities", "reader", "host", "base"},
    "dimension": {"drawing", "entities", "reader", "host", "base"},
    "drawing": {"entities", "base"},
    "entities": {"reader", "base"},
    "reader": {"input", "base"},
    "input": {"base"},
    "base": set(),
    "host": set(),
}

# The host's own list of the kinds of reports, which the reader makes its reports of; it knows no host beyond that.
READER_KNOWS = "src/host/ReportKinds.h"

# What the folders beside src/ may include of the project, besides their own files: files, and whole folders.
NEIGHBOURS = {
    "svghost": {"src/base/", "src/host/QuillmarLib.h"},
    "cli": {"src/base/", "src/entry/dxfFileOpen.h", "src/host/ReportKinds.h", "svghost/SvgHost.h"},
    "examples": {"src/entry/dxfFileOpen.h", "src/host/QuillmarLib.h", "src/host/ReportKinds.h", "svghost/SvgHost.h"},
}

STANDARD_C = {"assert.h", "stdbool.h", "stddef.h", "stdint.h", "wchar.h"}
# Files that exist for one system may use that system; the module object, its framework; the rest the
# standard library alone.
PLATFORM_FILE = re.compile(r"(_posix|_windows)\.(cpp|h)$|\.rc(\.in)?$|/CPlexornApp\.(cpp|h)$")


def files_of(root, folder):
    for path, _, names in os.walk(os.path.join(root, folder)):
        for name in sorted(names):
            if name.endswith(SOURCE):
                yield os.path.relpath(os.path.join(path, name), root).replace(os.sep, "/")


def includes_of(root, file):
    with open(os.path.join(root, file), encoding="utf-8") as source:
        return INCLUDE.findall(source.read())


def resolve(root, file, name):
    """The file of the project that a quoted include names, from root; None when there is none."""
    for base in (os.path.dirname(file), "src", ""):
        path = os.path.normpath(os.path.join(base, name)).replace(os.sep, "/")
        if os.path.isfile(os.path.join(root, path)):
            return path
    return None


def is_standard(name):
    # ...mmintrin.h, intrin.h: the processor's wide steps, which come with the compiler.
    return name in STANDARD_C or re.fullmatch(r"[a-z_0-9]+|[a-z]*intrin\.h", name) is not None


def module_problem(root, file, bracket, name):
    if bracket == "<":
        allowed = is_standard(name) or PLATFORM_FILE.search("/" + file)
        return None if allowed else "needs more than the standard library"
    target = resolve(root, file, name)
    if target is None:
        # What a framework brings is not there on every machine.
        return None if PLATFORM_FILE.search("/" + file) else "names no file of the project"
    own, other = file.split("/")[1], target.split("/")[1]
    if own == "reader" and target == READER_KNOWS:
        return None
    if not target.startswith("src/") or (other != own and other not in ARROWS[own]):
        return "goes against the arrows"
    return None


def neighbour_problem(root, file, bracket, name):
    folder = file.split("/")[0]
    target = resolve(root, file, name)
    if target is None:
        return None if bracket == "<" else "names no file of the project"
    if bracket == "<" and not target.startswith("src/"):
        return None
    known = NEIGHBOURS[folder] | {folder + "/"}
    allowed = target in known or any(name.endswith("/") and target.startswith(name) for name in known)
    return None if allowed else "knows too much"


def problems(root):
    found = []
    for folder, check in (("src", module_problem), *((name, neighbour_problem) for name in NEIGHBOURS)):
        for file in files_of(root, folder):
            if folder == "src" and file.split("/")[1] not in ARROWS:
                found.append(f"{file}: stands in no known folder")
                continue
            for bracket, name in includes_of(root, file):
                problem = check(root, file, bracket, name)
                if problem:
                    found.append(f"{file}: {name}: {problem}")
    return found


class Project(unittest.TestCase):
    def test_every_include_follows_the_arrows(self):
        self.assertEqual(problems(ARGS.root), [])

    def test_every_folder_of_the_module_is_read(self):
        folders = {file.split("/")[1] for file in files_of(ARGS.root, "src")}
        self.assertEqual(folders, set(ARROWS))


class Checker(unittest.TestCase):
    """The check sees what it is there for."""

    def check(self, files):
        with tempfile.TemporaryDirectory() as root:
            for file, text in files.items():
                path = os.path.join(root, file)
                os.makedirs(os.path.dirname(path), exist_ok=True)
                with open(path, "w", encoding="utf-8") as out:
                    out.write(text)
            return problems(root)

    def test_an_arrow_backwards(self):
        found = self.check({"src/convert/a.h": "", "src/reader/b.h": '  #  include "convert/a.h"\n'})
        self.assertEqual(found, ["src/reader/b.h: convert/a.h: goes against the arrows"])

    def test_an_arrow_backwards_by_a_relative_path(self):
        found = self.check({"src/host/a.h": "", "src/entities/b.h": '#include "../host/a.h"\n'})
        self.assertEqual(found, ["src/entities/b.h: ../host/a.h: goes against the arrows"])

    def test_a_reader_that_knows_more_of_a_host_than_the_kinds_of_reports(self):
        found = self.check({"src/host/ReportKinds.h": "", "src/host/QuillmarLib.h": "",
                            "src/reader/a.h": '#include "host/ReportKinds.h"\n#include "host/QuillmarLib.h"\n'})
        self.assertEqual(found, ["src/reader/a.h: host/QuillmarLib.h: goes against the arrows"])

    def test_a_library_in_the_module(self):
        found = self.check({"src/reader/a.cpp": "#include <vector>\n#include <unistd.h>\n"})
        self.assertEqual(found, ["src/reader/a.cpp: unistd.h: needs more than the standard library"])

    def test_the_system_in_a_file_of_that_system(self):
        self.assertEqual(self.check({"src/reader/a_posix.cpp": "#include <unistd.h>\n"}), [])

    def test_a_folder_that_nobody_planned(self):
        found = self.check({"src/util/a.h": ""})
        self.assertEqual(found, ["src/util/a.h: stands in no known folder"])

    def test_a_command_that_reaches_into_the_module(self):
        found = self.check({"src/reader/a.h": "", "cli/b.cpp": '#include "reader/a.h"\n'})
        self.assertEqual(found, ["cli/b.cpp: reader/a.h: knows too much"])

    def test_a_command_and_a_host_on_the_base(self):
        self.assertEqual(self.check({"src/base/a.h": "", "cli/b.cpp": '#include "base/a.h"\n',
                                     "svghost/b.cpp": '#include "base/a.h"\n'}), [])

    def test_a_command_that_reads_lines_of_its_own_accord(self):
        found = self.check({"src/input/a.h": "", "cli/b.cpp": '#include "input/a.h"\n'})
        self.assertEqual(found, ["cli/b.cpp: input/a.h: knows too much"])

    def test_a_host_that_knows_dxf(self):
        found = self.check({"src/entry/a.h": "", "svghost/b.cpp": '#include "entry/a.h"\n#include <map>\n'})
        self.assertEqual(found, ["svghost/b.cpp: entry/a.h: knows too much"])

    def test_what_is_allowed(self):
        found = self.check({"src/host/QuillmarLib.h": "", "svghost/SvgHost.h": '#include "host/QuillmarLib.h"\n',
                            "src/entry/dxfFileOpen.h": '#include "host/QuillmarLib.h"\n#include <string_view>\n',
                            "cli/b.cpp": '#include "entry/dxfFileOpen.h"\n#include "svghost/SvgHost.h"\n'})
        self.assertEqual(found, [])


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--root", required=True)
    ARGS, rest = parser.parse_known_args()
    unittest.main(argv=sys.argv[:1] + rest)
