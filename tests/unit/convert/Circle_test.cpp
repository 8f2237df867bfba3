#include "support/Import.h"
#include "support/TraceLines.h"

#include <gtest/gtest.h>

namespace {

std::string Circle(std::string_view x, std::string_view y, std::string_view radius)
{
    return EntitiesSection({{0, "CIRCLE"}, {10, x}, {20, y}, {40, radius}});
}

} // namespace

TEST(Circle, TakesTheRadiusFirstAndTheFillBeforeTheStyle)
{
    EXPECT_EQ(TraceOf(Circle("3", "4", "2.5")), "qlmCreateCircle(ctx, \"\", 2.5, 3, -4, 0, 0) = n1\n" +
                                                    Attribute("n1", "fill-opacity", "0") + Style("n1"));
}

TEST(Circle, ScalesItsRadiusWithoutTurningIt)
{
    EXPECT_EQ(TraceOf(Circle("3", "4", "2.5"), [](CDxfReadToQuillmar& converter) { converter.scale = 4; }),
              "qlmCreateCircle(ctx, \"\", 10, 12, -16, 0, 0) = n1\n" + Attribute("n1", "fill-opacity", "0") +
                  Style("n1", {.width = "2.000000"}));
}

TEST(Circle, KeepsYWhenTheAxisModeIsNot2)
{
    EXPECT_EQ(
        TraceOf(Circle("3", "4", "2.5"), [](CDxfReadToQuillmar& converter) { converter.yAxisMode = 1; }),
        "qlmCreateCircle(ctx, \"\", 2.5, 3, 4, 0, 0) = n1\n" + Attribute("n1", "fill-opacity", "0") +
            Style("n1"));
}

TEST(Circle, SeenFromBelowIsNotMirrored)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "CIRCLE"}, {10, 5}, {40, 1}, {210, 0}, {220, 0}, {230, -1}})),
              "qlmCreateCircle(ctx, \"\", 1, 5, -0, 0, 0) = n1\n" + Attribute("n1", "fill-opacity", "0") +
                  Style("n1"));
}

TEST(Circle, OfNoRadiusIsDrawn)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "CIRCLE"}})), "qlmCreateCircle(ctx, \"\", 0, 0, -0, 0, 0) = n1\n" +
                                                             Attribute("n1", "fill-opacity", "0") +
                                                             Style("n1"));
}

TEST(Circle, OfANegativeOrInfiniteRadiusIsPassedOnAsItIs)
{
    EXPECT_EQ(TraceOf(Circle("0", "0", "-2")), "qlmCreateCircle(ctx, \"\", -2, 0, -0, 0, 0) = n1\n" +
                                                   Attribute("n1", "fill-opacity", "0") + Style("n1"));
    EXPECT_EQ(TraceOf(Circle("1e39", "0", "1e400")), "qlmCreateCircle(ctx, \"\", inf, inf, -0, 0, 0) = n1\n" +
                                                         Attribute("n1", "fill-opacity", "0") + Style("n1"));
}

TEST(Circle, ThatIsInvisibleIsHiddenLast)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "CIRCLE"}, {40, 1}, {60, 1}})),
              "qlmCreateCircle(ctx, \"\", 1, 0, -0, 0, 0) = n1\n" + Attribute("n1", "fill-opacity", "0") +
                  Style("n1", {.hidden = true}));
}
