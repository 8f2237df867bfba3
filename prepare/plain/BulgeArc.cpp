#include "prepare/plain/BulgeArc.h"

#include <cmath>

namespace prepare {

BulgeArc CircularArcOf(Point2 from, Point2 to, double bulge)
{
    const Point2 chord = to - from;
    const double length = Length(chord);
    if (bulge == 0 || !(length > 0) || !std::isfinite(bulge))
        return {};
    BulgeArc arc;
    const double half = length / 2;
    arc.radius = half * (1 + bulge * bulge) / (2 * std::fabs(bulge));
    // From the chord's middle to the centre, to the left of the way for a counter-clockwise arc below half
    // a turn.
    const double across = half * (1 - bulge * bulge) / (2 * bulge);
    arc.centre = {(from.x + to.x) / 2 - across * chord.y / length,
                  (from.y + to.y) / 2 + across * chord.x / length};
    const Point2 first = (bulge > 0 ? from : to) - arc.centre;
    arc.start = std::atan2(first.y, first.x);
    arc.end = arc.start + 4 * std::atan(std::fabs(bulge));
    return arc;
}

} // namespace prepare
