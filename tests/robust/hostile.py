"""The patterns of hostile.txt, repeated to a size."""
import os

FILE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "hostile.txt")


def unescape(text):
    return text.replace("\\\\", "\1").replace("\\n", "\n").replace("\\0", "\0").replace("\1", "\\")


def patterns():
    """The patterns by name: what comes first, is repeated, comes next, is repeated there, comes last."""
    found = {}
    with open(FILE, encoding="utf-8", newline="\n") as file:
        for line in file:
            if not line.startswith("#"):
                name, *parts = line.rstrip("\n").split("\t")
                found[name] = [unescape(part) for part in parts]
    return found


def repetitions(pattern, room):
    """A pattern, as often as there is room for it."""
    if "{n}" not in pattern:
        return pattern * (room // len(pattern)) if pattern else ""
    parts = []
    while room >= len(pattern):
        parts.append(pattern.replace("{n}", str(len(parts))))
        room -= len(parts[-1])
    return "".join(parts)


def empty(pattern):
    """The bytes of a drawing in which nothing is repeated."""
    first, _, middle, _, last = pattern
    return (first + middle + last).encode()


def drawing(pattern, size):
    """The bytes of a drawing of about that size."""
    first, repeated, middle, second, last = pattern
    room = size - len(first) - len(middle) - len(last)
    half = room // 2 if second else room
    return "".join((first, repetitions(repeated, half), middle, repetitions(second, room - half), last)).encode()
