#include "prepare/drawing/EntityFields.h"
#include "prepare/drawing/ReadRecords.h"

namespace prepare {

namespace {

template <std::size_t number>
Point3& PointOf(Dimension& dimension)
{
    return dimension.points[number];
}

// Where in the extended data a dimension or a leader is: there both override their style.
enum XdataPhase : std::int32_t { kElsewhere, kApplication, kStyle, kCode, kValue };

template <class Record>
void BeginApplication(RecordReader& reader, Record&, CDxfLine value)
{
    reader.phase = Trim(value) == "ACAD" ? kApplication : kElsewhere;
}

// The overridden variable's code comes as a value of its own, before the value.
template <class Record>
void AddOverride(RecordReader& reader, Record& record, CDxfLine value)
{
    if (reader.phase != kValue)
        return;
    if (!record.overrides.empty())
        record.overrides.back().second = reader.Text(value);
    reader.phase = kCode;
}

template <class Record>
void ReadText(RecordReader& reader, Record& record, CDxfLine value)
{
    if (reader.phase == kApplication && Trim(value) == "DSTYLE")
        reader.phase = kStyle;
    else
        AddOverride(reader, record, value);
}

template <class Record>
void ReadBrace(RecordReader& reader, Record&, CDxfLine value)
{
    const std::string_view brace = Trim(value);
    if (reader.phase == kStyle && brace == "{")
        reader.phase = kCode;
    else if (brace == "}" && reader.phase >= kStyle)
        reader.phase = kApplication;
}

template <class Record>
void ReadShort(RecordReader& reader, Record& record, CDxfLine value)
{
    if (reader.phase != kCode)
        return AddOverride(reader, record, value);
    reader.Append(record.overrides, {reader.Integer(value), std::string()});
    reader.phase = kValue;
}

constexpr auto kDimension = EntityFields<Dimension>({
    {1, &Dimension::text},
    {2, &Dimension::block},
    {3, &Dimension::style},
    {10, &Dimension::definition},
    {11, &Dimension::textPoint},
    {12, &Dimension::insertion},
    {13, PointOf<0>},
    {14, PointOf<1>},
    {15, PointOf<2>},
    {16, PointOf<3>},
    {40, &Dimension::leaderLength},
    {42, &Dimension::measurement, &Dimension::hasMeasurement},
    {50, &Dimension::rotation},
    {51, &Dimension::horizontalDirection},
    {52, &Dimension::oblique},
    {53, &Dimension::textRotation},
    // The classes of dimensions of arcs have the codes again, for other things.
    Field<Dimension>(70, &Dimension::kind).OnlyFirst(),
    Field<Dimension>(71, &Dimension::attachment).OnlyFirst(),
    {1000, ReadText<Dimension>},
    {1001, BeginApplication<Dimension>},
    {1002, ReadBrace<Dimension>},
    {1003, AddOverride<Dimension>},
    {1005, AddOverride<Dimension>},
    {1040, AddOverride<Dimension>},
    {1070, ReadShort<Dimension>},
    {1071, AddOverride<Dimension>},
});

constexpr auto kLeader = EntityFields<Leader>({
    {3, &Leader::dimStyle},
    {10, &Leader::vertices},
    {41, &Leader::textWidth},
    {71, &Leader::hasArrow},
    {72, &Leader::isSpline},
    {74, &Leader::hookIsForward},
    {75, &Leader::hasHookLine},
    {77, &Leader::byBlockColour},
    {211, &Leader::horizontal},
    {1000, ReadText<Leader>},
    {1001, BeginApplication<Leader>},
    {1002, ReadBrace<Leader>},
    {1003, AddOverride<Leader>},
    {1005, AddOverride<Leader>},
    {1040, AddOverride<Leader>},
    {1070, ReadShort<Leader>},
    {1071, AddOverride<Leader>},
});

} // namespace

std::unique_ptr<Entity> ReadDimension(RecordReader& reader)
{
    return ReadByTable<kDimension, Dimension>(reader);
}

std::unique_ptr<Entity> ReadLeader(RecordReader& reader)
{
    return ReadByTable<kLeader, Leader>(reader);
}

} // namespace prepare
