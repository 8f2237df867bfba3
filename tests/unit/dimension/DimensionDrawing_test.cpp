// Aligned, rotated, radial and diametric dimensions, from their points to the calls of the host.
#include "support/DimensionTrace.h"
#include "support/Dimensions.h"

#include <gtest/gtest.h>

namespace {

// The drawing of a dimension in some Y mode.
std::string Drawn(const std::string& parts, std::int32_t yAxisMode, double scale = 1.0)
{
    return TraceOf(DimensionDrawing(parts), [&](CDxfReadToQuillmar& converter) {
        converter.yAxisMode = yAxisMode;
        converter.scale = scale;
    });
}

using Text = std::string_view;

// D and the text's middle T.
std::string Dimension(Text dx, Text dy, Text tx, Text ty)
{
    return Part("AcDbDimension", {"10", dx, "20", dy, "30", "9", "11", tx, "21", ty, "31", "9"});
}

std::string Aligned(Text x1, Text y1, Text x2, Text y2, Text rotation = "0")
{
    return Part("AcDbAlignedDimension",
                {"13", x1, "23", y1, "33", "9", "14", x2, "24", y2, "34", "9", "50", rotation});
}

std::string Rotated(Text x1, Text y1, Text x2, Text y2, Text rotation)
{
    return Aligned(x1, y1, x2, y2, rotation) + Part("AcDbRotatedDimension");
}

std::string Radial(Text x, Text y)
{
    return Part("AcDbRadialDimension", {"15", x, "25", y, "35", "9", "40", "7"});
}

std::string Diametric(Text x, Text y)
{
    return Part("AcDbDiametricDimension", {"15", x, "25", y, "35", "9", "40", "7"});
}

constexpr int kUp = 1;   // the Y mode that leaves Y as it is and orders angles from the smaller
constexpr int kDown = 2; // the Y mode that negates Y

} // namespace

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

// D stands where both tests hold: the height is looked at first, so the foot is (D.x, P1.y).
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

// 126.87 degrees from H to D in the document; the whole distance is the value.
TEST(RadialDimension, ShowsTheDistanceOfItsPointsAndAnArrowAtItsEnd)
{
    const std::string parts = Dimension("1", "2", "5", "5") + Radial("4", "6");
    EXPECT_EQ(Drawn(parts, kDown),
              DimensionTrace().Begin().EndArrowLine("1, -2, 4, -6").Text("5", "5, -3", "126.87").End());
    EXPECT_EQ(Drawn(parts, kUp),
              DimensionTrace().Begin().EndArrowLine("1, 2, 4, 6").Text("5", "5, 7", "-126.87").End());
}

TEST(DiametricDimension, ShowsHalfTheDistanceOfItsPointsAndTwoArrows)
{
    const std::string parts = Dimension("-5", "1", "0", "0") + Diametric("5", "1");
    EXPECT_EQ(Drawn(parts, kDown),
              DimensionTrace().Begin().ArrowsLine("-5, -1, 5, -1").Text("5", "0, 2", "180").End());
    EXPECT_EQ(Drawn(parts, kUp),
              DimensionTrace().Begin().ArrowsLine("-5, 1, 5, 1").Text("5", "0, 2", "180").End());
    EXPECT_EQ(Drawn(Dimension("1", "2", "5", "5") + Diametric("4", "6"), kDown),
              DimensionTrace().Begin().ArrowsLine("1, -2, 4, -6").Text("2.5", "5, -3", "126.87").End());
}

TEST(DimensionDrawing, KeepsYInEveryModeBut2)
{
    for (const std::int32_t mode : {0, 1, 3, -2})
        EXPECT_EQ(Drawn(Dimension("0", "3", "1", "1") + Radial("0", "1"), mode),
                  DimensionTrace().Begin().EndArrowLine("0, 3, 0, 1").Text("2", "1, 3", "90").End())
            << mode;
}

TEST(DimensionDrawing, ScalesPointsValuesWidthsAndTheLiftOfTheTextButNoArrows)
{
    const auto scaled = [] { return DimensionTrace().Width("0.375000").Size("5.00"); };
    EXPECT_EQ(Drawn(Dimension("10", "5", "5", "6") + Aligned("0", "0", "10", "0"), kDown, 2.5),
              scaled()
                  .Begin()
                  .Line("25, -0, 25, -12.5")
                  .Line("0, -0, 0, -12.5")
                  .ArrowsLine("25, -12.5, 0, -12.5")
                  .Text("25", "12.5, -10", "0")
                  .End());
    EXPECT_EQ(Drawn(Dimension("0", "0", "1", "1") + Radial("3", "4"), kUp, 2.5),
              scaled().Begin().EndArrowLine("0, 0, 7.5, 10").Text("12.5", "2.5, 7.5", "-126.87").End());
    EXPECT_EQ(Drawn(Dimension("0", "0", "1", "1") + Diametric("3", "4"), kUp, 2.5),
              scaled().Begin().ArrowsLine("0, 0, 7.5, 10").Text("6.25", "2.5, 7.5", "-126.87").End());
}

TEST(DimensionDrawing, OfNoPointsIsDrawnAtTheOrigin)
{
    EXPECT_EQ(Drawn(Part("AcDbDimension") + Part("AcDbAlignedDimension"), kDown),
              DimensionTrace()
                  .Begin()
                  .Line("0, -0, 0, -0")
                  .Line("0, -0, 0, -0")
                  .ArrowsLine("0, -0, 0, -0")
                  .Text("0", "0, 2", "0")
                  .End());
}

