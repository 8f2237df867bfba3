"""What only a POSIX system has: permissions, pipes, devices, symbolic links, limits, locales."""
import array
import fcntl
import json
import os
import pty
import re
import resource
import select
import shutil
import signal
import stat
import subprocess
import sys
import termios
import time
import unittest

import command_support
from command_support import LINE, NOBODY, CommandTest, DRAWING, DRAWING_WITH_MESSAGE, dxf, entities


def signalled_at_first_file(folder, number, action=signal.SIG_DFL):
    """Options of Popen, for a process that the kernel sends the signal as soon as it makes a file in folder, when the
    file is still empty."""
    def ask():
        if number != signal.SIGKILL:
            signal.signal(number, action)
        descriptor = os.open(folder, os.O_RDONLY)
        os.set_inheritable(descriptor, True)
        fcntl.fcntl(descriptor, fcntl.F_SETSIG, number)
        fcntl.fcntl(descriptor, fcntl.F_SETOWN, os.getpid())
        fcntl.fcntl(descriptor, fcntl.F_NOTIFY, fcntl.DN_CREATE)
    if not tells_of_new_files(folder):
        raise unittest.SkipTest("this kernel reports new files to nobody")
    return {"preexec_fn": ask, "close_fds": False}


def tells_of_new_files(folder):
    descriptor = os.open(folder, os.O_RDONLY)
    try:
        fcntl.fcntl(descriptor, fcntl.F_NOTIFY, fcntl.DN_CREATE)
    except OSError:
        return False
    finally:
        os.close(descriptor)
    return True


def bytes_read_by(process):
    """How many bytes the process has read in all; waits for its end, but leaves the exit code."""
    os.waitid(os.P_PID, process.pid, os.WEXITED | os.WNOWAIT)
    with open(f"/proc/{process.pid}/io", encoding="ascii") as file:
        return int(file.read().split()[1])


class WithoutDevices(CommandTest):
    """Under a root folder without /dev, and without /proc."""
    AS_IS = False

    def hidden(self, folders, *arguments, **options):
        script = "".join(f"mount -t tmpfs none {folder} && " for folder in folders)
        # Without /proc the loader cannot tell where the command is, and so where its libraries are.
        libraries = os.path.join(os.path.dirname(os.path.dirname(command_support.COMMAND)), "lib")
        return subprocess.run(["unshare", "-rm", "sh", "-c", script + '"$@"', "sh", command_support.COMMAND, *arguments],
                              cwd=self.folder, capture_output=True, check=False,
                              env={**os.environ, "LD_LIBRARY_PATH": libraries}, **options)

    def setUp(self):
        super().setUp()
        self.write("plan.dxf")
        if shutil.which("unshare") is None or self.hidden(["/dev", "/proc"], "--version").returncode != 0:
            self.skipTest("this system hides no folders")

    def test_proc_is_enough(self):
        self.expect(0, "-q", "plan.dxf")
        usual = self.read("plan.svg")
        os.remove(self.path("plan.svg"))
        for arguments in (["plan.dxf"], ["-", "-o", "plan.svg"]):
            result = self.hidden(["/dev"], *arguments, input=DRAWING)
            self.assertEqual(result.returncode, 0, result.stderr)
            self.assertEqual(self.read("plan.svg"), usual)

    def test_without_both_the_reason_is_given(self):
        why = b"neither /dev/fd nor /proc/self/fd is there, through which it would be read\n"
        for arguments, before in ((["plan.dxf"], b"plan.dxf: cannot be prepared: "),
                                  (["-", "-o", "plan.svg"], b"<stdin>: cannot be read: ")):
            result = self.hidden(["/dev", "/proc"], *arguments, input=DRAWING)
            self.assertEqual((result.returncode, result.stderr), (3, before + why))
        self.assertEqual(self.hidden(["/dev", "/proc"], "--as-is", "plan.dxf").returncode, 0)


