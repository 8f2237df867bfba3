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
TEST(DrawTolerance, HasAFrameOfTwoHeights)
{
    EXPECT_EQ(TrialOfNotes().Draw(Framed("A%%v")),
              (Lines{"text 'A' at 10.922,19.5 along 1,0 up 0,1 middle colour 0", "line 10,21 10,19 colour 0",
                     "line 10,21 11.844,21 colour 0", "line 10,19 11.844,19 colour 0",
                     "line 11.844,21 11.844,19 colour 0"}));
}

TEST(DrawTolerance, HasACellForEachPartAndARowForEachLine)
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

TEST(DrawTolerance, TakesSizeAndColoursFromItsStyle)
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

TEST(DrawTolerance, LettersOfTheFontOfSignsAreSigns)
{
    EXPECT_EQ(TrialOfNotes().Draw(Framed("{\\Fgdt;j}")).front(),
              "text '\u2316' at 10.878,19.5 along 1,0 up 0,1 middle colour 0");
    EXPECT_NE(TrialOfNotes().Draw(Framed("{\\Fgdt;j}j")).front().find("'\u2316j'"), std::string::npos);
    EXPECT_NE(TrialOfNotes().Draw(Framed("{\\Fgdt;\u20ACj\u00E9}")).front().find("'\u20AC\u2316\u00E9'"),
              std::string::npos);
    EXPECT_EQ(ToleranceSign('n'), "\u00D8");
    EXPECT_EQ(ToleranceSign('u'), "\u23E4");
    EXPECT_EQ(ToleranceSign('v'), "");
    EXPECT_EQ(ToleranceSign('A'), "");
    EXPECT_TRUE(IsSignFont("GDT.shx"));
    EXPECT_FALSE(IsSignFont("gd"));
    EXPECT_FALSE(IsSignFont("Arial|b0"));
}

TEST(DrawTolerance, AnEmptyOneIsNothing)
{
    EXPECT_EQ(TrialOfNotes().Draw(Framed("")), Lines{});
    EXPECT_EQ(TrialOfNotes().Draw(Framed("%%v%%v^J%%v")), Lines{});
}

} // namespace
} // namespace prepare
