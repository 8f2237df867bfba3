#include "prepare/plain/DrawMultiLine.h"

#include "prepare/plain/AreaFiller.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace prepare {

namespace {

enum MultiLineFlag : std::int32_t { kClosedLine = 2, kNoStartCap = 4, kNoEndCap = 8 };
enum StyleFlag : std::int32_t {
    kFilled = 1,
    kJoints = 2,
    kStraightStart = 16,
    kInnerStart = 32,
    kRoundStart = 64,
    kStraightEnd = 256,
    kInnerEnd = 512,
    kRoundEnd = 1024
};

const MultiLineStyle* StyleOf(const MultiLine& multiLine, const Drawing& drawing)
{
    auto found = drawing.multiLineStyles.find(multiLine.style);
    const auto byHandle = drawing.multiLineStyleOfHandle.find(multiLine.styleHandle);
    if (found == drawing.multiLineStyles.end() && byHandle != drawing.multiLineStyleOfHandle.end())
        found = drawing.multiLineStyles.find(byHandle->second);
    return found == drawing.multiLineStyles.end() ? nullptr : &found->second;
}

// One end of the lines.
struct End {
    const MultiLineVertex& vertex;
    Point3 outward; // away from the lines
};

class MultiLineDrawer {
public:
    MultiLineDrawer(const MultiLine& multiLine, Pen& pen);

    void Draw();

private:
    bool IsClosed() const { return (m_multiLine.flags & kClosedLine) != 0; }
    // Whether the file says where the element crosses the vertex's mitre.
    bool IsAt(const MultiLineVertex& vertex, std::size_t element) const;
    Point3 At(const MultiLineVertex& vertex, std::size_t element) const;
    Point2 Flat(Point3 point) const { return m_pen.Place().matrix.Flat(point); }

    void UseStyleOf(std::size_t element);
    void DrawElement(std::size_t element);
    void AddSegment(const MultiLineVertex& from, const MultiLineVertex& to, std::size_t element);
    void EndRun();
    // Two halves, of the outer elements' colours.
    void DrawAcross(const MultiLineVertex& vertex);
    // Half an ellipse from one point to the other, away from the lines; false where it has no size.
    bool RoundBetween(const End& end, Point3 first, Point3 last, EllipticArc& arc) const;
    void DrawRound(const End& end, std::size_t element);
    void DrawCap(const End& end, bool isStraight, bool isRound, bool hasInner);
    void DrawCaps();
    void DrawJoints();
    // Where the outermost elements cross the vertex's mitre.
    std::pair<Point3, Point3> OutermostAt(const MultiLineVertex& vertex) const;
    std::vector<Point2> OutlineOf(std::size_t segment, bool isRoundAtStart, bool isRoundAtEnd);
    void AddRound(const End& end, Point3 first, Point3 last, std::vector<Point2>& outline);
    void FillBetween();

