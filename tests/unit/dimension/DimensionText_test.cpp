// The layout of a dimension's text: pieces, codes, stacks and nested texts.
#include "dimension/CDxfDimensionDrawing.h"
#include "support/Import.h"
#include "support/TraceLines.h"

#include <gtest/gtest.h>

namespace {

struct Place {
    float x = 10.0f;
    float y = 20.0f;
    float angle = 0.0f;
};

std::string Laid(std::wstring_view text, const Place& at = {}, double scale = 1.0, std::int32_t yAxisMode = 2)
{
    RecordingHost::OfThread().Reset();
    ReportingReader reader;
    CDxfDimensionDrawing(reader, RecordingHost::Context(), scale, yAxisMode)
        .LayoutDimensionText(std::wstring(text), at.x, at.y, at.angle);
    EXPECT_TRUE(reader.errors.empty());
    return RecordingHost::OfThread().Trace();
}

// What one visible piece becomes.
struct Piece {
    std::string_view text;
    std::string_view position = "10, 20";
    std::string_view size = "2.00";
};

std::string Pieces(std::initializer_list<Piece> pieces, std::string_view rotation = "0")
{
    std::string trace;
    int count = 0;
    for (const Piece& piece : pieces) {
        const std::string node = std::string("n").append(std::to_string(++count));
        trace.append("qlmCreateText(ctx, \"\", 0, 0, 0, 0, \"").append(piece.text).append("\", ");
        trace.append(piece.position).append(") = ").append(node).append("\n");
        trace += Attribute(node, "font-size", piece.size) + Attribute(node, "text-anchor", "middle") +
                 Attribute(node, "stroke", "#00ff00") + Attribute(node, "rotate", rotation);
    }
    return trace;
}

constexpr Place kUpward = {10.0f, 20.0f, 90.0f};

} // namespace

TEST(DimensionText, PlainTextIsOneGreenCentredElementAtTheSecondPosition)
{
    EXPECT_EQ(Laid(L"100"), "qlmCreateText(ctx, \"\", 0, 0, 0, 0, \"100\", 10, 20) = n1\n"
                            "qlmSetAttributeByNode(ctx, n1, \"font-size\", \"2.00\")\n"
                            "qlmSetAttributeByNode(ctx, n1, \"text-anchor\", \"middle\")\n"
                            "qlmSetAttributeByNode(ctx, n1, \"stroke\", \"#00ff00\")\n"
                            "qlmSetAttributeByNode(ctx, n1, \"rotate\", \"0\")\n");
}

TEST(DimensionText, RotationIsWrittenWithSixDigits)
{
    const std::pair<float, const char*> rotations[] = {
        {90.0f, "90"}, {-45.0f, "-45"},  {126.8698976f, "126.87"},
        {0.1f, "0.1"}, {1e-8f, "1e-08"}, {1234567.0f, "1.23457e+06"},
        {-0.0f, "-0"}};
    for (const auto& [angle, text] : rotations)
        EXPECT_EQ(Laid(L"1", {10.0f, 20.0f, angle}), Pieces({{"1"}}, text)) << angle;
}

TEST(DimensionText, YModeDoesNotCount)
{
    for (const std::int32_t mode : {0, 1, 2})
        EXPECT_EQ(Laid(L"A{B}", kUpward, 1.0, mode), Laid(L"A{B}", kUpward)) << mode;
}

TEST(DimensionText, EmptyTextDrawsNothing)
{
    EXPECT_EQ(Laid(L""), "");
    EXPECT_EQ(Laid(L";"), "");
    EXPECT_EQ(Laid(L";;;"), "");
}

TEST(DimensionText, PiecesBetweenSemicolonsAreAtTheSamePlace)
{
    EXPECT_EQ(Laid(L"12;34;56"), Pieces({{"12"}, {"34"}, {"56"}}));
}

TEST(DimensionText, EmptyPiecesAreSkipped)
{
    EXPECT_EQ(Laid(L";;12;;;34;"), Pieces({{"12"}, {"34"}}));
}

TEST(DimensionText, BlanksAreNotTrimmed)
{
    EXPECT_EQ(Laid(L" 12 ; "), Pieces({{" 12 "}, {" "}}));
}

