// Two-line angular dimensions.
#include "dimension/CDxfDimensionDrawing.h"
#include "dimension/CDxfGroup.h"
#include "dimension/DXF_GRAPHIC_DIMENSION_PARTS.h"
#include "drawing/Angles.h"
#include "drawing/ArcPath.h"
#include "drawing/Points.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

// Where the line through a1 and a2 meets the line through b1 and b2; (0, 0) when they are parallel or the
// same (quirk 110).
DXF_POINT2D Intersection(const DXF_POINT2D& a1, const DXF_POINT2D& a2, const DXF_POINT2D& b1,
                         const DXF_POINT2D& b2)
{
    const double denominator = (b2.y - b1.y) * (a2.x - a1.x) - (b2.x - b1.x) * (a2.y - a1.y);
    const double numeratorA = (b2.x - b1.x) * (a1.y - b1.y) - (b2.y - b1.y) * (a1.x - b1.x);
    const double numeratorB = (a2.x - a1.x) * (a1.y - b1.y) - (a2.y - a1.y) * (a1.x - b1.x);
    if (denominator == 0 || (numeratorA == 0 && numeratorB == 0))
        return {0.0, 0.0};
    const double ua = numeratorA / denominator;
    return {a1.x + ua * (a2.x - a1.x), a1.y + ua * (a2.y - a1.y)};
}

// The direction from one point to another, at least 0.
double PositiveDirection(const DXF_POINT2D& from, const DXF_POINT2D& to)
{
    const double angle = Direction(from, to);
    return angle < 0 ? angle + kTwoPi : angle;
}

// The direction to the farther of two points, to the second when they are equally far.
double DirectionToFarther(const DXF_POINT2D& from, const DXF_POINT2D& first, const DXF_POINT2D& second)
{
    return PositiveDirection(from, Distance(from, first) > Distance(from, second) ? first : second);
}

double Opposite(double angle)
{
    const double opposite = angle + kPi;
    return opposite > kTwoPi ? opposite - kTwoPi : opposite;
}

// The directions of both lines, each both ways, ascending.
std::array<double, 4> SortedBounds(double a, double b, std::int32_t yAxisMode)
{
    if (yAxisMode == 1 ? b < a : a < b)
        std::swap(a, b);
    std::array<double, 4> bounds{a, b, Opposite(a), Opposite(b)};
    // By insertion: what is not a number stays where it is, and nothing is read beyond the four.
    for (std::size_t i = 1; i < bounds.size(); ++i)
        for (std::size_t j = i; j > 0 && bounds[j] < bounds[j - 1]; --j)
            std::swap(bounds[j], bounds[j - 1]);
    return bounds;
}

// The part of the circle that a dimension measures.
struct Sector {
    double span; // degrees
    bool exists;
    double start; // radians
    double end;
};

Sector FindSector(const std::array<double, 4>& bounds, double direction)
{
    std::array<double, 4> s;
    std::transform(bounds.begin(), bounds.end(), s.begin(),
                   [](double bound) { return bound * kDegreesPerRadian; });
    const double c = direction * kDegreesPerRadian;
    for (std::size_t i = 0; i < 3; ++i)
        if (s[i] <= c && c <= s[i + 1])
            return {s[i + 1] - s[i], true, bounds[i], bounds[i + 1]};
    if (0 <= c && c <= s[3]) // quirk 108: the angle would be 360 - s3 + s0
        return {360 - s[0] + s[3], true, bounds[3], bounds[0]};
    return {0.0, false, 0.0, 0.0};
}

DXF_POINT2D PointOnCircle(const DXF_POINT2D& center, double radius, double angle)
{
    return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

} // namespace

// The construction marks (both lines, the vertex, the ends of the arc and the arc's own point) are drawn
// (quirk 111).
void CDxfDimensionDrawing::DrawAngular(const DIMENSION& dimension, const ANGULAR& angular)
{
    const DXF_POINT2D d = Transform(dimension.m_dDefPointX, dimension.m_dDefPointY);
    const DXF_POINT2D a1 = Transform(angular.m_dExtLine1X, angular.m_dExtLine1Y);
    const DXF_POINT2D a2 = Transform(angular.m_dExtLine2X, angular.m_dExtLine2Y);
    const DXF_POINT2D b = Transform(angular.m_dArcPointX, angular.m_dArcPointY);
    const DXF_POINT2D a3 = Transform(angular.m_dDimArcX, angular.m_dDimArcY);

    const DXF_POINT2D vertex = Intersection(a1, a2, d, b);
    const double radius = Distance(vertex, a3);
    const auto bounds =
        SortedBounds(DirectionToFarther(vertex, a1, a2), DirectionToFarther(vertex, d, b), m_yAxisMode);
    const Sector sector = FindSector(bounds, PositiveDirection(vertex, a3));
    const DXF_POINT2D start = sector.exists ? PointOnCircle(vertex, radius, sector.start) : DXF_POINT2D{};
    const DXF_POINT2D end = sector.exists ? PointOnCircle(vertex, radius, sector.end) : DXF_POINT2D{};

    const CDxfGroup group(m_parentNode);
    const wchar_t* const flags = ArcFlags(false, m_yAxisMode == kFlippedYAxisMode);
    const CDxfArcPath data(start, radius, radius, flags, end);
    const QlmNode path = qlmCreatePath(m_parentNode, L"", data.c_str(), 0.0f, 0.0f);
    SetAttribute(path, L"stroke-width", m_strokeWidth.c_str());

    DrawLine(a1, a2, Arrows::None, L"#ff0000");
    DrawLine(d, b, Arrows::None, L"#00ff00");
    DrawMark(vertex, nullptr);
    DrawMark(start, L"#ff0000");
    DrawMark(end, L"#00ff00");
    DrawMark(a3, L"#0000ff");

    ValueText value;
    value.AddWidth4Fixed2(sector.span).Add(UnitOf(dimension));
    const DXF_POINT2D middle = Transform(dimension.m_dTextMidX, dimension.m_dTextMidY);
    DrawValue(dimension, value, (Direction(middle, vertex) - kPi / 2) * kDegreesPerRadian);
}
