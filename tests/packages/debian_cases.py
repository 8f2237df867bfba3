"""The Debian package, unpacked into a root of its own."""
import configparser
import os
import re
import shlex
import shutil
import struct
import subprocess
import tempfile
import unittest

import package_support as support
from example_programs import FLOOR_PLAN, run_text
from package_support import run

# The folder where Debian's zsh looks, and that of other systems.
ZSH_FILES = ("share/zsh/vendor-completions/_plexorn", "share/zsh/site-functions/_plexorn")
# What Debian asks of a package, in addition to what is in the archive.
DEBIAN_FILES = ["share/doc/plexorn/changelog.Debian.gz", "share/doc/plexorn/copyright",
                "share/lintian/overrides/plexorn"]
DEBIAN_DEVELOPMENT_FILES = ["share/lintian/overrides/plexorn-dev"]


class InRoot(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="plexorn-root-")
        cls.addClassCleanup(folder.cleanup)
        cls.root = folder.name
        architecture = run("dpkg", "--print-architecture").strip()
        cls.package, cls.development = (
            os.path.join(support.packages(), f"{name}_{support.ARGS.version}-1_{architecture}.deb")
            for name in ("plexorn", "plexorn-dev"))
        support.unpack(cls.package, cls.root)
        cls.usr = os.path.join(cls.root, "usr")


class DebianPackage(InRoot):
    def field(self, name, package=None):
        return run("dpkg-deb", "-f", package or self.package, name).strip()

    def test_it_has_the_files_of_the_archive_and_what_debian_asks_for(self):
        expected = {*support.expected_files(), *DEBIAN_FILES, ZSH_FILES[0]} - {ZSH_FILES[1]}
        self.assertEqual(support.files_below(self.root), sorted("usr/" + name for name in expected))

    @unittest.skipUnless(shutil.which("zsh"), "zsh is not here; scripts/setup test installs it")
    def test_zsh_looks_where_its_completion_is(self):
        folders = run("zsh", "-f", "-c", "print -l $fpath").splitlines()
        found = [name for name in support.files_below(self.root) if os.path.basename(name) == "_plexorn"]
        self.assertEqual([os.path.dirname("/" + name) in folders for name in found], [True])

    def test_what_programs_are_built_with_is_a_package_of_its_own(self):
        with tempfile.TemporaryDirectory() as folder:
            support.unpack(self.development, folder)
            documents = os.path.join(folder, "usr", "share", "doc", "plexorn-dev")
            self.assertEqual(os.readlink(documents), "plexorn")
            os.remove(documents)
            expected = support.expected_files("-dev") + DEBIAN_DEVELOPMENT_FILES
            self.assertEqual(support.files_below(folder), sorted("usr/" + name for name in expected))
        self.assertEqual(self.field("Package", self.development), "plexorn-dev")
        self.assertEqual(self.field("Depends", self.development), f"plexorn (= {self.field('Version')})")
        self.assertNotEqual(self.field("Description", self.development).splitlines()[0],
                            self.field("Description").splitlines()[0])

    def test_every_link_of_a_page_leads_to_a_file_of_the_package(self):
        self.assertEqual(support.broken_links(self.root), [])

    def test_they_run_no_scripts(self):
        for package in (self.package, self.development):
            with tempfile.TemporaryDirectory() as folder:
                run("dpkg-deb", "-e", package, folder)
                self.assertEqual(sorted(os.listdir(folder)), ["control", "md5sums"])

    def test_its_name_and_version(self):
        self.assertEqual((self.field("Package"), self.field("Version")), ("plexorn", support.ARGS.version + "-1"))
        self.assertEqual(sorted(name for name in os.listdir(support.packages()) if name.endswith(".deb")),
                         sorted(os.path.basename(package) for package in (self.package, self.development)))

    def test_it_depends_on_the_packages_of_its_libraries(self):
        packages = {re.match(r"\S+", one).group(0) for one in self.field("Depends").split(", ")}
        needed = set()
        for name in ("bin/plexorn", "lib/plexorn/module/libPlexorn.so", "lib/plexorn/svghost/libQuillmarLib.so"):
            for path in re.findall(r"=> (/\S+)", run("ldd", os.path.join(self.usr, name))):
                if not path.startswith(self.root) and "/libm." not in path:
                    found = run("dpkg-query", "-S", "*/" + os.path.basename(path))
                    needed.add(found.split(":")[0])
        self.assertEqual(packages, needed)

    def test_the_command_runs_with_its_own_libraries(self):
        command = os.path.join(self.usr, "bin", "plexorn")
        libraries = run("ldd", command)
        for name in ("libPlexorn.so", "libQuillmarLib.so"):
            self.assertRegex(libraries, rf"{name} => {re.escape(self.usr)}/\S+/{name}")
        picture = os.path.join(self.root, "plan.svg")
        code, _, messages = run_text(command, FLOOR_PLAN, "-o", picture)
        self.assertEqual(code, 0, messages)
        self.assertGreater(os.path.getsize(picture), 10000)

    @unittest.skipUnless(shutil.which("lintian"), "lintian is not here")
    def test_lintian_has_nothing_to_say(self):
        result = subprocess.run(["lintian", "--no-cfg", "--fail-on", "none", "--tag-display-limit", "0", self.package,
                                 self.development], capture_output=True, text=True)
        tags = [line for line in result.stdout.splitlines() if re.match(r"[EWIPX]: ", line)]
        self.assertEqual((result.returncode, tags), (0, []))


