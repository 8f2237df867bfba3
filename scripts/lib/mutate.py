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
import signal
import subprocess
import sys
import tempfile
import time
import typing

import mutants

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
SURVIVORS = os.path.join(ROOT, "scripts", "lib", "SURVIVORS.md")
MOST_MEMORY = 4 << 30
# The command, which the cases of tests/cli run.
COMMAND = "plexorn_cli"
CASES = os.path.join("tests", "cli")


class Subject(typing.NamedTuple):
    """A folder that is changed: the programs that are linked with each change, and the command's cases."""
    programs: tuple
    cases: tuple = ()


SUBJECTS = {
    "src": Subject(("plexorn_tests",)),
    "svghost": Subject(("svghost_tests", COMMAND), ("picture_cases",)),
    "cli": Subject(("cli_parts_tests", COMMAND), (
        "binary_cases", "damaged_cases", "encodings_cases", "files_cases", "info_cases", "json_cases", "layers_cases",
        "layout_cases", "manners_cases", "many_cases", "messages_cases", "options_cases", "outcome_cases",
        "picture_cases", "posix_cases", "prepare_cases", "sniffing_cases")),
    "prepare": Subject(("prepare_tests", "prepare_module_tests")),
}
COPIED = re.compile(re.escape(ROOT) + rf"(?=$|/(?:{'|'.join(SUBJECTS)})(?:/|$))")
# What a program is linked from; but not the library that stands for the host until there is one.
LINKED = re.compile(r"^(?!-|src/import/).*\.(?:o|a|so[.\d]*)$")
# Suites that measure or exhaust something.
LEFT_OUT = re.compile(r"^(?:Of\w*/)?(?:Bounds|Corpus|Full|Large|Many|Work)|SmallStack|\.\w*HundredThousand")
# Of the sweeps' faults, every so manieth.
ENVIRONMENT = os.environ | {"PLEXORN_SWEEP_STEP": "97", "LOCPATH": os.path.join(ROOT, "build", "deps", "locale")}


def run(command, **options):
    return subprocess.run(command, capture_output=True, text=True, cwd=options.pop("cwd", ROOT), **options)


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def build_programs(folder, programs):
    result = run(["cmake", "--build", folder, "--parallel", str(os.cpu_count() or 1), "--target", *programs])
    if result.returncode != 0:
        sys.exit(result.stdout + result.stderr)


def read_commands(lines):
    """Of the commands that make a program: how each object is compiled, what each archive, library and program is
    linked from, and the name of the last of them, the program."""
    commands, inputs, output = {}, {}, ""
    for line in lines:
        words = shlex.split(line)
        before_output = "-o" if "-o" in words else "qc"
        if before_output not in words:
            continue
        output = words[words.index(before_output) + 1]
        if "-c" in words:
            commands[output] = words
        else:
            inputs[output] = [word for word in words if LINKED.search(word) and word != output]
    return commands, inputs, output


