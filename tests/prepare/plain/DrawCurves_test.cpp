#include "prepare/plain/Curves.h"
#include "support/Stage.h"

#include <gtest/gtest.h>

#include <limits>

namespace prepare {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

Circle CircleAt(Point3 centre, double radius)
{
    Circle circle;
    circle.centre = centre;
    circle.radius = radius;
    return circle;
}

Arc ArcFrom(double start, double end)
{
    Arc arc;
    arc.centre = {10, 20, 0};
    arc.radius = 2;
    arc.startAngle = start;
    arc.endAngle = end;
    return arc;
}

Ellipse EllipseFrom(double start, double end)
{
    Ellipse ellipse;
    ellipse.centre = {10, 20, 0};
    ellipse.majorAxis = {0, 4, 0};
    ellipse.ratio = 0.5;
    ellipse.start = start;
    ellipse.end = end;
    return ellipse;
}

TEST(DrawLine, IsPlacedAndSeenFromAbove)
{
    Stage stage;
    Line line;
    line.start = {1, 2, 3};
    line.end = {4, 5, 6};
    EXPECT_EQ(stage.Draw(line), Lines{"line 1,2 4,5"});
    stage.matrix = Moved({10, 0, 0}) * Scaled({2, 3, 1});
    EXPECT_EQ(stage.Draw(line), Lines{"line 12,6 18,15"});
    EXPECT_TRUE(stage.Findings().empty());
}

TEST(DrawLine, AnExtrusionDoesNotCount)
{
    Stage stage;
    Line line;
    line.type = EntityType::Line3d;
    line.end = {1, 0, 0};
    line.extrusion = {0, 0, -1};
    EXPECT_EQ(stage.Draw(line), Lines{"line 0,0 1,0"});
}

TEST(DrawLine, WithoutLengthOrSeenEndOnIsADotAsAPointIs)
{
    Stage stage;
    Line line;
    line.start = line.end = {10, 20, 0};
    EXPECT_EQ(stage.Draw(line), Lines{"line 10,20 10,20"});
    line.end.z = 5;
    EXPECT_EQ(stage.Draw(line), Lines{"line 10,20 10,20"});
    line.end.x = kInfinity;
    line.start = line.end;
    EXPECT_TRUE(stage.Findings().empty());
    EXPECT_EQ(stage.Draw(line), Lines{});
    EXPECT_EQ(stage.Findings(), Lines{"not shown: numbers out of range"});
}

TEST(DrawLine, InfiniteCoordinatesAreReported)
{
    Stage stage;
    Line line;
    line.end = {kInfinity, 0, 0};
    EXPECT_EQ(stage.Draw(line), Lines{});
    EXPECT_EQ(stage.Findings(), Lines{"not shown: numbers out of range"});
}

TEST(DrawCircle, StaysACircleWhenItIsTurnedScaledAndMirrored)
{
    Stage stage;
    stage.matrix = Turned(1) * Scaled({2, -2, 2});
    EXPECT_EQ(stage.Draw(CircleAt({0, 0, 5}, 3)), Lines{"circle 0,0 radius 6"});
}

TEST(DrawCircle, IsAnEllipseWhenScaledUnequally)
{
    Stage stage;
    stage.matrix = Scaled({2, 6, 1});
    EXPECT_EQ(stage.Draw(CircleAt({1, 1, 0}, 3)),
              Lines{"ellipse 2,6 axis 0,18 ratio 0.333333 from 0 to 6.28319"});
}

TEST(DrawCircle, BelowAnExtrusionOfMinusZTheXAxisIsMirrored)
{
    Stage stage;
    Circle circle = CircleAt({10, 20, 0}, 2);
    circle.extrusion = {0, 0, -1};
    EXPECT_EQ(stage.Draw(circle), Lines{"circle -10,20 radius 2"});
}

// A normal of 60 degrees from z, towards x: the object's x axis is the world's y axis, and its y axis, seen
// from above, is half as long.
TEST(DrawCircle, IsAnEllipseWhenTilted)
{
    Stage stage;
    Circle circle = CircleAt({1, 0, 0}, 2);
    circle.extrusion = {std::sqrt(3) / 2, 0, 0.5};
    EXPECT_EQ(stage.Draw(circle), Lines{"ellipse 0,1 axis 0,2 ratio 0.5 from 0 to 6.28319"});
}

// A normal along the world's x axis: the object's axes are the world's y and z.
TEST(DrawCircle, IsALineWhenSeenFromTheSide)
{
    Stage stage;
    Circle circle = CircleAt({10, 20, 5}, 2);
    circle.extrusion = {1, 0, 0};
    EXPECT_EQ(stage.Draw(circle), Lines{"line 5,8 5,12"});
}

TEST(DrawCircle, WithoutARadiusThereIsNothingToSee)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(CircleAt({1, 1, 0}, 0)), Lines{});
    EXPECT_EQ(stage.Draw(CircleAt({1, 1, 0}, -2)), Lines{"circle 1,1 radius 2"});
}

