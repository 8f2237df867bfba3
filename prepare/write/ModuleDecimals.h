// How exactly a drawing for the module is written.
#pragma once

namespace prepare {

// The decimals of its coordinates, by the width of its thinnest stroke. What they make a point is not
// written: it is less than about a ten-millionth of the drawing.
int ModuleDecimals(double stroke);

} // namespace prepare
