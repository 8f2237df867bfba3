// WIPEOUT.
#pragma once

#include "prepare/plain/Pen.h"

namespace prepare {

// Hides what is behind its outline.
void DrawWipeout(const Image& wipeout, Pen& pen);

} // namespace prepare
