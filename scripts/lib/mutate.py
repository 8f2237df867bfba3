"""Tries changes of the sources (see mutants.py) against the tests; see scripts/mutate --help."""
import argparse
import collections
import concurrent.futures
import glob
import json
import os
import random
import re
import resource
import shlex
import shutil
import subprocess
import sys
import tempfile

import mutants

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
SURVIVORS = os.path.join(ROOT, "scripts", "lib", "SURVIVORS.md")
MOST_MEMORY = 4 << 30
# Suites that measure or exhaust something.
LEFT_OUT = re.compile(r"^(?:Of\w*/)?(?:Bounds|Corpus|Full|Large|Many|Work)|SmallStack|\.\w*HundredThousand")
# Of the sweeps' faults, every so manieth.
ENVIRONMENT = os.environ | {"PLEXORN_SWEEP_STEP": "97"}


def run(command, **options):
    return subprocess.run(command, capture_output=True, text=True, cwd=options.pop("cwd", ROOT), **options)


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


class Build:
    """How the module's files are compiled, and the tests linked to them.

    Sources and the tests' objects are copied first: work on them can go on meanwhile."""

    def __init__(self, folder, work):
        self.folder, self.work = folder, work
        shutil.copytree(os.path.join(ROOT, "src"), os.path.join(work, "src"))
        self.compile, self.users = {}, collections.defaultdict(set)
        link = ""
        for line in run(["ninja", "-C", folder, "-t", "commands", "plexorn_tests"]).stdout.splitlines():
            if "plexorn_core.dir/" in line and " -c " in line:
                self.add_command(line)
            if " -o bin/plexorn_tests " in line:
                link = line
        words = [word for word in shlex.split(link) if word.endswith((".o", ".a")) and "plexorn_core" not in word]
        self.tests = []
        for i, word in enumerate(words):
            copy = os.path.join(work, f"test{i}-{os.path.basename(word)}")
            self.tests.append(shutil.copy(os.path.join(folder, word), copy))

    def add_command(self, line):
        words = shlex.split(line)
        words = words[words.index("ccache") + 1:] if "ccache" in words else words
        path = os.path.relpath(words[-1], ROOT)
        flags, skip = [], False
        for word in words[1:words.index("-o")]:
            if not skip and word not in ("-MD", "-MT", "-MF") and "FORTIFY" not in word and not word.startswith("-W"):
                flags.append("-O0" if word.startswith("-O") else word.replace(ROOT, self.work))
            skip = word in ("-MT", "-MF")
        self.compile[path] = [words[0], *flags, "-w"]

    def precompile(self):
        """The standard library's headers, which take most of the time of compiling a file, compiled once."""
        names = set()
        for path in glob.glob(os.path.join(self.work, "src", "**", "*.*"), recursive=True):
            with open(path, encoding="utf-8") as file:
                names.update(re.findall(r"(?m)^#include <([a-z_]+)>", file.read()))
        header = os.path.join(self.work, "standard.h")
        with open(header, "w", encoding="utf-8") as file:
            file.write("".join(f"#include <{name}>\n" for name in sorted(names)))
        command = next(iter(self.compile.values()))
        subprocess.run([*command, "-x", "c++-header", header, "-o", header + ".gch"], check=True)
        for command in self.compile.values():
            command[1:1] = ["-include", header]

    def object_of(self, path, folder):
        return os.path.join(folder, path.replace("/", "_") + ".o")

    def compile_one(self, path, folder, overlay=None, source=None):
        command = list(self.compile[path])
        if overlay:
            command.insert(1, "-I" + overlay)
        depends = self.object_of(path, folder) + ".d"
        command += ["-MMD", "-MF", depends, "-o", self.object_of(path, folder)]
        command += ["-c", source or os.path.join(self.work, path)]
        return run(command).returncode == 0

    def compile_all(self, jobs):
        self.precompile()
        with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
            if not all(pool.map(lambda path: self.compile_one(path, self.work), self.compile)):
                sys.exit("mutate: the sources do not compile as they are")
        for path in self.compile:
            with open(self.object_of(path, self.work) + ".d", encoding="utf-8") as file:
                for name in file.read().replace("\\\n", " ").split():
                    if os.path.realpath(name).startswith(os.path.join(self.work, "src") + os.sep):
                        self.users[os.path.relpath(os.path.realpath(name), self.work)].add(path)

    def link(self, folder, changed):
        objects = [self.object_of(path, folder if path in changed else self.work) for path in self.compile]
        program = os.path.join(folder, "tests")
        # The changed objects come first: of a header's functions the first copy is taken.
        result = run(["g++", "-fuse-ld=mold", "-o", program, *objects, *self.tests, "-lpthread"])
        return program if result.returncode == 0 else None


