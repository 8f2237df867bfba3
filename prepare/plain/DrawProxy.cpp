#include "prepare/plain/DrawProxy.h"

#include "prepare/plain/PackedColour.h"
#include "prepare/plain/ProxyGraphics.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

namespace prepare {

namespace {

struct ProxyType {
    enum : std::int32_t {
        Extents = 1,
        CircleByCentre = 2,
        CircleByPoints = 3,
        ArcByCentre = 4,
        ArcByPoints = 5,
        Polyline = 6,
        Polygon = 7,
        Mesh = 8,
        Shell = 9,
        Colour = 14,
        FirstAttribute = 15,

        TrueColour = 22,
        LastAttribute = 26,
        PushMatrix = 29,
        PushOtherMatrix = 30,
        PopMatrix = 31,
        PolylineWithNormal = 32,
    };
};

class ProxyDrawer {
public:
    explicit ProxyDrawer(Pen& pen) : m_pen(pen), m_matrices{pen.Place().matrix} {}

    // Draws, or sets, what the command says; notes what it does not know.
    void Take(const ProxyCommand& command);
    bool HasSkipped() const { return m_hasSkipped; }

private:
    const Matrix& ToPlane() const { return m_matrices.back(); }
    void DrawCircle(ByteReader reader);
    void DrawCircleThrough(ByteReader reader, bool isArc);
    void DrawArc(ByteReader reader);
    void DrawPoints(ByteReader reader, bool isClosed);
    void DrawMesh(ByteReader reader);
    void DrawShell(ByteReader reader);
    void UseColour(ByteReader reader);
    void Push(ByteReader reader);
    bool TakeAttribute(const ProxyCommand& command);
    // As many points as there are, where a count is not true.
    std::vector<Point2> Points(ByteReader& reader, std::int32_t count);

