// Single-line texts.
#pragma once

#include "prepare/plain/Placement.h"

#include <string_view>

namespace prepare {

// Draws a TEXT, ATTRIB or ATTDEF. An ATTDEF shows its tag; a constant one, in a block, its text. typeName is
// what reports call it.
void DrawText(const Text& entity, const Placement& placement, std::string_view typeName);

} // namespace prepare
