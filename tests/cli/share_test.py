"""The manual page and the completions of shells: they list exactly what the help lists, and the programs that read them
find nothing wrong."""
import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ARGS = None


ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
SHARE = os.path.join(ROOT, "cli", "share")
COMMANDS = ((), ("info",), ("prepare",))


def shared(name):
    """The text of a file of cli/share; of the manual page, as the build makes it."""
    path = os.path.join(ARGS.share if name == "plexorn.1" else SHARE, name)
    with open(path, encoding="utf-8") as file:
        return file.read()


def help_of(*command):
    return subprocess.run([ARGS.command, *command, "--help"], capture_output=True, text=True, check=True).stdout


def options_of_help(*command):
    return re.findall(r"^  (?:(-\w),)?(--[\w-]+)", help_of(*command), re.MULTILINE)


def rows_of_help(*command):
    """The options with their values and explanations, as (short, long, value, explanation)."""
    listed = help_of(*command).split("\nOptions:\n")[1].split("\n\n")[0]
    rows = re.split(r"^  (?=-)", listed, flags=re.MULTILINE)[1:]
    parts = [re.fullmatch(r"(?:(-\w),)?(--[\w-]+)(?: ([A-Z]+))? (.*)", " ".join(row.split())) for row in rows]
    return [tuple(part or "" for part in row.groups()) for row in parts]


def exit_codes_of_help():
    listed = help_of().split("\nExit codes:\n")[1]
    return re.findall(r"(\d) (.*?)(?= \d |$)", " ".join(listed.split()))


def units():
    """What --units takes, as the command itself lists it."""
    result = subprocess.run([ARGS.command, "--units", "no unit", "x"], capture_output=True, text=True)
    words, names = re.search(r"give (.*?), or one of ([\w ]+)$", result.stderr, re.MULTILINE).groups()
    return words.split(", ") + names.split()


class ShareTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="plexorn-share-")
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


class ManualPage(ShareTest):
    def test_formatters_find_nothing_wrong(self):
        path = self.file("plexorn.1", shared("plexorn.1"))
        checked = False
        if shutil.which("groff"):
            self.run_clean("groff", "-man", "-ww", "-Tutf8", "-z", path)
            checked = True
        if shutil.which("mandoc"):
            self.assertEqual(self.run_clean("mandoc", "-Tlint", path), "")
            checked = True
        if not checked:
            self.skipTest("there is no groff and no mandoc; scripts/setup test installs one")

    def page(self):
        """The page without its fonts and escapes."""
        text = shared("plexorn.1").replace("\\-", "-").replace("\\&", "").replace("\\e", "\\")
        return re.sub(r"\\f[BIR]", "", text)

    def paragraphs(self, section):
        """The tags of a section, each with its text."""
        text = self.page().split(f".SH {section}\n")[1].split("\n.SH ")[0].split("\n.PP\n")[0]
        found = [paragraph.split("\n", 1) for paragraph in text.split(".TP\n")[1:]]
        return [(tag, " ".join(words.split())) for tag, words in found]

    def test_it_says_which_version_it_describes(self):
        self.assertIn(f'"Plexorn {ARGS.version}"', self.page().split("\n")[0])

    def test_it_has_exactly_the_options_of_the_help_with_their_explanations(self):
        for command, section in zip(COMMANDS, ("OPTIONS", "OPTIONS OF PLEXORN INFO", "OPTIONS OF PLEXORN PREPARE")):
            rows = [(", ".join(filter(None, (short, long))) + (f" {value}" if value else ""), explanation + ".")
                    for short, long, value, explanation in rows_of_help(*command)]
            self.assertEqual(self.paragraphs(section), rows)

    def test_it_has_exactly_the_exit_codes_of_the_help(self):
        codes = [(".B " + code, explanation + ".") for code, explanation in exit_codes_of_help()]
        self.assertEqual([code for code, _ in codes], [f".B {code}" for code in range(7)])
        self.assertEqual(self.paragraphs("EXIT STATUS"), codes)

    def test_it_describes_the_commands_as_the_help_does(self):
        texts = [" ".join(help_of(*command).split("\nUsage:")[0].split()) for command in COMMANDS]
        self.assertEqual([text for _, text in self.paragraphs("DESCRIPTION")], texts)


