// What a dimension measures, from its definition points in the document.
#pragma once

#include "drawing/Angles.h"
#include "drawing/Points.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

// Where the extension line of p1 ends: on the dimension line, which runs through d at right angles to the
// extension line from p2 to d. Both extension lines have the slope m, the dimension line has k. The flatter
// of the two lines gives y: the steeper one would magnify the rounding of x, without limit where it is
// upright but for rounding.
inline DXF_POINT2D FootPoint(const DXF_POINT2D& d, const DXF_POINT2D& p1, const DXF_POINT2D& p2)
{
    if (d.y == p2.y)
        return {d.x, p1.y};
    if (d.x == p2.x)
        return {p1.x, d.y};
    const double m = (d.y - p2.y) / (d.x - p2.x);
    const double k = -1 / m;
    const double x = (m * p1.x - k * d.x + d.y - p1.y) / (m - k);
    const double y = std::fabs(m) <= 1 ? p1.y + m * (x - p1.x) : d.y + k * (x - d.x);
    return {x, y};
}

// The extension lines of a linear dimension begin at p1 and p2. That of p1 ends at foot, on the dimension
// line.
struct LinearPoints {
    DXF_POINT2D p1, p2;
    DXF_POINT2D foot;
};

// Of a rotated dimension. Only the angles 0 and 90 count; any other is like the aligned kind (quirk 101).
inline LinearPoints RotatedPoints(const DXF_POINT2D& d, DXF_POINT2D p1, DXF_POINT2D p2, double rotation)
{
    if (rotation == 90.0) {
        if (d.y == p1.y)
            std::swap(p1, p2);
        return {p1, p2, {d.x, p1.y}};
    }
    if (rotation == 0.0) {
        if (d.x == p1.x)
            std::swap(p1, p2);
        return {p1, p2, {p1.x, d.y}};
    }
    return {p1, p2, FootPoint(d, p1, p2)};
}

// Where the line through a1 and a2 meets the line through b1 and b2; (0, 0) when they are parallel or the
// same, and when both begin at one point (quirk 110).
inline DXF_POINT2D Intersection(const DXF_POINT2D& a1, const DXF_POINT2D& a2, const DXF_POINT2D& b1,
                                const DXF_POINT2D& b2)
{
    const double denominator = (b2.y - b1.y) * (a2.x - a1.x) - (b2.x - b1.x) * (a2.y - a1.y);
    const double numeratorA = (b2.x - b1.x) * (a1.y - b1.y) - (b2.y - b1.y) * (a1.x - b1.x);
    const double numeratorB = (a2.x - a1.x) * (a1.y - b1.y) - (a2.y - a1.y) * (a1.x - b1.x);
    if (denominator == 0 || (numeratorA == 0 && numeratorB == 0))
        return {0.0, 0.0};
    const double ua = numeratorA / denominator;
    return {a1.x + ua * (a2.x - a1.x), a1.y + ua * (a2.y - a1.y)};
}

// The direction from one point to another, at least 0.
inline double PositiveDirection(const DXF_POINT2D& from, const DXF_POINT2D& to)
{
    const double angle = Direction(from, to);
    return angle < 0 ? angle + kTurn : angle;
}

// The direction to the farther of two points, to the second when they are equally far.
inline double DirectionToFarther(const DXF_POINT2D& from, const DXF_POINT2D& first, const DXF_POINT2D& second)
{
    return PositiveDirection(from, Distance(from, first) > Distance(from, second) ? first : second);
}

inline double OppositeDirection(double angle)
{
    const double opposite = angle + kPi;
    return opposite > kTurn ? opposite - kTurn : opposite;
}

// The directions of both lines, each both ways, ascending.
inline std::array<double, 4> SortedBounds(double a, double b, std::int32_t yAxisMode)
{
    if (yAxisMode == 1 ? b < a : a < b)
        std::swap(a, b);
    std::array<double, 4> bounds{a, b, OppositeDirection(a), OppositeDirection(b)};
    // By insertion: what is not a number stays where it is, and nothing is read beyond the four.
    for (std::size_t i = 1; i < bounds.size(); ++i)
        for (std::size_t j = i; j > 0 && bounds[j] < bounds[j - 1]; --j)
            std::swap(bounds[j], bounds[j - 1]);
    return bounds;
}

// The part of the circle that an angular dimension measures.
struct AngleSector {
    double span; // degrees
    bool exists;
    double start; // radians
    double end;
};

// The part between two of the bounds that has the direction in it.
inline AngleSector FindSector(const std::array<double, 4>& bounds, double direction)
{
    std::array<double, 4> s;
    std::transform(bounds.begin(), bounds.end(), s.begin(),
                   [](double bound) { return bound * kDegreesPerRadian; });
    const double c = direction * kDegreesPerRadian;
    for (std::size_t i = 0; i < 3; ++i)
        if (s[i] <= c && c <= s[i + 1])
            return {s[i + 1] - s[i], true, bounds[i], bounds[i + 1]};
    if (0 <= c && c <= s[3]) // quirk 108: the angle would be 360 - s3 + s0
        return {360 - s[0] + s[3], true, bounds[3], bounds[0]};
    return {0.0, false, 0.0, 0.0}; // quirk 109
}

// The lines of an angular dimension, each through two points, and the point that its arc runs through.
struct AnglePoints {
    DXF_POINT2D a1, a2;
    DXF_POINT2D b1, b2;
    DXF_POINT2D arc;
};

// The part that is measured around the vertex, where the lines meet.
inline AngleSector MeasuredSector(const AnglePoints& points, const DXF_POINT2D& vertex,
                                  std::int32_t yAxisMode)
{
    const double a = DirectionToFarther(vertex, points.a1, points.a2);
    const double b = DirectionToFarther(vertex, points.b1, points.b2);
    return FindSector(SortedBounds(a, b, yAxisMode), PositiveDirection(vertex, points.arc));
}
