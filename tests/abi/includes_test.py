"""Which folder may include which: the arrows of the design, read from the #include lines. symbols_test.py reads them
from what is compiled."""
import argparse
import os
import re
import sys
import tempfile
import unittest

ARGS = None
SOURCE = (".h", ".cpp", ".c", ".rc", ".rc.in")
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

# The list of entity types, from which the command says what becomes of each. It has no symbols.
TYPE_LIST = "src/reader/EntityTypes.h"

# How the module computes what a dimension shows, by which the command says where that is not what the file states. All
# of it is inline.
DIMENSION_MATHEMATICS = {"src/drawing/DimensionPoints.h", "src/drawing/Transform.h", "src/entities/DXF_POINT2D.h"}

# What the folders beside src/ may include of the project, besides their own files: files, and whole folders.
NEIGHBOURS = {
    "svghost": {"src/base/", "src/host/QuillmarLib.h"},
    "prepare": {"src/base/", "src/input/"},
    "cli": {"src/base/", "src/input/", "src/entry/dxfFileOpen.h", "src/host/ReportKinds.h", TYPE_LIST,
            "svghost/SvgHost.h", "prepare/", *DIMENSION_MATHEMATICS},
    "examples": {"src/entry/dxfFileOpen.h", "src/host/QuillmarLib.h", "src/host/ReportKinds.h", "svghost/SvgHost.h",
                 "prepare/Prepare.h"},
}

# The rooms of cli/ that each one may include from, besides itself; "" are the files beside the rooms. What a room knows
# of the project beyond src/base is in its second set.
COMMAND_ROOMS = {
    "": ({"batch", "draw", "info", "options", "prepare", "system"}, set()),
    "draw": ({"batch", "contents", "files", "options", "prepare", "report", "system"},
             {"src/entry/dxfFileOpen.h", "src/host/ReportKinds.h", "svghost/SvgHost.h", "prepare/report/"}),
    "prepare": ({"batch", "contents", "files", "options", "report", "system"}, {"src/input/", "prepare/"}),
    "batch": ({"contents", "files", "options", "report", "system"}, set()),
    "info": ({"contents", "files", "options", "prepare", "report", "system"}, set()),
    "report": ({"contents", "options"}, {"src/host/ReportKinds.h", "svghost/SvgHost.h"}),
    "files": ({"options", "system"}, {"src/input/", "prepare/pairs/"}),
    "options": ({"contents"}, {"prepare/drawing/Encoding.h"}),
    "contents": (set(), {"src/input/", TYPE_LIST, "prepare/pairs/", *DIMENSION_MATHEMATICS}),
    "system": (set(), set()),
}

# The same for prepare/: the rooms are the stages of the way from a file to a plain drawing. All know the options.
PREPARE_OPTIONS = "prepare/Options.h"
PREPARE_ROOMS = {
    "": ({"drawing", "plain", "report", "write"}, {"src/input/"}),
    "write": ({"drawing", "plain", "report"}, {PREPARE_OPTIONS}),
    "plain": ({"drawing", "report"}, {PREPARE_OPTIONS}),
    "drawing": ({"pairs", "report"}, {"src/input/"}),
    "pairs": (set(), {"src/input/"}),
    "report": (set(), set()),
}

# The folders that have rooms.
ROOMS = {"cli": COMMAND_ROOMS, "prepare": PREPARE_ROOMS}

# Numbers become texts, and texts numbers, in src/base alone: one form of each number everywhere, whatever the locale.
NUMBER_HEADERS = {"charconv", "format", "fstream", "iomanip", "iostream", "istream", "locale", "ostream", "sstream",
                  "strstream"}
# The library for the command line prints what it answers by itself to a stream.
NUMBERLESS_STREAM = ("cli/options/ParseOptions.cpp", "iostream")
NUMBER_FOLDER = "src/base/"
# What reads and writes numbers in a way of its own. Texts may be printed. std::to_string is for whole numbers;
# symbols_test.py sees what it is used for.
NUMBER_CALL = re.compile(r"\b((?:strto|wcsto|sto|ato|wto)[a-z]+|to_wstring|v?s[wn]*(?:printf|scanf))\(|"
                         r"\b(v?f?w?printf)\([^\"]*\"(?:[^\"%]|%[s%])*%[^s%]")

STANDARD_C = {"assert.h", "stdbool.h", "stddef.h", "stdint.h", "wchar.h"}
# What a folder uses beyond that: the command a package of its own, the examples in C more of the C library.
LIBRARIES = {"cli": re.compile(r"CLI/.+\.hpp"), "examples": re.compile(r"(?:locale|stdarg|stdio|stdlib)\.h")}
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
    """The file of the project that a quoted include names, from root; None if it names no such file."""
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


def is_among(target, known):
    """Whether known has a file, or a folder that it is in."""
    return target in known or any(name.endswith("/") and target.startswith(name) for name in known)


def neighbour_problem(root, file, bracket, name):
    folder = file.split("/")[0]
    target = resolve(root, file, name)
    if bracket == "<":
        return None if is_library(file, name) else "needs more than the standard library"
    if target is None:
        return "names no file of the project"
    if not is_among(target, NEIGHBOURS[folder] | {folder + "/"}):
        return "knows too much"
    return room_problem(file, target) if folder in ROOMS else None


