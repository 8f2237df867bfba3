// The units in which the module is given a drawing.
#pragma once

#include "prepare/write/DrawingWriter.h"

namespace prepare {

// A drawing whose coordinates, strokes or letters the module cannot express is put into one block: moved to
// the origin, in other units. A point p of the drawing is factor * (p - origin) in the block.
struct Wrap {
    bool isNeeded = false;
    Point2 origin; // what a 32-bit float holds exactly
    int power = 0; // a unit of the block is 10 to this power
    double factor = 1;
    double stroke = 0; // the width of the thinnest stroke, in the block's units
};

// reach is around all points of the model: it counts where the settings have no extents.
Wrap ChooseWrap(const WriteSettings& settings, const Box& reach);

} // namespace prepare
