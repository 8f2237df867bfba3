#include "entities/DXF_GRAPHIC_DIMENSION.h"
#include "entities/DXF_GRAPHIC_GEOMETRY.h"
#include "entities/DXF_GRAPHIC_INSERT.h"
#include "entities/DXF_GRAPHIC_TEXT.h"
#include "entry/dxfFileOpen.h"
#include "support/Import.h"
#include "support/TraceLines.h"

#include <gtest/gtest.h>

namespace {

// One entity of each kind that the gate stops.
const char* const kGatedEntities = "0\nLINE\n11\n1\n0\nARC\n40\n1\n0\nCIRCLE\n40\n1\n0\nELLIPSE\n11\n1\n"
                                   "0\nTEXT\n1\nA\n0\nMTEXT\n1\nB\n0\nINSERT\n2\nC\n"
                                   "0\nDIMENSION\n100\nAcDbDimension\n100\nAcDbAlignedDimension\n13\n1\n"
                                   "0\nDIMENSION\n100\nAcDbDimension\n100\nAcDbRadialDimension\n15\n1\n";

const std::string kBlock = "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nC\n0\nLINE\n11\n1\n0\nENDBLK\n0\nENDSEC\n";

const std::string kPolyline = "0\nLWPOLYLINE\n10\n1\n20\n2\n";

std::string DrawingOf(const std::string& entities)
{
    return kBlock + Lines({"0", "SECTION", "2", "ENTITIES"}) + entities + Lines({"0", "ENDSEC", "0", "EOF"});
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
    const std::string calls = CallsIn(TraceOf(DrawingOf(kGatedEntities)));
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
    EXPECT_EQ(TraceOf(DrawingOf(kGatedEntities), off), "");
    EXPECT_EQ(TraceOf(DrawingOf(kGatedEntities + kPolyline), off),
              "qlmCreatePolyline(ctx, \"\", \"1.000000,-2.000000\", 0, 0) = n1\n" + Style("n1"));
}

TEST(Converter, CallsNothingButForPolylinesWithoutAContextNode)
{
    const auto none = [](CDxfReadToQuillmar& converter) { converter.parentNode = nullptr; };
    EXPECT_EQ(TraceOf(DrawingOf(kGatedEntities), none), "");
    EXPECT_EQ(CallsIn(TraceOf(DrawingOf(kGatedEntities + kPolyline), none)), "qlmCreatePolyline\n");
}

TEST(Converter, ReportsMistakesEvenWhileNothingMayBeDrawn)
{
    EXPECT_EQ(TraceOf("0\nSECTION\n2\nPICTURES\n0\nENDSEC\n0\nEOF\n",
                      [](CDxfReadToQuillmar& converter) {
                          converter.drawEnabled = false;
                          converter.parentNode = nullptr;
                      }),
              "qlmSetLastError(0, \"DXF\", 2, \"PICTURES - Unknown Section Name Line (4)\", false, 0)\n");
}

TEST(Converter, SetsAttributesOfANodeThatTheHostRefused)
{
    EXPECT_EQ(
        TraceOf(EntitiesSection({"0", "CIRCLE", "40", "1", "60", "1",      "0", "LWPOLYLINE", "70", "1",
                                 "0", "ARC",    "40", "1", "0",  "INSERT", "2", "C",          "50", "90"}),
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
        const std::string trace =
            TraceOf(EntitiesSection({"0",  "LINE",   "10", "10",         "20", "5", "0",  "CIRCLE",
                                     "20", "5",      "0",  "LWPOLYLINE", "10", "0", "20", "5",
                                     "0",  "INSERT", "20", "5",          "50", "30"}),
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
    const std::string drawing = "0\nSECTION\n2\nENTITIES\n0\nCIRCLE\n0\nENDSEC\n"
                                "0\nSECTION\n2\nBLOCKS\n"
                                "0\nBLOCK\n2\nOUTER\n0\nLINE\n0\nINSERT\n2\nINNER\n0\nENDBLK\n"
                                "0\nBLOCK\n2\nINNER\n0\nLINE\n0\nENDBLK\n"
                                "0\nBLOCK\n2\nOUTEST\n0\nINSERT\n2\nOUTER\n0\nENDBLK\n"
                                "0\nBLOCK\n2\nEMPTY\n0\nENDBLK\n0\nENDSEC\n0\nEOF\n";
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
        CallsIn(TraceOf(kBlock + "0\nEOF\n")),
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
    const std::string calls = CallsIn(TraceOf(EntitiesSection({"0", "LINE", "0", "SOLID", "0", "LINE"})));
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
