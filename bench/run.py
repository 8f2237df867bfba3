#!/usr/bin/env python3
"""Measures the build in build/release and writes bench/RESULTS.md. Started by scripts/bench.

Every figure is a median over rounds in which the stages take turns, so that a slow spell of the machine meets all
of them. A stage's answer (lines, host calls, elements) is checked before its time counts. Memory is the resident
peak of a process that does one stage once.
"""
import argparse
import datetime
import itertools
import math
import os
import platform
import re
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BIN = os.path.join(ROOT, "build", "release", "bin")
WINDOWS_BIN = os.path.join(ROOT, "build", "windows", "bin")
DRAWINGS = os.path.join(ROOT, "build", "bench")
RIVALS = os.path.join(ROOT, "build", "rivals")

# The stages, each in a process of its own, and the options of the commands.
STAGES = ("ends", "getline", "read", "import", "host", "prepare")
COMMANDS = {"command": (), "as-is": ("--as-is",)}

# kind, size in MB, --many or None; the name is made of them
MIXED = (1, 10, 100, 500)
KINDS = (("lines", 50, None), ("polylines", 50, None), ("texts", 50, None), ("dimensions", 50, None),
         ("layers", 50, 10), ("layers", 50, 100_000), ("blocks", 130, 10), ("blocks", 130, 100_000))


class Figures:
    """The times of one stage on one drawing, round by round."""

    def __init__(self, seconds):
        self.seconds = seconds

    @property
    def median(self):
        return statistics.median(self.seconds)

    def ratio_to(self, other):
        """How long the stage takes compared with another one: the median of what each round gives, since the
        machine may be slower in some rounds than in others."""
        return statistics.median(own / others for own, others in zip(self.seconds, other.seconds))

    def spread(self):
        return "%.0f to %.0f %%" % tuple(100 * end(self.seconds) / self.median for end in (min, max))


def drawing(kind, size, many=None):
    """The path of a drawing of the project's own generator, made when it is not there."""
    name = "%s-%s%s.dxf" % (kind, size, "-%d" % many if many else "")
    path = os.path.join(DRAWINGS, name)
    if not os.path.exists(path):
        os.makedirs(DRAWINGS, exist_ok=True)
        command = [sys.executable, os.path.join(ROOT, "bench", "generate.py"), kind, str(size), path + ".part"]
        subprocess.run(command + (["--many", str(many)] if many else []), check=True, stdout=subprocess.DEVNULL)
        os.rename(path + ".part", path)
    return path


def run(command, environment=None):
    """Runs a command to its end; gives its seconds, its peak memory in bytes and its output."""
    start = time.perf_counter()
    with tempfile.TemporaryFile() as output:
        process = subprocess.Popen(command, stdout=output, stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL,
                                   env=environment)
        _, status, usage = os.wait4(process.pid, 0)
        seconds = time.perf_counter() - start
        output.seek(0)
        text = output.read().decode(errors="replace")
    if os.waitstatus_to_exitcode(status) != 0:
        raise RuntimeError("%s failed: %s" % (" ".join(command), text[-400:]))
    return seconds, usage.ru_maxrss * 1024, text


def stage(name, path, program=None):
    """One run of one stage in a process of its own: seconds, peak memory, answer."""
    if name == "host":
        command = [os.path.join(BIN, "plexorn_bench_host"), path]
    else:
        command = (program or [os.path.join(BIN, "plexorn_bench")]) + ["--stage", name, path]
    text = run(command)[2]
    found = re.search(r"answer (\d+) seconds ([\d.]+) peak (\d+)", text)
    return float(found[2]), int(found[3]), int(found[1])


def command_run(path, *options):
    """One run of the whole command, the SVG on disk: seconds and peak memory."""
    picture = os.path.join(DRAWINGS, "picture.svg")
    seconds, peak, _ = run([os.path.join(BIN, "plexorn"), "--quiet", *options, path, "-o", picture])
    if os.path.getsize(picture) < 1000:
        raise RuntimeError("%s: an empty picture" % path)
    os.unlink(picture)
    return seconds, peak


