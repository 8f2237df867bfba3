// Tables whose block with their picture is missing.
#pragma once

#include "prepare/plain/PartStyle.h"
#include "prepare/plain/Placement.h"

namespace prepare {

// Draws the lines and the texts of a table, without its style, which is not known. Its point is the upper
// left corner.
void DrawTable(const Table& table, const Placement& placement, const PartStyler& styleOf);

} // namespace prepare
