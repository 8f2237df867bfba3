// Dimensions of circles.
#pragma once

#include "prepare/plain/DimensionPen.h"

namespace prepare {

void DrawRadialDimension(DimensionPen& pen);
void DrawDiametricDimension(DimensionPen& pen);
// Of a radius whose line has a jog, as its centre is far away.
void DrawJoggedDimension(DimensionPen& pen);

} // namespace prepare
