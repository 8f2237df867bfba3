"""Counts what is drawn of real drawings, for the README.

    drawn.py [--command PLEXORN] FOLDER

Draws every .dxf file of FOLDER and prints how much of them is shown. Then it draws them as the module does by itself,
and prints how many pictures show nothing and why, and for each type of entity in how many drawings it occurs, how
often, and whether it is drawn. "plexorn info --as-is" counts these entities. Vertices and ends of sequences are parts
of other entities and are not counted. A picture shows nothing if it has no line, shape or text, not in the symbols that
it uses either; a mask is no shape.
"""
import argparse
import collections
import json
import os
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
PARTS = {"VERTEX", "SEQEND"}
SVG = "{http://www.w3.org/2000/svg}"
HREF = "{http://www.w3.org/1999/xlink}href"
NO_ENTITIES = "no entities"
NO_MARKERS = "table entries without subclass markers"
ONLY_IN_BLOCKS = "nothing of a drawn type outside blocks that are not inserted"
SHOWN = {SVG + name for name in ("line", "path", "circle", "ellipse", "polyline", "polygon", "text")}

Count = collections.namedtuple("Count", "name drawn drawings in_drawing in_blocks")
Shown = collections.namedtuple("Shown", "drawings entities shown missing blank empty")
Result = collections.namedtuple("Result", "files drawings empty losing types")


def is_mask(element):
    """Whether the element is an area that has the background's colour, by its style alone."""
    return element.get("fill") == element.get("stroke") == "none"


def shows_something(picture):
    """Whether anything is to be seen in a picture, given as its root element."""
    symbols = {symbol.get("id"): symbol for symbol in picture.iter(SVG + "symbol")}
    waiting, seen = [element for element in picture if element.tag == SVG + "g"], set()
    while waiting:
        for element in waiting.pop().iter():
            is_unseen = element.get("visibility") == "hidden" or is_mask(element)
            if element.tag in SHOWN and not is_unseen:
                return True
            target = element.get(HREF, "")[1:] if element.tag == SVG + "use" else ""
            if target in symbols and target not in seen:
                seen.add(target)
                waiting.append(symbols[target])
    return False


def info_of(command, path):
    """What "plexorn info --as-is" says of a drawing; None if the file is not an ASCII DXF."""
    result = subprocess.run([command, "info", "--as-is", "--json", path], capture_output=True, text=True)
    return json.loads(result.stdout) if result.returncode == 0 else None


def is_empty(command, path):
    with tempfile.TemporaryDirectory(prefix="plexorn-drawn-") as folder:
        picture = os.path.join(folder, "picture.svg")
        subprocess.run([command, "--as-is", path, "-q", "-o", picture], capture_output=True)
        return not os.path.exists(picture) or not shows_something(ElementTree.parse(picture).getroot())


def outcome_of(command, path):
    """What the command says of a picture that it drew; None if it drew none."""
    with tempfile.TemporaryDirectory(prefix="plexorn-drawn-") as folder:
        result = subprocess.run([command, "--messages=json", path, "-o", os.path.join(folder, "picture.svg")],
                                capture_output=True, text=True)
    told = map(json.loads, result.stderr.splitlines())
    return next((one for one in told if one["type"] == "drawn"), None)


def count_shown(command, folder):
    """What is shown of the drawings of a folder."""
    outcomes = [outcome for path in drawings_in(folder) if (outcome := outcome_of(command, path))]
    shares = [outcome["share"] for outcome in outcomes]
    missing = collections.Counter()
    for share in shares:
        missing.update(share["missing"])
    return Shown(len(outcomes), sum(share["entities"] for share in shares), sum(share["shown"] for share in shares),
                 missing, sum(outcome["blank"] for outcome in outcomes),
                 sum(not outcome["blank"] and not outcome["share"]["entities"] for outcome in outcomes))


def why_empty(info):
    if not info["entities"]:
        return NO_ENTITIES
    return NO_MARKERS if any("no subclass marker" in note for note in info["notes"]) else ONLY_IN_BLOCKS


def types_of(infos):
    """One Count for each type of entity, those that occur most often first."""
    found = collections.defaultdict(list)
    for info in infos:
        for entity in info["entities"]:
            if entity["name"] not in PARTS:
                found[entity["name"]].append(entity)
    counts = [Count(name, entities[0]["fate"] == "drawn", len(entities), sum(one["inDrawing"] for one in entities),
                    sum(one["inBlocks"] for one in entities)) for name, entities in found.items()]
    return sorted(counts, key=lambda count: (-count.in_drawing - count.in_blocks, count.name))


def drawings_in(folder):
    return sorted(os.path.join(folder, name) for name in os.listdir(folder) if name.lower().endswith(".dxf"))


def count(command, folder):
    paths = drawings_in(folder)
    infos = {path: info for path in paths if (info := info_of(command, path))}
    types = types_of(infos.values())
    missing = {one.name for one in types if not one.drawn}
    losing = [path for path, info in infos.items() if missing & {entity["name"] for entity in info["entities"]}]
    empty = [(os.path.basename(path), why_empty(info)) for path, info in infos.items() if is_empty(command, path)]
    return Result(len(paths), len(infos), empty, len(losing), types)


def sum_of(types, drawn):
    return sum(one.in_drawing + one.in_blocks for one in types if one.drawn == drawn)


def report(result):
    """The lines that are printed."""
    drawn, missing = sum_of(result.types, True), sum_of(result.types, False)
    lines = [f"{result.files} files, {result.drawings} of them ASCII DXF drawings",
             f"{result.losing} drawings have entities of types that are not drawn",
             f"{missing} of {drawn + missing} entities are of types that are not drawn",
             f"{len(result.empty)} pictures show nothing"]
    lines += [f"    {name}: {why}" for name, why in result.empty]
    lines += ["", "| type | | drawings | in the drawing | in blocks |", "|---|---|---|---|---|"]
    lines += [f"| {one.name} | {'drawn' if one.drawn else 'not drawn'} | {one.drawings} | {one.in_drawing} | "
              f"{one.in_blocks} |" for one in result.types]
    return lines


def report_shown(shown):
    missing = ", ".join(f"{number} {name}" for name, number in sorted(shown.missing.items())) or "nothing"
    return [f"{shown.drawings} drawings drawn, {shown.blank} of the pictures show nothing, "
            f"and {shown.empty} drawings have no entities",
            f"{shown.shown} of {shown.entities} entities are shown; missing: {missing}", ""]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--command", default=os.path.join(ROOT, "build", "release", "bin", "plexorn"))
    parser.add_argument("folder")
    arguments = parser.parse_args()
    print("\n".join(report_shown(count_shown(arguments.command, arguments.folder)) +
                    ["As the module draws them by itself:"] + report(count(arguments.command, arguments.folder))))


if __name__ == "__main__":
    sys.exit(main())
