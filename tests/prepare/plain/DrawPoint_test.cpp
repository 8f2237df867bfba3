#include "support/Stage.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

Lines PointInMode(const char* mode, double angle = 0)
{
    Stage stage;
    stage.drawing.header["$PDMODE"].values = {{70, mode}};
    stage.pointSize = 0.5;
    PointEntity point;
    point.point = {10, 20, 30};
    point.xAxisAngle = angle;
    return stage.Draw(point);
}

TEST(DrawPoint, WithoutAModeItIsADot)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(PointEntity()), Lines{"line 0,0 0,0"});
    EXPECT_EQ(PointInMode("0"), Lines{"line 10,20 10,20"});
}

TEST(DrawPoint, AMarkWithoutASizeIsADot)
{
    Stage stage;
    stage.pointSize = 0;
    for (const char* const mode : {"2", "33"}) {
        stage.drawing.header["$PDMODE"].values = {{70, mode}};
        EXPECT_EQ(stage.Draw(PointEntity()), Lines{"line 0,0 0,0"});
    }
    stage.drawing.header["$PDMODE"].values = {{70, "1"}};
    EXPECT_EQ(stage.Draw(PointEntity()), Lines{});
}

TEST(DrawPoint, TheModeGivesTheMark)
{
    EXPECT_EQ(PointInMode("1"), Lines{});
    EXPECT_EQ(PointInMode("2"), (Lines{"line 9,20 11,20", "line 10,19 10,21"}));
    EXPECT_EQ(PointInMode("3"), (Lines{"line 9,19 11,21", "line 9,21 11,19"}));
    EXPECT_EQ(PointInMode("4"), Lines{"line 10,20 10,20.5"});
}

TEST(DrawPoint, CirclesAndSquaresAreAdded)
{
    EXPECT_EQ(PointInMode("33"), Lines{"circle 10,20 radius 0.5"});
    EXPECT_EQ(PointInMode("65"), Lines{"closed polyline 9.5,19.5 10.5,19.5 10.5,20.5 9.5,20.5"});
    EXPECT_EQ(PointInMode("100"), (Lines{"line 10,20 10,20.5", "circle 10,20 radius 0.5",
                                         "closed polyline 9.5,19.5 10.5,19.5 10.5,20.5 9.5,20.5"}));
}

TEST(DrawPoint, ItsMarkIsTurnedClockwise)
{
    EXPECT_EQ(PointInMode("4", 90), Lines{"line 10,20 10.5,20"});
}

} // namespace
} // namespace prepare
