"""Makes a build's packages once, in a folder of their own, and unpacks them."""
import os
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
    result = subprocess.run(command, capture_output=True, text=True, timeout=300, **options)
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


def package_name(end):
    """The one package whose name ends so."""
    [name] = [name for name in sorted(os.listdir(packages())) if name.endswith(end)]
    return name


def archive_name():
    return f"plexorn-{ARGS.version}-{ARGS.system}-{ARGS.processor}"


def archives():
    """The names of the archive and of the archive of symbols."""
    end = ".zip" if ARGS.system == "windows" else ".tar.gz"
    return archive_name() + end, archive_name() + "-symbols" + end


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


def is_there(file, condition):
    """Some files come only from builds that make them."""
    if condition == "built":
        return os.path.exists(os.path.join(ARGS.build, file.removesuffix(".gz")))
    return condition != "written" or os.path.exists(os.path.join(ROOT, "docs", os.path.basename(file)))


def expected_files():
    with open(os.path.join(HERE, f"{ARGS.system}.txt"), encoding="utf-8") as lines:
        pairs = [line.strip().partition(" if ") for line in lines]
    return sorted(file for file, _, condition in pairs if is_there(file, condition))
