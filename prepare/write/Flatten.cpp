#include "prepare/write/Flatten.h"

#include "base/Pi.h"
#include "prepare/plain/BulgeArc.h"
#include "prepare/plain/Curves.h"

#include <algorithm>
#include <cmath>

namespace prepare {

namespace {

constexpr int kMostPieces = 4096;

// How many pieces an arc of that angle needs so that no chord is farther than tolerance from it.
int ChordsOfArc(double radius, double angle, double tolerance)
{
    if (!(tolerance < radius))
        return std::clamp(static_cast<int>(std::ceil(angle / (kPi / 4))), 1, 8);
    return static_cast<int>(ChordsOf(radius, angle, tolerance, kMostPieces));
}

} // namespace

void AppendChords(std::vector<Point2>& points, Point2 a, Point2 b, double bulge, Fineness& curves)
{
    if (bulge == 0)
        return points.push_back(b);
    const std::size_t before = points.size();
    const double tolerance = curves.Tolerance();
    const double height = std::fabs(bulge) * Length(b - a) / 2;
    if (height > tolerance) {
        const BulgeArc arc = CircularArcOf(a, b, bulge);
        const int pieces = ChordsOfArc(arc.radius, arc.end - arc.start, tolerance);
        for (int i = 1; i < pieces; ++i) {
            const double share = static_cast<double>(bulge > 0 ? i : pieces - i) / pieces;
            const double angle = arc.start + share * (arc.end - arc.start);
            points.push_back(arc.centre + arc.radius * Point2{std::cos(angle), std::sin(angle)});
        }
    }
    points.push_back(b);
    curves.Take(1, points.size() - before);
}

void AppendEllipseChords(std::vector<Point2>& points, Point2 centre, Point2 majorAxis, double ratio,
                         double start, double end, Fineness& curves)
{
    const Point2 minorAxis = ratio * LeftOf(majorAxis);
    const int pieces = ChordsOfArc(Length(majorAxis), end - start, curves.Tolerance());
    curves.Take(1, static_cast<std::size_t>(pieces));
    for (int i = 0; i <= pieces; ++i) {
        const double angle = start + (end - start) * i / pieces;
        points.push_back(centre + std::cos(angle) * majorAxis + std::sin(angle) * minorAxis);
    }
}

} // namespace prepare
