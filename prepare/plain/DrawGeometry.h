// The entities without texts, as plain ones.
#pragma once

#include "prepare/plain/PartStyle.h"
#include "prepare/plain/Placement.h"

namespace prepare {

// Curves, lines, points and outlines: false when the type is not among them.
bool DrawGeometry(const Entity& entity, const Placement& placement, const PartStyler& styleOf);

} // namespace prepare
