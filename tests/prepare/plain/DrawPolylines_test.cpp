#include "support/Stage.h"

#include <gtest/gtest.h>

#include <limits>

namespace prepare {
namespace {

LwPolyline Through(std::vector<PolylineVertex> vertices, bool isClosed = false)
{
    LwPolyline polyline;
    polyline.vertices = std::move(vertices);
    polyline.flags = isClosed ? 1 : 0;
    return polyline;
}

PolylineVertex Vertex(double x, double y, double bulge = 0)
{
    PolylineVertex vertex;
    vertex.point = {x, y, 0};
    vertex.bulge = bulge;
    return vertex;
}

PolylineVertex Flagged(std::int32_t flags, double x, double y)
{
    PolylineVertex vertex = Vertex(x, y);
    vertex.flags = flags;
    return vertex;
}

PolylineVertex Wide(double start, double end, double x, double y)
{
    PolylineVertex vertex = Vertex(x, y);
    vertex.startWidth = start;
    vertex.endWidth = end;
    return vertex;
}

TEST(DrawLwPolyline, OnlyTheFirstBitCloses)
{
    Stage stage;
    LwPolyline polyline = Through({Vertex(0, 0), Vertex(1, 0), Vertex(1, 1)});
    EXPECT_EQ(stage.Draw(polyline), Lines{"polyline 0,0 1,0 1,1"});
    polyline.flags = 128;
    EXPECT_EQ(stage.Draw(polyline), Lines{"polyline 0,0 1,0 1,1"});
    polyline.flags = 129;
    EXPECT_EQ(stage.Draw(polyline), Lines{"closed polyline 0,0 1,0 1,1"});
    EXPECT_TRUE(stage.Findings().empty());
}

TEST(DrawLwPolyline, BulgesStayAndAreMirrored)
{
    Stage stage;
    LwPolyline polyline = Through({Vertex(0, 0, 0.5), Vertex(1, 0, -1), Vertex(1, 1)}, true);
    EXPECT_EQ(stage.Draw(polyline), Lines{"closed polyline 0,0 bulge 0.5 1,0 bulge -1 1,1"});
    polyline.extrusion = {0, 0, -1};
    EXPECT_EQ(stage.Draw(polyline), Lines{"closed polyline 0,0 bulge -0.5 -1,0 bulge 1 -1,1"});
    stage.matrix = Scaled({2, 2, 1});
    EXPECT_EQ(stage.Draw(polyline), Lines{"closed polyline 0,0 bulge -0.5 -2,0 bulge 1 -2,2"});
}

// Half a circle of radius 1, twice as high: with a tolerance of 0.7, chords of 2 acos(1 - 0.35) = 1.73 do,
// so two of a quarter each.
TEST(DrawLwPolyline, BulgesAreFlattenedWhereCirclesDoNotStayCircles)
{
    Stage stage;
    stage.matrix = Scaled({1, 2, 1});
    stage.tolerance = 0.7;
    EXPECT_EQ(stage.Draw(Through({Vertex(0, 0, 1), Vertex(2, 0), Vertex(2, 1)})),
              Lines{"polyline 0,0 1,-2 2,0 2,2"});
    EXPECT_EQ(stage.Draw(Through({Vertex(0, 0), Vertex(2, 0, -1)}, true)),
              Lines{"closed polyline 0,0 2,0 1,-2"});
}

// With a normal of 60 degrees from z towards x, an elevation of 2 moves it by 1.73 along x.
TEST(DrawLwPolyline, TheElevationIsAlongTheExtrusion)
{
    Stage stage;
    LwPolyline polyline = Through({Vertex(0, 0), Vertex(1, 1)});
    polyline.extrusion = {std::sqrt(3) / 2, 0, 0.5};
    polyline.elevation = 2;
    EXPECT_EQ(stage.Draw(polyline), Lines{"polyline 1.73205,0 1.23205,1"});
}

// Turned out of the plane by 60 degrees, an area is half as large, and a length is about 0.71 times as long.
TEST(DrawLwPolyline, AWidthShrinksAsAreasDoWhereItIsTurnedOutOfThePlane)
{
    const double sine = std::sqrt(3) / 2;
    Stage stage;
    LwPolyline polyline = Through({Vertex(0, 0), Vertex(1, 0), Vertex(1, 1)});
    polyline.width = 2;
    stage.matrix = {{0.5, 0, -sine}, {0, 1, 0}, {sine, 0, 0.5}, {}};
    EXPECT_EQ(stage.Draw(polyline), Lines{"polyline 0,0 0.5,0 0.5,1 width 1.41421"});
    stage.matrix = {{1, 0, 0}, {0, 0.5, sine}, {0, -sine, 0.5}, {}};
    EXPECT_EQ(stage.Draw(polyline), Lines{"polyline 0,0 1,0 1,0.5 width 1.41421"});
}

TEST(DrawLwPolyline, AWidthGrowsWithItsPlacement)
{
    Stage stage;
    stage.matrix = Scaled({3, -3, 1});
    LwPolyline polyline = Through({Vertex(0, 0), Vertex(1, 0), Vertex(1, 1)});
    polyline.width = 0.5;
    EXPECT_EQ(stage.Draw(polyline), Lines{"polyline 0,0 3,0 3,-3 width 1.5"});
    EXPECT_TRUE(stage.Findings().empty());
}

TEST(DrawLwPolyline, RunsOfOneWidthAreDrawnTogether)
{
    Stage stage;
    LwPolyline polyline =
        Through({Wide(0, 0, 0, 0), Wide(0, 0, 1, 0), Wide(2, 2, 2, 0), Wide(2, 2, 3, 0), Wide(5, 5, 4, 0)});
    polyline.width = 9; // vertices have their own
    EXPECT_EQ(stage.Draw(polyline), (Lines{"polyline 0,0 1,0 2,0", "polyline 2,0 3,0 4,0 width 2"}));
    polyline.flags = 1;
    EXPECT_EQ(stage.Draw(polyline),
              (Lines{"polyline 0,0 1,0 2,0", "polyline 2,0 3,0 4,0 width 2", "polyline 4,0 0,0 width 5"}));
    EXPECT_TRUE(stage.Findings().empty());
}

// And a thin line in its middle, so that its tip is seen.
TEST(DrawLwPolyline, ATaperedSegmentIsAnArea)
{
    Stage stage;
    LwPolyline arrow = Through({Wide(0, 0, 0, 0), Wide(2, 0, 4, 0), Wide(7, 8, 6, 0)});
    EXPECT_EQ(stage.Draw(arrow), (Lines{"polyline 0,0 4,0", "fill 4,1 6,0 4,-1", "polyline 4,0 6,0"}));
    stage.matrix = Scaled({3, -3, 1});
    EXPECT_EQ(stage.Draw(arrow), (Lines{"polyline 0,0 12,0", "fill 12,3 18,0 12,-3", "polyline 12,0 18,0"}));
    EXPECT_TRUE(stage.Findings().empty());
}

// The mitre of a right angle of half width 1 is at (1, 1) from it.
TEST(DrawLwPolyline, BandsOfATaperedPolylineShareTheirCorners)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Through({Wide(0, 2, 0, 0), Wide(2, 2, 10, 0), Wide(0, 0, 10, 10)})),
              (Lines{"fill 0,0 9,1 11,-1 and 9,1 9,10 11,10 11,-1", "polyline 0,0 10,0 10,10"}));
    // One that is too short for the mitre, and a sharp bend, are areas of their own.
    EXPECT_EQ(stage.Draw(Through({Wide(0, 2, 0, 0), Wide(2, 2, 10, 0), Wide(0, 0, 10, 0.5)})),
              (Lines{"fill 0,0 10,1 10,-1", "fill 9,0 9,0.5 11,0.5 11,0", "polyline 0,0 10,0 10,0.5"}));
    EXPECT_EQ(stage.Draw(Through({Wide(0, 2, 0, 0), Wide(2, 2, 10, 0), Wide(0, 0, 0, 0)})),
              (Lines{"fill 0,0 10,1 10,-1", "fill 10,-1 0,-1 0,1 10,1", "polyline 0,0 10,0 0,0"}));
    EXPECT_EQ(stage.Draw(Through({Wide(0, 2, 0, 0), Wide(2, 2, 10, 0), Wide(0, 0, 4, 4)})).size(), 3u);
}

