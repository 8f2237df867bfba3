// Preparing a sheet: its own entities and what its windows show.
#include "prepare/PrepareSheet.h"

#include "prepare/InputSources.h"
#include "prepare/Layouts.h"
#include "prepare/support/PointsIn.h"
#include "support/Dxf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace prepare {
namespace {

std::string LineFrom(const std::string& layer, const std::string& space, double x1, double y1, double x2,
                     double y2)
{
    return Dxf({{0, "LINE"},
                {8, layer},
                {67, space},
                {10, std::to_string(x1)},
                {20, std::to_string(y1)},
                {11, std::to_string(x2)},
                {21, std::to_string(y2)}});
}

std::string ViewportAt(const std::string& id, double x, double y, double size, double viewX, double viewY,
                       double scale, const std::string& more = "")
{
    return Dxf({{0, "VIEWPORT"},
                {8, "0"},
                {67, "1"},
                {10, std::to_string(x)},
                {20, std::to_string(y)},
                {40, std::to_string(size)},
                {41, std::to_string(size)},
                {69, id},
                {90, "0"},
                {12, std::to_string(viewX)},
                {22, std::to_string(viewY)},
                {45, std::to_string(size / scale)}}) +
           more;
}

// A layout of a paper of 200 x 100 mm, without margins.
std::string LayoutNamed(const std::string& name, const std::string& width = "200")
{
    return Dxf({{0, "LAYOUT"}, {330, "1A"}, {44, width}, {45, "100"}, {72, "1"}, {1, name}, {330, "20"}});
}

const std::string kTables = Section("TABLES", Dxf({{0, "BLOCK_RECORD"},
                                                   {5, "20"},
                                                   {2, "*Paper_Space"},
                                                   {0, "LAYER"},
                                                   {5, "51"},
                                                   {2, "HID"},
                                                   {62, "1"}}));

std::string DrawingOf(const std::string& entities, const std::string& objects = LayoutNamed("Sheet"),
                      const std::string& header = "")
{
    return Section("HEADER", header) + kTables + Section("BLOCKS", "") + Section("ENTITIES", entities) +
           Section("OBJECTS", objects) + Dxf({{0, "EOF"}});
}

struct PreparedSheet {
    PrepareOutcome outcome = PrepareOutcome::Done;
    std::string text;
    Report report;

