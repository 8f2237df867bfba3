// The text that a dimension shows: its value with its unit, or its own text with the value in it.
#include "support/DimensionTrace.h"
#include "support/Dimensions.h"

#include <gtest/gtest.h>

namespace {

// The trace of a radial dimension of length 2.5 with some groups more in its dimension part.
std::string Shown(std::initializer_list<Group> groups)
{
    return TraceOf(
        DimensionDrawing(Part("AcDbDimension", groups) + Part("AcDbRadialDimension", {{15, 2.5}})));
}

// What it is to be when it shows one text.
std::string OneText(std::string_view text)
{
    return DimensionTrace().Begin().EndArrowLine("0, -0, 2.5, -0").Text(text, "0, 2", "180").End();
}

std::string NoText()
{
    return DimensionTrace().Begin().EndArrowLine("0, -0, 2.5, -0").End();
}

struct Kind {
    const char* name;
    std::string part;
    const char* value;
};

// All of them with D = (0, 0), drawn with Y up.
const Kind kKinds[] = {
    {"aligned", Part("AcDbAlignedDimension", {{23, 2.5}}), "2.5"},
    {"rotated", Part("AcDbAlignedDimension", {{13, 2.5}}) + Part("AcDbRotatedDimension"), "2.5"},
    {"radial", Part("AcDbRadialDimension", {{15, 2.5}}), "2.5"},
    {"diametric", Part("AcDbDiametricDimension", {{15, 5}}), "2.5"},
    // The lines y = 0 and x = -2 meet at (-2, 0).
    {"angular",
     Part("AcDb2LineAngularDimension", {{13, -2}, {23, -1}, {14, -2}, {24, 9}, {15, -1}, {16, -1}, {26, 1}}),
     "90.00"},
};

// The texts of all text elements, joined with blanks.
std::string TextsOf(std::string_view trace)
{
    std::string texts;
    constexpr std::string_view kStart = "qlmCreateText(ctx, \"\", 0, 0, 0, 0, \"";
    for (std::size_t at = 0; (at = trace.find(kStart, at)) != std::string_view::npos;) {
        at += kStart.size();
        texts.append(texts.empty() ? "" : " ").append(trace.substr(at, trace.find('"', at) - at));
    }
    return texts;
}

std::string TextsOfKind(const Kind& kind, std::initializer_list<Group> groups)
{
    return TextsOf(TraceOf(DimensionDrawing(Part("AcDbDimension", groups) + kind.part),
                           [](CDxfReadToQuillmar& converter) { converter.yAxisMode = 1; }));
}

} // namespace

TEST(DimensionValue, IsShownWithoutAnOverride)
{
    for (const Kind& kind : kKinds) {
        EXPECT_EQ(TextsOfKind(kind, {}), kind.value) << kind.name;
        EXPECT_EQ(TextsOfKind(kind, {{1, ""}}), kind.value) << kind.name;
        EXPECT_EQ(TextsOfKind(kind, {{1, " \t"}}), kind.value) << kind.name; // blanks are trimmed to nothing
    }
}

TEST(DimensionValue, OfATypeOfExactly2HasARingAboveAtItsEnd)
{
    for (const Kind& kind : kKinds) {
        EXPECT_EQ(TextsOfKind(kind, {{70, 2}}), std::string(kind.value) + "\u02DA") << kind.name;
        for (const char* type : {"0", "1", "3", "5", "34", "66", "130", "162", "-2", "20"})
            EXPECT_EQ(TextsOfKind(kind, {{70, type}}), kind.value) << kind.name << " " << type;
    }
}

TEST(DimensionValue, MeasurementOfTheFileIsNotUsed)
{
    for (const Kind& kind : kKinds)
        EXPECT_EQ(TextsOfKind(kind, {{42, 77}}), kind.value) << kind.name;
}

TEST(DimensionValue, OverrideHoldsTheValueInPlaceOfItsMark)
{
    EXPECT_EQ(Shown({{1, "R<>"}}), OneText("R2.5"));
    for (const Kind& kind : kKinds)
        EXPECT_EQ(TextsOfKind(kind, {{1, "R<>"}}), std::string("R").append(kind.value)) << kind.name;
}

TEST(DimensionValue, OverrideWithoutAMarkIsShownAsItIs)
{
    EXPECT_EQ(Shown({{1, " see note < 5 > "}}), OneText("see note < 5 >"));
    for (const Kind& kind : kKinds)
        EXPECT_EQ(TextsOfKind(kind, {{1, "R"}}), "R") << kind.name;
}

TEST(DimensionValue, EveryMarkIsReplacedFromLeftToRight)
{
    EXPECT_EQ(Shown({{1, "<>"}}), OneText("2.5"));
    EXPECT_EQ(Shown({{1, "<><>"}}), OneText("2.52.5"));
    EXPECT_EQ(Shown({{1, "a<>b<>c"}}), OneText("a2.5b2.5c"));
    EXPECT_EQ(Shown({{1, "<<>>"}}), OneText("<2.5>"));
    EXPECT_EQ(Shown({{1, "<<>"}}), OneText("<2.5"));
    EXPECT_EQ(Shown({{1, "<>>"}}), OneText("2.5>"));
    EXPECT_EQ(Shown({{1, "><"}}), OneText("><"));
    EXPECT_EQ(Shown({{1, "<"}}), OneText("<"));
    EXPECT_EQ(Shown({{1, "< >"}}), OneText("< >"));
}

TEST(DimensionValue, UnitGoesWithTheValueOnly)
{
    EXPECT_EQ(Shown({{70, 2}, {1, "<> / <>"}}), OneText("2.5\u02DA / 2.5\u02DA"));
    EXPECT_EQ(Shown({{70, 2}, {1, "right"}}), OneText("right"));
}

TEST(DimensionValue, CodesOfAnOverrideAreLaidOut)
{
    EXPECT_EQ(Shown({{1, "\\A1;<>"}}), OneText("2.5"));
    EXPECT_EQ(Shown({{1, "\\A1;"}}), NoText());
    EXPECT_EQ(Shown({{1, ";"}}), NoText());
    EXPECT_EQ(Shown({{1, "\\"}}), NoText());
    EXPECT_EQ(Shown({{1, "\\H5;<>"}}), DimensionTrace()
                                           .Begin()
                                           .EndArrowLine("0, -0, 2.5, -0")
                                           .Size("5.00")
                                           .Text("2.5", "0, 2", "180")
                                           .End());
}

// The radial dimension lies along 180 degrees; what follows "2.5" is three characters to the left.
TEST(DimensionValue, StackAfterTheValueIsLaidOutAlongTheDimension)
{
    EXPECT_EQ(Shown({{11, 7}, {21, -3}, {1, "<>\\S+1^-2;"}}), DimensionTrace()
                                                                  .Begin()
                                                                  .EndArrowLine("0, -0, 2.5, -0")
                                                                  .Text("2.5", "7, 5", "180")
                                                                  .Size("1.00")
                                                                  .Text("+1", "4.6, 5", "180")
                                                                  .Text("-2", "4.6, 6.3333335", "180")
                                                                  .End());
}

TEST(DimensionValue, MarkWithinAStackOrANestedTextIsReplacedBeforeTheLayout)
{
    EXPECT_EQ(TextsOf(Shown({{1, "\\S<>/3"}})), "2.5 3");
    EXPECT_EQ(TextsOf(Shown({{1, "R{<>}"}})), "R 2.5}");
}
