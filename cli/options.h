// The command line.
#ifndef PLEXORN_CLI_OPTIONS_H
#define PLEXORN_CLI_OPTIONS_H

#include <cstddef>
#include <limits>
#include <string>
#include <variant>
#include <vector>

namespace plexorn {

// What the command line asks for. Paths are UTF-8 (on POSIX systems: the bytes as given).
struct Options {
    // Both commands.
    std::vector<std::string> inputs;
    std::string list; // the file that names further drawings, "-" for the standard input; empty for none
    bool isNullSeparated = false;
    bool isRecursive = false;

    // Drawing.
    std::string output;
    size_t jobs = 0; // 0: as many as the machine has cores
    std::string units = "header";
    std::string background; // a CSS colour or "none"; empty: what fits the rest
    bool isOnPaper = false;
    bool hasHairlines = false;
    bool isQuiet = false;
    std::string messageFormat = "text";
    size_t maxMessages = std::numeric_limits<size_t>::max();
    bool isStrict = false;

    // Info.
    bool isInfo = false;
    bool isJson = false;
    bool withTexts = false;
};

// Reads the arguments (without the command's own name). When there is nothing to do, because help was asked
// for or the usage is wrong, the text has been printed and the result is the exit code.
std::variant<Options, int> ParseOptions(std::vector<std::string> arguments);

} // namespace plexorn

#endif
