#include "support/Stage.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

Leader Elbow()
{
    Leader leader;
    leader.vertices = {{0, 0, 0}, {10, 0, 0}, {10, 5, 0}};
    return leader;
}

TEST(DrawLeader, HasAnArrowOnItsFirstPoint)
{
    Stage stage;
    stage.drawing.header["$DIMASZ"].values = {{40, "3"}};
    EXPECT_EQ(stage.Draw(Elbow()), (Lines{"polyline 0,0 10,0 10,5", "fill 0,0 3,0.5 3,-0.5"}));
    Leader leader = Elbow();
    leader.hasArrow = 0;
    EXPECT_EQ(stage.Draw(leader), Lines{"polyline 0,0 10,0 10,5"});
}

TEST(DrawLeader, ItsDimensionStyleGivesTheArrowsSizeShapeAndTheColour)
{
    Stage stage;
    Leader leader = Elbow();
    leader.dimStyle = stage.drawing.names.Of("TALL");
    stage.drawing.blockOfRecord[0x1A] = stage.drawing.names.Of("_Open90");
    stage.drawing.dimStyles[leader.dimStyle].values = {{41, "1"}, {40, "2"}, {341, "1A"}, {176, "3"}};
    EXPECT_EQ(stage.Draw(leader),
              (Lines{"polyline 0,0 10,0 10,5 colour 3", "polyline 1,1 0,0 1,-1 colour 3"}));
    leader.overrides = {{41, "2"}, {341, "0"}};
    EXPECT_EQ(stage.Draw(leader)[1], "fill 0,0 4,0.666667 4,-0.666667 colour 3");
    leader.overrides = {{41, "2.6"}}; // two of 5.2 do not fit in 10
    EXPECT_EQ(stage.Draw(leader).size(), 1U);
}

TEST(DrawLeader, AScaleOfZeroIsOne)
{
    Stage stage;
    Leader leader = Elbow();
    leader.overrides = {{41, "3"}, {40, "0"}};
    EXPECT_EQ(stage.Draw(leader)[1], "fill 0,0 3,0.5 3,-0.5");
}

TEST(DrawLeader, ItsArrowGrowsWithItsPlacement)
{
    Stage stage;
    stage.matrix = Scaled({2, 2, 2});
    Leader leader = Elbow();
    leader.overrides = {{41, "3"}};
    EXPECT_EQ(stage.Draw(leader)[1], "fill 0,0 6,1 6,-1");
}

// The natural cubic of three points, as of a SPLINE.
TEST(DrawLeader, AsASplineItIsSmooth)
{
    Stage stage;

    Leader leader = Elbow();
    leader.vertices = {{-1, 0, 0}, {0, 1, 0}, {1, 0, 0}};
    leader.isSpline = 1;
    leader.hasArrow = 0;
    stage.tolerance = 0.1;
    EXPECT_EQ(stage.Draw(leader), Lines{"polyline -1,0 -0.5,0.6875 0,1 0.5,0.6875 1,0"});
}

} // namespace
} // namespace prepare
