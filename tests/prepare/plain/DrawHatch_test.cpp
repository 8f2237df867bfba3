#include "support/Stage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace prepare {
namespace {

HatchLoop RectangleLoop(double left, double bottom, double right, double top)
{
    HatchLoop loop;
    loop.flags = 3;
    loop.vertices = {{{left, bottom, 0}}, {{right, bottom, 0}}, {{right, top, 0}}, {{left, top, 0}}};
    return loop;
}

Hatch Filled(HatchLoop loop)
{
    Hatch hatch;
    hatch.isSolid = 1;
    hatch.loops.push_back(std::move(loop));
    return hatch;
}

// Horizontal lines at y = 0.5, 1.5, ...; dashes begin at x = 0.
Hatch Lined(HatchLoop loop, std::vector<double> dashes = {})
{
    Hatch hatch;
    hatch.pattern = "LINE";
    hatch.loops.push_back(std::move(loop));
    hatch.lines.push_back({0, {0, 0.5}, {0, 1}, std::move(dashes)});
    return hatch;
}

TEST(DrawHatch, ASolidOneIsAFillWithHoles)
{
    Stage stage;
    Hatch hatch = Filled(RectangleLoop(0, 0, 4, 3));
    hatch.loops.push_back(RectangleLoop(1, 1, 2, 2));
    EXPECT_EQ(stage.Draw(hatch), Lines{"fill 0,0 4,0 4,3 0,3 and 1,1 2,1 2,2 1,2"});
    EXPECT_EQ(stage.Findings(), Lines{});
    hatch.isSolid = 0;
    hatch.pattern = "SOLID";
    EXPECT_EQ(stage.Draw(hatch), Lines{"fill 0,0 4,0 4,3 0,3 and 1,1 2,1 2,2 1,2"});
}

TEST(DrawHatch, AGradientIsItsFirstColour)
{
    Stage stage;
    Hatch hatch = Filled(RectangleLoop(0, 0, 1, 1));
    hatch.isGradient = 1;
    hatch.gradientColours = {0x0080FF, 0xFFFFFF};
    EXPECT_EQ(stage.Draw(hatch), Lines{"fill 0,0 1,0 1,1 0,1 rgb 0080ff"});
    EXPECT_EQ(stage.Findings(), Lines{"changed: its gradient is one colour"});
}

TEST(DrawHatch, APolygonWithAFillHasItsOutlineInItsOwnColour)
{
    Stage stage;
    Hatch hatch = Filled(RectangleLoop(0, 0, 4, 3));
    hatch.hasOutline = true;
    hatch.fillColour = 5;
    hatch.offset = {10, 20};
    EXPECT_EQ(stage.Draw(hatch),
              (Lines{"fill 10,20 14,20 14,23 10,23 colour 5", "closed polyline 10,20 14,20 14,23 10,23"}));
    hatch.isGradient = 1;
    hatch.gradientColours = {0x0080FF, 0x0080FF};
    EXPECT_EQ(stage.Draw(hatch)[0], "fill 10,20 14,20 14,23 10,23 rgb 0080ff");
    EXPECT_EQ(stage.Findings(), Lines{});
    hatch.gradientColours[1] = 0;
    EXPECT_EQ(stage.Draw(hatch).size(), 2U);
    EXPECT_EQ(stage.Findings(), Lines{"changed: its gradient is one colour"});
}

TEST(DrawHatch, APolygonWithoutAFillIsItsOutlineAndItsPattern)
{
    Stage stage;
    Hatch hatch = Lined(RectangleLoop(0, 0, 4, 1));
    hatch.hasOutline = true;
    EXPECT_EQ(stage.Draw(hatch), (Lines{"line 0,0.5 4,0.5", "closed polyline 0,0 4,0 4,1 0,1"}));
    hatch.lines.clear();
    EXPECT_EQ(stage.Draw(hatch), Lines{"closed polyline 0,0 4,0 4,1 0,1"});
    EXPECT_EQ(stage.Findings(), Lines{});
}

TEST(DrawHatch, PatternLinesAreCutAtTheBoundary)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Lined(RectangleLoop(0, 0, 4, 3))),
              (Lines{"line 0,0.5 4,0.5", "line 0,1.5 4,1.5", "line 0,2.5 4,2.5"}));
    EXPECT_EQ(stage.Findings(), Lines{});
}

