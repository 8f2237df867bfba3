"""The headers for hosts compile as C11 and as C++, without a warning, each by itself, with the argument lists
that are promised."""
import argparse
import os
import subprocess
import sys
import tempfile
import unittest

ARGS = None
HEADERS = ("host/QuillmarLib.h", "host/ReportKinds.h", "entry/dxfFileOpen.h", "svghost/SvgHost.h",
           "prepare/Prepare.h")
WARNINGS = ("-Wall", "-Wextra", "-Wpedantic", "-Werror")
# On Windows the address of an imported function is no constant; a static host's is.
STATIC = "#define QUILLMARLIB_STATIC\n#define PLEXORN_STATIC\n"
LANGUAGES = (("cc", "c", "c11"), ("cxx", "c++", "c++20"))


def compile_text(compiler, language, standard, text):
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "source")
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        command = [compiler, "-x", language, f"-std={standard}", *WARNINGS, "-fsyntax-only",
                   "-I", os.path.join(ARGS.root, "src"), "-I", ARGS.root, path]
        return subprocess.run(command, capture_output=True, text=True)


class Headers(unittest.TestCase):
    def compiles(self, compiler, language, standard, text):
        result = compile_text(compiler, language, standard, text)
        self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_each_compiles_by_itself_and_twice_as_c11(self):
        for header in HEADERS:
            with self.subTest(header=header):
                line = f'#include "{header}"\n'
                self.compiles(ARGS.cc, "c", "c11", line + line + "extern int unused;\n")

    def test_each_compiles_by_itself_and_twice_as_cpp20(self):
        for header in HEADERS:
            with self.subTest(header=header):
                line = f'#include "{header}"\n'
                self.compiles(ARGS.cxx, "c++", "c++20", line + line)

    def interface(self):
        with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), "host_interface.c"), encoding="utf-8") as f:
            return f.read()

    def test_the_operations_have_the_promised_arguments(self):
        for compiler, language, standard in LANGUAGES:
            with self.subTest(language=language):
                self.compiles(getattr(ARGS, compiler), language, standard, STATIC + self.interface())

    def test_another_argument_list_would_be_seen(self):
        text = self.interface().replace("float, float) = qlmCreatePath", "float, double) = qlmCreatePath")
        self.assertNotEqual(text, self.interface())
        for compiler, language, standard in LANGUAGES:
            with self.subTest(language=language):
                result = compile_text(getattr(ARGS, compiler), language, standard, STATIC + text)
                self.assertNotEqual(result.returncode, 0)
                self.assertIn("qlmCreatePath", result.stderr)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--cc", required=True)
    parser.add_argument("--cxx", required=True)
    parser.add_argument("--root", required=True)
    ARGS, rest = parser.parse_known_args()
    unittest.main(argv=sys.argv[:1] + rest)
