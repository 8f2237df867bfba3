// Arrowheads of dimensions and leaders.
#pragma once

#include "prepare/plain/DimensionPen.h"

#include <cstdint>
#include <string_view>

namespace prepare {

enum class ArrowShape : std::uint8_t {
    ClosedFilled,
    ClosedBlank,
    Closed,
    Dot,
    SmallDot,
    BlankDot,
    SmallBlankDot,
    Origin,
    Origin2,
    Open,
    RightAngle,
    Open30,
    Oblique,
    Tick,
    Integral,
    FilledBox,
    BlankBox,
    FilledDatum,
    BlankDatum,
    None,
    OfBlock, // a block of the drawing
};

struct Arrowhead {
    ArrowShape shape = ArrowShape::ClosedFilled;
    const Block* block = nullptr; // only of OfBlock
    double size = 0;
    double inset = 0;      // from the tip to where the line ends
    bool isStroke = false; // a stroke across the line's end: it needs no room along the line
};

// The arrowhead of a style: that of the block's name, or the stroke of its tick size.
Arrowhead ArrowheadOf(const DimensionStyle& style, std::string_view name, const Drawing& drawing);

// Those of a dimension's ends.
Arrowhead FirstArrowOf(const DimensionPen& pen);
Arrowhead SecondArrowOf(const DimensionPen& pen);

// direction is that of the line at the tip, towards it, of length 1.
void DrawArrowhead(DimensionPen& pen, const Arrowhead& arrow, Point2 tip, Point2 direction);

} // namespace prepare
