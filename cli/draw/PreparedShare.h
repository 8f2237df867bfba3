// What preparing a drawing met, as the command says it.
#pragma once

#include "cli/report/Outcome.h"
#include "cli/report/Report.h"
#include "prepare/report/Report.h"

namespace plexorn {

// Reports what preparing met as messages, and puts the share of the drawing that is shown into outcome, in
// place of what the module alone would show.
void TellPrepared(const prepare::Report& findings, Outcome& outcome, Report& report);

} // namespace plexorn
