// Which parts of a dimension are drawn: by where they are and what came before them.
#include "support/DimensionTrace.h"
#include "support/Dimensions.h"

#include <gtest/gtest.h>

namespace {

// Each part has a number in its points that no other has.
const std::string kEntity = Part("AcDbEntity");
const std::string kDimension = Part("AcDbDimension", {{10, 1}, {20, 9}});
const std::string kAnotherDimension = Part("AcDbDimension", {{10, 2}, {20, 9}});
const std::string kAligned = Part("AcDbAlignedDimension", {{13, 0}, {14, 5}, {24, 9}});
const std::string kAnotherAligned = Part("AcDbAlignedDimension", {{13, 0}, {14, 6}, {24, 9}});
const std::string k3PointAngular = Part("AcDb3PointAngularDimension", {{13, 1}, {24, 2}});
const std::string kRotated = Part("AcDbRotatedDimension");
const std::string kOrdinate = Part("AcDbOrdinateDimension", {{13, 1}, {24, 2}});
const std::string kRadial = Part("AcDbRadialDimension", {{15, 1}, {25, 7}});
const std::string kDiametric = Part("AcDbDiametricDimension", {{15, 1}, {25, 5}});
const std::string k2LineAngular = Part("AcDb2LineAngularDimension", {{13, -2}, {14, 1}, {15, 1}, {16, 1}});

std::string DrawnByTable(const std::string& parts)
{
    return TraceOf(DimensionDrawing(parts), [](CDxfReadToQuillmar& converter) { converter.yAxisMode = 1; });
}

// What the parts above draw. D is (1, 9), or (2, 9) by the other dimension part.
std::string AlignedAt5(DimensionTrace trace = DimensionTrace())
{
    return trace.Begin()
        .Line("5, 9, 1, 9")
        .Line("0, 0, 1, 0")
        .ArrowsLine("1, 9, 1, 0")
        .Text("9", "0, 2", "90")
        .End();
}

std::string AlignedAt6(DimensionTrace trace = DimensionTrace())
{
    return trace.Begin()
        .Line("6, 9, 1, 9")
        .Line("0, 0, 1, 0")
        .ArrowsLine("1, 9, 1, 0")
        .Text("9", "0, 2", "90")
        .End();
}

// The angle is 0, so the foot is (P1.x, D.y): it differs from the foot of an aligned dimension.
std::string RotatedAt5(DimensionTrace trace = DimensionTrace())
{
    return trace.Begin()
        .Line("5, 9, 1, 9")
        .Line("0, 0, 0, 9")
        .ArrowsLine("1, 9, 0, 9")
        .Text("1", "0, 2", "0")
        .End();
}

std::string RotatedAt6(DimensionTrace trace = DimensionTrace())
{
    return trace.Begin()
        .Line("6, 9, 1, 9")
        .Line("0, 0, 0, 9")
        .ArrowsLine("1, 9, 0, 9")
        .Text("1", "0, 2", "0")
        .End();
}

std::string Radial(DimensionTrace trace = DimensionTrace())
{
    return trace.Begin().EndArrowLine("1, 9, 1, 7").Text("2", "0, 2", "90").End();
}

std::string Diametric(DimensionTrace trace = DimensionTrace())
{
    return trace.Begin().ArrowsLine("1, 9, 1, 5").Text("2", "0, 2", "90").End();
}

// The lines y = 0 and x = 1 meet at (1, 0); their farther ends are seen under 180 and 90 degrees. The arc's
// own point is the vertex itself, seen under 0, which is below the smallest bound: 360 - 90 + 360.
std::string Angular(DimensionTrace trace = DimensionTrace())
{
    return trace.Begin()
        .Path("M 1.000000,0.000000 A 0.000000,0.000000, 0 0,0 1.000000,0.000000")
        .ColoredLine("-2, 0, 1, 0", "#ff0000")
        .ColoredLine("1, 9, 1, 0", "#00ff00")
        .Circle("1, 0")
        .Circle("1, 0", "#ff0000")
        .Circle("1, 0", "#00ff00")
        .Circle("1, 0", "#0000ff")
        .Text("630.00", "0, 2", "-90")
        .End();
}

} // namespace

