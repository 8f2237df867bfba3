// What TOLERANCE, MULTILEADER and ACAD_TABLE are drawn with: texts and lines in a plane of their own.
#pragma once

#include "prepare/drawing/Entities.h"
#include "prepare/plain/Placement.h"

#include <cstdint>
#include <string_view>

namespace prepare {

// Where a note is in the world: its point, and the directions of its lines and up from them.
struct NotePlane {
    Point3 origin;
    Point3 along{1, 0, 0};
    Point3 up{0, 1, 0};
    Point3 normal{0, 0, 1};

    Point3 At(double u, double v) const { return origin + u * along + v * up; }
};

// direction need not be a unit; without a length it is the world's x axis.
NotePlane PlaneOf(Point3 point, Point3 direction, Point3 extrusion);

// An MTEXT in that plane whose letters have that height; (u, v) is its middle.
MText TextIn(const NotePlane& plane, double u, double v, double height, std::string_view letters,
             std::uint64_t line);

// The same place, for what is drawn in another style.
Placement InStyle(const Placement& placement, const Style& style);

// Draws the lines around texts, as continuous ones. What it is made from must outlive it.
class NoteFrame {
public:
    NoteFrame(const Placement& placement, const NotePlane& plane, const Style& style);

    // From one point of the plane to another; nothing if one of them is not finite.
    void Line(double u, double v, double endU, double endV) const;

private:
    const Placement& m_placement;
    const NotePlane& m_plane;
    Style m_style;
};

} // namespace prepare
