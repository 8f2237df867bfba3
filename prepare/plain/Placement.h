// What an entity needs to know to become plain ones.
#pragma once

#include "prepare/plain/Budget.h"
#include "prepare/plain/Matrix.h"
#include "prepare/plain/Plain.h"
#include "prepare/report/Report.h"

namespace prepare {

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

struct Placement {
    const Drawing& drawing;
    Matrix matrix;        // from world coordinates (of the drawing or of the block) to the output's plane
    Style style;          // resolved; its lineTypeScale and weight are the output's
    double tolerance = 0; // of flattened curves while there is room, in the output's units; above 0
    Box reach;            // in the output's units: rays are cut here; empty while that is not known, and
                          // then they are left out
    double pointSize = 0; // half the size of a POINT's mark, in the output's units
    PlainSink& sink;
    Report& report;
    Budget& budget; // its curves are those of tolerance
};

} // namespace prepare
