#include "prepare/plain/Pen.h"

#include "base/Pi.h"

#include <algorithm>

namespace prepare {

namespace {

bool IsDrawable(const PlainVertex& vertex)
{
    return IsDrawable(vertex.point) && std::isfinite(vertex.bulge);
}

// Where an arc lies along the major axis of an ellipse that is seen from the side, in half axes.
struct Reach {
    double least;
    double most;
};

Reach ReachOfCosine(double start, double end)
{
    const double first = std::cos(start), last = std::cos(end);
    Reach reach{std::min(first, last), std::max(first, last)};
    const double nextHalf = std::ceil(start / kPi);
    for (int i = 0; i < 3 && (nextHalf + i) * kPi <= end; ++i) {
        const bool isEven = std::fmod(nextHalf + i, 2) == 0;
        isEven ? reach.most = 1 : reach.least = -1;
    }
    return reach;
}

} // namespace

Pen::Pen(const Entity& entity, const Placement& placement, const PartStyler& styleOf)
    : m_entity(entity), m_placement(placement), m_styleOf(styleOf), m_style(placement.style)
{
}

Matrix Pen::OfObject() const
{
    if (m_entity.extrusion == Point3{0, 0, 1})
        return m_placement.matrix;
    return m_placement.matrix * FromObject(m_entity.extrusion);
}

bool Pen::HasRoom()
{
    m_isCut = m_placement.budget.IsSpent();
    return !m_isCut;
}

bool Pen::TakeRoom(std::size_t points)
{
    m_hasDrawn = true;
    const bool hasRoom = HasRoom();
    m_placement.budget.Take(points);
    return hasRoom;
}

void Pen::Line(Point2 start, Point2 end)
{
    if (!IsDrawable(start) || !IsDrawable(end)) {
        Lose();
        return;
    }
    if (!(start == end) && TakeRoom(2))
        m_placement.sink.Line(m_style, start, end);
}

void Pen::Dot(Point2 point)
{
    if (!IsDrawable(point))
        Lose();
    else if (TakeRoom(2))
        m_placement.sink.Line(m_style, point, point);
}

void Pen::Arc(const EllipticArc& arc)
{
    if (!arc.IsDrawable() || !IsDrawable(arc.centre + arc.u) || !IsDrawable(arc.centre + arc.v))
        Lose();
    else if (!(arc.end > arc.start))
        return;
    else if (IsSimilar(arc.u, arc.v))
        Circular(arc);
    else
        Elliptic(arc);
}

void Pen::Circular(const EllipticArc& arc)
{
    if (!TakeRoom(2))
        return;
    const double radius = Length(arc.u), sweep = arc.end - arc.start;
    if (sweep >= kTurn) {
        m_placement.sink.Circle(m_style, arc.centre, radius);
        return;
    }
    const double angle = std::atan2(arc.u.y, arc.u.x);
    const double start = Wrapped(Cross(arc.u, arc.v) > 0 ? angle + arc.start : angle - arc.end);
    m_placement.sink.Arc(m_style, arc.centre, radius, start, start + sweep);
}

void Pen::Elliptic(const EllipticArc& arc)
{
    const PrincipalAxes axes = AxesOf(arc.u, arc.v);
    const double length = Length(axes.major), sweep = arc.end - arc.start;
    if (!std::isfinite(length) || !std::isfinite(axes.minor)) { // their squares are out of range
        Lose();
        return;
    }
    if (axes.minor <= 1e-6 * length && axes.minor <= std::max(1e-9 * length, m_placement.scale.Tolerance())) {
        Flattened(arc, axes);
        return;
    }
    if (!TakeRoom(2))
        return;
    const double ratio = std::min(axes.minor / length, 1.0);
    if (sweep >= kTurn) {
        m_placement.sink.Ellipse(m_style, arc.centre, axes.major, ratio, 0, kTurn);
        return;
    }
    const double start = Wrapped(axes.isMirrored ? axes.shift - arc.end : arc.start - axes.shift);
    m_placement.sink.Ellipse(m_style, arc.centre, axes.major, ratio, start, start + sweep);
}

void Pen::Flattened(const EllipticArc& arc, const PrincipalAxes& axes)
{
    if (!(Length(axes.major) > 0))
        return;
    const Reach reach = ReachOfCosine(arc.start - axes.shift, arc.end - axes.shift);
    Line(arc.centre + reach.least * axes.major, arc.centre + reach.most * axes.major);
}

void Pen::Polyline(std::span<const PlainVertex> vertices, bool isClosed)
{
    if (!std::all_of(vertices.begin(), vertices.end(), [](const PlainVertex& v) { return IsDrawable(v); })) {
        Lose();
        std::vector<PlainVertex> finite;
        std::copy_if(vertices.begin(), vertices.end(), std::back_inserter(finite),
                     [](const PlainVertex& vertex) { return IsDrawable(vertex); });
        Polyline(finite, isClosed);
        return;
    }
    if (vertices.size() < 2)
        return;
    if (TakeRoom(vertices.size()))
        m_placement.sink.Polyline(m_style, vertices, isClosed);
}

void Pen::Polyline(std::span<const Point2> points, bool isClosed)
{
    m_vertices.clear();
    m_vertices.reserve(points.size());
    for (const Point2 point : points)
        m_vertices.push_back({point, 0});
    Polyline(std::span<const PlainVertex>(m_vertices), isClosed);
}

void Pen::Fill(std::span<const Point2> points)
{
    const bool isWhole =
        std::all_of(points.begin(), points.end(), [](Point2 point) { return IsDrawable(point); });
    if (!isWhole) {
        Lose();
        return;
    }
    const std::vector<Point2> ring(points.begin(), points.end());
    Fill({&ring, 1});
}

void Pen::Fill(std::span<const std::vector<Point2>> rings)
{
    std::size_t points = 0;
    for (const std::vector<Point2>& ring : rings)
        points += ring.size();
    if (TakeRoom(points))
        m_placement.sink.Fill(m_style, rings);
}

void Pen::Mask(const std::vector<Point2>& points)
{
    if (!std::all_of(points.begin(), points.end(), [](Point2 point) { return IsDrawable(point); }))
        return Lose();
    if (points.size() < 3)
        return;
    if (TakeRoom(points.size()))
        m_placement.sink.Mask({&points, 1});
}

void Pen::Report(Finding finding, std::string_view detail)
{
    m_placement.report.Add(finding, TypeName(), detail, m_entity.line);
}

void Pen::Finish()
{
    if (m_hasLost && m_hasDrawn)
        Report(Finding::Changed, "parts with numbers out of range are left out");
    else if (m_hasLost)
        Report(Finding::NotShown, "numbers out of range");
    if (m_isCut)
        Report(Finding::Cut, "the drawing has more in it than can be shown");
}

} // namespace prepare
