// Doing the same to any number of drawings.
#pragma once

#include "cli/files/Jobs.h"
#include "cli/options/ExitCode.h"
#include "cli/options/Options.h"
#include "cli/report/Report.h"

namespace plexorn {

// What is done to one drawing, which says in report how that went. Throws std::bad_alloc when memory is
// short.
using DoJob = void (*)(const Job& job, const Options& options, Report& report);

// Does the work on all drawings that options names, several at a time, and prints how it went. Returns the
// exit code. Throws UsageError.
ExitCode RunBatch(const Options& options, DoJob doJob);

} // namespace plexorn
