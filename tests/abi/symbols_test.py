"""Which folder may call which: the arrows of the design, read from the symbols of the object files.

    symbols_test.py --root PROJECT --objects LIST --nm NM

An #include line shows what a file could use; a symbol shows what it does use, also where it declares that by itself.
LIST is a file with the paths of the object files that the build makes, one a line.
"""
import argparse
import collections
import os
import re
import subprocess
import sys
import tempfile
import unittest

from includes_test import (ARROWS, DIMENSION_MATHEMATICS, NEIGHBOURS, PREPARE_OPTIONS, READER_KNOWS, ROOMS, TYPE_LIST,
                           room_of)

ARGS = None

# What a folder uses against the arrows, by the folder that defines it. CDxfRead declares its members in reader; those
# that read entities are defined with the records that they make, and the section driver calls them there.
UPWARD = {
    ("reader", "entities"): {
        "CDxfRead::EmitCallbacks()", "CDxfRead::ReadBLOCKS(CDxfStream&)",
        "CDxfRead::ReadENTITIES(CDxfStream&, std::basic_string_view<char, std::char_traits<char>>, "
        "DXF_LIST<DXF_GRAPHIC_BASE*>&)"},
    ("entities", "dimension"): {
        "CDxfRead::ReadENTITIES_DIMENSION(CDxfStream&, DXF_LIST<DXF_GRAPHIC_BASE*>&)"},
}

# The folders with sources that are built, and of the headers that others may include those that are lists or inline
# functions alone: they have no symbols.
PARTS = ("src", *(name for name in NEIGHBOURS if name != "examples"))
WITHOUT_SYMBOLS = {READER_KNOWS, TYPE_LIST, PREPARE_OPTIONS, *DIMENSION_MATHEMATICS}

PART = re.compile(rf"(?:^|/)({'|'.join(PARTS)})/CMakeFiles/[^/]+\.dir/(.+)\.(?:o|obj)$")
SYMBOL = re.compile(r"^(?:[0-9a-f]+)? +([A-Za-z]) (.+)$")
# An inline function is defined by every object that needs it, so its definition belongs to no folder.
STRONG = set("TDBRGSA")

# std::to_string of a number with a fraction, which depends on the locale, and what streams and formats call.
NUMBER_SYMBOL = re.compile(r"__to_xstring<std::(?:__cxx11::)?basic_string<char\b|"
                           r"\bto_w?string\((?:float|double|long double)\)|"
                           r"_M_(?:insert|extract)<(?:float|double|long double)>|stringstream|std::__format")
# This source has the library for the command line in it, which is all in headers.
WITH_LIBRARY = "/options/ParseOptions.cpp."

Arrow = collections.namedtuple("Arrow", "folder other symbol")


def folder_of(path):
    """The folder that the rules know an object file by; None for an object of no source of ours."""
    found = PART.search(path.replace(os.sep, "/"))
    if not found:
        return None
    part, source = found.groups()
    return home_of(f"{part}/{source}")


def home_of(file):
    """The folder that the rules know a file by: one of the module's ("base"), or a room of another ("cli/draw"). None
    for a file that the build makes."""
    part, *rest = file.split("/")
    if part == "src":
        return rest[0] if len(rest) > 1 else None
    return os.path.join(part, room_of(file)).rstrip("/") if part in ROOMS else part


def symbols_of(listing):
    """What nm lists: for each object file its undefined symbols and those that it alone defines."""
    undefined, defined = collections.defaultdict(set), collections.defaultdict(set)
    path = None
    for line in listing.splitlines():
        symbol = SYMBOL.match(line)
        if symbol and path is not None:
            kind, name = symbol.groups()
            if kind == "U":
                undefined[path].add(name)
            elif kind in STRONG and not name.startswith(".refptr."):
                defined[path].add(name)
        elif line.endswith(":"):
            path = line[:-1]
    return undefined, defined


def arrows_of(listing, operations):
    """The arrows between folders; the host's operations belong to src/host, whatever defines them."""
    undefined, defined = symbols_of(listing)
    homes = collections.defaultdict(set)
    for path, names in defined.items():
        for name in names:
            homes[name].add(folder_of(path))
    for name in operations:
        homes[name] = {"host"}
    found = set()
    for path, names in undefined.items():
        folder = folder_of(path)
        for name in names:
            if folder not in homes[name]:
                found |= {Arrow(folder, other, name) for other in homes[name] if None not in (folder, other)}
    return found


