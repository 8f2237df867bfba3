// How wide a stroke is drawn.
#pragma once

#include "prepare/write/DrawingWriter.h"

#include <cstdint>

namespace prepare {

// The width of the strokes of that weight, in hundredths of a millimetre, or of that width where it is above
// 0. In drawing units.
double StrokeWidth(const WriteSettings& settings, std::int32_t weight, double width);

} // namespace prepare
