// LWPOLYLINE and POLYLINE.
#pragma once

#include "prepare/plain/Pen.h"

namespace prepare {

void DrawLwPolyline(const LwPolyline& polyline, Pen& pen);
// A mesh or a polyface is drawn as what it is.
void DrawPolyline(const Polyline& polyline, Pen& pen);

} // namespace prepare
