// What the command line asks for.
#pragma once

#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

namespace plexorn {

// The name of the standard input or output.
inline constexpr const char* kStandardStream = "-";

// A command line that cannot be followed.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Paths are UTF-8 (on POSIX systems: the bytes as given).
struct Options {
    // Both commands.
    std::vector<std::string> inputs;
    std::string list; // the file that names further drawings, "-" for the standard input; empty for none
    bool isNullSeparated = false;
    bool isRecursive = false;

    // Drawing.
    std::string output;
    std::size_t jobs = 0; // 0: as many as the machine has cores
    std::string units = "header";
    std::string background; // a CSS colour or "none"; empty: what fits the rest
    bool isOnPaper = false;
    bool hasHairlines = false;
    bool isQuiet = false;
    std::string messageFormat = "text";
    std::size_t maxMessages = std::numeric_limits<std::size_t>::max();
    bool isStrict = false;

    // Info.
    bool isInfo = false;
    bool isJson = false;
    bool withTexts = false;
};

// Whether the standard input is meant more than once, by the names of drawings and that of the list.
bool NamesStandardInputTwice(const std::vector<std::string>& names, const std::string& list);

} // namespace plexorn
