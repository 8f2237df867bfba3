// plexorn info.
#pragma once

#include "cli/options/ExitCode.h"
#include "cli/options/Options.h"

namespace plexorn {

// Prints on the standard output what the drawings that options names hold. Returns the exit code. Throws
// UsageError.
ExitCode RunInfo(const Options& options);

} // namespace plexorn
