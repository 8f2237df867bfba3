#include "support/TextTrial.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <span>
#include <string>

namespace prepare {
namespace {

// At the origin, with letters of height 1.
MText Simple(const char* letters)
{
    MText text;
    text.line = 7;
    text.text = letters;
    text.height = 1;
    return text;
}

MText Attached(std::int32_t attachment, const char* letters = "A\\PB")
{
    MText text = Simple(letters);
    text.height = 3;
    text.attachment = attachment;
    return text;
}

MText Wrapped(const char* letters, double width)
{
    MText text = Simple(letters);
    text.width = width;
    return text;
}

Lines Drawn(const MText& text)
{
    TextTrial trial;
    return trial.Draw(text);
}

Lines Drawn(const char* letters)
{
    return Drawn(Simple(letters));
}

// Only the words of each piece.
Lines WordsOf(const MText& text)
{
    Lines words;
    for (const std::string& line : Drawn(text)) {
        const std::size_t start = line.find('\'');
        if (start != std::string::npos)
            words.push_back(line.substr(start + 1, line.rfind('\'') - start - 1));
    }
    return words;
}

TEST(DrawMText, ParagraphsAreFiveThirdsOfTheHeightApart)
{
    EXPECT_EQ(Drawn(Attached(1)),
              (Lines{"text 'A' at 0,-3 along 3,0 up 0,3 start", "text 'B' at 0,-8 along 3,0 up 0,3 start"}));
}

TEST(DrawMText, AttachmentsAtTheTopHangFromThePoint)
{
    EXPECT_EQ(Drawn(Attached(2)), (Lines{"text 'A' at 0,-3 along 3,0 up 0,3 middle",
                                         "text 'B' at 0,-8 along 3,0 up 0,3 middle"}));
    EXPECT_EQ(Drawn(Attached(3)),
              (Lines{"text 'A' at 0,-3 along 3,0 up 0,3 end", "text 'B' at 0,-8 along 3,0 up 0,3 end"}));
}

TEST(DrawMText, AttachmentsInTheMiddleHaveThePointHalfWay)
{
    EXPECT_EQ(Drawn(Attached(4)),
              (Lines{"text 'A' at 0,1 along 3,0 up 0,3 start", "text 'B' at 0,-4 along 3,0 up 0,3 start"}));
    EXPECT_EQ(Drawn(Attached(5)),
              (Lines{"text 'A' at 0,1 along 3,0 up 0,3 middle", "text 'B' at 0,-4 along 3,0 up 0,3 middle"}));
    EXPECT_EQ(Drawn(Attached(6)),
              (Lines{"text 'A' at 0,1 along 3,0 up 0,3 end", "text 'B' at 0,-4 along 3,0 up 0,3 end"}));
}

TEST(DrawMText, AttachmentsAtTheBottomAreOnThePoint)
{
    EXPECT_EQ(Drawn(Attached(7)),
              (Lines{"text 'A' at 0,5 along 3,0 up 0,3 start", "text 'B' at 0,0 along 3,0 up 0,3 start"}));
    EXPECT_EQ(Drawn(Attached(8)),
              (Lines{"text 'A' at 0,5 along 3,0 up 0,3 middle", "text 'B' at 0,0 along 3,0 up 0,3 middle"}));
    EXPECT_EQ(Drawn(Attached(9)),
              (Lines{"text 'A' at 0,5 along 3,0 up 0,3 end", "text 'B' at 0,0 along 3,0 up 0,3 end"}));
}

TEST(DrawMText, AnUnknownAttachmentIsTopLeft)
{
    EXPECT_EQ(Drawn(Attached(0, "A")), Lines{"text 'A' at 0,-3 along 3,0 up 0,3 start"});
    EXPECT_EQ(Drawn(Attached(10, "A")), Lines{"text 'A' at 0,-3 along 3,0 up 0,3 start"});
}

TEST(DrawMText, TheSpacingFactorStretchesTheDistance)
{
    MText text = Attached(1);
    text.spacing = 2;
    EXPECT_EQ(Drawn(text),
              (Lines{"text 'A' at 0,-3 along 3,0 up 0,3 start", "text 'B' at 0,-13 along 3,0 up 0,3 start"}));
}

TEST(DrawMText, SpacingAtLeastGrowsWithHigherLetters)
{
    MText text = Attached(1, "A\\P\\H6;B");
    EXPECT_EQ(Drawn(text),
              (Lines{"text 'A' at 0,-3 along 3,0 up 0,3 start", "text 'B' at 0,-13 along 6,0 up 0,6 start"}));
    text.spacingStyle = 2; // exact
    EXPECT_EQ(Drawn(text),
              (Lines{"text 'A' at 0,-3 along 3,0 up 0,3 start", "text 'B' at 0,-8 along 6,0 up 0,6 start"}));
}

TEST(DrawMText, EmptyParagraphsTakeTheirLine)
{
    EXPECT_EQ(Drawn(Attached(1, "A\\P\\PB")),
              (Lines{"text 'A' at 0,-3 along 3,0 up 0,3 start", "text 'B' at 0,-13 along 3,0 up 0,3 start"}));
}

TEST(DrawMText, RotationIsInDegrees)
{
    MText text = Attached(1);
    text.rotation = 90;
    EXPECT_EQ(Drawn(text),
              (Lines{"text 'A' at 3,0 along 0,3 up -3,0 start", "text 'B' at 8,0 along 0,3 up -3,0 start"}));
}

TEST(DrawMText, ADirectionCountsInPlaceOfTheRotation)
{
    MText text = Attached(1, "A");
    text.rotation = 45;
    text.direction = {0, -2, 0};
    text.hasDirection = true;
    EXPECT_EQ(Drawn(text), Lines{"text 'A' at -3,0 along 0,-3 up 3,0 start"});
    text.direction = {0, 0, 0}; // none
    text.rotation = 180;
    EXPECT_EQ(Drawn(text), Lines{"text 'A' at 0,3 along -3,0 up 0,-3 start"});
}

TEST(DrawMText, AnExtrusionDownTurnsItUpsideDown)
{
    MText text = Attached(1, "A");
    text.point = {10, 20, 0}; // in world coordinates
    text.extrusion = {0, 0, -1};
    EXPECT_EQ(Drawn(text), Lines{"text 'A' at 10,23 along 3,0 up 0,-3 start"});
}

TEST(DrawMText, HeightWidthAndObliqueAngleAreTheStyles)
{
    TextTrial trial;
    TextStyle& style = trial.StyleNamed("Narrow");
    style.height = 4;
    style.widthFactor = 0.5;
    style.oblique = 45;
    MText text = Simple("A");
    text.height = 0;
    text.style = style.name;
    EXPECT_EQ(trial.Draw(text), Lines{"text 'A' at 0,-4 along 2,0 up 4,4 start"});
}

// A letter of these words is 0.844 (A) or 0.847 (B) wide, a blank 0.392.
TEST(DrawMText, WordsThatDoNotFitGoToTheNextLine)
{
    EXPECT_EQ(WordsOf(Wrapped("AA BB AA", 3.78)), (Lines{"AA BB", "AA"}));
    EXPECT_EQ(WordsOf(Wrapped("AA BB AA", 3.77)), (Lines{"AA", "BB", "AA"}));
    EXPECT_EQ(WordsOf(Wrapped("AA  BB", 2)), (Lines{"AA", "BB"}));
    EXPECT_EQ(WordsOf(Wrapped("AAAAAA BB", 2)), (Lines{"AAAAAA", "BB"}));
}

TEST(DrawMText, LinesOfAWidthAreAlignedInIt)
{
    MText text = Wrapped("AA BB", 2);
    text.attachment = 2; // the point is in the middle of the width
    EXPECT_EQ(Drawn(text), (Lines{"text 'AA' at 0,-1 along 1,0 up 0,1 middle",
                                  "text 'BB' at 0,-2.66667 along 1,0 up 0,1 middle"}));
    text.attachment = 3;
    EXPECT_EQ(Drawn(text), (Lines{"text 'AA' at 0,-1 along 1,0 up 0,1 end",
                                  "text 'BB' at 0,-2.66667 along 1,0 up 0,1 end"}));
}

TEST(DrawMText, HardBlanksDoNotBreakLines)
{
    EXPECT_EQ(WordsOf(Wrapped("AA\\~BB AA", 2)), (Lines{"AA BB", "AA"}));
}

TEST(DrawMText, AWordOfSeveralLooksIsNotBroken)
{
    EXPECT_EQ(Drawn(Wrapped("A A{\\C1;B}", 2.4)), (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start",
                                                         "text 'A' at 0,-2.66667 along 1,0 up 0,1 start",
                                                         "text 'B' at 0.844,-2.66667 along 1,0 up 0,1 start "
                                                         "colour 1"}));
}

TEST(DrawMText, EastAsianTextBreaksBetweenAnyTwoCharacters)
{
    EXPECT_EQ(WordsOf(Wrapped("\u4E2D\u6587\u5B57", 3)), (Lines{"\u4E2D\u6587", "\u5B57"}));
}

TEST(DrawMText, HeightsAreAbsoluteOrFactors)
{
    EXPECT_EQ(Drawn("A{\\H2;A}A\\H0.5x;A"),
              (Lines{"text 'A' at 0,-2 along 1,0 up 0,1 start", "text 'A' at 0.844,-2 along 2,0 up 0,2 start",
                     "text 'A' at 2.532,-2 along 1,0 up 0,1 start",
                     "text 'A' at 3.376,-2 along 0.5,0 up 0,0.5 start"}));
}

TEST(DrawMText, HeightsBeyondAllReasonAreNotTaken)
{
    EXPECT_EQ(Drawn("\\H0;A"), Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start"});
    EXPECT_EQ(Drawn("\\H-1;A"), Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start"});
    EXPECT_EQ(Drawn("\\H2000;A"), Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start"});
    EXPECT_EQ(Drawn("\\W0;A"), Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start"});
}

TEST(DrawMText, WidthFactorAndObliqueAngleOfARun)
{
    EXPECT_EQ(Drawn("\\W2;A\\W0.5x;A"), (Lines{"text 'A' at 0,-1 along 2,0 up 0,1 start",
                                               "text 'A' at 1.688,-1 along 1,0 up 0,1 start"}));
    EXPECT_EQ(Drawn("\\Q45;A"), Lines{"text 'A' at 0,-1 along 1,0 up 1,1 start"});
}

TEST(DrawMText, ColoursAreIndexesOrTrueOnes)
{
    EXPECT_EQ(Drawn("\\C1;A"), Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start colour 1"});
    EXPECT_EQ(Drawn("\\c255;A"), Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start rgb ff0000"}); // blue first
    EXPECT_EQ(Drawn("\\C256;A"), Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start colour 256"});
}

TEST(DrawMText, BracesEndWhatBeganInThem)
{
    EXPECT_EQ(Drawn("{\\C1;{\\C2;A}B}A"), (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start colour 2",
                                                 "text 'B' at 0.844,-1 along 1,0 up 0,1 start colour 1",
                                                 "text 'A' at 1.691,-1 along 1,0 up 0,1 start"}));
    EXPECT_EQ(Drawn("}A{{B"), Lines{"text 'AB' at 0,-1 along 1,0 up 0,1 start"});
}

TEST(DrawMText, BracesTooDeepAreStillPaired)
{
    const std::string open(1000, '{'), close(1000, '}');
    EXPECT_EQ(Drawn(Simple(("\\C1;" + open + "\\C2;A" + close + "B").c_str())),
              (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start colour 2",
                     "text 'B' at 0.844,-1 along 1,0 up 0,1 start colour 1"}));
}

TEST(DrawMText, RunsThatLookTheSameAreOne)
{
    EXPECT_EQ(Drawn("A{\\fArial|b0|i0|c0|p34;B} \\Fromans.shx;A"),
              Lines{"text 'AB A' at 0,-1 along 1,0 up 0,1 start"});
}

TEST(DrawMText, LowerRunsAreOnTheBaseLineHalfWayOrAtTheTop)
{
    EXPECT_EQ(Drawn("A{\\H0.5;\\A0;A}"), (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start",
                                                "text 'A' at 0.844,-1 along 0.5,0 up 0,0.5 start"}));
    EXPECT_EQ(Drawn("A{\\H0.5;\\A1;A}"), (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start",
                                                "text 'A' at 0.844,-0.75 along 0.5,0 up 0,0.5 start"}));
    EXPECT_EQ(Drawn("A{\\H0.5;\\A2;A}"), (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start",
                                                "text 'A' at 0.844,-0.5 along 0.5,0 up 0,0.5 start"}));
}

TEST(DrawMText, UnderlineOverlineAndStrike)
{
    EXPECT_EQ(Drawn("\\LA\\lB"),
              (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start", "text 'B' at 0.844,-1 along 1,0 up 0,1 start",
                     "line 0,-1.2 0.844,-1.2"}));
    EXPECT_EQ(Drawn("\\OA\\o"), (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start", "line 0,0.2 0.844,0.2"}));
    EXPECT_EQ(Drawn("\\KA\\k"), (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start", "line 0,-0.5 0.844,-0.5"}));
}

TEST(DrawMText, UnderlinedBlanksAreALine)
{
    EXPECT_EQ(Drawn("\\L  "), Lines{"line 0,-1.2 0.784,-1.2"});
}

// The digits are 0.873 wide; a fraction has a tenth of the height to both sides.
TEST(DrawMText, FractionsHaveTheirLine)
{
    EXPECT_EQ(Drawn("\\S1/22;"),
              (Lines{"text '1' at 0.4925,-1 along 1,0 up 0,1 start",
                     "text '22' at 0.1,-2.4 along 1,0 up 0,1 start", "line 0,-1.2 1.77,-1.2"}));
}

TEST(DrawMText, TolerancesHaveNone)
{
    EXPECT_EQ(Drawn("\\S+1^ -2;"), (Lines{"text '+1' at 0.1,-1 along 1,0 up 0,1 start",
                                          "text '-2' at 0.1,-2.4 along 1,0 up 0,1 start"}));
    EXPECT_EQ(Drawn("\\S^2;"), Lines{"text '2' at 0.1,-2.4 along 1,0 up 0,1 start"}); // an index
    EXPECT_EQ(Drawn("\\S2^;"), Lines{"text '2' at 0.1,-1 along 1,0 up 0,1 start"});
}

TEST(DrawMText, DiagonalFractionsHaveASlash)
{
    EXPECT_EQ(Drawn("\\S1#2;"),
              (Lines{"text '1' at 0.1,-1 along 1,0 up 0,1 start",
                     "text '2' at 1.385,-1.8 along 1,0 up 0,1 start", "line 0.885,-1.8 1.385,0"}));
}

TEST(DrawMText, FractionsAreAsLargeAsTheirHeightSaysAndHalfWayInTheLine)
{
    EXPECT_EQ(Drawn("\\A1;A{\\H0.5x;\\S1/2;}A"),
              (Lines{"text 'A' at 0,-1.1 along 1,0 up 0,1 start",
                     "text '1' at 0.894,-0.5 along 0.5,0 up 0,0.5 start",
                     "text '2' at 0.894,-1.2 along 0.5,0 up 0,0.5 start", "line 0.844,-0.6 1.3365,-0.6",
                     "text 'A' at 1.3365,-1.1 along 1,0 up 0,1 start"}));
}

TEST(DrawMText, EscapesInFractionsAreLetters)
{
    EXPECT_EQ(WordsOf(Simple("\\S1\\/2/3\\;4%%d;")), (Lines{"1/2", "3;4\u00B0"}));
    EXPECT_EQ(WordsOf(Simple("\\SAB;A")), Lines{"ABA"});
}

TEST(DrawMText, EscapedSigns)
{
    EXPECT_EQ(WordsOf(Simple("a\\\\P \\{b\\}")), Lines{"a\\P {b}"});
}

TEST(DrawMText, CodesOfAllTexts)
{
    EXPECT_EQ(WordsOf(Simple("90%%d \\U+2205 5%% %%% x^ 2")), Lines{"90\u00B0 \u2205 5%% % x^2"});
    EXPECT_EQ(WordsOf(Simple("\\M+182A0")), Lines{"\u3042"});
    EXPECT_EQ(WordsOf(Simple("A^JB")), (Lines{"A", "B"}));
    EXPECT_EQ(Drawn("%%uA%%uB"),
              (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start", "text 'B' at 0.844,-1 along 1,0 up 0,1 start",
                     "line 0,-1.2 0.844,-1.2"}));
}

TEST(DrawMText, UnknownAndBrokenCodesAreLeftOut)
{
    EXPECT_EQ(WordsOf(Simple("A\\zB")), Lines{"AB"});
    EXPECT_EQ(WordsOf(Simple("A\\")), Lines{"A"});
    EXPECT_EQ(WordsOf(Simple("A\\fB")), Lines{"AB"}); // has no end
    EXPECT_EQ(WordsOf(Simple("A\\SB")), Lines{"AB"});
    EXPECT_EQ(WordsOf(Simple("A\\H;B")), Lines{"AB"});
    EXPECT_EQ(WordsOf(Simple("A\\C1B")), (Lines{"A", "B"}));
}

TEST(DrawMText, ALetterBeyondAsciiIsNoCode)
{
    EXPECT_EQ(WordsOf(Simple("A\\\u00E9B")), Lines{"A\u00E9B"});
    EXPECT_EQ(WordsOf(Simple("A\\\uFFFDX\\")), Lines{"A\uFFFDX"});
    EXPECT_EQ(WordsOf(Simple("\\\u3042")), Lines{"\u3042"});
}

TEST(DrawMText, IndentsAreOfTheFirstLineAndOfTheOthers)
{
    EXPECT_EQ(Drawn(Wrapped("\\pi-1,l3;AA BB", 5)),
              (Lines{"text 'AA' at 2,-1 along 1,0 up 0,1 start",
                     "text 'BB' at 3,-2.66667 along 1,0 up 0,1 start"}));
}

// Its letters and their blank are 3.774 wide here.
TEST(DrawMText, ATextOfOneLineMayBeATenthWiderThanItsColumn)
{
    EXPECT_EQ(WordsOf(Wrapped("AA BB", 3.44)), (Lines{"AA BB"}));
    EXPECT_EQ(WordsOf(Wrapped("AA BB ", 3.44)), (Lines{"AA BB"}));
    EXPECT_EQ(WordsOf(Wrapped("AA BB", 3.43)), (Lines{"AA", "BB"}));
    EXPECT_EQ(WordsOf(Wrapped("AA BB\\P", 3.44)), (Lines{"AA BB"}));
    EXPECT_EQ(WordsOf(Wrapped("AA BB\\PA", 3.44)), (Lines{"AA", "BB", "A"}));
    EXPECT_EQ(WordsOf(Wrapped("AA BB\\N", 3.44)), (Lines{"AA", "BB"}));
    EXPECT_EQ(WordsOf(Wrapped("A\\PAA BB", 3.44)), (Lines{"A", "AA", "BB"}));
}

TEST(DrawMText, ARightIndentNarrowsTheLines)
{
    EXPECT_EQ(WordsOf(Wrapped("\\pr1;AA BB", 4.4)), (Lines{"AA", "BB"}));
}

TEST(DrawMText, ParagraphsHaveTheirOwnAlignment)
{
    EXPECT_EQ(
        Drawn(Wrapped("\\pqc;A\\P\\pqr;A\\P\\pq*;A", 4)),
        (Lines{"text 'A' at 2,-1 along 1,0 up 0,1 middle", "text 'A' at 4,-2.66667 along 1,0 up 0,1 end",
               "text 'A' at 0,-4.33333 along 1,0 up 0,1 start"}));
}

TEST(DrawMText, ParagraphCodesAreKeptUntilTheyAreSetBack)
{
    EXPECT_EQ(Drawn("\\pxi2;A\\PA\\P\\pi*;A"), (Lines{"text 'A' at 2,-1 along 1,0 up 0,1 start",
                                                      "text 'A' at 2,-2.66667 along 1,0 up 0,1 start",
                                                      "text 'A' at 0,-4.33333 along 1,0 up 0,1 start"}));
}

TEST(DrawMText, TabsGoToTheirStops)
{
    EXPECT_EQ(Drawn("\\pt2,c5;A^IA\tA\tA"),
              (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start", "text 'A' at 2,-1 along 1,0 up 0,1 start",
                     "text 'A' at 5,-1 along 1,0 up 0,1 start", "text 'A' at 8,-1 along 1,0 up 0,1 start"}));
}

TEST(DrawMText, StopsThatGoBackAreNone)
{
    const Lines lines = Drawn("\\pt5,2,9;AAAA^IA^IA"); // the first tab comes after 2
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1], "text 'A' at 5,-1 along 1,0 up 0,1 start");
    EXPECT_EQ(lines[2], "text 'A' at 9,-1 along 1,0 up 0,1 start");
    EXPECT_EQ(Drawn("\\pt5,2;AAAA^IA")[1], lines[1]);
}

TEST(DrawMText, ListsHaveTheirTextAtTheTab)
{
    EXPECT_EQ(Drawn(Wrapped("\\pi-2,l2,t2;1.\tAA BB", 4.5)),
              (Lines{"text '1.' at 0,-1 along 1,0 up 0,1 start", "text 'AA' at 2,-1 along 1,0 up 0,1 start",
                     "text 'BB' at 2,-2.66667 along 1,0 up 0,1 start"}));
}

TEST(DrawMText, RunsOfACentredLineAreCentredTogether)
{
    MText text = Simple("A{\\C1;A}");
    text.attachment = 2;
    EXPECT_EQ(Drawn(text), (Lines{"text 'A' at -0.422,-1 along 1,0 up 0,1 middle",
                                  "text 'A' at 0.422,-1 along 1,0 up 0,1 middle colour 1"}));
}

MText InColumns(const char* letters, std::int32_t columns)
{
    MText text = Simple(letters);
    text.columnType = 1;
    text.columns = columns;
    text.columnWidth = 4;
    text.columnGutter = 1;
    text.definedHeight = 3;
    return text;
}

TEST(DrawMText, ColumnsAreFilledOneAfterTheOther)
{
    EXPECT_EQ(
        Drawn(InColumns("A\\PB\\PA\\PB\\PA", 2)),
        (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start", "text 'B' at 0,-2.66667 along 1,0 up 0,1 start",
               "text 'A' at 5,-1 along 1,0 up 0,1 start", "text 'B' at 5,-2.66667 along 1,0 up 0,1 start",
               "text 'A' at 5,-4.33333 along 1,0 up 0,1 start"})); // the last one takes the rest
}

TEST(DrawMText, ColumnsOfNoWidthAreNone)
{
    MText text = Simple("A\\PB");
    text.columnType = 1;
    text.columns = 2;
    text.definedHeight = 1;
    EXPECT_EQ(Drawn(text), Drawn("A\\PB"));
}

TEST(DrawMText, ColumnsHaveHeightsOfTheirOwn)
{
    MText text = InColumns("A\\PB\\PA", 3);
    text.columnType = 2;
    text.columnHeights = {1, 3};
    EXPECT_EQ(Drawn(text),
              (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start", "text 'B' at 5,-1 along 1,0 up 0,1 start",
                     "text 'A' at 5,-2.66667 along 1,0 up 0,1 start"}));
}

