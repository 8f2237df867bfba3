#include "prepare/write/ModuleEntities.h"

#include "base/Decimals.h"
#include "prepare/plain/BulgeArc.h"
#include "prepare/plain/Curves.h"
#include "prepare/plain/Placement.h"
#include "prepare/plain/TextMetrics.h"
#include "prepare/plain/TextPieces.h"
#include "prepare/write/AgreedBlocks.h"
#include "prepare/write/ModuleEncoding.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace prepare {

namespace {

// Above this, an arc's centre is so far away that its ends are no longer where they should be.
constexpr double kLargestRadius = 1e10;

// In place of a weight: that of the style.
constexpr std::int32_t kOwnWeight = 0;

std::string AreaName(std::string_view prefix, std::size_t number)
{
    return Numbered(prefix, number);
}

ModuleText ModuleTextOf(StyleId style, const LoggedText& text, const TextPlace& place, double factor,
                        int decimals, TextLoss& loss)
{
    bool isCut = false;
    std::string value = ValueForModule(text.text, isCut);
    const bool isReplaced = !EncodeForModule(value);
    loss = {loss.isCut || isCut, loss.isReplaced || isReplaced};
    return {std::move(value), RoundedTo(factor * place.size, decimals), text.anchor, style};
}

// Some viewers take a stretched text for as wide as an unstretched one where its middle or its end is the
// anchor, which moves it. So it starts where it does in the author's drawing.
bool MustStartAtItsPlace(const LoggedText& text, const TextPlace& place)
{
    constexpr double kSeen = 0.02; // of the text's width
    return text.anchor != Anchor::Start && std::fabs(place.widthFactor - 1) > kSeen &&
           text.text.size() <= kLongestValue && HasKnownWidth(text.text);
}

// spread is in heights of capitals.
std::int32_t ThousandthsOfFont(double spread)
{
    constexpr double kMost = 1e6;
    return static_cast<std::int32_t>(
        std::lround(std::clamp(1000 * spread / kFontSizeOfCapitals, 0.0, kMost)));
}

} // namespace

Point2 ModuleEntities::Rounded(Point2 p) const
{
    return {RoundedTo(p.x, m_out.decimals), RoundedTo(p.y, m_out.decimals)};
}

// Whether both are written as the same point. Most are too far apart to be rounded.
bool ModuleEntities::AreSame(Point2 a, Point2 b) const
{
    return std::fabs(a.x - b.x) <= m_apart && std::fabs(a.y - b.y) <= m_apart && Rounded(a) == Rounded(b);
}

// As many decimals of an angle in that unit (in radians) as a point at the radius needs.
int ModuleEntities::DecimalsOfAngle(double radius, double unit) const
{
    const double step = PowerOfTen(-m_out.decimals) / (radius * unit);
    const double decimals = std::ceil(-std::log10(step));
    return decimals > 0 ? static_cast<int>(std::min(decimals, 14.0)) : 0; // also where it is no number
}

// To be called before anything is written that is seen.
void ModuleEntities::UseLayer(LayerNumber layer)
{
    if (m_hasMarks && std::exchange(m_layer, layer) != layer)
        m_out.layers.WriteMark(m_out.pairs, layer);
}

void ModuleEntities::Begin(const char* type, StyleId style)
{
    UseLayer(m_out.layers.Of(style));
    m_out.pairs.Text(0, type);
    m_out.pairs.Raw(m_out.styles.OfStroke(style));
}

void ModuleEntities::Point(int code, Point2 p)
{
    m_out.pairs.Fixed(code, p.x, m_out.decimals);
    m_out.pairs.Fixed(code + 10, p.y, m_out.decimals);
}

void ModuleEntities::Line(StyleId style, Point2 start, Point2 end)
{
    // The module draws ends flat, so a dot is as long as it is wide.
    const Point2 half{start == end ? m_out.styles.WidthOf(style) / 2 : 0, 0};
    WriteLine(style, Local(start) - half, Local(end) + half);
}

