#include "prepare/plain/Hull.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

namespace prepare {
namespace {

Point2 Towards(std::size_t direction)
{
    const double angle = 2 * std::numbers::pi * static_cast<double>(direction) / Hull::kDirections;
    return {std::cos(angle), std::sin(angle)};
}

TEST(Hull, KnowsTheFarthestOfAnyPointsInEachDirection)
{
    std::mt19937 random(7);
    std::normal_distribution<double> x(1000, 300), y(-5, 0.1);
    Hull hull;
    std::array<double, Hull::kDirections> reach;
    reach.fill(-HUGE_VAL);
    for (int i = 0; i < 5000; ++i) {
        const Point2 point{x(random), y(random)};
        hull.Add(point);
        for (std::size_t k = 0; k < Hull::kDirections; ++k) {
            reach[k] = std::max(reach[k], Dot(point, Towards(k)));
            ASSERT_NEAR(Dot(hull.Points()[k], Towards(k)), reach[k], 1e-6) << i << " " << k;
        }
    }
}

TEST(Hull, WhatIsWithinChangesNothing)
{
    Hull hull;
    EXPECT_FALSE(hull.IsWithin({}, 0));
    for (const Point2 corner : {Point2{0, 0}, {10, 0}, {10, 8}, {0, 8}})
        hull.Add(corner);
    EXPECT_TRUE(hull.IsWithin({5, 4}, 3.9));
    EXPECT_FALSE(hull.IsWithin({5, 4}, 4.1));
    EXPECT_FALSE(hull.IsWithin({std::nan(""), 4}, 1));
    hull.AddArc({5, 4}, 3.9, 0, 6);
    hull.AddArc({5, 4}, 5, 0, 1); // up to (10, 4)
    EXPECT_EQ(hull.Bounds().max.x, 10);
    hull.AddArc({5, 4}, 6, 0, 1);
    EXPECT_EQ(hull.Bounds().max.x, 11);
}

TEST(Hull, ArcsReachAsFarAsTheirPoints)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> place(-50, 50), angle(-7, 7), sweep(0.01, 2 * std::numbers::pi);
    for (int i = 0; i < 300; ++i) {
        const Point2 centre{place(random), place(random)};
        const double start = angle(random), end = start + sweep(random);
        Hull arc, points;
        arc.AddArc(centre, 20, start, end);
        for (int k = 0; k <= 2000; ++k) {
            const double at = start + (end - start) * k / 2000;
            points.Add(centre + 20 * Point2{std::cos(at), std::sin(at)});
        }
        for (std::size_t k = 0; k < Hull::kDirections; ++k)
            ASSERT_NEAR(Dot(arc.Points()[k], Towards(k)), Dot(points.Points()[k], Towards(k)), 1e-4)
                << i << " " << k;
    }
}

TEST(Hull, PointsAsFarAsNumbersGoLeaveNoneOut)
{
    Hull hull;
    for (const double x : {-1.5e308, 1.5e308, 0.0, 1.6e308})
        hull.Add({x, x / 2});
    EXPECT_EQ(hull.Bounds().max.x, 1.6e308);
    EXPECT_EQ(hull.Bounds().min.x, -1.5e308);
}

} // namespace
} // namespace prepare
