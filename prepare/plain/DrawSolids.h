// SOLID and TRACE, which are areas, and 3DFACE, which is an outline.
#pragma once

#include "prepare/plain/Pen.h"

namespace prepare {

void DrawSolid(const Solid& solid, Pen& pen);
void DrawFace(const Solid& face, Pen& pen);

} // namespace prepare
