// What preparing found in a drawing, as the command says it.
#pragma once

#include "cli/contents/Share.h"
#include "cli/report/Report.h"
#include "prepare/report/Report.h"

namespace plexorn {

// The share of the drawing that is shown. Of the model space it says how much is left on the sheets, too.
Share ShareOf(const prepare::Report& findings);

// Has report list what is added to findings from now on, if it lists messages one by one. report must outlive
// the preparing.
void ListFindings(prepare::Report& findings, Report& report);

// Reports what preparing found as messages, one for each kind, unless report has listed them.
void TellFindings(const prepare::Report& findings, Report& report);

} // namespace plexorn
