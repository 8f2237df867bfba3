// Where an insert is cut off.
#pragma once

#include "prepare/drawing/Drawing.h"
#include "prepare/plain/Matrix.h"

#include <vector>

namespace prepare {

// The boundary of a filter in the output's plane. placement takes the block there.
std::vector<Point2> BoundaryOf(const SpatialFilter& filter, const Matrix& placement);

} // namespace prepare