class Bash(ShareTest):
    def complete(self, *words):
        """What bash proposes for the last one of words."""
        script = self.file("completion", shared("plexorn.bash"))
        call = (f"source {script}; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); _plexorn; "
                "printf '%s\\n' \"${COMPREPLY[@]}\"")
        return sorted(self.run_clean("bash", "-c", call, "bash", "plexorn", *words).split("\n")[:-1])

    def setUp(self):
        super().setUp()
        for name in ("a plan.dxf", "B.DXF", "notes.txt", "x y.txt"):
            self.file(name, "")
        os.mkdir(os.path.join(self.folder, "folder"))

    def test_it_is_a_script(self):
        self.run_clean("bash", "-n", self.file("completion", shared("plexorn.bash")))

    def test_options(self):
        every = sorted(name for pair in options_of_help() for name in pair if name)
        self.assertEqual(self.complete("-"), every)
        self.assertEqual(self.complete("--ma"), ["--max-messages"])
        self.assertEqual(self.complete("info", "--"), sorted(long for _, long in options_of_help("info")))
        self.assertEqual(self.complete("prepare", "--"), sorted(long for _, long in options_of_help("prepare")))

    def test_exactly_the_options_with_a_value_wait_for_one(self):
        cases = re.findall(r"^        (?:(-\w) \| )?(--[\w-]+)\)$", shared("plexorn.bash"), re.MULTILINE)
        options = dict.fromkeys((short, long) for command in ((), ("prepare",))
                                for short, long, value, _ in rows_of_help(*command) if value)
        self.assertEqual(cases, list(options))

    def test_drawings_and_folders(self):
        self.assertEqual(self.complete(""), ["B.DXF", "a plan.dxf", "folder", "info", "prepare"])
        self.assertEqual(self.complete("a"), ["a plan.dxf"])
        self.assertEqual(self.complete("info", ""), ["B.DXF", "a plan.dxf", "folder"])

    def test_values(self):
        self.assertEqual(self.complete("--messages", ""), ["json", "text"])
        self.assertEqual(self.complete("--units", "u"), ["uin", "um", "usft", "usin", "usmi", "usyd"])
        self.assertIn("notes.txt", self.complete("-o", "n"))
        self.assertEqual(self.complete("-o", "x"), ["x y.txt"])
        self.assertEqual(self.complete("-j", ""), [""])

    def test_every_unit(self):
        self.assertEqual(self.complete("--units", ""), sorted(units()))

    def test_values_after_an_equals_sign(self):
        self.assertEqual(self.complete("--units", "=", "m"), ["m", "mi", "mil", "mm"])
        self.assertEqual(self.complete("--messages", "=", "j"), ["json"])
        self.assertEqual(self.complete("--messages", "="), ["json", "text"])
        self.assertEqual(self.complete("--output", "=", "x"), ["x y.txt"])

    def test_after_two_dashes_come_files(self):
        self.file("-q.dxf", "")
        self.assertEqual(self.complete("--", "-"), ["-q.dxf"])
        self.assertEqual(self.complete("--", "--units", "a"), ["a plan.dxf"])
        self.assertEqual(self.complete("info", "--", ""), ["-q.dxf", "B.DXF", "a plan.dxf", "folder"])


class ZshTable(ShareTest):
    """Read as a text, which needs no zsh."""

    def test_it_has_exactly_the_options_of_the_help(self):
        info, prepare, draw = re.split(r"\n(?:elif .*|else)\n", shared("_plexorn"))
        # An equals sign after the name lets a value follow in the same word.
        row = re.compile(r"^        (?:'\((-\w) (--[\w-]+)\)'\{\1,\2(=)?\}'|'(--[\w-]+)(=)?)\[[^]]+\](:\w+:)?",
                         re.MULTILINE)
        for command, text in zip(COMMANDS, (draw, info, prepare)):
            rows = row.findall(text)
            self.assertEqual([bool(first or second) for _, _, first, _, second, _ in rows],
                             [bool(value) for *_, value in rows])
            found = [(short, both or long, bool(value)) for short, both, _, long, _, value in rows]
            self.assertEqual(found, [(short, long, bool(value)) for short, long, value, _ in rows_of_help(*command)])

    def test_every_unit(self):
        [proposed] = re.findall(r":UNIT:\(([^)]*)\)", shared("_plexorn"))
        self.assertEqual(proposed.split(), units())


