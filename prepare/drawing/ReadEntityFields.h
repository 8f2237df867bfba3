// One function for each kind of entity: reads its fields, up to the next record.
#pragma once

#include "prepare/drawing/Entities.h"
#include "prepare/drawing/RecordReader.h"

#include <memory>

namespace prepare {

// Reads one entity; its type's name has been read.
using ReadFunction = std::unique_ptr<Entity> (*)(RecordReader& reader);

ReadFunction ReadFunctionOf(EntityType type);

} // namespace prepare
