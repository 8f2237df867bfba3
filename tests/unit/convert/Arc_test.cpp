#include "entities/DXF_GRAPHIC_GEOMETRY.h"
#include "support/Import.h"
#include "support/TraceLines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::string Arc(std::string_view x, std::string_view y, std::string_view radius, std::string_view start,
                std::string_view end, std::string_view extrusion = "1")
{
    return EntitiesSection(
        {{0, "ARC"}, {10, x}, {20, y}, {40, radius}, {50, start}, {51, end}, {230, extrusion}});
}

// All calls for an arc of that path, the width first set to 1 and then by the style.
std::string Drawn(std::string_view data, const StyleTexts& style = {})
{
    return "qlmCreatePath(ctx, \"\", \"" + std::string(data) + "\", 0, 0) = n1\n" +
           Attribute("n1", "stroke-width", "1") + Style("n1", style);
}

std::string UnflippedTraceOf(std::string_view dxf)
{
    return TraceOf(dxf, [](CDxfReadToQuillmar& converter) { converter.yAxisMode = 1; });
}

// The two angles of a record after it has been drawn.
std::pair<double, double> Normalized(double start, double end, bool drawEnabled = true)
{
    RecordingHost::OfThread().Reset();
    CDxfReadToQuillmar converter(RecordingHost::Context());
    converter.drawEnabled = drawEnabled;
    DXF_GRAPHIC_ARC arc;
    arc.m_dStartAngle = start;
    arc.m_dEndAngle = end;
    converter.OnArc(arc);
    return {arc.m_dStartAngle, arc.m_dEndAngle};
}

// The flag string in an arc's path.
std::string ArcFlags(std::string_view start, std::string_view end, std::string_view extrusion = "1",
                     std::int32_t yAxisMode = 2)
{
    const std::string trace =
        TraceOf(Arc("0", "0", "10", start, end, extrusion),
                [&](CDxfReadToQuillmar& converter) { converter.yAxisMode = yAxisMode; });
    return trace.substr(trace.find(", 0 ") + 4, 3);
}

} // namespace

TEST(Arc, OfAQuarterStartsAtANegativeZeroBelow)
{
    EXPECT_EQ(TraceOf(Arc("0", "0", "10", "0", "90")),
              Drawn("M 10.000000,-0.000000 A 10.000000,10.000000, 0 0,0 0.000000,-10.000000"));
}

TEST(Arc, OfThreeQuartersIsLarge)
{
    EXPECT_EQ(TraceOf(Arc("0", "0", "10", "0", "270")),
              Drawn("M 10.000000,-0.000000 A 10.000000,10.000000, 0 1,0 -0.000000,10.000000"));
}

TEST(Arc, SweepsTheOtherWayWhenYPointsUp)
{
    EXPECT_EQ(UnflippedTraceOf(Arc("0", "0", "10", "0", "90")),
              Drawn("M 10.000000,0.000000 A 10.000000,10.000000, 0 0,1 0.000000,10.000000"));
    EXPECT_EQ(UnflippedTraceOf(Arc("0", "0", "10", "0", "270")),
              Drawn("M 10.000000,0.000000 A 10.000000,10.000000, 0 1,1 -0.000000,-10.000000"));
}

// cos 30 is the root of 3 over 2, 0.866025; the centre is (1, 2), the radius 2.
TEST(Arc, AroundAnotherCentreHasItsPointsThere)
{
    EXPECT_EQ(TraceOf(Arc("1", "2", "2", "30", "60")),
              Drawn("M 2.732051,-3.000000 A 2.000000,2.000000, 0 0,0 2.000000,-3.732051"));
}

TEST(Arc, ScalesPointsAndRadius)
{
    EXPECT_EQ(
        TraceOf(Arc("1", "2", "2", "30", "60"), [](CDxfReadToQuillmar& converter) { converter.scale = 3; }),
        Drawn("M 8.196152,-9.000000 A 6.000000,6.000000, 0 0,0 6.000000,-11.196152", {.width = "1.500000"}));
}

TEST(Arc, SeenFromBelowIsMirroredAndRunsBackwards)
{
    EXPECT_EQ(UnflippedTraceOf(Arc("5", "0", "1", "0", "90", "-1")),
              Drawn("M -5.000000,1.000000 A 1.000000,1.000000, 0 0,1 -6.000000,0.000000"));
    EXPECT_EQ(TraceOf(Arc("5", "0", "1", "0", "90", "-1")),
              Drawn("M -5.000000,-1.000000 A 1.000000,1.000000, 0 0,0 -6.000000,-0.000000"));
}

