// DIMENSION in drawings that are faulty or end too soon.
#include "input/CDxfMemory.h"
#include "support/Dimensions.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using Errors = std::vector<std::string>;
using Parts = std::vector<FieldTexts>;

// A file that ends in a DIMENSION, whose first group is in lines 7 and 8.
class UnfinishedDimension : public ReportingReader {
public:
    explicit UnfinishedDimension(const std::string& groups)
    {
        ReadText(Dxf({{0, "SECTION"}, {2, "ENTITIES"}, {0, "DIMENSION"}}) + groups);
    }
    Parts AllParts() const { return PartsOf(OnlyEntity<DXF_GRAPHIC_DIMENSION>(entities)); }
};

std::string UnknownMarker(std::string_view marker, int line)
{
    return "0 8 ReadENTITIES_DIMENSION_SWITCH() Unknown Dimension type '" + std::string(marker) +
           "', Line:" + std::to_string(line);
}

} // namespace

TEST(DimensionFaults, UnknownCodeBeforeTheFirstMarkerIsReportedWithAnEmptySubclass)
{
    const OneDimension reader(Dxf({{10, " 1.5 "}, {1, "text"}}) + Part("AcDbEntity"));
    EXPECT_EQ(reader.errors,
              (Errors{"1 7 ReadENTITIES_COMMON Unknown Dimension type  ('10' = '1.5') Line:8",
                      "1 7 ReadENTITIES_COMMON Unknown Dimension type  ('1' = 'text') Line:10"}));
    EXPECT_EQ(FieldMapOf(reader.Record()), SharedDefaults(9));
    EXPECT_EQ(reader.AllParts(), Parts{PartDefaults("AcDbEntity")});
}

TEST(DimensionFaults, ZeroBeforeTheFirstMarkerIsAnUnknownCodeAndTheNextEntityIsEatenUpToItsMarker)
{
    const OneDimension reader(
        Dxf({{0, "LINE"}, {8, "Walls"}, {100, "AcDbEntity"}, {8, "Doors"}, {0, "CIRCLE"}}));
    EXPECT_EQ(reader.errors, Errors{"1 7 ReadENTITIES_COMMON Unknown Dimension type  ('0' = 'LINE') Line:8"});
    ASSERT_EQ(reader.entities.size(), 2u);
    const auto& dimension = dynamic_cast<const DXF_GRAPHIC_DIMENSION&>(*reader.entities[0]);
    EXPECT_EQ(FieldMapOf(dimension), With(SharedDefaults(9), {{"m_strLayer", "Walls"}}));
    EXPECT_EQ(PartsOf(dimension), Parts{PartDefaults("AcDbEntity")});
    EXPECT_EQ(reader.entities[1]->m_nEntityType, DXF_ENTITY_CIRCLE);
}

TEST(DimensionFaults, WithoutMarkerReadsToTheEndOfTheFileAndFails)
{
    const OneDimension reader(Dxf({{8, "Walls"}}));
    EXPECT_EQ(reader.errors,
              (Errors{"1 7 ReadENTITIES_COMMON Unknown Dimension type  ('0' = 'ENDSEC') Line:10",
                      "1 7 ReadENTITIES_COMMON Unknown Dimension type  ('0' = 'EOF') Line:12",
                      "0 3 ReadENTITIES_DIMENSION Failed to read integer from '', Line:13",
                      "0 5 ReadENTITIES_DIMENSION() Failed to read line, Line:13"}));
    EXPECT_EQ(FieldMapOf(reader.Record()), With(SharedDefaults(9), {{"m_strLayer", "Walls"}}));
    EXPECT_TRUE(reader.Record().m_parts.empty());
}

TEST(DimensionFaults, WithoutMarkerAndWithoutALastLineFeedFailsWithOneMessage)
{
    ReportingReader reader;
    reader.ReadText("0\nSECTION\n2\nENTITIES\n0\nDIMENSION\n8\nWalls");
    EXPECT_EQ(reader.errors, Errors{"0 5 ReadENTITIES_DIMENSION() Failed to read line, Line:8"});
    EXPECT_EQ(FieldMapOf(OnlyEntity<DXF_GRAPHIC_DIMENSION>(reader.entities)),
              With(SharedDefaults(9), {{"m_strLayer", "Walls"}}));
}

