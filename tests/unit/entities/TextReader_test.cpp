// TEXT, from the lines of a drawing into its record.
#include "input/CDxfMemory.h"
#include "support/OneEntity.h"

#include <gtest/gtest.h>

namespace {

using Errors = std::vector<std::string>;

// The record before the first group.
FieldTexts TextDefaults()
{
    return With(SharedDefaults(6), {{"m_dThickness", "0"},
                                    {"m_dInsertX", "0"},
                                    {"m_dInsertY", "0"},
                                    {"m_dInsertZ", "0"},
                                    {"m_dHeight", "5"},
                                    {"m_strText", ""},
                                    {"m_dRotation", "0"},
                                    {"m_dScaleX", "1"},
                                    {"m_dOblique", "0"},
                                    {"m_strStyle", ""},
                                    {"m_nGenerationFlags", "0"},
                                    {"m_nHorzAlign", "0"},
                                    {"m_dAlignX", "0"},
                                    {"m_dAlignY", "0"},
                                    {"m_dAlignZ", "0"},
                                    {"m_dExtrusionX", "0"},
                                    {"m_dExtrusionY", "0"},
                                    {"m_dExtrusionZ", "1"},
                                    {"m_nVertAlign", "0"}});
}

FieldTexts TextFields(const CDxfRead& reader)
{
    return FieldMapOf(OnlyEntity<DXF_GRAPHIC_TEXT>(reader.entities));
}

const FieldRow kTextRows[] = {
    {1, "  Hello  ", "m_strText", "  Hello  "},
    {7, " Roman S ", "m_strStyle", " Roman S "},
    {10, " 1.5 ", "m_dInsertX", "1.5"},
    {20, "2.5x", "m_dInsertY", "2.5"},
    {30, "-3e2", "m_dInsertZ", "-300"},
    {11, "4.25", "m_dAlignX", "4.25"},
    {21, "5.25", "m_dAlignY", "5.25"},
    {33, "7", "m_dAlignZ", "7"},
    {40, "2.75", "m_dHeight", "2.75"},
    {41, "0.8", "m_dScaleX", "0.8"},
    {50, "45.5", "m_dRotation", "45.5"},
    {51, "15.5", "m_dOblique", "15.5"},
    {71, "4.9", "m_nGenerationFlags", "4"},
    {72, " 2 ", "m_nHorzAlign", "2"},
    {73, "3z", "m_nVertAlign", "3"},
    {210, "0.5", "m_dExtrusionX", "0.5"},
    {220, "0.25", "m_dExtrusionY", "0.25"},
    {230, "-1", "m_dExtrusionZ", "-1"},
};

} // namespace

TEST(TextReader, RecordWithoutGroupsHoldsTheDefaults)
{
    const OneEntity reader("TEXT", "");
    EXPECT_EQ(TextFields(reader), TextDefaults());
    EXPECT_EQ(reader.errors, Errors());
}

TEST(TextReader, EachGroupFillsItsFieldAndNoOther)
{
    for (const FieldRow& row : kTextRows) {
        const OneEntity reader("TEXT", {{row.code, row.value}});
        EXPECT_EQ(TextFields(reader), With(TextDefaults(), {{row.field, row.text}})) << "group " << row.code;
        EXPECT_EQ(reader.errors, Errors()) << "group " << row.code;
    }
}

TEST(TextReader, LaterGroupReplacesTheFieldOfAnEarlierOne)
{
    for (const FieldRow& row : kTextRows) {
        const OneEntity reader("TEXT", {{row.code, "9"}, {row.code, row.value}});
        EXPECT_EQ(TextFields(reader), With(TextDefaults(), {{row.field, row.text}})) << "group " << row.code;
    }
}

TEST(TextReader, NumberThatCannotBeReadBecomesZeroWithoutAMessage)
{
    const OneEntity reader("TEXT", {{40, "tall"}, {41, ""}, {72, "x"}, {230, "-"}});
    EXPECT_EQ(TextFields(reader),
              With(TextDefaults(), {{"m_dHeight", "0"}, {"m_dScaleX", "0"}, {"m_dExtrusionZ", "0"}}));
    EXPECT_EQ(reader.errors, Errors());
}