class Permissions(CommandTest):
    def setUp(self):
        super().setUp()
        self.options = {}
        if os.geteuid() == 0:
            # Root may read everything; another user runs the command.
            os.chown(self.folder, NOBODY, NOBODY)
            self.options = {"user": NOBODY, "group": NOBODY}
            if not self.runs_as_nobody():
                self.skipTest("no other user can run the command from here")

    def runs_as_nobody(self):
        try:
            return self.plexorn("--version", **self.options).returncode == 0
        except PermissionError:
            return False

    def test_a_drawing_that_may_not_be_read(self):
        self.write("plan.dxf")
        os.chmod(self.path("plan.dxf"), 0)
        self.assertEqual(self.expect(3, "plan.dxf", **self.options),
                         "plan.dxf: cannot be read: Permission denied\n")

    def test_folders_that_may_not_be_read_and_links_to_folders_are_passed_over(self):
        for folder in ("in", "in/sub", "in/closed", "in/folder.dxf", "far"):
            os.mkdir(self.path(folder))
        for name in ("in/a.dxf", "in/sub/b.dxf", "in/closed/c.dxf", "in/folder.dxf/d.dxf", "far/e.dxf"):
            self.write(name)
        for link, target in (("link", "../far"), ("sub/up", ".."), ("f.dxf", "../far"), ("g.dxf", "../far/e.dxf")):
            os.symlink(target, self.path("in/" + link))
        os.chmod(self.path("in/closed"), 0)
        self.addCleanup(os.chmod, self.path("in/closed"), 0o700)
        for arguments, names in ((["-r", "in"], ["in/a.dxf", "in/folder.dxf/d.dxf", "in/g.dxf", "in/sub/b.dxf"]),
                                 (["in"], ["in/a.dxf", "in/g.dxf"]), (["-r", "in/link"], ["in/link/e.dxf"])):
            printed = self.plexorn("info", "--json", *arguments, **self.options).stdout
            self.assertEqual([json.loads(line)["file"] for line in printed.splitlines()], names)

    def test_a_folder_that_may_not_be_written(self):
        self.write("plan.dxf")
        os.mkdir(self.path("out"))
        os.chmod(self.path("out"), 0o555)
        self.assertEqual(self.expect(3, "plan.dxf", "-q", "-o", "out/plan.svg", **self.options),
                         "out/plan.svg: cannot be written: Permission denied\n")
        self.assertEqual(os.listdir(self.path("out")), [])

    def test_the_picture_may_be_read_as_other_files(self):
        self.write("plan.dxf")
        self.expect(0, "plan.dxf", umask=0o022, **self.options)
        self.assertEqual(stat.S_IMODE(os.stat(self.path("plan.svg")).st_mode), 0o644)

    def test_a_private_picture_stays_private(self):
        self.write("plan.dxf")
        for mode in (0o600, 0o640, 0o666):
            self.write("plan.svg", b"old")
            os.chmod(self.path("plan.svg"), mode)
            os.chown(self.path("plan.svg"), *([NOBODY, NOBODY] if self.options else [-1, -1]))
            self.expect(0, "plan.dxf", umask=0o022, **self.options)
            self.assertIn("</svg>", self.read("plan.svg"))
            self.assertEqual(stat.S_IMODE(os.stat(self.path("plan.svg")).st_mode), mode)

    def test_a_picture_that_root_redraws_keeps_its_owner(self):
        if not self.options:
            self.skipTest("only root can give files away")
        self.write("plan.dxf")
        self.write("plan.svg", b"old")
        os.chmod(self.path("plan.svg"), 0o600)
        os.chown(self.path("plan.svg"), NOBODY, NOBODY)
        self.expect(0, "plan.dxf")
        self.assertIn("</svg>", self.read("plan.svg"))
        status = os.stat(self.path("plan.svg"))
        self.assertEqual((status.st_uid, status.st_gid, stat.S_IMODE(status.st_mode)), (NOBODY, NOBODY, 0o600))


class OutputsOfOthers(CommandTest):
    """Pictures that the user may not mean to replace: read-only ones, and what links of other users lead to."""

    def test_a_read_only_picture_is_replaced_by_force_alone(self):
        self.write("plan.dxf")
        self.write("plan.svg", b"old")
        os.chmod(self.path("plan.svg"), 0o444)
        self.assertEqual(self.expect(3, "plan.dxf"),
                         "plan.svg: cannot be written: it is read-only; --force replaces it\n")
        self.assertEqual(self.read("plan.svg"), "old")
        os.rename(self.path("plan.svg"), self.path("other.dxf"))
        self.assertIn("it is read-only", self.expect(3, "prepare", "plan.dxf", "-o", "other.dxf"))
        os.rename(self.path("other.dxf"), self.path("plan.svg"))
        self.expect(0, "--force", "plan.dxf")
        self.assertIn("</svg>", self.read("plan.svg"))
        self.assertEqual(stat.S_IMODE(os.stat(self.path("plan.svg")).st_mode), 0o444)

    def draw_through_link(self, code, *arguments):
        """Draws to shared/link, which leads to far/picture.svg; what was printed and what the picture is then."""
        self.write("far/picture.svg", b"old")
        printed = self.expect(code, *arguments, "plan.dxf", "-o", "shared/link")
        return printed, "</svg>" in self.read("far/picture.svg")

    def make_link(self, folder_mode, folder_owner, link_owner):
        if os.geteuid() != 0:
            self.skipTest("only root can give files away")
        self.write("plan.dxf")
        os.mkdir(self.path("far"))
        os.mkdir(self.path("shared"))
        os.chmod(self.path("shared"), folder_mode)
        os.symlink(self.path("far/picture.svg"), self.path("shared/link"))
        os.chown(self.path("shared"), folder_owner, folder_owner)
        os.chown(self.path("shared/link"), link_owner, link_owner, follow_symlinks=False)

    def expect_refused_unless_forced(self):
        self.assertEqual(self.draw_through_link(3),
                         ("shared/link: cannot be written: it is a link in a folder of others; --force follows it\n",
                          False))
        self.assertTrue(self.draw_through_link(0, "--force")[1])
        self.assertTrue(os.path.islink(self.path("shared/link")))

    def test_a_link_of_another_user_where_others_write_is_not_followed(self):
        self.make_link(0o1777, 0, NOBODY)
        self.expect_refused_unless_forced()

    def test_a_link_of_another_user_where_a_group_writes_is_not_followed(self):
        self.make_link(0o775, 0, NOBODY)
        self.expect_refused_unless_forced()

    def test_a_link_in_the_folder_of_another_user_is_not_followed(self):
        self.make_link(0o755, NOBODY, 0)
        self.expect_refused_unless_forced()

    def test_a_link_of_ones_own_where_others_write_is_followed(self):
        self.make_link(0o1777, 0, 0)
        self.assertTrue(self.draw_through_link(0)[1])

    def test_a_link_that_another_user_made_in_a_private_folder_is_followed(self):
        self.make_link(0o755, 0, NOBODY)
        self.assertTrue(self.draw_through_link(0)[1])


