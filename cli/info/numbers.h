// Numbers and blanks in a drawing's lines, as the reader takes them.
#ifndef PLEXORN_CLI_INFO_NUMBERS_H
#define PLEXORN_CLI_INFO_NUMBERS_H

#include <optional>
#include <string_view>

namespace plexorn {

// text without white space (the six ASCII characters) at its ends.
std::string_view Trimmed(std::string_view text);

// The integer that trimmed text begins with, whatever follows it; nothing when none does. One that an int
// cannot hold is the int nearest to it.
std::optional<int> LeadingInteger(std::string_view text);

// The decimal number that trimmed text begins with; nothing when none does, or when it is beyond a double.
std::optional<double> LeadingNumber(std::string_view text);

} // namespace plexorn

#endif