TEST(TextReader, TextKeepsItsTwoLeadingAndTwoTrailingBlanks)
{
    const OneEntity reader("TEXT", {{1, "  Hello  "}});
    EXPECT_EQ(OnlyEntity<DXF_GRAPHIC_TEXT>(reader.entities).m_strText, std::wstring_view(L"  Hello  "));
}

TEST(TextReader, TextLosesNothingButTheCarriageReturnRightBeforeTheLineFeed)
{
    const OneEntity reader("TEXT", "1\n\t\v\fA\rB \r\r\n7\r\n Style\t\r\n");
    const auto& text = OnlyEntity<DXF_GRAPHIC_TEXT>(reader.entities);
    EXPECT_EQ(text.m_strText, std::wstring_view(L"\t\v\fA\rB \r"));
    EXPECT_EQ(text.m_strStyle, std::wstring_view(L" Style\t"));
}

TEST(TextReader, TextOnALastLineWithoutLineFeedKeepsItsCarriageReturn)
{
    ReportingReader reader;
    reader.ReadText("0\nSECTION\n2\nENTITIES\n0\nTEXT\n1\n last \r");
    EXPECT_EQ(OnlyEntity<DXF_GRAPHIC_TEXT>(reader.entities).m_strText, std::wstring_view(L" last \r"));
    EXPECT_EQ(reader.errors, Errors{"0 5 ReadENTITIES_TEXT() Failed to read line, Line:8"});
}

TEST(TextReader, EmptyTextReplacesAnEarlierOne)
{
    const OneEntity reader("TEXT", {{1, "first"}, {1, ""}});
    EXPECT_EQ(TextFields(reader), TextDefaults());
}

TEST(TextReader, TextLineMayReadLikeAKeyword)
{
    const OneEntity reader("TEXT", {{1, "ENDSEC"}, {7, "EOF"}, {40, 3}});
    EXPECT_EQ(TextFields(reader),
              With(TextDefaults(), {{"m_strText", "ENDSEC"}, {"m_strStyle", "EOF"}, {"m_dHeight", "3"}}));
    EXPECT_EQ(reader.errors, Errors());
}

TEST(TextReader, JustificationsAndSecondPointAreStored)
{
    const OneEntity reader("TEXT", {{72, 1}, {73, 2}, {11, 5}, {21, 6}, {33, 1}});
    EXPECT_EQ(TextFields(reader), With(TextDefaults(), {{"m_nHorzAlign", "1"},
                                                        {"m_nVertAlign", "2"},
                                                        {"m_dAlignX", "5"},
                                                        {"m_dAlignY", "6"},
                                                        {"m_dAlignZ", "1"}}));
}

TEST(TextReader, ThirtyOneAndThirtyNineAreUnknown)
{
    const OneEntity reader("TEXT", {{100, "AcDbText"}, {31, 7}, {39, 2}});
    EXPECT_EQ(TextFields(reader), With(TextDefaults(), {{"m_strSubclass", "AcDbText"}}));
    EXPECT_EQ(reader.errors,
              (Errors{"1 7 ReadENTITIES_COMMON Unknown Dimension type AcDbText ('31' = '7') Line:10",
                      "1 7 ReadENTITIES_COMMON Unknown Dimension type AcDbText ('39' = '2') Line:12"}));
}

TEST(TextReader, EveryOtherCodeIsReportedAsUnknownAndLeavesTheDefaults)
{
    const UnknownCodes unknown("TEXT",
                               {1, 7, 10, 20, 30, 11, 21, 33, 40, 41, 50, 51, 71, 72, 73, 210, 220, 230});
    ReportingReader reader;
    reader.ReadText(unknown.drawing);
    EXPECT_EQ(reader.errors, unknown.messages);
    EXPECT_EQ(TextFields(reader), TextDefaults());
}

