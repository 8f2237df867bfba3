#include "prepare/plain/DrawMeshes.h"

#include <algorithm>
#include <cstdlib>
#include <utility>
#include <vector>

namespace prepare {

namespace {

enum MeshFlag : std::int32_t { kClosedInM = 1, kClosedInN = 32 };
enum MeshVertexFlag : std::int32_t { kOnSurface = 8, kOfFrame = 16, kOfMesh = 64, kOfPolyface = 128 };

// The vertices of a mesh in rows.
struct Grid {
    std::vector<Point2> points;
    std::size_t rows = 0;
    std::size_t columns = 0;
};

// Whole rows only: the counts in a file need not be true.
Grid GridOf(const Polyline& mesh, const Matrix& matrix)
{
    const bool isSmooth = std::any_of(mesh.vertices.begin(), mesh.vertices.end(),
                                      [](const PolylineVertex& v) { return (v.flags & kOnSurface) != 0; });
    Grid grid;
    for (const PolylineVertex& vertex : mesh.vertices) {
        if ((vertex.flags & kOnSurface) != 0 || (!isSmooth && (vertex.flags & kOfPolyface) == 0))
            grid.points.push_back(matrix.Flat(vertex.point));
    }
    const std::int32_t rows = isSmooth ? mesh.mDensity : mesh.mCount;
    const std::int32_t columns = isSmooth ? mesh.nDensity : mesh.nCount;
    if (rows < 1 || columns < 1)
        return grid;
    grid.columns = std::min(static_cast<std::size_t>(columns), grid.points.size());
    if (grid.columns == 0)
        return grid;
    grid.rows = std::min(static_cast<std::size_t>(rows), grid.points.size() / grid.columns);
    return grid;
}

// Sorted, the edges of one style are together.
struct Edge {
    std::int32_t colour = kByLayer; // by layer: the whole entity's style
    NameId layer = kNoName;
    std::size_t from = 0; // the smaller one
    std::size_t to = 0;

    bool HasStyleOf(const Edge& other) const { return colour == other.colour && layer == other.layer; }
    friend auto operator<=>(const Edge&, const Edge&) = default;
};

// The edges of faces, each drawn once though two faces share it.
class Edges {
public:
    Edges(std::vector<Point2> points, Pen& pen) : m_points(std::move(points)), m_pen(pen) {}

    // Corners that are no points, and edges of no length, are left out.
    void Add(std::size_t from, std::size_t to, const Edge& style = {});
    void Draw();

private:
    std::vector<Point2> m_points;
    std::vector<Edge> m_edges;
    Pen& m_pen;
};

void Edges::Add(std::size_t from, std::size_t to, const Edge& style)
{
    if (from < m_points.size() && to < m_points.size() && from != to)
        m_edges.push_back({style.colour, style.layer, std::min(from, to), std::max(from, to)});
}

void Edges::Draw()
{
    std::sort(m_edges.begin(), m_edges.end());
    m_edges.erase(std::unique(m_edges.begin(), m_edges.end()), m_edges.end());
    Edge last;
    for (const Edge& edge : m_edges) {
        if (!edge.HasStyleOf(last) && edge.colour == kByLayer)
            m_pen.UseOwnStyle();
        else if (!edge.HasStyleOf(last))
            m_pen.UseStyleOf({edge.colour, kNoTrueColour, kNoName, edge.layer});
        m_pen.Line(m_points[edge.from], m_points[edge.to]);
        last = edge;
    }
}

bool IsFace(const PolylineVertex& vertex)
{
    return (vertex.flags & kOfPolyface) != 0 && (vertex.flags & kOfMesh) == 0;
}

// Numbers count from 1; a negative one begins an edge that is not seen, 0 ends the face.
void AddFace(const PolylineVertex& face, Edges& edges)
{
    const auto end = std::find(std::begin(face.corners), std::end(face.corners), 0);
    const auto count = static_cast<std::size_t>(end - std::begin(face.corners));
    const auto place = [&](std::size_t corner) {
        return static_cast<std::size_t>(std::abs(std::int64_t{face.corners[corner]})) - 1;
    };
    Edge style;
    if (face.colour != kByLayer)
        style = {face.colour, face.layer, 0, 0};
    for (std::size_t i = 0; i < count; ++i) {
        if (face.corners[i] > 0)
            edges.Add(place(i), place((i + 1) % count), style);
    }
}

} // namespace

void DrawPolygonMesh(const Polyline& mesh, Pen& pen)
{
    const Grid grid = GridOf(mesh, pen.Place().matrix);
    std::vector<Point2> line;
    for (std::size_t row = 0; row < grid.rows; ++row) {
        line.assign(&grid.points[row * grid.columns], &grid.points[row * grid.columns] + grid.columns);
        pen.Polyline(line, (mesh.flags & kClosedInN) != 0);
    }
    for (std::size_t column = 0; column < grid.columns; ++column) {
        line.clear();
        for (std::size_t row = 0; row < grid.rows; ++row)
            line.push_back(grid.points[row * grid.columns + column]);
        pen.Polyline(line, (mesh.flags & kClosedInM) != 0);
    }
}

void DrawPolyface(const Polyline& polyface, Pen& pen)
{
    std::vector<Point2> points;
    for (const PolylineVertex& vertex : polyface.vertices) {
        if (!IsFace(vertex))
            points.push_back(pen.Place().matrix.Flat(vertex.point));
    }
    Edges edges(std::move(points), pen);
    for (const PolylineVertex& vertex : polyface.vertices) {
        if (IsFace(vertex))
            AddFace(vertex, edges);
    }
    edges.Draw();
}

void DrawMesh(const Mesh& mesh, Pen& pen)
{
    std::vector<Point2> points;
    points.reserve(mesh.vertices.size());
    for (const Point3 vertex : mesh.vertices)
        points.push_back(pen.Place().matrix.Flat(vertex));
    Edges edges(std::move(points), pen);
    // As an unsigned number, a negative index is beyond every point.
    const auto add = [&](std::int32_t from, std::int32_t to) {
        edges.Add(static_cast<std::size_t>(from), static_cast<std::size_t>(to));
    };
    const auto& faces = mesh.faces;
    for (std::size_t first = 0; first < faces.size();) {
        const auto count = static_cast<std::size_t>(std::max(faces[first], 0));
        if (count > faces.size() - ++first)
            break;
        for (std::size_t i = 0; i < count; ++i)
            add(faces[first + i], faces[first + (i + 1) % count]);
        first += count;
    }
    for (std::size_t i = 0; faces.empty() && i + 1 < mesh.edges.size(); i += 2)
        add(mesh.edges[i], mesh.edges[i + 1]);
    edges.Draw();
}

} // namespace prepare
