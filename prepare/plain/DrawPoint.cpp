#include "prepare/plain/DrawPoint.h"

namespace prepare {

namespace {

enum PointMode : std::int32_t {
    kNothing = 1,
    kPlus = 2,
    kTimes = 3,
    kTick = 4,
    kInCircle = 32,
    kInSquare = 64
};

constexpr std::int32_t kShapeBits = 7; // the others are added to one of them

// Marks lie in the output's plane; their x axis is turned clockwise by the point's angle.
struct Mark {
    Point2 centre;
    Point2 x;
    Point2 y;
    Pen& pen;

    Point2 At(double right, double up) const { return centre + right * x + up * y; }
    void Line(Point2 from, Point2 to) const { pen.Line(At(from.x, from.y), At(to.x, to.y)); }
};

// The lines of plus and times reach out of a circle or square around them.
void DrawShape(const Mark& mark, std::int32_t shape)
{
    if (shape == kPlus) {
        mark.Line({-2, 0}, {2, 0});
        mark.Line({0, -2}, {0, 2});
    } else if (shape == kTimes) {
        mark.Line({-2, -2}, {2, 2});
        mark.Line({-2, 2}, {2, -2});
    } else if (shape == kTick) {
        mark.Line({0, 0}, {0, 1});
    } else if (shape != kNothing) {
        mark.pen.Dot(mark.centre);
    }
}

} // namespace

void DrawPoint(const PointEntity& point, Pen& pen)
{
    const double angle = -Radians(point.xAxisAngle), size = pen.Place().scale.PointSize();
    const Point2 x{size * std::cos(angle), size * std::sin(angle)};
    const Mark mark{pen.Place().matrix.Flat(point.point), x, LeftOf(x), pen};
    const std::int32_t mode = pen.Place().drawing.header.Integer("$PDMODE", 0);
    // Marks have no size while the drawing is being measured, and where it has no height.
    if (size == 0 && mode != kNothing)
        return pen.Dot(mark.centre);
    DrawShape(mark, mode & kShapeBits);
    if ((mode & kInCircle) != 0)
        pen.Arc({mark.centre, mark.x, mark.y});
    if ((mode & kInSquare) != 0) {
        const Point2 corners[] = {mark.At(-1, -1), mark.At(1, -1), mark.At(1, 1), mark.At(-1, 1)};
        pen.Polyline(corners, true);
    }
}

} // namespace prepare
