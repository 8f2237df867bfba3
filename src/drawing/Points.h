// Distances and directions of points.
#pragma once

#include "entities/DXF_POINT2D.h"

#include <cmath>

// Not by hypot: the plain sum of squares is what the numbers in a document come from.
inline double Distance(const DXF_POINT2D& a, const DXF_POINT2D& b)
{
    const double dx = a.x - b.x;
    const double dy = a.y - b.y;
    return std::sqrt(dx * dx + dy * dy);
}

// The angle, from -pi to pi, under which one point sees another.
inline double Direction(const DXF_POINT2D& from, const DXF_POINT2D& to)
{
    return std::atan2(to.y - from.y, to.x - from.x);
}
