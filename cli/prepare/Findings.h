// What preparing found in a drawing, as the command says it.
#pragma once

#include "cli/contents/Share.h"
#include "cli/report/Report.h"
#include "prepare/report/Report.h"

namespace plexorn {

// The share of the drawing that is shown.
Share ShareOf(const prepare::Report& findings);

// Reports what preparing found as messages.
void TellFindings(const prepare::Report& findings, Report& report);

} // namespace plexorn
