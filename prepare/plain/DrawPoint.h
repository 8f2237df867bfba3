// POINT.
#pragma once

#include "prepare/plain/Pen.h"

namespace prepare {

// By the drawing's $PDMODE.
void DrawPoint(const PointEntity& point, Pen& pen);

} // namespace prepare
