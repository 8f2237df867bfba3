#include "prepare/drawing/ReadLeader.h"

#include "prepare/drawing/StyleOverrides.h"

namespace prepare {

namespace {

constexpr auto kLeader = EntityFieldsWithOverrides<Leader>({
    {3, &Leader::dimStyle},
    {10, &Leader::vertices},
    {41, &Leader::textWidth},
    {71, &Leader::hasArrow},
    {72, &Leader::isSpline},
    {74, &Leader::hookIsForward},
    {75, &Leader::hasHookLine},
    {77, &Leader::byBlockColour},
    {211, &Leader::horizontal},
});

} // namespace

std::unique_ptr<Entity> ReadLeader(RecordReader& reader)
{
    return ReadByTable<kLeader, Leader>(reader);
}

} // namespace prepare
