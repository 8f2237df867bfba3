#include "prepare/plain/DrawLeaderLine.h"

#include "prepare/plain/Arrowheads.h"
#include "prepare/plain/DrawSplines.h"

#include <cmath>

namespace prepare {

namespace {

// How much longer lengths are in the output.
double ScaleOf(const Matrix& matrix)
{
    return std::sqrt(std::fabs(Cross(matrix.FlatDirection({1, 0, 0}), matrix.FlatDirection({0, 1, 0}))));
}

} // namespace

std::string_view ArrowOfBlock(Handle record, const Drawing& drawing)
{
    const auto found = drawing.blockOfRecord.find(record);
    return found == drawing.blockOfRecord.end() ? std::string_view() : drawing.names.Text(found->second);
}

std::vector<Point3> DrawableOf(const std::vector<Point3>& points, Pen& pen)
{
    std::vector<Point3> drawable;
    for (const Point3 point : points)
        IsDrawable(point) ? drawable.push_back(point) : pen.Lose();
    return drawable;
}

void DrawLeaderLine(const std::vector<Point3>& points, bool isSpline, Pen& pen)
{
    if (isSpline && points.size() > 2) {
        DrawThrough(points, pen);
        return;
    }
    std::vector<Point2> flat;
    flat.reserve(points.size());
    for (const Point3 point : points)
        flat.push_back(pen.Place().matrix.Flat(point));
    pen.Polyline(flat, false);
}

void DrawLeaderArrow(std::string_view name, const std::vector<Point3>& points, double size, Pen& pen)
{
    if (points.size() < 2 || !(Length(points[1] - points[0]) >= 2 * size))
        return;
    const Matrix& matrix = pen.Place().matrix;
    DrawArrowhead(name, matrix.Flat(points[0]), matrix.FlatDirection(points[1] - points[0]),
                  size * ScaleOf(matrix), pen);
}

} // namespace prepare
