// Prints on the standard output.
#pragma once

#include <string>

namespace plexorn {

// Throws std::runtime_error when it cannot be written.
void Print(const std::string& text);

} // namespace plexorn
