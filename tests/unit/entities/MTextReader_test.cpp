// MTEXT, from the lines of a drawing into its record.
#include "support/OneEntity.h"

#include <gtest/gtest.h>

namespace {

using Errors = std::vector<std::string>;

// The record before the first group.
FieldTexts MTextDefaults()
{
    return With(SharedDefaults(7), {{"m_dInsertX", "0"},
                                    {"m_dInsertY", "0"},
                                    {"m_dInsertZ", "0"},
                                    {"m_dHeight", "5"},
                                    {"m_dRefWidth", "0"},
                                    {"m_nAttachment", "1"},
                                    {"m_nDrawingDirection", "0"},
                                    {"m_strText", ""},
                                    {"m_strTextMore", ""},
                                    {"m_strStyle", ""},
                                    {"m_dExtrusionX", "0"},
                                    {"m_dExtrusionY", "0"},
                                    {"m_dExtrusionZ", "1"},
                                    {"m_dDirX", "0"},
                                    {"m_dDirY", "0"},
                                    {"m_dDirZ", "0"},
                                    {"m_dCharWidth", "0"},
                                    {"m_dRectHeight", "0"},
                                    {"m_dRotation", "0"},
                                    {"m_nLineSpacingStyle", "0"},
                                    {"m_dLineSpacing", "1"},
                                    {"m_nBackgroundFill", "0"},
                                    {"m_nBackgroundTrueColor", "0"},
                                    {"m_nBackgroundColor", "0"},
                                    {"m_dBackgroundTransparency", "0"},
                                    {"m_nColumnType", "0"},
                                    {"m_nColumnCount", "0"},
                                    {"m_nColumnFlowReversed", "0"},
                                    {"m_dColumnAutoHeight", "0"},
                                    {"m_dColumnWidth", "0"},
                                    {"m_dColumnGutter", "0"}});
}

FieldTexts MTextFields(const CDxfRead& reader)
{
    return FieldMapOf(OnlyEntity<DXF_GRAPHIC_MTEXT>(reader.entities));
}

const FieldRow kMTextRows[] = {
    {1, "  end ", "m_strText", "  end "},
    {3, " part  ", "m_strTextMore", " part  "},
    {7, " Roman ", "m_strStyle", " Roman "},
    {10, " 1.5 ", "m_dInsertX", "1.5"},
    {20, "2.5", "m_dInsertY", "2.5"},
    {30, "3.5", "m_dInsertZ", "3.5"},
    {11, "0.5", "m_dDirX", "0.5"},
    {21, "0.25", "m_dDirY", "0.25"},
    {31, "0.125", "m_dDirZ", "0.125"},
    {40, "2.75", "m_dHeight", "2.75"},
    {41, "100.5", "m_dRefWidth", "100.5"},
    {42, "90.5", "m_dCharWidth", "90.5"},
    {43, "8.5", "m_dRectHeight", "8.5"},
    {44, "1.25", "m_dLineSpacing", "1.25"},
    {48, "2.5", "m_dColumnWidth", "2.5"},
    {49, "0.75", "m_dColumnGutter", "0.75"},
    {50, "1.5707", "m_dRotation", "1.5707"},
    {63, "256", "m_nBackgroundColor", "256"},
    {71, "5.9", "m_nAttachment", "5"},
    {72, "3", "m_nDrawingDirection", "3"},
    {73, "2", "m_nLineSpacingStyle", "2"},
    {75, "1", "m_nColumnType", "1"},
    {76, "4", "m_nColumnCount", "4"},
    {78, "1", "m_nColumnFlowReversed", "1"},
    {79, "1.5", "m_dColumnAutoHeight", "1.5"},
    {90, "3", "m_nBackgroundFill", "3"},
    {210, "0.5", "m_dExtrusionX", "0.5"},
    {220, "0.25", "m_dExtrusionY", "0.25"},
    {230, "-1", "m_dExtrusionZ", "-1"},
    {441, "0.5", "m_dBackgroundTransparency", "0.5"},
};

} // namespace

TEST(MTextReader, RecordWithoutGroupsHoldsTheDefaults)
{
    const OneEntity reader("MTEXT", "");
    EXPECT_EQ(MTextFields(reader), MTextDefaults());
    EXPECT_EQ(reader.errors, Errors());
}

TEST(MTextReader, EachGroupFillsItsFieldAndNoOther)
{
    for (const FieldRow& row : kMTextRows) {
        const OneEntity reader("MTEXT", {{row.code, row.value}});
        EXPECT_EQ(MTextFields(reader), With(MTextDefaults(), {{row.field, row.text}}))
            << "group " << row.code;
        EXPECT_EQ(reader.errors, Errors()) << "group " << row.code;
    }
}

