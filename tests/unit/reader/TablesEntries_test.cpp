// Layers, line types and block records: their defaults and their fields.
#include "input/CDxfMemory.h"
#include "support/Import.h"
#include "support/RecordText.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

struct Row {
    const char* code;
    const char* value;
    const char* changed;
};

// One entry of a type whose kind's reader gets these lines, between its first marker and its closing "0".
class OneEntry : public ReportingReader {
public:
    OneEntry(std::string_view type, std::string_view lines)
    {
        ReadText(Section("TABLES", Dxf({{0, "TABLE"}, {0, type}, {100, "first"}}) + std::string(lines) +
                                       Dxf({{0, "ENDTAB"}})));
    }

    // The changed fields but for the first marker, which each of these entries has.
    std::string Changed() const
    {
        if (tables.size() != 1 || tables[0]->m_entries.size() != 1)
            return "not one entry";
        const std::string marker = "m_strFirstSubclass=\"first\"";
        const std::string text = ChangedFields(*tables[0]->m_entries[0]);
        return text == marker ? "" : text.substr(marker.size() + 1);
    }
};

template <std::size_t count>
void ExpectRows(std::string_view type, const Row (&rows)[count])
{
    for (const Row& row : rows) {
        const OneEntry reader(type, Dxf({{row.code, row.value}}));
        EXPECT_EQ(reader.Changed(), row.changed) << type << ' ' << row.code << ' ' << row.value;
        EXPECT_EQ(reader.errors, Texts());
    }
}

const std::string kCommonDefaults = "m_strHandle=\"\"\nm_strDimStyleHandle=\"\"\nm_strAppData=\"\"\n"
                                    "m_strOwnerHandle=\"\"\nm_strSpare=\"\"\nm_strFirstSubclass=\"\"\n";

} // namespace

TEST(TablesEntries, BaseIsOfNoKind)
{
    EXPECT_EQ(RecordText(DXF_TABLES_COMMON()), "m_nTableKind=0\n" + kCommonDefaults);
}

TEST(TablesEntries, LayerHasItsDefaults)
{
    EXPECT_EQ(RecordText(DXF_TABLES_LAYER()),
              "m_nTableKind=4\n" + kCommonDefaults +
                  "m_strSubclass=\"\"\nm_strName=\"\"\nm_nFlags=0\nm_nColor=0\nm_strLineType=\"\"\n"
                  "m_nPlotting=0\nm_nLineWeight=0\nm_strPlotStyle=\"\"\nm_strMaterial=\"\"\n");
}

TEST(TablesEntries, LineTypeHasItsDefaults)
{
    EXPECT_EQ(RecordText(DXF_TABLES_LTYPE()),
              "m_nTableKind=5\n" + kCommonDefaults +
                  "m_strSubclass=\"\"\nm_strName=\"\"\nm_nFlags=0\nm_strDescription=\"\"\nm_nAlignment=0\n"
                  "m_nDashCount=0\nm_dPatternLength=0\nm_dashes=\n");
}

TEST(TablesEntries, BlockRecordHasItsDefaults)
{
    EXPECT_EQ(RecordText(DXF_TABLES_BLOCK_RECORD()),
              "m_nTableKind=2\n" + kCommonDefaults +
                  "m_strSubclass=\"\"\nm_strName=\"\"\nm_strLayout=\"\"\nm_strInsertUnits=\"\"\n"
                  "m_strExplodability=\"\"\nm_strScalability=\"\"\nm_strLineWeight=\"\"\n"
                  "m_strXDataApplication=\"\"\nm_strXDataString=\"\"\nm_strXData=\"\"\n");
}

TEST(TablesEntries, EachCodeBeforeTheFirstMarkerFillsItsField)
{
    const Row rows[] = {
        {"5", "1F", "m_strHandle=\"1F\" "},
        {"105", "2F", "m_strDimStyleHandle=\"2F\" "},
        {"330", " 3F ", "m_strOwnerHandle=\"3F\" "},
        {"2", "no name here", ""},
        {"62", "1", ""},
        {"0", "LTYPE", ""},
        {"0", "ENDTAB", ""},
        {"999", "comment", ""},
        {"-5", "x", ""},
    };
    for (const std::string_view type : {"LAYER", "LTYPE", "BLOCK_RECORD"})
        for (const Row& row : rows) {
            ReportingReader reader;
            reader.ReadText(Section(
                "TABLES",
                Dxf({{0, "TABLE"}, {0, type}, {row.code, row.value}, {100, " marker "}, {0, "ENDTAB"}})));
            ASSERT_EQ(reader.tables[0]->m_entries.size(), 1u);
            EXPECT_EQ(ChangedFields(*reader.tables[0]->m_entries[0]),
                      row.changed + std::string("m_strFirstSubclass=\"marker\""));
            EXPECT_EQ(reader.errors, Texts());
        }
}

