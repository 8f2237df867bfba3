// The arrowheads of leaders and dimensions.
#pragma once

#include "prepare/plain/Pen.h"

#include <string_view>

namespace prepare {

// Draws the arrowhead of that name, which is a block's ("_Dot"; with or without the underscore, in any case);
// an empty name and one that is not known are the filled triangle. direction is where the line comes from.
void DrawArrowhead(std::string_view name, Point2 tip, Point2 direction, double size, Pen& pen);

// The same with its axes: x is where the line comes from, as long as the arrowhead, and y is to the left of
// x, to the right in a mirrored picture.
void DrawArrowhead(std::string_view name, Point2 tip, Point2 x, Point2 y, Pen& pen);

} // namespace prepare
