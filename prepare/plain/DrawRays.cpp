#include "prepare/plain/DrawRays.h"

#include <algorithm>

namespace prepare {

namespace {

// The part of a line that is in a box, in parameters.
struct Part {
    double first;
    double last;

    // Leaves what is between two bounds in one coordinate.
    void CutTo(double start, double direction, double low, double high);
};

void Part::CutTo(double start, double direction, double low, double high)
{
    if (direction == 0) {
        if (start < low || start > high)
            last = first;
        return;
    }
    const double a = (low - start) / direction, b = (high - start) / direction;
    first = std::max(first, std::min(a, b));
    last = std::min(last, std::max(a, b));
}

} // namespace

void DrawRay(const Ray& ray, Pen& pen)
{
    const Box& reach = pen.Place().scale.Reach();
    const Point2 start = pen.Place().matrix.Flat(ray.start);
    const Point2 direction = pen.Place().matrix.FlatDirection(ray.direction);
    if (!IsDrawable(start) || !IsDrawable(direction)) {
        pen.Lose();
        return;
    }
    if (direction == Point2{} && !(ray.direction == Point3{}))
        return pen.Report(Finding::NotShown, "seen end-on");
    if (reach.IsEmpty() || direction == Point2{})
        return;
    Part part{ray.type == EntityType::XLine ? -HUGE_VAL : 0, HUGE_VAL};
    part.CutTo(start.x, direction.x, reach.min.x, reach.max.x);
    part.CutTo(start.y, direction.y, reach.min.y, reach.max.y);
    if (part.first < part.last)
        pen.Line(start + part.first * direction, start + part.last * direction);
    else
        pen.Report(Finding::NotShown, "it does not meet the drawing");
}

} // namespace prepare
