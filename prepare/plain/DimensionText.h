// What a dimension says: its measure as a text.
#pragma once

#include "prepare/plain/DimensionStyle.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace prepare {

enum class Quantity : std::uint8_t { Length, Radius, Diameter, Ordinate, Angle };

// The text of a dimension as an MTEXT's: what its author wrote, with the measure by the style in place of
// "<>", or the measure alone where nothing was written. Empty if the author wants none, and if value is
// not finite. value is a length in drawing units or an angle in radians.
std::string DimensionText(const DimensionStyle& style, Quantity kind, double value, std::string_view written);

} // namespace prepare
