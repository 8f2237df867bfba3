// How the fields are stored that few entities have.
#pragma once

#include "entities/DXF_GRAPHIC_BASE.h"
#include "reader/ReadFields.h"

#include <bit>
#include <type_traits>

// The rare fields of a record, made now if it has none of its own.
inline DXF_GRAPHIC_RARE& RareOf(CDxfRead& reader, DXF_GRAPHIC_BASE& record)
{
    if (record.m_rare == &kDxfNoRare)
        record.m_rare = reader.store.New<DXF_GRAPHIC_RARE>();
    return const_cast<DXF_GRAPHIC_RARE&>(*record.m_rare); // made above, or in an earlier call
}

template <class Value>
bool IsSameValue(const Value& left, const Value& right)
{
    if constexpr (std::is_same_v<Value, double>)
        return std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
    else
        return left == right;
}

// Sets a field. Many programs write the default values out, an extrusion of 0, 0, 1 above all: those make
// nothing.
template <class Value>
void SetRare(CDxfRead& reader, DXF_GRAPHIC_BASE& record, Value DXF_GRAPHIC_RARE::*member, Value value)
{
    if (!IsSameValue(record.m_rare->*member, value))
        RareOf(reader, record).*member = value;
}

inline void StoreRareValue(CDxfRead& reader, DXF_GRAPHIC_BASE& record, double DXF_GRAPHIC_RARE::*member,
                           std::string_view line)
{
    SetRare(reader, record, member, ParseLineReal(line));
}

inline void StoreRareValue(CDxfRead& reader, DXF_GRAPHIC_BASE& record, std::int32_t DXF_GRAPHIC_RARE::*member,
                           std::string_view line)
{
    SetRare(reader, record, member, ParseInteger(line));
}

inline void StoreRareValue(CDxfRead& reader, DXF_GRAPHIC_BASE& record, DXF_STRING DXF_GRAPHIC_RARE::*member,
                           std::string_view line)
{
    SetRare(reader, record, member, reader.store.KeepOnce(Trim(line)));
}

inline void StoreRareValue(CDxfRead& reader, DXF_GRAPHIC_BASE& record, DXF_HANDLE DXF_GRAPHIC_RARE::*member,
                           std::string_view line)
{
    SetRare(reader, record, member, reader.store.KeepHandle(Trim(line)));
}

// A row's function for a rare field: reals and integers as everywhere, texts trimmed and kept once.
template <class Record, auto member>
void StoreRare(CDxfRead& reader, CDxfStream&, Record& record, std::string_view line)
{
    StoreRareValue(reader, record, member, line);
}