TEST(DrawLwPolyline, BandsThatMayOverlapAreAreasOfTheirOwn)
{
    Stage stage;
    const Lines drawn = stage.Draw(Through(
        {Wide(2, 2, 0, 0), Wide(2, 2, 10, 0), Wide(2, 2, 10, 10), Wide(2, 1, 5, 10), Wide(1, 1, 5, -5)}));
    ASSERT_EQ(drawn.size(), 3u);
    EXPECT_EQ(drawn[0], "fill 0,1 9,1 11,-1 0,-1 and 9,1 9,9 11,11 11,-1 and 9,9 6,9 4,11 11,11");
    EXPECT_EQ(drawn[1], "fill 6,9 5.5,-5 4.5,-5 4,11");
    EXPECT_EQ(drawn[2], "polyline 0,0 10,0 10,10 5,10 5,-5");
}

TEST(DrawLwPolyline, AClosedTaperedOneIsMitredAtItsFirstVertexToo)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Through({Wide(2, 4, 0, 0), Wide(4, 4, 10, 0), Wide(4, 2, 10, 10), Wide(2, 2, 0, 10)},
                                 true)),
              (Lines{"fill 1,1 8,2 12,-2 -1,-1 and 8,2 8,8 12,12 12,-2 and 8,8 1,9 -1,11 12,12",
                     "fill 1,9 1,1 -1,-1 -1,11", "closed polyline 0,0 10,0 10,10 0,10"}));
}

