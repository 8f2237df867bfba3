// The group codes that all entities share, by the reader itself and through an entity's reader.
#include "entities/DXF_GRAPHIC_GEOMETRY.h"
#include "input/CDxfMemory.h"
#include "support/Import.h"
#include "support/PaddedText.h"
#include "support/RecordText.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using Texts = std::vector<std::string>;

struct Row {
    int code;
    const char* value;
    const char* changed;
};

const std::vector<Row> kCommonRows = {
    {5, "1F", "m_strHandle=\"1F\""},
    {6, "Dashed", "m_strLineType=\"Dashed\""},
    {8, "Walls", "m_strLayer=\"Walls\""},
    {48, "3.9", "m_dLineTypeScale=3"},
    {60, "1", "m_nVisibility=1"},
    {62, "256", "m_nColor=256"},
    {67, "1", "m_nPaperSpace=1"},
    {92, "104", "m_nProxyByteCount=104"},
    {100, "AcDbEntity", "m_strSubclass=\"AcDbEntity\""},
    {102, "{A", "m_strAppData=\"{A\""},
    {284, "2", "m_nShadowMode=2"},
    {310, "00FF", "m_strProxyData=\"00FF\""},
    {330, "2A", "m_strOwnerHandle=\"2A\""},
    {347, "3B", "m_strMaterial=\"3B\""},
    {370, "-3", "m_nLineWeight=-3"},
    {390, "4C", "m_strPlotStyle=\"4C\""},
    {410, "Model", "m_strLayout=\"Model\""},
    {420, "16711680", "m_nTrueColor=16711680"},
    {430, "RAL 3000", "m_strColorName=\"RAL 3000\""},
    {440, "33554431", "m_strTransparency=\"33554431\""},
};

// Calls the reader of the common codes on a new base record.
class CommonCode : public ReportingReader {
public:
    CommonCode(int code, std::string_view value, std::string_view lines = "")
    {
        CDxfMemory memory(lines);
        CDxfStream stream(memory);
        result = ReadENTITIES_COMMON(code, PaddedText(value).Line(), record, stream);
        next = stream.getline();
    }

    std::string Changed() const { return ChangedFields(record); }

    DXF_GRAPHIC_BASE record;
    bool result;
    std::string next; // the first line that was not read
};

class OneLine : public ReportingReader {
public:
    explicit OneLine(std::string_view lines)
    {
        ReadText(Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "LINE"}}) + std::string(lines) +
                 Dxf({{0, "ENDSEC"}, {0, "EOF"}}));
    }

    std::string Changed() const
    {
        return entities.size() == 1 ? ChangedFields(*entities[0]) : "not one entity";
    }
};

} // namespace

TEST(CommonCodes, EachFillsItsFieldWithoutAMessage)
{
    for (const Row& row : kCommonRows) {
        const CommonCode common(row.code, row.value, row.code == 102 ? "102\n}\nnext\n" : "next\n");
        EXPECT_TRUE(common.result) << row.code;
        EXPECT_EQ(common.Changed(), row.changed) << row.code;
        EXPECT_EQ(common.errors, Texts()) << row.code;
        EXPECT_EQ(common.next, "next") << row.code;
    }
}

TEST(CommonCodes, EveryOtherCodeIsReportedAndStoredNowhere)
{
    std::set<int> known;
    for (const Row& row : kCommonRows)
        known.insert(row.code);
    for (int code = -10; code <= 1100; ++code) {
        if (known.count(code) != 0)
            continue;
        const CommonCode common(code, "v", "next\n");
        EXPECT_FALSE(common.result) << code;
        EXPECT_EQ(common.Changed(), "") << code;
        EXPECT_EQ(common.errors, (Texts{"1 7 ReadENTITIES_COMMON Unknown Dimension type  ('" +
                                        std::to_string(code) + "' = 'v') Line:0"}));
        EXPECT_EQ(common.next, "next") << code;
    }
}