void ModuleEntities::WriteLine(StyleId style, Point2 start, Point2 end)
{
    if (AreSame(start, end))
        return;
    Begin("LINE", style);
    Point(10, start);
    Point(11, end);
}

void ModuleEntities::Circle(StyleId style, Point2 centre, double radius)
{
    const double written = m_out.factor * radius;
    if (RoundedTo(written, m_out.decimals) == 0)
        return;
    Begin("CIRCLE", style);
    Point(10, Local(centre));
    m_out.pairs.Fixed(40, written, m_out.decimals);
}

void ModuleEntities::Arc(StyleId style, Point2 centre, double radius, double start, double end)
{
    WriteArc(style, Local(centre), m_out.factor * radius, start, end);
}

void ModuleEntities::WriteArc(StyleId style, Point2 centre, double radius, double start, double end)
{
    if (radius > kLargestRadius) {
        m_points.clear();
        AppendEllipseChords(m_points, centre, {radius, 0}, 1, start, end, m_out.curves);
        return WritePoints(style, m_points, false);
    }
    const int decimals = DecimalsOfAngle(radius, Radians(1));
    ForArcParts(start, end, [&](double first, double last) {
        const double from = RoundedTo(DegreesOf(first), decimals), to = RoundedTo(DegreesOf(last), decimals);
        if (from == to)
            return; // too short to be seen
        Begin("ARC", style);
        Point(10, centre);
        m_out.pairs.Fixed(40, radius, m_out.decimals);
        m_out.pairs.Fixed(50, from, decimals);
        m_out.pairs.Fixed(51, to, decimals);
    });
}

void ModuleEntities::Ellipse(StyleId style, Point2 centre, Point2 majorAxis, double ratio, double start,
                             double end)
{
    constexpr double kAlmost = 1e-9;
    const Point2 axis = m_out.factor * majorAxis;
    if (Rounded(axis) == Point2{})
        return;
    if (end - start > kTurn - kAlmost)
        WriteEllipse(style, Local(centre), axis, ratio);
    else
        WriteEllipticalArc(style, Local(centre), axis, ratio, start, end, 3);
}

void ModuleEntities::WriteEllipse(StyleId style, Point2 centre, Point2 majorAxis, double ratio)
{
    Begin("ELLIPSE", style);
    Point(10, centre);
    Point(11, majorAxis);
    m_out.pairs.Real(40, ratio, 9);
}

void ModuleEntities::WriteEllipticalArc(StyleId style, Point2 centre, Point2 majorAxis, double ratio,
                                        double start, double end, int splits)
{
    const int decimals = DecimalsOfAngle(Length(majorAxis), 1);
    const double first = RoundedTo(start, decimals), last = RoundedTo(end, decimals);
    const DrawnEllipse drawn = HowModuleDraws(ratio, first, last);
    const bool isLong = end - start > 1;
    if (drawn != DrawnEllipse::Right && isLong && splits > 0) {
        const double middle = (start + end) / 2;
        WriteEllipticalArc(style, centre, majorAxis, ratio, start, middle, splits - 1);
        WriteEllipticalArc(style, centre, majorAxis, ratio, middle, end, splits - 1);
    } else if (drawn != DrawnEllipse::Right) {
        m_points.clear();
        AppendEllipseChords(m_points, centre, majorAxis, ratio, start, end, m_out.curves);
        WritePoints(style, m_points, false);
    } else {
        WriteEllipse(style, centre, majorAxis, ratio);
        m_out.pairs.Fixed(41, first, decimals);
        m_out.pairs.Fixed(42, last, decimals);
    }
}

