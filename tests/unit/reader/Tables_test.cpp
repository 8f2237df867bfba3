// The TABLES section: tables, their headers, and how the reading goes from one entry and table to the next.
#include "support/Callbacks.h"
#include "support/RecordText.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

// A whole TABLES section of these lines, read. Line 5 is the first of them.
class TablesReader : public CallbackReader {
public:
    explicit TablesReader(std::string_view lines) { ReadText(Section("TABLES", lines)); }
    TablesReader(std::string_view lines, std::string_view after)
    {
        ReadText(Section("TABLES", lines) + std::string(after));
    }

    // What each table holds: "LAYER: Walls Doors".
    Texts Names() const
    {
        Texts texts;
        for (const DXF_TABLES_HEADER* table : tables) {
            texts.push_back(ToTraceText(table->m_strName) + ":");
            for (const DXF_TABLES_COMMON* entry : table->m_entries)
                texts.back() += " " + NameOf(*entry);
        }
        return texts;
    }

private:
    static std::string NameOf(const DXF_TABLES_COMMON& entry)
    {
        const std::string text = RecordText(entry);
        const std::size_t begin = text.find("m_strName=") + 10;
        return text.substr(begin + 1, text.find('\n', begin) - begin - 2);
    }
};

// A table of entries.
std::string Table(std::string_view name, std::string_view entries)
{
    return Dxf({{0, "TABLE"}, {2, name}}) + std::string(entries) + Dxf({{0, "ENDTAB"}});
}

std::string Entry(std::string_view type, std::string_view name)
{
    return Dxf({{0, type}, {100, "marker"}, {2, name}});
}

const std::string kLineA = Section("ENTITIES", Dxf({{0, "LINE"}, {8, "a"}}));

} // namespace

TEST(Tables, HeaderIsEmptyAtFirst)
{
    EXPECT_EQ(RecordText(DXF_TABLES_HEADER()), "m_strName=\"\"\nm_strHandle=\"\"\nm_strAppData=\"\"\n"
                                               "m_strOwnerHandle=\"\"\nm_strSubclass=\"\"\nm_nMaxEntries=0\n"
                                               "m_entries=0\n");
}

TEST(Tables, EachCodeOfAHeaderFillsItsField)
{
    const struct {
        const char* code;
        const char* value;
        const char* changed;
    } rows[] = {
        {"2", "LAYER", "m_strName=\"LAYER\""},
        {"5", "1F", "m_strHandle=\"1F\""},
        {"330", "0", "m_strOwnerHandle=\"0\""},
        {"100", "AcDb", "m_strSubclass=\"AcDb\""},
        {"70", "12", "m_nMaxEntries=12"},
        {" 70", " 7x ", "m_nMaxEntries=7"},
        {"2", "  blanks inside  ", "m_strName=\"blanks inside\""},
        {"999", "comment", ""},
        {"-1", "x", ""},
        {"360", "x", ""},
    };
    for (const auto& row : rows) {
        const TablesReader reader(Dxf({{0, "TABLE"}, {row.code, row.value}, {0, "ENDTAB"}}));
        ASSERT_EQ(reader.tables.size(), 1u);
        EXPECT_EQ(ChangedFields(*reader.tables[0]), row.changed) << row.code;
        EXPECT_EQ(reader.calls, Texts()) << row.code;
    }
}

TEST(Tables, LaterValueOfAHeaderReplacesTheEarlier)
{
    const TablesReader reader(Dxf({{0, "TABLE"},
                                   {2, "A"},
                                   {100, "first"},
                                   {70, 1},
                                   {100, "second"},
                                   {70, 2},
                                   {2, "B"},
                                   {0, "ENDTAB"}}));
    EXPECT_EQ(ChangedFields(*reader.tables[0]), "m_strName=\"B\" m_strSubclass=\"second\" m_nMaxEntries=2");
}

TEST(Tables, GroupOfAHeaderIsKeptLineByLine)
{
    const TablesReader reader(Dxf(
        {{0, "TABLE"}, {102, "{ACAD_XDICTIONARY"}, {360, "2A"}, {102, "}"}, {2, "LAYER"}, {0, "ENDTAB"}}));
    EXPECT_EQ(ChangedFields(*reader.tables[0]),
              "m_strName=\"LAYER\" m_strAppData=\"{ACAD_XDICTIONARY\\x0A360\\x0A2A\"");
}

