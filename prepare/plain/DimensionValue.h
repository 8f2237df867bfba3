// What a dimension says: its measure as a text.
#pragma once

#include "prepare/plain/DimensionStyle.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace prepare {

// Texts one after another.
std::string Joined(std::initializer_list<std::string_view> parts);

// How a number is written. The fields are those of a style.
struct NumberFormat {
    std::int32_t unit = 2; // scientific, decimal, engineering, architectural, fractional, as the desktop
    std::int32_t decimals = 4;
    std::int32_t zeros = 0;    // which are left out
    std::int32_t fraction = 0; // horizontal, diagonal, in the line
    char separator = '.';
};

// A length with MTEXT's codes for fractions. Of feet and inches value is in inches.
std::string FormatLength(double value, const NumberFormat& format);

// An angle in radians; unit: degrees, degrees with minutes and seconds, grads, radians, surveyors' units.
std::string FormatAngle(double radians, const NumberFormat& format);

enum class Measured : std::uint8_t { Length, Radius, Diameter, Ordinate, Angle };

// The text of a dimension as an MTEXT's: what its author wrote, with the measure by the style in place of
// "<>", or the measure alone where nothing was written. Empty when the author wants none, and when value is
// no number. value is a length in drawing units or an angle in radians.
std::string DimensionText(const DimensionStyle& style, Measured kind, double value, std::string_view written);

} // namespace prepare
