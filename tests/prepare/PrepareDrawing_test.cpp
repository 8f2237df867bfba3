// Preparing as a whole: drawing in, plain drawing and report out.
#include "prepare/PrepareDrawing.h"

#include "prepare/InputSources.h"
#include "prepare/plain/ClipRegion.h"
#include "prepare/support/PointsIn.h"
#include "support/Dxf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace prepare {
namespace {

using Lines = std::vector<std::string>;

struct Prepared {
    PrepareOutcome outcome = PrepareOutcome::Done;
    std::string text;
    Report report;

    // "SPLINE: 1 polyline (2 from line 5)", of all entries that say what was rewritten.
    Lines Rewritten() const
    {
        Lines lines;
        for (const auto& [key, met] : report.Entries())
            if (key.finding == Finding::Rewritten)
                lines.push_back(key.subject + ": " + key.detail + " (" + std::to_string(met.count) +
                                " from line " + std::to_string(met.firstLine) + ")");
        return lines;
    }
};

Prepared PreparedFrom(const std::string& drawing, Options options = {}, Profile profile = Profile::Standard)
{
    Prepared prepared;
    MemoryInput input(drawing);
    options.profile = profile;
    const auto write = [&](std::string_view bytes) {
        prepared.text += bytes;
        return true;
    };
    prepared.outcome = PrepareDrawing(input, options, write, prepared.report, {});
    return prepared;
}

const std::string kLine = Dxf({{0, "LINE"}, {8, "0"}, {10, "0"}, {20, "0"}, {11, "9"}, {21, "9"}});
const std::string kPoint = Dxf({{0, "POINT"}, {8, "0"}, {10, "1"}, {20, "1"}});
const std::string kDimension = Dxf({{0, "DIMENSION"}, {8, "0"}, {2, "*D1"}, {10, "0"}, {20, "0"}});
const std::string kSolid = Dxf({{0, "3DSOLID"}, {8, "0"}});

// "LINE: what was found of it (1)", of all entries.
Lines Findings(const std::string& drawing)
{
    const Prepared prepared = PreparedFrom(drawing);
    Lines lines;
    for (const auto& [key, met] : prepared.report.Entries())
        lines.push_back(key.subject + ": " + key.detail + " (" + std::to_string(met.count) + ")");
    return lines;
}

TEST(PrepareDrawing, BrokenEntitiesBeforeTheTablesAreReportedOnceAsThoseAfterThem)
{
    const std::string broken = Dxf({{0, "LINE"}, {8, "0"}, {10, "nan"}, {20, "0"}, {11, "9"}, {21, "9"}});
    const std::string entities = Section("ENTITIES", broken + kLine);
    const std::string tables =
        Section("TABLES", Dxf({{0, "TABLE"}, {2, "LAYER"}, {0, "LAYER"}, {2, "A"}, {0, "ENDTAB"}}));
    const std::string end = Dxf({{0, "EOF"}});
    const Lines usual = Findings(tables + entities + end);
    EXPECT_FALSE(usual.empty());
    EXPECT_EQ(Findings(entities + tables + end), usual);
}

// "entities, of them not shown".
std::string ShareOf(const std::string& drawing)
{
    const Report report = PreparedFrom(drawing + Dxf({{0, "EOF"}})).report;
    std::uint64_t lost = 0;
    for (const auto& [key, met] : report.Entries())
        lost += key.finding == Finding::NotShown ? met.count : 0;
    return std::to_string(report.entities) + ", " + std::to_string(lost);
}

TEST(PrepareDrawing, BrokenEntitiesCountWhereTheyWouldBeSeen)
{
    const std::string layers =
        Section("TABLES", Dxf({{0, "LAYER"}, {2, "off"}, {62, "-1"}, {0, "LAYER"}, {2, "on"}, {62, "1"}}));
    const auto broken = [](const std::string& layer, const std::string& value,
                           std::initializer_list<Group> more = {}) {
        return Dxf({{0, "LINE"}, {8, layer}, {10, "0"}, {20, value}}) + Dxf(more);
    };
    for (const char* const value : {"nan", "1e999", "1e31"}) {
        const std::string block = Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "A"}}) + kLine +
                                                        broken("on", value) + Dxf({{0, "ENDBLK"}}));
        const std::string insert = Dxf({{0, "INSERT"}, {8, "on"}, {2, "A"}});
        EXPECT_EQ(ShareOf(layers + block + Section("ENTITIES", kLine)), "1, 0");
        EXPECT_EQ(ShareOf(layers + block + Section("ENTITIES", kLine + insert)), "4, 1");
        EXPECT_EQ(ShareOf(layers + Section("ENTITIES", kLine + broken("on", value))), "2, 1");
        EXPECT_EQ(ShareOf(layers + Section("ENTITIES", kLine + broken("off", value))), "1, 0");
        EXPECT_EQ(ShareOf(layers + Section("ENTITIES", kLine + broken("on", value, {{67, "1"}}))), "1, 0");
        EXPECT_EQ(ShareOf(layers + Section("ENTITIES", kLine + broken("on", value, {{60, "1"}}))), "1, 0");
        EXPECT_EQ(ShareOf(layers + Section("ENTITIES",
                                           Dxf({{0, "INSERT"}, {8, "on"}, {2, "A"}, {10, value}}) + kLine)),
                  "2, 1");
    }
}

