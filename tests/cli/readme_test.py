"""What the README shows is run as shown."""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
FIRST_COMMANDS = ["scripts/import examples/floor-plan.dxf", "scripts/test"]
SVG = "{http://www.w3.org/2000/svg}"


def code_blocks(language):
    with open(os.path.join(ROOT, "README.md"), encoding="utf-8") as file:
        return re.findall(rf"^```{language}\n(.*?)^```$", file.read(), re.MULTILINE | re.DOTALL)


def commands():
    return [line for block in code_blocks("sh") for line in block.splitlines()]


class Readme(unittest.TestCase):
    def setUp(self):
        # A checkout whose scripts and build are this one's, so that pictures of the test stay out of the tree.
        folder = tempfile.TemporaryDirectory(prefix="plexorn-readme-")
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        # Of the build's folder only what is built: a result of an older run is not there.
        os.mkdir(os.path.join(self.folder, "build"))
        for name in ("scripts", "build/release"):
            os.symlink(os.path.join(ROOT, name), os.path.join(self.folder, name))
        os.mkdir(os.path.join(self.folder, "examples"))
        for name in os.listdir(os.path.join(ROOT, "examples")):
            if name.endswith(".dxf"):
                shutil.copy(os.path.join(ROOT, "examples", name), os.path.join(self.folder, "examples"))

    def run_shown(self, command):
        return subprocess.run(command, shell=True, cwd=self.folder, capture_output=True, text=True)

    def picture(self, name):
        return ElementTree.parse(os.path.join(self.folder, name)).getroot()

    def test_the_two_commands_come_first(self):
        self.assertEqual(code_blocks("sh")[0].splitlines(), FIRST_COMMANDS)

    def test_the_first_command_draws_the_floor_plan(self):
        result = self.run_shown(FIRST_COMMANDS[0])
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(result.stdout, "examples/floor-plan.svg\n")
        self.assertGreater(len(self.picture("examples/floor-plan.svg").findall(f".//{SVG}line")), 20)

    def test_the_second_command_is_what_runs_the_tests(self):
        # Run here it would run itself; what can be checked is that it is there and explains itself.
        result = self.run_shown(FIRST_COMMANDS[1] + " --help")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertIn("builds and runs every test", result.stdout)

    def test_the_other_commands_run(self):
        others = [command for command in commands() if command not in FIRST_COMMANDS]
        self.assertGreater(len(others), 0)
        for command in others:
            with self.subTest(command=command):
                result = self.run_shown(command)
                self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn("white", ElementTree.tostring(self.picture("build/machine-part.svg"), "unicode"))
        installed = os.path.join(self.folder, "build", "plexorn", "share")
        for name in ("man/man1/plexorn.1.gz", "bash-completion/completions/plexorn", "zsh/site-functions/_plexorn",
                     "fish/vendor_completions.d/plexorn.fish"):
            self.assertTrue(os.path.exists(os.path.join(installed, name)), name)

    @unittest.skipUnless(shutil.which("git") and os.path.exists(os.path.join(ROOT, ".git")), "this is no checkout")
    def test_the_commands_leave_nothing_that_git_would_show(self):
        before = set(self.files())
        for command in commands():
            if command != FIRST_COMMANDS[1]:
                self.run_shown(command)
        made = sorted(set(self.files()) - before)
        self.assertIn("examples/floor-plan.svg", made)
        ignored = subprocess.run(["git", "check-ignore", "--no-index", *made, "no such file"], cwd=ROOT,
                                 capture_output=True, text=True).stdout
        self.assertEqual(ignored.splitlines(), made)

    def files(self):
        """The files of the checkout; those of the folders that are linked are ignored by git."""
        return [os.path.relpath(os.path.join(folder, name), self.folder)
                for folder, _, names in os.walk(self.folder) for name in names]

    def test_the_commands_to_build_by_hand_configure_the_command(self):
        with open(os.path.join(ROOT, "README.md"), encoding="utf-8") as file:
            configure, build, draw = re.findall(r"^    (.+)$", file.read(), re.MULTILINE)
        self.assertEqual((build, draw.split()[0]), ("cmake --build build/by-hand", "build/by-hand/bin/plexorn"))
        for command in (configure, "cmake --build build/by-hand --target help"):
            command = command.replace("build/by-hand", os.path.join(self.folder, "by-hand"))
            result = subprocess.run(command, shell=True, cwd=ROOT, capture_output=True, text=True)
            self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn("plexorn_cli", result.stdout)

    def test_every_link_leads_somewhere(self):
        with open(os.path.join(ROOT, "README.md"), encoding="utf-8") as file:
            links = re.findall(r"\]\(([^)#]+)\)", file.read())
        self.assertGreater(len(links), 2)
        self.assertEqual([link for link in links if not os.path.exists(os.path.join(ROOT, link))], [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv)
