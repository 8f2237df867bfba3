#include "support/Stage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace prepare {
namespace {

Spline Controlled(std::vector<Point3> points, std::vector<double> knots, std::int32_t degree)
{
    Spline spline;
    spline.controlPoints = std::move(points);
    spline.knots = std::move(knots);
    spline.degree = degree;
    return spline;
}

Spline Fitted(std::vector<Point3> points)
{
    Spline spline;
    spline.fitPoints = std::move(points);
    return spline;
}

TEST(DrawSpline, OfDegreeOneItIsItsControlPolygon)
{
    Stage stage;
    const Spline spline = Controlled({{0, 0, 0}, {1, 0, 5}, {1, 1, 0}}, {0, 0, 1, 2, 2}, 1);
    EXPECT_EQ(stage.Draw(spline), Lines{"polyline 0,0 1,0 1,1"});
    EXPECT_EQ(stage.Findings(), Lines{});
}

// A parabola over 4, with its vertex at (2, 1): a chord over n parts is at most 1 / n^2 away.
TEST(DrawSpline, HasAsManyPointsAsTheToleranceAsksFor)
{
    Stage stage;
    const Spline parabola = Controlled({{0, 0, 0}, {2, 2, 0}, {4, 0, 0}}, {0, 0, 0, 1, 1, 1}, 2);
    stage.tolerance = 1.01;
    EXPECT_EQ(stage.Draw(parabola), Lines{"line 0,0 4,0"});
    stage.tolerance = 0.26;
    EXPECT_EQ(stage.Draw(parabola), Lines{"polyline 0,0 2,1 4,0"});
    stage.tolerance = 0.07;
    EXPECT_EQ(stage.Draw(parabola), Lines{"polyline 0,0 1,0.75 2,1 3,0.75 4,0"});
}

TEST(DrawSpline, WeightsCount)
{
    Stage stage;
    stage.tolerance = 0.5;
    Spline quarter = Controlled({{1, 0, 0}, {1, 1, 0}, {0, 1, 0}}, {0, 0, 0, 1, 1, 1}, 2);
    quarter.weights = {1, std::sqrt(0.5), 1};
    EXPECT_EQ(stage.Draw(quarter), Lines{"polyline 1,0 0.707107,0.707107 0,1"});
    quarter.weights = {1, -1, 1};
    EXPECT_EQ(stage.Draw(quarter), Lines{"line 1,0 0,1"});
    EXPECT_EQ(stage.Findings().back(),
              "repaired: weights that do not fit its control points are taken as equal");
}

TEST(DrawSpline, KnotsThatDoNotFitAreEquallySpaced)
{
    Stage stage;
    stage.tolerance = 0.26;
    EXPECT_EQ(stage.Draw(Controlled({{0, 0, 0}, {2, 2, 0}, {4, 0, 0}}, {0, 1}, 2)),
              Lines{"polyline 0,0 2,1 4,0"});
    EXPECT_EQ(stage.Findings().back(),
              "repaired: knots that do not fit its control points are taken as equally spaced");
}

TEST(DrawSpline, ADegreeThatIsTooHighIsLoweredOrRefused)
{
    Stage stage;
    Spline spline = Controlled({{0, 0, 0}, {4, 0, 0}}, {}, 3);
    EXPECT_EQ(stage.Draw(spline), Lines{"line 0,0 4,0"});
    EXPECT_EQ(stage.Findings(), (Lines{"repaired: a degree that needs more control points is lowered",
                                       "repaired: knots that do not fit its control points are taken as "
                                       "equally spaced"}));
    for (const std::int32_t degree : {-1, 0, 21, 2'000'000'000}) {
        Stage another;
        spline.degree = degree;
        EXPECT_EQ(another.Draw(spline), Lines{});
        EXPECT_EQ(another.Findings(), Lines{"not shown: its degree is not 1 to 20"});
    }
}

TEST(DrawSpline, ControlPointsThatAreNotFiniteAreLeftOut)
{
    Stage stage;
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(stage.Draw(Controlled({{0, 0, 0}, {infinity, 0, 0}, {4, 0, 0}}, {0, 0, 1, 2, 2}, 1)),
              Lines{"line 0,0 4,0"});
    EXPECT_EQ(stage.Findings().at(0), "changed: parts with numbers out of range are left out");
}

TEST(DrawSpline, WithoutPointsItIsNotShown)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Spline()), Lines{});
    EXPECT_EQ(stage.Findings(), Lines{"not shown: it has no points"});
}

TEST(DrawSpline, TwoFitPointsAreALine)
{
    Stage stage;
    EXPECT_EQ(stage.Draw(Fitted({{0, 0, 0}, {0, 0, 0}, {3, 1, 0}})), Lines{"line 0,0 3,1"});
}

// The natural cubic through (-1, 0), (0, 1), (1, 0): its slope in the middle is 0, and at the ends it is 1.5
// as steep as the chord. Halfway it is at 1/2 + 3/16.
TEST(DrawSpline, ThroughFitPointsItIsTheNaturalCubic)
{
    Stage stage;
    stage.tolerance = 0.1;
    EXPECT_EQ(stage.Draw(Fitted({{-1, 0, 0}, {0, 1, 0}, {1, 0, 0}})),
              Lines{"polyline -1,0 -0.5,0.6875 0,1 0.5,0.6875 1,0"});
}

// Between two points with the same tangent across, it is a cubic with a point of inflection halfway.
TEST(DrawSpline, ItsTangentsAreUnitSpeeds)
{
    Stage stage;
    stage.tolerance = 0.1;
    Spline spline = Fitted({{0, 0, 0}, {4, 0, 0}});
    spline.startTangent = {0, 7, 0};
    spline.endTangent = {0, -3, 0};
    // The derivative is (0, 1) and (0, -1) over a length of 4: halfway it is at y = 4 / 8 * 2.
    EXPECT_EQ(stage.Draw(spline).front().find("polyline 0,0 "), 0U);
    EXPECT_NE(stage.Draw(spline).front().find(" 2,1 "), std::string::npos);
}

// Through the corners of a square it is symmetric: every side's middle is as far out.
TEST(DrawSpline, ClosedItIsSmoothWhereItEnds)
{
    Stage stage;
    stage.tolerance = 0.2;
    Spline spline = Fitted({{1, 1, 0}, {-1, 1, 0}, {-1, -1, 0}, {1, -1, 0}});
    spline.flags = 1;
    // The slopes are 3/4 along (-1, 1) in (1, 1) and so on: the middle of a side bulges by 2 * 3/4 / 4.
    EXPECT_EQ(stage.Draw(spline),
              Lines{"polyline 1,1 0,1.375 -1,1 -1.375,0 -1,-1 0,-1.375 1,-1 1.375,0 1,1"});
}

} // namespace
} // namespace prepare
