// Why nothing of a drawing is visible.
#pragma once

#include "cli/contents/DrawingInfo.h"
#include "cli/contents/Share.h"
#include "prepare/report/Report.h"

#include <cstddef>
#include <string>

namespace plexorn {

// The reason, as a sentence for a drawing of which something should be visible, and of which the module, by
// itself, made that many elements.
std::string WhyBlank(const DrawingInfo& info, const Share& share, std::size_t elements);

// The same for a drawing that was prepared, which gave findings.
std::string WhyBlank(const prepare::Report& findings);

} // namespace plexorn
