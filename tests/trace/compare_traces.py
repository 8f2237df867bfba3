#!/usr/bin/env python3
"""Compares the traces of real drawings that the test programs of two platforms wrote.

    compare_traces.py [folder]      folder holds posix/ and windows/ (build/traces by default)

Numbers must agree to the last digit. Ends with 1 when a line differs, with 77 when one platform's traces are
not there yet. Each drawing must have been read from the same bytes on both.
"""
import itertools
import pathlib
import re
import sys

SKIPPED = 77
SHOWN = 5
NUMBER = re.compile(r"-?\d+(?:\.\d+)?(?:e[+-]?\d+)?")


def differing_lines(left, right):
    """The pairs of lines that are not equal, with their numbers."""
    pairs = itertools.zip_longest(left.read_text().splitlines(), right.read_text().splitlines(), fillvalue="")
    return [(number, a, b) for number, (a, b) in enumerate(pairs, 1) if a != b]


def largest_difference(a, b):
    """How far two lines are apart that differ in numbers alone; infinite for any other difference."""
    if NUMBER.sub("#", a) != NUMBER.sub("#", b):
        return float("inf")
    return max((abs(float(x) - float(y)) for x, y in zip(NUMBER.findall(a), NUMBER.findall(b))), default=0.0)


def compare(left, right):
    """Reports one drawing; the number of lines that differ."""
    lines = differing_lines(left, right)
    if lines:
        furthest = max(largest_difference(a, b) for _, a, b in lines)
        print(f"{left.name}: {len(lines)} lines differ, by {furthest:g} at most")
        for number, a, b in lines[:SHOWN]:
            print(f"  line {number}\n    {left.parent.name}: {a[:200]}\n    {right.parent.name}: {b[:200]}")
    return len(lines)


def main():
    """Compares all drawings."""
    default = pathlib.Path(__file__).resolve().parents[2] / "build" / "traces"
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else default
    platforms = [folder / "posix", folder / "windows"]
    names = [{path.name for path in platform.glob("*.trace")} for platform in platforms]
    if not all(names):
        print(f"Skipped: {folder} does not hold the traces of both platforms.")
        return SKIPPED
    for name in sorted(names[0] ^ names[1]):
        print(f"{name}: on one platform only")
    count = sum(compare(platforms[0] / name, platforms[1] / name) for name in sorted(names[0] & names[1]))
    total = sum(len((platforms[0] / name).read_text().splitlines()) for name in names[0] & names[1])
    print(f"{len(names[0] & names[1])} drawings, {total} lines, {count} differ.")
    return 1 if count or names[0] != names[1] else 0


if __name__ == "__main__":
    sys.exit(main())