def allowed_folders(folder):
    """The folders that one may use. What a folder uses is seen through its headers too: an inline function of a reader
    that calls the stream is compiled into whoever calls it."""
    if folder in ARROWS:
        below = set(ARROWS[folder])
        return below.union(*map(allowed_folders, below))
    part, _, room = folder.partition("/")
    if part not in ROOMS:
        return homes_of(NEIGHBOURS[part])
    rooms, known = ROOMS[part][room]
    below = {f"{part}/{other}" for other in rooms}
    return below.union(homes_of(known | {"src/base/"}), *map(allowed_folders, below))


def homes_of(paths):
    """The folders that the rules know files, or whole folders, by."""
    homes = {home_of(path) for path in paths - WITHOUT_SYMBOLS}
    for part in ROOMS:
        if part + "/" in paths:
            homes |= {home_of(f"{part}/{room}/") for room in ROOMS[part]}
    return homes


def problems(arrows, upward):
    """The arrows that no rule allows, and the exceptions that nothing needs."""
    found, needed = [], set()
    for arrow in sorted(arrows):
        if arrow.other in allowed_folders(arrow.folder):
            continue
        # Not all programs write a blank between two brackets.
        name = arrow.symbol.replace("> >", ">>")
        if name in upward.get((arrow.folder, arrow.other), ()):
            needed.add((arrow.folder, arrow.other, name))
            continue
        found.append(f"{arrow.folder} uses {arrow.symbol} of {arrow.other}: goes against the arrows")
    for (folder, other), names in upward.items():
        found += [f"{folder} no longer uses {name} of {other}: take it off the list"
                  for name in sorted(names) if (folder, other, name) not in needed]
    return found


def number_problems(listing):
    """Who converts numbers in a way that no #include line shows."""
    path, found = "", set()
    for line in listing.splitlines():
        symbol = SYMBOL.match(line)
        number = NUMBER_SYMBOL.search(symbol[2]) if symbol else None
        if number and WITH_LIBRARY not in path and folder_of(path) != "base":
            found.add(f"{folder_of(path)}: {number[0]}: use base/Numbers.h")
        elif not symbol and line.endswith(":"):
            path = line[:-1]
    return sorted(found)


def object_files(objects):
    """The objects that the list names. A folder of a build may also keep those of files that were moved."""
    with open(objects, encoding="utf-8") as file:
        paths = {os.path.normpath(path) for path in file.read().split("\n")}
    return sorted(path for path in paths if folder_of(path) is not None)


def operations_of(root):
    with open(os.path.join(root, "src", "host", "QuillmarLib.def"), encoding="utf-8") as file:
        return {line.strip() for line in file if line.startswith(" ")}


