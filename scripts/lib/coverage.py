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
    return os.path.relpath(os.path.realpath(os.path.join(ROOT, path)), ROOT)


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
    """What is excused, {(file, line, kind): (entry, reason)}, and the entries, whose lines may have gone."""
    excused, entries = {}, []
    with open(EXCEPTIONS, encoding="utf-8") as file:
        rows = [line.rstrip("\n") for line in file if line.strip() and not line.startswith("#")]
    for head, text, reason in zip(rows[::3], rows[1::3], rows[2::3]):
        name, kind, *count = head.split()
        entries.append((name, text.strip(), reason.strip()))
        with open(os.path.join(ROOT, name), encoding="utf-8") as file:
            places = [i for i, line in enumerate(file, 1) if line.strip() == text.strip()]
        if len(places) == 1:
            for line in range(places[0], places[0] + int(count[0] if count else 1)):
                for each in KINDS if kind == "any" else [kind]:
                    excused[name, line, each] = (len(entries) - 1, reason.strip())
    return excused, entries


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
    excused, entries = read_exceptions()
    used, bare = set(), collections.Counter()
    for name, line, kind, detail in report.missed:
        entry, reason = excused.get((name, line, kind), (None, ""))
        if entry is None:
            bare[kind] += 1
        else:
            used.add(entry)
        if entry is None or arguments.all:
            print(f"{name}:{line}: {kind}: {detail + ': ' if detail else ''}{report.text_of(name, line)}"
                  + (f" ({reason})" if reason else ""))
    stale = [entry for i, entry in enumerate(entries) if i not in used and not entry[2].startswith("By chance")]
    for name, text, _ in stale:
        print(f"{name}: '{text}' needs no excuse, or is there no more")
    for kind in KINDS:
        total, reached = report.totals[kind], report.reached[kind]
        missed = total - reached
        print(f"{kind}: {reached} of {total} reached, {100 * reached / max(total, 1):.2f} %; "
              f"{missed - bare[kind]} excused, {bare[kind]} missed")
    return 1 if bare or stale or not report.totals["lines"] else 0


if __name__ == "__main__":
    sys.exit(main())
