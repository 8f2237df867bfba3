"""Which folder may call which: the arrows of the design, read from the symbols of the object files.

    symbols_test.py --root PROJECT --build FOLDER --nm NM

An #include line shows what a file could use; a symbol shows what it does use, also where it declares that by itself.
"""
import argparse
import collections
import os
import re
import subprocess
import sys
import unittest

from includes_test import ARROWS, DIMENSION_MATHEMATICS, NEIGHBOURS, READER_KNOWS, TYPE_LIST

ARGS = None

# What a folder uses against the arrows, by the folder that defines it. CDxfRead declares its members in reader; those
# that read entities are defined with the records that they make, and the section driver calls them there.
UPWARD = {
    ("reader", "entities"): {"CDxfRead::EmitCallbacks", "CDxfRead::ReadBLOCKS", "CDxfRead::ReadENTITIES"},
    ("entities", "dimension"): {"CDxfRead::ReadENTITIES_DIMENSION"},
}

# The folders with sources that are built, and of the headers that others may include those that are lists or inline
# functions alone: they have no symbols.
PARTS = ("src", *(name for name in NEIGHBOURS if name != "examples"))
WITHOUT_SYMBOLS = {READER_KNOWS, TYPE_LIST, *DIMENSION_MATHEMATICS}

PART = re.compile(rf"(?:^|/)({'|'.join(PARTS)})/CMakeFiles/[^/]+\.dir/(.+)\.(?:o|obj)$")
SYMBOL = re.compile(r"^(?:[0-9a-f]+)? +([A-Za-z]) (.+)$")
# An inline function is defined by every object that needs it, so its definition belongs to no folder.
STRONG = set("TDBRGSA")

Arrow = collections.namedtuple("Arrow", "folder other symbol")


def folder_of(path):
    """The folder that the rules know an object file by; None for an object of no source of ours."""
    found = PART.search(path.replace(os.sep, "/"))
    if not found:
        return None
    part, source = found.groups()
    return source.split("/")[0] if part == "src" and "/" in source else part


def source_of(path):
    """The source of an object file, from the project's folder."""
    return re.sub(r"/CMakeFiles/[^/]+\.dir/(.+)\.(?:o|obj)$", r"/\1", path.replace(os.sep, "/"))


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
    # src/base/Utf8.h is of the folder base, svghost/SvgHost.h of the folder svghost.
    return {path.split("/")[1 if path.startswith("src/") else 0] for path in NEIGHBOURS[folder] - WITHOUT_SYMBOLS}


def problems(arrows, upward):
    """The arrows that no rule allows, and the exceptions that nothing needs."""
    found, needed = [], set()
    for arrow in sorted(arrows):
        if arrow.other in allowed_folders(arrow.folder):
            continue
        name = arrow.symbol.split("(")[0]
        if name in upward.get((arrow.folder, arrow.other), ()):
            needed.add((arrow.folder, arrow.other, name))
            continue
        found.append(f"{arrow.folder} uses {arrow.symbol} of {arrow.other}: goes against the arrows")
    for (folder, other), names in upward.items():
        found += [f"{folder} no longer uses {name} of {other}: take it off the list"
                  for name in sorted(names) if (folder, other, name) not in needed]
    return found


def object_files(root, build):
    """The objects of sources that are still there: a build keeps those of files that were moved."""
    for part in PARTS:
        for folder, _, names in os.walk(os.path.join(build, part)):
            for name in sorted(names):
                path = os.path.join(folder, name)
                source = source_of(os.path.relpath(path, build))
                if name.endswith((".o", ".obj")) and os.path.isfile(os.path.join(root, source)):
                    yield path


def operations_of(root):
    with open(os.path.join(root, "src", "host", "QuillmarLib.def"), encoding="utf-8") as file:
        return {line.strip() for line in file if line.startswith(" ")}


class Project(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        paths = list(object_files(ARGS.root, ARGS.build))
        self.folders = {folder_of(path) for path in paths}
        # nm names each of several files in a line of its own.
        self.listing = subprocess.run([ARGS.nm, "-C", *paths], check=True, capture_output=True, text=True).stdout

    def test_every_symbol_follows_the_arrows(self):
        self.assertEqual(problems(arrows_of(self.listing, operations_of(ARGS.root)), UPWARD), [])

    def test_every_folder_with_sources_is_read(self):
        with_sources = {name for name in ARROWS
                        if any(file.endswith(".cpp") for file in os.listdir(os.path.join(ARGS.root, "src", name)))}
        self.assertEqual(self.folders, with_sources.union(PARTS) - {"src"})


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
        self.assertEqual(found, ["cli uses Read() of reader: goes against the arrows"])

    def test_a_command_that_draws_by_itself(self):
        found = self.check({"svghost/A.cpp": ["0000000000000000 T qlmCreateLine"],
                            "cli/draw/B.cpp": ["                 U qlmCreateLine"]})
        self.assertEqual(found, ["cli uses qlmCreateLine of host: goes against the arrows"])

    def test_a_preparer_that_reaches_into_the_module(self):
        found = self.check({"src/reader/A.cpp": ["0000000000000010 T Read()"],
                            "prepare/drawing/B.cpp": ["                 U Read()"]})
        self.assertEqual(found, ["prepare uses Read() of reader: goes against the arrows"])

    def test_a_preparer_that_writes_pictures(self):
        found = self.check({"svghost/A.cpp": ["0000000000000010 T WritePath()"],
                            "prepare/write/B.cpp": ["                 U WritePath()"]})
        self.assertEqual(found, ["prepare uses WritePath() of svghost: goes against the arrows"])

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
        upward = {("reader", "entities"): {"CDxfRead::ReadBLOCKS"}}
        defined = {"src/entities/A.cpp": ["0000000000000010 T CDxfRead::ReadBLOCKS()",
                                          "0000000000000020 T CDxfRead::Other()"]}
        used = {"src/reader/B.cpp": ["                 U CDxfRead::ReadBLOCKS()"]}
        self.assertEqual(self.check({**defined, **used}, upward), [])
        self.assertEqual(self.check(defined, upward),
                         ["reader no longer uses CDxfRead::ReadBLOCKS of entities: take it off the list"])
        self.assertEqual(self.check({**defined, "src/reader/B.cpp": [*used["src/reader/B.cpp"],
                                                                     "                 U CDxfRead::Other()"]}, upward),
                         ["reader uses CDxfRead::Other() of entities: goes against the arrows"])


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--root", required=True)
    parser.add_argument("--build", required=True)
    parser.add_argument("--nm", required=True)
    ARGS, rest = parser.parse_known_args()
    unittest.main(argv=sys.argv[:1] + rest)
