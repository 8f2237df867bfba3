// Texts of one line, attributes and texts of several lines.
#pragma once

#include "prepare/drawing/RecordReader.h"

#include <memory>

namespace prepare {

// Each reads one entity; its type's name has been read.
std::unique_ptr<Entity> ReadText(RecordReader& reader);
std::unique_ptr<Entity> ReadAttribute(RecordReader& reader);
// Its text stays as it is: ReadMText reads the codes in it.
std::unique_ptr<Entity> ReadMTextRecord(RecordReader& reader);

} // namespace prepare
