// Every operation of the host, each reached by a drawing that is no longer than it must be; whole traces.
#include "support/DimensionTrace.h"
#include "support/Dimensions.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

namespace {

struct Case {
    const char* operation;
    std::string drawing;
    std::string trace;
};

const Case kCases[] = {
    {"qlmCreateLine", EntitiesSection({{0, "LINE"}, {10, 1}, {20, 2}, {11, 3}, {21, 4}}),
     "qlmCreateLine(ctx, \"\", 1, -2, 3, -4, 0, 0) = n1\n" + Style("n1")},
    {"qlmCreatePath", EntitiesSection({{0, "ARC"}, {40, 10}, {51, 90}}),
     "qlmCreatePath(ctx, \"\", \"M 10.000000,-0.000000 A 10.000000,10.000000, 0 0,0 0.000000,-10.000000\", "
     "0, 0) = n1\n" +
         Attribute("n1", "stroke-width", "1") + Style("n1")},
    {"qlmCreateCircle", EntitiesSection({{0, "CIRCLE"}, {10, 1}, {20, 2}, {40, 3}}),
     "qlmCreateCircle(ctx, \"\", 3, 1, -2, 0, 0) = n1\n" + Attribute("n1", "fill-opacity", "0") +
         Style("n1")},
    {"qlmCreateEllipse",
     EntitiesSection({{0, "ELLIPSE"}, {10, 1}, {20, 2}, {11, 4}, {40, 0.5}, {42, "6.283185307179586"}}),
     "qlmCreateEllipse(ctx, \"\", 4, 2, 1, -2, 0, 0) = n1\n" + Attribute("n1", "fill-opacity", "0") +
         Attribute("n1", "center-x", "1.000000") + Attribute("n1", "center-y", "-2.000000") +
         Attribute("n1", "rotate", "-0.000000") + Style("n1")},
    {"qlmCreatePolyline", EntitiesSection({{0, "LWPOLYLINE"}, {10, 1}, {20, 2}}),
     "qlmCreatePolyline(ctx, \"\", \"1.000000,-2.000000\", 0, 0) = n1\n" + Style("n1")},
    {"qlmCreatePolygon", EntitiesSection({{0, "LWPOLYLINE"}, {70, 1}, {10, 1}, {20, 2}}),
     "qlmCreatePolygon(ctx, \"\", \"1.000000,-2.000000\", 0, 0) = n1\n" +
         Attribute("n1", "fill-opacity", "0") + Style("n1")},
    {"qlmCreateText", EntitiesSection({{0, "TEXT"}, {10, 10}, {20, 20}, {40, 2.5}, {1, "Door"}}),
     "qlmCreateText(ctx, \"\", 10, -17.5, 0, 0, \"Door\", 0, 0) = n1\n" +
         Attribute("n1", "font-size", "2.50") + Attribute("n1", "stroke", "RGB(255,255,255)")},
    {"qlmCreateUse", EntitiesSection({{0, "INSERT"}, {2, "Door"}, {10, 1}, {20, 2}}),
     "qlmCreateUse(ctx, \"\", 0, 0, \"Door\", \"hmi\", 1, -2) = n1\n"},
    {"qlmCreateSymbol", Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "Door"}, {0, "ENDBLK"}})),
     "qlmSetCurrentSvgNode(ctx, 0)\n"
     "qlmCreateSymbol(ctx, \"Door\") = n1\n"
     "qlmSetCurrentSvgNode(ctx, n1)\n"
     "qlmSetCurrentSvgNode(ctx, 0)\n"},
    {"qlmCreateG", DimensionDrawing(Part("AcDbDimension", {{1, ";"}}) + Part("AcDbRadialDimension")),
     "qlmGetCurrentSvgNode(ctx) = 0\n"
     "qlmCreateG(ctx, \"\") = n1\n"
     "qlmSetCurrentSvgNode(ctx, n1)\n"
     "qlmCreateLine(ctx, \"\", 0, -0, 0, -0, 0, 0) = n2\n" +
         Attribute("n2", "stroke-width", "0.150000") + Attribute("n2", "pg-end-arrow-type", "stealth arrow") +
         Attribute("n2", "pg-end-arrow-size", "1") + "qlmSetCurrentSvgNode(ctx, 0)\n"},
    {"qlmGetCurrentSvgNode", DimensionDrawing(Part("AcDbDimension") + Part("AcDbDiametricDimension")),
     DimensionTrace().Begin().ArrowsLine("0, -0, 0, -0").Text("0", "0, 2", "0").End()},
    {"qlmSetCurrentSvgNode", Section("BLOCKS", Dxf({{0, "BLOCK"}, {0, "ENDBLK"}})),
     "qlmSetCurrentSvgNode(ctx, 0)\n"
     "qlmCreateSymbol(ctx, \"\") = n1\n"
     "qlmSetCurrentSvgNode(ctx, n1)\n"
     "qlmSetCurrentSvgNode(ctx, 0)\n"},
    {"qlmSetAttributeByNode", EntitiesSection({{0, "LINE"}, {60, 1}}),
     "qlmCreateLine(ctx, \"\", 0, -0, 0, -0, 0, 0) = n1\n" + Style("n1", {.hidden = true})},
    {"qlmSetLastError", Section("WALLS", ""),
     "qlmSetLastError(0, \"DXF\", 2, \"WALLS - Unknown Section Name Line (4)\", false, 0)\n"},
};