class Leftovers(CommandTest):
    """Temporary files of commands that were killed while they wrote."""

    def number_of_an_ended_process(self):
        child = subprocess.Popen([sys.executable, "-c", ""])
        child.wait()
        return child.pid

    def test_those_of_ended_commands_go_and_others_stay(self):
        self.write("plan.dxf")
        ended = self.number_of_an_ended_process()
        gone = f".plexorn-{ended}-0123456789abcdef.tmp"
        stay = [f".plexorn-{os.getpid()}-0123456789abcdef.tmp", f".plexorn-{ended}.tmp", ".plexorn-x-1.tmp",
                f".plexorn-{ended}-1.svg", f"plexorn-{ended}-1.tmp"]
        for name in [gone, *stay]:
            self.write(name, b"")
        self.expect(0, "plan.dxf")
        self.assertEqual(self.names(), sorted(["plan.dxf", "plan.svg", *stay]))

    def test_one_that_is_open_stays_as_its_command_may_run_on_another_machine(self):
        self.write("plan.dxf")
        name = f".plexorn-{self.number_of_an_ended_process()}-0123456789abcdef.tmp"
        with open(self.path(name), "wb") as held:
            fcntl.flock(held, fcntl.LOCK_EX)
            self.expect(0, "plan.dxf")
            self.assertEqual(self.names(), sorted([name, "plan.dxf", "plan.svg"]))
        self.expect(0, "plan.dxf")
        self.assertEqual(self.names(), ["plan.dxf", "plan.svg"])

    def test_a_link_with_such_a_name_leads_to_nothing_that_goes(self):
        self.write("plan.dxf")
        self.write("kept", b"kept")
        os.symlink("kept", self.path(f".plexorn-{self.number_of_an_ended_process()}-1.tmp"))
        self.expect(0, "plan.dxf")
        self.assertEqual(self.read("kept"), "kept")

    def killed_while_it_writes(self):
        """The temporary file that a killed command leaves."""
        code = subprocess.call([command_support.COMMAND, "--as-is", "-q", "plan.dxf"], cwd=self.folder,
                               **signalled_at_first_file(self.folder, signal.SIGKILL))
        self.assertEqual(code, -signal.SIGKILL)
        name, = [name for name in self.names() if name.startswith(".plexorn-")]
        return name

    def test_a_killed_command_leaves_a_name_that_cannot_be_guessed(self):
        self.write("plan.dxf")
        left = []
        for _ in range(2):
            name = self.killed_while_it_writes()
            self.assertRegex(name, r"^\.plexorn-[0-9]+-[0-9a-f]{16}\.tmp$")
            left.append(name.split("-")[2])
            os.remove(self.path(name))
        self.assertNotEqual(left[0], left[1])


