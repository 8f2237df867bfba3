// A polygon that things are cut along.
#pragma once

#include "prepare/plain/Placement.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace prepare {

// What is said of an entity that is cut along a box in its boundary's place, or not at all.
inline constexpr std::string_view kCutAlongBox =
    "cut off along a box: its boundary crosses itself or has more than 256 corners";
inline constexpr std::string_view kNotCutByRing =
    "not cut off: its boundary crosses itself or has more than 256 corners";
inline constexpr std::string_view kNotCutByNothing = "not cut off: its boundary has no area";

enum class ClipSide : std::uint8_t { Inside, Outside, Across };

// The area within a ring, or, inverted, all that is around it. A ring that crosses itself or has more than
// kMostCorners is replaced by the box around it.
class ClipRegion {
public:
    static constexpr std::size_t kMostCorners = 256;

    explicit ClipRegion(std::vector<Point2> corners, bool isInverted = false);

    // Without an area there is nothing to cut along.
    bool IsEmpty() const { return m_corners.size() < 3 || !(m_box.Width() > 0) || !(m_box.Height() > 0); }
    // Whether a box is in the ring's place.
    bool IsReplaced() const { return m_isReplaced; }
    // The ring, and the box around it.
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
    using Ring = std::vector<Point2>;

    void ReplaceByBox();
    void MakeConvexParts();
    bool IsEar(const Ring& rest, std::size_t i) const;
    ClipSide SideOfRing(const Box& box) const;
    Shares Within(Point2 from, Point2 to) const;
    bool HasSideWithin(const Ring& ring) const;
    void AddWithin(const Ring& ring, std::vector<Ring>& within) const;

    Ring m_corners; // counter-clockwise
    bool m_isInverted;
    bool m_isReplaced = false;
    Box m_box;
    std::vector<Ring> m_parts; // convex ones that make up the area within the ring
};

} // namespace prepare
