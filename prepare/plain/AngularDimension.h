// Dimensions of angles and of the lengths of arcs.
#pragma once

#include "prepare/plain/DimensionPen.h"

namespace prepare {

// Between two lines, or between two points seen from a third.
void DrawAngularDimension(DimensionPen& pen, bool isByLines);
void DrawArcLengthDimension(DimensionPen& pen);

} // namespace prepare
