#!/usr/bin/env python3
"""Packs and unpacks the archives that keep the inputs of the fuzz targets.

    archive.py pack FOLDER ARCHIVE      writes the files of FOLDER
    archive.py unpack ARCHIVE FOLDER    writes the files of ARCHIVE
    archive.py check ARCHIVE...         fails unless each is as pack writes it; prints how many inputs it has

An archive is a plain ustar file. The same inputs always make the same bytes: names are sorted, and no times or
owners are kept.
"""
import io
import os
import sys
import tarfile


def inputs_of(folder):
    """The files of a folder by name."""
    found = {}
    for name in os.listdir(folder):
        with open(os.path.join(folder, name), "rb") as file:
            found[name] = file.read()
    return found


def packed(inputs):
    """The bytes of an archive of these inputs, given by name."""
    out = io.BytesIO()
    with tarfile.open(fileobj=out, mode="w", format=tarfile.USTAR_FORMAT) as archive:
        for name in sorted(inputs):
            entry = tarfile.TarInfo(name)
            entry.size = len(inputs[name])
            archive.addfile(entry, io.BytesIO(inputs[name]))
    return out.getvalue()


def unpacked(data):
    """The inputs of an archive by name."""
    with tarfile.open(fileobj=io.BytesIO(data), mode="r:") as archive:
        entries = archive.getmembers()
        if any(not entry.isfile() or os.path.basename(entry.name) != entry.name for entry in entries):
            raise ValueError("an archive of inputs holds files alone, without folders")
        return {entry.name: archive.extractfile(entry).read() for entry in entries}


def pack(folder, path):
    """Packs what a folder holds."""
    with open(path, "wb") as file:
        file.write(packed(inputs_of(folder)))


def unpack(path, folder):
    """Writes the inputs of an archive to a folder; one that is missing has none."""
    os.makedirs(folder, exist_ok=True)
    if not os.path.exists(path):
        return
    with open(path, "rb") as file:
        inputs = unpacked(file.read())
    for name, data in inputs.items():
        with open(os.path.join(folder, name), "wb") as file:
            file.write(data)


def check(paths):
    """How many of the archives are not as pack writes them."""
    wrong = 0
    for path in paths:
        with open(path, "rb") as file:
            data = file.read()
        inputs = unpacked(data)
        print(f"{os.path.basename(path)}: {len(inputs)} inputs")
        if not inputs or packed(inputs) != data:
            print(f"{path}: not as archive.py writes it")
            wrong += 1
    return wrong


def main(arguments):
    command, *rest = arguments or ["--help"]
    if command == "pack" and len(rest) == 2:
        pack(*rest)
    elif command == "unpack" and len(rest) == 2:
        unpack(*rest)
    elif command == "check" and rest:
        return 1 if check(rest) else 0
    else:
        print(__doc__.strip())
        return 0 if command in ("-h", "--help") else 2
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
