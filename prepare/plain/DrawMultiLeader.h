// Leaders with several lines.
#pragma once

#include "prepare/plain/Pen.h"

namespace prepare {

// Its lines and their arrows.
void DrawMultiLeader(const MultiLeader& leader, Pen& pen);

// Its text, if that is its content.
void DrawMultiLeaderText(const MultiLeader& entity, const Placement& placement, const PartStyler& styleOf);

} // namespace prepare