def rounds(runners, count):
    """Runs each in turn, one round that is not counted and then count rounds; gives the figures by name."""
    seconds = {name: [] for name in runners}
    for turn in range(count + 1):
        for name, runner in runners.items():
            value = runner()
            if turn:
                seconds[name].append(value)
    return {name: Figures(values) for name, values in seconds.items()}


def measure(path, count):
    """All stages and the command on one drawing."""
    answers = {}

    def runner(name):
        def once():
            seconds, _, answer = stage(name, path)
            if answers.setdefault(name, answer) != answer:
                raise RuntimeError("%s: two runs of %s gave different answers" % (path, name))
            return seconds
        return once

    figures = rounds({name: runner(name) for name in STAGES} |
                     {name: lambda options=options: command_run(path, *options)[0]
                      for name, options in COMMANDS.items()}, count)
    if answers["ends"] != answers["getline"] or abs(answers["read"] - answers["ends"]) > 4:
        raise RuntimeError("%s: the stages did not read the same lines: %s" % (path, answers))
    peaks = {name: stage(name, path)[1] for name in STAGES[2:]}
    peaks |= {name: command_run(path, *options)[1] for name, options in COMMANDS.items()}
    return figures, peaks


def rivals():
    """The programs that a user would pick instead, those that are installed: name, what it does, command."""
    candidates = []
    reader = os.path.join(RIVALS, "dxflib_read")
    if os.path.exists(reader):
        candidates.append(("dxflib", "reads", [reader, "{}"]))
    if shutil.which("ogrinfo"):
        candidates.append(("GDAL ogrinfo", "reads", ["ogrinfo", "-ro", "-al", "-so", "{}"]))
        candidates.append(("GDAL ogr2ogr", "converts to GeoJSON",
                           ["sh", "-c", "rm -f \"$2\"; exec ogr2ogr -f GeoJSON \"$2\" \"$1\"", "sh", "{}",
                            os.path.join(DRAWINGS, "rival.json")]))
    if subprocess.run([sys.executable, "-c", "import ezdxf"], capture_output=True).returncode == 0:
        candidates.append(("ezdxf", "reads", [sys.executable, "-c", "import ezdxf, sys; "
                           "assert len(ezdxf.readfile(sys.argv[1]).modelspace())", "{}"]))
    elif os.path.exists("/usr/bin/python3"):
        if subprocess.run(["/usr/bin/python3", "-c", "import ezdxf"], capture_output=True).returncode == 0:
            candidates.append(("ezdxf", "reads", ["/usr/bin/python3", "-c", "import ezdxf, sys; "
                               "assert len(ezdxf.readfile(sys.argv[1]).modelspace())", "{}"]))
    if shutil.which("librecad"):  # its other converters are not in every release
        candidates.append(("LibreCAD dxf2pdf", "writes a picture", ["env", "QT_QPA_PLATFORM=offscreen", "librecad",
                           "dxf2pdf", "-o", os.path.join(DRAWINGS, "rival.pdf"), "{}"]))
    converter = os.path.join(RIVALS, "node_modules", "dxf", "lib", "cli.js")
    if os.path.exists(converter):
        candidates.append(("npm dxf", "writes a picture", ["node", "--max-old-space-size=16000", converter, "{}",
                           os.path.join(DRAWINGS, "rival.svg")]))
    return candidates


def measure_rivals(path, timeout):
    rows = []
    for name, does, command in rivals():
        filled = [path if part == "{}" else part for part in command]
        try:
            seconds, peak, _ = run(["timeout", str(timeout)] + filled)
            rows.append((name, does, seconds, peak, ""))
        except RuntimeError:
            rows.append((name, does, None, None, "did not finish in %d s" % timeout))
    return rows


def machine():
    with open("/proc/cpuinfo") as info:
        model = re.search(r"model name\s*: (.*)", info.read())
    compiler = subprocess.run(["g++", "--version"], capture_output=True, text=True).stdout.splitlines()[0]
    commit = subprocess.run(["git", "-C", ROOT, "rev-parse", "--short", "HEAD"], capture_output=True,
                            text=True).stdout.strip()
    return [("machine", "%s, %d cores, %s" % (model[1] if model else platform.machine(), os.cpu_count(),
                                               platform.system())),
            ("compiler", compiler), ("commit", commit), ("day", datetime.date.today().isoformat())]


