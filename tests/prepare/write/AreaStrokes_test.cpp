// Strokes that cover areas, measured against the areas.
#include "prepare/write/AreaStrokes.h"

#include "base/Pi.h"
#include "prepare/plain/Box.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace prepare {
namespace {

using Rings = std::vector<std::vector<Point2>>;

constexpr double kStroke = 0.25;

bool IsInside(const Rings& rings, Point2 p)
{
    bool isInside = false;
    for (const std::vector<Point2>& ring : rings)
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const Point2 a = ring[i], b = ring[(i + 1) % ring.size()];
            if ((a.y <= p.y) != (b.y <= p.y) && a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x) < p.x)
                isInside = !isInside;
        }
    return isInside;
}

double DistanceToEdges(const Rings& rings, Point2 p)
{
    double nearest = HUGE_VAL;
    for (const std::vector<Point2>& ring : rings)
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const Point2 a = ring[i], edge = ring[(i + 1) % ring.size()] - a;
            const double share = std::clamp(Dot(p - a, edge) / Dot(edge, edge), 0.0, 1.0);
            nearest = std::min(nearest, Length(p - a - share * edge));
        }
    return nearest;
}

bool IsInTriangle(Point2 a, Point2 b, Point2 c, Point2 p)
{
    if (Cross(b - a, c - a) == 0)
        return false;
    const double x = Cross(b - a, p - a), y = Cross(c - b, p - b), z = Cross(a - c, p - c);
    return (x >= 0 && y >= 0 && z >= 0) || (x <= 0 && y <= 0 && z <= 0);
}

// Corners are cut off, or drawn to their tips as far as usual.
enum class Corners { Cut, Pointed };

bool IsOnCorner(Point2 corner, Point2 before, Point2 after, double half, Corners corners, Point2 p)
{
    const double side = Cross(before, after) > 0 ? -half : half;
    const Point2 first = corner + side * Point2{-before.y, before.x};
    const Point2 last = corner + side * Point2{-after.y, after.x};
    if (IsInTriangle(corner, first, last, p))
        return true;
    const double towards = 1 + Dot(before, after);
    const bool hasTip = corners == Corners::Pointed && towards / 2 > 1.0 / 16;
    const Point2 tip = corner + (1 / std::max(towards, 1e-9)) * (first - corner + (last - corner));
    return hasTip && IsInTriangle(first, tip, last, p);
}

bool IsOn(const AreaStroke& stroke, Corners corners, Point2 p)
{
    const double half = stroke.width / 200.0;
    Point2 before;
    for (std::size_t i = 0; i + 1 < stroke.points.size(); ++i) {
        const Point2 from = stroke.points[i], line = stroke.points[i + 1] - from;
        const double length = Length(line);
        const Point2 along = (1 / length) * line;
        const double x = Dot(p - from, along), y = Cross(along, p - from);
        if (std::fabs(y) <= half && x >= 0 && x <= length)
            return true;
        if (i > 0 && IsOnCorner(from, before, along, half, corners, p))
            return true;
        before = along;
    }
    return false;
}

struct Cover {
    std::size_t strokes = 0;
    double missing = 0; // of the area
    double deepest = 0; // what is missing, from the nearest edge, in strokes
    double outside = 0; // the farthest, in strokes
};

Cover Measure(const Rings& rings, double stroke = kStroke)
{
    constexpr int kPoints = 80;
    std::uint64_t spareLooks = kSpareLooks;
    const std::vector<AreaStroke> strokes = CoverArea(rings, stroke, spareLooks);
    const auto isCovered = [&](Corners corners, Point2 p) {
        return std::any_of(strokes.begin(), strokes.end(),
                           [&](const AreaStroke& each) { return IsOn(each, corners, p); });
    };
    Box box;
    for (const std::vector<Point2>& ring : rings)
        for (const Point2 p : ring)
            box.Add(p);
    Cover cover{strokes.size()};
    double inside = 0;
    for (int i = 0; i < kPoints; ++i)
        for (int j = 0; j < kPoints; ++j) {
            const Point2 p{box.min.x + box.Width() * ((i + 0.5) / kPoints * 1.1 - 0.05),
                           box.min.y + box.Height() * ((j + 0.5) / kPoints * 1.1 - 0.05)};
            if (IsInside(rings, p)) {
                ++inside;
                if (!isCovered(Corners::Cut, p)) {
                    ++cover.missing;
                    cover.deepest = std::max(cover.deepest, DistanceToEdges(rings, p) / stroke);
                }
            } else if (isCovered(Corners::Pointed, p)) {
                cover.outside = std::max(cover.outside, DistanceToEdges(rings, p) / stroke);
            }
        }
    cover.missing /= inside;
    return cover;
}

void ExpectWhole(const Rings& rings, std::size_t mostStrokes, double mostMissing = 0.001)
{
    const Cover cover = Measure(rings);
    EXPECT_LE(cover.strokes, mostStrokes);
    EXPECT_LE(cover.missing, mostMissing);
    EXPECT_LE(cover.deepest, 0.5);
    EXPECT_LE(cover.outside, 0.01);
}