void ModuleEntities::Polyline(StyleId style, std::span<const PlainVertex> vertices, bool isClosed)
{
    if (WriteRoundPolyline(style, vertices, isClosed))
        return;
    m_points.clear();
    m_points.reserve(vertices.size() + 1);
    m_points.push_back(Local(vertices.front().point));
    for (std::size_t i = 1; i <= vertices.size(); ++i) {
        if (i == vertices.size() && !isClosed)
            break;
        const PlainVertex& from = vertices[i - 1];
        const PlainVertex& to = vertices[i % vertices.size()];
        AppendChords(m_points, Local(from.point), Local(to.point), from.bulge, m_out.curves);
    }
    WritePoints(style, m_points, isClosed);
}

// A polyline that is one arc, or a circle of two, is written as that: true when it was.
bool ModuleEntities::WriteRoundPolyline(StyleId style, std::span<const PlainVertex> vertices, bool isClosed)
{
    if (vertices.size() != 2)
        return false;
    const double bulge = vertices[0].bulge;
    const Point2 a = Local(vertices[0].point), b = Local(vertices[1].point);
    if (std::fabs(bulge) * Length(b - a) / 2 < PowerOfTen(-m_out.decimals))
        return false; // straight
    const BulgeArc arc = CircularArcOf(a, b, bulge);
    if (!isClosed) {
        WriteArc(style, arc.centre, arc.radius, arc.start, arc.end);
        return true;
    }
    if (std::fabs(bulge) != 1 || vertices[1].bulge != bulge)
        return false;
    Circle(style, 0.5 * (vertices[0].point + vertices[1].point), arc.radius / m_out.factor);
    return true;
}

// As they are written, without points on the one before.
void ModuleEntities::RoundPoints(std::vector<Point2>& points, bool isClosed, int decimals) const
{
    for (Point2& point : points)
        point = {RoundedTo(point.x, decimals), RoundedTo(point.y, decimals)};
    points.erase(std::unique(points.begin(), points.end()), points.end());
    if (isClosed && points.size() > 1 && points.front() == points.back())
        points.pop_back();
}

void ModuleEntities::WritePoints(StyleId style, std::vector<Point2>& points, bool isClosed)
{
    RoundPoints(points, isClosed, m_out.decimals);
    if (points.size() < 2)
        return;
    if (points.size() == 2)
        return WriteLine(style, points[0], points[1]);
    BeginPolyline(style, kOwnWeight, isClosed);
    WriteVertices(points, m_out.decimals);
}

void ModuleEntities::BeginPolyline(StyleId style, std::int32_t weight, bool isClosed)
{
    if (weight == kOwnWeight) {
        Begin("LWPOLYLINE", style);
    } else {
        m_out.pairs.Text(0, "LWPOLYLINE");
        m_out.pairs.Raw(m_out.styles.OfLetters(style));
        m_out.pairs.Integer(370, weight);
    }
    if (isClosed)
        m_out.pairs.Integer(70, 1);
}

void ModuleEntities::WriteVertices(const std::vector<Point2>& points, int decimals)
{
    for (const Point2& point : points) {
        m_out.pairs.Fixed(10, point.x, decimals);
        m_out.pairs.Fixed(20, point.y, decimals);
    }
}

// A stroke that is shorter than a step of the coordinates is seen by its width, but an area has none: a small
// one needs more decimals.
int ModuleEntities::DecimalsOfArea(std::span<const std::vector<Point2>> rings) const
{
    constexpr double kStepsAcross = 500;
    constexpr int kMostMore = 4, kMost = 15;
    Box box;
    for (const std::vector<Point2>& ring : rings)
        for (const Point2 point : ring)
            box.Add(point);
    const double wanted = std::ceil(std::log10(kStepsAcross / (m_out.factor * box.LongerSide())));
    if (!(wanted > m_out.decimals))
        return m_out.decimals;
    return std::min({wanted < kMost ? static_cast<int>(wanted) : kMost, m_out.decimals + kMostMore, kMost});
}

// Leaves the ring as it is written in m_points; false when it is too small to be seen.
bool ModuleEntities::TakeRing(const std::vector<Point2>& ring, int decimals)
{
    m_points.clear();
    for (const Point2 point : ring)
        m_points.push_back(Local(point));
    RoundPoints(m_points, true, decimals);
    return m_points.size() > 2;
}

