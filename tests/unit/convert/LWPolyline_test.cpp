#include "input/CDxfMemory.h"
#include "support/FailingMemory.h"
#include "support/Import.h"
#include "support/TraceLines.h"

#include <gtest/gtest.h>

namespace {

// The three vertices (0, 0), (10, 0), (10, 5) with the given pairs before them.
std::string Corner(std::initializer_list<Group> pairs)
{
    return Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "LWPOLYLINE"}}) + Dxf(pairs) +
           Dxf({{10, 0}, {20, 0}, {10, 10}, {20, 0}, {10, 10}, {20, 5}, {0, "ENDSEC"}, {0, "EOF"}});
}

const std::string kCorner = "0.000000,-0.000000 10.000000,-0.000000 10.000000,-5.000000";

std::string Polyline(std::string_view points)
{
    return "qlmCreatePolyline(ctx, \"\", \"" + std::string(points) + "\", 0, 0) = n1\n";
}

std::string Polygon(std::string_view points)
{
    return "qlmCreatePolygon(ctx, \"\", \"" + std::string(points) + "\", 0, 0) = n1\n" +
           Attribute("n1", "fill-opacity", "0");
}

} // namespace

TEST(LWPolyline, WithoutFlagsIsAPolylineWithoutFill)
{
    EXPECT_EQ(TraceOf(Corner({{90, 3}, {70, 0}})), Polyline(kCorner) + Style("n1"));
    EXPECT_EQ(TraceOf(Corner({})), Polyline(kCorner) + Style("n1"));
}

TEST(LWPolyline, WithAnyFlagIsAPolygonWithoutFilling)
{
    for (const char* flags : {"1", "128", "129", "2", "-1"})
        EXPECT_EQ(TraceOf(Corner({{70, flags}})), Polygon(kCorner) + Style("n1")) << flags;
}

TEST(LWPolyline, KeepsYWhenTheAxisModeIsNot2)
{
    EXPECT_EQ(TraceOf(Corner({}), [](CDxfReadToQuillmar& converter) { converter.yAxisMode = 0; }),
              Polyline("0.000000,0.000000 10.000000,0.000000 10.000000,5.000000") + Style("n1"));
}

TEST(LWPolyline, ScalesItsVerticesAndItsWidth)
{
    EXPECT_EQ(TraceOf(Corner({{370, 25}}), [](CDxfReadToQuillmar& converter) { converter.scale = 0.1; }),
              Polyline("0.000000,-0.000000 1.000000,-0.000000 1.000000,-0.500000") +
                  Style("n1", {.width = "0.025000"}));
}

// Vertices go into a text: they keep double precision and are not narrowed.
TEST(LWPolyline, KeepsDoublePrecision)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "LWPOLYLINE"}, {10, 123456789.123456}, {20, 0.1234565}})),
              Polyline("123456789.123456,-0.123456") + Style("n1"));
}

TEST(LWPolyline, WithoutVerticesIsCreatedWithNoPoints)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "LWPOLYLINE"}, {90, 4}})), Polyline("") + Style("n1"));
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "LWPOLYLINE"}, {70, 1}})), Polygon("") + Style("n1"));
}

TEST(LWPolyline, HasAsManyPointsAsItsListWhateverTheCountSays)
{
    EXPECT_EQ(TraceOf(Corner({{90, 5}})), Polyline(kCorner) + Style("n1"));
    EXPECT_EQ(TraceOf(Corner({{90, -1}})), Polyline(kCorner) + Style("n1"));
}

TEST(LWPolyline, IsStraightAndThinWhateverItsBulgesWidthsAndExtrusionAre)
{
    EXPECT_EQ(
        TraceOf(Corner(
            {{42, "1.0"}, {40, 2}, {41, 3}, {43, 0.5}, {38, 7}, {39, 1}, {210, 0}, {220, 0}, {230, -1}})),
        Polyline(kCorner) + Style("n1"));
}

TEST(LWPolyline, IsDrawnWhileDrawingIsOffAndWithoutAContextNode)
{
    EXPECT_EQ(TraceOf(Corner({}), [](CDxfReadToQuillmar& converter) { converter.drawEnabled = false; }),
              Polyline(kCorner) + Style("n1"));
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "LWPOLYLINE"}, {70, 1}, {60, 1}}),
                      [](CDxfReadToQuillmar& converter) { converter.parentNode = nullptr; }),
              "qlmCreatePolygon(0, \"\", \"\", 0, 0) = n1\n"
              "qlmSetAttributeByNode(0, n1, \"fill-opacity\", \"0\")\n"
              "qlmSetAttributeByNode(0, n1, \"stroke-width\", \"0.500000\")\n"
              "qlmSetAttributeByNode(0, n1, \"stroke\", \"RGB(255,255,255)\")\n"
              "qlmSetAttributeByNode(0, n1, \"stroke-dasharray\", \"\")\n"
              "qlmSetAttributeByNode(0, n1, \"visibility\", \"hidden\")\n");
}

