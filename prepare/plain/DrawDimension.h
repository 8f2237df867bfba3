// Dimensions by rules of our own, for those whose picture is not in the file.
#pragma once

#include "prepare/plain/PartStyle.h"
#include "prepare/plain/Placement.h"

#include <functional>

namespace prepare {

// Places a block of the drawing as an arrowhead that is not one of the usual shapes. placement maps the
// block's coordinates to the output's plane.
using BlockPlacer = std::function<void(const Block& block, const Matrix& placement, const Style& style)>;

// Draws a dimension whole from its points and its style: lines, arrowheads and the measure as a text. What
// cannot be drawn is reported.
void DrawDimension(const Dimension& dimension, const Placement& placement, const PartStyler& styleOf,
                   const BlockPlacer& placeBlock);

} // namespace prepare
