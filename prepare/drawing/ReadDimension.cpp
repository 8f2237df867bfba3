#include "prepare/drawing/EntityFields.h"
#include "prepare/drawing/ReadRecords.h"

namespace prepare {

namespace {

template <std::size_t number>
Point3& PointOf(Dimension& dimension)
{
    return dimension.points[number];
}

// Where in the extended data a dimension is.
enum XdataPhase : std::int32_t { kOther, kApplication, kStyle, kCode, kValue };

void BeginApplication(RecordReader& reader, Dimension&, CDxfLine value)
{
    reader.phase = Trim(value) == "ACAD" ? kApplication : kOther;
}

// The overridden variable's code comes as a value of its own, before the value.
void AddOverride(RecordReader& reader, Dimension& dimension, CDxfLine value)
{
    if (reader.phase != kValue)
        return;
    if (!dimension.overrides.empty())
        dimension.overrides.back().second = reader.Text(value);
    reader.phase = kCode;
}

void ReadText(RecordReader& reader, Dimension& dimension, CDxfLine value)
{
    if (reader.phase == kApplication && Trim(value) == "DSTYLE")
        reader.phase = kStyle;
    else
        AddOverride(reader, dimension, value);
}

void ReadBrace(RecordReader& reader, Dimension&, CDxfLine value)
{
    const std::string_view brace = Trim(value);
    if (reader.phase == kStyle && brace == "{")
        reader.phase = kCode;
    else if (brace == "}" && reader.phase >= kStyle)
        reader.phase = kApplication;
}

void ReadShort(RecordReader& reader, Dimension& dimension, CDxfLine value)
{
    if (reader.phase != kCode)
        return AddOverride(reader, dimension, value);
    reader.Append(dimension.overrides, {reader.Integer(value), std::string()});
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
    {1000, ReadText},
    {1001, BeginApplication},
    {1002, ReadBrace},
    {1003, AddOverride},
    {1005, AddOverride},
    {1040, AddOverride},
    {1070, ReadShort},
    {1071, AddOverride},
});

} // namespace

std::unique_ptr<Entity> ReadDimension(RecordReader& reader)
{
    return ReadByTable<kDimension, Dimension>(reader);
}

} // namespace prepare
