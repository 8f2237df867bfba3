"""Makes a build's packages once, in a folder of their own, and unpacks them."""
import os
import re
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))
sys.path.insert(0, os.path.join(os.path.dirname(HERE), "hosting"))

ARGS = None
_made = None


def run(*command, **options):
    """What the command printed; it must not fail."""
    result = subprocess.run(command, capture_output=True, text=True, **options)
    if result.returncode != 0:
        raise AssertionError(f"{' '.join(command)}: {result.returncode}\n{result.stdout}{result.stderr}")
    return result.stdout


def packages():
    """The folder with this build's packages, which are made at the first call."""
    global _made
    if _made is None:
        _made = tempfile.TemporaryDirectory(prefix="plexorn-packages-")
        run("cpack", "-B", _made.name, cwd=ARGS.build)
    return _made.name


def archive_name():
    return f"plexorn-{ARGS.version}-{ARGS.system}-{ARGS.processor}"


def archives():
    """The names of the archive, of that with what programs are built with, and of that with the symbols."""
    end = ".zip" if ARGS.system == "windows" else ".tar.gz"
    return tuple(archive_name() + part + end for part in ("", "-dev", "-symbols"))


def unpack(name, folder):
    path = os.path.join(packages(), name)
    if name.endswith(".deb"):
        run("dpkg-deb", "-x", path, folder)
    elif name.endswith(".zip"):
        run("cmake", "-E", "tar", "xf", path, cwd=folder)
    else:
        run("tar", "-xzf", path, "-C", folder)


def files_below(folder):
    return sorted(os.path.relpath(os.path.join(path, name), folder)
                  for path, _, names in os.walk(folder) for name in names)


def expected_files(part=""):
    """The files of the archive, or of its part "-dev"."""
    with open(os.path.join(HERE, f"{ARGS.system}{part}.txt"), encoding="utf-8") as lines:
        return sorted(line.strip() for line in lines)


def broken_links(folder):
    """The links of the pages below folder that lead to no file below it."""
    found = []
    for name in files_below(folder):
        if name.endswith(".md"):
            with open(os.path.join(folder, name), encoding="utf-8") as file:
                links = re.findall(r"\]\((?!https?:)([^)#]+)[^)]*\)", file.read())
            inside = [os.path.normpath(os.path.join(os.path.dirname(name), link)) for link in links]
            found += [f"{name}: {link}" for link, path in zip(links, inside)
                      if path.startswith((os.sep, "..")) or not os.path.exists(os.path.join(folder, path))]
    return found
