// Colours of a MULTILEADER or in a proxy's picture: four bytes in one number, the first of which says what
// the others are.
#pragma once

#include "prepare/plain/PartStyle.h"

#include <cstdint>

namespace prepare {

// An unknown colour is by block.
inline StyleOfPart UnpackColour(std::int32_t packed)
{
    constexpr std::uint32_t kAsLayer = 0xC0, kTrue = 0xC2, kIndex = 0xC3;
    const auto bits = static_cast<std::uint32_t>(packed);
    StyleOfPart part;
    part.colour = kByBlock;
    if (bits >> 24 == kAsLayer)
        part.colour = kByLayer;
    else if (bits >> 24 == kTrue)
        part.trueColour = static_cast<std::int32_t>(bits & 0xFFFFFF);
    else if (bits >> 24 == kIndex)
        part.colour = static_cast<std::int32_t>(bits & 0xFF);
    return part;
}

} // namespace prepare