class SpecialFiles(CommandTest):
    def test_a_pipe_is_refused_at_once(self):
        os.mkfifo(self.path("plan.dxf"))
        self.assertEqual(self.expect(3, "plan.dxf"),
                         "plan.dxf: cannot be read: not a regular file; use - for standard input\n")

    def test_a_device_is_refused_at_once(self):
        self.assertIn("not a regular file", self.expect(3, "/dev/zero"))

    def test_a_link_to_nowhere(self):
        os.symlink("nowhere", self.path("plan.dxf"))
        self.assertIn("No such file or directory", self.expect(3, "plan.dxf"))

    def test_a_link_to_itself(self):
        os.symlink("plan.dxf", self.path("plan.dxf"))
        self.assertIn("Too many levels of symbolic links", self.expect(3, "plan.dxf"))

    def test_the_picture_on_the_standard_output(self):
        self.write("plan.dxf")
        self.expect(0, "plan.dxf")
        result = self.plexorn("plan.dxf", "-o", "/dev/stdout")
        self.assertEqual(result.stdout, self.read("plan.svg"))

    def test_the_standard_output_as_a_file_keeps_what_it_has(self):
        self.write("plan.dxf")
        self.expect(0, "plan.dxf")
        with open(self.path("out"), "wb") as out:
            out.write(b"before\n")
            out.flush()
            subprocess.run([command_support.COMMAND, "--as-is", "-q", "plan.dxf", "-o", "/dev/stdout"], stdout=out,
                           cwd=self.folder, check=True)
        self.assertEqual(self.read("out"), "before\n" + self.read("plan.svg"))

    def test_a_link_as_output_stays_a_link(self):
        self.write("plan.dxf")
        os.mkdir(self.path("far"))
        self.write("far/picture.svg", b"old")
        os.symlink("far/picture.svg", self.path("plan.svg"))
        self.expect(0, "plan.dxf")
        self.assertTrue(os.path.islink(self.path("plan.svg")))
        self.assertIn("</svg>", self.read("far/picture.svg"))
        self.assertEqual(os.listdir(self.path("far")), ["picture.svg"])

    def test_a_link_leads_on_from_its_own_folder(self):
        self.write("plan.dxf")
        os.mkdir(self.path("far"))
        os.symlink("picture.svg", self.path("far/link.svg"))
        self.expect(0, "plan.dxf", "-o", "far/link.svg")
        self.assertEqual(sorted(os.listdir(self.path("far"))), ["link.svg", "picture.svg"])
        self.assertTrue(os.path.islink(self.path("far/link.svg")))
        self.assertEqual(self.names(), ["far", "plan.dxf"])

    def test_a_link_to_a_picture_that_is_not_there_yet_stays_a_link(self):
        self.write("plan.dxf")
        os.mkdir(self.path("far"))
        os.symlink("far/second", self.path("plan.svg"))
        os.symlink(self.path("far/picture.svg"), self.path("far/second"))
        self.expect(0, "plan.dxf")
        self.assertTrue(os.path.islink(self.path("plan.svg")))
        self.assertTrue(os.path.islink(self.path("far/second")))
        self.assertIn("</svg>", self.read("far/picture.svg"))
        self.assertEqual(sorted(os.listdir(self.path("far"))), ["picture.svg", "second"])

    def test_an_output_that_is_a_link_to_itself(self):
        self.write("plan.dxf")
        os.symlink("plan.svg", self.path("plan.svg"))
        self.assertEqual(self.expect(3, "-q", "plan.dxf"),
                         "plan.svg: cannot be written: Too many levels of symbolic links\n")
        self.assertTrue(os.path.islink(self.path("plan.svg")))

    def test_the_drawing_under_another_name_is_not_overwritten(self):
        self.write("plan.dxf")
        os.link(self.path("plan.dxf"), self.path("hard.svg"))
        os.symlink("plan.dxf", self.path("soft.svg"))
        for output in ("hard.svg", "soft.svg"):
            self.assertIn("is the drawing itself", self.expect(2, "plan.dxf", "-o", output))
        self.assertEqual(self.read("plan.dxf").encode(), DRAWING)

    def test_a_name_that_is_no_utf_8(self):
        name = os.fsencode(self.folder) + b"/gr\xfcn.dxf"
        with open(name, "wb") as file:
            file.write(DRAWING)
        self.expect(0, "-q", name)
        self.assertTrue(os.path.isfile(name.replace(b".dxf", b".svg")))


    def test_stars_are_left_to_the_shell(self):
        self.write("ab.dxf")
        self.assertEqual(self.expect(3, "a*.dxf"), "a*.dxf: cannot be read: No such file or directory\n")
        self.write("a*.dxf")
        self.expect(0, "-q", "a*.dxf")
        self.assertEqual(self.names(), ["a*.dxf", "a*.svg", "ab.dxf"])

    def test_a_name_in_a_list_may_end_in_a_carriage_return(self):
        """Where lines end the names, it is a part of the line's end."""
        self.write("plan\r")
        self.expect(0, "-q", "--null", "--files-from", "-", "-o", "out/", stdin=None, input=b"plan\r\0")
        self.assertEqual(os.listdir(self.path("out")), ["plan\r.svg"])


