// LWPOLYLINE and POLYLINE, but for meshes.
#include "prepare/plain/Geometry.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

namespace prepare {

namespace {

enum PolylineFlag : std::int32_t { Closed = 1, In3d = 8, PolygonMesh = 16, Polyface = 64 };

constexpr std::int32_t kFrameVertex = 16; // controls a spline and is not on it

// A polyline whose vertices lie in a plane of their own.
struct FlatPolyline {
    std::span<const PolylineVertex> vertices;
    double elevation = 0;
    bool isClosed = false;

    std::size_t Segments() const { return vertices.size() - (isClosed ? 0 : 1); }
    const PolylineVertex& After(std::size_t i) const { return vertices[i + 1 < vertices.size() ? i + 1 : 0]; }
};

// Takes vertices to the output's plane.
class Path {
public:
    Path(const FlatPolyline& polyline, Pen& pen);

    // Draws that many segments from the first one on; the whole polyline if they are all.
    void Draw(std::size_t first, std::size_t count);
    // How much longer a width is in the output.
    double Scale() const { return std::sqrt(std::fabs(Cross(m_u, m_v))); }

private:
    void Add(const PolylineVertex& vertex, const PolylineVertex& next);
    void AddArc(const PolylineVertex& vertex, const PolylineVertex& next);

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
    constexpr double kStraight = 1e-9; // an arc of that bulge looks straight at any size
    const bool isStraight = !std::isfinite(vertex.bulge) || std::fabs(vertex.bulge) < kStraight;
    if (!std::isfinite(vertex.bulge))
        m_pen.Lose();
    m_vertices.push_back(
        {m_matrix.Flat({vertex.point.x, vertex.point.y, 0}), isStraight ? 0 : m_bulgeFactor * vertex.bulge});
    if (!isStraight && m_bulgeFactor == 0)
        AddArc(vertex, next);
}

void Path::AddArc(const PolylineVertex& vertex, const PolylineVertex& next)
{
    EllipticArc arc =
        ArcOfBulge({vertex.point.x, vertex.point.y}, {next.point.x, next.point.y}, vertex.bulge);
    arc.centre = m_matrix.Flat({arc.centre.x, arc.centre.y, 0});
    arc.u = m_matrix.FlatDirection({arc.u.x, arc.u.y, 0});
    arc.v = m_matrix.FlatDirection({arc.v.x, arc.v.y, 0});
    if (!arc.IsFinite()) {
        m_pen.Lose();
        return;
    }
    m_points.clear();
    Flatten(arc, m_pen.Place().tolerance, m_points);
    m_points.pop_back(); // the next vertex
    for (const Point2 point : m_points)
        m_vertices.push_back({point, 0});
}

double WidthOf(const PolylineVertex& vertex)
{
    const double mean = (vertex.startWidth + vertex.endWidth) / 2;
    return mean > 0 && std::isfinite(mean) ? mean : 0;
}

// Each run of segments of the same width is a polyline of its own.
void DrawFlat(const FlatPolyline& polyline, Pen& pen)
{
    if (polyline.vertices.size() < 2)
        return;
    Path path(polyline, pen);
    const std::size_t segments = polyline.Segments();
    bool isTapered = false;
    for (std::size_t first = 0, end = 0; first < segments; first = end) {
        const double width = WidthOf(polyline.vertices[first]);
        for (end = first; end < segments && WidthOf(polyline.vertices[end]) == width; ++end)
            isTapered |= polyline.vertices[end].startWidth != polyline.vertices[end].endWidth;
        pen.UseWidth(width * path.Scale());
        path.Draw(first, end - first);
    }
    if (isTapered)
        pen.Report(Finding::Changed, "a width that varies along a segment is drawn as its mean");
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
    const bool isClosed = (polyline.flags & Closed) != 0;
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
    if ((polyline.flags & PolygonMesh) != 0) {
        DrawPolygonMesh(polyline, pen);
        return;
    }
    if ((polyline.flags & Polyface) != 0) {
        DrawPolyface(polyline, pen);
        return;
    }
    const bool isClosed = (polyline.flags & Closed) != 0;
    const std::vector<PolylineVertex> vertices = WithoutFrame(polyline.vertices);
    if ((polyline.flags & In3d) != 0)
        DrawIn3d(vertices, isClosed, pen);
    else
        DrawFlat({vertices, ElevationOf(polyline), isClosed}, pen);
}

} // namespace prepare
