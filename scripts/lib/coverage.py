"""Sums up what the tests reached, from llvm-cov's two exports, and lists what they did not."""
import argparse
import collections
import json
import os
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
EXCEPTIONS = os.path.join(ROOT, "scripts", "lib", "coverage-exceptions.txt")
KINDS = ("lines", "branches", "conditions")


def ours(path):
    """The path below the project's folder."""
    return os.path.relpath(os.path.realpath(path), ROOT)


def read_lines(path):
    """Counts of the lines: {file: {line: count}}."""
    counts, file_counts = {}, {}
    with open(path, encoding="utf-8") as file:
        for record in file:
            if record.startswith("SF:"):
                file_counts = counts.setdefault(ours(record[3:].strip()), {})
            elif record.startswith("DA:"):
                line, count = record[3:].split(",")[:2]
                file_counts[int(line)] = max(file_counts.get(int(line), 0), int(count))
    return counts


def read_decisions(path):
    """Branches {(file, place): [times true, times false]} and conditions {(file, place): [shown, ...]}.

    What a template or a macro makes several times counts once, reached when any of them was."""
    branches, conditions = {}, {}
    with open(path, encoding="utf-8") as file:
        data = json.load(file)["data"][0]
    for entry in data["files"]:
        name = ours(entry["filename"])
        for branch in entry["branches"]:
            counts = branches.setdefault((name, *branch[:2]), [0, 0])
            counts[0] += branch[4]
            counts[1] += branch[5]
        for record in entry.get("mcdc_records", []):
            shown = conditions.setdefault((name, *record[:2]), [False] * len(record[-1]))
            for i, value in enumerate(record[-1]):
                shown[i] |= bool(value)
    return branches, conditions


def read_exceptions():
    """What is excused, by (file, text of the line, kind), and why; a paragraph each."""
    excused = {}
    if not os.path.isfile(EXCEPTIONS):
        return excused
    with open(EXCEPTIONS, encoding="utf-8") as file:
        rows = [line.rstrip("\n") for line in file if line.strip() and not line.startswith("#")]
    for head, text, reason in zip(rows[::3], rows[1::3], rows[2::3]):
        name, kind = head.split()
        excused[name, text.strip(), kind] = reason.strip()
    return excused


class Report:
    def __init__(self):
        self.totals, self.reached = collections.Counter(), collections.Counter()
        self.missed = []  # (file, line, kind, detail)
        self.sources = {}

    def text_of(self, name, line):
        if name not in self.sources:
            with open(os.path.join(ROOT, name), encoding="utf-8") as file:
                self.sources[name] = file.read().split("\n")
        return self.sources[name][line - 1].strip()

    def count(self, kind, name, line, reached, detail=""):
        self.totals[kind] += 1
        if reached:
            self.reached[kind] += 1
        else:
            self.missed.append((name, line, kind, detail))


def collect(lines, branches, conditions):
    report = Report()
    for name, counts in lines.items():
        for line, count in counts.items():
            report.count("lines", name, line, count > 0)
    for (name, line, column), (true, false) in branches.items():
        report.count("branches", name, line, true > 0, f"column {column} is never true")
        report.count("branches", name, line, false > 0, f"column {column} is never false")
    for (name, line, _), shown in conditions.items():
        for i, value in enumerate(shown):
            report.count("conditions", name, line, value, f"condition {i + 1} never turns the decision alone")
    report.missed.sort()
    return report


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("decisions", help="llvm-cov's export as text (JSON)")
    parser.add_argument("lines", help="llvm-cov's export as lcov")
    parser.add_argument("--all", action="store_true", help="list what is excused, too")
    arguments = parser.parse_args()
    report = collect(read_lines(arguments.lines), *read_decisions(arguments.decisions))
    excused, used, bare = read_exceptions(), set(), collections.Counter()
    for name, line, kind, detail in report.missed:
        key = (name, report.text_of(name, line), kind)
        if key in excused:
            used.add(key)
            if not arguments.all:
                continue
        else:
            bare[kind] += 1
        reason = f" ({excused[key]})" if key in excused else ""
        print(f"{name}:{line}: {kind}: {detail + ': ' if detail else ''}{key[1]}{reason}")
    stale = excused.keys() - used
    for name, text, kind in sorted(stale):
        print(f"{name}: {kind} of '{text}' need no excuse")
    for kind in KINDS:
        total, reached = report.totals[kind], report.reached[kind]
        missed = total - reached
        print(f"{kind}: {reached} of {total} reached, {100 * reached / max(total, 1):.2f} %; "
              f"{missed - bare[kind]} excused, {bare[kind]} missed")
    return 1 if bare or stale or not report.totals["lines"] else 0


if __name__ == "__main__":
    sys.exit(main())
