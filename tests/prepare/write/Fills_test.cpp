// Areas in written drawings.
#include "prepare/write/AgreedBlocks.h"
#include "support/WrittenDrawing.h"
#include "svghost/AgreedSymbols.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace prepare {
namespace {

using Rings = std::vector<std::vector<Point2>>;

// The text between the lines "BLOCKS" and "ENDSEC", its line feeds as blanks.
std::string BlocksIn(const std::string& text)
{
    const std::string begin = "2\nBLOCKS\n";
    const std::size_t from = text.find(begin);
    if (from == std::string::npos)
        return {};
    std::string blocks =
        text.substr(from + begin.size(), text.find("\n0\nENDSEC\n", from) - from - begin.size());
    std::replace(blocks.begin(), blocks.end(), '\n', ' ');
    return blocks;
}

std::string EntitiesIn(const std::string& text)
{
    const std::string begin = "2\nENTITIES\n";
    const std::size_t from = text.find(begin) + begin.size();
    std::string entities = text.substr(from, text.find("\n0\nENDSEC\n", from) - from);
    std::replace(entities.begin(), entities.end(), '\n', ' ');
    return entities;
}

TEST(Fills, AreBlocksOfThinPolylinesForTheModule)
{
    WrittenDrawing written;
    const Rings square{{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {{2, 2}, {4, 2}, {4, 4}}};
    written.Model().Line(StyleOf(3), {0, 0}, {1, 1});
    written.Model().Fill(StyleOf(1, 200), square);
    written.Model().Line(StyleOf(3), {1, 1}, {2, 2});
    const std::string text = written.Text();
    EXPECT_EQ(BlocksIn(text), "0 BLOCK 2 PLEXORN_FILL_1 "
                              "0 LWPOLYLINE 62 1 370 25 70 1 10 0 20 0 10 10 20 0 10 10 20 10 10 0 20 10 "
                              "0 LWPOLYLINE 62 1 370 25 70 1 10 2 20 2 10 4 20 2 10 4 20 4 0 ENDBLK");
    EXPECT_EQ(EntitiesIn(text), "0 LINE 62 3 370 25 10 0 20 0 11 1 21 1 0 INSERT 2 PLEXORN_FILL_1 "
                                "0 LINE 62 3 370 25 10 1 20 1 11 2 21 2");
}

TEST(Fills, MasksHaveANameOfTheirOwn)
{
    WrittenDrawing written;
    written.Model().Fill(StyleOf(1), Rings{{{0, 0}, {9, 0}, {9, 9}}});
    written.Model().Mask(Rings{{{0, 0}, {1, 0}, {1, 1}}});
    const std::string text = written.Text();
    EXPECT_NE(BlocksIn(text).find("0 BLOCK 2 PLEXORN_FILL_MASK_2 0 LWPOLYLINE "), std::string::npos);
    EXPECT_EQ(EntitiesIn(text), "0 INSERT 2 PLEXORN_FILL_1 0 INSERT 2 PLEXORN_FILL_MASK_2");
    WrittenDrawing standard(Profile::Standard);
    standard.Model().Mask(Rings{{{0, 0}, {1, 0}, {1, 1}}});
    const std::string other = standard.Text();
    EXPECT_EQ(other.find("PLEXORN"), std::string::npos);
    EXPECT_EQ(other.find("LWPOLYLINE"), std::string::npos);
}

TEST(Fills, AreInTheBlocksThatHaveThem)
{
    WrittenDrawing written;
    const std::size_t block = written.Writer().NewBlock("Door");
    written.Model().Fill(StyleOf(2), Rings{{{0, 0}, {9, 0}, {9, 9}}});
    written.Writer().Block(block).Fill(StyleOf(1), Rings{{{0, 0}, {1, 0}, {1, 1}}});
    written.Model().Insert(block, {5, 5}, 0, false);
    const std::string text = written.Text();
    EXPECT_EQ(BlocksIn(text),
              "0 BLOCK 2 PLEXORN_FILL_1 0 LWPOLYLINE 62 1 370 25 70 1 10 0 20 0 10 1 20 0 10 1 20 1 0 ENDBLK "
              "0 BLOCK 2 PLEXORN_FILL_2 0 LWPOLYLINE 62 2 370 25 70 1 10 0 20 0 10 9 20 0 10 9 20 9 0 ENDBLK "
              "0 BLOCK 2 PLEXORN_PART_1 0 INSERT 2 PLEXORN_FILL_1 0 ENDBLK");
    EXPECT_EQ(EntitiesIn(text), "0 INSERT 2 PLEXORN_FILL_2 0 INSERT 2 PLEXORN_PART_1 10 5 20 5");
}

// Strokes that are 0.25 wide have coordinates of four decimals.
TEST(Fills, SmallOnesHaveMoreDecimals)
{
    WrittenDrawing written;
    written.Model().Line(StyleOf(3), {0, 0}, {10, 1.000012});
    written.Model().Fill(StyleOf(1), Rings{{{1, 0}, {1.0012, 0}, {1.0012, 0.000312}}});
    const std::string text = written.Text();
    EXPECT_EQ(BlocksIn(text), "0 BLOCK 2 PLEXORN_FILL_1 0 LWPOLYLINE 62 1 370 25 70 1 "
                              "10 1 20 0 10 1.0012 20 0 10 1.0012 20 0.000312 0 ENDBLK");
    EXPECT_EQ(EntitiesIn(text), "0 LINE 62 3 370 25 10 0 20 0 11 10 21 1 0 INSERT 2 PLEXORN_FILL_1");
}

TEST(Fills, TooSmallOrNotFiniteTheyAreLeftOut)
{
    WrittenDrawing written;
    written.Model().Line(StyleOf(3), {0, 0}, {1, 1});
    written.Model().Fill(StyleOf(1), Rings{{{0, 0}, {1e-9, 0}, {1e-9, 1e-9}}});
    written.Model().Fill(StyleOf(1), Rings{{{0, 0}, {1, 0}, {1, std::numeric_limits<double>::quiet_NaN()}}});
    written.Model().Fill(StyleOf(1), Rings{{{0, 0}, {1e-9, 0}, {1e-9, 1e-9}}, {{0, 0}, {1, 0}, {1, 1}}});
    const std::string text = written.Text();
    EXPECT_EQ(
        BlocksIn(text),
        "0 BLOCK 2 PLEXORN_FILL_1 0 LWPOLYLINE 62 1 370 25 70 1 10 0 20 0 10 1 20 0 10 1 20 1 0 ENDBLK");
    EXPECT_EQ(EntitiesIn(text), "0 LINE 62 3 370 25 10 0 20 0 11 1 21 1 0 INSERT 2 PLEXORN_FILL_1");
}

TEST(Fills, AreSolidHatchesForOtherPrograms)
{
    WrittenDrawing written(Profile::Standard);
    written.Model().Fill(StyleOf(1), Rings{{{0, 0}, {10, 0}, {10, 10}}, {{2, 1}, {4, 1}, {4, 2}}});
    const std::string entities = EntitiesIn(written.Text());
    const std::size_t begin = entities.find("100 AcDbHatch");
    EXPECT_NE(entities.find("0 HATCH 5 "), std::string::npos);
    ASSERT_NE(begin, std::string::npos);
    EXPECT_EQ(entities.substr(begin),
              "100 AcDbHatch 10 0 20 0 30 0 210 0 220 0 230 1 2 SOLID 70 1 71 0 91 2 "
              "92 3 72 0 73 1 93 3 10 0 20 0 10 10 20 0 10 10 20 10 97 0 "
              "92 2 72 0 73 1 93 3 10 2 20 1 10 4 20 1 10 4 20 2 97 0 75 0 76 1 98 0");
}

// The edges are hardly to be seen then.
TEST(Fills, StrokesCoverThemForHostsThatDoNotKnowTheName)
{
    WrittenDrawing written;
    written.settings.fill = FillForm::Strokes;
    written.Model().Fill(StyleOf(1, 200), Rings{{{0, 0}, {10, 0}, {10, 10}, {0, 10}}});
    written.Model().Fill(StyleOf(2), Rings{{{0, 0}, {0.5, 0.1}, {0.5, -0.1}}});
    written.Model().Mask(Rings{{{0, 0}, {9, 0}, {9, 9}}});
    const std::string text = written.Text();
    EXPECT_EQ(
        BlocksIn(text),
        "0 BLOCK 2 PLEXORN_FILL_1 0 LWPOLYLINE 62 1 370 1 70 1 10 0 20 0 10 10 20 0 10 10 20 10 10 0 20 10 "
        "0 LWPOLYLINE 62 1 370 1000 10 5 20 0 10 5 20 10 0 ENDBLK "
        "0 BLOCK 2 PLEXORN_FILL_2 "
        "0 LWPOLYLINE 62 2 370 1 70 1 10 0 20 0 10 0.5 20 0.1 10 0.5 20 -0.1 "
        "0 LWPOLYLINE 62 2 370 9 10 0.3422 20 -0.0226 10 0.455 20 -0.0451 10 0.455 20 0.0451 "
        "10 0.2295 20 0 10 0.3422 20 -0.0226 "
        "0 LWPOLYLINE 62 2 370 4 10 0.2285 20 0.0253 10 0.102 20 0 10 0.2285 20 -0.0253 0 ENDBLK "
        "0 BLOCK 2 PLEXORN_FILL_MASK_3 0 LWPOLYLINE 62 7 370 25 70 1 10 0 20 0 10 9 20 0 10 9 20 9 0 ENDBLK");
    EXPECT_EQ(EntitiesIn(text),
              "0 INSERT 2 PLEXORN_FILL_1 0 INSERT 2 PLEXORN_FILL_2 0 INSERT 2 PLEXORN_FILL_MASK_3");
}

TEST(Fills, AsOutlinesTheyAreThinPolylinesAndNothingHides)
{
    const Rings square{{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {{2, 2}, {4, 2}, {4, 4}}};
    for (const Profile profile : {Profile::Module, Profile::Standard}) {
        WrittenDrawing written(profile);
        written.settings.fill = FillForm::Outlines;
        const std::size_t block = written.Writer().NewBlock("Door");
        written.Model().Mask(square);
        written.Model().Fill(StyleOf(1, 200), square);
        written.Writer().Block(block).Fill(StyleOf(1), square);
        written.Model().Insert(block, {5, 5}, 0, false);
        const std::string text = written.Text();
        EXPECT_EQ(text.find("PLEXORN_FILL"), std::string::npos);
        EXPECT_EQ(text.find("HATCH"), std::string::npos);
        std::size_t outlines = 0;
        for (std::size_t at = text.find("\nLWPOLYLINE\n"); at != std::string::npos;
             at = text.find("\nLWPOLYLINE\n", at + 1))
            ++outlines;
        EXPECT_EQ(outlines, 4U);
        if (profile == Profile::Module) {
            EXPECT_EQ(EntitiesIn(text),
                      "0 LWPOLYLINE 62 1 370 25 70 1 10 0 20 0 10 10 20 0 10 10 20 10 10 0 20 10 "
                      "0 LWPOLYLINE 62 1 370 25 70 1 10 2 20 2 10 4 20 2 10 4 20 4 "
                      "0 INSERT 2 PLEXORN_PART_1 10 5 20 5");
        }
    }
}

TEST(Fills, TheHostAndTheWriterAgreeOnTheirName)
{
    EXPECT_EQ(std::wstring(kFillPrefix.begin(), kFillPrefix.end()), svghost::kFillPrefix);
    EXPECT_EQ(std::wstring(kMaskPrefix.begin(), kMaskPrefix.end()), svghost::kMaskPrefix);
}

TEST(Fills, LineTypesOfPatternsHaveNames)
{
    WrittenDrawing written(Profile::Standard);
    Style style = StyleOf(1);
    LineType lineType;
    style.lineType = &lineType;
    lineType.dashes = {2, -1};
    written.Model().Line(style, {0, 0}, {10, 0});
    lineType.dashes = {1, -1};
    written.Model().Line(style, {0, 1}, {10, 1});
    const std::string text = written.Text();
    EXPECT_NE(text.find("\n2\nPATTERN_1\n70\n0\n3\n\n72\n65\n73\n2\n40\n2\n49\n1\n"), std::string::npos);
    EXPECT_NE(text.find("\n2\nPATTERN_2\n70\n0\n3\n\n72\n65\n73\n2\n40\n3\n49\n2\n"), std::string::npos);
    const std::string entities = EntitiesIn(text);
    EXPECT_LT(entities.find(" 6 PATTERN_2 "), entities.find(" 6 PATTERN_1 "));
    EXPECT_NE(entities.find(" 6 PATTERN_1 "), std::string::npos);
}

} // namespace
} // namespace prepare