    std::string Found() const
    {
        std::string all;
        for (const auto& [key, met] : report.Entries())
            all += key.subject + ": " + key.detail + ";";
        return all;
    }
    // "LINE 0,50 100,50" of the lines in the text after a word, whichever block they are in.
    std::vector<std::string> Lines() const
    {
        std::vector<std::string> lines;
        std::istringstream stream(text);
        std::string code, value;
        bool isLine = false;
        std::string ends[4];
        while (std::getline(stream, code) && std::getline(stream, value)) {
            const int number = std::stoi(code);
            if (number == 0) {
                if (isLine)
                    lines.push_back(ends[0] + "," + ends[1] + " " + ends[2] + "," + ends[3]);
                isLine = value == "LINE";
            }
            if (number == 10 || number == 20 || number == 11 || number == 21)
                ends[number / 10 - 1 + 2 * (number % 10)] = value;
        }
        return lines;
    }
};

PreparedSheet SheetOfDrawing(const std::string& drawing, const std::string& layout = "Sheet")
{
    PreparedSheet prepared;
    MemoryInput input(drawing);
    Options options;
    options.profile = Profile::Standard;
    options.layout = layout;
    const auto write = [&](std::string_view bytes) {
        prepared.text += bytes;
        return true;
    };
    prepared.outcome = PrepareDrawing(input, options, write, prepared.report, {});
    return prepared;
}

using Lines = std::vector<std::string>;

const std::string kModelLine = LineFrom("0", "0", -1000, 0, 1000, 0);

TEST(PrepareSheet, WindowsShowTheModelAtTheirScalesBeforeTheSheetsOwnEntities)
{
    const PreparedSheet prepared = SheetOfDrawing(
        DrawingOf(LineFrom("0", "1", 1, 2, 3, 4) + kModelLine + ViewportAt("1", 100, 50, 100, 100, 50, 1) +
                  ViewportAt("2", 50, 50, 20, 0, 0, 1) + ViewportAt("3", 150, 50, 20, 0, -1, 5)));
    EXPECT_EQ(prepared.outcome, PrepareOutcome::Done);
    EXPECT_EQ(prepared.Lines(), (Lines{"40,50 60,50", "140,55 160,55", "1,2 3,4"}));
    EXPECT_EQ(prepared.Found(), "");
    EXPECT_EQ(prepared.report.sheet.name, "Sheet");
    EXPECT_EQ(prepared.report.sheet.width, 200);
    EXPECT_EQ(prepared.report.sheet.height, 100);
    EXPECT_NE(prepared.text.find("$INSUNITS\n70\n4\n"), std::string::npos);
}

TEST(PrepareSheet, TheEntitiesTextsShowTheCodePageOfTheTablesToo)
{
    const std::string wall = "\x95\xC7", plan = "\x95\xBD\x96\xCA\x90\x7D"; // in Shift-JIS
    const std::string tables = Section("TABLES", Dxf({{0, "LAYER"}, {5, "51"}, {2, wall}, {62, "1"}}));
    const std::string entities = Section(
        "ENTITIES",
        LineFrom(wall, "1", 0, 0, 10, 0) +
            Dxf({{0, "TEXT"}, {8, wall}, {67, "1"}, {10, "0"}, {20, "0"}, {40, "1"}, {1, plan + plan}}));
    for (const std::string& drawing :
         {tables + Section("BLOCKS", "") + entities, entities + tables + Section("BLOCKS", "")}) {
        const PreparedSheet sheet = SheetOfDrawing(drawing + Dxf({{0, "EOF"}}), "Layout1");
        EXPECT_EQ(sheet.Found().find("U+FFFD"), std::string::npos) << sheet.Found();
        EXPECT_NE(sheet.Found().find("its texts are read as Shift-JIS"), std::string::npos) << sheet.Found();
        EXPECT_NE(sheet.text.find("\\U+58C1"), std::string::npos); // the layer
        EXPECT_NE(sheet.text.find("\\U+5E73\\U+9762\\U+56F3"), std::string::npos);
    }
}

TEST(PrepareSheet, LayersAreFrozenInOneWindowAlone)
{
    const PreparedSheet prepared =
        SheetOfDrawing(DrawingOf(LineFrom("HID", "0", -1, 0, 1, 0) + ViewportAt("2", 50, 50, 20, 0, 0, 1) +
                                 ViewportAt("3", 150, 50, 20, 0, 0, 1, Dxf({{331, "51"}}))));
    EXPECT_EQ(prepared.Lines(), (Lines{"49,50 51,50"}));
}

TEST(PrepareSheet, BlocksAreInsertedWhereAllOfThemIsInAWindowAndCutElsewhere)
{
    const std::string blocks = Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "B"}}) +
                                                     LineFrom("0", "0", 0, 0, 4, 0) + Dxf({{0, "ENDBLK"}}));
    const std::string inserts = Dxf({{0, "INSERT"}, {8, "0"}, {2, "B"}, {10, "0"}, {20, "0"}}) +
                                Dxf({{0, "INSERT"}, {8, "0"}, {2, "B"}, {10, "8"}, {20, "1"}}) +
                                Dxf({{0, "INSERT"}, {8, "0"}, {2, "B"}, {10, "30"}, {20, "2"}});
    const PreparedSheet prepared = SheetOfDrawing(
        kTables + blocks + Section("ENTITIES", inserts + ViewportAt("2", 50, 50, 20, 0, 0, 1)) +
        Section("OBJECTS", LayoutNamed("Sheet")) + Dxf({{0, "EOF"}}));
    EXPECT_EQ(prepared.Lines(), (Lines{"0,0 4,0", "58,51 60,51"}));
    std::size_t inserted = 0;
    for (std::size_t at = 0; (at = prepared.text.find("\nINSERT\n", at)) != std::string::npos; ++at)
        ++inserted;
    EXPECT_EQ(inserted, 2U); // the window, and the block in it
}

TEST(PrepareSheet, DashesAreThoseOfThePaperUnlessTheDrawingSaysOtherwise)
{
    const std::string dashed = Dxf({{0, "LTYPE"}, {2, "D"}, {49, "2"}, {49, "-1"}});
    const std::string line =
        Dxf({{0, "LINE"}, {8, "0"}, {6, "D"}, {10, "-1"}, {20, "0"}, {11, "1"}, {21, "0"}});
    for (const auto& [header, length] : {std::pair("1", "\n48\n1\n"), std::pair("0", "\n48\n5\n")}) {
        const PreparedSheet prepared = SheetOfDrawing(
            Section("HEADER", Dxf({{9, "$PSLTSCALE"}, {70, header}})) +
            Section("TABLES", dashed + Dxf({{0, "BLOCK_RECORD"}, {5, "20"}, {2, "*Paper_Space"}})) +
            Section("BLOCKS", "") + Section("ENTITIES", line + ViewportAt("2", 50, 50, 20, 0, 0, 5)) +
            Section("OBJECTS", LayoutNamed("Sheet")) + Dxf({{0, "EOF"}}));
        const bool isWritten = prepared.text.find(length) != std::string::npos;
        EXPECT_EQ(isWritten, std::string(header) == "0") << header;
    }
}