// 2 and -16777217 are added in double and narrowed once, to -16777215; -16777216 and 2 would give -16777214.
TEST(DimensionDrawing, NarrowsTheTextPositionOnce)
{
    EXPECT_EQ(
        Drawn(Dimension("0", "0", "16777217", "16777217") + Radial("0", "1"), kDown),
        DimensionTrace().Begin().EndArrowLine("0, -0, 0, -1").Text("1", "16777216, -16777215", "90").End());
}

TEST(DimensionDrawing, ValuesAreWrittenWithSixDigits)
{
    const char* const values[][2] = {
        {"0.1", "0.1"},           {"123456.7", "123457"},          {"1234567", "1.23457e+06"},
        {"0.00001", "1e-05"},     {"0.0001234567", "0.000123457"}, {"100000", "100000"},
        {"33.3333333", "33.3333"}};
    for (const auto& [length, text] : values)
        EXPECT_NE(Drawn(Dimension("0", "0", "0", "0") + Radial("0", length), kUp)
                      .find("0, 0, 0, 0, \"" + std::string(text) + "\", 0, 2)"),
                  std::string::npos)
            << length;
}

TEST(DimensionDrawing, LayerColourWidthAndVisibilityOfTheDimensionDoNotCount)
{
    const std::string style =
        Lines({"8", "Walls", "62", "1", "370", "50", "60", "1", "420", "255", "6", "DASHED"}) +
        Part("AcDbEntity");
    const std::string parts = Dimension("0", "3", "1", "1") + Radial("0", "1");
    EXPECT_EQ(Drawn(style + parts, kDown), Drawn(parts, kDown));
}

TEST(DimensionDrawing, BlockOfTheDimensionIsNotUsed)
{
    const std::string parts = Part("AcDbDimension", {"2", "*D1", "20", "3"}) + Radial("0", "1");
    const std::string drawing =
        Section("BLOCKS", Lines({"0", "BLOCK", "2", "*D1", "0", "ENDBLK"})) + DimensionDrawing(parts);
    EXPECT_EQ(TraceOf(drawing),
              "qlmSetCurrentSvgNode(ctx, 0)\n"
              "qlmCreateSymbol(ctx, \"*D1\") = n1\n"
              "qlmSetCurrentSvgNode(ctx, n1)\n"
              "qlmSetCurrentSvgNode(ctx, 0)\n" +
                  std::string(
                      DimensionTrace(2).Begin().EndArrowLine("0, -3, 0, -1").Text("2", "0, 2", "-90").End()));
}

TEST(DimensionDrawing, WithinABlockRestoresItsSymbol)
{
    const std::string drawing =
        Section("BLOCKS", Lines({"0", "BLOCK", "2", "B", "0", "DIMENSION"}) + Dimension("0", "3", "0", "0") +
                              Radial("0", "1") + Lines({"0", "LINE", "0", "ENDBLK"}));
    EXPECT_EQ(
        TraceOf(drawing),
        "qlmSetCurrentSvgNode(ctx, 0)\n"
        "qlmCreateSymbol(ctx, \"B\") = n1\n"
        "qlmSetCurrentSvgNode(ctx, n1)\n" +
            std::string(
                DimensionTrace(2, "n1").Begin().EndArrowLine("0, -3, 0, -1").Text("2", "0, 2", "-90").End()) +
            "qlmCreateLine(ctx, \"\", 0, -0, 0, -0, 0, 0) = n5\n" + Style("n5") +
            "qlmSetCurrentSvgNode(ctx, 0)\n");
}

TEST(DimensionDrawing, OfAHostThatCreatesNothingSetsTheAttributesOfNoNode)
{
    const std::string trace =
        TraceOf(DimensionDrawing(Dimension("0", "3", "0", "0") + Radial("0", "1")),
                [](CDxfReadToQuillmar&) { RecordingHost::OfThread().refuseAll = true; });
    EXPECT_EQ(trace, "qlmGetCurrentSvgNode(ctx) = 0\n"
                     "qlmCreateG(ctx, \"\") = 0\n"
                     "qlmSetCurrentSvgNode(ctx, 0)\n"
                     "qlmCreateLine(ctx, \"\", 0, -3, 0, -1, 0, 0) = 0\n" +
                         Attribute("0", "stroke-width", "0.150000") +
                         Attribute("0", "pg-end-arrow-type", "stealth arrow") +
                         Attribute("0", "pg-end-arrow-size", "1") +
                         "qlmCreateText(ctx, \"\", 0, 0, 0, 0, \"2\", 0, 2) = 0\n" +
                         Attribute("0", "font-size", "2.00") + Attribute("0", "text-anchor", "middle") +
                         Attribute("0", "stroke", "#00ff00") + Attribute("0", "rotate", "-90") +
                         "qlmSetCurrentSvgNode(ctx, 0)\n");
}

TEST(DimensionDrawing, BehindAClosedGateCallsNothingAndReportsNothing)
{
    const std::string drawing =
        DimensionDrawing(Dimension("0", "3", "0", "0") + Part("AcDbDimension") + Radial("0", "1"));
    EXPECT_NE(TraceOf(drawing), "");
    EXPECT_EQ(TraceOf(drawing, [](CDxfReadToQuillmar& converter) { converter.drawEnabled = false; }), "");
    EXPECT_EQ(TraceOf(drawing, [](CDxfReadToQuillmar& converter) { converter.parentNode = nullptr; }), "");
}
