"""What only a POSIX system has: permissions, pipes, devices, symbolic links, limits, locales."""
import os
import resource
import shutil
import signal
import stat
import subprocess

import command_support
from command_support import NOBODY, CommandTest, DRAWING, DRAWING_WITH_MESSAGE


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


class SpecialFiles(CommandTest):
    def test_a_pipe_is_refused_at_once(self):
        os.mkfifo(self.path("plan.dxf"))
        self.assertEqual(self.expect(3, "plan.dxf", timeout=10),
                         "plan.dxf: cannot be read: not a regular file\n")

    def test_a_device_is_refused_at_once(self):
        self.assertIn("not a regular file", self.expect(3, "/dev/zero", timeout=10))

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
            subprocess.run([command_support.COMMAND, "-q", "plan.dxf", "-o", "/dev/stdout"], stdout=out,
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


class NoHalfFile(CommandTest):
    def limited(self, *arguments):
        """Runs the command where a file cannot grow past 64 bytes."""
        def limit():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (64, 64))
        return self.expect(3, "-q", *arguments, preexec_fn=limit)

    def test_a_full_disk_leaves_nothing(self):
        self.write("plan.dxf")
        self.assertEqual(self.limited("plan.dxf"), "plan.svg: cannot be written: File too large\n")
        self.assertEqual(self.names(), ["plan.dxf"])

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

    def test_a_drawing_that_is_refused_leaves_the_older_picture(self):
        self.write("plan.dxf", b"PK\x03\x04")
        self.write("plan.svg", b"old")
        self.expect(4, "plan.dxf")
        self.assertEqual(self.read("plan.svg"), "old")


class Locales(CommandTest):
    def test_the_locale_changes_nothing(self):
        self.write("план.dxf", DRAWING_WITH_MESSAGE)
        pictures, messages = set(), set()
        for locale in ("C", "C.UTF-8", "de_DE.UTF-8", "tr_TR.ISO-8859-9", "nonsense"):
            environment = {**os.environ, "LC_ALL": locale, "LANG": locale, "LANGUAGE": locale}
            messages.add(self.expect(0, "план.dxf", env=environment).rsplit(",", 1)[0])
            pictures.add(self.read("план.svg"))
        self.assertEqual((len(pictures), len(messages)), (1, 1))


class Placement(CommandTest):
    def test_the_tree_runs_where_it_is_moved_to(self):
        build = os.path.dirname(os.path.dirname(command_support.COMMAND))
        self.write("plan.dxf")
        for folder in ("bin", "lib"):
            os.makedirs(self.path(f"moved here/{folder}"))
        shutil.copy(command_support.COMMAND, self.path("moved here/bin"))
        for library in ("libPlexorn.so", "libQuillmarLib.so"):
            shutil.copy(os.path.join(build, "lib", library), self.path("moved here/lib"))
        loaded = subprocess.run(["ldd", self.path("moved here/bin/plexorn")], capture_output=True, text=True,
                                check=True).stdout
        for library in ("libPlexorn.so", "libQuillmarLib.so"):
            self.assertIn("moved here/bin/../lib/" + library, loaded)
        result = subprocess.run([self.path("moved here/bin/plexorn"), "-q", "plan.dxf"], cwd=self.folder)
        self.assertEqual(result.returncode, 0)