TEST(MTextReader, LaterGroupReplacesTheFieldOfAnEarlierOne)
{
    for (const FieldRow& row : kMTextRows) {
        const OneEntity reader("MTEXT", {{row.code, "9"}, {row.code, row.value}});
        EXPECT_EQ(MTextFields(reader), With(MTextDefaults(), {{row.field, row.text}}))
            << "group " << row.code;
    }
}

TEST(MTextReader, NumberThatCannotBeReadBecomesZeroWithoutAMessage)
{
    const OneEntity reader("MTEXT", {{40, "tall"}, {44, ""}, {71, "x"}});
    EXPECT_EQ(MTextFields(reader),
              With(MTextDefaults(), {{"m_dHeight", "0"}, {"m_dLineSpacing", "0"}, {"m_nAttachment", "0"}}));
    EXPECT_EQ(reader.errors, Errors());
}

TEST(MTextReader, OnlyTheLastChunkIsKeptBesideTheText)
{
    const OneEntity reader("MTEXT", {{3, "part one"}, {3, "part two"}, {1, "end"}});
    EXPECT_EQ(MTextFields(reader),
              With(MTextDefaults(), {{"m_strText", "end"}, {"m_strTextMore", "part two"}}));
}

TEST(MTextReader, EveryCodeFrom420To439GoesToTheBackgroundColor)
{
    for (int code = 420; code <= 439; ++code) {
        const OneEntity reader("MTEXT", {{code, " 16711680.9 "}});
        EXPECT_EQ(MTextFields(reader), With(MTextDefaults(), {{"m_nBackgroundTrueColor", "16711680"}}))
            << code;
        EXPECT_EQ(reader.errors, Errors()) << code;
    }
}

TEST(MTextReader, LastOfSeveralBackgroundColorsWinsWhicheverItsCode)
{
    const OneEntity reader("MTEXT", {{431, "1"}, {420, 2}, {439, "3"}, {429, 4}});
    EXPECT_EQ(MTextFields(reader), With(MTextDefaults(), {{"m_nBackgroundTrueColor", "4"}}));
}

TEST(MTextReader, ColorNameBecomesABackgroundColorOfZeroAndNoName)
{
    const OneEntity reader("MTEXT", {{420, 255}, {430, "Signal Red"}});
    EXPECT_EQ(MTextFields(reader), MTextDefaults());
    EXPECT_EQ(reader.errors, Errors());
}

TEST(MTextReader, CodesAroundTheBackgroundOnesAreShared)
{
    const OneEntity reader(
        "MTEXT", {{100, "AcDbMText"}, {410, "Model"}, {419, "a"}, {440, "33554687"}, {442, "b"}, {450, "c"}});
    EXPECT_EQ(MTextFields(reader), With(MTextDefaults(), {{"m_strSubclass", "AcDbMText"},
                                                          {"m_strLayout", "Model"},
                                                          {"m_strTransparency", "33554687"}}));
    EXPECT_EQ(reader.errors,
              (Errors{"1 7 ReadENTITIES_COMMON Unknown Dimension type AcDbMText ('419' = 'a') Line:12",
                      "1 7 ReadENTITIES_COMMON Unknown Dimension type AcDbMText ('442' = 'b') Line:16",
                      "1 7 ReadENTITIES_COMMON Unknown Dimension type AcDbMText ('450' = 'c') Line:18"}));
}

TEST(MTextReader, CommonCodesGoToTheSharedFields)
{
    const OneEntity reader("MTEXT", {{5, " 1F "},
                                     {6, "DASHED"},
                                     {8, " Notes "},
                                     {60, 1},
                                     {62, 3},
                                     {67, 1},
                                     {92, 16},
                                     {100, "AcDbMText"},
                                     {284, 2},
                                     {310, "AB"},
                                     {330, "1A"},
                                     {347, "2B"},
                                     {370, 25},
                                     {390, "3C"},
                                     {410, "Layout1"},
                                     {102, "{G"},
                                     {330, "4D"},
                                     {102, "}"}});
    EXPECT_EQ(MTextFields(reader), With(MTextDefaults(), {{"m_strHandle", "1F"},
                                                          {"m_strLineType", "DASHED"},
                                                          {"m_strLayer", "Notes"},
                                                          {"m_nVisibility", "1"},
                                                          {"m_nColor", "3"},
                                                          {"m_nPaperSpace", "1"},
                                                          {"m_nProxyByteCount", "16"},
                                                          {"m_strSubclass", "AcDbMText"},
                                                          {"m_nShadowMode", "2"},
                                                          {"m_strProxyData", "AB"},
                                                          {"m_strOwnerHandle", "1A"},
                                                          {"m_strMaterial", "2B"},
                                                          {"m_nLineWeight", "25"},
                                                          {"m_strPlotStyle", "3C"},
                                                          {"m_strLayout", "Layout1"},
                                                          {"m_strAppData", "{G\\x0A330\\x0A4D"}}));
    EXPECT_EQ(reader.errors, Errors());
}