std::vector<Point2> Circle(Point2 centre, double radius, int corners)
{
    std::vector<Point2> ring;
    for (int i = 0; i < corners; ++i)
        ring.push_back(centre +
                       radius * Point2{std::cos(kTurn * i / corners), std::sin(kTurn * i / corners)});
    return ring;
}

// Rings that are smaller than the numbers can say are left out before.
TEST(AreaStrokes, NoRingsHaveNone)
{
    EXPECT_EQ(Measure({}).strokes, 0u);
}

TEST(AreaStrokes, ARectangleIsOne)
{
    ExpectWhole({{{0, 0}, {10, 0}, {10, 4}, {0, 4}}}, 1);
    ExpectWhole({{{0, 0}, {3, 4}, {-1, 7}, {-4, 3}}}, 1);
}

TEST(AreaStrokes, AnArrowheadIsFew)
{
    ExpectWhole({{{0, 0}, {3, 0.5}, {3, -0.5}}}, 4, 0.07);
    ExpectWhole({{{0, 0}, {0.5, 0.1}, {0.5, -0.1}}}, 2, 0.2);
}

TEST(AreaStrokes, ThinEndsOfTrianglesAreCovered)
{
    ExpectWhole({{{0, 0}, {10, 0}, {4, 8}}}, 16, 0.002);
    ExpectWhole({{{0, 0}, {100, 0}, {40, 80}}}, 32);
    ExpectWhole({{{0, 0}, {100, 0.02}, {100, -0.02}}}, 6, 0.2);
}

TEST(AreaStrokes, ACurveHasStripsAndOneStrokeAlongIt)
{
    ExpectWhole({Circle({0, 0}, 10, 48)}, 12);
    ExpectWhole({Circle({7, 3}, 100, 200)}, 12);
    ExpectWhole({Circle({0, 0}, 0.4, 16)}, 2, 0.04);
}

TEST(AreaStrokes, HolesAndIslandsAreRight)
{
    ExpectWhole({Circle({0, 0}, 10, 64), Circle({0, 0}, 6, 64)}, 24);
    ExpectWhole({Circle({0, 0}, 50, 64), Circle({3, 0}, 40, 64), Circle({5, 5}, 10, 32)}, 24, 0.002);
    ExpectWhole({{{0, 0}, {50, 0}, {50, 50}, {0, 50}}, {{20, 20}, {30, 20}, {30, 30}, {20, 30}}}, 16);
}

// Teeth around a disc, their tips and the gaps between them pointed.
std::vector<Point2> Star(int teeth, double tips, double gaps)
{
    std::vector<Point2> star;
    for (int i = 0; i < 2 * teeth; ++i) {
        const double angle = 0.1 + i * kPi / teeth;
        star.push_back((i % 2 == 0 ? tips : gaps) * Point2{std::cos(angle), std::sin(angle)});
    }
    return star;
}

TEST(AreaStrokes, CornersAndThinPartsAreCovered)
{
    ExpectWhole({{{0, 0}, {50, 0}, {50, 5}, {5, 5}, {5, 50}, {0, 50}}}, 12);
    ExpectWhole({{{0, 0}, {50, 0}, {50, 50}, {49, 50}, {49, 1}, {1, 1}, {1, 50}, {0, 50}}}, 16);
    ExpectWhole({Star(5, 20, 8)}, 64);
}

TEST(AreaStrokes, NarrowTeethOfAStarAreCovered)
{
    ExpectWhole({Star(12, 20, 14)}, 100);
    ExpectWhole({Star(24, 20, 8)}, 150, 0.005);
    ExpectWhole({Star(60, 20, 12)}, 350, 0.005);
    ExpectWhole({Star(120, 20, 12)}, 1000, 0.015);
}

// Teeth 10 high on a bar.
std::vector<Point2> Comb(int teeth, double width, double gap)
{
    std::vector<Point2> comb{{0, 0}, {teeth * (width + gap) - gap, 0}};
    for (int i = teeth - 1; i >= 0; --i) {
        const double x = i * (width + gap);
        for (const Point2 corner : {Point2{x + width, 4}, {x + width, 14}, {x, 14}, {x, 4}})
            comb.push_back(corner);
    }
    return comb;
}

TEST(AreaStrokes, TheTeethOfACombAreCoveredHoweverManyThereAre)
{
    ExpectWhole({Comb(20, 1, 1)}, 100);
    ExpectWhole({Comb(40, 0.15, 0.5)}, 200);
    ExpectWhole({Comb(200, 0.5, 0.5)}, 1000);
}

TEST(AreaStrokes, AJaggedEdgeIsCovered)
{
    std::vector<Point2> ring;
    std::uint32_t random = 7;
    for (int i = 0; i < 300; ++i) {
        random = random * 1664525 + 1013904223;
        const double radius = 15 + 5.0 * (random >> 8) / (1 << 24), angle = kTurn * i / 300;
        ring.push_back({radius * std::cos(angle), radius * std::sin(angle)});
    }
    ExpectWhole({ring}, 700, 0.005);
}

