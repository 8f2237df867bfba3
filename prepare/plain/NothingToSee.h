// Entities that nobody sees, as their drawing states it.
#pragma once

#include "prepare/drawing/Drawing.h"

namespace prepare {

// Whether an entity of which nothing came is shown all the same: a text without words, a POINT where points
// have no mark, a face whose edges are hidden, a HATCH between the lines of its pattern, a MULTILEADER whose
// block is empty.
bool HasNothingToSee(const Entity& entity, const Drawing& drawing);

} // namespace prepare