TEST(TextReader, CommonCodesGoToTheSharedFields)
{
    const OneEntity reader("TEXT", {{8, " Notes "}, {48, 2.75}, {420, 255}, {430, " Red "}});
    EXPECT_EQ(TextFields(reader), With(TextDefaults(), {{"m_strLayer", "Notes"},
                                                        {"m_dLineTypeScale", "2"},
                                                        {"m_nTrueColor", "255"},
                                                        {"m_strColorName", "Red"}}));
    EXPECT_EQ(reader.errors, Errors());
}

TEST(TextReader, CodeLineThatIsNoIntegerGivesTwoMessagesAndKeepsTheRecord)
{
    const OneEntity reader("TEXT", Lines({"1", "kept", " 40x ", "3", " x2 ", "1", "lost"}));
    EXPECT_EQ(TextFields(reader), With(TextDefaults(), {{"m_strText", "kept"}, {"m_dHeight", "3"}}));
    EXPECT_EQ(reader.errors, (Errors{"0 3 ReadENTITIES_TEXT Failed to read integer from 'x2', Line:11",
                                     "0 5 ReadENTITIES_TEXT() Failed to read line, Line:11",
                                     "0 6 1 - Unknown Object Type Name (12)",
                                     "0 3 Read_UNKNOWN() Failed to read integer from 'lost', Line:13",
                                     "0 6 0 - Unknown Object Type Name (14)",
                                     "0 3 Read_UNKNOWN() Failed to read integer from 'ENDSEC', Line:15",
                                     "0 6 0 - Unknown Object Type Name (16)",
                                     "0 3 Read_UNKNOWN() Failed to read integer from 'EOF', Line:17"}));
}

TEST(TextReader, FileThatEndsInsideWithALineFeedGivesTwoMessages)
{
    ReportingReader reader;
    reader.ReadText(Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "TEXT"}, {1, "Hello"}}));
    EXPECT_EQ(TextFields(reader), With(TextDefaults(), {{"m_strText", "Hello"}}));
    EXPECT_EQ(reader.errors, (Errors{"0 3 ReadENTITIES_TEXT Failed to read integer from '', Line:9",
                                     "0 5 ReadENTITIES_TEXT() Failed to read line, Line:9"}));
}

TEST(TextReader, FileThatEndsInsideWithoutALineFeedGivesTheLastMessageAlone)
{
    ReportingReader reader;
    reader.ReadText("0\nSECTION\n2\nENTITIES\n0\nTEXT\n40\n2.5");
    EXPECT_EQ(TextFields(reader), With(TextDefaults(), {{"m_dHeight", "2.5"}}));
    EXPECT_EQ(reader.errors, Errors{"0 5 ReadENTITIES_TEXT() Failed to read line, Line:8"});
}

TEST(TextReader, ReaderReturnsTrueAtZeroAndLeavesTheNextTypeNameUnread)
{
    CDxfMemory memory("40\n2\n0\nLINE\n");
    CDxfStream stream(memory);
    ReportingReader reader;
    DXF_ENTITY_LIST list;
    EXPECT_TRUE(reader.ReadENTITIES_TEXT(stream, list));
    EXPECT_EQ(reader.lineCount, 3);
    EXPECT_EQ(stream.getline(), "LINE");
    EXPECT_EQ(list.size(), 1u);
    EXPECT_TRUE(reader.entities.empty());
}

TEST(TextReader, ReaderReturnsFalseAtTheEndOfTheFileAndAtABadCode)
{
    for (const std::string_view groups : {"40\n2", "40\n2\n", "x\n2\n0\n"}) {
        CDxfMemory memory(groups);
        CDxfStream stream(memory);
        ReportingReader reader;
        DXF_ENTITY_LIST list;
        EXPECT_FALSE(reader.ReadENTITIES_TEXT(stream, list)) << groups;
        EXPECT_EQ(list.size(), 1u) << groups;
    }
}
