"""Sums up what the test runs found: summary.py FOLDER RUN... reads FOLDER/RUN.xml, as ctest writes it.

A program that runs many tests counts with all of them, as its output says. Prints the failures and
one closing line; the exit code is 1 when something failed or a run has no results.
"""
import os
import re
import sys
import xml.etree.ElementTree as ElementTree

GTEST_RAN = re.compile(r"^\[==========\] (\d+) tests? from \d+ test suites? ran\b", re.MULTILINE)
GTEST_COUNT = re.compile(r"^\[  (PASSED|SKIPPED) ?\s*\] (\d+) tests?\b", re.MULTILINE)
UNITTEST = re.compile(r"^Ran (\d+) tests? in .*\n+(?:OK|FAILED)(?: \((.*)\))?\s*$", re.MULTILINE)


def gtest_counts(output):
    counts = {"PASSED": 0, "SKIPPED": 0}
    for kind, number in GTEST_COUNT.findall(output):
        counts[kind] += int(number)
    # The brief form does not count the failures.
    ran = sum(int(number) for number in GTEST_RAN.findall(output))
    return counts["PASSED"], max(0, ran - sum(counts.values())), counts["SKIPPED"]


def unittest_counts(output):
    passed = failed = skipped = 0
    for total, details in UNITTEST.findall(output):
        numbers = {name: int(number) for name, number in re.findall(r"([a-z][a-z ]*)=(\d+)", details)}
        bad = numbers.get("failures", 0) + numbers.get("errors", 0)
        skips = numbers.get("skipped", 0)
        passed += max(0, int(total) - bad - skips)
        failed += bad
        skipped += skips
    return passed, failed, skipped


def counts_of(case):
    """Passed, failed and skipped tests of one entry of ctest; each entry counts at least once."""
    output = (case.findtext("system-out") or "").replace("\r\n", "\n")
    counts = [sum(pair) for pair in zip(gtest_counts(output), unittest_counts(output))]
    if case.find("failure") is not None or case.get("status") == "fail":
        # A program that crashed, hung or leaked failed, whatever it printed before.
        counts[1] = max(1, counts[1])
    elif case.find("skipped") is not None or case.get("status") in ("notrun", "disabled"):
        counts[2] = max(1, counts[2])
    elif sum(counts) == 0 and not GTEST_RAN.search(output) and not UNITTEST.search(output):
        counts[0] = 1
    return counts


def summarise(folder, runs):
    """The three sums, and a line for everything that failed."""
    sums, failures = [0, 0, 0], []
    for run in runs:
        path = os.path.join(folder, run + ".xml")
        if not os.path.isfile(path):
            failures.append(f"{run}: not built")
            sums[1] += 1
            continue
        for case in ElementTree.parse(path).getroot().iter("testcase"):
            counts = counts_of(case)
            sums = [sum(pair) for pair in zip(sums, counts)]
            if counts[1]:
                failures.append(f"{run}: {case.get('name')}")
    return sums, failures


if __name__ == "__main__":
    totals, failed_cases = summarise(sys.argv[1], sys.argv[2:])
    for line in failed_cases:
        print(f"failed: {line}")
    print("{} passed, {} failed, {} skipped".format(*totals))
    sys.exit(1 if totals[1] else 0)
