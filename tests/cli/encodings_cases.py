"""The encodings of drawings: each byte of each code page is the character that Python's own tables have for it, and stays
so in a drawing for other programs."""
import json
import unicodedata

import command_support
from command_support import CommandTest

# As $DWGCODEPAGE, and as Python calls it.
SINGLE_BYTES = (
    ("ANSI_874", "cp874"), ("ANSI_1250", "cp1250"), ("ANSI_1251", "cp1251"), ("ANSI_1252", "cp1252"),
    ("ANSI_1253", "cp1253"), ("ANSI_1254", "cp1254"), ("ANSI_1255", "cp1255"), ("ANSI_1256", "cp1256"),
    ("ANSI_1257", "cp1257"), ("ANSI_1258", "cp1258"), ("dos437", "cp437"), ("dos850", "cp850"), ("dos852", "cp852"),
    ("dos855", "cp855"), ("dos857", "cp857"), ("dos860", "cp860"), ("dos861", "cp861"), ("dos863", "cp863"),
    ("dos864", "cp864"), ("dos865", "cp865"), ("dos866", "cp866"), ("dos869", "cp869"), ("iso8859-1", "iso8859_1"),
    ("iso8859-2", "iso8859_2"), ("iso8859-3", "iso8859_3"), ("iso8859-4", "iso8859_4"), ("iso8859-5", "iso8859_5"),
    ("iso8859-6", "iso8859_6"), ("iso8859-7", "iso8859_7"), ("iso8859-8", "iso8859_8"), ("iso8859-9", "iso8859_9"),
    ("iso8859-13", "iso8859_13"), ("iso8859-15", "iso8859_15"), ("MACINTOSH", "mac_roman"))
DOUBLE_BYTES = (
    ("ANSI_932", "cp932", "図面の寸法"), ("ANSI_936", "gbk", "图纸尺寸"), ("ANSI_949", "cp949", "도면 치수"),
    ("ANSI_950", "cp950", "圖紙尺寸"), ("ANSI_1361", "johab", "도면 치수"), ("BIG5", "big5", "圖紙尺寸"),
    ("GB2312", "gb2312", "图纸尺寸"), ("KSC5601", "euc_kr", "도면 치수"), ("SHIFT_JIS", "shift_jis", "図面の寸法"))


def drawing(page, texts):
    """A drawing with these texts, which are bytes."""
    head = ("0", "SECTION", "2", "HEADER", "9", "$ACADVER", "1", "AC1015", "9", "$DWGCODEPAGE", "3", page,
            "0", "ENDSEC", "0", "SECTION", "2", "TABLES", "0", "ENDSEC", "0", "SECTION", "2", "BLOCKS", "0", "ENDSEC",
            "0", "SECTION", "2", "ENTITIES")
    lines = [line.encode() for line in head]
    for number, text in enumerate(texts):
        lines += [b"0", b"TEXT", b"8", b"0", b"10", b"0", b"20", b"%d" % number, b"40", b"1", b"1", text]
    return b"\n".join([*lines, b"0", b"ENDSEC", b"0", b"EOF", b""])


def composed(text):
    """An accent after its letter may be one character with it."""
    return unicodedata.normalize("NFC", text)


def between_letters(byte):
    return b"a" + bytes([byte]) + b"b"


# All but what ends a line or its text, or the file where it begins one.
BYTES = [byte for byte in range(256) if byte not in (0x00, 0x0A, 0x0D, 0x1A)]


class Encodings(CommandTest):
    AS_IS = False
    # Of which the systems' tables have other characters than Python's; and a text in ASCII alone is just that.
    OTHERS = {"mac_roman": (0xC6, 0xF0), "cp864": (0x25,)}

    def texts(self, name):
        result = self.plexorn("info", "--json", "--texts", name)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        return json.loads(result.stdout)

    def test_texts_and_names_are_read_alike_however_the_code_page_is_known(self):
        japanese = "図面の寸法と設備の配置を示す。"
        named = drawing("ANSI_932", [japanese.encode("cp932")] * 3).replace(b"\n8\n0\n", "\n8\n図面\n".encode("cp932"))
        unnamed = named.replace(b"9\n$DWGCODEPAGE\n3\nANSI_932\n", b"")
        head, rest = named.split(b"0\nSECTION\n2\nTABLES", 1)
        late = (b"0\nSECTION\n2\nTABLES" + rest).replace(b"0\nEOF\n", head + b"0\nEOF\n")
        for content in (named, unnamed, late):
            self.write("plan.dxf", content)
            info = self.texts("plan.dxf")
            self.assertEqual([(text["text"], text["layer"]) for text in info["texts"]], [(japanese, "図面")] * 3)
            self.assertEqual([layer["name"] for layer in info["layers"]], ["図面"])
            self.assertIn("図面", self.plexorn("info", "plan.dxf").stdout)

    def test_every_byte_of_every_code_page_is_its_character(self):
        if command_support.EMULATOR:
            self.skipTest("the tables of that system differ in bytes that have no character")
        for page, codec in SINGLE_BYTES:
            with self.subTest(page=page):
                tried = [byte for byte in BYTES if byte not in self.OTHERS.get(codec, ())]
                self.write("plan.dxf", drawing(page, map(between_letters, tried)))
                info = self.texts("plan.dxf")
                found = [text["text"] for text in info["texts"]]
                wanted = [between_letters(byte).decode(codec, "replace") for byte in tried]
                self.assertEqual([composed(text) for text in found], [composed(text) for text in wanted])
                replaced = sum("\ufffd" in text for text in wanted)
                notes = [note for note in info["notes"] if "U+FFFD" in note]
                self.assertEqual(len(notes), 1 if replaced else 0)
                if replaced > 1:
                    self.assertIn(f"({replaced} times)", notes[0])

    def test_a_drawing_of_each_code_page_stays_the_same_for_other_programs(self):
        for page, codec, *words in (*SINGLE_BYTES, *DOUBLE_BYTES):
            with self.subTest(page=page):
                upper = bytes(byte for byte in range(0xA0, 256) if byte not in self.OTHERS.get(codec, ()))
                letters = words[0] if words else "".join(
                    letter for letter in upper.decode(codec, "ignore") if unicodedata.category(letter)[0] in "LSP")
                self.assertGreater(len(letters), 3)
                self.write("plan.dxf", drawing(page, [letters.encode(codec)]))
                self.assertEqual(self.plexorn("prepare", "--for", "standard", "plan.dxf", "-o", "again.dxf").returncode, 0)
                read = self.texts("plan.dxf")["texts"][0]["words"]
                if not command_support.EMULATOR:  # see above
                    self.assertEqual(read, letters)
                self.assertEqual(self.texts("again.dxf")["texts"][0]["words"], read)

    def test_what_is_utf_8_is_read_as_that_and_reported(self):
        self.write("plan.dxf", drawing("ANSI_1252", ["Стена".encode(), b"T\xfcr", "Tür".encode()]))
        info = self.texts("plan.dxf")
        self.assertEqual([text["words"] for text in info["texts"]], ["Стена", "Tür", "Tür"])
        self.assertEqual([note for note in info["notes"] if "UTF-8" in note],
                         ["line 42: file: a text is UTF-8, not in the drawing's code page (2 times)"])
