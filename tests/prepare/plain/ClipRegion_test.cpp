#include "prepare/plain/ClipRegion.h"

#include "base/Pi.h"

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
    EXPECT_EQ(square.Inside(Point2{2, 5}, {2, 5}), (ClipRegion::Shares{{0, 1}})); // a dot
    EXPECT_EQ(square.Inside(Point2{2, 15}, {2, 15}), ClipRegion::Shares{});
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

TEST(ClipRegion, AnAreaAroundItAllLeavesItsRing)
{
    const ClipRegion u(kU), around(kU, true);
    const Ring area{{-1, -1}, {11, -1}, {11, 11}, {-1, 11}};
    EXPECT_EQ(u.Inside(std::vector<Ring>{area}), std::vector<Ring>{kU});
    EXPECT_EQ(around.Inside(std::vector<Ring>{area}), (std::vector<Ring>{area, kU}));
    const Ring between{{3, 3}, {7, 3}, {7, 9}, {3, 9}}; // the arms
    EXPECT_EQ(around.Inside(std::vector<Ring>{area, between}), (std::vector<Ring>{area, kU, between}));
    EXPECT_EQ(u.Inside(std::vector<Ring>{area, between}), (std::vector<Ring>{kU}));
}

TEST(ClipRegion, AnAreaMayBeAroundItAllFarFromTheOrigin)
{
    Ring there = kU;
    for (Point2& corner : there)
        corner = corner + Point2{20, 20};
    const ClipRegion u(there);
    const Ring around{{19, 19}, {31, 19}, {31, 31}, {19, 31}},
        atOrigin{{-1, -1}, {11, -1}, {11, 11}, {-1, 11}};
    EXPECT_EQ(u.Inside(std::vector<Ring>{around}), std::vector<Ring>{there});
    EXPECT_EQ(u.Inside(std::vector<Ring>{atOrigin}), std::vector<Ring>{});
}

TEST(ClipRegion, InvertedIsWhatIsAroundItsRing)
{
    const ClipRegion square(kSquare, true), u(kU, true);
    EXPECT_FALSE(square.Contains({5, 5}));
    EXPECT_TRUE(square.Contains({15, 5}));
    EXPECT_TRUE(u.Contains({5, 5}));
    EXPECT_EQ(u.SideOf({{0.5, 0.5}, {9.5, 1.5}}), ClipSide::Outside);
    EXPECT_EQ(u.SideOf({{3, 3}, {7, 9}}), ClipSide::Inside);
    EXPECT_EQ(u.SideOf({{20, 3}, {27, 9}}), ClipSide::Inside);
    EXPECT_EQ(u.SideOf({{1, 3}, {7, 9}}), ClipSide::Across);
    EXPECT_EQ(u.SideOf({}), ClipSide::Outside);
    EXPECT_EQ(square.Inside(Point2{-10, 5}, {30, 5}), (ClipRegion::Shares{{0, 0.25}, {0.5, 1}}));
    EXPECT_EQ(square.Inside(Point2{2, 5}, {3, 5}), ClipRegion::Shares{});
    EXPECT_EQ(square.Inside(Point2{2, 11}, {3, 11}), (ClipRegion::Shares{{0, 1}}));
    EXPECT_EQ(square.Inside(Point2{2, 5}, {2, 5}), ClipRegion::Shares{});
    EXPECT_EQ(u.Inside(Point2{-10, 5}, {10, 5}), (ClipRegion::Shares{{0, 0.5}, {0.6, 0.9}}));
}

// Whether a point is in an area by the even-odd rule.
bool IsIn(const std::vector<Ring>& area, Point2 p)
{
    bool isIn = false;
    for (const Ring& ring : area)
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const Point2 a = ring[i], b = ring[(i + 1) % ring.size()];
            if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x))
                isIn = !isIn;
        }
    return isIn;
}

// A star of many points of uneven length around a centre.
Ring Star(Point2 centre, double radius, int points, unsigned seed)
{
    Ring star;
    for (int i = 0; i < points; ++i) {
        seed = seed * 1664525u + 1013904223u;
        const double r = radius * (0.2 + 0.8 * (seed >> 8) / 16777216.0), t = kTurn * i / points;
        star.push_back(centre + Point2{r * std::cos(t), r * std::sin(t)});
    }
    return star;
}

TEST(ClipRegion, OfAnyAreasEachPointIsInsideOrNot)
{
    for (unsigned seed = 0; seed < 40; ++seed)
        for (const bool isInverted : {false, true}) {
            const Ring ring = Star({5, 5}, 4, 3 + static_cast<int>(seed % 37), seed);
            const ClipRegion region(ring, isInverted);
            ASSERT_FALSE(region.IsReplaced());
            const std::vector<Ring> area{Star({6, 4}, 5, 3 + static_cast<int>(seed % 29), seed + 99),
                                         Star({6.5, 4.5}, 2, 24, seed + 55)};
            const std::vector<Ring> cut = region.Inside(area);
            for (double x = 0.517; x < 12; x += 0.25)
                for (double y = -1.513; y < 10; y += 0.25)
                    ASSERT_EQ(IsIn(cut, {x, y}), IsIn(area, {x, y}) && IsIn({ring}, {x, y}) != isInverted)
                        << x << " " << y << " seed " << seed;
        }
}

TEST(ClipRegion, ARingThatCrossesItselfIsItsBox)
{
    const ClipRegion bow({{0, 0}, {10, 10}, {10, 0}, {0, 10}});
    EXPECT_TRUE(bow.IsReplaced());
    EXPECT_TRUE(bow.Contains({5, 1}));
    const Ring pentagram{{0, 3}, {10, 3}, {2, 10}, {5, 0}, {8, 10}}; // bent to the same side everywhere
    EXPECT_TRUE(ClipRegion(pentagram).IsReplaced());
    EXPECT_FALSE(ClipRegion(kU).IsReplaced());
    EXPECT_FALSE(ClipRegion({{0, 0}, {10, 0}, {10, 10}, {5, 0}, {0, 10}}).IsReplaced()); // touches itself
}

TEST(ClipRegion, WithTooManyCornersIsTheirBox)
{
    Ring corners;
    for (std::size_t i = 0; i <= ClipRegion::kMostCorners; ++i)
        corners.push_back({std::cos(static_cast<double>(i)), std::sin(static_cast<double>(i))});
    const ClipRegion region(corners);
    EXPECT_EQ(region.Corners().size(), 4u);
    EXPECT_TRUE(region.IsReplaced());
    EXPECT_TRUE(region.Contains({0.95, 0.95}));
}

} // namespace
} // namespace prepare