TEST(DimensionFaults, CodeThatIsNoIntegerBeforeAnyMarkerFailsTheEntity)
{
    const OneDimension reader(Dxf({{8, "Walls"}, {" layer ", "0"}}) + Part("AcDbEntity"));
    EXPECT_EQ(reader.errors, (Errors{"0 3 ReadENTITIES_DIMENSION Failed to read integer from 'layer', Line:9",
                                     "0 5 ReadENTITIES_DIMENSION() Failed to read line, Line:9",
                                     "0 6 0 - Unknown Object Type Name (10)"}));
    EXPECT_EQ(FieldMapOf(reader.Record()), With(SharedDefaults(9), {{"m_strLayer", "Walls"}}));
    EXPECT_TRUE(reader.Record().m_parts.empty());
}

TEST(DimensionFaults, CodeThatIsNoIntegerWithinAPartEndsTheEntityWithOneMessage)
{
    for (const std::string_view marker : kPartMarkers) {
        const OneDimension reader(Part(marker, {{" layer ", "0"}, {8, "x"}}) + Dxf({{0, "LINE"}}));
        EXPECT_EQ(reader.errors, (Errors{"0 3 Read_UNKNOWN() Failed to read integer from 'layer', Line:9",
                                         "0 6 0 - Unknown Object Type Name (10)"}))
            << marker;
        ASSERT_EQ(reader.entities.size(), 2u) << marker;
        EXPECT_EQ(PartsOf(dynamic_cast<const DXF_GRAPHIC_DIMENSION&>(*reader.entities[0])),
                  Parts{PartDefaults(marker)});
        EXPECT_EQ(reader.entities[1]->m_nEntityType, DXF_ENTITY_LINE) << marker;
    }
}

TEST(DimensionFaults, FaultWithinALaterPartKeepsWhatWasRead)
{
    const OneDimension reader(Part("AcDbDimension", {{10, 1}}) +
                              Part("AcDbAlignedDimension", {{13, 2}, {"x", "y"}}));
    EXPECT_EQ(reader.AllParts(),
              (Parts{With(PartDefaults("AcDbDimension"), {{"m_dDefPointX", "1"}}),
                     With(PartDefaults("AcDbAlignedDimension"), {{"m_dExtLine1X", "2"}})}));
    EXPECT_EQ(reader.errors, (Errors{"0 3 Read_UNKNOWN() Failed to read integer from 'x', Line:15",
                                     "0 6 y - Unknown Object Type Name (16)"}));
}

TEST(DimensionFaults, FileThatEndsWithinAPartGivesOneMessageIfALineFeedEndsIt)
{
    for (const std::string_view marker : kPartMarkers) {
        const UnfinishedDimension with(Part(marker));
        EXPECT_EQ(with.errors, Errors{"0 3 Read_UNKNOWN() Failed to read integer from '', Line:9"}) << marker;
        EXPECT_EQ(with.AllParts(), Parts{PartDefaults(marker)});

        const UnfinishedDimension without("100\n" + std::string(marker));
        EXPECT_EQ(without.errors, Errors()) << marker;
        EXPECT_EQ(without.AllParts(), Parts{PartDefaults(marker)});
    }
}

TEST(DimensionFaults, FileThatEndsInAValueKeepsIt)
{
    const UnfinishedDimension reader("100\nAcDbDimension\n10\n1.5");
    EXPECT_EQ(reader.errors, Errors());
    EXPECT_EQ(reader.AllParts(), Parts{With(PartDefaults("AcDbDimension"), {{"m_dDefPointX", "1.5"}})});
}

TEST(DimensionFaults, FileThatEndsInACodeStillReadsAnEmptyValue)
{
    const UnfinishedDimension reader("100\nAcDbDimension\n71");
    EXPECT_EQ(reader.errors, Errors());
    EXPECT_EQ(reader.lineCount, 12); // the empty value, the next type name and the next "0" are counted
    EXPECT_EQ(reader.AllParts(), Parts{With(PartDefaults("AcDbDimension"), {{"m_nAttachment", "0"}})});
}

TEST(DimensionFaults, MarkerAtTheEndOfTheFileIsAnEmptyUnknownMarker)
{
    for (const char* groups : {"100\n", "100"}) {
        const UnfinishedDimension reader(groups);
        EXPECT_EQ(reader.errors, Errors{UnknownMarker("", 8)}) << groups;
    }
    for (const char* groups : {"100\nAcDbDimension\n100\n", "100\nAcDbDimension\n100"}) {
        const UnfinishedDimension reader(groups);
        EXPECT_EQ(reader.errors, Errors{UnknownMarker("", 10)}) << groups;
        EXPECT_EQ(reader.AllParts(), Parts{PartDefaults("AcDbDimension")});
    }
}