// Half a circle of radius 1, from 0 to 1 wide, as two chords: at its ends it is at right angles to the
// circle.
TEST(DrawLwPolyline, ATaperedArcIsABandAroundIt)
{
    Stage stage;
    stage.tolerance = 0.5;
    PolylineVertex arc = Wide(0, 1, 0, 0);
    arc.bulge = 1;
    EXPECT_EQ(stage.Draw(Through({arc, Vertex(2, 0)})),
              (Lines{"fill 0,0 1,-0.646447 1.5,0 2.5,0 1,-1.35355", "polyline 0,0 bulge 1 2,0"}));
}

TEST(DrawLwPolyline, BandsWithoutLengthOrNumbersAreLeftOut)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Through({Wide(0, 2, 1, 1), Wide(0, 2, 1, 1), Vertex(3, 1)})),
              (Lines{"fill 1,1 3,2 3,0", "polyline 1,1 1,1 3,1"}));
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(
        stage.Draw(Through({Wide(0, 2, 0, 0), Wide(0, 2, infinity, 0), Wide(0, 2, 4, 0), Vertex(8, 0)})),
        (Lines{"fill 4,0 8,1 8,-1", "polyline 0,0 4,0 8,0"}));
    EXPECT_EQ(stage.Findings(), Lines{"changed: parts with numbers out of range are left out"});
}

TEST(DrawLwPolyline, VerticesThatAreNotFiniteAreLeftOutAndSuchArcsAreStraight)
{
    Stage stage;
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(stage.Draw(Through({Vertex(0, 0), Vertex(infinity, 0), Vertex(1, 0), Vertex(2, 0)})),
              Lines{"polyline 0,0 1,0 2,0"});
    EXPECT_EQ(stage.Findings(), Lines{"changed: parts with numbers out of range are left out"});
    stage.report = {};
    EXPECT_EQ(stage.Draw(Through({Vertex(0, 0, infinity), Vertex(2, 0)})), Lines{"polyline 0,0 2,0"});
    EXPECT_EQ(stage.Findings(), Lines{"changed: parts with numbers out of range are left out"});
    stage.matrix = Scaled({1, 2, 1});
    EXPECT_EQ(stage.Draw(Through({Vertex(0, 0, 1), Vertex(infinity, 0), Vertex(2, 0)})),
              Lines{"polyline 0,0 2,0"});
}

TEST(DrawLwPolyline, OneVertexIsNothing)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Through({})), Lines{});
    EXPECT_EQ(stage.Draw(Through({}, true)), Lines{});
    EXPECT_EQ(stage.Draw(Through({Vertex(1, 1)}, true)), Lines{});
}

TEST(DrawPolyline, ASplineIsDrawnWithoutItsFrame)
{
    Stage stage;
    Polyline polyline;
    polyline.flags = 4;
    polyline.vertices = {Flagged(16, 9, 9), Flagged(8, 0, 0), Flagged(8, 1, 0), Flagged(16, 9, 9),
                         Flagged(8, 2, 1)};
    EXPECT_EQ(stage.Draw(polyline), Lines{"polyline 0,0 1,0 2,1"});
    polyline.flags = 4 | 8;
    EXPECT_EQ(stage.Draw(polyline), Lines{"polyline 0,0 1,0 2,1"});
}

TEST(DrawPolyline, WhereThereIsOnlyAFrameItIsDrawn)
{
    Stage stage;
    Polyline polyline;
    polyline.vertices = {Flagged(16, 9, 9), Flagged(16, 8, 8)};
    EXPECT_EQ(stage.Draw(polyline), Lines{"polyline 9,9 8,8"});
}

TEST(DrawPolyline, In3dItIsInWorldCoordinatesWithoutBulges)
{
    Stage stage;
    Polyline polyline;
    polyline.flags = 8 | 1;
    polyline.extrusion = {0, 0, -1};
    polyline.vertices = {Vertex(0, 0, 1), Vertex(1, 0), Vertex(1, 1)};
    EXPECT_EQ(stage.Draw(polyline), Lines{"closed polyline 0,0 1,0 1,1"});
}

TEST(DrawPolyline, InAPlaneItIsInObjectCoordinates)
{
    Stage stage;
    Polyline polyline;
    polyline.extrusion = {1, 0, 0}; // the object's x axis is the world's y axis
    polyline.elevation.z = 4;
    polyline.vertices = {Vertex(0, 0), Vertex(1, 0), Vertex(1, 1)};
    EXPECT_EQ(stage.Draw(polyline), Lines{"polyline 4,0 4,1 4,1"});
}

} // namespace
} // namespace prepare