class Zsh(ShareTest):
    def setUp(self):
        super().setUp()
        self.need("zsh")

    def test_it_is_a_script(self):
        self.run_clean("zsh", "-n", self.file("_plexorn", shared("_plexorn")))

    def shown_after(self, asked):
        """What a terminal shows after each line and two tabs, up to the text that is expected, or an error."""
        self.file("_plexorn", shared("_plexorn"))
        folder = os.path.join(self.folder, "drawings")
        os.makedirs(os.path.join(folder, "folder"), exist_ok=True)
        for name in ("plan.dxf", "SECTION.DXF", "picture.svg"):
            open(os.path.join(folder, name), "w", encoding="utf-8").close()
        steps = "".join(f"""
            zpty -w -n z $'{line}\\t\\t'
            zpty -r -m z REPLY '(*{expected}*|*error*)' && print -rn -- "$REPLY"
            print -rn -- $'\\0'
            zpty -w -n z $'\\x15'""" for line, expected in asked)
        # Completion needs a terminal; zsh brings one of its own.
        script = self.file("ask", f"""
            zmodload zsh/zpty
            zpty -b z zsh -f
            zpty -w z 'PS1=; fpath=({self.folder} $fpath); autoload -Uz compinit; compinit -u -D; cd {folder}; print rea''dy'
            zpty -r -m z REPLY '*ready*'
            {steps}
            zpty -d z
        """)
        result = subprocess.run(["zsh", "-f", script], capture_output=True, text=True)
        self.assertEqual(result.stderr, "")
        return re.sub(r"\x1b\[[0-9;?]*[A-Za-z]", "", result.stdout).replace("\x08", "").split("\0")

    def complete(self, line, *proposed):
        """What a terminal shows after the line and two tabs, up to the last of what is proposed, in this order."""
        shown = self.shown_after([(line, "*".join(proposed))])[0]
        self.assertIn(proposed[-1], shown)
        self.assertNotIn("bad option", shown)
        return shown

    def test_a_terminal_gets_options(self):
        self.complete("plexorn --max-mess", "ages")

    def test_a_terminal_gets_the_values_of_every_option(self):
        info, prepare, draw = re.split(r"\n(?:elif .*|else)\n", shared("_plexorn"))
        row = re.compile(r"(--[\w-]+=).*:\w+:\((.*)\)'", re.MULTILINE)
        asked = [(" ".join(("plexorn", *command, option)), max(values.replace("\\", "").split(), key=len))
                 for command, text in zip(COMMANDS, (draw, info, prepare)) for option, values in row.findall(text)]
        self.assertGreater(len(asked), 15)
        for (line, value), shown in zip(asked, self.shown_after(asked)):
            with self.subTest(line=line):
                self.assertIn(value, shown)
                self.assertNotRegex(shown, "error|eval")

    def test_a_terminal_gets_drawings_and_folders(self):
        self.assertNotIn("picture", self.complete("plexorn ", "SECTION.DXF", "folder", "info", "plan.dxf", "prepare"))
        for line in ("plexorn info ", "plexorn plan.dxf "):
            self.assertNotIn("picture", self.complete(line, "SECTION.DXF", "folder", "plan.dxf"))

    def test_a_terminal_gets_values_after_a_blank_and_after_an_equals_sign(self):
        for sign in "= ":
            self.complete("plexorn --units" + sign, "header", "guess")
            self.complete("plexorn --messages" + sign, "json", "text")
        self.complete("plexorn --output=pic", "ture.svg")


class FishTable(ShareTest):
    """Read as a text, which needs no fish."""

    def test_it_has_exactly_the_options_of_the_help(self):
        row = re.compile(r"^complete -c plexorn -n '(not )?__fish_seen_subcommand_from ([\w ]+)'(?: -s (\w))? -l ([\w-]+)"
                         r"( -r -F| -x)?", re.MULTILINE)
        condition = {(): ("not ", "info prepare"), ("info",): ("", "info"), ("prepare",): ("", "prepare")}
        rows = [(*condition[command], short[1:], long[2:], bool(value))
                for command in COMMANDS for short, long, value, _ in rows_of_help(*command)]
        found = [(*others, bool(value)) for *others, value in row.findall(shared("plexorn.fish"))]
        self.assertEqual(found, rows)

    def test_every_unit(self):
        [proposed] = re.findall(r" -l units -x -a '([^']*)'", shared("plexorn.fish"))
        self.assertEqual(proposed.split(), units())


class Fish(ShareTest):
    def setUp(self):
        super().setUp()
        self.need("fish")

    def test_it_is_a_script(self):
        self.run_clean("fish", "-n", self.file("plexorn.fish", shared("plexorn.fish")))

    def complete(self, line):
        script = self.file("plexorn.fish", shared("plexorn.fish"))
        environment = {**os.environ, "HOME": self.folder}
        result = subprocess.run(["fish", "-c", f"source {script}; complete -C '{line}'"], cwd=self.folder, env=environment,
                                capture_output=True, text=True, check=True)
        return sorted(found.split("\t")[0] for found in result.stdout.splitlines())

    def test_options_and_values(self):
        self.assertEqual(self.complete("plexorn --"), sorted(long for _, long in options_of_help()))
        self.assertEqual(self.complete("plexorn info --"), sorted(long for _, long in options_of_help("info")))
        self.assertEqual(self.complete("plexorn prepare --"), sorted(long for _, long in options_of_help("prepare")))
        self.assertEqual(self.complete("plexorn --messages "), ["json", "text"])
        self.assertEqual(self.complete("plexorn --messages="), ["--messages=json", "--messages=text"])

    def test_drawings_and_folders(self):
        for name in ("a plan.dxf", "B.DXF", "notes.txt", "picture.svg"):
            self.file(name, "")
        os.mkdir(os.path.join(self.folder, "folder"))
        self.file(os.path.join("folder", "c.dxf"), "")
        drawings = ["B.DXF", "a plan.dxf", "folder/"]
        self.assertEqual(self.complete("plexorn "), sorted([*drawings, "info", "prepare"]))
        self.assertEqual(self.complete("plexorn B.DXF "), drawings)
        self.assertEqual(self.complete("plexorn info "), drawings)
        self.assertEqual(self.complete("plexorn folder/"), ["folder/c.dxf"])
        self.assertEqual(self.complete("plexorn -o pi"), ["picture.svg"])


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--command", required=True)
    parser.add_argument("--share", required=True)
    parser.add_argument("--version", required=True)
    ARGS, rest = parser.parse_known_args()
    unittest.main(argv=sys.argv[:1] + rest)
