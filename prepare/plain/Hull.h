// How far a drawing reaches, seen from any direction.
#pragma once

#include "prepare/plain/Placement.h"

#include <array>
#include <cstddef>

namespace prepare {

// The farthest point of a set in each of sixteen directions. Turned, it still bounds the set within two
// percent, which a box does not.
class Hull {
public:
    static constexpr std::size_t kDirections = 16;

    void Add(Point2 point);
    // Also the part of the circle from start to end, counter-clockwise, in radians.
    void AddArc(Point2 centre, double radius, double start, double end);

    bool IsEmpty() const { return m_isEmpty; }
    const std::array<Point2, kDirections>& Points() const { return m_points; }
    Box Bounds() const;

private:
    std::array<Point2, kDirections> m_points; // each the farthest in its direction
    std::array<double, kDirections> m_reach{};
    bool m_isEmpty = true;
};

} // namespace prepare
