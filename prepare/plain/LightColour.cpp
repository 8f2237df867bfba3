#include "prepare/plain/LightColour.h"

#include <algorithm>
#include <cmath>

namespace prepare {

namespace {

std::uint32_t Joined(std::uint32_t red, std::uint32_t green, std::uint32_t blue)
{
    return red << 16 | green << 8 | blue;
}

// 1 to 9, and 250 to 255.
constexpr std::uint32_t kNamed[] = {0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF, 0x0000FF,
                                    0xFF00FF, 0x808080, 0x808080, 0xC0C0C0};
constexpr std::uint32_t kGreys[] = {0x333333, 0x505050, 0x696969, 0x828282, 0xBEBEBE, 0xFFFFFF};

// 10 to 249: each ten has a hue, 24 around the circle; even ones are full, odd ones pale, and they get
// darker.
std::uint32_t OfHue(std::int32_t index)
{
    constexpr std::uint32_t kBrightness[] = {255, 165, 127, 76, 38};
    constexpr double kHues = 24, kSextants = 6;
    const std::uint32_t brightest = kBrightness[index % 10 / 2];
    const std::uint32_t darkest = index % 2 != 0 ? brightest / 2 : 0;
    const std::int32_t ten = index / 10;
    const double hue = (ten - 1) * kSextants / kHues;
    const auto part = [&](double centre) {
        const double away = std::fabs(std::remainder(hue - centre, kSextants));
        const double share = std::clamp(2 - away, 0.0, 1.0);
        return darkest + static_cast<std::uint32_t>(share * (brightest - darkest));
    };
    return Joined(part(0), part(2), part(4));
}

std::uint32_t OfIndex(std::int32_t index)
{
    if (index >= 250 && index <= 255)
        return kGreys[index - 250];
    if (index >= 10 && index < 250)
        return OfHue(index);
    return kNamed[index >= 1 && index <= 9 ? index - 1 : 6];
}

} // namespace

Colour LightColour(const Colour& colour)
{
    constexpr std::int32_t kForeground = 7;
    if (!colour.isTrue && colour.index == kForeground)
        return {true, 0x808080, kForeground};
    const std::uint32_t rgb = colour.isTrue ? colour.rgb : OfIndex(colour.index);
    const auto lighter = [&](unsigned shift) { return ((rgb >> shift & 0xFF) + 0xFF) / 2; };
    return {true, Joined(lighter(16), lighter(8), lighter(0)), kForeground};
}

} // namespace prepare
