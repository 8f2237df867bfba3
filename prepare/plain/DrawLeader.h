// LEADER.
#pragma once

#include "prepare/plain/Pen.h"

namespace prepare {

// The hook line is one of the segments.
void DrawLeader(const Leader& leader, Pen& pen);

} // namespace prepare
