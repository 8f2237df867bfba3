#include "prepare/plain/DrawCurves.h"

namespace prepare {

namespace {

// A circle of that radius, or an arc of it, in object coordinates.
EllipticArc CircleAround(Point3 centre, double radius, const Matrix& matrix)
{
    const double size = std::fabs(radius);
    EllipticArc arc;
    arc.centre = matrix.Flat(centre);
    arc.u = matrix.FlatDirection({size, 0, 0});
    arc.v = matrix.FlatDirection({0, size, 0});
    return arc;
}

} // namespace

// Programs show a line without length, or one that is seen end-on, as a dot.
void DrawLine(const Line& line, Pen& pen)
{
    const Matrix& matrix = pen.Place().matrix;
    const Point2 start = matrix.Flat(line.start), end = matrix.Flat(line.end);
    if (start == end)
        return pen.Dot(start);
    pen.Line(start, end);
}

void DrawCircle(const Circle& circle, Pen& pen)
{
    pen.Arc(CircleAround(circle.centre, circle.radius, pen.OfObject()));
}

void DrawArc(const Arc& arc, Pen& pen)
{
    EllipticArc curve = CircleAround(arc.centre, arc.radius, pen.OfObject());
    curve.start = Radians(arc.startAngle);
    curve.end = curve.start + Sweep(curve.start, Radians(arc.endAngle));
    pen.Arc(curve);
}

void DrawEllipse(const Ellipse& ellipse, Pen& pen)
{
    const Matrix& matrix = pen.Place().matrix;
    const Point3 left = Cross(ellipse.extrusion, ellipse.majorAxis);
    const double length = Length(left), size = ellipse.ratio * Length(ellipse.majorAxis);
    EllipticArc curve;
    curve.centre = matrix.Flat(ellipse.centre);
    curve.u = matrix.FlatDirection(ellipse.majorAxis);
    if (length > 0)
        curve.v = matrix.FlatDirection((size / length) * left);
    curve.start = ellipse.start;
    curve.end = curve.start + Sweep(curve.start, ellipse.end);
    pen.Arc(curve);
}

} // namespace prepare
