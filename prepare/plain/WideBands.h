// Wide polylines as areas.
#pragma once

#include "prepare/plain/Pen.h"

#include <span>
#include <vector>

namespace prepare {

// A segment of a wide polyline: its middle line, and half its width at both ends, from one to the other
// evenly. If the line replaces a curve, its directions at the ends differ from those of its first and last
// pieces.
struct WideSegment {
    std::vector<Point2> points;
    double startHalf = 0;
    double endHalf = 0;
    Point2 startDirection = {}; // (0, 0): of the first piece
    Point2 endDirection = {};
};

// Fills segments that each begin where the one before ends, mitred where they meet at a blunt angle.
// isClosed: the first one begins where the last one ends.
void FillBands(std::span<const WideSegment> segments, bool isClosed, Pen& pen);

} // namespace prepare
