// What decides whether a drawing of a batch is worked on.
#pragma once

#include "cli/files/Jobs.h"
#include "cli/files/Source.h"
#include "cli/options/Options.h"
#include "cli/report/Report.h"

namespace plexorn {

// Whether source, which is job's drawing, could be opened and its output should be written; if not, the
// report says why.
bool IsReady(const Source& source, const Job& job, const Options& options, Report& report);

} // namespace plexorn
