"""Runs the fuzz targets and keeps what they find; scripts/fuzz builds them first and says what the options do."""
import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile

import archive

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BUILD = os.path.join(ROOT, "build", "fuzz")
FINDINGS = os.path.join(BUILD, "findings")
DICTIONARY = os.path.join(ROOT, "fuzz", "dxf.dict")

# The longest inputs of each target in the two parts of its time. Short ones, tens of times as fast, try many more
# things side by side; long ones are whole drawings.
SHORT_SHARE = 0.75
SHORT = {"stream": 64, "numbers": 24, "import": 200, "fields": 200, "texts": 80, "svghost": 64, "prepare": 300,
         "command": 100}
LONGEST = {"stream": 2048, "numbers": 200, "import": 4096, "fields": 4096, "texts": 4096, "svghost": 4096, "prepare": 4096,
           "command": 4096}
LONGEST_KEPT = 4096
# An input of a few kilobytes that takes more seconds, or one block of more megabytes, is a finding.
LONGEST_RUN = 5
LARGEST_BLOCK = 64
MOST_KEPT = 300
# Freed blocks are kept apart for a while, which takes time when they are many; so do whole call stacks of every
# allocation. A finding is run again without these options.
ENVIRONMENT = os.environ | {"ASAN_OPTIONS": "quarantine_size_mb=16:malloc_context_size=2"}
if os.path.isdir("/dev/shm"):
    ENVIRONMENT["TMPDIR"] = "/dev/shm"  # the command's files
COLUMNS = ("target", "executions", "a second", "edges", "features", "inputs", "findings")


def options(target, longest):
    """What every run of a target has."""
    chosen = [f"-max_len={longest[target]}", f"-timeout={LONGEST_RUN}", f"-malloc_limit_mb={LARGEST_BLOCK}",
              "-rss_limit_mb=2560", "-print_final_stats=1"]
    if target not in ("numbers", "texts", "svghost"):
        chosen.append(f"-dict={DICTIONARY}")
    if target == "command":
        # What the command prints is dropped. Weighing thousands of inputs, by how rarely others reach the same code,
        # takes longer than a run of the command.
        chosen += ["-close_fd_mask=3", "-entropic=0"]
    return chosen


def program(target):
    return os.path.join(BUILD, "bin", f"fuzz_{target}")


def corpus(target):
    return os.path.join(BUILD, "corpus", target)


def kept_archive(target):
    """The inputs that the ordinary tests replay."""
    return os.path.join(ROOT, "fuzz", "corpus", f"{target}.tar")


def first_inputs(target, work):
    """The folders of what a run starts from besides what earlier ones found."""
    return [os.path.join(work, name, target) for name in ("unpacked", "seeds")]


def start(target, longest, seconds, number, work):
    """One process that fuzzes target; its output goes to a file, whose name it has as log."""
    log = os.path.join(BUILD, f"fuzz-{target}-{number}.log")
    folders = [corpus(target), *first_inputs(target, work)]
    command = [program(target), *options(target, longest), f"-max_total_time={seconds}",
               f"-artifact_prefix={os.path.join(FINDINGS, target)}-", *filter(os.path.isdir, folders)]
    with open(log, "w", encoding="utf-8") as output:
        process = subprocess.Popen(command, stdout=output, stderr=subprocess.STDOUT, cwd=BUILD, env=ENVIRONMENT)
    process.log = log
    process.target = target
    process.seconds = seconds
    return process


