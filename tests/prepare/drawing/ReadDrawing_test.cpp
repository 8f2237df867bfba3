#include "input/CDxfMemory.h"
#include "prepare/support/ReadText.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

const std::string kTables = Dxf({{0, "SECTION"}, {2, "TABLES"}, {0, "ENDSEC"}});
const std::string kBlocks = Dxf({{0, "SECTION"}, {2, "BLOCKS"}, {0, "ENDSEC"}});
const std::string kEntities =
    Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "LINE"}, {8, "a"}, {0, "CIRCLE"}, {8, "b"}, {0, "ENDSEC"}});
const std::string kEof = Dxf({{0, "EOF"}});

// What ReadEntities gives of a drawing whose index has been read.
std::string EntitiesAgain(ReadDrawingOf& read, const std::string& text)
{
    read.entities.clear();
    CDxfMemory memory(text);
    ReadEntities(memory, {}, read.drawing, read, read.hasFailed, &read.report);
    return read.entities;
}

TEST(ReadDrawing, EntitiesAfterTablesAndBlocksGoToTheSinkAtOnce)
{
    const std::string text = kTables + kBlocks + kEntities + kEof;
    ReadDrawingOf read(text);
    EXPECT_TRUE(read.hasGivenAll);
    EXPECT_FALSE(read.hasFailed);
    EXPECT_EQ(read.entities, "LINE a;CIRCLE b;");
    EXPECT_EQ(EntitiesAgain(read, text), "LINE a;CIRCLE b;");
    EXPECT_TRUE(read.report.Entries().empty());
    EXPECT_EQ(read.drawing.bytes, text.size());
    EXPECT_TRUE(read.drawing.hasSections);
}

TEST(ReadDrawing, EntitiesBeforeTablesOrBlocksAreLeftForLater)
{
    for (const std::string& text :
         {kEntities + kTables + kBlocks + kEof, kTables + kEntities + kBlocks + kEof, kEntities + kEof,
          kEntities + kTables + kBlocks + kEntities}) {
        ReadDrawingOf read(text);
        EXPECT_FALSE(read.hasGivenAll);
        EXPECT_EQ(read.entities, "");
        EXPECT_EQ(EntitiesAgain(read, text).substr(0, 16), "LINE a;CIRCLE b;");
    }
}

// Wherever they are; but not those of a block, and no records of other kinds.
TEST(ReadDrawing, EntitiesOutsideOfSectionsAreTaken)
{
    const std::string loose = Dxf({{0, "ARC"}, {8, "c"}, {0, "LAYER"}, {2, "x"}});
    const std::string block = Dxf({{0, "BLOCK"}, {2, "x"}, {0, "LINE"}, {8, "d"}, {0, "ENDBLK"}});
    const std::string nameless = Dxf({{0, "SECTION"}, {0, "POINT"}, {8, "e"}, {0, "ENDSEC"}});
    const std::string texts[] = {loose + kEof, kTables + kBlocks + block + loose + kEof,
                                 loose + kEntities + kTables + kBlocks + nameless + block,
                                 kTables + kBlocks + nameless + kEntities + loose};
    const bool areGivenAtOnce[] = {false, true, false, true};
    const std::string wanted[] = {"ARC c;", "ARC c;", "ARC c;LINE a;CIRCLE b;POINT e;",
                                  "POINT e;LINE a;CIRCLE b;ARC c;"};
    for (std::size_t i = 0; i < std::size(texts); ++i) {
        ReadDrawingOf read(texts[i]);
        EXPECT_EQ(read.hasGivenAll, areGivenAtOnce[i]) << i;
        EXPECT_EQ(read.entities, areGivenAtOnce[i] ? wanted[i] : "") << i;
        EXPECT_EQ(read.report.Entries().begin()->first,
                  (Report::Key{Finding::Repaired, "file", "an entity outside of sections is taken"}));
        EXPECT_EQ(EntitiesAgain(read, texts[i]), wanted[i]) << i;
    }
}

