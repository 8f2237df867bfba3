#include "prepare/plain/AngularDimension.h"

#include "prepare/plain/DimensionArrows.h"
#include "prepare/plain/DimensionText.h"

#include <algorithm>
#include <array>

namespace prepare {

namespace {

double AngleOf(Point2 vector)
{
    return std::atan2(vector.y, vector.x);
}

// The line of a dimension that is an arc, from start on by sweep, counter-clockwise.
struct ArcLine {
    Point2 centre;
    double radius = 0;
    double start = 0;
    double sweep = 0;

    Point2 At(double angle) const { return centre + radius * Direction(angle); }
};

// Draws that line with its arrowheads, broken where the text is. The first arrow is at start, unless the ends
// are swapped.
class ArcDrawing {
public:
    ArcDrawing(DimensionPen& pen, const ArcLine& line, bool isSwapped, std::string text);

    void Draw();
    const DimensionLabel& Label() const { return m_label; }

private:
    struct End {
        double angle = 0;
        double outward = 1; // the sign of angles past the end
        DimensionArrow arrow;
        bool isHidden = false;
    };

    bool HasPlace() const;
    void PlaceLabel();
    double Room(const End& end) const { return end.arrow.isStroke ? 0 : end.arrow.size; }
    // The angle that a chord of that length takes.
    double AngleOfChord(double chord) const
    {
        return 2 * std::asin(std::clamp(chord / (2 * m_line.radius), 0.0, 1.0));
    }
    void DrawMiddle();
    void DrawEnd(const End& end);

