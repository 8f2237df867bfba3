// The command line.
#pragma once

#include "cli/options/ExitCode.h"
#include "cli/options/Options.h"

#include <string>
#include <variant>
#include <vector>

namespace plexorn {

// Reads the arguments (without the command's own name). When there is nothing to do, because help was asked
// for or the usage is wrong, it has printed the text and returns the exit code.
std::variant<Options, ExitCode> ParseOptions(std::vector<std::string> arguments);

} // namespace plexorn
