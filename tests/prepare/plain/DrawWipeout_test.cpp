#include "support/PictureFrame.h"
#include "support/Stage.h"

#include <gtest/gtest.h>

#include <limits>

namespace prepare {
namespace {

TEST(DrawWipeout, HidesItsClip)
{
    Stage stage;
    Image wipeout = PictureFrame();
    wipeout.type = EntityType::Wipeout;
    EXPECT_EQ(stage.Draw(wipeout), Lines{"mask 10,21 12,21 12,20 10,20"});
    wipeout.clip = {{-0.5, -0.5}, {3.5, -0.5}, {3.5, 1.5}, {-0.5, -0.5}};
    wipeout.isClipped = 1;
    wipeout.display = 7;
    EXPECT_EQ(stage.Draw(wipeout), Lines{"mask 10,21 12,21 12,20 10,21"});
    EXPECT_EQ(stage.Findings(), Lines{});
    wipeout.point.x = std::numeric_limits<double>::infinity();
    EXPECT_EQ(stage.Draw(wipeout), Lines{});
    EXPECT_EQ(stage.Findings(), Lines{"not shown: numbers out of range"});
}

} // namespace
} // namespace prepare
