"""What the command costs, in instructions: the same on a busy machine."""
import os
import re
import subprocess
import tempfile

# Work that grows with the square of its input quadruples.
MOST_GROWTH = 2.2


def count(command, folder):
    """The instructions of one run of a command, and its exit code."""
    with tempfile.NamedTemporaryFile("r", prefix="plexorn-count-") as log:
        result = subprocess.run(["valgrind", "--tool=cachegrind", "--cache-sim=no", "--cachegrind-out-file=" + os.devnull,
                                 "--log-file=" + log.name, *command],
                                cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                stderr=subprocess.DEVNULL)
        found = re.search(r"I +refs: +([\d,]+)", log.read())
    if not found:
        raise RuntimeError(" ".join(command) + ": not counted")
    return int(found[1].replace(",", "")), result.returncode


def growth(nothing, small, large):
    """How many times the instructions twice an input takes, without those for none of it."""
    return (large - nothing) / max(1, small - nothing)
