// DIMENSION, from the lines of a drawing into its record: the parts and their fields.
#include "support/Dimensions.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using Errors = std::vector<std::string>;
using Parts = std::vector<FieldTexts>;

const std::vector<FieldRow> kExtLines = {
    {13, "1.5", "m_dExtLine1X", "1.5"}, {23, "2.5", "m_dExtLine1Y", "2.5"},
    {33, "3.5", "m_dExtLine1Z", "3.5"}, {14, "4.5", "m_dExtLine2X", "4.5"},
    {24, "5.5", "m_dExtLine2Y", "5.5"}, {34, "6.5", "m_dExtLine2Z", "6.5"}};

std::vector<FieldRow> Joined(std::vector<FieldRow> rows, std::initializer_list<FieldRow> more)
{
    rows.insert(rows.end(), more);
    return rows;
}

const std::vector<FieldRow> kAngular = Joined(kExtLines, {{15, "-1", "m_dArcPointX", "-1"},
                                                          {25, " 1e3 ", "m_dArcPointY", "1000"},
                                                          {35, "+.25", "m_dArcPointZ", "0.25"},
                                                          {16, "7.", "m_dDimArcX", "7"},
                                                          {26, "8", "m_dDimArcY", "8"},
                                                          {36, "9", "m_dDimArcZ", "9"}});

const std::vector<FieldRow> kChord = {{15, "1.5", "m_dChordPointX", "1.5"},
                                      {25, "2.5", "m_dChordPointY", "2.5"},
                                      {35, "3.5", "m_dChordPointZ", "3.5"},
                                      {40, "4.5", "m_dLeaderLength", "4.5"}};

// The groups that each part keeps.
const std::map<std::string_view, std::vector<FieldRow>> kRows = {
    {"AcDbEntity", {}},
    {"AcDbDimension",
     {{2, "  *D1 ", "m_strBlockName", "*D1"},
      {10, "1.5", "m_dDefPointX", "1.5"},
      {20, "2.5", "m_dDefPointY", "2.5"},
      {30, "3.5", "m_dDefPointZ", "3.5"},
      {11, "4.5", "m_dTextMidX", "4.5"},
      {21, "5.5", "m_dTextMidY", "5.5"},
      {31, "6.5", "m_dTextMidZ", "6.5"},
      {70, "33.9", "m_nDimType", "33"},
      {71, "5", "m_nAttachment", "5"},
      {41, "1.25", "m_dLineSpacing", "1.25"},
      {42, "12.75", "m_dMeasurement", "12.75"},
      {1, " <> mm ", "m_strText", "<> mm"},
      {53, "30.5", "m_dTextRotation", "30.5"},
      {51, "-60.25", "m_dHorizontalDir", "-60.25"},
      {210, "0.5", "m_dExtrusionX", "0.5"},
      {220, "0.25", "m_dExtrusionY", "0.25"},
      {230, "-1", "m_dExtrusionZ", "-1"},
      {3, "\tISO-25", "m_strStyle", "ISO-25"}}},
    {"AcDbAlignedDimension", Joined(kExtLines, {{12, "7.5", "m_dClonePointX", "7.5"},
                                                {22, "8.5", "m_dClonePointY", "8.5"},
                                                {32, "9.5", "m_dClonePointZ", "9.5"},
                                                {50, "90", "m_dRotation", "90"},
                                                {52, "0.75", "m_dOblique", "0.75"}})},
    {"AcDb3PointAngularDimension", kAngular},
    {"AcDb2LineAngularDimension", kAngular},
    {"AcDbRotatedDimension", {}},
    {"AcDbOrdinateDimension", kExtLines},
    {"AcDbRadialDimension", kChord},
    {"AcDbDiametricDimension", kChord},
};

} // namespace

TEST(DimensionReader, EachMarkerMakesItsPartWithTheDefaults)
{
    for (const std::string_view marker : kPartMarkers) {
        const OneDimension reader(Part(marker));
        EXPECT_EQ(reader.AllParts(), Parts{PartDefaults(marker)}) << marker;
        EXPECT_EQ(FieldMapOf(reader.Record()), SharedDefaults(9)) << marker;
        EXPECT_EQ(reader.errors, Errors()) << marker;
    }
}

