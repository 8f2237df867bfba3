#include "prepare/plain/OutlineOutput.h"

#include "prepare/plain/ClipSink.h"
#include "prepare/plain/Curves.h"

namespace prepare {

void OutlineOutput::Circle(const Style& style, Point2 centre, double radius)
{
    Arc(style, centre, radius, 0, kTurn);
}

void OutlineOutput::Arc(const Style& style, Point2 centre, double radius, double start, double end)
{
    Ellipse(style, centre, {radius, 0}, 1, start, end);
}

void OutlineOutput::Ellipse(const Style&, Point2 centre, Point2 majorAxis, double ratio, double start,
                            double end)
{
    if (!m_outline.empty())
        return;
    const EllipticArc arc{centre, majorAxis, ratio * LeftOf(majorAxis), start, end};
    m_outline.push_back(arc.At(start));
    Flatten(arc, m_curves.Tolerance(), m_outline, m_curves);
}

void OutlineOutput::Polyline(const Style&, std::span<const PlainVertex> vertices, bool isClosed)
{
    if (m_outline.empty() && !vertices.empty())
        m_outline = PointsOf(vertices, isClosed, m_curves);
}

} // namespace prepare
