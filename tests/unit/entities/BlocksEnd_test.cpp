// BLOCKS sections that the file's end cuts off, and blocks that nothing ends.
#include "entities/DXF_BLOCKS_BLOCK.h"
#include "entities/DXF_GRAPHIC_BASE.h"
#include "support/Import.h"

#include <gtest/gtest.h>

namespace {

// What was read, on one line for each block: "Door: 1 8" with the kinds of its entities, then "entities: 1",
// then the messages.
std::vector<std::string> Read(std::string_view dxf)
{
    ReportingReader reader;
    reader.ReadText(dxf);
    std::vector<std::string> result;
    const auto add = [&](const std::string& name, const DXF_ENTITY_LIST& list) {
        result.push_back(name + ":");
        for (const DXF_GRAPHIC_BASE* const entity : list)
            result.back().append(" ").append(std::to_string(entity->m_nEntityType));
    };
    for (const DXF_BLOCKS_BLOCK* const block : reader.blocks)
        add(ToTraceText(block->m_strName), block->m_entities);
    add("entities", reader.entities);
    result.insert(result.end(), reader.errors.begin(), reader.errors.end());
    return result;
}

using Result = std::vector<std::string>;

// Four lines.
const std::string kBlocks = Dxf({{0, "SECTION"}, {2, "BLOCKS"}});

} // namespace

TEST(BlocksEnd, AfterTheSectionsName)
{
    EXPECT_EQ(Read("0\nSECTION\n2\nBLOCKS"), Result{"entities:"});
    EXPECT_EQ(Read(kBlocks), Result{"entities:"});
}

TEST(BlocksEnd, AfterTheSectionsFirstZero)
{
    EXPECT_EQ(Read(kBlocks + "0"), Result{"entities:"});
    EXPECT_EQ(Read(kBlocks + "0\n"), Result{"entities:"});
}

TEST(BlocksEnd, NameReadTogetherWithTheEndIsNotLookedAt)
{
    EXPECT_EQ(Read(kBlocks + "0\nBLOCK"), Result{"entities:"});
    EXPECT_EQ(Read(kBlocks + "0\nFOO"), Result{"entities:"});
}

TEST(BlocksEnd, InAHeaderAfterALineFeedGivesTwoMessages)
{
    EXPECT_EQ(Read(kBlocks + Dxf({{0, "BLOCK"}})),
              (Result{"entities:", "0 3 ReadBLOCKS_BLOCK Failed to read integer from '', Line:7",
                      "0 5 ReadBLOCKS_BLOCK() Failed to read line, Line:7"}));
    EXPECT_EQ(Read(kBlocks + Dxf({{0, "BLOCK"}, {2, "Door"}})),
              (Result{"entities:", "0 3 ReadBLOCKS_BLOCK Failed to read integer from '', Line:9",
                      "0 5 ReadBLOCKS_BLOCK() Failed to read line, Line:9"}));
}

TEST(BlocksEnd, InAHeaderWithoutALineFeedGivesTheLastMessageAlone)
{
    EXPECT_EQ(Read(kBlocks + "0\nBLOCK\n2\nDoor"),
              (Result{"entities:", "0 5 ReadBLOCKS_BLOCK() Failed to read line, Line:8"}));
    // A code line that ends the file is followed by an empty value line, read and counted.
    EXPECT_EQ(Read(kBlocks + "0\nBLOCK\n2"),
              (Result{"entities:", "0 5 ReadBLOCKS_BLOCK() Failed to read line, Line:8"}));
}

TEST(BlocksEnd, InAnApplicationGroupOfAHeaderDropsTheBlock)
{
    EXPECT_EQ(Read(kBlocks + "0\nBLOCK\n2\nDoor\n102\n{G\n330\n"),
              (Result{"entities:", "0 5 ReadBLOCKS_BLOCK() Failed to read line, Line:12"}));
    EXPECT_EQ(Read(kBlocks + "0\nBLOCK\n2\nDoor\n102\n{G\n102"),
              (Result{"entities:", "0 5 ReadBLOCKS_BLOCK() Failed to read line, Line:12"}));
}

TEST(BlocksEnd, HeaderThatEndsWithTheFileIsComplete)
{
    EXPECT_EQ(Read(kBlocks + "0\nBLOCK\n2\nDoor\n0"), (Result{"Door:", "entities:"}));
    EXPECT_EQ(Read(kBlocks + "0\nBLOCK\n2\nDoor\n0\n"), (Result{"Door:", "entities:"}));
}

TEST(BlocksEnd, EntityNameReadTogetherWithTheEndIsNotLookedAt)
{
    EXPECT_EQ(Read(kBlocks + "0\nBLOCK\n0\nLINE"), (Result{":", "entities:"}));
    EXPECT_EQ(Read(kBlocks + "0\nBLOCK\n0\nATTDEF"), (Result{":", "entities:"}));
}

