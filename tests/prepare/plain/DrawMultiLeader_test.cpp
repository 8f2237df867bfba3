#include "support/Stage.h"
#include "support/TextTrial.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

MultiLeader Branch()
{
    MultiLeader leader;
    LeaderBranch branch;
    branch.landing = {10, 10, 0};
    branch.dogleg = {1, 0, 0};
    branch.length = 2;
    branch.hasLanding = true;
    branch.lines.push_back({{{0, 0, 0}, {10, 0, 0}}});
    leader.branches.push_back(branch);
    return leader;
}

TEST(DrawMultiLeader, ItsLinesEndInTheLandingAndTheDogleg)
{
    Stage stage;
    MultiLeader leader = Branch();
    leader.arrowSize = 3;
    EXPECT_EQ(stage.Draw(leader), (Lines{"polyline 0,0 10,0 10,10 12,10", "fill 0,0 3,0.5 3,-0.5"}));
    leader.hasDogleg = 0;
    EXPECT_EQ(stage.Draw(leader)[0], "polyline 0,0 10,0 10,10");
    leader.branches[0].hasLanding = false;
    EXPECT_EQ(stage.Draw(leader)[0], "polyline 0,0 10,0");
    leader.leaderType = 0;
    EXPECT_EQ(stage.Draw(leader), Lines{});
    EXPECT_TRUE(stage.Findings().empty());
}

TEST(DrawMultiLeader, ItsColourIsPacked)
{
    Stage stage;
    MultiLeader leader = Branch();
    leader.lineColour = static_cast<std::int32_t>(0xC3000005U);
    EXPECT_EQ(stage.Draw(leader)[0], "polyline 0,0 10,0 10,10 12,10 colour 5");
    leader.lineColour = static_cast<std::int32_t>(0xC2FF8000U);
    EXPECT_EQ(stage.Draw(leader)[0], "polyline 0,0 10,0 10,10 12,10 rgb ff8000");
}

TEST(DrawMultiLeader, ItsArrowIsABlock)
{
    Stage stage;
    MultiLeader leader = Branch();
    leader.arrowSize = 2;
    leader.arrowHandle = 7;
    stage.drawing.blockOfRecord[7] = stage.drawing.names.Of("_OBLIQUE");
    EXPECT_EQ(stage.Draw(leader)[1], "line -1,-1 1,1");
    stage.drawing.blockOfRecord[7] = stage.drawing.names.Of("_NONE");
    EXPECT_EQ(stage.Draw(leader).size(), 1U);
    stage.drawing.blockOfRecord[7] = stage.drawing.names.Of("_DotBlank");
    EXPECT_EQ(stage.Draw(leader)[1], "circle 0,0 radius 1");
}

TEST(DrawMultiLeader, ItsTextIsLaidOutAsAnMText)
{
    TextTrial trial;
    MultiLeader leader;
    leader.contentType = 2;
    leader.text = "A\\PB";
    leader.textPoint = {10, 20, 0};
    leader.textHeight = 3;
    leader.textAttachment = 3;
    leader.textDirection = {0, 1, 0};
    leader.textColour = static_cast<std::int32_t>(0xC3000005);
    EXPECT_EQ(trial.Draw(leader), (Lines{"text 'A' at 13,20 along 0,3 up -3,0 end colour 5",
                                         "text 'B' at 18,20 along 0,3 up -3,0 end colour 5"}));
}

MultiLeader ShortNote()
{
    MultiLeader leader;
    leader.contentType = 2;
    leader.text = "A";
    leader.textHeight = 1;
    leader.textWidth = 4;
    return leader;
}

TEST(DrawMultiLeader, ItsTextMayHaveAColourAndAFrameBehindIt)
{
    TextTrial trial;
    MultiLeader leader = ShortNote();
    leader.hasFill = 1;
    leader.fillColour = static_cast<std::int32_t>(0xC3000005);
    leader.fillScale = 2;
    EXPECT_EQ(trial.Draw(leader).front(), "fill -1,-2 5,-2 5,1 -1,1 colour 5");
    leader.fillsAsWindow = 1;
    leader.hasFrame = 1;
    const Lines lines = trial.Draw(leader);
    EXPECT_EQ(lines[0], "mask -1,-2 5,-2 5,1 -1,1");
    EXPECT_EQ(lines[1].substr(0, 38), "closed polyline -1,-2 5,-2 5,1 -1,1 co");
}

TEST(DrawMultiLeader, ItsFrameIsAsFarAsItsLine)
{
    TextTrial trial;
    MultiLeader leader = ShortNote();
    leader.hasFrame = 1;
    leader.landingGap = 3;
    EXPECT_EQ(trial.Draw(leader).front().substr(0, 36), "closed polyline -3,-4 7,-4 7,3 -3,3 ");
}

TEST(DrawMultiLeader, OneThatMeetsItsTextFromAboveHasNoDogleg)
{
    Stage stage;
    MultiLeader leader = Branch();
    leader.branches[0].isVertical = 1;
    EXPECT_EQ(stage.Draw(leader)[0], "polyline 0,0 10,0 10,10");
}

// From the dogleg's end, as long as the text with a gap at both ends.
TEST(DrawMultiLeader, ItsLineGoesOnUnderTheTextIfTheSideItComesFromSaysSo)
{
    MultiLeader leader = Branch();
    leader.contentType = 2;
    leader.text = "A";
    leader.textHeight = 1;
    leader.textWidth = 4;
    leader.landingGap = 0.5;
    leader.lineColour = static_cast<std::int32_t>(0xC3000005);
    const auto lastOf = [&leader] {
        TextTrial trial;
        return trial.Draw(leader).back().substr(0, 25);
    };
    for (const std::int32_t under : {5, 6, 8}) {
        leader.leftLanding = under;
        EXPECT_EQ(lastOf(), "line 12,10 17,10 colour 5") << under;
    }
    leader.hasDogleg = 0;
    EXPECT_EQ(lastOf(), "line 10,10 15,10 colour 5");
    leader.branches[0].dogleg = {-2, 0, 0};
    EXPECT_EQ(lastOf().substr(0, 4), "text");
    leader.rightLanding = 5;
    EXPECT_EQ(lastOf(), "line 10,10 5,10 colour 5");
    leader.rightLanding = 7;
    EXPECT_EQ(lastOf().substr(0, 4), "text");
    leader.rightLanding = 5;
    leader.branches[0].isVertical = 1;
    EXPECT_EQ(lastOf().substr(0, 4), "text");
    leader.branches[0].isVertical = 0;
    leader.leaderType = 0;
    EXPECT_EQ(lastOf().substr(0, 4), "text");
}

TEST(DrawMultiLeader, OneWithABlockHasNoText)
{
    TextTrial trial;
    MultiLeader leader;
    leader.contentType = 1;
    leader.text = "A";
    EXPECT_EQ(trial.Draw(leader), Lines{});
}

} // namespace
} // namespace prepare
