// HATCH and MPOLYGON: fills and patterns.
#pragma once

#include "prepare/plain/Pen.h"

namespace prepare {

// Draws a solid hatch, or one with a gradient, as a fill, and any other as the lines of its pattern. Where
// these would be too dense, the fill is a light one. An MPOLYGON is drawn with its outline.
void DrawHatch(const Hatch& hatch, Pen& pen);

} // namespace prepare
