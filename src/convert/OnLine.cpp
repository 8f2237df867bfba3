#include "convert/CDxfReadToQuillmar.h"
#include "entities/DXF_GRAPHIC_GEOMETRY.h"

void CDxfReadToQuillmar::OnLine(const DXF_GRAPHIC_LINE& line)
{
    if (!MayDraw())
        return;
    const DXF_POINT2D start = Transform(line.m_dStartX, line.m_dStartY);
    const DXF_POINT2D end = Transform(line.m_dEndX, line.m_dEndY);
    const QlmNode node = qlmCreateLine(parentNode, L"", ToFloat(start.x), ToFloat(start.y), ToFloat(end.x),
                                       ToFloat(end.y), 0.0f, 0.0f);
    SetStyle(node, line);
}
