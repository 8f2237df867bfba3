#include "prepare/drawing/ReadEntityFields.h"

#include "base/Pi.h"
#include "prepare/drawing/EntityFields.h"
#include "prepare/drawing/ReadAcadTable.h"
#include "prepare/drawing/ReadDimension.h"
#include "prepare/drawing/ReadHatch.h"
#include "prepare/drawing/ReadLeader.h"
#include "prepare/drawing/ReadMultiLeader.h"
#include "prepare/drawing/ReadTexts.h"

#include <cmath>
#include <limits>

namespace prepare {

namespace {

constexpr auto kLine = EntityFields<Line>({
    {10, &Line::start},
    {11, &Line::end},
});

constexpr auto kCircle = EntityFields<Circle>({
    {10, &Circle::centre},
    {40, &Circle::radius},
});

constexpr auto kArc = EntityFields<Arc>({
    {10, &Arc::centre},
    {40, &Arc::radius},
    {50, &Arc::startAngle},
    {51, &Arc::endAngle},
});

constexpr auto kEllipse = EntityFields<Ellipse>({
    {10, &Ellipse::centre},
    {11, &Ellipse::majorAxis},
    {40, &Ellipse::ratio},
    {41, &Ellipse::start},
    {42, &Ellipse::end},
});

// NaN where there is none: the vertex is left out alone.
double ReadCoordinate(RecordReader& reader, LwPolyline& polyline, CDxfLine value)
{
    Fault fault = Fault::None;
    const double coordinate = reader.RealOfPart(value, fault);
    if (fault == Fault::None) [[likely]]
        return coordinate;
    reader.Note(Finding::Changed, "LWPOLYLINE", TextOf(fault), reader.Line() + 1);
    polyline.lacksVertices = true;
    return std::numeric_limits<double>::quiet_NaN();
}

enum VertexPhase : std::int32_t { kVertexIsWhole, kVertexLacksY };

void BeginVertex(RecordReader& reader, LwPolyline& polyline, CDxfLine value)
{
    polyline.lacksYs = polyline.lacksYs || reader.phase == kVertexLacksY;
    reader.phase = kVertexLacksY;
    constexpr std::size_t kUsual = 8;
    if (polyline.vertices.empty())
        polyline.vertices.reserve(kUsual);
    PolylineVertex vertex;
    vertex.startWidth = vertex.endWidth = polyline.width;
    vertex.point.x = ReadCoordinate(reader, polyline, value);
    reader.Append(polyline.vertices, vertex);
}

template <double PolylineVertex::*member>
void ReadVertex(RecordReader& reader, LwPolyline& polyline, CDxfLine value)
{
    if (!polyline.vertices.empty())
        polyline.vertices.back().*member = reader.Real(value);
}

void ReadVertexY(RecordReader& reader, LwPolyline& polyline, CDxfLine value)
{
    reader.phase = kVertexIsWhole;
    if (!polyline.vertices.empty())
        polyline.vertices.back().point.y = ReadCoordinate(reader, polyline, value);
}

constexpr auto kLwPolyline = EntityFields<LwPolyline>({
    {10, BeginVertex},
    {20, ReadVertexY},
    {38, &LwPolyline::elevation},
    {40, ReadVertex<&PolylineVertex::startWidth>},
    {41, ReadVertex<&PolylineVertex::endWidth>},
    {42, ReadVertex<&PolylineVertex::bulge>},
    {43, &LwPolyline::width},
    {70, &LwPolyline::flags},
    {90, &LwPolyline::statedVertices},
});

// line is that of the entity's type.
void NoteVertices(RecordReader& reader, const LwPolyline& polyline, std::uint64_t line)
{
    if (polyline.lacksYs || reader.phase == kVertexLacksY)
        reader.Note(Finding::Repaired, "LWPOLYLINE", "a vertex without its y: 0 is read", line);
    const std::int64_t stated = polyline.statedVertices;
    if (stated > std::ssize(polyline.vertices) && polyline.vertices.size() < RecordReader::kMostElements)
        reader.Note(Finding::Repaired, "LWPOLYLINE", "it has fewer vertices than it states", line);
}

std::unique_ptr<Entity> ReadLwPolyline(RecordReader& reader)
{
    const std::uint64_t line = reader.Line() + 1;
    std::unique_ptr<Entity> entity = ReadByTable<kLwPolyline, LwPolyline>(reader);
    LwPolyline& polyline = static_cast<LwPolyline&>(*entity);
    NoteVertices(reader, polyline, line);
    if (polyline.lacksVertices)
        std::erase_if(polyline.vertices, [](const PolylineVertex& vertex) {
            return std::isnan(vertex.point.x) || std::isnan(vertex.point.y);
        });
    return entity;
}

constexpr auto kPolyline = EntityFields<Polyline>({
    {10, &Polyline::elevation},
    {40, &Polyline::startWidth},
    {41, &Polyline::endWidth},
    {70, &Polyline::flags},
    {71, &Polyline::mCount},
    {72, &Polyline::nCount},
    {73, &Polyline::mDensity},
    {74, &Polyline::nDensity},
});

// A HELIX has a spline and then its own fields, which have codes of the spline's.
void SkipHelix(RecordReader& reader, Spline&, CDxfLine value)
{
    if (Trim(value) == "AcDbHelix")
        reader.SkipFields();
}

constexpr auto kSpline = EntityFields<Spline>({
    {10, &Spline::controlPoints},
    {11, &Spline::fitPoints},
    {12, &Spline::startTangent},
    {13, &Spline::endTangent},
    {40, &Spline::knots},
    {41, &Spline::weights},
    {70, &Spline::flags},
    {71, &Spline::degree},
    {100, SkipHelix},
});

template <std::size_t corner>
Point3& CornerOf(Solid& solid)
{
    return solid.corners[corner];
}

Point3& FourthCornerOf(Solid& solid)
{
    solid.hasFourth = true;
    return solid.corners[3];
}

constexpr auto kSolid = EntityFields<Solid>({
    {10, CornerOf<0>},
    {11, CornerOf<1>},
    {12, CornerOf<2>},
    {13, FourthCornerOf},
    {70, &Solid::hiddenEdges},
});

// What the values of a MESH's code 90 are; the count of each list comes before it.
enum MeshPhase : std::int32_t { kNoList, kFaces, kEdges };

template <MeshPhase phase>
void BeginList(RecordReader& reader, Mesh&, CDxfLine)
{
    reader.phase = phase;
}

void ReadIndex(RecordReader& reader, Mesh& mesh, CDxfLine value)
{
    if (reader.phase != kNoList)
        reader.Append(reader.phase == kFaces ? mesh.faces : mesh.edges, reader.Integer(value));
}

constexpr auto kMesh = EntityFields<Mesh>({
    {10, &Mesh::vertices},
    {90, ReadIndex},
    {93, BeginList<kFaces>},
    {94, BeginList<kEdges>},
    {95, BeginList<kNoList>},
});

void BeginMultiLineVertex(RecordReader& reader, MultiLine& line, CDxfLine value)
{
    MultiLineVertex vertex;
    vertex.point.x = reader.Real(value);
    reader.Append(line.vertices, vertex);
}

template <Point3 MultiLineVertex::*point, double Point3::*part>
void ReadMultiLineVertex(RecordReader& reader, MultiLine& line, CDxfLine value)
{
    if (!line.vertices.empty())
        (line.vertices.back().*point).*part = reader.Real(value);
}

void BeginElement(RecordReader& reader, MultiLine& line, CDxfLine)
{
    if (!line.vertices.empty())
        reader.Append(line.vertices.back().parameters, {});
}

void ReadParameter(RecordReader& reader, MultiLine& line, CDxfLine value)
{
    if (!line.vertices.empty() && !line.vertices.back().parameters.empty())
        reader.Append(line.vertices.back().parameters.back(), reader.Real(value));
}

constexpr auto kMultiLine = EntityFields<MultiLine>({
    {2, &MultiLine::style},
    {11, BeginMultiLineVertex},
    {21, ReadMultiLineVertex<&MultiLineVertex::point, &Point3::y>},
    {31, ReadMultiLineVertex<&MultiLineVertex::point, &Point3::z>},
    {12, ReadMultiLineVertex<&MultiLineVertex::direction, &Point3::x>},
    {22, ReadMultiLineVertex<&MultiLineVertex::direction, &Point3::y>},
    {32, ReadMultiLineVertex<&MultiLineVertex::direction, &Point3::z>},
    {13, ReadMultiLineVertex<&MultiLineVertex::mitre, &Point3::x>},
    {23, ReadMultiLineVertex<&MultiLineVertex::mitre, &Point3::y>},
    {33, ReadMultiLineVertex<&MultiLineVertex::mitre, &Point3::z>},
    {40, &MultiLine::scale},
    {41, ReadParameter},
    {70, &MultiLine::justification},
    {71, &MultiLine::flags},
    {73, &MultiLine::elements},
    {74, BeginElement},
    {340, &MultiLine::styleHandle},
});

constexpr auto kRay = EntityFields<Ray>({
    {10, &Ray::start},
    {11, &Ray::direction},
});

constexpr auto kPoint = EntityFields<PointEntity>({
    {10, &PointEntity::point},
    {50, &PointEntity::xAxisAngle},
});

template <double Point3::*part>
void ReadScale(RecordReader& reader, Insert& insert, CDxfLine value)
{
    insert.scale.*part = reader.Real(value);
}

constexpr auto kInsert = EntityFields<Insert>({
    {2, &Insert::block},
    {10, &Insert::point},
    {41, ReadScale<&Point3::x>},
    {42, ReadScale<&Point3::y>},
    {43, ReadScale<&Point3::z>},
    {44, &Insert::columnSpacing},
    {45, &Insert::rowSpacing},
    {50, &Insert::rotation},
    {66, &Insert::hasAttributes},
    {70, &Insert::columns},
    {71, &Insert::rows},
});

constexpr auto kTolerance = EntityFields<Tolerance>({
    {1, &Tolerance::text},
    {3, &Tolerance::style},
    {10, &Tolerance::point},
    {11, &Tolerance::direction},
});

constexpr auto kImage = EntityFields<Image>({
    {10, &Image::point},
    {11, &Image::u},
    {12, &Image::v},
    {13, &Image::size},
    {14, &Image::clip},
    {70, &Image::display},
    {280, &Image::isClipped},
});

template <double Point3::*part>
void ReadUnderlayScale(RecordReader& reader, Image& underlay, CDxfLine value)
{
    underlay.scale.*part = reader.Real(value);
}

// 280: 1 clipped, 2 shown.
void ReadUnderlayFlags(RecordReader& reader, Image& underlay, CDxfLine value)
{
    const std::int32_t flags = reader.Integer(value);
    underlay.isClipped = flags & 1;
    underlay.display = (flags & 2) != 0;
}

constexpr auto kUnderlay = EntityFields<Image>({
    {10, &Image::point},
    {11, &Image::clip},
    {41, ReadUnderlayScale<&Point3::x>},
    {42, ReadUnderlayScale<&Point3::y>},
    {43, ReadUnderlayScale<&Point3::z>},
    {50, &Image::rotation},
    {280, ReadUnderlayFlags},
});

constexpr auto kOleFrame = EntityFields<OleFrame>({
    {10, &OleFrame::upperLeft},
    {11, &OleFrame::lowerRight},
});

// A proxy's graphics come after their size (92, later 160), and its data, with the same code, after theirs.
void BeginGraphics(RecordReader& reader, Proxy&, CDxfLine)
{
    reader.phase = 1;
}

void BeginData(RecordReader& reader, Proxy&, CDxfLine)
{
    reader.phase = 2;
}

void ReadGraphics(RecordReader& reader, Proxy& proxy, CDxfLine value)
{
    constexpr std::size_t kMostBytes = std::size_t{64} << 20;
    const std::string_view digits = Trim(value);
    if (reader.phase == 2 || proxy.graphics.size() > kMostBytes)
        return;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
        const std::int32_t high = HexDigit(digits[i]), low = HexDigit(digits[i + 1]);
        if (high < 0 || low < 0)
            return;
        proxy.graphics += static_cast<char>(high * 16 + low);
    }
}

constexpr auto kProxy = EntityFields<Proxy>({
    {92, BeginGraphics},
    {93, BeginData},
    {160, BeginGraphics},
    {161, BeginData},
    {310, ReadGraphics},
});

// The data of other programs mean other things.
void ReadApplication(RecordReader&, Viewport& viewport, CDxfLine value)
{
    viewport.isOldView = Trim(value) == "ACAD";
}

void ReadFrozenName(RecordReader& reader, Viewport& viewport, CDxfLine value)
{
    if (viewport.isOldView)
        reader.Append(viewport.frozenByName, reader.Name(value));
}

void BeginOldPoint(RecordReader& reader, Viewport& viewport, CDxfLine value)
{
    if (viewport.isOldView)
        reader.Append(viewport.oldPoints, Point3{reader.Real(value), 0, 0});
}

template <double Point3::*coordinate>
void ReadOldPoint(RecordReader& reader, Viewport& viewport, CDxfLine value)
{
    if (viewport.isOldView && !viewport.oldPoints.empty())
        viewport.oldPoints.back().*coordinate = reader.Real(value);
}

void ReadOldReal(RecordReader& reader, Viewport& viewport, CDxfLine value)
{
    if (viewport.isOldView)
        reader.Append(viewport.oldReals, reader.Real(value));
}

void ReadOldInteger(RecordReader& reader, Viewport& viewport, CDxfLine value)
{
    if (viewport.isOldView)
        reader.Append(viewport.oldIntegers, reader.Integer(value));
}

constexpr auto kViewport = EntityFields<Viewport>({
    {10, &Viewport::centre},
    {12, &Viewport::viewCentre},
    {16, &Viewport::direction},
    {17, &Viewport::target},
    {40, &Viewport::width},
    {41, &Viewport::height},
    {45, &Viewport::viewHeight},
    {51, &Viewport::twist},
    {68, &Viewport::status},
    {69, &Viewport::id},
    {90, &Viewport::flags, &Viewport::hasFlags},
    {331, &Viewport::frozen},
    {340, &Viewport::clip},
    {341, &Viewport::frozen},
    {1001, ReadApplication},
    {1003, ReadFrozenName},
    {1010, BeginOldPoint},
    {1020, ReadOldPoint<&Point3::y>},
    {1030, ReadOldPoint<&Point3::z>},
    {1040, ReadOldReal},
    {1070, ReadOldInteger},
});

std::unique_ptr<Entity> ReadViewport(RecordReader& reader)
{
    auto viewport = std::make_unique<Viewport>();
    reader.Read(*viewport, kViewport);
    const std::vector<double>& reals = viewport->oldReals;
    if (viewport->viewHeight != 0 || viewport->oldPoints.size() < 2 || reals.size() < 4)
        return viewport;
    viewport->target = viewport->oldPoints[0];
    viewport->direction = viewport->oldPoints[1];
    viewport->twist = reals[0] * kDegreesPerRadian;
    viewport->viewHeight = reals[1];
    viewport->viewCentre = {reals[2], reals[3]};
    viewport->flags = viewport->oldIntegers.size() > 1 ? viewport->oldIntegers[1] : 0;
    return viewport;
}

void SkipUnknown(RecordReader& reader, Other&, CDxfLine value)
{
    if (Trim(value) != "AcDbEntity")
        reader.SkipFields();
}

// Other types' codes of their own may mean anything.
constexpr auto kOther = EntityFields<Other>({
    {100, SkipUnknown},
});

} // namespace

