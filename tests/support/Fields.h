// Records as texts: what a whole record holds, to compare it with all that it should hold.
#pragma once

#include "entities/DXF_BLOCKS_BLOCK.h"
#include "entities/DXF_GRAPHIC_BASE.h"
#include "entities/DXF_GRAPHIC_INSERT.h"
#include "entities/DXF_GRAPHIC_TEXT.h"
#include "support/Import.h"

#include <initializer_list>
#include <map>
#include <string>
#include <string_view>

// The fields by name. Reals are written with the fewest digits that give them back, texts as traces write
// them.
using FieldTexts = std::map<std::string, std::string>;

std::string FieldText(double value);
std::string FieldText(std::int32_t value);
std::string FieldText(DXF_STRING value);
std::string FieldText(const DXF_HANDLE& value);

// All fields of a record, those that entities share included; a block's without its entities.
FieldTexts FieldMapOf(const DXF_GRAPHIC_BASE& record);
FieldTexts FieldMapOf(const DXF_GRAPHIC_TEXT& record);
FieldTexts FieldMapOf(const DXF_GRAPHIC_MTEXT& record);
FieldTexts FieldMapOf(const DXF_GRAPHIC_INSERT& record);
FieldTexts FieldMapOf(const DXF_BLOCKS_BLOCK& block);

// What the shared fields of an entity of a kind hold when its file gives none of them.
FieldTexts SharedDefaults(int kind);

// defaults with some fields changed or added.
FieldTexts With(FieldTexts defaults, std::initializer_list<FieldTexts::value_type> changed);

// A group of a record, and what it does: the field that it changes and what that holds afterwards.
struct FieldRow {
    std::string_view code;
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

// Reads one entity of a type with some lines of groups.
class OneEntity : public ReportingReader {
public:
    OneEntity(std::string_view type, std::string_view groups)
    {
        ReadText(Section("ENTITIES", Lines({"0", type}) + std::string(groups)) + Lines({"0", "EOF"}));
    }
};

// The messages of an entity of a type whose groups are every code from -3 to 1100 but those in known and 0,
// each with the value "v", that are to come when it knows none of them; and the groups.
struct UnknownCodes {
    UnknownCodes(std::string_view type, std::initializer_list<int> known);

    std::string drawing;
    std::vector<std::string> messages;
};