// As where the lines that begin a section, or its name, are lost.
TEST(ReadDrawing, AHeaderOutsideOfSectionsIsTaken)
{
    const std::string variables = Dxf({{9, " $LTSCALE"}, {40, "2.5"}, {9, "$PDMODE"}, {70, "34"}});
    const std::string noStart = variables + Dxf({{0, "ENDSEC"}});
    const std::string noName = Dxf({{0, "SECTION"}}) + noStart;
    for (const std::string& text : {noStart, noName, noName + noStart}) {
        const ReadDrawingOf read(text + kTables + kBlocks + kEntities + kEof);
        EXPECT_EQ(read.drawing.header.Real("$LTSCALE", 1), 2.5);
        EXPECT_EQ(read.drawing.header.Integer("$PDMODE", 0), 34);
        EXPECT_EQ(read.entities, "LINE a;CIRCLE b;");
        EXPECT_EQ(read.report.Entries().begin()->first,
                  (Report::Key{Finding::Repaired, "file", "a header outside of sections is taken"}));
    }
}

TEST(ReadDrawing, ObjectsOutsideOfSectionsAreTaken)
{
    const std::string order = Dxf({{0, "SORTENTSTABLE"}, {331, "2"}, {5, "1"}, {331, "1"}, {5, "2"}});
    const ReadDrawingOf read(kTables + kBlocks + kEntities + order + kEof);
    EXPECT_EQ(read.drawing.PlaceOf(1), 2U);
    EXPECT_EQ(read.drawing.PlaceOf(2), 1U);
    EXPECT_EQ(read.report.Entries().begin()->first,
              (Report::Key{Finding::Repaired, "file", "an object outside of sections is taken"}));
}

TEST(ReadDrawing, SectionsMayComeTwice)
{
    const ReadDrawingOf read(kTables + kBlocks + kEntities + kEntities + kEof);
    EXPECT_EQ(read.entities, "LINE a;CIRCLE b;LINE a;CIRCLE b;");
}

TEST(ReadDrawing, HeaderVariablesKeepTheirFirstValuesByCode)
{
    const ReadDrawingOf read(Dxf({{0, "SECTION"},
                                  {2, "HEADER"},
                                  {9, "$LTSCALE"},
                                  {40, "2.5"},
                                  {9, "$EXTMIN"},
                                  {10, "1"},
                                  {20, "2"},
                                  {30, "3"},
                                  {9, "$ACADVER"},
                                  {1, " AC1009 "},
                                  {9, "$LTSCALE"},
                                  {40, "9"},
                                  {9, "$PDMODE"},
                                  {70, "34"},
                                  {0, "ENDSEC"}}));
    const Header& header = read.drawing.header;
    EXPECT_EQ(header.Real("$LTSCALE", 1), 2.5);
    EXPECT_EQ(header.Real("$MISSING", 7), 7);
    EXPECT_EQ(header.Integer("$PDMODE", 0), 34);
    EXPECT_EQ(header.Text("$ACADVER"), "AC1009");
    EXPECT_EQ(header.Real("$EXTMIN", 7), 1);
}

