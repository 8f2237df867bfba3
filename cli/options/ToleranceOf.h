// Tolerances on the command line.
#pragma once

#include <optional>
#include <string>

namespace plexorn {

// The number of a text such as "0.01", above 0; nothing when it is no such text.
std::optional<double> ToleranceOf(const std::string& text);

} // namespace plexorn
