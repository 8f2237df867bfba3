// The contract of every entity reader.
#pragma once

#include "reader/ReadFields.h"

// Makes a record and puts it into the list at once: whatever happens to its fields, it is kept.
template <class Record>
Record* NewEntity(CDxfRead& reader, DXF_ENTITY_LIST& list)
{
    Record* const record = reader.store.New<Record>();
    list.Add(reader.store, record);
    return record;
}

// What the reader of a type's records says about a line that should be a group code.
template <class Record>
struct DXF_BAD_CODE;
#define DXF_DEFINE_BAD_CODE(number, TYPE, Callback, constness)                                               \
    template <>                                                                                              \
    struct DXF_BAD_CODE<DXF_GRAPHIC_##TYPE> {                                                                \
        static constexpr const wchar_t* kMessage =                                                           \
            L"ReadENTITIES_" #TYPE L" Failed to read integer from '%s', Line:%d";                            \
    };
DXF_DRAWN_TYPES(DXF_DEFINE_BAD_CODE)
#undef DXF_DEFINE_BAD_CODE

// Makes a record and reads its pairs: codes of its table into their fields, all others as codes that entities
// share. True when the entity ended at a "0".
template <class Record, std::size_t count>
bool ReadEntity(CDxfRead& reader, CDxfStream& stream, DXF_ENTITY_LIST& list,
                const CDxfFieldTable<Record, count>& table)
{
    Record* const record = NewEntity<Record>(reader, list);
    const auto other = [&](std::int32_t code, CDxfLine value) {
        reader.ReadENTITIES_COMMON(code, value, *record, stream);
    };
    return reader.ReadFields(stream, *record, table, DXF_BAD_CODE<Record>::kMessage, other) == DXF_END_ZERO;
}
