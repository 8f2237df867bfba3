#include "prepare/plain/ViewportOutline.h"

#include "prepare/plain/ClipSink.h"
#include "prepare/plain/Curves.h"

namespace prepare {

void ViewportOutline::Circle(const Style& style, Point2 centre, double radius)
{
    Arc(style, centre, radius, 0, kTurn);
}

void ViewportOutline::Arc(const Style& style, Point2 centre, double radius, double start, double end)
{
    Ellipse(style, centre, {radius, 0}, 1, start, end);
}

void ViewportOutline::Ellipse(const Style&, Point2 centre, Point2 majorAxis, double ratio, double start,
                              double end)
{
    if (!m_outline.empty())
        return;
    const EllipticArc arc{centre, majorAxis, ratio * LeftOf(majorAxis), start, end};
    m_outline.push_back(arc.At(start));
    Flatten(arc, m_curves.Tolerance(), m_outline, m_curves);
}

void ViewportOutline::Polyline(const Style&, std::span<const PlainVertex> vertices, bool isClosed)
{
    if (m_outline.empty() && !vertices.empty())
        m_outline = PointsOf(vertices, isClosed, m_curves);
}

} // namespace prepare
