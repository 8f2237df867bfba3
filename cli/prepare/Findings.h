// What preparing a drawing met, as the command says it.
#pragma once

#include "cli/contents/Share.h"
#include "cli/report/Report.h"
#include "prepare/report/Report.h"

namespace plexorn {

// Reports what preparing met as messages; gives the share of the drawing that is shown.
Share TellFindings(const prepare::Report& findings, Report& report);

} // namespace plexorn
