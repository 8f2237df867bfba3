// The objects that every R2000 drawing has.
#pragma once

#include "prepare/plain/Placement.h"
#include "prepare/write/PairWriter.h"

namespace prepare {

// The OBJECTS section: the dictionaries, and a layout for the model and one for an empty sheet.
void WriteStandardObjects(PairWriter& pairs, const Box& extents, int decimals);

} // namespace prepare
