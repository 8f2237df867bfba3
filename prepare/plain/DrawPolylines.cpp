#include "prepare/plain/DrawPolylines.h"

#include "prepare/plain/DrawMeshes.h"
#include "prepare/plain/WideBands.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

namespace prepare {

namespace {

enum PolylineFlag : std::int32_t { kClosedPolyline = 1, kIn3d = 8, kPolygonMesh = 16, kPolyface = 64 };

constexpr std::int32_t kFrameVertex = 16; // controls a spline and is not on it

// A polyline whose vertices lie in a plane of their own.
struct FlatPolyline {
    std::span<const PolylineVertex> vertices;
    double elevation = 0;
    bool isClosed = false;

    std::size_t Segments() const { return vertices.size() - (isClosed ? 0 : 1); }
    const PolylineVertex& After(std::size_t i) const { return vertices[i + 1 < vertices.size() ? i + 1 : 0]; }
};

bool IsStraight(double bulge)
{
    constexpr double kStraight = 1e-9; // an arc of that bulge looks straight at any size
    return !std::isfinite(bulge) || std::fabs(bulge) < kStraight;
}

// Takes vertices to the output's plane.
class Path {
public:
    Path(const FlatPolyline& polyline, Pen& pen);

    // Draws that many segments from the first one on; the whole polyline if they are all.
    void Draw(std::size_t first, std::size_t count);
    // Fills that many segments from the first one on, as wide as they are at each place.
    void Fill(std::size_t first, std::size_t count);
    // How much longer a width is in the output.
    double Scale() const { return std::sqrt(std::fabs(Cross(m_u, m_v))); }

private:
    void Add(const PolylineVertex& vertex, const PolylineVertex& next);
    void AddArc(const PolylineVertex& vertex, const PolylineVertex& next);
    EllipticArc ArcTo(const PolylineVertex& vertex, const PolylineVertex& next) const;
    WideSegment Wide(const PolylineVertex& vertex, const PolylineVertex& next) const;

