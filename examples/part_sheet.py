"""The flange of machine_part on a sheet A4: the model at 1 : 1, and a window with a part of it at 4 : 1."""
import machine_part
from dxf_writer import Drawing

MARGIN = 5.0
PAPER = (297.0, 210.0, MARGIN)
# where the paper begins in the paper space, whose origin is the corner of the margins
LEFT, BOTTOM = -MARGIN, -MARGIN
DETAIL = (151.0, 114.5)  # in the model: the edge of the hub


def draw_model(space):
    machine_part.draw_front(space)
    machine_part.draw_section(space)
    machine_part.draw_dimensions(space)
    space.circle("DETAIL", *DETAIL, 8.0)
    space.text("DETAIL", DETAIL[0] + 8, DETAIL[1] + 7, 4, "B")


def draw_title_block(space):
    right, top = LEFT + PAPER[0], BOTTOM + PAPER[1]
    space.rectangle("SHEET", LEFT + 10, BOTTOM + 10, right - 10, top - 10)
    space.rectangle("SHEET", right - 110, BOTTOM + 10, right - 10, BOTTOM + 42)
    for y in (20, 31):
        space.line("SHEET-THIN", right - 110, BOTTOM + y, right - 10, BOTTOM + y)
    space.line("SHEET-THIN", right - 60, BOTTOM + 10, right - 60, BOTTOM + 31)
    space.text("SHEET", right - 60, BOTTOM + 36.5, 5, "FLANGE", 1, 2, color=30)
    for x, y, label, value in ((-108, 25.5, "scale", "1 : 1, detail 4 : 1"), (-58, 25.5, "material", "C45"),
                               (-108, 15, "sheet", "M-204"), (-58, 15, "paper", "A4")):
        space.text("SHEET-THIN", right + x, BOTTOM + y + 2.2, 1.5, label, color=253)
        space.text("SHEET", right + x, BOTTOM + y - 2.5, 3, value)


def draw_windows(space):
    space.viewport("WINDOWS", 1, 143.5, 100.0, 320.0, 220.0, 143.5, 100.0, 1.0)
    # the whole at 1 : 1, and the detail, which is round and without dimensions and notes
    space.viewport("WINDOWS", 2, 98.0, 128.0, 182.0, 134.0, 93.0, 97.0, 1.0)
    outline = space.circle("SHEET-THIN", 234.0, 128.0, 40.0)
    space.viewport("WINDOWS", 3, 234.0, 128.0, 80.0, 80.0, *DETAIL, 4.0, frozen=["DETAIL", "DIM", "NOTE"],
                   outline=outline)
    space.text("SHEET", 234.0, 174.0, 5, "B (4 : 1)", 1, 2)
    space.text("SHEET", 12.0, 50.0, 3, "Section A - A with the bolt holes turned into the plane of the cut.")


def drawing():
    sheet = Drawing("AC1021", "A flange on a sheet with two windows, drawn for the examples of this project")
    sheet.page = PAPER
    sheet.ltype("CENTER", "Center ____ _ ____ _", [7.0, -1.2, 1.2, -1.2])
    sheet.ltype("DASHDOT", "Dash dot __ . __ .", [2.5, -0.8, 0.4, -0.8])
    sheet.ltype("HIDDEN", "Hidden __ __ __", [1.6, -1.0])
    sheet.ltype("PHANTOM", "Phantom ____ _ _ ____", [9.0, -1.0, 1.0, -1.0, 1.0, -1.0])
    for layer in machine_part.LAYERS + [("DETAIL", 200, "Continuous", 35), ("WINDOWS", 9, "Continuous", 18)]:
        sheet.layer(*layer)
    machine_part.define_blocks(sheet)
    draw_model(sheet.model)
    draw_title_block(sheet.paper)
    draw_windows(sheet.paper)
    return sheet