TEST(ReadDrawing, TablesAreReadWithoutSubclassMarkersAndInAnyOrder)
{
    const ReadDrawingOf read(Dxf({{0, "SECTION"},  {2, "TABLES"},
                                  {0, "TABLE"},    {2, "LAYER"},
                                  {70, "9"},       {0, "LAYER"},
                                  {62, "-3"},      {70, "5"},
                                  {6, "DASHED"},   {2, "Walls"},
                                  {420, "255"},    {370, "50"},
                                  {290, "0"},      {0, "LAYER"},
                                  {2, "WALLS"},    {62, "1"},
                                  {0, "ENDTAB"},   {0, "TABLE"},
                                  {2, "LTYPE"},    {0, "LTYPE"},
                                  {2, "DASHED"},   {3, "__ __"},
                                  {49, "5"},       {74, "0"},
                                  {49, "-2"},      {74, "2"},
                                  {0, "STYLE"},    {5, "11"},
                                  {2, "Standard"}, {40, "2"},
                                  {41, "0.8"},     {50, "15"},
                                  {71, "4"},       {3, "txt.shx"},
                                  {4, "big.shx"},  {0, "DIMSTYLE"},
                                  {105, "27"},     {100, "AcDbDimStyleTableRecord"},
                                  {2, "ISO"},      {3, " mm"},
                                  {140, "2.5"},    {0, "BLOCK_RECORD"},
                                  {5, "1F"},       {2, "*Model_Space"},
                                  {0, "ENDSEC"},   {0, "SECTION"},
                                  {2, "OBJECTS"},  {0, "DICTIONARY"},
                                  {5, "C"},        {0, "MLINESTYLE"},
                                  {5, "18"},       {2, "STANDARD"},
                                  {70, "16"},      {62, "9"},
                                  {51, "45"},      {49, "0.5"},
                                  {62, "1"},       {6, "DASHED"},
                                  {49, "-0.5"},    {0, "ENDSEC"}}));
    const Layer* const walls = read.drawing.FindLayer(read.Id("walls"));
    ASSERT_NE(walls, nullptr);
    EXPECT_EQ(walls->colour, -3);
    EXPECT_EQ(walls->flags, 5);
    EXPECT_EQ(walls->lineType, read.Id("DASHED"));
    EXPECT_EQ(walls->trueColour, 255);
    EXPECT_EQ(walls->weight, 50);
    EXPECT_EQ(walls->isPlotted, 0);
    EXPECT_EQ(read.Found(Finding::Repaired, "LAYER"), "a second one of the same name is left out at 28, 1;");
    const LineType* const dashed = read.drawing.FindLineType(read.Id("DASHED"));
    ASSERT_NE(dashed, nullptr);
    EXPECT_EQ(dashed->dashes, (std::vector<double>{5, -2}));
    EXPECT_TRUE(dashed->hasShapes);
    const TextStyle* const style = read.drawing.FindTextStyle(read.Id("Standard"));
    ASSERT_NE(style, nullptr);
    EXPECT_EQ(style->widthFactor, 0.8);
    EXPECT_EQ(style->font, "txt.shx");
    EXPECT_EQ(style->bigFont, "big.shx");
    EXPECT_EQ(read.drawing.textStyleOfHandle.at(0x11), read.Id("Standard"));
    const DimStyle& dimStyle = read.drawing.dimStyles.at(read.Id("ISO"));
    EXPECT_EQ(dimStyle.handle, 0x27u);
    const std::vector<std::pair<std::int32_t, std::string>> values{{3, " mm"}, {140, "2.5"}};
    EXPECT_EQ(dimStyle.values, values);
    EXPECT_EQ(read.drawing.blockOfRecord.at(0x1F), read.Id("*Model_Space"));
    const MultiLineStyle& multi =
        read.drawing.multiLineStyles.at(read.drawing.multiLineStyleOfHandle.at(0x18));
    EXPECT_EQ(multi.startAngle, 45);
    EXPECT_EQ(multi.fillColour, 9);
    EXPECT_EQ(multi.fillTrueColour, kNoTrueColour);
    ASSERT_EQ(multi.elements.size(), 2u);
    EXPECT_EQ(multi.elements[0].colour, 1);
    EXPECT_EQ(multi.elements[0].lineType, read.Id("DASHED"));
    EXPECT_EQ(multi.elements[1].colour, kByLayer);
}

TEST(ReadDrawing, EntriesWithoutANameAreReported)
{
    const std::string start = Dxf({{0, "SECTION"}, {2, "TABLES"}}), end = Dxf({{0, "ENDSEC"}, {0, "EOF"}});
    for (const std::string type : {"LAYER", "LTYPE", "STYLE", "DIMSTYLE", "MLINESTYLE"})
        for (const std::string& entry : {Dxf({{0, type}, {70, "0"}}), Dxf({{0, type}, {2, " "}})}) {
            const ReadDrawingOf read(start + entry + entry + Dxf({{0, type}, {2, "A"}}) + end);
            EXPECT_EQ(read.Found(Finding::Repaired, type), "one without a name is left out at 6, 2;");
        }
    // A file of shapes.
    const ReadDrawingOf read(start + Dxf({{0, "STYLE"}, {2, ""}, {70, "1"}, {3, "ltypeshp.shx"}}) + end);
    EXPECT_TRUE(read.report.Entries().empty());
}

