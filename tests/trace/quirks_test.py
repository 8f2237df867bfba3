"""docs/quirks.md: its numbers, its links, and that each line it quotes is in the file that shows it."""
import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGE = ROOT / "docs" / "quirks.md"
ENTRY = re.compile(r"^(\d+)\. +\*\*(.+?)\.\*\*(.*?)(?=^\d+\. |^## |\Z)", re.MULTILINE | re.DOTALL)
LINK = re.compile(r"\[(drawing|trace|test)\]\((.+?)\)")
QUOTE = re.compile(r"^ +`(.+)`$", re.MULTILINE)
MENTION = re.compile(r"\bquirks? (\d+(?:(?:, | and )\d+)*)")
COMMENT = re.compile(r"(?:^[ \t]*//.*\n)+|//.*", re.MULTILINE)
# What comments say of odd results, in the folders of src that make pictures.
ODD = re.compile(r"\b(?:meant|on purpose|deliberate(?:ly)?|wrong|even|unlike|dropped|not compared|any flag)\b",
                 re.IGNORECASE)
PICTURE_FOLDERS = ("reader", "entities", "drawing", "dimension", "convert")
REMEDIES = ROOT / "prepare" / "write" / "ModuleRemedies.h"
# A line of the list there begins with numbers, and a line of the code below with the same.
REMEDY = re.compile(r"^// *((?:\d+(?: to |, ?)?)+)(?=  |:|\.$)", re.MULTILINE)
SOURCES = (".cpp", ".h")
TEXTS = (".cpp", ".h", ".py", ".md")


class Quirk:
    def __init__(self, number, name, text):
        self.number = int(number)
        self.name = name
        self.links = {kind: (PAGE.parent / target).resolve() for kind, target in LINK.findall(text)}
        self.quotes = QUOTE.findall(text)


def quirks():
    return [Quirk(*match) for match in ENTRY.findall(PAGE.read_text(encoding="utf-8"))]


def texts(folder, suffixes):
    """The files of the folder, with their texts."""
    for path in sorted(folder.rglob("*")):
        if path.suffix in suffixes:
            yield path, path.read_text(encoding="utf-8")


def mentions(folder, suffixes):
    """Each file of the folder that names a quirk, with the number."""
    for path, text in texts(folder, suffixes):
        for numbers in MENTION.findall(text):
            yield from ((path, int(number)) for number in re.findall(r"\d+", numbers))


def comments_without_number(text):
    """The comments that call a result odd and name no quirk."""
    return [comment for comment in COMMENT.findall(text) if ODD.search(comment) and not MENTION.search(comment)]


class Quirks(unittest.TestCase):
    def test_numbers_are_consecutive(self):
        self.assertEqual([quirk.number for quirk in quirks()], list(range(1, len(quirks()) + 1)))

    def test_every_numbered_line_is_an_entry(self):
        lines = re.findall(r"^\d+\. ", PAGE.read_text(encoding="utf-8"), re.MULTILINE)
        self.assertEqual(len(lines), len(quirks()))
        self.assertGreater(len(lines), 100)

    def test_names_are_unique(self):
        names = [quirk.name for quirk in quirks()]
        self.assertEqual(sorted(set(names)), sorted(names))

    def test_each_is_shown_by_a_drawing_and_its_trace_or_by_a_test(self):
        for quirk in quirks():
            with self.subTest(quirk.number):
                self.assertIn(set(quirk.links), ({"drawing", "trace"}, {"test"}))
                for path in quirk.links.values():
                    self.assertTrue(path.is_file(), path)
                if "drawing" in quirk.links:
                    self.assertEqual(quirk.links["drawing"].with_suffix(".trace"), quirk.links["trace"])

    def test_quoted_lines_are_in_the_file_that_is_linked(self):
        for quirk in quirks():
            with self.subTest(quirk.number):
                shown = quirk.links.get("trace") or quirk.links["test"]
                lines = shown.read_text(encoding="utf-8").splitlines()
                self.assertTrue(quirk.quotes)
                for quote in quirk.quotes:
                    self.assertIn(quote, lines)

    def test_every_drawing_made_for_a_quirk_is_linked(self):
        linked = {quirk.links.get("drawing") for quirk in quirks()}
        made = set((ROOT / "tests" / "trace" / "quirks").glob("*.dxf"))
        self.assertTrue(made)
        self.assertEqual(made - linked, set())

    def test_every_number_that_is_named_exists(self):
        numbers = {quirk.number for quirk in quirks()}
        folders = [path for path in ROOT.iterdir() if path.is_dir() and path.name not in ("build", ".git")]
        named = [mention for folder in folders for mention in mentions(folder, TEXTS)]
        for folder in ("src", "docs", "tests"):
            self.assertTrue([path for path, _ in named if path.is_relative_to(ROOT / folder)], folder)
        for path, number in named:
            with self.subTest(path):
                self.assertIn(number, numbers)

    def test_a_comment_on_what_is_meant_names_its_quirk(self):
        files = list(texts(ROOT / "src", SOURCES))
        comments = [comment for _, text in files for comment in COMMENT.findall(text)]
        named = [comment for comment in comments if MENTION.search(comment)]
        self.assertGreater(len(named), 30)
        self.assertGreater(sum(ODD.search(comment) is not None for comment in named), 5)
        for path, text in files:
            if path.relative_to(ROOT / "src").parts[0] in PICTURE_FOLDERS:
                with self.subTest(path):
                    self.assertEqual(comments_without_number(text), [])

    def test_a_comment_without_its_number_is_found(self):
        lines = "int a; // any flag\n// Dropped, as\n// meant (quirk 3).\nint b;\n  // The wrong way.\n// Right.\n"
        self.assertEqual(comments_without_number(lines), ["// any flag", "  // The wrong way.\n// Right.\n"])

    def test_numbers_of_remedies_exist_once(self):
        head, code = REMEDIES.read_text(encoding="utf-8").split("#pragma once")
        listed = [int(number) for numbers in REMEDY.findall(head) for number in re.findall(r"\d+", numbers)]
        self.assertGreater(len(listed), 30)
        self.assertEqual(sorted(listed), sorted(set(listed)))
        self.assertLessEqual(set(listed), {quirk.number for quirk in quirks()})
        coded = {int(number) for numbers in REMEDY.findall(code) for number in re.findall(r"\d+", numbers)}
        self.assertTrue(coded)
        self.assertLessEqual(coded, set(listed))


if __name__ == "__main__":
    unittest.main()
