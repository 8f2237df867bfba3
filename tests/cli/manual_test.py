"""The manual's pages: each example runs as shown, each option of the help has its example."""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
BIN = os.path.join(ROOT, "build", "release", "bin")


def page(name):
    with open(os.path.join(ROOT, "docs", name), encoding="utf-8") as file:
        return file.read()


def commands(name):
    blocks = re.findall(r"^```sh\n(.*?)^```$", page(name), re.MULTILINE | re.DOTALL)
    return [line for block in blocks for line in block.splitlines()]


def options(*command):
    text = subprocess.run([os.path.join(BIN, "plexorn"), *command, "--help"], capture_output=True, text=True,
                          check=True).stdout
    return [name for pair in re.findall(r"^  (?:(-\w),)?(--[\w-]+)", text, re.MULTILINE) for name in pair if name]


class PageTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="plexorn-manual-")
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        os.mkdir(os.path.join(self.folder, "examples"))
        os.makedirs(os.path.join(self.folder, "drawings", "a b"))
        for name in ("floor-plan.dxf", "machine-part.dxf"):
            drawing = os.path.join(ROOT, "examples", name)
            shutil.copy(drawing, os.path.join(self.folder, "examples"))
            shutil.copy(drawing, os.path.join(self.folder, "drawings"))
            shutil.copy(drawing, os.path.join(self.folder, "drawings", "a b", "copy-of-" + name))
        shutil.copy(os.path.join(ROOT, "examples", "part-sheet.dxf"), os.path.join(self.folder, "examples"))
        # What parallel remembers of the user who runs the test is no matter here.
        self.environment = {**os.environ, "PATH": BIN + os.pathsep + os.environ["PATH"], "HOME": self.folder}

    def run_page(self, name):
        """Runs the page's commands in their order; what each one printed."""
        outputs = {}
        for command in commands(name):
            with self.subTest(command=command):
                result = subprocess.run(["bash", "-c", "set -o pipefail; " + command], cwd=self.folder,
                                        capture_output=True, text=True, env=self.environment, stdin=subprocess.DEVNULL)
                self.assertEqual(result.returncode, 0, result.stderr)
                outputs[command] = result.stdout
        return outputs

    def pictures(self, folder):
        return sorted(os.path.relpath(os.path.join(parent, name), os.path.join(self.folder, folder))
                      for parent, _, names in os.walk(os.path.join(self.folder, folder)) for name in names
                      if name.endswith(".svg"))


class Manual(PageTest):
    def test_every_example_runs(self):
        self.assertGreater(len(self.run_page("manual.md")), 30)
        self.assertLessEqual({"floor-plan.svg", "machine-part.svg"}, set(self.pictures("pictures")))

    def test_every_option_has_an_example(self):
        self.assertGreater(len(options()), 20)
        def named(line):
            return [word for word in ("info", "prepare") if f"plexorn {word} " in line]
        for command in ([], ["info"], ["prepare"]):
            words = {re.sub(r"=.*", "", word) for line in commands("manual.md") for word in line.split()
                     if named(line) == command}
            self.assertEqual([option for option in options(*command) if option not in words], [])

    def test_every_unit_is_in_it(self):
        result = subprocess.run([os.path.join(BIN, "plexorn"), "x.dxf", "--units", "?"], capture_output=True, text=True)
        units = re.search(r"one of (.*)", result.stderr).group(1).split()
        self.assertEqual(len(units), 24)
        self.assertEqual([unit for unit in units if f"`{unit}`" not in page("manual.md")], [])

    def test_exit_codes_are_those_of_the_help(self):
        text = subprocess.run([os.path.join(BIN, "plexorn"), "--help"], capture_output=True, text=True).stdout
        codes = re.findall(r"^  (\d) ", text, re.MULTILINE)
        self.assertEqual(re.findall(r"^\| (\d) \|", page("manual.md"), re.MULTILINE), codes)
        self.assertEqual(codes, ["0", "1", "2", "3", "4", "5", "6"])


class ManyDrawings(PageTest):
    PICTURES = ["a b/copy-of-floor-plan.svg", "a b/copy-of-machine-part.svg", "floor-plan.svg", "machine-part.svg"]

    @unittest.skipUnless(shutil.which("parallel"), "there is no parallel; scripts/setup test installs it")
    def test_every_example_runs(self):
        outputs = self.run_page("many-drawings.md")
        self.assertLessEqual(set(self.PICTURES), set(self.pictures("pictures")))
        self.assertEqual(self.pictures("drawings"), self.PICTURES)
        [dry] = [text for command, text in outputs.items() if "--dryrun" in command]
        self.assertEqual(dry.count("plexorn -q "), 4)
        self.assertIn("4\n", outputs.values())
        self.assertEqual(len([name for parent, _, names in os.walk(self.folder) for name in names
                              if name.endswith(".svgz")]), 4)


class Links(unittest.TestCase):
    def test_every_link_leads_somewhere(self):
        for name in ("manual.md", "many-drawings.md"):
            for link in re.findall(r"\]\(([^)#]+)\)", page(name)):
                self.assertTrue(os.path.exists(os.path.join(ROOT, "docs", link)), link)


if __name__ == "__main__":
    unittest.main(argv=sys.argv)
