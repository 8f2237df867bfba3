// Radial and diametric dimensions, and what holds for all, from their points to the calls of the host.
#include "support/DimensionTrace.h"
#include "support/DimensionsByPoints.h"

#include <gtest/gtest.h>

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
        Dxf({{8, "Walls"}, {62, 1}, {370, 50}, {60, 1}, {420, 255}, {6, "DASHED"}}) + Part("AcDbEntity");
    const std::string parts = Dimension("0", "3", "1", "1") + Radial("0", "1");
    EXPECT_EQ(Drawn(style + parts, kDown), Drawn(parts, kDown));
}

TEST(DimensionDrawing, BlockOfTheDimensionIsNotUsed)
{
    const std::string parts = Part("AcDbDimension", {{2, "*D1"}, {20, 3}}) + Radial("0", "1");
    const std::string drawing =
        Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "*D1"}, {0, "ENDBLK"}})) + DimensionDrawing(parts);
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
        Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "B"}, {0, "DIMENSION"}}) + Dimension("0", "3", "0", "0") +
                              Radial("0", "1") + Dxf({{0, "LINE"}, {0, "ENDBLK"}}));
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

TEST(DimensionDrawing, ThatIsNotToBeDrawnCallsNothingAndReportsNothing)
{
    const std::string drawing =
        DimensionDrawing(Dimension("0", "3", "0", "0") + Part("AcDbDimension") + Radial("0", "1"));
    EXPECT_NE(TraceOf(drawing), "");
    EXPECT_EQ(TraceOf(drawing, [](CDxfReadToQuillmar& converter) { converter.drawEnabled = false; }), "");
    EXPECT_EQ(TraceOf(drawing, [](CDxfReadToQuillmar& converter) { converter.parentNode = nullptr; }), "");
}