TEST(PrepareDrawing, WhatHiddenLayersHoldIsCountedByWhyTheyAreHidden)
{
    const std::string layers =
        Section("TABLES", Dxf({{0, "LAYER"}, {2, "off"}, {62, "-1"}, {0, "LAYER"}, {2, "on"}, {62, "1"}}));
    const auto points = [](const std::string& layer, int count) {
        std::string entities;
        while (count-- > 0)
            entities += Dxf({{0, "POINT"}, {8, layer}, {10, "1"}, {20, "1"}});
        return entities;
    };
    Options options;
    options.withoutLayers = {"on"};
    const std::string entities = kLine + points("off", 3) + points("on", 2) + points("Defpoints", 1);
    const Report report = PreparedFrom(layers + Section("ENTITIES", entities), options).report;
    EXPECT_EQ(report.entities, 1U);
    EXPECT_EQ(report.hidden[static_cast<std::size_t>(HiddenLayer::OffOrFrozen)], 3U);
    EXPECT_EQ(report.hidden[static_cast<std::size_t>(HiddenLayer::NotChosen)], 2U);
    EXPECT_EQ(report.hidden[static_cast<std::size_t>(HiddenLayer::NotPlotted)], 1U);
}

// Each part of what is placed is in range, and where it comes to be is not.
TEST(PrepareDrawing, WhatIsPlacedOutOfRangeIsNotShown)
{
    const std::string block = Section(
        "BLOCKS",
        Dxf({{0, "BLOCK"}, {2, "A"}, {0, "LINE"}, {8, "0"}, {10, "1e20"}, {11, "2e20"}, {0, "ENDBLK"}}));
    const std::string insert = Dxf({{0, "INSERT"}, {8, "0"}, {2, "A"}, {41, "1e20"}});
    EXPECT_EQ(ShareOf(block + Section("ENTITIES", kLine + insert)), "3, 1");
}

TEST(PrepareDrawing, ReportSaysIntoHowManyOfWhat)
{
    const std::string mesh = Dxf({{0, "3DFACE"},
                                  {8, "0"},
                                  {10, "0"},
                                  {20, "0"},
                                  {11, "1"},
                                  {21, "0"},
                                  {12, "1"},
                                  {22, "1"},
                                  {13, "0"},
                                  {23, "1"},
                                  {70, "1"}});
    const Prepared prepared = PreparedFrom(Section("ENTITIES", kLine + mesh + mesh));
    EXPECT_EQ(prepared.outcome, PrepareOutcome::Done);
    EXPECT_EQ(prepared.Rewritten(), Lines{"3DFACE: 2 polylines (2 from line 18)"});
    EXPECT_EQ(prepared.report.entities, 3u);
}