TEST(BlocksEnd, InAnEntityOfABlockKeepsTheRecord)
{
    EXPECT_EQ(Read(kBlocks + Dxf({{0, "BLOCK"}, {0, "LINE"}})),
              (Result{": 1", "entities:", "0 3 ReadENTITIES_LINE Failed to read integer from '', Line:9",
                      "0 5 ReadENTITIES_LINE() Failed to read line, Line:9"}));
    EXPECT_EQ(Read(kBlocks + "0\nBLOCK\n0\nLINE\n10\n5"),
              (Result{": 1", "entities:", "0 5 ReadENTITIES_LINE() Failed to read line, Line:10"}));
}

TEST(BlocksEnd, AfterAnEntityOfABlock)
{
    EXPECT_EQ(Read(kBlocks + "0\nBLOCK\n0\nLINE\n0"), (Result{": 1", "entities:"}));
    EXPECT_EQ(Read(kBlocks + "0\nBLOCK\n0\nLINE\n0\n"), (Result{": 1", "entities:"}));
    EXPECT_EQ(Read(kBlocks + "0\nBLOCK\n0\nLINE\n0\nENDBLK"), (Result{": 1", "entities:"}));
}

TEST(BlocksEnd, InAnEndblkGivesOneMessageAtMost)
{
    EXPECT_EQ(Read(kBlocks + Dxf({{0, "BLOCK"}, {0, "ENDBLK"}})),
              (Result{":", "entities:", "0 3 Read_UNKNOWN() Failed to read integer from '', Line:9"}));
    EXPECT_EQ(Read(kBlocks + "0\nBLOCK\n0\nENDBLK\n5\n1A"), (Result{":", "entities:"}));
    EXPECT_EQ(Read(kBlocks + "0\nBLOCK\n0\nENDBLK\n0\n"), (Result{":", "entities:"}));
    EXPECT_EQ(Read(kBlocks + "0\nBLOCK\n0\nENDBLK\n0\nENDSEC"), (Result{":", "entities:"}));
    EXPECT_EQ(Read(kBlocks + Dxf({{0, "BLOCK"}, {0, "ENDBLK"}, {0, "ENDSEC"}})), (Result{":", "entities:"}));
}

TEST(BlocksEnd, InAnUnknownObjectOfTheSection)
{
    EXPECT_EQ(Read(kBlocks + Dxf({{0, "FOO"}})),
              (Result{"entities:", "0 6 FOO - Unknown Object Type Name (6)",
                      "0 3 Read_UNKNOWN() Failed to read integer from '', Line:7"}));
    EXPECT_EQ(Read(kBlocks + "0\nFOO\n8\nx"),
              (Result{"entities:", "0 6 FOO - Unknown Object Type Name (6)"}));
}

TEST(BlocksEnd, BlockWithoutEndblkReadsTheNextSectionIntoItself)
{
    // ENDSEC is passed over; SECTION is in the list of entity names and is reported and skipped.
    EXPECT_EQ(Read(Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "Open"}, {0, "LINE"}})) +
                   EntitiesSection({{0, "CIRCLE"}, {0, "ARC"}})),
              (Result{"Open: 1 3 2", "entities:", "0 6 SECTION - Unknown Object Type Name (14)"}));
}

TEST(BlocksEnd, BlockWithoutEndblkPassesOverTheNextBlockUpToItsEndblk)
{
    EXPECT_EQ(Read(Section("BLOCKS", Dxf({{0, "BLOCK"},
                                          {2, "Open"},
                                          {0, "LINE"},
                                          {0, "BLOCK"},
                                          {2, "LINE"},
                                          {0, "ARC"},
                                          {0, "ENDBLK"},
                                          {0, "BLOCK"},
                                          {2, "Next"},
                                          {0, "ENDBLK"}})) +
                   EntitiesSection({{0, "LINE"}})),
              // The name of the block that is passed over begins a line, too.
              (Result{"Open: 1 1 2", "Next:", "entities: 1"}));
}

TEST(BlocksEnd, EveryPrefixOfASectionGivesTheBlocksWhoseHeadersItHolds)
{
    const std::string whole = Section("BLOCKS", Dxf({{0, "BLOCK"},
                                                     {2, "A"},
                                                     {102, "{G"},
                                                     {330, "1"},
                                                     {102, "}"},
                                                     {0, "LINE"},
                                                     {8, "x"},
                                                     {0, "ENDBLK"},
                                                     {5, "1"},
                                                     {0, "BLOCK"},
                                                     {2, "B"},
                                                     {0, "INSERT"},
                                                     {2, "A"},
                                                     {0, "ENDBLK"}})) +
                              Dxf({{0, "EOF"}});
    const std::size_t first = whole.find("0\nLINE"), second = whole.find("0\nINSERT");
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        ReportingReader reader;
        reader.ReadText(std::string_view(whole).substr(0, size));
        // The block is complete with the "0" that ends its header, even if that ends the file.
        const std::size_t expected = (size > first ? 1u : 0u) + (size > second ? 1u : 0u);
        EXPECT_EQ(reader.blocks.size(), expected) << size << " bytes";
    }
}
