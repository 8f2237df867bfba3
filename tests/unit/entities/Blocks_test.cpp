// The BLOCKS section: block headers and the entities of blocks.
#include "entities/DXF_GRAPHIC_GEOMETRY.h"
#include "support/OneEntity.h"

#include <gtest/gtest.h>

namespace {

using Errors = std::vector<std::string>;

// Reads a BLOCKS section with these lines between its name (line 4) and its ENDSEC.
class BlocksReader : public ReportingReader {
public:
    explicit BlocksReader(std::initializer_list<Group> groups) { Read(Dxf(groups)); }
    explicit BlocksReader(std::string_view lines) { Read(lines); }

    // The names of the blocks and the kinds of their entities: "Door: 1 8".
    std::vector<std::string> Contents() const
    {
        std::vector<std::string> contents;
        for (const DXF_BLOCKS_BLOCK* const block : blocks) {
            contents.push_back(ToTraceText(block->m_strName) + ":");
            for (const DXF_GRAPHIC_BASE* const entity : block->m_entities)
                contents.back().append(" ").append(std::to_string(entity->m_nEntityType));
        }
        return contents;
    }

private:
    void Read(std::string_view lines) { ReadText(Section("BLOCKS", lines) + Dxf({{0, "EOF"}})); }
};

using Contents = std::vector<std::string>;

// The record before the first group.
FieldTexts BlockDefaults()
{
    return {{"m_nObjectType", "1"}, {"m_strHandle", ""},     {"m_strAppData", ""}, {"m_strOwnerHandle", ""},
            {"m_strSubclass", ""},  {"m_strLayer", ""},      {"m_strName", ""},    {"m_nFlags", "0"},
            {"m_dBaseX", "0"},      {"m_dBaseY", "0"},       {"m_dBaseZ", "0"},    {"m_strName3", ""},
            {"m_strXrefPath", ""},  {"m_strDescription", ""}};
}

FieldTexts OnlyBlock(const CDxfRead& reader)
{
    return reader.blocks.size() == 1 ? FieldMapOf(*reader.blocks[0]) : FieldTexts();
}

// Reads a section with one block that has these groups.
FieldTexts HeaderOf(std::initializer_list<Group> groups)
{
    BlocksReader reader(Dxf({{0, "BLOCK"}}) + Dxf(groups) + Dxf({{0, "ENDBLK"}}));
    EXPECT_EQ(reader.errors, Errors());
    return OnlyBlock(reader);
}

const FieldRow kRows[] = {
    {1, " C:\\x y.dxf ", "m_strXrefPath", "C:\\x5Cx y.dxf"},
    {2, "  Door 1\t", "m_strName", "Door 1"},
    {3, " Door 3 ", "m_strName3", "Door 3"},
    {4, " A door ", "m_strDescription", "A door"},
    {5, " 1F ", "m_strHandle", "1F"},
    {8, " Walls ", "m_strLayer", "Walls"},
    {330, " 2A ", "m_strOwnerHandle", "2A"},
    {10, " 1.5 ", "m_dBaseX", "1.5"},
    {20, "-2.5e1", "m_dBaseY", "-25"},
    {30, "3.5x", "m_dBaseZ", "3.5"},
    {70, " 2.9 ", "m_nFlags", "2"},
};

} // namespace

TEST(Blocks, SectionWithoutBlocksGivesNeitherBlockNorMessage)
{
    const BlocksReader reader("");
    EXPECT_EQ(reader.errors, Errors());
    EXPECT_TRUE(reader.blocks.empty());
    EXPECT_EQ(reader.lineCount, 9); // one past EOF, which is read after a "0"
}

TEST(Blocks, HeaderWithoutGroupsHoldsTheDefaults)
{
    EXPECT_EQ(HeaderOf({}), BlockDefaults());
}

TEST(Blocks, NewRecordHoldsNoEntitiesAndIsNotMarked)
{
    const BlocksReader reader({{0, "BLOCK"}, {0, "ENDBLK"}});
    ASSERT_EQ(reader.blocks.size(), 1u);
    EXPECT_TRUE(reader.blocks[0]->m_entities.empty());
    EXPECT_FALSE(reader.blocks[0]->hasNestedInsert);
}

