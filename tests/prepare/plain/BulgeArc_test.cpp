#include "prepare/plain/BulgeArc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace prepare {
namespace {

TEST(CircularArcOf, AQuarterTurn)
{
    const BulgeArc arc = CircularArcOf({1, 0}, {0, 1}, std::tan(std::numbers::pi / 8));
    EXPECT_NEAR(arc.centre.x, 0, 1e-12);
    EXPECT_NEAR(arc.centre.y, 0, 1e-12);
    EXPECT_NEAR(arc.radius, 1, 1e-12);
    EXPECT_NEAR(arc.start, 0, 1e-12);
    EXPECT_NEAR(arc.end, std::numbers::pi / 2, 1e-12);
}

TEST(CircularArcOf, AClockwiseArcIsGivenFromItsEnd)
{
    const BulgeArc arc = CircularArcOf({0, 1}, {1, 0}, -std::tan(std::numbers::pi / 8));
    EXPECT_NEAR(arc.centre.x, 0, 1e-12);
    EXPECT_NEAR(arc.start, 0, 1e-12);
    EXPECT_NEAR(arc.end, std::numbers::pi / 2, 1e-12);
}

TEST(CircularArcOf, MoreThanHalfATurn)
{
    const BulgeArc arc =
        CircularArcOf({1, 0}, {0, -1}, std::tan(3 * std::numbers::pi / 8)); // three quarters of a turn
    EXPECT_NEAR(arc.centre.x, 0, 1e-12);
    EXPECT_NEAR(arc.centre.y, 0, 1e-12);
    EXPECT_NEAR(arc.end - arc.start, 3 * std::numbers::pi / 2, 1e-12);
}

TEST(CircularArcOf, IsNoneForStraightSegmentsAndPoints)
{
    EXPECT_EQ(CircularArcOf({0, 0}, {1, 0}, 0).radius, 0);
    EXPECT_EQ(CircularArcOf({1, 1}, {1, 1}, 1).radius, 0);
}

} // namespace
} // namespace prepare