std::vector<AreaStroke> ModuleEntities::StrokesOver(std::span<const std::vector<Point2>> rings, int decimals)
{
    std::vector<std::vector<Point2>> written;
    for (const std::vector<Point2>& ring : rings)
        if (TakeRing(ring, decimals))
            written.push_back(m_points);
    return CoverArea(written, m_out.coveringStroke, m_out.fills.spareLooks);
}

void ModuleEntities::WriteAreaBlock(StyleId style, std::span<const std::vector<Point2>> rings,
                                    std::string_view prefix)
{
    bool hasBegun = false;
    const int decimals = DecimalsOfArea(rings);
    std::vector<AreaStroke> strokes;
    if (m_out.coveringStroke > 0 && prefix == kFillPrefix)
        strokes = StrokesOver(rings, decimals);
    constexpr std::int32_t kThinnest = 1; // where strokes cover the area, its edges are not to be seen
    for (const std::vector<Point2>& ring : rings) {
        if (!TakeRing(ring, decimals))
            continue;
        if (!hasBegun) {
            m_out.pairs.Text(0, "BLOCK");
            m_out.pairs.Text(2, AreaName(prefix, ++m_out.fills.blocks));
        }
        hasBegun = true;
        BeginPolyline(style, strokes.empty() ? kOwnWeight : kThinnest, true);
        WriteVertices(m_points, decimals);
    }
    for (AreaStroke& stroke : strokes) {
        RoundPoints(stroke.points, false, decimals);
        if (stroke.points.size() < 2)
            continue;
        BeginPolyline(style, stroke.width, false);
        WriteVertices(stroke.points, decimals);
    }
    if (hasBegun)
        m_out.pairs.Text(0, "ENDBLK");
}

void ModuleEntities::Fill(StyleId style, std::span<const std::vector<Point2>> rings)
{
    InsertArea(m_out.layers.Of(style), rings, kFillPrefix);
}

void ModuleEntities::Mask(StyleId, std::span<const std::vector<Point2>> rings)
{
    InsertArea(0, rings, kMaskPrefix);
}

void ModuleEntities::InsertArea(LayerNumber layer, std::span<const std::vector<Point2>> rings,
                                std::string_view prefix)
{
    const int decimals = DecimalsOfArea(rings);
    if (std::none_of(rings.begin(), rings.end(), [&](const auto& ring) { return TakeRing(ring, decimals); }))
        return;
    UseLayer(layer);
    m_out.pairs.Text(0, "INSERT");
    m_out.pairs.Text(2, AreaName(prefix, ++m_out.fills.inserts));
}

ModuleLine ModuleLineOf(StyleId style, const LoggedText& text, const TextPlace& place, double factor,
                        int decimals, TextLoss& loss)
{
    ModuleRun run{ModuleTextOf(style, text, place, factor, decimals, loss)};
    if (MustStartAtItsPlace(text, place)) {
        const double capitals = factor * place.size / kFontSizeOfCapitals;
        run.origin = std::exchange(run.text.anchor, Anchor::Start);
        run.x = RoundedTo(-ShareBefore(run.origin) * TextWidth(text.text) * capitals, decimals);
    }
    return {std::move(run)};
}

ModuleLine ModuleLineOf(Point2 point, double spread, std::span<const LoggedRun> runs, const TextPlace& place,
                        double factor, int decimals, TextLoss& loss)
{
    const LoggedText& first = runs.front().text;
    const double capitals = factor * place.size / kFontSizeOfCapitals, area = Cross(first.along, first.up);
    const bool mustStart = std::all_of(
        runs.begin(), runs.end(), [&](const LoggedRun& run) { return MustStartAtItsPlace(run.text, place); });
    ModuleLine line;
    for (const LoggedRun& run : runs) {
        const double share = Length(run.text.along) / Length(first.along);
        TextPlace own = place;
        own.size = place.size * share;
        ModuleText text = ModuleTextOf(run.style, run.text, own, factor, decimals, loss);
        text.value.append(std::min(run.blanks, kLongestValue - text.value.size()), ' ');
        const Point2 from = run.text.point - point;
        double x = Cross(from, first.up) / area;
        if (mustStart)
            x -= ShareBefore(std::exchange(text.anchor, Anchor::Start)) * TextWidth(run.text.text) * share;
        const double y = Cross(first.along, from) / area;
        line.push_back(
            {std::move(text), RoundedTo(x * capitals, decimals), RoundedTo(y * capitals, decimals)});
    }
    line.front().origin = mustStart ? first.anchor : Anchor::Start;
    line.front().spread = ThousandthsOfFont(spread);
    return line;
}

