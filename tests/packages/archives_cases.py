"""The archives: what is in them, and that it works wherever it is unpacked."""
import os
import re
import struct
import subprocess
import tempfile
import unittest
import zlib

import package_support as support
from example_programs import DRAWING, FLOOR_PLAN, ExamplePrograms, program, run_text
from package_support import run


class Unpacked(unittest.TestCase):
    """A class's tests share one unpacked archive, in a folder whose name is not only ASCII letters."""

    maxDiff = None

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="plexorn été ")
        cls.addClassCleanup(folder.cleanup)
        cls.folder = folder.name
        for archive in support.archives()[:2]:
            support.unpack(archive, cls.folder)
        cls.prefix = os.path.join(cls.folder, support.archive_name())
        cls.documents = os.path.join(cls.prefix, "doc" if support.ARGS.system == "windows" else "share/doc/plexorn")

    def environment(self, **more):
        return {**os.environ, "LC_ALL": "C.UTF-8", **more}


class Contents(Unpacked):
    def binaries(self):
        names = [name for name in support.expected_files() if re.search(r"\.(so|dll|exe)$|^bin/plexorn$", name)]
        self.assertEqual(len(names), 4)
        return names

    def test_each_archive_has_these_files_and_no_other(self):
        for part, archive in zip(("", "-dev"), support.archives()):
            with self.subTest(archive=archive), tempfile.TemporaryDirectory() as folder:
                support.unpack(archive, folder)
                self.assertEqual(os.listdir(folder), [support.archive_name()])
                self.assertEqual(support.files_below(os.path.join(folder, support.archive_name())),
                                 support.expected_files(part))

    def test_every_link_of_a_page_leads_to_a_file_that_came_with_it(self):
        # The archive for building comes on top of the other.
        with tempfile.TemporaryDirectory() as folder:
            for archive in support.archives()[:2]:
                support.unpack(archive, folder)
                self.assertEqual(support.broken_links(folder), [])

    def test_a_broken_link_would_be_seen(self):
        with tempfile.TemporaryDirectory() as folder:
            with open(os.path.join(folder, "page.md"), "w", encoding="utf-8") as file:
                file.write("[a](page.md#part) [b](https://example.org/b) [c](none.md) [d](/) [e](..)")
            self.assertEqual(support.broken_links(folder), ["page.md: none.md", "page.md: /", "page.md: .."])

    @unittest.skipIf(support.ARGS.system == "windows", "there, abi.module knows the libraries of the system")
    def test_the_binaries_need_only_each_other_and_the_c_library(self):
        own = {os.path.basename(name) for name in self.binaries()}
        for name in self.binaries():
            headers = run(support.ARGS.objdump, "-p", os.path.join(self.prefix, name))
            needed = set(re.findall(r"^ +NEEDED +(\S+)$", headers, re.MULTILINE))
            self.assertIn("libc.so.6", needed)
            system = {library for library in needed if re.match(r"(libc|libm|ld-linux[\w-]*)\.so\.", library)}
            self.assertEqual(needed - own - system, set(), name)

    @unittest.skipIf(support.ARGS.system == "windows", "it has no such versions")
    def test_the_readme_says_which_c_library_the_binaries_need(self):
        headers = "".join(run(support.ARGS.objdump, "-p", os.path.join(self.prefix, name)) for name in self.binaries())
        versions = {tuple(map(int, version.split("."))) for version in re.findall(r"GLIBC_([\d.]+)", headers)}
        with open(os.path.join(support.ROOT, "README.md"), encoding="utf-8") as file:
            [told] = re.findall(r"glibc ([\d.]+) or later", file.read())
        self.assertEqual(".".join(map(str, max(versions))), told)

    def test_the_symbols_belong_beside_the_binaries(self):
        with tempfile.TemporaryDirectory() as folder:
            support.unpack(support.archives()[2], folder)
            self.assertEqual(support.files_below(os.path.join(folder, support.archive_name())),
                             sorted(name + ".debug" for name in self.binaries()))

    def test_no_file_says_where_it_was_built(self):
        with tempfile.TemporaryDirectory() as folder:
            for archive in support.archives():
                support.unpack(archive, folder)
            files = support.files_below(folder)
            self.assertEqual(len([name for name in files if name.endswith(".debug")]), 4)
            for name in files:
                with open(os.path.join(folder, name), "rb") as file:
                    self.assertNotIn(support.ROOT.encode(), file.read(), name)

    def test_each_binary_names_the_symbols_that_were_made_with_it(self):
        with tempfile.TemporaryDirectory() as folder:
            support.unpack(support.archives()[2], folder)
            for name in self.binaries():
                with open(os.path.join(folder, support.archive_name(), name + ".debug"), "rb") as file:
                    symbols = file.read()
                link = os.path.basename(name).encode() + b".debug\0"
                link += b"\0" * (-len(link) % 4) + struct.pack("<I", zlib.crc32(symbols))
                with open(os.path.join(self.prefix, name), "rb") as file:
                    self.assertIn(link, file.read(), name)

    @unittest.skipIf(support.ARGS.system == "windows", "the tools for Windows look into the file alone")
    def test_a_debugger_finds_lines_with_the_symbols_alone(self):
        name = next(name for name in self.binaries() if "Plexorn." in name)
        with tempfile.TemporaryDirectory() as folder:
            support.unpack(support.archives()[0], folder)
            library = os.path.join(folder, support.archive_name(), name)
            support.unpack(support.archives()[2], folder)
            symbols = run(support.ARGS.nm, library + ".debug")
            address = re.search(r"^(\w+) T dxfFileOpen$", symbols, re.MULTILINE).group(1)
            self.assertRegex(run(support.ARGS.addr2line, "-e", library, address), r"entry/dxfFileOpen\.cpp:\d+")
            os.remove(library + ".debug")
            self.assertNotIn("dxfFileOpen.cpp", run(support.ARGS.addr2line, "-e", library, address))

    def test_the_module_shows_the_same_names_as_in_the_build(self):
        name = next(name for name in self.binaries() if "Plexorn." in name)
        test = os.path.join(os.path.dirname(support.HERE), "abi", "module_test.py")
        definitions = os.path.join(support.ROOT, "src", "host", "QuillmarLib.def")
        result = subprocess.run(
            [support.ARGS.python, test, "--module", os.path.join(self.prefix, name), "--version",
             support.ARGS.version, "--def", definitions, "--nm", support.ARGS.nm, "--objdump", support.ARGS.objdump],
            capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, result.stderr)