    DimensionPen& m_pen;
    const DimensionStyle& m_style;
    ArcLine m_line;
    std::array<End, 2> m_ends;
    DimensionLabel m_label;
    bool m_isInside = true;
    bool m_hasInnerArrows = true;
};

ArcDrawing::ArcDrawing(DimensionPen& pen, const ArcLine& line, bool isSwapped, std::string text)
    : m_pen(pen), m_style(pen.Style()), m_line(line), m_label(pen.Label(std::move(text)))
{
    const DimensionArrow first = FirstArrowOf(pen), second = SecondArrowOf(pen);
    const bool hides[] = {m_style.hidesLine1 != 0, m_style.hidesLine2 != 0};
    m_ends[0] = {line.start, -1, isSwapped ? second : first, hides[isSwapped ? 1 : 0]};
    m_ends[1] = {line.start + line.sweep, 1, isSwapped ? first : second, hides[isSwapped ? 0 : 1]};
    PlaceLabel();
    const double taken = m_isInside && !m_label.IsEmpty() ? m_label.width : 0;
    const double rooms = Room(m_ends[0]) + Room(m_ends[1]);
    m_hasInnerArrows = rooms == 0 || line.radius * line.sweep >= taken + 2 * pen.Gap() + rooms;
}

// Whether the file says where the text is. Some programs write a place far from the arc where the text has
// its usual one.
bool ArcDrawing::HasPlace() const
{
    if (!m_pen.HasTextPoint())
        return false;
    if (m_pen.IsTextPlacedByUser())
        return true;
    const double away = std::fabs(Length(m_pen.TextPoint() - m_line.centre) - m_line.radius);
    const double arrows = m_ends[0].arrow.size + m_ends[1].arrow.size;
    return away <= 2 * (m_label.width + m_label.height + arrows + m_pen.Gap());
}

// Where the file gives no place, in the middle of the arc.
void ArcDrawing::PlaceLabel()
{
    double angle = m_line.start + m_line.sweep / 2;
    const bool hasPlace = HasPlace();
    if (hasPlace) {
        m_label.centre = m_pen.TextPoint();
        angle = AngleOf(m_label.centre - m_line.centre);
        m_isInside = Wrapped(angle - m_line.start) <= m_line.sweep;
    }
    const bool isHorizontal = (m_isInside ? m_style.isHorizontalInside : m_style.isHorizontalOutside) != 0;
    const Point2 outward = Direction(angle);
    m_label.along = m_pen.LabelDirection(isHorizontal, LeftOf(outward));
    if (hasPlace)
        return;
    const bool isOuterUp = Dot(outward, m_label.Up()) >= 0;
    const bool isAlong = std::fabs(Dot(outward, m_label.along)) < 1e-6;
    const double offset = isAlong ? m_pen.OffsetOf(m_label, isOuterUp) : 0;
    m_label.centre = m_line.At(angle) + offset * m_label.Up();
}

void ArcDrawing::DrawMiddle()
{
    const double from = m_hasInnerArrows ? AngleOfChord(m_ends[0].arrow.inset) : 0;
    const double to = m_hasInnerArrows ? AngleOfChord(m_ends[1].arrow.inset) : 0;
    double split = m_line.sweep / 2;
    if (m_isInside && !m_label.IsEmpty())
        split = Wrapped(AngleOf(m_label.centre - m_line.centre) - m_line.start);
    const bool hidesStart = m_ends[0].isHidden, hidesEnd = m_ends[1].isHidden;
    const double begin = hidesStart ? split : from, end = hidesEnd ? split : m_line.sweep - to;
    if (end > begin)
        m_pen.ArcAround(m_label, m_line.centre, m_line.radius, m_line.start + begin, end - begin);
}

void ArcDrawing::DrawEnd(const End& end)
{
    const double side = m_hasInnerArrows ? -end.outward : end.outward; // on which the arrow lies
    const double inset = AngleOfChord(end.arrow.inset), tail = AngleOfChord(2 * end.arrow.size);
    if (!m_hasInnerArrows && !end.arrow.isStroke && tail > inset)
        m_pen.ArcAround(m_label, m_line.centre, m_line.radius, end.angle + side * inset,
                        side * (tail - inset));
    const Point2 tip = m_line.At(end.angle);
    const Point2 back = m_line.At(end.angle + side * AngleOfChord(end.arrow.size));
    const Point2 tangent = -side * LeftOf(Direction(end.angle));
    DrawArrow(m_pen, end.arrow, tip, end.arrow.isStroke ? tangent : Unit(tip - back, tangent));
}

void ArcDrawing::Draw()
{
    m_pen.UseLine();
    const bool isBroken = m_isInside && !m_label.IsEmpty() &&
                          std::fabs(Length(m_label.centre - m_line.centre) - m_line.radius) <
                              m_label.height / 2 + 0.99 * m_pen.Gap();
    if (m_hasInnerArrows || m_style.drawsLineInside != 0 || (m_isInside && !isBroken))
        DrawMiddle();
    for (const End& end : m_ends)
        if (!end.isHidden)
            DrawEnd(end);
    m_pen.Text(m_label);
}

// One side of an angle: a ray from its vertex, and what is measured on it.
struct Side {
    Point2 direction;
    double nearest = 0; // of what is measured, along the ray
    double farthest = 0;
    bool hidesExtension = false;
};

// From what is measured to the arc, unless that is drawn where the arc meets it.
void DrawSide(DimensionPen& pen, Point2 vertex, double radius, const Side& side)
{
    if (side.hidesExtension)
        return;
    const double from = radius > side.farthest ? std::max(side.farthest, 0.0) : side.nearest;
    if (radius > side.farthest || radius < side.nearest)
        pen.Extension(vertex + from * side.direction, vertex + radius * side.direction);
}

void DrawAngle(DimensionPen& pen, Point2 vertex, Point2 onArc, Side first, Side second, bool isSwapped)
{
    if (isSwapped)
        std::swap(first, second);
    ArcLine line;
    line.centre = vertex;
    line.radius = Length(onArc - vertex);
    line.start = AngleOf(first.direction);
    line.sweep = Wrapped(AngleOf(second.direction) - line.start);
    if (!(line.radius > 0) || !std::isfinite(line.radius))
        return pen.Report(Finding::NotShown, "its arc has no radius");
    pen.UseExtension(isSwapped ? 1 : 0);
    DrawSide(pen, vertex, line.radius, first);
    pen.UseExtension(isSwapped ? 0 : 1);
    DrawSide(pen, vertex, line.radius, second);
    const std::string text = pen.ValueText(Quantity::Angle, line.sweep);
    ArcDrawing(pen, line, isSwapped, text).Draw();
}

Side SideOf(Point2 vertex, Point2 direction, Point2 start, Point2 end)
{
    const double a = Dot(start - vertex, direction), b = Dot(end - vertex, direction);
    return {direction, std::min(a, b), std::max(a, b), false};
}

// The angle of two lines in which the point on the arc is: each line has two rays from where they meet.
void DrawBetweenLines(DimensionPen& pen, const std::array<Point2, 4>& ends, Point2 onArc)
{
    const Point2 u = Unit(ends[1] - ends[0], {}), v = Unit(ends[3] - ends[2], {});
    const double sine = Cross(u, v);
    if (!(std::fabs(sine) > 1e-9))
        return pen.Report(Finding::NotShown, "its lines do not meet");
    const Point2 vertex = ends[0] + (Cross(ends[2] - ends[0], v) / sine) * u;
    const Point2 arm = onArc - vertex;
    const Point2 first = Cross(arm, v) / sine < 0 ? -1 * u : u;
    const Point2 second = Cross(u, arm) / sine < 0 ? -1 * v : v;
    Side one = SideOf(vertex, first, ends[0], ends[1]), other = SideOf(vertex, second, ends[2], ends[3]);
    one.hidesExtension = pen.Style().hidesExtension1 != 0;
    other.hidesExtension = pen.Style().hidesExtension2 != 0;
    DrawAngle(pen, vertex, onArc, one, other, Cross(first, second) < 0);
}

void DrawByPoints(DimensionPen& pen, Point2 vertex, Point2 start, Point2 end, Point2 onArc)
{
    const Point2 first = Unit(start - vertex, {1, 0}), second = Unit(end - vertex, {1, 0});
    const double distances[] = {Length(start - vertex), Length(end - vertex)};
    const double from = AngleOf(first);
    const bool isSwapped = Wrapped(AngleOf(onArc - vertex) - from) > Wrapped(AngleOf(second) - from);
    DrawAngle(pen, vertex, onArc, {first, distances[0], distances[0], pen.Style().hidesExtension1 != 0},
              {second, distances[1], distances[1], pen.Style().hidesExtension2 != 0}, isSwapped);
}

// Arc lengths: the ends of the arc that is measured, and the line beside it.
class ArcLengthDrawing {
public:
    explicit ArcLengthDrawing(DimensionPen& pen);
    void Draw();

private:
    Point2 FootOf(Point2 end) const;
    void DrawSymbol(const DimensionLabel& label);