def table(head, rows):
    lines = ["| " + " | ".join(head) + " |", "|" + "---|" * len(head)]
    return lines + ["| " + " | ".join(str(cell) for cell in row) + " |" for row in rows] + [""]


def drawing_rows(results):
    rows = []
    for name, size, figures, peaks in results:
        for stage_name, figure in figures.items():
            peak = "%.2f" % (peaks[stage_name] / size) if stage_name in peaks else ""
            rows.append((name, stage_name, "%.4f" % figure.median, figure.spread(),
                         "%.0f" % (size / 1e6 / figure.median), "%.2f" % figure.ratio_to(figures["getline"]),
                         "%.2f" % figure.ratio_to(figures["ends"]), peak))
    return rows


def wine_ratio(path, count):
    """The time of the Windows module under Wine against the Linux one, and its memory; None without both."""
    program = os.path.join(WINDOWS_BIN, "plexorn_bench.exe")
    if not os.path.exists(program) or not shutil.which("wine"):
        return None
    os.environ.update(WINEDEBUG="-all", WINEPREFIX=os.path.join(ROOT, "build", "wine"), WINEARCH="win64")
    command = ["wine", program]
    figures = rounds({"linux": lambda: stage("import", path)[0],
                      "wine": lambda: stage("import", "Z:" + path, command)[0]}, count)
    return figures["wine"].ratio_to(figures["linux"]), stage("import", "Z:" + path, command)[1]


def unblocked_peak():
    """The peak memory of preparing a drawing without inserts and dimensions, as a part of its size: what is left of
    that of the mixed one when blocks are taken off, which may be there once for each insert."""
    path = drawing("unblocked", 100)
    return stage("prepare", path)[1] / os.path.getsize(path)


