// Draws the parts of one entity.
#pragma once

#include "prepare/drawing/Entities.h"
#include "prepare/plain/Curves.h"
#include "prepare/plain/PartStyle.h"
#include "prepare/plain/Placement.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace prepare {

// Passes parts in the output's plane to the placement's sink. A part is left out when it has a number that is
// not finite, when it has no size, and when the drawing has no room for it; Finish reports the first and the
// last. The entity and the placement must outlive it.
class Pen {
public:
    Pen(const Entity& entity, const Placement& placement, const PartStyler& styleOf);

    const Placement& Place() const { return m_placement; }
    // How finely curves are flattened.
    Fineness& Curves() { return m_placement.budget.curves; }
    // Whether there is room for more of the entity's parts; if not, it is cut.
    bool HasRoom();
    // From the entity's object coordinates to the output's plane.
    Matrix OfObject() const;

    // The entity's own style, and that of a part, for all that follows.
    void UseOwnStyle() { m_style = m_placement.style; }
    void UseStyleOf(const StyleOfPart& part) { m_style = m_styleOf(part); }
    // Any other style for all that follows.
    void UseStyle(const Style& style) { m_style = style; }
    // The width of strokes from now on, in the output's units; 0: the weight counts.
    void UseWidth(double width) { m_style.width = width; }
    // Strokes as thin as any from now on.
    void UseThinnest() { m_style.width = m_style.weight = 0; }

    void Line(Point2 start, Point2 end);
    // As wide as its stroke.
    void Dot(Point2 point);
    // As a circle, an arc, an ellipse or, seen from the side, a line. arc.end is not below arc.start, and by
    // no more than a turn above it.
    void Arc(const EllipticArc& arc);
    // Vertices that are not finite are left out.
    void Polyline(std::span<const PlainVertex> vertices, bool isClosed);
    void Polyline(std::span<const Point2> points, bool isClosed);
    // The area within three points or more.
    void Fill(std::span<const Point2> points);
    // The area within rings by the even-odd rule; all their points are finite.
    void Fill(std::span<const std::vector<Point2>> rings);

    // Hides what was drawn before within three points or more.
    void Mask(const std::vector<Point2>& points);

    std::string_view TypeName() const { return m_placement.drawing.names.Text(m_entity.typeName); }
    void Report(Finding finding, std::string_view detail);
    // Notes that something with a number that is not finite was left out.
    void Lose() { m_hasLost = true; }
    // Call it last.
    void Finish();

private:
    // Takes room for a part of that many points; false when there is none.
    bool TakeRoom(std::size_t points);
    void Circular(const EllipticArc& arc);
    void Elliptic(const EllipticArc& arc);
    void Flattened(const EllipticArc& arc, const PrincipalAxes& axes);

    const Entity& m_entity;
    const Placement& m_placement;
    const PartStyler& m_styleOf;
    Style m_style;
    std::vector<PlainVertex> m_vertices;
    bool m_hasDrawn = false;
    bool m_hasLost = false;
    bool m_isCut = false; // there was no room for a part
};

} // namespace prepare
