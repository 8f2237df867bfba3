// Drawing one drawing.
#pragma once

#include "cli/files/Jobs.h"
#include "cli/options/Options.h"
#include "cli/report/Report.h"

namespace plexorn {

// Draws job's drawing to its picture and reports how it went. Throws std::bad_alloc when memory is short.
void DrawJob(const Job& job, const Options& options, Report& report);

} // namespace plexorn
