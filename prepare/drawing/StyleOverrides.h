// The extended data in which dimensions and leaders override their style.
#pragma once

#include "prepare/drawing/EntityFields.h"

#include <algorithm>
#include <string>

namespace prepare {

// Reads a record's overrides: the list in braces after DSTYLE, in the section of the application ACAD. Each
// function takes a value of the group codes that it is named after.
template <class Record>
class StyleOverrides {
public:
    static void TakeApplication(RecordReader& reader, Record&, CDxfLine value)
    {
        reader.phase = Trim(value) == "ACAD" ? kApplication : kElsewhere;
    }

    static void TakeString(RecordReader& reader, Record& record, CDxfLine value)
    {
        if (reader.phase == kApplication && Trim(value) == "DSTYLE")
            reader.phase = kStyle;
        else
            TakeValue(reader, record, value);
    }

    static void TakeBrace(RecordReader& reader, Record&, CDxfLine value)
    {
        const std::string_view brace = Trim(value);
        if (reader.phase == kStyle && brace == "{")
            reader.phase = kCode;
        else if (brace == "}" && reader.phase >= kStyle)
            reader.phase = kApplication;
    }

    // The overridden variable's code comes as a value of its own, before the value.
    static void TakeShort(RecordReader& reader, Record& record, CDxfLine value)
    {
        if (reader.phase != kCode)
            return TakeValue(reader, record, value);
        reader.Append(record.overrides, {reader.Integer(value), std::string()});
        reader.phase = kValue;
    }

    static void TakeValue(RecordReader& reader, Record& record, CDxfLine value)
    {
        if (reader.phase != kValue)
            return;
        if (!record.overrides.empty())
            record.overrides.back().second = reader.Text(value);
        reader.phase = kCode;
    }

private:
    // Where in the extended data the reader is.
    enum Phase : std::int32_t { kElsewhere, kApplication, kStyle, kCode, kValue };
};

// The table of an entity: its own rows, those of the overrides, and the common ones.
template <class Record, std::size_t count>
consteval auto EntityFieldsWithOverrides(const Field<Record> (&rows)[count])
{
    using Overrides = StyleOverrides<Record>;
    const Field<Record> added[] = {
        {1000, Overrides::TakeString}, {1001, Overrides::TakeApplication}, {1002, Overrides::TakeBrace},
        {1003, Overrides::TakeValue},  {1005, Overrides::TakeValue},       {1040, Overrides::TakeValue},
        {1070, Overrides::TakeShort},  {1071, Overrides::TakeValue},
    };
    Field<Record> all[count + std::size(added)];
    std::copy(std::begin(added), std::end(added), std::copy_n(rows, count, all));
    return EntityFields(all);
}

} // namespace prepare
