// A polygon that things are cut along.
#pragma once

#include "prepare/plain/Placement.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace prepare {

enum class ClipSide : std::uint8_t { Inside, Outside, Across };

// The area within a ring by the even-odd rule. Corners beyond kMostCorners make it the box around all.
class ClipRegion {
public:
    static constexpr std::size_t kMostCorners = 256;

    explicit ClipRegion(std::vector<Point2> corners);

    // Without an area there is nothing to cut along.
    bool IsEmpty() const { return m_corners.size() < 3 || !(m_box.Width() > 0) || !(m_box.Height() > 0); }
    std::span<const Point2> Corners() const { return m_corners; }
    const Box& Bounds() const { return m_box; }

    // Where a box is. Across may be said of one that only comes near an edge.
    ClipSide SideOf(const Box& box) const;
    bool Contains(Point2 point) const;
    // The shares of a way from one point to another that are inside, in their order.
    using Shares = std::vector<std::pair<double, double>>;
    Shares Inside(Point2 from, Point2 to) const;
    // The part of an area, by the even-odd rule, that is inside.
    std::vector<std::vector<Point2>> Inside(std::span<const std::vector<Point2>> rings) const;

private:
    void MakeConvexParts();
    bool IsEar(const std::vector<Point2>& rest, std::size_t i) const;

    std::vector<Point2> m_corners; // counter-clockwise
    Box m_box;
    std::vector<std::vector<Point2>> m_parts; // convex ones that make up the area
};

} // namespace prepare
