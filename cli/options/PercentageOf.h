// Percentages on the command line.
#pragma once

#include <optional>
#include <string>

namespace plexorn {

// The number of a text such as "95%", "95" or "99.5%", 0 to 100; nothing when it is no such text.
std::optional<double> PercentageOf(const std::string& text);

} // namespace plexorn
