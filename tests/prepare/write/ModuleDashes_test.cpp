#include "prepare/write/ModuleDashes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

namespace prepare {
namespace {

using Numbers = std::vector<double>;

Numbers Dashes(Numbers dashes, double scale = 1, double width = 0.5)
{
    LineType lineType;
    lineType.dashes = std::move(dashes);
    return DashesForModule(lineType, scale, width);
}

TEST(ModuleDashes, PatternsEndWithAGapWithinTheirLimit)
{
    LineType lineType;
    for (int i = 0; i < 60; ++i)
        lineType.dashes.push_back(i % 2 == 0 ? 1 : -1);
    EXPECT_EQ(DashesForModule(lineType, 1, 0.5).size(), 50U);
    EXPECT_EQ(DashesForModule(lineType, 1, 0.5, 10).size(), 10U);
    EXPECT_EQ(DashesForModule(lineType, 1, 0.5, 9).size(), 8U);
}

TEST(ModuleDashes, PatternsThatAreNearlyAllShapesAreSolid)
{
    LineType lineType;
    lineType.hasShapes = true;
    lineType.dashes = {0.99, -3};
    EXPECT_TRUE(DashesForModule(lineType, 1, 0.5).empty());
    lineType.dashes = {1, -3};
    EXPECT_EQ(DashesForModule(lineType, 1, 0.5).size(), 2U);
    lineType.dashes = {0.99, -3};
    lineType.hasShapes = false;
    EXPECT_EQ(DashesForModule(lineType, 1, 0.5).size(), 2U);
}

TEST(ModuleDashes, PatternsAreScaled)
{
    EXPECT_EQ(Dashes({12, -6}, 0.5), (Numbers{6, 3}));
}

TEST(ModuleDashes, DotsAreAsLongAsTheStrokeIsWide)
{
    EXPECT_EQ(Dashes({12, -3, 0, -3}, 2, 0.7), (Numbers{24, 6, 0.7, 6}));
}

TEST(ModuleDashes, PatternsAreDashesAndGapsByTurns)
{
    EXPECT_EQ(Dashes({-6, 12}), (Numbers{12, 6}));
    EXPECT_EQ(Dashes({4, 5, -1, -2}), (Numbers{9, 3}));
    EXPECT_EQ(Dashes({4, -1, 2}), (Numbers{6, 1}));
    EXPECT_EQ(Dashes({-1, 4, -2}), (Numbers{4, 3}));
}

TEST(ModuleDashes, PatternsWithoutGapsAreSolid)
{
    EXPECT_EQ(Dashes({5}), Numbers{});
    EXPECT_EQ(Dashes({}), Numbers{});
    EXPECT_EQ(Dashes({5, 0}), Numbers{});
    EXPECT_EQ(Dashes({-5}), Numbers{});
    EXPECT_EQ(Dashes({5, -1}, 0), Numbers{});
    EXPECT_EQ(Dashes({5, -1}, NAN), Numbers{});
    EXPECT_EQ(Dashes({INFINITY, -1}), Numbers{});
}

TEST(ModuleDashes, PatternsFarBelowTheStrokeAreSolid)
{
    EXPECT_EQ(Dashes({0.1, -0.1}, 1, 0.8), (Numbers{0.1, 0.1}));
    EXPECT_EQ(Dashes({0.1, -0.1}, 1, 0.81), Numbers{});
}

TEST(ModuleDashes, LongPatternsAreCutAtAGap)
{
    Numbers many, longOnes;
    for (int i = 0; i < 30; ++i) {
        many.insert(many.end(), {1, -1});
        longOnes.insert(longOnes.end(), {1e9, -1e9});
    }
    EXPECT_EQ(Dashes(many).size(), 50u);
    // "1000000000.000000," is 18 characters, and room is counted for one more.
    const Numbers written = Dashes(longOnes);
    EXPECT_GE(written.size(), 26u);
    EXPECT_LE(written.size(), 28u);
    EXPECT_EQ(written.size() % 2, 0u);
}

} // namespace
} // namespace prepare
