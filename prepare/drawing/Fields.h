// The group codes of a record as a table, one row a code:
//
//     constexpr auto kCircleFields = Fields<Circle>({
//         {10, &Circle::centre}, // and 20, 30
//         {40, &Circle::radius},
//         {66, ReadFlag},
//     });
#pragma once

#include "base/CDxfLine.h"
#include "prepare/drawing/Entities.h"
#include "prepare/drawing/Names.h"
#include "prepare/drawing/Point.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace prepare {

class RecordReader;

enum class FieldKind : std::uint8_t {
    None, // the code is not in the table
    Real,
    Reals, // added to a list
    Integer,
    Integers,
    X, // of a point
    Y,
    Z,
    PartX, // of a point that is part of a member
    PartY,
    PartZ,
    FlatX, // of a point in the plane
    FlatY,
    NewX, // begins a point of a list
    LastY,
    LastZ,
    NewFlatX,
    LastFlatY,
    Name,
    HandleOf,
    HandlesOf,
    Text,     // UTF-8, with its blanks
    Texts,    // added to what is there
    Function, // the record's own way
};

// What is done with the values of one group code. The member's type says how a value is converted; a point
// takes its code and those 10 and 20 above.
template <class Record>
struct Field {
    using Function = void (*)(RecordReader& reader, Record& record, CDxfLine value);
    using PointOf = Point3& (*)(Record& record);
    using Reals = std::vector<double>;
    using Points = std::vector<Point3>;
    using FlatPoints = std::vector<Point2>;
    using Integers = std::vector<std::int32_t>;
    using Handles = std::vector<Handle>;

    constexpr Field() : real(nullptr) {}
    constexpr Field(int itsCode, double Record::*member) : Field(itsCode, FieldKind::Real, 1)
    {
        real = member;
    }
    constexpr Field(int itsCode, Reals Record::*member) : Field(itsCode, FieldKind::Reals, 1)
    {
        reals = member;
    }
    constexpr Field(int itsCode, std::int32_t Record::*member) : Field(itsCode, FieldKind::Integer, 1)
    {
        integer = member;
    }
    constexpr Field(int itsCode, Integers Record::*member) : Field(itsCode, FieldKind::Integers, 1)
    {
        integers = member;
    }
    constexpr Field(int itsCode, Point3 Record::*member) : Field(itsCode, FieldKind::X, 3) { point = member; }
    constexpr Field(int itsCode, PointOf part) : Field(itsCode, FieldKind::PartX, 3) { pointOf = part; }
    constexpr Field(int itsCode, Point2 Record::*member) : Field(itsCode, FieldKind::FlatX, 2)
    {
        flatPoint = member;
    }
    constexpr Field(int itsCode, Points Record::*member) : Field(itsCode, FieldKind::NewX, 3)
    {
        points = member;
    }
    constexpr Field(int itsCode, FlatPoints Record::*member) : Field(itsCode, FieldKind::NewFlatX, 2)
    {
        flatPoints = member;
    }
    constexpr Field(int itsCode, NameId Record::*member) : Field(itsCode, FieldKind::Name, 1)
    {
        name = member;
    }
    constexpr Field(int itsCode, Handle Record::*member) : Field(itsCode, FieldKind::HandleOf, 1)
    {
        handle = member;
    }
    constexpr Field(int itsCode, Handles Record::*member) : Field(itsCode, FieldKind::HandlesOf, 1)
    {
        handles = member;
    }
    constexpr Field(int itsCode, std::string Record::*member) : Field(itsCode, FieldKind::Text, 1)
    {
        text = member;
    }
    constexpr Field(int itsCode, Function own) : Field(itsCode, FieldKind::Function, 1) { function = own; }
    // Sets a flag, too: a value came.
    template <class Member>
    constexpr Field(int itsCode, Member Record::*member, bool Record::*itsFlag) : Field(itsCode, member)
    {
        flag = itsFlag;
    }

    // The same row, of which only the first value in a record counts.
    constexpr Field OnlyFirst() const
    {
        Field first = *this;
        first.isFirst = true;
        return first;
    }

    // The same row, whose texts are added to the end of the one that is there.
    constexpr Field Joined() const
    {
        Field joined = *this;
        joined.kind = FieldKind::Texts;
        return joined;
    }

    // The same member, of the code's number-th part.
    constexpr Field Part(int number) const
    {
        Field part = *this;
        part.code += 10 * number;
        part.kind = static_cast<FieldKind>(static_cast<int>(kind) + number);
        part.parts = 1;
        part.flag = number == 0 ? flag : nullptr;
        return part;
    }

    int code = 0;
    FieldKind kind = FieldKind::None;
    bool isFirst = false; // only the first value counts
    std::int8_t parts = 0;
    bool Record::*flag = nullptr;
    union {
        double Record::*real;
        Reals Record::*reals;
        std::int32_t Record::*integer;
        Integers Record::*integers;
        Point3 Record::*point;
        Point2 Record::*flatPoint;
        Points Record::*points;
        FlatPoints Record::*flatPoints;
        NameId Record::*name;
        Handle Record::*handle;
        Handles Record::*handles;
        std::string Record::*text;
        PointOf pointOf;
        Function function;
    };

private:
    constexpr Field(int itsCode, FieldKind how, std::int8_t count)
        : code(itsCode), kind(how), parts(count), real(nullptr)
    {
    }
};

// The fields of a record, found by code at once. A code that is listed twice does not compile.
template <class Record, std::size_t count>
class FieldTable {
public:
    // own rows go before the common ones of the same code.
    constexpr FieldTable(const Field<Record>* own, std::size_t ownCount, const Field<Record>* common,
                         std::size_t commonCount)
    {
        for (std::size_t i = 0; i < ownCount; ++i)
            if (!Add(own[i]))
                throw "a group code is listed twice";
        for (std::size_t i = 0; i < commonCount; ++i)
            Add(common[i]);
    }

    const Field<Record>& Find(std::int32_t code) const { return m_fields[Index(code)]; }
    // The row's number, 0 for a code that is not in the table.
    std::size_t Index(std::int32_t code) const
    {
        const auto place = static_cast<std::uint32_t>(code);
        return place < kCodes ? m_index[place] : 0;
    }
    const Field<Record>& At(std::size_t index) const { return m_fields[index]; }

private:
    static constexpr std::size_t kCodes = 1072;

    constexpr bool Add(const Field<Record>& row)
    {
        for (int part = 0; part < row.parts; ++part) {
            const Field<Record> field = row.Part(part);
            std::uint8_t& index = m_index[static_cast<std::size_t>(field.code)];
            if (index != 0)
                return false;
            index = static_cast<std::uint8_t>(++m_count);
            m_fields[m_count] = field;
        }
        return true;
    }

    std::array<std::uint8_t, kCodes> m_index{};
    std::array<Field<Record>, count + 1> m_fields{};
    std::size_t m_count = 0;
};

// The table of a record that is no entity.
template <class Record, std::size_t count>
consteval auto Fields(const Field<Record> (&rows)[count])
{
    return FieldTable<Record, count * 3>(rows, count, nullptr, 0);
}

} // namespace prepare
