// Aligned and rotated dimensions, from their points to the calls of the host.
#include "support/DimensionTrace.h"
#include "support/DimensionsByPoints.h"

#include <gtest/gtest.h>

TEST(AlignedDimension, AtTheHeightOfItsSecondPointHasItsFootBelowD)
{
    const std::string parts = Dimension("10", "5", "8", "3") + Aligned("0", "0", "7", "5");
    EXPECT_EQ(Drawn(parts, kDown), DimensionTrace()
                                       .Begin()
                                       .Line("7, -5, 10, -5")
                                       .Line("0, -0, 10, -0")
                                       .ArrowsLine("10, -5, 10, -0")
                                       .Text("5", "8, -1", "-90")
                                       .End());
    EXPECT_EQ(Drawn(parts, kUp), DimensionTrace()
                                     .Begin()
                                     .Line("7, 5, 10, 5")
                                     .Line("0, 0, 10, 0")
                                     .ArrowsLine("10, 5, 10, 0")
                                     .Text("5", "8, 5", "90")
                                     .End());
}

TEST(AlignedDimension, AboveItsSecondPointHasItsFootBesideD)
{
    const std::string parts = Dimension("10", "5", "5", "6") + Aligned("0", "0", "10", "0");
    EXPECT_EQ(Drawn(parts, kDown), DimensionTrace()
                                       .Begin()
                                       .Line("10, -0, 10, -5")
                                       .Line("0, -0, 0, -5")
                                       .ArrowsLine("10, -5, 0, -5")
                                       .Text("10", "5, -4", "0")
                                       .End());
    EXPECT_EQ(Drawn(parts, kUp), DimensionTrace()
                                     .Begin()
                                     .Line("10, 0, 10, 5")
                                     .Line("0, 0, 0, 5")
                                     .ArrowsLine("10, 5, 0, 5")
                                     .Text("10", "5, 8", "0")
                                     .End());
}

// Both tests hold for D: the height is looked at first, so the foot is (D.x, P1.y).
TEST(AlignedDimension, WhoseDIsItsSecondPointHasItsFootAtTheHeightOfTheFirst)
{
    EXPECT_EQ(Drawn(Dimension("3", "4", "0", "0") + Aligned("1", "1", "3", "4"), kUp),
              DimensionTrace()
                  .Begin()
                  .Line("3, 4, 3, 4")
                  .Line("1, 1, 3, 1")
                  .ArrowsLine("3, 4, 3, 1")
                  .Text("3", "0, 2", "90")
                  .End());
}

// m = -1 and k = 1: the line through (2, 6) with slope 1 meets that through (0, 0) with slope -1 at (-2, 2).
TEST(AlignedDimension, OnASlopeHasItsFootAtARightAngle)
{
    const std::string parts = Dimension("2", "6", "1", "7") + Aligned("0", "0", "4", "4");
    EXPECT_EQ(Drawn(parts, kUp), DimensionTrace()
                                     .Begin()
                                     .Line("4, 4, 2, 6")
                                     .Line("0, 0, -2, 2")
                                     .ArrowsLine("2, 6, -2, 2")
                                     .Text("5.65685", "1, 9", "45")
                                     .End());
    EXPECT_EQ(Drawn(parts, kDown), DimensionTrace()
                                       .Begin()
                                       .Line("4, -4, 2, -6")
                                       .Line("0, -0, -2, -2")
                                       .ArrowsLine("2, -6, -2, -2")
                                       .Text("5.65685", "1, -5", "-45")
                                       .End());
}

// m = 2 and k = -1/2: Q = (-3.8, 6.4) = P1 + 4.2 (1, 2) = D - 4.8 (1, -1/2); |D - Q| is the root of 28.8.
TEST(AlignedDimension, OnAnotherSlopeHasItsFootThereToo)
{
    const std::string parts = Dimension("1", "4", "0", "0") + Aligned("-8", "-2", "0", "2");
    EXPECT_EQ(Drawn(parts, kUp), DimensionTrace()
                                     .Begin()
                                     .Line("0, 2, 1, 4")
                                     .Line("-8, -2, -3.8, 6.4")
                                     .ArrowsLine("1, 4, -3.8, 6.4")
                                     .Text("5.36656", "0, 2", "-26.5651")
                                     .End());
    EXPECT_EQ(Drawn(parts, kDown), DimensionTrace()
                                       .Begin()
                                       .Line("0, -2, 1, -4")
                                       .Line("-8, 2, -3.8, -6.4")
                                       .ArrowsLine("1, -4, -3.8, -6.4")
                                       .Text("5.36656", "0, 2", "26.5651")
                                       .End());
}

