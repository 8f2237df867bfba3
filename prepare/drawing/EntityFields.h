// What the tables of all entities share.
#pragma once

#include "prepare/drawing/Fields.h"
#include "prepare/drawing/RecordReader.h"

#include <array>
#include <cstddef>
#include <memory>

namespace prepare {

template <class Record>
consteval auto CommonRows()
{
    using Row = Field<Record>;
    using Function = typename Row::Function;
    return std::array{
        Row(5, &Record::handle).OnlyFirst(),
        Row(6, &Record::lineType),
        Row(8, &Record::layer),
        Row(48, &Record::lineTypeScale),
        Row(60, &Record::isInvisible),
        Row(62, &Record::colour),
        Row(67, &Record::isInPaperSpace),
        // An embedded object's codes mean other things.
        Row(101, Function([](RecordReader& reader, Record&, CDxfLine) { reader.SkipFields(); })),
        Row(102, SkipGroup<Record>),
        Row(210, &Record::extrusion),
        Row(330, &Record::owner).OnlyFirst(),
        Row(370, &Record::weight),
        Row(410, &Record::layout),
        Row(420, Function([](RecordReader& reader, Record& record, CDxfLine value) {
                record.trueColour = reader.Integer(value) & 0xFFFFFF;
            })),
    };
}

// The table of an entity: its own rows and the common ones that they do not replace.
template <class Record, std::size_t count>
consteval auto EntityFields(const Field<Record> (&rows)[count])
{
    constexpr auto kCommon = CommonRows<Record>();
    return FieldTable<Record, (count + kCommon.size()) * 3>(rows, count, kCommon.data(), kCommon.size());
}

// Reads an entity that needs nothing but its table.
template <const auto& table, class Record>
std::unique_ptr<Entity> ReadByTable(RecordReader& reader)
{
    auto record = std::make_unique<Record>();
    reader.Read(*record, table);
    return record;
}

} // namespace prepare
