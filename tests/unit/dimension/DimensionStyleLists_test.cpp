// The lists of style overrides that dimensions keep in their extended data: they are stepped over.
#include "support/Dimensions.h"

#include <gtest/gtest.h>

namespace {

using Errors = std::vector<std::string>;

constexpr std::string_view kSkipping[] = {"AcDbRotatedDimension", "AcDb2LineAngularDimension"};

struct OnePart {
    explicit OnePart(const std::string& part)
    {
        reader.ReadText(DimensionDrawing(part));
        const auto parts = PartsOf(OnlyEntity<DXF_GRAPHIC_DIMENSION>(reader.entities));
        if (parts.size() == 1)
            fields = parts[0];
    }
    ReportingReader reader;
    FieldTexts fields; // empty when there is not one part
};

} // namespace

TEST(DimensionStyleLists, AreSteppedOverWithoutAMessage)
{
    for (const std::string_view marker : kSkipping) {
        const OnePart read(Part(marker, {{1001, "ACAD"},
                                         {1000, "DSTYLE"},
                                         {1002, "{"},
                                         {1070, 371},
                                         {1070, 5},
                                         {1070, 41},
                                         {1040, 2.5},
                                         {1002, "}"}}));
        EXPECT_EQ(read.fields, PartDefaults(marker)) << marker;
        EXPECT_EQ(read.reader.errors, Errors()) << marker;
    }
}

TEST(DimensionStyleLists, NothingWithinIsReadAsAGroup)
{
    const OnePart read(Part("AcDb2LineAngularDimension") +
                       Lines({"1000", "DSTYLE", "1002", "{", "13", "5", "0", "LINE", "100", "AcDbNone",
                              "not a number", "1000", "DSTYLE", "1002", "}", "14", "7"}));
    EXPECT_EQ(read.fields, With(PartDefaults("AcDb2LineAngularDimension"), {{"m_dExtLine2X", "7"}}));
    EXPECT_EQ(read.reader.errors, Errors());
}

TEST(DimensionStyleLists, EveryLineOfThemIsCounted)
{
    for (const std::string_view marker : kSkipping) {
        const OnePart read(
            Part(marker, {{1000, "DSTYLE"}, {1002, "{"}, {1070, 371}, {1002, "}"}, {"x", "0"}}));
        EXPECT_EQ(read.reader.errors, (Errors{"0 3 Read_UNKNOWN() Failed to read integer from 'x', Line:17",
                                              "0 6 0 - Unknown Object Type Name (18)"}))
            << marker;
    }
}

TEST(DimensionStyleLists, EmptyListIsAList)
{
    for (const std::string_view marker : kSkipping) {
        const OnePart read(Part(marker, {{1000, "DSTYLE"}, {1002, "{"}, {1002, "}"}}) + Part("AcDbEntity"));
        EXPECT_EQ(read.reader.errors, Errors()) << marker;
        EXPECT_EQ(OnlyEntity<DXF_GRAPHIC_DIMENSION>(read.reader.entities).m_parts.size(), 2u) << marker;
    }
}

TEST(DimensionStyleLists, AreKnownByTrimmedLines)
{
    const OnePart read(Part("AcDb2LineAngularDimension",
                            {{" 1000", "  DSTYLE "}, {"  1002", " {"}, {13, 5}, {"\t1002 ", " }"}, {14, 7}}));
    EXPECT_EQ(read.fields, With(PartDefaults("AcDb2LineAngularDimension"), {{"m_dExtLine2X", "7"}}));
    EXPECT_EQ(read.reader.errors, Errors());
}

TEST(DimensionStyleLists, SeveralAreEachSteppedOver)
{
    const OnePart read(Part("AcDb2LineAngularDimension", {{1000, "DSTYLE"},
                                                          {1002, "{"},
                                                          {13, 5},
                                                          {1002, "}"},
                                                          {23, 1},
                                                          {1000, "DSTYLE"},
                                                          {1002, "{"},
                                                          {13, 6},
                                                          {1002, "}"},
                                                          {24, 2}}));
    EXPECT_EQ(read.fields, With(PartDefaults("AcDb2LineAngularDimension"),
                                {{"m_dExtLine1Y", "1"}, {"m_dExtLine2Y", "2"}}));
    EXPECT_EQ(read.reader.errors, Errors());
}

// Lines within a list are not paired: the scan ends at the value 1002, the next line is dropped, and what
// follows is read as groups.
TEST(DimensionStyleLists, ValueOf1002EndsTheListEarly)
{
    const OnePart read(
        Part("AcDb2LineAngularDimension") +
        Lines({"1000", "DSTYLE", "1002", "{", "1070", "1002", "1040", "13", "7", "1002", "}", "14", "8"}));
    EXPECT_EQ(read.fields, With(PartDefaults("AcDb2LineAngularDimension"),
                                {{"m_dExtLine1X", "7"}, {"m_dExtLine2X", "8"}}));
    EXPECT_EQ(read.reader.errors, Errors());
}

