#include "prepare/plain/ClipSink.h"
#include "prepare/plain/Curves.h"
#include "prepare/plain/InsertBoundary.h"
#include "support/Stage.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

class ClipSinkTest : public testing::Test {
protected:
    const ClipRegion region{{{0, 0}, {10, 0}, {10, 10}, {0, 10}}};
    RecordingSink taken;
    Budget budget{0.01};
    ClipSink sink{region, budget, taken};
    const Style style{};
};

TEST_F(ClipSinkTest, WhatIsInsideStaysAsItIs)
{
    const std::vector<PlainVertex> vertices{{{1, 1}, 0.5}, {{3, 1}, 0}};
    sink.Line(style, {1, 1}, {2, 2});
    sink.Circle(style, {5, 5}, 4);
    sink.Arc(style, {5, 5}, 4, 0, 1);
    sink.Ellipse(style, {5, 5}, {4, 0}, 0.5, 0, 1);
    sink.Polyline(style, vertices, true);
    sink.Fill(style, std::vector<std::vector<Point2>>{{{1, 1}, {2, 1}, {2, 2}}});
    EXPECT_EQ(taken.lines, (Lines{"line 1,1 2,2", "circle 5,5 radius 4", "arc 5,5 radius 4 from 0 to 1",
                                  "ellipse 5,5 axis 4,0 ratio 0.5 from 0 to 1",
                                  "closed polyline 1,1 bulge 0.5 3,1", "fill 1,1 2,1 2,2"}));
}

TEST_F(ClipSinkTest, PiecesWithoutRoomAreLeftOut)
{
    Budget small(0.01, UINT64_MAX, 10);
    ClipSink bounded(region, small, taken);
    for (int i = 1; i < 5; ++i)
        bounded.Line(style, {i * 1.0, -1}, {i * 1.0, 11});
    bounded.Polyline(style, std::vector<PlainVertex>{{{5, 5}, 0}, {{5, 15}, 0}}, false);
    bounded.Fill(style, std::vector<std::vector<Point2>>{{{1, 1}, {12, 2}, {2, 2}}});
    EXPECT_EQ(taken.lines, (Lines{"line 1,0 1,10", "line 2,0 2,10"}));
    EXPECT_TRUE(small.IsSpent());
}

TEST_F(ClipSinkTest, WhatIsOutsideIsLeftOut)
{
    const std::vector<PlainVertex> vertices{{{11, 1}, 0}, {{13, 1}, 0}};
    sink.Line(style, {11, 1}, {12, 2});
    sink.Circle(style, {15, 15}, 4);
    sink.Arc(style, {-5, 5}, 4, 0, 1);
    sink.Ellipse(style, {15, 5}, {4, 0}, 0.5, 0, 1);
    sink.Polyline(style, vertices, true);
    sink.Fill(style, std::vector<std::vector<Point2>>{{{11, 1}, {12, 1}, {12, 2}}});
    sink.Insert(0, {1, 1}, 0, false);
    EXPECT_EQ(taken.lines, Lines{});
}

TEST_F(ClipSinkTest, WhatCrossesTheEdgeIsCut)
{
    const std::vector<PlainVertex> open{{{5, -5}, 0}, {{5, 5}, 0},  {{7, 5}, 0},
                                        {{7, 15}, 0}, {{8, 15}, 0}, {{8, 9}, 0}};
    sink.Line(style, {-5, 5}, {15, 5});
    sink.Polyline(style, open, false);
    sink.Polyline(style, std::vector<PlainVertex>{{{-5, 1}, 0}, {{5, 1}, 0}, {{5, 2}, 0}, {{-5, 2}, 0}},
                  true);
    sink.Fill(style, std::vector<std::vector<Point2>>{{{8, 1}, {12, 1}, {12, 3}, {8, 3}}});
    EXPECT_EQ(taken.lines, (Lines{"line 0,5 10,5", "polyline 5,0 5,5 7,5 7,10", "polyline 8,10 8,9",
                                  "polyline 0,1 5,1 5,2 0,2", "fill 8,1 10,1 10,3 8,3"}));
}

TEST_F(ClipSinkTest, CurvesAcrossTheEdgeBecomePolylines)
{
    sink.Circle(style, {0, 0}, 5);
    sink.Arc(style, {10, 10}, 5, 0, kTurn * 0.75);
    ASSERT_EQ(taken.lines.size(), 2u);
    EXPECT_EQ(taken.lines[0].substr(0, 13), "polyline 5,0 ");
    EXPECT_EQ(taken.lines[0].substr(taken.lines[0].rfind(' '), 6), " 0,4.9"); // a chord is nearer
    EXPECT_EQ(taken.lines[1].substr(0, 13), "polyline 5.00");
    EXPECT_EQ(taken.lines[1].substr(taken.lines[1].rfind(' ')), " 10,5");
}

TEST_F(ClipSinkTest, ATextIsShownWhereItsMiddleIsInside)
{
    PlainText text{"MMMM", {9, 5}, {1, 0}, {0, 1}, Anchor::Start, kNoName};
    sink.Text(style, text);
    EXPECT_EQ(taken.lines, Lines{});
    text.anchor = Anchor::End;
    sink.Text(style, text);
    text.anchor = Anchor::Middle;
    sink.Text(style, text);
    EXPECT_EQ(taken.lines.size(), 2u);
}

