#include "base/Numbers.h"
#include "convert/CDxfReadToQuillmar.h"
#include "entities/DXF_GRAPHIC_GEOMETRY.h"

#include <algorithm>

// Makes room for what the points from vertex on can add at most. Their numbers may have 309 digits: a text
// that doubled would take three times its size.
void CDxfReadToQuillmar::GrowPoints(const DXF_POINT2D* vertex, const DXF_POINT2D* end)
{
    if (m_points.empty())
        std::wstring().swap(m_points); // frees the room of the last polyline before the new one needs its own
    std::size_t room = m_points.size();
    for (; vertex != end; ++vertex) {
        const DXF_POINT2D point = Transform(vertex->x, vertex->y);
        room += RoomForFixed6(point.x) + RoomForFixed6(point.y) + sizeof(" ,") - 1;
    }
    std::wstring larger; // a new one, because one that has room takes twice as much and not what is asked for
    larger.reserve(room);
    larger.append(m_points);
    m_points.swap(larger);
}

// It has no gate: a polyline is created while drawing is off, and without a context node (quirk 61).
void CDxfReadToQuillmar::OnLWPolyline(const DXF_GRAPHIC_LWPOLYLINE& polyline)
{
    m_points.clear();
    for (const DXF_POINT2D& vertex : polyline.m_vertices) {
        const DXF_POINT2D point = Transform(vertex.x, vertex.y);
        char pair[2 * kLongestNumber + sizeof(" ,")];
        char* end = pair;
        if (!m_points.empty())
            *end++ = ' ';
        end = FormatFixed6(point.x, end);
        *end++ = ',';
        end = FormatFixed6(point.y, end);
        const std::size_t length = m_points.size();
        const std::size_t more = static_cast<std::size_t>(end - pair);
        if (more > m_points.capacity() - length) [[unlikely]]
            GrowPoints(&vertex, polyline.m_vertices.end());
        m_points.resize(length + more);
        std::copy(pair, end, m_points.data() + length);
    }

    QlmNode node;
    if (polyline.m_nFlags == 0) {
        node = qlmCreatePolyline(parentNode, L"", m_points.c_str(), 0.0f, 0.0f);
    } else { // any flag makes it a polygon, not the closed bit alone (quirk 57)
        node = qlmCreatePolygon(parentNode, L"", m_points.c_str(), 0.0f, 0.0f);
        SetAttribute(node, L"fill-opacity", L"0");
    }
    SetStyle(node, polyline);
}
