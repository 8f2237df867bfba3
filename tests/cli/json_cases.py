"""Messages for programs, and how many of them are printed."""
import json

from command_support import CommandTest, DRAWING, DRAWING_WITH_MESSAGE, LINE, SOLID_MESSAGE, dxf, entities


class Json(CommandTest):
    def objects(self, code, *arguments):
        printed = self.expect(code, "--messages=json", *arguments)
        return [json.loads(line) for line in printed.splitlines()]

    def test_a_message_is_an_object(self):
        self.write("plan.dxf", DRAWING_WITH_MESSAGE)
        message, drawn = self.objects(0, "plan.dxf")
        self.assertEqual(message, {"type": "message", "file": "plan.dxf", "line": 6, "kind": 6, "code": 0,
                                   "text": SOLID_MESSAGE})
        self.assertEqual(drawn.pop("milliseconds") >= 0, True)
        self.assertEqual(drawn, {"type": "drawn", "file": "plan.dxf", "picture": "plan.svg", "elements": 1,
                                 "messages": 1, "unit": None, "width": None, "height": None, "scale": None,
                                 "filled": 1, "cropped": False,
                                 "sizing": "the drawing states no unit", "findings": {}, "skipped": {},
                                 "share": {"entities": 2, "shown": 1, "percent": 50, "missing": {"SOLID": 1},
                                           "otherwise": {}, "hidden": {}}, "holes": None, "blank": False,
                                 "unmarkedEntry": None, "ended": True, "textsNotUtf8": 0,
                                 "replacedOther": False})

    def test_a_file_without_an_end_is_reported(self):
        self.write("plan.dxf", DRAWING[:-len("  0\nEOF\n")])
        self.assertIs(self.objects(0, "plan.dxf")[0]["ended"], False)
        self.write("plan.dxf", dxf("0", "SECTION", "2", "ENTITIES", "0", "EOF"))
        self.assertIs(self.objects(0, "plan.dxf")[-1]["ended"], True)

    def test_a_message_without_a_line_has_null(self):
        part = ("100", "AcDbDimension")
        self.write("plan.dxf", entities("0", "DIMENSION", *part, *part))
        self.assertIsNone(self.objects(6, "plan.dxf")[0]["line"])

    def test_a_long_word_of_the_drawing_is_shortened_in_each_message(self):
        marker = "M" * 100 + "\u00e9" * 450
        codes = [line for code in range(771, 774) for line in (str(code), "1")]
        self.write("plan.dxf", entities("0", "LINE", "100", marker, *codes))
        messages = [message for message in self.objects(0, "plan.dxf") if message["type"] == "message"]
        self.assertEqual([message["line"] for message in messages], [10, 12, 14])
        for message in messages:
            self.assertRegex(message["text"], r"^ReadENTITIES_COMMON Unknown Dimension type M{100}[^M]{20,}\u2026$")
            self.assertLess(len(message["text"].encode("utf-8")), 250)

    def test_every_message_is_an_object(self):
        self.write("plan.dxf", entities(*("0", "SOLID") * 50, *LINE))
        self.assertEqual([message["line"] for message in self.objects(0, "plan.dxf")[:-1]], list(range(6, 106, 2)))

    def test_a_drawing_that_is_skipped_is_an_object(self):
        self.AS_IS = False
        self.write("plan.dxf")
        self.write("plan.svg", b"mine")
        self.assertEqual(self.objects(0, "--no-clobber", "plan.dxf"),
                         [{"type": "skipped", "file": "plan.dxf", "picture": "plan.svg", "text": "exists"}])
        self.assertIs(self.objects(0, "plan.dxf")[-1]["replacedOther"], True)
        self.assertIs(self.objects(0, "plan.dxf")[-1]["replacedOther"], False)

    def test_texts_of_every_kind_stay_json(self):
        for name in ('A"\\\x1b\t', "Tür", "\u2028", "\u2029"):
            self.write("plan.dxf", entities("0", name))
            self.assertEqual(self.objects(6, "plan.dxf")[0]["type"], "message")

    def test_failures_and_the_total_are_objects(self):
        self.write("a.dxf")
        self.write("b.dxf", b"")
        self.write("c.dxf", entities("0", "HATCH", "0", "INSERT", "2", "NOWHERE"))
        a, b, doubtful, c, total = self.objects(5, "a.dxf", "b.dxf", "c.dxf")
        self.assertEqual(a["type"], "drawn")
        self.assertEqual(b, {"type": "failed", "file": "b.dxf", "exit": 4, "text": "is empty"})
        self.assertEqual((doubtful["file"], doubtful["exit"]), ("c.dxf", 6))
        self.assertEqual(c["findings"], {"insertsOfMissingBlocks": 1})
        self.assertEqual(c["skipped"], {"HATCH": 1})
        self.assertGreaterEqual(total.pop("milliseconds"), 0)
        self.assertEqual(total, {"type": "total", "drawn": 2, "blank": 1, "skipped": 0, "failed": 1, "messages": 0})

    def test_names_of_every_kind(self):
        self.write("план 'ß'.dxf")
        self.assertEqual(self.objects(0, "план 'ß'.dxf")[0]["picture"], "план 'ß'.svg")


class MaxMessages(CommandTest):
    def test_the_rest_is_counted(self):
        self.write("plan.dxf", entities(*LINE, *("0", "SOLID") * 1237))
        lines = self.expect(0, "--verbose", "--max-messages", "3", "plan.dxf").splitlines()
        self.assertEqual([line.split(":")[1] for line in lines[:3]], ["18", "20", "22"])
        self.assertEqual(lines[3], "plan.dxf: … and 1234 more")
        self.assertIn(", 1237 messages, ", lines[4])
        self.assertEqual(len(lines), 5)

    def test_each_drawing_has_its_own_share(self):
        for name in ("a.dxf", "b.dxf"):
            self.write(name, entities(*LINE, *("0", "SOLID") * 5))
        printed = self.expect(0, "--verbose", "--max-messages=2", "a.dxf", "b.dxf")
        self.assertIn("a.dxf: … and 3 more\n", printed)
        self.assertIn("b.dxf: … and 3 more\n", printed)
        self.assertIn("2 drawn, 0 failed, 10 messages", printed)

    def test_nothing_is_added_when_all_are_printed(self):
        self.write("plan.dxf", DRAWING_WITH_MESSAGE)
        self.assertNotIn("more", self.expect(0, "--max-messages", "1", "plan.dxf"))
        self.assertEqual(self.expect(0, "-q", "--max-messages", "0", "plan.dxf"), "")

    def test_the_rest_is_an_object_for_programs(self):
        self.write("plan.dxf", entities(*LINE, *("0", "SOLID") * 5))
        lines = self.expect(0, "--messages=json", "--max-messages=1", "plan.dxf").splitlines()
        self.assertEqual(json.loads(lines[1]), {"type": "more", "file": "plan.dxf", "messages": 4})

    def test_what_is_skipped_without_a_message_is_reported(self):
        self.write("plan.dxf", entities(*LINE, *("0", "HATCH") * 3, "0", "SPLINE", "0", "SOLID"))
        self.assertIn("; missing: 3 HATCH, 1 SOLID, 1 SPLINE\n", self.expect(0, "plan.dxf"))