class NoHalfFile(CommandTest):
    def limited(self, *arguments):
        """Runs the command where a file cannot grow past 64 bytes; a process that grows one is sent a signal."""
        def limit():
            signal.signal(signal.SIGXFSZ, signal.SIG_DFL)
            resource.setrlimit(resource.RLIMIT_FSIZE, (64, 64))
        code = 5 if len(arguments) > 1 else 3
        return self.expect(code, "-q", *arguments, preexec_fn=limit)

    def test_a_full_disk_leaves_nothing(self):
        self.write("plan.dxf")
        self.assertEqual(self.limited("plan.dxf"), "plan.svg: cannot be written: File too large\n")
        self.assertEqual(self.names(), ["plan.dxf"])

    def test_a_file_that_may_not_grow_stops_no_other_drawing(self):
        for name in ("a.dxf", "b.dxf"):
            self.write(name)
        printed = self.limited("a.dxf", "none.dxf", "b.dxf")
        self.assertEqual(printed, "a.svg: cannot be written: File too large\n"
                                  "none.dxf: cannot be read: No such file or directory\n"
                                  "b.svg: cannot be written: File too large\n")
        self.assertEqual(self.names(), ["a.dxf", "b.dxf"])

    def test_a_full_disk_leaves_the_older_picture(self):
        self.write("plan.dxf")
        self.write("plan.svg", b"old")
        self.limited("plan.dxf")
        self.assertEqual(self.names(), ["plan.dxf", "plan.svg"])
        self.assertEqual(self.read("plan.svg"), "old")

    def test_a_full_device(self):
        self.write("plan.dxf")
        self.assertEqual(self.expect(3, "-q", "plan.dxf", "-o", "/dev/full"),
                         "/dev/full: cannot be written: No space left on device\n")

    def code_on_full_device(self, stream, *arguments):
        """The exit code when what is printed to that stream cannot be written."""
        with open("/dev/full", "wb") as full:
            streams = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL, stream: full}
            return subprocess.run([command_support.COMMAND, *arguments], cwd=self.folder, stdin=subprocess.DEVNULL,
                                  **streams).returncode

    def test_a_report_for_programs_that_is_lost(self):
        self.write("plan.dxf")
        self.assertEqual(self.code_on_full_device("stderr", "--messages=json", "plan.dxf"), 3)
        self.assertEqual(self.code_on_full_device("stderr", "--messages=json", "plan.dxf", "none.dxf"), 3)
        self.assertEqual(self.code_on_full_device("stderr", "-q", "--messages=json", "plan.dxf"), 0)
        self.assertEqual(self.code_on_full_device("stderr", "plan.dxf"), 0)

    def test_an_answer_that_cannot_be_written(self):
        for arguments in (["--help"], ["info", "--help"], ["--version"]):
            with self.subTest(arguments=arguments):
                self.assertEqual(self.code_on_full_device("stdout", *arguments), 3)
                self.assertEqual(self.plexorn(*arguments).returncode, 0)

    def test_a_drawing_that_is_refused_leaves_the_older_picture(self):
        self.write("plan.dxf", b"PK\x03\x04")
        self.write("plan.svg", b"old")
        self.expect(4, "plan.dxf")
        self.assertEqual(self.read("plan.svg"), "old")


class Texts(CommandTest):
    CONTENT = entities("0", "TEXT", "40", "1", "1", "Tür 1", "0", "MTEXT", "40", "1", "3", "Tür", "1", "Tor", "0",
                       "TEXT", "40", "1", "1", "Tür 2")

    def test_texts_that_are_not_utf_8_are_reported(self):
        self.write("plan.dxf", self.CONTENT.decode().encode("latin-1"))
        self.assertIn("; 3 texts are not UTF-8 (drawn with U+FFFD)\n", self.expect(0, "plan.dxf"))
        self.assertIn("T\ufffdr", self.read("plan.svg"))
        self.assertIn('"textsNotUtf8":3', self.expect(0, "--messages=json", "plan.dxf"))
        self.assertIn("note: 3 texts are not UTF-8, the first at line 10; bytes that are not UTF-8 are drawn as U+FFFD\n",
                      self.plexorn("info", "plan.dxf").stdout)

    def test_the_code_page_is_in_the_note(self):
        page = dxf("0", "SECTION", "2", "HEADER", "9", "$DWGCODEPAGE", "3", "ANSI_1252", "0", "ENDSEC")
        self.write("plan.dxf", page + self.CONTENT.decode().encode("latin-1"))
        self.assertIn("3 texts are not UTF-8 ($DWGCODEPAGE is ANSI_1252), the first at line 20",
                      self.plexorn("info", "plan.dxf").stdout)

    def test_nothing_is_said_of_utf_8(self):
        self.write("plan.dxf", self.CONTENT)
        self.assertNotIn("UTF-8", self.expect(0, "plan.dxf") + self.plexorn("info", "plan.dxf").stdout)