TEST(DrawCircle, NumbersWhoseSquaresAreInfiniteAreReported)
{
    Stage stage;
    stage.matrix = Scaled({1, 2, 1});
    EXPECT_EQ(stage.Draw(CircleAt({0, 0, 0}, 1e200)), Lines{});
    EXPECT_EQ(stage.Findings(), Lines{"not shown: numbers out of range"});
}

TEST(DrawArc, RunsCounterClockwiseFromStartToEnd)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(ArcFrom(0, 90)), Lines{"arc 10,20 radius 2 from 0 to 1.5708"});
    EXPECT_EQ(stage.Draw(ArcFrom(270, 90)), Lines{"arc 10,20 radius 2 from 4.71239 to 7.85398"});
    EXPECT_EQ(stage.Draw(ArcFrom(-90, 0)), Lines{"arc 10,20 radius 2 from 4.71239 to 6.28319"});
}

TEST(DrawArc, AFullTurnIsACircleAndNoTurnIsNothing)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(ArcFrom(0, 360)), Lines{"circle 10,20 radius 2"});
    EXPECT_EQ(stage.Draw(ArcFrom(180, -180)), Lines{"circle 10,20 radius 2"});
    EXPECT_EQ(stage.Draw(ArcFrom(45, 45)), Lines{});
}

// Mirrored at the y axis, 0 to 90 degrees become 90 to 180.
TEST(DrawArc, IsMirroredByItsExtrusion)
{
    Stage stage;
    Arc arc = ArcFrom(0, 90);
    arc.extrusion = {0, 0, -1};
    EXPECT_EQ(stage.Draw(arc), Lines{"arc -10,20 radius 2 from 1.5708 to 3.14159"});
}

TEST(DrawArc, IsTurnedByItsPlacement)
{
    Stage stage;
    stage.matrix = Turned(std::numbers::pi / 2);
    EXPECT_EQ(stage.Draw(ArcFrom(0, 90)), Lines{"arc -20,10 radius 2 from 1.5708 to 3.14159"});
}

// Seen from the side only its y counts: from 30 to 120 degrees the arc reaches from 1 (at 30) to 2 (at 90).
TEST(DrawArc, FromTheSideItIsAsLongAsWhatItCovers)
{
    Stage stage;
    stage.matrix = Scaled({0, 1, 1});
    EXPECT_EQ(stage.Draw(ArcFrom(30, 120)), Lines{"line 0,21 0,22"});
    EXPECT_EQ(stage.Draw(ArcFrom(120, 30)), Lines{"line 0,18 0,21.7321"});
}

TEST(DrawEllipse, KeepsItsAxesAndParameters)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(EllipseFrom(0, kTurn)), Lines{"ellipse 10,20 axis 0,4 ratio 0.5 from 0 to 6.28319"});
    EXPECT_EQ(stage.Draw(EllipseFrom(0, 6.28319)),
              Lines{"ellipse 10,20 axis 0,4 ratio 0.5 from 0 to 6.28319"});
    EXPECT_EQ(stage.Draw(EllipseFrom(1, 2)), Lines{"ellipse 10,20 axis 0,4 ratio 0.5 from 1 to 2"});
    EXPECT_EQ(stage.Draw(EllipseFrom(2, 1)), Lines{"ellipse 10,20 axis 0,4 ratio 0.5 from 2 to 7.28319"});
}

// With the normal downwards the minor axis points the other way: parameters run clockwise.
TEST(DrawEllipse, IsTurnedRoundByItsExtrusion)
{
    Stage stage;
    Ellipse ellipse = EllipseFrom(1, 2);
    ellipse.extrusion = {0, 0, -1};
    EXPECT_EQ(stage.Draw(ellipse), Lines{"ellipse 10,20 axis 0,4 ratio 0.5 from 4.28319 to 5.28319"});
}

TEST(DrawEllipse, IsACircleWhereItsPlacementMakesItOne)
{
    Stage stage;
    stage.matrix = Scaled({2, 1, 1});
    EXPECT_EQ(stage.Draw(EllipseFrom(0, kTurn)), Lines{"circle 20,20 radius 4"});
}

TEST(DrawEllipse, ARatioAboveOneExchangesItsAxes)
{
    Stage stage;
    Ellipse ellipse = EllipseFrom(0, 1);
    ellipse.majorAxis = {1, 0, 0};
    ellipse.ratio = 2;
    // What was at 0 is a quarter before the new axis.
    EXPECT_EQ(stage.Draw(ellipse), Lines{"ellipse 10,20 axis 0,2 ratio 0.5 from 4.71239 to 5.71239"});
}

TEST(DrawEllipse, WithoutARatioItIsALine)
{
    Stage stage;
    Ellipse ellipse = EllipseFrom(0, kTurn);
    ellipse.ratio = 0;
    EXPECT_EQ(stage.Draw(ellipse), Lines{"line 10,16 10,24"});
}

} // namespace
} // namespace prepare
