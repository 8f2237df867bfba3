// One function for each kind of entity: reads its fields, up to the next record.
#pragma once

#include "prepare/drawing/Entities.h"
#include "prepare/drawing/RecordReader.h"

#include <memory>

namespace prepare {

// Reads one entity; its type's name has been read. Null for those that are not kept.
using ReadFunction = std::unique_ptr<Entity> (*)(RecordReader& reader);

ReadFunction ReadFunctionOf(EntityType type);

// Those that take more than a table.
std::unique_ptr<Entity> ReadAttribute(RecordReader& reader);
std::unique_ptr<Entity> ReadText(RecordReader& reader);
// Its text stays as it is: ReadMText reads the codes in it.
std::unique_ptr<Entity> ReadMTextRecord(RecordReader& reader);
std::unique_ptr<Entity> ReadHatch(RecordReader& reader);
std::unique_ptr<Entity> ReadDimension(RecordReader& reader);
std::unique_ptr<Entity> ReadLeader(RecordReader& reader);
std::unique_ptr<Entity> ReadMultiLeader(RecordReader& reader);
std::unique_ptr<Entity> ReadTable(RecordReader& reader);

} // namespace prepare