TEST(ReadDrawing, BlocksKeepTheirEntitiesAndTheFirstOfANameCounts)
{
    const ReadDrawingOf read(Dxf({{0, "SECTION"},  {2, "BLOCKS"}, {0, "BLOCK"},  {8, "L"},      {330, "20"},
                                  {2, "Door"},     {70, "4"},     {10, "1"},     {20, "2"},     {3, "Door"},
                                  {1, "door.dwg"}, {0, "LINE"},   {0, "ARC"},    {0, "ENDBLK"}, {5, "9"},
                                  {0, "BLOCK"},    {2, "DOOR"},   {0, "ENDBLK"}, {0, "ENDSEC"}, {0, "EOF"}}));
    const Block* const door = read.drawing.FindBlock(read.Id("door"));
    ASSERT_NE(door, nullptr);
    EXPECT_EQ(door->line, 6u);
    EXPECT_EQ(door->base, (Point3{1, 2, 0}));
    EXPECT_EQ(door->flags, 4);
    EXPECT_EQ(door->path, "door.dwg");
    EXPECT_EQ(door->record, 0x20u);
    EXPECT_EQ(door->entities.size(), 2u);
    EXPECT_FALSE(door->isLayout);
    EXPECT_EQ(read.drawing.blockOfRecord.at(0x20), read.Id("Door"));
    EXPECT_EQ(read.Found(Finding::Repaired, "BLOCK"), "a second one of the same name is left out at 32, 1;");
    EXPECT_EQ(read.entities, "");
}

TEST(ReadDrawing, ABlockWithoutEndblkEndsAtTheNextBlockOrTheSection)
{
    const ReadDrawingOf read(Dxf({{0, "SECTION"},
                                  {2, "BLOCKS"},
                                  {0, "BLOCK"},
                                  {2, "One"},
                                  {0, "LINE"},
                                  {0, "BLOCK"},
                                  {2, "Two"},
                                  {0, "ARC"},
                                  {0, "ARC"},
                                  {0, "ENDSEC"}}) +
                             kTables + kEntities + kEof);
    EXPECT_EQ(read.drawing.FindBlock(read.Id("One"))->entities.size(), 1u);
    EXPECT_EQ(read.drawing.FindBlock(read.Id("Two"))->entities.size(), 2u);
    EXPECT_EQ(read.Found(Finding::Repaired, "BLOCK"), "ends without ENDBLK at 6, 2;");
    EXPECT_EQ(read.entities, "LINE a;CIRCLE b;");
}

TEST(ReadDrawing, EntitiesOfTheLayoutsBlocksComeFirst)
{
    const std::string blocks = kTables + Dxf({{0, "SECTION"},
                                              {2, "BLOCKS"},
                                              {0, "BLOCK"},
                                              {2, "*MODEL_SPACE"},
                                              {0, "ARC"},
                                              {8, "m"},
                                              {0, "ENDBLK"},
                                              {0, "BLOCK"},
                                              {2, "*Paper_Space0"},
                                              {0, "POINT"},
                                              {8, "p"},
                                              {0, "ENDBLK"},
                                              {0, "BLOCK"},
                                              {2, "Own"},
                                              {0, "TEXT"},
                                              {0, "ENDBLK"},
                                              {0, "ENDSEC"}});
    const std::string text = blocks + kEntities + kEof;
    ReadDrawingOf read(text);
    EXPECT_EQ(read.entities, "ARC m;POINT* p;LINE a;CIRCLE b;");
    EXPECT_EQ(EntitiesAgain(read, text), "ARC m;POINT* p;LINE a;CIRCLE b;");
    EXPECT_TRUE(read.drawing.FindBlock(read.Id("*Paper_Space0"))->isLayout);
    const ReadDrawingOf alone(blocks + kEof);
    EXPECT_TRUE(alone.hasGivenAll);
    EXPECT_EQ(alone.entities, "ARC m;POINT* p;");
}