TEST(PrepareDrawing, ReportCountsTheContentOfADimensionsBlock)
{
    const std::string block = Dxf({{0, "BLOCK"}, {2, "*D1"}}) + kLine + kLine + Dxf({{0, "ENDBLK"}});
    const Prepared prepared = PreparedFrom(Section("BLOCKS", block) + Section("ENTITIES", kDimension));
    EXPECT_EQ(prepared.Rewritten(), Lines{"DIMENSION: 2 lines (1 from line 42)"});
}

TEST(PrepareDrawing, WhatIsNotShownIsNotRewritten)
{
    const Prepared prepared = PreparedFrom(Section("ENTITIES", kLine + kSolid));
    EXPECT_EQ(prepared.Rewritten(), Lines{});
    EXPECT_EQ(prepared.report.entities, 2u);
}

TEST(PrepareDrawing, AnEntityWithoutATypeHasANameInTheReport)
{
    EXPECT_EQ(Findings(Section("ENTITIES", kLine + Dxf({{0, ""}, {8, "0"}}))),
              (Lines{"(no type): cannot be drawn (1)", "file: ends without EOF (1)"}));
}

// "entities, of them in blocks, in the paper space, on sheets, invisible, masks", and whether the file has
// its end.
std::string ContentsOf(const std::string& drawing)
{
    const Contents held = PreparedFrom(drawing).report.contents;
    std::string text;
    for (const std::uint64_t count :
         {held.entities, held.inBlocks, held.inPaperSpace, held.onSheets, held.invisible, held.masks})
        text += std::to_string(count) + " ";
    return text + (held.isEnded ? "ended" : "cut off");
}

TEST(PrepareDrawing, ContentsAreCountedWhetherTheyAreShownOrNot)
{
    const std::string inBlock = Dxf({{0, "LINE"}, {60, "1"}}) + kPoint + Dxf({{0, "WIPEOUT"}});
    const std::string onSheet = Dxf({{0, "LINE"}, {67, "1"}, {0, "LINE"}, {67, "1"}, {60, "1"}});
    const std::string window = Dxf({{0, "VIEWPORT"}, {67, "1"}});
    const std::string blocks =
        Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "Part"}}) + inBlock +
                              Dxf({{0, "ENDBLK"}, {0, "BLOCK"}, {2, "*Paper_Space0"}}) + kLine +
                              Dxf({{0, "ENDBLK"}}));
    const std::string entities = Section("ENTITIES", kLine + kSolid + onSheet + window);
    const std::string end = Dxf({{0, "EOF"}});
    EXPECT_EQ(ContentsOf(blocks + entities + end), "9 3 4 2 2 1 ended");
    EXPECT_EQ(ContentsOf(entities + blocks), "9 3 4 2 2 1 cut off");
    EXPECT_EQ(ContentsOf(kLine + end), "1 0 0 0 0 0 ended");
}

TEST(PrepareDrawing, NothingVisibleIsNoted)
{
    const std::string ray = Dxf({{0, "RAY"}, {10, "3"}, {20, "4"}, {11, "1"}, {21, "0"}});
    const std::string mask =
        Dxf({{0, "WIPEOUT"}, {10, "0"}, {20, "0"}, {11, "5"}, {21, "0"}, {12, "0"}}) +
        Dxf({{22, "5"}, {71, "1"}, {14, "-0.5"}, {24, "-0.5"}, {14, "0.5"}, {24, "0.5"}});
    const auto isBlank = [](const std::string& entities) {
        return PreparedFrom(Section("ENTITIES", entities)).report.isBlank;
    };
    for (const std::string& seen : {kLine, kPoint, ray, mask + kLine})
        EXPECT_FALSE(isBlank(seen)) << seen;
    for (const std::string& unseen : {kSolid, mask, Dxf({{0, "LWPOLYLINE"}, {8, "0"}, {90, "0"}}),
                                      Dxf({{0, "TEXT"}, {8, "0"}, {40, "1"}, {1, " "}}), std::string()})
        EXPECT_TRUE(isBlank(unseen)) << unseen;
}

