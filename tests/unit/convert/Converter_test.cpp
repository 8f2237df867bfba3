#include "entities/DXF_GRAPHIC_DIMENSION.h"
#include "entities/DXF_GRAPHIC_GEOMETRY.h"
#include "entities/DXF_GRAPHIC_INSERT.h"
#include "entities/DXF_GRAPHIC_TEXT.h"
#include "entry/dxfFileOpen.h"
#include "support/Dimensions.h"
#include "support/Import.h"
#include "support/TraceLines.h"

#include <gtest/gtest.h>

namespace {

// A block, and one entity of each kind that the gate stops, with further entities.
std::string GatedDrawing(const std::string& more = "")
{
    return Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "C"}, {0, "LINE"}, {11, 1}, {0, "ENDBLK"}})) +
           Section("ENTITIES", Dxf({{0, "LINE"}, {11, 1}, {0, "ARC"}, {40, 1}, {0, "CIRCLE"}, {40, 1}}) +
                                   Dxf({{0, "ELLIPSE"}, {11, 1}, {0, "TEXT"}, {1, "A"}}) +
                                   Dxf({{0, "MTEXT"}, {1, "B"}, {0, "INSERT"}, {2, "C"}, {0, "DIMENSION"}}) +
                                   Part("AcDbDimension") + Part("AcDbAlignedDimension", {{13, 1}}) +
                                   Dxf({{0, "DIMENSION"}}) + Part("AcDbDimension") +
                                   Part("AcDbRadialDimension", {{15, 1}}) + more) +
           Dxf({{0, "EOF"}});
}

// The names of the calls in a trace but for attributes, one line each.
std::string CallsIn(std::string_view trace)
{
    std::string calls;
    const std::string rest = Without("qlmSetAttributeByNode", trace);
    for (std::size_t at = 0; at < rest.size(); at = rest.find('\n', at) + 1)
        calls += rest.substr(at, rest.find('(', at) - at) + "\n";
    return calls;
}

} // namespace

TEST(Converter, HasTheValuesOfAnImportByDefault)
{
    const CDxfReadToQuillmar converter(RecordingHost::Context());
    EXPECT_EQ(converter.parentNode, RecordingHost::Context());
    EXPECT_TRUE(converter.drawEnabled);
    EXPECT_EQ(converter.scale, 1.0);
    EXPECT_EQ(converter.defaultLineWidth, 0.5);
    EXPECT_EQ(converter.yAxisMode, 2);
    EXPECT_EQ(converter.lineCount, 0);
}

TEST(Converter, DrawsEveryKindWhileItMay)
{
    const std::string calls = CallsIn(TraceOf(GatedDrawing()));
    EXPECT_EQ(
        calls.substr(0, calls.find("qlmGet")),
        "qlmSetCurrentSvgNode\nqlmCreateSymbol\nqlmSetCurrentSvgNode\nqlmCreateLine\nqlmSetCurrentSvgNode\n"
        "qlmCreateLine\nqlmCreatePath\nqlmCreateCircle\nqlmCreateEllipse\nqlmCreateText\nqlmCreateText\n"
        "qlmCreateUse\n");
    EXPECT_NE(calls.find("qlmCreateG\n"), std::string::npos) << "dimensions are drawn as groups";
}

TEST(Converter, CallsNothingButForPolylinesWhileDrawingIsOff)
{
    const auto off = [](CDxfReadToQuillmar& converter) { converter.drawEnabled = false; };
    EXPECT_EQ(TraceOf(GatedDrawing(), off), "");
    EXPECT_EQ(TraceOf(GatedDrawing(Dxf({{0, "LWPOLYLINE"}, {10, 1}, {20, 2}})), off),
              "qlmCreatePolyline(ctx, \"\", \"1.000000,-2.000000\", 0, 0) = n1\n" + Style("n1"));
}

TEST(Converter, CallsNothingButForPolylinesWithoutAContextNode)
{
    const auto none = [](CDxfReadToQuillmar& converter) { converter.parentNode = nullptr; };
    EXPECT_EQ(TraceOf(GatedDrawing(), none), "");
    EXPECT_EQ(CallsIn(TraceOf(GatedDrawing(Dxf({{0, "LWPOLYLINE"}, {10, 1}, {20, 2}})), none)),
              "qlmCreatePolyline\n");
}

