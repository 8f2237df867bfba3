// Texts of several lines.
#pragma once

#include "prepare/plain/PartStyle.h"
#include "prepare/plain/Placement.h"

#include <string_view>

namespace prepare {

// Draws an MTEXT, or what another type has in place of one; typeName is what reports call it. Returns how
// wide its columns are together, in the units of its height.
double DrawMText(const MText& entity, const Placement& placement, const PartStyler& styleOf,
                 std::string_view typeName);

// Draws a TEXT, ATTRIB or ATTDEF whose text is an MTEXT's, at the place that the single-line text has.
void DrawMTextOf(const Text& entity, const Placement& placement, const PartStyler& styleOf,
                 std::string_view typeName);

} // namespace prepare
