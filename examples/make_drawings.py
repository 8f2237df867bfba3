#!/usr/bin/env python3
"""Writes the example drawings, floor-plan.dxf, machine-part.dxf and part-sheet.dxf.

    make_drawings.py [FOLDER]

FOLDER is the folder of this script when left out. Every run writes the same bytes.
"""
import pathlib
import sys

sys.dont_write_bytecode = True

import floor_plan  # noqa: E402
import machine_part  # noqa: E402
import part_sheet  # noqa: E402

DRAWINGS = [("floor-plan.dxf", floor_plan, "\n"), ("machine-part.dxf", machine_part, "\r\n"),
            ("part-sheet.dxf", part_sheet, "\n")]


def main(arguments):
    if len(arguments) > 1 or arguments[:1] in (["-h"], ["--help"]):
        print(__doc__.strip())
        return 0 if len(arguments) == 1 else 2
    folder = pathlib.Path(arguments[0]) if arguments else pathlib.Path(__file__).resolve().parent
    for name, module, line_end in DRAWINGS:
        (folder / name).write_bytes(module.drawing().text(line_end).encode("utf-8"))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
