"""Files that are no ASCII DXF end with exit code 4, and the message says what they are."""
import gzip
import io
import lzma
import tarfile
import zipfile

from command_support import CommandTest, DRAWING


def zip_of(content):
    out = io.BytesIO()
    with zipfile.ZipFile(out, "w") as archive:
        archive.writestr("plan.dxf", content)
    return out.getvalue()


def tar_of(content):
    out = io.BytesIO()
    with tarfile.open(fileobj=out, mode="w") as archive:
        entry = tarfile.TarInfo("12")
        entry.size = len(content)
        archive.addfile(entry, io.BytesIO(content))
    return out.getvalue()


class Sniffing(CommandTest):
    def refused(self, content, reason):
        self.write("plan.dxf", content)
        printed = self.expect(4, "plan.dxf")
        self.assertTrue(printed.startswith(f"plan.dxf: {reason}"), printed)
        self.assertEqual(printed.count("\n"), 1)
        self.assertEqual(self.names(), ["plan.dxf"])

    def drawn(self, content, code=0):
        self.write("plan.dxf", content)
        self.expect(code, "plan.dxf")

    def test_binary_dxf(self):
        self.refused(b"AutoCAD Binary DXF\r\n\x1a\0" + bytes(40), "is a binary DXF")

    def test_dwg_of_every_release(self):
        for release in (b"AC1032", b"AC1015", b"AC1009", b"AC1.50", b"AC2.10", b"MC0.0"):
            self.refused(release + bytes(100), "is a DWG drawing")

    def test_archives(self):
        self.refused(zip_of(DRAWING), "is a ZIP archive")
        self.refused(gzip.compress(DRAWING), "is a gzip archive")
        self.refused(lzma.compress(DRAWING), "is an xz archive")
        self.refused(tar_of(DRAWING), "is a tar archive")
        self.refused(b"7z\xbc\xaf\x27\x1c\0\4" + bytes(30), "is a 7z archive")
        self.refused(b"Rar!\x1a\x07\x01\0" + bytes(30), "is a RAR archive")
        self.refused(b"Rar!\x1a\x07\0" + bytes(30), "is a RAR archive")
        self.refused(b"BZh91AY&SY" + bytes(30), "is a bzip2 archive")
        self.refused(b"\x28\xb5\x2f\xfd" + bytes(30), "is a zstd archive")

    def test_an_empty_file(self):
        self.refused(b"", "is empty")

    def test_blanks_alone(self):
        self.refused(b" \r\n\t\n" * 3000, "holds nothing but blanks")

    def test_what_begins_within_4096_bytes_is_drawn(self):
        for size in (4096, 4097):
            self.refused(b"\n" * size + DRAWING.lstrip(), "holds nothing but blanks where a DXF begins")
        for size in (1, 4095):
            self.drawn(b"\n" * size + DRAWING.lstrip())

    def test_other_texts(self):
        for text in (b"hello\n", b"<svg/>\n", b"{\\rtf1}", b"0 SECTION\n", b"12345\n0\n", b"0.5\n", b"-\n", b"0\0\n"):
            self.refused(text, "is not a DXF")

    def test_utf_16(self):
        self.refused(DRAWING.decode().encode("utf-16"), "is a UTF-16 text")

    def test_group_codes_of_every_writing(self):
        for first in (b"0\n", b"  0\r\n", b"\t0 \n", b"\r\n\n  0\n"):
            self.drawn(first + DRAWING.split(b"\n", 1)[1])
        # The reader knows this one as well, but finds no section that it begins.
        self.drawn(b"000\n" + DRAWING.split(b"\n", 1)[1], code=6)

    def test_a_comment_first(self):
        self.drawn(b"999\nwritten by hand\n" + DRAWING)

    def test_a_byte_order_mark_first(self):
        self.drawn(b"\xef\xbb\xbf" + b"999\nwritten by hand\n" + DRAWING)

    def test_a_group_code_without_a_line_end(self):
        self.drawn(b"0", code=6)
