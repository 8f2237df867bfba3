#pragma once

#include "prepare/drawing/Point.h"

#include <cmath>

namespace prepare {

// A box around points; empty at first.
struct Box {
    Point2 min{HUGE_VAL, HUGE_VAL};
    Point2 max{-HUGE_VAL, -HUGE_VAL};

    bool IsEmpty() const { return !(min.x <= max.x && min.y <= max.y); }
    void Add(Point2 p);
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

} // namespace prepare