TEST(Converter, ReportsMistakesEvenWhileNothingMayBeDrawn)
{
    EXPECT_EQ(TraceOf(Dxf({{0, "SECTION"}, {2, "PICTURES"}, {0, "ENDSEC"}, {0, "EOF"}}),
                      [](CDxfReadToQuillmar& converter) {
                          converter.drawEnabled = false;
                          converter.parentNode = nullptr;
                      }),
              "qlmSetLastError(0, \"DXF\", 2, \"PICTURES - Unknown Section Name Line (4)\", false, 0)\n");
}

TEST(Converter, SetsAttributesOfANodeThatTheHostRefused)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "CIRCLE"},
                                       {40, 1},
                                       {60, 1},
                                       {0, "LWPOLYLINE"},
                                       {70, 1},
                                       {0, "ARC"},
                                       {40, 1},
                                       {0, "INSERT"},
                                       {2, "C"},
                                       {50, 90}}),
                      [](CDxfReadToQuillmar&) { RecordingHost::OfThread().refuseAll = true; }),
              "qlmCreateCircle(ctx, \"\", 1, 0, -0, 0, 0) = 0\n" + Attribute("0", "fill-opacity", "0") +
                  Style("0", {.hidden = true}) + "qlmCreatePolygon(ctx, \"\", \"\", 0, 0) = 0\n" +
                  Attribute("0", "fill-opacity", "0") + Style("0") +
                  "qlmCreatePath(ctx, \"\", \"M 1.000000,-0.000000 A 1.000000,1.000000, 0 0,0 "
                  "1.000000,-0.000000\", 0, 0) = 0\n" +
                  Attribute("0", "stroke-width", "1") + Style("0") +
                  "qlmCreateUse(ctx, \"\", 0, 0, \"C\", \"hmi\", 0, -0) = 0\n" +
                  Attribute("0", "rotate", "-90.000000"));
}

TEST(Converter, TurnsYOnlyInAxisMode2)
{
    for (const std::int32_t mode : {2, 1, 0, -2, 3}) {
        const std::string trace = TraceOf(EntitiesSection({{0, "LINE"},
                                                           {10, 10},
                                                           {20, 5},
                                                           {0, "CIRCLE"},
                                                           {20, 5},
                                                           {0, "LWPOLYLINE"},
                                                           {10, 0},
                                                           {20, 5},
                                                           {0, "INSERT"},
                                                           {20, 5},
                                                           {50, 30}}),
                                          [&](CDxfReadToQuillmar& converter) { converter.yAxisMode = mode; });
        const bool turned = mode == 2;
        EXPECT_NE(trace.find(turned ? "(ctx, \"\", 10, -5, 0, -0, " : "(ctx, \"\", 10, 5, 0, 0, "),
                  std::string::npos)
            << trace;
        EXPECT_NE(trace.find(turned ? "(ctx, \"\", 0, 0, -5, " : "(ctx, \"\", 0, 0, 5, "), std::string::npos);
        EXPECT_NE(trace.find(turned ? "\"0.000000,-5.000000\"" : "\"0.000000,5.000000\""), std::string::npos);
        EXPECT_NE(trace.find(turned ? "\"hmi\", 0, -5)" : "\"hmi\", 0, 5)"), std::string::npos);
        EXPECT_NE(trace.find(turned ? "\"-30.000000\"" : "\"30.000000\""), std::string::npos);
    }
}