    DimensionPen& m_pen;
    Point2 m_centre;
    Point2 m_start; // counter-clockwise to m_end
    Point2 m_end;
    bool m_isSwapped = false;
    double m_radius = 0; // of the dimension line
    double m_sweep = 0;
};

ArcLengthDrawing::ArcLengthDrawing(DimensionPen& pen) : m_pen(pen)
{
    const Dimension& dimension = pen.Entity();
    m_centre = pen.Local(dimension.points[2]);
    m_start = pen.Local(dimension.points[0]);
    m_end = pen.Local(dimension.points[1]);
    const Point2 onLine = pen.Local(dimension.definition) - m_centre;
    m_radius = Length(onLine);
    const double from = AngleOf(m_start - m_centre);
    m_isSwapped = Wrapped(AngleOf(onLine) - from) > Wrapped(AngleOf(m_end - m_centre) - from);
    if (m_isSwapped)
        std::swap(m_start, m_end);
    m_sweep = Wrapped(AngleOf(m_end - m_centre) - AngleOf(m_start - m_centre));
}

// Below a right angle the extension lines are parallel, above it they come from the centre.
Point2 ArcLengthDrawing::FootOf(Point2 end) const
{
    const Point2 from = end - m_centre;
    const Point2 middle = Direction(AngleOf(m_start - m_centre) + m_sweep / 2);
    const double along = Dot(from, middle);
    const double square = along * along - Dot(from, from) + m_radius * m_radius;
    if (m_sweep >= Radians(90) || !(square >= 0))
        return m_centre + m_radius * Unit(from, {1, 0});
    return end + (std::sqrt(square) - along) * middle;
}

// An arc before the text or over it.
void ArcLengthDrawing::DrawSymbol(const DimensionLabel& label)
{
    enum : std::int32_t { kBefore = 0, kAbove = 1 };
    const std::int32_t place = m_pen.Style().arcSymbol;
    if (label.IsEmpty() || place < kBefore || place > kAbove)
        return;
    const double height = m_pen.Style().textHeight, angle = AngleOf(label.along);
    constexpr double kRadius = 0.8, kDrop = 0.4, kDistance = 0.2; // in heights of the text
    if (place == kBefore) {
        const Point2 left = (label.width / 2 + (kDistance + kRadius) * height) * label.along;
        const Point2 centre = label.centre - left - kDrop * height * label.Up();
        return m_pen.Arc(centre, kRadius * height, angle, Radians(180));
    }
    // As wide as the text: 60 degrees of a circle have a chord as long as its radius.
    const double rise = label.height / 2 + kDistance * height - std::sqrt(0.75) * label.width;
    m_pen.Arc(label.centre + rise * label.Up(), label.width, angle + Radians(60), Radians(60));
}

void ArcLengthDrawing::Draw()
{
    if (!(m_radius > 0) || !std::isfinite(m_radius) || !(m_sweep > 0))
        return m_pen.Report(Finding::NotShown, "its arc has no length");
    const DimensionStyle& style = m_pen.Style();
    const Point2 feet[] = {FootOf(m_start), FootOf(m_end)};
    m_pen.UseExtension(m_isSwapped ? 1 : 0);
    if ((m_isSwapped ? style.hidesExtension2 : style.hidesExtension1) == 0)
        m_pen.Extension(m_start, feet[0]);
    m_pen.UseExtension(m_isSwapped ? 0 : 1);
    if ((m_isSwapped ? style.hidesExtension1 : style.hidesExtension2) == 0)
        m_pen.Extension(m_end, feet[1]);
    ArcLine line;
    line.centre = m_centre;
    line.radius = m_radius;
    line.start = AngleOf(feet[0] - m_centre);
    line.sweep = Wrapped(AngleOf(feet[1] - m_centre) - line.start);
    const double measured = Length(m_start - m_centre) * m_sweep;
    ArcDrawing drawing(m_pen, line, m_isSwapped, m_pen.ValueText(Quantity::Length, measured));
    drawing.Draw();
    DrawSymbol(drawing.Label());
}

} // namespace

void DrawAngularDimension(DimensionPen& pen, bool isByLines)
{
    const Dimension& dimension = pen.Entity();
    const Point2 first = pen.Local(dimension.points[0]), second = pen.Local(dimension.points[1]);
    const Point2 third = pen.Local(dimension.points[2]), definition = pen.Local(dimension.definition);
    if (isByLines)
        DrawBetweenLines(pen, {first, second, third, definition}, pen.Local(dimension.points[3]));
    else
        DrawByPoints(pen, third, first, second, definition);
}

void DrawArcLengthDimension(DimensionPen& pen)
{
    ArcLengthDrawing(pen).Draw();
}

} // namespace prepare
