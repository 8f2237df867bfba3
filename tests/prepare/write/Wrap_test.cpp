#include "prepare/write/Wrap.h"

#include "base/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>

namespace prepare {
namespace {

// The wrap of a square drawing of that size around that point; its strokes are a thousandth of it.
Wrap WrapOf(Point2 centre, double size)
{
    WriteSettings settings;
    settings.extents.Add(centre - Point2{size / 2, size / 2});
    settings.extents.Add(centre + Point2{size / 2, size / 2});
    settings.thinnest = size / 1000;
    return ChooseWrap(settings, {});
}

bool IsSaidByItsFloat(double value)
{
    const volatile auto narrow = static_cast<float>(value);
    char text[kLongestShortest];
    return ParseReal({text, FormatShortest(narrow, text)}) == value;
}

TEST(Wrap, NearAndLargeDrawingsNeedNone)
{
    EXPECT_FALSE(WrapOf({50, 50}, 100).isNeeded);
    EXPECT_TRUE(WrapOf({50, 50}, 1).isNeeded);
    EXPECT_TRUE(WrapOf({5'000'000, 50}, 100).isNeeded);
}

// Its strokes are 100 wide, which floats are fine enough for.
TEST(Wrap, TextsAreNearerThanTwentyThreeBits)
{
    EXPECT_FALSE(WrapOf({50, -8'300'000}, 100'000).isNeeded);
    EXPECT_TRUE(WrapOf({50, -8'400'000}, 100'000).isNeeded);
}

// A host that keeps the place as a float, or writes that float as text, keeps all of it.
TEST(Wrap, ItsPlaceIsSaidByAFloat)
{
    for (const double size : {20.0, 0.02})
        for (const Point2 centre : {Point2{2'500'009.82421, 5'600'009.44225}, Point2{-2'500'009.3, 7.1},
                                    Point2{2500.0101, -5600.0103}, Point2{0.1, 123'456'784.3}}) {
            const Wrap wrap = WrapOf(centre, size);
            ASSERT_TRUE(wrap.isNeeded);
            EXPECT_TRUE(IsSaidByItsFloat(wrap.origin.x)) << wrap.origin.x;
            EXPECT_TRUE(IsSaidByItsFloat(wrap.origin.y)) << wrap.origin.y;
            EXPECT_NEAR(wrap.origin.x, centre.x, 0.1 + std::fabs(centre.x) / 1e6);
            EXPECT_NEAR(wrap.origin.y, centre.y, 0.1 + std::fabs(centre.y) / 1e6);
        }
}

TEST(Wrap, ItsPlaceIsTheOriginWhereFloatsEnd)
{
    EXPECT_EQ(WrapOf({1e200, -1e38}, 1).origin, Point2{});
    EXPECT_FALSE(std::signbit(WrapOf({-1e-60, 0}, 1e-3).origin.x));
}

} // namespace
} // namespace prepare
