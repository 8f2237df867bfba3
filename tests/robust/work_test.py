"""Twice the input costs about twice the instructions: runs a test program's suite Work under callgrind and compares.

    work_test.py --program TESTS [--filter Work.*]

The program says through support/CountedWork.h what it runs: a label, a size and how many steps were made. Counts are
the same on a busy machine.
"""
import argparse
import collections
import os
import re
import subprocess
import sys
import tempfile
import unittest

COUNTED = "PlexornCountedWork"
ARGUMENTS = None

# Work that grows with the square of its input quadruples.
MOST_GROWTH = 2.2

# What a byte of a drawing may cost, in those of an ordinary one, by the first part of its label. The host's calls count
# as what they cost in the ordinary drawing: a dimension is drawn again at each marker.
ORDINARY = "hostile/ordinary"
MOST_OF_ORDINARY = {"hostile": 20, "hostile-far": 120}

Run = collections.namedtuple("Run", "label size steps instructions")


def counted_runs(program):
    """What the program ran, with the instructions of each."""
    with tempfile.TemporaryDirectory() as folder:
        log, out = os.path.join(folder, "work"), os.path.join(folder, "out")
        command = ["valgrind", "--tool=callgrind", "--callgrind-out-file=" + out, "--combine-dumps=yes",
                   "--toggle-collect=" + COUNTED, "--dump-after=" + COUNTED, program, "--gtest_filter=" + ARGUMENTS.filter]
        process = subprocess.run(command, capture_output=True, text=True, env={**os.environ, "PLEXORN_WORK": log})
        if process.returncode != 0:
            raise RuntimeError(process.stdout[-2000:] + process.stderr[-2000:])
        with open(out, encoding="utf-8") as file:
            counts = [int(count) for count in re.findall(r"(?m)^totals: (\d+)$", file.read())]
        with open(log, encoding="utf-8") as file:
            lines = [line.rstrip("\n").split("\t") for line in file]
    # Another part, without work, comes when the program ends.
    if len(counts) != len(lines) + 1:
        raise RuntimeError(f"{len(lines)} runs, but {len(counts)} counts")
    return [Run(label, int(size), int(steps), count) for (label, size, steps), count in zip(lines, counts)]


def by_label(runs):
    """The runs of each label by size, without what it costs with nothing in it."""
    found = collections.defaultdict(dict)
    for run in runs:
        found[run.label][run.size] = run
    kept = {}
    for label, sizes in found.items():
        nothing = sizes.pop(0)
        kept[label] = [run._replace(instructions=max(1, run.instructions - nothing.instructions))
                       for _, run in sorted(sizes.items())]
    return kept


def growth(small, large):
    """How much faster the instructions grow than the size, as if it had doubled."""
    return 2 * (large.instructions / small.instructions) / (large.size / small.size)


def share_of_ordinary(run, ordinary):
    """The cost of a byte in those of the ordinary drawing."""
    bytes_share = run.size / ordinary.size
    calls = max(1, run.steps / ordinary.steps / bytes_share)
    return run.instructions / ordinary.instructions / bytes_share / calls


def problems(runs):
    labels = by_label(runs)
    found = []
    for label, (small, large) in labels.items():
        grown = growth(small, large)
        print(f"{label:44} {small.instructions / small.size:10.1f} instructions for each, growth {grown:5.3f}")
        if grown > MOST_GROWTH:
            found.append(f"{label}: twice the size costs {grown:.2f} times the instructions")
        most = MOST_OF_ORDINARY.get(label.split("/")[0])
        if most is None:
            continue
        share = share_of_ordinary(small, labels[ORDINARY][0])
        if share > most:
            found.append(f"{label}: {share:.1f} times the instructions of an ordinary drawing, {most} are due")
    return found


class Program(unittest.TestCase):
    def test_work_is_in_proportion(self):
        runs = counted_runs(ARGUMENTS.program)
        self.assertGreater(len(runs), 3)
        self.assertEqual(problems(runs), [])


class Judge(unittest.TestCase):
    """The comparison sees what it is there for."""

    ORDINARY_RUNS = [Run(ORDINARY, 0, 0, 500), Run(ORDINARY, 1000, 40, 10_500), Run(ORDINARY, 2000, 80, 20_500)]

    def runs(self, label, cost, steps=40):
        return [Run(label, size, steps * size // 1000, 500 + cost(size)) for size in (0, 1000, 2000)]

    def found(self, runs):
        return problems(self.ORDINARY_RUNS + runs)

    def test_proportion(self):
        self.assertEqual(self.found(self.runs("hostile/a", lambda n: 100 * n)), [])

    def test_a_square(self):
        self.assertEqual(self.found(self.runs("x", lambda n: n * n)),
                         ["x: twice the size costs 4.00 times the instructions"])

    def test_a_square_beside_much_that_is_linear(self):
        self.assertEqual(self.found(self.runs("x", lambda n: 5000 * n + n * n)),
                         ["x: twice the size costs 2.33 times the instructions"])

    def test_what_stays_the_same_hides_nothing(self):
        runs = [run._replace(instructions=run.instructions + 10 ** 9) for run in self.runs("x", lambda n: n * n)]
        self.assertEqual(self.found(runs), ["x: twice the size costs 4.00 times the instructions"])

    def test_dear_bytes(self):
        self.assertEqual(self.found(self.runs("hostile/a", lambda n: 210 * n)),
                         ["hostile/a: 21.0 times the instructions of an ordinary drawing, 20 are due"])
        self.assertEqual(self.found(self.runs("hostile-far/a", lambda n: 210 * n)), [])

    def test_calls_that_are_due(self):
        self.assertEqual(self.found(self.runs("hostile/a", lambda n: 210 * n, steps=80)), [])


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True)
    parser.add_argument("--filter", default="Work.*", help="the tests to run, as the program names them")
    ARGUMENTS, rest = parser.parse_known_args()
    unittest.main(argv=sys.argv[:1] + rest)
