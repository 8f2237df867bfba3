#include "prepare/plain/HatchDashes.h"

#include <gtest/gtest.h>

#include <cmath>

namespace prepare {
namespace {

using Lengths = std::vector<double>;

HatchDashes Of(const Lengths& dashes)
{
    return {dashes, 0.25};
}

TEST(HatchDashes, AreDashesAndGapsByTurns)
{
    const HatchDashes dashes = Of({2, -1, 3, -1});
    EXPECT_EQ(dashes.lengths, (Lengths{2, -1, 3, -1}));
    EXPECT_EQ(dashes.origin, 0);
    EXPECT_EQ(dashes.period, 7);
    EXPECT_FALSE(dashes.IsSolid());
    EXPECT_EQ(Of({2, 1, -1, -2}).lengths, (Lengths{3, -3}));
}

TEST(HatchDashes, WithoutGapsTheyAreASolidLine)
{
    EXPECT_TRUE(Of({}).IsSolid());
    EXPECT_TRUE(Of({1, 2}).IsSolid());
    EXPECT_TRUE(Of({-1}).IsSolid());
    EXPECT_TRUE(Of({0}).IsSolid());
    EXPECT_TRUE(Of({1, NAN}).IsSolid());
    EXPECT_TRUE(Of({1, -HUGE_VAL}).IsSolid());
    Lengths many(65, -1);
    many[0] = 1;
    EXPECT_TRUE(Of(many).IsSolid());
}

TEST(HatchDashes, BeginWithADash)
{
    const HatchDashes first = Of({-1, 2, -3});
    EXPECT_EQ(first.lengths, (Lengths{2, -4}));
    EXPECT_EQ(first.origin, 1);
    const HatchDashes last = Of({1, -2, 3});
    EXPECT_EQ(last.lengths, (Lengths{4, -2}));
    EXPECT_EQ(last.origin, -3);
    EXPECT_EQ(last.period, 6);
}

TEST(HatchDashes, DotsTakeTheirLengthFromTheGapAfterThem)
{
    EXPECT_EQ(Of({0, -1}).lengths, (Lengths{0.25, -0.75}));
    EXPECT_EQ(Of({0, -0.25}).lengths, (Lengths{0.125, -0.125}));
    EXPECT_EQ(Of({2, -1, 0, -1}).lengths, (Lengths{2, -1, 0.25, -0.75}));
    EXPECT_EQ(Of({2, -1, 0, -1}).period, 4);
    EXPECT_EQ(Of({-1, 0}).lengths, (Lengths{0.25, -0.75})); // the gap after it is the first one
}

} // namespace
} // namespace prepare
