// The mathematics of splines in the plane.
#pragma once

#include "prepare/drawing/Point.h"
#include "prepare/plain/Fineness.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace prepare {

inline constexpr std::size_t kHighestDegree = 20;

// A point times its weight, and the weight.
struct WeightedPoint {
    double x = 0;
    double y = 0;
    double w = 1;

    constexpr Point2 Flat() const { return {x / w, y / w}; }
};

constexpr WeightedPoint Weighted(Point2 point, double weight = 1)
{
    return {point.x * weight, point.y * weight, weight};
}

// A spline in B form. It runs from knots[degree] to knots[controlPoints.size()].
struct BSpline {
    std::size_t degree = 3;
    std::vector<double> knots; // controlPoints.size() + degree + 1, none below the one before
    std::vector<WeightedPoint> controlPoints;
};

// Knots at equal distances, repeated at both ends so that the curve begins and ends in a control point.
std::vector<double> UniformKnots(std::size_t controlPoints, std::size_t degree);

// Whether these are as many knots as that spline needs, rising, finite, and not all one.
bool AreGoodKnots(const std::vector<double>& knots, std::size_t controlPoints, std::size_t degree);

// Whether these are a weight for each control point, all finite and above 0.
bool AreGoodWeights(const std::vector<double>& weights, std::size_t controlPoints);

// The points of a polyline as near to the spline as curves are drawn, and nowhere farther than coarsest; both
// ends are included. Their count is bounded by a multiple of that of the control points: beyond, the polyline
// is coarser. The degree is 1 to kHighestDegree, the weights are above 0, and there are more control points
// than the degree.
std::vector<Point2> Flatten(const BSpline& spline, Fineness& curves, double coarsest = HUGE_VAL);

// What a curve through points needs: their parameters, rising, and the directions at its ends.
struct CurveThrough {
    std::vector<Point2> points;
    std::vector<double> parameters;
    bool isClosed = false; // then the last point is the first one, and the curve is smooth there
    bool hasStart = false; // start is the derivative at the first point; else the curvature is 0
    bool hasEnd = false;
    Point2 start;
    Point2 end;
};

// The same for the cubic that is smooth in all its points.
std::vector<Point2> Flatten(const CurveThrough& curve, Fineness& curves, double coarsest = HUGE_VAL);

} // namespace prepare
