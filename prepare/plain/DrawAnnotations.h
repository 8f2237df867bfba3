// The texts of notes, as plain ones.
#pragma once

#include "prepare/plain/PartStyle.h"
#include "prepare/plain/Placement.h"

namespace prepare {

// The frame of a TOLERANCE, the text of a MULTILEADER, and an ACAD_TABLE that has no picture block: false
// when the type is not among them.
bool DrawAnnotations(const Entity& entity, const Placement& placement, const PartStyler& styleOf);

} // namespace prepare
