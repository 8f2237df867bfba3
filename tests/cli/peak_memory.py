"""Runs a command and prints the most memory that it took."""
import subprocess
import sys

# A process begins with the memory of the one that starts it, so that one is small. What the command says of its work is
# kept in a file.
STARTER = """
import resource, subprocess, sys
if {limit}:
    resource.setrlimit(resource.RLIMIT_AS, ({limit} << 20, {limit} << 20))
    resource.setrlimit(resource.RLIMIT_CPU, (300, 300))
with open("{messages}", "wb") as messages:
    code = subprocess.run(sys.argv[1:], stdout=subprocess.DEVNULL, stderr=messages).returncode
used = resource.getrusage(resource.RUSAGE_CHILDREN)
print(code, used.ru_maxrss)
"""
MESSAGES = "messages.txt"

# What is given up long before a machine suffers, in megabytes (and five minutes of the processor).
ROOM = 1000


def run(command, folder, is_limited, environment=None):
    """The exit code of a command, and the megabytes that it took at most. What it says is in the file MESSAGES."""
    starter = STARTER.replace("{limit}", str(ROOM if is_limited else 0)).replace("{messages}", MESSAGES)
    result = subprocess.run([sys.executable, "-c", starter, *command], cwd=folder, env=environment, capture_output=True,
                            text=True, check=True)
    code, kilobytes = result.stdout.split()
    return int(code), int(kilobytes) / 1024
