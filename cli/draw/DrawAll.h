// Drawing any number of drawings.
#pragma once

#include "cli/options/ExitCode.h"
#include "cli/options/Options.h"

namespace plexorn {

// Draws all that options names, several at a time, and prints how it went. Returns the exit code. Throws
// UsageError.
ExitCode DrawAll(const Options& options);

} // namespace plexorn
