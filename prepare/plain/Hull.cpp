#include "prepare/plain/Hull.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace prepare {

namespace {

constexpr double kTurn = 2 * std::numbers::pi;

const std::array<Point2, Hull::kDirections>& Directions()
{
    static const auto directions = [] {
        std::array<Point2, Hull::kDirections> made;
        for (std::size_t i = 0; i < made.size(); ++i) {
            const double angle = kTurn * static_cast<double>(i) / static_cast<double>(made.size());
            made[i] = {std::cos(angle), std::sin(angle)};
        }
        return made;
    }();
    return directions;
}

} // namespace

void Hull::AddOutside(Point2 point)
{
    if (!std::isfinite(point.x) || !std::isfinite(point.y))
        return;
    const auto& directions = Directions();
    bool hasGrown = m_isEmpty;
    for (std::size_t i = 0; i < kDirections; ++i) {
        const double reach = Dot(point, directions[i]);
        if (m_isEmpty || reach > m_reach[i]) {
            m_reach[i] = reach;
            m_points[i] = point;
            hasGrown = true;
        }
    }
    m_isEmpty = false;
    if (hasGrown)
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
    const auto& directions = Directions();
    for (std::size_t i = 0; i < kDirections; ++i) {
        const double wide = half.x * std::fabs(directions[i].x) + half.y * std::fabs(directions[i].y);
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
    const auto& directions = Directions();
    for (std::size_t i = 0; i < kDirections; ++i) {
        const double angle = kTurn * static_cast<double>(i) / static_cast<double>(kDirections);
        const double after = std::fmod(angle - start, kTurn);
        if ((after < 0 ? after + kTurn : after) <= end - start)
            Add(centre + radius * directions[i]);
    }
}

Box Hull::Bounds() const
{
    Box box;
    if (!m_isEmpty)
        for (const Point2& point : m_points)
            box.Add(point);
    return box;
}

} // namespace prepare