TEST(Blocks, EachGroupOfAHeaderFillsItsFieldAndNoOther)
{
    for (const FieldRow& row : kRows)
        EXPECT_EQ(HeaderOf({{row.code, row.value}}), With(BlockDefaults(), {{row.field, row.text}}))
            << row.code;
}

TEST(Blocks, LaterGroupOfAHeaderReplacesTheFieldOfAnEarlierOne)
{
    for (const FieldRow& row : kRows)
        EXPECT_EQ(HeaderOf({{row.code, "9"}, {row.code, row.value}}),
                  With(BlockDefaults(), {{row.field, row.text}}))
            << row.code;
}

TEST(Blocks, EveryOtherGroupOfAHeaderIsDroppedWithoutAMessage)
{
    const UnknownCodes unknown("LINE", {1, 2, 3, 4, 10, 20, 30, 70});
    const std::size_t groups = unknown.drawing.find("LINE\n") + 5;
    const std::size_t end = unknown.drawing.rfind(Dxf({{0, "ENDSEC"}}));
    const BlocksReader reader(Dxf({{0, "BLOCK"}}) + unknown.drawing.substr(groups, end - groups) +
                              Dxf({{6, "DASHED"}, {62, 1}, {100, "AcDbBlockBegin"}, {0, "ENDBLK"}}));
    EXPECT_EQ(reader.errors, Errors());
    EXPECT_EQ(OnlyBlock(reader), BlockDefaults());
}

TEST(Blocks, MarkerOfAHeaderIsNotKept)
{
    EXPECT_EQ(HeaderOf({{100, "AcDbBlockBegin"}, {2, "Door"}}),
              With(BlockDefaults(), {{"m_strName", "Door"}}));
}

TEST(Blocks, ApplicationGroupsOfAHeaderAreJoined)
{
    // Code and value lines alike; a "102" that is not followed by "}" is dropped with that line.
    EXPECT_EQ(HeaderOf({{102, " {ONE "},
                        {" 330", " 1F "},
                        {102, "x"},
                        {2, "lost?"},
                        {102, "}"},
                        {102, "{TWO"},
                        {102, "}"},
                        {2, "Door"}}),
              With(BlockDefaults(),
                   {{"m_strAppData", "{ONE\\x0A330\\x0A1F\\x0A2\\x0Alost?{TWO"}, {"m_strName", "Door"}}));
}

TEST(Blocks, BlockWithALineIsReadWithoutAMessage)
{
    const BlocksReader reader({{0, "BLOCK"},
                               {2, "Door"},
                               {70, 0},
                               {10, 1},
                               {20, 2},
                               {30, 0},
                               {0, "LINE"},
                               {11, 5},
                               {0, "ENDBLK"},
                               {5, "1A"}});
    EXPECT_EQ(reader.errors, Errors());
    EXPECT_EQ(reader.Contents(), Contents{"Door: 1"});
    EXPECT_EQ(OnlyBlock(reader),
              With(BlockDefaults(), {{"m_strName", "Door"}, {"m_dBaseX", "1"}, {"m_dBaseY", "2"}}));
    EXPECT_EQ(OnlyEntity<DXF_GRAPHIC_LINE>(reader.blocks[0]->m_entities).m_dEndX, 5.0);
    EXPECT_TRUE(reader.entities.empty());
}

TEST(Blocks, EveryKeptKindBecomesARecordOfItsBlockInFileOrder)
{
    const BlocksReader reader({{0, "BLOCK"},
                               {2, "All"},
                               {0, "DIMENSION"},
                               {100, "AcDbEntity"},
                               {0, "INSERT"},
                               {0, "MTEXT"},
                               {0, "TEXT"},
                               {0, "LWPOLYLINE"},
                               {0, "ELLIPSE"},
                               {0, "CIRCLE"},
                               {0, "ARC"},
                               {0, "LINE"},
                               {0, "ENDBLK"},
                               {0, "BLOCK"},
                               {2, "One"},
                               {0, "LINE"},
                               {0, "ENDBLK"}});
    EXPECT_EQ(reader.errors, Errors());
    EXPECT_EQ(reader.Contents(), (Contents{"All: 9 8 7 6 5 4 3 2 1", "One: 1"}));
}

