#include "convert/CDxfReadToQuillmar.h"
#include "drawing/Angles.h"
#include "drawing/ArcPath.h"
#include "drawing/Points.h"
#include "entities/DXF_GRAPHIC_GEOMETRY.h"

#include <cmath>
#include <utility>

// The end points come from the angles as read, the large-arc flag from the normalised ones, in the mirrored
// case too (quirk 48). The record keeps the normalised angles even if nothing may be drawn (quirk 51).
void CDxfReadToQuillmar::OnArc(DXF_GRAPHIC_ARC& arc)
{
    const double radius = arc.m_dRadius;
    const auto pointAt = [&](double angle) {
        const double radians = angle * kPi / 180;
        return DXF_POINT2D{arc.m_dCenterX + radius * std::cos(radians),
                           arc.m_dCenterY + radius * std::sin(radians)};
    };
    DXF_POINT2D start = pointAt(arc.m_dStartAngle);
    DXF_POINT2D end = pointAt(arc.m_dEndAngle);
    DXF_POINT2D center{arc.m_dCenterX, arc.m_dCenterY};
    if (arc.m_rare->m_dExtrusionZ != 1.0) { // seen from below
        std::swap(start, end);
        start.x = -start.x;
        end.x = -end.x;
        center.x = -center.x;
    }

    arc.m_dStartAngle = NormalizeDegrees(arc.m_dStartAngle);
    arc.m_dEndAngle = NormalizeDegrees(arc.m_dEndAngle);
    const bool wraps = arc.m_dStartAngle > arc.m_dEndAngle;
    const double span =
        wraps ? 360 - arc.m_dStartAngle + arc.m_dEndAngle : arc.m_dEndAngle - arc.m_dStartAngle;

    if (!MayDraw())
        return;
    start = Transform(start.x, start.y);
    end = Transform(end.x, end.y);
    center = Transform(center.x, center.y);
    const double drawnRadius = Distance(start, center);
    const wchar_t* const flags = ArcFlags(span >= 180, !IsFlipped());
    const CDxfArcPath data(start, drawnRadius, drawnRadius, flags, end);
    const QlmNode node = qlmCreatePath(parentNode, L"", data.c_str(), 0.0f, 0.0f);
    SetAttribute(node, L"stroke-width", L"1"); // the style sets it again (quirk 47)
    SetStyle(node, arc);
}
