// The space that an element takes.
#pragma once

#include "svghost/Geometry.h"
#include "svghost/Node.h"

namespace svghost {

// The size of a text that has none, as SVG gives it.
inline constexpr double kDefaultFontSize = 16;

// The width of a stroke that has none, as SVG gives it.
inline constexpr double kDefaultStrokeWidth = 1;

// True when all numbers that the element's geometry and transform are written with are drawable. Containers
// are written with none, whatever attributes they have.
bool IsDrawable(const Node& node);

// The space that one element takes, in the coordinates of its container. For a text it is an estimate.
struct Extent {
    Box box;          // arrow heads included, and strokes, whose widths are taken as lengths
    Box bare;         // without the strokes
    double width = 0; // of the stroke, 0 for what has none
};

// For a use, from the boxes of the symbol. Empty for groups and for what draws nothing.
Extent ExtentOf(const SvgHostDocument& document, const Node& node);

// Whether an element that is drawn within box, as ExtentOf gives it, shows something. For a use, its symbol
// has to be laid out.
bool ShowsSomething(const Node& node, const Box& box);

// How the element is moved: a use by position, rotation and scale, a text turned about its position, other
// elements about "center-x", "center-y".
Affine TransformOf(const Node& node);

} // namespace svghost