TEST(DrawHatch, PatternLinesLeaveIslandsFree)
{
    Stage stage;
    Hatch hatch = Lined(RectangleLoop(0, 0, 4, 3));
    hatch.loops.push_back(RectangleLoop(1, 1, 3, 2));
    EXPECT_EQ(stage.Draw(hatch),
              (Lines{"line 0,0.5 4,0.5", "line 0,1.5 1,1.5", "line 3,1.5 4,1.5", "line 0,2.5 4,2.5"}));
}

TEST(DrawHatch, LinesThroughCornersAreCutOnce)
{
    Stage stage;
    Hatch hatch; // a diamond with its corners on lines
    hatch.loops.emplace_back().flags = 3;
    hatch.loops[0].vertices = {{{0, -2, 0}}, {{2, 0, 0}}, {{0, 2, 0}}, {{-2, 0, 0}}};
    hatch.lines.push_back({0, {0, 0}, {0, 1}, {}});
    EXPECT_EQ(stage.Draw(hatch), (Lines{"line -1,-1 1,-1", "line -2,0 2,0", "line -1,1 1,1"}));
}

TEST(DrawHatch, LinesRunInTheirOwnDirections)
{
    Stage stage;
    Hatch hatch = Lined(RectangleLoop(0, 0, 2, 2));
    hatch.lines = {{90, {0.5, 0}, {-1, 0}, {}}, {45, {0, 0}, {0, 2}, {}}};
    EXPECT_EQ(stage.Draw(hatch), (Lines{"line 1.5,0 1.5,2", "line 0.5,0 0.5,2", "line 0,0 2,2"}));
}

TEST(DrawHatch, LinesArePlacedAsTheBoundaryIs)
{
    Stage stage;
    stage.matrix = Moved({10, 20, 0}) * Scaled({2, 1, 1});
    EXPECT_EQ(stage.Draw(Lined(RectangleLoop(0, 0, 4, 2), {2, -0.5})),
              (Lines{"line 10,20.5 18,20.5 dashes 4 -1", "line 10,21.5 18,21.5 dashes 4 -1"}));
    stage.matrix = {};
    Hatch mirrored = Lined(RectangleLoop(0, 0, 4, 1));
    mirrored.extrusion = {0, 0, -1};
    EXPECT_EQ(stage.Draw(mirrored), Lines{"line 0,0.5 -4,0.5"});
}

TEST(DrawHatch, LongDashedLinesAreOneStrokeAfterTheirFirstPeriod)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Lined(RectangleLoop(0, 0, 10, 1), {1, -1})), Lines{"line 0,0.5 10,0.5 dashes 1 -1"});
    EXPECT_EQ(stage.Draw(Lined(RectangleLoop(0.5, 0, 10, 1), {1, -1})),
              (Lines{"line 0.5,0.5 1,0.5", "line 2,0.5 10,0.5 dashes 1 -1"}));
    EXPECT_EQ(stage.Draw(Lined(RectangleLoop(1.5, 0, 10, 1), {1, -1})),
              Lines{"line 2,0.5 10,0.5 dashes 1 -1"});
}

TEST(DrawHatch, ShortDashedLinesAreTheirDashes)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Lined(RectangleLoop(0.5, 0, 2.25, 1), {1, -1})),
              (Lines{"line 0.5,0.5 1,0.5", "line 2,0.5 2.25,0.5"}));
    EXPECT_EQ(stage.Draw(Lined(RectangleLoop(1.25, 0, 1.75, 1), {1, -1})), Lines{});
}

