#include "prepare/plain/Palette.h"

#include <algorithm>
#include <array>
#include <limits>

namespace prepare {

namespace {

using Components = std::array<int, 3>;

// The numbers 10 to 249 are 24 hues, each 15 degrees from the next, in five brightnesses, each full and pale.
constexpr Components HueColour(int index)
{
    constexpr int kBrightness[] = {255, 165, 127, 76, 38};
    const int hue = index / 10 - 1, bright = kBrightness[index % 10 / 2];
    const int rising = bright * (hue % 4) / 4, falling = bright * (4 - hue % 4) / 4;
    const Components sextants[] = {{bright, rising, 0},  {falling, bright, 0}, {0, bright, rising},
                                   {0, falling, bright}, {rising, 0, bright},  {bright, 0, falling}};
    Components colour = sextants[hue / 4];
    if (index % 2 == 1)
        for (int& component : colour)
            component = (component + bright) / 2;
    return colour;
}

constexpr Components Grey(int level)
{
    return {level, level, level};
}

constexpr auto kColours = [] {
    std::array<Components, 256> colours{};
    const Components first[] = {{255, 0, 0},   {255, 255, 0}, {0, 255, 0},
                                {0, 255, 255}, {0, 0, 255},   {255, 0, 255}};
    std::copy(std::begin(first), std::end(first), colours.begin() + 1);
    colours[7] = Grey(255);
    colours[8] = Grey(128);
    colours[9] = Grey(192);
    for (int index = 10; index < 250; ++index)
        colours[static_cast<std::size_t>(index)] = HueColour(index);
    const int greys[] = {51, 80, 105, 130, 190, 255};
    for (std::size_t i = 0; i < std::size(greys); ++i)
        colours[250 + i] = Grey(greys[i]);
    return colours;
}();

constexpr int Spread(const Components& c)
{
    return std::max({c[0], c[1], c[2]}) - std::min({c[0], c[1], c[2]});
}

int Distance(const Components& a, const Components& b)
{
    int distance = 0;
    for (std::size_t i = 0; i < 3; ++i)
        distance += (a[i] - b[i]) * (a[i] - b[i]);
    return distance;
}

} // namespace

std::uint32_t PaletteColour(std::int32_t index)
{
    std::uint32_t rgb = 0;
    for (const int component : kColours[static_cast<std::size_t>(index)])
        rgb = rgb << 8 | static_cast<std::uint32_t>(component);
    return rgb;
}

std::int32_t NearestColourIndex(std::uint32_t rgb)
{
    constexpr int kGrey = 16; // components that differ by less have no hue that anybody sees
    const Components wanted = {static_cast<int>(rgb >> 16 & 255), static_cast<int>(rgb >> 8 & 255),
                               static_cast<int>(rgb & 255)};
    const bool isGrey = Spread(wanted) < kGrey;
    std::size_t nearest = 0;
    int least = std::numeric_limits<int>::max();
    for (std::size_t i = 1; i < kColours.size(); ++i) {
        if (i == 7 || (isGrey && Spread(kColours[i]) > 0))
            continue;
        if (const int distance = Distance(wanted, kColours[i]); distance < least) {
            least = distance;
            nearest = i;
        }
    }
    return static_cast<std::int32_t>(nearest);
}

} // namespace prepare
