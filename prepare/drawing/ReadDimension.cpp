#include "prepare/drawing/EntityFields.h"
#include "prepare/drawing/ReadRecords.h"
#include "prepare/drawing/StyleOverrides.h"

namespace prepare {

namespace {

template <std::size_t number>
Point3& PointOf(Dimension& dimension)
{
    return dimension.points[number];
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
    {1000, StyleOverrides<Dimension>::TakeString},
    {1001, StyleOverrides<Dimension>::TakeApplication},
    {1002, StyleOverrides<Dimension>::TakeBrace},
    {1003, StyleOverrides<Dimension>::TakeValue},
    {1005, StyleOverrides<Dimension>::TakeValue},
    {1040, StyleOverrides<Dimension>::TakeValue},
    {1070, StyleOverrides<Dimension>::TakeShort},
    {1071, StyleOverrides<Dimension>::TakeValue},
});

} // namespace

std::unique_ptr<Entity> ReadDimension(RecordReader& reader)
{
    return ReadByTable<kDimension, Dimension>(reader);
}

} // namespace prepare