TEST(DrawMText, ColumnsEndWhereTheTextSaysSo)
{
    EXPECT_EQ(Drawn(InColumns("A\\NB", 2)),
              (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start", "text 'B' at 5,-1 along 1,0 up 0,1 start"}));
}

TEST(DrawMText, ColumnsFromTheRight)
{
    MText text = InColumns("A\\NB", 2);
    text.columnsFlowReversed = 1;
    EXPECT_EQ(Drawn(text),
              (Lines{"text 'A' at 5,-1 along 1,0 up 0,1 start", "text 'B' at 0,-1 along 1,0 up 0,1 start"}));
}

TEST(DrawMText, WhatIsLinkedMayHoldTheFurtherColumns)
{
    MText text = InColumns("A\\PB\\N", 2); // a third line would have no room
    text.linkedColumns = 1;
    const Lines one{"text 'A' at 0,-1 along 1,0 up 0,1 start",
                    "text 'B' at 0,-2.66667 along 1,0 up 0,1 start"};
    EXPECT_EQ(Drawn(text), one);
    text.definedHeight = 2.2; // less than two lines take, but by no more than another font's letters may
    EXPECT_EQ(Drawn(text), one);
    text.definedHeight = 1;
    EXPECT_EQ(Drawn(text),
              (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start", "text 'B' at 5,-1 along 1,0 up 0,1 start"}));
    text.definedHeight = 0; // no end
    EXPECT_EQ(Drawn(text), one);
    text.text = "A\\NB";
    EXPECT_EQ(Drawn(text),
              (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start", "text 'B' at 5,-1 along 1,0 up 0,1 start"}));
}

MText Filled(std::int32_t fill)
{
    MText text = Wrapped("A\\PB", 5);
    text.fill = fill;
    return text;
}

// What is drawn before the text.
Lines BehindOf(const MText& text)
{
    Lines lines = Drawn(text);
    while (!lines.empty() && lines.back().starts_with("text"))
        lines.pop_back();
    return lines;
}

TEST(DrawMText, AColourBehindIsAFill)
{
    MText text = Filled(1);
    text.hasFillColour = true;
    text.fillColour = 3;
    EXPECT_EQ(BehindOf(text), Lines{"fill -0.5,-3.16667 5.5,-3.16667 5.5,0.5 -0.5,0.5 colour 3"});
    text.fillTrueColour = 0x102030;
    text.fillScale = 1;
    text.attachment = 9;
    EXPECT_EQ(BehindOf(text), Lines{"fill -5,0 0,0 0,2.66667 -5,2.66667 rgb 102030"});
    text.fill = 0;
    EXPECT_EQ(BehindOf(text), Lines{});
}

TEST(DrawMText, TheBackgroundsColourBehindIsAMask)
{
    MText text = Filled(3);
    text.hasFillColour = true;
    EXPECT_EQ(BehindOf(text), Lines{"mask -0.5,-3.16667 5.5,-3.16667 5.5,0.5 -0.5,0.5"});
    EXPECT_EQ(BehindOf(Filled(2)), BehindOf(text));
    EXPECT_EQ(BehindOf(Filled(1)), BehindOf(text)); // a colour that the file does not give
}

TEST(DrawMText, AFrameIsAroundWhatIsBehind)
{
    EXPECT_EQ(BehindOf(Filled(16)), Lines{"closed polyline -0.5,-3.16667 5.5,-3.16667 5.5,0.5 -0.5,0.5"});
    MText text = Filled(18);
    text.rotation = 90;
    EXPECT_EQ(BehindOf(text), (Lines{"mask 3.16667,-0.5 3.16667,5.5 -0.5,5.5 -0.5,-0.5",
                                     "closed polyline 3.16667,-0.5 3.16667,5.5 -0.5,5.5 -0.5,-0.5"}));
}

TEST(DrawMText, NothingIsBehindATextWithoutLetters)
{
    MText text = Filled(1);
    text.text = "";
    EXPECT_EQ(Drawn(text), Lines{});
    text.text = "A";
    text.fillScale = 1e300; // as without a margin
    EXPECT_EQ(BehindOf(text), Lines{"mask 0,-1 5,-1 5,0 0,0"});
    text.point.x = std::numeric_limits<double>::infinity();
    EXPECT_EQ(BehindOf(text), Lines{});
}

TEST(DrawMText, AFrameMayHaveAGapOfItsOwn)
{
    MText text = Filled(18);
    text.frameGap = 2;
    EXPECT_EQ(BehindOf(text), (Lines{"mask -0.5,-3.16667 5.5,-3.16667 5.5,0.5 -0.5,0.5",
                                     "closed polyline -2,-4.66667 7,-4.66667 7,2 -2,2"}));
    text.frameGap = std::numeric_limits<double>::infinity();
    EXPECT_EQ(BehindOf(text), Lines{});
}

TEST(DrawMText, TheEndOfTheLastParagraphIsNoLine)
{
    MText text = Filled(16);
    text.fillScale = 1;
    text.text = "A\\PB\\P";
    EXPECT_EQ(BehindOf(text), Lines{"closed polyline 0,-2.66667 5,-2.66667 5,0 0,0"});
    text.text = "A\\P\\P"; // an empty line, and no other
    EXPECT_EQ(BehindOf(text), Lines{"closed polyline 0,-2.66667 5,-2.66667 5,0 0,0"});
    text = Simple("A\\P");
    text.attachment = 7;
    EXPECT_EQ(Drawn(text), Lines{"text 'A' at 0,0 along 1,0 up 0,1 start"});
}

TEST(DrawMText, BlanksWiderThanTheColumnAreALine)
{
    EXPECT_EQ(Drawn(Wrapped("          A", 2)), Lines{"text 'A' at 0,-2.66667 along 1,0 up 0,1 start"});
    // Those that fit are where the line begins.
    EXPECT_EQ(Drawn(Wrapped("    A", 2)), Lines{"text 'A' at 1.568,-1 along 1,0 up 0,1 start"});
}

TEST(DrawMText, CodesOfNoCharacterAreReported)
{
    TextTrial trial;
    EXPECT_EQ(trial.Draw(Simple("\\U+D800A\\U+DC00"))[0].substr(0, 14), "text '\xEF\xBF\xBD"
                                                                        "A\xEF\xBF\xBD'");
    trial.Draw(Simple("\\U+D83D\\U+DE00 \\S\\U+D800/2;"));
    EXPECT_EQ(trial.Findings(),
              Lines{"Repaired MTEXT: a code that is no character is U+FFFD (2 from line 7)"});
}

TEST(DrawMText, WhatIsLeftOutIsReported)
{
    TextTrial trial;
    MText text = Simple("\\T2;A");
    text.flow = 3;
    trial.Draw(text);
    EXPECT_EQ(trial.Findings(),
              (Lines{"Changed MTEXT: vertical writing is drawn along a line (1 from line 7)",
                     "Changed MTEXT: without distances between letters (1 from line 7)"}));
}

TEST(DrawMText, VerticalLinesOfATrueTypeFontAreSideBySideOnThePoint)
{
    TextTrial trial;
    TextStyle& style = trial.StyleNamed("S");
    style.font = "Arial.TTF";
    MText text = Wrapped("AB\\P0\\PC", 0.1);
    text.style = style.name;
    text.flow = MText::kFlowsDown;
    text.attachment = 3;
    // Two thirds of the height are between them: widths of 1.691, 0.785 and 0.862.
    EXPECT_EQ(trial.Draw(text),
              (Lines{"text 'AB' at -2.98033,0 along 1,0 up 0,1 end",
                     "text '0' at -1.52867,0 along 1,0 up 0,1 end", "text 'C' at 0,0 along 1,0 up 0,1 end"}));
    EXPECT_EQ(trial.Findings(), Lines{});
    // As those of horizontal lines at the top, their frame hangs from the point.
    text.fill = MText::kFrame;
    text.frameGap = 1;
    EXPECT_EQ(trial.Draw(text)[0], "closed polyline -5.67133,-2 1,-2 1,1 -5.67133,1");
    text.fill = 0;
    style.font = "txt.shx";
    text.attachment = 1;
    EXPECT_EQ(trial.Draw(text)[1], "text '0' at 0,-2.66667 along 1,0 up 0,1 start");
    EXPECT_EQ(trial.Findings(),
              (Lines{"Changed MTEXT: vertical writing is drawn along a line (1 from line 7)"}));
}

TEST(DrawMText, BlanksAloneAreLeftOutSilently)
{
    TextTrial trial;
    EXPECT_EQ(trial.Draw(Simple("")), Lines{});
    EXPECT_EQ(trial.Draw(Simple(" {\\C1; } \\P\\~")), Lines{});
    EXPECT_EQ(trial.Findings(), Lines{});
}

TEST(DrawMText, NumbersThatAreNotFiniteAreReportedOnce)
{
    for (const double bad : {std::numeric_limits<double>::quiet_NaN(), HUGE_VAL}) {
        TextTrial trial;
        MText text = Simple("A\\PB{\\C1;C}\\S1/2;");
        text.point.x = bad;
        EXPECT_EQ(trial.Draw(text), Lines{});
        EXPECT_EQ(trial.Findings(), Lines{"NotShown MTEXT: numbers that are not finite (1 from line 7)"});
    }
}

TEST(DrawMText, ATextWithoutEndIsCut)
{
    TextTrial trial;
    const std::string endless(300000, 'A');
    MText text = Simple("");
    text.text = endless;
    ASSERT_EQ(trial.Draw(text).size(), 1u);
    EXPECT_EQ(trial.Findings(), Lines{"Cut MTEXT: a text of more than 256 KB (1 from line 7)"});
}

// Takes only lines of writing, with the blanks between runs, and how much wider they are: "1000: 'A__' 'B'",
// "4000 wider by 250: 'A_' 'B'".
class LinesOfText final : public RecordingSink {
public:
    Lines whole;

    void LineOfText(Point2 point, double spread, std::span<const PlainRun> runs) override
    {
        const auto thousandths = [](double number) { return std::to_string(std::lround(number * 1000)); };
        std::string line = thousandths(point.x);
        if (spread != 0)
            line += " wider by " + thousandths(spread);
        line += ':';
        for (const PlainRun& run : runs)
            line += " '" + run.text.text + std::string(run.blanks, '_') + "'";
        whole.push_back(line);
        PlainSink::LineOfText(point, spread, runs);
    }
};

LinesOfText LinesIn(const MText& text)
{
    TextTrial trial;
    LinesOfText sink;
    Budget budget(0.01);
    const DrawingScale scale(0.01, {}, 0);
    const Placement placement{trial.drawing, {}, {}, scale, sink, trial.report, budget};
    DrawAnyText(text, placement, [](const StyleOfPart& part) {
        Style style;
        style.colour.index = part.colour;
        return style;
    });
    return sink;
}

TEST(DrawMText, RunsOfALineAreGivenTogetherWithTheBlanksBetweenThem)
{
    EXPECT_EQ(LinesIn(Simple("A {\\C1;B}C{\\C1; }{\\C2; A}")).whole, Lines{"0: 'A_' 'B' 'C__' 'A'"});
    EXPECT_EQ(LinesIn(Simple("A\\C1;B\\PA\\H2;B")).whole, (Lines{"0: 'A' 'B'", "0: 'A' 'B'"}));
    EXPECT_EQ(LinesIn(Simple("A")).whole, Lines{});
}

// Each word is at its own place, the lines are whole.
TEST(DrawMText, JustifiedLinesTakeTheirWidth)
{
    const LinesOfText justified = LinesIn(Wrapped("\\pqj;A B A B", 4));
    EXPECT_EQ(justified.whole, Lines{"4000 wider by 341: 'A_' 'B_' 'A'"});
    EXPECT_EQ(justified.lines, (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start",
                                      "text 'B' at 1.5765,-1 along 1,0 up 0,1 start",
                                      "text 'A' at 3.156,-1 along 1,0 up 0,1 start",
                                      "text 'B' at 0,-2.66667 along 1,0 up 0,1 start"}));
    EXPECT_EQ(LinesIn(Wrapped("\\pqj,i1;A {\\C1;B }A B", 4.5)).whole,
              Lines{"4500 wider by 91: 'A_' 'B_' 'A'"});
    EXPECT_EQ(LinesIn(Wrapped("\\pqd;A B", 4)).whole, Lines{"4000 wider by 1917: 'A_' 'B'"});
    EXPECT_EQ(LinesIn(Wrapped("\\W2;\\H2;\\pqd;A B", 16)).whole, Lines{"16000 wider by 1917: 'A_' 'B'"});
    EXPECT_EQ(LinesIn(Wrapped("\\pqd;A B\\S1/2; A", 10)).whole, Lines{"4931 wider by 2848: 'A_' 'B'"});
    EXPECT_EQ(LinesIn(Simple("\\pqd;A B")).whole, Lines{});         // no width to take
    EXPECT_EQ(LinesIn(Wrapped("\\pqd;A^IB A", 40)).whole, Lines{}); // tabs have their places
    EXPECT_EQ(LinesIn(Wrapped("\\pqd;{\\LA B} A", 40)).whole, Lines{"40000 wider by 36681: 'A B_' 'A'"});
}

TEST(DrawMText, TheAnchorOfRunsIsThatOfTheirLine)
{
    MText text = Wrapped("A{\\C1;B}", 10);
    text.attachment = 2;
    const LinesOfText centred = LinesIn(text);
    EXPECT_EQ(centred.whole, Lines{"0: 'A' 'B'"});
    EXPECT_EQ(centred.lines, (Lines{"text 'A' at -0.4235,-1 along 1,0 up 0,1 middle",
                                    "text 'B' at 0.422,-1 along 1,0 up 0,1 middle colour 1"}));
    text.attachment = 3;
    EXPECT_EQ(LinesIn(text).lines, (Lines{"text 'A' at -0.847,-1 along 1,0 up 0,1 end",
                                          "text 'B' at 0,-1 along 1,0 up 0,1 end colour 1"}));
}

TEST(DrawMText, RaisedRunsAreOfTheirLine)
{
    const LinesOfText raised = LinesIn(Simple("A{\\H0.5;\\A1;B}"));
    EXPECT_EQ(raised.whole, Lines{"0: 'A' 'B'"});
    EXPECT_EQ(raised.lines, (Lines{"text 'A' at 0,-1 along 1,0 up 0,1 start",
                                   "text 'B' at 0.844,-0.75 along 0.5,0 up 0,0.5 start"}));
}

TEST(DrawMText, TabsFractionsAndProportionsEndRuns)
{
    EXPECT_EQ(LinesIn(Simple("A\\C1;B^IA\\C2;B")).whole, (Lines{"0: 'A' 'B'", "4000: 'A' 'B'"}));
    EXPECT_EQ(LinesIn(Simple("A\\C1;B\\S1/2;A\\C2;B")).whole.size(), 2U);
    EXPECT_EQ(LinesIn(Simple("A\\W2;B")).whole, Lines{});
    EXPECT_EQ(LinesIn(Simple("A\\Q15;B")).whole, Lines{});
}

} // namespace
} // namespace prepare
