// Drawings of one entity, and what its record holds after them.
#pragma once

#include "entities/DXF_BLOCKS_BLOCK.h"
#include "entities/DXF_GRAPHIC_BASE.h"
#include "entities/DXF_GRAPHIC_INSERT.h"
#include "entities/DXF_GRAPHIC_TEXT.h"
#include "support/Import.h"
#include "support/RecordText.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

// What the shared fields of an entity of a kind hold when its file gives none of them.
FieldTexts SharedDefaults(int kind);

// A group of a record, and what it does: the field that it changes and what that holds afterwards.
struct FieldRow {
    int code;
    std::string_view value;
    const char* field;
    const char* text;
};

// The only entity of a list, which is of the type that the test asks for; an empty record if it is not.
template <class Record>
const Record& OnlyEntity(const DXF_ENTITY_LIST& list)
{
    static const Record none;
    const auto* const record = list.size() == 1 ? dynamic_cast<const Record*>(list[0]) : nullptr;
    return record == nullptr ? none : *record;
}

// Reads a drawing of one entity with some groups, or with lines as they are.
class OneEntity : public ReportingReader {
public:
    OneEntity(std::string_view type, std::string_view groups)
    {
        ReadText(Section("ENTITIES", Dxf({{0, type}}).append(groups)) + Dxf({{0, "EOF"}}));
    }
    OneEntity(std::string_view type, std::initializer_list<Group> groups) : OneEntity(type, Dxf(groups)) {}
};

// The messages of an entity of a type whose groups are every code from -3 to 1100 but those in known and 0,
// each with the value "v", that are to come when it knows none of them; and the groups.
struct UnknownCodes {
    UnknownCodes(std::string_view type, std::initializer_list<int> known);

    std::string drawing;
    std::vector<std::string> messages;
};
