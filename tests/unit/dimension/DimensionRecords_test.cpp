// The records of dimensions as they are made.
#include "support/Dimensions.h"

#include <gtest/gtest.h>

#include <type_traits>

TEST(DimensionRecords, EveryPartKindHasItsNumber)
{
    EXPECT_EQ(DXF_DIMENSION_PART_ENTITY, 1);
    EXPECT_EQ(DXF_DIMENSION_PART_DIMENSION, 2);
    EXPECT_EQ(DXF_DIMENSION_PART_ALIGNED, 3);
    EXPECT_EQ(DXF_DIMENSION_PART_3POINT_ANGULAR, 4);
    EXPECT_EQ(DXF_DIMENSION_PART_ROTATED, 5);
    EXPECT_EQ(DXF_DIMENSION_PART_ORDINATE, 6);
    EXPECT_EQ(DXF_DIMENSION_PART_RADIAL, 7);
    EXPECT_EQ(DXF_DIMENSION_PART_DIAMETRIC, 8);
    EXPECT_EQ(DXF_DIMENSION_PART_2LINE_ANGULAR, 9);
    static_assert(std::is_same_v<decltype(DXF_GRAPHIC_DIMENSION_BASE::m_nPartKind), std::int32_t>);
}

TEST(DimensionRecords, DimensionIsAnEntityOfKindNineWithoutParts)
{
    const DXF_GRAPHIC_DIMENSION dimension;
    EXPECT_EQ(FieldMapOf(dimension), SharedDefaults(9));
    EXPECT_TRUE(dimension.m_parts.empty());
}

TEST(DimensionRecords, PartsAreDestroyedThroughTheirBase)
{
    static_assert(std::has_virtual_destructor_v<DXF_GRAPHIC_DIMENSION_BASE>);
    static_assert(std::is_base_of_v<DXF_GRAPHIC_BASE, DXF_GRAPHIC_DIMENSION>);
    DXF_GRAPHIC_DIMENSION_BASE* const part = new DXF_GRAPHIC_DIMENSION_RotatedDimension;
    EXPECT_NE(dynamic_cast<DXF_GRAPHIC_DIMENSION_RotatedDimension*>(part), nullptr);
    delete part;
}

TEST(DimensionRecords, EntityAndRotatedPartsHoldTheirKindAlone)
{
    static_assert(sizeof(DXF_GRAPHIC_DIMENSION_Entity) == sizeof(DXF_GRAPHIC_DIMENSION_BASE));
    static_assert(sizeof(DXF_GRAPHIC_DIMENSION_RotatedDimension) == sizeof(DXF_GRAPHIC_DIMENSION_BASE));
    EXPECT_EQ(FieldMapOf(DXF_GRAPHIC_DIMENSION_Entity()),
              (FieldTexts{{"m_nPartKind", "1"}, {"part", "Entity"}}));
    EXPECT_EQ(FieldMapOf(DXF_GRAPHIC_DIMENSION_RotatedDimension()),
              (FieldTexts{{"m_nPartKind", "5"}, {"part", "RotatedDimension"}}));
}

TEST(DimensionRecords, DimensionPartStartsWithAttachmentMinusOneAndTheUsualExtrusion)
{
    EXPECT_EQ(FieldMapOf(DXF_GRAPHIC_DIMENSION_Dimension()),
              (FieldTexts{{"m_nPartKind", "2"},      {"part", "Dimension"},   {"m_strBlockName", ""},
                          {"m_dDefPointX", "0"},     {"m_dDefPointY", "0"},   {"m_dDefPointZ", "0"},
                          {"m_dTextMidX", "0"},      {"m_dTextMidY", "0"},    {"m_dTextMidZ", "0"},
                          {"m_nDimType", "0"},       {"m_nAttachment", "-1"}, {"m_dLineSpacing", "0"},
                          {"m_dMeasurement", "0"},   {"m_strText", ""},       {"m_dTextRotation", "0"},
                          {"m_dHorizontalDir", "0"}, {"m_dExtrusionX", "0"},  {"m_dExtrusionY", "0"},
                          {"m_dExtrusionZ", "1"},    {"m_strStyle", ""}}));
}

TEST(DimensionRecords, AlignedPartStartsWithZeros)
{
    EXPECT_EQ(FieldMapOf(DXF_GRAPHIC_DIMENSION_AlignedDimension()), (FieldTexts{{"m_nPartKind", "3"},
                                                                                {"part", "AlignedDimension"},
                                                                                {"m_dClonePointX", "0"},
                                                                                {"m_dClonePointY", "0"},
                                                                                {"m_dClonePointZ", "0"},
                                                                                {"m_dExtLine1X", "0"},
                                                                                {"m_dExtLine1Y", "0"},
                                                                                {"m_dExtLine1Z", "0"},
                                                                                {"m_dExtLine2X", "0"},
                                                                                {"m_dExtLine2Y", "0"},
                                                                                {"m_dExtLine2Z", "0"},
                                                                                {"m_dRotation", "0"},
                                                                                {"m_dOblique", "0"}}));
}

TEST(DimensionRecords, AngularPartsStartWithZerosAndDifferInKind)
{
    FieldTexts fields{{"m_dExtLine1X", "0"}, {"m_dExtLine1Y", "0"}, {"m_dExtLine1Z", "0"},
                      {"m_dExtLine2X", "0"}, {"m_dExtLine2Y", "0"}, {"m_dExtLine2Z", "0"},
                      {"m_dArcPointX", "0"}, {"m_dArcPointY", "0"}, {"m_dArcPointZ", "0"},
                      {"m_dDimArcX", "0"},   {"m_dDimArcY", "0"},   {"m_dDimArcZ", "0"}};
    EXPECT_EQ(FieldMapOf(DXF_GRAPHIC_DIMENSION_3PointAngularDimension()),
              With(fields, {{"m_nPartKind", "4"}, {"part", "3PointAngularDimension"}}));
    EXPECT_EQ(FieldMapOf(DXF_GRAPHIC_DIMENSION_2LineAngularDimension()),
              With(fields, {{"m_nPartKind", "9"}, {"part", "2LineAngularDimension"}}));
}

TEST(DimensionRecords, OrdinatePartStartsWithZeros)
{
    EXPECT_EQ(FieldMapOf(DXF_GRAPHIC_DIMENSION_OrdinateDimension()),
              (FieldTexts{{"m_nPartKind", "6"},
                          {"part", "OrdinateDimension"},
                          {"m_dExtLine1X", "0"},
                          {"m_dExtLine1Y", "0"},
                          {"m_dExtLine1Z", "0"},
                          {"m_dExtLine2X", "0"},
                          {"m_dExtLine2Y", "0"},
                          {"m_dExtLine2Z", "0"}}));
}

TEST(DimensionRecords, RadialAndDiametricPartsStartWithZerosAndDifferInKind)
{
    FieldTexts fields{
        {"m_dChordPointX", "0"}, {"m_dChordPointY", "0"}, {"m_dChordPointZ", "0"}, {"m_dLeaderLength", "0"}};
    EXPECT_EQ(FieldMapOf(DXF_GRAPHIC_DIMENSION_RadialDimension()),
              With(fields, {{"m_nPartKind", "7"}, {"part", "RadialDimension"}}));
    EXPECT_EQ(FieldMapOf(DXF_GRAPHIC_DIMENSION_DiametricDimension()),
              With(fields, {{"m_nPartKind", "8"}, {"part", "DiametricDimension"}}));
}
