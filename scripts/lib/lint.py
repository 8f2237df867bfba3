"""Runs clang-format over every C and C++ file, clang-tidy and cppcheck over what is shipped, as many at a time as there
are processors.

Prints what they find and writes a JUnit file with a case for each tool; the exit code is 1 when something was found.
"""
import argparse
import concurrent.futures
import json
import os
import re
import shlex
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
FOLDERS = ("src", "svghost", "cli", "prepare")
LARGEST_GROUP = 40


# Another version formats in another way.
FORMATTER = "clang-format-14"


def formatted_sources():
    """Every C and C++ file of the project; what a build makes is not ours."""
    found = []
    for folder, subfolders, names in os.walk(ROOT):
        own = os.path.relpath(folder, ROOT)
        subfolders[:] = [name for name in subfolders if not name.startswith(".") and (own, name) != (".", "build")]
        found += [os.path.normpath(os.path.join(own, name)) for name in names if name.endswith((".h", ".cpp", ".c"))]
    return sorted(found)


def run_clang_format(paths):
    """The first line of each file that clang-format would change."""
    result = subprocess.run([FORMATTER, "--dry-run", "--Werror", "--ferror-limit=1", *paths], capture_output=True,
                            text=True, cwd=ROOT)
    found = re.findall(r"(?m)^(.+?:\d+):\d+: error: code should be clang-formatted", result.stderr)
    if result.returncode != 0 and not found:
        return [f"{FORMATTER} ended with {result.returncode}: {result.stderr}"]
    return [f"{line}: format differs; run {FORMATTER} -i on the file" for line in found]


def sources(build):
    """The files of ours that the build compiles."""
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        paths = {os.path.realpath(entry["file"]) for entry in json.load(file)}
    own = [os.path.relpath(path, ROOT) for path in paths]
    return sorted(path for path in own if path.split(os.sep)[0] in FOLDERS)


def compile_flags(build):
    """The compiler's options for each of our files."""
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        entries = json.load(file)
    flags = {}
    for entry in entries:
        words = shlex.split(entry["command"])
        words = words[:words.index("-o")]
        while not words[0].startswith("-"):
            words.pop(0)  # the compiler, and what starts it
        flags.setdefault(os.path.relpath(os.path.realpath(entry["file"]), ROOT), words)
    return flags


def groups_of(paths, flags):
    """Neighbours that are compiled alike, some at a time."""
    groups = []
    for path in sorted(paths, key=lambda path: (flags[path], path)):
        last = groups[-1] if groups else []
        if last and len(last) < LARGEST_GROUP and flags[last[0]] == flags[path]:
            last.append(path)
        else:
            groups.append([path])
    return groups


def clang_tidy(path, flags, *options):
    result = subprocess.run(["clang-tidy-19", "--quiet", "--config-file=.clang-tidy", *options, path, "--", *flags],
                            capture_output=True, text=True, cwd=ROOT)
    # What the tool says on its error stream counts suppressed warnings, unless it could not do its work.
    return result.stdout if result.returncode in (0, 1) else result.stdout + result.stderr


def clashing(group, output):
    """The files of a group that do not compile together with those before them, by what clang-tidy said."""
    wrong = re.findall(r"(?m)^(/[^:\n]+):\d+:\d+: error: .*clang-diagnostic-error", output)
    return [path for path in group if os.path.join(ROOT, path) in wrong]


def look_over(build, number, group, flags):
    """What clang-tidy finds in a group's files. They are read as one, because nearly all of its time goes into the
    standard library's headers; those that use a name as another does are read after the rest, as a group of their
    own."""
    if len(group) == 1:
        return clang_tidy(group[0], flags[group[0]])
    together = os.path.join(build, f"group{number}.cpp")
    with open(together, "w", encoding="utf-8") as file:
        file.write("".join(f'#include "{os.path.join(ROOT, path)}"\n' for path in group))
    # What does not compile costs a tenth when nothing else is looked for.
    apart = clashing(group, clang_tidy(together, flags[group[0]], "--checks=-*,misc-definitions-in-headers"))
    if not apart:
        output = clang_tidy(together, flags[group[0]], "--checks=-bugprone-suspicious-include")
        if "clang-diagnostic-error" not in output:
            return output
    rest = [path for path in group if path not in apart]
    if not apart or not rest:
        return "".join(clang_tidy(path, flags[path]) for path in group)
    return look_over(build, f"{number}-rest", rest, flags) + look_over(build, f"{number}-apart", apart, flags)


def run_clang_tidy(build, paths, jobs):
    flags = compile_flags(build)
    groups = groups_of(paths, flags)
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        outputs = pool.map(lambda item: look_over(build, *item, flags), enumerate(groups))
    # A header's finding comes with every file that includes it.
    found, seen = [], set()
    for output in outputs:
        for part in re.split(r"(?m)^(?=/\S+:\d+:\d+: (?:error|warning):)", output):
            if part.strip() and part not in seen:
                seen.add(part)
                found.append(part.replace(ROOT + os.sep, "").rstrip())
    return found


def run_cppcheck(build, paths, jobs):
    kept = os.path.join(build, "cppcheck")
    os.makedirs(kept, exist_ok=True)
    command = ["cppcheck", f"--project={os.path.join(build, 'compile_commands.json')}", f"-j{jobs}", "--quiet",
               "--enable=warning,style,performance,portability", "--inline-suppr", "--std=c++20",
               "--suppressions-list=" + os.path.join(ROOT, "scripts", "lib", "cppcheck.txt"),
               f"--cppcheck-build-dir={kept}", "--template={file}:{line}: {severity}: {message} [{id}]"]
    command += [f"--file-filter=*{path}" for path in paths]
    result = subprocess.run(command, capture_output=True, text=True, cwd=ROOT)
    found = list(dict.fromkeys(line for line in result.stderr.splitlines() if line.strip()))
    if result.returncode != 0 and not found:
        found.append(f"cppcheck ended with {result.returncode}: {result.stdout}")
    return found


def write_junit(path, results):
    suite = ElementTree.Element("testsuite", name="lint", tests=str(len(results)))
    for tool, found in results.items():
        case = ElementTree.SubElement(suite, "testcase", name=tool, status="fail" if found else "run")
        if found:
            ElementTree.SubElement(case, "failure").text = "\n".join(found)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    ElementTree.ElementTree(suite).write(path, encoding="utf-8", xml_declaration=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", required=True, help="folder with compile_commands.json")
    parser.add_argument("--junit", required=True, help="file to write")
    parser.add_argument("files", nargs="*", help="these alone")
    arguments = parser.parse_args()
    build = os.path.abspath(arguments.build)
    jobs = os.cpu_count() or 1
    given = [os.path.relpath(path, ROOT) for path in arguments.files]
    paths = [path for path in sources(build) if not given or path in given]
    results = {"clang-format": run_clang_format(given or formatted_sources())}
    if paths:
        results["cppcheck"] = run_cppcheck(build, paths, jobs)
        results["clang-tidy"] = run_clang_tidy(build, paths, jobs)
    for found in results.values():
        if found:
            print("\n".join(found))
    print(f"{len(given or formatted_sources())} files, {len(paths)} of them shipped sources, {sum(len(found) for found in results.values())} findings")
    write_junit(arguments.junit, results)
    return 1 if any(results.values()) else 0


if __name__ == "__main__":
    sys.exit(main())
