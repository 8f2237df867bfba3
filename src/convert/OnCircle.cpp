#include "convert/CDxfReadToQuillmar.h"
#include "entities/DXF_GRAPHIC_GEOMETRY.h"

void CDxfReadToQuillmar::OnCircle(const DXF_GRAPHIC_CIRCLE& circle)
{
    if (!MayDraw())
        return;
    const DXF_POINT2D center = Transform(circle.m_dCenterX, circle.m_dCenterY);
    const QlmNode node = qlmCreateCircle(parentNode, L"", ToFloat(scale * circle.m_dRadius),
                                         ToFloat(center.x), ToFloat(center.y), 0.0f, 0.0f);
    SetAttribute(node, L"fill-opacity", L"0");
    SetStyle(node, circle);
}
