#include "prepare/plain/DimensionArrows.h"

#include <algorithm>
#include <array>
#include <vector>

namespace prepare {

namespace {

struct ShapeRow {
    std::string_view name; // of its block, in upper case and without the underscore before it
    ArrowShape shape;
    double inset; // in sizes
    bool isStroke;
};

constexpr ShapeRow kShapes[] = {
    {"", ArrowShape::ClosedFilled, 1, false},
    {"CLOSEDFILLED", ArrowShape::ClosedFilled, 1, false},
    {"CLOSEDBLANK", ArrowShape::ClosedBlank, 1, false},
    {"CLOSED", ArrowShape::Closed, 0, false},
    {"DOT", ArrowShape::Dot, 0.5, false},
    {"DOTSMALL", ArrowShape::SmallDot, 0, true},
    {"DOTBLANK", ArrowShape::BlankDot, 0.5, false},
    {"SMALL", ArrowShape::SmallBlankDot, 0.25, true},
    {"ORIGIN", ArrowShape::Origin, 0, false},
    {"ORIGIN2", ArrowShape::Origin2, 0.5, false},
    {"OPEN", ArrowShape::Open, 0, false},
    {"OPEN90", ArrowShape::RightAngle, 0, false},
    {"OPEN30", ArrowShape::Open30, 0, false},
    {"OBLIQUE", ArrowShape::Oblique, 0, true},
    {"ARCHTICK", ArrowShape::Tick, 0, true},
    {"INTEGRAL", ArrowShape::Integral, 0, true},
    {"BOXFILLED", ArrowShape::FilledBox, 0.5, false},
    {"BOXBLANK", ArrowShape::BlankBox, 0.5, false},
    {"DATUMFILLED", ArrowShape::FilledDatum, 1, false},
    {"DATUMBLANK", ArrowShape::BlankDatum, 1, false},
    {"NONE", ArrowShape::None, 0, true},
};

std::string InUpperCase(std::string_view name)
{
    if (!name.empty() && name[0] == '_')
        name.remove_prefix(1);
    std::string upper(name);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return upper;
}

// Draws in a plane where the tip is the origin, the line comes along -x and the size is 1.
class ArrowDrawing {
public:
    ArrowDrawing(DimensionPen& pen, const Arrowhead& arrow, Point2 tip, Point2 direction)
        : m_pen(pen), m_arrow(arrow), m_tip(tip), m_direction(direction)
    {
    }

    void Draw();

private:
    Point2 At(Point2 point) const
    {
        return m_tip + m_arrow.size * (point.x * m_direction + point.y * LeftOf(m_direction));
    }
    std::vector<Point2> At(std::initializer_list<Point2> points) const
    {
        std::vector<Point2> there;
        for (const Point2 point : points)
            there.push_back(At(point));
        return there;
    }
    void Line(Point2 start, Point2 end) { m_pen.Line(At(start), At(end)); }
    void Circle(double radius) { m_pen.Circle(m_tip, radius * m_arrow.size); }
    void FilledCircle(double radius);
    void Open(double halfWidth, double length);
    void Integral();

