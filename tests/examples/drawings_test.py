"""The example drawings and the generated ones: written the same every time, and whole."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True

from dxf_pairs import Drawing, pairs  # noqa: E402

ROOT = pathlib.Path(__file__).resolve().parents[2]
EXAMPLES = ROOT / "examples"
GENERATE = ROOT / "bench" / "generate.py"
KINDS = ["mixed", "unblocked", "lines", "polylines", "texts", "dimensions", "layers", "blocks"]
DRAWN = {"LINE", "ARC", "CIRCLE", "ELLIPSE", "LWPOLYLINE", "TEXT", "MTEXT", "INSERT", "DIMENSION"}


def run(script, *arguments):
    return subprocess.run([sys.executable, "-B", str(script), *map(str, arguments)], capture_output=True, text=True)


class Checks(unittest.TestCase):
    """What holds for every drawing of ours."""

    def check_names(self, drawing):
        layers, ltypes, blocks = set(drawing.table("LAYER")), set(drawing.table("LTYPE")), set(drawing.blocks())
        self.assertEqual(blocks, set(drawing.table("BLOCK_RECORD")))
        self.assertEqual(len(blocks), len(drawing.blocks()), "a block is defined twice")
        for record in drawing.graphics():
            self.assertIn(record.first(8), layers)
            self.assertIn(record.first(6, "ByLayer"), ltypes)
            if record.kind in ("INSERT", "DIMENSION"):
                self.assertIn(record.first(2), blocks)

    def check_handles(self, drawing):
        handles = [record.first(105 if record.kind == "DIMSTYLE" else 5)
                   for record in drawing.records if record.section in ("TABLES", "BLOCKS", "ENTITIES", "OBJECTS")
                   and record.kind not in ("SECTION", "ENDSEC", "ENDTAB", "EOF")]
        self.assertNotIn(None, handles)
        self.assertEqual(len(handles), len(set(handles)), "a handle is used twice")
        for record in drawing.records:
            if record.section in ("BLOCKS", "ENTITIES"):
                self.assertTrue(set(record.values(330)) <= set(handles))

    def check_depth(self, drawing, least):
        """No block draws itself, and some block reaches `least` blocks down."""
        inserted = {name: set() for name in drawing.blocks()}
        for record in drawing.graphics():
            if record.kind == "INSERT" and record.block:
                inserted[record.block].add(record.first(2))
        depth, left = {}, set(inserted)
        while left:
            ready = {name for name in left if inserted[name] <= depth.keys()}
            self.assertTrue(ready, "blocks insert one another in a circle: %s" % sorted(left))
            for name in ready:
                depth[name] = 1 + max((depth[inner] for inner in inserted[name]), default=0)
            left -= ready
        self.assertGreaterEqual(max(depth.values()), least)


class ExampleDrawings(Checks):
    @classmethod
    def setUpClass(cls):
        cls.plan = Drawing((EXAMPLES / "floor-plan.dxf").read_bytes())
        cls.part = Drawing((EXAMPLES / "machine-part.dxf").read_bytes())
        cls.sheet = Drawing((EXAMPLES / "part-sheet.dxf").read_bytes())

    def test_the_script_writes_the_files_beside_it(self):
        with tempfile.TemporaryDirectory() as folder:
            made = run(EXAMPLES / "make_drawings.py", folder)
            self.assertEqual((made.returncode, made.stderr), (0, ""))
            names = sorted(path.name for path in pathlib.Path(folder).iterdir())
            self.assertEqual(names, sorted(path.name for path in EXAMPLES.glob("*.dxf")))
            for name in names:
                self.assertTrue(pathlib.Path(folder, name).read_bytes() == (EXAMPLES / name).read_bytes(),
                                name + " differs: run examples/make_drawings.py")

    def test_one_file_has_each_kind_of_line_end(self):
        self.assertFalse(self.plan.crlf)
        self.assertTrue(self.part.crlf)

    def test_files_end_where_they_say_so(self):
        for drawing in (self.plan, self.part, self.sheet):
            self.assertEqual(drawing.records[-1].kind, "EOF")
            self.assertEqual(drawing.records[-1].pairs, [])

    def test_layers_line_types_and_blocks_in_use_are_defined(self):
        self.check_names(self.plan)
        self.check_names(self.part)
        self.check_names(self.sheet)

    def test_handles_are_unique_and_owners_exist(self):
        self.check_handles(self.plan)
        self.check_handles(self.part)
        self.check_handles(self.sheet)

    def test_blocks_nest_without_a_circle(self):
        self.check_depth(self.plan, 3)
        self.check_depth(self.part, 2)

    def test_every_entity_that_is_drawn_occurs_and_no_other(self):
        for drawing in (self.plan, self.part):
            self.assertEqual({record.kind for record in drawing.graphics()}, DRAWN)

    def test_a_sheet_has_windows_of_two_scales_one_of_them_cut_along_a_circle(self):
        windows = [record for record in self.sheet.graphics() if record.kind == "VIEWPORT" and record.first(69) != "1"]
        self.assertEqual([float(record.first(41)) / float(record.first(45)) for record in windows], [1, 4])
        outline = windows[1].first(340)
        self.assertEqual([record.kind for record in self.sheet.graphics() if record.first(5) == outline], ["CIRCLE"])

    def test_every_justification_of_text_occurs(self):
        texts = [record for record in self.plan.graphics() if record.kind == "TEXT"]
        self.assertEqual({record.first(72, "0").strip() for record in texts}, set("012345"))
        mtexts = [record for record in self.plan.graphics() if record.kind == "MTEXT"]
        self.assertLessEqual(set("123"), {record.first(71) for record in mtexts})

    def test_every_kind_of_dimension_that_is_drawn_occurs(self):
        markers = {record.values(100)[-1] for drawing in (self.plan, self.part) for record in drawing.graphics()
                   if record.kind == "DIMENSION"}
        self.assertEqual(markers, {"AcDbAlignedDimension", "AcDbRotatedDimension", "AcDbRadialDimension",
                                   "AcDbDiametricDimension", "AcDb2LineAngularDimension"})

    def test_inserts_are_turned_and_mirrored(self):
        inserts = [record for record in self.plan.graphics() if record.kind == "INSERT"]
        self.assertTrue(any(float(record.first(50, "0")) for record in inserts))
        self.assertTrue(any(float(record.first(41, "1")) < 0 for record in inserts))
        self.assertTrue(any(float(record.first(42, "1")) < 0 for record in inserts))

    def test_texts_come_in_several_scripts_and_with_characters_that_markup_reserves(self):
        text = "".join(record.first(1, "") for record in self.part.graphics())
        for sample in ("Φλάντζα", "Фланец", "法兰盘", "Příruba", "<", "&", '"'):
            self.assertIn(sample, text)


class GeneratedDrawings(Checks):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.data = {kind: cls.make(kind, "0.6") for kind in KINDS}
        cls.drawings = {kind: Drawing(data) for kind, data in cls.data.items()}

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    @classmethod
    def make(cls, kind, size, *options):
        path = pathlib.Path(cls.folder.name, "drawing.dxf")
        made = run(GENERATE, kind, size, path, *options)
        if made.returncode or made.stderr:
            raise AssertionError(made.stderr)
        return path.read_bytes()

    def test_the_same_arguments_give_the_same_bytes(self):
        for kind in KINDS:
            self.assertTrue(self.make(kind, "0.6") == self.data[kind], kind)

    def test_another_seed_gives_another_drawing(self):
        for kind in KINDS:
            self.assertFalse(self.make(kind, "0.6", "--seed", "2") == self.data[kind], kind)

    def test_the_size_is_reached_within_one_per_cent(self):
        for kind in KINDS:
            self.assertLessEqual(abs(len(self.data[kind]) - 600_000), 6_000, kind)
            self.assertLessEqual(abs(len(self.make(kind, "2.5", "--crlf")) - 2_500_000), 25_000, kind)

    def test_line_ends_are_as_asked(self):
        self.assertFalse(self.drawings["mixed"].crlf)
        self.assertTrue(Drawing(self.make("mixed", "0.6", "--crlf")).crlf)

    def test_layers_line_types_and_blocks_in_use_are_defined(self):
        for drawing in self.drawings.values():
            self.check_names(drawing)

    def test_handles_are_unique_and_owners_exist(self):
        for drawing in self.drawings.values():
            self.check_handles(drawing)

    def test_blocks_nest_without_a_circle(self):
        self.check_depth(self.drawings["mixed"], 3)
        self.check_depth(self.drawings["blocks"], 2)

    def test_a_mixed_drawing_holds_every_entity_that_is_drawn_and_no_other(self):
        self.assertEqual({record.kind for record in self.drawings["mixed"].graphics()}, DRAWN)

    def test_a_drawing_of_one_kind_holds_that_kind(self):
        for kind, expected in (("lines", {"LINE"}), ("polylines", {"LWPOLYLINE"}), ("dimensions", {"DIMENSION"}),
                               ("texts", {"TEXT", "MTEXT", "INSERT"}), ("blocks", {"INSERT"})):
            found = {record.kind for record in self.drawings[kind].graphics() if record.section == "ENTITIES"}
            self.assertEqual(found, expected)

    def test_every_layer_has_something_on_it_and_every_block_is_inserted(self):
        layers = self.drawings["layers"]
        used = {record.first(8) for record in layers.graphics() if record.section == "ENTITIES"}
        self.assertEqual(used, set(layers.table("LAYER")))
        self.assertGreater(len(used), 1000)
        blocks = self.drawings["blocks"]
        inserted = {record.first(2) for record in blocks.graphics() if record.section == "ENTITIES"}
        self.assertEqual(inserted, {name for name in blocks.blocks() if not name.startswith("*")})
        self.assertGreater(len(inserted), 400)

    def test_no_line_is_longer_than_readers_take(self):
        for kind, data in self.data.items():
            self.assertLess(max(map(len, data.split(b"\n"))), 1023, kind)

    def test_wrong_arguments_are_refused(self):
        for arguments in (["spirals", "1", "x.dxf"], ["lines", "0.01", "x.dxf"], ["lines", "1"]):
            made = run(GENERATE, *arguments)
            self.assertEqual(made.returncode, 2)
            self.assertIn("usage", made.stderr)


class PairReading(unittest.TestCase):
    """The checks above rely on this reader: it has to see what is broken."""

    def test_a_value_without_its_code_is_seen(self):
        with self.assertRaises(ValueError):
            pairs("0\nSECTION\n2\n")
        with self.assertRaises(ValueError):
            pairs("0\nSECTION\nHEADER\n2\n")

    def test_mixed_line_ends_are_seen(self):
        with self.assertRaises(ValueError):
            Drawing(b"0\r\nSECTION\n2\r\nHEADER\r\n")


if __name__ == "__main__":
    unittest.main()
