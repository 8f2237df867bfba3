"""What is built into everything shipped that makes a mistake hard to use: looked for in the binaries themselves."""
import argparse
import os
import re
import subprocess
import sys
import unittest

ARGS = None
NOW, NOW_1, PIE_1 = 0x8, 0x1, 0x08000000


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def of_each_binary(check):
    """Makes a test of a check that takes a binary's path and headers."""
    def test(self):
        for path in ARGS.binaries:
            with self.subTest(binary=os.path.basename(path)):
                check(self, path, run(ARGS.objdump, "-p", path))
    return test


class Elf(unittest.TestCase):
    @staticmethod
    def dynamic(headers, tag):
        found = re.search(rf"(?m)^ +{tag} +0x([0-9a-f]+)$", headers)
        return int(found.group(1), 16) if found else 0

    @staticmethod
    def needed_functions(path):
        return {line.split()[-1].split("@")[0] for line in run(ARGS.nm, "-D", "--undefined-only", path).splitlines()}

    @staticmethod
    def segments(headers):
        return re.findall(r"(?m)^ +(\w+) off .*\n.* flags (\S+)$", headers)

    @of_each_binary
    def test_no_memory_is_writable_and_executable(self, _, headers):
        segments = self.segments(headers)
        self.assertIn(("STACK", "rw-"), segments)
        self.assertEqual([kind for kind, flags in segments if "w" in flags and "x" in flags], [])

    @of_each_binary
    def test_relocations_are_done_at_the_start_and_read_only_then(self, _, headers):
        self.assertIn("RELRO", dict(self.segments(headers)))
        self.assertTrue(self.dynamic(headers, "FLAGS") & NOW)
        self.assertTrue(self.dynamic(headers, "FLAGS_1") & NOW_1)
        self.assertNotRegex(headers, r"(?m)^ +TEXTREL ")

    @of_each_binary
    def test_code_is_laid_out_at_random(self, path, headers):
        self.assertIn("DYNAMIC", run(ARGS.objdump, "-f", path))
        if ".so" not in os.path.basename(path):
            self.assertTrue(self.dynamic(headers, "FLAGS_1") & PIE_1)

    @of_each_binary
    def test_libraries_are_looked_for_beside_the_binary_alone(self, _, headers):
        # An empty entry is the working directory.
        for path in re.findall(r"(?m)^ +(?:RPATH|RUNPATH) +(.*)$", headers):
            for folder in path.split(":"):
                self.assertRegex(folder, r"^\$ORIGIN/", path)

    @of_each_binary
    def test_return_addresses_are_guarded(self, path, _):
        self.assertIn("__stack_chk_fail", self.needed_functions(path))

    def test_sizes_are_checked_in_calls_of_the_c_library(self):
        # All are compiled alike, and which of them makes a call whose room is known changes with the code.
        if not ARGS.optimised:
            self.skipTest("not optimised: the C library checks nothing")
        names = set().union(*(self.needed_functions(path) for path in ARGS.binaries))
        self.assertRegex(" ".join(names), r"mem(cpy|move|set)_chk|printf_chk")

    def test_large_frames_are_probed_page_by_page(self):
        # The module alone has frames larger than a page.
        code = run(ARGS.objdump, "-d", "--no-show-raw-insn", ARGS.binaries[0])
        if "x86-64" not in code:
            self.skipTest("the probe is known for x86-64 alone")
        self.assertRegex(code, r"\tor[lq] +\$0x0,\(%rsp\)")


class Pe(unittest.TestCase):
    def symbols(self, path):
        return {line.split()[-1] for line in run(ARGS.nm, path).splitlines()}

    @of_each_binary
    def test_code_is_laid_out_at_random_and_data_not_executed(self, _, headers):
        flags = int(headers.split("DllCharacteristics")[1].split()[0], 16)
        for name, bit in (("high-entropy ASLR", 0x20), ("ASLR", 0x40), ("NX", 0x100)):
            self.assertTrue(flags & bit, name)
        # Without relocations nothing can be moved, whatever the flag says.
        size = re.search(r"(?m)^Entry 5 [0-9a-f]+ ([0-9a-f]+) Base Relocation", headers)
        self.assertGreater(int(size.group(1), 16), 0)

    @of_each_binary
    def test_image_base_is_above_4_gib(self, _, headers):
        self.assertGreater(int(re.search(r"ImageBase\s+([0-9a-f]+)", headers).group(1), 16), 1 << 32)

    @of_each_binary
    def test_return_addresses_are_guarded(self, path, _):
        self.assertIn("__stack_chk_fail", self.symbols(path))

    def test_sizes_are_checked_in_calls_of_the_c_library(self):
        # See above.
        if not ARGS.optimised:
            self.skipTest("not optimised: the C library checks nothing")
        names = set().union(*(self.symbols(path) for path in ARGS.binaries))
        self.assertIn("__memcpy_chk", names)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--binaries", nargs="+", required=True, help="the module first")
    parser.add_argument("--configuration", required=True)
    parser.add_argument("--nm", required=True)
    parser.add_argument("--objdump", required=True)
    ARGS, rest = parser.parse_known_args()
    ARGS.optimised = ARGS.configuration != "Debug"
    kind = "Pe" if ARGS.binaries[0].endswith(".dll") else "Elf"
    unittest.main(argv=sys.argv[:1] + rest, defaultTest=kind)
