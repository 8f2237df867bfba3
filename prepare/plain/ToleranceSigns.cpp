#include "prepare/plain/ToleranceSigns.h"

#include "base/Letters.h"

#include <algorithm>
#include <iterator>

namespace prepare {

namespace {

// From a on.
constexpr std::string_view kSigns[] = {
    "\u2220", // angularity
    "\u27C2", // perpendicularity
    "\u23E5", // flatness
    "\u2313", // profile of a surface
    "\u25CB", // circularity
    "\u2225", // parallelism
    "\u232D", // cylindricity
    "\u2197", // circular run-out
    "\u232F", // symmetry
    "\u2316", // position
    "\u2312", // profile of a line
    "\u24C1", // least material
    "\u24C2", // maximum material
    "\u00D8", // diameter
    "\u25A1", // square
    "\u24C5", // projected zone
    "\u2104", // centre line
    "\u25CE", // concentricity
    "\u24C8", // regardless of size
    "\u2330", // total run-out
    "\u23E4", // straightness
};

} // namespace

bool IsSignFont(std::string_view font)
{
    constexpr std::string_view kName = "gdt";
    return AreSameLetters(font.substr(0, kName.size()), kName);
}

std::string_view ToleranceSign(char letter)
{
    const auto place = static_cast<std::size_t>(static_cast<unsigned char>(letter)) - 'a';
    return place < std::size(kSigns) ? kSigns[place] : std::string_view();
}

} // namespace prepare