void ModuleEntities::Tell(const TextLoss& loss)
{
    if (loss.isCut)
        m_out.report.Add(Finding::Cut, "TEXT", "its letters beyond 1000 bytes are left out", 0);
    if (loss.isReplaced)
        m_out.report.Add(Finding::Changed, "TEXT", "without letters that the system's code page lacks", 0);
}

void ModuleEntities::Text(StyleId style, const LoggedText& text)
{
    const TextPlace place = TextPlaceForModule(text.along, text.up);
    TextLoss loss;
    const ModuleLine line = ModuleLineOf(style, text, place, m_out.factor, m_out.decimals, loss);
    Tell(loss);
    UseLayer(m_out.layers.Of(style));
    if (place.isUpright)
        return WriteModuleText(m_out.pairs, m_out.styles, line.front().text, Local(text.point),
                               m_out.decimals);
    InsertText(m_out.texts.NameOf(line, place.innerRotation), text.point, place);
}

void ModuleEntities::LineOfText(Point2 point, double spread, std::span<const LoggedRun> runs)
{
    const TextPlace place = TextPlaceForModule(runs.front().text.along, runs.front().text.up);
    TextLoss loss;
    const ModuleLine line = ModuleLineOf(point, spread, runs, place, m_out.factor, m_out.decimals, loss);
    Tell(loss);
    UseLayer(m_out.layers.Of(runs.front().style));
    InsertText(m_out.texts.NameOf(line, place.innerRotation), point, place);
}

void ModuleEntities::InsertText(const std::string& block, Point2 point, const TextPlace& place)
{
    m_out.pairs.Text(0, "INSERT");
    m_out.pairs.Text(2, block);
    Point(10, Local(point));
    constexpr int kScaleDecimals = 6;
    if (const double scale = RoundedTo(place.scaleX, kScaleDecimals); scale != 1)
        m_out.pairs.Fixed(41, scale, kScaleDecimals);
    if (const double scale = RoundedTo(place.scaleY, kScaleDecimals); scale != 1)
        m_out.pairs.Fixed(42, scale, kScaleDecimals);
    m_out.pairs.Fixed(50, DegreesOf(place.rotation), kRotationDecimals);
}

void ModuleEntities::Insert(std::size_t block, Point2 point, double rotation, bool isMirrored)
{
    const ModuleBlock& used = m_out.blocks[block];
    if (used.name.empty())
        return;
    // Where the origin of the written block comes to.
    const Point2 inBlock = isMirrored ? Point2{used.origin.x, -used.origin.y} : used.origin;
    const double cosine = std::cos(rotation), sine = std::sin(rotation);
    const Point2 moved = {cosine * inBlock.x - sine * inBlock.y, sine * inBlock.x + cosine * inBlock.y};
    UseLayer(m_out.layers.OfBlock(block));
    m_out.pairs.Text(0, "INSERT");
    m_out.pairs.Text(2, used.name);
    Point(10, Local(point + moved));
    if (isMirrored)
        m_out.pairs.Integer(42, -1);
    if (const double degrees = RoundedTo(DegreesOf(rotation), kRotationDecimals); degrees != 0)
        m_out.pairs.Fixed(50, degrees, kRotationDecimals);
}

} // namespace prepare
