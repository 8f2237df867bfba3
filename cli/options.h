// The command line.
#ifndef PLEXORN_CLI_OPTIONS_H
#define PLEXORN_CLI_OPTIONS_H

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace plexorn {

// What the command line asks for. Paths are UTF-8 (on POSIX systems: the bytes as given).
struct Options {
    std::string input;
    std::string output;
    std::optional<std::string> background; // a CSS colour, nothing for none
    bool quiet = false;
};

// Reads the arguments (without the command's own name). When there is nothing to draw, because help was
// asked for or the usage is wrong, the text has been printed and the result is the exit code.
std::variant<Options, int> ParseOptions(std::vector<std::string> arguments);

} // namespace plexorn

#endif