TEST(Tables, SecondGroupFollowsTheFirstWithoutASeparator)
{
    const TablesReader reader(
        Lines({"0", "TABLE", "102", "{A", "1", "102", "}", "102", "{B", "2", "102", "}", "0", "ENDTAB"}));
    EXPECT_EQ(ChangedFields(*reader.tables[0]), "m_strAppData=\"{A\\x0A1{B\\x0A2\"");
}

TEST(Tables, Line102OfAGroupDropsTheLineAfterItUnlessItEndsTheGroup)
{
    const TablesReader reader(Lines({"0", "TABLE", "102", "{A", "102", "102", "102", "{B", " x ", "", "102 ",
                                     " } ", "2", "N", "0", "ENDTAB"}));
    EXPECT_EQ(ChangedFields(*reader.tables[0]), "m_strName=\"N\" m_strAppData=\"{A\\x0Ax\\x0A\"");
}

TEST(Tables, EndOfTheFileEndsAGroup)
{
    CallbackReader reader;
    reader.ReadText("0\nSECTION\n2\nTABLES\n0\nTABLE\n102\n{A\n1\n");
    EXPECT_EQ(ChangedFields(*reader.tables[0]), "m_strAppData=\"{A\\x0A1\\x0A\"");
    EXPECT_EQ(reader.calls, Texts());
    EXPECT_EQ(reader.lineCount, 11); // one line more is read after the group
}

TEST(Tables, TablesAndTheirEntriesAreKeptInFileOrder)
{
    const TablesReader reader(
        Table("LTYPE", Entry("LTYPE", "Dashed") + Entry("LTYPE", "Dotted")) + Table("EMPTY", "") +
        Table("LAYER", Entry("LAYER", "Walls")) +
        Table("BLOCK_RECORD", Entry("BLOCK_RECORD", "Door") + Entry("BLOCK_RECORD", "Door")));
    EXPECT_EQ(reader.Names(),
              (Texts{"LTYPE: Dashed Dotted", "EMPTY:", "LAYER: Walls", "BLOCK_RECORD: Door Door"}));
    EXPECT_EQ(reader.calls, Texts());
}

TEST(Tables, KindOfAnEntryIsTheEntrysOwnNotItsTables)
{
    const TablesReader reader(
        Table("ANY", Entry("LAYER", "a") + Entry("LTYPE", "b") + Entry("BLOCK_RECORD", "c")));
    ASSERT_EQ(reader.tables[0]->m_entries.size(), 3u);
    EXPECT_EQ(reader.tables[0]->m_entries[0]->m_nTableKind, 4u);
    EXPECT_EQ(reader.tables[0]->m_entries[1]->m_nTableKind, 5u);
    EXPECT_EQ(reader.tables[0]->m_entries[2]->m_nTableKind, 2u);
}

TEST(Tables, SixTablesGiveNoRecordsAndNoMessage)
{
    for (const std::string_view name : {"APPID", "DIMSTYLE", "STYLE", "UCS", "VIEW", "VPORT"}) {
        const TablesReader reader(Table(name, Entry(name, "x") + Entry(name, "y")) +
                                  Table("LAYER", Entry("LAYER", "Walls")));
        EXPECT_EQ(reader.Names(), (Texts{std::string(name) + ":", "LAYER: Walls"}));
        EXPECT_EQ(reader.calls, Texts());
    }
}

TEST(Tables, UnknownEntryNameIsReportedOnceAndItsTableSkipped)
{
    const TablesReader reader(Table("ODD", Entry("ODD", "x") + Entry("EVEN", "y") + Entry("LAYER", "z")) +
                              Table("LAYER", Entry("LAYER", "Walls")));
    EXPECT_EQ(reader.Names(), (Texts{"ODD:", "LAYER: Walls"}));
    EXPECT_EQ(reader.calls, (Texts{"OnError 0 4 ReaTABLES_COMMON() Unknown table name 'ODD', Line:10"}));
}

