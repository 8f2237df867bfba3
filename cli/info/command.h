// plexorn info.
#ifndef PLEXORN_CLI_INFO_COMMAND_H
#define PLEXORN_CLI_INFO_COMMAND_H

#include "cli/options.h"

namespace plexorn {

// Tells on the standard output what the drawings that options names hold. Gives the exit code. Throws
// CUsageError.
int TellAll(const Options& options);

} // namespace plexorn

#endif