TEST(TablesEntries, GroupsBeforeTheFirstMarkerAreKept)
{
    for (const std::string_view type : {"LAYER", "LTYPE", "BLOCK_RECORD"}) {
        ReportingReader reader;
        reader.ReadText(Section("TABLES", Dxf({{0, "TABLE"},
                                               {0, type},
                                               {102, "{ACAD_XDICTIONARY"},
                                               {360, "2A"},
                                               {102, "}"},
                                               {102, "{B"},
                                               {330, "1"},
                                               {102, "}"},
                                               {100, "m"},
                                               {0, "ENDTAB"}})));
        EXPECT_EQ(
            ChangedFields(*reader.tables[0]->m_entries[0]),
            "m_strAppData=\"{ACAD_XDICTIONARY\\x0A360\\x0A2A{B\\x0A330\\x0A1\" m_strFirstSubclass=\"m\"");
    }
}

TEST(TablesEntries, EachCodeOfALayerFillsItsField)
{
    ExpectRows("LAYER", {
                            {"100", "AcDbLayerTableRecord", "m_strSubclass=\"AcDbLayerTableRecord\""},
                            {"2", " Walls ", "m_strName=\"Walls\""},
                            {"70", "4", "m_nFlags=4"},
                            {"62", "-3", "m_nColor=-3"},
                            {"62", " 7.9", "m_nColor=7"},
                            {"6", "Dashed", "m_strLineType=\"Dashed\""},
                            {"290", "1", "m_nPlotting=1"},
                            {"370", "25", "m_nLineWeight=25"},
                            {"390", "F", "m_strPlotStyle=\"F\""},
                            {"347", "4D", "m_strMaterial=\"4D\""},
                            {"5", "not the handle here", ""},
                            {"330", "x", ""},
                            {"3", "x", ""},
                            {"40", "1", ""},
                            {"420", "255", ""},
                            {"-62", "1", ""},
                            {"1001", "x", ""},
                            {"100000", "x", ""},
                        });
}

TEST(TablesEntries, EachCodeOfALineTypeFillsItsField)
{
    ExpectRows("LTYPE", {
                            {"100", "AcDbLinetypeTableRecord", "m_strSubclass=\"AcDbLinetypeTableRecord\""},
                            {"2", "Dashed", "m_strName=\"Dashed\""},
                            {"70", "1", "m_nFlags=1"},
                            {"3", " __ __ ", "m_strDescription=\"__ __\""},
                            {"72", "65", "m_nAlignment=65"},
                            {"73", "2", "m_nDashCount=2"},
                            {"40", "0.75", "m_dPatternLength=0.75"},
                            {"49", "-0.25", "m_dashes=(-0.25)"},
                            {"74", "1", ""},
                            {"62", "1", ""},
                            {"340", "x", ""},
                        });
}

TEST(TablesEntries, EachCodeOfABlockRecordFillsItsFieldAsText)
{
    ExpectRows("BLOCK_RECORD", {
                                   {"100", "AcDbBlockTableRecord", "m_strSubclass=\"AcDbBlockTableRecord\""},
                                   {"2", "Door", "m_strName=\"Door\""},
                                   {"340", "22", "m_strLayout=\"22\""},
                                   {"70", " 1 ", "m_strInsertUnits=\"1\""},
                                   {"280", "1.0", "m_strExplodability=\"1.0\""},
                                   {"281", "x", "m_strScalability=\"x\""},
                                   {"370", "-1", "m_strLineWeight=\"-1\""},
                                   {"1001", "ACAD", "m_strXDataApplication=\"ACAD\""},
                                   {"1000", "DesignCenter Data", "m_strXDataString=\"DesignCenter Data\""},
                                   {"310", "00", ""},
                                   {"1070", "1", ""},
                                   {"1003", "x", ""},
                                   {"62", "1", ""},
                               });
}

TEST(TablesEntries, LaterValueReplacesTheEarlier)
{
    EXPECT_EQ(
        OneEntry("LAYER", Dxf({{2, "a"}, {62, 1}, {2, "b"}, {62, 2}, {100, "x"}, {100, "y"}})).Changed(),
        "m_strSubclass=\"y\" m_strName=\"b\" m_nColor=2");
    EXPECT_EQ(OneEntry("LTYPE", Dxf({{40, 1}, {40, "abc"}, {3, "x"}, {3, ""}})).Changed(), "");
    EXPECT_EQ(OneEntry("BLOCK_RECORD", Dxf({{1001, "a"}, {1000, "b"}, {1001, "c"}, {1000, "d"}})).Changed(),
              "m_strXDataApplication=\"c\" m_strXDataString=\"d\"");
}