class Tests:
    """The tests in two parts, the quick ones first."""

    def __init__(self, program, work):
        report = os.path.join(work, "report.json")
        names = [name for name in self.names(program) if not LEFT_OUT.search(name)]
        result = self.run_names(program, names, work, ["--gtest_output=json:" + report], timeout=1800, fail_fast=False)
        if result != 0:
            sys.exit("mutate: the tests fail as the sources are")
        with open(report, encoding="utf-8") as file:
            suites = json.load(file)["testsuites"]
        times = {f"{suite['name']}.{test['name']}": float(test["time"].rstrip("s"))
                 for suite in suites for test in suite["testsuite"]}
        quick = [name for name in names if times.get(name, 0) < 0.05]
        slow = [name for name in names if name not in set(quick)]
        # A change that never ends is stopped; the machine may be busier then than now.
        self.parts = [(part, 5 + 5 * sum(times.get(name, 0) for name in part)) for part in (quick, slow) if part]

    @staticmethod
    def names(program):
        suite, found = "", []
        for line in run([program, "--gtest_list_tests"]).stdout.splitlines():
            name = line.split("#")[0].rstrip()
            if name.endswith(".") and not name.startswith(" "):
                suite = name
            elif name.startswith("  "):
                found.append(suite + name.strip())
        return found

    @staticmethod
    def run_names(program, names, folder, more=(), timeout=None, fail_fast=True):
        flags = os.path.join(folder, "flags")
        with open(flags, "w", encoding="utf-8") as file:
            file.write("--gtest_filter=" + ":".join(names) + "\n")
        command = [program, "--gtest_flagfile=" + flags, "--gtest_brief=1", *more]
        if fail_fast:
            command.append("--gtest_fail_fast")
        try:
            return subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, cwd=folder,
                                  env=ENVIRONMENT, timeout=timeout, preexec_fn=limit_memory).returncode
        except subprocess.TimeoutExpired:
            return -1

    def notice(self, program, folder):
        return any(self.run_names(program, part, folder, timeout=timeout) != 0 for part, timeout in self.parts)


def try_one(build, tests, mutant):
    """What becomes of a change: "killed", "survived" or "not compiled"."""
    folder = tempfile.mkdtemp(dir=build.work)
    try:
        overlay = os.path.join(folder, "overlay")
        place = os.path.join(overlay, os.path.relpath(mutant.path, "src"))
        os.makedirs(os.path.dirname(place))
        with open(place, "w", encoding="utf-8") as file:
            file.write(mutants.apply(build.work, mutant))
        changed = sorted(build.users[mutant.path])
        for path in changed:
            source = place if path == mutant.path else None
            if not build.compile_one(path, folder, overlay, source):
                return "not compiled"
        program = build.link(folder, set(changed))
        if program is None:
            return "not compiled"
        return "killed" if tests.notice(program, folder) else "survived"
    finally:
        shutil.rmtree(folder, ignore_errors=True)


def all_mutants(build, files):
    paths = [path for path in sorted(build.users) if not files or path in files]
    return [mutant for path in paths for mutant in mutants.find(build.work, path)]


def explained():
    """The lines of survivors that are explained: (file, text of the line, change)."""
    if not os.path.isfile(SURVIVORS):
        return set()
    with open(SURVIVORS, encoding="utf-8") as file:
        return set(re.findall(r"(?m)^- `([^`]+)`: `(.+?)`, `(.+? -> .*?)`", file.read()))


def is_explained(build, mutant, known):
    with open(os.path.join(build.work, mutant.path), encoding="utf-8") as file:
        text = file.read().split("\n")[mutant.line - 1].strip()
    return (mutant.path, text, f"{mutant.old} -> {mutant.new}") in known


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", required=True)
    parser.add_argument("--sample", type=int, help="try so many, chosen at random")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--file", action="append", default=[], help="of this file alone; may be repeated")
    parser.add_argument("--jobs", type=int, default=min(2, os.cpu_count() or 1))
    parser.add_argument("--list", action="store_true", help="show the changes and try none")
    parser.add_argument("--keep", help="append each outcome to this file")
    parser.add_argument("--again", help="try only those that this file, kept before, lists as survivors")
    arguments = parser.parse_args()
    files = {os.path.relpath(os.path.abspath(path), ROOT) for path in arguments.file}
    with tempfile.TemporaryDirectory(prefix="plexorn-mutants-") as work:
        build = Build(os.path.abspath(arguments.build), work)
        build.compile_all(arguments.jobs)
        chosen = all_mutants(build, files)
        print(f"{len(chosen)} changes can be made", flush=True)
        if arguments.again:
            with open(arguments.again, encoding="utf-8") as file:
                survived = {line.rstrip("\n").partition("\t")[2] for line in file if line.startswith("survived")}
            chosen = [mutant for mutant in chosen if str(mutant) in survived]
        if arguments.sample and arguments.sample < len(chosen):
            chosen = random.Random(arguments.seed).sample(chosen, arguments.sample)
        if arguments.list:
            print("\n".join(map(str, chosen)))
            return 0
        program = build.link(work, set())
        if program is None:
            sys.exit("mutate: the tests do not link")
        tests = Tests(program, work)
        print(f"{' + '.join(str(len(part)) for part, _ in tests.parts)} tests, the quick ones first", flush=True)
        counts, survivors, known = collections.Counter(), [], explained()
        with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
            for mutant, outcome in zip(chosen, pool.map(lambda mutant: try_one(build, tests, mutant), chosen)):
                counts[outcome] += 1
                if outcome == "survived":
                    survivors.append(mutant)
                if arguments.keep:
                    with open(arguments.keep, "a", encoding="utf-8") as file:
                        file.write(f"{outcome}\t{mutant}\n")
        unexplained = 0
        for mutant in survivors:
            is_known = is_explained(build, mutant, known)
            unexplained += not is_known
            print(f"survived: {mutant}" + (" (explained)" if is_known else ""))
    judged = counts["killed"] + counts["survived"]
    print(f"{counts['killed']} killed, {counts['survived']} survived, {counts['not compiled']} not compiled; "
          f"score {100 * counts['killed'] / max(judged, 1):.1f} %, and "
          f"{100 * counts['killed'] / max(counts['killed'] + unexplained, 1):.1f} % without what is explained")
    return 1 if unexplained else 0


if __name__ == "__main__":
    sys.exit(main())
