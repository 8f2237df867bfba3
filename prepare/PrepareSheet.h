// Preparing a sheet of a drawing.
#pragma once

#include "prepare/PrepareDrawing.h"

#include <string_view>
#include <vector>

namespace prepare {

// Whether that is the model space's name; upper and lower case are the same.
bool IsModelName(std::string_view name);

// As PrepareDrawing, for the layout that options name. report has all layouts then.
PrepareOutcome PrepareSheet(ReopenableSource& source, const Options& options, const ByteFunction& write,
                            Report& report, const ProgressFunction& progress);

// The layouts of a drawing, without its model space. encoding is of the drawing's texts; empty: as it says.
PrepareOutcome ListLayouts(ReopenableSource& source, std::string_view encoding,
                           std::vector<LayoutSize>& layouts);

} // namespace prepare
