#include "prepare/plain/DrawTolerance.h"

#include "base/Numbers.h"
#include "prepare/plain/DrawMText.h"
#include "prepare/plain/MTextLines.h"
#include "prepare/plain/NoteParts.h"

#include <algorithm>
#include <span>
#include <utility>

namespace prepare {

namespace {

// Of the longest line, in letters of the usual width.
double WidthOfLine(const Drawing& drawing, std::string_view text, double height)
{
    RunLook look;
    look.height = height;
    const MTextContent content = ReadMText(text, look, drawing.header.Text("$DWGCODEPAGE"));
    double width = 0;
    for (const TextLine& line : BreakIntoLines(content, 0))
        width = std::max(width, line.width);
    return width;
}

// A variable of dimensions: the style's, else the drawing's.
double DimensionValue(const Drawing& drawing, NameId style, std::int32_t code, std::string_view variable,
                      double otherwise)
{
    const auto found = drawing.dimStyles.find(style);
    if (found != drawing.dimStyles.end())
        for (const auto& [itsCode, value] : found->second.values)
            if (itsCode == code)
                return ParseReal(value);
    return drawing.header.Real(variable, otherwise);
}

StyleOfPart ColourOf(double index)
{
    StyleOfPart part;
    part.colour = index > 0 && index <= kByLayer ? static_cast<std::int32_t>(index) : kByBlock;
    return part;
}

// The text before the first separator, which is taken off with it.
std::string_view TakePart(std::string_view& text, std::span<const std::string_view> separators)
{
    for (std::size_t end = 0; end < text.size(); ++end)
        for (const std::string_view separator : separators)
            if (text.substr(end).starts_with(separator)) {
                const std::string_view part = text.substr(0, end);
                text.remove_prefix(end + separator.size());
                return part;
            }
    return std::exchange(text, {});
}

} // namespace

void DrawTolerance(const Tolerance& entity, const Placement& placement, const PartStyler& styleOf)
{
    constexpr double kUsualHeight = 2.5;
    constexpr double kRowHeight = 2;  // in heights of its letters
    constexpr double kCellMargin = 1; // of both sides together
    constexpr std::int32_t kTextHeight = 140, kScale = 40, kTextColour = 178, kLineColour = 176;
    const Drawing& drawing = placement.drawing;
    const auto value = [&](std::int32_t code, std::string_view variable, double otherwise) {
        return DimensionValue(drawing, entity.style, code, variable, otherwise);
    };
    const double scale = value(kScale, "$DIMSCALE", 1);
    const double height = value(kTextHeight, "$DIMTXT", kUsualHeight) * (scale > 0 ? scale : 1);
    const Placement ofTexts = InStyle(placement, styleOf(ColourOf(value(kTextColour, "$DIMCLRT", 0))));
    const NotePlane plane = PlaneOf(entity.point, entity.direction, entity.extrusion);
    const NoteFrame frame(placement, plane, styleOf(ColourOf(value(kLineColour, "$DIMCLRD", 0))));

    static constexpr std::string_view kEndsOfRows[] = {"^J", "\n", "\\P"};
    static constexpr std::string_view kEndsOfCells[] = {"%%v", "%%V"};
    std::string_view rows = entity.text;
    double middle = 0;
    while (!rows.empty()) {
        const double top = middle + kRowHeight * height / 2, bottom = top - kRowHeight * height;
        double left = 0;
        std::string_view cells = TakePart(rows, kEndsOfRows);
        while (!cells.empty()) {
            const std::string_view cell = TakePart(cells, kEndsOfCells);
            const double width = WidthOfLine(drawing, cell, height);
            if (!(width > 0))
                continue;
            const double right = left + width + kCellMargin * height;
            DrawMText(TextIn(plane, (left + right) / 2, middle, height, cell, entity.line), ofTexts, styleOf,
                      "TOLERANCE");
            if (left == 0)
                frame.Line(0, top, 0, bottom);
            frame.Line(left, top, right, top);
            frame.Line(left, bottom, right, bottom);
            frame.Line(right, top, right, bottom);
            left = right;
        }
        middle -= kRowHeight * height;
    }
}

} // namespace prepare
