"""What the built module exports and imports: a host links it by these names alone."""
import argparse
import re
import struct
import subprocess
import sys
import unittest

ARGS = None

# The Windows DLLs that every installation has; the C++ runtime is linked into the module. The guard of the stack
# takes its random value from advapi32.dll.
SYSTEM_DLLS = {"kernel32.dll", "advapi32.dll", "msvcrt.dll", "ucrtbase.dll"}
SYSTEM_LIBRARIES = re.compile(r"^(libstdc\+\+|libc\+\+|libc\+\+abi|libm|libc|libgcc_s|libpthread|ld-linux[\w-]*)\.so\.\d+$")


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def host_operations():
    with open(ARGS.def_file, encoding="utf-8") as file:
        return sorted(line.strip() for line in file if line.startswith(" "))


class Operations(unittest.TestCase):
    def test_there_are_fourteen(self):
        self.assertEqual(len(set(host_operations())), 14)


class Elf(unittest.TestCase):
    def setUp(self):
        self.headers = run(ARGS.objdump, "-p", ARGS.module)

    def dynamic(self, tag):
        return re.findall(rf"^ +{tag} +(\S+)$", self.headers, re.MULTILINE)

    def test_exports_dxfFileOpen_alone(self):
        lines = run(ARGS.nm, "-D", "--defined-only", ARGS.module).split("\n")
        exports = [line.split()[1:] for line in lines if line]
        self.assertEqual(exports, [["T", "dxfFileOpen"]])

    def test_needs_the_host_and_the_runtime_only(self):
        needed = self.dynamic("NEEDED")
        self.assertIn("libQuillmarLib.so", needed)
        strangers = [name for name in needed if name != "libQuillmarLib.so" and not SYSTEM_LIBRARIES.match(name)]
        self.assertEqual(strangers, [])

    def test_imports_the_fourteen_operations_and_no_other(self):
        lines = run(ARGS.nm, "-D", "--undefined-only", ARGS.module).split("\n")
        names = [line.split()[-1].split("@")[0] for line in lines if line]
        self.assertEqual(sorted(name for name in names if name.startswith("qlm")), host_operations())

    def test_leaves_the_search_for_the_host_to_the_host(self):
        self.assertEqual(self.dynamic("RPATH") + self.dynamic("RUNPATH"), [])

    def test_is_named_for_hosts_that_link_it(self):
        self.assertEqual(self.dynamic("SONAME"), ["libPlexorn.so"])


class Pe(unittest.TestCase):
    def setUp(self):
        self.headers = run(ARGS.objdump, "-p", ARGS.module)

    def imports(self):
        """The imported names of each DLL."""
        tables = self.headers.split("The Import Tables")[1].split("The Export Tables")[0]
        found = {}
        for part in tables.split("DLL Name: ")[1:]:
            name, _, rest = part.partition("\n")
            found[name.strip()] = re.findall(r"^\t[0-9a-f]+\t +\d+  (\S+)", rest, re.MULTILINE)
        return found

    def test_exports_dxfFileOpen_alone_undecorated(self):
        table = self.headers.split("[Ordinal/Name Pointer] Table")[1].split("\n\n")[0]
        names = re.findall(r"^\t\[ *\d+\](?: \+base\[ *\d+\])? +(?:[0-9a-f]+ )?(\S+)$", table, re.MULTILINE)
        self.assertEqual(names, ["dxfFileOpen"])
        self.assertRegex(self.headers, r"Export Address Table \t\t00000001\n")

    def test_imports_the_fourteen_operations_and_no_other(self):
        self.assertEqual(sorted(self.imports()["QuillmarLib.dll"]), host_operations())

    def test_needs_the_host_and_what_every_windows_has(self):
        strangers = [name for name in self.imports() if name != "QuillmarLib.dll" and
                     name.lower() not in SYSTEM_DLLS and not name.lower().startswith("api-ms-win-crt-")]
        self.assertEqual(strangers, [])

    def test_is_for_64_bit_windows(self):
        self.assertRegex(self.headers, r"Magic\s+020b")

    def test_carries_its_version(self):
        with open(ARGS.module, "rb") as file:
            data = file.read()
        start = data.index("VS_VERSION_INFO".encode("utf-16-le"))
        fixed = data.index(struct.pack("<I", 0xFEEF04BD), start)
        high, low = struct.unpack_from("<II", data, fixed + 8)
        version = f"{high >> 16}.{high & 0xFFFF}.{low >> 16}"
        self.assertEqual(version, ARGS.version)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--module", required=True)
    parser.add_argument("--version", required=True)
    parser.add_argument("--def", dest="def_file", required=True)
    parser.add_argument("--nm", required=True)
    parser.add_argument("--objdump", required=True)
    ARGS, rest = parser.parse_known_args()
    kind = "Pe" if ARGS.module.endswith(".dll") else "Elf"
    unittest.main(argv=sys.argv[:1] + rest, defaultTest=["Operations", kind])
