#include "support/Stage.h"

#include <gtest/gtest.h>

#include <limits>

namespace prepare {
namespace {

Ray RayFrom(EntityType type, Point3 start, Point3 direction)
{
    Ray ray;
    ray.type = type;
    ray.start = start;
    ray.direction = direction;
    return ray;
}

class DrawRays : public testing::Test {
protected:
    DrawRays()
    {
        stage.reach.Add({0, 0});
        stage.reach.Add({10, 20});
    }
    Lines OfRay(Point3 start, Point3 direction)
    {
        return stage.Draw(RayFrom(EntityType::Ray, start, direction));
    }
    Lines OfXLine(Point3 start, Point3 direction)
    {
        return stage.Draw(RayFrom(EntityType::XLine, start, direction));
    }

    Stage stage;
};

TEST_F(DrawRays, ARayReachesFromItsStartToTheEnd)
{
    EXPECT_EQ(OfRay({4, 5, 0}, {1, 0, 0}), Lines{"line 4,5 10,5"});
    EXPECT_EQ(OfRay({4, 5, 0}, {0, -2, 0}), Lines{"line 4,5 4,0"});
    EXPECT_EQ(OfRay({-5, 0, 0}, {1, 1, 9}), Lines{"line 0,5 10,15"});
}

TEST_F(DrawRays, AnXLineReachesBothWays)
{
    EXPECT_EQ(OfXLine({4, 5, 0}, {1, 0, 0}), Lines{"line 0,5 10,5"});
    EXPECT_EQ(OfXLine({100, 105, 0}, {1, 1, 0}), Lines{"line 0,5 10,15"});
}

TEST_F(DrawRays, WhatDoesNotMeetTheDrawingIsLeftOut)
{
    EXPECT_EQ(OfRay({11, 5, 0}, {1, 0, 0}), Lines{});
    EXPECT_EQ(OfXLine({4, 21, 0}, {1, 0, 0}), Lines{});
    EXPECT_EQ(OfXLine({-5, 19, 0}, {1, 1, 0}), Lines{});
    EXPECT_EQ(OfXLine({4, 5, 0}, {0, 0, 1}), Lines{});
    EXPECT_EQ(OfXLine({4, 5, 0}, {0, 0, 0}), Lines{});
    EXPECT_EQ(stage.Findings(), (Lines{"not shown: it does not meet the drawing", "not shown: seen end-on"}));
}

TEST_F(DrawRays, WithoutAReachTheyAreLeftOut)
{
    stage.reach = {};
    EXPECT_EQ(OfXLine({4, 5, 0}, {1, 0, 0}), Lines{});
    EXPECT_TRUE(stage.Findings().empty());
}

TEST_F(DrawRays, InfiniteOnesAreReported)
{
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(OfRay({0, infinity, 0}, {1, 0, 0}), Lines{});
    EXPECT_EQ(stage.Findings(), Lines{"not shown: numbers out of range"});
}

} // namespace
} // namespace prepare
