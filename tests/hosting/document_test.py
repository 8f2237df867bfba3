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

from example_programs import ROOT, program, run_text

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


def pairs(*entities, blocks=()):
    """The text of a drawing with these entities, each a list of codes and values in turn."""
    sections = (["BLOCKS", *(value for block in blocks for value in block)],
                ["ENTITIES", *(value for entity in entities for value in entity)])
    lines = [line for name, *values in sections for line in (0, "SECTION", 2, name, *values, 0, "ENDSEC")]
    return "\n".join(str(line) for line in (*lines, 0, "EOF")) + "\n"


class PictureRules(unittest.TestCase):
    """What the page says decides a picture is what the reference host does."""

    LINE = [0, "LINE", 10, 0, 20, 0, 11, 1, 21, 0]

    @classmethod
    def setUpClass(cls):
        cls.rules = document().split("### What decides a picture")[1].split("\n### ")[0]

    def draw(self, *entities, **more):
        """The picture of a drawing, and the group with everything in it."""
        with tempfile.TemporaryDirectory(prefix="plexorn-rules-") as folder:
            path = os.path.join(folder, "drawing.dxf")
            with open(path, "w", encoding="utf-8") as file:
                file.write(pairs(*entities, **more))
            host = program(os.path.join(ARGS.build, "examples"), "minimal_host", ARGS.emulator)
            _, svg, _ = run_text(*host, path)
        picture = ElementTree.fromstring(svg)
        return picture, picture.find(f"{SVG}g")

    @staticmethod
    def dimension(kind, *part):
        return [0, "DIMENSION", 100, "AcDbEntity", 100, "AcDbDimension", 10, 10, 20, 0, 70, kind, *part]

    def test_nothing_is_filled_but_texts(self):
        polyline = [0, "LWPOLYLINE", 90, 2, 70, 0, 10, 0, 20, 0, 10, 5, 20, 5]
        arc = [0, "ARC", 10, 0, 20, 0, 40, 5, 50, 0, 51, 90]
        angle = self.dimension(2, 100, "AcDb2LineAngularDimension", 13, 0, 23, 0, 14, 9, 24, 0, 15, 0, 25, 0, 16, 5,
                               26, 5)
        _, drawn = self.draw(polyline, arc, angle)
        self.assertEqual(drawn.get("fill"), "none")
        for name in ("polyline", "path", "circle"):
            found = drawn.findall(f".//{SVG}{name}")
            self.assertGreater(len(found), 0, name)
            self.assertEqual([element.get("fill") for element in found], [None] * len(found), name)

    def test_a_line_without_stroke_has_the_colour_of_the_dimensions_text(self):
        radius = self.dimension(4, 100, "AcDbRadialDimension", 15, 0, 25, 0)
        _, drawn = self.draw(radius)
        [line], [text] = drawn.findall(f".//{SVG}line"), drawn.findall(f".//{SVG}text")
        self.assertIsNone(line.get("stroke"))
        self.assertEqual(drawn.get("stroke"), text.get("fill"))
        self.assertIn(f"`{drawn.get('stroke')}`", self.rules)

    def test_an_arrow_has_the_size_that_is_asked_for(self):
        picture, drawn = self.draw(self.dimension(4, 100, "AcDbRadialDimension", 15, 0, 25, 0))
        [line] = drawn.findall(f".//{SVG}line")
        marker = picture.find(f".//{SVG}marker[@id='{line.get('marker-end')[5:-1]}']")
        length, width = marker.get("markerWidth"), marker.get("markerHeight")
        self.assertIn(f"is {length} drawing\n  units long and {width} wide", self.rules)
        self.assertTrue(marker.find(f"{SVG}path").get("d").startswith("M0 0L"))
        self.assertEqual(marker.find(f"{SVG}path").get("fill"), "#00ff00")

    def test_texts_are_filled_and_are_at_their_point(self):
        texts = [[0, "MTEXT", 10, 3, 20, 4, 40, 2, 71, attachment, 62, 1, 1, "a"] for attachment in (1, 2, 3, 7)]
        _, drawn = self.draw(*texts)
        found = drawn.findall(f"{SVG}text")
        self.assertEqual([text.get("text-anchor") for text in found], ["start", "middle", "end", None])
        for text in found:
            self.assertEqual([text.get(name) for name in ("fill", "stroke", "x", "y", "font-size")],
                             ["#ff0000", "none", "3", "-2", "2"])
        self.assertIn("`left` is the start and `right` the end", self.rules)

    def test_a_use_scales_then_turns_then_moves(self):
        use = [0, "INSERT", 2, "Door", 10, 5, 20, 6, 41, 2, 42, -3, 50, 30]
        picture, drawn = self.draw(use, blocks=[[0, "BLOCK", 2, "Door", *self.LINE, 0, "ENDBLK"]])
        [found] = drawn.findall(f"{SVG}use")
        self.assertEqual(found.get("transform"), "translate(5,-6) rotate(-30) scale(2,-3)")
        self.assertIn("`translate(x,y) rotate(r) scale(sx,sy)`", self.rules)
        self.assertEqual(picture.find(f".//{SVG}symbol").get("overflow"), "visible")

    def test_the_first_symbol_of_a_name_is_drawn(self):
        circle = [0, "CIRCLE", 10, 0, 20, 0, 40, 1]
        blocks = [[0, "BLOCK", 2, "Door", *entity, 0, "ENDBLK"] for entity in (self.LINE, circle)]
        picture, drawn = self.draw([0, "INSERT", 2, "Door"], blocks=blocks)
        target = drawn.find(f"{SVG}use").get("{http://www.w3.org/1999/xlink}href")[1:]
        symbol = picture.find(f".//{SVG}symbol[@id='{target}']")
        self.assertEqual([element.tag for element in symbol], [SVG + "line"])

    def test_what_is_not_finite_is_left_out_and_a_negative_radius_is_drawn(self):
        circles = [[0, "CIRCLE", 10, 0, 20, 0, 40, radius] for radius in ("-2", "1e39", "3")]
        _, drawn = self.draw(*circles)
        self.assertEqual([circle.get("r") for circle in drawn.findall(f"{SVG}circle")], ["2", "3"])


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
        self.assertEqual(names, {"draw.c", "CMakeLists.txt", "load.c", "load_windows.c", "drawing.dxf"})
        self.assertEqual(len(blocks(r"\w*")), len(names) + len(blocks("sh")) + 1)

    def test_every_link_leads_somewhere(self):
        for link in re.findall(r"\]\(([^)#]+)\)", document()):
            self.assertTrue(os.path.exists(os.path.join(ROOT, "docs", link)), link)

    def test_every_file_that_is_named_is_there(self):
        for name in re.findall(r"`((?:examples|entry|host|prepare|svghost)/[\w./]+)`", document()):
            found = [base for base in ("", "src") if os.path.exists(os.path.join(ROOT, base, name))]
            self.assertTrue(found, name)

    def test_every_operation_is_described(self):
        with open(os.path.join(ROOT, "src", "host", "QuillmarLib.def"), encoding="utf-8") as file:
            operations = [line.strip() for line in file if line.startswith(" ")]
        table = document().split("### The operations")[1].split("###")[0]
        self.assertEqual([name for name in operations if f"`{name}" not in table], [])

    def test_every_attribute_is_described_and_no_other(self):
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
        message = re.search(r'"DXF", \d+, "(.*?)"', recorded_calls()).group(1)
        printed, pictures = [], []
        for command in (line for block in blocks("sh") for line in block.splitlines()):
            code, out, errors = run_text("sh", "-c", command.replace("/opt/plexorn", prefix), cwd=self.folder)
            messages = message + "\n" if "/draw " in command else ""
            self.assertEqual((code, errors), (0, messages), command)
            printed.append((command, out))
            if messages:
                with open(os.path.join(self.folder, "drawing.svg"), "rb") as file:
                    pictures.append(file.read())
        self.assertEqual(pictures, pictures[:1] * 2)
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
            self.skipTest("a window would say so")
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
