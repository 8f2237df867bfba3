// The area that a hatch covers.
#pragma once

#include "prepare/drawing/Entities.h"
#include "prepare/plain/Pen.h"

#include <vector>

namespace prepare {

// A closed line: its last point is joined to its first one.
using Ring = std::vector<Point2>;

// The rings of those loops that bound the hatch's area by the even-odd rule, as its style of islands says, in
// the output's plane. Curves are flattened. Each ring has three points or more, and all are finite. Points
// that are not finite are lost to the pen.
std::vector<Ring> RingsOf(const Hatch& hatch, Pen& pen);

} // namespace prepare
