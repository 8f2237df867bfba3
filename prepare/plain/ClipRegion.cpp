#include "prepare/plain/ClipRegion.h"

#include "prepare/plain/Curves.h"

#include <algorithm>
#include <cmath>

namespace prepare {

namespace {

double AreaOf(const std::vector<Point2>& ring)
{
    double area = 0;
    for (std::size_t i = 0; i < ring.size(); ++i)
        area += Cross(ring[i] - ring[0], ring[(i + 1) % ring.size()] - ring[0]) / 2;
    return area;
}

// Above 0 where p is to the left of the way from a to b.
double SideOfLine(Point2 a, Point2 b, Point2 p)
{
    return Cross(b - a, p - a);
}

bool IsConvex(const std::vector<Point2>& ring)
{
    for (std::size_t i = 0; i < ring.size(); ++i)
        if (SideOfLine(ring[i], ring[(i + 1) % ring.size()], ring[(i + 2) % ring.size()]) < 0)
            return false;
    // A star of several turns is bent to the left everywhere, too.
    int turns = 0;
    for (std::size_t i = 0; i < ring.size(); ++i)
        turns += ring[i].y < ring[(i + 1) % ring.size()].y &&
                 !(ring[(i + ring.size() - 1) % ring.size()].y < ring[i].y);
    return turns <= 1;
}

bool IsInTriangle(Point2 a, Point2 b, Point2 c, Point2 p)
{
    return SideOfLine(a, b, p) >= 0 && SideOfLine(b, c, p) >= 0 && SideOfLine(c, a, p) >= 0 && !(p == a) &&
           !(p == b) && !(p == c);
}

// The part of a ring that is to the left of the way from a to b.
std::vector<Point2> LeftPart(const std::vector<Point2>& ring, Point2 a, Point2 b)
{
    std::vector<Point2> part;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Point2 from = ring[i], to = ring[(i + 1) % ring.size()];
        const double first = SideOfLine(a, b, from), second = SideOfLine(a, b, to);
        if (first >= 0)
            part.push_back(from);
        if ((first > 0 && second < 0) || (first < 0 && second > 0))
            part.push_back(from + (first / (first - second)) * (to - from));
    }
    return part;
}

} // namespace

ClipRegion::ClipRegion(std::vector<Point2> corners) : m_corners(std::move(corners))
{
    std::erase_if(m_corners, [](Point2 corner) { return !IsFinite(corner); });
    for (const Point2 corner : m_corners)
        m_box.Add(corner);
    if (m_corners.size() > kMostCorners)
        m_corners = {m_box.min, {m_box.max.x, m_box.min.y}, m_box.max, {m_box.min.x, m_box.max.y}};
    if (IsEmpty())
        return;
    if (AreaOf(m_corners) < 0)
        std::reverse(m_corners.begin(), m_corners.end());
    MakeConvexParts();
}

// A convex one is its only part; of any other, ears are cut off.
void ClipRegion::MakeConvexParts()
{
    if (IsConvex(m_corners)) {
        m_parts = {m_corners};
        return;
    }
    std::vector<Point2> rest = m_corners;
    while (rest.size() > 3) {
        std::size_t ear = 0;
        while (ear + 1 < rest.size() && !IsEar(rest, ear))
            ++ear;
        const std::size_t before = (ear + rest.size() - 1) % rest.size(), after = (ear + 1) % rest.size();
        m_parts.push_back({rest[before], rest[ear], rest[after]});
        rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(ear));
    }
    m_parts.push_back(rest);
    std::erase_if(m_parts, [](const std::vector<Point2>& part) { return !(AreaOf(part) > 0); });
}

bool ClipRegion::IsEar(const std::vector<Point2>& rest, std::size_t i) const
{
    const Point2 a = rest[(i + rest.size() - 1) % rest.size()], b = rest[i], c = rest[(i + 1) % rest.size()];
    return SideOfLine(a, b, c) >= 0 &&
           std::none_of(rest.begin(), rest.end(), [&](Point2 other) { return IsInTriangle(a, b, c, other); });
}

ClipSide ClipRegion::SideOf(const Box& box) const
{
    if (box.IsEmpty() || box.min.x > m_box.max.x || box.max.x < m_box.min.x || box.min.y > m_box.max.y ||
        box.max.y < m_box.min.y)
        return ClipSide::Outside;
    const Point2 corners[] = {box.min, {box.max.x, box.min.y}, box.max, {box.min.x, box.max.y}};
    for (std::size_t i = 0; i < m_corners.size(); ++i) {
        const Point2 a = m_corners[i], b = m_corners[(i + 1) % m_corners.size()];
        if (std::max(a.x, b.x) < box.min.x || std::min(a.x, b.x) > box.max.x ||
            std::max(a.y, b.y) < box.min.y || std::min(a.y, b.y) > box.max.y)
            continue;
        const auto isLeft = [&](Point2 corner) { return SideOfLine(a, b, corner) > 0; };
        const auto left = std::count_if(std::begin(corners), std::end(corners), isLeft);
        if (left != 0 && left != 4)
            return ClipSide::Across;
    }
    return Contains(Middle(box.min, box.max)) ? ClipSide::Inside : ClipSide::Outside;
}

bool ClipRegion::Contains(Point2 point) const
{
    bool isInside = false;
    for (std::size_t i = 0; i < m_corners.size(); ++i) {
        const Point2 a = m_corners[i], b = m_corners[(i + 1) % m_corners.size()];
        if ((a.y > point.y) != (b.y > point.y) && point.x < a.x + (point.y - a.y) / (b.y - a.y) * (b.x - a.x))
            isInside = !isInside;
    }
    return isInside;
}

ClipRegion::Shares ClipRegion::Inside(Point2 from, Point2 to) const
{
    const Point2 way = to - from;
    const double square = Dot(way, way);
    std::vector<double> crossings;
    double before = SideOfLine(from, to, m_corners.back());
    for (std::size_t i = 0; i < m_corners.size(); ++i) {
        const double side = SideOfLine(from, to, m_corners[i]);
        if ((side > 0) != (before > 0)) {
            const Point2 last = m_corners[i > 0 ? i - 1 : m_corners.size() - 1];
            const Point2 crossing = last + (before / (before - side)) * (m_corners[i] - last);
            crossings.push_back(Dot(crossing - from, way) / square);
        }
        before = side;
    }
    std::sort(crossings.begin(), crossings.end());
    Shares shares;
    constexpr double kTouching = 1e-9;
    for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
        const double start = std::max(crossings[i], 0.0), end = std::min(crossings[i + 1], 1.0);
        if (!(end - start > kTouching))
            continue;
        if (!shares.empty() && start - shares.back().second < kTouching)
            shares.back().second = end;
        else
            shares.emplace_back(start, end);
    }
    return shares;
}

// The parts share only their edges, so what is inside them is one area by the same rule.
std::vector<std::vector<Point2>> ClipRegion::Inside(std::span<const std::vector<Point2>> rings) const
{
    std::vector<std::vector<Point2>> inside;
    for (const std::vector<Point2>& part : m_parts)
        for (std::vector<Point2> ring : rings) {
            for (std::size_t i = 0; i < part.size() && !ring.empty(); ++i)
                ring = LeftPart(ring, part[i], part[(i + 1) % part.size()]);
            if (ring.size() > 2)
                inside.push_back(std::move(ring));
        }
    return inside;
}

} // namespace prepare