TEST(PrepareDrawing, SheetsAreNamedThatNobodyAskedFor)
{
    const auto sheets = [](const std::string& drawing) {
        Lines names;
        for (const LayoutSize& sheet : PreparedFrom(drawing).report.layouts)
            names.push_back(sheet.name + " " + std::to_string(std::lround(sheet.width)));
        return names;
    };
    const std::string layout =
        Dxf({{0, "LAYOUT"}, {44, "200"}, {45, "100"}, {72, "1"}, {1, "Plan"}, {71, "1"}, {330, "20"}});
    EXPECT_EQ(sheets(Section("ENTITIES", kLine)), Lines{});
    EXPECT_EQ(sheets(Section("ENTITIES", Dxf({{0, "LINE"}, {67, "1"}}))), Lines{"Layout1 0"});
    EXPECT_EQ(sheets(Section("ENTITIES", kLine) + Section("OBJECTS", layout)), Lines{"Plan 200"});
}

TEST(PrepareDrawing, RaysAloneAreDrawnAroundTheirStarts)
{
    const std::string ray =
        Dxf({{0, "RAY"}, {8, "0"}, {10, "3"}, {20, "4"}, {11, "1"}, {21, "0"}, {0, "XLINE"}, {8, "0"}}) +
        Dxf({{10, "3"}, {20, "8"}, {11, "0"}, {21, "1"}});
    std::string text = PreparedFrom(Section("ENTITIES", ray)).text;
    std::replace(text.begin(), text.end(), '\n', ' ');
    EXPECT_NE(text.find("AcDbLine 10 3 20 4 30 0 11 5 21 4 31 0"), std::string::npos) << text;
    EXPECT_NE(text.find("AcDbLine 10 3 20 2 30 0 11 3 21 10 31 0"), std::string::npos) << text;
}

// Marks whose size is a share of the drawing's make it larger.
TEST(PrepareDrawing, PreparedAgainADrawingIsTheSame)
{
    const std::string header =
        Dxf({{9, "$PDMODE"}, {70, "35"}, {9, "$PDSIZE"}, {40, "-3"}, {9, "$ACADVER"}, {1, "AC1009"}});
    const std::string trace = Dxf({{0, "TRACE"}, {8, "0"}, {10, "2"}, {20, "2"}, {11, "3"}, {21, "2"}}) +
                              Dxf({{12, "2"}, {22, "3"}, {13, "2"}, {23, "3"}});
    const std::string once =
        PreparedFrom(Section("HEADER", header) + Section("ENTITIES", kPoint + kLine + trace + kPoint)).text;
    EXPECT_NE(once.find("HATCH"), std::string::npos);
    EXPECT_EQ(PreparedFrom(once).text, once);
}

std::string LineTo(const char* handle, const char* x)
{
    return Dxf({{0, "LINE"}, {5, handle}, {8, "0"}, {10, "0"}, {20, "0"}, {11, x}, {21, "0"}});
}

// The positions of texts in another; npos sorts after all others.
bool AreInOrder(const std::string& text, const Lines& parts)
{
    std::size_t last = 0;
    for (const std::string& part : parts) {
        const std::size_t place = text.find(part);
        if (place == std::string::npos || place < last)
            return false;
        last = place;
    }
    return true;
}