TEST(TablesEntries, DashesAreKeptInFileOrder)
{
    EXPECT_EQ(OneEntry("LTYPE", Dxf({{73, 3}, {49, 0.5}, {74, 0}, {49, -0.25}, {49, "0.0"}})).Changed(),
              "m_nDashCount=3 m_dashes=(0.5)(-0.25)(0)");
}

TEST(TablesEntries, StatedNumberOfDashesChangesNothing)
{
    EXPECT_EQ(OneEntry("LTYPE", Dxf({{49, 1}, {49, "x"}, {73, 100}})).Changed(),
              "m_nDashCount=100 m_dashes=(1)(0)");
}

TEST(TablesEntries, Groups102OfAKindReaderAreOrdinaryPairs)
{
    const std::string group = Dxf({{102, "{A"}, {2, "inside"}, {102, "}"}});
    for (const std::string_view type : {"LAYER", "LTYPE", "BLOCK_RECORD"}) {
        const OneEntry reader(type, group);
        EXPECT_EQ(reader.Changed(), "m_strName=\"inside\"") << type;
        EXPECT_EQ(reader.errors, Texts());
    }
}

TEST(TablesEntries, ExtendedDataGroupOfABlockRecordIsKeptLineByLine)
{
    const OneEntry reader("BLOCK_RECORD", Dxf({{1001, "ACAD"},
                                               {1002, "{"},
                                               {1070, 22},
                                               {102, "}"},
                                               {1002, "}"},
                                               {1002, " {B"},
                                               {2, "not the name"},
                                               {1002, "{"},
                                               {1002, "}"},
                                               {2, "Door"}}));
    EXPECT_EQ(reader.Changed(), "m_strName=\"Door\" m_strXDataApplication=\"ACAD\" "
                                "m_strXData=\"{\\x0A1070\\x0A22\\x0A102\\x0A}{B\\x0A2\\x0Anot the name\"");
    EXPECT_EQ(reader.errors, Texts());
}

TEST(TablesEntries, Code1002OfALayerIsAnOrdinaryPair)
{
    EXPECT_EQ(OneEntry("LAYER", Dxf({{1002, "{"}, {2, "Walls"}, {1002, "}"}})).Changed(),
              "m_strName=\"Walls\"");
}

TEST(TablesEntries, KindReadersReturnHowTheyEnded)
{
    const auto layer = [](std::string_view text) {
        ReportingReader reader;
        CDxfMemory memory(text);
        CDxfStream stream(memory);
        DXF_TABLES_LAYER entry;
        const std::string result = std::to_string(reader.ReaTABLES_LAYER(entry, stream));
        return result + " then " + std::string(stream.getline());
    };
    EXPECT_EQ(layer(Dxf({{2, "Walls"}, {0, "next"}})), "1 then next");
    EXPECT_EQ(layer("2\nWalls\nx\nnext\n"), "0 then next");
    EXPECT_EQ(layer("2\nWalls"), "0 then ");
    EXPECT_EQ(layer("2\nWalls\n0"), "1 then ");

    ReportingReader reader;
    CDxfMemory memory("0\nx\n");
    CDxfStream stream(memory);
    DXF_TABLES_LTYPE lineType;
    DXF_TABLES_BLOCK_RECORD blockRecord;
    EXPECT_EQ(reader.ReaTABLES_LTYPE(lineType, stream), 1);
    EXPECT_EQ(reader.ReaTABLES_BLOCK_RECORD(blockRecord, stream), 0);
    EXPECT_EQ(reader.errors, (Texts{"0 3 ReaTABLES_BLOCK_RECORD() Failed to read integer from 'x', Line:2"}));
}

TEST(TablesEntries, CommonReaderSaysWhetherItStoppedAtEndtabAfterAnEntry)
{
    const auto common = [](std::string_view typeName, std::string_view text) {
        ReportingReader reader;
        CDxfMemory memory(text);
        CDxfStream stream(memory);
        DXF_TABLES_HEADER table;
        return reader.ReaTABLES_COMMON(table, stream, typeName);
    };
    EXPECT_TRUE(common("LAYER", Dxf({{100, "m"}, {0, "ENDTAB"}})));
    EXPECT_TRUE(common("LAYER", Dxf({{100, "m"}, {0, "LAYER"}, {100, "m"}, {0, "ENDTAB"}})));
    EXPECT_TRUE(common(
        "LAYER", Dxf({{100, "m"}, {0, "STYLE"}, {0, "ENDTAB"}}))); // what follows the first does not count
    EXPECT_FALSE(common("STYLE", Dxf({{0, "ENDTAB"}})));
    EXPECT_FALSE(common("ODD", Dxf({{0, "ENDTAB"}})));
    EXPECT_FALSE(common("LAYER", "x\n"));
    EXPECT_FALSE(common("LAYER", "5\n1F"));
}
