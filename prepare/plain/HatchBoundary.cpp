#include "prepare/plain/HatchBoundary.h"

#include "prepare/plain/Spline.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace prepare {

namespace {

enum LoopFlag : std::int32_t { kExternal = 1, kPolylineLoop = 2, kTextBox = 8, kOutermost = 16 };
enum IslandStyle : std::int32_t { kOddParity = 0, kOutermostOnly = 1, kIgnoreIslands = 2 };

// However coarse curves may be, a ring keeps about its shape: a share of the curve's size.
constexpr double kCoarsest = 1.0 / 64;
// Ends of edges that should meet differ by what files round off: a share of the loop's size.
constexpr double kMeeting = 1e-6;

// Turns the loops of a hatch into rings.
class RingMaker {
public:
    RingMaker(const Hatch& hatch, Pen& pen);

    void Add(const HatchLoop& loop);
    std::vector<Ring> Take() { return std::move(m_rings); }

private:
    void AddPolyline(const HatchLoop& loop);
    void AddEdges(const HatchLoop& loop);
    Ring PointsOf(const HatchEdge& edge) const;
    Ring ArcPoints(const HatchEdge& edge) const;
    Ring EllipsePoints(const HatchEdge& edge) const;
    Ring SplinePoints(const HatchEdge& edge) const;
    Ring FitPoints(const HatchEdge& edge) const;
    Ring PointsOf(const EllipticArc& arc) const;
    void Flatten(EllipticArc arc, Ring& points) const;
    static double CoarsestFor(const std::vector<Point2>& points);
    void Join(Ring piece);
    void EndRing();
    bool Meet(Point2 a, Point2 b) const { return Length(a - b) <= kMeeting * m_size; }

