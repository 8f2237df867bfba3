// What bounds the points of a drawing.
#include "prepare/plain/Budget.h"
#include "prepare/plain/Spline.h"
#include "support/Stage.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

TEST(Fineness, HasTheToleranceThatWasAskedForWhileHalfOfThePointsAreLeft)
{
    Fineness curves(0.5, 1000);
    EXPECT_EQ(curves.Tolerance(), 0.5);
    curves.Take(0, 500);
    EXPECT_EQ(curves.Tolerance(), 0.5);
    EXPECT_EQ(curves.CoarseParts(), 0u);
}

TEST(Fineness, GrowsAsPointsRunOut)
{
    Fineness curves(0.5, 1000);
    curves.Take(1, 508 + 250); // one part earns 8
    EXPECT_EQ(curves.CoarseParts(), 0u);
    EXPECT_DOUBLE_EQ(curves.Tolerance(), 0.5 * 4);
    curves.Take(1, 8 + 125);
    EXPECT_DOUBLE_EQ(curves.Tolerance(), 0.5 * 16);
    EXPECT_EQ(curves.CoarseParts(), 1u);
    curves.Take(3, 1000);
    EXPECT_EQ(curves.CoarseParts(), 4u);
    EXPECT_GE(curves.Tolerance(), 1e10);
    EXPECT_LE(curves.Tolerance(), 1e100);
}

TEST(Fineness, KeepsToTheCoarsestToleranceOnlyWhileThereIsRoom)
{
    Fineness curves(0.5, 1000);
    EXPECT_EQ(curves.Tolerance(0.25), 0.25);
    EXPECT_EQ(curves.Tolerance(1), 0.5);
    curves.Take(0, 750);
    EXPECT_DOUBLE_EQ(curves.Tolerance(0.25), 0.25 * 4);
}

TEST(Fineness, LastsForCurvesWithoutEnd)
{
    const BSpline arch{3, UniformKnots(4, 3), {{0, 0}, {0, 1000}, {1000, 1000}, {1000, 0}}};
    Fineness fine(1e-4), bounded(1e-4, 10'000);
    const std::size_t whole = Flatten(arch, fine).size();
    EXPECT_GT(whole, 500u);
    EXPECT_EQ(Flatten(arch, bounded).size(), whole);
    std::size_t points = 0;
    constexpr std::size_t kCurves = 10'000;
    for (std::size_t i = 0; i < kCurves; ++i)
        points += Flatten(arch, bounded).size();
    EXPECT_LE(points, 10'000 + 10 * kCurves);
    // The last ones are as fine as what they earn allows.
    EXPECT_GE(Flatten(arch, bounded).size(), 5u);
    EXPECT_GT(bounded.CoarseParts(), kCurves / 2);
}

TEST(Budget, IsSpentByPointsAndParts)
{
    Budget budget(1, 1000, 16);
    budget.Take(2);
    budget.TakeText(31); // as one point
    EXPECT_FALSE(budget.IsSpent());
    budget.Take(1);
    EXPECT_TRUE(budget.IsSpent());
    budget.Take(100);
    EXPECT_TRUE(budget.IsSpent());
}

TEST(Budget, PartsWithoutRoomAreLeftOutAndReported)
{
    Stage stage;
    stage.mostPoints = 8;
    Polyline polyline;
    polyline.flags = 64;
    PolylineVertex corner;
    for (int i = 0; i < 4; ++i) {
        corner.flags = 192;
        corner.point = {i * 1.0, i * i * 1.0, 0};
        polyline.vertices.push_back(corner);
    }
    corner.flags = 128;
    for (int i = 0; i < 4; ++i)
        corner.corners[i] = i + 1;
    polyline.vertices.push_back(corner);
    EXPECT_EQ(stage.Draw(polyline), (Lines{"line 0,0 1,1", "line 0,0 3,9"}));
    EXPECT_EQ(stage.Findings(), Lines{"cut: the drawing has more in it than can be shown"});
}

// Elements are as many as any vertex says, and each is as long as there are vertices.
TEST(Budget, EndsAMultilineOfElementsThatTheFileDoesNotHave)
{
    Stage stage;
    stage.mostPoints = 1000;
    MultiLine multiLine;
    multiLine.vertices.resize(100);
    for (std::size_t i = 0; i < 100; ++i)
        multiLine.vertices[i].point = {static_cast<double>(i), 0, 0};
    multiLine.vertices[0].parameters.resize(100'000, {0});
    EXPECT_LE(stage.Draw(multiLine).size(), 10u);
    const Lines findings = stage.Findings();
    EXPECT_EQ(
        std::count(findings.begin(), findings.end(), "cut: the drawing has more in it than can be shown"), 1);
}

} // namespace
} // namespace prepare
