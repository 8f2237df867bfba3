// Dimensions whose numbers lie on the edge: tiny lines, directions next to zero, sums that overflow, and what
// is narrowed to a float and what is not.
#include "dimension/CDxfDimensionDrawing.h"
#include "input/CDxfMemory.h"
#include "support/DimensionTrace.h"
#include "support/Dimensions.h"

#include <gtest/gtest.h>

namespace {

// Drawn with Y upwards.
std::string Drawn(const std::string& parts)
{
    return TraceOf(DimensionDrawing(parts), [](CDxfReadToQuillmar& converter) { converter.yAxisMode = 1; });
}

struct TextPoint {
    std::string_view x;
    std::string_view y;
};

// Two lines, from a1 to a2 and from d to b, the arc's own point a3; the text is at (14, 22).
std::string Angular(TextPoint a1, TextPoint a2, TextPoint d, TextPoint b, TextPoint a3)
{
    return Part("AcDbDimension", {{10, d.x}, {20, d.y}, {11, 14}, {21, 22}}) +
           Part("AcDb2LineAngularDimension", {{13, a1.x},
                                              {23, a1.y},
                                              {14, a2.x},
                                              {24, a2.y},
                                              {15, b.x},
                                              {25, b.y},
                                              {16, a3.x},
                                              {26, a3.y}});
}

constexpr TextPoint kBelowTheAxis = {"17", "19.999999999"};

// A chord whose two points are the same.
std::string Chord(std::string_view marker, std::string_view x, std::string_view y)
{
    return Part("AcDbDimension", {{10, x}, {20, y}, {11, 5}, {21, 6}}) + Part(marker, {{15, x}, {25, y}});
}

struct Layout {
    float x = 10.0f;
    float y = 20.0f;
    float angle = 0.0f;
    double scale = 1.0;
};

// For each text that is drawn its characters, place and size.
std::string LaidOut(std::wstring_view text, const Layout& at)
{
    RecordingHost::OfThread().Reset();
    CDxfRead reader;
    CDxfDimensionDrawing(reader, RecordingHost::Context(), at.scale, 1)
        .LayoutDimensionText(std::wstring(text), at.x, at.y, at.angle);
    const std::string trace = RecordingHost::OfThread().Trace();
    const std::string create = "qlmCreateText(ctx, \"\", 0, 0, 0, 0, ", size = "\"font-size\", \"";
    std::string drawn;
    for (std::size_t call = trace.find(create); call != std::string::npos;
         call = trace.find(create, call + 1)) {
        const std::size_t begin = call + create.size();
        const std::size_t number = trace.find(size, begin) + size.size();
        drawn += trace.substr(begin, trace.find(") = ", begin) - begin) + " of " +
                 trace.substr(number, trace.find('"', number) - number) + "\n";
    }
    return drawn;
}

} // namespace

// The cross product of two lines of 1e-7 at a right angle is 1e-14, which is not 0: they meet.
TEST(DimensionEdges, TinyLinesAtARightAngleMeetWhereTheyCross)
{
    const std::string trace = Drawn(Angular({"11.99999995", "20"}, {"12.00000005", "20"},
                                            {"12", "19.99999995"}, {"12", "20.00000005"}, {"17", "24"}));
    EXPECT_NE(trace.find("qlmCreateCircle(ctx, \"\", 0.5, 12, 20, 0, 0)"), std::string::npos) << trace;
    EXPECT_EQ(trace.find("qlmCreateCircle(ctx, \"\", 0.5, 0, 0, 0, 0)"), std::string::npos) << trace;
}

// The bounds are 0, 90, 180 and 270: a direction a hair below 0 is nearly 360 and above them all.
TEST(DimensionEdges, ArcPointAHairBelowTheAxisIsAboveTheLargestBound)
{
    EXPECT_EQ(Drawn(Angular({"10", "20"}, {"20", "20"}, {"12", "10"}, {"12", "25"}, kBelowTheAxis)),
              DimensionTrace()
                  .Begin()
                  .Path("M 0.000000,0.000000 A 5.000000,5.000000, 0 0,0 0.000000,0.000000")
                  .ColoredLine("10, 20, 20, 20", "#ff0000")
                  .ColoredLine("12, 10, 12, 25", "#00ff00")
                  .Circle("12, 20")
                  .Circle("0, 0", "#ff0000")
                  .Circle("0, 0", "#00ff00")
                  .Circle("17, 20", "#0000ff")
                  .Text("0.00", "14, 24", "-225")
                  .End());
}

// The farther point of the first line lies at 180 degrees, so its opposite is 360, and the same direction is
// in the last sector.
TEST(DimensionEdges, ArcPointAHairBelowTheAxisIsBelowABoundOf360)
{
    EXPECT_EQ(Drawn(Angular({"0", "20"}, {"13", "20"}, {"12", "10"}, {"12", "25"}, kBelowTheAxis)),
              DimensionTrace()
                  .Begin()
                  .Path("M 12.000000,15.000000 A 5.000000,5.000000, 0 0,0 17.000000,20.000000")
                  .ColoredLine("0, 20, 13, 20", "#ff0000")
                  .ColoredLine("12, 10, 12, 25", "#00ff00")
                  .Circle("12, 20")
                  .Circle("12, 15", "#ff0000")
                  .Circle("17, 20", "#00ff00")
                  .Circle("17, 20", "#0000ff")
                  .Text("90.00", "14, 24", "-225")
                  .End());
}

