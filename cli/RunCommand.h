// The command: from its arguments to its exit code.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace plexorn {

// Runs the command with the arguments that getArguments gives (without its own name; UTF-8, on POSIX systems
// the bytes as given) and returns its exit code. Throws nothing; getArguments may.
int RunCommand(const std::function<std::vector<std::string>()>& getArguments) noexcept;

} // namespace plexorn
