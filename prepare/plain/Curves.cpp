#include "prepare/plain/Curves.h"

#include <algorithm>

namespace prepare {

namespace {

// Full turns in files are off by what six digits lose.
constexpr double kRoundedAngle = 1e-5;

} // namespace

Point2 Unit(Point2 vector, Point2 otherwise)
{
    const double length = Length(vector);
    return length > 0 && std::isfinite(length) ? (1 / length) * vector : otherwise;
}

bool IsSimilar(Point2 u, Point2 v)
{
    constexpr double kSame = 1e-9;
    const double lengthOfU = Length(u), lengthOfV = Length(v);
    return lengthOfU > 0 && std::fabs(lengthOfU - lengthOfV) <= kSame * lengthOfU &&
           std::fabs(Dot(u, v)) <= kSame * lengthOfU * lengthOfV;
}

double Sweep(double start, double end)
{
    const double difference = end - start;
    const double turns = std::round(difference / kTurn);
    if (turns != 0 && std::fabs(difference - turns * kTurn) <= kRoundedAngle)
        return kTurn;
    return Wrapped(difference);
}

double Wrapped(double angle)
{
    if (angle >= 0 && angle < kTurn)
        return angle;
    double rest = std::fmod(angle, kTurn);
    if (rest < 0)
        rest += kTurn;
    return rest >= kTurn ? 0 : rest; // what is not finite stays so
}

bool EllipticArc::IsDrawable() const
{
    return prepare::IsDrawable(centre) && prepare::IsDrawable(u) && prepare::IsDrawable(v) &&
           std::isfinite(start) && std::isfinite(end);
}

PrincipalAxes AxesOf(Point2 u, Point2 v)
{
    PrincipalAxes axes;
    Point2 minor = v;
    axes.major = u;
    const double dot = Dot(u, v), difference = Dot(u, u) - Dot(v, v);
    if (dot == 0) { // nothing to turn: the axes stay exact
        if (difference < 0) {
            axes.major = v;
            minor = -1 * u;
            axes.shift = kTurn / 4;
        }
    } else {
        axes.shift = 0.5 * std::atan2(2 * dot, difference);
        const double cosine = std::cos(axes.shift), sine = std::sin(axes.shift);
        axes.major = cosine * u + sine * v;
        minor = cosine * v - sine * u;
    }
    const double area = Cross(axes.major, minor), length = Length(axes.major);
    axes.minor = length > 0 ? std::fabs(area) / length : 0;
    axes.isMirrored = area < 0;
    return axes;
}

EllipticArc ArcOfBulge(Point2 from, Point2 to, double bulge)
{
    EllipticArc arc;
    const Point2 chord = to - from;
    const double side = 0.25 * (1 / bulge - bulge); // of the centre, in chords to the left
    arc.u = -0.5 * chord - side * LeftOf(chord);
    arc.centre = from - arc.u;
    arc.v = bulge > 0 ? LeftOf(arc.u) : -1 * LeftOf(arc.u);
    arc.end = 4 * std::atan(std::fabs(bulge));
    return arc;
}

// Half an angle's chord is radius * (1 - cos) from the arc, twice the square of the sine of a quarter.
std::size_t ChordsOf(double radius, double angle, double tolerance, double most)
{
    const double half = 2 * std::asin(std::sqrt(std::clamp(tolerance / (2 * radius), 0.0, 0.5)));
    const double wanted = std::ceil(angle / (2 * half));
    return static_cast<std::size_t>(std::max(1.0, wanted < most ? wanted : most));
}

void Flatten(const EllipticArc& arc, double tolerance, std::vector<Point2>& points)
{
    const double sweep = arc.end - arc.start;
    const std::size_t chords = ChordsOf(Length(AxesOf(arc.u, arc.v).major), sweep, tolerance,
                                        std::ceil(kMostPointsOfTurn * sweep / kTurn));
    for (std::size_t i = 1; i <= chords; ++i)
        points.push_back(arc.At(arc.start + sweep * static_cast<double>(i) / static_cast<double>(chords)));
}

void Flatten(const EllipticArc& arc, double tolerance, std::vector<Point2>& points, Fineness& curves)
{
    const std::size_t before = points.size();
    Flatten(arc, tolerance, points);
    curves.Take(1, points.size() - before);
}

} // namespace prepare
