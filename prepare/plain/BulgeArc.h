// The arcs of polylines.
#pragma once

#include "prepare/drawing/Point.h"

namespace prepare {

// A circular arc, counter-clockwise, in radians.
struct BulgeArc {
    Point2 centre;
    double radius = 0;
    double start = 0;
    double end = 0; // above start
};

// The arc that a bulge makes of the segment between two points; of a straight segment, one whose radius is 0.
// The bulge is the tangent of a quarter of the arc's angle, below 0 for a clockwise arc.
BulgeArc CircularArcOf(Point2 from, Point2 to, double bulge);

} // namespace prepare
