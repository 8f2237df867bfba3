"""The manual page and the completions of shells, made by the command itself and judged by the programs that read them."""
import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ARGS = None


def generated(kind):
    return subprocess.run([ARGS.command, "--generate", kind], capture_output=True, text=True, check=True).stdout


def options_of_help(*command):
    text = subprocess.run([ARGS.command, *command, "--help"], capture_output=True, text=True, check=True).stdout
    return re.findall(r"^  (?:(-\w),)?(--[\w-]+)", text, re.MULTILINE)


class GeneratedTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="plexorn-generated-")
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.assertGreater(len(options_of_help()), 10)

    def file(self, name, text):
        path = os.path.join(self.folder, name)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        return path

    def run_clean(self, *command):
        """The output of a program that finds nothing wrong."""
        result = subprocess.run(command, capture_output=True, text=True, cwd=self.folder)
        self.assertEqual((result.returncode, result.stderr), (0, ""), result.stdout)
        return result.stdout

    def need(self, program):
        if not shutil.which(program):
            self.skipTest(f"there is no {program}; scripts/setup test installs it")

    def test_unknown_kinds_are_wrong_usage(self):
        result = subprocess.run([ARGS.command, "--generate", "html"], capture_output=True, text=True)
        self.assertEqual((result.returncode, result.stdout), (2, ""))

    def test_the_build_has_what_the_command_makes(self):
        for name, kind in (("man/man1/plexorn.1", "man"), ("bash-completion/completions/plexorn", "bash"),
                           ("zsh/site-functions/_plexorn", "zsh"), ("fish/vendor_completions.d/plexorn.fish", "fish")):
            with open(os.path.join(ARGS.share, name), encoding="utf-8") as file:
                self.assertEqual(file.read(), generated(kind))


class ManualPage(GeneratedTest):
    def test_formatters_find_nothing_wrong(self):
        path = self.file("plexorn.1", generated("man"))
        checked = False
        if shutil.which("groff"):
            self.run_clean("groff", "-man", "-ww", "-Tutf8", "-z", path)
            checked = True
        if shutil.which("mandoc"):
            self.assertEqual(self.run_clean("mandoc", "-Tlint", path), "")
            checked = True
        if not checked:
            self.skipTest("there is no groff and no mandoc; scripts/setup test installs one")

    def test_every_option_and_exit_code_stands_in_it(self):
        page = generated("man").replace("\\-", "-")
        for command in ([], ["info"]):
            for short, long in options_of_help(*command):
                self.assertIn(f"\\fB{long}\\fR", page)
                if short:
                    self.assertIn(f"\\fB{short}\\fR, \\fB{long}\\fR", page)
        status = page.split(".SH EXIT STATUS")[1].split(".SH")[0]
        self.assertEqual(re.findall(r"^\.B (\d)$", status, re.MULTILINE), ["0", "1", "2", "3", "4", "5"])


class Bash(GeneratedTest):
    def complete(self, *words):
        """What bash proposes for the last one of words."""
        script = self.file("completion", generated("bash"))
        call = (f"source {script}; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); _plexorn; "
                "printf '%s\\n' \"${COMPREPLY[@]}\"")
        return sorted(self.run_clean("bash", "-c", call, "bash", "plexorn", *words).split("\n")[:-1])

    def setUp(self):
        super().setUp()
        for name in ("a plan.dxf", "B.DXF", "notes.txt", "x y.txt"):
            self.file(name, "")
        os.mkdir(os.path.join(self.folder, "folder"))

    def test_it_is_a_script(self):
        self.run_clean("bash", "-n", self.file("completion", generated("bash")))

    def test_options(self):
        every = sorted(name for pair in options_of_help() for name in pair if name)
        self.assertEqual(self.complete("-"), every)
        self.assertEqual(self.complete("--ma"), ["--max-messages"])
        self.assertEqual(self.complete("info", "--"), sorted(long for _, long in options_of_help("info")))

    def test_drawings_and_folders(self):
        self.assertEqual(self.complete(""), ["B.DXF", "a plan.dxf", "folder", "info"])
        self.assertEqual(self.complete("a"), ["a plan.dxf"])
        self.assertEqual(self.complete("info", ""), ["B.DXF", "a plan.dxf", "folder"])

    def test_values(self):
        self.assertEqual(self.complete("--messages", ""), ["json", "text"])
        self.assertEqual(self.complete("--units", "u"), ["uin", "um", "usft", "usin", "usmi", "usyd"])
        self.assertIn("notes.txt", self.complete("-o", "n"))
        self.assertEqual(self.complete("-o", "x"), ["x y.txt"])
        self.assertEqual(self.complete("-j", ""), [""])

    def test_values_behind_an_equals_sign(self):
        self.assertEqual(self.complete("--units", "=", "m"), ["m", "mi", "mil", "mm"])
        self.assertEqual(self.complete("--messages", "=", "j"), ["json"])
        self.assertEqual(self.complete("--messages", "="), ["json", "text"])
        self.assertEqual(self.complete("--output", "=", "x"), ["x y.txt"])

    def test_behind_two_dashes_stand_files(self):
        self.file("-q.dxf", "")
        self.assertEqual(self.complete("--", "-"), ["-q.dxf"])
        self.assertEqual(self.complete("--", "--units", "a"), ["a plan.dxf"])
        self.assertEqual(self.complete("info", "--", ""), ["-q.dxf", "B.DXF", "a plan.dxf", "folder"])


class Zsh(GeneratedTest):
    def setUp(self):
        super().setUp()
        self.need("zsh")

    def test_it_is_a_script(self):
        self.run_clean("zsh", "-n", self.file("_plexorn", generated("zsh")))

    def test_a_terminal_gets_options(self):
        self.file("_plexorn", generated("zsh"))
        # Completion needs a terminal; zsh brings one of its own.
        script = self.file("ask", f"""
            zmodload zsh/zpty
            zpty -b z zsh -f
            zpty -w z 'PS1=; fpath=({self.folder} $fpath); autoload -Uz compinit; compinit -u -D; print rea''dy'
            zpty -r -m z REPLY '*ready*'
            zpty -w -n z $'plexorn --max-mess\\t'
            repeat 100; do zpty -r -t z REPLY && print -rn -- $REPLY; sleep 0.05; done
            zpty -d z
        """)
        result = subprocess.run(["zsh", "-f", script], capture_output=True, text=True, timeout=60)
        self.assertIn("ages", re.sub(r"\x1b\[[0-9;?]*[A-Za-z]", "", result.stdout).replace("\x08", ""))


class Fish(GeneratedTest):
    def setUp(self):
        super().setUp()
        self.need("fish")

    def test_it_is_a_script(self):
        self.run_clean("fish", "-n", self.file("plexorn.fish", generated("fish")))

    def complete(self, line):
        script = self.file("plexorn.fish", generated("fish"))
        environment = {**os.environ, "HOME": self.folder}
        result = subprocess.run(["fish", "-c", f"source {script}; complete -C '{line}'"], cwd=self.folder, env=environment,
                                capture_output=True, text=True, check=True)
        return sorted(found.split("\t")[0] for found in result.stdout.splitlines())

    def test_options_and_values(self):
        self.assertEqual(self.complete("plexorn --"), sorted(long for _, long in options_of_help()))
        self.assertEqual(self.complete("plexorn info --"), sorted(long for _, long in options_of_help("info")))
        self.assertEqual(self.complete("plexorn --messages "), ["json", "text"])


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--command", required=True)
    parser.add_argument("--share", required=True)
    ARGS, rest = parser.parse_known_args()
    unittest.main(argv=sys.argv[:1] + rest)
