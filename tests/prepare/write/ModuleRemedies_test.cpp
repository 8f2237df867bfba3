#include "prepare/write/ModuleRemedies.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

namespace prepare {
namespace {

Colour True(std::uint32_t rgb)
{
    return {true, rgb, 7};
}

TEST(ModuleRemedies, RedAndBlueAreExchangedAndBlackIsIndexSeven)
{
    EXPECT_EQ(ColourForModule(True(0xFF8001)), (CodeAndValue{420, 0x0180FF}));
    EXPECT_EQ(ColourForModule(True(0)), (CodeAndValue{62, 7}));
    EXPECT_EQ(ColourForModule({false, 0, 250}), (CodeAndValue{62, 250}));
}

TEST(ModuleRemedies, WeightsAreHundredthsOfUnits)
{
    EXPECT_EQ(WeightForModule(0.25), 25);
    EXPECT_EQ(WeightForModule(1234.567), 123457);
    EXPECT_EQ(WeightForModule(0), 1);
    EXPECT_EQ(WeightForModule(1e30), 2147483647);
}

std::vector<std::pair<double, double>> ArcParts(double start, double end)
{
    std::vector<std::pair<double, double>> parts;
    ForArcParts(start, end, [&](double first, double last) { parts.emplace_back(first, last); });
    return parts;
}

TEST(ModuleRemedies, ArcsOfNearlyATurnAreTwo)
{
    EXPECT_EQ(ArcParts(1, 7.2), (std::vector<std::pair<double, double>>{{1, 7.2}}));
    EXPECT_EQ(ArcParts(1, 7.27), (std::vector<std::pair<double, double>>{{1, 4.135}, {4.135, 7.27}}));
}

TEST(ModuleRemedies, LongEllipticalArcsWithoutAWrapAreOnTheWrongSide)
{
    EXPECT_EQ(HowModuleDraws(0.5, -3, 1), DrawnEllipse::WrongSide);
    EXPECT_EQ(HowModuleDraws(0.5, 1, 5), DrawnEllipse::Right);  // it wraps at pi
    EXPECT_EQ(HowModuleDraws(0.5, -1, 1), DrawnEllipse::Right); // short
    EXPECT_EQ(HowModuleDraws(0.5, 0, 0.001), DrawnEllipse::Whole);
    EXPECT_EQ(HowModuleDraws(0.5, 0, 0.003), DrawnEllipse::Right);
    EXPECT_EQ(HowModuleDraws(0.001, 0, 0.5), DrawnEllipse::Whole); // so flat that the angles are close
}

// Where a text's own (x, y) comes to by its place.
Point2 Placed(const TextPlace& place, Point2 p)
{
    const auto turned = [](Point2 q, double angle) {
        return Point2{q.x * std::cos(angle) - q.y * std::sin(angle),
                      q.x * std::sin(angle) + q.y * std::cos(angle)};
    };
    const Point2 inner = turned((place.size / kFontSizeOfCapitals) * p, place.innerRotation);
    return turned({place.scaleX * inner.x, place.scaleY * inner.y}, place.rotation);
}

void ExpectPlaced(Point2 along, Point2 up)
{
    const TextPlace place = TextPlaceForModule(along, up);
    const Point2 x = Placed(place, {1, 0}), y = Placed(place, {0, 1});
    EXPECT_NEAR(x.x, along.x, 1e-12);
    EXPECT_NEAR(x.y, along.y, 1e-12);
    EXPECT_NEAR(y.x, up.x, 1e-12);
    EXPECT_NEAR(y.y, up.y, 1e-12);
}

TEST(ModuleRemedies, AnyTextComesToItsPlace)
{
    ExpectPlaced({2, 0}, {0, 2});     // upright
    ExpectPlaced({0, 2}, {-2, 0});    // turned
    ExpectPlaced({3, 0}, {0, 2});     // stretched
    ExpectPlaced({-2, 0}, {0, 2});    // backward
    ExpectPlaced({2, 0}, {0, -2});    // upside down
    ExpectPlaced({2, 0}, {0.7, 2});   // slanted
    ExpectPlaced({1, 2}, {-1, 0.4});  // all of it
    ExpectPlaced({1, 2}, {3, 0.4});   // and mirrored
    ExpectPlaced({-5, 0.1}, {2, -3}); // slanted and turned
}

TEST(ModuleRemedies, OnlyUprightTextsNeedNoBlock)
{
    const TextPlace upright = TextPlaceForModule({2, 0}, {0, 2});
    EXPECT_TRUE(upright.isUpright);
    EXPECT_DOUBLE_EQ(upright.size, 2.78);
    EXPECT_TRUE(TextPlaceForModule({2, 1e-7}, {-1e-7, 2}).isUpright);
    EXPECT_FALSE(TextPlaceForModule({2, 0.001}, {-0.001, 2}).isUpright);
    EXPECT_FALSE(TextPlaceForModule({2.1, 0}, {0, 2}).isUpright);
    EXPECT_FALSE(TextPlaceForModule({2, 0}, {0, -2}).isUpright);
    EXPECT_FALSE(TextPlaceForModule({-2, 0}, {0, -2}).isUpright);
    EXPECT_FALSE(TextPlaceForModule({2, 0}, {0.01, 2}).isUpright);
    EXPECT_EQ(TextPlaceForModule({0, 3}, {-2, 0}).innerRotation, 0);
    EXPECT_DOUBLE_EQ(TextPlaceForModule({0, 3}, {-2, 0}).scaleX, 1.5);
    EXPECT_DOUBLE_EQ(TextPlaceForModule({0, 3}, {-2, 0}).rotation, std::numbers::pi / 2);
    EXPECT_EQ(TextPlaceForModule({0, 3}, {2, 0}).scaleY, -1);
}

TEST(ModuleRemedies, ValuesHaveNoControlCharactersAndAThousandBytes)
{
    bool isCut = true;
    EXPECT_EQ(ValueForModule("a\tb\r\nc\x1A\x7F"
                             "d\xC2\x85"
                             "e",
                             isCut),
              "a b  c  d e");
    EXPECT_FALSE(isCut);
    EXPECT_EQ(ValueForModule("\xFFx", isCut), "\xEF\xBF\xBDx");
    const std::string longest(1000, 'x');
    EXPECT_EQ(ValueForModule(longest, isCut), longest);
    EXPECT_FALSE(isCut);
    EXPECT_EQ(ValueForModule(longest + "y", isCut), longest);
    EXPECT_TRUE(isCut);
    EXPECT_EQ(ValueForModule(longest.substr(1) + "\xC3\xA4", isCut), longest.substr(1));
    EXPECT_TRUE(isCut);
}

TEST(ModuleRemedies, StepsOfFloatsDoubleWithTheirNumbers)
{
    EXPECT_EQ(FloatStep(1), 0x1p-23);
    EXPECT_EQ(FloatStep(-5'600'000), 0.5);
    EXPECT_EQ(FloatStep(16'777'216), 2);
}

} // namespace
} // namespace prepare
