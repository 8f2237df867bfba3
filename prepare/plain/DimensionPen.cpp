#include "prepare/plain/DimensionPen.h"

#include "base/Pi.h"
#include "prepare/plain/Arrowheads.h"
#include "prepare/plain/DrawMText.h"
#include "prepare/plain/MTextLines.h"
#include "prepare/plain/TextMetrics.h"
#include "prepare/plain/TextStyles.h"

#include <algorithm>
#include <array>
#include <utility>

namespace prepare {

namespace {

constexpr std::int32_t kPlacedByUser = 128; // of a dimension's kind

// Narrows a passage to where start + t * step lies between -half and half.
void Narrow(Passage& passage, double start, double step, double half)
{
    if (step == 0) {
        if (std::fabs(start) >= half)
            passage.to = passage.from;
        return;
    }
    const double a = (-half - start) / step, b = (half - start) / step;
    passage.from = std::max(passage.from, std::min(a, b));
    passage.to = std::min(passage.to, std::max(a, b));
}

bool IsInside(const DimensionLabel& label, double gap, Point2 point)
{
    const Point2 from = point - label.centre;
    return std::fabs(Dot(from, label.along)) < label.width / 2 + gap &&
           std::fabs(Dot(from, label.Up())) < label.height / 2 + gap;
}

// Angles at which a circle crosses the line at that distance from the label's centre, seen along normal.
void AddCrossings(Point2 fromLabel, double radius, Point2 normal, double distance,
                  std::vector<double>& angles)
{
    const double cosine = (distance - Dot(fromLabel, normal)) / radius;
    if (!(std::fabs(cosine) < 1))
        return;
    const double middle = std::atan2(normal.y, normal.x), half = std::acos(cosine);
    angles.push_back(middle - half);
    angles.push_back(middle + half);
}

} // namespace

double DimensionLabel::ReachAlong(Point2 direction) const
{
    return (std::fabs(Dot(direction, along)) * width + std::fabs(Dot(direction, Up())) * height) / 2;
}

Passage PassageThrough(const DimensionLabel& label, double gap, Point2 start, Point2 direction)
{
    Passage passage{-HUGE_VAL, HUGE_VAL};
    const Point2 from = start - label.centre;
    Narrow(passage, Dot(from, label.along), Dot(direction, label.along), label.width / 2 + gap);
    Narrow(passage, Dot(from, label.Up()), Dot(direction, label.Up()), label.height / 2 + gap);
    return passage;
}

DimensionPen::DimensionPen(const Dimension& dimension, const Placement& placement, const PartStyler& styleOf,
                           const BlockPlacer& placeBlock)
    : m_dimension(dimension), m_placement(placement), m_styleOf(styleOf), m_placeBlock(placeBlock),
      m_pen(dimension, placement, styleOf),
      m_style(DimensionStyleOf(placement.drawing, dimension.style, dimension.overrides)),
      m_fromObject(FromObject(dimension.extrusion)),
      m_horizontal(Direction(-dimension.horizontalDirection * kRadiansPerDegree))
{
    const double elevation = Dot(dimension.definition, m_fromObject.z);
    m_toPlane = placement.matrix * m_fromObject * Moved({0, 0, elevation});
}

Point2 DimensionPen::Local(Point3 world) const
{
    return {Dot(world, m_fromObject.x), Dot(world, m_fromObject.y)};
}

// Straight up is readable, straight down is not. Rounding in files must not decide which of them it is.
Point2 DimensionPen::Readable(Point2 direction) const
{
    constexpr double kNearlyUpright = 1e-4;
    const double x = Dot(direction, m_horizontal), y = Cross(m_horizontal, direction);
    const bool isUpsideDown = x < -kNearlyUpright || (x <= kNearlyUpright && y < 0);
    return isUpsideDown ? -1 * direction : direction;
}

// Programs that leave the place of the text to others write the origin, or the definition point once more.
// Where they save drawings as R12, they may do so even of a text that they say a user has placed.
bool DimensionPen::HasTextPoint() const
{
    const bool isDefinition = TextPoint() == Local(m_dimension.definition);
    if (IsTextPlacedByUser())
        return !isDefinition || !IsUpToR12(m_placement.drawing.header);
    return !isDefinition && !(TextPoint() == Point2{});
}

bool DimensionPen::IsTextPlacedByUser() const
{
    return (m_dimension.kind & kPlacedByUser) != 0;
}

// Programs write 0 or -1 for what they did not measure, angles in degrees too, and lengths as the style
// scales them too.
bool DimensionPen::IsOtherThanStated(Quantity kind, double value) const
{
    const double stated = m_dimension.measurement;
    if (!m_dimension.hasMeasurement || !(stated > 0))
        return false;
    const std::string shown = DimensionText(m_style, kind, std::fabs(value), {});
    const auto isOther = [&](double number) {
        constexpr double kNearly = 1e-5;
        return !(std::fabs(std::fabs(value) - number) <= kNearly * number) &&
               DimensionText(m_style, kind, number, {}) != shown;
    };
    return isOther(stated) &&
           isOther(kind == Quantity::Angle ? stated * kRadiansPerDegree : stated / m_style.factor);
}

std::string DimensionPen::ValueText(Quantity kind, double value)
{
    std::string text = DimensionText(m_style, kind, value, m_dimension.text);
    const bool showsValue = m_dimension.text.empty() || m_dimension.text.find("<>") != std::string::npos;
    if (showsValue && IsOtherThanStated(kind, value))
        Report(Finding::Changed, "its number is not the one that the file states");
    return text;
}

DimensionLabel DimensionPen::Label(std::string text) const
{
    DimensionLabel label;
    if (text.empty() || !(m_style.textHeight > 0))
        return label;
    const TextStyle* const letters = m_placement.drawing.FindTextStyle(m_style.textStyle);
    RunLook look;
    look.height = m_style.textHeight;
    look.widthFactor = WidthFactorOf(letters != nullptr ? letters->widthFactor : 1);
    const std::string_view codePage = m_placement.drawing.header.Text("$DWGCODEPAGE");
    const std::vector<TextLine> lines = BreakIntoLines(ReadMText(text, look, codePage), 0);
    double below = 0;    // what of the line before is below its base line
    double distance = 1; // from there to the next one's, in its heights
    for (const TextLine& line : lines) {
        label.width = std::max(label.width, line.width);
        label.height += below + (line.ascent - line.height) + distance * line.height;
        below = line.descent;
        distance = kLineDistance;
    }
    label.height += below;
    label.text = std::move(text);
    return label;
}

Point2 DimensionPen::LabelDirection(bool isHorizontal, Point2 along) const
{
    if (m_dimension.textRotation != 0)
        return Direction((m_dimension.textRotation - m_dimension.horizontalDirection) * kRadiansPerDegree);
    return isHorizontal ? m_horizontal : Readable(along);
}

double DimensionPen::OffsetOf(const DimensionLabel& label, bool isOuterUp) const
{
    enum : std::int32_t { kOnLine = 0, kOuter = 2, kBelow = 4 };
    if (m_style.placement == kOnLine)
        return m_style.textOffset * m_style.textHeight;
    const double away = label.height / 2 + Gap();
    const bool isBelow = m_style.placement == kBelow || (m_style.placement == kOuter && !isOuterUp);
    return isBelow ? -away : away;
}

void DimensionPen::Use(std::int32_t colour, std::int32_t weight, NameId lineType)
{
    m_part.colour = colour;
    m_part.weight = weight;
    m_part.lineType = lineType;
    m_pen.UseStyleOf(m_part);
}

void DimensionPen::Line(Point2 start, Point2 end)
{
    if (!(start == end))
        m_pen.Line(m_toPlane.Flat({start.x, start.y, 0}), m_toPlane.Flat({end.x, end.y, 0}));
}

void DimensionPen::LineAround(const DimensionLabel& label, Point2 start, Point2 end)
{
    // A text above the line is one gap away from it: touching is not crossing.
    constexpr double kNearly = 0.99;
    Passage passage;
    if (!label.IsEmpty())
        passage = PassageThrough(label, kNearly * Gap(), start, end - start);
    passage.from = std::max(passage.from, 0.0);
    passage.to = std::min(passage.to, 1.0);
    if (passage.IsEmpty())
        return Line(start, end);
    if (passage.from > 0)
        Line(start, start + passage.from * (end - start));
    if (passage.to < 1)
        Line(start + passage.to * (end - start), end);
}

void DimensionPen::Arc(Point2 centre, double radius, double start, double sweep)
{
    EllipticArc arc;
    arc.centre = m_toPlane.Flat({centre.x, centre.y, 0});
    arc.u = m_toPlane.FlatDirection({radius, 0, 0});
    arc.v = m_toPlane.FlatDirection({0, radius, 0});
    arc.start = std::min(start, start + sweep);
    arc.end = std::max(start, start + sweep);
    m_pen.Arc(arc);
}

// The arc is cut where it crosses the sides of the label, and the pieces outside are drawn.
void DimensionPen::ArcAround(const DimensionLabel& label, Point2 centre, double radius, double start,
                             double sweep)
{
    constexpr double kNearly = 0.99;
    if (label.IsEmpty() || !(radius > 0))
        return Arc(centre, radius, start, sweep);
    const double gap = kNearly * Gap();
    std::vector<double> angles;
    for (const double side : {-1.0, 1.0}) {
        AddCrossings(centre - label.centre, radius, label.along, side * (label.width / 2 + gap), angles);
        AddCrossings(centre - label.centre, radius, label.Up(), side * (label.height / 2 + gap), angles);
    }
    const double first = std::min(start, start + sweep), last = std::max(start, start + sweep);
    for (double& angle : angles)
        angle = first + Wrapped(angle - first);
    angles.push_back(last);
    std::sort(angles.begin(), angles.end());
    double from = first, begin = first;
    for (const double angle : angles) {
        const double to = std::min(angle, last), middle = (from + to) / 2;
        if (IsInside(label, gap, centre + radius * Direction(middle))) {
            if (from > begin)
                Arc(centre, radius, begin, from - begin);
            begin = to;
        }
        from = to;
    }
    if (last > begin)
        Arc(centre, radius, begin, last - begin);
}

void DimensionPen::Extension(Point2 measured, Point2 foot)
{
    const double length = Length(foot - measured);
    if (!(length > 1e-9 * m_style.textHeight))
        return;
    const Point2 direction = (1 / length) * (foot - measured);
    double from = m_style.extensionOffset;
    if (m_style.hasFixedExtension != 0)
        from = std::max(from, length - m_style.fixedExtension);
    const double to = length + m_style.extensionBeyond;
    if (from < to)
        Line(measured + from * direction, measured + to * direction);
}

void DimensionPen::Arrowhead(std::string_view name, Point2 tip, Point2 direction, double size)
{
    const Point2 x = -size * direction, y = LeftOf(x);
    const NameId lineType = m_part.lineType; // of the line alone
    Use(m_part.colour, m_part.weight, kNoName);
    DrawArrowhead(name, m_toPlane.Flat({tip.x, tip.y, 0}), m_toPlane.FlatDirection({x.x, x.y, 0}),
                  m_toPlane.FlatDirection({y.x, y.y, 0}), m_pen);
    Use(m_part.colour, m_part.weight, lineType);
}

void DimensionPen::Block(const prepare::Block& block, Point2 at, Point2 direction, double size)
{
    const Matrix turn{{direction.x, direction.y, 0}, {-direction.y, direction.x, 0}, {0, 0, 1}, {}};
    const Matrix matrix =
        m_toPlane * Moved({at.x, at.y, 0}) * turn * Scaled({size, size, size}) * Moved(-1 * block.base);
    if (m_placeBlock)
        m_placeBlock(block, matrix, m_styleOf(m_part));
}

void DimensionPen::Text(const DimensionLabel& label)
{
    constexpr std::int32_t kMiddleCentre = 5;
    if (label.IsEmpty())
        return;
    if (!IsDrawable(label.centre) || !IsDrawable(label.along))
        return m_pen.Lose();
    MText text;
    text.line = m_dimension.line;
    text.typeName = m_dimension.typeName;
    text.extrusion = m_dimension.extrusion;
    const double elevation = Dot(m_dimension.definition, m_fromObject.z);
    text.point = m_fromObject.Apply({label.centre.x, label.centre.y, elevation});
    text.direction = m_fromObject.Direction({label.along.x, label.along.y, 0});
    text.hasDirection = true;
    text.height = m_style.textHeight;
    text.attachment = kMiddleCentre;
    text.style = m_style.textStyle;
    text.text = label.text;
    FillBehind(text);
    StyleOfPart part;
    part.colour = m_style.textColour;
    const Placement placement{m_placement.drawing, m_placement.matrix, m_styleOf(part),   m_placement.scale,
                              m_placement.sink,    m_placement.report, m_placement.budget};
    DrawMText(text, placement, m_styleOf, m_pen.TypeName());
    if (m_style.gap < 0)
        Frame(label);
}

void DimensionPen::FillBehind(MText& text) const
{
    constexpr std::int32_t kBackground = 1, kColour = 2; // of the style's
    constexpr std::int32_t kFilled = 1, kAsBackground = 3;
    if (m_style.textFill == kBackground)
        text.fill = kAsBackground;
    else if (m_style.textFill == kColour)
        text.fill = kFilled;
    text.fillColour = m_style.textFillColour;
    text.hasFillColour = true;
    text.fillScale = 1 + Gap() / text.height;
}

void DimensionPen::Frame(const DimensionLabel& label)
{
    const Point2 x = (label.width / 2 + Gap()) * label.along, y = (label.height / 2 + Gap()) * label.Up();
    const std::array corners{label.centre - x - y, label.centre + x - y, label.centre + x + y,
                             label.centre - x + y};
    std::array<Point2, 4> there;
    std::transform(corners.begin(), corners.end(), there.begin(), [this](Point2 corner) {
        return m_toPlane.Flat({corner.x, corner.y, 0});
    });
    UseLine();
    m_pen.Polyline(there, true);
}

} // namespace prepare
