#include "support/TextTrial.h"

#include <gtest/gtest.h>

#include <limits>

namespace prepare {
namespace {

Text OneLine(const char* letters)
{
    Text text;
    text.line = 7;
    text.text = letters;
    text.height = 2;
    text.point = {10, 20, 0};
    return text;
}

// With both points.
Text Aligned(const char* letters, std::int32_t horizontal, std::int32_t vertical)
{
    Text text = OneLine(letters);
    text.alignment = {30, 40, 0};
    text.hasAlignment = true;
    text.horizontal = horizontal;
    text.vertical = vertical;
    return text;
}

Lines Drawn(const Text& text)
{
    TextTrial trial;
    return trial.Draw(text);
}

TEST(DrawText, WithoutAlignmentItStartsAtTheFirstPoint)
{
    EXPECT_EQ(Drawn(OneLine("AB")), Lines{"text 'AB' at 10,20 along 2,0 up 0,2 start"});
    EXPECT_EQ(Drawn(Aligned("AB", 0, 0)), Lines{"text 'AB' at 10,20 along 2,0 up 0,2 start"});
}

TEST(DrawText, AlignmentsOnTheBaseLineAreAtTheSecondPoint)
{
    EXPECT_EQ(Drawn(Aligned("AB", 1, 0)), Lines{"text 'AB' at 30,40 along 2,0 up 0,2 middle"});
    EXPECT_EQ(Drawn(Aligned("AB", 2, 0)), Lines{"text 'AB' at 30,40 along 2,0 up 0,2 end"});
}

TEST(DrawText, AtTheBottomThePointIsWhereTailsEnd)
{
    EXPECT_EQ(Drawn(Aligned("AB", 0, 1)), Lines{"text 'AB' at 30,40.57 along 2,0 up 0,2 start"});
    EXPECT_EQ(Drawn(Aligned("AB", 1, 1)), Lines{"text 'AB' at 30,40.57 along 2,0 up 0,2 middle"});
    EXPECT_EQ(Drawn(Aligned("AB", 2, 1)), Lines{"text 'AB' at 30,40.57 along 2,0 up 0,2 end"});
}

TEST(DrawText, HalfWayUpIsHalfACapital)
{
    EXPECT_EQ(Drawn(Aligned("AB", 0, 2)), Lines{"text 'AB' at 30,39 along 2,0 up 0,2 start"});
    EXPECT_EQ(Drawn(Aligned("AB", 1, 2)), Lines{"text 'AB' at 30,39 along 2,0 up 0,2 middle"});
    EXPECT_EQ(Drawn(Aligned("AB", 2, 2)), Lines{"text 'AB' at 30,39 along 2,0 up 0,2 end"});
}

TEST(DrawText, AtTheTopThePointIsOnCapitals)
{
    EXPECT_EQ(Drawn(Aligned("AB", 0, 3)), Lines{"text 'AB' at 30,38 along 2,0 up 0,2 start"});
    EXPECT_EQ(Drawn(Aligned("AB", 1, 3)), Lines{"text 'AB' at 30,38 along 2,0 up 0,2 middle"});
    EXPECT_EQ(Drawn(Aligned("AB", 2, 3)), Lines{"text 'AB' at 30,38 along 2,0 up 0,2 end"});
}

TEST(DrawText, MiddleIsTheMiddleOfTheLettersThatAreThere)
{
    EXPECT_EQ(Drawn(Aligned("AB", 4, 0)), Lines{"text 'AB' at 30,39 along 2,0 up 0,2 middle"});
    EXPECT_EQ(Drawn(Aligned("Ag", 4, 0)), Lines{"text 'Ag' at 30,39.285 along 2,0 up 0,2 middle"});
    EXPECT_EQ(Drawn(Aligned("x", 4, 0)), Lines{"text 'x' at 30,39.25 along 2,0 up 0,2 middle"});
}

// "AB" is 1.879 heights wide.
TEST(DrawText, FitKeepsTheHeightAndFillsTheDistanceOfItsPoints)
{
    Text text = Aligned("AB", 5, 0);
    text.alignment = {10 + 2 * 1.879 * 3, 20, 0};
    EXPECT_EQ(Drawn(text), Lines{"text 'AB' at 15.637,20 along 6.66706,0 up 0,2 middle"});
}

TEST(DrawText, FitFollowsItsPointsWhateverItsRotation)
{
    Text text = Aligned("AB", 5, 0);
    text.rotation = 45;
    text.alignment = {10, 20 + 2 * 1.879, 0};
    EXPECT_EQ(Drawn(text), Lines{"text 'AB' at 10,21.879 along 0,2.22235 up -2,0 middle"});
}

TEST(DrawText, AlignedGrowsWithTheDistanceOfItsPoints)
{
    Text text = Aligned("AB", 3, 0);
    text.alignment = {10 + 2 * 1.879 * 3, 20, 0};
    EXPECT_EQ(Drawn(text), Lines{"text 'AB' at 15.637,20 along 6.66706,0 up 0,6.66706 middle"});
}

TEST(DrawText, AlignedKeepsTheHeightThatAnotherFontExplains)
{
    Text text = Aligned("AB", 3, 0);
    text.alignment = {10 + 2 * 1.879 * 1.2, 20, 0};
    EXPECT_EQ(Drawn(text), Lines{"text 'AB' at 12.2548,20 along 2.66682,0 up 0,2 middle"});
}

TEST(DrawText, FitBetweenEqualPointsIsAsWithoutAlignment)
{
    Text text = Aligned("AB", 5, 0);
    text.alignment = text.point;
    EXPECT_EQ(Drawn(text), Lines{"text 'AB' at 10,20 along 2,0 up 0,2 start"});
}

TEST(DrawText, WithoutASecondPointAnAlignedTextStartsAtTheFirst)
{
    Text text = Aligned("AB", 2, 3);
    text.hasAlignment = false;
    EXPECT_EQ(Drawn(text), Lines{"text 'AB' at 10,20 along 2,0 up 0,2 start"});
}

TEST(DrawText, RotationTurnsLetterAndOffset)
{
    Text text = Aligned("AB", 1, 3);
    text.rotation = 90;
    EXPECT_EQ(Drawn(text), Lines{"text 'AB' at 32,40 along 0,2 up -2,0 middle"});
}

TEST(DrawText, WidthFactorStretchesAlongTheLine)
{
    Text text = OneLine("AB");
    text.widthFactor = 0.5;
    EXPECT_EQ(Drawn(text), Lines{"text 'AB' at 10,20 along 1,0 up 0,2 start"});
}

TEST(DrawText, ObliqueAngleLeansLettersOver)
{
    Text text = OneLine("AB");
    text.oblique = 45;
    EXPECT_EQ(Drawn(text), Lines{"text 'AB' at 10,20 along 2,0 up 2,2 start"});
    text.oblique = 315; // 45 to the other side
    EXPECT_EQ(Drawn(text), Lines{"text 'AB' at 10,20 along 2,0 up -2,2 start"});
}

TEST(DrawText, BackwardRunsTheOtherWay)
{
    Text text = OneLine("AB");
    text.generation = 2;
    EXPECT_EQ(Drawn(text), Lines{"text 'AB' at 10,20 along -2,0 up 0,2 start"});
}

TEST(DrawText, UpsideDownHangsFromItsPoint)
{
    Text text = Aligned("AB", 0, 3);
    text.generation = 4;
    EXPECT_EQ(Drawn(text), Lines{"text 'AB' at 30,42 along 2,0 up 0,-2 start"});
}

TEST(DrawText, HeightZeroIsTheStylesThenTheDrawings)
{
    TextTrial trial;
    Text text = OneLine("AB");
    text.height = 0;
    EXPECT_EQ(trial.Draw(text), Lines{"text 'AB' at 10,20 along 2.5,0 up 0,2.5 start"});
    trial.drawing.header["$TEXTSIZE"].values = {{40, "3"}};
    EXPECT_EQ(trial.Draw(text), Lines{"text 'AB' at 10,20 along 3,0 up 0,3 start"});
    TextStyle& style = trial.StyleNamed("Notes");
    style.height = 4;
    text.style = style.name;
    EXPECT_EQ(trial.Draw(text), Lines{"text 'AB' at 10,20 along 4,0 up 0,4 start"});
}

TEST(DrawText, AMissingWidthFactorIsOneWhateverTheStyle)
{
    TextTrial trial;
    TextStyle& style = trial.StyleNamed("Narrow");
    style.widthFactor = 0.5;
    Text text = OneLine("AB");
    text.style = style.name;
    EXPECT_EQ(trial.Draw(text), Lines{"text 'AB' at 10,20 along 2,0 up 0,2 start"});
}

TEST(DrawText, ExtrusionPutsItBehindTheMirror)
{
    Text text = OneLine("AB");
    text.extrusion = {0, 0, -1};
    EXPECT_EQ(Drawn(text), Lines{"text 'AB' at -10,20 along -2,0 up 0,2 start"});
}

TEST(DrawText, ElevationCountsWhereTheViewIsTilted)
{
    Text text = OneLine("AB");
    text.point.z = 5;
    TextTrial trial;
    trial.matrix = {{1, 0, 0}, {0, 1, 0}, {0, 1, 0}, {}}; // heights are seen above
    EXPECT_EQ(trial.Draw(text), Lines{"text 'AB' at 10,25 along 2,0 up 0,2 start"});
}

TEST(DrawText, AnUnevenPlacementSkewsIt)
{
    Text text = OneLine("AB");
    text.rotation = 45;
    TextTrial trial;
    trial.matrix = Scaled({2, 1, 1});
    EXPECT_EQ(trial.Draw(text), Lines{"text 'AB' at 20,20 along 2.82843,1.41421 up -2.82843,1.41421 start"});
}

TEST(DrawText, SeenEdgeOnItIsLeftOutAndReported)
{
    Text text = OneLine("AB");
    text.extrusion = {0, 1, 0};
    TextTrial trial;
    EXPECT_EQ(trial.Draw(text), Lines{});
    EXPECT_EQ(trial.Findings(), Lines{"NotShown TEXT: seen edge-on (1 from line 7)"});
}

TEST(DrawText, NumbersThatAreNotFiniteAreLeftOutAndReported)
{
    for (const double bad : {std::numeric_limits<double>::quiet_NaN(), HUGE_VAL}) {
        TextTrial trial;
        Text text = OneLine("%%uAB");
        text.point.x = bad;
        EXPECT_EQ(trial.Draw(text), Lines{});
        text = OneLine("%%uAB");
        text.height = bad;
        EXPECT_EQ(trial.Draw(text), Lines{});
        text = OneLine("%%uAB");
        text.rotation = bad;
        EXPECT_EQ(trial.Draw(text), Lines{});
        EXPECT_EQ(trial.Findings(), Lines{"NotShown TEXT: numbers that are not finite (3 from line 7)"});
    }
}

TEST(DrawText, BlanksAloneAreLeftOutSilently)
{
    TextTrial trial;
    EXPECT_EQ(trial.Draw(OneLine("")), Lines{});
    EXPECT_EQ(trial.Draw(OneLine("   ")), Lines{});
    EXPECT_EQ(trial.Draw(OneLine("^I^J")), Lines{});
    EXPECT_EQ(trial.Findings(), Lines{});
}

// A blank is 0.436 heights wide.
TEST(DrawText, BlanksAtTheEndsMoveTheWordsAsIfTheyWereThere)
{
    EXPECT_EQ(Drawn(OneLine(" AB  ")), Lines{"text 'AB' at 10.784,20 along 2,0 up 0,2 start"});
    EXPECT_EQ(Drawn(Aligned(" AB  ", 2, 0)), Lines{"text 'AB' at 28.432,40 along 2,0 up 0,2 end"});
    EXPECT_EQ(Drawn(Aligned(" AB  ", 1, 0)), Lines{"text 'AB' at 29.608,40 along 2,0 up 0,2 middle"});
}

TEST(DrawText, CodesBecomeTheirSigns)
{
    EXPECT_EQ(Drawn(OneLine("%%c20 %%p0.1 90%%d 5%%% \\U+03B1 x^ 2^Iy")),
              Lines{"text '\u00D820 \u00B10.1 90\u00B0 5% \u03B1 x^2 y' at 10,20 along 2,0 up 0,2 start"});
}

TEST(DrawText, FormattingOfMTextIsNoneHere)
{
    EXPECT_EQ(Drawn(OneLine("C:\\P {x} 5%")), Lines{"text 'C:\\P {x} 5%' at 10,20 along 2,0 up 0,2 start"});
}

TEST(DrawText, UnderlineRunsBelowTheLettersBetweenItsCodes)
{
    EXPECT_EQ(Drawn(OneLine("A%%uB%%uA")),
              (Lines{"text 'ABA' at 10,20 along 2,0 up 0,2 start", "line 11.688,19.6 13.382,19.6"}));
}

TEST(DrawText, LinesThatAreNotEndedRunToTheEnd)
{
    EXPECT_EQ(Drawn(OneLine("%%oAB")),
              (Lines{"text 'AB' at 10,20 along 2,0 up 0,2 start", "line 10,22.4 13.382,22.4"}));
    EXPECT_EQ(Drawn(OneLine("A%%kB")),
              (Lines{"text 'AB' at 10,20 along 2,0 up 0,2 start", "line 11.688,21 13.382,21"}));
}

TEST(DrawText, LinesFollowAlignmentWidthAndTurn)
{
    Text text = Aligned("%%uAB", 1, 0);
    text.widthFactor = 0.5;
    text.rotation = 90;
    EXPECT_EQ(Drawn(text),
              (Lines{"text 'AB' at 30,40 along 0,1 up -2,0 middle", "line 30.4,39.1545 30.4,40.8455"}));
}

TEST(DrawText, UnderlinedBlanksAreALine)
{
    EXPECT_EQ(Drawn(OneLine("%%u  ")), Lines{"line 10,19.6 11.568,19.6"});
}

TEST(DrawText, AnAttributeShowsItsText)
{
    Text text = OneLine("VALUE");
    text.type = EntityType::Attrib;
    text.tag = "TAG";
    EXPECT_EQ(Drawn(text), Lines{"text 'VALUE' at 10,20 along 2,0 up 0,2 start"});
}

TEST(DrawText, AnAttributeDefinitionShowsItsTagAndAConstantOneItsText)
{
    Text text = OneLine("VALUE");
    text.type = EntityType::AttDef;
    text.tag = "TAG";
    EXPECT_EQ(Drawn(text), Lines{"text 'TAG' at 10,20 along 2,0 up 0,2 start"});
    text.flags = 2;
    EXPECT_EQ(Drawn(text), Lines{"text 'VALUE' at 10,20 along 2,0 up 0,2 start"});
}

TEST(DrawText, AnAttributeOfSeveralLinesIsLaidOutAsAnMText)
{
    Text text = Aligned("A\\PB", 1, 3);
    text.type = EntityType::Attrib;
    text.hasMText = true;
    EXPECT_EQ(Drawn(text), (Lines{"text 'A' at 30,38 along 2,0 up 0,2 middle",
                                  "text 'B' at 30,34.6667 along 2,0 up 0,2 middle"}));
}

TEST(DrawText, SeenFromBelowAnAttributeOfSeveralLinesIsMirrored)
{
    Text text = OneLine("A\\PB");
    text.type = EntityType::Attrib;
    text.hasMText = true;
    text.extrusion = {0, 0, -1};
    EXPECT_EQ(Drawn(text), (Lines{"text 'A' at -10,23.3333 along -2,0 up 0,2 start",
                                  "text 'B' at -10,20 along -2,0 up 0,2 start"}));
}

TEST(DrawText, VerticalWritingIsReported)
{
    TextTrial trial;
    TextStyle& style = trial.StyleNamed("Down");
    style.flags = 4;
    Text text = OneLine("AB");
    text.style = style.name;
    EXPECT_EQ(trial.Draw(text), Lines{"text 'AB' at 10,20 along 2,0 up 0,2 start"});
    EXPECT_EQ(trial.Findings(),
              Lines{"Changed TEXT: vertical writing is drawn along a line (1 from line 7)"});
}

TEST(DrawAnyText, OtherTypesAreForOthers)
{
    TextTrial trial;
    EXPECT_EQ(trial.Draw(Circle{}), Lines{"not a text"});
}

} // namespace
} // namespace prepare
