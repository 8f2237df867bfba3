#include "prepare/plain/Hull.h"

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

void Hull::Add(Point2 point)
{
    if (!std::isfinite(point.x) || !std::isfinite(point.y))
        return;
    const auto& directions = Directions();
    for (std::size_t i = 0; i < kDirections; ++i) {
        const double reach = Dot(point, directions[i]);
        if (m_isEmpty || reach > m_reach[i]) {
            m_reach[i] = reach;
            m_points[i] = point;
        }
    }
    m_isEmpty = false;
}

void Hull::AddArc(Point2 centre, double radius, double start, double end)
{
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
