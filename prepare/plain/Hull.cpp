#include "prepare/plain/Hull.h"

#include "prepare/plain/Curves.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace prepare {

namespace {

// Whether to compute the inner box again after that many points beyond it: often at first, then seldom.
bool IsTimeForInner(unsigned outside)
{
    constexpr unsigned kFirst = 4, kPatience = 64;
    return outside % kPatience == 0 || (outside >= kFirst && std::has_single_bit(outside));
}

// Apart, so that all are looked at in wide steps.
struct Directions {
    std::array<double, Hull::kDirections> x;
    std::array<double, Hull::kDirections> y;

    Point2 operator[](std::size_t i) const { return {x[i], y[i]}; }
};

constexpr double AngleOf(std::size_t direction)
{
    return kTurn * static_cast<double>(direction) / static_cast<double>(Hull::kDirections);
}

const Directions& AllDirections()
{
    static const Directions directions = [] {
        Directions made;
        for (std::size_t i = 0; i < Hull::kDirections; ++i) {
            made.x[i] = std::cos(AngleOf(i));
            made.y[i] = std::sin(AngleOf(i));
        }
        return made;
    }();
    return directions;
}

// Whether counter-clockwise from start to end there is that angle.
bool HasAngle(double start, double end, double angle)
{
    if (end - start >= kTurn)
        return true;
    double after = angle - start;
    if (!(std::fabs(after) < kTurn))
        after = std::fmod(after, kTurn);
    return (after < 0 ? after + kTurn : after) <= end - start;
}

} // namespace

void Hull::AddOutside(Point2 point)
{
    if (!std::isfinite(point.x) || !std::isfinite(point.y))
        return;
    const Directions& directions = AllDirections();
    std::array<double, kDirections> reach;
    for (std::size_t i = 0; i < kDirections; ++i)
        reach[i] = point.x * directions.x[i] + point.y * directions.y[i];
    if (m_isEmpty) {
        m_x.fill(point.x);
        m_y.fill(point.y);
        m_reach = reach;
        m_isEmpty = false;
    }
    for (std::size_t i = 0; i < kDirections; ++i)
        if (reach[i] > m_reach[i]) {
            m_x[i] = point.x;
            m_y[i] = point.y;
            m_reach[i] = reach[i];
        }
    if (IsTimeForInner(++m_outside))
        FindInner();
}

// The box around all, shrunk until no direction leaves what is reached there, and by what rounding may add.
void Hull::FindInner()
{
    constexpr double kRounding = 1e-9;
    const Box box = Bounds();
    const Point2 centre = 0.5 * (box.min + box.max), half = 0.5 * (box.max - box.min);
    m_inner = {};
    if (!std::isfinite(centre.x + centre.y) || !std::isfinite(half.x + half.y))
        return;
    double share = 1;
    const Directions& directions = AllDirections();
    for (std::size_t i = 0; i < kDirections; ++i) {
        const double wide = half.x * std::fabs(directions.x[i]) + half.y * std::fabs(directions.y[i]);
        if (wide > 0)
            share = std::min(share, (m_reach[i] - Dot(centre, directions[i])) / wide);
    }
    share -= kRounding;
    m_inner = {centre - share * half, centre + share * half};
}

void Hull::AddArc(Point2 centre, double radius, double start, double end)
{
    if (IsWithin(centre, radius))
        return;
    Add(centre + radius * Point2{std::cos(start), std::sin(start)});
    Add(centre + radius * Point2{std::cos(end), std::sin(end)});
    const Directions& directions = AllDirections();
    for (std::size_t i = 0; i < kDirections; ++i)
        if (HasAngle(start, end, AngleOf(i)))
            AddFarthest(i, centre + radius * directions[i]);
}

// The point is the farthest of a curve in that direction, and in no other one.
void Hull::AddFarthest(std::size_t direction, Point2 point)
{
    if (m_isEmpty)
        return Add(point);
    const double reach = Dot(point, AllDirections()[direction]);
    if (!(reach > m_reach[direction]) || !IsDrawable(point))
        return;
    m_x[direction] = point.x;
    m_y[direction] = point.y;
    m_reach[direction] = reach;
}

std::array<Point2, Hull::kDirections> Hull::Points() const
{
    std::array<Point2, kDirections> points;
    for (std::size_t i = 0; i < kDirections; ++i)
        points[i] = {m_x[i], m_y[i]};
    return points;
}

Box Hull::Bounds() const
{
    Box box;
    if (m_isEmpty)
        return box;
    for (std::size_t i = 0; i < kDirections; ++i)
        box.Add({m_x[i], m_y[i]});
    return box;
}

} // namespace prepare
