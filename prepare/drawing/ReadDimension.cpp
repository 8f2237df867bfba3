#include "prepare/drawing/ReadDimension.h"

#include "prepare/drawing/StyleOverrides.h"

namespace prepare {

namespace {

template <std::size_t number>
Point3& PointOf(Dimension& dimension)
{
    return dimension.points[number];
}

constexpr auto kDimension = EntityFieldsWithOverrides<Dimension>({
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
    {42, &Dimension::measurement, &Dimension::hasMeasurement},
    {50, &Dimension::rotation},
    {51, &Dimension::horizontalDirection},
    {52, &Dimension::oblique},
    {53, &Dimension::textRotation},
    // The classes of dimensions of arcs have the codes again, for other things.
    Field<Dimension>(70, &Dimension::kind).OnlyFirst(),
    Field<Dimension>(71, &Dimension::attachment).OnlyFirst(),
});

} // namespace

std::unique_ptr<Entity> ReadDimension(RecordReader& reader)
{
    return ReadByTable<kDimension, Dimension>(reader);
}

} // namespace prepare