TEST(ReadDrawing, TheOwnerOrTheLayoutSaysThatAnEntityIsInPaperSpace)
{
    const ReadDrawingOf read(Dxf({{0, "SECTION"},
                                  {2, "TABLES"},
                                  {0, "BLOCK_RECORD"},
                                  {5, "1B"},
                                  {2, "*Paper_Space"},
                                  {0, "BLOCK_RECORD"},
                                  {5, "1F"},
                                  {2, "*Model_Space"},
                                  {0, "ENDSEC"}}) +
                             kBlocks +
                             Dxf({{0, "SECTION"},
                                  {2, "ENTITIES"},
                                  {0, "LINE"},
                                  {330, "1B"},
                                  {0, "LINE"},
                                  {330, "1F"},
                                  {410, "Sheet"},
                                  {0, "LINE"},
                                  {67, "1"},
                                  {0, "LINE"},
                                  {410, "Sheet"},
                                  {0, "LINE"},
                                  {410, "Model"},
                                  {0, "ENDSEC"}}));
    EXPECT_EQ(read.entities, "LINE* ;LINE ;LINE* ;LINE* ;LINE ;");
}

TEST(ReadDrawing, SectionsWithoutEndsecAndFilesWithoutEofAreReadAndReported)
{
    const ReadDrawingOf read(kTables + kBlocks + Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "LINE"}}) +
                             Dxf({{0, "SECTION"}, {2, "OBJECTS"}, {0, "DICTIONARY"}}));
    EXPECT_EQ(read.entities, "LINE ;");
    EXPECT_EQ(read.Found(Finding::Repaired, "file"),
              "a section ends without ENDSEC at 19, 2;ends without EOF at 24, 1;");
}

TEST(ReadDrawing, AHeaderWithoutEndsecIsReported)
{
    const ReadDrawingOf read(Dxf({{0, "SECTION"}, {2, "HEADER"}, {9, "$LTSCALE"}, {40, "2"}}) + kTables +
                             kBlocks + kEntities + kEof);
    EXPECT_EQ(read.entities, "LINE a;CIRCLE b;");
    EXPECT_EQ(read.drawing.header.Real("$LTSCALE", 1), 2);
    EXPECT_EQ(read.Found(Finding::Repaired, "file"), "a section ends without ENDSEC at 9, 1;");
}

// As where a part of the file is lost: the end of one section and the start of the next.
TEST(ReadDrawing, BlocksAndTableEntriesOutsideOfTheirSectionsAreTaken)
{
    const std::string layer = Dxf({{0, "LAYER"}, {2, "x"}, {62, "3"}});
    const std::string block = Dxf({{0, "BLOCK"}, {2, "Door"}, {0, "LINE"}, {8, "d"}, {0, "ENDBLK"}});
    const std::string section = Dxf({{0, "SECTION"}, {2, "TABLES"}});
    const std::string unknown = Dxf({{0, "SECTION"}, {2, "TABELS"}});
    const std::string end = Dxf({{0, "ENDSEC"}});
    for (const std::string& text :
         {layer + end + block + end + kEntities + kEof, section + layer + block + end + kEntities + kEof,
          unknown + layer + end + unknown + block + end + kEntities + kEof,
          kEntities + kTables + kBlocks + block + layer + kEof}) {
        ReadDrawingOf read(text);
        ASSERT_NE(read.drawing.FindBlock(read.Id("Door")), nullptr) << text;
        EXPECT_EQ(read.drawing.FindBlock(read.Id("Door"))->entities.size(), 1u);
        ASSERT_NE(read.drawing.FindLayer(read.Id("x")), nullptr);
        EXPECT_EQ(read.drawing.FindLayer(read.Id("x"))->colour, 3);
        EXPECT_NE(
            read.Found(Finding::Repaired, "file").find("this block is outside of sections and is taken"),
            std::string::npos);
        EXPECT_EQ(EntitiesAgain(read, text), "LINE a;CIRCLE b;");
    }
}