TEST(CommonCodes, ValuesAreTrimmed)
{
    EXPECT_EQ(OneLine("8\n \t Walls and doors \r\n").Changed(), "m_strLayer=\"Walls and doors\"");
    EXPECT_EQ(OneLine("440\n  7 \n 100 \n  AcDbLine  \n").Changed(),
              "m_strSubclass=\"AcDbLine\" m_strTransparency=\"7\"");
}

TEST(CommonCodes, NumbersThatCannotBeReadAreZero)
{
    EXPECT_EQ(OneLine(Dxf({{62, "red"}, {48, "x"}, {370, ""}})).Changed(),
              "m_nLineWeight=0 m_dLineTypeScale=0");
    EXPECT_EQ(OneLine(Dxf({{62, "12abc"}, {420, 1.9}})).Changed(), "m_nColor=12 m_nTrueColor=1");
}

TEST(CommonCodes, LaterValueReplacesTheEarlier)
{
    for (const Row& row : kCommonRows) {
        if (row.code == 102)
            continue;
        const std::string code = std::to_string(row.code) + "\n";
        EXPECT_EQ(OneLine(code + "77\n" + code + row.value + "\n").Changed(), row.changed) << row.code;
    }
}

TEST(CommonCodes, UnknownCodeIsReportedWithTheLastMarkerItsValueAndTheLineOfTheValue)
{
    const OneLine reader("999\n first \n100\nAcDbEntity\n999\nsecond\n100\nAcDbLine\n -70 \nthird\n");
    EXPECT_EQ(reader.errors,
              (Texts{"1 7 ReadENTITIES_COMMON Unknown Dimension type  ('999' = 'first') Line:8",
                     "1 7 ReadENTITIES_COMMON Unknown Dimension type AcDbEntity ('999' = 'second') Line:12",
                     "1 7 ReadENTITIES_COMMON Unknown Dimension type AcDbLine ('-70' = 'third') Line:16"}));
    EXPECT_EQ(reader.Changed(), "m_strSubclass=\"AcDbLine\"");
}

TEST(CommonCodes, EndPointTwiceAndAnUnknownCodeOnce)
{
    const OneLine reader(Dxf({{100, "AcDbLine"}, {31, 5}, {31, 7.5}, {999, "x"}}));
    EXPECT_EQ(reader.Changed(), "m_strSubclass=\"AcDbLine\" m_dEndZ=7.5");
    EXPECT_EQ(reader.errors,
              (Texts{"1 7 ReadENTITIES_COMMON Unknown Dimension type AcDbLine ('999' = 'x') Line:14"}));
}

TEST(CommonCodes, GroupIsKeptLineByLineAndSetsNoOtherField)
{
    const OneLine reader(Dxf({{102, "{ACAD_REACTORS"}, {330, "1F"}, {102, "}"}, {8, "Walls"}}));
    EXPECT_EQ(reader.Changed(), "m_strAppData=\"{ACAD_REACTORS\\x0A330\\x0A1F\" m_strLayer=\"Walls\"");
    EXPECT_EQ(reader.errors, Texts());
}

TEST(CommonCodes, LinesOfAGroupAreTrimmedAndEmptyOnesKept)
{
    EXPECT_EQ(OneLine(" 102\n  {A  \n  330\n\n 1F \n  102\n } \n").Changed(),
              "m_strAppData=\"{A\\x0A330\\x0A\\x0A1F\"");
}

TEST(CommonCodes, SecondGroupFollowsTheFirstWithoutASeparator)
{
    EXPECT_EQ(OneLine("102\n{A\n1\n102\n}\n8\nWalls\n102\n{B\n2\n102\n}\n").Changed(),
              "m_strAppData=\"{A\\x0A1{B\\x0A2\" m_strLayer=\"Walls\"");
}

TEST(CommonCodes, GroupWithoutLinesIsItsOpeningValue)
{
    EXPECT_EQ(OneLine(Dxf({{102, "{A"}, {102, "}"}})).Changed(), "m_strAppData=\"{A\"");
}

