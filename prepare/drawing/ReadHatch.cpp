#include "prepare/drawing/ReadHatch.h"

#include "prepare/drawing/EntityFields.h"

namespace prepare {

namespace {

// The boundary loops of a hatch while they are read: what a code means depends on the loop and its edge.
struct Loops {
    static constexpr bool kHasFunctionsOnly = true;
    Hatch& hatch;
};

constexpr std::int32_t kPolylineLoop = 2;

HatchLoop& LastLoop(Loops& loops)
{
    if (loops.hatch.loops.empty())
        loops.hatch.loops.emplace_back();
    return loops.hatch.loops.back();
}

bool IsPolyline(Loops& loops)
{
    return (LastLoop(loops).flags & kPolylineLoop) != 0;
}

// Null where no edge has begun.
HatchEdge* LastEdge(Loops& loops)
{
    std::vector<HatchEdge>& edges = LastLoop(loops).edges;
    return edges.empty() ? nullptr : &edges.back();
}

bool IsSpline(Loops& loops)
{
    const HatchEdge* const edge = LastEdge(loops);
    return edge != nullptr && edge->kind == HatchEdge::Kind::Spline;
}

void BeginLoop(RecordReader& reader, Loops& loops, CDxfLine value)
{
    HatchLoop loop;
    loop.flags = reader.Integer(value);
    reader.Append(loops.hatch.loops, loop);
}

// 72: whether a polyline has bulges, or the kind of the edge that begins.
void ReadKind(RecordReader& reader, Loops& loops, CDxfLine value)
{
    if (IsPolyline(loops))
        return;
    const std::int32_t kind = reader.Integer(value);
    if (kind < 1 || kind > 4)
        return;
    HatchEdge edge;
    edge.kind = static_cast<HatchEdge::Kind>(kind);
    reader.Append(LastLoop(loops).edges, edge);
}

// 73: whether a polyline is closed, an arc is counter-clockwise, or a spline is rational.
void ReadClosed(RecordReader& reader, Loops& loops, CDxfLine value)
{
    const bool is = reader.Integer(value) != 0;
    HatchEdge* const edge = LastEdge(loops);
    if (IsPolyline(loops))
        LastLoop(loops).isClosed = is;
    else if (edge != nullptr)
        (IsSpline(loops) ? edge->isRational : edge->isCounterClockwise) = is;
}

void ReadPeriodic(RecordReader& reader, Loops& loops, CDxfLine value)
{
    if (HatchEdge* const edge = LastEdge(loops))
        edge->isPeriodic = reader.Integer(value) != 0;
}

void ReadDegree(RecordReader& reader, Loops& loops, CDxfLine value)
{
    if (HatchEdge* const edge = LastEdge(loops))
        edge->degree = reader.Integer(value);
}

void ReadFirstX(RecordReader& reader, Loops& loops, CDxfLine value)
{
    const double x = reader.Real(value);
    if (IsPolyline(loops)) {
        PolylineVertex vertex;
        vertex.point.x = x;
        reader.Append(LastLoop(loops).vertices, vertex);
    } else if (IsSpline(loops)) {
        reader.Append(LastEdge(loops)->controlPoints, Point2{x, 0});
    } else if (HatchEdge* const edge = LastEdge(loops)) {
        edge->a.x = x;
    }
}

void ReadFirstY(RecordReader& reader, Loops& loops, CDxfLine value)
{
    const double y = reader.Real(value);
    HatchEdge* const edge = LastEdge(loops);
    if (IsPolyline(loops)) {
        if (!LastLoop(loops).vertices.empty())
            LastLoop(loops).vertices.back().point.y = y;
    } else if (IsSpline(loops)) {
        if (!edge->controlPoints.empty())
            edge->controlPoints.back().y = y;
    } else if (edge != nullptr) {
        edge->a.y = y;
    }
}

void ReadSecondX(RecordReader& reader, Loops& loops, CDxfLine value)
{
    const double x = reader.Real(value);
    if (IsSpline(loops))
        reader.Append(LastEdge(loops)->fitPoints, Point2{x, 0});
    else if (HatchEdge* const edge = LastEdge(loops))
        edge->b.x = x;
}

void ReadSecondY(RecordReader& reader, Loops& loops, CDxfLine value)
{
    const double y = reader.Real(value);
    HatchEdge* const edge = LastEdge(loops);
    if (IsSpline(loops)) {
        if (!edge->fitPoints.empty())
            edge->fitPoints.back().y = y;
    } else if (edge != nullptr) {
        edge->b.y = y;
    }
}

void ReadRadius(RecordReader& reader, Loops& loops, CDxfLine value)
{
    const double real = reader.Real(value);
    if (IsSpline(loops))
        reader.Append(LastEdge(loops)->knots, real);
    else if (HatchEdge* const edge = LastEdge(loops))
        edge->radius = real;
}

// 42: a vertex's bulge, or a weight of a spline.
void ReadBulge(RecordReader& reader, Loops& loops, CDxfLine value)
{
    const double real = reader.Real(value);
    if (IsSpline(loops))
        reader.Append(LastEdge(loops)->weights, real);
    else if (!LastLoop(loops).vertices.empty())
        LastLoop(loops).vertices.back().bulge = real;
}

template <double HatchEdge::*member>
void ReadAngle(RecordReader& reader, Loops& loops, CDxfLine value)
{
    if (HatchEdge* const edge = LastEdge(loops))
        edge->*member = reader.Real(value);
}

void Ignore(RecordReader&, Loops&, CDxfLine) {}

constexpr auto kLoops = Fields<Loops>({
    {10, ReadFirstX},
    {20, ReadFirstY},
    {11, ReadSecondX},
    {21, ReadSecondY},
    {12, Ignore}, // tangents of a spline
    {22, Ignore},
    {13, Ignore},
    {23, Ignore},
    {40, ReadRadius},
    {42, ReadBulge},
    {50, ReadAngle<&HatchEdge::start>},
    {51, ReadAngle<&HatchEdge::end>},
    {72, ReadKind},
    {73, ReadClosed},
    {74, ReadPeriodic},
    {92, BeginLoop},
    {93, Ignore}, // counts
    {94, ReadDegree},
    {95, Ignore},
    {96, Ignore},
    {97, Ignore},
    {330, Ignore}, // the entities that the loop was made from
});

// Up to the first code that no loop has.
void ReadLoops(RecordReader& reader, Hatch& hatch, CDxfLine)
{
    Loops loops{hatch};
    reader.ReadPart(loops, kLoops);
    reader.phase = 1;
}

// The hatch's own 10 comes before the loops; after them, it is a seed point's.
template <double Point3::*part>
void ReadElevation(RecordReader& reader, Hatch& hatch, CDxfLine value)
{
    if (reader.phase == 0)
        hatch.elevation.*part = reader.Real(value);
}

template <double Point2::*part>
void ReadOffset(RecordReader& reader, Hatch& hatch, CDxfLine value)
{
    if (hatch.hasOutline)
        hatch.offset.*part = reader.Real(value);
}

void BeginPatternLine(RecordReader& reader, Hatch& hatch, CDxfLine value)
{
    HatchLine line;
    line.angle = reader.Real(value);
    reader.Append(hatch.lines, line);
}

template <Point2 HatchLine::*point, double Point2::*part>
void ReadPatternLine(RecordReader& reader, Hatch& hatch, CDxfLine value)
{
    if (!hatch.lines.empty())
        (hatch.lines.back().*point).*part = reader.Real(value);
}

void ReadDash(RecordReader& reader, Hatch& hatch, CDxfLine value)
{
    if (!hatch.lines.empty())
        reader.Append(hatch.lines.back().dashes, reader.Real(value));
}

// A HATCH has it in 70, where an MPOLYGON has its version; the other's 71 is something else.
template <bool isOfPolygon>
void ReadSolid(RecordReader& reader, Hatch& hatch, CDxfLine value)
{
    if (hatch.hasOutline == isOfPolygon)
        hatch.isSolid = reader.Integer(value);
}

// The colours of a gradient have that code too, and come after its 450.
void ReadFillColour(RecordReader& reader, Hatch& hatch, CDxfLine value)
{
    if (hatch.isGradient == 0)
        hatch.fillColour = reader.Integer(value);
}

constexpr auto kHatch = EntityFields<Hatch>({
    {2, &Hatch::pattern},
    {10, ReadElevation<&Point3::x>},
    {11, ReadOffset<&Point2::x>}, // after the loops
    {20, ReadElevation<&Point3::y>},
    {21, ReadOffset<&Point2::y>},
    {30, ReadElevation<&Point3::z>},
    {41, &Hatch::scale},
    {43, ReadPatternLine<&HatchLine::base, &Point2::x>},
    {44, ReadPatternLine<&HatchLine::base, &Point2::y>},
    {45, ReadPatternLine<&HatchLine::offset, &Point2::x>},
    {46, ReadPatternLine<&HatchLine::offset, &Point2::y>},
    {49, ReadDash},
    {52, &Hatch::angle},
    {53, BeginPatternLine},
    {63, ReadFillColour},
    {70, ReadSolid<false>},
    {71, ReadSolid<true>},
    {75, &Hatch::style},
    {91, ReadLoops},
    {421, &Hatch::gradientColours},
    {450, &Hatch::isGradient},
});

} // namespace

std::unique_ptr<Entity> ReadHatch(RecordReader& reader)
{
    auto hatch = std::make_unique<Hatch>();
    hatch->hasOutline = reader.Word() == "MPOLYGON";
    reader.Read(*hatch, kHatch);
    return hatch;
}

} // namespace prepare
