#include "prepare/plain/BlockVariants.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <set>
#include <vector>

namespace prepare {
namespace {

// Where a use of the baked content puts a point of the block.
Point2 Used(const SplitPlacement& split, Point3 p)
{
    Point2 baked = split.baked.Flat(p);
    if (split.isMirrored)
        baked.y = -baked.y;
    const double cosine = std::cos(split.rotation), sine = std::sin(split.rotation);
    return split.point + Point2{cosine * baked.x - sine * baked.y, sine * baked.x + cosine * baked.y};
}

void ExpectSplitsAlike(const Matrix& placement)
{
    const SplitPlacement split = Split(placement);
    for (const Point3 p :
         {Point3{0, 0, 0}, Point3{1, 0, 0}, Point3{0, 1, 0}, Point3{0, 0, 1}, Point3{3, -4, 5}}) {
        EXPECT_NEAR(Used(split, p).x, placement.Flat(p).x, 1e-12);
        EXPECT_NEAR(Used(split, p).y, placement.Flat(p).y, 1e-12);
    }
}

TEST(Split, TurnsScalesMirrorsAndSkewsComeTogetherAgain)
{
    ExpectSplitsAlike({});
    ExpectSplitsAlike(Moved({5, 6, 7}) * Turned(2.5));
    ExpectSplitsAlike(Turned(-1) * Scaled({-1, 1, 1}));
    ExpectSplitsAlike(Turned(0.3) * Scaled({2, -3, 4}) * Turned(0.7));
    ExpectSplitsAlike(FromObject({0, 0, -1}) * Turned(0.3) * Scaled({2, 3, 4}));
    ExpectSplitsAlike(FromObject({1, 2, 3}) * Turned(0.3) * Scaled({2, 3, 4}) * Moved({-1, -2, -3}));
    ExpectSplitsAlike(FromObject({1, 0, 0})); // seen from the side
}

TEST(Split, ATurnAloneBakesNothing)
{
    const Block block;
    const VariantKey plain(block, Split({}), false, {});
    const VariantKey turned(block, Split(Moved({5, 6, 0}) * Turned(2.5)), false, {});
    EXPECT_EQ(plain, turned);
    EXPECT_NEAR(Split(Turned(2.5)).rotation, 2.5, 1e-15);
}

TEST(Split, AMirrorAloneBakesNothing)
{
    const Block block;
    const VariantKey plain(block, Split({}), false, {});
    const VariantKey mirrored(block, Split(Scaled({-1, 1, 1})), false, {});
    EXPECT_EQ(plain, mirrored);
    EXPECT_TRUE(Split(Scaled({-1, 1, 1})).isMirrored);
    EXPECT_NEAR(std::fabs(Split(Scaled({-1, 1, 1})).rotation), std::numbers::pi, 1e-15);
}

TEST(VariantKey, TheInsertsStyleCountsForWhatInheritsAlone)
{
    const Block block;
    Style red;
    red.colour.index = 1;
    EXPECT_EQ(VariantKey(block, Split({}), false, {}), VariantKey(block, Split({}), false, red));
    const VariantKey a(block, Split({}), true, {}), b(block, Split({}), true, red);
    EXPECT_FALSE(a == b);
}

TEST(VariantKey, ATrueColourIsNoIndex)
{
    const Block block;
    Style index, rgb;
    index.colour = {false, 0, 5};
    rgb.colour = {true, 5, 7};
    EXPECT_FALSE(VariantKey(block, Split({}), true, index) == VariantKey(block, Split({}), true, rgb));
}

TEST(BlockVariants, AllOfAKeyIsInItsHash)
{
    const Block block, other;
    const LineType dashed;
    Style plain, red, rgb, wide, ofLayer, ofLineType;
    red.colour = {false, 0, 1};
    rgb.colour = {true, static_cast<std::uint32_t>(plain.colour.index), 7};
    wide.weight = plain.weight + 1;
    ofLayer.layer = plain.layer + 1;
    ofLineType.lineType = &dashed;
    std::vector<VariantKey> keys = {VariantKey(other, Split({}), true, plain),
                                    VariantKey(block, Split({}), true, plain, 1),
                                    VariantKey(block, Split(Scaled({2, 2, 2})), true, plain)};
    for (const Style& style : {plain, red, rgb, wide, ofLayer, ofLineType})
        keys.emplace_back(block, Split({}), true, style);
    const BlockVariants variants;
    std::set<std::uint64_t> hashes;
    for (const VariantKey& key : keys)
        hashes.insert(variants.HashOf(key));
    EXPECT_EQ(hashes.size(), keys.size());
}

TEST(VariantKey, EachViewHasItsOwn)
{
    const Block block;
    EXPECT_FALSE(VariantKey(block, Split({}), false, {}, 1) == VariantKey(block, Split({}), false, {}, 2));
}

TEST(BlockVariants, FindsWhatWasAddedAmongMany)
{
    const Block block;
    const auto keyOf = [&](int number) {
        return VariantKey(block, Split(Scaled({number / 8.0, 1, 1})), false, {});
    };
    constexpr std::uint32_t kMany = 10'000;
    BlockVariants variants;
    for (std::uint32_t i = 1; i <= kMany; ++i) {
        const auto [variant, isNew] = variants.Add(keyOf(static_cast<int>(i)));
        EXPECT_TRUE(isNew);
        variant->number = i;
    }
    EXPECT_FALSE(variants.Add(keyOf(7)).second);
    for (std::uint32_t i = 1; i <= kMany; ++i) {
        const BlockVariant* const found = variants.Find(keyOf(static_cast<int>(i)));
        ASSERT_NE(found, nullptr);
        EXPECT_EQ(found->number, i);
    }
    EXPECT_EQ(variants.Find(keyOf(kMany + 1)), nullptr);
    EXPECT_TRUE(variants.AreAll([](const BlockVariant& variant) { return variant.number > 0; }));
    EXPECT_FALSE(variants.AreAll([](const BlockVariant& variant) { return variant.number > 1; }));
}

TEST(VariantKey, ScalesThatDifferAreDifferent)
{
    const Block block;
    const VariantKey a(block, Split(Scaled({1, 1, 1})), false, {});
    const VariantKey b(block, Split(Scaled({1.001, 1, 1})), false, {});
    EXPECT_FALSE(a == b);
}

} // namespace
} // namespace prepare
