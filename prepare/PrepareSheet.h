// Preparing a sheet of a drawing.
#pragma once

#include "prepare/PrepareDrawing.h"

namespace prepare {

// As PrepareDrawing, for the layout that options name.
PrepareOutcome PrepareSheet(ReopenableSource& source, const Options& options, const ByteFunction& write,
                            Report& report, const ProgressFunction& progress);

} // namespace prepare
