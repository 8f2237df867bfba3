#include "prepare/plain/BulgeArc.h"

#include "prepare/plain/Curves.h"

#include <cmath>

namespace prepare {

BulgeArc CircularArcOf(Point2 from, Point2 to, double bulge)
{
    if (bulge == 0 || !(Length(to - from) > 0) || !std::isfinite(bulge))
        return {};
    const EllipticArc arc = ArcOfBulge(from, to, bulge);
    const Point2 first = (bulge > 0 ? from : to) - arc.centre;
    const double start = std::atan2(first.y, first.x);
    return {arc.centre, Length(arc.u), start, start + arc.end};
}

} // namespace prepare
