"""Binary drawings are drawn as their text form is."""
import os
import struct

from command_support import CommandTest, DRAWING, dxf

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
FOLDERS = (os.path.join(ROOT, "examples"), os.path.join(ROOT, "..", "shared", "corpus"))
SENTINEL = b"AutoCAD Binary DXF\r\n\x1a\0"

# What values are, by group code.
TEXT, REAL, BOOL, INT16, INT32, INT64, CHUNK = range(7)
KINDS = ((0, 9, TEXT), (10, 59, REAL), (60, 89, INT16), (90, 99, INT32), (100, 109, TEXT), (110, 149, REAL),
         (160, 169, INT64), (170, 179, INT16), (210, 239, REAL), (270, 289, INT16), (290, 299, BOOL), (300, 309, TEXT),
         (310, 319, CHUNK), (320, 369, TEXT), (370, 389, INT16), (390, 399, TEXT), (400, 409, INT16), (410, 419, TEXT),
         (420, 429, INT32), (430, 439, TEXT), (440, 459, INT32), (460, 469, REAL), (470, 481, TEXT), (999, 1003, TEXT),
         (1004, 1004, CHUNK), (1005, 1009, TEXT), (1010, 1059, REAL), (1060, 1070, INT16), (1071, 1071, INT32))
PACKED = {REAL: "<d", BOOL: "<B", INT16: "<H", INT32: "<I", INT64: "<Q"}


def value_bytes(code, value):
    kind = next(kind for first, last, kind in KINDS if first <= code <= last)
    if kind == TEXT:
        return value + b"\0"
    if kind == CHUNK:
        chunk = bytes.fromhex(value.decode())
        return bytes([len(chunk)]) + chunk
    if kind == REAL:
        return struct.pack("<d", float(value))
    size = struct.calcsize(PACKED[kind])
    return struct.pack(PACKED[kind], int(value) % (1 << 8 * size))


def code_bytes(code, is_wide):
    if is_wide:
        return struct.pack("<H", code)
    return bytes([code]) if code < 255 else b"\xff" + struct.pack("<H", code)


def binary(content, is_wide):
    """The binary form of a text drawing; codes have two bytes, or one as before R13."""
    lines = content.replace(b"\r\n", b"\n").split(b"\n")
    pairs = ((int(lines[at]), lines[at + 1]) for at in range(0, len(lines) - 1, 2))
    return SENTINEL + b"".join(code_bytes(code, is_wide) + value_bytes(code, value) for code, value in pairs)


class Binary(CommandTest):
    AS_IS = False

    def picture(self, content):
        self.write("plan.dxf", content)
        self.assertIn(self.plexorn("plan.dxf", "-q").returncode, (0, 6))
        return self.read("plan.svg")

    def test_both_forms_of_codes_give_the_picture_of_the_text(self):
        paths = [os.path.join(folder, name) for folder in FOLDERS if os.path.isdir(folder)
                 for name in sorted(os.listdir(folder)) if name.endswith(".dxf")]
        compared = 0
        for path in paths:
            with open(path, "rb") as file:
                content = file.read()
            if len(content) > 400_000:
                continue
            try:
                forms = binary(content, False), binary(content, True)
            except (StopIteration, ValueError):
                continue  # broken, or binary already
            with self.subTest(drawing=os.path.basename(path)):
                expected = self.picture(content)
                self.assertIn("<svg", expected)
                for form in forms:
                    self.assertEqual(self.picture(form), expected)
                compared += 1
        self.assertGreater(compared, 1)

    def test_the_last_line_counts_its_entities(self):
        for content in (DRAWING, binary(DRAWING, False), binary(DRAWING, True), DRAWING.decode().encode("utf-16")):
            self.write("plan.dxf", content)
            self.assertIn("to plan.svg, 1 entity shown, 0 messages", self.expect(0, "plan.dxf"))

    def test_a_form_that_the_module_does_not_read_is_refused_as_is(self):
        for content, kind in ((binary(DRAWING, True), "is a binary DXF"), (DRAWING.decode().encode("utf-16"), "is a UTF-16")):
            self.write("plan.dxf", content)
            self.assertIn(f"plan.dxf: {kind}", self.expect(4, "--as-is", "plan.dxf"))

    def test_one_with_nothing_in_it(self):
        for content in (SENTINEL, "\ufeff".encode("utf-16-le")):
            self.write("plan.dxf", content)
            self.assertEqual(self.expect(6, "-q", "plan.dxf"),
                             "plan.dxf: nothing of it is visible: the file ends before any entity\n")
        self.write("plan.dxf", SENTINEL + b"\0\0EOF\0")
        self.assertIn(", no entities, ", self.expect(0, "--strict", "plan.dxf"))

    def test_a_cut_one_is_drawn_as_far_as_it_goes(self):
        whole = binary(dxf(*DRAWING.decode().split("\n")[:-5]), True)
        self.write("plan.dxf", whole[:-3])
        self.assertIn("ends without", self.expect(0, "plan.dxf"))
