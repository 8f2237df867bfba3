"""The command answers a hostile drawing of a megabyte within a second and 200 MB.

    hostile_test.py --command PLEXORN [--seconds N] [--megabytes N] [--emulator WINE]
"""
import argparse
import os
import subprocess
import sys
import tempfile
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, os.path.join(ROOT, "robust"))
import hostile  # noqa: E402

SIZE = 1_000_000

# Runs a command and prints its exit code, the seconds of processor time and the kilobytes that it took at most. A
# process begins with the memory of the one that starts it, which so is a small one.
STARTER = """
import resource, subprocess, sys
if {limit}:
    resource.setrlimit(resource.RLIMIT_AS, ({limit} << 20, {limit} << 20))
    resource.setrlimit(resource.RLIMIT_CPU, (10, 10))
code = subprocess.run(sys.argv[1:], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode
used = resource.getrusage(resource.RUSAGE_CHILDREN)
print(code, used.ru_utime + used.ru_stime, used.ru_maxrss)
"""

# What is given up long before a machine suffers, in megabytes (and ten seconds).
ROOM = 1000

# What the command cannot answer within the limits yet; whoever mends one takes it out of here.
TOO_DEAR = {
    "polyline-far-x": "the host gets the text of all points in one piece, of 317 wide characters each",
    "polyline-far-y": "the same",
}

# How many times the seconds it may take: sixty calls of the host for each byte, which are due.
SLOW = {"stacked-text-drawn-often": 5}

# The worst of the patterns, by what the module and the reference host take for them.
PATTERNS = ("line", "arc", "text", "mtext", "line-with-a-name", "styles", "blocks-with-a-name", "unknown-entity",
            "dashes-used-often", "far-dashes-used-often", "far-dashes", "polyline-far-points",
            "nested-text-drawn-often", "measured-text-drawn-often", "stacked-text-drawn-often",
            "dimension-2lineangulardimension", "line-feeds", "zero-bytes")


class Hostile(unittest.TestCase):
    def cost(self, name):
        """The exit code, the seconds and the megabytes of a pattern."""
        with tempfile.TemporaryDirectory(prefix="plexorn-hostile-") as folder:
            path = os.path.join(folder, "plan.dxf")
            with open(path, "wb") as file:
                file.write(hostile.drawing(hostile.patterns()[name], SIZE))
            # What a sanitizer keeps of freed memory is not the command's.
            environment = {**os.environ, "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "") + ":quarantine_size_mb=1"}
            command = [*ARGUMENTS.emulator, ARGUMENTS.command, "plan.dxf", "-o", "plan.svg"]
            starter = STARTER.replace("{limit}", str(ROOM if ARGUMENTS.megabytes else 0))
            result = subprocess.run([sys.executable, "-c", starter, *command], cwd=folder, env=environment,
                                    capture_output=True, text=True, timeout=600, check=True)
        code, seconds, kilobytes = result.stdout.split()
        return int(code), float(seconds), int(kilobytes) / 1024


def make_test(name):
    def test(self):
        if name in TOO_DEAR and not ARGUMENTS.megabytes:
            self.fail("not tried where its memory has no limit")
        code, seconds, megabytes = self.cost(name)
        print(f"{name:34} {seconds:6.2f} s {megabytes:8.1f} MB")
        self.assertIn(code, (0, 4), "drawn, or no drawing")
        self.assertLessEqual(seconds, ARGUMENTS.seconds * SLOW.get(name, 1))
        if ARGUMENTS.megabytes:
            self.assertLessEqual(megabytes, ARGUMENTS.megabytes)
    return test


for pattern in PATTERNS:
    setattr(Hostile, "test_" + pattern.replace("-", "_"), make_test(pattern))
for pattern in TOO_DEAR:
    setattr(Hostile, "test_" + pattern.replace("-", "_"), unittest.expectedFailure(make_test(pattern)))

if __name__ == "__main__":
    PARSER = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    PARSER.add_argument("--command", required=True)
    PARSER.add_argument("--seconds", type=float, default=1)
    PARSER.add_argument("--megabytes", type=float, default=200, help="0 for any number")
    PARSER.add_argument("--emulator", nargs=1, default=[])
    ARGUMENTS = PARSER.parse_args()
    unittest.main(argv=[sys.argv[0], "-v"])
