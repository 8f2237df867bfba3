#include "prepare/plain/DimensionText.h"

#include "prepare/plain/DimensionNumbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace prepare {

namespace {

NumberFormat Format(std::int32_t unit, std::int32_t decimals, std::int32_t zeros = 0)
{
    NumberFormat format;
    format.unit = unit;
    format.decimals = decimals;
    format.zeros = zeros;
    return format;
}

std::string Decimal(double value, std::int32_t decimals, std::int32_t zeros = 0)
{
    return FormatLength(value, Format(2, decimals, zeros));
}

std::string FeetInLine(double value, std::int32_t zeros)
{
    NumberFormat format = Format(4, 4, zeros);
    format.fraction = 2;
    return FormatLength(value, format);
}

std::string Length(const DimensionStyle& style, double value, std::string_view written = "")
{
    return DimensionText(style, Quantity::Length, value, written);
}

// As templates of metric drawings have it.
DimensionStyle IsoStyle()
{
    DimensionStyle style;
    style.decimals = 2;
    style.zeros = 8;
    style.separator = ',';
    style.toleranceDecimals = 2;
    style.toleranceZeros = 8;
    style.toleranceAlignment = 0;
    return style;
}

} // namespace

TEST(DimensionNumber, DecimalsAreRoundedHalfUp)
{
    EXPECT_EQ(Decimal(12.345, 2), "12.35");
    EXPECT_EQ(Decimal(2.5, 0), "3");
    EXPECT_EQ(Decimal(0.125, 2), "0.13");
    EXPECT_EQ(Decimal(7, 4), "7.0000");
    EXPECT_EQ(Decimal(99.999, 2), "100.00");
}

TEST(DimensionNumber, ZerosAreLeftOutAsAsked)
{
    EXPECT_EQ(Decimal(0.5, 4, 4), ".5000");
    EXPECT_EQ(Decimal(0.5, 4, 8), "0.5");
    EXPECT_EQ(Decimal(0.5, 4, 12), ".5");
    EXPECT_EQ(Decimal(10, 2, 8), "10");
    EXPECT_EQ(Decimal(0, 2, 12), "0");
    EXPECT_EQ(Decimal(100, 0, 8), "100");
}

TEST(DimensionNumber, ASignIsKeptUnlessNothingIsLeft)
{
    EXPECT_EQ(Decimal(-1.5, 1), "-1.5");
    EXPECT_EQ(Decimal(-0.001, 2), "0.00");
}

TEST(DimensionNumber, DecimalsAreNoMoreThanEight)
{
    EXPECT_EQ(Decimal(1, 1000), "1.00000000");
    EXPECT_EQ(Decimal(1, -5), "1");
}

TEST(DimensionNumber, Scientific)
{
    EXPECT_EQ(FormatLength(15.5, Format(1, 4)), "1.5500E+01");
    EXPECT_EQ(FormatLength(0.00155, Format(1, 2)), "1.55E-03");
}

TEST(DimensionNumber, Engineering)
{
    EXPECT_EQ(FormatLength(15.5, Format(3, 2)), "1'-3.50\"");
    EXPECT_EQ(FormatLength(3.5, Format(3, 2)), "3.50\"");
    EXPECT_EQ(FormatLength(24, Format(3, 2)), "2'");
    EXPECT_EQ(FormatLength(24, Format(3, 2, 3)), "2'-0.00\"");
    EXPECT_EQ(FormatLength(23.999, Format(3, 2, 1)), "2'-0.00\"");
}

TEST(DimensionNumber, ArchitecturalLeavesOutZeroFeetAndInchesAsAsked)
{
    EXPECT_EQ(FeetInLine(0.5, 0), "1/2\"");
    EXPECT_EQ(FeetInLine(6, 0), "6\"");
    EXPECT_EQ(FeetInLine(12, 0), "1'");
    EXPECT_EQ(FeetInLine(12.75, 0), "1'-0 3/4\"");
    EXPECT_EQ(FeetInLine(0.5, 1), "0'-0 1/2\"");
    EXPECT_EQ(FeetInLine(6, 1), "0'-6\"");
    EXPECT_EQ(FeetInLine(12, 1), "1'-0\"");
    EXPECT_EQ(FeetInLine(6, 2), "0'-6\"");
    EXPECT_EQ(FeetInLine(12, 2), "1'");
    EXPECT_EQ(FeetInLine(0.5, 3), "1/2\"");
    EXPECT_EQ(FeetInLine(12, 3), "1'-0\"");
    EXPECT_EQ(FeetInLine(0, 0), "0\"");
}

TEST(DimensionNumber, FractionsAreReducedAndCarried)
{
    EXPECT_EQ(FeetInLine(15.0625, 0), "1'-3 1/16\"");
    EXPECT_EQ(FeetInLine(15.25, 0), "1'-3 1/4\"");
    EXPECT_EQ(FeetInLine(11.99, 0), "1'");
}

