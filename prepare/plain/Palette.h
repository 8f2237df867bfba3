// The colours of the format's colour numbers.
#pragma once

#include <cstdint>

namespace prepare {

// 0xRRGGBB of the colour number 1 to 255; for 7, which depends on the background, that on black.
std::uint32_t PaletteColour(std::int32_t index);

// The colour number, 1 to 255 but not 7 (which depends on the background), that is nearest to 0xRRGGBB. A
// grey stays grey.
std::int32_t NearestColourIndex(std::uint32_t rgb);

} // namespace prepare
