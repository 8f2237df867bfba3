// INSERT, from the lines of a drawing into its record.
#include "support/OneEntity.h"

#include <gtest/gtest.h>

namespace {

using Errors = std::vector<std::string>;

// The record before the first group.
FieldTexts InsertDefaults()
{
    return With(SharedDefaults(8), {{"m_nAttributesFollow", "0"},
                                    {"m_strBlockName", ""},
                                    {"m_dInsertX", "0"},
                                    {"m_dInsertY", "0"},
                                    {"m_dInsertZ", "0"},
                                    {"m_dScaleX", "1"},
                                    {"m_dScaleY", "1"},
                                    {"m_dScaleZ", "1"},
                                    {"m_dRotation", "0"},
                                    {"m_nColumnCount", "1"},
                                    {"m_nRowCount", "1"},
                                    {"m_nColumnSpacing", "0"},
                                    {"m_nRowSpacing", "0"},
                                    {"m_dExtrusionX", "0"},
                                    {"m_dExtrusionY", "0"},
                                    {"m_dExtrusionZ", "1"}});
}

FieldTexts InsertFields(const CDxfRead& reader)
{
    return FieldMapOf(OnlyEntity<DXF_GRAPHIC_INSERT>(reader.entities));
}

const FieldRow kInsertRows[] = {
    {2, "  Door 1 ", "m_strBlockName", "Door 1"}, // trimmed, unlike the strings of texts
    {10, " 1.5 ", "m_dInsertX", "1.5"},
    {20, "2.5", "m_dInsertY", "2.5"},
    {30, "3.5", "m_dInsertZ", "3.5"},
    {41, "2.25", "m_dScaleX", "2.25"},
    {42, "-1", "m_dScaleY", "-1"},
    {43, "0.5", "m_dScaleZ", "0.5"},
    {44, "12.5", "m_nColumnSpacing", "12"},
    {45, "-7.9", "m_nRowSpacing", "-7"},
    {50, "30.5", "m_dRotation", "30.5"},
    {66, "1", "m_nAttributesFollow", "1"},
    {70, "3", "m_nColumnCount", "3"},
    {71, "4", "m_nRowCount", "4"},
    {210, "0.5", "m_dExtrusionX", "0.5"},
    {220, "0.25", "m_dExtrusionY", "0.25"},
    {230, "-1", "m_dExtrusionZ", "-1"},
};

} // namespace

TEST(InsertReader, RecordWithoutGroupsHoldsTheDefaults)
{
    const OneEntity reader("INSERT", "");
    EXPECT_EQ(InsertFields(reader), InsertDefaults());
    EXPECT_EQ(reader.errors, Errors());
}

TEST(InsertReader, EachGroupFillsItsFieldAndNoOther)
{
    for (const FieldRow& row : kInsertRows) {
        const OneEntity reader("INSERT", {{row.code, row.value}});
        EXPECT_EQ(InsertFields(reader), With(InsertDefaults(), {{row.field, row.text}}))
            << "group " << row.code;
        EXPECT_EQ(reader.errors, Errors()) << "group " << row.code;
    }
}

TEST(InsertReader, LaterGroupReplacesTheFieldOfAnEarlierOne)
{
    for (const FieldRow& row : kInsertRows) {
        const OneEntity reader("INSERT", {{row.code, "9"}, {row.code, row.value}});
        EXPECT_EQ(InsertFields(reader), With(InsertDefaults(), {{row.field, row.text}}))
            << "group " << row.code;
    }
}

TEST(InsertReader, NameScaleAndSpacingLeaveTheOtherDefaults)
{
    const OneEntity reader("INSERT", {{2, "Door"}, {41, 2}, {44, 2.5}});
    EXPECT_EQ(
        InsertFields(reader),
        With(InsertDefaults(), {{"m_strBlockName", "Door"}, {"m_dScaleX", "2"}, {"m_nColumnSpacing", "2"}}));
}

