#include "prepare/plain/LinearDimension.h"

#include "prepare/plain/DimensionArrows.h"
#include "prepare/plain/DimensionText.h"

#include <algorithm>
#include <array>

namespace prepare {

namespace {

constexpr double kParallel = 1e-9; // the sine of what counts as no angle

// Dimensions with a straight line between two feet.
class LinearDrawing {
public:
    LinearDrawing(DimensionPen& pen, bool isAligned) : m_pen(pen), m_style(pen.Style())
    {
        FindFeet(isAligned);
        m_label = pen.Label(pen.ValueText(Quantity::Length, m_length));
    }

    void Draw();

private:
    struct End {
        Point2 measured;
        Point2 foot;
        Point2 outward;
        DimensionArrow arrow;
        bool hidesLine = false;
        bool hidesExtension = false;
    };

    void FindFeet(bool isAligned);
    void PlaceGivenLabel();
    void PlaceOwnLabel();
    void Decide();
    double RoomOfArrow(const End& end) const { return end.arrow.isStroke ? 0 : end.arrow.size; }
    double RoomOfArrows() const { return RoomOfArrow(m_ends[0]) + RoomOfArrow(m_ends[1]); }
    double AlongLine(Point2 point) const { return Dot(point - m_ends[0].foot, m_along); }
    bool HasMiddle() const;
    void DrawMiddle();
    void DrawOutside(std::size_t number);
    void DrawLeader();

