// How far what the logs of a drawing hold reaches.
#pragma once

#include "prepare/plain/Placement.h"
#include "prepare/write/KeptDrawing.h"

#include <deque>

namespace prepare {

// The extents of a model with all that it inserts. Unlike what was measured before, they are of what is
// written alone, and in the form in which it is: curves as fine as they are now.
Box ExtentsOf(const PlainLog& model, const std::deque<KeptBlock>& blocks);

} // namespace prepare