class Descriptors(CommandTest):
    def test_a_reason_is_given_when_there_are_too_few(self):
        self.write("plan.dxf")
        for count in range(3, 12):
            def limit(count=count):
                resource.setrlimit(resource.RLIMIT_NOFILE, (count, count))
            result = subprocess.run([command_support.COMMAND, "-q", "plan.dxf"], cwd=self.folder, close_fds=True,
                                    capture_output=True, text=True, preexec_fn=limit)
            if result.returncode == 0:
                break
            if result.returncode == 3:
                self.assertRegex(result.stderr, r"cannot be (read|written|prepared): Too many open files\n$")
        self.assertEqual(result.returncode, 0)


    def test_no_message_gets_into_a_picture_when_standard_streams_are_closed(self):
        self.write("plan.dxf", DRAWING_WITH_MESSAGE)
        self.expect(0, "plan.dxf", "-o", "whole.svg")
        for closed in ((0,), (1,), (2,), (1, 2), (0, 1, 2)):
            def close(closed=closed):
                for descriptor in closed:
                    os.close(descriptor)
            subprocess.run([command_support.COMMAND, "--as-is", "--verbose", "plan.dxf"], cwd=self.folder,
                           preexec_fn=close, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
            self.assertEqual(self.read("plan.svg"), self.read("whole.svg"), closed)

    NOT_OPEN = "it is closed, or not open for this\n"

    def test_what_goes_to_a_closed_standard_output_is_not_taken_for_written(self):
        self.write("plan.dxf")
        for command, written in ((["plan.dxf", "-o", "-"], "-: "), (["plan.dxf", "-o", "/dev/stdout"], "/dev/stdout: "),
                                 (["info", "plan.dxf"], "plexorn: the standard output ")):
            result = subprocess.run([command_support.COMMAND, "-q", *command] if command[0] != "info" else
                                    [command_support.COMMAND, *command], cwd=self.folder,
                                    preexec_fn=lambda: os.close(1), stderr=subprocess.PIPE, text=True)
            self.assertEqual((result.returncode, result.stderr), (3, f"{written}cannot be written: {self.NOT_OPEN}"))

    def test_a_closed_standard_input_is_not_taken_for_an_empty_one(self):
        for command in (["-"], ["info", "-"], ["prepare", "-"]):
            self.assertEqual(self.expect(3, *command, stdin=None, preexec_fn=lambda: os.close(0)),
                             "<stdin>: cannot be read: " + self.NOT_OPEN)
        printed = self.expect(2, "--files-from", "-", stdin=None, preexec_fn=lambda: os.close(0))
        self.assertIn("-: cannot be read: " + self.NOT_OPEN, printed)
        with open(self.path("out"), "wb") as out:
            self.assertIn("cannot be read: " + self.NOT_OPEN, self.expect(3, "-", stdin=out))


class Interruption(CommandTest):
    def interrupted(self, number, *arguments, stderr=subprocess.DEVNULL):
        """The exit code of the command when it gets the signal as it begins to write into the folder out."""
        return subprocess.call([command_support.COMMAND, "-q", *arguments], cwd=self.folder, stderr=stderr,
                               **signalled_at_first_file(self.path("out"), number))

    def bytes_in_pipe(self, pipe):
        waiting = array.array("i", [0])
        fcntl.ioctl(pipe, termios.FIONREAD, waiting)
        return waiting[0]

    def test_an_interruption_leaves_the_older_picture_alone(self):
        self.write("plan.dxf")
        os.mkdir(self.path("out"))
        self.write("out/plan.svg", b"old")
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            with self.subTest(signal=number):
                code = self.interrupted(number, "plan.dxf", "-o", "out/plan.svg")
                self.assertEqual(code, -number)
                self.assertEqual(os.listdir(self.path("out")), ["plan.svg"])
                self.assertEqual(self.read("out/plan.svg"), "old")

    def stopped(self, number):
        """What a command that waits for its drawing says when it is sent that signal."""
        process = subprocess.Popen([command_support.COMMAND, "-q", "-", "-o", "plan.svg"], cwd=self.folder,
                                   stdin=subprocess.PIPE, stderr=subprocess.PIPE,
                                   preexec_fn=lambda: signal.signal(number, signal.SIG_DFL))
        process.stdin.write(DRAWING)
        process.stdin.flush()
        while process.poll() is None and self.bytes_in_pipe(process.stdin):
            time.sleep(0.001)
        process.send_signal(number)
        _, printed = process.communicate()
        self.assertEqual(process.returncode, -number)
        return printed.decode()

    def test_it_says_that_it_stopped(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            self.assertEqual(self.stopped(number), "plexorn: stopped before it was done\n")

    def test_it_says_so_while_a_picture_is_written(self):
        self.write("plan.dxf")
        os.mkdir(self.path("out"))
        with open(self.path("printed"), "wb") as printed:
            code = self.interrupted(signal.SIGINT, "plan.dxf", "-o", "out/plan.svg", stderr=printed)
        self.assertEqual(code, -signal.SIGINT)
        self.assertEqual(self.read("printed"), "plexorn: stopped before it was done\n")

    # An insert without a block gives a message when it is converted. The ray asks how large the drawing is, so that
    # this happens while all is read once more. There are more messages than a pipe takes.
    RAY = ("  0", "RAY", "  8", "0", " 10", "1", " 20", "2", " 11", "1", " 21", "0")
    INSERT = ("  0", "INSERT", "  8", "0", "  2", "MISSING", " 10", "1", " 20", "2")
    UNREAD = entities(*RAY, *INSERT * 5_000, *LINE * 50_000)

    def preparing(self, *arguments, stderr):
        return subprocess.Popen([command_support.COMMAND, "prepare", "--verbose", *arguments], cwd=self.folder,
                                stderr=stderr, preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL))

    def preparing_unread(self, *arguments):
        """A command that waits in the middle of its first drawing, which is UNREAD, until its messages are read."""
        process = self.preparing(*arguments, stderr=subprocess.PIPE)
        select.select([process.stderr], [], [])
        return process

    def read_to_the_end(self, process):
        with process.stderr:
            process.stderr.read()

    @unittest.skipUnless(os.path.exists("/proc/self/io"), "this system does not count what is read")
    def test_an_interruption_of_preparing_does_not_wait_until_all_is_read(self):
        self.write("plan.dxf", self.UNREAD)
        os.mkdir(self.path("out"))
        arguments = ("plan.dxf", "-o", "out/plan.dxf")
        process = self.preparing(*arguments, stderr=subprocess.DEVNULL)
        whole = bytes_read_by(process)
        self.assertEqual(process.wait(), 0)
        os.remove(self.path("out/plan.dxf"))
        process = self.preparing_unread(*arguments)
        process.send_signal(signal.SIGINT)
        self.read_to_the_end(process)
        self.assertLess(bytes_read_by(process), whole - len(self.UNREAD) // 2)
        self.assertEqual((process.wait(), os.listdir(self.path("out"))), (-signal.SIGINT, []))

    def test_what_is_being_written_is_locked(self):
        """So commands on other machines, which do not see that its process runs, leave it alone."""
        self.write("plan.dxf", self.UNREAD)
        os.mkdir(self.path("out"))
        process = self.preparing_unread("plan.dxf", "-o", "out/plan.dxf")
        name, = os.listdir(self.path("out"))
        with open(self.path(f"out/{name}"), "rb") as file:
            with self.assertRaises(BlockingIOError):
                fcntl.flock(file, fcntl.LOCK_EX | fcntl.LOCK_NB)
        self.read_to_the_end(process)
        self.assertEqual((process.wait(), os.listdir(self.path("out"))), (0, ["plan.dxf"]))

    def test_a_signal_that_is_ignored_stays_ignored(self):
        self.write("plan.dxf")
        os.mkdir(self.path("out"))
        code = subprocess.call([command_support.COMMAND, "-q", "plan.dxf", "-o", "out/plan.svg"], cwd=self.folder,
                               **signalled_at_first_file(self.path("out"), signal.SIGHUP, signal.SIG_IGN))
        self.assertEqual(code, 0)
        self.assertEqual(os.listdir(self.path("out")), ["plan.svg"])

    def test_an_interruption_of_many_drawings_leaves_no_half_picture(self):
        os.mkdir(self.path("in"))
        os.mkdir(self.path("out"))
        for number in range(4):
            self.write(f"in/{number}.dxf", entities(*LINE * 10_000))
        code = self.interrupted(signal.SIGINT, "-j", "4", "in", "-o", "out/")
        self.assertEqual(code, -signal.SIGINT)
        for name in os.listdir(self.path("out")):
            self.assertRegex(name, r"^\d\.svg$")
            self.assertTrue(self.read(f"out/{name}").endswith("</svg>\n"))

    def wait_until_handled(self, process, number):
        """Waits until a process has handled the signal. All of its threads wait for something else."""
        is_pending, state = True, ""
        while is_pending or state != "S":
            with open(f"/proc/{process.pid}/status", encoding="ascii") as file:
                status = dict(line.split(":", 1) for line in file)
            is_pending = int(status["ShdPnd"], 16) >> (number - 1) & 1
            state = status["State"].split()[0]
            self.assertNotIn(state, ("Z", "X"), "the process has ended")

    def test_an_interruption_of_many_drawings_ends_those_that_are_not_done(self):
        os.mkdir(self.path("in"))
        os.mkdir(self.path("out"))
        self.write("in/0.dxf", self.UNREAD)
        for number in range(1, 4):
            self.write(f"in/{number}.dxf")
        process = self.preparing_unread("-j", "4", "in", "-o", "out/")
        done = ["1.dxf", "2.dxf", "3.dxf"]
        while not set(done).issubset(os.listdir(self.path("out"))):
            self.assertIsNone(process.poll(), "the command has ended")
            time.sleep(0.001)
        process.send_signal(signal.SIGINT)
        self.wait_until_handled(process, signal.SIGINT)
        self.read_to_the_end(process)
        self.assertEqual((process.wait(), sorted(os.listdir(self.path("out")))), (-signal.SIGINT, done))
        for name in done:
            self.assertTrue(self.read(f"out/{name}").endswith("0\nEOF\n"))

    def test_an_interruption_before_anything_is_written_ends_at_once(self):
        process = subprocess.Popen([command_support.COMMAND, "-", "-o", "plan.svg"], cwd=self.folder,
                                   stdin=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                   preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL))
        process.stdin.write(DRAWING)
        process.stdin.flush()
        # The command has what was written and waits for more.
        while process.poll() is None and self.bytes_in_pipe(process.stdin):
            time.sleep(0.001)
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(), -signal.SIGINT)
        process.stdin.close()
        self.assertEqual(self.names(), [])


