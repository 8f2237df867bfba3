#include "support/Stage.h"

#include <gtest/gtest.h>

#include <limits>

namespace prepare {
namespace {

Solid Square(EntityType type)
{
    Solid solid;
    solid.type = type;
    solid.corners[0] = {0, 0, 0};
    solid.corners[1] = {1, 0, 0};
    solid.corners[2] = {1, 1, 0};
    solid.corners[3] = {0, 1, 0};
    solid.hasFourth = true;
    return solid;
}

TEST(DrawSolid, TheLastTwoCornersAreExchanged)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Square(EntityType::Solid)), Lines{"fill 0,0 1,0 0,1 1,1"});
    EXPECT_EQ(stage.Draw(Square(EntityType::Trace)), Lines{"fill 0,0 1,0 0,1 1,1"});
}

TEST(DrawSolid, IsATriangleWithoutAFourthCornerOfItsOwn)
{
    Stage stage;
    Solid solid = Square(EntityType::Solid);
    solid.hasFourth = false;
    EXPECT_EQ(stage.Draw(solid), Lines{"fill 0,0 1,0 1,1"});
    solid.hasFourth = true;
    solid.corners[3] = solid.corners[2];
    EXPECT_EQ(stage.Draw(solid), Lines{"fill 0,0 1,0 1,1"});
}

TEST(DrawSolid, IsInObjectCoordinates)
{
    Stage stage;
    Solid solid = Square(EntityType::Solid);
    solid.extrusion = {0, 0, -1};
    EXPECT_EQ(stage.Draw(solid), Lines{"fill 0,0 -1,0 0,1 -1,1"});
}

TEST(DrawSolid, ACornerThatIsNotFiniteLosesIt)
{
    Stage stage;
    Solid solid = Square(EntityType::Solid);
    solid.corners[1].x = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(stage.Draw(solid), Lines{});
    EXPECT_EQ(stage.Findings().front(), "not shown: numbers out of range");
}

TEST(DrawFace, IsAnOutlineInWorldCoordinates)
{
    Stage stage;
    Solid face = Square(EntityType::Face);
    face.extrusion = {0, 0, -1};
    EXPECT_EQ(stage.Draw(face), Lines{"closed polyline 0,0 1,0 1,1 0,1"});
    face.hasFourth = false;
    EXPECT_EQ(stage.Draw(face), Lines{"closed polyline 0,0 1,0 1,1"});
}

TEST(DrawFace, HiddenEdgesAreLeftOut)
{
    Stage stage;
    Solid face = Square(EntityType::Face);
    face.hiddenEdges = 1;
    EXPECT_EQ(stage.Draw(face), Lines{"polyline 1,0 1,1 0,1 0,0"});
    face.hiddenEdges = 2 | 8;
    EXPECT_EQ(stage.Draw(face), (Lines{"line 0,0 1,0", "line 1,1 0,1"}));
    face.hiddenEdges = 15;
    EXPECT_EQ(stage.Draw(face), Lines{});
    EXPECT_TRUE(stage.Findings().empty());
}

TEST(DrawFace, ATriangleHasNoThirdEdge)
{
    Stage stage;
    Solid face = Square(EntityType::Face);
    face.hasFourth = false;
    face.hiddenEdges = 4;
    EXPECT_EQ(stage.Draw(face), Lines{"closed polyline 0,0 1,0 1,1"});
    face.hiddenEdges = 8;
    EXPECT_EQ(stage.Draw(face), Lines{"polyline 0,0 1,0 1,1"});
}

TEST(DrawGeometry, ModelledSolidsAreReportedAndUnknownTypesAreNot)
{
    Stage stage;
    Other solid;
    solid.typeName = stage.drawing.names.Of("3DSOLID");
    EXPECT_EQ(stage.Draw(solid), Lines{});
    EXPECT_EQ(stage.Findings(), Lines{"not shown: a modelled solid or surface"});
    Other unknown;
    unknown.typeName = stage.drawing.names.Of("ROOM");
    Budget budget(stage.tolerance);
    const DrawingScale scale(stage.tolerance, stage.reach, stage.pointSize);
    const Placement placement{stage.drawing, stage.matrix, stage.style, scale,
                              stage.sink,    stage.report, budget};
    EXPECT_FALSE(DrawGeometry(unknown, placement, {}));
    EXPECT_FALSE(DrawGeometry(Text(), placement, {}));
}

} // namespace
} // namespace prepare
