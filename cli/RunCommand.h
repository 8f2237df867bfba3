// The command: from its arguments to its exit code.
#pragma once

#include <string>
#include <vector>

namespace plexorn {

// Runs the command with its arguments (without its own name; UTF-8, on POSIX systems the bytes as given)
// and returns its exit code. Throws nothing.
int RunCommand(std::vector<std::string> arguments) noexcept;

} // namespace plexorn
