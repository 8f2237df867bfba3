"""The example programs do what they are shown for."""
import argparse
import os
import re
import sys
import tempfile
import unittest

from example_programs import (DRAWING, FLOOR_PLAN, ROOT, ExamplePrograms, expected_calls, names_of_elements, program,
                              run_text)

ARGS = None


class BuiltHere(ExamplePrograms, unittest.TestCase):
    def setUp(self):
        self.minimal_host = program(ARGS.programs, "minimal_host", ARGS.emulator)
        self.prepare_and_import = program(ARGS.programs, "prepare_and_import", ARGS.emulator)
        self.record_calls = program(os.path.join(ARGS.programs, "own_host"), "record_calls", ARGS.emulator)

    def test_the_calls_are_every_operation_of_the_host(self):
        with open(os.path.join(ROOT, "src", "host", "QuillmarLib.def"), encoding="utf-8") as file:
            operations = {line.strip() for line in file if line.startswith(" ")}
        self.assertEqual(set(re.findall(r"^\w+", expected_calls(), re.MULTILINE)), operations)

    def test_the_minimal_host_draws_what_the_command_draws(self):
        for drawing in (DRAWING, FLOOR_PLAN):
            with self.subTest(drawing=drawing), tempfile.TemporaryDirectory() as folder:
                picture = os.path.join(folder, "picture.svg")
                code, _, messages = run_text(*ARGS.emulator, ARGS.command, drawing, "-o", picture, "--background",
                                             "none", "--units", "none", "--as-is")
                self.assertEqual(code, 0, messages)
                with open(picture, encoding="utf-8") as file:
                    self.assertEqual(run_text(*self.minimal_host, drawing)[1], file.read())

    def test_a_prepared_drawing_shows_what_the_module_passes_over(self):
        with tempfile.TemporaryDirectory() as folder:
            prepared = os.path.join(folder, "prepared.dxf")
            code, svg, messages = run_text(*self.prepare_and_import, DRAWING, prepared)
            self.assertEqual(code, 0, messages)
            self.assertNotIn("Unknown", messages) # the module has nothing to say
            _, before, _ = run_text(*self.minimal_host, DRAWING)
            self.assertNotEqual(svg, before)
            self.assertLessEqual({"svg", "line", "circle", "text"}, names_of_elements(svg))
            self.assertEqual(run_text(*self.minimal_host, prepared), (0, svg, ""))
            code, _, messages = run_text(*self.prepare_and_import, "none.dxf", prepared)
            self.assertEqual((code, messages), (1, "preparing ended with 2\n"))

    @unittest.skipIf(os.name != "posix", "the name goes through the locale")
    def test_a_name_beyond_ascii(self):
        if ARGS.emulator:
            self.skipTest("the code page decides")
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "Türen \U0001f6aa.dxf")
            with open(path, "w", encoding="utf-8") as file:
                file.write("0\nSECTION\n2\nENTITIES\n0\nTEXT\n1\nTür \U0001f6aa\n0\nENDSEC\n0\nEOF\n")
            environment = {**os.environ, "LC_ALL": "C.UTF-8"}
            code, calls, _ = run_text(*self.record_calls, path, env=environment)
            self.assertEqual(code, 0)
            self.assertIn('"Tür \U0001f6aa"', calls)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--programs", required=True)
    parser.add_argument("--command", required=True)
    parser.add_argument("--emulator", nargs=1, default=[])
    ARGS, rest = parser.parse_known_args()
    unittest.main(argv=sys.argv[:1] + rest)
