#include "prepare/plain/LightColour.h"

#include "prepare/plain/Palette.h"

namespace prepare {

Colour LightColour(const Colour& colour)
{
    constexpr std::int32_t kForeground = 7;
    constexpr std::uint32_t kGrey = 0x808080; // shows on any background
    if (!colour.isTrue && colour.index == kForeground)
        return {true, kGrey, kForeground};
    const bool isNumbered = colour.index >= 1 && colour.index <= 255;
    const std::uint32_t numbered = isNumbered ? PaletteColour(colour.index) : kGrey;
    const std::uint32_t rgb = colour.isTrue ? colour.rgb : numbered;
    const auto lighter = [&](unsigned shift) { return ((rgb >> shift & 0xFF) + 0xFF) / 2 << shift; };
    return {true, lighter(16) | lighter(8) | lighter(0), kForeground};
}

} // namespace prepare