TEST(PrepareSheet, WithoutAPaperTheSheetIsWhatIsOnIt)
{
    const PreparedSheet prepared = SheetOfDrawing(
        DrawingOf(LineFrom("0", "1", 1, 2, 3, 4) + kModelLine + ViewportAt("2", 50, 50, 20, 0, 0, 1),
                  LayoutNamed("Sheet", "0"), Dxf({{9, "$INSUNITS"}, {70, "6"}})));
    EXPECT_EQ(prepared.Lines(), (Lines{"40,50 60,50", "1,2 3,4"}));
    EXPECT_EQ(prepared.report.sheet.width, 0);
    EXPECT_NE(prepared.text.find("$INSUNITS\n70\n6\n"), std::string::npos);
}

TEST(PrepareSheet, PaperWithNothingOnItIsForgotten)
{
    const PreparedSheet prepared = SheetOfDrawing(DrawingOf(LineFrom("0", "1", 1000, 2000, 3000, 4000)));
    EXPECT_EQ(prepared.report.sheet.width, 0);
    EXPECT_EQ(SheetOfDrawing(DrawingOf("")).report.sheet.width, 200);
}

TEST(PrepareSheet, NothingVisibleOnItIsNoted)
{
    const std::string window = ViewportAt("2", 50, 50, 40, 0, 0, 1);
    EXPECT_TRUE(SheetOfDrawing(DrawingOf(kModelLine)).report.isBlank);
    EXPECT_FALSE(SheetOfDrawing(DrawingOf(kModelLine + window)).report.isBlank);
    EXPECT_FALSE(SheetOfDrawing(DrawingOf(LineFrom("0", "1", 1, 2, 3, 4))).report.isBlank);
    EXPECT_EQ(SheetOfDrawing(DrawingOf(kModelLine + window)).report.contents.entities, 2U);
}

TEST(PrepareSheet, OldDrawingsHaveOneLayout)
{
    const std::string entities = LineFrom("0", "1", 1, 2, 3, 4) + kModelLine;
    const std::string drawing = Section("ENTITIES", entities) + Dxf({{0, "EOF"}});
    EXPECT_EQ(SheetOfDrawing(drawing, "layout1").Lines(), (Lines{"1,2 3,4"}));
    EXPECT_EQ(SheetOfDrawing(Section("ENTITIES", kModelLine), "Layout1").outcome, PrepareOutcome::NoLayout);
}

TEST(PrepareSheet, UnknownNamesGiveNothingButTheNamesThatThereAre)
{
    const PreparedSheet prepared = SheetOfDrawing(DrawingOf(kModelLine), "None");
    EXPECT_EQ(prepared.outcome, PrepareOutcome::NoLayout);
    EXPECT_EQ(prepared.text, "");
    ASSERT_EQ(prepared.report.layouts.size(), 1U);
    EXPECT_EQ(prepared.report.layouts[0].name, "Sheet");
    EXPECT_EQ(prepared.report.layouts[0].width, 200);
}

TEST(PrepareSheet, ModelSpaceIsNoSheet)
{
    EXPECT_EQ(SheetOfDrawing(DrawingOf(kModelLine), "MODEL").Lines(), (Lines{"-1000,0 1000,0"}));
}

