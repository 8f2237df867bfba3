#include "prepare/drawing/EntityFields.h"
#include "prepare/drawing/ReadRecords.h"
#include "prepare/drawing/StyleOverrides.h"

namespace prepare {

namespace {

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
    {1000, StyleOverrides<Leader>::TakeString},
    {1001, StyleOverrides<Leader>::TakeApplication},
    {1002, StyleOverrides<Leader>::TakeBrace},
    {1003, StyleOverrides<Leader>::TakeValue},
    {1005, StyleOverrides<Leader>::TakeValue},
    {1040, StyleOverrides<Leader>::TakeValue},
    {1070, StyleOverrides<Leader>::TakeShort},
    {1071, StyleOverrides<Leader>::TakeValue},
});

} // namespace

std::unique_ptr<Entity> ReadLeader(RecordReader& reader)
{
    return ReadByTable<kLeader, Leader>(reader);
}

} // namespace prepare
