// What the records of entities hold when they are made, and what they hold of an entity of few groups.
#include "entities/DXF_GRAPHIC_DIMENSION.h"
#include "entities/DXF_GRAPHIC_GEOMETRY.h"
#include "entities/DXF_GRAPHIC_INSERT.h"
#include "entities/DXF_GRAPHIC_TEXT.h"
#include "support/Import.h"
#include "support/RecordText.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

std::string BaseDefaults(int kind)
{
    return "m_strHandle=\"\"\nm_strAppData=\"\"\nm_strOwnerHandle=\"\"\nm_strSubclass=\"\"\nm_nPaperSpace=0\n"
           "m_strLayout=\"\"\nm_strLayer=\"\"\nm_strLineType=\"\"\nm_strMaterial=\"\"\nm_nColor=0\n"
           "m_nLineWeight=-1\nm_dLineTypeScale=1\nm_nVisibility=0\nm_nProxyByteCount=0\nm_strProxyData=\"\"\n"
           "m_nTrueColor=0\nm_strColorName=\"\"\nm_strTransparency=\"\"\nm_strPlotStyle=\"\"\n"
           "m_nShadowMode=0\nm_nEntityType=" +
           std::to_string(kind) + "\n";
}

const std::string kExtrusion = "m_dExtrusionX=0\nm_dExtrusionY=0\nm_dExtrusionZ=1\n";

// The only entity of a section of these lines.
class ReportedEntity : public ReportingReader {
public:
    explicit ReportedEntity(std::initializer_list<Group> lines) { ReadText(EntitiesSection(lines)); }

    std::string Changed() const
    {
        return entities.size() == 1 ? ChangedFields(*entities[0]) : "not one entity";
    }
};

} // namespace

TEST(EntityRecords, BaseIsOfNoKindAndHasTheSharedDefaults)
{
    EXPECT_EQ(RecordText(DXF_GRAPHIC_BASE()), BaseDefaults(0));
}

TEST(EntityRecords, LineHasItsDefaults)
{
    EXPECT_EQ(RecordText(DXF_GRAPHIC_LINE()), BaseDefaults(1) +
                                                  "m_dThickness=0\nm_dStartX=0\nm_dStartY=0\nm_dStartZ=0\n"
                                                  "m_dEndX=0\nm_dEndY=0\nm_dEndZ=0\n" +
                                                  kExtrusion);
}

TEST(EntityRecords, ArcHasItsDefaults)
{
    EXPECT_EQ(RecordText(DXF_GRAPHIC_ARC()),
              BaseDefaults(2) +
                  "m_dThickness=0\nm_dCenterX=0\nm_dCenterY=0\nm_dCenterZ=0\nm_dRadius=0\n"
                  "m_dStartAngle=0\nm_dEndAngle=0\n" +
                  kExtrusion);
}

TEST(EntityRecords, CircleHasItsDefaults)
{
    EXPECT_EQ(RecordText(DXF_GRAPHIC_CIRCLE()),
              BaseDefaults(3) + "m_dThickness=0\nm_dCenterX=0\nm_dCenterY=0\nm_dCenterZ=0\nm_dRadius=0\n" +
                  kExtrusion);
}

TEST(EntityRecords, EllipseHasItsDefaults)
{
    EXPECT_EQ(RecordText(DXF_GRAPHIC_ELLIPSE()),
              BaseDefaults(4) +
                  "m_dThickness=0\nm_dCenterX=0\nm_dCenterY=0\nm_dCenterZ=0\n"
                  "m_dMajorAxisX=0\nm_dMajorAxisY=0\nm_dMajorAxisZ=0\n" +
                  kExtrusion + "m_dRatio=0\nm_dStartParam=0\nm_dEndParam=0\n");
}

TEST(EntityRecords, LwpolylineHasItsDefaults)
{
    EXPECT_EQ(RecordText(DXF_GRAPHIC_LWPOLYLINE()),
              BaseDefaults(5) +
                  "m_nVertexCount=0\nm_nFlags=0\nm_dConstantWidth=0\nm_dElevation=0\n"
                  "m_dThickness=0\nm_vertices=\nm_nVertexId=0\n"
                  "m_nStartWidth=0\nm_nEndWidth=0\nm_nBulge=0\n" +
                  kExtrusion);
}

TEST(EntityRecords, TextHasItsDefaults)
{
    EXPECT_EQ(RecordText(DXF_GRAPHIC_TEXT()),
              BaseDefaults(6) +
                  "m_dThickness=0\nm_dInsertX=0\nm_dInsertY=0\nm_dInsertZ=0\nm_dHeight=5\n"
                  "m_strText=\"\"\nm_dRotation=0\nm_dScaleX=1\nm_dOblique=0\nm_strStyle=\"\"\n"
                  "m_nGenerationFlags=0\nm_nHorzAlign=0\nm_dAlignX=0\nm_dAlignY=0\nm_dAlignZ=0\n" +
                  kExtrusion + "m_nVertAlign=0\n");
}