class Terminal(CommandTest):
    def on_terminal(self, *arguments, **environment):
        """What the command prints on a terminal."""
        parent, child = pty.openpty()
        # A terminal's own line ends are no matter here.
        process = subprocess.Popen([command_support.COMMAND, "--as-is", *arguments], cwd=self.folder,
                                   stdin=subprocess.DEVNULL,
                                   stderr=child, env={**os.environ, "TERM": "xterm", **environment})
        os.close(child)
        printed = b""
        try:
            while block := os.read(parent, 1 << 16):
                printed += block
        except OSError:  # how the end of a terminal shows
            pass
        os.close(parent)
        process.wait()
        return printed.decode().replace("\r\n", "\n")

    def test_colours_are_for_a_terminal_only(self):
        self.write("plan.dxf", DRAWING_WITH_MESSAGE)
        self.assertIn("\x1b[1mplan.dxf:6:\x1b[0m SOLID", self.on_terminal("plan.dxf", NO_COLOR=""))
        self.assertIn("\x1b[31mcannot be read", self.on_terminal("none.dxf", NO_COLOR=""))
        self.assertNotIn("\x1b", self.expect(0, "plan.dxf"))

    def test_colours_can_be_refused(self):
        self.write("plan.dxf", DRAWING_WITH_MESSAGE)
        for environment in ({"NO_COLOR": "1"}, {"TERM": "dumb", "NO_COLOR": ""}):
            printed = self.on_terminal("plan.dxf", **environment)
            self.assertIn("plan.dxf:6: ", printed)
            self.assertNotIn("\x1b", printed)
        self.assertNotIn("\x1b", self.on_terminal("--messages", "json", "plan.dxf", NO_COLOR=""))

    def test_progress_is_shown_on_a_terminal_only_and_goes_away(self):
        names = [f"{number}.dxf" for number in range(20)]
        for name in names:
            self.write(name)
        self.assertRegex(self.on_terminal(*names), r"\r?1 of 20")
        self.assertRegex(self.on_terminal(*names), r"\d+ of 20\r +\r.*drawn")
        self.assertNotIn(" of 20", self.on_terminal("-q", *names))
        self.assertNotIn(" of 20", self.on_terminal("--messages=json", *names))
        self.assertNotIn(" of 20", self.expect(0, *names))


