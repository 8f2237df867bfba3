#include "prepare/plain/DimensionArrows.h"

#include "base/Letters.h"

#include <algorithm>
#include <string_view>

namespace prepare {

namespace {

struct ShapeRow {
    std::string_view name; // of its block, in upper case and without the underscore before it
    double inset;          // in sizes
    bool isStroke;
};

constexpr ShapeRow kShapesOfDimensions[] = {
    {"", 1, false},
    {"CLOSEDFILLED", 1, false},
    {"CLOSEDBLANK", 1, false},
    {"CLOSED", 0, false},
    {"DOT", 0.5, false},
    {"DOTSMALL", 0, true},
    {"DOTBLANK", 0.5, false},
    {"SMALL", 0.25, true},
    {"ORIGIN", 0, false},
    {"ORIGIN2", 0.5, false},
    {"OPEN", 0, false},
    {"OPEN90", 0, false},
    {"OPEN30", 0, false},
    {"OBLIQUE", 0, true},
    {"ARCHTICK", 0, true},
    {"INTEGRAL", 0, true},
    {"BOXFILLED", 0.5, false},
    {"BOXBLANK", 0.5, false},
    {"DATUMFILLED", 1, false},
    {"DATUMBLANK", 1, false},
    {"NONE", 0, true},
};

std::string WithoutUnderscore(std::string_view name)
{
    if (!name.empty() && name[0] == '_')
        name.remove_prefix(1);
    return InCapitals(name);
}

DimensionArrow ArrowOf(const DimensionPen& pen, std::string_view name)
{
    const DimensionStyle& style = pen.Style();
    if (style.tickSize > 0) // from end to end a stroke is twice as wide as the tick is high
        return {"OBLIQUE", nullptr, 2 * style.tickSize, 0, true};
    const std::string upper = WithoutUnderscore(name);
    for (const ShapeRow& row : kShapesOfDimensions)
        if (row.name == upper)
            return {upper, nullptr, style.arrowSize, row.inset * style.arrowSize, row.isStroke};
    const Drawing& drawing = pen.Drawing();
    const Block* const block = drawing.FindBlock(drawing.names.Find(name));
    const bool isEmpty = block == nullptr || block->entities.empty();
    return {"", isEmpty ? nullptr : block, style.arrowSize, style.arrowSize, false};
}

} // namespace

DimensionArrow FirstArrowOf(const DimensionPen& pen)
{
    return ArrowOf(pen, pen.Style().arrow1);
}

DimensionArrow SecondArrowOf(const DimensionPen& pen)
{
    return ArrowOf(pen, pen.Style().arrow2);
}

void DrawArrow(DimensionPen& pen, const DimensionArrow& arrow, Point2 tip, Point2 direction)
{
    if (!(arrow.size > 0))
        return;
    if (arrow.block != nullptr)
        pen.Block(*arrow.block, tip, direction, arrow.size);
    else
        pen.Arrowhead(arrow.name, tip, direction, arrow.size);
}

} // namespace prepare