TEST(EntityRecords, MtextHasItsDefaults)
{
    EXPECT_EQ(RecordText(DXF_GRAPHIC_MTEXT()),
              BaseDefaults(7) +
                  "m_dInsertX=0\nm_dInsertY=0\nm_dInsertZ=0\nm_dHeight=5\nm_dRefWidth=0\n"
                  "m_nAttachment=1\nm_nDrawingDirection=0\nm_strText=\"\"\nm_strTextMore=\"\"\n"
                  "m_strStyle=\"\"\n" +
                  kExtrusion +
                  "m_dDirX=0\nm_dDirY=0\nm_dDirZ=0\nm_dCharWidth=0\nm_dRectHeight=0\nm_dRotation=0\n"
                  "m_nLineSpacingStyle=0\nm_dLineSpacing=1\nm_nBackgroundFill=0\nm_nBackgroundTrueColor=0\n"
                  "m_nBackgroundColor=0\nm_dBackgroundTransparency=0\nm_nColumnType=0\nm_nColumnCount=0\n"
                  "m_nColumnFlowReversed=0\nm_dColumnAutoHeight=0\nm_dColumnWidth=0\nm_dColumnGutter=0\n");
}

TEST(EntityRecords, InsertHasItsDefaults)
{
    EXPECT_EQ(RecordText(DXF_GRAPHIC_INSERT()),
              BaseDefaults(8) +
                  "m_nAttributesFollow=0\nm_strBlockName=\"\"\n"
                  "m_dInsertX=0\nm_dInsertY=0\nm_dInsertZ=0\n"
                  "m_dScaleX=1\nm_dScaleY=1\nm_dScaleZ=1\nm_dRotation=0\n"
                  "m_nColumnCount=1\nm_nRowCount=1\nm_nColumnSpacing=0\nm_nRowSpacing=0\n" +
                  kExtrusion);
}

TEST(EntityRecords, DimensionHasTheSharedDefaultsAndNoParts)
{
    EXPECT_EQ(RecordText(DXF_GRAPHIC_DIMENSION()), BaseDefaults(9) + "m_parts=0\n");
}

TEST(EntityRecords, PointIsAtTheOrigin)
{
    EXPECT_EQ(DXF_POINT2D().x, 0.0);
    EXPECT_EQ(DXF_POINT2D().y, 0.0);
}

TEST(EntityRecords, EntityWithoutGroupsHoldsItsDefaults)
{
    int kind = 1;
    for (const std::string_view type :
         {"LINE", "ARC", "CIRCLE", "ELLIPSE", "LWPOLYLINE", "TEXT", "MTEXT", "INSERT"}) {
        const ReportedEntity reader({{0, type}});
        EXPECT_EQ(reader.Changed(), "") << type;
        EXPECT_EQ(reader.entities[0]->m_nEntityType, kind++) << type;
        EXPECT_EQ(reader.errors, Texts()) << type;
    }
}

TEST(EntityRecords, EntityOfUnknownGroupsOnlyHoldsItsDefaults)
{
    for (const std::string_view type :
         {"LINE", "ARC", "CIRCLE", "ELLIPSE", "LWPOLYLINE", "TEXT", "MTEXT", "INSERT"}) {
        const ReportedEntity reader({{0, type}, {999, "x"}, {-4, "1"}});
        EXPECT_EQ(reader.Changed(), "") << type;
        EXPECT_EQ(reader.errors,
                  (Texts{"1 7 ReadENTITIES_COMMON Unknown Dimension type  ('999' = 'x') Line:8",
                         "1 7 ReadENTITIES_COMMON Unknown Dimension type  ('-4' = '1') Line:10"}))
            << type;
    }
}

TEST(EntityRecords, LineTypeScaleLosesItsFraction)
{
    EXPECT_EQ(ReportedEntity({{0, "LINE"}, {48, 0.5}}).Changed(), "m_dLineTypeScale=0");
    EXPECT_EQ(ReportedEntity({{0, "LINE"}, {48, 3}}).Changed(), "m_dLineTypeScale=3");
    EXPECT_EQ(ReportedEntity({{0, "LINE"}, {48, 2.75}}).Changed(), "m_dLineTypeScale=2");
    EXPECT_EQ(ReportedEntity({{0, "LINE"}, {48, -1.5}}).Changed(), "m_dLineTypeScale=-1");
}

TEST(EntityRecords, BulgeLosesItsFraction)
{
    EXPECT_EQ(
        ReportedEntity({{0, "LWPOLYLINE"}, {10, 1.5}, {20, 2.5}, {42, 0.5}, {10, 3}, {20, 4}}).Changed(),
        "m_vertices=(1.5,2.5)(3,4)");
}

TEST(EntityRecords, SecondPointOfATextHasItsZFrom33)
{
    const ReportedEntity unknown({{0, "TEXT"}, {31, 7}});
    EXPECT_EQ(unknown.Changed(), "");
    EXPECT_EQ(unknown.errors, (Texts{"1 7 ReadENTITIES_COMMON Unknown Dimension type  ('31' = '7') Line:8"}));
    EXPECT_EQ(ReportedEntity({{0, "TEXT"}, {33, 7}}).Changed(), "m_dAlignZ=7");
}

TEST(EntityRecords, OfAnMtextsChunksTheLastIsKeptBesideTheText)
{
    EXPECT_EQ(ReportedEntity({{0, "MTEXT"}, {3, "one"}, {3, "two"}, {3, "three"}, {1, "end"}}).Changed(),
              "m_strText=\"end\" m_strTextMore=\"three\"");
}

TEST(EntityRecords, EntityIsInTheListThoughItsReadingStopsEarly)
{
    ReportingReader reader;
    reader.ReadText("0\nSECTION\n2\nENTITIES\n0\nCIRCLE\n40\n2.5\nx\n");
    ASSERT_EQ(reader.entities.size(), 1u);
    EXPECT_EQ(ChangedFields(*reader.entities[0]), "m_dRadius=2.5");
}
