// How the fields are stored that few entities have.
#pragma once

#include "entities/DXF_GRAPHIC_BASE.h"
#include "reader/ReadFields.h"

#include <array>
#include <bit>
#include <cstdint>
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

// Stores a rare field as its type says: reals, integers and handles as everywhere, texts trimmed and kept
// once.
template <class Record, auto member>
void StoreRare(CDxfRead& reader, CDxfStream&, Record& record, CDxfLine line)
{
    using Value = std::remove_cvref_t<decltype(record.m_rare->*member)>;
    if constexpr (std::is_same_v<Value, double>)
        SetRare(reader, record, member, ParseLineReal(line));
    else if constexpr (std::is_same_v<Value, std::int32_t>)
        SetRare(reader, record, member, ParseInteger(line));
    else if constexpr (std::is_same_v<Value, DXF_HANDLE>)
        SetRare(reader, record, member, reader.store.KeepHandle(Trim(line)));
    else
        SetRare(reader, record, member, reader.store.KeepOnce(Trim(line)));
}

// A member as a value whose type says which one it is: a row has it after the code, as other rows do.
template <auto member>
struct DXF_RARE_MEMBER {
};
template <auto member>
inline constexpr DXF_RARE_MEMBER<member> kMember;

// The row of a rare field that every entity may have.
template <auto member>
consteval DXF_FIELD<DXF_GRAPHIC_BASE> Rare(int code, DXF_RARE_MEMBER<member>)
{
    return {code, StoreRare<DXF_GRAPHIC_BASE, member>};
}

// The rows of the entities that have a thickness, and of those that have an extrusion direction.
struct ThicknessRow {
    template <class Record>
    static consteval std::array<DXF_FIELD<Record>, 1> Rows()
    {
        return {{{39, StoreRare<Record, &DXF_GRAPHIC_RARE::m_dThickness>}}};
    }
};
struct ExtrusionRows {
    template <class Record>
    static consteval std::array<DXF_FIELD<Record>, 3> Rows()
    {
        return {{{210, StoreRare<Record, &DXF_GRAPHIC_RARE::m_dExtrusionX>},
                 {220, StoreRare<Record, &DXF_GRAPHIC_RARE::m_dExtrusionY>},
                 {230, StoreRare<Record, &DXF_GRAPHIC_RARE::m_dExtrusionZ>}}};
    }
};
inline constexpr ThicknessRow kThickness;
inline constexpr ExtrusionRows kExtrusion;