// Each window would show all of the model once more.
TEST(PrepareSheet, ManyWindowsOverALargeModelEndWithAReport)
{
    std::string entities;
    for (int i = 1; i <= 2000; ++i)
        entities += LineFrom("0", "0", -i, 0, i, i);
    for (int i = 0; i < 200; ++i)
        entities += ViewportAt("2", 50, 50, 20, 0, 0, 0.001);
    const PreparedSheet prepared = SheetOfDrawing(DrawingOf(entities));
    EXPECT_EQ(prepared.outcome, PrepareOutcome::Done);
    EXPECT_EQ(prepared.Found(), "layout: its viewports show too much;");
    EXPECT_LT(prepared.Lines().size(), 100'000 + entities.size() / 8);
}

TEST(PrepareSheet, WindowsShareThePointsThatTheDrawingMayComeTo)
{
    std::string polyline = Dxf({{0, "LWPOLYLINE"}, {8, "0"}, {90, "3000"}});
    for (int i = 0; i < 3000; ++i)
        polyline += Dxf({{10, std::to_string(i)}, {20, std::to_string(i % 7)}});
    std::string windows;
    for (int i = 0; i < 250; ++i)
        windows += ViewportAt("2", 50, 50, 20, 0, 0, 0.001);
    const PreparedSheet few = SheetOfDrawing(DrawingOf(polyline + ViewportAt("2", 50, 50, 20, 0, 0, 0.001)));
    EXPECT_EQ(few.Found(), "");
    EXPECT_GT(PointsIn(few.text), 3000U);
    const std::string drawing = DrawingOf(polyline + windows);
    const PreparedSheet many = SheetOfDrawing(drawing);
    EXPECT_EQ(many.outcome, PrepareOutcome::Done);
    EXPECT_EQ(many.Found(), "layout: its viewports show too much;");
    EXPECT_GT(PointsIn(many.text), 100'000U);
    EXPECT_LT(PointsIn(many.text), 310'000 + drawing.size());
}

TEST(PrepareSheet, CurvesThatWindowsCutGetCoarser)
{
    std::string circles;
    for (int i = 0; i < 500; ++i)
        circles += Dxf({{0, "CIRCLE"}, {8, "0"}, {10, "0"}, {20, "0"}, {40, std::to_string(i + 10)}});
    std::string windows;
    for (int i = 0; i < 250; ++i)
        windows += ViewportAt("2", 50, 50, 100, 0, 0, 1);
    const std::string drawing = DrawingOf(circles + windows);
    const PreparedSheet prepared = SheetOfDrawing(drawing);
    EXPECT_EQ(prepared.outcome, PrepareOutcome::Done);
    EXPECT_NE(prepared.Found().find("CIRCLE: drawn coarser: the drawing has more curves than can be shown;"),
              std::string::npos);
    EXPECT_LT(PointsIn(prepared.text), 310'000 + drawing.size());
}

// Layers and the names of layouts are read by the code page, too.
TEST(PrepareSheet, HeadersThatComeLateNameTheCodePage)
{
    const std::string header = Section("HEADER", Dxf({{9, "$DWGCODEPAGE"}, {3, "ANSI_1251"}}));
    const std::string blocks = Section("BLOCKS", "");
    const std::string entities = Section("ENTITIES", LineFrom("\xC4", "1", 1, 2, 3, 4));
    const std::string objects = Section("OBJECTS", LayoutNamed("\xC6"));
    const std::string end = Dxf({{0, "EOF"}});
    const PreparedSheet usual =
        SheetOfDrawing(header + kTables + blocks + entities + objects + end, "\xD0\x96");
    EXPECT_EQ(usual.outcome, PrepareOutcome::Done);
    EXPECT_NE(usual.text.find("\\U+0414"), std::string::npos);
    const std::string late = kTables + blocks + entities + objects + header + end;
    const PreparedSheet prepared = SheetOfDrawing(late, "\xD0\x96");
    EXPECT_EQ(prepared.outcome, PrepareOutcome::Done);
    EXPECT_EQ(prepared.text, usual.text);
    MemoryInput input(late);
    std::vector<LayoutSize> layouts;
    EXPECT_EQ(ListLayouts(input, {}, layouts), PrepareOutcome::Done);
    ASSERT_EQ(layouts.size(), 1U);
    EXPECT_EQ(layouts[0].name, "\xD0\x96");
}

TEST(PrepareSheet, WindowsThatSeeOtherPartsCostNothing)
{
    std::string entities;
    for (int i = 0; i < 2000; ++i)
        entities += LineFrom("0", "0", 10 * i, 0, 10 * i + 1, 0);
    for (int i = 0; i < 200; ++i)
        entities += ViewportAt("2", 50, 50, 20, 100 * i, 0, 1);
    const PreparedSheet prepared = SheetOfDrawing(DrawingOf(entities));
    EXPECT_EQ(prepared.Found(), "");
    EXPECT_EQ(prepared.Lines().size(), 399U);
}

TEST(PrepareSheet, ListOfLayouts)
{
    const std::string drawing = DrawingOf("", LayoutNamed("A") + LayoutNamed("B"));
    MemoryInput input(drawing);
    std::vector<LayoutSize> layouts;
    EXPECT_EQ(ListLayouts(input, {}, layouts), PrepareOutcome::Done);
    ASSERT_EQ(layouts.size(), 2U);
    EXPECT_EQ(layouts[1].name, "B");
    EXPECT_EQ(layouts[1].height, 100);
    EXPECT_EQ(ListLayouts(input, "none", layouts), PrepareOutcome::BadOptions);
    MemoryInput nothing("");
    EXPECT_EQ(ListLayouts(nothing, {}, layouts), PrepareOutcome::NoDrawing);
    EXPECT_TRUE(layouts.empty());
}

} // namespace
} // namespace prepare