TEST(MTextReader, EveryOtherCodeIsReportedAsUnknownAndLeavesTheDefaults)
{
    const UnknownCodes unknown("MTEXT", {1,   3,   7,   10,  20,  30,  11,  21,  31,  40,  41,  42,
                                         43,  44,  49,  50,  63,  71,  72,  73,  75,  76,  78,  79,
                                         90,  210, 220, 230, 421, 422, 423, 424, 425, 426, 427, 428,
                                         429, 431, 432, 433, 434, 435, 436, 437, 438, 439, 441});
    ReportingReader reader;
    reader.ReadText(unknown.drawing);
    EXPECT_EQ(reader.errors, unknown.messages);
    EXPECT_EQ(MTextFields(reader), MTextDefaults());
}

TEST(MTextReader, ColumnCodesOfNewerFilesAreReportedAsUnknown)
{
    const OneEntity reader("MTEXT", {{45, 1.5}, {46, 0}, {101, "Embedded Object"}});
    EXPECT_EQ(
        reader.errors,
        (Errors{"1 7 ReadENTITIES_COMMON Unknown Dimension type  ('45' = '1.5') Line:8",
                "1 7 ReadENTITIES_COMMON Unknown Dimension type  ('46' = '0') Line:10",
                "1 7 ReadENTITIES_COMMON Unknown Dimension type  ('101' = 'Embedded Object') Line:12"}));
}

TEST(MTextReader, ColumnWidthLeavesTheLineTypeScale)
{
    const OneEntity reader("MTEXT", {{48, 2.5}});
    const auto& text = OnlyEntity<DXF_GRAPHIC_MTEXT>(reader.entities);
    EXPECT_EQ(text.m_dColumnWidth, 2.5);
    EXPECT_EQ(text.m_rare->m_dLineTypeScale, 1.0);
}

TEST(MTextReader, ColumnAutoHeightIsReal)
{
    const OneEntity reader("MTEXT", {{79, 1}});
    EXPECT_EQ(OnlyEntity<DXF_GRAPHIC_MTEXT>(reader.entities).m_dColumnAutoHeight, 1.0);
}

TEST(MTextReader, CodeLineThatIsNoIntegerGivesTwoMessagesAndKeepsTheRecord)
{
    const OneEntity reader("MTEXT", {{1, "kept"}, {" six ", "0"}});
    EXPECT_EQ(MTextFields(reader), With(MTextDefaults(), {{"m_strText", "kept"}}));
    // The value line is taken for a type name: the reading is out of step up to the next "0".
    EXPECT_EQ(reader.errors, (Errors{"0 3 ReadENTITIES_MTEXT Failed to read integer from 'six', Line:9",
                                     "0 5 ReadENTITIES_MTEXT() Failed to read line, Line:9",
                                     "0 6 0 - Unknown Object Type Name (10)"}));
}

TEST(MTextReader, FileThatEndsInsideWithALineFeedGivesTwoMessages)
{
    ReportingReader reader;
    reader.ReadText(Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "MTEXT"}, {3, "Hello"}}));
    EXPECT_EQ(MTextFields(reader), With(MTextDefaults(), {{"m_strTextMore", "Hello"}}));
    EXPECT_EQ(reader.errors, (Errors{"0 3 ReadENTITIES_MTEXT Failed to read integer from '', Line:9",
                                     "0 5 ReadENTITIES_MTEXT() Failed to read line, Line:9"}));
}

TEST(MTextReader, FileThatEndsInsideWithoutALineFeedGivesTheLastMessageAlone)
{
    ReportingReader reader;
    reader.ReadText("0\nSECTION\n2\nENTITIES\n0\nMTEXT\n44\n1.5");
    EXPECT_EQ(MTextFields(reader), With(MTextDefaults(), {{"m_dLineSpacing", "1.5"}}));
    EXPECT_EQ(reader.errors, Errors{"0 5 ReadENTITIES_MTEXT() Failed to read line, Line:8"});
}