TEST(Tables, UnknownNameAfterAKnownEntrySkipsTheRestOfTheTable)
{
    const TablesReader reader(
        Table("LAYER", Entry("LAYER", "a") + Entry("layer", "b") + Entry("LAYER", "c")) +
        Table("LAYER", Entry("LAYER", "d")));
    EXPECT_EQ(reader.Names(), (Texts{"LAYER: a", "LAYER: d"}));
    EXPECT_EQ(reader.calls, (Texts{"OnError 0 4 ReaTABLES_COMMON() Unknown table name 'layer', Line:16"}));
}

TEST(Tables, EndtabAsAValueEndsASkippedTable)
{
    const TablesReader reader(Dxf({{0, "TABLE"}, {2, "STYLE"}, {0, "STYLE"}, {2, "ENDTAB"}}) +
                                  Table("LAYER", Entry("LAYER", "Walls")),
                              kLineA);
    EXPECT_EQ(reader.Names(), (Texts{"STYLE:", "LAYER: Walls"}));
    EXPECT_EQ(reader.calls, (Texts{"OnLine a"}));
}

TEST(Tables, EntryWithoutAMarkerSwallowsWhatFollowsUpToTheNextMarker)
{
    const TablesReader reader(
        Table("LAYER", Dxf({{0, "LAYER"}, {2, "lost"}, {5, "1"}}) + Entry("LAYER", "Walls")));
    EXPECT_EQ(reader.Names(), (Texts{"LAYER: Walls"}));
    EXPECT_EQ(ChangedFields(*reader.tables[0]->m_entries[0]),
              "m_strHandle=\"1\" m_strFirstSubclass=\"marker\" m_strName=\"Walls\"");
    EXPECT_EQ(reader.calls, Texts());
}

TEST(Tables, EntryWithoutAMarkerSwallowsTheEndOfItsTableToo)
{
    const TablesReader reader(Table("LAYER", Dxf({{0, "LAYER"}, {2, "lost"}})) +
                              Table("LAYER", Entry("LAYER", "Walls")));
    EXPECT_EQ(reader.Names(), (Texts{"LAYER: Walls"}));
    EXPECT_EQ(reader.calls, Texts());
}

TEST(Tables, CodeThatIsNoNumberInAHeaderIsReportedAndEndsTheSection)
{
    const TablesReader reader(Dxf({{0, "TABLE"}, {2, "LAYER"}, {" x ", "y"}, {0, "ENDTAB"}}), kLineA);
    EXPECT_EQ(reader.Names(), (Texts{"LAYER:"}));
    EXPECT_EQ(reader.calls,
              (Texts{"OnError 0 3 ReadTABLES() Failed to read integer from 'x' Line:9", "OnLine a"}));
}

TEST(Tables, CodeThatIsNoNumberInAnEntryIsReportedAndTheSectionLeft)
{
    const TablesReader reader(Dxf({{0, "TABLE"},
                                   {2, "LAYER"},
                                   {0, "LAYER"},
                                   {5, "1F"},
                                   {"x", "y"},
                                   {100, "marker"},
                                   {0, "ENDTAB"}}),
                              kLineA);
    EXPECT_EQ(ChangedFields(*reader.tables[0]->m_entries[0]), "m_strHandle=\"1F\"");
    EXPECT_EQ(reader.calls,
              (Texts{"OnError 0 3 ReaTABLES_COMMON() Failed to read integer from 'x', Line:13", "OnLine a"}));
}

TEST(Tables, AfterAFailedKindReaderTheNextLineIsTakenAsATypeName)
{
    const struct {
        std::string_view type;
        const char* reader;
    } rows[] = {{"LAYER", "ReaTABLES_LAYER()"},
                {"LTYPE", "ReaTABLES_LTYPE()"},
                {"BLOCK_RECORD", "ReaTABLES_BLOCK_RECORD()"}};
    for (const auto& row : rows) {
        const TablesReader reader(Dxf({{0, "TABLE"},
                                       {2, "T"},
                                       {0, row.type},
                                       {100, "marker"},
                                       {2, "a"},
                                       {" x", "y"},
                                       {0, "ENDTAB"}}) +
                                      Table("LAYER", Entry("LAYER", "Walls")),
                                  kLineA);
        EXPECT_EQ(reader.Names(), (Texts{"T: a", "LAYER: Walls"}));
        EXPECT_EQ(
            reader.calls,
            (Texts{"OnError 0 3 " + std::string(row.reader) + " Failed to read integer from 'x', Line:15",
                   "OnError 0 4 ReaTABLES_COMMON() Unknown table name 'y', Line:16", "OnLine a"}));
    }
}

