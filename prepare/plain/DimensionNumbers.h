// A dimension's numbers as texts.
#pragma once

#include <cstdint>
#include <string>

namespace prepare {

// In the zeros of a style.
inline constexpr std::int32_t kNoTrailingZeros = 8;

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

} // namespace prepare
