// Dimensions of the distance between two points.
#pragma once

#include "prepare/plain/DimensionPen.h"

namespace prepare {

void DrawLinearDimension(DimensionPen& pen, bool isAligned);

} // namespace prepare