TEST(DrawHatch, DashesGoOnFromLineToLine)
{
    Stage stage; // each line begins half a unit farther
    Hatch hatch = Lined(RectangleLoop(0, 0, 2, 2), {1, -1});
    hatch.lines[0].offset = {0.5, 1};
    EXPECT_EQ(stage.Draw(hatch), (Lines{"line 0,0.5 1,0.5", "line 0.5,1.5 1.5,1.5"}));
}

TEST(DrawHatch, PatternsTooDenseToBeSeenAreALightFill)
{
    Stage stage; // a stroke is 0.2 wide
    Hatch hatch = Lined(RectangleLoop(0, 0, 4, 3));
    hatch.lines[0].offset = {0, 0.04};
    stage.style.colour = {true, 0x804000, 7};
    EXPECT_EQ(stage.Draw(hatch), Lines{"fill 0,0 4,0 4,3 0,3 rgb bf9f7f"});
    EXPECT_EQ(stage.Findings(), Lines{"changed: its pattern is too dense to be seen: a light fill"});
    hatch.lines[0].offset = {0, 0};
    EXPECT_EQ(stage.Draw(hatch), Lines{"fill 0,0 4,0 4,3 0,3 rgb bf9f7f"});
    hatch.lines[0].offset = {0, 0.06};
    EXPECT_EQ(stage.Draw(hatch).size(), 50U); // from y = 0.02 to y = 2.96
}

TEST(DrawHatch, TakesTwentyThousandLinesAtMost)
{
    Stage stage;
    stage.tolerance = 0.001;
    Hatch hatch = Lined(RectangleLoop(0, 0, 1, 20'000));
    EXPECT_EQ(stage.Draw(hatch).size(), 20'000U);
    hatch = Lined(RectangleLoop(0, 0, 1, 20'001));
    EXPECT_EQ(stage.Draw(hatch), Lines{"fill 0,0 1,0 1,20001 0,20001 rgb 808080"});
    // Lines that begin within a dash take two each, as long as there are enough.
    hatch = Lined(RectangleLoop(0.5, 0, 10, 15'000), {1, -1});
    const Lines lines = stage.Draw(hatch);
    EXPECT_EQ(lines.size(), 19'999U);
    EXPECT_EQ(lines[0], "line 0.5,0.5 1,0.5");
    EXPECT_EQ(lines.back(), "line 0.5,14999.5 10,14999.5 dashes 1 -1");
    EXPECT_EQ(stage.Findings(), (Lines{"changed: dashes of its pattern are shifted",
                                       "changed: its pattern is too dense to be seen: a light fill"}));
}

TEST(DrawHatch, FarBasesAndHugeCountsTakeNoTime)
{
    Stage stage;
    Hatch hatch = Lined(RectangleLoop(0, 0, 1e18, 1e18));
    EXPECT_EQ(stage.Draw(hatch), Lines{"fill 0,0 1e+18,0 1e+18,1e+18 0,1e+18 rgb 808080"});
    hatch = Lined(RectangleLoop(0, 0, 4, 1));
    hatch.lines[0].base = {0, std::numeric_limits<double>::quiet_NaN()};
    EXPECT_EQ(stage.Draw(hatch), Lines{"fill 0,0 4,0 4,1 0,1 rgb 808080"});
    hatch.lines[0].base = {0, -1e9 + 0.5};
    EXPECT_EQ(stage.Draw(hatch), Lines{"line 0,0.5 4,0.5"});
}

TEST(DrawHatch, PatternsWithoutLinesAreOutlines)
{
    Stage stage;
    Hatch hatch = Lined(RectangleLoop(0, 0, 2, 1));
    hatch.lines.clear();
    EXPECT_EQ(stage.Draw(hatch), Lines{"closed polyline 0,0 2,0 2,1 0,1"});
    EXPECT_EQ(stage.Findings(), Lines{"changed: its pattern has no lines: its outline"});
}

TEST(DrawHatch, OneWithoutABoundaryIsReported)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Hatch()), Lines{});
    EXPECT_EQ(stage.Findings(), Lines{"not shown: its boundary has no area"});
}

} // namespace
} // namespace prepare
