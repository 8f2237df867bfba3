// Records as the format's tables list them, kept as texts: slow, plain, and made for comparing only.
#pragma once

#include "PlainKind.h"

#include <string_view>

// The kind of an entity by its type name, of a table's entry by the table's, of a dimension's part by its
// marker; null when there is none that is kept.
const PlainKind* EntityKind(std::string_view typeName);
const PlainKind* EntryKind(std::string_view typeName);
const PlainKind* PartKind(std::string_view marker);
const PlainKind& TableKind();
const PlainKind& BlockKind();

// Whether a name begins an entity within a block.
bool IsEntityName(std::string_view name);
