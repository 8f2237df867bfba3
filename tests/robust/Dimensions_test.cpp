// Dimensions whose points coincide, whose numbers are no numbers, whose parts and texts are many.
#include "support/CountedWork.h"
#include "support/DimensionTrace.h"
#include "support/Dimensions.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>

namespace {

using Text = std::string_view;

std::string Drawn(const std::string& parts, std::int32_t yAxisMode = 1)
{
    return TraceOf(DimensionDrawing(parts),
                   [&](CDxfReadToQuillmar& converter) { converter.yAxisMode = yAxisMode; });
}

std::string D(Text x, Text y)
{
    return Part("AcDbDimension", {{10, x}, {20, y}});
}

std::string Repeated(Text text, std::size_t count)
{
    std::string all;
    all.reserve(text.size() * count);
    while (count-- != 0)
        all += text;
    return all;
}

std::size_t CountOf(Text operation, Text trace)
{
    std::size_t count = 0;
    for (std::size_t at = 0; (at = trace.find(operation, at)) != Text::npos; ++at)
        ++count;
    return count;
}

// Reads and draws without writing the calls down, and returns their number.
std::size_t CallsOf(const std::string& drawing)
{
    TraceOf(drawing, [](CDxfReadToQuillmar&) { RecordingHost::OfThread().countOnly = true; });
    return RecordingHost::OfThread().callCount;
}

std::string TextTrace(Text text)
{
    return "qlmCreateText(ctx, \"\", 0, 0, 0, 0, \"" + std::string(text) + "\", 0, 2)";
}

} // namespace

TEST(DegenerateDimensions, OfCoincidentPointsAreDrawnAsPoints)
{
    EXPECT_EQ(Drawn(D("3", "4") + Part("AcDbAlignedDimension", {{13, 3}, {23, 4}, {14, 3}, {24, 4}})),
              DimensionTrace()
                  .Begin()
                  .Line("3, 4, 3, 4")
                  .Line("3, 4, 3, 4")
                  .ArrowsLine("3, 4, 3, 4")
                  .Text("0", "0, 2", "0")
                  .End());
    EXPECT_EQ(Drawn(D("3", "4") + Part("AcDbRadialDimension", {{15, 3}, {25, 4}})),
              DimensionTrace().Begin().EndArrowLine("3, 4, 3, 4").Text("0", "0, 2", "0").End());
    EXPECT_EQ(Drawn(D("3", "4") + Part("AcDbDiametricDimension", {{15, 3}, {25, 4}})),
              DimensionTrace().Begin().ArrowsLine("3, 4, 3, 4").Text("0", "0, 2", "0").End());
    for (const char* angle : {"0", "90", "45"})
        EXPECT_EQ(Drawn(D("3", "4") +
                        Part("AcDbAlignedDimension", {{13, 3}, {23, 4}, {14, 3}, {24, 4}, {50, angle}}) +
                        Part("AcDbRotatedDimension")),
                  DimensionTrace()
                      .Begin()
                      .Line("3, 4, 3, 4")
                      .Line("3, 4, 3, 4")
                      .ArrowsLine("3, 4, 3, 4")
                      .Text("0", "0, 2", "0")
                      .End())
            << angle;
}

TEST(DegenerateDimensions, AngleOfNoPointsIsAnAngleOfZeroAtTheOrigin)
{
    EXPECT_EQ(Drawn(Part("AcDbDimension") + Part("AcDb2LineAngularDimension"), 2),
              DimensionTrace()
                  .Begin()
                  .Path("M 0.000000,0.000000 A 0.000000,0.000000, 0 0,1 0.000000,0.000000")
                  .ColoredLine("0, -0, 0, -0", "#ff0000")
                  .ColoredLine("0, -0, 0, -0", "#00ff00")
                  .Circle("0, 0")
                  .Circle("0, 0", "#ff0000")
                  .Circle("0, 0", "#00ff00")
                  .Circle("0, -0", "#0000ff")
                  .Text("0.00", "0, 2", "-90")
                  .End());
}

TEST(DegenerateDimensions, SlopeOfInfinitePointsIsNotANumber)
{
    EXPECT_EQ(Drawn(D("1e400", "1e400") + Part("AcDbAlignedDimension")), DimensionTrace()
                                                                             .Begin()
                                                                             .Line("0, 0, inf, inf")
                                                                             .Line("0, 0, nan, nan")
                                                                             .ArrowsLine("inf, inf, nan, nan")
                                                                             .Text("nan", "0, 2", "nan")
                                                                             .End());
}