    const MultiLine& m_multiLine;
    Pen& m_pen;
    const MultiLineStyle* m_style;
    std::size_t m_elements;
    std::vector<Point2> m_run; // of an element, not drawn yet
};

MultiLineDrawer::MultiLineDrawer(const MultiLine& multiLine, Pen& pen)
    : m_multiLine(multiLine), m_pen(pen), m_style(StyleOf(multiLine, pen.Place().drawing)), m_elements(0)
{
    for (const MultiLineVertex& vertex : multiLine.vertices)
        m_elements = std::max(m_elements, vertex.parameters.size());
}

bool MultiLineDrawer::IsAt(const MultiLineVertex& vertex, std::size_t element) const
{
    return element < vertex.parameters.size() && !vertex.parameters[element].empty();
}

Point3 MultiLineDrawer::At(const MultiLineVertex& vertex, std::size_t element) const
{
    return IsAt(vertex, element) ? vertex.point + vertex.parameters[element].front() * vertex.mitre
                                 : vertex.point;
}

void MultiLineDrawer::UseStyleOf(std::size_t element)
{
    if (m_style == nullptr || element >= m_style->elements.size()) {
        m_pen.UseOwnStyle();
        return;
    }
    const MultiLineStyle::Element& itsStyle = m_style->elements[element];
    m_pen.UseStyleOf({itsStyle.colour, itsStyle.trueColour, itsStyle.lineType, kNoName});
}

void MultiLineDrawer::EndRun()
{
    if (m_run.size() == 2)
        m_pen.Line(m_run[0], m_run[1]);
    else
        m_pen.Polyline(m_run, false);
    m_run.clear();
}

// After the place on the mitre an element has the lengths at which it begins, ends, begins again, and so on;
// what it has begun reaches to the next mitre.
void MultiLineDrawer::AddSegment(const MultiLineVertex& from, const MultiLineVertex& to, std::size_t element)
{
    const Point3 start = At(from, element), end = At(to, element);
    const double length = Length(from.direction);
    const Point3 step = length > 0 ? (1 / length) * from.direction : Point3{};
    if (m_run.empty())
        m_run.push_back(Flat(start));
    if (IsAt(from, element)) {
        const std::vector<double>& parameters = from.parameters[element];
        for (std::size_t i = 1; i < parameters.size(); ++i) {
            if (i == 1 && parameters[i] == 0)
                continue;
            const Point2 place = Flat(start + parameters[i] * step);
            const bool begins = i % 2 == 1;
            if (begins) {
                m_run.clear();
                m_run.push_back(place);
            } else {
                m_run.push_back(place);
                EndRun();
            }
        }
    }
    if (!m_run.empty())
        m_run.push_back(Flat(end));
}

void MultiLineDrawer::DrawElement(std::size_t element)
{
    const auto& vertices = m_multiLine.vertices;
    UseStyleOf(element);
    for (std::size_t i = 0; i + 1 < vertices.size(); ++i)
        AddSegment(vertices[i], vertices[i + 1], element);
    if (IsClosed() && vertices.size() > 2)
        AddSegment(vertices.back(), vertices.front(), element);
    const bool isRing = IsClosed() && m_run.size() == vertices.size() + 1 && m_run.front() == m_run.back();
    if (!isRing) {
        EndRun();
        return;
    }
    m_run.pop_back();
    m_pen.Polyline(m_run, true);
    m_run.clear();
}

void MultiLineDrawer::DrawAcross(const MultiLineVertex& vertex)
{
    const Point3 first = At(vertex, 0), last = At(vertex, m_elements - 1);
    const Point2 middle = Flat(0.5 * (first + last));
    UseStyleOf(0);
    m_pen.Line(Flat(first), middle);
    UseStyleOf(m_elements - 1);
    m_pen.Line(middle, Flat(last));
}

bool MultiLineDrawer::RoundBetween(const End& end, Point3 first, Point3 last, EllipticArc& arc) const
{
    const Point3 middle = 0.5 * (first + last), radius = first - middle;
    const double square = Dot(radius, radius);
    if (!(square > 0))
        return false;
    Point3 outward = end.outward - (Dot(end.outward, radius) / square) * radius;
    const double length = Length(outward);
    if (!(length > 0))
        return false;
    outward = (std::sqrt(square) / length) * outward;
    const Matrix& matrix = m_pen.Place().matrix;
    arc = {Flat(middle), matrix.FlatDirection(radius), matrix.FlatDirection(outward), 0, kTurn / 2};
    return true;
}

// From an element to the one that is as far from the other side, in the colours of both.
void MultiLineDrawer::DrawRound(const End& end, std::size_t element)
{
    const std::size_t opposite = m_elements - 1 - element;
    EllipticArc arc;
    if (!RoundBetween(end, At(end.vertex, element), At(end.vertex, opposite), arc))
        return;
    arc.end = kTurn / 4;
    UseStyleOf(element);
    m_pen.Arc(arc);
    arc.start = kTurn / 4;
    arc.end = kTurn / 2;
    UseStyleOf(opposite);
    m_pen.Arc(arc);
}

void MultiLineDrawer::DrawCap(const End& end, bool isStraight, bool isRound, bool hasInner)
{
    if (isStraight)
        DrawAcross(end.vertex);
    if (isRound)
        DrawRound(end, 0);
    for (std::size_t element = 1; hasInner && element < m_elements / 2; ++element)
        DrawRound(end, element);
}

void MultiLineDrawer::DrawCaps()
{
    const auto& vertices = m_multiLine.vertices;
    const auto has = [this](StyleFlag flag) { return (m_style->flags & flag) != 0; };
    if ((m_multiLine.flags & kNoStartCap) == 0) {
        const Point3 outward = vertices[0].point - vertices[1].point;
        DrawCap({vertices.front(), outward}, has(kStraightStart), has(kRoundStart), has(kInnerStart));
    }
    if ((m_multiLine.flags & kNoEndCap) == 0) {
        const Point3 outward = vertices.back().point - vertices[vertices.size() - 2].point;
        DrawCap({vertices.back(), outward}, has(kStraightEnd), has(kRoundEnd), has(kInnerEnd));
    }
}

void MultiLineDrawer::DrawJoints()
{
    const auto& vertices = m_multiLine.vertices;
    const std::size_t skipped = IsClosed() ? 0 : 1;
    for (std::size_t i = skipped; i + skipped < vertices.size(); ++i)
        DrawAcross(vertices[i]);
}

std::pair<Point3, Point3> MultiLineDrawer::OutermostAt(const MultiLineVertex& vertex) const
{
    double least = HUGE_VAL, most = -HUGE_VAL;
    const auto add = [&](double place) {
        least = std::min(least, place);
        most = std::max(most, place);
    };
    for (const std::vector<double>& parameters : vertex.parameters)
        add(parameters.empty() ? 0 : parameters.front());
    if (vertex.parameters.size() < m_elements)
        add(0);
    return {vertex.point + least * vertex.mitre, vertex.point + most * vertex.mitre};
}

void MultiLineDrawer::AddRound(const End& end, Point3 first, Point3 last, std::vector<Point2>& outline)
{
    EllipticArc arc;
    if (!RoundBetween(end, first, last, arc) || !arc.IsDrawable())
        return;
    Flatten(arc, m_pen.Curves().Tolerance(), outline, m_pen.Curves());
    outline.pop_back(); // the other element
}

std::vector<Point2> MultiLineDrawer::OutlineOf(std::size_t segment, bool isRoundAtStart, bool isRoundAtEnd)
{
    const auto& vertices = m_multiLine.vertices;
    const MultiLineVertex& from = vertices[segment];
    const MultiLineVertex& to = vertices[(segment + 1) % vertices.size()];
    const auto [startLeast, startMost] = OutermostAt(from);
    const auto [endLeast, endMost] = OutermostAt(to);
    std::vector<Point2> outline{Flat(startMost)};
    if (isRoundAtStart)
        AddRound({from, from.point - to.point}, startMost, startLeast, outline);
    outline.push_back(Flat(startLeast));
    outline.push_back(Flat(endLeast));
    if (isRoundAtEnd)
        AddRound({to, to.point - from.point}, endLeast, endMost, outline);
    outline.push_back(Flat(endMost));
    return outline;
}

// The style's fill is under the lines.
void MultiLineDrawer::FillBetween()
{
    const std::size_t count = m_multiLine.vertices.size();
    const std::size_t segments = IsClosed() && count > 2 ? count : count - 1;
    const auto isRound = [this](StyleFlag round, MultiLineFlag hidden) {
        return !IsClosed() && (m_style->flags & round) != 0 && (m_multiLine.flags & hidden) == 0;
    };
    const bool isRoundAtStart = isRound(kRoundStart, kNoStartCap),
               isRoundAtEnd = isRound(kRoundEnd, kNoEndCap);
    m_pen.UseStyleOf({m_style->fillColour, m_style->fillTrueColour, kNoName, kNoName});
    AreaFiller filler(m_pen);
    for (std::size_t i = 0; i < segments && m_pen.HasRoom(); ++i)
        filler.Add(OutlineOf(i, isRoundAtStart && i == 0, isRoundAtEnd && i + 1 == segments), i > 0);
    filler.Fill();
}

void MultiLineDrawer::Draw()
{
    if (m_multiLine.vertices.size() < 2)
        return;
    if (m_style == nullptr)
        m_pen.Report(Finding::Changed, "its style is missing");
    if (m_elements == 0) {
        m_elements = 1;
        m_pen.Report(Finding::Changed, "its elements are missing: drawn as one line");
    }
    if (m_style != nullptr && (m_style->flags & kFilled) != 0 && m_elements > 1)
        FillBetween();
    for (std::size_t element = 0; element < m_elements && m_pen.HasRoom(); ++element)
        DrawElement(element);
    if (m_style == nullptr || m_elements < 2)
        return;
    if ((m_style->flags & kJoints) != 0)
        DrawJoints();
    if (!IsClosed())
        DrawCaps();
}

} // namespace

void DrawMultiLine(const MultiLine& multiLine, Pen& pen)
{
    MultiLineDrawer(multiLine, pen).Draw();
}

} // namespace prepare