TEST(PrepareDrawing, EntitiesAreInTheirOrderOfDrawing)
{
    const std::string entities = Section("ENTITIES", LineTo("10", "1.5") + LineTo("11", "2.5") +
                                                         LineTo("12", "3.5") + LineTo("13", "4.5"));
    EXPECT_TRUE(AreInOrder(PreparedFrom(entities).text,
                           {"\n11\n1.5\n", "\n11\n2.5\n", "\n11\n3.5\n", "\n11\n4.5\n"}));
    const std::string order =
        Dxf({{0, "SORTENTSTABLE"}, {5, "A"}, {331, "10"}, {5, "13"}, {331, "13"}, {5, "10"}});
    EXPECT_TRUE(AreInOrder(PreparedFrom(entities + Section("OBJECTS", order)).text,
                           {"\n11\n4.5\n", "\n11\n2.5\n", "\n11\n3.5\n", "\n11\n1.5\n"}));
    // Where nothing else has to be known before the entities, too.
    const std::string known = Section("TABLES", "") + Section("BLOCKS", "");
    EXPECT_TRUE(AreInOrder(PreparedFrom(known + entities + Section("OBJECTS", order)).text,
                           {"\n11\n4.5\n", "\n11\n2.5\n", "\n11\n3.5\n", "\n11\n1.5\n"}));
}

// A block with a line of 10 units is cut off at 2.5 and 7.5, where its insert is then moved by 100.
TEST(PrepareDrawing, InsertsAreCutOff)
{
    const std::string drawing =
        Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "B"}}) + LineTo("10", "10") + Dxf({{0, "ENDBLK"}})) +
        Section("ENTITIES", Dxf({{0, "INSERT"}, {5, "20"}, {8, "0"}, {2, "B"}, {10, "100"}, {20, "0"}}));
    const std::string filter =
        Dxf({{0, "DICTIONARY"}, {5, "30"}, {330, "20"}, {0, "DICTIONARY"}, {5, "31"}, {330, "30"}}) +
        Dxf({{0, "SPATIAL_FILTER"}, {330, "31"}, {10, "2.5"}, {20, "-1"}, {10, "7.5"}, {20, "1"}, {71, "1"}});
    const std::string cut = PreparedFrom(drawing + Section("OBJECTS", filter)).text;
    EXPECT_TRUE(AreInOrder(cut, {"$EXTMIN\n10\n102.5\n", "$EXTMAX\n10\n107.5\n",
                                 "AcDbLine\n10\n102.5\n20\n0\n30\n0\n11\n107.5\n"}))
        << cut;
    EXPECT_EQ(cut.find("INSERT"), std::string::npos);
    const std::string frame = Section("HEADER", Dxf({{9, "$XCLIPFRAME"}, {280, "1"}}));
    EXPECT_NE(PreparedFrom(frame + drawing + Section("OBJECTS", filter)).text.find("LWPOLYLINE"),
              std::string::npos);
    EXPECT_NE(PreparedFrom(drawing).text.find("INSERT"), std::string::npos);
}

// The same with a boundary around which the block is shown, and with boundaries along which nothing is cut.
TEST(PrepareDrawing, InsertsAreCutOffAroundABoundaryOrSaidNotToBe)
{
    const auto drawing = [](const std::string& corners, bool isInverted) {
        const std::string inverted =
            Dxf({{0, "DICTIONARY"}, {5, "33"}, {330, "32"}, {0, "XRECORD"}, {5, "34"}, {330, "33"}}) +
            Dxf({{102, "ACAD_INVERTEDCLIP_ROUNDTRIP"}}) + corners;
        return Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "B"}}) + LineTo("10", "10") + Dxf({{0, "ENDBLK"}})) +
               Section("ENTITIES",
                       Dxf({{0, "INSERT"}, {5, "20"}, {8, "0"}, {2, "B"}, {10, "100"}, {20, "0"}})) +
               Section("OBJECTS", Dxf({{0, "DICTIONARY"}, {5, "30"}, {330, "20"}}) +
                                      Dxf({{0, "DICTIONARY"}, {5, "31"}, {330, "30"}}) +
                                      Dxf({{0, "SPATIAL_FILTER"}, {5, "32"}, {330, "31"}, {71, "1"}}) +
                                      corners + (isInverted ? inverted : ""));
    };
    const auto corner = [](const char* x, const char* y) { return Dxf({{10, x}, {20, y}}); };
    const std::string box = corner("2.5", "-1") + corner("7.5", "1");
    const std::string crossing = corner("2", "-1") + corner("8", "1") + corner("8", "-1") + corner("2", "1");
    const std::string flat = corner("2", "0") + corner("8", "0") + corner("5", "0");
    const auto lines = [&](const std::string& corners, bool isInverted) {
        const std::string text = PreparedFrom(drawing(corners, isInverted)).text;
        std::size_t count = 0;
        for (std::size_t at = text.find("AcDbLine\n"); at != std::string::npos;
             at = text.find("AcDbLine\n", at + 1))
            ++count;
        return count;
    };
    const auto said = [&](const std::string& corners, bool isInverted) {
        std::string all;
        const Prepared prepared = PreparedFrom(drawing(corners, isInverted));
        for (const auto& [key, tally] : prepared.report.Entries())
            if (key.finding == Finding::Changed)
                all += key.subject + ": " + key.detail;
        return all;
    };
    EXPECT_EQ(lines(box, false), 1u);
    EXPECT_EQ(lines(box, true), 2u);
    EXPECT_EQ(said(box, true), "");
    EXPECT_EQ(said(crossing, false), "INSERT: " + std::string(kCutAlongBox));
    EXPECT_EQ(said(crossing, true), "INSERT: " + std::string(kNotCutByRing));
    EXPECT_EQ(said(flat, false), "INSERT: " + std::string(kNotCutByNothing));
}

