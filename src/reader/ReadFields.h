// The loop that reads every record.
#pragma once

#include "base/Numbers.h"
#include "reader/CDxfFieldTable.h"
#include "reader/CDxfRead.h"

// Stores a value as its field says.
template <class Record>
void StoreField(CDxfRead& reader, CDxfStream& stream, Record& record, const DXF_FIELD<Record>& field,
                CDxfLine line)
{
    switch (field.kind) {
    case DXF_FIELD_KIND::Real:
        record.*field.real = ParseLineReal(line);
        break;
    case DXF_FIELD_KIND::Integer:
        record.*field.integer = ParseInteger(line);
        break;
    case DXF_FIELD_KIND::Text:
        record.*field.text = reader.store.Keep(Trim(line));
        break;
    case DXF_FIELD_KIND::TextOnce:
        record.*field.text = reader.store.KeepOnce(Trim(line));
        break;
    case DXF_FIELD_KIND::RawText:
        record.*field.text = reader.store.Keep(line);
        break;
    case DXF_FIELD_KIND::RawTextOnce:
        record.*field.text = reader.store.KeepOnce(line);
        break;
    case DXF_FIELD_KIND::Handle:
        record.*field.handle = reader.store.KeepHandle(Trim(line));
        break;
    case DXF_FIELD_KIND::Function:
        field.function(reader, stream, record, line);
        break;
    case DXF_FIELD_KIND::None:
    case DXF_FIELD_KIND::End:
        break;
    }
}

template <class Record, std::size_t count, class Other>
DXF_END CDxfRead::ReadFields(CDxfStream& stream, Record& record, const CDxfFieldTable<Record, count>& table,
                             const wchar_t* message, const Other& other)
{
    while (!stream.eof()) {
        std::int32_t code = -1;
        if (!ReadCode(stream, code, message)) [[unlikely]]
            return DXF_END_BAD_CODE;
        const DXF_FIELD<Record>& field = table.Find(code);
        if (field.kind == DXF_FIELD_KIND::End)
            return static_cast<DXF_END>(code);
        const CDxfLine line = ReadLine(stream);
        if (field.kind == DXF_FIELD_KIND::None)
            other(code, line);
        else
            StoreField(*this, stream, record, field, line);
    }
    return DXF_END_OF_FILE;
}
