#include "support/PictureFrame.h"
#include "support/Stage.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

TEST(DrawImage, ItsFrameIsItsPixels)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(PictureFrame()), Lines{"closed polyline 10,21 12,21 12,20 10,20"});
    EXPECT_EQ(stage.Findings(), Lines{"changed: drawn as its frame"});
}

TEST(DrawImage, TheClipCountsWhereItIsUsed)
{
    Stage stage;
    Image image = PictureFrame();
    image.clip = {{-0.5, -0.5}, {1.5, 0.5}}; // the upper left quarter
    image.isClipped = 1;
    image.display = 1 | 4;
    EXPECT_EQ(stage.Draw(image), Lines{"closed polyline 10,21 11,21 11,20.5 10,20.5"});
    image.clip = {{-0.5, -0.5}, {3.5, -0.5}, {3.5, 1.5}, {-0.5, -0.5}};
    EXPECT_EQ(stage.Draw(image), Lines{"closed polyline 10,21 12,21 12,20"});
    image.display = 1;
    EXPECT_EQ(stage.Draw(image), Lines{"closed polyline 10,21 12,21 12,20 10,20"});
}

TEST(DrawUnderlay, IsItsClip)
{
    Stage stage;
    Image underlay;
    underlay.type = EntityType::Underlay;
    underlay.point = {10, 20, 0};
    underlay.scale = {2, 2, 2};
    underlay.rotation = 90;
    EXPECT_EQ(stage.Draw(underlay), Lines{});
    EXPECT_EQ(stage.Findings(), Lines{"not shown: its size is not in the drawing"});
    underlay.clip = {{0, 0}, {3, 1}};
    EXPECT_EQ(stage.Draw(underlay), Lines{"closed polyline 10,20 10,26 8,26 8,20"});
}

TEST(DrawOleFrame, IsItsRectangle)
{
    Stage stage;
    OleFrame frame;
    EXPECT_EQ(stage.Draw(frame), Lines{});
    frame.upperLeft = {1, 5, 0};
    frame.lowerRight = {3, 2, 0};
    EXPECT_EQ(stage.Draw(frame), Lines{"closed polyline 1,5 3,5 3,2 1,2"});
}

} // namespace
} // namespace prepare
