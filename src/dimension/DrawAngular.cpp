// Two-line angular dimensions.
#include "dimension/CDxfDimensionDrawing.h"
#include "dimension/CDxfGroup.h"
#include "dimension/DXF_GRAPHIC_DIMENSION_PARTS.h"
#include "drawing/ArcPath.h"
#include "drawing/DimensionPoints.h"

#include <cmath>

namespace {

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
    const AngleSector sector = MeasuredSector({a1, a2, d, b, a3}, vertex, m_yAxisMode);
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

    const DXF_POINT2D middle = Transform(dimension.m_dTextMidX, dimension.m_dTextMidY);
    DrawAngleValue(dimension, sector.span, (Direction(middle, vertex) - kPi / 2) * kDegreesPerRadian);
}
