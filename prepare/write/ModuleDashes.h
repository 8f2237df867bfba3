// The dash patterns of a drawing for the module.
#pragma once

#include "prepare/drawing/Drawing.h"

#include <cstddef>
#include <vector>

namespace prepare {

// The lengths of a pattern, dashes and gaps, that hosts draw.
inline constexpr std::size_t kMostDashes = 50;

// The pattern, dashes and gaps by turns, in drawing units (quirks 35 and 37); empty for a solid line. It has
// at most mostLengths lengths and, as the module writes them, 500 characters. A pattern far shorter than the
// stroke is wide is solid, and so is one of which less than a quarter is seen but for its shapes.
std::vector<double> DashesForModule(const LineType& lineType, double scale, double width,
                                    std::size_t mostLengths = kMostDashes);

} // namespace prepare