class Thumbnailer(InRoot):
    """The entry for file managers, called as they call it."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.entry = configparser.ConfigParser(interpolation=None)
        cls.entry.read(os.path.join(cls.usr, "share", "thumbnailers", "plexorn.thumbnailer"), encoding="utf-8")

    def call(self, drawing, picture, size):
        line = self.entry["Thumbnailer Entry"]["Exec"]
        for mark, value in (("%i", drawing), ("%o", picture), ("%s", str(size))):
            line = line.replace(mark, shlex.quote(value))
        environment = {**os.environ, "PATH": f"{self.usr}/bin:{os.environ['PATH']}"}
        return subprocess.run(shlex.split(line), env=environment, capture_output=True, text=True)

    def test_a_drawing_of_which_nothing_is_visible_has_no_picture(self):
        mask = "0 WIPEOUT 8 0 100 AcDbWipeout 10 0 20 0 11 9 21 0 12 0 22 9 71 2 91 3 14 0 24 0 14 1 24 0 14 1 24 1".split()
        lines = {"empty": [], "blank": ["0", "3DSOLID", "8", "0"], "mask": mask}
        for name, entity in lines.items():
            with self.subTest(drawing=name), tempfile.TemporaryDirectory() as folder:
                drawing, picture = os.path.join(folder, "a.dxf"), os.path.join(folder, "a.png")
                with open(drawing, "w", encoding="utf-8") as file:
                    file.write("\n".join(["0", "SECTION", "2", "ENTITIES", *entity, "0", "ENDSEC", "0", "EOF", ""]))
                self.assertEqual(self.call(drawing, picture, 64).returncode, 6)
                self.assertFalse(os.path.exists(picture))

    def test_it_is_for_dxf_drawings(self):
        self.assertIn("image/vnd.dxf", self.entry["Thumbnailer Entry"]["MimeType"].split(";"))
        self.assertTrue(shutil.which(self.entry["Thumbnailer Entry"]["TryExec"], path=f"{self.usr}/bin"))

    def test_it_draws_a_picture_of_the_size_asked_for(self):
        picture = os.path.join(self.root, "a picture.png")
        for size in (64, 256):
            result = self.call(FLOOR_PLAN, picture, size)
            self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))
            with open(picture, "rb") as file:
                head = file.read(24)
            self.assertEqual(head[:8], b"\x89PNG\r\n\x1a\n")
            self.assertEqual(max(struct.unpack(">II", head[16:])), size)

    def test_what_is_no_drawing_has_no_picture(self):
        drawing, picture = os.path.join(self.root, "no.dxf"), os.path.join(self.root, "no.png")
        with open(drawing, "wb") as file:
            file.write(b"PK\x03\x04")
        result = self.call(drawing, picture, 64)
        self.assertEqual(result.returncode, 4)
        self.assertFalse(os.path.exists(picture))

    def test_wrong_usage_is_reported(self):
        result = subprocess.run([os.path.join(self.usr, "bin", "plexorn-thumbnailer"), "a"], capture_output=True,
                                text=True)
        self.assertEqual((result.returncode, result.stderr),
                         (2, "usage: plexorn-thumbnailer DRAWING PICTURE SIZE\n"))