// Distances are roots of sums of squares: the squares overflow before the distance does, and what is not a
// number stays so next to an infinite number.
TEST(DegenerateDimensions, DistancesOverflowAsSumsOfSquaresDo)
{
    EXPECT_EQ(Drawn(D("0", "0") + Part("AcDbRadialDimension", {{15, "1e200"}})),
              DimensionTrace().Begin().EndArrowLine("0, 0, inf, 0").Text("inf", "0, 2", "180").End());
    EXPECT_EQ(Drawn(D("0", "0") + Part("AcDbRadialDimension", {{15, "1e-200"}})),
              DimensionTrace().Begin().EndArrowLine("0, 0, 0, 0").Text("0", "0, 2", "180").End());
    EXPECT_EQ(Drawn(D("0", "0") + Part("AcDbDiametricDimension", {{15, "1e400"}})),
              DimensionTrace().Begin().ArrowsLine("0, 0, inf, 0").Text("inf", "0, 2", "180").End());
    EXPECT_EQ(Drawn(D("1e400", "1e400") + Part("AcDbAlignedDimension") + Part("AcDbRotatedDimension")),
              DimensionTrace()
                  .Begin()
                  .Line("0, 0, inf, inf")
                  .Line("0, 0, 0, inf")
                  .ArrowsLine("inf, inf, 0, inf")
                  .Text("nan", "0, 2", "nan")
                  .End());
}

TEST(DegenerateDimensions, AngleOfInfinitePointsHasNoSector)
{
    EXPECT_EQ(Drawn(D("0", "0") + Part("AcDb2LineAngularDimension", {{13, "1e400"}, {25, 5}})),
              DimensionTrace()
                  .Begin()
                  .Path("M 0.000000,0.000000 A nan,nan, 0 0,0 0.000000,0.000000")
                  .ColoredLine("inf, 0, 0, 0", "#ff0000")
                  .ColoredLine("0, 0, 0, 5", "#00ff00")
                  .Circle("nan, nan")
                  .Circle("0, 0", "#ff0000")
                  .Circle("0, 0", "#00ff00")
                  .Circle("0, 0", "#0000ff")
                  .Text("0.00", "0, 2", "nan")
                  .End());
}

// The lines y = 0 and x = 1e300 meet where a coordinate has 301 digits.
TEST(DegenerateDimensions, ArcsFarAwayAreWrittenToTheLastDigit)
{
    char far[400];
    std::snprintf(far, sizeof(far), "%f", 1e300);
    const std::string path =
        "\"M " + std::string(far) + ",0.000000 A 0.000000,0.000000, 0 0,0 " + far + ",0.000000\"";
    EXPECT_NE(Drawn(D("1e300", "-1") +
                    Part("AcDb2LineAngularDimension", {{14, 1}, {15, "1e300"}, {25, 1}, {16, "1e300"}}))
                  .find(path),
              std::string::npos);
}

// Whatever the points are, each kind makes its own number of calls.
TEST(DegenerateDimensions, OfAnyPointsMakeTheirCalls)
{
    static const Text kValues[] = {"0",     "-1",     "1",      "1e400", "-1e400",
                                   "1e200", "-1e308", "1e-320", "x",     "2.5"};
    struct Kind {
        const char* marker;
        std::vector<Text> codes;
        std::size_t calls;
    };
    const Kind kinds[] = {{"AcDbAlignedDimension", {"13", "23", "14", "24", "50"}, 4 + 2 + 2 + 6 + 5},
                          {"AcDbRadialDimension", {"15", "25"}, 4 + 4 + 5},
                          {"AcDbDiametricDimension", {"15", "25"}, 4 + 6 + 5},
                          {"AcDb2LineAngularDimension",
                           {"13", "23", "14", "24", "15", "25", "16", "26"},
                           4 + 2 + 3 + 3 + 2 + 3 + 3 + 3 + 5}};
    std::minstd_rand random(1);
    const auto any = [&] { return kValues[random() % std::size(kValues)]; };
    for (int i = 0; i < 2000; ++i) {
        for (const Kind& kind : kinds) {
            std::string parts = Part("AcDbDimension", {{10, any()}, {20, any()}, {11, any()}, {21, any()}});
            parts += Part(kind.marker);
            for (const Text code : kind.codes)
                parts += Dxf({{code, any()}});
            EXPECT_EQ(CallsOf(DimensionDrawing(parts)), kind.calls) << parts;
            const bool isAligned = &kind == &kinds[0];
            const std::string rotated = isAligned ? parts + Part("AcDbRotatedDimension") : parts;
            EXPECT_EQ(CallsOf(DimensionDrawing(rotated)), kind.calls) << rotated;
        }
    }
}

TEST(ManyDimensionParts, MillionAreReadAndDrawn)
{
    const std::size_t million = 1'000'000;
    std::string markers;
    for (const Text marker : kPartMarkers)
        if (marker != "AcDbDimension" && marker != "AcDbAlignedDimension")
            markers += Part(marker);
    const std::string parts =
        Repeated(markers, million / 7) + Part("AcDbDimension") + Part("AcDbAlignedDimension");
    const OneDimension reader(parts);
    EXPECT_EQ(reader.Record().m_parts.size(), million / 7 * 7 + 2);
    EXPECT_EQ(reader.errors, std::vector<std::string>());
    EXPECT_EQ(CallsOf(DimensionDrawing(parts)), 19u);
}

TEST(ManyDimensionParts, MillionThatAreDuplicatedAreReportedEach)
{
    const std::size_t million = 1'000'000;
    EXPECT_EQ(CallsOf(DimensionDrawing(Repeated(Part("AcDbDimension"), million))), million - 1);
}