class Build:
    """How the sources of a subject are compiled, and the programs they are linked to.

    Sources, objects and the command's cases are copied first: work on them can go on meanwhile."""

    def __init__(self, folder, work, subject):
        self.folder, self.work, self.subject = folder, work, subject
        for name in (*SUBJECTS, CASES, "examples"):
            shutil.copytree(os.path.join(ROOT, name), os.path.join(work, name))
        self.compile, self.objects, self.copies = {}, {}, {}
        self.programs = {program: self.read_program(program) for program in SUBJECTS[subject].programs}
        self.users = self.find_users()
        self.precompile()

    def read_program(self, program):
        """What the program is linked from: sources of the subject, and files that stay as they are."""
        commands, inputs, output = read_commands(
            run(["ninja", "-C", self.folder, "-t", "commands", program]).stdout.splitlines())

        def is_changed(name):
            return name in commands and self.path_of(commands[name]).startswith(self.subject + os.sep)

        def expand(output):
            for name in inputs[output]:
                if is_changed(name):
                    path = self.path_of(commands[name])
                    self.add_command(path, commands[name])
                    self.objects[path] = name
                    self.copy(name)
                    yield path
                elif name.endswith(".so") and name in inputs or any(map(is_changed, inputs.get(name, ()))):
                    yield from expand(name)
                else:
                    yield self.copy(name)

        return list(dict.fromkeys(expand(output)))

    @staticmethod
    def path_of(words):
        return os.path.relpath(words[-1], ROOT)

    def copy(self, name):
        if os.path.isabs(name):
            return name
        if name not in self.copies:
            self.copies[name] = os.path.join(self.work, f"linked{len(self.copies)}-{os.path.basename(name)}")
            shutil.copy(os.path.join(self.folder, name), self.copies[name])
        return self.copies[name]

    def add_command(self, path, words):
        words = words[words.index("ccache") + 1:] if "ccache" in words else words
        flags, skip = [], False
        for word in words[1:words.index("-o")]:
            if not skip and word not in ("-MD", "-MT", "-MF") and "FORTIFY" not in word and not word.startswith("-W"):
                # One way for all, so that all can use the headers compiled before.
                word = "-O0" if word.startswith("-O") else "-fPIC" if word == "-fPIE" else word
                flags.append(COPIED.sub(self.work.replace("\\", r"\\"), word))
            skip = word in ("-MT", "-MF")
        self.compile[path] = [words[0], *flags, "-w"]

    def find_users(self):
        """The sources that each file of the subject goes into."""
        users, path = collections.defaultdict(set), None
        paths = {name: path for path, name in self.objects.items()}
        for line in run(["ninja", "-C", self.folder, "-t", "deps", *paths]).stdout.splitlines():
            if not line.startswith(" "):
                path = paths.get(line.partition(":")[0])
                continue
            used = os.path.relpath(os.path.join(self.folder, line.strip()), ROOT)
            if used.startswith(self.subject + os.sep):
                users[used].add(path)
        return users

    def precompile(self):
        """The standard library's headers, which take most of the time of compiling a file, compiled once."""
        names = set()
        for path in glob.glob(os.path.join(self.work, self.subject, "**", "*.*"), recursive=True):
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
            command[1:1] = ["-I" + overlay, "-I" + os.path.join(overlay, "src")]
        command += ["-o", self.object_of(path, folder), "-c", source or os.path.join(self.work, path)]
        return run(command).returncode == 0

    def link(self, program, folder, changed):
        """The program, in a folder like that of a build; None if it does not link."""
        path = os.path.join(folder, "bin", program)
        if not os.path.isdir(os.path.dirname(path)):
            os.mkdir(os.path.dirname(path))
            os.symlink(os.path.join(self.folder, "lib"), os.path.join(folder, "lib"))
        # The subject's objects come first: of a header's functions the first copy is taken.
        words = sorted(self.programs[program], key=lambda word: word not in self.compile)
        objects = [self.object_of(word, folder) if word in changed else
                   self.copies[self.objects[word]] if word in self.compile else word for word in words]
        result = run(["g++", "-fuse-ld=mold", "-o", path, *objects, "-lpthread"])
        return path if result.returncode == 0 else None


class GoogleTests:
    """Some of the tests of a program."""

    def __init__(self, program, names):
        self.program, self.names = program, names

    def __str__(self):
        return f"{len(self.names)} tests"

    def command(self, path, folder):
        flags = os.path.join(folder, "flags")
        with open(flags, "w", encoding="utf-8") as file:
            file.write("--gtest_filter=" + ":".join(self.names) + "\n")
        return [path, "--gtest_flagfile=" + flags, "--gtest_brief=1", "--gtest_fail_fast"]


class Cases:
    """The cases of the command in one module."""
    program = COMMAND

    def __init__(self, module, work):
        self.module, self.script = module, os.path.join(work, CASES, "command_test.py")
        with open(os.path.join(ROOT, "CMakeLists.txt"), encoding="utf-8") as file:
            self.version = re.search(r"project\(Plexorn VERSION ([\d.]+)", file.read()).group(1)

    def __str__(self):
        return self.module

    def command(self, path, _):
        return [sys.executable, "-B", self.script, "--failfast", self.module, "--command", path, "--version",
                self.version]