TEST(CommonCodes, Line102OfAGroupDropsTheLineAfterItUnlessItEndsTheGroup)
{
    EXPECT_EQ(OneLine("102\n{A\n102\n102\n102\n{B\n}\n102\n}\n").Changed(), "m_strAppData=\"{A\\x0A}\"");
}

TEST(CommonCodes, OnlyTheWhole102OfALineCounts)
{
    EXPECT_EQ(OneLine("102\n{A\n1002\n102x\n0102\n102\n}\n").Changed(),
              "m_strAppData=\"{A\\x0A1002\\x0A102x\\x0A0102\"");
}

TEST(CommonCodes, ZeroWithinAGroupDoesNotEndTheEntity)
{
    EXPECT_EQ(OneLine(Dxf({{102, "{A"}, {0, "ENDSEC"}, {102, "}"}, {8, "Walls"}})).Changed(),
              "m_strAppData=\"{A\\x0A0\\x0AENDSEC\" m_strLayer=\"Walls\"");
}

TEST(CommonCodes, EndOfTheFileEndsAGroup)
{
    ReportingReader reader;
    reader.ReadText("0\nSECTION\n2\nENTITIES\n0\nLINE\n102\n{A\n330\n");
    EXPECT_EQ(ChangedFields(*reader.entities[0]), "m_strAppData=\"{A\\x0A330\\x0A\"");
    EXPECT_EQ(reader.errors, (Texts{"0 5 ReadENTITIES_LINE() Failed to read line, Line:10"}));
}

TEST(CommonCodes, GroupWhose102EndsTheFileReadsOneLineMore)
{
    ReportingReader reader;
    reader.ReadText("0\nSECTION\n2\nENTITIES\n0\nLINE\n102\n{A\n102");
    EXPECT_EQ(ChangedFields(*reader.entities[0]), "m_strAppData=\"{A\"");
    EXPECT_EQ(reader.errors, (Texts{"0 5 ReadENTITIES_LINE() Failed to read line, Line:10"}));
}

TEST(CommonCodes, GroupOfAnyLengthIsKept)
{
    std::string lines;
    for (int i = 0; i < 20000; ++i)
        lines += Dxf({{330, "ABCDEF"}});
    ReportingReader reader;
    reader.ReadText(Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "LINE"}, {102, "{A"}}) + lines +
                    Dxf({{102, "}"}, {0, "ENDSEC"}}));
    EXPECT_EQ(reader.entities[0]->m_rare->m_strAppData.size(), 2 + 20000u * 11);
    EXPECT_EQ(reader.errors, Texts());
}

TEST(CommonCodes, EveryReaderPassesThemOn)
{
    std::string lines;
    for (const Row& row : kCommonRows) {
        // What an MTEXT keeps elsewhere, and what reads lines of its own, is left out.
        if (row.code == 48 || row.code == 420 || row.code == 430 || row.code == 102)
            continue;
        lines += std::to_string(row.code) + "\n" + row.value + "\n";
    }
    for (const std::string_view type :
         {"LINE", "ARC", "CIRCLE", "ELLIPSE", "LWPOLYLINE", "TEXT", "MTEXT", "INSERT"}) {
        ReportingReader reader;
        reader.ReadText(Section("ENTITIES", Dxf({{0, type}}) + lines));
        ASSERT_EQ(reader.entities.size(), 1u);
        EXPECT_EQ(
            ChangedFields(*reader.entities[0]),
            "m_strHandle=\"1F\" m_strOwnerHandle=\"2A\" m_strSubclass=\"AcDbEntity\" m_nPaperSpace=1 "
            "m_strLayout=\"Model\" m_strLayer=\"Walls\" m_strLineType=\"Dashed\" m_strMaterial=\"3B\" "
            "m_nColor=256 m_nLineWeight=-3 m_nVisibility=1 m_nProxyByteCount=104 m_strProxyData=\"00FF\" "
            "m_strTransparency=\"33554431\" m_strPlotStyle=\"4C\" m_nShadowMode=2")
            << type;
        EXPECT_EQ(reader.errors, Texts()) << type;
    }
}