// Compared by tests/robust/work_test.py.
TEST(Work, OfDimensionParts)
{
    std::string markers;
    for (const Text marker : kPartMarkers)
        markers += Part(marker);
    for (const std::size_t count : {0u, 1000u, 2000u}) {
        const std::string different = DimensionDrawing(Repeated(markers, count));
        RunCounted("dimensions/different parts", count, [&] { return CallsOf(different); });
        const std::string duplicated = DimensionDrawing(Repeated(Part("AcDbDimension"), count));
        RunCounted("dimensions/duplicated parts", count, [&] { return CallsOf(duplicated); });
    }
}

TEST(ManyDimensionParts, HundredThousandDrawnOnesAreGroupsOfTheirOwn)
{
    EXPECT_EQ(
        CallsOf(DimensionDrawing(Part("AcDbDimension") + Repeated(Part("AcDbRadialDimension"), 100'000))),
        100'000u * 13);
}

TEST(LongDimensionTexts, OverrideFullOfMarksShowsTheValueForEach)
{
    const std::string trace =
        Drawn(Part("AcDbDimension", {{1, Repeated("<>", 511)}}) + Part("AcDbRadialDimension", {{15, 2.5}}));
    EXPECT_NE(trace.find(TextTrace(Repeated("2.5", 511))), std::string::npos);
}

TEST(LongDimensionTexts, FiveHundredNestedBracesAreATextEach)
{
    const std::string trace = Drawn(Part("AcDbDimension", {{1, Repeated("A{", 500) + "}"}}) +
                                    Part("AcDbRadialDimension", {{15, -1}}));
    EXPECT_EQ(CountOf(", \"A\", ", trace), 500u);
    EXPECT_EQ(CountOf(", \"}\", ", trace), 1u);
    EXPECT_EQ(CountOf("qlmCreateText", trace), 501u);
}

TEST(LongDimensionTexts, OfNothingButOneCharacterAreDrawnOrNot)
{
    const auto shown = [](const std::string& text) {
        return Drawn(Part("AcDbDimension", {{1, text}}) + Part("AcDbRadialDimension", {{15, -1}}));
    };
    for (const Text text : {"{", "}", "<", ">", "/", "^"}) {
        const std::string trace = shown(Repeated(text, 1023));
        EXPECT_NE(trace.find(TextTrace(Repeated(text, 1023))), std::string::npos) << text;
        EXPECT_EQ(CountOf("qlmCreateText", trace), 1u) << text;
    }
    for (const Text text : {";", "\\", "\\A;", "\\H", "\\S/"})
        EXPECT_EQ(CountOf("qlmCreateText", shown(Repeated(text, 1023 / text.size()))), 0u) << text;
    EXPECT_EQ(CountOf("qlmCreateText", shown(Repeated("1;", 511))), 511u);
    EXPECT_EQ(CountOf("qlmCreateText", shown(Repeated("\\S1/2;", 170))), 340u);
}

TEST(LongDimensionTexts, LongestUnknownMarkerIsWholeInItsMessage)
{
    const std::string marker = Repeated("m", 1023);
    const OneDimension reader(Part(marker));
    ASSERT_FALSE(reader.errors.empty());
    EXPECT_EQ(reader.errors[0],
              "0 8 ReadENTITIES_DIMENSION_SWITCH() Unknown Dimension type '" + marker + "', Line:8");
}

TEST(CutDimensions, EveryPrefixOfADrawingIsReadAndDrawn)
{
    const std::string drawing = DimensionDrawing(
        Dxf({{5, "2A"}, {8, "0"}}) + Part("AcDbEntity", {{8, "0"}}) +
        Part("AcDbDimension", {{10, 1}, {20, 2}, {11, 3}, {70, 32}, {1, "<>\\S1^2;"}}) +
        Part("AcDbAlignedDimension", {{13, 4}, {50, 90}}) +
        Part("AcDbRotatedDimension",
             {{1001, "ACAD"}, {1000, "DSTYLE"}, {1002, "{"}, {1070, 3}, {1002, "}"}}) +
        Dxf({{0, "DIMENSION"}}) + Part("AcDbEntity") + Part("AcDbDimension") +
        Part("AcDb2LineAngularDimension", {{13, 1}, {26, 2}, {1000, "DSTYLE"}, {1002, "{"}, {1002, "}"}}));
    for (std::size_t size = 0; size <= drawing.size(); ++size) {
        const std::string trace = TraceOf(drawing.substr(0, size));
        EXPECT_LE(CountOf("qlmCreateG(", trace), 2u) << size;
        EXPECT_EQ(CountOf("qlmCreateG(", trace), CountOf("qlmGetCurrentSvgNode(", trace)) << size;
        EXPECT_LE(CountOf("qlmSetLastError(", trace), 3u) << trace;
    }
    EXPECT_EQ(CountOf("qlmCreateG(", TraceOf(drawing)), 2u);
    EXPECT_EQ(CountOf("qlmSetLastError(", TraceOf(drawing)), 0u);
}