def is_library(file, name):
    library = LIBRARIES.get(file.split("/")[0])
    return (is_standard(name) or PLATFORM_FILE.search("/" + file) is not None
            or library is not None and library.fullmatch(name) is not None)


def room_of(file):
    """The room of a file in a folder that has rooms."""
    folders = file.split("/")[1:-1]
    return folders[0] if folders else ""


def room_problem(file, target):
    folder, room = file.split("/")[0], room_of(file)
    rooms, known = ROOMS[folder][room]
    if is_among(target, known | {"src/base/"}):
        return None
    if not target.startswith(folder + "/"):
        return "knows too much"
    return None if room_of(target) in rooms | {room} else "goes against the arrows"


def number_problem(file, name):
    is_elsewhere = (name in NUMBER_HEADERS and (file, name) != NUMBERLESS_STREAM
                    and not file.startswith((NUMBER_FOLDER, "examples/")))
    return f"is for {NUMBER_FOLDER} alone; use base/Numbers.h" if is_elsewhere else None


def number_calls(root, file):
    """What a file calls to read or write numbers in a way of its own; examples are hosts, which know no src/base."""
    if file.startswith((NUMBER_FOLDER, "examples/")):
        return
    with open(os.path.join(root, file), encoding="utf-8") as source:
        for found in NUMBER_CALL.findall(source.read()):
            yield f"{file}: {found[0] or found[1]}: use base/Numbers.h"


def is_homeless(file):
    """Whether a file is in a folder that nobody planned."""
    top = file.split("/")[0]
    return top == "src" and file.split("/")[1] not in ARROWS or top in ROOMS and room_of(file) not in ROOMS[top]


def problems(root):
    found = []
    for folder, check in (("src", module_problem), *((name, neighbour_problem) for name in NEIGHBOURS)):
        for file in files_of(root, folder):
            if is_homeless(file):
                found.append(f"{file}: is in no known folder")
                continue
            for bracket, name in includes_of(root, file):
                problem = number_problem(file, name) or check(root, file, bracket, name)
                if problem:
                    found.append(f"{file}: {name}: {problem}")
            found += number_calls(root, file)
    return found