TEST(DimensionText, HeightCodeChangesTheSizeOfLaterPiecesAndDrawsNothing)
{
    EXPECT_EQ(Laid(L"\\H5x;12"), Pieces({{"12", "10, 20", "5.00"}}));
    EXPECT_EQ(Laid(L"12;\\H7;34;56;\\H1;78"),
              Pieces({{"12"}, {"34", "10, 20", "7.00"}, {"56", "10, 20", "7.00"}, {"78", "10, 20", "1.00"}}));
    EXPECT_EQ(Laid(L"\\H5"), "");
}

TEST(DimensionText, HeightIsTheThirdCharacterAlone)
{
    const std::pair<const wchar_t*, const char*> heights[] = {
        {L"\\H3.5x;1", "3.00"}, {L"\\H12;1", "1.00"}, {L"\\H0.5;1", "0.00"}, {L"\\H9;1", "9.00"}};
    for (const auto& [text, size] : heights)
        EXPECT_EQ(Laid(text), Pieces({{"1", "10, 20", size}})) << size;
}

TEST(DimensionText, HeightThatIsNoNumberIsZero)
{
    for (const wchar_t* text : {L"\\Hx;1", L"\\H;1", L"\\H.5;1", L"\\H-5;1", L"\\H 5;1", L"\\H\u0665;1"})
        EXPECT_EQ(Laid(text), Pieces({{"1", "10, 20", "0.00"}})) << ToTraceText(text);
}

TEST(DimensionText, EachCallStartsWithTheHeightTwo)
{
    EXPECT_EQ(Laid(L"\\H5;1"), Pieces({{"1", "10, 20", "5.00"}}));
    EXPECT_EQ(Laid(L"1"), Pieces({{"1"}}));
}

TEST(DimensionText, AlignmentAndColourCodesAreSteppedOver)
{
    EXPECT_EQ(Laid(L"\\A1;12"), Pieces({{"12"}}));
    EXPECT_EQ(Laid(L"\\C3;12;\\C;34;\\A"), Pieces({{"12"}, {"34"}}));
}

TEST(DimensionText, CodesThatAreNotKnownDrawNothing)
{
    for (const wchar_t* code : {L"\\fArial|b0|i0", L"\\P", L"\\L12", L"\\h5", L"\\s1/2", L"\\a1", L"\\W2",
                                L"\\{12}", L"\\\\12", L"\\", L"\\A{1}", L"\\~12{3}"})
        EXPECT_EQ(Laid(std::wstring(code) + L";100"), Pieces({{"100"}})) << ToTraceText(code);
}

TEST(DimensionText, LoneBackslashDrawsNothing)
{
    EXPECT_EQ(Laid(L"\\"), "");
    EXPECT_EQ(Laid(L"\\;\\"), "");
}

// The drop is 2 x 2 / 3.
TEST(DimensionText, StackDrawsBothPartsHalfAsHigh)
{
    EXPECT_EQ(Laid(L"\\S1/2"), Pieces({{"1", "10, 20", "1.00"}, {"2", "10, 18.666666", "1.00"}}));
    EXPECT_EQ(Laid(L"\\S+0.1^-0.2"), Pieces({{"+0.1", "10, 20", "1.00"}, {"-0.2", "10, 18.666666", "1.00"}}));
    EXPECT_EQ(Laid(L"\\H6;\\S1/2"), Pieces({{"1", "10, 20", "3.00"}, {"2", "10, 16", "3.00"}}));
}

TEST(DimensionText, StackAcrossTheBaselineTurnsWithTheText)
{
    EXPECT_EQ(Laid(L"\\S1/2", kUpward),
              Pieces({{"1", "10, 20", "1.00"}, {"2", "11.333333, 20", "1.00"}}, "90"));
    EXPECT_EQ(Laid(L"\\H6;\\S1/2", {10.0f, 20.0f, 180.0f}),
              Pieces({{"1", "10, 20", "3.00"}, {"2", "10, 24", "3.00"}}, "180"));
    EXPECT_EQ(Laid(L"\\H6;\\S1/2", {10.0f, 20.0f, -90.0f}),
              Pieces({{"1", "10, 20", "3.00"}, {"2", "6, 20", "3.00"}}, "-90"));
}

TEST(DimensionText, StackWithoutASeparatorAfterSomethingDrawsNothing)
{
    for (const wchar_t* text :
         {L"\\S/2", L"\\S^2", L"\\S", L"\\S12", L"\\S/", L"\\S^", L"\\S/1/2", L"\\S#", L"\\S1#2"})
        EXPECT_EQ(Laid(text), "") << ToTraceText(text);
}

