// Numbers that may be missing where one belongs.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace plexorn {

// The integer that text begins with after blanks, whatever follows it; nothing when there is none. One that
// 32 bits cannot hold is the nearest that they can.
std::optional<std::int32_t> LeadingInteger(std::string_view text);

// The decimal number that text begins with after blanks; nothing when there is none, or when it is beyond a
// double's range, large or small.
std::optional<double> LeadingNumber(std::string_view text);

} // namespace plexorn