class Project(unittest.TestCase):
    def test_every_include_follows_the_arrows(self):
        self.assertEqual(problems(ARGS.root), [])

    def test_every_folder_of_the_module_is_read(self):
        folders = {file.split("/")[1] for file in files_of(ARGS.root, "src")}
        self.assertEqual(folders, set(ARROWS))

    def test_every_room_is_read(self):
        for folder, rooms in ROOMS.items():
            self.assertEqual({room_of(file) for file in files_of(ARGS.root, folder)}, set(rooms))

    def test_no_room_leads_back_to_itself(self):
        for table in ROOMS.values():
            left = {room: set(rooms) for room, (rooms, _) in table.items()}
            while left:
                ends = {room for room, rooms in left.items() if not rooms & set(left)}
                self.assertTrue(ends, left)
                left = {room: rooms for room, rooms in left.items() if room not in ends}


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

    def test_numbers_of_its_own(self):
        found = self.check({"src/base/a.cpp": "#include <charconv>\n", "prepare/b.cpp": "#include <charconv>\n"})
        self.assertEqual(found, ["prepare/b.cpp: charconv: is for src/base/ alone; use base/Numbers.h"])

    def test_numbers_through_streams_and_formats(self):
        found = self.check({"src/reader/a.cpp": "#include <sstream>\n", "prepare/b.cpp": "#include <format>\n",
                            "svghost/c.cpp": "#include <ostream>\n",
                            "cli/options/ParseOptions.cpp": "#include <iostream>\n#include <sstream>\n"})
        self.assertEqual(found, [file + ": is for src/base/ alone; use base/Numbers.h" for file in (
            "src/reader/a.cpp: sstream", "svghost/c.cpp: ostream", "prepare/b.cpp: format",
            "cli/options/ParseOptions.cpp: sstream")])

    def test_numbers_by_the_locale(self):
        found = self.check({"cli/draw/a.cpp": "x = std::strtod(text, nullptr);\n",
                            "svghost/b.cpp": "y = std::stoi(text);\n",
                            "prepare/c.cpp": 'std::snprintf(text, 9, "%d", 1);\n',
                            "src/reader/d.cpp": 'std::fprintf(file, "line %d", 1);\n',
                            "src/reader/e.cpp": "text = std::to_wstring(1.5);\n"})
        self.assertEqual(found, ["src/reader/d.cpp: fprintf: use base/Numbers.h",
                                 "src/reader/e.cpp: to_wstring: use base/Numbers.h",
                                 "svghost/b.cpp: stoi: use base/Numbers.h",
                                 "prepare/c.cpp: snprintf: use base/Numbers.h",
                                 "cli/draw/a.cpp: strtod: use base/Numbers.h"])

    def test_a_text_that_is_printed(self):
        self.assertEqual(self.check({"cli/a.cpp": 'std::fprintf(stderr, "plexorn: %s\\n", "100 %");\n'}), [])

    def test_a_folder_that_nobody_planned(self):
        found = self.check({"src/util/a.h": ""})
        self.assertEqual(found, ["src/util/a.h: is in no known folder"])

    def test_a_command_that_reaches_into_the_module(self):
        found = self.check({"src/reader/a.h": "", "cli/draw/b.cpp": '#include "reader/a.h"\n'})
        self.assertEqual(found, ["cli/draw/b.cpp: reader/a.h: knows too much"])

    def test_rooms_of_the_command_that_include_each_other(self):
        found = self.check({"cli/info/a.h": '#include "cli/draw/b.h"\n', "cli/draw/b.h": '#include "../info/a.h"\n'})
        self.assertEqual(found, ["cli/draw/b.h: ../info/a.h: goes against the arrows",
                                 "cli/info/a.h: cli/draw/b.h: goes against the arrows"])

    def test_a_room_that_draws_and_need_not(self):
        found = self.check({"src/entry/dxfFileOpen.h": "", "cli/info/a.h": '#include "entry/dxfFileOpen.h"\n'})
        self.assertEqual(found, ["cli/info/a.h: entry/dxfFileOpen.h: knows too much"])

    def test_a_room_that_nobody_planned(self):
        self.assertEqual(self.check({"cli/util/a.h": ""}), ["cli/util/a.h: is in no known folder"])

    def test_a_command_and_a_host_on_the_base(self):
        self.assertEqual(self.check({"src/base/a.h": "", "cli/b.cpp": '#include "base/a.h"\n',
                                     "svghost/b.cpp": '#include "base/a.h"\n'}), [])

    def test_a_command_that_reads_lines_of_its_own_accord(self):
        found = self.check({"src/input/a.h": "", "cli/b.cpp": '#include "input/a.h"\n'})
        self.assertEqual(found, ["cli/b.cpp: input/a.h: knows too much"])

    def test_a_host_that_knows_dxf(self):
        found = self.check({"src/entry/a.h": "", "svghost/b.cpp": '#include "entry/a.h"\n#include <map>\n'})
        self.assertEqual(found, ["svghost/b.cpp: entry/a.h: knows too much"])

    def test_a_library_in_the_host_and_in_the_preparer(self):
        found = self.check({"svghost/a.cpp": "#include <pugixml.hpp>\n", "prepare/a.cpp": "#include <CLI/CLI.hpp>\n",
                            "cli/options/a.cpp": "#include <CLI/CLI.hpp>\n"})
        self.assertEqual(found, ["svghost/a.cpp: pugixml.hpp: needs more than the standard library",
                                 "prepare/a.cpp: CLI/CLI.hpp: needs more than the standard library"])

    def test_a_system_outside_the_files_of_that_system(self):
        found = self.check({"prepare/a.cpp": "#include <sys/stat.h>\n",
                            "prepare/b_posix.cpp": "#include <sys/stat.h>\n"})
        self.assertEqual(found, ["prepare/a.cpp: sys/stat.h: needs more than the standard library"])

    def test_stages_of_the_preparer_backwards(self):
        found = self.check({"prepare/write/a.h": "", "prepare/pairs/b.h": '#include "prepare/write/a.h"\n',
                            "prepare/plain/c.h": '#include "prepare/pairs/b.h"\n'})
        self.assertEqual(found, ["prepare/pairs/b.h: prepare/write/a.h: goes against the arrows",
                                 "prepare/plain/c.h: prepare/pairs/b.h: goes against the arrows"])

    def test_a_stage_that_reads_files_and_need_not(self):
        found = self.check({"src/input/a.h": "", "prepare/plain/b.h": '#include "input/a.h"\n'})
        self.assertEqual(found, ["prepare/plain/b.h: input/a.h: knows too much"])

    def test_a_preparer_that_knows_the_module_or_the_host(self):
        found = self.check({"src/reader/a.h": "", "svghost/a.h": "",
                            "prepare/drawing/b.h": '#include "reader/a.h"\n#include "svghost/a.h"\n'})
        self.assertEqual(found, ["prepare/drawing/b.h: reader/a.h: knows too much",
                                 "prepare/drawing/b.h: svghost/a.h: knows too much"])

    def test_a_base_that_prepares(self):
        found = self.check({"prepare/a.h": "", "src/base/b.h": '#include "prepare/a.h"\n'})
        self.assertEqual(found, ["src/base/b.h: prepare/a.h: goes against the arrows"])

    def test_what_is_allowed(self):
        found = self.check({"src/host/QuillmarLib.h": "", "svghost/SvgHost.h": '#include "host/QuillmarLib.h"\n',
                            "src/entry/dxfFileOpen.h": '#include "host/QuillmarLib.h"\n#include <string_view>\n',
                            "cli/draw/b.cpp": '#include "entry/dxfFileOpen.h"\n#include "svghost/SvgHost.h"\n'})
        self.assertEqual(found, [])


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--root", required=True)
    ARGS, rest = parser.parse_known_args()
    unittest.main(argv=sys.argv[:1] + rest)