TEST(Arc, OfAnyExtrusionZButExactly1IsMirrored)
{
    const std::string mirrored = TraceOf(Arc("5", "0", "1", "0", "90", "-1"));
    for (const char* extrusion : {"0", "0.999999", "2", "1.0000000000000002", "1e400"})
        EXPECT_EQ(TraceOf(Arc("5", "0", "1", "0", "90", extrusion)), mirrored) << extrusion;
    EXPECT_EQ(TraceOf(Arc("5", "0", "1", "0", "90", "1.0")),
              Drawn("M 6.000000,-0.000000 A 1.000000,1.000000, 0 0,0 5.000000,-1.000000"));
}

TEST(Arc, DoesNotLookAtTheExtrusionsXAndY)
{
    EXPECT_EQ(
        TraceOf(EntitiesSection({{0, "ARC"}, {10, 5}, {40, 1}, {51, 90}, {210, 0.7}, {220, -0.7}, {39, 3}})),
        TraceOf(Arc("5", "0", "1", "0", "90")));
}

TEST(Arc, TakesTheLargeFlagFromTheRecordsAnglesInTheMirroredCaseToo)
{
    EXPECT_EQ(ArcFlags("0", "270", "-1"), "1,0");
    EXPECT_EQ(ArcFlags("270", "0", "-1"), "0,0");
}

TEST(Arc, IsLargeFrom180DegreesOn)
{
    EXPECT_EQ(ArcFlags("0", "180"), "1,0");
    EXPECT_EQ(ArcFlags("0", "179.999"), "0,0");
    EXPECT_EQ(ArcFlags("0", "179.99999995"), "0,0");
    EXPECT_EQ(ArcFlags("10", "350"), "1,0");
    EXPECT_EQ(ArcFlags("0", "360"), "1,0");
    EXPECT_EQ(ArcFlags("45", "45"), "0,0");
}

TEST(Arc, ThatPassesZeroCountsItsSpanAcrossIt)
{
    EXPECT_EQ(ArcFlags("350", "10"), "0,0");
    EXPECT_EQ(ArcFlags("200", "100"), "1,0");
    EXPECT_EQ(ArcFlags("270", "90"), "1,0");
    EXPECT_EQ(ArcFlags("270.001", "90"), "0,0");
    EXPECT_EQ(ArcFlags("360", "0"), "0,0");
}

TEST(Arc, WritesEachOfTheFourFlagStrings)
{
    EXPECT_EQ(ArcFlags("0", "270", "1", 1), "1,1");
    EXPECT_EQ(ArcFlags("0", "90", "1", 1), "0,1");
    EXPECT_EQ(ArcFlags("0", "270", "1", 2), "1,0");
    EXPECT_EQ(ArcFlags("0", "90", "1", 2), "0,0");
    EXPECT_EQ(ArcFlags("0", "90", "1", 0), "0,1") << "every axis mode but 2 leaves Y as it is";
}

TEST(Arc, StoresItsAnglesBackNormalized)
{
    using Angles = std::pair<double, double>;
    EXPECT_EQ(Normalized(-90, 450), Angles(270, 90));
    EXPECT_EQ(Normalized(360, 0), Angles(360, 0));
    EXPECT_EQ(Normalized(720, 1080), Angles(360, 360));
    EXPECT_EQ(Normalized(-360, -720), Angles(0, 0));
    EXPECT_EQ(Normalized(360.5, -0.5), Angles(0.5, 359.5));
    EXPECT_EQ(Normalized(719.5, -450), Angles(359.5, 270));
    EXPECT_EQ(Normalized(12.25, 359.75), Angles(12.25, 359.75));
}

TEST(Arc, LeavesANegativeZeroAsItIs)
{
    EXPECT_TRUE(std::signbit(Normalized(-0.0, 0).first));
}

// Far below the last bit of 360, the sum is 360 itself, which is not above 360.
TEST(Arc, OfATinyNegativeAngleNormalizesItTo360)
{
    EXPECT_EQ(Normalized(-1e-20, 0).first, 360);
}

// The remainders were worked out with whole numbers of any length.
TEST(Arc, NormalizesHugeAnglesAtOnce)
{
    EXPECT_EQ(Normalized(1e300, -1e300), std::make_pair(360.0, 0.0)) << "a multiple of 360";
    EXPECT_EQ(Normalized(3.6e300, -3.6e300), std::make_pair(216.0, 144.0));
    EXPECT_EQ(Normalized(123456789.5, -123456789.5), std::make_pair(189.5, 170.5));
    EXPECT_EQ(Normalized(1e17, -1e17), std::make_pair(280.0, 80.0));
    EXPECT_EQ(Normalized(std::ldexp(360, 900), -std::ldexp(360, 900)), std::make_pair(360.0, 0.0));
}

