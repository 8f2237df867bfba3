// What a text takes from its style and from the drawing when it says nothing itself.
#pragma once

#include "prepare/drawing/Drawing.h"

#include <string_view>

namespace prepare {

// height if it is above 0, else the style's fixed one, else the drawing's $TEXTSIZE. style may be null.
double TextHeightOf(double height, const TextStyle* style, const Header& header);

// The factor, or 1 if it is no width factor.
double WidthFactorOf(double factor);

// Whether the font's file is a TrueType one: others are of strokes and may be written vertically.
bool IsTrueType(std::string_view font);

// How far the top of a letter leans over at that angle in degrees, in heights of capitals. The format allows
// 85 degrees to either side; what is beyond them stops there.
double SlantOf(double degrees);

} // namespace prepare