// The extension line to (200, 50) is level but for the rounding of its Y, so Q is (-100, -130): 180 below D.
TEST(AlignedDimension, OfALevelLineButForRoundingHasItsFootAtTheHeightOfTheFirstPoint)
{
    for (const char* y : {"50.00000000000001", "49.99999999999999"}) {
        const std::string parts = Dimension("-100", y, "8", "3") + Aligned("40", "-130", "200", "50");
        EXPECT_EQ(Drawn(parts, kUp), DimensionTrace()
                                         .Begin()
                                         .Line("200, 50, -100, 50")
                                         .Line("40, -130, -100, -130")
                                         .ArrowsLine("-100, 50, -100, -130")
                                         .Text("180", "8, 5", "90")
                                         .End())
            << y;
        EXPECT_EQ(Drawn(parts, kDown), DimensionTrace()
                                           .Begin()
                                           .Line("200, -50, -100, -50")
                                           .Line("40, 130, -100, 130")
                                           .ArrowsLine("-100, -50, -100, 130")
                                           .Text("180", "8, -1", "-90")
                                           .End())
            << y;
    }
}

// The extension line to (-246, -31) is upright but for rounding, so Q is (-218, 249): 28 right of D.
TEST(AlignedDimension, OfAnUprightLineButForRoundingHasItsFootAboveTheFirstPoint)
{
    for (const char* x : {"-245.9999999999999", "-246.0000000000001"}) {
        const std::string parts = Dimension(x, "249", "8", "3") + Aligned("-218", "216", "-246", "-31");
        EXPECT_EQ(Drawn(parts, kUp), DimensionTrace()
                                         .Begin()
                                         .Line("-246, -31, -246, 249")
                                         .Line("-218, 216, -218, 249")
                                         .ArrowsLine("-246, 249, -218, 249")
                                         .Text("28", "8, 5", "180")
                                         .End())
            << x;
    }
}

// m = 1e-10 and k = -1e10: the intersection is (1, 50) but for a hundred millionth.
TEST(AlignedDimension, OnASlightSlopeHasItsFootAtARightAngleToo)
{
    EXPECT_EQ(Drawn(Dimension("1", "10", "0", "0") + Aligned("7", "50", "-4", "9.9999999995"), kUp),
              DimensionTrace()
                  .Begin()
                  .Line("-4, 10, 1, 10")
                  .Line("7, 50, 1, 50")
                  .ArrowsLine("1, 10, 1, 50")
                  .Text("40", "0, 2", "-90")
                  .End());
}

TEST(AlignedDimension, DoesNotLookAtItsRotation)
{
    const std::string expected = Drawn(Dimension("2", "6", "1", "7") + Aligned("0", "0", "4", "4"), kDown);
    for (const char* rotation : {"90", "45", "180"})
        EXPECT_EQ(Drawn(Dimension("2", "6", "1", "7") + Aligned("0", "0", "4", "4", rotation), kDown),
                  expected)
            << rotation;
}

TEST(RotatedDimension, At90HasItsFootBesideTheFirstPoint)
{
    const std::string parts = Dimension("10", "9", "11", "4") + Rotated("0", "0", "6", "8", "90");
    EXPECT_EQ(Drawn(parts, kDown), DimensionTrace()
                                       .Begin()
                                       .Line("6, -8, 10, -9")
                                       .Line("0, -0, 10, -0")
                                       .ArrowsLine("10, -9, 10, -0")
                                       .Text("9", "11, -2", "-90")
                                       .End());
    EXPECT_EQ(Drawn(parts, kUp), DimensionTrace()
                                     .Begin()
                                     .Line("6, 8, 10, 9")
                                     .Line("0, 0, 10, 0")
                                     .ArrowsLine("10, 9, 10, 0")
                                     .Text("9", "11, 6", "90")
                                     .End());
}

