// Reads what a drawing lists by name: its header, its tables and the styles among its objects.
#pragma once

#include "prepare/drawing/RecordReader.h"

#include <string_view>

namespace prepare {

// Reads the variables of the HEADER section, up to the next record. The first value of a variable counts.
void ReadHeader(RecordReader& reader);

// Reads the table entry whose type's name is the current pair, up to the next record. The first entry of a
// name counts. False of a type that is not kept: then nothing is read.
bool ReadTableEntry(RecordReader& reader);

} // namespace prepare