TEST_F(ClipSinkTest, AnInvertedOneShowsWhatIsAround)
{
    const ClipRegion inverted{{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, true};
    ClipSink around(inverted, budget, taken);
    const std::vector<PlainVertex> open{{{5, -5}, 0}, {{5, -2}, 0}, {{5, -2}, 0}, {{5, 15}, 0}};
    around.Line(style, {-5, 5}, {15, 5});
    around.Line(style, {1, 1}, {2, 2});
    around.Line(style, {1, 1}, {1, 1});
    around.Line(style, {11, 1}, {11, 1});
    around.Circle(style, {5, 5}, 4);
    around.Circle(style, {5, 5}, 20);
    around.Arc(style, {20, 5}, 4, 0, 1);
    around.Polyline(style, open, false);
    around.Fill(style, std::vector<std::vector<Point2>>{{{-1, -1}, {11, -1}, {11, 11}}});
    around.Mask(std::vector<std::vector<Point2>>{{{1, 1}, {2, 1}, {2, 2}}});
    EXPECT_EQ(taken.lines.size(), 8u);
    EXPECT_EQ(taken.lines.back(), "fill -1,-1 11,-1 11,11 and 10,10 0,0 10,0");
    taken.lines.resize(3);
    EXPECT_EQ(taken.lines, (Lines{"line -5,5 0,5", "line 10,5 15,5", "line 11,1 11,1"}));
}

TEST_F(ClipSinkTest, OneWithinAnotherShowsWhatBothShow)
{
    const ClipRegion inverted{{{4, 4}, {6, 4}, {6, 6}, {4, 6}}, true};
    ClipSink within(inverted, budget, sink, &sink);
    within.Line(style, {-5, 5}, {15, 5});
    EXPECT_EQ(taken.lines, (Lines{"line 0,5 4,5", "line 6,5 10,5"}));
    EXPECT_EQ(within.SideOf({{1, 1}, {2, 2}}), ClipSide::Inside);
    EXPECT_EQ(within.SideOf({{4.5, 4.5}, {5, 5}}), ClipSide::Outside);
    EXPECT_EQ(within.SideOf({{20, 20}, {21, 21}}), ClipSide::Outside);
    EXPECT_EQ(within.SideOf({{3, 3}, {5, 5}}), ClipSide::Across);
    EXPECT_EQ(within.SideOf({{9, 9}, {11, 11}}), ClipSide::Across);
}

TEST_F(ClipSinkTest, ATextIsShownWhereItsMiddleIsAround)
{
    const ClipRegion inverted{{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, true};
    ClipSink around(inverted, budget, taken);
    PlainText text{"MMMM", {9, 5}, {1, 0}, {0, 1}, Anchor::Start, kNoName};
    around.Text(style, text);
    EXPECT_EQ(taken.lines.size(), 1u);
    text.anchor = Anchor::End;
    around.Text(style, text);
    EXPECT_EQ(taken.lines.size(), 1u);
}

TEST_F(ClipSinkTest, OfTwoRegionsBothDecideWhichSideABoxIsOn)
{
    const ClipRegion inner{{{5, 5}, {20, 5}, {20, 20}, {5, 20}}};
    const ClipSink within(inner, budget, sink, &sink);
    EXPECT_EQ(within.SideOf({{6, 6}, {7, 7}}), ClipSide::Inside);
    EXPECT_EQ(within.SideOf({{9, 6}, {11, 7}}), ClipSide::Across);
    EXPECT_EQ(within.SideOf({{12, 12}, {13, 13}}), ClipSide::Outside);
    EXPECT_EQ(within.SideOf({{1, 1}, {2, 2}}), ClipSide::Outside);
}

TEST(BoundaryOf, IsAsTheInsertWasWhenItWasCut)
{
    SpatialFilter filter;
    filter.boundary = {{7, 8}, {9, 11}};
    // The insert was at (5, 6) and twice as large, and the boundary's own origin is at (1, 0).
    filter.numbers = {99, 0.5, 0, 0, -2.5, 0, 0.5, 0, -3, 0, 0, 1, 0, 1, 0, 0, -1, 0, 1, 0, 0, 0, 0, 1, 0};
    EXPECT_EQ(BoundaryOf(filter, {}), (std::vector<Point2>{{1.5, 1}, {2.5, 1}, {2.5, 2.5}, {1.5, 2.5}}));
    EXPECT_EQ(BoundaryOf(filter, Moved({10, 20, 0}))[0], (Point2{11.5, 21}));
    filter.numbers.resize(5);
    filter.boundary.push_back({0, 0});
    EXPECT_EQ(BoundaryOf(filter, {}), filter.boundary);
}

TEST(BoundaryOf, AMatrixWithoutAnInverseIsLeftOut)
{
    SpatialFilter filter;
    filter.boundary = {{0, 0}, {1, 1}};
    filter.numbers = std::vector<double>(24);
    filter.numbers[0] = filter.numbers[5] = filter.numbers[10] = 2;
    EXPECT_EQ(BoundaryOf(filter, {})[2], (Point2{2, 2}));
}

} // namespace
} // namespace prepare