TEST(AreaStrokes, SliversAreCovered)
{
    ExpectWhole({{{0, 0}, {100, 0.5}, {100, -0.5}}}, 8, 0.02);
    ExpectWhole({{{0, 0}, {100, 0}, {100, 0.5}, {50, 0.7}, {0, 0.5}}}, 8);
    std::vector<Point2> wave, back;
    for (int i = 0; i <= 40; ++i) {
        wave.push_back({1.0 * i, 3 * std::sin(0.15 * i)});
        back.push_back(wave.back() + Point2{0, 0.3});
    }
    wave.insert(wave.end(), back.rbegin(), back.rend());
    ExpectWhole({wave}, 4, 0.01);
}

Rings Scaled(double factor, Rings rings)
{
    for (std::vector<Point2>& ring : rings)
        for (Point2& point : ring)
            point = factor * point;
    return rings;
}

TEST(AreaStrokes, LettersAreCovered)
{
    const Rings e{
        {{0, 0}, {6, 0}, {6, 1}, {1, 1}, {1, 4}, {5, 4}, {5, 5}, {1, 5}, {1, 9}, {6, 9}, {6, 10}, {0, 10}}};
    const Rings a{{{0, 0}, {1.2, 0}, {2, 2.6}, {5, 2.6}, {5.8, 0}, {7, 0}, {4.1, 10}, {2.9, 10}},
                  {{2.4, 3.8}, {4.6, 3.8}, {3.5, 8.2}}};
    ExpectWhole(e, 48);
    for (const double scale : {0.1, 0.3, 1.0, 5.0})
        ExpectWhole(Scaled(scale, a), 48, 0.02);
}

TEST(AreaStrokes, CombsOfAnySizeAreCovered)
{
    for (const double scale : {0.2, 0.5, 1.0, 5.0})
        for (const double width : {1.0, 4.0})
            for (const double gap : {0.5, 4.0})
                ExpectWhole(Scaled(scale, {Comb(5, width, gap)}), 66);
}

TEST(AreaStrokes, ArrowheadsOfOtherShapesAreCovered)
{
    ExpectWhole({{{0, 0}, {30, 5}, {30, -5}}}, 16);
    ExpectWhole({{{0, 0}, {6, 1.5}, {4.8, 0}, {6, -1.5}}}, 16, 0.005);
    ExpectWhole({{{0, 0}, {4, 1.5}, {3.5, 0.4}, {20, 0.1}, {20, -0.1}, {3.5, -0.4}, {4, -1.5}}}, 32, 0.002);
}

TEST(AreaStrokes, EdgesMayCrossEachOther)
{
    ExpectWhole({{{0, 0}, {10, 10}, {10, 0}, {0, 10}}}, 64, 0.004);
    std::vector<Point2> pentagram;
    for (int i = 0; i < 5; ++i)
        pentagram.push_back({20 * std::cos(2 * kTurn * i / 5), 20 * std::sin(2 * kTurn * i / 5)});
    ExpectWhole({pentagram}, 250);
}

std::vector<Point2> RandomRing(std::size_t corners, std::uint32_t random)
{
    const auto next = [&random] {
        random = random * 1664525 + 1013904223;
        return static_cast<double>(random >> 8) / (1 << 24) * 50;
    };
    std::vector<Point2> ring;
    for (std::size_t i = 0; i < corners; ++i) {
        const double x = next();
        ring.push_back({x, next()});
    }
    return ring;
}

// Sharp corners from which other edges cut strokes off.
TEST(AreaStrokes, NothingIsOutsideOfEdgesThatCross)
{
    for (const std::uint32_t seed : {1u, 2u, 3u, 4u, 14u, 40u}) {
        const Cover cover = Measure({RandomRing(20, seed)});
        EXPECT_LE(cover.outside, 0.01) << seed;
        EXPECT_LE(cover.missing, 0.05) << seed;
    }
}

TEST(AreaStrokes, WaysAlongManyWavesAreFound)
{
    std::vector<Point2> ring;
    for (int i = 0; i < 400; ++i) {
        const double angle = kTurn * i / 400,
                     radius = 30 + 8 * std::sin(7 * angle) + 2 * std::sin(31 * angle);
        ring.push_back({radius * std::cos(angle), radius * std::sin(angle)});
    }
    ExpectWhole({ring}, 300);
}

// Edges that all cross each other, thin and huge ones: the work is bounded, and nothing is outside.
TEST(AreaStrokes, TooMuchEndsInTime)
{
    std::vector<Point2> ring = RandomRing(3000, 1);
    std::uint64_t spareLooks = 1000;
    EXPECT_LE(CoverArea(Rings{ring}, kStroke, spareLooks).size(), 400 + 3 * ring.size());
    EXPECT_EQ(spareLooks, 0U);
    ring.resize(60);
    EXPECT_LE(Measure({ring}).outside, 0.01);
    spareLooks = kSpareLooks;
    const Rings huge{{{0, 0}, {1e30, 0}, {1e30, 1e30}}};
    for (const AreaStroke& stroke : CoverArea(huge, kStroke, spareLooks))
        for (const Point2 point : stroke.points)
            EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
    EXPECT_GT(spareLooks, kSpareLooks / 2);
}

} // namespace
} // namespace prepare