// The words after each place where a text has the prefix, up to one of the ends.
std::set<std::string> WordsAfter(std::string_view prefix, const char* ends, std::string_view text)
{
    std::set<std::string> words;
    for (std::size_t at = 0; (at = text.find(prefix, at)) != std::string_view::npos;) {
        at += prefix.size();
        words.emplace(text.substr(at, text.find_first_of(ends, at) - at));
    }
    return words;
}

// The operations that the host's header declares, without their "qlm".
std::set<std::string> DeclaredOperations()
{
    std::ifstream file(std::filesystem::path(PLEXORN_TEST_DATA) / ".." / "src" / "host" / "QuillmarLib.h");
    std::string declarations;
    for (std::string line; std::getline(file, line);)
        if (line.rfind("QUILLMARLIB_API ", 0) == 0)
            declarations += line;
    return WordsAfter(" qlm", "(", declarations);
}

} // namespace

TEST(EveryOperation, ComesFromItsDrawing)
{
    for (const Case& of : kCases) {
        EXPECT_EQ(TraceOf(of.drawing), of.trace) << of.operation;
        EXPECT_NE(of.trace.find(std::string(of.operation) + "("), std::string::npos) << of.operation;
    }
}

TEST(EveryOperation, OfTheHeaderIsInTheTable)
{
    std::set<std::string> listed;
    for (const Case& of : kCases)
        listed.insert(of.operation + std::string_view("qlm").size());
    EXPECT_EQ(DeclaredOperations(), listed);
    EXPECT_EQ(listed.size(), 14u);
}

// The words that the module uses for elements' attributes, and no others.
TEST(EveryOperation, SetsTheAttributesThatTheHostKnows)
{
    const std::string everything =
        Section("TABLES",
                Lines({"0", "TABLE", "0", "LTYPE", "100", "", "2", "D", "49", "1", "0", "ENDTAB", "0"})) +
        EntitiesSection({{0, "LINE"},
                         {6, "D"},
                         {60, 1},
                         {0, "CIRCLE"},
                         {0, "ELLIPSE"},
                         {0, "TEXT"},
                         {72, 1},
                         {0, "INSERT"},
                         {41, 2},
                         {42, 2},
                         {50, 30},
                         {0, "DIMENSION"},
                         {100, "AcDbDimension"},
                         {100, "AcDbDiametricDimension"}});
    std::set<std::string> names;
    for (const std::string& node : WordsAfter("ByNode(ctx, ", ",", TraceOf(everything)))
        names.merge(WordsAfter("ByNode(ctx, " + node + ", \"", "\"", TraceOf(everything)));
    EXPECT_EQ(names,
              (std::set<std::string>{"stroke", "stroke-width", "stroke-dasharray", "visibility",
                                     "fill-opacity", "center-x", "center-y", "rotate", "font-size",
                                     "text-anchor", "scale-x", "scale-y", "pg-begin-arrow-type",
                                     "pg-end-arrow-type", "pg-begin-arrow-size", "pg-end-arrow-size"}));
}
