#include "prepare/plain/VisibilitySink.h"

#include <algorithm>

namespace prepare {

namespace {

// Whether one of the rings is more than a point.
bool HasExtent(std::span<const std::vector<Point2>> rings)
{
    return std::any_of(rings.begin(), rings.end(), [](const std::vector<Point2>& ring) {
        return std::any_of(ring.begin(), ring.end(), [&](Point2 p) { return !(p == ring.front()); });
    });
}

} // namespace

void VisibilitySink::Line(const Style& style, Point2 start, Point2 end)
{
    m_isVisible = true;
    m_next.Line(style, start, end);
}

void VisibilitySink::Circle(const Style& style, Point2 centre, double radius)
{
    See(radius > 0);
    m_next.Circle(style, centre, radius);
}

void VisibilitySink::Arc(const Style& style, Point2 centre, double radius, double start, double end)
{
    See(radius > 0 && end > start);
    m_next.Arc(style, centre, radius, start, end);
}

void VisibilitySink::Ellipse(const Style& style, Point2 centre, Point2 majorAxis, double ratio, double start,
                             double end)
{
    See(ratio > 0 && end > start && !(majorAxis == Point2{}));
    m_next.Ellipse(style, centre, majorAxis, ratio, start, end);
}

void VisibilitySink::Polyline(const Style& style, std::span<const PlainVertex> vertices, bool isClosed)
{
    See(std::any_of(vertices.begin(), vertices.end(),
                    [&](const PlainVertex& v) { return !(v.point == vertices.front().point); }));
    m_next.Polyline(style, vertices, isClosed);
}

void VisibilitySink::Text(const Style& style, const PlainText& text)
{
    m_isVisible = true;
    m_next.Text(style, text);
}

void VisibilitySink::LineOfText(Point2 point, double spread, std::span<const PlainRun> runs)
{
    See(!runs.empty());
    m_next.LineOfText(point, spread, runs);
}

void VisibilitySink::Fill(const Style& style, std::span<const std::vector<Point2>> rings)
{
    See(HasExtent(rings));
    m_next.Fill(style, rings);
}

void VisibilitySink::Mask(std::span<const std::vector<Point2>> rings)
{
    m_hasOther = m_hasOther || HasExtent(rings);
    m_next.Mask(rings);
}

void VisibilitySink::Insert(std::size_t block, Point2 point, double rotation, bool isMirrored)
{
    m_hasOther = true;
    m_next.Insert(block, point, rotation, isMirrored);
}

} // namespace prepare
