#include "prepare/plain/Arrowheads.h"

#include "base/Letters.h"

#include <algorithm>
#include <string>

namespace prepare {

namespace {

// In the arrowhead's own coordinates the tip is at 0 and the line comes from 1.
struct Frame {
    Point2 tip;
    Point2 x;
    Point2 y;
    Pen& pen;

    Point2 At(double along, double across) const { return tip + along * x + across * y; }
    void Line(Point2 from, Point2 to) const { pen.Line(At(from.x, from.y), At(to.x, to.y)); }
    void Circle(double radius) const { pen.Arc({tip, radius * x, radius * y}); }
};

enum class Shape : std::uint8_t {
    None,
    Filled,
    Blank,
    Open,
    RightAngle,
    Tick,
    WideTick,
    Dot,
    Ring,
    DotInRing,
    FilledBox,
    Box,
    FilledDatum,
    Datum,
    Integral,
};

struct NamedShape {
    std::string_view name;
    Shape shape;
    double size; // half the width of an arrow, the radius of a ring, half of a tick's rise
};

constexpr double kUsualHalfWidth = 1.0 / 6;
constexpr double kHalfWidthOf30Degrees = 0.2679491924311227; // the tangent of half the angle
constexpr double kHalfWidthOfDatum = 0.5773502691896257;

constexpr NamedShape kShapes[] = {
    {"NONE", Shape::None, 0},
    {"CLOSEDFILLED", Shape::Filled, kUsualHalfWidth},
    {"CLOSEDBLANK", Shape::Blank, kUsualHalfWidth},
    {"CLOSED", Shape::Blank, kUsualHalfWidth},
    {"OPEN", Shape::Open, kUsualHalfWidth},
    {"OPEN30", Shape::Open, kHalfWidthOf30Degrees},
    {"OPEN90", Shape::RightAngle, 0.5},
    {"OBLIQUE", Shape::Tick, 0.5},
    {"ARCHTICK", Shape::WideTick, 0.5},
    {"DOT", Shape::Dot, 0.5},
    {"DOTSMALL", Shape::Dot, 0.25},
    {"DOTBLANK", Shape::Ring, 0.5},
    {"SMALL", Shape::Ring, 0.25},
    {"ORIGIN", Shape::Ring, 0.5},
    {"ORIGIN2", Shape::DotInRing, 0.5},
    {"BOXFILLED", Shape::FilledBox, 0.5},
    {"BOXBLANK", Shape::Box, 0.5},
    {"DATUMFILLED", Shape::FilledDatum, kHalfWidthOfDatum},
    {"DATUMBLANK", Shape::Datum, kHalfWidthOfDatum},
    {"INTEGRAL", Shape::Integral, 0.5},
};

NamedShape ShapeOf(std::string_view name)
{
    if (!name.empty() && name.front() == '_')
        name.remove_prefix(1);
    const std::string upper = InCapitals(name);
    for (const NamedShape& shape : kShapes) {
        if (shape.name == upper)
            return shape;
    }
    return {"", Shape::Filled, kUsualHalfWidth};
}

void DrawTriangle(const Frame& frame, Point2 tip, double base, double half, bool isFilled)
{
    const Point2 corners[] = {frame.At(tip.x, tip.y), frame.At(base, half), frame.At(base, -half)};
    if (isFilled)
        frame.pen.Fill(corners);
    else
        frame.pen.Polyline(corners, true);
}

void DrawBox(const Frame& frame, double half, bool isFilled)
{
    const Point2 corners[] = {frame.At(-half, -half), frame.At(half, -half), frame.At(half, half),
                              frame.At(-half, half)};
    if (isFilled)
        frame.pen.Fill(corners);
    else
        frame.pen.Polyline(corners, true);
}

void DrawWideTick(const Frame& frame, double half)
{
    constexpr double kHalfWidth = 0.053; // across the axes: 0.075 across the stroke
    const Point2 corners[] = {
        frame.At(-half + kHalfWidth, -half - kHalfWidth), frame.At(half + kHalfWidth, half - kHalfWidth),
        frame.At(half - kHalfWidth, half + kHalfWidth), frame.At(-half - kHalfWidth, -half + kHalfWidth)};
    frame.pen.Fill(corners);
}

// A polygon that looks round at an arrowhead's size.
void DrawDisk(const Frame& frame, double radius)
{
    constexpr int kCorners = 32;
    Point2 corners[kCorners];
    for (int i = 0; i < kCorners; ++i) {
        const double angle = kTurn * i / kCorners;
        corners[i] = frame.At(radius * std::cos(angle), radius * std::sin(angle));
    }
    frame.pen.Fill(corners);
}

// Two arcs of a quarter, one on each side.
void DrawIntegral(const Frame& frame, double radius)
{
    for (const double side : {1.0, -1.0}) {
        const Point2 y = side * radius * frame.y;
        frame.pen.Arc({frame.tip + y, side * radius * frame.x, y, -kTurn / 4, 0});
    }
}

void Draw(const Frame& frame, const NamedShape& shape)
{
    const double size = shape.size;
    switch (shape.shape) {
    case Shape::None:
        break;
    case Shape::Filled:
    case Shape::Blank:
        DrawTriangle(frame, {0, 0}, 1, size, shape.shape == Shape::Filled);
        break;
    case Shape::FilledDatum:
    case Shape::Datum:
        DrawTriangle(frame, {1, 0}, 0, size, shape.shape == Shape::FilledDatum);
        break;
    case Shape::Open:
    case Shape::RightAngle: {
        const double length = shape.shape == Shape::RightAngle ? size : 1;
        const Point2 corners[] = {frame.At(length, size), frame.At(0, 0), frame.At(length, -size)};
        frame.pen.Polyline(corners, false);
        break;
    }
    case Shape::Tick:
        frame.Line({-size, -size}, {size, size});
        break;
    case Shape::WideTick:
        DrawWideTick(frame, size);
        break;
    case Shape::Dot:
        DrawDisk(frame, size);
        break;
    case Shape::DotInRing:
        frame.Circle(size / 2);
        [[fallthrough]];
    case Shape::Ring:
        frame.Circle(size);
        break;
    case Shape::FilledBox:
    case Shape::Box:
        DrawBox(frame, size, shape.shape == Shape::FilledBox);
        break;
    case Shape::Integral:
        DrawIntegral(frame, size);
        break;
    }
}

} // namespace

void DrawArrowhead(std::string_view name, Point2 tip, Point2 direction, double size, Pen& pen)
{
    const double length = Length(direction);
    if (!(length > 0) || !std::isfinite(length) || !(size > 0))
        return;
    const Point2 x = (size / length) * direction;
    DrawArrowhead(name, tip, x, LeftOf(x), pen);
}

void DrawArrowhead(std::string_view name, Point2 tip, Point2 x, Point2 y, Pen& pen)
{
    Draw({tip, x, y, pen}, ShapeOf(name));
}

} // namespace prepare