TEST(Arc, LeavesInfiniteAnglesAsTheyAreAndReturns)
{
    EXPECT_EQ(Normalized(kInfinity, -kInfinity), std::make_pair(kInfinity, -kInfinity));
}

TEST(Arc, NormalizesItsAnglesWhenNothingMayBeDrawn)
{
    EXPECT_EQ(Normalized(-90, 450, false), std::make_pair(270.0, 90.0));
    EXPECT_EQ(RecordingHost::OfThread().Trace(), "");
}

TEST(Arc, NormalizesItsAnglesWithoutAContextNode)
{
    RecordingHost::OfThread().Reset();
    CDxfReadToQuillmar converter(nullptr);
    DXF_GRAPHIC_ARC arc;
    arc.m_dStartAngle = -90;
    arc.m_dEndAngle = 450;
    converter.OnArc(arc);
    EXPECT_EQ(arc.m_dStartAngle, 270);
    EXPECT_EQ(arc.m_dEndAngle, 90);
    EXPECT_EQ(RecordingHost::OfThread().Trace(), "");
}

TEST(Arc, TakesItsPointsFromTheAnglesAsRead)
{
    EXPECT_EQ(TraceOf(Arc("0", "0", "10", "-90", "450")),
              Drawn("M 0.000000,10.000000 A 10.000000,10.000000, 0 1,0 0.000000,-10.000000"));
}

// The points of a full turn differ in the last bits only; both ends are drawn.
TEST(Arc, OfAFullTurnIsALargeArcBetweenEqualPoints)
{
    EXPECT_EQ(TraceOf(Arc("0", "0", "1", "0", "360")),
              Drawn("M 1.000000,-0.000000 A 1.000000,1.000000, 0 1,0 1.000000,0.000000"));
}

TEST(Arc, OfANegativeRadiusIsDrawnWithItsDistance)
{
    EXPECT_EQ(TraceOf(Arc("0", "0", "-10", "0", "90")),
              Drawn("M -10.000000,-0.000000 A 10.000000,10.000000, 0 0,0 -0.000000,10.000000"));
}

// 1e15 + 0.1 is the double 1000000000000000.125, and the distance to it is what is drawn.
TEST(Arc, WorksItsRadiusOutFromTheRoundedStart)
{
    EXPECT_EQ(TraceOf(Arc("1e15", "0", "0.1", "0", "90")),
              Drawn("M 1000000000000000.125000,-0.000000 A 0.125000,0.125000, 0 0,0 "
                    "1000000000000000.000000,-0.100000"));
}

TEST(Arc, WithoutAnyGroupIsAPathOfNoSize)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "ARC"}})),
              Drawn("M 0.000000,-0.000000 A 0.000000,0.000000, 0 0,0 0.000000,-0.000000"));
}

TEST(Arc, OfInfiniteNumbersPrintsWhatComesOut)
{
    EXPECT_EQ(TraceOf(Arc("0", "0", "1e400", "0", "90")), Drawn("M inf,nan A nan,nan, 0 0,0 inf,-inf"));
    EXPECT_EQ(TraceOf(Arc("0", "0", "10", "0", "1e400")),
              Drawn("M 10.000000,-0.000000 A 10.000000,10.000000, 0 1,0 nan,nan"));
    EXPECT_EQ(TraceOf(Arc("0", "0", "10", "1e400", "0")),
              Drawn("M nan,nan A nan,nan, 0 0,0 10.000000,-0.000000"));
    EXPECT_EQ(TraceOf(Arc("1e400", "0", "10", "0", "90")),
              Drawn("M inf,-0.000000 A nan,nan, 0 0,0 inf,-10.000000"));
}

// Ten degrees at a time, by the formula of a point on a circle.
TEST(Arc, EndsOnItsCircleAtEveryAngle)
{
    for (int degrees = 1; degrees < 360; degrees += 10) {
        const double radians = degrees / 57.29577951308232;
        char data[200];
        std::snprintf(data, sizeof(data), "M %f,%f A %f,%f, 0 %s %f,%f", 7.0 + 3.25, -11.0, 3.25, 3.25,
                      degrees >= 180 ? "1,0" : "0,0", 7 + 3.25 * std::cos(radians),
                      -(11 + 3.25 * std::sin(radians)));
        EXPECT_EQ(TraceOf(Arc("7", "11", "3.25", "0", std::to_string(degrees))), Drawn(data)) << degrees;
    }
}

TEST(Arc, ThatIsInvisibleIsHiddenLast)
{
    EXPECT_EQ(
        TraceOf(EntitiesSection({{0, "ARC"}, {40, 10}, {51, 90}, {60, 1}})),
        Drawn("M 10.000000,-0.000000 A 10.000000,10.000000, 0 0,0 0.000000,-10.000000", {.hidden = true}));
}