// The midpoint of two points of 1e308 is beyond the largest number, and the value is measured to it.
TEST(DimensionEdges, MidpointThatOverflowsMakesTheValueInfinite)
{
    EXPECT_EQ(Drawn(Chord("AcDbRadialDimension", "1e308", "1e308")),
              DimensionTrace().Begin().EndArrowLine("inf, inf, inf, inf").Text("inf", "5, 8", "0").End());
    EXPECT_EQ(Drawn(Chord("AcDbDiametricDimension", "1e308", "1e308")),
              DimensionTrace().Begin().ArrowsLine("inf, inf, inf, inf").Text("inf", "5, 8", "0").End());
}

// Twice 0.8 is added below -16777216, where floats are 2 apart: each sum alone goes back to it, both
// together would not.
TEST(DimensionEdges, NestedTextNarrowsItsYEachTime)
{
    EXPECT_EQ(LaidOut(L"A{B{C}", {.y = -16777216.0f, .angle = 90.0f}), "\"A\", 10, -16777216 of 2.00\n"
                                                                       "\"B\", 10, -16777216 of 2.00\n"
                                                                       "\"C}\", 10, -16777216 of 2.00\n");
    EXPECT_EQ(LaidOut(L"A{B{C}", {.y = 16777216.0f, .angle = 90.0f}), "\"A\", 10, 16777216 of 2.00\n"
                                                                      "\"B\", 10, 16777215 of 2.00\n"
                                                                      "\"C}\", 10, 16777214 of 2.00\n");
    EXPECT_EQ(LaidOut(L"AA{B}", {.y = -16777216.0f, .angle = 90.0f}), "\"AA\", 10, -16777216 of 2.00\n"
                                                                      "\"B}\", 10, -16777218 of 2.00\n");
}

// As floats these sizes would have no fraction.
TEST(DimensionEdges, FontSizesAreNotNarrowed)
{
    constexpr Layout kLarge = {.scale = 8388608.01};
    EXPECT_EQ(LaidOut(L"1", kLarge), "\"1\", 10, 20 of 16777216.02\n");
    EXPECT_EQ(LaidOut(L"A{", kLarge), "\"A\", 10, 20 of 16777216.02\n");
    EXPECT_EQ(LaidOut(L"\\H4;\\S1/", kLarge), "\"1\", 10, 20 of 16777216.02\n");
    EXPECT_EQ(LaidOut(L"\\S1/", {.scale = 16777216.02}), "\"1\", 10, 20 of 16777216.02\n");
}

// The first "1002", the "{" and the line after a closing "1002" are each read, and counted, whether or not
// the file still has a line. A list that the file ends has no closing "1002", so no line is read after it.
TEST(DimensionEdges, LinesOfAStyleListAreCountedAfterTheEndOfTheFile)
{
    struct Ending {
        const char* lines;
        std::int32_t count;
        std::size_t messages;
    };
    constexpr Ending kEndings[] = {
        {"1000\nDSTYLE", 4, 1},
        {"1000\nDSTYLE\n", 4, 1},
        {"1000\nDSTYLE\nx", 4, 1},
        {"1000\nDSTYLE\nx\n", 4, 1},
        {"1000\nDSTYLE\n1002", 4, 0},
        {"1000\nDSTYLE\n1002\n", 4, 0},
        {"1000\nDSTYLE\n1002\n{", 4, 0},
        {"1000\nDSTYLE\n1002\n{\n", 5, 0},
        {"1000\nDSTYLE\n1002\n{\n1070\n371", 6, 0},
        {"1000\nDSTYLE\n1002\n{\n1070\n371\n1002", 8, 0},
        {"1000\nDSTYLE\n1002\n{\n1070\n371\n1002\n", 8, 0},
        {"1000\nDSTYLE\n1002\n{\n1070\n371\n1002\n}", 8, 0},
        {"1000\nDSTYLE\n1002\n{\n1070\n371\n1002\n}\n0\n", 9, 0},
    };
    for (const std::string_view marker : {"AcDbRotatedDimension", "AcDb2LineAngularDimension"})
        for (const Ending& ending : kEndings) {
            CDxfMemory memory(ending.lines);
            CDxfStream stream(memory);
            ReportingReader reader;
            DXF_GRAPHIC_DIMENSION dimension;
            const bool metZero = std::string_view(ending.lines).ends_with("\n0\n");
            EXPECT_EQ(reader.ReadENTITIES_DIMENSION_SWITCH(stream, dimension, marker), metZero);
            EXPECT_EQ(reader.lineCount, ending.count) << marker << " " << ending.lines;
            EXPECT_EQ(reader.errors.size(), ending.messages) << marker << " " << ending.lines;
        }
}
