#pragma once

#include "prepare/drawing/Point.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace prepare {

// A box around points; empty at first.
struct Box {
    Point2 min{HUGE_VAL, HUGE_VAL};
    Point2 max{-HUGE_VAL, -HUGE_VAL};

    bool IsEmpty() const { return !(min.x <= max.x && min.y <= max.y); }
    void Add(Point2 p)
    {
        min = {std::min(min.x, p.x), std::min(min.y, p.y)};
        max = {std::max(max.x, p.x), std::max(max.y, p.y)};
    }
    // Whether they have no point in common. Of an empty one, that is so.
    bool IsApartFrom(const Box& other) const
    {
        return !(min.x <= other.max.x && other.min.x <= max.x && min.y <= other.max.y &&
                 other.min.y <= max.y);
    }
    double Width() const { return IsEmpty() ? 0 : max.x - min.x; }
    double Height() const { return IsEmpty() ? 0 : max.y - min.y; }
    double LongerSide() const { return Width() > Height() ? Width() : Height(); }
};

inline Box BoxOf(std::span<const Point2> points)
{
    Box box;
    for (const Point2 point : points)
        box.Add(point);
    return box;
}

} // namespace prepare
