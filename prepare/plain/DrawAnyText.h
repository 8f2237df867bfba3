// Texts, as plain ones.
#pragma once

#include "prepare/plain/PartStyle.h"
#include "prepare/plain/Placement.h"

namespace prepare {

// TEXT, ATTRIB, ATTDEF and MTEXT: false when the type is not among them. Inserts and blocks decide before
// whether an attribute is visible.
bool DrawAnyText(const Entity& entity, const Placement& placement, const PartStyler& styleOf);

} // namespace prepare
