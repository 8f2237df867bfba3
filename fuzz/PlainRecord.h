// One record with what has been read into it, as texts.
#pragma once

#include "PlainLines.h"
#include "PlainRecords.h"

#include <string>
#include <string_view>
#include <vector>

struct PlainRecord {
    explicit PlainRecord(const PlainKind& itsKind);

    // Stores a value line in the field of that index; a group's further lines are read.
    void Store(int index, const std::string& line, PlainLines& lines);

    const std::string& Value(std::string_view name) const;

    const PlainKind* kind;
    std::vector<std::string> values; // as texts show them
    std::string pendingX = "0";
    std::vector<PlainRecord> inner; // parts of a dimension, entries of a table, entities of a block
};

// A line for each field: in the order of the record, or in that of the alphabet and without quotes; an
// entity's with those of its parts.
std::string Listed(const PlainRecord& record);
std::string Sorted(const PlainRecord& record);
std::string EntityText(const PlainRecord& entity);
