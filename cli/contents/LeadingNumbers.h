// Numbers at the start of texts that may have none.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace plexorn {

// The integer that text begins with after blanks, whatever follows it; nothing if it begins with no integer.
// One that does not fit 32 bits becomes the nearest that does.
std::optional<std::int32_t> LeadingInteger(std::string_view text);

// The decimal number that text begins with after blanks; nothing if it begins with no number, or if that is
// beyond a double's range, large or small.
std::optional<double> LeadingNumber(std::string_view text);

} // namespace plexorn
