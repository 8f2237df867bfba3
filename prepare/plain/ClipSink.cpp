#include "prepare/plain/ClipSink.h"

#include "prepare/plain/Curves.h"
#include "prepare/plain/TextMetrics.h"
#include "prepare/plain/TextPieces.h"

#include <algorithm>

namespace prepare {

std::vector<Point2> PointsOf(std::span<const PlainVertex> vertices, bool isClosed, Fineness& curves,
                             double coarsest)
{
    std::vector<Point2> points{vertices.front().point};
    for (std::size_t i = 1; i < vertices.size() + (isClosed ? 1 : 0); ++i) {
        const PlainVertex& from = vertices[i - 1];
        const Point2 to = vertices[i % vertices.size()].point;
        if (from.bulge != 0 && !(from.point == to)) {
            Flatten(ArcOfBulge(from.point, to, from.bulge), curves.Tolerance(coarsest), points, curves);
            points.pop_back();
        }
        points.push_back(to);
    }
    return points;
}

ClipSide ClipSink::SideOf(const Box& box) const
{
    const ClipSide side = m_region.SideOf(box);
    if (side == ClipSide::Outside || m_outer == nullptr)
        return side;
    const ClipSide outer = m_outer->SideOf(box);
    return outer == ClipSide::Inside ? side : outer;
}

// However coarse curves may be, what is cut of them has about its shape.
double ClipSink::Coarsest(const ClipRegion& region)
{
    constexpr double kCoarsest = 1.0 / 256;
    return kCoarsest * region.Bounds().LongerSide();
}

void ClipSink::Line(const Style& style, Point2 start, Point2 end)
{
    for (const auto& [from, to] : m_region.Inside(start, end)) {
        const bool isCut = from > 0 || to < 1;
        if (isCut && m_budget.IsSpent())
            return;
        if (isCut)
            m_budget.Take(2);
        m_next.Line(style, from > 0 ? start + from * (end - start) : start,
                    to < 1 ? start + to * (end - start) : end);
    }
}

ClipSide ClipSink::SideOfCircle(Point2 centre, double radius) const
{
    return m_region.SideOf({centre - Point2{radius, radius}, centre + Point2{radius, radius}});
}

void ClipSink::Circle(const Style& style, Point2 centre, double radius)
{
    const ClipSide side = SideOfCircle(centre, radius);
    if (side == ClipSide::Inside)
        m_next.Circle(style, centre, radius);
    else if (side == ClipSide::Across)
        Curve(style, centre, {radius, 0}, {0, radius}, 0, kTurn);
}

void ClipSink::Arc(const Style& style, Point2 centre, double radius, double start, double end)
{
    const ClipSide side = SideOfCircle(centre, radius);
    if (side == ClipSide::Inside)
        m_next.Arc(style, centre, radius, start, end);
    else if (side == ClipSide::Across)
        Curve(style, centre, {radius, 0}, {0, radius}, start, end);
}

void ClipSink::Ellipse(const Style& style, Point2 centre, Point2 majorAxis, double ratio, double start,
                       double end)
{
    const ClipSide side = SideOfCircle(centre, Length(majorAxis));
    if (side == ClipSide::Inside)
        m_next.Ellipse(style, centre, majorAxis, ratio, start, end);
    else if (side == ClipSide::Across)
        Curve(style, centre, majorAxis, ratio * LeftOf(majorAxis), start, end);
}

void ClipSink::Curve(const Style& style, Point2 centre, Point2 u, Point2 v, double start, double end)
{
    const EllipticArc arc{centre, u, v, start, end};
    std::vector<Point2> points{arc.At(start)};
    Flatten(arc, m_budget.curves.Tolerance(m_coarsest), points, m_budget.curves);
    Cut(style, points);
}

void ClipSink::Polyline(const Style& style, std::span<const PlainVertex> vertices, bool isClosed)
{
    if (vertices.empty())
        return;
    const std::vector<Point2> points = PointsOf(vertices, isClosed, m_budget.curves, m_coarsest);
    const ClipSide side = m_region.SideOf(BoxOf(points));
    if (side == ClipSide::Inside)
        m_next.Polyline(style, vertices, isClosed);
    else if (side == ClipSide::Across)
        Cut(style, points);
}

void ClipSink::Cut(const Style& style, const std::vector<Point2>& points)
{
    std::vector<PlainVertex> run;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const Point2 way = points[i] - points[i - 1];
        if (way == Point2{})
            continue;
        bool goesOn = false; // up to the segment's end
        for (const auto& [from, to] : m_region.Inside(points[i - 1], points[i])) {
            if (from > 0 || run.empty()) {
                Give(style, run);
                run.push_back({points[i - 1] + from * way, 0});
            }
            goesOn = !(to < 1);
            run.push_back({goesOn ? points[i] : points[i - 1] + to * way, 0});
        }
        if (!goesOn)
            Give(style, run);
    }
    Give(style, run);
}

// Passes a run on and empties it.
void ClipSink::Give(const Style& style, std::vector<PlainVertex>& run)
{
    if (run.size() > 1 && !m_budget.IsSpent()) {
        m_budget.Take(run.size());
        m_next.Polyline(style, run, false);
    }
    run.clear();
}

bool ClipSink::Shows(const PlainText& text) const
{
    const double middle = (0.5 - ShareBefore(text.anchor)) * TextWidth(text.text);
    return m_region.Contains(text.point + middle * text.along + 0.5 * text.up);
}

void ClipSink::Text(const Style& style, const PlainText& text)
{
    if (Shows(text))
        m_next.Text(style, text);
}

void ClipSink::LineOfText(Point2 point, double spread, std::span<const PlainRun> runs)
{
    if (std::all_of(runs.begin(), runs.end(), [&](const PlainRun& run) { return Shows(run.text); }))
        m_next.LineOfText(point, spread, runs);
    else
        PlainSink::LineOfText(point, spread, runs);
}

template <class Take>
void ClipSink::CutArea(std::span<const std::vector<Point2>> rings, const Take& take)
{
    Box box;
    for (const std::vector<Point2>& ring : rings)
        for (const Point2 point : ring)
            box.Add(point);
    const ClipSide side = m_region.SideOf(box);
    if (side == ClipSide::Inside)
        return take(rings);
    if (side == ClipSide::Outside)
        return;
    const std::vector<std::vector<Point2>> inside = m_region.Inside(rings);
    if (inside.empty() || m_budget.IsSpent())
        return;
    for (const std::vector<Point2>& ring : inside)
        m_budget.Take(ring.size());
    take(inside);
}

void ClipSink::Fill(const Style& style, std::span<const std::vector<Point2>> rings)
{
    CutArea(rings, [&](std::span<const std::vector<Point2>> inside) { m_next.Fill(style, inside); });
}

void ClipSink::Mask(std::span<const std::vector<Point2>> rings)
{
    CutArea(rings, [&](std::span<const std::vector<Point2>> inside) { m_next.Mask(inside); });
}

} // namespace prepare