TEST(Tables, EntryTypeAfterAFailedKindReaderIsAnEntry)
{
    const TablesReader reader(Dxf({{0, "TABLE"},
                                   {2, "T"},
                                   {0, "LAYER"},
                                   {100, "m"},
                                   {2, "a"},
                                   {"x", "LTYPE"},
                                   {100, "m"},
                                   {2, "b"},
                                   {0, "ENDTAB"}}));
    EXPECT_EQ(reader.Names(), (Texts{"T: a b"}));
    EXPECT_EQ(reader.calls,
              (Texts{"OnError 0 3 ReaTABLES_LAYER() Failed to read integer from 'x', Line:15"}));
}

TEST(Tables, FileThatEndsAfterACompletePairQuotesTheEmptyLine)
{
    CallbackReader reader;
    reader.ReadText(Dxf({{0, "SECTION"}, {2, "TABLES"}, {0, "TABLE"}, {0, "LAYER"}, {5, "1F"}}));
    EXPECT_EQ(reader.calls,
              (Texts{"OnError 0 3 ReaTABLES_COMMON() Failed to read integer from '', Line:11"}));
    EXPECT_EQ(ChangedFields(*reader.tables[0]->m_entries[0]), "m_strHandle=\"1F\"");
}

TEST(Tables, FileThatEndsWithinAKindReaderGivesItsMessageAndOneForTheEmptyTypeName)
{
    CallbackReader reader;
    reader.ReadText(
        Dxf({{0, "SECTION"}, {2, "TABLES"}, {0, "TABLE"}, {0, "LAYER"}, {100, "m"}, {2, "Walls"}}));
    EXPECT_EQ(reader.calls, (Texts{"OnError 0 3 ReaTABLES_LAYER() Failed to read integer from '', Line:13",
                                   "OnError 0 4 ReaTABLES_COMMON() Unknown table name '', Line:14"}));
    EXPECT_NE(reader.FindLayer(L"Walls"), nullptr);
}

TEST(Tables, FileThatEndsWithoutALineEndGivesNoIntegerMessage)
{
    CallbackReader reader;
    reader.ReadText("0\nSECTION\n2\nTABLES\n0\nTABLE\n0\nLAYER\n5\n1F");
    EXPECT_EQ(reader.calls, Texts());
    reader.ReadText("0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER");
    EXPECT_EQ(reader.calls, Texts());
    EXPECT_EQ(reader.tables.size(), 2u);
}

TEST(Tables, FileThatEndsWithinAHeaderQuotesTheEmptyLine)
{
    CallbackReader reader;
    reader.ReadText(Dxf({{0, "SECTION"}, {2, "TABLES"}, {0, "TABLE"}}));
    EXPECT_EQ(reader.calls, (Texts{"OnError 0 3 ReadTABLES() Failed to read integer from '' Line:7"}));
    EXPECT_EQ(reader.tables.size(), 1u);
}

TEST(Tables, FirstTypeNameThatEndsTheFileIsStillAnEntry)
{
    CallbackReader reader;
    reader.ReadText("0\nSECTION\n2\nTABLES\n0\nTABLE\n0\nLAYER");
    EXPECT_EQ(reader.calls, Texts());
    ASSERT_EQ(reader.tables.size(), 1u);
    EXPECT_EQ(reader.tables[0]->m_entries.size(), 1u);
    CallbackReader unknown;
    unknown.ReadText("0\nSECTION\n2\nTABLES\n0\nTABLE\n0\nODD");
    EXPECT_EQ(unknown.calls, (Texts{"OnError 0 4 ReaTABLES_COMMON() Unknown table name 'ODD', Line:8"}));
}

