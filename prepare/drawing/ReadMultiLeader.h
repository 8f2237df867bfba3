// Multileaders.
#pragma once

#include "prepare/drawing/RecordReader.h"

#include <memory>

namespace prepare {

// Reads one; its type's name has been read.
std::unique_ptr<Entity> ReadMultiLeader(RecordReader& reader);

} // namespace prepare
