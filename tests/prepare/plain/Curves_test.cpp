#include "prepare/plain/Curves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace prepare {
namespace {

double DistanceFromSegment(Point2 p, Point2 a, Point2 b)
{
    const Point2 along = b - a;
    const double square = Dot(along, along);
    const double t = square > 0 ? std::clamp(Dot(p - a, along) / square, 0.0, 1.0) : 0;
    return Length(p - (a + t * along));
}

class RandomArcs {
public:
    EllipticArc Next()
    {
        EllipticArc arc{NextPoint(), NextPoint(), NextPoint(), m_number(m_engine), 0};
        arc.end = arc.start + 0.1 + std::fabs(m_number(m_engine)) / 2;
        return arc;
    }

private:
    Point2 NextPoint() { return {m_number(m_engine), m_number(m_engine)}; }

    std::mt19937 m_engine{7};
    std::uniform_real_distribution<double> m_number{-10, 10};
};

TEST(Sweep, GoesCounterClockwiseUpToAFullTurn)
{
    EXPECT_DOUBLE_EQ(Sweep(1, 3), 2);
    EXPECT_DOUBLE_EQ(Sweep(3, 1), kTurn - 2);
    EXPECT_DOUBLE_EQ(Sweep(0, kTurn), kTurn);
    EXPECT_DOUBLE_EQ(Sweep(kTurn, 0), kTurn);
    EXPECT_EQ(Sweep(2, 2), 0);
    EXPECT_NEAR(Sweep(0, 3 * kTurn + 1), 1, 1e-12);
}

TEST(PrincipalAxes, ThePointsAreTheSameOnes)
{
    RandomArcs arcs;
    for (int i = 0; i < 500; ++i) {
        const EllipticArc arc = arcs.Next();
        const PrincipalAxes axes = AxesOf(arc.u, arc.v);
        const Point2 minor = axes.minor / Length(axes.major) * LeftOf(axes.major);
        EXPECT_LE(axes.minor, Length(axes.major) * (1 + 1e-12));
        for (double t = 0; t < kTurn; t += 0.5) {
            const double parameter = axes.isMirrored ? axes.shift - t : t - axes.shift;
            const Point2 there = std::cos(parameter) * axes.major + std::sin(parameter) * minor;
            EXPECT_LT(Length(there - (arc.At(t) - arc.centre)), 1e-12 * Length(axes.major));
        }
    }
}

TEST(ArcOfBulge, AHalfCircleBulgesToTheRightOfItsChord)
{
    const EllipticArc arc = ArcOfBulge({0, 0}, {2, 0}, 1);
    const Point2 middle = arc.At(arc.end / 2), end = arc.At(arc.end);
    EXPECT_NEAR(middle.x, 1, 1e-15);
    EXPECT_NEAR(middle.y, -1, 1e-15);
    EXPECT_NEAR(end.x, 2, 1e-15);
    EXPECT_NEAR(end.y, 0, 1e-15);
}

// The height of an arc over its chord is the bulge times half the chord, to the right when that is above 0.
TEST(ArcOfBulge, BeginsEndsAndPeaksWhereTheBulgeSays)
{
    const Point2 from{3, -4}, to{-5, 2};
    for (const double bulge : {-20.0, -1.5, -1.0, -0.2, 1e-6, 0.4, 1.0, 7.0}) {
        const EllipticArc arc = ArcOfBulge(from, to, bulge);
        const Point2 peak = Middle(from, to) - 0.5 * bulge * LeftOf(to - from);
        const double exactness = 1e-15 * Length(arc.u) + 1e-13;
        EXPECT_LT(Length(arc.At(0) - from), exactness);
        EXPECT_LT(Length(arc.At(arc.end) - to), exactness);
        EXPECT_LT(Length(arc.At(arc.end / 2) - peak), exactness * 10);
    }
}

TEST(FlattenArc, IsNowhereFartherThanTheTolerance)
{
    RandomArcs arcs;
    for (int i = 0; i < 200; ++i) {
        const EllipticArc arc = arcs.Next();
        const double tolerance = 0.01;
        std::vector<Point2> points{arc.At(arc.start)};
        Flatten(arc, tolerance, points);
        const double chords = static_cast<double>(points.size() - 1);
        for (double k = 0; k < chords * 8; ++k) {
            const auto chord = static_cast<std::size_t>(k / 8);
            const Point2 truth = arc.At(arc.start + (arc.end - arc.start) * (k / 8) / chords);
            EXPECT_LE(DistanceFromSegment(truth, points[chord], points[chord + 1]), tolerance * (1 + 1e-9));
        }
        EXPECT_LT(Length(points.back() - arc.At(arc.end)), 1e-12);
    }
}

// The height of a chord over n parts of a turn is 1 - cos(pi / n): 0.0048 for 32, above 0.005 for 31.
TEST(FlattenArc, TakesNoMorePointsThanItNeedsAndNeverTooMany)
{
    const EllipticArc circle{{0, 0}, {1, 0}, {0, 1}, 0, kTurn};
    std::vector<Point2> points;
    Flatten(circle, 0.005, points);
    EXPECT_EQ(points.size(), 32U);
    points.clear();
    Flatten(circle, 1e-30, points);
    EXPECT_EQ(points.size(), static_cast<std::size_t>(kMostPointsOfTurn));
}

} // namespace
} // namespace prepare