TEST(DimensionText, StackWithNothingAfterItsSeparatorDrawsTheNumerator)
{
    EXPECT_EQ(Laid(L"\\S1/"), Pieces({{"1", "10, 20", "1.00"}}));
    EXPECT_EQ(Laid(L"\\S1^"), Pieces({{"1", "10, 20", "1.00"}}));
}

TEST(DimensionText, FirstCaretSeparatesElseTheFirstSlash)
{
    EXPECT_EQ(Laid(L"\\S1/2^3"), Pieces({{"1/2", "10, 20", "1.00"}, {"3", "10, 18.666666", "1.00"}}));
    EXPECT_EQ(Laid(L"\\S1^2/3"), Pieces({{"1", "10, 20", "1.00"}, {"2/3", "10, 18.666666", "1.00"}}));
    EXPECT_EQ(Laid(L"\\S1^2^3"), Pieces({{"1", "10, 20", "1.00"}, {"2^3", "10, 18.666666", "1.00"}}));
    EXPECT_EQ(Laid(L"\\S1/2/3"), Pieces({{"1", "10, 20", "1.00"}, {"2/3", "10, 18.666666", "1.00"}}));
    // A caret at the front counts as none, whatever carets follow.
    EXPECT_EQ(Laid(L"\\S^1/2"), Pieces({{"^1", "10, 20", "1.00"}, {"2", "10, 18.666666", "1.00"}}));
    EXPECT_EQ(Laid(L"\\S^1^2"), "");
    EXPECT_EQ(Laid(L"\\S/1^2"), Pieces({{"/1", "10, 20", "1.00"}, {"2", "10, 18.666666", "1.00"}}));
}

// The width is 2 x 2 x 4 / 10.
TEST(DimensionText, StackAfterPlainTextIsPlacedAfterItsWidth)
{
    EXPECT_EQ(Laid(L"12\\S1^4"),
              Pieces({{"12"}, {"1", "11.6, 20", "1.00"}, {"4", "11.6, 18.666666", "1.00"}}));
    EXPECT_EQ(Laid(L"\\H5;1\\S3/4"),
              Pieces({{"1", "10, 20", "5.00"}, {"3", "12, 20", "2.50"}, {"4", "12, 16.666666", "2.50"}}));
}

TEST(DimensionText, StackAfterPlainTextMovesUpTheYAxisWithTheText)
{
    EXPECT_EQ(Laid(L"12\\S1^4", kUpward),
              Pieces({{"12"}, {"1", "10, 21.6", "1.00"}, {"4", "11.333333, 21.6", "1.00"}}, "90"));
    EXPECT_EQ(Laid(L"12\\S1^4", {10.0f, 20.0f, -90.0f}),
              Pieces({{"12"}, {"1", "10, 18.4", "1.00"}, {"4", "8.666667, 18.4", "1.00"}}, "-90"));
}

TEST(DimensionText, AnyCodeAfterPlainTextIsTakenForAStack)
{
    EXPECT_EQ(Laid(L"12\\P3/4"),
              Pieces({{"12"}, {"3", "11.6, 20", "1.00"}, {"4", "11.6, 18.666666", "1.00"}}));
    EXPECT_EQ(Laid(L"12\\H3/4"),
              Pieces({{"12"}, {"3", "11.6, 20", "1.00"}, {"4", "11.6, 18.666666", "1.00"}}));
    EXPECT_EQ(Laid(L"12\\\\3/4"),
              Pieces({{"12"}, {"3", "11.6, 20", "1.00"}, {"4", "11.6, 18.666666", "1.00"}}));
    EXPECT_EQ(Laid(L"12\\H9;34"), Pieces({{"12"}, {"34"}})); // and changes no height
}

TEST(DimensionText, CodeAfterPlainTextWithoutAStackLeavesTheTextAlone)
{
    for (const wchar_t* text : {L"12\\", L"12\\S", L"12\\S3", L"12\\S/3", L"12\\P34"})
        EXPECT_EQ(Laid(text), Pieces({{"12"}})) << ToTraceText(text);
    EXPECT_EQ(Laid(L"12\\S3/"), Pieces({{"12"}, {"3", "11.6, 20", "1.00"}}));
}

