// MLINE.
#pragma once

#include "prepare/plain/Pen.h"

namespace prepare {

// The lines of its elements, with the fill, joints and caps of its style.
void DrawMultiLine(const MultiLine& multiLine, Pen& pen);

} // namespace prepare
