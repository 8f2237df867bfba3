// Points and directions, in the drawing's units.
#pragma once

#include <cmath>

namespace prepare {

// The largest coordinate that can be drawn. Pictures have single precision, so their numbers end at 3e38.
inline constexpr double kMostCoordinate = 1e30;

struct Point2 {
    double x = 0;
    double y = 0;

    friend constexpr Point2 operator+(Point2 a, Point2 b) { return {a.x + b.x, a.y + b.y}; }
    friend constexpr Point2 operator-(Point2 a, Point2 b) { return {a.x - b.x, a.y - b.y}; }
    friend constexpr Point2 operator*(double factor, Point2 a) { return {factor * a.x, factor * a.y}; }
    friend constexpr bool operator==(Point2 a, Point2 b) { return a.x == b.x && a.y == b.y; }
};

constexpr double Dot(Point2 a, Point2 b)
{
    return a.x * b.x + a.y * b.y;
}

constexpr double Cross(Point2 a, Point2 b)
{
    return a.x * b.y - a.y * b.x;
}

inline double Length(Point2 a)
{
    return std::hypot(a.x, a.y);
}

struct Point3 {
    double x = 0;
    double y = 0;
    double z = 0;

    friend constexpr Point3 operator+(Point3 a, Point3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend constexpr Point3 operator-(Point3 a, Point3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend constexpr Point3 operator*(double factor, Point3 a)
    {
        return {factor * a.x, factor * a.y, factor * a.z};
    }
    friend constexpr bool operator==(Point3 a, Point3 b) { return a.x == b.x && a.y == b.y && a.z == b.z; }
};

constexpr double Dot(Point3 a, Point3 b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

constexpr Point3 Cross(Point3 a, Point3 b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline double Length(Point3 a)
{
    return std::hypot(a.x, a.y, a.z);
}

// Whether a point can be drawn: its coordinates are numbers, and none is beyond kMostCoordinate.
inline bool IsDrawable(Point2 p)
{
    return std::fabs(p.x) <= kMostCoordinate && std::fabs(p.y) <= kMostCoordinate;
}

inline bool IsDrawable(Point3 p)
{
    return IsDrawable(Point2{p.x, p.y}) && std::fabs(p.z) <= kMostCoordinate;
}

} // namespace prepare
