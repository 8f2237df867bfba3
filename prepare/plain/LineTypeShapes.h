// The texts and shapes within line types, which are not drawn.
#pragma once

#include "prepare/drawing/Drawing.h"

namespace prepare {

// Whether next to nothing is seen of such a line but its shapes. It is drawn solid.
bool IsNearlyAllShapes(const LineType& lineType);

} // namespace prepare