TEST(Converter, DrawsPlainBlocksThenBlocksWithInsertsThenEntities)
{
    const std::string drawing =
        Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "CIRCLE"}, {0, "ENDSEC"}, {0, "SECTION"}, {2, "BLOCKS"},
             {0, "BLOCK"},   {2, "OUTER"},    {0, "LINE"},   {0, "INSERT"}, {2, "INNER"},   {0, "ENDBLK"},
             {0, "BLOCK"},   {2, "INNER"},    {0, "LINE"},   {0, "ENDBLK"}, {0, "BLOCK"},   {2, "OUTEST"},
             {0, "INSERT"},  {2, "OUTER"},    {0, "ENDBLK"}, {0, "BLOCK"},  {2, "EMPTY"},   {0, "ENDBLK"},
             {0, "ENDSEC"},  {0, "EOF"}});
    EXPECT_EQ(Without("qlmSetAttributeByNode", TraceOf(drawing)),
              "qlmSetCurrentSvgNode(ctx, 0)\n"
              "qlmCreateSymbol(ctx, \"INNER\") = n1\n"
              "qlmSetCurrentSvgNode(ctx, n1)\n"
              "qlmCreateLine(ctx, \"\", 0, -0, 0, -0, 0, 0) = n2\n"
              "qlmSetCurrentSvgNode(ctx, 0)\n"
              "qlmSetCurrentSvgNode(ctx, 0)\n"
              "qlmCreateSymbol(ctx, \"EMPTY\") = n3\n"
              "qlmSetCurrentSvgNode(ctx, n3)\n"
              "qlmSetCurrentSvgNode(ctx, 0)\n"
              "qlmSetCurrentSvgNode(ctx, 0)\n"
              "qlmCreateSymbol(ctx, \"OUTER\") = n4\n"
              "qlmSetCurrentSvgNode(ctx, n4)\n"
              "qlmCreateLine(ctx, \"\", 0, -0, 0, -0, 0, 0) = n5\n"
              "qlmCreateUse(ctx, \"\", 0, 0, \"INNER\", \"hmi\", 0, -0) = n6\n"
              "qlmSetCurrentSvgNode(ctx, 0)\n"
              "qlmSetCurrentSvgNode(ctx, 0)\n"
              "qlmCreateSymbol(ctx, \"OUTEST\") = n7\n"
              "qlmSetCurrentSvgNode(ctx, n7)\n"
              "qlmCreateUse(ctx, \"\", 0, 0, \"OUTER\", \"hmi\", 0, -0) = n8\n"
              "qlmSetCurrentSvgNode(ctx, 0)\n"
              "qlmCreateCircle(ctx, \"\", 0, 0, -0, 0, 0) = n9\n");
}

TEST(Converter, OfAFileOfBlocksAloneCreatesSymbolsAlone)
{
    EXPECT_EQ(
        CallsIn(
            TraceOf(Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "C"}, {0, "LINE"}, {11, 1}, {0, "ENDBLK"}})) +
                    Dxf({{0, "EOF"}}))),
        "qlmSetCurrentSvgNode\nqlmCreateSymbol\nqlmSetCurrentSvgNode\nqlmCreateLine\nqlmSetCurrentSvgNode\n");
}

TEST(Converter, HandsAMistakeToTheHostAsItIsAndItsAnswerBack)
{
    RecordingHost::OfThread().Reset();
    CDxfReadToQuillmar converter(nullptr);
    EXPECT_EQ(converter.OnError(1, 7, L"What is wrong", 0x123456789), 7)
        << "the recording host answers the kind";
    EXPECT_EQ(converter.OnError(0xFFFFFFFF, -5, L"", -1), -5);
    EXPECT_EQ(RecordingHost::OfThread().Trace(),
              "qlmSetLastError(1, \"DXF\", 7, \"What is wrong\", false, 4886718345)\n"
              "qlmSetLastError(-1, \"DXF\", -5, \"\", false, -1)\n");
}

TEST(Converter, ReportsMistakesBeforeAnythingIsDrawn)
{
    const std::string calls = CallsIn(TraceOf(EntitiesSection({{0, "LINE"}, {0, "SOLID"}, {0, "LINE"}})));
    EXPECT_EQ(calls, "qlmSetLastError\nqlmCreateLine\nqlmCreateLine\n");
}

TEST(Converter, OfAFileThatCannotBeOpenedReportsItAndDrawsNothing)
{
    RecordingHost::OfThread().Reset();
    EXPECT_TRUE(dxfFileOpen(L"no such folder/no such file.dxf", RecordingHost::Context()));
    EXPECT_TRUE(dxfFileOpen(L"", RecordingHost::Context()));
    EXPECT_EQ(RecordingHost::OfThread().Trace(),
              "qlmSetLastError(0, \"DXF\", 1, \"Failed to load DXF file.\", false, 0)\n"
              "qlmSetLastError(0, \"DXF\", 1, \"Failed to load DXF file.\", false, 0)\n");
}