TEST(DimensionReader, EachGroupFillsItsFieldOfItsPartAndNoOther)
{
    for (const auto& [marker, rows] : kRows) {
        for (const FieldRow& row : rows) {
            const OneDimension reader(Part(marker, {{row.code, row.value}}));
            EXPECT_EQ(reader.AllParts(), Parts{With(PartDefaults(marker), {{row.field, row.text}})})
                << marker << " group " << row.code;
            EXPECT_EQ(reader.errors, Errors()) << marker << " group " << row.code;
        }
    }
}

TEST(DimensionReader, LaterGroupReplacesTheFieldOfAnEarlierOne)
{
    for (const auto& [marker, rows] : kRows) {
        for (const FieldRow& row : rows) {
            const OneDimension reader(Part(marker, {{row.code, "9"}, {row.code, row.value}}));
            EXPECT_EQ(reader.AllParts(), Parts{With(PartDefaults(marker), {{row.field, row.text}})})
                << marker << " group " << row.code;
        }
    }
}

TEST(DimensionReader, AllGroupsOfAPartFillAllItsFields)
{
    for (const auto& [marker, rows] : kRows) {
        std::string groups = Part(marker);
        FieldTexts fields = PartDefaults(marker);
        for (const FieldRow& row : rows) {
            groups += Dxf({{row.code, row.value}});
            fields[row.field] = row.text;
        }
        // Each part has as many fields as groups, but for its kind and the name of its type.
        EXPECT_EQ(fields.size(), rows.size() + 2) << marker;
        const OneDimension reader(groups);
        EXPECT_EQ(reader.AllParts(), Parts{fields}) << marker;
    }
}

TEST(DimensionReader, EveryOtherCodeIsDroppedWithoutAMessage)
{
    for (const auto& [marker, rows] : kRows) {
        std::map<int, bool> isKnown{{0, true}, {100, true}};
        for (const FieldRow& row : rows)
            isKnown[row.code] = true;
        std::string groups = Part(marker);
        for (int code = -3; code <= 1100; ++code)
            if (!isKnown[code])
                groups += Dxf({{code, "7"}});
        groups += Dxf({{2147483647, "7"}, {"-2147483648", "7"}});
        const OneDimension reader(groups);
        EXPECT_EQ(reader.AllParts(), Parts{PartDefaults(marker)}) << marker;
        EXPECT_EQ(FieldMapOf(reader.Record()), SharedDefaults(9)) << marker;
        EXPECT_EQ(reader.errors, Errors()) << marker;
    }
}

TEST(DimensionReader, NumberThatCannotBeReadIsZeroWithoutAMessage)
{
    const OneDimension reader(
        Part("AcDbDimension", {{10, "x"}, {20, ""}, {71, "none"}, {70, " -12x"}, {230, "-"}, {42, "3,5"}}));
    EXPECT_EQ(reader.AllParts(), Parts{With(PartDefaults("AcDbDimension"), {{"m_nAttachment", "0"},
                                                                            {"m_nDimType", "-12"},
                                                                            {"m_dExtrusionZ", "0"},
                                                                            {"m_dMeasurement", "3"}})});
    EXPECT_EQ(reader.errors, Errors());
}

TEST(DimensionReader, CodeLineMayHaveBlanksASignAndLetters)
{
    const OneDimension reader(Part("AcDbDimension", {{"  +10 end", 1.5}, {"\t20", 2.5}}));
    EXPECT_EQ(reader.AllParts(),
              Parts{With(PartDefaults("AcDbDimension"), {{"m_dDefPointX", "1.5"}, {"m_dDefPointY", "2.5"}})});
}

TEST(DimensionReader, OverrideOfBlanksIsEmpty)
{
    const OneDimension reader(Part("AcDbDimension", {{1, "  \t "}}));
    EXPECT_EQ(reader.AllParts(), Parts{PartDefaults("AcDbDimension")});
}