    DimensionPen& m_pen;
    const Arrowhead& m_arrow;
    Point2 m_tip;
    Point2 m_direction;
};

// An arrow is three times as long as it is wide.
constexpr double kHalfWidth = 1.0 / 6;
// Arms of 15 degrees, and the base of a triangle that has equal sides, seen from its middle.
constexpr double kTangent15 = 0.2679491924311227;
constexpr double kTangent30 = 0.5773502691896257;
constexpr double kHalfTickWidth = 0.075;

void ArrowDrawing::Draw()
{
    switch (m_arrow.shape) {
    case ArrowShape::ClosedFilled:
        return m_pen.Fill(At({{0, 0}, {-1, kHalfWidth}, {-1, -kHalfWidth}}));
    case ArrowShape::ClosedBlank:
    case ArrowShape::Closed:
        return m_pen.Polyline(At({{0, 0}, {-1, kHalfWidth}, {-1, -kHalfWidth}}), true);
    case ArrowShape::Dot:
        return FilledCircle(0.5);
    case ArrowShape::SmallDot:
        return FilledCircle(0.25);
    case ArrowShape::BlankDot:
    case ArrowShape::Origin:
        return Circle(0.5);
    case ArrowShape::SmallBlankDot:
        return Circle(0.25);
    case ArrowShape::Origin2:
        Circle(0.5);
        return Circle(0.25);
    case ArrowShape::Open:
        return Open(kHalfWidth, 1);
    case ArrowShape::RightAngle:
        return Open(0.5, 0.5);
    case ArrowShape::Open30:
        return Open(kTangent15, 1);
    case ArrowShape::Oblique:
        return Line({-0.5, -0.5}, {0.5, 0.5});
    case ArrowShape::Tick: {
        const double half = kHalfTickWidth * std::numbers::sqrt2 / 2;
        return m_pen.Fill(At({{-0.5 + half, -0.5 - half},
                              {0.5 + half, 0.5 - half},
                              {0.5 - half, 0.5 + half},
                              {-0.5 - half, -0.5 + half}}));
    }
    case ArrowShape::Integral:
        return Integral();
    case ArrowShape::FilledBox:
        return m_pen.Fill(At({{-0.5, -0.5}, {0.5, -0.5}, {0.5, 0.5}, {-0.5, 0.5}}));
    case ArrowShape::BlankBox:
        return m_pen.Polyline(At({{-0.5, -0.5}, {0.5, -0.5}, {0.5, 0.5}, {-0.5, 0.5}}), true);
    case ArrowShape::FilledDatum:
        return m_pen.Fill(At({{0, kTangent30}, {-1, 0}, {0, -kTangent30}}));
    case ArrowShape::BlankDatum:
        return m_pen.Polyline(At({{0, kTangent30}, {-1, 0}, {0, -kTangent30}}), true);
    case ArrowShape::OfBlock:
        return m_pen.Block(*m_arrow.block, m_tip, m_direction, m_arrow.size);
    case ArrowShape::None:
        return;
    }
}

void ArrowDrawing::FilledCircle(double radius)
{
    constexpr int kCorners = 24;
    std::vector<Point2> ring;
    for (int i = 0; i < kCorners; ++i) {
        const double angle = i * kTurn / kCorners;
        ring.push_back(At({radius * std::cos(angle), radius * std::sin(angle)}));
    }
    m_pen.Fill(ring);
}

void ArrowDrawing::Open(double halfWidth, double length)
{
    m_pen.Polyline(At({{-length, halfWidth}, {0, 0}, {-length, -halfWidth}}), false);
}

// Two arcs that meet in the tip, as a lying S.
void ArrowDrawing::Integral()
{
    constexpr double kRadius = 0.4542, kEnd = Radians(102), kSweep = Radians(66);
    const double turned = std::atan2(m_direction.y, m_direction.x);
    const double radius = kRadius * m_arrow.size;
    for (const double side : {0.0, Radians(180)}) {
        const double meets = turned + side + kEnd + kSweep;
        const Point2 centre = m_tip - radius * Point2{std::cos(meets), std::sin(meets)};
        m_pen.Arc(centre, radius, turned + side + kEnd, kSweep);
    }
}

} // namespace

Arrowhead ArrowheadOf(const DimensionStyle& style, std::string_view name, const Drawing& drawing)
{
    if (style.tickSize > 0) // from end to end a stroke is twice as wide as the tick is high
        return {ArrowShape::Oblique, nullptr, 2 * style.tickSize, 0, true};
    const std::string upper = InUpperCase(name);
    for (const ShapeRow& row : kShapes)
        if (row.name == upper)
            return {row.shape, nullptr, style.arrowSize, row.inset * style.arrowSize, row.isStroke};
    const Block* const block = drawing.FindBlock(drawing.names.Find(name));
    if (block == nullptr || block->entities.empty())
        return {ArrowShape::ClosedFilled, nullptr, style.arrowSize, style.arrowSize, false};
    return {ArrowShape::OfBlock, block, style.arrowSize, style.arrowSize, false};
}

Arrowhead FirstArrowOf(const DimensionPen& pen)
{
    return ArrowheadOf(pen.Style(), pen.Style().arrow1, pen.Drawing());
}

Arrowhead SecondArrowOf(const DimensionPen& pen)
{
    return ArrowheadOf(pen.Style(), pen.Style().arrow2, pen.Drawing());
}

void DrawArrowhead(DimensionPen& pen, const Arrowhead& arrow, Point2 tip, Point2 direction)
{
    if (arrow.size > 0)
        ArrowDrawing(pen, arrow, tip, direction).Draw();
}

} // namespace prepare