def fuzz(targets, seconds, jobs, work):
    """Runs all targets, jobs at a time, and returns the finished processes."""
    # Each target gets the same time; where there are more jobs than targets, several processes share a corpus.
    rounds = max(1, -(-jobs // len(targets)))
    share = seconds * jobs / len(targets) / rounds
    queue = [(target, longest, max(1, int(share * part)))
             for longest, part in ((SHORT, SHORT_SHARE), (LONGEST, 1 - SHORT_SHARE))
             for _ in range(rounds) for target in targets]
    running, done = [], []
    while queue or running:
        while queue and len(running) < jobs:
            running.append(start(*queue.pop(0), len(done) + len(running), work))
        process = running.pop(0)
        process.wait()
        done.append(process)
    return done


def number_of(pattern, text):
    """The last number that pattern finds."""
    found = re.findall(pattern, text)
    return int(found[-1]) if found else 0


def merge(target, folder, sources, *more):
    """Writes to folder the least of the inputs in sources that covers as much."""
    os.makedirs(folder)
    result = subprocess.run([program(target), *options(target, LONGEST), "-set_cover_merge=1", *more, folder,
                             *filter(os.path.isdir, sources)],
                            cwd=BUILD, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    if result.returncode != 0:
        sys.exit(f"fuzz: the inputs of {target} cannot be merged:\n{result.stdout.decode(errors='replace')[-3000:]}")


def replace(old, new):
    shutil.rmtree(old, ignore_errors=True)
    os.makedirs(os.path.dirname(old), exist_ok=True)
    shutil.move(new, old)


def small_inputs(folder):
    """The names of the inputs that may be kept, the smallest first."""
    sizes = {name: os.path.getsize(os.path.join(folder, name)) for name in os.listdir(folder)}
    return sorted((name for name in sizes if sizes[name] <= LONGEST_KEPT), key=lambda name: (sizes[name], name))


def keep(target, work):
    """Minimises what was found: for later runs, and for the tests, which have less time and room."""
    found, small, kept = (os.path.join(work, target, name) for name in ("found", "small", "kept"))
    merge(target, found, [corpus(target), *first_inputs(target, work)])
    replace(corpus(target), found)

    # First what reaches every edge, then the smallest of what reaches one more often.
    os.makedirs(small)
    for name in small_inputs(corpus(target)):
        shutil.copy(os.path.join(corpus(target), name), small)
    merge(target, kept, [small], "-use_counters=0")
    for name in small_inputs(small)[:MOST_KEPT - len(os.listdir(kept))]:
        shutil.copy(os.path.join(small, name), kept)
    archive.pack(kept, kept_archive(target))


def report(target, processes):
    """The table's row of a target, and the names of its findings."""
    logs = []
    for process in processes:
        with open(process.log, encoding="utf-8", errors="replace") as log:
            logs.append(log.read())
    executions = sum(number_of(r"stat::number_of_executed_units:\s+(\d+)", log) for log in logs)
    speed = executions // sum(process.seconds for process in processes)  # of one process
    findings = [path for log in logs for path in re.findall(r"Test unit written to (\S+)", log)]
    failed = [process for process in processes if process.returncode != 0]
    if failed and not findings:
        sys.exit(f"fuzz: {program(target)} ended with {failed[0].returncode}; see {failed[0].log}")
    edges, features = (max(number_of(pattern, log) for log in logs) for pattern in (r" cov: (\d+)", r" ft: (\d+)"))
    row = (target, f"{executions:,}", f"{speed:,}", f"{edges:,}", f"{features:,}",
           f"{len(os.listdir(corpus(target))):,}", str(len(findings)))
    return row, findings


def print_table(rows):
    widths = [max(map(len, column)) for column in zip(COLUMNS, *rows)]
    for row in (COLUMNS, *rows):
        print("  ".join(cell.ljust(width) if i == 0 else cell.rjust(width)
                        for i, (cell, width) in enumerate(zip(row, widths))).rstrip())


def arguments():
    parser = argparse.ArgumentParser(prog="scripts/fuzz")
    parser.add_argument("minutes", nargs="?", type=float, default=10, metavar="MINUTES")
    parser.add_argument("--target", action="append", choices=sorted(LONGEST), metavar="T")
    parser.add_argument("--jobs", type=int, default=len(os.sched_getaffinity(0)), metavar="N")
    chosen = parser.parse_args()
    if chosen.minutes <= 0 or chosen.jobs < 1:
        parser.error("MINUTES and N are more than 0")
    return chosen


def main():
    chosen = arguments()
    targets = chosen.target or list(LONGEST)
    os.makedirs(FINDINGS, exist_ok=True)
    for target in targets:
        os.makedirs(corpus(target), exist_ok=True)
    rows, findings = [], []
    with tempfile.TemporaryDirectory(dir=BUILD) as work:
        subprocess.run([sys.executable, "-B", os.path.join(ROOT, "fuzz", "make_seeds.py"), os.path.join(work, "seeds")],
                       check=True)
        for target in targets:
            archive.unpack(kept_archive(target), os.path.join(work, "unpacked", target))
        processes = fuzz(targets, chosen.minutes * 60, chosen.jobs, work)
        for target in targets:
            keep(target, work)
            row, found = report(target, [process for process in processes if process.target == target])
            rows.append(row)
            findings += [(target, path) for path in found]
    print_table(rows)
    for target, path in findings:
        print(f"finding: {program(target)} {path}")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
