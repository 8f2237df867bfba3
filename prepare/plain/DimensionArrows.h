// The arrowheads at the ends of a dimension's line.
#pragma once

#include "prepare/plain/DimensionPen.h"

#include <string>

namespace prepare {

struct DimensionArrow {
    std::string name;             // of its shape
    const Block* block = nullptr; // the drawing's own, for a name that is no usual shape's
    double size = 0;
    double inset = 0;      // from the tip to where the line ends
    bool isStroke = false; // a mark across the line's end: it needs no room along the line
};

// The style's arrowheads, or strokes of its tick size.
DimensionArrow FirstArrowOf(const DimensionPen& pen);
DimensionArrow SecondArrowOf(const DimensionPen& pen);

// direction is that of the line at the tip, towards it, of length 1.
void DrawArrow(DimensionPen& pen, const DimensionArrow& arrow, Point2 tip, Point2 direction);

} // namespace prepare
