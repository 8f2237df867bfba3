// SPLINE, and HELIX by the spline that it has.
#pragma once

#include "prepare/plain/Pen.h"

#include <vector>

namespace prepare {

void DrawSpline(const Spline& spline, Pen& pen);
// The smooth curve through these points, which are in world coordinates.
void DrawThrough(const std::vector<Point3>& points, Pen& pen);

} // namespace prepare