TEST(DimensionNumber, FractionsAreOverEachOtherUnlessInLine)
{
    NumberFormat format = Format(4, 4);
    EXPECT_EQ(FormatLength(15.5, format), "1'-3\\S1/2;\"");
    format.fraction = 1;
    EXPECT_EQ(FormatLength(15.5, format), "1'-3\\S1#2;\"");
    format.unit = 5;
    format.fraction = 2;
    EXPECT_EQ(FormatLength(15.5, format), "15 1/2");
    EXPECT_EQ(FormatLength(0.25, format), "1/4");
    EXPECT_EQ(FormatLength(3, format), "3");
}

TEST(DimensionNumber, HugeValuesAreDecimal)
{
    EXPECT_EQ(FormatLength(1e20, Format(4, 4, 8)), "100000000000000000000");
    EXPECT_EQ(FormatLength(std::numeric_limits<double>::infinity(), Format(2, 2)), "");
    EXPECT_EQ(FormatAngle(std::nan(""), Format(0, 2)), "");
}

TEST(DimensionNumber, AnglesInEachUnit)
{
    EXPECT_EQ(FormatAngle(std::numbers::pi / 2, Format(0, 0)), "90°");
    EXPECT_EQ(FormatAngle(std::numbers::pi / 7, Format(0, 3)), "25.714°");
    EXPECT_EQ(FormatAngle(std::numbers::pi / 4, Format(2, 2)), "50.00g");
    EXPECT_EQ(FormatAngle(std::numbers::pi / 4, Format(3, 4)), "0.7854r");
    EXPECT_EQ(FormatAngle(std::numbers::pi / 4, Format(4, 0)), "N45°E");
    EXPECT_EQ(FormatAngle(std::numbers::pi * 5 / 4, Format(4, 2)), "S45°0'W");
}

TEST(DimensionNumber, MinutesAndSecondsByDecimals)
{
    const double angle = (25 + 42.0 / 60 + 51.4 / 3600) * std::numbers::pi / 180;
    EXPECT_EQ(FormatAngle(angle, Format(1, 0)), "26°");
    EXPECT_EQ(FormatAngle(angle, Format(1, 2)), "25°43'");
    EXPECT_EQ(FormatAngle(angle, Format(1, 4)), "25°42'51\"");
    EXPECT_EQ(FormatAngle(angle, Format(1, 5)), "25°42'51.4\"");
    EXPECT_EQ(FormatAngle(30 * std::numbers::pi / 180, Format(1, 4)), "30°0'0\"");
    EXPECT_EQ(FormatAngle((30 - 1e-7) * std::numbers::pi / 180, Format(1, 4)), "30°0'0\"");
}

TEST(DimensionNumber, AnglesLeaveOutZerosByTheirOwnBits)
{
    EXPECT_EQ(FormatAngle(std::numbers::pi / 360, Format(0, 2, 1)), ".50°");
    EXPECT_EQ(FormatAngle(std::numbers::pi / 360, Format(0, 2, 2)), "0.5°");
    EXPECT_EQ(FormatAngle(std::numbers::pi / 360, Format(0, 2, 3)), ".5°");
}

TEST(DimensionText, TheMeasureAlone)
{
    EXPECT_EQ(Length(DimensionStyle(), 5.51052354), "5.5105");
    EXPECT_EQ(Length(IsoStyle(), 5.51052354), "5,51");
    EXPECT_EQ(Length(IsoStyle(), 25), "25");
    EXPECT_EQ(DimensionText(DimensionStyle(), Quantity::Angle, std::numbers::pi / 2, ""), "90°");
}

TEST(DimensionText, RadiiAndDiametersHaveTheirSigns)
{
    EXPECT_EQ(DimensionText(DimensionStyle(), Quantity::Radius, 3.0894, ""), "R3.0894");
    EXPECT_EQ(DimensionText(IsoStyle(), Quantity::Diameter, 6.1788, ""), "%%c6,18");
    EXPECT_EQ(DimensionText(IsoStyle(), Quantity::Ordinate, 53.5753, ""), "53,58");
}

TEST(DimensionText, WhatIsWrittenIsInPlaceOfTheMeasure)
{
    EXPECT_EQ(Length(IsoStyle(), 12.5, "<>"), "12,5");
    EXPECT_EQ(Length(IsoStyle(), 12.5, "about <> wide"), "about 12,5 wide");
    EXPECT_EQ(Length(IsoStyle(), 12.5, "free"), "free");
    EXPECT_EQ(Length(IsoStyle(), 12.5, " "), "");
    EXPECT_EQ(Length(IsoStyle(), 12.5, "<>\\Xtyp."), "12,5\\Ptyp.");
}

TEST(DimensionText, WhatIsWrittenCannotGrowWithoutEnd)
{
    EXPECT_EQ(Length(IsoStyle(), 1, "<><><><><><>"), "1111<><>");
}

TEST(DimensionText, FactorAndRounding)
{
    DimensionStyle style = IsoStyle();
    style.factor = 10;
    EXPECT_EQ(Length(style, 1.234), "12,34");
    style.rounding = 0.5;
    EXPECT_EQ(Length(style, 1.234), "12,5");
}

