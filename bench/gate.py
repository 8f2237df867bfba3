#!/usr/bin/env python3
"""Counts the instructions that reading, importing, preparing and writing pictures cost for each byte of small fixed
drawings, and fails when one has risen by more than 3 % and half an instruction over the counts kept in
bench/instructions.txt.

    gate.py --bench PLEXORN_BENCH --command PLEXORN [--update]

"read", "import" and "prepare" are stages of plexorn_bench; "picture" is the command with --as-is, so the import, the
reference host and the SVG; "whole" is the command as people use it, which prepares the drawing first.

Counts come from callgrind, so they are the same on a busy machine; what a run costs before and after the drawing is
taken off by a run over an empty drawing. The C library copies memory in other ways on other processors, which has
moved counts by 2 %, so it is told to use none of a processor's special instructions.

--update rewrites the counts: do that when a change is meant to cost more, or has come to cost less, and say why in the
commit. Another compiler or C library counts differently; the file names those that it was made with, and with others
the counts are only printed.
"""
import argparse
import os
import platform
import re
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
KEPT = os.path.join(HERE, "instructions.txt")
LIMIT = 1.03
SPARE = 0.5
KINDS = ("mixed", "lines", "polylines", "texts", "dimensions", "layers", "blocks")
STAGES = ("read", "import", "prepare", "picture", "whole")
OF_COMMAND = {"picture": ["--as-is"], "whole": []}
SIZE_MB = 0.4

# One way to copy, compare and clear memory on every x86-64 processor, whatever its caches.
TUNABLES = ("glibc.cpu.hwcaps=-AVX512F,-AVX512VL,-AVX2,-AVX,-AVX_Fast_Unaligned_Load,-ERMS,-FSRM,-SSSE3,-SSE4_1,"
            "-SSE4_2,-BMI1,-BMI2,-Fast_Unaligned_Copy:glibc.cpu.x86_data_cache_size=0x8000:"
            "glibc.cpu.x86_shared_cache_size=0x100000:glibc.cpu.x86_non_temporal_threshold=0xc0000")


def tools():
    """What the counts depend on besides the code."""
    compiler = subprocess.run(["g++", "-dumpfullversion"], capture_output=True, text=True).stdout.strip()
    return "g++ %s, glibc %s, %s" % (compiler, platform.libc_ver()[1], platform.machine())


def instructions(programs, stage, path, folder):
    """The instructions of one run of a stage over a drawing."""
    if stage in OF_COMMAND:
        picture = os.path.join(folder, "picture.svg")
        run = [programs.command, *OF_COMMAND[stage], "-q", "-j", "1", path, "-o", picture]
    else:
        run = [programs.bench, "--stage", stage, path]
    command = ["valgrind", "--tool=callgrind", "--callgrind-out-file=" + os.path.join(folder, "out"), *run]
    process = subprocess.run(command, capture_output=True, text=True, env={**os.environ, "GLIBC_TUNABLES": TUNABLES})
    found = re.search(r"Collected : (\d+)", process.stderr)
    if process.returncode != 0 or not found:
        raise RuntimeError("%s: %s" % (" ".join(command), process.stderr[-500:]))
    return int(found[1])


def measure(programs):
    """Instructions for each byte, by drawing and stage."""
    counts = {}
    with tempfile.TemporaryDirectory() as folder:
        empty = os.path.join(folder, "empty.dxf")
        with open(empty, "w") as file:
            file.write("  0\nEOF\n")
        base = {stage: instructions(programs, stage, empty, folder) for stage in STAGES}
        for kind in KINDS:
            path = os.path.join(folder, kind + ".dxf")
            subprocess.run([sys.executable, os.path.join(HERE, "generate.py"), kind, str(SIZE_MB), path], check=True,
                           stdout=subprocess.DEVNULL)
            for stage in STAGES:
                count = instructions(programs, stage, path, folder) - base[stage]
                counts[kind + " " + stage] = count / os.path.getsize(path)
    return counts


def read_kept():
    with open(KEPT) as file:
        lines = [line.rstrip("\n") for line in file if not line.startswith("#") and line.strip()]
    return lines[0], {name: float(count) for name, count in (line.rsplit(" ", 1) for line in lines[1:])}


def write_kept(counts):
    with open(KEPT, "w") as file:
        file.write("# Instructions for each byte of a drawing, by kind and stage; written by bench/gate.py --update.\n")
        file.write(tools() + "\n")
        for name, count in counts.items():
            file.write("%s %.3f\n" % (name, count))


def compare(counts, kept):
    """The figures that have risen too far, a line each."""
    if counts.keys() != kept.keys():
        return ["bench/instructions.txt lists other figures; rewrite it with --update"]
    return ["%s: %.3f instructions a byte, %.3f were kept" % (name, count, kept[name])
            for name, count in counts.items() if count > kept[name] * LIMIT + SPARE]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--bench", required=True, help="the program plexorn_bench of a release build")
    parser.add_argument("--command", required=True, help="the command plexorn of the same build")
    parser.add_argument("--update", action="store_true", help="keep the counts instead of comparing them")
    arguments = parser.parse_args()
    counts = measure(arguments)
    if arguments.update:
        write_kept(counts)
        return 0
    made_with, kept = read_kept()
    for name, count in counts.items():
        print("%-20s %8.3f instructions a byte, %8.3f kept" % (name, count, kept.get(name, float("nan"))))
    if made_with != tools():
        print("Not compared: counted with %s, kept with %s." % (tools(), made_with))
        return 77
    risen = compare(counts, kept)
    print("\n".join(risen))
    return 1 if risen else 0


if __name__ == "__main__":
    sys.exit(main())
