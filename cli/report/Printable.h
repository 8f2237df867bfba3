// Texts for a terminal.
#pragma once

#include <string>
#include <string_view>

namespace plexorn {

// text (UTF-8) with its control characters written as \xNN, fit for a terminal: names and values from a file
// cannot move its cursor or change its colours.
std::string Printable(std::string_view text);

} // namespace plexorn