TEST(DimensionTable, EntityThreePointAngularAndOrdinateDrawNothing)
{
    for (const std::string& part : {kEntity, k3PointAngular, kOrdinate}) {
        EXPECT_EQ(DrawnByTable(part), "");
        EXPECT_EQ(DrawnByTable(kDimension + part), "");
        EXPECT_EQ(DrawnByTable(kEntity + kDimension + kAligned + part), "");
    }
}

TEST(DimensionTable, DimensionPartAloneDrawsNothing)
{
    EXPECT_EQ(DrawnByTable(kDimension), "");
    EXPECT_EQ(DrawnByTable(kEntity + kDimension), "");
    EXPECT_EQ(DrawnByTable(""), TraceOf(EntitiesSection({{0, "DIMENSION"}}))); // no marker: messages, no node
    EXPECT_EQ(Without("qlmSetLastError", DrawnByTable("")), "");
}

TEST(DimensionTable, AlignedIsDrawnWhenItIsTheLastPartAndADimensionPartCameBefore)
{
    EXPECT_EQ(DrawnByTable(kDimension + kAligned), AlignedAt5());
    EXPECT_EQ(DrawnByTable(kEntity + kDimension + kAligned), AlignedAt5());
    EXPECT_EQ(DrawnByTable(kDimension + kEntity + kAligned), AlignedAt5());
    EXPECT_EQ(DrawnByTable(kDimension + k3PointAngular + kOrdinate + kAligned), AlignedAt5());
}

TEST(DimensionTable, AlignedIsNotDrawnWhenItIsNotTheLastPart)
{
    for (const std::string& part : {kEntity, k3PointAngular, kOrdinate})
        EXPECT_EQ(DrawnByTable(kDimension + kAligned + part), "");
    EXPECT_EQ(DrawnByTable(kDimension + kAligned + kRadial), Radial());
}

TEST(DimensionTable, AlignedIsNotDrawnWithoutADimensionPartBeforeIt)
{
    EXPECT_EQ(DrawnByTable(kAligned), "");
    EXPECT_EQ(DrawnByTable(kEntity + kAligned), "");
    EXPECT_EQ(DrawnByTable(kAligned + kDimension), "");
}

TEST(DimensionTable, OfSeveralAlignedPartsTheLastIsDrawn)
{
    EXPECT_EQ(DrawnByTable(kDimension + kAligned + kAnotherAligned), AlignedAt6());
    EXPECT_EQ(DrawnByTable(kDimension + kAnotherAligned + kAligned), AlignedAt5());
    EXPECT_EQ(DrawnByTable(kAnotherAligned + kDimension + kAligned), AlignedAt5());
}

TEST(DimensionTable, RotatedIsDrawnWhenItIsTheLastPartAfterADimensionAndAnAlignedPart)
{
    EXPECT_EQ(DrawnByTable(kDimension + kAligned + kRotated), RotatedAt5());
    EXPECT_EQ(DrawnByTable(kEntity + kDimension + kAligned + kRotated), RotatedAt5());
    EXPECT_EQ(DrawnByTable(kAligned + kDimension + kRotated), RotatedAt5());
    EXPECT_EQ(DrawnByTable(kAligned + kEntity + kDimension + kOrdinate + kRotated), RotatedAt5());
}

TEST(DimensionTable, RotatedIsNotDrawnWithoutBoth)
{
    EXPECT_EQ(DrawnByTable(kRotated), "");
    EXPECT_EQ(DrawnByTable(kDimension + kRotated), "");
    EXPECT_EQ(DrawnByTable(kAligned + kRotated), "");
    EXPECT_EQ(DrawnByTable(kRotated + kDimension), "");
}

TEST(DimensionTable, RotatedIsNotDrawnWhenItIsNotTheLastPart)
{
    for (const std::string& part : {kEntity, k3PointAngular, kOrdinate})
        EXPECT_EQ(DrawnByTable(kDimension + kAligned + kRotated + part), "");
    EXPECT_EQ(DrawnByTable(kDimension + kAligned + kRotated + kRadial), Radial());
}

TEST(DimensionTable, OfSeveralRotatedPartsTheLastAloneIsDrawn)
{
    EXPECT_EQ(DrawnByTable(kDimension + kAligned + kRotated + kRotated), RotatedAt5());
}

TEST(DimensionTable, RotatedTakesTheLastAlignedPart)
{
    EXPECT_EQ(DrawnByTable(kDimension + kAligned + kAnotherAligned + kRotated), RotatedAt6());
    EXPECT_EQ(DrawnByTable(kAnotherAligned + kDimension + kAligned + kRotated), RotatedAt5());
}

