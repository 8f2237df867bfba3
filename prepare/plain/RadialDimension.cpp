#include "prepare/plain/RadialDimension.h"

#include "prepare/plain/DimensionArrows.h"
#include "prepare/plain/DimensionText.h"

#include <algorithm>

namespace prepare {

namespace {

// Radii and diameters: a line along a radius, and a text on it or beside a leader.
class RadialDrawing {
public:
    RadialDrawing(DimensionPen& pen, Point2 centre, Point2 tip, bool isDiameter);

    void Draw();

private:
    void PlaceLabel();
    bool IsParallel() const { return std::fabs(Cross(m_label.along, m_outward)) < 1e-6; }
    bool IsAlong() const;
    void DrawOutside();
    void DrawHook(Point2 toward);
    void DrawAlong(Point2 toward);
    void DrawInside();
    void DrawCentre();
    void DrawBackArrow();

    DimensionPen& m_pen;
    const DimensionStyle& m_style;
    Point2 m_centre;
    Point2 m_tip;
    Point2 m_outward; // from the centre to the tip
    double m_radius = 0;
    bool m_isDiameter = false;
    DimensionArrow m_arrow;
    DimensionLabel m_label;
    bool m_isInside = true;
};

RadialDrawing::RadialDrawing(DimensionPen& pen, Point2 centre, Point2 tip, bool isDiameter)
    : m_pen(pen), m_style(pen.Style()), m_centre(centre), m_tip(tip), m_outward(Unit(tip - centre, {1, 0})),
      m_radius(Length(tip - centre)), m_isDiameter(isDiameter), m_arrow(FirstArrowOf(pen)),
      m_label(pen.Label(isDiameter ? pen.ValueText(Quantity::Diameter, 2 * m_radius)
                                   : pen.ValueText(Quantity::Radius, m_radius)))
{
}

void RadialDrawing::PlaceLabel()
{
    const bool isGiven = m_pen.HasTextPoint();
    if (isGiven) {
        m_label.centre = m_pen.TextPoint();
        m_isInside = Length(m_label.centre - m_centre) <= m_radius;
        // The end of a diameter that is nearer to the text is the one with the leader.
        if (m_isDiameter && !m_isInside && Dot(m_label.centre - m_centre, m_outward) < 0) {
            m_outward = -1 * m_outward;
            m_tip = m_centre + m_radius * m_outward;
        }
    }
    const double room = (m_isDiameter ? 2 : 1) * m_radius;
    m_label.along = m_pen.LabelDirection(m_style.isHorizontalInside != 0, m_outward);
    if (!isGiven)
        m_isInside = m_style.keepsTextInside != 0 ||
                     room >= 2 * (m_label.ReachAlong(m_outward) + m_pen.Gap() + m_arrow.size);
    if (!m_isInside)
        m_label.along = m_pen.LabelDirection(m_style.isHorizontalOutside != 0, m_outward);
    if (isGiven)
        return;
    const double reach = m_label.ReachAlong(m_outward) + m_pen.Gap();
    const Point2 inside = m_isDiameter ? m_centre : m_centre + m_radius / 2 * m_outward;
    m_label.centre = m_isInside ? inside : m_tip + (2 * m_arrow.size + reach) * m_outward;
    if (IsParallel())
        m_label.centre = m_label.centre + m_pen.OffsetOf(m_label, true) * m_label.Up();
}

// Whether the text is on the ray or next to it.
bool RadialDrawing::IsAlong() const
{
    const double away = std::fabs(Cross(m_outward, m_label.centre - m_tip));
    return IsParallel() && away <= m_label.height / 2 + m_pen.Gap() + m_style.textHeight / 2;
}

// The line ends below the text if that is above it, else before it.
void RadialDrawing::DrawAlong(Point2 toward)
{
    const Passage passage = PassageThrough(m_label, 0.99 * m_pen.Gap(), m_tip, toward);
    const double reach = m_label.ReachAlong(toward);
    const double to = passage.IsEmpty() ? Dot(m_label.centre - m_tip, toward) + reach : passage.from;
    if (to > m_arrow.inset)
        m_pen.Line(m_tip + m_arrow.inset * toward, m_tip + to * toward);
    DrawArrow(m_pen, m_arrow, m_tip, -1 * toward);
}

// A leader to a text that is not along it ends in a short line towards the text, or under it.
void RadialDrawing::DrawHook(Point2 toward)
{
    const Point2 from = m_label.centre - m_tip;
    const double side = Dot(from, m_label.along) < 0 ? -1 : 1;
    const Point2 toText = side * m_label.along;
    const bool isUnder = m_style.placement != 0;
    const double half = m_label.width / 2 + m_pen.Gap();
    const double drop = isUnder ? m_label.height / 2 + m_pen.Gap() : 0;
    const Point2 level = m_label.centre - drop * m_label.Up();
    const Point2 start = level - half * toText;
    Point2 elbow = start - m_style.arrowSize * toText;
    if (Dot(elbow - m_tip, toText) < 0 && !isUnder)
        elbow = start;
    const Point2 direction = Unit(elbow - m_tip, toward);
    if (Length(elbow - m_tip) > m_arrow.inset)
        m_pen.Line(m_tip + m_arrow.inset * direction, elbow);
    m_pen.Line(elbow, isUnder ? level + half * toText : start);
    DrawArrow(m_pen, m_arrow, m_tip, -1 * direction);
}

// An arrow from outside to the other end of a diameter.
void RadialDrawing::DrawBackArrow()
{
    const Point2 tip = m_centre - m_radius * m_outward;
    if (!m_arrow.isStroke)
        m_pen.Line(tip - m_arrow.inset * m_outward, tip - 2 * m_arrow.size * m_outward);
    DrawArrow(m_pen, SecondArrowOf(m_pen), tip, m_outward);
}

void RadialDrawing::DrawOutside()
{
    if (m_style.drawsLineInside != 0) {
        m_pen.Line(m_isDiameter ? m_centre - m_radius * m_outward : m_centre, m_tip);
        if (m_isDiameter)
            DrawBackArrow();
    } else {
        DrawCentre();
    }
    IsAlong() ? DrawAlong(m_outward) : DrawHook(m_outward);
}

void RadialDrawing::DrawInside()
{
    if (m_isDiameter) {
        const DimensionArrow second = SecondArrowOf(m_pen);
        const Point2 other = m_centre - m_radius * m_outward;
        m_pen.LineAround(m_label, other + second.inset * m_outward, m_tip - m_arrow.inset * m_outward);
        DrawArrow(m_pen, m_arrow, m_tip, m_outward);
        return DrawArrow(m_pen, second, other, -1 * m_outward);
    }
    if (m_style.drawsLineInside == 0)
        return IsAlong() ? DrawAlong(-1 * m_outward) : DrawHook(-1 * m_outward);
    m_pen.LineAround(m_label, m_centre, m_tip - m_arrow.inset * m_outward);
    DrawArrow(m_pen, m_arrow, m_tip, m_outward);
}

// A cross, and with a negative size lines past the circle as well.
void RadialDrawing::DrawCentre()
{
    const double size = std::fabs(m_style.centreMark);
    if (!(size > 0))
        return;
    for (const Point2 axis : {Point2{1, 0}, Point2{0, 1}}) {
        m_pen.Line(m_centre - size * axis, m_centre + size * axis);
        for (const double side : {-1.0, 1.0})
            if (m_style.centreMark < 0 && m_radius > size)
                m_pen.Line(m_centre + 2 * size * side * axis, m_centre + (m_radius + size) * side * axis);
    }
}

void RadialDrawing::Draw()
{
    if (!(m_radius > 0) || !std::isfinite(m_radius))
        return m_pen.Report(Finding::NotShown, "it measures no length");
    PlaceLabel();
    m_pen.UseLine();
    if (m_label.IsEmpty()) {
        m_pen.Line(m_isDiameter ? m_centre - m_radius * m_outward : m_centre,
                   m_tip - m_arrow.inset * m_outward);
        return DrawArrow(m_pen, m_arrow, m_tip, m_outward);
    }
    m_isInside ? DrawInside() : DrawOutside();
    m_pen.Text(m_label);
}

} // namespace

void DrawRadialDimension(DimensionPen& pen)
{
    const Dimension& dimension = pen.Entity();
    RadialDrawing(pen, pen.Local(dimension.definition), pen.Local(dimension.points[2]), false).Draw();
}

void DrawDiametricDimension(DimensionPen& pen)
{
    const Dimension& dimension = pen.Entity();
    const Point2 far = pen.Local(dimension.definition), near = pen.Local(dimension.points[2]);
    RadialDrawing(pen, 0.5 * (far + near), near, true).Draw();
}

// Two parallel lines, from a centre that replaces the real one and to the arc, with a jog between them.
void DrawJoggedDimension(DimensionPen& pen)
{
    const Dimension& dimension = pen.Entity();
    const DimensionStyle& style = pen.Style();
    const Point2 centre = pen.Local(dimension.definition), shown = pen.Local(dimension.points[0]);
    const Point2 jog = pen.Local(dimension.points[1]), tip = pen.Local(dimension.points[2]);
    const double radius = Length(tip - centre);
    if (!(radius > 0) || !std::isfinite(radius))
        return pen.Report(Finding::NotShown, "it measures no length");
    const Point2 outward = (1 / radius) * (tip - centre);
    DimensionLabel label = pen.Label(pen.ValueText(Quantity::Radius, radius));
    label.centre = pen.HasTextPoint() ? pen.TextPoint() : 0.5 * (jog + tip);
    label.along = pen.LabelDirection(style.isHorizontalInside != 0, outward);
    const double distance = std::fabs(Cross(outward, shown - tip)), slope = std::tan(style.jogAngle);
    const double back = slope > 1e-3 ? distance / (2 * slope) : 0;
    const auto at = [&](Point2 on, double along) { return on + (Dot(jog - on, outward) + along) * outward; };
    const DimensionArrow arrow = FirstArrowOf(pen);
    pen.UseLine();
    pen.LineAround(label, shown, at(shown, back));
    pen.LineAround(label, at(shown, back), at(tip, -back));
    pen.LineAround(label, at(tip, -back), tip - arrow.inset * outward);
    DrawArrow(pen, arrow, tip, outward);
    pen.Text(label);
}

} // namespace prepare