class Project(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        # Targets that nothing was built of have none.
        paths = [path for path in object_files(ARGS.objects) if os.path.isfile(path)]
        self.folders = {folder_of(path) for path in paths}
        # nm names each of several files in a line of its own.
        self.listing = subprocess.run([ARGS.nm, "-C", *paths], check=True, capture_output=True, text=True).stdout

    def test_every_symbol_follows_the_arrows(self):
        self.assertEqual(problems(arrows_of(self.listing, operations_of(ARGS.root)), UPWARD), [])

    def test_numbers_and_texts_are_converted_in_base_alone(self):
        self.assertEqual(number_problems(self.listing), [])

    def test_every_folder_with_sources_is_read(self):
        with_sources = {name for name in ARROWS
                        if any(file.endswith(".cpp") for file in os.listdir(os.path.join(ARGS.root, "src", name)))}
        rooms = {f"{part}/{room}".rstrip("/") for part, table in ROOMS.items() for room in table}
        self.assertEqual(self.folders, with_sources.union(rooms, PARTS) - {"src"})


class Checker(unittest.TestCase):
    """The check sees what it is there for."""

    OPERATIONS = {"qlmCreateLine"}

    def check(self, objects, upward=None):
        listing = ""
        for path, symbols in objects.items():
            part, source = path.split("/", 1)
            listing += f"/build/{part}/CMakeFiles/some_target.dir/{source}.o:\n" + "\n".join(symbols) + "\n\n"
        return problems(arrows_of(listing, self.OPERATIONS), upward or {})

    def test_an_arrow_backwards(self):
        found = self.check({"src/convert/A.cpp": ["0000000000000010 T DrawLine(int, char const*)"],
                            "src/reader/B.cpp": ["                 U DrawLine(int, char const*)"]})
        self.assertEqual(found, ["reader uses DrawLine(int, char const*) of convert: goes against the arrows"])

    def test_data_backwards(self):
        found = self.check({"src/reader/A.cpp": ["0000000000000010 R kColors"],
                            "src/base/B.cpp": ["                 U kColors"]})
        self.assertEqual(found, ["base uses kColors of reader: goes against the arrows"])

    def test_an_arrow_of_the_design(self):
        self.assertEqual(self.check({"src/reader/A.cpp": ["0000000000000010 T Read()"],
                                     "src/convert/B.cpp": ["                 U Read()"]}), [])

    def test_an_arrow_through_another_folder(self):
        self.assertEqual(self.check({"src/input/A.cpp": ["0000000000000010 T NextBlock()"],
                                     "src/convert/B.cpp": ["                 U NextBlock()"]}), [])

    def test_an_operation_of_the_host(self):
        host = {"svghost/QuillmarLib.cpp": ["0000000000000000 T qlmCreateLine"]}
        self.assertEqual(self.check({**host, "src/convert/A.cpp": ["                 U qlmCreateLine"]}), [])
        self.assertEqual(self.check({**host, "src/reader/A.cpp": ["                 U qlmCreateLine"]}),
                         ["reader uses qlmCreateLine of host: goes against the arrows"])

    def test_a_reference_host_that_reads(self):
        found = self.check({"src/reader/A.cpp": ["0000000000000010 T Read()"],
                            "svghost/B.cpp": ["                 U Read()"]})
        self.assertEqual(found, ["svghost uses Read() of reader: goes against the arrows"])

    def test_a_command_that_reaches_into_the_module(self):
        found = self.check({"src/reader/A.cpp": ["0000000000000010 T Read()"],
                            "cli/info/B.cpp": ["                 U Read()"]})
        self.assertEqual(found, ["cli/info uses Read() of reader: goes against the arrows"])

    def test_a_command_that_draws_by_itself(self):
        found = self.check({"svghost/A.cpp": ["0000000000000000 T qlmCreateLine"],
                            "cli/draw/B.cpp": ["                 U qlmCreateLine"]})
        self.assertEqual(found, ["cli/draw uses qlmCreateLine of host: goes against the arrows"])

    def test_a_preparer_that_reaches_into_the_module(self):
        found = self.check({"src/reader/A.cpp": ["0000000000000010 T Read()"],
                            "prepare/drawing/B.cpp": ["                 U Read()"]})
        self.assertEqual(found, ["prepare/drawing uses Read() of reader: goes against the arrows"])

    def test_a_preparer_that_writes_pictures(self):
        found = self.check({"svghost/A.cpp": ["0000000000000010 T WritePath()"],
                            "prepare/write/B.cpp": ["                 U WritePath()"]})
        self.assertEqual(found, ["prepare/write uses WritePath() of svghost: goes against the arrows"])

    def test_a_base_that_prepares(self):
        found = self.check({"prepare/A.cpp": ["0000000000000010 T PrepareDrawing()"],
                            "src/base/B.cpp": ["                 U PrepareDrawing()"]})
        self.assertEqual(found, ["base uses PrepareDrawing() of prepare: goes against the arrows"])

    def test_a_preparer_on_the_base_and_below_the_command(self):
        self.assertEqual(self.check({"src/base/A.cpp": ["0000000000000010 T ParseReal()"],
                                     "prepare/A.cpp": ["0000000000000010 T PrepareDrawing()",
                                                       "                 U ParseReal()"],
                                     "cli/prepare/B.cpp": ["                 U PrepareDrawing()"]}), [])

    def test_what_is_inline_belongs_to_nobody(self):
        self.assertEqual(self.check({"src/convert/A.cpp": ["0000000000000000 W std::min()"],
                                     "src/base/B.cpp": ["                 U std::min()"]}), [])

    def test_what_a_folder_defines_itself(self):
        self.assertEqual(self.check({"src/convert/A.cpp": ["0000000000000000 T main"],
                                     "src/base/A.cpp": ["0000000000000000 T main"],
                                     "src/base/B.cpp": ["                 U main"]}), [])

    def test_an_exception_and_its_end(self):
        upward = {("reader", "entities"): {"CDxfRead::ReadBLOCKS()"}}
        defined = {"src/entities/A.cpp": ["0000000000000010 T CDxfRead::ReadBLOCKS()",
                                          "0000000000000020 T CDxfRead::Other()"]}
        used = {"src/reader/B.cpp": ["                 U CDxfRead::ReadBLOCKS()"]}
        self.assertEqual(self.check({**defined, **used}, upward), [])
        self.assertEqual(self.check(defined, upward),
                         ["reader no longer uses CDxfRead::ReadBLOCKS() of entities: take it off the list"])
        self.assertEqual(self.check({**defined, "src/reader/B.cpp": [*used["src/reader/B.cpp"],
                                                                     "                 U CDxfRead::Other()"]}, upward),
                         ["reader uses CDxfRead::Other() of entities: goes against the arrows"])

    def test_another_function_of_the_same_name_is_no_exception(self):
        upward = {("reader", "entities"): {"CDxfRead::Read(std::vector<std::vector<int>>)"}}
        objects = {"src/entities/A.cpp": ["0000000000000010 T CDxfRead::Read(std::vector<std::vector<int> >)",
                                          "0000000000000020 T CDxfRead::Read(int)"],
                   "src/reader/B.cpp": ["                 U CDxfRead::Read(std::vector<std::vector<int> >)"]}
        self.assertEqual(self.check(objects, upward), [])
        objects["src/reader/B.cpp"].append("                 U CDxfRead::Read(int)")
        self.assertEqual(self.check(objects, upward),
                         ["reader uses CDxfRead::Read(int) of entities: goes against the arrows"])

    def test_rooms_of_the_command_and_of_the_preparer(self):
        found = self.check({"cli/draw/A.cpp": ["0000000000000010 T DrawJob()", "                 U ParseOptions()"],
                            "cli/options/B.cpp": ["0000000000000010 T ParseOptions()", "                 U DrawJob()"],
                            "prepare/write/C.cpp": ["0000000000000010 T PutReal()", "                 U ReadPair()"],
                            "prepare/pairs/D.cpp": ["0000000000000010 T ReadPair()", "                 U PutReal()"]})
        self.assertEqual(found, ["cli/options uses DrawJob() of cli/draw: goes against the arrows",
                                 "prepare/pairs uses PutReal() of prepare/write: goes against the arrows"])

    def test_a_room_of_the_command_that_knows_one_room_of_the_preparer(self):
        found = self.check({"prepare/drawing/A.cpp": ["0000000000000010 T IsEncoding()"],
                            "prepare/Prepare.cpp": ["0000000000000010 T PrepareAll()"],
                            "cli/options/B.cpp": ["                 U IsEncoding()",
                                                  "                 U PrepareAll()"]})
        self.assertEqual(found, ["cli/options uses PrepareAll() of prepare: goes against the arrows"])

    def test_numbers_of_its_own(self):
        listing = ("/b/cli/CMakeFiles/t.dir/draw/A.cpp.o:\n"
                   "0000000000000000 W __gnu_cxx::__to_xstring<std::basic_string<char>, char>(int, ...)\n\n"
                   "/b/prepare/CMakeFiles/t.dir/B.cpp.o:\n                 U std::__1::to_string(double)\n\n"
                   "/b/svghost/CMakeFiles/t.dir/C.cpp.o:\n"
                   "                 U std::ostream::_M_insert<double>(double)\n\n"
                   "/b/cli/CMakeFiles/t.dir/options/ParseOptions.cpp.o:\n"
                   "                 U std::ostream::_M_insert<double>(double)\n\n"
                   "/b/src/CMakeFiles/t.dir/base/D.cpp.o:\n                 U std::__1::to_string(double)\n")
        self.assertEqual(number_problems(listing), ["cli/draw: __to_xstring<std::basic_string<char: use base/Numbers.h",
                                                    "prepare: to_string(double): use base/Numbers.h",
                                                    "svghost: _M_insert<double>: use base/Numbers.h"])

    def test_an_object_that_the_build_no_longer_makes(self):
        with tempfile.NamedTemporaryFile("w", suffix=".txt", delete=False) as file:
            file.write("/b/src/CMakeFiles/some.dir/./base/A.cpp.o\n/b/tests/CMakeFiles/tests.dir/B.cpp.o\n\n")
        self.addCleanup(os.remove, file.name)
        self.assertEqual(object_files(file.name), ["/b/src/CMakeFiles/some.dir/base/A.cpp.o"])


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--root", required=True)
    parser.add_argument("--objects", required=True)
    parser.add_argument("--nm", required=True)
    ARGS, rest = parser.parse_known_args()
    unittest.main(argv=sys.argv[:1] + rest)
