#include "base/CDxfHashIndex.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

const auto kAny = [](std::uint32_t) { return true; };

void Add(CDxfHashIndex& index, std::uint64_t hash, std::uint32_t number)
{
    index.Reserve();
    index.Add(hash, number);
}

TEST(HashIndex, FindsNothingWhileItIsEmpty)
{
    CDxfHashIndex index;
    EXPECT_EQ(index.Find(0, kAny), CDxfHashIndex::kNone);
    index.Reserve();
    EXPECT_EQ(index.Find(0, kAny), CDxfHashIndex::kNone);
}

TEST(HashIndex, FindsEachOfManyThoughAllFallIntoOneSlot)
{
    CDxfHashIndex index;
    for (std::uint32_t number = 0; number < 3000; ++number)
        Add(index, 0, number);
    for (std::uint32_t number = 0; number < 3000; ++number)
        ASSERT_EQ(index.Find(0, [&](std::uint32_t other) { return other == number; }), number);
    EXPECT_EQ(index.Find(0, [](std::uint32_t other) { return other == 3000; }), CDxfHashIndex::kNone);
}

// Slots that differ in the hash's kept half only by the bits above the slot's place.
TEST(HashIndex, AsksOnlyAboutNumbersOfTheSameHash)
{
    CDxfHashIndex index;
    for (std::uint32_t number = 0; number < 100; ++number)
        Add(index, std::uint64_t{number} << 16, number);
    for (std::uint32_t number = 0; number < 100; ++number)
        EXPECT_EQ(index.Find(std::uint64_t{number} << 16, kAny), number);
    EXPECT_EQ(index.Find(std::uint64_t{100} << 16, kAny), CDxfHashIndex::kNone);
}

TEST(HashIndex, GrowsWithoutForgetting)
{
    CDxfHashIndex index;
    for (std::uint32_t number = 0; number < 500'000; ++number)
        Add(index, number * 0x9E3779B97F4A7C15u >> 20, number);
    for (std::uint32_t number = 0; number < 500'000; ++number)
        ASSERT_EQ(index.Find(number * 0x9E3779B97F4A7C15u >> 20,
                             [&](std::uint32_t other) { return other == number; }),
                  number);
}

TEST(HashIndex, ReplacedForgets)
{
    CDxfHashIndex index;
    Add(index, 7, 1);
    index = {};
    EXPECT_EQ(index.Find(7, kAny), CDxfHashIndex::kNone);
    Add(index, 7, 2);
    const CDxfHashIndex moved = std::move(index);
    EXPECT_EQ(moved.Find(7, kAny), 2u);
}

TEST(HashIndex, MovedGoesOnGrowing)
{
    CDxfHashIndex from;
    for (std::uint32_t number = 0; number < 100; ++number)
        Add(from, number, number);
    CDxfHashIndex index;
    index = std::move(from);
    for (std::uint32_t number = 100; number < 1100; ++number)
        Add(index, number, number);
    for (std::uint32_t number = 0; number < 1100; ++number)
        EXPECT_EQ(index.Find(number, kAny), number);
    EXPECT_EQ(index.Find(1100, kAny), CDxfHashIndex::kNone);
}

} // namespace
