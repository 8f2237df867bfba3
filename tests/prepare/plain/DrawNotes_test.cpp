#include "prepare/plain/PackedColour.h"
#include "prepare/plain/ToleranceSigns.h"
#include "support/TextTrial.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

Tolerance Framed(const char* text)
{
    Tolerance tolerance;
    tolerance.line = 7;
    tolerance.point = {10, 20, 0};
    tolerance.text = text;
    return tolerance;
}

// A trial whose dimensions have letters of height 1.
TextTrial TrialOfNotes()
{
    TextTrial trial;
    trial.drawing.header["$DIMTXT"].values = {{40, "1"}};
    return trial;
}

// "A" is 0.938 wide; a cell has a height of its letters to spare.
TEST(DrawNotes, AToleranceHasAFrameOfTwoHeights)
{
    EXPECT_EQ(TrialOfNotes().Draw(Framed("A%%v")),
              (Lines{"text 'A' at 10.922,19.5 along 1,0 up 0,1 middle colour 0", "line 10,21 10,19 colour 0",
                     "line 10,21 11.844,21 colour 0", "line 10,19 11.844,19 colour 0",
                     "line 11.844,21 11.844,19 colour 0"}));
}

TEST(DrawNotes, AToleranceHasACellForEachPartAndARowForEachLine)
{
    EXPECT_EQ(TrialOfNotes().Draw(Framed("A%%vA%%v%%v^JA")),
              (Lines{"text 'A' at 10.922,19.5 along 1,0 up 0,1 middle colour 0", "line 10,21 10,19 colour 0",
                     "line 10,21 11.844,21 colour 0", "line 10,19 11.844,19 colour 0",
                     "line 11.844,21 11.844,19 colour 0",
                     "text 'A' at 12.766,19.5 along 1,0 up 0,1 middle colour 0",
                     "line 11.844,21 13.688,21 colour 0", "line 11.844,19 13.688,19 colour 0",
                     "line 13.688,21 13.688,19 colour 0",
                     "text 'A' at 10.922,17.5 along 1,0 up 0,1 middle colour 0", "line 10,19 10,17 colour 0",
                     "line 10,19 11.844,19 colour 0", "line 10,17 11.844,17 colour 0",
                     "line 11.844,19 11.844,17 colour 0"}));
}

TEST(DrawNotes, AToleranceTakesSizeAndColoursFromItsStyle)
{
    TextTrial trial = TrialOfNotes();
    const NameId name = trial.drawing.names.Of("Small");
    trial.drawing.dimStyles[name].values = {{40, "2"}, {140, "0.25"}, {176, "1"}, {178, "3"}};
    Tolerance tolerance = Framed("A");
    tolerance.style = name;
    tolerance.direction = {0, 4, 0};
    EXPECT_EQ(trial.Draw(tolerance),
              (Lines{"text 'A' at 10.25,20.461 along 0,0.5 up -0.5,0 middle colour 3",
                     "line 9.5,20 10.5,20 colour 1", "line 9.5,20 9.5,20.922 colour 1",
                     "line 10.5,20 10.5,20.922 colour 1", "line 9.5,20.922 10.5,20.922 colour 1"}));
}

TEST(DrawNotes, LettersOfTheFontOfSignsAreSigns)
{
    EXPECT_EQ(TrialOfNotes().Draw(Framed("{\\Fgdt;j}")).front(),
              "text '\u2316' at 10.878,19.5 along 1,0 up 0,1 middle colour 0");
    EXPECT_EQ(ToleranceSign('n'), "\u00D8");
    EXPECT_EQ(ToleranceSign('u'), "\u23E4");
    EXPECT_EQ(ToleranceSign('v'), "");
    EXPECT_EQ(ToleranceSign('A'), "");
    EXPECT_TRUE(IsSignFont("GDT.shx"));
    EXPECT_FALSE(IsSignFont("gd"));
    EXPECT_FALSE(IsSignFont("Arial|b0"));
}

TEST(DrawNotes, AnEmptyToleranceIsNothing)
{
    EXPECT_EQ(TrialOfNotes().Draw(Framed("")), Lines{});
    EXPECT_EQ(TrialOfNotes().Draw(Framed("%%v%%v^J%%v")), Lines{});
}

TEST(DrawNotes, ALeadersTextIsLaidOutAsAnMText)
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

TEST(DrawNotes, ALeadersTextMayHaveAColourAndAFrameBehindIt)
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

TEST(DrawNotes, ALeadersFrameIsAsFarAsItsLine)
{
    TextTrial trial;
    MultiLeader leader = ShortNote();
    leader.hasFrame = 1;
    leader.landingGap = 3;
    EXPECT_EQ(trial.Draw(leader).front().substr(0, 36), "closed polyline -3,-4 7,-4 7,3 -3,3 ");
}

TEST(DrawNotes, ALeaderWithABlockHasNoText)
{
    TextTrial trial;
    MultiLeader leader;
    leader.contentType = 1;
    leader.text = "A";
    EXPECT_EQ(trial.Draw(leader), Lines{});
}

TEST(DrawNotes, PackedColours)
{
    EXPECT_EQ(UnpackColour(static_cast<std::int32_t>(0xC0000000)).colour, kByLayer);
    EXPECT_EQ(UnpackColour(static_cast<std::int32_t>(0xC1000000)).colour, kByBlock);
    EXPECT_EQ(UnpackColour(static_cast<std::int32_t>(0xC2102030)).trueColour, 0x102030);
    EXPECT_EQ(UnpackColour(static_cast<std::int32_t>(0xC3000007)).colour, 7);
    EXPECT_EQ(UnpackColour(3).colour, kByBlock);
}

Table Gridded()
{
    Table table;
    table.line = 7;
    table.point = {10, 20, 0};
    table.rows = 2;
    table.columns = 2;
    table.rowHeights = {4, 2};
    table.columnWidths = {6, 8};
    return table;
}

TEST(DrawNotes, ATableWithoutItsPictureHasCellsAndTexts)
{
    TextTrial trial;
    Table table = Gridded();
    table.cells = {"T", "", "A", "B"};
    EXPECT_EQ(trial.Draw(table),
              (Lines{"line 10,20 24,20", "line 10,16 24,16", "line 10,20 10,16", "line 24,20 24,16",
                     "text 'T' at 17,17 along 2,0 up 0,2 middle", "line 10,14 24,14", "line 10,16 10,14",
                     "line 16,16 16,14", "text 'A' at 13,14.5 along 1,0 up 0,1 middle", "line 24,16 24,14",
                     "text 'B' at 20,14.5 along 1,0 up 0,1 middle"}));
    EXPECT_EQ(trial.Findings(),
              Lines{"Changed ACAD_TABLE: it has no picture block: drawn without its style (1 from line 7)"});
}

TEST(DrawNotes, ATableDrawsNoMoreRowsThanItHasCells)
{
    TextTrial trial;
    Table table = Gridded();
    table.rows = table.columns = 100'000;
    table.rowHeights.assign(100'000, 1);
    table.columnWidths.assign(100'000, 1);
    table.cells = {"A"};
    EXPECT_EQ(trial.Draw(table).size(), 5u); // the top, the bottom, the sides and the text of one row
}

TEST(DrawNotes, ATableWithoutCellsIsReported)
{
    TextTrial trial;
    EXPECT_EQ(trial.Draw(Gridded()), Lines{});
    EXPECT_EQ(trial.Findings(),
              Lines{"NotShown ACAD_TABLE: it has no picture block and no cells (1 from line 7)"});
}

} // namespace
} // namespace prepare