TEST(ReadDrawing, WhatComesAfterTheFirstEntitiesIsKnownToBeLate)
{
    const std::string start = kTables + kBlocks + kEntities;
    EXPECT_FALSE(ReadDrawingOf(start + kEof).drawing.hasLateParts);
    for (const char* const type : {"LAYER", "LTYPE", "STYLE", "DIMSTYLE", "MLINESTYLE"}) {
        const std::string entry = Dxf({{0, type}, {2, "x"}});
        const std::string end = Dxf({{0, "ENDSEC"}});
        for (const std::string& late : {entry, Dxf({{0, "SECTION"}, {2, "TABELS"}}) + entry + end,
                                        Dxf({{0, "SECTION"}, {2, "ENTITIES"}}) + entry + end}) {
            const ReadDrawingOf read(start + late + kEof);
            EXPECT_TRUE(read.hasGivenAll);
            EXPECT_TRUE(read.drawing.hasLateParts) << late;
        }
    }
}

// In the first pass and in a second one alike.
TEST(ReadDrawing, StraysAmongTheEntitiesAreNoEntities)
{
    const std::string section = Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "ARC"}, {8, "c"}});
    const std::string block = Dxf({{0, "BLOCK"}, {2, "B"}, {0, "LINE"}, {8, "d"}, {0, "ENDBLK"}});
    const std::string table =
        Dxf({{0, "TABLE"}, {2, "LAYER"}, {0, "LAYER"}, {2, "x"}, {62, "3"}, {0, "ENDTAB"}, {0, "VIEW"}});
    const std::string objects = Dxf({{0, "DICTIONARY"}, {5, "C"}, {0, "XRECORD"}, {0, "POINT"}, {8, "e"}});
    const std::string end = Dxf({{0, "FOO"}, {0, "ENDSEC"}});
    for (const std::string& before : {std::string(), kTables + kBlocks}) {
        const std::string text = before + section + block + table + section + objects + end + kEof;
        ReadDrawingOf read(text);
        EXPECT_EQ(read.entities, before.empty() ? "" : "ARC c;ARC c;POINT e;");
        EXPECT_EQ(EntitiesAgain(read, text), "ARC c;ARC c;POINT e;");
        ASSERT_NE(read.drawing.FindBlock(read.Id("B")), nullptr);
        EXPECT_EQ(read.drawing.FindBlock(read.Id("B"))->entities.size(), 1u);
        ASSERT_NE(read.drawing.FindLayer(read.Id("x")), nullptr);
    }
}

TEST(ReadDrawing, SecondSectionsAreReported)
{
    const std::string other = Dxf({{0, "SECTION"}, {2, "CLASSES"}, {0, "ENDSEC"}});
    const ReadDrawingOf read(other + kTables + other + kBlocks + kEntities + kBlocks + kEntities + kEntities +
                             kEof);
    EXPECT_EQ(read.Found(Finding::Repaired, "file"), "a second section BLOCKS is read, too at 41, 1;"
                                                     "a second section ENTITIES is read, too at 47, 2;");
}

TEST(ReadDrawing, EntitiesInASectionOfOtherThingsAreTakenInOnePassAsInTwo)
{
    const std::string arc = Dxf({{0, "ARC"}, {8, "c"}});
    const std::string objects = Dxf({{0, "SECTION"}, {2, "OBJECTS"}, {0, "DICTIONARY"}, {5, "C"}});
    const std::string blocks = Dxf({{0, "SECTION"}, {2, "BLOCKS"}, {0, "BLOCK"}, {2, "B"}, {0, "ENDBLK"}});
    const std::string end = Dxf({{0, "ENDSEC"}});
    for (const std::string& text :
         {kTables + kBlocks + objects + arc + end + kEof, kTables + blocks + arc + end + kEof,
          kTables + kBlocks + Dxf({{0, "SECTION"}, {2, "ENTITES"}}) + arc + end + kEof}) {
        ReadDrawingOf read(text);
        EXPECT_TRUE(read.hasGivenAll);
        EXPECT_EQ(read.entities, "ARC c;") << text;
        EXPECT_EQ(EntitiesAgain(read, text), "ARC c;");
    }
}

