// Drawing any number of drawings.
#ifndef PLEXORN_CLI_BATCH_H
#define PLEXORN_CLI_BATCH_H

#include "inputs.h"

namespace plexorn {

// Draws all that options names, several at a time, and prints how it went. Gives the exit code. Throws
// CUsageError.
int DrawAll(const Options& options);

} // namespace plexorn

#endif