ReadFunction ReadFunctionOf(EntityType type)
{
    switch (type) {
    case EntityType::Line:
    case EntityType::Line3d:
        return ReadByTable<kLine, Line>;
    case EntityType::Circle:
        return ReadByTable<kCircle, Circle>;
    case EntityType::Arc:
        return ReadByTable<kArc, Arc>;
    case EntityType::Ellipse:
        return ReadByTable<kEllipse, Ellipse>;
    case EntityType::LwPolyline:
        return ReadLwPolyline;
    case EntityType::Polyline:
        return ReadByTable<kPolyline, Polyline>;
    case EntityType::Spline:
    case EntityType::Helix:
        return ReadByTable<kSpline, Spline>;
    case EntityType::Solid:
    case EntityType::Trace:
    case EntityType::Face:
        return ReadByTable<kSolid, Solid>;
    case EntityType::Mesh:
        return ReadByTable<kMesh, Mesh>;
    case EntityType::MultiLine:
        return ReadByTable<kMultiLine, MultiLine>;
    case EntityType::Leader:
        return ReadLeader;
    case EntityType::MultiLeader:
        return ReadMultiLeader;
    case EntityType::Ray:
    case EntityType::XLine:
        return ReadByTable<kRay, Ray>;
    case EntityType::Point:
        return ReadByTable<kPoint, PointEntity>;
    case EntityType::Insert:
        return ReadByTable<kInsert, Insert>;
    case EntityType::Text:
        return ReadText;
    case EntityType::Attrib:
    case EntityType::AttDef:
        return ReadAttribute;
    case EntityType::MText:
        return ReadMTextRecord;
    case EntityType::Dimension:
        return ReadDimension;
    case EntityType::Tolerance:
        return ReadByTable<kTolerance, Tolerance>;
    case EntityType::Hatch:
        return ReadHatch;
    case EntityType::Table:
        return ReadAcadTable;
    case EntityType::Image:
    case EntityType::Wipeout:
        return ReadByTable<kImage, Image>;
    case EntityType::Underlay:
        return ReadByTable<kUnderlay, Image>;
    case EntityType::OleFrame:
    case EntityType::Ole2Frame:
        return ReadByTable<kOleFrame, OleFrame>;
    case EntityType::Proxy:
        return ReadByTable<kProxy, Proxy>;
    case EntityType::Viewport:
        return ReadViewport;
    case EntityType::Vertex:
    case EntityType::SeqEnd:
    case EntityType::Shape:
    case EntityType::Other:
        break;
    }
    return ReadByTable<kOther, Other>;
}

} // namespace prepare
