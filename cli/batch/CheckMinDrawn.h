// --min-drawn.
#pragma once

#include "cli/contents/Share.h"
#include "cli/options/Options.h"
#include "cli/report/Report.h"

namespace plexorn {

// Says that too little of a drawing is shown, if options ask for more.
void CheckMinDrawn(const Share& share, const Options& options, Report& report);

} // namespace plexorn
