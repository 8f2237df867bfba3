// The layouts of a drawing.
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

// Reads all of a drawing but its entities, with its layouts; false when it could not be read to its end.
bool ReadLayouts(ReopenableSource& source, std::string_view encoding, Drawing& drawing, Report& report);

// The layouts of a drawing, without its model space. encoding is of the drawing's texts; empty: as it says.
PrepareOutcome ListLayouts(ReopenableSource& source, std::string_view encoding,
                           std::vector<LayoutSize>& layouts);

} // namespace prepare
