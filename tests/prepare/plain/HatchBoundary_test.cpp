#include "prepare/plain/HatchBoundary.h"

#include "support/Stage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace prepare {
namespace {

double SignedArea(const Ring& ring)
{
    double twice = Cross(ring.back(), ring.front());
    for (std::size_t i = 0; i + 1 < ring.size(); ++i)
        twice += Cross(ring[i], ring[i + 1]);
    return twice / 2;
}

std::vector<Ring> Rings(const Hatch& hatch, Stage& stage)
{
    Budget budget(stage.tolerance);
    const DrawingScale scale(stage.tolerance, stage.reach, stage.pointSize);
    const Placement placement{stage.drawing, stage.matrix, stage.style, scale,
                              stage.sink,    stage.report, budget};
    const PartStyler styleOf;
    Pen pen(hatch, placement, styleOf);
    std::vector<Ring> rings = RingsOf(hatch, pen);
    pen.Finish();
    return rings;
}

std::vector<double> Areas(const Hatch& hatch, Stage& stage)
{
    std::vector<double> areas;
    for (const Ring& ring : Rings(hatch, stage))
        areas.push_back(std::fabs(SignedArea(ring)));
    return areas;
}

std::vector<double> Areas(const Hatch& hatch)
{
    Stage stage;
    stage.tolerance = 1e-4;
    return Areas(hatch, stage);
}

HatchLoop Square(double side, std::int32_t flags = 1)
{
    HatchLoop loop;
    loop.flags = flags | 2;
    for (const Point2 p : {Point2{0, 0}, Point2{side, 0}, Point2{side, side}, Point2{0, side}})
        loop.vertices.push_back({{p.x, p.y, 0}});
    return loop;
}

HatchEdge LineEdge(Point2 a, Point2 b)
{
    HatchEdge edge;
    edge.a = a;
    edge.b = b;
    return edge;
}

HatchEdge ArcEdge(Point2 centre, double radius, double start, double end, bool isCounterClockwise = true)
{
    HatchEdge edge;
    edge.kind = HatchEdge::Kind::Arc;
    edge.a = centre;
    edge.radius = radius;
    edge.start = start;
    edge.end = end;
    edge.isCounterClockwise = isCounterClockwise;
    return edge;
}

HatchEdge EllipseEdge(Point2 centre, Point2 axis, double ratio, double start, double end)
{
    HatchEdge edge = ArcEdge(centre, ratio, start, end);
    edge.kind = HatchEdge::Kind::Ellipse;
    edge.b = axis;
    return edge;
}

Hatch HatchOf(std::vector<HatchEdge> edges)
{
    Hatch hatch;
    hatch.loops.emplace_back().edges = std::move(edges);
    return hatch;
}

TEST(HatchBoundary, APolylineIsItsVertices)
{
    Hatch hatch;
    hatch.loops = {Square(3)};
    EXPECT_EQ(Areas(hatch), std::vector{9.0});
    hatch.loops[0].vertices.push_back({{0, 0, 0}}); // the first one again
    Stage stage;
    const std::vector<Ring> rings = Rings(hatch, stage);
    ASSERT_EQ(rings.size(), 1U);
    EXPECT_EQ(rings[0].size(), 4U);
}

TEST(HatchBoundary, TwoBulgesMakeACircle)
{
    Hatch hatch;
    hatch.loops.emplace_back().flags = 3;
    hatch.loops[0].vertices = {{{-1, 0, 0}, 1}, {{1, 0, 0}, 1}};
    ASSERT_EQ(Areas(hatch).size(), 1U);
    EXPECT_NEAR(Areas(hatch)[0], std::numbers::pi, 1e-3);
}

TEST(HatchBoundary, ABulgeBelowZeroCutsIn)
{
    Hatch hatch;
    hatch.loops = {Square(2)};
    hatch.loops[0].vertices[1].bulge = -1; // a half circle of radius 1 into the square
    ASSERT_EQ(Areas(hatch).size(), 1U);
    EXPECT_NEAR(Areas(hatch)[0], 4 - std::numbers::pi / 2, 1e-3);
}

TEST(HatchBoundary, LinesAndArcsAreJoined)
{
    // A half disc: the diameter and the arc above it.
    const Hatch hatch = HatchOf({LineEdge({-2, 0}, {2, 0}), ArcEdge({0, 0}, 2, 0, 180)});
    ASSERT_EQ(Areas(hatch).size(), 1U);
    EXPECT_NEAR(Areas(hatch)[0], 2 * std::numbers::pi, 1e-3);
}

TEST(HatchBoundary, AnglesOfClockwiseArcsAreMeasuredClockwise)
{
    // From (2, 0) clockwise through (0, -2) to (-2, 0), and back.
    const Hatch below = HatchOf({ArcEdge({0, 0}, 2, 0, 180, false), LineEdge({-2, 0}, {2, 0})});
    Stage stage;
    const std::vector<Ring> rings = Rings(below, stage);
    ASSERT_EQ(rings.size(), 1U);
    EXPECT_LT(SignedArea(rings[0]), 0);
    EXPECT_NEAR(Areas(below)[0], 2 * std::numbers::pi, 1e-3);
    double lowest = 0;
    for (const Point2 point : rings[0])
        lowest = std::min(lowest, point.y);
    EXPECT_NEAR(lowest, -2, 0.01);
    // A quarter from 270 to 360 degrees, clockwise: seen counter-clockwise it is the first quadrant.
    const Hatch quarter =
        HatchOf({ArcEdge({0, 0}, 2, 270, 360, false), LineEdge({2, 0}, {0, 0}), LineEdge({0, 0}, {0, 2})});
    ASSERT_EQ(Areas(quarter).size(), 1U);
    EXPECT_NEAR(Areas(quarter)[0], std::numbers::pi, 1e-3);
}

TEST(HatchBoundary, EdgesThatRunBackwardsAreTurned)
{
    const Hatch hatch = HatchOf({LineEdge({3, 0}, {0, 0}), LineEdge({3, 3}, {3, 0}), LineEdge({3, 3}, {0, 3}),
                                 LineEdge({0, 0}, {0, 3})});
    EXPECT_EQ(Areas(hatch), std::vector{9.0});
}

TEST(HatchBoundary, OneLoopMayHoldSeveralRings)
{
    const Hatch hatch =
        HatchOf({ArcEdge({0, 0}, 1, 0, 360), ArcEdge({10, 0}, 2, 0, 360), LineEdge({20, 0}, {21, 0}),
                 LineEdge({21, 0}, {21, 1}), LineEdge({21, 1}, {20, 0})});
    const std::vector<double> areas = Areas(hatch);
    ASSERT_EQ(areas.size(), 3U);
    EXPECT_NEAR(areas[0], std::numbers::pi, 1e-3);
    EXPECT_NEAR(areas[1], 4 * std::numbers::pi, 2e-3);
    EXPECT_DOUBLE_EQ(areas[2], 0.5);
}

TEST(HatchBoundary, AnglesOfEllipsesAreDirections)
{
    const Hatch whole = HatchOf({EllipseEdge({5, 5}, {0, 4}, 0.5, 0, 360)});
    ASSERT_EQ(Areas(whole).size(), 1U);
    EXPECT_NEAR(Areas(whole)[0], 8 * std::numbers::pi, 2e-3);
    // At 45 degrees from the centre, x = y: on the ellipse of half axes 2 and 1 that is at 2 / sqrt(5).
    const Hatch part = HatchOf({EllipseEdge({0, 0}, {2, 0}, 0.5, 45, 90)});
    Stage stage;
    const std::vector<Ring> rings = Rings(part, stage);
    ASSERT_EQ(rings.size(), 1U);
    EXPECT_NEAR(rings[0].front().x, 2 / std::sqrt(5.0), 1e-12);
    EXPECT_NEAR(rings[0].front().y, 2 / std::sqrt(5.0), 1e-12);
    EXPECT_NEAR(rings[0].back().x, 0, 1e-12);
    EXPECT_NEAR(rings[0].back().y, 1, 1e-12);
}

TEST(HatchBoundary, SplinesAreFlattened)
{
    // A parabola from (0, 0) over (1, 1) to (2, 0): two thirds of the box that is 2 wide and 1 high.
    HatchEdge spline;
    spline.kind = HatchEdge::Kind::Spline;
    spline.degree = 2;
    spline.knots = {0, 0, 0, 1, 1, 1};
    spline.controlPoints = {{0, 0}, {1, 2}, {2, 0}};
    const Hatch hatch = HatchOf({spline, LineEdge({2, 0}, {0, 0})});
    ASSERT_EQ(Areas(hatch).size(), 1U);
    EXPECT_NEAR(Areas(hatch)[0], 4.0 / 3, 1e-3);
    // The same as a rational one, with the middle drawn in: a conic that is a quarter of a circle's sector.
    HatchEdge quarter = spline;
    quarter.controlPoints = {{1, 0}, {1, 1}, {0, 1}};
    quarter.weights = {1, std::sqrt(0.5), 1};
    quarter.isRational = true;
    const Hatch sector = HatchOf({quarter, LineEdge({0, 1}, {0, 0}), LineEdge({0, 0}, {1, 0})});
    ASSERT_EQ(Areas(sector).size(), 1U);
    EXPECT_NEAR(Areas(sector)[0], std::numbers::pi / 4, 1e-3);
}

TEST(HatchBoundary, ASplineWithoutControlPointsGoesThroughItsFitPoints)
{
    HatchEdge spline;
    spline.kind = HatchEdge::Kind::Spline;
    spline.fitPoints = {{0, 0}, {1, 0}, {2, 0}};
    const Hatch hatch = HatchOf({spline, LineEdge({2, 0}, {2, 2}), LineEdge({2, 2}, {0, 0})});
    ASSERT_EQ(Areas(hatch).size(), 1U);
    EXPECT_NEAR(Areas(hatch)[0], 2, 1e-9);
}

TEST(HatchBoundary, IslandsAreThoseOfTheStyle)
{
    Hatch hatch;
    constexpr std::int32_t kExternal = 1, kTextBox = 8, kOutermost = 16;
    hatch.loops = {Square(8, kExternal), Square(4, kOutermost), Square(2, 0), Square(1, kTextBox)};
    EXPECT_EQ(Areas(hatch), (std::vector{64.0, 16.0, 4.0}));
    hatch.style = 1;
    EXPECT_EQ(Areas(hatch), (std::vector{64.0, 16.0}));
    hatch.style = 2;
    EXPECT_EQ(Areas(hatch), std::vector{64.0});
    hatch.loops[0].flags = 2; // without an external loop nothing distinguishes them
    EXPECT_EQ(Areas(hatch), (std::vector{64.0, 16.0, 4.0}));
}

TEST(HatchBoundary, IsInObjectCoordinatesAtItsElevation)
{
    Hatch hatch;
    hatch.loops = {Square(2)};
    hatch.extrusion = {0, 0, -1}; // x runs to the left
    Stage stage;
    stage.matrix.z = {0.5, 0, 0}; // what is higher is farther to the right
    hatch.elevation = {0, 0, -10};
    const std::vector<Ring> rings = Rings(hatch, stage);
    ASSERT_EQ(rings.size(), 1U);
    EXPECT_EQ(rings[0][0], (Point2{5, 0}));
    EXPECT_EQ(rings[0][1], (Point2{3, 0}));
    EXPECT_EQ(rings[0][2], (Point2{3, 2}));
}

TEST(HatchBoundary, CurvesKeepTheirShapeWhenToleranceIsCoarse)
{
    Stage stage;
    stage.tolerance = 1e100;
    const std::vector<double> areas = Areas(HatchOf({ArcEdge({0, 0}, 1, 0, 360)}), stage);
    ASSERT_EQ(areas.size(), 1U);
    EXPECT_GT(areas[0], 0.9 * std::numbers::pi);
}

TEST(HatchBoundary, PointsThatAreNotFiniteAreLost)
{
    Hatch hatch;
    hatch.loops = {Square(2)};
    hatch.loops[0].vertices.push_back({{std::numeric_limits<double>::quiet_NaN(), 1, 0}});
    hatch.loops.emplace_back().edges = {
        LineEdge({0, 0}, {1, 0}), LineEdge({1, 0}, {std::numeric_limits<double>::infinity(), 0}),
        LineEdge({1, 0}, {1, 1}), ArcEdge({0, 0}, std::numeric_limits<double>::quiet_NaN(), 0, 360),
        LineEdge({1, 1}, {0, 0})};
    Stage stage;
    EXPECT_EQ(Areas(hatch, stage), (std::vector{4.0, 0.5}));
    EXPECT_EQ(stage.Findings(), Lines{"not shown: numbers out of range"});
}

TEST(HatchBoundary, WhatHasNoAreaIsNoRing)
{
    Hatch hatch = HatchOf({LineEdge({0, 0}, {1, 0}), LineEdge({1, 0}, {0, 0})});
    hatch.loops.emplace_back();
    HatchLoop& point = hatch.loops.emplace_back();
    point.flags = 3;
    point.vertices.assign(5, {{1, 1, 0}});
    EXPECT_EQ(Areas(hatch), std::vector<double>{});
}

} // namespace
} // namespace prepare
