// Draws the parts of a dimension in its own plane.
#pragma once

#include "prepare/plain/DimensionStyle.h"
#include "prepare/plain/DimensionText.h"
#include "prepare/plain/DrawDimension.h"
#include "prepare/plain/Pen.h"

#include <string>
#include <string_view>

namespace prepare {

// The text of a dimension, with the room that it takes.
struct DimensionLabel {
    std::string text;
    double width = 0;
    double height = 0;
    Point2 centre;
    Point2 along{1, 0}; // of length 1

    bool IsEmpty() const { return text.empty(); }
    Point2 Up() const { return LeftOf(along); }
    // How far it reaches from its centre in a direction of length 1.
    double ReachAlong(Point2 direction) const;
};

// Where a line runs through a label and the gap around it, in multiples of direction from start.
struct Passage {
    double from = 0;
    double to = 0;

    bool IsEmpty() const { return !(from < to); }
};
Passage PassageThrough(const DimensionLabel& label, double gap, Point2 start, Point2 direction);

// All points are in the dimension's object coordinates, seen along its extrusion. What it is given must
// outlive it.
class DimensionPen {
public:
    DimensionPen(const Dimension& dimension, const Placement& placement, const PartStyler& styleOf,
                 const BlockPlacer& placeBlock);

    const Dimension& Entity() const { return m_dimension; }
    const DimensionStyle& Style() const { return m_style; }
    const prepare::Drawing& Drawing() const { return m_placement.drawing; }
    double Gap() const { return std::fabs(m_style.gap); }

    // A point of world coordinates.
    Point2 Local(Point3 world) const;
    // What is horizontal for its texts.
    Point2 Horizontal() const { return m_horizontal; }
    // Turned around if a text along it would be upside down.
    Point2 Readable(Point2 direction) const;
    // Whether the file says where the text is, and where that is.
    bool HasTextPoint() const;
    bool IsTextPlacedByUser() const;
    Point2 TextPoint() const { return {m_dimension.textPoint.x, m_dimension.textPoint.y}; }

    // The text for a measured value, by DimensionText. Reports a value that is not the one that the file
    // states.
    std::string ValueText(Quantity kind, double value);
    DimensionLabel Label(std::string text) const;
    // The direction of a label: the user's own, or horizontal, or along.
    Point2 LabelDirection(bool isHorizontal, Point2 along) const;
    // How far a label's middle is from the line that it belongs to, along the label's up; 0: on it.
    double OffsetOf(const DimensionLabel& label, bool isOuterUp) const;

    void UseLine() { Use(m_style.lineColour, m_style.lineWeight, m_style.lineType); }
    // Of the first extension line or, 1, the second.
    void UseExtension(std::size_t number = 0)
    {
        Use(m_style.extensionColour, m_style.extensionWeight, m_style.extensionTypes[number]);
    }
    void Line(Point2 start, Point2 end);
    // The part of the line outside of the label.
    void LineAround(const DimensionLabel& label, Point2 start, Point2 end);
    // From start on by sweep, in radians, counter-clockwise if it is above 0.
    void Arc(Point2 centre, double radius, double start, double sweep);
    void ArcAround(const DimensionLabel& label, Point2 centre, double radius, double start, double sweep);
    // From the measured point past the dimension line: away from one and beyond the other by what the style
    // says.
    void Extension(Point2 measured, Point2 foot);
    // direction is that of the line at the tip, towards it, of length 1.
    void Arrowhead(std::string_view name, Point2 tip, Point2 direction, double size);
    // A block with its base at that point, its x axis along direction, a vector of length 1.
    void Block(const prepare::Block& block, Point2 at, Point2 direction, double size);
    void Text(const DimensionLabel& label);

    void Report(Finding finding, std::string_view detail) { m_pen.Report(finding, detail); }
    void Finish() { m_pen.Finish(); }

private:
    bool IsOtherThanStated(Quantity kind, double value) const;
    void Use(std::int32_t colour, std::int32_t weight, NameId lineType);
    void FillBehind(MText& text) const;
    void Frame(const DimensionLabel& label);

    const Dimension& m_dimension;
    const Placement& m_placement;
    const PartStyler& m_styleOf;
    const BlockPlacer& m_placeBlock;
    Pen m_pen;
    DimensionStyle m_style;
    Matrix m_fromObject; // to world coordinates
    Matrix m_toPlane;    // from the dimension's plane to the output's
    Point2 m_horizontal{1, 0};
    StyleOfPart m_part;
};

} // namespace prepare
