// Dimensions of one coordinate of a point.
#pragma once

#include "prepare/plain/DimensionPen.h"

namespace prepare {

void DrawOrdinateDimension(DimensionPen& pen, bool isX);

} // namespace prepare