class Tests:
    """The tests in parts, the quickest first."""

    def __init__(self, build):
        parts = []
        for program in build.programs:
            path = build.link(program, build.work, set())
            if path is None:
                sys.exit(f"mutate: {program} does not link")
            if program == COMMAND:
                parts += [Cases(module, build.work) for module in SUBJECTS[build.subject].cases]
            else:
                parts += self.quick_and_slow(program, path, build.work)
        self.timed = sorted(((self.seconds(part, build.work), part) for part in parts), key=lambda timed: timed[0])

    def seconds(self, part, work):
        """How long the part takes with the sources as they are."""
        begin = time.monotonic()
        if self.run(part.command(os.path.join(work, "bin", part.program), work), work, 1800) != 0:
            sys.exit(f"mutate: {part} of {part.program} fail as the sources are")
        return time.monotonic() - begin

    def quick_and_slow(self, program, path, work):
        report = os.path.join(work, "report.json")
        names = [name for name in self.names(path) if not LEFT_OUT.search(name)]
        self.run([*GoogleTests(program, names).command(path, work), "--gtest_output=json:" + report], work, 1800)
        with open(report, encoding="utf-8") as file:
            suites = json.load(file)["testsuites"]
        times = {f"{suite['name']}.{test['name']}": float(test["time"].rstrip("s"))
                 for suite in suites for test in suite["testsuite"]}
        quick = [name for name in names if times.get(name, 0) < 0.05]
        slow = [name for name in names if name not in set(quick)]
        return [GoogleTests(program, part) for part in (quick, slow) if part]

    @staticmethod
    def names(path):
        suite, found = "", []
        for line in run([path, "--gtest_list_tests"]).stdout.splitlines():
            name = line.split("#")[0].rstrip()
            if name.endswith(".") and not name.startswith(" "):
                suite = name
            elif name.startswith("  "):
                found.append(suite + name.strip())
        return found

    @staticmethod
    def run(command, folder, timeout):
        with subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              cwd=folder, env=ENVIRONMENT, start_new_session=True, preexec_fn=limit_memory) as process:
            try:
                return process.wait(timeout)
            except subprocess.TimeoutExpired:
                # With the commands that it runs.
                os.killpg(process.pid, signal.SIGKILL)
                return -1

    def outcome(self, link, folder):
        """What becomes of a change; link gives a program with it."""
        programs = {}
        for seconds, part in self.timed:
            if part.program not in programs:
                programs[part.program] = link(part.program)
            if programs[part.program] is None:
                return "not compiled"
            # A change that never ends is stopped; the machine may be busier then than now.
            if self.run(part.command(programs[part.program], folder), folder, 5 + 5 * seconds) != 0:
                return "killed"
        return "survived"


def try_one(build, tests, mutant):
    """What becomes of a change: "killed", "survived" or "not compiled"."""
    folder = tempfile.mkdtemp(dir=build.work)
    os.chmod(folder, 0o755)  # some cases run the command as another user
    try:
        overlay = os.path.join(folder, "overlay")
        place = os.path.join(overlay, mutant.path)
        os.makedirs(os.path.dirname(place))
        with open(place, "w", encoding="utf-8") as file:
            file.write(mutants.apply(build.work, mutant))
        changed = sorted(build.users[mutant.path])
        for path in changed:
            source = place if path == mutant.path else None
            if not build.compile_one(path, folder, overlay, source):
                return "not compiled"
        return tests.outcome(lambda program: build.link(program, folder, set(changed)), folder)
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
    parser.add_argument("--of", choices=SUBJECTS, default="src", help="the folder that is changed")
    parser.add_argument("--sample", type=int, help="try so many, chosen at random")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--file", action="append", default=[], help="of this file alone; may be repeated")
    parser.add_argument("--jobs", type=int, default=min(2, os.cpu_count() or 1))
    parser.add_argument("--list", action="store_true", help="show the changes and try none")
    parser.add_argument("--keep", help="append each outcome to this file")
    parser.add_argument("--again", help="try only those that this file, kept before, lists as survivors")
    arguments = parser.parse_args()
    files = {os.path.relpath(os.path.abspath(path), ROOT) for path in arguments.file}
    build_programs(arguments.build, SUBJECTS[arguments.of].programs)
    with tempfile.TemporaryDirectory(prefix="plexorn-mutants-") as work:
        os.chmod(work, 0o755)
        build = Build(os.path.abspath(arguments.build), work, arguments.of)
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
        tests = Tests(build)
        print(f"the tests take {sum(seconds for seconds, _ in tests.timed):.0f} s", flush=True)
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