TEST(Blocks, SkippedKindsGiveNeitherRecordNorMessage)
{
    const BlocksReader reader({{0, "BLOCK"},
                               {2, "Odd"},
                               {0, "SPLINE"},
                               {10, 1},
                               {0, "POINT"},
                               {10, 1},
                               {0, "HATCH"},
                               {91, 1},
                               {0, "VIEWPORT"},
                               {40, 1},
                               {0, "LINE"},
                               {0, "ENDBLK"}});
    EXPECT_EQ(reader.errors, Errors());
    EXPECT_EQ(reader.Contents(), Contents{"Odd: 1"});
}

TEST(Blocks, OtherEntityNamesAreReportedAndSkipped)
{
    const BlocksReader reader({{0, "BLOCK"},
                               {2, "Door"},
                               {0, "LINE"},
                               {0, "ATTDEF"},
                               {1, "x"},
                               {0, "SOLID"},
                               {0, "ARC"},
                               {0, "ENDBLK"}});
    EXPECT_EQ(reader.errors, (Errors{"0 6 ATTDEF - Unknown Object Type Name (12)",
                                     "0 6 SOLID - Unknown Object Type Name (16)"}));
    EXPECT_EQ(reader.Contents(), Contents{"Door: 1 2"});
}

TEST(Blocks, PolylineIsSilentButItsVerticesAndSeqendAreReported)
{
    const BlocksReader reader({{0, "BLOCK"},
                               {2, "Old"},
                               {0, "POLYLINE"},
                               {66, 1},
                               {0, "VERTEX"},
                               {10, 1},
                               {0, "VERTEX"},
                               {10, 2},
                               {0, "SEQEND"},
                               {8, "0"},
                               {0, "ENDBLK"}});
    EXPECT_EQ(reader.errors, (Errors{"0 6 VERTEX - Unknown Object Type Name (14)",
                                     "0 6 VERTEX - Unknown Object Type Name (18)",
                                     "0 6 SEQEND - Unknown Object Type Name (22)"}));
    EXPECT_EQ(reader.Contents(), Contents{"Old:"});
}

TEST(Blocks, LinesThatNameNoEntityArePassedOverOneByOne)
{
    // FOO is no entity: its groups are looked at line by line, so the layer's name begins a line.
    const BlocksReader reader({{0, "BLOCK"},
                               {2, "Door"},
                               {0, "FOO"},
                               {8, "LINE"},
                               {8, "Walls"},
                               {0, "line"},
                               {62, 1},
                               {0, "ENDBLK"}});
    EXPECT_EQ(reader.errors, Errors());
    ASSERT_EQ(reader.Contents(), Contents{"Door: 1"});
    EXPECT_EQ(reader.blocks[0]->m_entities[0]->m_strLayer, std::wstring_view(L"Walls"));
    EXPECT_EQ(reader.blocks[0]->m_entities[0]->m_nColor, 0);
}

TEST(Blocks, LayerNamedLineStartsALineAfterAFailedEntity)
{
    const BlocksReader reader(
        Lines({"0", "BLOCK", "2", "Door", "0", "CIRCLE", "x", "8", "LINE", "8", "Walls", "0", "ENDBLK"}));
    EXPECT_EQ(reader.errors, (Errors{"0 3 ReadENTITIES_CIRCLE Failed to read integer from 'x', Line:11",
                                     "0 5 ReadENTITIES_CIRCLE() Failed to read line, Line:11"}));
    ASSERT_EQ(reader.Contents(), Contents{"Door: 3 1"});
    EXPECT_EQ(reader.blocks[0]->m_entities[1]->m_strLayer, std::wstring_view(L"Walls"));
}

TEST(Blocks, GroupsOfAnEndblkAreSkipped)
{
    const BlocksReader reader({{0, "BLOCK"},
                               {2, "A"},
                               {0, "ENDBLK"},
                               {5, "1A"},
                               {8, "LINE"},
                               {100, "AcDbBlockEnd"},
                               {999, "x"},
                               {0, "BLOCK"},
                               {2, "B"},
                               {0, "ENDBLK"}});
    EXPECT_EQ(reader.errors, Errors());
    EXPECT_EQ(reader.Contents(), (Contents{"A:", "B:"}));
}

