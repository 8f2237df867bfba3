// The group codes of a record as a table, one row a code:
//
//     constexpr auto kLineFields = DxfFields<LINE>({
//         End(0),
//         {10, &LINE::m_dStartX},
//         KeptOnce(2, &LINE::m_strName),
//         {102, ReadAppGroup},
//     });
#pragma once

#include "base/CDxfLine.h"
#include "base/DXF_HANDLE.h"
#include "base/DXF_STRING.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

class CDxfRead;
class CDxfStream;

enum class DXF_FIELD_KIND : std::uint8_t {
    None,        // the code is not in the table
    End,         // the code ends the record, its value line left unread
    Real,        // as _wtof converts
    Integer,     // as _wtoi converts
    Text,        // trimmed
    TextOnce,    // trimmed, kept once for all records that have the same
    RawText,     // with the blanks at both ends
    RawTextOnce, // with the blanks, kept once
    Handle,      // trimmed
    Function,    // the record's own way; value is the untrimmed line
};

// A code that ends a record.
struct DXF_END_ROW {
    int code;
};

// What is done with the values of one group code, or of a range of codes. The member's type says how a value
// is converted; texts are trimmed.
template <class Record>
struct DXF_FIELD {
    using Function = void (*)(CDxfRead& reader, CDxfStream& stream, Record& record, CDxfLine value);

    consteval DXF_FIELD() = default;
    consteval DXF_FIELD(DXF_END_ROW end) : DXF_FIELD(end.code, end.code, DXF_FIELD_KIND::End) {}
    consteval DXF_FIELD(int code, double Record::*member) : DXF_FIELD(code, code, DXF_FIELD_KIND::Real)
    {
        real = member;
    }
    consteval DXF_FIELD(int code, std::int32_t Record::*member) : DXF_FIELD(code, code, member) {}
    consteval DXF_FIELD(int first, int last, std::int32_t Record::*member)
        : DXF_FIELD(first, last, DXF_FIELD_KIND::Integer)
    {
        integer = member;
    }
    consteval DXF_FIELD(int code, DXF_STRING Record::*member) : DXF_FIELD(code, member, DXF_FIELD_KIND::Text)
    {
    }
    consteval DXF_FIELD(int code, DXF_STRING Record::*member, DXF_FIELD_KIND how) : DXF_FIELD(code, code, how)
    {
        text = member;
    }
    consteval DXF_FIELD(int code, DXF_HANDLE Record::*member) : DXF_FIELD(code, code, DXF_FIELD_KIND::Handle)
    {
        handle = member;
    }
    consteval DXF_FIELD(int code, Function own) : DXF_FIELD(code, code, DXF_FIELD_KIND::Function)
    {
        function = own;
    }

    int firstCode = 0;
    int lastCode = 0;
    DXF_FIELD_KIND kind = DXF_FIELD_KIND::None;
    double Record::*real = nullptr;
    std::int32_t Record::*integer = nullptr;
    DXF_STRING Record::*text = nullptr;
    DXF_HANDLE Record::*handle = nullptr;
    Function function = nullptr;

private:
    consteval DXF_FIELD(int first, int last, DXF_FIELD_KIND how) : firstCode(first), lastCode(last), kind(how)
    {
    }
};

// The rows that are more than a code and a member.
consteval DXF_END_ROW End(int code)
{
    return {code};
}
template <class Record>
consteval DXF_FIELD<Record> KeptOnce(int code, DXF_STRING Record::*member)
{
    return {code, member, DXF_FIELD_KIND::TextOnce};
}
template <class Record>
consteval DXF_FIELD<Record> Raw(int code, DXF_STRING Record::*member)
{
    return {code, member, DXF_FIELD_KIND::RawText};
}
template <class Record>
consteval DXF_FIELD<Record> RawKeptOnce(int code, DXF_STRING Record::*member)
{
    return {code, member, DXF_FIELD_KIND::RawTextOnce};
}

// The fields of a record, found by code at once. Codes are listed in the order of the record; one that is
// listed twice does not compile.
template <class Record, std::size_t count>
class CDxfFieldTable {
public:
    using RecordType = Record;
    using Field = DXF_FIELD<Record>;

    consteval explicit CDxfFieldTable(const std::array<Field, count>& fields)
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

    // The field of a code; its kind is None if the code is not in the table.
    const Field& Find(std::int32_t code) const
    {
        const auto unsignedCode = static_cast<std::uint32_t>(code);
        return m_fields[unsignedCode < kCodes ? m_index[unsignedCode] : 0];
    }

private:
    static constexpr std::size_t kCodes = 1024; // the highest code in any table is 1002

    std::array<std::uint8_t, kCodes> m_index{};
    std::array<Field, count + 1> m_fields{};
};

// The table of a record: its own rows, then those of the groups, which several records share. A group has a
// function Rows<Record>() that gives an array of rows.
template <class Record, std::size_t count, class... Group>
consteval auto DxfFields(const DXF_FIELD<Record> (&fields)[count], Group...)
{
    constexpr std::size_t kAll = count + (std::size_t{0} + ... + Group::template Rows<Record>().size());
    std::array<DXF_FIELD<Record>, kAll> rows{};
    auto end = std::copy_n(fields, count, rows.begin());
    [[maybe_unused]] const auto add = [&](const auto& group) {
        end = std::copy(group.begin(), group.end(), end);
    };
    (add(Group::template Rows<Record>()), ...);
    return CDxfFieldTable<Record, kAll>(rows);
}