TEST(DimensionText, FirstBackslashCutsThePlainText)
{
    EXPECT_EQ(Laid(L"1\\S2/3\\S4"),
              Pieces({{"1"}, {"2", "10.8, 20", "1.00"}, {"3\\x5CS4", "10.8, 18.666666", "1.00"}}));
}

TEST(DimensionText, BracesAfterTextAreANestedTextWithTheClosingBrace)
{
    EXPECT_EQ(Laid(L"A{B}"), Pieces({{"A"}, {"B}", "10.8, 20"}}));
    EXPECT_EQ(Laid(L"A{B}C"), Pieces({{"A"}, {"B}", "10.8, 20"}})); // what follows is lost
    EXPECT_EQ(Laid(L"A{}"), Pieces({{"A"}, {"}", "10.8, 20"}}));
}

TEST(DimensionText, NestedTextMovesDownTheYAxisWithTheText)
{
    EXPECT_EQ(Laid(L"A{B}", kUpward), Pieces({{"A"}, {"B}", "10, 19.2"}}, "90"));
    EXPECT_EQ(Laid(L"A{B}", {10.0f, 20.0f, -90.0f}), Pieces({{"A"}, {"B}", "10, 20.8"}}, "-90"));
    EXPECT_EQ(Laid(L"A{B}", {10.0f, 20.0f, 180.0f}), Pieces({{"A"}, {"B}", "9.2, 20"}}, "180"));
}

TEST(DimensionText, BraceWithoutAPartnerAfterItGivesAnEmptyNestedText)
{
    EXPECT_EQ(Laid(L"A{B"), Pieces({{"A"}}));
    EXPECT_EQ(Laid(L"A{"), Pieces({{"A"}}));
    EXPECT_EQ(Laid(L"A}B{C}"), Pieces({{"A}B"}})); // the first closing brace is the one that counts
    EXPECT_EQ(Laid(L"A{B;C}"), Pieces({{"A"}, {"C}"}}));
}

TEST(DimensionText, BraceAtTheFrontIsPlainText)
{
    EXPECT_EQ(Laid(L"{12}"), Pieces({{"{12}"}}));
    EXPECT_EQ(Laid(L"{A{B}"), Pieces({{"{A{B}"}})); // the first brace alone counts
    EXPECT_EQ(Laid(L"}12"), Pieces({{"}12"}}));
    EXPECT_EQ(Laid(L"{\\H5x;12}"), Pieces({{"{"}, {"12}"}}));
    EXPECT_EQ(Laid(L"{\\S1/2}"),
              Pieces({{"{"}, {"1", "10.8, 20", "1.00"}, {"2}", "10.8, 18.666666", "1.00"}}));
}

// The outer height holds for the head and its width, and again for later pieces; the nested text has its own.
TEST(DimensionText, NestedTextStartsWithTheHeightTwoAndLeavesTheOuterOneAlone)
{
    EXPECT_EQ(Laid(L"\\H5;A{B};C"),
              Pieces({{"A", "10, 20", "5.00"}, {"B}", "12, 20", "2.00"}, {"C", "10, 20", "5.00"}}));
    EXPECT_EQ(Laid(L"A{\\H7};B"), Pieces({{"A"}, {"B"}}));
}

TEST(DimensionText, NestedTextMayBeginWithACode)
{
    EXPECT_EQ(Laid(L"A{\\S1/2}"),
              Pieces({{"A"}, {"1", "10.8, 20", "1.00"}, {"2}", "10.8, 18.666666", "1.00"}}));
    EXPECT_EQ(Laid(L"A{\\A1}"), Pieces({{"A"}}));
}

TEST(DimensionText, NestedTextMayHoldAStackAndAnotherText)
{
    EXPECT_EQ(
        Laid(L"A{B\\S1/2}"),
        Pieces({{"A"}, {"B", "10.8, 20"}, {"1", "11.6, 20", "1.00"}, {"2}", "11.6, 18.666666", "1.00"}}));
    // The first closing brace ends both; 10.8 and 1.6 are rounded before they are added, and so is their sum.
    EXPECT_EQ(Laid(L"A{BB{C}D}"), Pieces({{"A"}, {"BB", "10.8, 20"}, {"C}", "12.400001, 20"}}));
    EXPECT_EQ(Laid(L"\\H5;A{B{C}"), Pieces({{"A", "10, 20", "5.00"}, {"B", "12, 20"}, {"C}", "12.8, 20"}}));
}