TEST(DimensionTable, AlignedAfterARotatedPartIsDrawnAsAligned)
{
    EXPECT_EQ(DrawnByTable(kDimension + kRotated + kAligned), AlignedAt5());
    EXPECT_EQ(DrawnByTable(kDimension + kAligned + kRotated + kAnotherAligned), AlignedAt6());
    EXPECT_EQ(DrawnByTable(kRotated + kDimension + kAligned), AlignedAt5());
}

TEST(DimensionTable, RadialDiametricAndAngularAreDrawnAfterADimensionPartWhereverTheyAre)
{
    EXPECT_EQ(DrawnByTable(kDimension + kRadial), Radial());
    EXPECT_EQ(DrawnByTable(kDimension + kDiametric), Diametric());
    EXPECT_EQ(DrawnByTable(kDimension + k2LineAngular), Angular());
    for (const std::string& part : {kEntity, k3PointAngular, kOrdinate, kAligned + kEntity, kRotated}) {
        EXPECT_EQ(DrawnByTable(kDimension + kRadial + part), Radial());
        EXPECT_EQ(DrawnByTable(part + kDimension + kDiametric + part), Diametric());
        EXPECT_EQ(DrawnByTable(kDimension + part + k2LineAngular + part), Angular());
    }
}

TEST(DimensionTable, RadialDiametricAndAngularAreNotDrawnBeforeTheDimensionPart)
{
    for (const std::string& part : {kRadial, kDiametric, k2LineAngular}) {
        EXPECT_EQ(DrawnByTable(part), "");
        EXPECT_EQ(DrawnByTable(part + kDimension), "");
        EXPECT_EQ(DrawnByTable(kEntity + part + kDimension + kEntity), "");
    }
    EXPECT_EQ(DrawnByTable(kRadial + kDimension + kDiametric), Diametric());
}

TEST(DimensionTable, EachDrawnPartIsAGroupOfItsOwn)
{
    EXPECT_EQ(DrawnByTable(kDimension + kRadial + kDiametric + k2LineAngular + kRadial),
              Radial(DimensionTrace(1)) + Diametric(DimensionTrace(4)) + Angular(DimensionTrace(7)) +
                  Radial(DimensionTrace(16)));
    EXPECT_EQ(DrawnByTable(kDimension + kAligned + kRadial + kRotated),
              Radial(DimensionTrace(1)) + RotatedAt5(DimensionTrace(4)));
    EXPECT_EQ(DrawnByTable(kDimension + kDiametric + kAligned),
              Diametric(DimensionTrace(1)) + AlignedAt5(DimensionTrace(4)));
}

TEST(DimensionTable, FurtherDimensionPartIsReportedAndTheFirstIsKept)
{
    EXPECT_EQ(DrawnByTable(kDimension + kAnotherDimension), DimensionTrace().Duplicated());
    EXPECT_EQ(DrawnByTable(kDimension + kAnotherDimension + kRadial), Radial(DimensionTrace().Duplicated()));
    EXPECT_EQ(DrawnByTable(kDimension + kAnotherDimension + kAnotherDimension),
              DimensionTrace().Duplicated().Duplicated());
    EXPECT_EQ(DrawnByTable(kDimension + kAligned + kAnotherDimension), DimensionTrace().Duplicated());
    EXPECT_EQ(DrawnByTable(kDimension + kAligned + kAnotherDimension + kRotated),
              RotatedAt5(DimensionTrace().Duplicated()));
}

TEST(DimensionTable, FurtherDimensionPartIsReportedWhenTheWalkMeetsIt)
{
    EXPECT_EQ(DrawnByTable(kDimension + kRadial + kAnotherDimension + kDiametric),
              Radial() + Diametric(DimensionTrace(4).Duplicated()));
}

TEST(DimensionTable, NextDimensionRemembersNothing)
{
    EXPECT_EQ(TraceOf(DimensionDrawing(kDimension + kAligned + Dxf({{0, "DIMENSION"}}) + kRotated +
                                       Dxf({{0, "DIMENSION"}}) + kRadial),
                      [](CDxfReadToQuillmar& converter) { converter.yAxisMode = 1; }),
              AlignedAt5());
    EXPECT_EQ(TraceOf(DimensionDrawing(kDimension + Dxf({{0, "DIMENSION"}}) + kDimension)), "");
}
