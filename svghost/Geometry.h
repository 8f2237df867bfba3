// Boxes and transforms of the plane, Y pointing down.
#pragma once

#include <algorithm>
#include <cmath>

namespace svghost {

struct Point {
    double x = 0;
    double y = 0;

    bool operator==(const Point&) const = default;
};

// The map (x, y) -> (a x + c y + e, b x + d y + f), named as SVG's matrix(a b c d e f).
struct Affine {
    double a = 1, b = 0, c = 0, d = 1, e = 0, f = 0;

    bool operator==(const Affine&) const = default;

    Point operator()(Point point) const
    {
        return {a * point.x + c * point.y + e, b * point.x + d * point.y + f};
    }
};

// What rotate(degrees centre.x centre.y) does in SVG.
Affine RotationAbout(double degrees, Point centre);

// What translate(position) rotate(degrees) scale(scaleX scaleY) does in SVG.
Affine Placement(Point position, double degrees, double scaleX, double scaleY);

// First inner, then outer.
Affine Product(const Affine& outer, const Affine& inner);

// The smallest upright rectangle round what was added; empty until something was.
class Box {
public:
    // Points that are not finite or too far away for a viewer to show are ignored.
    void Add(Point point)
    {
        // Written so that a NaN fails this check too.
        if (!(std::fabs(point.x) <= kFarthest && std::fabs(point.y) <= kFarthest))
            return;
        if (IsEmpty()) {
            m_low = m_high = point;
            return;
        }
        m_low = {std::min(m_low.x, point.x), std::min(m_low.y, point.y)};
        m_high = {std::max(m_high.x, point.x), std::max(m_high.y, point.y)};
    }
    void Add(const Box& other);
    // Adds the picture of other under map: the box round its four corners.
    void Add(const Box& other, const Affine& map);
    // The box grown by distance on every side; an empty one stays empty.
    Box Grown(double distance) const;

    bool operator==(const Box&) const = default;

    bool IsEmpty() const { return !(m_low.x <= m_high.x); }
    Point Low() const { return m_low; }
    Point High() const { return m_high; }

private:
    // Viewers calculate with 32-bit floats: beyond this the size of a view box may overflow in them.
    static constexpr double kFarthest = 1e30;

    Point m_low{1, 1};
    Point m_high{0, 0};
};

// One elliptical arc of path data, from its start to its end, in the terms of SVG's arc command.
struct Arc {
    Point start;
    Point end;
    double radiusX;
    double radiusY;
    double rotation; // degrees
    bool isLarge;
    bool isPositive; // it runs in the direction of positive angles
};

// Adds the arc's picture under map, exactly: its ends and those of its extreme points that it passes.
void AddArc(Box& box, const Arc& arc, const Affine& map);

// Adds the picture under map of a whole ellipse round centre, exactly.
void AddEllipse(Box& box, Point centre, double radiusX, double radiusY, const Affine& map);

} // namespace svghost
