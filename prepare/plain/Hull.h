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

    void Add(Point2 point)
    {
        if (!IsWithin(point, 0))
            AddOutside(point);
    }
    // Also the part of the circle from start to end, counter-clockwise, in radians.
    void AddArc(Point2 centre, double radius, double start, double end);

    // Whether all that is as near to the point as that is already within: it would change nothing.
    bool IsWithin(Point2 point, double distance) const
    {
        return point.x - distance >= m_inner.min.x && point.x + distance <= m_inner.max.x &&
               point.y - distance >= m_inner.min.y && point.y + distance <= m_inner.max.y;
    }

    bool IsEmpty() const { return m_isEmpty; }
    std::array<Point2, kDirections> Points() const;
    Box Bounds() const;

private:
    void AddOutside(Point2 point);
    void AddFarthest(std::size_t direction, Point2 point);
    void FindInner();

    // The farthest point in each direction; apart, so that all are looked at in wide steps.
    std::array<double, kDirections> m_x{};
    std::array<double, kDirections> m_y{};
    std::array<double, kDirections> m_reach{}; // how far it is
    Box m_inner;            // a box that no direction leaves, perhaps a smaller one than there is
    unsigned m_outside = 0; // how many points were not within it
    bool m_isEmpty = true;
};

} // namespace prepare
