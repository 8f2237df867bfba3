"""Calls of the system that fail, each in its turn, once and from there on: what is written is whole, or what was there
before stays; there is a reason; and nothing is left behind. Linux only."""
import errno
import os
import re
import shutil
import signal
import stat

import command_support
from command_support import CommandTest, entities

# It ends the process itself when memory is short for what a thread is to destroy at its end.
OF_C_LIBRARY = "Fatal glibc error: failed to register TLS destructor"

OLD = b"an older file\n"
OLD_MODE = 0o640

LINE = ("0", "LINE", "8", "0", "10", "1", "20", "2", "11", "3", "21", "4")
SMALL = entities(*LINE, "0", "TEXT", "8", "WALLS", "10", "1", "20", "2", "40", "3", "1", "text", "0", "3DSOLID", *LINE)
# Its picture, and what is prepared of it, are written in several pieces.
LARGE = entities(*[line for number in range(1000) for line in
                   ("0", "TEXT", "8", "0", "10", str(number), "20", "2", "40", "3", "1", f"text {number}")])


class Sweep(CommandTest):
    AS_IS = False
    KINDS = ("open", "read", "write", "flush", "sync", "close", "seek", "list", "folder", "rename")
    DRAWING = LARGE
    DRAWINGS = ("plan.dxf", "a.dxf", "b.dxf", "c.dxf")
    # The arguments, and what is replaced.
    COMMANDS = (
        (["plan.dxf"], ["plan.svg"]),
        (["--as-is", "plan.dxf"], ["plan.svg"]),
        (["prepare", "plan.dxf", "-o", "plain.dxf"], ["plain.dxf"]),
        (["-j", "1", "a.dxf", "b.dxf", "c.dxf"], ["a.svg", "c.svg"]),
        (["-j", "1", "a.dxf", "b.dxf", "-o", "out/deep/"], []),
        (["prepare", "-j", "1", "a.dxf", "b.dxf", "-o", "out/"], []),
        (["info", "plan.dxf"], []),
        (["info", "--json", "--texts", "a.dxf", "b.dxf"], []),
        (["info", "--summary", "."], []),
        (["-", "-o", "plan.svg"], ["plan.svg"]),
        (["-j", "1", "--files-from", "list", "-o", "out/"], []),
        (["plan.dxf", "-o", "-"], []),
        (["prepare", "plan.dxf", "-o", "-"], []),
        (["--list-layouts", "a.dxf", "b.dxf"], []),
        (["plan.dxf", "-o", "picture.dxf"], []),
    )

    def setUp(self):
        super().setUp()
        for name in self.DRAWINGS:
            self.write(name, self.DRAWING)
        self.write("list", b"a.dxf\nb.dxf\n")

    def files(self):
        found = {}
        for folder, _, names in os.walk(self.folder):
            for name in names:
                path = os.path.join(folder, name)
                with open(path, "rb") as file:
                    found[os.path.relpath(path, self.folder)] = file.read()
        return found

    def clear(self, replaced):
        """What the command finds: the drawings, and an older file where it writes one."""
        for name in self.names():
            if os.path.isdir(self.path(name)):
                shutil.rmtree(self.path(name))
            elif name not in (*self.DRAWINGS, "list"):
                os.remove(self.path(name))
        for name in replaced:
            self.write(name, OLD)
            os.chmod(self.path(name), OLD_MODE)

    def run_failing(self, arguments, kind, at, **more):
        """How the command ends, and how many calls of that kind it made; none if it did not end by itself."""
        told = self.path("told")
        environment = {**os.environ, "LD_PRELOAD": command_support.PRELOAD, "FAILING_CALLS": kind, "FAILING_AT": at,
                       "FAILING_TOLD": told, **more}
        with open(self.path("plan.dxf"), "rb") as drawing:
            result = self.plexorn(*arguments, env=environment, stdin=drawing)
        result.stderr = re.sub(r"\d+ ms", "0 ms", result.stderr)
        calls = 0
        if os.path.exists(told):
            with open(told, encoding="ascii") as file:
                calls = int(file.read())
            os.remove(told)
        return result, calls

    def check(self, result, files, whole, replaced, kind):
        whole_result, whole_files = whole
        if not result.stderr.startswith(OF_C_LIBRARY):
            # A list of drawings that cannot be read is wrong usage.
            self.assertIn(result.returncode, (whole_result.returncode, 2, 3, 5), result.stderr)
        # What cannot be known of a file, such as its size, is no failure.
        if result.returncode == whole_result.returncode and kind != "status":
            self.assertEqual((result.stdout, result.stderr, list(files)),
                             (whole_result.stdout, whole_result.stderr, list(whole_files)))
        if result.returncode != whole_result.returncode:
            self.assertNotEqual(result.stderr, "")
        self.check_files(files, whole_files, replaced)

    def check_files(self, files, whole_files, replaced):
        """Nothing is there that is not there after a whole run, and each is whole or what it was before."""
        for name, content in files.items():
            self.assertIn(name, list(whole_files))
            if content != OLD or name not in replaced:
                self.assertTrue(content == whole_files[name], f"{name} has {len(content)} bytes")
        for name in replaced:
            self.assertEqual(stat.S_IMODE(os.stat(self.path(name)).st_mode), OLD_MODE)

    def sweep(self, kind, command, numbers=lambda calls: range(1, calls + 1)):
        arguments, replaced = command
        self.clear(replaced)
        whole, calls = self.run_failing(arguments, kind, "0")
        whole_files = self.files()
        failed = 0
        for number in numbers(calls):
            for at in (f"{number}", f"{number}+"):
                with self.subTest(arguments=arguments, kind=kind, at=at):
                    self.clear(replaced)
                    result, met = self.run_failing(arguments, kind, at)
                    if not result.stderr.startswith(OF_C_LIBRARY):
                        self.assertGreaterEqual(met, number, result.stderr)
                    self.check(result, self.files(), (whole, whole_files), replaced, kind)
                    failed += result.returncode != whole.returncode
        return failed


