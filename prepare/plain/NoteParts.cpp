#include "prepare/plain/NoteParts.h"

#include <cmath>

namespace prepare {

NotePlane PlaneOf(Point3 point, Point3 direction, Point3 extrusion)
{
    NotePlane plane;
    plane.origin = point;
    plane.normal = FromObject(extrusion).z;
    const double length = Length(direction);
    if (length > 0 && std::isfinite(length))
        plane.along = (1 / length) * direction;
    plane.up = Cross(plane.normal, plane.along);
    return plane;
}

MText TextIn(const NotePlane& plane, double u, double v, double height, std::string_view letters,
             std::uint64_t line)
{
    constexpr std::int32_t kMiddleCentre = 5;
    MText text;
    text.line = line;
    text.point = plane.At(u, v);
    text.direction = plane.along;
    text.hasDirection = true;
    text.extrusion = plane.normal;
    text.height = height;
    text.text = letters;
    text.attachment = kMiddleCentre;
    return text;
}

Placement InStyle(const Placement& placement, const Style& style)
{
    return {placement.drawing, placement.matrix, style,           placement.scale,
            placement.sink,    placement.report, placement.budget};
}

NoteFrame::NoteFrame(const Placement& placement, const NotePlane& plane, const Style& style)
    : m_placement(placement), m_plane(plane), m_style(style)
{
    m_style.lineType = nullptr;
}

void NoteFrame::Line(double u, double v, double endU, double endV) const
{
    const Point2 from = m_placement.matrix.Flat(m_plane.At(u, v));
    const Point2 to = m_placement.matrix.Flat(m_plane.At(endU, endV));
    if (std::isfinite(from.x) && std::isfinite(from.y) && std::isfinite(to.x) && std::isfinite(to.y) &&
        !(from == to)) {
        m_placement.budget.Take(2);
        m_placement.sink.Line(m_style, from, to);
    }
}

} // namespace prepare
