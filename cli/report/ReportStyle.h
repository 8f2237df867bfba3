// How reports look.
#pragma once

#include "cli/options/Options.h"

#include <cstddef>

namespace plexorn {

struct ReportStyle {
    bool isJson = false;
    bool isQuiet = false;
    bool isStrict = false;  // a drawing that --strict does not accept has its closing line under isQuiet too
    bool isVerbose = false; // messages are printed one by one; JSON does so anyway
    bool isColoured = false;
    std::size_t maxMessages = 0; // or groups of messages, where they are printed
};

// As options ask for it: in colour on a terminal, unless the environment variable NO_COLOR is set.
ReportStyle StyleFor(const Options& options, bool isTerminal);

} // namespace plexorn
