#include "svghost/Geometry.h"

#include "base/Pi.h"

#include <algorithm>
#include <cmath>

namespace svghost {

namespace {

// The picture of an ellipse: the curve is centre + u cos t + v sin t.
struct EllipseFrame {
    Point centre;
    Point u;
    Point v;

    // The point of the ellipse for the point unit of the unit circle.
    Point At(Point unit) const
    {
        return {centre.x + u.x * unit.x + v.x * unit.y, centre.y + u.y * unit.x + v.y * unit.y};
    }

    EllipseFrame Under(const Affine& map) const
    {
        return {map(centre),
                {map.a * u.x + map.c * u.y, map.b * u.x + map.d * u.y},
                {map.a * v.x + map.c * v.y, map.b * v.x + map.d * v.y}};
    }
};

// An arc by its centre, its ends on the unit circle.
struct CentredArc {
    EllipseFrame frame;
    Point start;
    Point end;
    bool isPositive; // it runs in the direction of positive angles

    // The chord cuts the circle into two arcs. The arc passes the points on its own side of the chord.
    bool Passes(Point unit) const
    {
        const double side = (end.x - start.x) * (unit.y - start.y) - (end.y - start.y) * (unit.x - start.x);
        return isPositive ? side <= 0 : side >= 0;
    }
};

// From end points to centre as SVG's implementation notes give it; radii too small are enlarged.
CentredArc Centred(const Arc& arc)
{
    const double angle = arc.rotation * kPi / 180;
    const double cosine = angle == 0 ? 1 : std::cos(angle);
    const double sine = angle == 0 ? 0 : std::sin(angle);
    const double halfX = (arc.start.x - arc.end.x) / 2;
    const double halfY = (arc.start.y - arc.end.y) / 2;
    double rx = std::fabs(arc.radiusX);
    double ry = std::fabs(arc.radiusY);
    // In the circle's frame both radii are 1.
    double x = (cosine * halfX + sine * halfY) / rx;
    double y = (cosine * halfY - sine * halfX) / ry;
    const double length = std::sqrt(x * x + y * y);
    if (length > 1) {
        rx *= length;
        ry *= length;
        x /= length;
        y /= length;
    }
    const double toCentre =
        std::sqrt(std::max(0.0, 1 - x * x - y * y)) / std::max(std::sqrt(x * x + y * y), 1e-300);
    const double side = arc.isLarge == arc.isPositive ? -toCentre : toCentre;
    const Point middle{side * y, -side * x};
    EllipseFrame frame{{(arc.start.x + arc.end.x) / 2, (arc.start.y + arc.end.y) / 2},
                       {rx * cosine, rx * sine},
                       {-ry * sine, ry * cosine}};
    frame.centre = frame.At(middle);
    return {frame, {x - middle.x, y - middle.y}, {-x - middle.x, -y - middle.y}, arc.isPositive};
}

// Where on the unit circle a coordinate of the ellipse is largest, from its parts of u and v.
Point Extreme(double ofU, double ofV)
{
    const double length = std::sqrt(ofU * ofU + ofV * ofV);
    return length > 0 ? Point{ofU / length, ofV / length} : Point{1, 0};
}

} // namespace

Affine RotationAbout(double degrees, Point centre)
{
    Affine map = Placement(centre, degrees, 1, 1);
    const Point moved = map(centre);
    map.e += centre.x - moved.x;
    map.f += centre.y - moved.y;
    return map;
}

Affine Placement(Point position, double degrees, double scaleX, double scaleY)
{
    const double angle = std::fmod(degrees, 360) * kPi / 180;
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    return {cosine * scaleX, sine * scaleX, -sine * scaleY, cosine * scaleY, position.x, position.y};
}

Affine Product(const Affine& outer, const Affine& inner)
{
    const Point origin = outer({inner.e, inner.f});
    return {outer.a * inner.a + outer.c * inner.b,
            outer.b * inner.a + outer.d * inner.b,
            outer.a * inner.c + outer.c * inner.d,
            outer.b * inner.c + outer.d * inner.d,
            origin.x,
            origin.y};
}

void Box::Add(const Box& other)
{
    if (other.IsEmpty())
        return;
    Add(other.m_low);
    Add(other.m_high);
}

void Box::Add(const Box& other, const Affine& map)
{
    if (other.IsEmpty())
        return;
    Add(map(other.m_low));
    Add(map({other.m_low.x, other.m_high.y}));
    Add(map({other.m_high.x, other.m_low.y}));
    Add(map(other.m_high));
}

Box Box::Grown(double distance) const
{
    Box box;
    if (!IsEmpty()) {
        box.Add({m_low.x - distance, m_low.y - distance});
        box.Add({m_high.x + distance, m_high.y + distance});
    }
    return box;
}

void AddArc(Box& box, const Arc& arc, const Affine& map)
{
    box.Add(map(arc.start));
    box.Add(map(arc.end));
    // SVG draws a straight line for a radius of 0, and nothing between ends that coincide.
    const bool areSame = arc.start.x == arc.end.x && arc.start.y == arc.end.y;
    if (arc.radiusX == 0 || arc.radiusY == 0 || areSame)
        return;
    const CentredArc curve = Centred(arc);
    const EllipseFrame frame = curve.frame.Under(map);
    for (const Point most : {Extreme(frame.u.x, frame.v.x), Extreme(frame.u.y, frame.v.y)}) {
        for (const Point unit : {most, Point{-most.x, -most.y}}) {
            if (curve.Passes(unit))
                box.Add(frame.At(unit));
        }
    }
}

void AddEllipse(Box& box, Point centre, double radiusX, double radiusY, const Affine& map)
{
    const EllipseFrame frame = EllipseFrame{centre, {radiusX, 0}, {0, radiusY}}.Under(map);
    const double halfWidth = std::hypot(frame.u.x, frame.v.x);
    const double halfHeight = std::hypot(frame.u.y, frame.v.y);
    box.Add({frame.centre.x - halfWidth, frame.centre.y - halfHeight});
    box.Add({frame.centre.x + halfWidth, frame.centre.y + halfHeight});
}

} // namespace svghost