TEST(DimensionStyleLists, OtherStringThanDSTYLEIsAGroupLikeAnyOther)
{
    for (const char* other : {"DSTYLES", "dstyle", "", "D STYLE"}) {
        const OnePart read(
            Part("AcDb2LineAngularDimension", {{1000, other}, {1002, "{"}, {13, 5}, {1002, "}"}, {14, 7}}));
        EXPECT_EQ(read.fields, With(PartDefaults("AcDb2LineAngularDimension"),
                                    {{"m_dExtLine1X", "5"}, {"m_dExtLine2X", "7"}}))
            << other;
        EXPECT_EQ(read.reader.errors, Errors()) << other;
    }
}

TEST(DimensionStyleLists, MissingBeginIsReportedAndReadingGoesOnAfterThePair)
{
    for (const std::string_view marker : kSkipping) {
        const OnePart read(Part(marker, {{1000, "DSTYLE"}, {" 1070 ", "371"}, {100, "AcDbEntity"}}));
        EXPECT_EQ(read.reader.errors,
                  Errors{"0 9 ReadENTITIES_DIMENSION() DSTYLE 1002 not found '1070', Line:11"})
            << marker;
        EXPECT_EQ(OnlyEntity<DXF_GRAPHIC_DIMENSION>(read.reader.entities).m_parts.size(), 2u) << marker;
    }
    const OnePart read(Part("AcDb2LineAngularDimension", {{1000, "DSTYLE"}, {"01002", "{"}, {13, 5}}));
    EXPECT_EQ(read.reader.errors,
              Errors{"0 9 ReadENTITIES_DIMENSION() DSTYLE 1002 not found '01002', Line:11"});
    EXPECT_EQ(read.fields, With(PartDefaults("AcDb2LineAngularDimension"), {{"m_dExtLine1X", "5"}}));
}

TEST(DimensionStyleLists, InAnyOtherPartAreSteppedOverPairByPair)
{
    for (const std::string_view marker :
         {"AcDbEntity", "AcDbDimension", "AcDbAlignedDimension", "AcDb3PointAngularDimension",
          "AcDbOrdinateDimension", "AcDbRadialDimension", "AcDbDiametricDimension"}) {
        const OnePart read(Part(
            marker, {{1001, "ACAD"}, {1000, "DSTYLE"}, {1002, "{"}, {1070, 371}, {1070, 5}, {1002, "}"}}));
        EXPECT_EQ(read.fields, PartDefaults(marker)) << marker;
        EXPECT_EQ(read.reader.errors, Errors()) << marker;
    }
    // Pairs within them are groups of the part.
    const OnePart read(Part("AcDbAlignedDimension",
                            {{1000, "DSTYLE"}, {1002, "{"}, {13, 5}, {1002, "}"}, {1000, "DSTYLE"}}));
    EXPECT_EQ(read.fields, With(PartDefaults("AcDbAlignedDimension"), {{"m_dExtLine1X", "5"}}));
}

TEST(DimensionStyleLists, FileThatEndsWithinGivesNoMessage)
{
    // Lines that are asked for after the end of the file count, too: a pair by the section, mostly one by the
    // list.
    struct Ending {
        std::string_view lines;
        std::int32_t count;
    };
    constexpr Ending kEndings[] = {
        {"", 14}, {"{\n", 15}, {"{\n1070\n371\n", 17}, {"{\n1070\n371\n1002", 18}, {"{\n1070", 15},
    };
    for (const Ending& end : kEndings) {
        for (const std::string_view marker : kSkipping) {
            ReportingReader reader;
            reader.ReadText(Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "DIMENSION"}}) + Part(marker) +
                            Lines({"1000", "DSTYLE", "1002"}) + std::string(end.lines));
            EXPECT_EQ(reader.errors, Errors()) << marker << " " << end.lines;
            EXPECT_EQ(reader.lineCount, end.count) << marker << " " << end.lines;
        }
    }
}

TEST(DimensionStyleLists, FileThatEndsAfterDSTYLEGivesAnEmptyLineInPlaceOf1002)
{
    for (const std::string_view end : {"DSTYLE\n", "DSTYLE"}) {
        for (const std::string_view marker : kSkipping) {
            ReportingReader reader;
            reader.ReadText(Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "DIMENSION"}}) + Part(marker) +
                            Lines({"1000"}) + std::string(end));
            EXPECT_EQ(reader.errors, Errors{"0 9 ReadENTITIES_DIMENSION() DSTYLE 1002 not found '', Line:11"})
                << marker << " " << end;
        }
    }
}
