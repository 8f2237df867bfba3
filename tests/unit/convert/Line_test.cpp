#include "support/Import.h"
#include "support/TraceLines.h"

#include <gtest/gtest.h>

TEST(Line, IsDrawnWithYDownAndItsStyleInOrder)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "LINE"}, {10, 0}, {20, 0}, {11, 10}, {21, 5}})),
              "qlmCreateLine(ctx, \"\", 0, -0, 10, -5, 0, 0) = n1\n"
              "qlmSetAttributeByNode(ctx, n1, \"stroke-width\", \"0.500000\")\n"
              "qlmSetAttributeByNode(ctx, n1, \"stroke\", \"RGB(255,255,255)\")\n"
              "qlmSetAttributeByNode(ctx, n1, \"stroke-dasharray\", \"\")\n");
}

TEST(Line, OfGroupsThatAreMissingStartsAndEndsAtTheOrigin)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "LINE"}})),
              "qlmCreateLine(ctx, \"\", 0, -0, 0, -0, 0, 0) = n1\n" + Style("n1"));
}

TEST(Line, IgnoresZThicknessAndExtrusion)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "LINE"},
                                       {10, 1},
                                       {20, 2},
                                       {30, 7},
                                       {11, 3},
                                       {21, 4},
                                       {31, 9},
                                       {39, 0.25},
                                       {210, 0.5},
                                       {220, 0.5},
                                       {230, -1}})),
              "qlmCreateLine(ctx, \"\", 1, -2, 3, -4, 0, 0) = n1\n" + Style("n1"));
}

TEST(Line, KeepsYWhenTheAxisModeIsNot2)
{
    const std::string line = EntitiesSection({{0, "LINE"}, {10, 10}, {20, 5}, {11, -1}, {21, -2}});
    for (const std::int32_t mode : {0, 1, 3, -2})
        EXPECT_EQ(TraceOf(line, [&](CDxfReadToQuillmar& converter) { converter.yAxisMode = mode; }),
                  "qlmCreateLine(ctx, \"\", 10, 5, -1, -2, 0, 0) = n1\n" + Style("n1"))
            << mode;
}

TEST(Line, ScalesBothPointsAndTheDefaultWidth)
{
    const std::string line = EntitiesSection({{0, "LINE"}, {10, 1}, {20, 2}, {11, 3}, {21, -4}});
    EXPECT_EQ(TraceOf(line, [](CDxfReadToQuillmar& converter) { converter.scale = 2.5; }),
              "qlmCreateLine(ctx, \"\", 2.5, -5, 7.5, 10, 0, 0) = n1\n" + Style("n1", {.width = "1.250000"}));
}

// 16777217 is the first integer that a float has not; half an ulp rounds to the even neighbour.
TEST(Line, NarrowsItsCoordinatesToFloats)
{
    EXPECT_EQ(
        TraceOf(EntitiesSection({{0, "LINE"}, {10, 16777217}, {20, 0.1}, {11, "3.4e38"}, {21, 123456.789}})),
        "qlmCreateLine(ctx, \"\", 16777216, -0.1, 3.4e+38, -123456.79, 0, 0) = n1\n" + Style("n1"));
}

// The product is made in double: 6e38 is no float, half of it is.
TEST(Line, ScalesBeforeItNarrows)
{
    const std::string line = EntitiesSection({{0, "LINE"}, {10, "6e38"}, {20, 5}, {11, 0}, {21, 0}});
    EXPECT_EQ(TraceOf(line, [](CDxfReadToQuillmar& converter) { converter.scale = 0.5; }),
              "qlmCreateLine(ctx, \"\", 3e+38, -2.5, 0, -0, 0, 0) = n1\n" +
                  Style("n1", {.width = "0.250000"}));
}

TEST(Line, TooFarForAFloatIsDrawnToInfinity)
{
    EXPECT_EQ(
        TraceOf(EntitiesSection({{0, "LINE"}, {10, "1e308"}, {20, "-1e308"}, {11, "1e400"}, {21, "-1e400"}})),
        "qlmCreateLine(ctx, \"\", inf, inf, inf, inf, 0, 0) = n1\n" + Style("n1"));
}

TEST(Line, ThatIsInvisibleIsCreatedAndHiddenAfterItsStyle)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "LINE"}, {60, 1}, {11, 1}})),
              "qlmCreateLine(ctx, \"\", 0, -0, 1, -0, 0, 0) = n1\n" + Style("n1", {.hidden = true}));
}

TEST(Line, OfAnotherVisibilityThan1IsNotHidden)
{
    for (const char* visibility : {"0", "2", "-1", "3"})
        EXPECT_EQ(TraceOf(EntitiesSection({{0, "LINE"}, {60, visibility}, {11, 1}})),
                  "qlmCreateLine(ctx, \"\", 0, -0, 1, -0, 0, 0) = n1\n" + Style("n1"))
            << visibility;
}

TEST(Line, AfterLineIsANodeOfItsOwn)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "LINE"}, {11, 1}, {0, "LINE"}, {11, 2}})),
              "qlmCreateLine(ctx, \"\", 0, -0, 1, -0, 0, 0) = n1\n" + Style("n1") +
                  "qlmCreateLine(ctx, \"\", 0, -0, 2, -0, 0, 0) = n2\n" + Style("n2"));
}
