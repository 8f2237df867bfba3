// POINT, and the dots that points and other entities are.
#pragma once

#include "prepare/plain/Pen.h"

namespace prepare {

// As long as the thinnest stroke is wide, for a tolerance that was chosen by it. While the drawing is being
// measured there is no such tolerance yet, and the dot is its centre.
void DrawDot(Point2 point, Pen& pen);

// By the drawing's $PDMODE.
void DrawPoint(const PointEntity& point, Pen& pen);

} // namespace prepare