def asked_for(by_name, rival_rows, wine, unblocked):
    """The figures that were aimed at: what, reached, aim, whether reached."""
    rows = []

    def add(what, value, aim, at_least=False):
        if value is not None:
            reached = value >= aim if at_least else value <= aim
            rows.append((what, "%.2f" % value, ("at least %s" if at_least else "at most %s") % aim,
                         "yes" if reached else "no"))

    name, size, figures, peaks = by_name["mixed 100 MB"]
    line = figures["getline"]
    add("reading into records / getline loop", figures["read"].ratio_to(line), 0.9)
    add("whole import, idle host / getline loop", figures["import"].ratio_to(line), 1.3)
    add("preparing / getline loop", figures["prepare"].ratio_to(line), 2.5)
    add("whole command, SVG on disk / getline loop", figures["command"].ratio_to(line), 7)
    add("whole command, --as-is / getline loop", figures["as-is"].ratio_to(line), 3.8)
    add("peak memory of the import / file size", peaks["import"] / size, 1.3)
    add("peak memory of preparing / file size", peaks["prepare"] / size, 0.5)
    add("peak memory of preparing / file size, without blocks", unblocked, 0.5)
    add("peak memory of the command / file size", peaks["command"] / size, 4)
    sizes = sorted((entry for key, entry in by_name.items() if key.startswith("mixed")), key=lambda entry: entry[1])
    for stage_name, (small, large) in itertools.product(("import", "prepare"), zip(sizes, sizes[1:])):
        # From n to m bytes the time may grow as if each doubling cost 2.1.
        grown = large[2][stage_name].median / small[2][stage_name].median
        doublings = math.log2(large[1] / small[1])
        add("%s, time at 2n / time at n, %s to %s" % (stage_name, small[0], large[0]), grown ** (1 / doublings), 2.1)
    for kind in ("layers", "blocks"):
        few = next((entry for key, entry in by_name.items() if key.startswith("10 " + kind)), None)
        many = next((entry for key, entry in by_name.items() if key.startswith("100000 " + kind)), None)
        if few and many:
            add("100,000 %s against 10, import time a byte" % kind,
                (many[2]["import"].median / many[1]) / (few[2]["import"].median / few[1]), 1.2)
    reads = [row[2] for row in rival_rows if row[1] == "reads" and row[2]]
    writes = [row[2] for row in rival_rows if row[1] == "writes a picture" and row[2]]
    if reads:
        add("fastest rival that reads / our reading", min(reads) / figures["read"].median, 14, True)
    if writes:
        add("fastest rival that writes a picture / our command", min(writes) / figures["command"].median, 22, True)
    if wine:
        add("Windows module under Wine / Linux module", wine[0], 1.3)
        add("peak memory of the Windows import / file size", wine[1] / size, 1.1)
    return rows


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--rounds", type=int, default=7, help="counted rounds (7)")
    parser.add_argument("--quick", action="store_true", help="mixed drawings of 1, 10 and 100 MB alone")
    parser.add_argument("--rivals", action="store_true", help="time the rivals that are installed too")
    parser.add_argument("--rival-timeout", type=int, default=1800, help="seconds that a rival may take (1800)")
    parser.add_argument("--output", default=os.path.join(ROOT, "bench", "RESULTS.md"))
    arguments = parser.parse_args()

    results = []
    plan = [("mixed %d MB" % size, drawing("mixed", size)) for size in MIXED if size <= 100 or not arguments.quick]
    if not arguments.quick:
        for kind, size, many in KINDS:
            name = "%d %s, %d MB" % (many, kind, size) if many else "%s %d MB" % (kind, size)
            plan.append((name, drawing(kind, size, many)))
        corpus = os.path.join(ROOT, "..", "shared", "corpus")
        if os.path.isdir(corpus):
            files = sorted((os.path.join(corpus, file) for file in os.listdir(corpus) if file.endswith(".dxf")),
                           key=os.path.getsize, reverse=True)
            drawn = [file for file in files if stage("import", file)[2] > 1000]  # some are of too old a release
            plan += [("real: " + os.path.basename(file), file) for file in drawn[:3]]
    for name, path in plan:
        print(name, flush=True)
        figures, peaks = measure(path, arguments.rounds if os.path.getsize(path) < 2e8 else 3)
        results.append((name, os.path.getsize(path), figures, peaks))
    by_name = {entry[0]: entry for entry in results}
    print("Wine", flush=True)
    wine = wine_ratio(drawing("mixed", 100), 3)
    rival_rows = []
    if arguments.rivals:
        print("rivals", flush=True)
        rival_rows = measure_rivals(drawing("mixed", 100), arguments.rival_timeout)

    note = os.path.join(ROOT, "bench", "NOTES.md")
    text = ["# Measured", "", "Written by `scripts/bench`; " + main.__doc__, ""]
    text += table(("", ""), machine())
    text += ["## What was aimed at", ""] + table(("figure", "measured", "asked for", "reached"),
                                                 asked_for(by_name, rival_rows, wine, unblocked_peak()))
    if os.path.exists(note):
        with open(note) as file:
            text += [file.read().rstrip(), ""]
    if rival_rows:
        base = by_name["mixed 100 MB"][2]
        text += ["## Rivals on mixed 100 MB", "", "One run each, whole processes.", ""]
        text += table(("program", "does", "seconds", "/ getline loop", "peak memory / file size"), [
            (name, does, "%.1f" % seconds if seconds else message,
             "%.0f" % (seconds / base["getline"].median) if seconds else "",
             "%.1f" % (peak / by_name["mixed 100 MB"][1]) if peak else "")
            for name, does, seconds, peak, message in rival_rows])
    text += ["## Stages", "", "Median seconds over the rounds, the fastest and the slowest round as parts of the "
             "median. The rate is millions of bytes a second; the ratios to the getline loop and to finding line ends "
             "are medians of those of the rounds.", ""]
    text += table(("drawing", "stage", "s", "spread", "MB/s", "/ getline", "/ ends", "peak / size"),
                  drawing_rows(results))
    with open(arguments.output, "w") as file:
        file.write("\n".join(text))
    print(arguments.output)
    return 0


main.__doc__ = ("the stages take turns, and each figure is a median. `ends` finds line ends only (read and memchr), "
                "`getline` is the bare loop of std::ifstream::getline(char[1024]) that only counts lines, `read` reads "
                "into records, `import` is the whole import with a host that does nothing, `host` the same with the "
                "reference host, `prepare` prepares for the module and drops what is written, `command` is the whole "
                "process `plexorn`, the SVG on disk, and `as-is` that with `--as-is`.")

if __name__ == "__main__":
    sys.exit(main())
