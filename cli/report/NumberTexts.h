// Numbers in what people read.
#pragma once

#include "base/Numbers.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace plexorn {

// "1 entity", "2 entities".
inline std::string Counted(std::uint64_t number, std::string_view singular, std::string_view plural)
{
    return std::to_string(number).append(" ").append(number == 1 ? singular : plural);
}

// The number with that many significant digits.
inline std::string Rounded(double number, int digits)
{
    char text[kLongestFormatted];
    return std::string(text, FormatGeneral(number, digits, text));
}

} // namespace plexorn