    DimensionPen& m_pen;
    const DimensionStyle& m_style;
    std::array<End, 2> m_ends;
    Point2 m_along{1, 0}; // from the first foot to the second
    double m_length = 0;
    DimensionLabel m_label;
    bool m_isInside = true;  // the text is between the feet
    bool m_isBeside = true;  // and at the line, not moved away from it
    bool m_isOnLine = false; // and the line has to leave room for it
    bool m_hasInnerArrows = true;
};

Point2 Crossing(Point2 point, Point2 direction, Point2 linePoint, Point2 lineDirection)
{
    const double sine = Cross(direction, lineDirection);
    return point + (Cross(linePoint - point, lineDirection) / sine) * direction;
}

void LinearDrawing::FindFeet(bool isAligned)
{
    const Dimension& dimension = m_pen.Entity();
    const Point2 first = m_pen.Local(dimension.points[0]), second = m_pen.Local(dimension.points[1]);
    const double angle = Radians(dimension.rotation);
    const Point2 turned{std::cos(angle), std::sin(angle)};
    const Point2 line = isAligned ? Unit(second - first, turned) : turned;
    Point2 extension = LeftOf(line);
    if (dimension.oblique != 0) {
        const double slant = Radians(dimension.oblique);
        extension = std::cos(slant) * line + std::sin(slant) * LeftOf(line);
    }
    if (!(std::fabs(Cross(extension, line)) > kParallel))
        extension = LeftOf(line);
    const Point2 on = m_pen.Local(dimension.definition);
    const Point2 feet[] = {Crossing(first, extension, on, line), Crossing(second, extension, on, line)};
    m_length = Length(feet[1] - feet[0]);
    m_along = Unit(feet[1] - feet[0], line);
    m_ends[0] = {first, feet[0], -1 * m_along, {}, m_style.hidesLine1 != 0, m_style.hidesExtension1 != 0};
    m_ends[1] = {second, feet[1], m_along, {}, m_style.hidesLine2 != 0, m_style.hidesExtension2 != 0};
    m_ends[0].arrow = FirstArrowOf(m_pen);
    m_ends[1].arrow = SecondArrowOf(m_pen);
}

void LinearDrawing::PlaceGivenLabel()
{
    m_label.centre = m_pen.TextPoint();
    const double along = AlongLine(m_label.centre);
    m_isInside = along >= 0 && along <= m_length;
    const bool isHorizontal = (m_isInside ? m_style.isHorizontalInside : m_style.isHorizontalOutside) != 0;
    m_label.along = m_pen.LabelDirection(isHorizontal, m_along);
}

// In the middle or at an end where there is room, else beyond the second end.
void LinearDrawing::PlaceOwnLabel()
{
    enum : std::int32_t { kBothMove = 0, kTextMoves = 2 }; // what gives way first
    m_label.along = m_pen.LabelDirection(m_style.isHorizontalInside != 0, m_along);
    const double half = m_label.ReachAlong(m_along) + m_pen.Gap();
    const bool movesEarly = m_style.fit == kBothMove || m_style.fit == kTextMoves;
    m_isInside = m_style.keepsTextInside != 0 || m_length >= 2 * half + (movesEarly ? RoomOfArrows() : 0);
    double along = m_length / 2;
    if (!m_isInside) {
        m_label.along = m_pen.LabelDirection(m_style.isHorizontalOutside != 0, m_along);
        along = m_length + 2 * RoomOfArrow(m_ends[1]) + m_label.ReachAlong(m_along) + m_pen.Gap();
    } else if (m_style.justification == 1 || m_style.justification == 3) {
        along = std::min(along, RoomOfArrow(m_ends[0]) + half);
    } else if (m_style.justification == 2 || m_style.justification == 4) {
        along = std::max(along, m_length - RoomOfArrow(m_ends[1]) - half);
    }
    const Point2 away = m_ends[0].foot - m_ends[0].measured + m_ends[1].foot - m_ends[1].measured;
    const bool isAlong = std::fabs(Cross(m_label.along, m_along)) < 1e-6;
    const double offset = isAlong ? m_pen.OffsetOf(m_label, Dot(away, m_label.Up()) >= 0) : 0;
    m_label.centre = m_ends[0].foot + along * m_along + offset * m_label.Up();
}

void LinearDrawing::Decide()
{
    const double away = std::fabs(Cross(m_along, m_label.centre - m_ends[0].foot));
    const double reach = m_label.ReachAlong(LeftOf(m_along)) + m_pen.Gap();
    m_isBeside = m_label.IsEmpty() || away <= reach + m_style.textHeight / 2;
    m_isOnLine = !m_label.IsEmpty() && away < 0.99 * reach;
    const bool sharesRoom = !m_label.IsEmpty() && m_isInside && m_isBeside;
    const double taken = sharesRoom ? 2 * m_label.ReachAlong(m_along) : 0;
    m_hasInnerArrows = RoomOfArrows() == 0 || m_length >= taken + 2 * m_pen.Gap() + RoomOfArrows();
}

bool LinearDrawing::HasMiddle() const
{
    if (m_hasInnerArrows || m_style.drawsLineInside != 0 || !m_isBeside || m_label.IsEmpty())
        return true;
    return m_isInside && !m_isOnLine;
}

// Each half ends at the text's place when the other one is hidden.
void LinearDrawing::DrawMiddle()
{
    const double split = m_isInside && !m_label.IsEmpty()
                             ? std::clamp(AlongLine(m_label.centre), 0.0, m_length)
                             : m_length / 2;
    Point2 ends[2];
    for (std::size_t i = 0; i < m_ends.size(); ++i) {
        const End& end = m_ends[i];
        const double beyond = end.arrow.isStroke ? m_style.lineBeyond : 0;
        const double inset = m_hasInnerArrows ? end.arrow.inset : 0;
        ends[i] =
            end.hidesLine ? m_ends[0].foot + split * m_along : end.foot + (beyond - inset) * end.outward;
    }
    m_pen.LineAround(m_label, ends[0], ends[1]);
}

// The line behind an arrow that is outside, and the line to a text that is.
void LinearDrawing::DrawOutside(std::size_t number)
{
    const End& end = m_ends[number];
    double to = m_hasInnerArrows || end.arrow.isStroke ? 0 : 2 * end.arrow.size;
    const double from = to > 0 ? end.arrow.inset : 0;
    const double along = AlongLine(m_label.centre);
    const bool isHere = !m_isInside && m_isBeside && !m_label.IsEmpty() && (along < 0) == (number == 0);
    if (isHere) {
        const double distance = number == 0 ? -along : along - m_length;
        const double reach = m_label.ReachAlong(m_along);
        to = std::max(to, m_isOnLine ? distance - reach - m_pen.Gap() : distance + reach);
    }
    if (to > from && !end.hidesLine)
        m_pen.LineAround(m_label, end.foot + from * end.outward, end.foot + to * end.outward);
}

// A moved text with a leader is beside the point that the file gives, and the leader ends there.
void LinearDrawing::DrawLeader()
{
    constexpr std::int32_t kWithLeader = 1;
    if (m_style.textMove != kWithLeader || m_isBeside || !m_pen.HasTextPoint())
        return;
    const Point2 middle = 0.5 * (m_ends[0].foot + m_ends[1].foot), point = m_pen.TextPoint();
    const double side = Dot(point - middle, m_pen.Horizontal()) < 0 ? -1 : 1;
    const Point2 toText = side * m_pen.Horizontal();
    m_label.along = m_pen.LabelDirection(true, toText);
    m_label.centre = point + m_label.ReachAlong(toText) * toText;
    const Point2 end = point - m_pen.Gap() * toText, elbow = end - m_style.arrowSize * toText;
    m_pen.Line(middle, elbow);
    m_pen.Line(elbow, end);
}

void LinearDrawing::Draw()
{
    m_pen.HasTextPoint() ? PlaceGivenLabel() : PlaceOwnLabel();
    Decide();
    for (std::size_t i = 0; i < m_ends.size(); ++i) {
        m_pen.UseExtension(i);
        if (!m_ends[i].hidesExtension)
            m_pen.Extension(m_ends[i].measured, m_ends[i].foot);
    }
    m_pen.UseLine();
    DrawLeader();
    const bool hidesOutside =
        !m_hasInnerArrows && m_style.hidesLineOutside != 0 && m_style.keepsTextInside != 0;
    if (HasMiddle())
        DrawMiddle();
    for (std::size_t i = 0; i < m_ends.size(); ++i) {
        if (hidesOutside || m_ends[i].hidesLine)
            continue;
        DrawOutside(i);
        const Point2 outward = m_ends[i].outward;
        DrawArrow(m_pen, m_ends[i].arrow, m_ends[i].foot, m_hasInnerArrows ? outward : -1 * outward);
    }
    m_pen.Text(m_label);
}

} // namespace

void DrawLinearDimension(DimensionPen& pen, bool isAligned)
{
    LinearDrawing(pen, isAligned).Draw();
}

} // namespace prepare
