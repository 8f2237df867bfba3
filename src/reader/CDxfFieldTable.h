// The group codes of a record as a table: code, member, conversion.
#pragma once

#include "base/CDxfLine.h"
#include "base/DXF_HANDLE.h"
#include "base/DXF_STRING.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

class CDxfRead;
class CDxfStream;

enum class DXF_FIELD_KIND : std::uint8_t {
    None,     // the code is not in the table
    End,      // the code ends the record, its value line left unread
    Real,     // as _wtof converts
    Integer,  // as _wtoi converts
    Text,     // trimmed
    Name,     // trimmed, kept once for all records that have the same
    RawText,  // as it stands in its line
    RawName,  // as it stands, kept once
    Handle,   // trimmed
    Function, // the record's own way; value is the untrimmed line
};

// What is done with the values of one group code, or of a range of codes.
template <class Record>
struct DXF_FIELD {
    using FUNCTION = void (*)(CDxfRead& reader, CDxfStream& stream, Record& record, CDxfLine value);

    int firstCode = 0;
    int lastCode = 0;
    DXF_FIELD_KIND kind = DXF_FIELD_KIND::None;
    double Record::*real = nullptr;
    std::int32_t Record::*integer = nullptr;
    DXF_STRING Record::*text = nullptr;
    DXF_HANDLE Record::*handle = nullptr;
    FUNCTION function = nullptr;
};

// The fields of a record, found by code at once. Codes are listed in the order of the record; one that is
// listed twice does not compile.
template <class Record, std::size_t count>
class CDxfFieldTable {
public:
    using RECORD = Record;
    using FIELD = DXF_FIELD<Record>;

    consteval explicit CDxfFieldTable(const std::array<FIELD, count>& fields)
    {
        static_assert(count < 256);
        for (std::size_t i = 0; i < count; ++i) {
            m_fields[i + 1] = fields[i];
            for (int code = fields[i].firstCode; code <= fields[i].lastCode; ++code) {
                std::uint8_t& index = m_index.at(static_cast<std::size_t>(code));
                if (index != 0)
                    throw "a group code is listed twice";
                index = static_cast<std::uint8_t>(i + 1);
            }
        }
    }

    // The field of a code; its kind is None where the table has none.
    const FIELD& Find(std::int32_t code) const
    {
        const auto unsignedCode = static_cast<std::uint32_t>(code);
        return m_fields[unsignedCode < kCodes ? m_index[unsignedCode] : 0];
    }

private:
    static constexpr std::size_t kCodes = 1024; // the highest code in any table is 1002

    std::array<std::uint8_t, kCodes> m_index{};
    std::array<FIELD, count + 1> m_fields{};
};

// Makes the rows of a record's table and the table itself:
//     constexpr auto kFields = DxfFields<DXF_GRAPHIC_LINE>::Table({ DxfFields<...>::Field(10, &...), ... });
template <class Record>
struct DxfFields {
    using FIELD = DXF_FIELD<Record>;

    template <std::size_t count>
    static consteval auto Table(const FIELD (&fields)[count])
    {
        return CDxfFieldTable<Record, count>(std::to_array(fields));
    }

    static consteval FIELD End(int code) { return {code, code, DXF_FIELD_KIND::End}; }
    static consteval FIELD Field(int code, double Record::*member)
    {
        return {code, code, DXF_FIELD_KIND::Real, member};
    }
    static consteval FIELD Field(int code, std::int32_t Record::*member) { return Range(code, code, member); }
    static consteval FIELD Range(int first, int last, std::int32_t Record::*member)
    {
        return {first, last, DXF_FIELD_KIND::Integer, nullptr, member};
    }
    static consteval FIELD Field(int code, DXF_STRING Record::*member)
    {
        return Text(code, DXF_FIELD_KIND::Text, member);
    }
    static consteval FIELD Field(int code, DXF_HANDLE Record::*member)
    {
        return {code, code, DXF_FIELD_KIND::Handle, nullptr, nullptr, nullptr, member};
    }
    static consteval FIELD Name(int code, DXF_STRING Record::*member)
    {
        return Text(code, DXF_FIELD_KIND::Name, member);
    }
    static consteval FIELD RawText(int code, DXF_STRING Record::*member)
    {
        return Text(code, DXF_FIELD_KIND::RawText, member);
    }
    static consteval FIELD RawName(int code, DXF_STRING Record::*member)
    {
        return Text(code, DXF_FIELD_KIND::RawName, member);
    }
    static consteval FIELD Function(int code, typename FIELD::FUNCTION function)
    {
        return {code, code, DXF_FIELD_KIND::Function, nullptr, nullptr, nullptr, nullptr, function};
    }

private:
    static consteval FIELD Text(int code, DXF_FIELD_KIND kind, DXF_STRING Record::*member)
    {
        return {code, code, kind, nullptr, nullptr, member};
    }
};