TEST(DimensionReader, PartsAreInTheOrderOfTheirMarkers)
{
    for (const std::string_view first : kPartMarkers) {
        for (const std::string_view second : kPartMarkers) {
            const OneDimension reader(Part(first) + Part(second));
            EXPECT_EQ(reader.AllParts(), (Parts{PartDefaults(first), PartDefaults(second)}))
                << first << " " << second;
            EXPECT_EQ(reader.errors, Errors()) << first << " " << second;
        }
    }
}

TEST(DimensionReader, CommonChainOfARotatedDimensionGivesFourParts)
{
    const OneDimension reader(Dxf({{5, "A1"}, {330, "1F"}}) + Part("AcDbEntity", {{8, "0"}}) +
                              Part("AcDbDimension", {{10, 1}, {70, 32}}) +
                              Part("AcDbAlignedDimension", {{13, 2}, {50, 90}}) +
                              Part("AcDbRotatedDimension"));
    EXPECT_EQ(
        reader.AllParts(),
        (Parts{PartDefaults("AcDbEntity"),
               With(PartDefaults("AcDbDimension"), {{"m_dDefPointX", "1"}, {"m_nDimType", "32"}}),
               With(PartDefaults("AcDbAlignedDimension"), {{"m_dExtLine1X", "2"}, {"m_dRotation", "90"}}),
               PartDefaults("AcDbRotatedDimension")}));
    EXPECT_EQ(FieldMapOf(reader.Record()),
              With(SharedDefaults(9), {{"m_strHandle", "A1"}, {"m_strOwnerHandle", "1F"}}));
    EXPECT_EQ(reader.errors, Errors());
}

TEST(DimensionReader, RepeatedMarkerGivesAPartOfItsOwn)
{
    const OneDimension reader(Part("AcDbDimension", {{10, 1}}) + Part("AcDbDimension", {{20, 2}}) +
                              Part("AcDbDimension"));
    EXPECT_EQ(reader.AllParts(), (Parts{With(PartDefaults("AcDbDimension"), {{"m_dDefPointX", "1"}}),
                                        With(PartDefaults("AcDbDimension"), {{"m_dDefPointY", "2"}}),
                                        PartDefaults("AcDbDimension")}));
    EXPECT_EQ(reader.errors, Errors());
}

TEST(DimensionReader, DimensionTypeDoesNotDecideWhichPartsThereAre)
{
    for (const char* type : {"0", "1", "2", "3", "4", "5", "6", "162"})
        EXPECT_EQ(OneDimension(Part("AcDbDimension", {{70, type}})).AllParts(),
                  Parts{With(PartDefaults("AcDbDimension"), {{"m_nDimType", type}})})
            << type;
}

TEST(DimensionReader, MarkerIsTrimmedBeforeItIsCompared)
{
    EXPECT_EQ(OneDimension(Part(" AcDbRadialDimension  ")).AllParts(),
              Parts{PartDefaults("AcDbRadialDimension")});
    EXPECT_EQ(OneDimension(Part("AcDbEntity") + Part("AcDbEntity\t")).AllParts(),
              (Parts{PartDefaults("AcDbEntity"), PartDefaults("AcDbEntity")}));
}

TEST(DimensionReader, EndsAtZeroAndLeavesTheNextEntityToTheLoop)
{
    for (const std::string_view marker : kPartMarkers) {
        const OneDimension reader(Part(marker) + Dxf({{0, "LINE"}, {8, "Walls"}}));
        ASSERT_EQ(reader.entities.size(), 2u) << marker;
        EXPECT_EQ(PartsOf(dynamic_cast<const DXF_GRAPHIC_DIMENSION&>(*reader.entities[0])),
                  Parts{PartDefaults(marker)});
        EXPECT_EQ(FieldMapOf(*reader.entities[1]).at("m_strLayer"), "Walls");
        EXPECT_EQ(FieldMapOf(*reader.entities[1]).at("m_nEntityType"), "1");
        EXPECT_EQ(reader.errors, Errors()) << marker;
    }
}

