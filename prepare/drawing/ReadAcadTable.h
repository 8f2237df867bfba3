// Tables among the entities.
#pragma once

#include "prepare/drawing/RecordReader.h"

#include <memory>

namespace prepare {

// Reads one; its type's name has been read.
std::unique_ptr<Entity> ReadAcadTable(RecordReader& reader);

} // namespace prepare
