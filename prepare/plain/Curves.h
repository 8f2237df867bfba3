// The mathematics of circular and elliptical arcs in the plane.
#pragma once

#include "base/Pi.h"
#include "prepare/drawing/Point.h"
#include "prepare/plain/Fineness.h"

#include <cmath>
#include <cstddef>
#include <vector>

namespace prepare {

constexpr double Radians(double degrees)
{
    return degrees * kRadiansPerDegree;
}

constexpr Point2 Middle(Point2 a, Point2 b)
{
    return 0.5 * (a + b);
}

inline Point2 Direction(double angle)
{
    return {std::cos(angle), std::sin(angle)};
}

// A vector of length 1, or otherwise where it has no length.
Point2 Unit(Point2 vector, Point2 otherwise);

// Turned by a quarter, counter-clockwise.
constexpr Point2 LeftOf(Point2 v)
{
    return {-v.y, v.x};
}

// Whether a map that takes the axes to u and v keeps all angles: circles stay circles.
bool IsSimilar(Point2 u, Point2 v);

// How much an angle in radians has to grow from start to get to end: up to a full turn. 0 when they are
// equal, a full turn when they are turns apart but for what files round off.
double Sweep(double start, double end);

// The same angle in [0, a turn).
double Wrapped(double angle);

// The points centre + cos(t) * u + sin(t) * v for t from start to end. u and v are half-diameters, conjugate
// to each other: what the half-diameters of a circle become when it is seen aslant.
struct EllipticArc {
    Point2 centre;
    Point2 u;
    Point2 v;
    double start = 0;
    double end = kTurn;

    Point2 At(double t) const { return centre + std::cos(t) * u + std::sin(t) * v; }
    // The direction in which it runs there, of any length.
    Point2 Along(double t) const { return std::cos(t) * v - std::sin(t) * u; }
    bool IsDrawable() const;
};

// The axes of an ellipse that has u and v as conjugate half-diameters. Its point at t is at t - shift when it
// is measured from the major axis, or at shift - t when the ellipse is mirrored: then t runs clockwise.
struct PrincipalAxes {
    Point2 major;
    double minor = 0; // its length
    double shift = 0;
    bool isMirrored = false;
};

PrincipalAxes AxesOf(Point2 u, Point2 v);

// The circular arc from one point to another. bulge is the tangent of a quarter of its angle, not 0, and
// above 0 for an arc that runs counter-clockwise.
EllipticArc ArcOfBulge(Point2 from, Point2 to, double bulge);

// How many chords of equal angles keep within tolerance of an arc of that radius and angle: 1 to most.
std::size_t ChordsOf(double radius, double angle, double tolerance, double most);

// The most points that a full turn is flattened to.
inline constexpr double kMostPointsOfTurn = 512;

// Adds the points of a polyline that is nowhere farther than tolerance from the arc, but for the arc's first
// point; coarser when that took more than kMostPointsOfTurn.
void Flatten(const EllipticArc& arc, double tolerance, std::vector<Point2>& points);

// The same, with a tolerance that was chosen by that of all curves, which count the points.
void Flatten(const EllipticArc& arc, double tolerance, std::vector<Point2>& points, Fineness& curves);

} // namespace prepare
