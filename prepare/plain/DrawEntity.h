// Entities as plain ones.
#pragma once

#include "prepare/plain/PartStyle.h"
#include "prepare/plain/Placement.h"

namespace prepare {

// Draws an entity of any type but DIMENSION, INSERT and VIEWPORT, and reports what it cannot draw of it.
// False when its type cannot be drawn.
bool DrawEntity(const Entity& entity, const Placement& placement, const PartStyler& styleOf);

} // namespace prepare