    Pen& m_pen;
    std::vector<Matrix> m_matrices;
    bool m_hasSkipped = false;
};

std::vector<Point2> ProxyDrawer::Points(ByteReader& reader, std::int32_t count)
{
    constexpr std::size_t kPoint = 3 * sizeof(double);
    const std::size_t wanted = static_cast<std::size_t>(std::max(count, std::int32_t{0}));
    std::vector<Point2> points(std::min(wanted, reader.Left() / kPoint));
    for (Point2& point : points)
        point = ToPlane().Flat(reader.Point());
    return points;
}

void ProxyDrawer::DrawCircle(ByteReader reader)
{
    const Point3 centre = reader.Point();
    const double radius = reader.Real();
    const Matrix axes = ToPlane() * FromObject(reader.Point());
    if (reader.IsGood())
        m_pen.Arc(
            {ToPlane().Flat(centre), axes.FlatDirection({radius, 0, 0}), axes.FlatDirection({0, radius, 0})});
}

// The circle through three points, or the arc from the first through the second to the third.
void ProxyDrawer::DrawCircleThrough(ByteReader reader, bool isArc)
{
    const Point3 first = reader.Point(), second = reader.Point(), third = reader.Point();
    const Point3 a = first - third, b = second - third, normal = Cross(a, b);
    const double square = Dot(normal, normal);
    if (!reader.IsGood() || !(square > 0))
        return;
    const Point3 centre = third + (1 / (2 * square)) * Cross(Dot(a, a) * b - Dot(b, b) * a, normal);
    const Point3 u = first - centre, v = (1 / std::sqrt(square)) * Cross(normal, u), end = third - centre;
    EllipticArc arc{ToPlane().Flat(centre), ToPlane().FlatDirection(u), ToPlane().FlatDirection(v)};
    if (isArc)
        arc.end = Wrapped(std::atan2(Dot(end, v), Dot(end, u)));
    m_pen.Arc(arc);
}

void ProxyDrawer::DrawArc(ByteReader reader)
{
    const Point3 centre = reader.Point();
    const double radius = reader.Real();
    const Point3 normal = reader.Point(), start = reader.Point();
    const double sweep = reader.Real(), length = Length(start), height = Length(normal);
    if (!reader.IsGood() || !(length > 0) || !(height > 0))
        return;
    const Point3 u = (radius / length) * start;
    EllipticArc arc{ToPlane().Flat(centre), ToPlane().FlatDirection(u),
                    ToPlane().FlatDirection((1 / height) * Cross(normal, u))};
    arc.start = std::min(sweep, 0.0);
    arc.end = arc.start + std::min(std::fabs(sweep), kTurn);
    m_pen.Arc(arc);
}

void ProxyDrawer::DrawPoints(ByteReader reader, bool isClosed)
{
    const std::int32_t count = reader.Integer();
    m_pen.Polyline(Points(reader, count), isClosed);
}

void ProxyDrawer::DrawMesh(ByteReader reader)
{
    const std::int32_t rows = reader.Integer(), columns = reader.Integer();
    const std::vector<Point2> points = rows > 0 && columns > 0
                                           ? Points(reader, static_cast<std::int32_t>(std::min<std::int64_t>(
                                                                std::int64_t{rows} * columns, INT32_MAX)))
                                           : std::vector<Point2>();
    if (points.empty())
        return;
    const std::size_t width = std::min(static_cast<std::size_t>(columns), points.size());
    const std::size_t height = points.size() / width;
    for (std::size_t row = 0; row < height; ++row)
        m_pen.Polyline(std::span(points).subspan(row * width, width), false);
    std::vector<Point2> line;
    for (std::size_t column = 0; column < width; ++column) {
        line.clear();
        for (std::size_t row = 0; row < height; ++row)
            line.push_back(points[row * width + column]);
        m_pen.Polyline(line, false);
    }
}

// Each face is a count and that many indices of points; a hole's count is negative.
void ProxyDrawer::DrawShell(ByteReader reader)
{
    const std::int32_t count = reader.Integer();
    const std::vector<Point2> points = Points(reader, count);
    std::int64_t left = reader.Integer();
    std::vector<Point2> face;
    while (left > 0 && reader.Left() >= sizeof(std::int32_t)) {
        const std::int64_t corners = std::abs(std::int64_t{reader.Integer()});
        face.clear();
        for (std::int64_t i = 0; i < corners && reader.Left() >= sizeof(std::int32_t); ++i) {
            const auto corner = static_cast<std::size_t>(reader.Integer());
            if (corner < points.size())
                face.push_back(points[corner]);
        }
        left -= 1 + corners;
        m_pen.Polyline(face, true);
    }
}

void ProxyDrawer::UseColour(ByteReader reader)
{
    const std::int32_t colour = reader.Integer();
    if (colour >= kByBlock && colour <= kByLayer)
        m_pen.UseStyleOf({colour, kNoTrueColour, kNoName, kNoName});
}

// By rows, each with its part of the origin at its end.
void ProxyDrawer::Push(ByteReader reader)
{
    double rows[3][4];
    for (auto& row : rows) {
        for (double& number : row)
            number = reader.Real();
    }
    const auto column = [&](std::size_t i) { return Point3{rows[0][i], rows[1][i], rows[2][i]}; };
    const Matrix matrix{column(0), column(1), column(2), column(3)};
    m_matrices.push_back(reader.IsGood() ? ToPlane() * matrix : ToPlane());
}

bool ProxyDrawer::TakeAttribute(const ProxyCommand& command)
{
    ByteReader reader(command.data);
    if (command.type == ProxyType::Colour)
        UseColour(reader);
    else if (command.type == ProxyType::TrueColour)
        m_pen.UseStyleOf(UnpackColour(reader.Integer()));
    else if (command.type == ProxyType::PushMatrix || command.type == ProxyType::PushOtherMatrix)
        Push(reader);
    else if (command.type == ProxyType::PopMatrix && m_matrices.size() > 1)
        m_matrices.pop_back();
    else if (command.type != ProxyType::Extents && command.type != ProxyType::PopMatrix &&
             (command.type < ProxyType::FirstAttribute || command.type > ProxyType::LastAttribute))
        return false;
    return true;
}

void ProxyDrawer::Take(const ProxyCommand& command)
{
    const ByteReader reader(command.data);
    switch (command.type) {
    case ProxyType::CircleByCentre:
        DrawCircle(reader);
        break;
    case ProxyType::CircleByPoints:
    case ProxyType::ArcByPoints:
        DrawCircleThrough(reader, command.type == ProxyType::ArcByPoints);
        break;
    case ProxyType::ArcByCentre:
        DrawArc(reader);
        break;
    case ProxyType::Polyline:
    case ProxyType::Polygon:
    case ProxyType::PolylineWithNormal:
        DrawPoints(reader, command.type == ProxyType::Polygon);
        break;
    case ProxyType::Mesh:
        DrawMesh(reader);
        break;
    case ProxyType::Shell:
        DrawShell(reader);
        break;
    default:
        m_hasSkipped |= !TakeAttribute(command);
    }
}

} // namespace

void DrawProxy(const Proxy& proxy, Pen& pen)
{
    if (proxy.graphics.empty()) {
        pen.Report(Finding::NotShown, "it carries no picture");
        return;
    }
    ProxyGraphics graphics(proxy.graphics);
    ProxyDrawer drawer(pen);
    for (ProxyCommand command; graphics.Next(command);)
        drawer.Take(command);
    if (drawer.HasSkipped())
        pen.Report(Finding::Changed, "parts of its picture are left out");
    if (!graphics.IsWhole())
        pen.Report(Finding::Repaired, "its picture is cut off");
}

} // namespace prepare
