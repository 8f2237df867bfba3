#include "prepare/plain/ClipRegion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace prepare {
namespace {

using Ring = std::vector<Point2>;

const Ring kSquare{{0, 0}, {0, 10}, {10, 10}, {10, 0}}; // clockwise
// A U of arms 2 wide, open at the top.
const Ring kU{{0, 0}, {10, 0}, {10, 10}, {8, 10}, {8, 2}, {2, 2}, {2, 10}, {0, 10}};

double AreaOf(const std::vector<Ring>& rings)
{
    double area = 0;
    for (const Ring& ring : rings)
        for (std::size_t i = 0; i < ring.size(); ++i)
            area += Cross(ring[i], ring[(i + 1) % ring.size()]) / 2;
    return area;
}

TEST(ClipRegion, WithoutAnAreaIsEmpty)
{
    EXPECT_TRUE(ClipRegion({}).IsEmpty());
    EXPECT_TRUE(ClipRegion({{0, 0}, {1, 1}}).IsEmpty());
    EXPECT_TRUE(ClipRegion({{0, 0}, {1, 0}, {2, 0}}).IsEmpty());
    EXPECT_TRUE(ClipRegion({{0, 0}, {1, 0}, {std::nan(""), 5}}).IsEmpty());
    EXPECT_FALSE(ClipRegion(kSquare).IsEmpty());
}

TEST(ClipRegion, ALineMeetsItsAreaInShares)
{
    const ClipRegion square(kSquare), u(kU);
    EXPECT_EQ(square.Inside(Point2{-10, 5}, {30, 5}), (ClipRegion::Shares{{0.25, 0.5}}));
    EXPECT_EQ(square.Inside(Point2{2, 5}, {3, 5}), (ClipRegion::Shares{{0, 1}}));
    EXPECT_EQ(square.Inside(Point2{2, 11}, {3, 11}), ClipRegion::Shares{});
    EXPECT_EQ(square.Inside(Point2{2, 5}, {2, 5}), ClipRegion::Shares{});
    EXPECT_EQ(u.Inside(Point2{0, 5}, {10, 5}), (ClipRegion::Shares{{0, 0.2}, {0.8, 1}}));
    // Through corners: it touches the inner ones and enters at none.
    EXPECT_EQ(u.Inside(Point2{0, 2}, {10, 2}).front().first, 0);
}

TEST(ClipRegion, ASlitCutsNoLine)
{
    const ClipRegion ring({{0, 0},
                           {10, 0},
                           {10, 5},
                           {8, 5},
                           {8, 2},
                           {2, 2},
                           {2, 8},
                           {8, 8},
                           {8, 5},
                           {10, 5},
                           {10, 10},
                           {0, 10}});
    EXPECT_EQ(ring.Inside(Point2{9, 0}, {9, 10}), (ClipRegion::Shares{{0, 1}}));
    EXPECT_FALSE(ring.Contains({5, 5}));
}

TEST(ClipRegion, KnowsOnWhichSideABoxIs)
{
    const ClipRegion u(kU);
    EXPECT_EQ(u.SideOf({{0.5, 0.5}, {9.5, 1.5}}), ClipSide::Inside);
    EXPECT_EQ(u.SideOf({{3, 3}, {7, 9}}), ClipSide::Outside);
    EXPECT_EQ(u.SideOf({{20, 3}, {27, 9}}), ClipSide::Outside);
    EXPECT_EQ(u.SideOf({{1, 3}, {7, 9}}), ClipSide::Across);
    EXPECT_EQ(u.SideOf({{-1, -1}, {11, 11}}), ClipSide::Across);
    EXPECT_EQ(u.SideOf({}), ClipSide::Outside);
}

TEST(ClipRegion, CutsAreas)
{
    const ClipRegion square(kSquare), u(kU);
    EXPECT_EQ(square.Inside(std::vector<Ring>{{{-5, 2}, {15, 2}, {15, 4}, {-5, 4}}}),
              (std::vector<Ring>{{{0, 2}, {10, 2}, {10, 4}, {0, 4}}}));
    EXPECT_EQ(square.Inside(std::vector<Ring>{{{-5, 20}, {15, 20}, {15, 40}}}), std::vector<Ring>{});
    const std::vector<Ring> around{{{-1, -1}, {11, -1}, {11, 11}, {-1, 11}}};
    EXPECT_NEAR(AreaOf(u.Inside(around)), 52, 1e-9);
    const std::vector<Ring> withHole{around[0], {{4, -1}, {4, 1}, {6, 1}, {6, -1}}};
    EXPECT_NEAR(AreaOf(u.Inside(withHole)), 50, 1e-9);
}

TEST(ClipRegion, WithTooManyCornersIsTheirBox)
{
    Ring corners;
    for (std::size_t i = 0; i <= ClipRegion::kMostCorners; ++i)
        corners.push_back({std::cos(static_cast<double>(i)), std::sin(static_cast<double>(i))});
    const ClipRegion region(corners);
    EXPECT_EQ(region.Corners().size(), 4u);
    EXPECT_TRUE(region.Contains({0.95, 0.95}));
}

} // namespace
} // namespace prepare