    Pen& m_pen;
    Matrix m_matrix;
    Ring m_ring;              // that is being joined
    std::size_t m_pieces = 0; // in it
    double m_size = 0;        // of it, roughly
    std::vector<Ring> m_rings;
};

RingMaker::RingMaker(const Hatch& hatch, Pen& pen) : m_pen(pen), m_matrix(pen.OfObject())
{
    m_matrix.origin = m_matrix.Apply({hatch.offset.x, hatch.offset.y, hatch.elevation.z});
}

void RingMaker::Add(const HatchLoop& loop)
{
    if ((loop.flags & kPolylineLoop) != 0 || !loop.vertices.empty())
        AddPolyline(loop);
    else
        AddEdges(loop);
    EndRing();
}

void RingMaker::AddPolyline(const HatchLoop& loop)
{
    for (std::size_t i = 0; i < loop.vertices.size(); ++i) {
        const PolylineVertex& vertex = loop.vertices[i];
        const PolylineVertex& next = loop.vertices[i + 1 < loop.vertices.size() ? i + 1 : 0];
        const Point2 from{vertex.point.x, vertex.point.y}, to{next.point.x, next.point.y};
        m_ring.push_back(m_matrix.Flat({from.x, from.y, 0}));
        if (vertex.bulge == 0 || from == to)
            continue;
        Flatten(ArcOfBulge(from, to, vertex.bulge), m_ring);
        m_ring.pop_back(); // the next vertex is exact
    }
}

void RingMaker::AddEdges(const HatchLoop& loop)
{
    for (const HatchEdge& edge : loop.edges) {
        Ring piece = PointsOf(edge);
        const auto isLost = [](Point2 point) { return !IsDrawable(point); };
        if (std::any_of(piece.begin(), piece.end(), isLost))
            m_pen.Lose();
        else if (!piece.empty())
            Join(std::move(piece));
    }
}

Ring RingMaker::PointsOf(const HatchEdge& edge) const
{
    switch (edge.kind) {
    case HatchEdge::Kind::Line:
        return {m_matrix.Flat({edge.a.x, edge.a.y, 0}), m_matrix.Flat({edge.b.x, edge.b.y, 0})};
    case HatchEdge::Kind::Arc:
        return ArcPoints(edge);
    case HatchEdge::Kind::Ellipse:
        return EllipsePoints(edge);
    case HatchEdge::Kind::Spline:
        return edge.controlPoints.size() > 1 ? SplinePoints(edge) : FitPoints(edge);
    }
    return {};
}

// The angles of a clockwise arc are measured clockwise.
Ring RingMaker::ArcPoints(const HatchEdge& edge) const
{
    const double start = Radians(edge.start), side = edge.isCounterClockwise ? 1 : -1;
    return PointsOf(EllipticArc{
        edge.a, {edge.radius, 0}, {0, side * edge.radius}, start, start + Sweep(start, Radians(edge.end))});
}

// Files have the direction in which a point is seen from the centre, from the major axis on.
double ParameterOf(double direction, double ratio)
{
    return std::atan2(std::sin(direction), ratio * std::cos(direction));
}

Ring RingMaker::EllipsePoints(const HatchEdge& edge) const
{
    const double side = edge.isCounterClockwise ? 1 : -1, ratio = std::fabs(edge.radius);
    EllipticArc arc{edge.a, edge.b, side * ratio * LeftOf(edge.b)};
    const double start = Radians(edge.start), end = Radians(edge.end);
    if (Sweep(start, end) < kTurn) {
        arc.start = ParameterOf(start, ratio);
        arc.end = arc.start + Sweep(arc.start, ParameterOf(end, ratio));
    } else {
        arc.start = ParameterOf(start, ratio);
        arc.end = arc.start + kTurn;
    }
    return PointsOf(arc);
}

Ring RingMaker::PointsOf(const EllipticArc& arc) const
{
    if (!arc.IsDrawable())
        return {arc.centre, {HUGE_VAL, HUGE_VAL}};
    const Point2 first = arc.At(arc.start);
    Ring points{m_matrix.Flat({first.x, first.y, 0})};
    Flatten(arc, points);
    return points;
}

// Adds the points after the arc's first one, in the output's plane.
void RingMaker::Flatten(EllipticArc arc, Ring& points) const
{
    arc.centre = m_matrix.Flat({arc.centre.x, arc.centre.y, 0});
    arc.u = m_matrix.FlatDirection({arc.u.x, arc.u.y, 0});
    arc.v = m_matrix.FlatDirection({arc.v.x, arc.v.y, 0});
    const double coarsest = kCoarsest * (Length(arc.u) + Length(arc.v));
    prepare::Flatten(arc, std::min(m_pen.Curves().Tolerance(), coarsest), points, m_pen.Curves());
}

// No curve is bent more than its points.
double RingMaker::CoarsestFor(const std::vector<Point2>& points)
{
    return kCoarsest * BoxOf(points).LongerSide();
}

Ring RingMaker::SplinePoints(const HatchEdge& edge) const
{
    const bool hasWeights = edge.isRational && AreGoodWeights(edge.weights, edge.controlPoints.size());
    BSpline curve;
    std::vector<Point2> points;
    for (std::size_t i = 0; i < edge.controlPoints.size(); ++i) {
        points.push_back(m_matrix.Flat({edge.controlPoints[i].x, edge.controlPoints[i].y, 0}));
        curve.controlPoints.push_back(Weighted(points.back(), hasWeights ? edge.weights[i] : 1));
    }
    if (!std::all_of(points.begin(), points.end(), [](Point2 point) { return IsDrawable(point); }))
        return {{HUGE_VAL, HUGE_VAL}};
    const std::size_t highest = std::min(kHighestDegree, points.size() - 1);
    curve.degree = static_cast<std::size_t>(
        std::clamp<std::int64_t>(edge.degree, 1, static_cast<std::int64_t>(highest)));
    curve.knots = edge.knots;
    if (!AreGoodKnots(curve.knots, points.size(), curve.degree))
        curve.knots = UniformKnots(points.size(), curve.degree);
    return prepare::Flatten(curve, m_pen.Curves(), CoarsestFor(points));
}

Ring RingMaker::FitPoints(const HatchEdge& edge) const
{
    CurveThrough curve;
    double length = 0;
    for (const Point2 fit : edge.fitPoints) {
        const Point2 point = m_matrix.Flat({fit.x, fit.y, 0});
        if (!IsDrawable(point))
            return {{HUGE_VAL, HUGE_VAL}};
        const double step = curve.points.empty() ? 0 : Length(point - curve.points.back());
        if (!curve.points.empty() && !(step > 0))
            continue;
        length += step;
        curve.parameters.push_back(length);
        curve.points.push_back(point);
    }
    return curve.points.size() < 2 ? curve.points
                                   : prepare::Flatten(curve, m_pen.Curves(), CoarsestFor(curve.points));
}

// Edges should run head to tail. Some programs write them backwards, and some write several rings as one
// loop.
void RingMaker::Join(Ring piece)
{
    if (m_ring.size() > 2 && Meet(m_ring.front(), m_ring.back()))
        EndRing();
    if (m_ring.empty())
        m_size = 0;
    else {
        const Point2 head = piece.front(), tail = piece.back();
        const auto distance = [&](Point2 end) { return std::min(Length(end - head), Length(end - tail)); };
        if (m_pieces == 1 && distance(m_ring.front()) < distance(m_ring.back()) && !Meet(m_ring.back(), head))
            std::reverse(m_ring.begin(), m_ring.end());
        if (Length(m_ring.back() - tail) < Length(m_ring.back() - head))
            std::reverse(piece.begin(), piece.end());
    }
    ++m_pieces;
    m_ring.insert(m_ring.end(), piece.begin(), piece.end());
    for (const Point2 point : piece)
        m_size = std::max(m_size, Length(point - m_ring.front()));
}

// Keeps the ring if it bounds an area.
void RingMaker::EndRing()
{
    const auto lost = std::remove_if(m_ring.begin(), m_ring.end(), [](Point2 p) { return !IsDrawable(p); });
    if (lost != m_ring.end())
        m_pen.Lose();
    m_ring.erase(lost, m_ring.end());
    m_ring.erase(std::unique(m_ring.begin(), m_ring.end()), m_ring.end());
    while (m_ring.size() > 1 && m_ring.front() == m_ring.back())
        m_ring.pop_back();
    if (m_ring.size() > 2)
        m_rings.push_back(std::move(m_ring));
    m_ring.clear();
    m_pieces = 0;
}

// Loops around texts bound no area.
bool IsShown(const HatchLoop& loop, std::int32_t wanted)
{
    return (loop.flags & kTextBox) == 0 && (wanted == 0 || (loop.flags & wanted) != 0);
}

// A loop must have at least one of these flags; 0: every loop will do.
std::int32_t WantedFlags(const Hatch& hatch)
{
    const auto isExternal = [](const HatchLoop& loop) { return (loop.flags & kExternal) != 0; };
    if (hatch.style == kOddParity || std::none_of(hatch.loops.begin(), hatch.loops.end(), isExternal))
        return 0;
    return hatch.style == kIgnoreIslands ? kExternal : kExternal | kOutermost;
}

} // namespace

std::vector<Ring> RingsOf(const Hatch& hatch, Pen& pen)
{
    RingMaker maker(hatch, pen);
    const std::int32_t wanted = WantedFlags(hatch);
    for (const HatchLoop& loop : hatch.loops)
        if (IsShown(loop, wanted))
            maker.Add(loop);
    return maker.Take();
}

} // namespace prepare
