// Doing the same to any number of drawings.
#pragma once

#include "cli/files/Jobs.h"
#include "cli/options/ExitCode.h"
#include "cli/options/Options.h"
#include "cli/report/Report.h"

#include <string>
#include <vector>

namespace plexorn {

// What is done to one drawing, which says in report how that went. Throws std::bad_alloc when memory is
// short.
using DoJob = void (*)(const Job& job, const Options& options, Report& report);

// The names of a drawing's sheets, in their order; none when it has none, or cannot be read.
using NameLayouts = std::vector<std::string> (*)(const std::string& drawing, const Options& options);

// Does the work on all drawings that options names, or on each sheet of them that nameLayouts gives, several
// at a time, and prints how it went. Returns the exit code. Throws UsageError.
ExitCode RunBatch(const Options& options, DoJob doJob, NameLayouts nameLayouts);

} // namespace plexorn