TEST(PrepareDrawing, AHeaderAfterTheTablesStillNamesTheirCodePage)
{
    const std::string tables =
        Section("TABLES", Dxf({{0, "TABLE"}, {2, "LAYER"}, {0, "LAYER"}, {2, "\xC4"}}));
    const std::string blocks = Section("BLOCKS", Dxf({{0, "BLOCK"},
                                                      {2, "A"},
                                                      {0, "TEXT"},
                                                      {8, "\xC4"},
                                                      {10, "0"},
                                                      {20, "0"},
                                                      {40, "1"},
                                                      {1, "\xC6"}}) +
                                                     Dxf({{0, "ENDBLK"}}));
    const std::string header = Section("HEADER", Dxf({{9, "$DWGCODEPAGE"}, {3, "ANSI_1251"}}));
    const std::string entities = Section("ENTITIES", Dxf({{0, "INSERT"}, {8, "\xC4"}, {2, "A"}}));
    const Prepared usual = PreparedFrom(header + tables + blocks + entities + Dxf({{0, "EOF"}}));
    EXPECT_NE(usual.text.find("\\U+0414"), std::string::npos);
    EXPECT_NE(usual.text.find("\\U+0416"), std::string::npos);
    for (const std::string& late :
         {tables + blocks + header + entities, tables + blocks + entities + header}) {
        const Prepared prepared = PreparedFrom(late + Dxf({{0, "EOF"}}));
        EXPECT_EQ(prepared.text, usual.text);
        EXPECT_EQ(prepared.report.Entries().size(), usual.report.Entries().size());
    }
}

TEST(PrepareDrawing, AJapaneseDrawingNeedNotNameItsCodePage)
{
    const std::string tables =
        Section("TABLES", Dxf({{0, "TABLE"}, {2, "LAYER"}, {0, "LAYER"}, {2, "\x93\xB9"}, {0, "ENDTAB"}}));
    const std::string blocks = Section("BLOCKS", "");
    const std::string plan = "\x95\xBD\x96\xCA\x90\x7D"; // in Shift-JIS
    const std::string entities = Section(
        "ENTITIES", Dxf({{0, "TEXT"}, {8, "\x93\xB9"}, {10, "0"}, {20, "0"}, {40, "1"}, {1, plan}}) + kLine);
    const auto header = [](std::string_view version, std::string_view page) {
        std::string pairs = Dxf({{9, "$ACADVER"}, {1, std::string(version)}});
        if (!page.empty())
            pairs += Dxf({{9, "$DWGCODEPAGE"}, {3, std::string(page)}});
        return Section("HEADER", pairs);
    };
    const std::string end = Dxf({{0, "EOF"}}),
                      guessed = "names no code page: its texts are read as Shift-JIS";
    for (const std::string& drawing : {tables + blocks + entities, header("AC1009", "") + tables + entities,
                                       entities + tables, std::string(entities)}) {
        const Prepared prepared = PreparedFrom(drawing + end);
        EXPECT_NE(prepared.text.find("\\U+5E73\\U+9762\\U+56F3"), std::string::npos) << drawing;
        EXPECT_NE(prepared.text.find("\\U+9053"), std::string::npos) << drawing;
        EXPECT_EQ(Findings(drawing + end), Lines{"file: " + guessed + " (1)"}) << drawing;
    }
    const std::string western = header("AC1009", "ANSI_1252"), late = header("AC1021", "");
    for (const std::string& first : {western, late})
        EXPECT_EQ(PreparedFrom(first + tables + blocks + entities + end).text.find("\\U+5E73"),
                  std::string::npos);
}