class Reading(CommandTest):
    @unittest.skipUnless(os.path.exists("/proc/self/io"), "this system does not count what is read")
    def test_quiet_reads_what_is_drawn_as_it_is_once_less(self):
        content = entities(*LINE * 10_000)
        self.write("plan.dxf", content)
        read = []
        for options in ([], ["-q"]):
            with subprocess.Popen([command_support.COMMAND, "--as-is", *options, "plan.dxf"], cwd=self.folder,
                                  stderr=subprocess.DEVNULL) as process:
                read.append(bytes_read_by(process))
            self.assertEqual(process.returncode, 0)
        self.assertGreater(read[0] - read[1], len(content) // 2)


class Memory(CommandTest):
    def most_memory(self, *arguments):
        """The largest number of kilobytes that the command held."""
        # What a sanitizer keeps of freed memory is not the command's.
        environment = {**os.environ, "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "") + ":quarantine_size_mb=1"}
        # A process begins with the memory of the one that starts it, which so is a small one.
        starter = ("import resource, subprocess, sys\n"
                   "subprocess.run(sys.argv[1:], stderr=subprocess.DEVNULL, check=True)\n"
                   "print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)")
        return int(subprocess.run([sys.executable, "-c", starter, command_support.COMMAND, "--as-is", *arguments],
                                  cwd=self.folder, env=environment, capture_output=True, check=True).stdout)

    def test_messages_take_no_memory(self):
        self.write("few.dxf", entities(*LINE, *("0", "SOLID") * 10))
        self.write("many.dxf", entities(*LINE, *("0", "SOLID") * 500_000))
        for quiet in ([], ["-q"]):
            with self.subTest(quiet=quiet):
                few, many = (self.most_memory(name, *quiet) for name in ("few.dxf", "many.dxf"))
                self.assertLess(many - few, 8 * 1024)


class Locales(CommandTest):
    def test_the_locale_changes_nothing(self):
        self.write("план.dxf", DRAWING_WITH_MESSAGE)
        pictures, messages = set(), set()
        for locale in ("C", "C.UTF-8", "de_DE.UTF-8", "tr_TR.ISO-8859-9", "nonsense"):
            environment = {**os.environ, "LC_ALL": locale, "LANG": locale, "LANGUAGE": locale}
            messages.add(re.sub(r"\d+ ms", "", self.expect(0, "план.dxf", env=environment)))
            pictures.add(self.read("план.svg"))
        self.assertEqual((len(pictures), len(messages)), (1, 1))
