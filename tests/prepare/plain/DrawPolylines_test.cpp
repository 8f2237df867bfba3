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

TEST(DrawLwPolyline, AWidthGrowsWithItsPlacement)
{
    Stage stage;
    stage.matrix = Scaled({3, -3, 1});
    LwPolyline polyline = Through({Vertex(0, 0), Vertex(1, 0), Vertex(1, 1)});
    polyline.width = 0.5;
    EXPECT_EQ(stage.Draw(polyline), Lines{"polyline 0,0 3,0 3,-3 width 1.5"});
    EXPECT_TRUE(stage.Findings().empty());
}

TEST(DrawLwPolyline, RunsOfOneWidthAreDrawnTogetherAndTaperedOnesAsTheirMean)
{
    Stage stage;
    LwPolyline arrow = Through({Wide(0, 0, 0, 0), Wide(0, 0, 1, 0), Wide(2, 0, 2, 0), Wide(5, 5, 3, 0)});
    arrow.width = 9; // vertices have their own
    EXPECT_EQ(stage.Draw(arrow), (Lines{"polyline 0,0 1,0 2,0", "polyline 2,0 3,0 width 1"}));
    EXPECT_EQ(stage.Findings(), Lines{"changed: a width that varies along a segment is drawn as its mean"});
    arrow.flags = 1;
    EXPECT_EQ(stage.Draw(arrow),
              (Lines{"polyline 0,0 1,0 2,0", "polyline 2,0 3,0 width 1", "polyline 3,0 0,0 width 5"}));
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