    const FlatPolyline& m_polyline;
    Pen& m_pen;
    Matrix m_matrix;
    Point2 m_u;
    Point2 m_v;
    double m_bulgeFactor; // 0: arcs do not stay arcs
    std::vector<PlainVertex> m_vertices;
    std::vector<Point2> m_points;
};

Path::Path(const FlatPolyline& polyline, Pen& pen)
    : m_polyline(polyline), m_pen(pen), m_matrix(pen.OfObject()), m_u(m_matrix.FlatDirection({1, 0, 0})),
      m_v(m_matrix.FlatDirection({0, 1, 0})), m_bulgeFactor(!IsSimilar(m_u, m_v)  ? 0
                                                            : Cross(m_u, m_v) > 0 ? 1
                                                                                  : -1)
{
    m_matrix.origin = m_matrix.Apply({0, 0, polyline.elevation});
}

void Path::Draw(std::size_t first, std::size_t count)
{
    const bool isWhole = count == m_polyline.vertices.size();
    m_vertices.clear();
    m_vertices.reserve(count + 1);
    for (std::size_t i = first; i < first + count; ++i)
        Add(m_polyline.vertices[i], m_polyline.After(i));
    if (!isWhole) {
        const PolylineVertex& last = m_polyline.After(first + count - 1);
        m_vertices.push_back({m_matrix.Flat({last.point.x, last.point.y, 0}), 0});
    }
    m_pen.Polyline(m_vertices, isWhole);
}

void Path::Add(const PolylineVertex& vertex, const PolylineVertex& next)
{
    const bool isStraight = IsStraight(vertex.bulge);
    if (!std::isfinite(vertex.bulge))
        m_pen.Lose();
    m_vertices.push_back(
        {m_matrix.Flat({vertex.point.x, vertex.point.y, 0}), isStraight ? 0 : m_bulgeFactor * vertex.bulge});
    if (!isStraight && m_bulgeFactor == 0)
        AddArc(vertex, next);
}

EllipticArc Path::ArcTo(const PolylineVertex& vertex, const PolylineVertex& next) const
{
    EllipticArc arc =
        ArcOfBulge({vertex.point.x, vertex.point.y}, {next.point.x, next.point.y}, vertex.bulge);
    arc.centre = m_matrix.Flat({arc.centre.x, arc.centre.y, 0});
    arc.u = m_matrix.FlatDirection({arc.u.x, arc.u.y, 0});
    arc.v = m_matrix.FlatDirection({arc.v.x, arc.v.y, 0});
    return arc;
}

WideSegment Path::Wide(const PolylineVertex& vertex, const PolylineVertex& next) const
{
    const double scale = Scale() / 2;
    WideSegment wide;
    wide.points = {m_matrix.Flat({vertex.point.x, vertex.point.y, 0})};
    wide.startHalf = scale * vertex.startWidth;
    wide.endHalf = scale * vertex.endWidth;
    if (!IsStraight(vertex.bulge)) {
        const EllipticArc arc = ArcTo(vertex, next);
        const double radius = Length(arc.u), half = std::max(wide.startHalf, wide.endHalf);
        wide.startDirection = arc.Along(arc.start);
        wide.endDirection = arc.Along(arc.end);
        if (arc.IsDrawable())
            Flatten(arc, m_pen.Curves().Tolerance() * radius / (radius + half), wide.points, m_pen.Curves());
    }
    if (wide.points.size() > 1)
        wide.points.pop_back(); // the next vertex is exact
    wide.points.push_back(m_matrix.Flat({next.point.x, next.point.y, 0}));
    return wide;
}

void Path::Fill(std::size_t first, std::size_t count)
{
    std::vector<WideSegment> segments;
    segments.reserve(count);
    for (std::size_t i = first; i < first + count; ++i)
        segments.push_back(Wide(m_polyline.vertices[i], m_polyline.After(i)));
    FillBands(segments, count == m_polyline.vertices.size(), m_pen);
}

void Path::AddArc(const PolylineVertex& vertex, const PolylineVertex& next)
{
    const EllipticArc arc = ArcTo(vertex, next);
    if (!arc.IsDrawable()) {
        m_pen.Lose();
        return;
    }
    m_points.clear();
    Flatten(arc, m_pen.Curves().Tolerance(), m_points, m_pen.Curves());
    m_points.pop_back(); // the next vertex
    for (const Point2 point : m_points)
        m_vertices.push_back({point, 0});
}

double WidthOf(const PolylineVertex& vertex)
{
    const double mean = (vertex.startWidth + vertex.endWidth) / 2;
    return mean > 0 && std::isfinite(mean) ? mean : 0;
}

bool IsWidth(double width)
{
    return width >= 0 && std::isfinite(width);
}

bool IsTapered(const PolylineVertex& vertex)
{
    return vertex.startWidth != vertex.endWidth && IsWidth(vertex.startWidth) && IsWidth(vertex.endWidth);
}

bool HasWidth(const PolylineVertex& vertex)
{
    return vertex.startWidth != 0 || vertex.endWidth != 0;
}

// Each run of segments of the same width is a polyline of its own. Where a width varies along a segment, all
// that is wide is an area, so that the segments' corners meet; its middle line is seen where it ends in a
// tip.
void DrawFlat(const FlatPolyline& polyline, Pen& pen)
{
    if (polyline.vertices.size() < 2)
        return;
    Path path(polyline, pen);
    const std::size_t segments = polyline.Segments();
    const auto& vertices = polyline.vertices;
    if (std::none_of(vertices.begin(), vertices.end(), HasWidth)) { // as nearly all are
        pen.UseWidth(0);
        path.Draw(0, segments);
        return pen.UseOwnStyle();
    }
    const bool isArea =
        std::any_of(vertices.begin(), vertices.begin() + static_cast<std::ptrdiff_t>(segments), IsTapered);
    for (std::size_t first = 0, end = 0; first < segments; first = end) {
        const double width = WidthOf(vertices[first]);
        const bool isBand = isArea && width > 0;
        const auto isOfRun = [&](double other) { return isBand ? other > 0 : other == width; };
        for (end = first; end < segments && isOfRun(WidthOf(vertices[end]));)
            ++end;
        pen.UseWidth(isBand ? 0 : width * path.Scale());
        if (isBand) {
            path.Fill(first, end - first);
            pen.UseThinnest();
        }
        path.Draw(first, end - first);
        pen.UseOwnStyle();
    }
}

// Those that are drawn: a spline's frame is not, where there is more than the frame.
std::vector<PolylineVertex> WithoutFrame(std::span<const PolylineVertex> vertices)
{
    std::vector<PolylineVertex> drawn;
    std::copy_if(vertices.begin(), vertices.end(), std::back_inserter(drawn),
                 [](const PolylineVertex& vertex) { return (vertex.flags & kFrameVertex) == 0; });
    if (drawn.empty())
        drawn.assign(vertices.begin(), vertices.end());
    return drawn;
}

void DrawIn3d(std::span<const PolylineVertex> vertices, bool isClosed, Pen& pen)
{
    std::vector<Point2> points;
    points.reserve(vertices.size());
    for (const PolylineVertex& vertex : vertices)
        points.push_back(pen.Place().matrix.Flat(vertex.point));
    pen.Polyline(points, isClosed);
}

double ElevationOf(const Polyline& polyline)
{
    const bool isInVertices = polyline.elevation.z == 0 && !polyline.vertices.empty();
    return isInVertices ? polyline.vertices.front().point.z : polyline.elevation.z;
}

} // namespace

void DrawLwPolyline(const LwPolyline& polyline, Pen& pen)
{
    const bool isClosed = (polyline.flags & kClosedPolyline) != 0;
    const auto& vertices = polyline.vertices;
    const bool isAllOne = polyline.width != 0 &&
                          std::all_of(vertices.begin(), vertices.end(),
                                      [](const auto& v) { return v.startWidth == 0 && v.endWidth == 0; });
    if (!isAllOne) {
        DrawFlat({vertices, polyline.elevation, isClosed}, pen);
        return;
    }
    std::vector<PolylineVertex> wide = vertices;
    for (PolylineVertex& vertex : wide)
        vertex.startWidth = vertex.endWidth = polyline.width;
    DrawFlat({wide, polyline.elevation, isClosed}, pen);
}

void DrawPolyline(const Polyline& polyline, Pen& pen)
{
    if ((polyline.flags & kPolygonMesh) != 0) {
        DrawPolygonMesh(polyline, pen);
        return;
    }
    if ((polyline.flags & kPolyface) != 0) {
        DrawPolyface(polyline, pen);
        return;
    }
    const bool isClosed = (polyline.flags & kClosedPolyline) != 0;
    const std::vector<PolylineVertex> vertices = WithoutFrame(polyline.vertices);
    if ((polyline.flags & kIn3d) != 0)
        DrawIn3d(vertices, isClosed, pen);
    else
        DrawFlat({vertices, ElevationOf(polyline), isClosed}, pen);
}

} // namespace prepare