TEST(DimensionText, PrefixAndSuffix)
{
    DimensionStyle style = IsoStyle();
    style.post = "mm";
    EXPECT_EQ(Length(style, 4), "4mm");
    style.post = "ca. <> mm";
    EXPECT_EQ(Length(style, 4), "ca. 4 mm");
    EXPECT_EQ(DimensionText(style, Quantity::Radius, 4, ""), "ca. 4 mm");
    EXPECT_EQ(DimensionText(style, Quantity::Angle, std::numbers::pi, ""), "180°");
    style.post = "<> mm";
    EXPECT_EQ(DimensionText(style, Quantity::Radius, 4, ""), "R4 mm");
}

TEST(DimensionText, Tolerances)
{
    DimensionStyle style = IsoStyle();
    style.hasTolerance = 1;
    style.plusTolerance = style.minusTolerance = 0.1;
    EXPECT_EQ(Length(style, 20), "20±0,1");
    style.minusTolerance = 0.25;
    EXPECT_EQ(Length(style, 20), "20\\S+0,1^ -0,25;");
    style.toleranceHeight = 0.7;
    EXPECT_EQ(Length(style, 20), "20{\\H0.7x;\\S+0,1^ -0,25;}");
    style.plusTolerance = 0;
    EXPECT_EQ(Length(style, 20), "20{\\H0.7x;\\S 0^ -0,25;}");
}

TEST(DimensionText, Limits)
{
    DimensionStyle style = IsoStyle();
    style.hasLimits = 1;
    style.plusTolerance = 0.1;
    style.minusTolerance = 0.25;
    EXPECT_EQ(Length(style, 20), "\\S20,1^ 19,75;");
}

TEST(DimensionText, StacksAreAlignedToTheNumberAsTheStyleSays)
{
    DimensionStyle style;
    style.hasTolerance = 1;
    style.plusTolerance = 0.1;
    style.decimals = style.toleranceDecimals = 1;
    EXPECT_EQ(Length(style, 20), "\\A1;20.0\\S+0.1^  0.0;");
    style.toleranceAlignment = 0;
    EXPECT_EQ(Length(style, 20), "20.0\\S+0.1^  0.0;");
    style.toleranceAlignment = 2;
    EXPECT_EQ(Length(style, 20), "\\A2;20.0\\S+0.1^  0.0;");
    style.toleranceAlignment = 3;
    EXPECT_EQ(Length(style, 20), "20.0\\S+0.1^  0.0;");
    style.toleranceAlignment = 1;
    style.hasTolerance = 0;
    EXPECT_EQ(Length(style, 20), "20.0"); // nothing is stacked
}

TEST(DimensionText, AlternateUnits)
{
    DimensionStyle style;
    style.decimals = 3;
    style.hasAlternate = 1;
    EXPECT_EQ(Length(style, 2), "2.000 [50.80]");
    style.alternatePost = "mm";
    EXPECT_EQ(Length(style, 2), "2.000 [50.80mm]");
    EXPECT_EQ(Length(style, 2, "<> or []"), "2.000 or [50.80mm]");
    style.hasTolerance = 1;
    style.plusTolerance = style.minusTolerance = 0.01;
    EXPECT_EQ(Length(style, 2), "2.000±0.0100 [50.80mm±0.25mm]");
}

TEST(DimensionText, AlternateTolerancesLeaveOutZerosAsTheyAreAsked)
{
    DimensionStyle style;
    style.decimals = 3;
    style.hasAlternate = style.hasTolerance = 1;
    style.alternateFactor = 10;
    style.plusTolerance = style.minusTolerance = 0.01;
    style.alternateToleranceZeros = kNoTrailingZeros;
    EXPECT_EQ(Length(style, 2), "2.000±0.0100 [20.00±0.1]");
    style.alternateToleranceZeros = 0;
    style.alternateZeros = kNoTrailingZeros;
    EXPECT_EQ(Length(style, 2), "2.000±0.0100 [20±0.10]");
}

TEST(DimensionText, AlternateFeetAreInLineByTheirNumber)
{
    DimensionStyle style = IsoStyle();
    style.hasAlternate = 1;
    style.alternateFactor = 1 / 25.4;
    style.alternateUnit = 6;
    style.alternateDecimals = 4;
    EXPECT_EQ(Length(style, 393.7), "393,7 [1'-3 1/2\"]");
    style.alternateUnit = 4;
    EXPECT_EQ(Length(style, 393.7), "393,7 [1'-3\\S1/2;\"]");
}

TEST(DimensionText, NoNumberIsNoText)
{
    EXPECT_EQ(Length(DimensionStyle(), std::nan("")), "");
    EXPECT_EQ(Length(DimensionStyle(), std::numeric_limits<double>::infinity()), "");
    EXPECT_EQ(Length(DimensionStyle(), 1e300), "");
}

} // namespace prepare