TEST(PrepareDrawing, NothingIsGuessedOfADrawingThatNamesItsCodePage)
{
    const std::string text = "\x95\xBD\x96\xCA\x90\x7D"; // in Shift-JIS
    const auto variables = [&](std::string_view version, std::string_view page) {
        std::string pairs = Dxf({{9, "$ACADVER"}, {1, std::string(version)}});
        if (!page.empty())
            pairs += Dxf({{9, "$DWGCODEPAGE"}, {3, std::string(page)}});
        return pairs + Dxf({{9, "$CLAYER"}, {8, text}});
    };
    const std::string end = Section("ENTITIES", kLine) + Dxf({{0, "EOF"}});
    const std::string tables =
        Section("TABLES", Dxf({{0, "TABLE"}, {2, "LAYER"}, {0, "LAYER"}, {2, text}, {0, "ENDTAB"}}));
    for (const auto& [version, page] : {std::pair("AC1015", "ANSI_932"), std::pair("AC1015", "ANSI_936"),
                                        std::pair("AC1015", "ANSI_1252"), std::pair("AC1021", "")}) {
        const std::string header = Section("HEADER", variables(version, page));
        for (const std::string& drawing : {header + end, header + tables + end, tables + header + end})
            for (const std::string& line : Findings(drawing))
                EXPECT_EQ(line.find("Shift-JIS"), std::string::npos) << version << ' ' << page;
    }
    const Lines guessed{"file: names no code page: its texts are read as Shift-JIS (1)"};
    EXPECT_EQ(Findings(Section("HEADER", variables("AC1015", "")) + end), guessed);
}

TEST(PrepareDrawing, TheGuessIsOfAllTextsInWhateverOrderTheyCome)
{
    const std::string german = "Gr\xC3\xB6\xC3\x9F"
                               "e"; // in UTF-8
    const std::string plan = "\x95\xBD\x96\xCA\x90\x7D";
    const std::string tables =
        Section("TABLES", Dxf({{0, "TABLE"}, {2, "LAYER"}, {0, "LAYER"}, {2, german}, {0, "ENDTAB"}}));
    const std::string blocks = Section("BLOCKS", "");
    const std::string entities =
        Section("ENTITIES", Dxf({{0, "TEXT"}, {8, "0"}, {10, "0"}, {20, "0"}, {40, "1"}, {1, plan}}));
    const std::string end = Dxf({{0, "EOF"}});
    const std::string usual = PreparedFrom(tables + blocks + entities + end).text;
    EXPECT_EQ(usual.find("\\U+5E73"), std::string::npos);
    EXPECT_EQ(PreparedFrom(entities + tables + blocks + end).text, usual);
}

TEST(PrepareDrawing, UnknownEncodingIsABadOption)
{
    Options options;
    options.encoding = "klingon";
    EXPECT_EQ(PreparedFrom(Section("ENTITIES", kLine), options).outcome, PrepareOutcome::BadOptions);
    options.encoding = "ansi_1251";
    EXPECT_EQ(PreparedFrom(Section("ENTITIES", kLine), options).outcome, PrepareOutcome::Done);
}

