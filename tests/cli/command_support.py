"""Runs the command plexorn in a folder of its own; under an emulator too."""
import os
import subprocess
import sys
import tempfile
import unittest

COMMAND = None
VERSION = None
EMULATOR = []
PRELOAD = None

NOBODY = 65534

# In seconds: only so that a run which never ends has a name.
PATIENCE = 300


def dxf(*lines, end="\n"):
    """A drawing of these lines."""
    return (end.join(lines) + end).encode("utf-8")


def entities(*lines):
    return dxf("  0", "SECTION", "  2", "ENTITIES", *lines, "  0", "ENDSEC", "  0", "EOF")


LINE = ("  0", "LINE", "  8", "0", " 10", "1", " 20", "2", " 11", "3", " 21", "4")
DRAWING = entities(*LINE)
# SOLID is no type that is drawn: one message, which names line 6.
DRAWING_WITH_MESSAGE = entities("  0", "SOLID", *LINE)
SOLID_MESSAGE = "SOLID - Unknown Object Type Name (6)"
# The same for people, who see the line after the drawing's name.
SOLID_TEXT = "SOLID - Unknown Object Type Name"


def run_once(arguments, folder, options):
    """The outcome of the command; None if it does not end."""
    try:
        return subprocess.run([*EMULATOR, COMMAND, *arguments], cwd=folder, capture_output=True, timeout=PATIENCE,
                              **options)
    except subprocess.TimeoutExpired:
        return None


def ended_before_it_began(result):
    """Wine sometimes ends a program with 1 before it starts. The command itself always says why it ends with 1."""
    return result.returncode == 1 and not result.stdout and not result.stderr


class CommandTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="plexorn-cli-")
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, content=DRAWING):
        with open(self.path(name), "wb") as file:
            file.write(content)

    def read(self, name):
        with open(self.path(name), encoding="utf-8") as file:
            return file.read()

    def names(self):
        return sorted(os.listdir(self.folder))

    # Whether drawings are drawn as the module draws them by itself, unless a test asks for more: what the command
    # says of the module's messages is tested that way.
    AS_IS = True
    NOT_AS_IS = ("prepare", "--as-is", "--scale", "--true-size", "--fit", "--help", "-h", "--version")

    def plexorn(self, *arguments, **options):
        """Runs the command; its output is text with plain line ends."""
        if self.AS_IS and not any(str(argument).startswith(self.NOT_AS_IS) for argument in arguments):
            command = arguments[:arguments[:1] == ("info",)]
            arguments = (*command, "--as-is", *arguments[len(command):])
        options = {"stdin": subprocess.DEVNULL, **options}
        result = run_once(arguments, self.folder, options)
        # Wine also may never let a program end.
        has_failed = result is None or ended_before_it_began(result)
        if EMULATOR and has_failed and options["stdin"] in (None, subprocess.DEVNULL):
            print(f"started again: {arguments}, {'ended at once' if result else 'did not end'}", file=sys.stderr)
            result = run_once(arguments, self.folder, options)
        self.assertIsNotNone(result, f"{arguments} did not end in {PATIENCE} s")
        result.stdout = result.stdout.decode("utf-8").replace("\r\n", "\n")
        result.stderr = result.stderr.decode("utf-8").replace("\r\n", "\n")
        return result

    def expect(self, code, *arguments, **options):
        """Runs the command, asserts its exit code, and gives what it printed to the standard error."""
        result = self.plexorn(*arguments, **options)
        self.assertEqual(result.returncode, code, result.stderr)
        return result.stderr
