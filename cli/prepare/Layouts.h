// The sheets of a drawing.
#pragma once

#include "cli/files/Source.h"
#include "cli/options/Options.h"
#include "prepare/report/Report.h"

#include <string>
#include <vector>

namespace plexorn {

// The names of the sheets in source, in their order. Throws std::bad_alloc, and std::system_error when the
// drawing cannot be read to its end.
std::vector<std::string> LayoutsOf(Source& source, const Options& options);

// The same for the drawing of that name; no names if anything is wrong with it.
std::vector<std::string> LayoutsIn(const std::string& drawing, const Options& options);

// Why a drawing has no such sheet, as the end of a sentence. findings are those of preparing it.
std::string WhyNoLayout(const std::string& wanted, const prepare::Report& findings);

} // namespace plexorn
