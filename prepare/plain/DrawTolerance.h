// Frames of tolerances.
#pragma once

#include "prepare/plain/PartStyle.h"
#include "prepare/plain/Placement.h"

namespace prepare {

// A frame has a row for each line and a cell for each %%v; empty ones at the end are not drawn. The point is
// half way up the first row's left side.
void DrawTolerance(const Tolerance& entity, const Placement& placement, const PartStyler& styleOf);

} // namespace prepare
