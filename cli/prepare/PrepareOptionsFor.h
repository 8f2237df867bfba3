// How the command prepares a drawing.
#pragma once

#include "cli/options/Options.h"
#include "prepare/Options.h"

namespace plexorn {

// What options ask for.
prepare::Options PrepareOptionsFor(const Options& options);

} // namespace plexorn
