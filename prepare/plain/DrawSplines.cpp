#include "prepare/plain/DrawSplines.h"

#include "prepare/plain/Spline.h"

#include <vector>

namespace prepare {

namespace {

constexpr std::int32_t kClosedSpline = 1;

// The control points in the output's plane, without those that are not finite.
std::vector<WeightedPoint> ControlPoints(const Spline& spline, Pen& pen)
{
    const bool areGood =
        spline.weights.empty() || AreGoodWeights(spline.weights, spline.controlPoints.size());
    if (!areGood)
        pen.Report(Finding::Repaired, "weights that do not fit its control points are taken as equal");
    std::vector<WeightedPoint> points;
    points.reserve(spline.controlPoints.size());
    for (std::size_t i = 0; i < spline.controlPoints.size(); ++i) {
        const Point2 point = pen.Place().matrix.Flat(spline.controlPoints[i]);
        if (IsDrawable(point))
            points.push_back(Weighted(point, areGood && !spline.weights.empty() ? spline.weights[i] : 1));
        else
            pen.Lose();
    }
    return points;
}

void Draw(const std::vector<Point2>& points, Pen& pen)
{
    if (points.size() == 2)
        pen.Line(points[0], points[1]);
    else
        pen.Polyline(points, false);
}

void DrawByControlPoints(const Spline& spline, Pen& pen)
{
    if (spline.degree < 1 || spline.degree > static_cast<std::int32_t>(kHighestDegree)) {
        pen.Report(Finding::NotShown, "its degree is not 1 to 20");
        return;
    }
    BSpline curve;
    curve.degree = static_cast<std::size_t>(spline.degree);
    curve.controlPoints = ControlPoints(spline, pen);
    if (curve.controlPoints.size() < 2)
        return;
    if (curve.controlPoints.size() <= curve.degree) {
        curve.degree = curve.controlPoints.size() - 1;
        pen.Report(Finding::Repaired, "a degree that needs more control points is lowered");
    }
    curve.knots = spline.knots;
    if (!AreGoodKnots(curve.knots, curve.controlPoints.size(), curve.degree)) {
        curve.knots = UniformKnots(curve.controlPoints.size(), curve.degree);
        pen.Report(Finding::Repaired, "knots that do not fit its control points are taken as equally spaced");
    }
    Draw(Flatten(curve, pen.Curves()), pen);
}

// The fit points without those that are not finite or on the one before.
std::vector<Point3> FitPoints(const Spline& spline, Pen& pen)
{
    std::vector<Point3> points;
    for (const Point3 point : spline.fitPoints) {
        if (!IsDrawable(point))
            pen.Lose();
        else if (points.empty() || !(point == points.back()))
            points.push_back(point);
    }
    if ((spline.flags & kClosedSpline) != 0 && points.size() > 2 && !(points.front() == points.back()))
        points.push_back(points.front());
    return points;
}

// The direction as a derivative: parameters are lengths. False without a direction.
bool FlatTangent(Point3 tangent, const Matrix& matrix, Point2& flat)
{
    const double length = Length(tangent);
    if (!(length > 0) || !std::isfinite(length))
        return false;
    flat = matrix.FlatDirection((1 / length) * tangent);
    return true;
}

void DrawThroughFitPoints(const Spline& spline, Pen& pen)
{
    const Matrix& matrix = pen.Place().matrix;
    const std::vector<Point3> points = FitPoints(spline, pen);
    if (points.size() < 2)
        return;
    CurveThrough curve;
    double length = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        length += i == 0 ? 0 : Length(points[i] - points[i - 1]);
        curve.parameters.push_back(length);
        curve.points.push_back(matrix.Flat(points[i]));
    }
    curve.isClosed = (spline.flags & kClosedSpline) != 0;
    curve.hasStart = FlatTangent(spline.startTangent, matrix, curve.start);
    curve.hasEnd = FlatTangent(spline.endTangent, matrix, curve.end);
    Draw(Flatten(curve, pen.Curves()), pen);
}

} // namespace

void DrawThrough(const std::vector<Point3>& points, Pen& pen)
{
    Spline spline;
    spline.fitPoints = points;
    DrawThroughFitPoints(spline, pen);
}

void DrawSpline(const Spline& spline, Pen& pen)
{
    if (spline.controlPoints.size() >= 2)
        DrawByControlPoints(spline, pen);
    else if (spline.fitPoints.size() >= 2)
        DrawThroughFitPoints(spline, pen);
    else
        pen.Report(Finding::NotShown, "it has no points");
}

} // namespace prepare