TEST(ReadDrawing, LinesThatAreNoCodesAreReportedWithTheFirst)
{
    const ReadDrawingOf read(kTables + kBlocks +
                             "0\nSECTION\nwhat\n2\nENTITIES\n0\nLINE\n8\na\n\nb\n0\nENDSEC\n" + kEof);
    EXPECT_EQ(read.entities, "LINE a;");
    EXPECT_EQ(read.Found(Finding::Repaired, "file"), "a line is skipped that is not a group code at 15, 3;");
}

TEST(ReadDrawing, TextsBecomeUtf8FromTheCodePageTheFileNames)
{
    const auto drawing = [](const std::string& page) {
        return Dxf({{0, "SECTION"}, {2, "HEADER"}, {9, "$DWGCODEPAGE"}, {3, page}, {0, "ENDSEC"}}) + kTables +
               kBlocks +
               Dxf({{0, "SECTION"},
                    {2, "ENTITIES"},
                    {0, "LINE"},
                    {8, "\xC4\\U+00C4"},
                    {0, "LINE"},
                    {8, "\xC3\x84"},
                    {0, "ENDSEC"},
                    {0, "EOF"}});
    };
    EXPECT_EQ(ReadDrawingOf(drawing("ANSI_1252")).entities, "LINE \xC3\x84\xC3\x84;LINE \xC3\x84;");
    EXPECT_EQ(ReadDrawingOf(drawing("ANSI_1251")).entities, "LINE \xD0\x94\xC3\x84;LINE \xC3\x84;");
    EXPECT_EQ(ReadDrawingOf(drawing("ANSI_1251"), "ANSI_1252").entities,
              "LINE \xC3\x84\xC3\x84;LINE \xC3\x84;");
}

TEST(ReadDrawing, WordsOfTheFormatMayBeInSmallLetters)
{
    const std::string drawing =
        Dxf({{0, "section"}, {2, "header"}, {9, "$ltscale"}, {40, "2"}, {0, "endsec"}}) +
        Dxf({{0, "section"},
             {2, "tables"},
             {0, "table"},
             {2, "layer"},
             {0, "layer"},
             {2, "Walls"},
             {62, "3"}}) +
        Dxf({{0, "endtab"}, {0, "endsec"}, {0, "section"}, {2, "blocks"}, {0, "block"}, {2, "Door"}}) +
        Dxf({{0, "line"}, {8, "a"}, {0, "endblk"}, {0, "endsec"}, {0, "section"}, {2, "entities"}}) +
        Dxf({{0, "polyline"}, {8, "b"}, {0, "vertex"}, {10, "1"}, {0, "seqend"}, {0, "endsec"}, {0, "eof"}});
    const ReadDrawingOf read(drawing + "what is after the end\n");
    EXPECT_EQ(read.entities, "POLYLINE b;");
    EXPECT_EQ(read.drawing.header.Real("$LTSCALE", 1), 2);
    ASSERT_NE(read.drawing.FindLayer(read.Id("Walls")), nullptr);
    EXPECT_EQ(read.drawing.FindLayer(read.Id("Walls"))->colour, 3);
    ASSERT_NE(read.drawing.FindBlock(read.Id("Door")), nullptr);
    EXPECT_EQ(read.drawing.FindBlock(read.Id("Door"))->entities.size(), 1u);
    EXPECT_TRUE(read.report.Entries().empty());
}

TEST(ReadDrawing, FailureToReadIsReported)
{
    struct Failing final : CDxfSource {
        std::ptrdiff_t Read(char*, std::size_t) override { return -1; }
    } source;
    Drawing drawing;
    Report report;
    bool hasFailed = false;
    EXPECT_FALSE(ReadIndex(source, {}, drawing, nullptr, report, hasFailed));
    EXPECT_TRUE(hasFailed);
}

} // namespace
} // namespace prepare