TEST(InsertReader, NumberThatCannotBeReadBecomesZeroWithoutAMessage)
{
    const OneEntity reader("INSERT", {{41, "wide"}, {70, ""}, {44, ".5"}});
    EXPECT_EQ(InsertFields(reader), With(InsertDefaults(), {{"m_dScaleX", "0"}, {"m_nColumnCount", "0"}}));
    EXPECT_EQ(reader.errors, Errors());
}

TEST(InsertReader, EveryOtherCodeIsReportedAsUnknownAndLeavesTheDefaults)
{
    const UnknownCodes unknown("INSERT", {2, 10, 20, 30, 41, 42, 43, 44, 45, 50, 66, 70, 71, 210, 220, 230});
    ReportingReader reader;
    reader.ReadText(unknown.drawing);
    EXPECT_EQ(reader.errors, unknown.messages);
    EXPECT_EQ(InsertFields(reader), InsertDefaults());
}

TEST(InsertReader, CommonCodesGoToTheSharedFields)
{
    const OneEntity reader("INSERT", {{8, "Doors"}, {48, 3.5}, {100, "AcDbBlockReference"}});
    EXPECT_EQ(InsertFields(reader), With(InsertDefaults(), {{"m_strLayer", "Doors"},
                                                            {"m_dLineTypeScale", "3"},
                                                            {"m_strSubclass", "AcDbBlockReference"}}));
    EXPECT_EQ(reader.errors, Errors());
}

TEST(InsertReader, AttributesThatFollowAreUnknownEntitiesOfTheirOwn)
{
    const OneEntity reader(
        "INSERT",
        {{66, 1}, {2, "Door"}, {0, "ATTRIB"}, {1, "A"}, {0, "ATTRIB"}, {1, "B"}, {0, "SEQEND"}, {8, "0"}});
    EXPECT_EQ(InsertFields(reader),
              With(InsertDefaults(), {{"m_nAttributesFollow", "1"}, {"m_strBlockName", "Door"}}));
    EXPECT_EQ(reader.errors, (Errors{"0 6 ATTRIB - Unknown Object Type Name (12)",
                                     "0 6 ATTRIB - Unknown Object Type Name (16)",
                                     "0 6 SEQEND - Unknown Object Type Name (20)"}));
}

TEST(InsertReader, CodeLineThatIsNoIntegerGivesTwoMessagesAndKeepsTheRecord)
{
    const OneEntity reader("INSERT", {{2, "Door"}, {" scale ", "0"}});
    EXPECT_EQ(InsertFields(reader), With(InsertDefaults(), {{"m_strBlockName", "Door"}}));
    EXPECT_EQ(reader.errors, (Errors{"0 3 ReadENTITIES_INSERT Failed to read integer from 'scale', Line:9",
                                     "0 5 ReadENTITIES_INSERT() Failed to read line, Line:9",
                                     "0 6 0 - Unknown Object Type Name (10)"}));
}

TEST(InsertReader, FileThatEndsInsideWithALineFeedGivesTwoMessages)
{
    ReportingReader reader;
    reader.ReadText(Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "INSERT"}, {2, "Door"}}));
    EXPECT_EQ(InsertFields(reader), With(InsertDefaults(), {{"m_strBlockName", "Door"}}));
    EXPECT_EQ(reader.errors, (Errors{"0 3 ReadENTITIES_INSERT Failed to read integer from '', Line:9",
                                     "0 5 ReadENTITIES_INSERT() Failed to read line, Line:9"}));
}

TEST(InsertReader, FileThatEndsInsideWithoutALineFeedGivesTheLastMessageAlone)
{
    ReportingReader reader;
    reader.ReadText("0\nSECTION\n2\nENTITIES\n0\nINSERT\n50\n30");
    EXPECT_EQ(InsertFields(reader), With(InsertDefaults(), {{"m_dRotation", "30"}}));
    EXPECT_EQ(reader.errors, Errors{"0 5 ReadENTITIES_INSERT() Failed to read line, Line:8"});
}