// "changed SPLINE: drawn coarser", of the entries that say what is missing.
Lines MissingIn(const Report& report)
{
    Lines lines;
    for (const auto& [key, met] : report.Entries())
        if (key.finding == Finding::Changed || key.finding == Finding::Cut)
            lines.push_back(key.subject + ": " + key.detail);
    return lines;
}

std::string Repeated(const std::string& entity, std::size_t times)
{
    std::string all;
    for (std::size_t i = 0; i < times; ++i)
        all += entity;
    return all;
}

TEST(PrepareDrawing, CurvesWithoutEndGetCoarser)
{
    const std::string spline = Dxf({{0, "SPLINE"},
                                    {8, "0"},
                                    {71, "3"},
                                    {40, "0"},
                                    {40, "0"},
                                    {40, "0"},
                                    {40, "0"},
                                    {40, "1"},
                                    {40, "1"},
                                    {40, "1"},
                                    {40, "1"},
                                    {10, "0"},
                                    {20, "0"},
                                    {10, "900"},
                                    {20, "9"},
                                    {10, "8"},
                                    {20, "300"},
                                    {10, "1"},
                                    {20, "1"}});
    Options options;
    options.tolerance = 1e-4;
    const std::string few = Section("ENTITIES", Repeated(spline, 50));
    const std::string many = Section("ENTITIES", Repeated(spline, 5000));
    const Prepared fine = PreparedFrom(few, options), coarse = PreparedFrom(many, options);
    EXPECT_GT(PointsIn(fine.text), 500u * 50);
    EXPECT_EQ(MissingIn(fine.report), Lines{});
    EXPECT_LT(PointsIn(coarse.text), 100'000 + many.size());
    EXPECT_GT(PointsIn(coarse.text), 5u * 5000); // the last one is a curve, too
    EXPECT_EQ(MissingIn(coarse.report),
              Lines{"SPLINE: drawn coarser: the drawing has more curves than can be shown"});
}

TEST(PrepareDrawing, ArcsThatAProfileFlattensGetCoarser)
{
    const std::string vertices =
        Dxf({{10, "0"}, {20, "0"}, {42, "0.9"}, {10, "900"}, {20, "300"}, {42, "-0.9"}});
    const std::string polyline = Dxf({{0, "LWPOLYLINE"}, {8, "0"}, {90, "2000"}}) + Repeated(vertices, 1000);
    Options options;
    options.tolerance = 1e-4;
    const Prepared prepared = PreparedFrom(Section("ENTITIES", polyline), options, Profile::Module);
    EXPECT_GT(PointsIn(prepared.text), 80'000u);
    EXPECT_LT(PointsIn(prepared.text), 140'000u);
    EXPECT_EQ(MissingIn(prepared.report),
              Lines{"drawing: arcs of its polylines are coarser: there are too many"});
}

TEST(PrepareDrawing, BlocksOfManyPointsUnfoldToABound)
{
    const std::string polyline = Dxf({{0, "LWPOLYLINE"}, {8, "0"}, {90, "2000"}}) +
                                 Repeated(Dxf({{10, "0"}, {20, "0"}, {10, "9"}, {20, "3"}}), 1000);
    std::string inserts;
    for (int i = 1; i <= 1000; ++i)
        inserts += Dxf({{0, "INSERT"}, {2, "A"}, {41, std::to_string(i)}});
    const std::string drawing =
        Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "A"}}) + polyline + Dxf({{0, "ENDBLK"}})) +
        Section("ENTITIES", inserts);
    const Prepared prepared = PreparedFrom(drawing);
    EXPECT_GT(PointsIn(prepared.text), 300'000u);
    EXPECT_LT(PointsIn(prepared.text), 310'000 + drawing.size());
    EXPECT_EQ(MissingIn(prepared.report), Lines{"drawing: it has more in it than can be shown"});
}

} // namespace
} // namespace prepare
