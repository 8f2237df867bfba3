// RAY and XLINE.
#pragma once

#include "prepare/plain/Pen.h"

namespace prepare {

// As far as the drawing reaches.
void DrawRay(const Ray& ray, Pen& pen);

} // namespace prepare
