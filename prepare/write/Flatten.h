// Curves as points.
#pragma once

#include "prepare/drawing/Point.h"
#include "prepare/plain/Fineness.h"
#include "prepare/plain/Plain.h"

#include <span>
#include <vector>

namespace prepare {

// Adds points of the arc from a to b, without a itself. A bulge of 0, or an arc nearer to its chord than the
// tolerance, adds b alone.
void AppendChords(std::vector<Point2>& points, Point2 a, Point2 b, double bulge, Fineness& curves);

// Adds points of an elliptical arc, both ends included.
void AppendEllipseChords(std::vector<Point2>& points, Point2 centre, Point2 majorAxis, double ratio,
                         double start, double end, Fineness& curves);

} // namespace prepare