// The entity ends there; the loop reads on with the line after the marker as a type name.
TEST(DimensionFaults, UnknownMarkerIsReportedAndMakesNoPart)
{
    const OneDimension reader(Part("AcDbArcDimension"));
    EXPECT_EQ(reader.errors,
              (Errors{UnknownMarker("AcDbArcDimension", 8), "0 6 0 - Unknown Object Type Name (9)",
                      "0 3 Read_UNKNOWN() Failed to read integer from 'ENDSEC', Line:10",
                      "0 6 0 - Unknown Object Type Name (11)",
                      "0 3 Read_UNKNOWN() Failed to read integer from 'EOF', Line:12"}));
    EXPECT_TRUE(reader.Record().m_parts.empty());
}

TEST(DimensionFaults, UnknownMarkerKeepsThePartsBeforeIt)
{
    const OneDimension reader(Part("AcDbEntity") + Part("AcDbDimension", {{10, 1}}) +
                              Part("AcDbArcDimension") + Lines({"0", "0", "LINE"}));
    EXPECT_EQ(reader.errors,
              (Errors{UnknownMarker("AcDbArcDimension", 14), "0 6 0 - Unknown Object Type Name (15)"}));
    ASSERT_EQ(reader.entities.size(), 2u);
    EXPECT_EQ(
        PartsOf(dynamic_cast<const DXF_GRAPHIC_DIMENSION&>(*reader.entities[0])),
        (Parts{PartDefaults("AcDbEntity"), With(PartDefaults("AcDbDimension"), {{"m_dDefPointX", "1"}})}));
    EXPECT_EQ(reader.entities[1]->m_nEntityType, DXF_ENTITY_LINE);
}

TEST(DimensionFaults, MarkersAreComparedExactly)
{
    for (const std::string marker :
         {"acdbdimension", "ACDBENTITY", "AcDbDimensio", "AcDbDimensions", "AcDb Dimension",
          "AcDb2LineAngularDimension2", "AcDb3pointAngularDimension"}) {
        const OneDimension reader(Part(marker));
        ASSERT_FALSE(reader.errors.empty()) << marker;
        EXPECT_EQ(reader.errors[0], UnknownMarker(marker, 8));
        EXPECT_TRUE(reader.Record().m_parts.empty()) << marker;
    }
}

// What the readers return to their callers.
TEST(DimensionFaults, IsTrueOnceAMarkerWasMetWhateverCameOfIt)
{
    const std::map<std::string, bool> kResults = {{"100\nAcDbEntity\n0\n", true},
                                                  {"100\nAcDbNone\n0\n", true},
                                                  {"100\nAcDbEntity\nx\n", true},
                                                  {"100\nAcDbEntity\n8", true},
                                                  {"100\n", true},
                                                  {"100\nAcDbEntity\n100\nAcDbNone\n", true},
                                                  {"8\n0\n", false},
                                                  {"x\n", false},
                                                  {"", false},
                                                  {"0\nLINE\n", false}};
    for (const auto& [groups, result] : kResults) {
        CDxfMemory memory(groups);
        CDxfStream stream(memory);
        ReportingReader reader;
        EXPECT_EQ(reader.ReadENTITIES_DIMENSION(stream, reader.entities), result) << groups;
        EXPECT_EQ(reader.entities.size(), 1u) << groups;
    }
}

TEST(DimensionFaults, SwitchIsTrueWhenThePartEndedAtAZeroOrAFurtherMarker)
{
    const std::map<std::string, bool> kResults = {
        {"0\n", true},
        {"8\nx\n0\n", true},
        {"100\nAcDbNone\n", true}, // the further marker's own result is not passed on
        {"100\nAcDbRadialDimension\nx\n", true},
        {"x\n", false},
        {"8\nx", false},
        {"", false}};
    for (const std::string_view marker : kPartMarkers) {
        for (const auto& [groups, result] : kResults) {
            CDxfMemory memory(groups);
            CDxfStream stream(memory);
            ReportingReader reader;
            DXF_GRAPHIC_DIMENSION dimension;
            EXPECT_EQ(reader.ReadENTITIES_DIMENSION_SWITCH(stream, dimension, marker), result)
                << marker << " " << groups;
            ASSERT_FALSE(dimension.m_parts.empty());
            EXPECT_EQ(FieldMapOf(*dimension.m_parts[0]), PartDefaults(marker));
        }
    }
    CDxfMemory memory("0\n");
    CDxfStream stream(memory);
    ReportingReader reader;
    DXF_GRAPHIC_DIMENSION dimension;
    EXPECT_FALSE(reader.ReadENTITIES_DIMENSION_SWITCH(stream, dimension, "AcDbNone"));
    EXPECT_EQ(reader.errors, Errors{UnknownMarker("AcDbNone", 0)});
    EXPECT_TRUE(dimension.m_parts.empty());
}