TEST(Blocks, BadCodeInAnEndblkLeavesTheBlockAndReadsOnAtTheLevelOfTheSection)
{
    const BlocksReader reader({{0, "BLOCK"},
                               {2, "A"},
                               {0, "ENDBLK"},
                               {" five ", "1A"},
                               {8, "x"},
                               {0, "BLOCK"},
                               {2, "B"},
                               {0, "ENDBLK"}});
    EXPECT_EQ(reader.errors, (Errors{"0 3 Read_UNKNOWN() Failed to read integer from 'five', Line:11",
                                     "0 6 1A - Unknown Object Type Name (12)"}));
    EXPECT_EQ(reader.Contents(), (Contents{"A:", "B:"}));
}

TEST(Blocks, NamesOtherThanBlockAtTheLevelOfTheSectionAreReportedAndSkipped)
{
    const BlocksReader reader({{0, "LINE"},
                               {8, "BLOCK"},
                               {0, "ENDBLK"},
                               {0, "Block"},
                               {2, "x"},
                               {0, " BLOCK "},
                               {2, "Door"},
                               {0, "ENDBLK"}});
    EXPECT_EQ(reader.errors,
              (Errors{"0 6 LINE - Unknown Object Type Name (6)", "0 6 ENDBLK - Unknown Object Type Name (10)",
                      "0 6 Block - Unknown Object Type Name (12)"}));
    EXPECT_EQ(reader.Contents(), Contents{"Door:"});
}

TEST(Blocks, BadCodeInAHeaderDropsTheBlockAndReportsEachOfItsEntities)
{
    const BlocksReader reader({{0, "BLOCK"},
                               {2, "Bad"},
                               {" x1 ", "70"},
                               {5, "0"},
                               {0, "LINE"},
                               {8, "0"},
                               {0, "INSERT"},
                               {2, "Door"},
                               {0, "ENDBLK"},
                               {5, "1A"},
                               {0, "BLOCK"},
                               {2, "Good"},
                               {0, "LINE"},
                               {0, "ENDBLK"}});
    EXPECT_EQ(
        reader.errors,
        (Errors{"0 3 ReadBLOCKS_BLOCK Failed to read integer from 'x1', Line:9",
                "0 5 ReadBLOCKS_BLOCK() Failed to read line, Line:9",
                "0 6 70 - Unknown Object Type Name (10)", "0 6 LINE - Unknown Object Type Name (14)",
                "0 6 INSERT - Unknown Object Type Name (18)", "0 6 ENDBLK - Unknown Object Type Name (22)"}));
    EXPECT_EQ(reader.Contents(), Contents{"Good: 1"});
    EXPECT_TRUE(reader.entities.empty());
}

TEST(Blocks, LineAfterABadHeaderCodeMayBeABlockOrTheEnd)
{
    const BlocksReader block({{0, "BLOCK"}, {"x", "BLOCK"}, {2, "Door"}, {0, "ENDBLK"}});
    EXPECT_EQ(block.errors, (Errors{"0 3 ReadBLOCKS_BLOCK Failed to read integer from 'x', Line:7",
                                    "0 5 ReadBLOCKS_BLOCK() Failed to read line, Line:7"}));
    EXPECT_EQ(block.Contents(), Contents{"Door:"});

    const BlocksReader end(Dxf({{0, "BLOCK"}, {"x", "ENDSEC"}}) + EntitiesSection({{0, "LINE"}}));
    EXPECT_EQ(end.errors, (Errors{"0 3 ReadBLOCKS_BLOCK Failed to read integer from 'x', Line:7",
                                  "0 5 ReadBLOCKS_BLOCK() Failed to read line, Line:7"}));
    EXPECT_EQ(end.entities.size(), 1u);
}

TEST(Blocks, EmptyHeaderCodeLineIsNoInteger)
{
    const BlocksReader reader({{0, "BLOCK"}, {2, "Bad"}, {"", "x"}});
    EXPECT_EQ(reader.errors, (Errors{"0 3 ReadBLOCKS_BLOCK Failed to read integer from '', Line:9",
                                     "0 5 ReadBLOCKS_BLOCK() Failed to read line, Line:9",
                                     "0 6 x - Unknown Object Type Name (10)"}));
    EXPECT_TRUE(reader.blocks.empty());
}
