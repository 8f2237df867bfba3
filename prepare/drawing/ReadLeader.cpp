#include "prepare/drawing/ReadLeader.h"

#include "prepare/drawing/StyleOverrides.h"

namespace prepare {

namespace {

constexpr auto kLeader = EntityFieldsWithOverrides<Leader>({
    {3, &Leader::dimStyle},
    {10, &Leader::vertices},
    {71, &Leader::hasArrow},
    {72, &Leader::isSpline},
});

} // namespace

std::unique_ptr<Entity> ReadLeader(RecordReader& reader)
{
    return ReadByTable<kLeader, Leader>(reader);
}

} // namespace prepare
