#include "convert/CDxfReadToQuillmar.h"
#include "drawing/CDxfText.h"
#include "entities/DXF_GRAPHIC_GEOMETRY.h"

// Meant to have no gate: a polyline is created while drawing is off, and without a context node.
void CDxfReadToQuillmar::OnLWPolyline(const DXF_GRAPHIC_LWPOLYLINE& polyline)
{
    m_points.clear();
    for (const DXF_POINT2D& vertex : polyline.m_vertices) {
        const DXF_POINT2D point = Transform(vertex.x, vertex.y);
        CDxfText<2 * kLongestNumber + sizeof(" ,")> pair;
        pair.Add(m_points.empty() ? L"" : L" ").AddFixed6(point.x).Add(L",").AddFixed6(point.y);
        m_points += pair.c_str();
    }

    QlmNode node;
    if (polyline.m_nFlags == 0) {
        node = qlmCreatePolyline(parentNode, L"", m_points.c_str(), 0.0f, 0.0f);
    } else { // any flag makes it a polygon, not the closed bit alone
        node = qlmCreatePolygon(parentNode, L"", m_points.c_str(), 0.0f, 0.0f);
        SetAttribute(node, L"fill-opacity", L"0");
    }
    SetStyle(node, polyline);
}
