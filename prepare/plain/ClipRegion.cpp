#include "prepare/plain/ClipRegion.h"

#include "prepare/plain/Curves.h"

#include <algorithm>
#include <cmath>

namespace prepare {

namespace {

// Where two ways touch, as a share of a region's size or of a way.
constexpr double kTouching = 1e-9;

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

bool IsWithin(std::span<const Point2> ring, Point2 point)
{
    bool isWithin = false;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Point2 a = ring[i], b = ring[(i + 1) % ring.size()];
        if ((a.y > point.y) != (b.y > point.y) && point.x < a.x + (point.y - a.y) / (b.y - a.y) * (b.x - a.x))
            isWithin = !isWithin;
    }
    return isWithin;
}

Point2 CentreOf(std::span<const Point2> points)
{
    Point2 sum;
    for (const Point2 point : points)
        sum = sum + point;
    return (1 / static_cast<double>(points.size())) * sum;
}

// Whether the ends of one way are on different sides of the other's line, each farther from it than nearest.
bool IsAcross(Point2 a, Point2 b, Point2 from, Point2 to, double nearest)
{
    const double least = nearest * Length(b - a);
    const double first = SideOfLine(a, b, from), second = SideOfLine(a, b, to);
    return (first > least && second < -least) || (first < -least && second > least);
}

// Sides that only touch do not cross: a slit leads to a hole.
bool CrossesItself(const std::vector<Point2>& ring, double size)
{
    const double nearest = kTouching * size;
    for (std::size_t i = 0; i + 2 < ring.size(); ++i) {
        const Point2 a = ring[i], b = ring[i + 1];
        Box box;
        box.Add(a);
        box.Add(b);
        for (std::size_t j = i + 2; j < ring.size(); ++j) {
            const Point2 c = ring[j], d = ring[(j + 1) % ring.size()];
            if (std::max(c.x, d.x) < box.min.x || std::min(c.x, d.x) > box.max.x ||
                std::max(c.y, d.y) < box.min.y || std::min(c.y, d.y) > box.max.y)
                continue;
            if (IsAcross(a, b, c, d, nearest) && IsAcross(c, d, a, b, nearest))
                return true;
        }
    }
    return false;
}

// What is left of a whole way.
ClipRegion::Shares Without(const ClipRegion::Shares& shares)
{
    ClipRegion::Shares rest;
    double start = 0;
    for (const auto& [from, to] : shares) {
        if (from - start > kTouching)
            rest.emplace_back(start, from);
        start = to;
    }
    if (1 - start > kTouching)
        rest.emplace_back(start, 1);
    return rest;
}

} // namespace

ClipRegion::ClipRegion(std::vector<Point2> corners, bool isInverted)
    : m_corners(std::move(corners)), m_isInverted(isInverted)
{
    std::erase_if(m_corners, [](Point2 corner) { return !IsDrawable(corner); });
    m_box = BoxOf(m_corners);
    if (m_corners.size() > kMostCorners)
        ReplaceByBox();
    if (IsEmpty())
        return;
    if (AreaOf(m_corners) < 0)
        std::reverse(m_corners.begin(), m_corners.end());
    MakeConvexParts();
}

void ClipRegion::ReplaceByBox()
{
    m_corners = {m_box.min, {m_box.max.x, m_box.min.y}, m_box.max, {m_box.min.x, m_box.max.y}};
    m_isReplaced = true;
}

// A convex one is its only part; of any other, ears are cut off, in turn all around.
void ClipRegion::MakeConvexParts()
{
    bool isConvex = IsConvex(m_corners);
    if (!isConvex && CrossesItself(m_corners, m_box.LongerSide())) {
        ReplaceByBox();
        isConvex = true;
    }
    if (isConvex) {
        m_parts = {m_corners};
        return;
    }
    Ring rest = m_corners;
    std::size_t ear = 0;
    while (rest.size() > 3) {
        for (std::size_t tried = 0; tried < rest.size() && !IsEar(rest, ear); ++tried)
            ear = (ear + 1) % rest.size();
        const std::size_t before = (ear + rest.size() - 1) % rest.size(), after = (ear + 1) % rest.size();
        m_parts.push_back({rest[before], rest[ear], rest[after]});
        rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(ear));
        ear %= rest.size();
    }
    m_parts.push_back(rest);
    std::erase_if(m_parts, [](const Ring& part) { return !(AreaOf(part) > 0); });
}

bool ClipRegion::IsEar(const Ring& rest, std::size_t i) const
{
    const Point2 a = rest[(i + rest.size() - 1) % rest.size()], b = rest[i], c = rest[(i + 1) % rest.size()];
    return SideOfLine(a, b, c) >= 0 &&
           std::none_of(rest.begin(), rest.end(), [&](Point2 other) { return IsInTriangle(a, b, c, other); });
}

ClipSide ClipRegion::SideOf(const Box& box) const
{
    const ClipSide side = SideOfRing(box);
    if (!m_isInverted || box.IsEmpty() || side == ClipSide::Across)
        return side;
    return side == ClipSide::Inside ? ClipSide::Outside : ClipSide::Inside;
}

ClipSide ClipRegion::SideOfRing(const Box& box) const
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
    return IsWithin(m_corners, Middle(box.min, box.max)) ? ClipSide::Inside : ClipSide::Outside;
}

bool ClipRegion::Contains(Point2 point) const
{
    return IsWithin(m_corners, point) != m_isInverted;
}

ClipRegion::Shares ClipRegion::Inside(Point2 from, Point2 to) const
{
    if (from == to)
        return Contains(from) ? Shares{{0, 1}} : Shares{};
    return m_isInverted ? Without(Within(from, to)) : Within(from, to);
}

ClipRegion::Shares ClipRegion::Within(Point2 from, Point2 to) const
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

// By the even-odd rule, an area together with what of it is within the ring is what is around the ring.
std::vector<std::vector<Point2>> ClipRegion::Inside(std::span<const std::vector<Point2>> rings) const
{
    std::vector<Ring> inside;
    for (const Ring& ring : rings) {
        const ClipSide side = SideOf(BoxOf(ring));
        if (side == ClipSide::Inside || (side == ClipSide::Across && m_isInverted))
            inside.push_back(ring);
        if (side == ClipSide::Across)
            AddWithin(ring, inside);
    }
    return inside;
}

bool ClipRegion::HasSideWithin(const Ring& ring) const
{
    for (std::size_t i = 0; i < ring.size(); ++i)
        if (const Point2 to = ring[(i + 1) % ring.size()]; !(to == ring[i]) && !Within(ring[i], to).empty())
            return true;
    return false;
}

// The parts share only their edges, so what is within them is one area by the even-odd rule. An area whose
// edge is nowhere within holds all of the region or nothing of it.
void ClipRegion::AddWithin(const Ring& ring, std::vector<Ring>& within) const
{
    if (!HasSideWithin(ring)) {
        if (!m_parts.empty() && IsWithin(ring, CentreOf(m_parts.front())))
            within.push_back(m_corners);
        return;
    }
    for (const Ring& part : m_parts) {
        Ring cut = ring;
        for (std::size_t i = 0; i < part.size() && !cut.empty(); ++i)
            cut = LeftPart(cut, part[i], part[(i + 1) % part.size()]);
        if (cut.size() > 2)
            within.push_back(std::move(cut));
    }
}

} // namespace prepare
