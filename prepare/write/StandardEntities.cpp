#include "prepare/write/StandardEntities.h"

#include "base/Decimals.h"
#include "base/Pi.h"
#include "prepare/plain/Palette.h"
#include "prepare/write/Flatten.h"
#include "prepare/write/ModuleTexts.h"

#include <cmath>

namespace prepare {

namespace {

// Angles and factors are computed back and forth: this many digits stay right.
constexpr int kAngleDigits = 12;

void WriteDegrees(PairWriter& pairs, int code, double degrees)
{
    constexpr int kDecimals = 10;
    const double rounded = RoundedTo(degrees, kDecimals);
    pairs.Real(code, rounded >= 360 ? rounded - 360 : rounded, kAngleDigits);
}

std::vector<PlainVertex> ArcVertices(Point2 centre, double radius, double start, double end)
{
    const int pieces = end - start > kPi ? 2 : 1;
    const double angle = (end - start) / pieces;
    std::vector<PlainVertex> vertices;
    for (int i = 0; i <= pieces; ++i) {
        const double at = start + i * angle;
        vertices.push_back(
            {centre + radius * Point2{std::cos(at), std::sin(at)}, i < pieces ? std::tan(angle / 4) : 0});
    }
    return vertices;
}

std::string TextOf(const Style& style, const StandardTables& tables)
{
    std::string pairs = PairText(8, tables.LayerName(style.layer));
    if (style.lineType != nullptr && !style.lineType->dashes.empty())
        pairs += PairText(6, tables.LineTypeName(*style.lineType));
    const Colour& colour = style.colour;
    pairs += PairText(62, std::to_string(colour.isTrue ? NearestColourIndex(colour.rgb) : colour.index));
    if (colour.isTrue)
        pairs += PairText(420, std::to_string(colour.rgb & 0xFFFFFF));
    pairs += PairText(370, std::to_string(NearestWeight(style.weight)));
    if (style.lineTypeScale != 1) {
        std::string scale;
        AppendReal(scale, style.lineTypeScale, kAngleDigits);
        pairs += PairText(48, scale);
    }
    return pairs;
}

} // namespace

std::vector<std::string> StandardStyleTexts(const StyleTable& styles, const StandardTables& tables)
{
    std::vector<std::string> texts;
    texts.reserve(styles.Count());
    for (StyleId id = 0; id < styles.Count(); ++id)
        texts.push_back(TextOf(styles[id], tables));
    return texts;
}

std::vector<std::vector<Point2>> WrittenRings(std::span<const std::vector<Point2>> rings, int decimals)
{
    std::vector<std::vector<Point2>> written;
    for (const std::vector<Point2>& ring : rings) {
        std::vector<Point2> points;
        points.reserve(ring.size());
        for (const Point2 point : ring) {
            const Point2 rounded{RoundedTo(point.x, decimals), RoundedTo(point.y, decimals)};
            if (points.empty() || !(rounded == points.back()))
                points.push_back(rounded);
        }
        while (points.size() > 1 && points.front() == points.back())
            points.pop_back();
        if (points.size() > 2)
            written.push_back(std::move(points));
    }
    return written;
}

void StandardEntities::Begin(const char* type, std::string_view style)
{
    PairWriter& pairs = m_out.pairs;
    pairs.Text(0, type);
    pairs.Handle(5, m_out.handle++);
    pairs.Handle(330, m_owner);
    pairs.Text(100, "AcDbEntity");
    pairs.Raw(style);
}

void StandardEntities::Line(StyleId style, Point2 start, Point2 end)
{
    if (IsWide(style))
        return Polyline(style, std::vector<PlainVertex>{{start, 0}, {end, 0}}, false);
    const Point2 half{start == end ? m_out.dot / 2 : 0, 0};
    Begin("LINE", m_out.styleTexts[style]);
    m_out.pairs.Text(100, "AcDbLine");
    WritePoint3(m_out.pairs, 10, start - half, m_out.decimals);
    WritePoint3(m_out.pairs, 11, end + half, m_out.decimals);
}

void StandardEntities::Circle(StyleId style, Point2 centre, double radius)
{
    if (IsWide(style))
        return Polyline(
            style, std::vector<PlainVertex>{{centre - Point2{radius, 0}, 1}, {centre + Point2{radius, 0}, 1}},
            true);
    Begin("CIRCLE", m_out.styleTexts[style]);
    m_out.pairs.Text(100, "AcDbCircle");
    WritePoint3(m_out.pairs, 10, centre, m_out.decimals);
    m_out.pairs.Fixed(40, radius, m_out.decimals);
}

void StandardEntities::Arc(StyleId style, Point2 centre, double radius, double start, double end)
{
    if (IsWide(style))
        return Polyline(style, ArcVertices(centre, radius, start, end), false);
    Begin("ARC", m_out.styleTexts[style]);
    m_out.pairs.Text(100, "AcDbCircle");
    WritePoint3(m_out.pairs, 10, centre, m_out.decimals);
    m_out.pairs.Fixed(40, radius, m_out.decimals);
    m_out.pairs.Text(100, "AcDbArc");
    WriteDegrees(m_out.pairs, 50, DegreesOf(start));
    WriteDegrees(m_out.pairs, 51, DegreesOf(end));
}

void StandardEntities::Ellipse(StyleId style, Point2 centre, Point2 majorAxis, double ratio, double start,
                               double end)
{
    if (IsWide(style)) {
        std::vector<Point2> points;
        AppendEllipseChords(points, centre, majorAxis, ratio, start, end, m_out.curves);
        std::vector<PlainVertex> vertices;
        vertices.reserve(points.size());
        for (const Point2& point : points)
            vertices.push_back({point, 0});
        return Polyline(style, vertices, false);
    }
    Begin("ELLIPSE", m_out.styleTexts[style]);
    m_out.pairs.Text(100, "AcDbEllipse");
    WritePoint3(m_out.pairs, 10, centre, m_out.decimals);
    WritePoint3(m_out.pairs, 11, majorAxis, m_out.decimals);
    m_out.pairs.Real(40, ratio, kAngleDigits);
    const bool isWhole = end - start > kTurn - 1e-9;
    m_out.pairs.Real(41, isWhole ? 0 : start, kAngleDigits);
    m_out.pairs.Real(42, isWhole ? kTurn : end, isWhole ? 16 : kAngleDigits);
}

void StandardEntities::Polyline(StyleId style, std::span<const PlainVertex> vertices, bool isClosed)
{
    PairWriter& pairs = m_out.pairs;
    Begin("LWPOLYLINE", m_out.styleTexts[style]);
    pairs.Text(100, "AcDbPolyline");
    pairs.Integer(90, static_cast<std::int64_t>(vertices.size()));
    pairs.Integer(70, isClosed ? 1 : 0);
    if (IsWide(style))
        pairs.Real(43, m_out.styles[style].width);
    for (const PlainVertex& vertex : vertices) {
        WritePoint2(pairs, 10, vertex.point, m_out.decimals);
        if (vertex.bulge != 0)
            pairs.Real(42, vertex.bulge, kAngleDigits);
    }
}

// A solid HATCH, its islands by odd parity.
void StandardEntities::Fill(StyleId style, std::span<const std::vector<Point2>> allRings)
{
    const std::vector<std::vector<Point2>> rings = WrittenRings(allRings, m_out.decimals);
    if (rings.empty())
        return;
    constexpr int kExternal = 1, kPolylineLoop = 2;
    PairWriter& pairs = m_out.pairs;
    Begin("HATCH", m_out.styleTexts[style]);
    pairs.Text(100, "AcDbHatch");
    WritePoint3(pairs, 10, {}, m_out.decimals);
    pairs.Integer(210, 0);
    pairs.Integer(220, 0);
    pairs.Integer(230, 1);
    pairs.Text(2, "SOLID");
    pairs.Integer(70, 1);
    pairs.Integer(71, 0);
    pairs.Integer(91, static_cast<std::int64_t>(rings.size()));
    for (const std::vector<Point2>& ring : rings) {
        pairs.Integer(92, &ring == rings.data() ? kExternal | kPolylineLoop : kPolylineLoop);
        pairs.Integer(72, 0);
        pairs.Integer(73, 1);
        pairs.Integer(93, static_cast<std::int64_t>(ring.size()));
        for (const Point2 point : ring)
            WritePoint2(pairs, 10, point, m_out.decimals);
        pairs.Integer(97, 0);
    }
    pairs.Integer(75, 0);
    pairs.Integer(76, 1);
    pairs.Integer(98, 0);
}

void StandardEntities::Text(StyleId style, const LoggedText& text)
{
    constexpr int kMirroredInY = 4;
    PairWriter& pairs = m_out.pairs;
    const double length = Length(text.along);
    const Point2 x = (1 / length) * text.along;
    const double area = Cross(text.along, text.up);
    const double height = std::fabs(area) / length;
    bool isCut = false;
    const std::string value = EscapedText(text.text, isCut);
    if (isCut)
        m_out.report.Add(Finding::Cut, "TEXT", "its letters beyond 2000 bytes are left out", 0);
    Begin("TEXT", m_out.styleTexts[style]);
    pairs.Text(100, "AcDbText");
    WritePoint3(pairs, 10, text.point, m_out.decimals);
    pairs.Real(40, height, kAngleDigits);
    pairs.Text(1, value);
    WriteDegrees(pairs, 50, DegreesOf(std::atan2(x.y, x.x)));
    pairs.Real(41, length / height, kAngleDigits);
    WriteDegrees(pairs, 51, std::atan(Dot(text.up, x) / height) * kDegreesPerRadian);
    pairs.Text(7, m_out.tables.TextStyleName(text.style));
    if (area < 0)
        pairs.Integer(71, kMirroredInY);
    if (text.anchor != Anchor::Start) {
        pairs.Integer(72, text.anchor == Anchor::Middle ? 1 : 2);
        WritePoint3(pairs, 11, text.point, m_out.decimals);
    }
    pairs.Text(100, "AcDbText");
}

void StandardEntities::Insert(std::size_t block, Point2 point, double rotation, bool isMirrored)
{
    if (m_out.blockNames[block].empty())
        return;
    PairWriter& pairs = m_out.pairs;
    Begin("INSERT", PairText(8, "0"));
    pairs.Text(100, "AcDbBlockReference");
    pairs.Text(2, m_out.blockNames[block]);
    WritePoint3(pairs, 10, point, m_out.decimals);
    if (isMirrored)
        pairs.Integer(42, -1);
    WriteDegrees(pairs, 50, DegreesOf(rotation));
}

} // namespace prepare
