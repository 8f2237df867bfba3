// How the fields are stored that few entities have.
#pragma once

#include "entities/DXF_GRAPHIC_BASE.h"
#include "reader/ReadFields.h"

#include <bit>
#include <cstdint>
#include <string_view>
#include <type_traits>

// The rare fields of a record, made now if it has none of its own.
inline DXF_GRAPHIC_RARE& RareOf(CDxfRead& reader, DXF_GRAPHIC_BASE& record)
{
    if (record.m_rare == &kDxfNoRare)
        record.m_rare = reader.store.New<DXF_GRAPHIC_RARE>();
    return const_cast<DXF_GRAPHIC_RARE&>(*record.m_rare); // made above, or in an earlier call
}

// Sets a field. Many programs write the default values out, an extrusion of 0, 0, 1 above all: those make
// nothing.
template <class Value>
void SetRare(CDxfRead& reader, DXF_GRAPHIC_BASE& record, Value DXF_GRAPHIC_RARE::*member, const Value& value)
{
    const Value& known = record.m_rare->*member;
    if constexpr (std::is_same_v<Value, double>) {
        if (std::bit_cast<std::uint64_t>(known) == std::bit_cast<std::uint64_t>(value))
            return;
    } else if (known == value) {
        return;
    }
    RareOf(reader, record).*member = value;
}

// A row's function for a rare field: reals, integers and handles as everywhere, texts trimmed and kept once.
template <class Record, auto member>
void StoreRare(CDxfRead& reader, CDxfStream&, Record& record, CDxfLine line)
{
    using VALUE = std::remove_cvref_t<decltype(record.m_rare->*member)>;
    if constexpr (std::is_same_v<VALUE, double>)
        SetRare(reader, record, member, ParseLineReal(line));
    else if constexpr (std::is_same_v<VALUE, std::int32_t>)
        SetRare(reader, record, member, ParseInteger(line));
    else if constexpr (std::is_same_v<VALUE, DXF_HANDLE>)
        SetRare(reader, record, member, reader.store.KeepHandle(Trim(line)));
    else
        SetRare(reader, record, member, reader.store.KeepOnce(Trim(line)));
}
