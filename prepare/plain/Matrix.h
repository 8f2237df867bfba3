// Places coordinate systems in others.
#pragma once

#include "prepare/drawing/Point.h"

#include <cmath>

namespace prepare {

// An affine map of space: p becomes p.x * x + p.y * y + p.z * z + origin.
struct Matrix {
    Point3 x{1, 0, 0};
    Point3 y{0, 1, 0};
    Point3 z{0, 0, 1};
    Point3 origin;

    constexpr Point3 Direction(const Point3& v) const { return v.x * x + v.y * y + v.z * z; }
    constexpr Point3 Apply(const Point3& p) const { return Direction(p) + origin; }

    // As Direction and Apply, seen from above.
    constexpr Point2 Flat(const Point3& p) const
    {
        const Point3 there = Apply(p);
        return {there.x, there.y};
    }
    constexpr Point2 FlatDirection(const Point3& v) const
    {
        const Point3 there = Direction(v);
        return {there.x, there.y};
    }

    // First the right one, then the left one.
    friend constexpr Matrix operator*(const Matrix& outer, const Matrix& inner)
    {
        return {outer.Direction(inner.x), outer.Direction(inner.y), outer.Direction(inner.z),
                outer.Apply(inner.origin)};
    }
};

constexpr Matrix Moved(const Point3& by)
{
    Matrix matrix;
    matrix.origin = by;
    return matrix;
}

constexpr Matrix Scaled(const Point3& by)
{
    return {{by.x, 0, 0}, {0, by.y, 0}, {0, 0, by.z}, {}};
}

// About z, counter-clockwise.
inline Matrix Turned(double radians)
{
    const double cosine = std::cos(radians), sine = std::sin(radians);
    return {{cosine, sine, 0}, {-sine, cosine, 0}, {0, 0, 1}, {}};
}

// From the object coordinates of that extrusion to world coordinates, by the format's rule of the arbitrary
// axis: where the normal is within 1/64 of the world's z axis in x and y, x is the world's y axis crossed
// with the normal, else the world's z axis crossed with it. An extrusion without a length is the world's z
// axis.
inline Matrix FromObject(const Point3& extrusion)
{
    const double length = Length(extrusion);
    if (!(length > 0) || !std::isfinite(length))
        return {};
    const Point3 normal = (1 / length) * extrusion;
    if (normal == Point3{0, 0, 1})
        return {};
    constexpr double kNear = 1.0 / 64;
    const bool isNearZ = std::fabs(normal.x) < kNear && std::fabs(normal.y) < kNear;
    Point3 x = Cross(isNearZ ? Point3{0, 1, 0} : Point3{0, 0, 1}, normal);
    x = (1 / Length(x)) * x;
    Point3 y = Cross(normal, x);
    y = (1 / Length(y)) * y;
    return {x, y, normal, {}};
}

} // namespace prepare
