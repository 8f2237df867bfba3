// The opening value of a brace-delimited group is a line like any other: blanks at its ends are not kept.
#include "entities/DXF_BLOCKS_BLOCK.h"
#include "entities/DXF_GRAPHIC_BASE.h"
#include "support/Import.h"

#include <gtest/gtest.h>

namespace {

const std::string kGroup = Lines({" 102", " \t{A B \t ", "360", " 2A ", "102 ", " }"});
constexpr const wchar_t* kText = L"{A B\n360\n2A";

} // namespace

TEST(GroupTexts, OfATableBeginsWithItsTrimmedValue)
{
    ReportingReader reader;
    reader.ReadText(Section("TABLES", Dxf({{0, "TABLE"}}) + kGroup + Dxf({{0, "ENDTAB"}})));
    ASSERT_EQ(reader.tables.size(), 1u);
    EXPECT_EQ(reader.tables[0]->m_strAppData, kText);
    EXPECT_TRUE(reader.errors.empty());
}

TEST(GroupTexts, OfATableEntryBeginsWithItsTrimmedValue)
{
    for (const char* const type : {"LAYER", "LTYPE", "BLOCK_RECORD"}) {
        ReportingReader reader;
        reader.ReadText(Section("TABLES", Dxf({{0, "TABLE"}, {0, type}}) + kGroup +
                                              Dxf({{100, "Marker"}, {0, "ENDTAB"}})));
        ASSERT_EQ(reader.tables.size(), 1u) << type;
        ASSERT_EQ(reader.tables[0]->m_entries.size(), 1u) << type;
        EXPECT_EQ(reader.tables[0]->m_entries[0]->m_strAppData, kText) << type;
        EXPECT_TRUE(reader.tables[0]->m_strAppData.empty()) << type;
    }
}

TEST(GroupTexts, OfABlockRecordsExtendedDataBeginsWithItsTrimmedValue)
{
    ReportingReader reader;
    reader.ReadText(Section("TABLES", Dxf({{0, "TABLE"},
                                           {0, "BLOCK_RECORD"},
                                           {100, "Marker"},
                                           {1002, "  { "},
                                           {" 1070", "1 "},
                                           {" 1002 ", " } "},
                                           {0, "ENDTAB"}})));
    ASSERT_EQ(reader.tables.size(), 1u);
    ASSERT_EQ(reader.tables[0]->m_entries.size(), 1u);
    ASSERT_EQ(reader.tables[0]->m_entries[0]->m_nTableKind, DXF_TABLES_KIND_BLOCK_RECORD);
    const auto& record = static_cast<const DXF_TABLES_BLOCK_RECORD&>(*reader.tables[0]->m_entries[0]);
    EXPECT_EQ(record.m_strXData, L"{\n1070\n1");
}

TEST(GroupTexts, OfABlockBeginsWithItsTrimmedValue)
{
    ReportingReader reader;
    reader.ReadText(Section("BLOCKS", Dxf({{0, "BLOCK"}}) + kGroup + Dxf({{0, "ENDBLK"}})));
    ASSERT_EQ(reader.blocks.size(), 1u);
    EXPECT_EQ(reader.blocks[0]->m_strAppData, kText);
}

TEST(GroupTexts, OfAnEntityBeginsWithItsTrimmedValue)
{
    for (const char* const type :
         {"LINE", "ARC", "CIRCLE", "ELLIPSE", "LWPOLYLINE", "TEXT", "MTEXT", "INSERT", "DIMENSION"}) {
        ReportingReader reader;
        reader.ReadText(Section("ENTITIES", Dxf({{0, type}}) + kGroup + Dxf({{100, "AcDbEntity"}})));
        ASSERT_EQ(reader.entities.size(), 1u) << type;
        EXPECT_EQ(reader.entities[0]->m_rare->m_strAppData, kText) << type;
        EXPECT_TRUE(reader.errors.empty()) << type;
    }
}
