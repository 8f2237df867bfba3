// Real numbers in what people read.
#pragma once

#include "base/Numbers.h"

#include <string>

namespace plexorn {

// The number with that many significant digits.
inline std::string Rounded(double number, int digits)
{
    char text[kLongestFormatted];
    return std::string(text, FormatGeneral(number, digits, text));
}

} // namespace plexorn