TEST(Tables, SkippedTableWithoutAnEndTakesTheRestOfTheFile)
{
    EXPECT_EQ(
        CallbacksOf(Dxf({{0, "SECTION"}, {2, "TABLES"}, {0, "TABLE"}, {0, "STYLE"}, {0, "ENDSEC"}}) + kLineA),
        Texts());
}

TEST(Tables, LineAfterATableThatIsNoZeroLeavesTheSection)
{
    const TablesReader reader(
        Table("LAYER", Entry("LAYER", "a")) + Lines({"9"}) + Table("LAYER", Entry("LAYER", "b")), kLineA);
    EXPECT_EQ(reader.Names(), (Texts{"LAYER: a"}));
    EXPECT_EQ(reader.calls, (Texts{"OnLine a"}));
}

TEST(Tables, AfterATableComesATableOrTheEndOrTheSectionIsLeft)
{
    // The line after the odd name is read too: the driver goes on with the one after that.
    const std::string section = "SECTION\n2\nODD\n";
    EXPECT_EQ(CallbacksOf(Dxf({{0, "SECTION"}, {2, "TABLES"}}) + Table("T", Entry("LAYER", "a")) +
                          "0\nODD\n0\n" + section),
              Texts());
    EXPECT_EQ(CallbacksOf(Dxf({{0, "SECTION"}, {2, "TABLES"}}) + Table("T", Entry("LAYER", "a")) +
                          "0\nODD\nx\n0\n" + section),
              (Texts{"OnError 0 2 ODD - Unknown Section Name Line (23)"}));
}

TEST(Tables, AfterAnEmptyTableTheSameHolds)
{
    const std::string section = "SECTION\n2\nODD\n";
    const std::string start = Dxf({{0, "SECTION"}, {2, "TABLES"}}) + Table("T", "");
    EXPECT_EQ(CallbacksOf(start + "0\nODD\n0\n" + section), Texts());
    EXPECT_EQ(CallbacksOf(start + "0\nODD\nx\n0\n" + section),
              (Texts{"OnError 0 2 ODD - Unknown Section Name Line (17)"}));
    // Where there is no "0", one more line is read.
    EXPECT_EQ(CallbacksOf(start + Dxf({{9, "0"}}) + section), Texts());
    EXPECT_EQ(CallbacksOf(start + "9\nx\n0\n" + section),
              (Texts{"OnError 0 2 ODD - Unknown Section Name Line (16)"}));
}

TEST(Tables, EndsecAfterATableEndsTheSectionAtOnce)
{
    const std::string start = Dxf({{0, "SECTION"}, {2, "TABLES"}});
    EXPECT_EQ(CallbacksOf(start + Table("T", "") + Dxf({{0, "ENDSEC"}}) + kLineA), (Texts{"OnLine a"}));
    EXPECT_EQ(CallbacksOf(start + Table("T", Entry("LAYER", "a")) + Dxf({{0, "ENDSEC"}}) + kLineA),
              (Texts{"OnLine a"}));
}

TEST(Tables, TwoTablesSectionsAddUp)
{
    CallbackReader reader;
    reader.ReadText(Section("TABLES", Table("LAYER", Entry("LAYER", "a"))) +
                    Section("TABLES", Table("LAYER", Entry("LAYER", "b"))));
    EXPECT_EQ(reader.tables.size(), 2u);
    EXPECT_NE(reader.FindLayer(L"a"), nullptr);
    EXPECT_NE(reader.FindLayer(L"b"), nullptr);
}

TEST(Tables, AnyNumberOfTablesAndEntriesIsRead)
{
    std::string tables, entries;
    for (int i = 0; i < 20000; ++i)
        entries += Entry("LAYER", "x");
    for (int i = 0; i < 20000; ++i)
        tables += Table("LAYER", Entry("LAYER", "y"));
    const TablesReader reader(Table("LAYER", entries) + tables);
    EXPECT_EQ(reader.tables.size(), 20001u);
    EXPECT_EQ(reader.tables[0]->m_entries.size(), 20000u);
    EXPECT_EQ(reader.calls, Texts());
}
