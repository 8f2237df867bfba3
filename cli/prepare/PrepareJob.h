// Preparing one drawing.
#pragma once

#include "cli/files/Jobs.h"
#include "cli/options/Options.h"
#include "cli/report/Report.h"

namespace plexorn {

// Writes job's drawing as a plain one and reports how it went. Throws std::bad_alloc when memory is short.
void PrepareJob(const Job& job, const Options& options, Report& report);

} // namespace plexorn
