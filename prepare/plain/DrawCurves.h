// LINE, 3DLINE, CIRCLE, ARC and ELLIPSE.
#pragma once

#include "prepare/plain/Pen.h"

namespace prepare {

void DrawLine(const Line& line, Pen& pen);
void DrawCircle(const Circle& circle, Pen& pen);
void DrawArc(const Arc& arc, Pen& pen);
void DrawEllipse(const Ellipse& ellipse, Pen& pen);

} // namespace prepare
