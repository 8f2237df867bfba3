#include "prepare/plain/Measure.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>

namespace prepare {
namespace {

void ExpectBox(const Box& box, double left, double bottom, double right, double top)
{
    EXPECT_NEAR(box.min.x, left, 1e-9);
    EXPECT_NEAR(box.min.y, bottom, 1e-9);
    EXPECT_NEAR(box.max.x, right, 1e-9);
    EXPECT_NEAR(box.max.y, top, 1e-9);
}

TEST(Measure, NothingHasAnEmptyBox)
{
    EXPECT_TRUE(Measure().OfModel().hull.Bounds().IsEmpty());
}

TEST(Measure, AnArcReachesAsFarAsItGoes)
{
    Measure measure;
    measure.Model().Arc({}, {0, 0}, 10, 0, std::numbers::pi); // the upper half
    ExpectBox(measure.OfModel().hull.Bounds(), -10, 0, 10, 10);
}

TEST(Measure, ABulgeReachesBeyondItsEnds)
{
    Measure measure;
    const std::array<PlainVertex, 2> halfCircle{{{{0, 0}, 1}, {{10, 0}, 0}}};
    measure.Model().Polyline({}, halfCircle, false); // counter-clockwise: below the chord
    ExpectBox(measure.OfModel().hull.Bounds(), 0, -5, 10, 0);
}

TEST(Measure, TheBulgeOfTheLastVertexCountsWhereThePolylineIsClosed)
{
    const std::array<PlainVertex, 2> vertices{{{{0, 0}, 0}, {{10, 0}, 1}}};
    Measure open, closed;
    open.Model().Polyline({}, vertices, false);
    closed.Model().Polyline({}, vertices, true);
    ExpectBox(open.OfModel().hull.Bounds(), 0, 0, 10, 0);
    ExpectBox(closed.OfModel().hull.Bounds(), 0, 0, 10, 5);
}

TEST(Measure, AUseOfABlockIsItsContentMirroredTurnedAndMoved)
{
    Measure measure;
    const std::size_t block = measure.NewBlock("B");
    measure.Block(block).Line({}, {1, 2}, {5, 3});
    measure.EndBlock(block);
    measure.Model().Insert(block, {100, 200}, std::numbers::pi / 2, true);
    // (1, 2) -> (1, -2) -> (2, 1); (5, 3) -> (5, -3) -> (3, 5)
    ExpectBox(measure.OfModel().hull.Bounds(), 102, 201, 103, 205);
}

TEST(Measure, AUseOfABlockReachesBeyondWhatIsKnownWhereverItTurns)
{
    Measure measure;
    const std::size_t block = measure.NewBlock("B");
    measure.Block(block).Line({}, {0, 0}, {30, 40});
    measure.EndBlock(block);
    for (const Point2 corner : {Point2{0, 0}, {100, 0}, {100, 100}, {0, 100}})
        measure.Model().Line({}, corner, {50, 50});
    measure.Model().Insert(block, {45, 45}, 0, false);
    ExpectBox(measure.OfModel().hull.Bounds(), 0, 0, 100, 100);
    measure.Model().Insert(block, {45, 55}, std::atan2(30, 40), false); // upright, up to (45, 105)
    ExpectBox(measure.OfModel().hull.Bounds(), 0, 0, 100, 105);
    measure.Model().Insert(block, {45, 45}, std::numbers::pi - std::atan2(-40, 30), true); // to (-5, 45)
    ExpectBox(measure.OfModel().hull.Bounds(), -5, 0, 100, 105);
}

TEST(Measure, OfABlockThatHasEndedItsMeasuresAreKept)
{
    Measure measure;
    const std::size_t outer = measure.NewBlock("A"), inner = measure.NewBlock("B"),
                      empty = measure.NewBlock("C");
    Style thin;
    thin.weight = 13;
    measure.Block(outer).Line({}, {0, 0}, {1, 1});
    measure.Block(inner).Line(thin, {2, 0}, {0, 2});
    measure.Block(inner).Text({}, {"a", {0, 0}, {2, 0}, {0, 2}, Anchor::Start, kNoName});
    measure.EndBlock(inner);
    measure.Block(outer).Insert(inner, {10, 0}, 0, false);
    measure.EndBlock(outer);
    measure.EndBlock(empty);
    ExpectBox(measure.OfBlock(inner).Bounds(), 0, -0.6, 2, 2);
    EXPECT_EQ(measure.OfBlock(inner).Points().size(), 5U); // of the line, and corners of the text
    ExpectBox(measure.OfBlock(outer).Bounds(), 0, -0.6, 12, 2);
    EXPECT_EQ(measure.OfBlock(outer).thinnestWeight, 13);
    EXPECT_EQ(measure.OfBlock(outer).smallestText, 2);
    EXPECT_TRUE(measure.OfBlock(empty).Bounds().IsEmpty());
}

TEST(Measure, NoPointOfABlockIsBeyondItsRadius)
{
    EXPECT_EQ(MeasuredBlock().Radius(), 0);
    const std::array<Point2, 3> points = {Point2{-3, 4}, {6, -1}, {0, -9}};
    MeasuredBlock block;
    block.points = points.data();
    for (const Point2 point : points) {
        ++block.count;
        EXPECT_GE(block.Radius(), Length(point));
    }
    EXPECT_LE(block.Radius(), 6 + 9);
}

TEST(Measure, KeepsTheThinnestWeightAndTheSmallestText)
{
    Measure measure;
    Style thin;
    thin.weight = 13;
    measure.Model().Line(thin, {0, 0}, {1, 1});
    measure.Model().Line({}, {0, 0}, {1, 1});
    measure.Model().Text({}, {"a", {0, 0}, {2, 0}, {0, 2}, Anchor::Start, kNoName});
    measure.Model().Text({}, {"b", {0, 0}, {3, 0}, {0, 3}, Anchor::Start, kNoName});
    EXPECT_EQ(measure.OfModel().thinnestWeight, 13);
    EXPECT_EQ(measure.OfModel().smallestText, 2);
}

TEST(Measure, PointsThatAreNoNumbersDoNotCount)
{
    Measure measure;
    measure.Model().Line({}, {NAN, 0}, {1, 1});
    measure.Model().Line({}, {HUGE_VAL, 0}, {2, 2});
    ExpectBox(measure.OfModel().hull.Bounds(), 1, 1, 2, 2);
}

} // namespace
} // namespace prepare
