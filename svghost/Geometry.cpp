#include "svghost/Geometry.h"

#include <algorithm>
#include <cmath>

namespace svghost {
namespace {

constexpr double kPi = 3.141592653589793;

// Viewers calculate with 32-bit floats: beyond this the size of a view box may overflow in them.
constexpr double kFarthest = 1e30;

// Half axes of an ellipse's picture: the curve is centre + u cos t + v sin t.
struct EllipseFrame {
    Point centre;
    Point u;
    Point v;

    Point at(double t) const
    {
        const double cosine = std::cos(t);
        const double sine = std::sin(t);
        return {centre.x + u.x * cosine + v.x * sine, centre.y + u.y * cosine + v.y * sine};
    }
};

EllipseFrame pictureOf(Point centre, Point u, Point v, const Affine& map)
{
    return {map(centre),
            {map.a * u.x + map.c * u.y, map.b * u.x + map.d * u.y},
            {map.a * v.x + map.c * v.y, map.b * v.x + map.d * v.y}};
}

// An arc by its centre: the parameter runs from first over span (negative: against growing angles).
struct CentredArc {
    Point centre;
    Point u;
    Point v;
    double first;
    double span;

    bool passes(double t) const
    {
        const double turn = span < 0 ? first - t : t - first;
        const double rest = std::fmod(turn, 2 * kPi);
        return (rest < 0 ? rest + 2 * kPi : rest) <= std::fabs(span);
    }
};

// From end points to centre as SVG's implementation notes give it; radii too small are enlarged.
CentredArc centred(const Arc& arc)
{
    const double angle = arc.rotation * kPi / 180;
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    const double halfX = (arc.start.x - arc.end.x) / 2;
    const double halfY = (arc.start.y - arc.end.y) / 2;
    double rx = std::fabs(arc.radiusX);
    double ry = std::fabs(arc.radiusY);
    // In the circle's frame both radii are 1.
    double x = (cosine * halfX + sine * halfY) / rx;
    double y = (cosine * halfY - sine * halfX) / ry;
    const double length = std::hypot(x, y);
    if (length > 1) {
        rx *= length;
        ry *= length;
        x /= length;
        y /= length;
    }
    const double toCentre = std::sqrt(std::max(0.0, 1 - x * x - y * y)) / std::max(std::hypot(x, y), 1e-300);
    const double side = arc.large == arc.sweep ? -toCentre : toCentre;
    const Point middle{side * y, -side * x};
    const Point u{rx * cosine, rx * sine};
    const Point v{-ry * sine, ry * cosine};
    const Point centre{(arc.start.x + arc.end.x) / 2 + u.x * middle.x + v.x * middle.y,
                       (arc.start.y + arc.end.y) / 2 + u.y * middle.x + v.y * middle.y};
    const double first = std::atan2(y - middle.y, x - middle.x);
    double span = std::atan2(-y - middle.y, -x - middle.x) - first;
    if (arc.sweep && span < 0)
        span += 2 * kPi;
    if (!arc.sweep && span > 0)
        span -= 2 * kPi;
    return {centre, u, v, first, span};
}

} // namespace

Affine rotationAbout(double degrees, Point centre)
{
    Affine map = placement(centre, degrees, 1, 1);
    const Point moved = map(centre);
    map.e += centre.x - moved.x;
    map.f += centre.y - moved.y;
    return map;
}

Affine placement(Point position, double degrees, double scaleX, double scaleY)
{
    const double angle = std::fmod(degrees, 360) * kPi / 180;
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    return {cosine * scaleX, sine * scaleX, -sine * scaleY, cosine * scaleY, position.x, position.y};
}

void Box::add(Point point)
{
    // Written so that a NaN fails it too.
    if (!(std::fabs(point.x) <= kFarthest && std::fabs(point.y) <= kFarthest))
        return;
    if (empty()) {
        m_low = m_high = point;
        return;
    }
    m_low = {std::min(m_low.x, point.x), std::min(m_low.y, point.y)};
    m_high = {std::max(m_high.x, point.x), std::max(m_high.y, point.y)};
}

void Box::add(const Box& other)
{
    if (other.empty())
        return;
    add(other.m_low);
    add(other.m_high);
}

void Box::add(const Box& other, const Affine& map)
{
    if (other.empty())
        return;
    add(map(other.m_low));
    add(map({other.m_low.x, other.m_high.y}));
    add(map({other.m_high.x, other.m_low.y}));
    add(map(other.m_high));
}

Box Box::grown(double distance) const
{
    Box box;
    if (!empty()) {
        box.add({m_low.x - distance, m_low.y - distance});
        box.add({m_high.x + distance, m_high.y + distance});
    }
    return box;
}

void addArc(Box& box, const Arc& arc, const Affine& map)
{
    box.add(map(arc.start));
    box.add(map(arc.end));
    // SVG draws a straight line for a radius of 0, and nothing between ends that coincide.
    const bool coincide = arc.start.x == arc.end.x && arc.start.y == arc.end.y;
    if (arc.radiusX == 0 || arc.radiusY == 0 || coincide)
        return;
    const CentredArc curve = centred(arc);
    const EllipseFrame frame = pictureOf(curve.centre, curve.u, curve.v, map);
    for (const double extreme : {std::atan2(frame.v.x, frame.u.x), std::atan2(frame.v.y, frame.u.y)}) {
        for (const double t : {extreme, extreme + kPi}) {
            if (curve.passes(t))
                box.add(frame.at(t));
        }
    }
}

void addEllipse(Box& box, Point centre, double radiusX, double radiusY, const Affine& map)
{
    const EllipseFrame frame = pictureOf(centre, {radiusX, 0}, {0, radiusY}, map);
    const double halfWidth = std::hypot(frame.u.x, frame.v.x);
    const double halfHeight = std::hypot(frame.u.y, frame.v.y);
    box.add({frame.centre.x - halfWidth, frame.centre.y - halfHeight});
    box.add({frame.centre.x + halfWidth, frame.centre.y + halfHeight});
}

} // namespace svghost