TEST(RotatedDimension, At90WithDAtTheHeightOfTheFirstPointExchangesThePoints)
{
    const std::string parts = Dimension("10", "1", "11", "4") + Rotated("0", "1", "6", "8", "90");
    EXPECT_EQ(Drawn(parts, kDown), DimensionTrace()
                                       .Begin()
                                       .Line("0, -1, 10, -1")
                                       .Line("6, -8, 10, -8")
                                       .ArrowsLine("10, -1, 10, -8")
                                       .Text("7", "11, -2", "90")
                                       .End());
    EXPECT_EQ(Drawn(parts, kUp), DimensionTrace()
                                     .Begin()
                                     .Line("0, 1, 10, 1")
                                     .Line("6, 8, 10, 8")
                                     .ArrowsLine("10, 1, 10, 8")
                                     .Text("7", "11, 6", "-90")
                                     .End());
}

TEST(RotatedDimension, At0HasItsFootAboveTheFirstPoint)
{
    const std::string parts = Dimension("7", "12", "3", "13") + Rotated("0", "1", "6", "8", "0");
    EXPECT_EQ(Drawn(parts, kDown), DimensionTrace()
                                       .Begin()
                                       .Line("6, -8, 7, -12")
                                       .Line("0, -1, 0, -12")
                                       .ArrowsLine("7, -12, 0, -12")
                                       .Text("7", "3, -11", "0")
                                       .End());
    EXPECT_EQ(Drawn(parts, kUp), DimensionTrace()
                                     .Begin()
                                     .Line("6, 8, 7, 12")
                                     .Line("0, 1, 0, 12")
                                     .ArrowsLine("7, 12, 0, 12")
                                     .Text("7", "3, 15", "0")
                                     .End());
}

TEST(RotatedDimension, At0WithDAboveTheFirstPointExchangesThePoints)
{
    const std::string parts = Dimension("0", "12", "3", "13") + Rotated("0", "1", "6", "8", "-0.0");
    EXPECT_EQ(Drawn(parts, kDown), DimensionTrace()
                                       .Begin()
                                       .Line("0, -1, 0, -12")
                                       .Line("6, -8, 6, -12")
                                       .ArrowsLine("0, -12, 6, -12")
                                       .Text("6", "3, -11", "180")
                                       .End());
    EXPECT_EQ(Drawn(parts, kUp), DimensionTrace()
                                     .Begin()
                                     .Line("0, 1, 0, 12")
                                     .Line("6, 8, 6, 12")
                                     .ArrowsLine("0, 12, 6, 12")
                                     .Text("6", "3, 15", "180")
                                     .End());
}

TEST(RotatedDimension, AtAnyOtherAngleIsDrawnAsAligned)
{
    const std::string lists[][2] = {{Dimension("2", "6", "1", "7"), "slope"},
                                    {Dimension("4", "9", "1", "7"), "above"},
                                    {Dimension("9", "4", "1", "7"), "beside"}};
    for (const auto& [dimension, name] : lists) {
        for (const std::int32_t mode : {kUp, kDown}) {
            const std::string expected = Drawn(dimension + Aligned("0", "0", "4", "4"), mode);
            for (const char* rotation : {"180", "270", "-90", "360", "45", "90.0000001", "1e-300", "450"})
                EXPECT_EQ(Drawn(dimension + Rotated("0", "0", "4", "4", rotation), mode), expected)
                    << rotation << " " << name;
        }
    }
}

TEST(RotatedDimension, At180And270GivesPoints)
{
    EXPECT_EQ(Drawn(Dimension("10", "5", "5", "6") + Rotated("0", "0", "10", "0", "180"), kDown),
              DimensionTrace()
                  .Begin()
                  .Line("10, -0, 10, -5")
                  .Line("0, -0, 0, -5")
                  .ArrowsLine("10, -5, 0, -5")
                  .Text("10", "5, -4", "0")
                  .End());
    EXPECT_EQ(Drawn(Dimension("10", "5", "8", "3") + Rotated("0", "0", "7", "5", "270"), kDown),
              DimensionTrace()
                  .Begin()
                  .Line("7, -5, 10, -5")
                  .Line("0, -0, 10, -0")
                  .ArrowsLine("10, -5, 10, -0")
                  .Text("5", "8, -1", "-90")
                  .End());
}
