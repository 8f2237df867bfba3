#include "prepare/plain/OrdinateDimension.h"

#include "prepare/plain/DimensionText.h"

#include <algorithm>

namespace prepare {

// How far a feature is from the origin in x or y, at the end of a leader that runs across that axis.
void DrawOrdinateDimension(DimensionPen& pen, bool isX)
{
    const Dimension& dimension = pen.Entity();
    const DimensionStyle& style = pen.Style();
    const Point2 origin = pen.Local(dimension.definition), feature = pen.Local(dimension.points[0]);
    const Point2 end = pen.Local(dimension.points[1]);
    const Point2 x = pen.Horizontal(), y = LeftOf(x);
    const double value = std::fabs(Dot(feature - origin, isX ? x : y));
    const Point2 axis = isX ? y : x;
    const double along = Dot(end - feature, axis), aside = Cross(axis, end - feature);
    const Point2 direction = along < 0 ? -1 * axis : axis;

    pen.UseExtension();
    const Point2 start = feature + style.extensionOffset * direction;
    // The leader steps aside in the middle of its last legs, each twice as long as an arrow.
    const double leg = std::min(2 * style.arrowSize, std::fabs(along) / 3);
    if (std::fabs(aside) <= 1e-6 * style.textHeight) {
        pen.Line(start, end);
    } else {
        const Point2 last = end - leg * direction, first = end - 2 * leg * direction;
        const Point2 knee = first - Dot(first - feature, LeftOf(axis)) * LeftOf(axis);
        pen.Line(start, knee);
        pen.Line(knee, last);
        pen.Line(last, end);
    }

    DimensionLabel label = pen.Label(pen.ValueText(Quantity::Ordinate, value));
    label.along = pen.LabelDirection(false, axis);
    label.centre =
        pen.HasTextPoint() ? pen.TextPoint() : end + (label.ReachAlong(direction) + pen.Gap()) * direction;
    pen.Text(label);
}

} // namespace prepare
