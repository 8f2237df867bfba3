// Where most of a drawing is.
#pragma once

#include "svghost/Geometry.h"

#include <cstddef>

struct SvgHostDocument;

namespace svghost {

// How much of the drawing is most of it. An element counts with the width and height of its box, a point as
// nothing.
inline constexpr double kMostShare = 0.99;

// A single element, or use of a symbol with few elements, is no part of most of the drawing if its longer
// side is less than this share of that of all others, however few those are.
inline constexpr double kStraySize = 0.5;
inline constexpr std::size_t kStrayElements = 10;

// The box round most of what the laid out document shows, without its strokes. What lies near that box is in
// it too: so it is the box of everything unless something lies farther off than half its longer side. Takes
// time linear in the elements, and a few dozen bytes for each.
Box BoxOfMost(const SvgHostDocument& document);

// The longer side of a box, 0 for an empty one.
double LongerSide(const Box& box);

} // namespace svghost
