// Lists the sheets of drawings.
#pragma once

#include "cli/options/ExitCode.h"
#include "cli/options/Options.h"

namespace plexorn {

// Prints the names of the sheets of all drawings that options names, one a line; of several drawings, after
// the drawing's name. Throws UsageError, and std::runtime_error when the standard output cannot be written.
ExitCode TellLayouts(const Options& options);

} // namespace plexorn