TEST(DimensionReader, WithinABlockBelongsToTheBlock)
{
    ReportingReader reader;
    reader.ReadText(Section("BLOCKS", Dxf({{0, "BLOCK"}, {2, "B"}, {0, "DIMENSION"}}) + Part("AcDbEntity") +
                                          Dxf({{0, "ENDBLK"}})));
    EXPECT_EQ(reader.errors, Errors());
    EXPECT_TRUE(reader.entities.empty());
    ASSERT_EQ(reader.blocks.size(), 1u);
    EXPECT_EQ(PartsOf(OnlyEntity<DXF_GRAPHIC_DIMENSION>(reader.blocks[0]->m_entities)),
              Parts{PartDefaults("AcDbEntity")});
}

TEST(DimensionReader, GroupsBeforeTheFirstMarkerFillTheSharedFields)
{
    const OneDimension reader(
        Dxf({{5, "2A"}, {330, "1F"}, {8, " Walls "}, {6, "DASHED"}, {62, 3}, {48, 2.9}}) +
        Part("AcDbEntity"));
    EXPECT_EQ(FieldMapOf(reader.Record()), With(SharedDefaults(9), {{"m_strHandle", "2A"},
                                                                    {"m_strOwnerHandle", "1F"},
                                                                    {"m_strLayer", "Walls"},
                                                                    {"m_strLineType", "DASHED"},
                                                                    {"m_nColor", "3"},
                                                                    {"m_dLineTypeScale", "2"}}));
    EXPECT_EQ(reader.AllParts(), Parts{PartDefaults("AcDbEntity")});
    EXPECT_EQ(reader.errors, Errors());
}

TEST(DimensionReader, LayerAfterTheMarkerIsDropped)
{
    EXPECT_EQ(FieldMapOf(OneDimension(Part("AcDbEntity", {{8, "Walls"}, {62, 3}})).Record()),
              SharedDefaults(9));
    EXPECT_EQ(FieldMapOf(OneDimension(Dxf({{8, "Walls"}}) + Part("AcDbEntity", {{8, "Doors"}})).Record()),
              With(SharedDefaults(9), {{"m_strLayer", "Walls"}}));
}

TEST(DimensionReader, MarkerItselfIsNoSubclassOfTheRecord)
{
    EXPECT_EQ(FieldMapOf(OneDimension(Part("AcDbEntity") + Part("AcDbDimension")).Record()),
              SharedDefaults(9));
}

TEST(DimensionReader, GroupOfAnApplicationBeforeTheFirstMarkerIsKept)
{
    const OneDimension reader(Dxf({{102, "{ACAD_REACTORS"}, {330, "1F"}, {100, "AcDbNot"}, {102, "}"}}) +
                              Part("AcDbEntity", {{102, "{X"}, {8, "v"}, {102, "}"}}));
    EXPECT_EQ(
        FieldMapOf(reader.Record()),
        With(SharedDefaults(9), {{"m_strAppData", "{ACAD_REACTORS\\x0A330\\x0A1F\\x0A100\\x0AAcDbNot"}}));
    EXPECT_EQ(reader.AllParts(), Parts{PartDefaults("AcDbEntity")});
    EXPECT_EQ(reader.errors, Errors());
}

TEST(DimensionReader, EveryDimensionIsHandedToItsCallbackWithItsParts)
{
    struct Reader : ReportingReader {
        void OnDimension(const DXF_GRAPHIC_DIMENSION& dimension) override
        {
            parts.push_back(PartsOf(dimension));
        }
        std::vector<Parts> parts;
    } reader;
    reader.ReadText(DimensionDrawing(Part("AcDbEntity") + Part("AcDbOrdinateDimension") +
                                     Dxf({{0, "DIMENSION"}}) + Part("AcDbDimension")));
    EXPECT_EQ(reader.parts,
              (std::vector<Parts>{{PartDefaults("AcDbEntity"), PartDefaults("AcDbOrdinateDimension")},
                                  {PartDefaults("AcDbDimension")}}));
}
