// Preparing a sheet of a drawing.
#pragma once

#include "prepare/PrepareDrawing.h"
#include "prepare/drawing/Drawing.h"

#include <string_view>
#include <vector>

namespace prepare {

// Whether that is the model space's name; upper and lower case are the same.
bool IsModelName(std::string_view name);

// The sheets of a drawing that has been read, in the order of their tabs. One that mentions none has a sheet
// if anything is in its paper space.
std::vector<LayoutSize> SizesOfLayouts(const Drawing& drawing, bool hasPaperSpace);

// As PrepareDrawing, for the layout that options name.
PrepareOutcome PrepareSheet(ReopenableSource& source, const Options& options, const ByteFunction& write,
                            Report& report, const ProgressFunction& progress);

// The layouts of a drawing, without its model space. encoding is of the drawing's texts; empty: as it says.
PrepareOutcome ListLayouts(ReopenableSource& source, std::string_view encoding,
                           std::vector<LayoutSize>& layouts);

} // namespace prepare