class Command(Unpacked):
    def test_it_draws_a_file_of_any_name(self):
        name = "Wohnung Grundriß.dxf"
        with open(FLOOR_PLAN, "rb") as source, open(os.path.join(self.folder, name), "wb") as copy:
            copy.write(source.read())
        plexorn = program(os.path.join(self.prefix, "bin"), "plexorn", support.ARGS.emulator)
        code, _, messages = run_text(*plexorn, "--as-is", name, "-o", "Bild é.svg", cwd=self.folder, env=self.environment())
        self.assertEqual(code, 0, messages)
        self.assertIn("1066 elements drawn", messages)
        with open(os.path.join(self.folder, "Bild é.svg"), encoding="utf-8") as file:
            self.assertIn("<symbol", file.read())

    def test_it_says_its_version(self):
        plexorn = program(os.path.join(self.prefix, "bin"), "plexorn", support.ARGS.emulator)
        code, version, _ = run_text(*plexorn, "--version")
        self.assertEqual(code, 0)
        self.assertIn(support.ARGS.version, version)


class FindPackage(ExamplePrograms, Unpacked):
    """The examples, as they are shipped, built with what is shipped."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.build = os.path.join(cls.folder, "build")
        options = [f"-DPlexorn_ROOT={cls.prefix}"]
        if support.ARGS.toolchain:
            # A cross compiler's CMake looks for packages in its own folders alone, and its runtime goes into
            # the library.
            options = [f"-DPlexorn_DIR={cls.prefix}/lib/cmake/Plexorn",
                       f"-DCMAKE_TOOLCHAIN_FILE={support.ARGS.toolchain}", "-DCMAKE_SHARED_LINKER_FLAGS=-static"]
        run("cmake", "-G", "Ninja", "-S", os.path.join(cls.documents, "examples"), "-B", cls.build,
            "-DCMAKE_C_FLAGS=-Wall -Wextra -Werror", *options)
        run("cmake", "--build", cls.build)
        cls.minimal_host = program(cls.build, "minimal_host", support.ARGS.emulator)
        cls.record_calls = program(os.path.join(cls.build, "own_host"), "record_calls", support.ARGS.emulator)


@unittest.skipIf(support.ARGS.system == "windows", "CMake is the way there")
class PkgConfig(ExamplePrograms, Unpacked):
    """The same programs with pkg-config and a compiler."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        # The folder's name has a blank: pkg-config writes it as a shell has to read it.
        sources = os.path.join(cls.documents, "examples")
        script = f"""
            set -e
            export PKG_CONFIG_PATH='{cls.prefix}/lib/pkgconfig'
            cc() {{ command cc -std=c11 -Wall -Wextra -Werror "$@"; }}
            eval cc "'{sources}/minimal_host.c'" -o minimal_host $(pkg-config --cflags --libs plexorn-svghost)
            own='{sources}/own_host'
            eval cc -shared -fPIC -Wl,-soname,libQuillmarLib.so '"$own/RecordingHost.c"' '"$own/printing.c"' \
                -o libQuillmarLib.so $(pkg-config --cflags plexorn)
            eval cc '"$own/record_calls.c"' -o record_calls -L. -lQuillmarLib "'-Wl,-rpath,\\$ORIGIN'" \
                $(pkg-config --cflags --libs plexorn)
        """
        run("sh", "-c", script, cwd=cls.folder)
        cls.minimal_host = [os.path.join(cls.folder, "minimal_host")]
        cls.record_calls = [os.path.join(cls.folder, "record_calls")]

    def test_the_version_is_printed(self):
        environment = self.environment(PKG_CONFIG_PATH=os.path.join(self.prefix, "lib", "pkgconfig"))
        for package in ("plexorn", "plexorn-svghost"):
            self.assertEqual(run("pkg-config", "--modversion", package, env=environment).strip(), support.ARGS.version)


class FindPackageVersion(Unpacked):
    PROJECT = """
        cmake_minimum_required(VERSION 3.20)
        project(Consumer LANGUAGES C)
        foreach(wanted {versions})
            find_package(Plexorn ${{wanted}} QUIET)
            message(STATUS "wanted ${{wanted}}: ${{Plexorn_FOUND}}")
        endforeach()
    """

    @unittest.skipIf(support.ARGS.system == "windows", "the file is the same")
    def test_another_minor_version_is_refused(self):
        major, minor, _ = (int(part) for part in support.ARGS.version.split("."))
        versions = [f"{major}.{minor}", f"{major}.{minor + 1}", f"{major + 1}.{minor}"]
        with open(os.path.join(self.folder, "CMakeLists.txt"), "w", encoding="utf-8") as file:
            file.write(self.PROJECT.format(versions=" ".join(versions)))
        out = run("cmake", "-S", self.folder, "-B", os.path.join(self.folder, "versions"), f"-DPlexorn_ROOT={self.prefix}")
        self.assertEqual(re.findall(r"wanted (\S+): (\d)", out), list(zip(versions, "100")))