TEST(LWPolyline, PrintsInfiniteVerticesAsTheyAre)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "LWPOLYLINE"}, {10, "1e400"}, {20, "1e400"}})),
              Polyline("inf,-inf") + Style("n1"));
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "LWPOLYLINE"}, {10, "1e400"}, {20, 1}}),
                      [](CDxfReadToQuillmar& converter) { converter.scale = 0; }),
              Polyline("nan,-0.000000") + Style("n1", {.width = "0.000000"}));
}

TEST(LWPolyline, WritesTheLargestNumbersInFull)
{
    const std::string largest =
        "179769313486231570814527423731704356798070567525844996598917476803157260780028538760589558"
        "632766878171540458953514382464234321326889464182768467546703537516986049910576551282076245"
        "490090389328944075868508455133942304583236903222948165808559332123348274797826204144723168"
        "738177180919299881250404026184124858368"
        ".000000";
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "LWPOLYLINE"},
                                       {10, "-1.7976931348623157e308"},
                                       {20, "1.7976931348623157e308"},
                                       {10, 1},
                                       {20, 2}})),
              Polyline("-" + largest + ",-" + largest + " 1.000000,-2.000000") + Style("n1"));
}

TEST(LWPolyline, AfterAnotherStartsWithNoPoints)
{
    EXPECT_EQ(
        TraceOf(EntitiesSection(
            {{0, "LWPOLYLINE"}, {10, 1}, {20, 2}, {10, 3}, {20, 4}, {0, "LWPOLYLINE"}, {10, 5}, {20, 6}})),
        Polyline("1.000000,-2.000000 3.000000,-4.000000") + Style("n1") +
            "qlmCreatePolyline(ctx, \"\", \"5.000000,-6.000000\", 0, 0) = n2\n" + Style("n2"));
}

// The room for the text is made again when the second one does not fit into what the first one left.
TEST(LWPolyline, OfManyVerticesHasThemAllInOrder)
{
    std::string file = Dxf({{0, "SECTION"}, {2, "ENTITIES"}});
    std::string trace;
    int node = 0;
    for (const int vertices : {2, 50, 5000}) {
        std::string points;
        file += Dxf({{0, "LWPOLYLINE"}});
        for (int i = 0; i < vertices; ++i) {
            file += Dxf({{10, i}, {20, -(i + 1)}});
            points +=
                (i == 0 ? "" : " ") + std::to_string(i) + ".000000," + std::to_string(i + 1) + ".000000";
        }
        const std::string name = "n" + std::to_string(++node);
        trace += "qlmCreatePolyline(ctx, \"\", \"" + points + "\", 0, 0) = " + name + "\n" + Style(name);
    }
    EXPECT_EQ(TraceOf(file + Dxf({{0, "ENDSEC"}, {0, "EOF"}})), trace);
}

// Its room is made once: a text that grows is there twice while it moves.
TEST(LWPolyline, TextOfFarPointsTakesTheRoomOfOne)
{
    constexpr std::size_t kPoints = 8'000;
    std::string points;
    for (std::size_t i = 0; i < kPoints; ++i)
        points += Dxf({{10, "1e308"}, {20, "-1e308"}});
    const std::string drawing =
        Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "LWPOLYLINE"}}) + points + Dxf({{0, "ENDSEC"}, {0, "EOF"}});
    RecordingHost& host = RecordingHost::OfThread();
    host.Reset();
    host.countOnly = true;
    FailingMemory memory(0);
    {
        CDxfReadToQuillmar converter(RecordingHost::Context());
        CDxfMemory source(drawing);
        converter.ReadDxfSource(source);
    }
    const std::size_t textBytes =
        2 * kPoints * (309 + sizeof(".000000")) * sizeof(wchar_t); // and blanks, commas
    EXPECT_GT(memory.MostBytes(), textBytes);
    EXPECT_LT(memory.MostBytes(), textBytes + (std::size_t{4} << 20));
}
