"""The public headers explain everything that they declare: Doxygen, to which a gap is an error, finds none."""
import argparse
import os
import re
import subprocess
import sys
import tempfile
import unittest

from example_programs import ROOT

ARGS = None
HEADERS = ("src/host/QuillmarLib.h", "src/entry/dxfFileOpen.h", "svghost/SvgHost.h")


def doxygen(folder, **changes):
    """Runs Doxygen into folder, with changed settings."""
    with open(ARGS.doxyfile, encoding="utf-8") as file:
        settings = file.read()
    changes["OUTPUT_DIRECTORY"] = folder
    settings += "".join(f"\n{name} = {value}" for name, value in changes.items())
    return subprocess.run([ARGS.doxygen, "-"], input=settings, capture_output=True, text=True, cwd=folder)


class Doxygen(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="plexorn-doxygen-")
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def test_the_headers_leave_nothing_out(self):
        result = doxygen(self.folder)
        self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_the_pages_have_every_function(self):
        doxygen(self.folder)
        for header in HEADERS:
            with open(os.path.join(ROOT, header), encoding="utf-8") as file:
                functions = re.findall(r"^(?:QUILLMARLIB|PLEXORN)_API [^;(]*?(\w+)\(", file.read(), re.MULTILINE)
            self.assertGreater(len(functions), 0)
            page = os.path.basename(header).replace(".", "_8") + ".html"
            with open(os.path.join(self.folder, "html", page), encoding="utf-8") as file:
                text = file.read()
            self.assertEqual([name for name in functions if f">{name}</a>" not in text], [])

    def test_a_gap_would_be_seen(self):
        with open(os.path.join(ROOT, HEADERS[2]), encoding="utf-8") as file:
            text = file.read()
        gap = re.sub(r"/\*\* The number of reports kept.*?\*/\n", "", text, flags=re.DOTALL)
        self.assertNotEqual(gap, text)
        header = os.path.join(self.folder, "SvgHost.h")
        with open(header, "w", encoding="utf-8") as file:
            file.write(gap)
        result = doxygen(self.folder, INPUT=header, USE_MDFILE_AS_MAINPAGE="")
        self.assertNotEqual(result.returncode, 0)
        self.assertIn("svgHostErrorCount", result.stderr)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--doxygen", required=True)
    parser.add_argument("--doxyfile", required=True)
    ARGS, rest = parser.parse_known_args()
    unittest.main(argv=sys.argv[:1] + rest)