class FailingCalls(Sweep):
    def test_each_of_each_kind(self):
        for kind in self.KINDS:
            failed = sum(self.sweep(kind, command) for command in self.COMMANDS)
            self.assertGreater(failed, 0, kind)

    def test_of_some_that_tell_about_files(self):
        for place, command in enumerate(self.COMMANDS):
            self.sweep("status", command, lambda calls: range(place + 1, calls + 1, 5))

    def test_what_a_signal_interrupts_is_read_on(self):
        self.clear(["plan.svg"])
        self.expect(0, "-q", "plan.dxf")
        whole = self.read("plan.svg")
        for at in ("1", "2"):
            self.clear(["plan.svg"])
            result, _ = self.run_failing(["-q", "-", "-o", "plan.svg"], "read", at, FAILING_ERROR=str(errno.EINTR))
            self.assertEqual((result.returncode, result.stderr), (0, ""))
            self.assertEqual(self.read("plan.svg"), whole)

    def test_a_mode_that_cannot_be_set(self):
        """Nobody gets to read what was private, and the picture counts for more than the mode."""
        self.clear(["plan.svg"])
        result, calls = self.run_failing(["-q", "plan.dxf"], "access", "1+")
        self.assertEqual((result.returncode, result.stderr, calls), (0, "", 2))
        self.assertIn("</svg>", self.read("plan.svg"))
        self.assertEqual(stat.S_IMODE(os.stat(self.path("plan.svg")).st_mode), 0o600)

    def test_an_older_file_that_cannot_be_read_is_no_picture(self):
        """So it is said that it was replaced."""
        for arguments, [written] in self.COMMANDS[:3:2]:
            self.clear([written])
            said = set()
            for at in range(1, 20):
                result, _ = self.run_failing(arguments, "read", str(at))
                if result.returncode == 0:
                    said.add(result.stderr.endswith("; replaced a file without plexorn's mark\n"))
                    self.clear([written])
            self.assertEqual(said, {True})


class Interruption(Sweep):
    """A request to end comes at each call of each kind."""
    STOPPED = "plexorn: stopped before it was done\n"

    def interrupt(self, kind, command, whole_files):
        arguments, replaced = command
        replacing = set()
        for number in range(1, 200):
            with self.subTest(arguments=arguments, kind=kind, number=number):
                self.clear(replaced)
                result, _ = self.run_failing(arguments, kind, str(number), FAILING_SIGNAL=str(int(signal.SIGTERM)))
                if result.returncode == 0:
                    break
                self.assertEqual(result.returncode, -signal.SIGTERM)
                # The first two files stand in for standard streams that are missing, before signals are heeded.
                if kind not in ("open", "close") or number > 2:
                    self.assertTrue(result.stderr.endswith(self.STOPPED), result.stderr)
                self.check_files(self.files(), whole_files, replaced)
                replacing.add(any(self.read(name).encode() != OLD for name in replaced))
        return replacing

    def test_at_each_of_each_kind(self):
        for command in self.COMMANDS[:-1]:
            self.clear(command[1])
            self.run_failing(command[0], "none", "0")
            whole_files = self.files()
            for kind in self.KINDS:
                replacing = self.interrupt(kind, command, whole_files)
                if kind == "sync" and len(command[1]) == 1:
                    self.assertEqual(replacing, {False}, "what is interrupted takes nobody's place")


class ShortMemory(Sweep):
    DRAWING = SMALL

    def test_some_of_many(self):
        for place, command in enumerate(self.COMMANDS):
            self.assertGreater(self.sweep("memory", command, lambda calls: range(place + 1, calls + 1, 67)), 0)

    def test_no_message_is_lost(self):
        self.write("plan.dxf", entities(*LINE, *("0", "SOLID") * 100))
        command = (["--as-is", "--verbose", "plan.dxf"], ["plan.svg"])
        self.assertGreater(self.sweep("memory", command, lambda calls: range(1, calls + 1, 29)), 0)


class FullShortMemory(Sweep):
    DRAWING = SMALL

    def test_each(self):
        for command in self.COMMANDS:
            self.assertGreater(self.sweep("memory", command), 0)
