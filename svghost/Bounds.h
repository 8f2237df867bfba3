// The room that an element takes.
#pragma once

#include "svghost/Geometry.h"
#include "svghost/Node.h"

namespace svghost {

// The size of a text that has none, as SVG gives it.
inline constexpr double kDefaultFontSize = 16;

// True when all numbers that the element's geometry and transform are written with are drawable. Containers
// are written with none, whatever attributes they have.
bool IsDrawable(const Node& node);

// The box round the element in the space of its container, strokes and arrow heads included; for a use, from
// the box of the symbol. A text's extent is an estimate. Empty for groups and for what draws nothing.
Box BoundsOf(const SvgHostDocument& document, const Node& node);

// How the element is moved: a use by position, rotation and scale, a text turned about its position, other
// elements about "center-x", "center-y".
Affine TransformOf(const Node& node);

} // namespace svghost