TEST(DimensionText, BackslashBeforeABraceIsPartOfTheHead)
{
    EXPECT_EQ(Laid(L"A\\S1/2{B}"), Pieces({{"A\\x5CS1/2"}, {"B}", "14.8, 20"}})); // six characters wide
}

TEST(DimensionText, ScaleCountsForSizesWidthsAndDrops)
{
    EXPECT_EQ(Laid(L"12\\S1^4", {}, 2.5),
              Pieces({{"12", "10, 20", "5.00"}, {"1", "14, 20", "2.50"}, {"4", "14, 16.666666", "2.50"}}));
    EXPECT_EQ(Laid(L"A{B}", {}, 2.5), Pieces({{"A", "10, 20", "5.00"}, {"B}", "12, 20", "5.00"}}));
    EXPECT_EQ(Laid(L"\\S1/2", {}, 3.0), Pieces({{"1", "10, 20", "3.00"}, {"2", "10, 16", "3.00"}}));
    EXPECT_EQ(Laid(L"1", {}, 0.001), Pieces({{"1", "10, 20", "0.00"}}));
    EXPECT_EQ(Laid(L"1", {}, 1234.0), Pieces({{"1", "10, 20", "2468.00"}}));
}

// A character beyond the first 65536 is two units wide on every platform.
TEST(DimensionText, WidthCountsUtf16Units)
{
    EXPECT_EQ(Laid(L"\u02DA\u4E2D{B}"), Pieces({{"\u02DA\u4E2D"}, {"B}", "11.6, 20"}}));
    EXPECT_EQ(Laid(L"\U0001F600{B}"), Pieces({{"\U0001F600"}, {"B}", "11.6, 20"}}));
    EXPECT_EQ(Laid(L"1\U0001F600\\S3/"), Pieces({{"1\U0001F600"}, {"3", "12.4, 20", "1.00"}}));
}

// 0.8 as a float is a little more than 0.8: from -0.8f that width leads to 0 and no other does.
TEST(DimensionText, WidthAndDropAreNarrowedToFloats)
{
    EXPECT_EQ(Laid(L"A{B}", {-0.8f, 0.0f, 0.0f}), Pieces({{"A", "-0.8, 0"}, {"B}", "0, 0"}}));
    EXPECT_EQ(Laid(L"A\\S1/", {-0.8f, 0.0f, 0.0f}), Pieces({{"A", "-0.8, 0"}, {"1", "0, 0", "1.00"}}));
    EXPECT_EQ(Laid(L"\\S1/2", {0.0f, 4.0f / 3.0f, 0.0f}),
              Pieces({{"1", "0, 1.3333334", "1.00"}, {"2", "0, 0", "1.00"}}));
}

// 0.8 x cos 45 and 4/3 x sin 45 are 1.5 together: added at once to 16777216 they give the next float, which
// is 2 away, and one after the other they would not.
TEST(DimensionText, SumsAreMadeInDoubleAndNarrowedOnce)
{
    EXPECT_EQ(Laid(L"A\\S1/2", {16777216.0f, 0.0f, 45.0f}), Pieces({{"A", "16777216, 0"},
                                                                    {"1", "16777216, 0.56568545", "1.00"},
                                                                    {"2", "16777218, -0.37712362", "1.00"}},
                                                                   "45"));
}

// A nested text is a call of its own, whose position is narrowed: twice 0.8 from 16777216 stays there.
TEST(DimensionText, NestedPositionsAreNarrowedEachTime)
{
    EXPECT_EQ(Laid(L"A{B{C}", {16777216.0f, 0.0f, 0.0f}),
              Pieces({{"A", "16777216, 0"}, {"B", "16777216, 0"}, {"C}", "16777216, 0"}}));
    EXPECT_EQ(Laid(L"AA{B}", {16777216.0f, 0.0f, 0.0f}),
              Pieces({{"AA", "16777216, 0"}, {"B}", "16777218, 0"}}));
}

// At 30 degrees 0.8 x cos 30 is 0.69282033..., and what is left of it at -0.69282032f shows whether the
// cosine was a double or narrowed.
TEST(DimensionText, CosineIsNotNarrowed)
{
    EXPECT_EQ(Laid(L"A\\S1/", {-0.6928203f, 0.0f, 30.0f}),
              Pieces({{"A", "-0.6928203, 0"}, {"1", "2.2758726e-08, 0.4", "1.00"}}, "30"));
}
