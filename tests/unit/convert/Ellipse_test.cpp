#include "support/Import.h"
#include "support/TraceLines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>

namespace {

constexpr const char* kTwoPi = "6.283185307179586";
constexpr const char* kPi = "3.141592653589793";

struct EllipseTexts {
    std::string_view centerX = "0", centerY = "0";
    std::string_view majorX = "10", majorY = "0", majorZ = "0";
    std::string_view ratio = "0.5";
    std::string_view start = "0", end = kTwoPi;
};

std::string Ellipse(const EllipseTexts& texts)
{
    return EntitiesSection({{0, "ELLIPSE"},
                            {10, texts.centerX},
                            {20, texts.centerY},
                            {11, texts.majorX},
                            {21, texts.majorY},
                            {31, texts.majorZ},
                            {40, texts.ratio},
                            {41, texts.start},
                            {42, texts.end}});
}

std::string UnflippedEllipse(std::string_view dxf)
{
    return TraceOf(dxf, [](CDxfReadToQuillmar& converter) { converter.yAxisMode = 1; });
}

struct Turn {
    std::string_view x = "0.000000", y = "-0.000000", degrees = "-0.000000";
};

// The attributes that every ellipse ends with.
std::string Turned(const Turn& turn, const StyleTexts& style = {})
{
    return Attribute("n1", "center-x", turn.x) + Attribute("n1", "center-y", turn.y) +
           Attribute("n1", "rotate", turn.degrees) + Style("n1", style);
}

std::string Whole(std::string_view numbers)
{
    return "qlmCreateEllipse(ctx, \"\", " + std::string(numbers) + ", 0, 0) = n1\n" +
           Attribute("n1", "fill-opacity", "0");
}

std::string Path(std::string_view data)
{
    return "qlmCreatePath(ctx, \"\", \"" + std::string(data) + "\", 0, 0) = n1\n";
}

// The flag string in the path of an arc of the circle-like ellipse.
std::string Flags(std::string_view start, std::string_view end, std::int32_t yAxisMode = 2)
{
    const std::string trace =
        TraceOf(Ellipse({.ratio = "1", .start = start, .end = end}),
                [&](CDxfReadToQuillmar& converter) { converter.yAxisMode = yAxisMode; });
    return trace.substr(trace.find(", 0 ") + 4, 3);
}

bool IsWhole(std::string_view start, std::string_view end)
{
    const std::string trace = TraceOf(Ellipse({.ratio = "1", .start = start, .end = end}));
    return trace.find("qlmCreateEllipse") == 0;
}

} // namespace

TEST(Ellipse, OfParametersFrom0To2PiIsAnEllipseElement)
{
    EXPECT_EQ(TraceOf(Ellipse({.centerX = "3", .centerY = "4"})),
              Whole("10, 5, 3, -4") + Turned({.x = "3.000000", .y = "-4.000000"}));
}

TEST(Ellipse, OfParametersFrom0ToPiIsAnArc)
{
    EXPECT_EQ(TraceOf(Ellipse({.end = kPi})),
              Path("M 10.000000,-0.000000 A 10.000000,5.000000, 0 0,0 -10.000000,-0.000000") + Turned({}));
}

TEST(Ellipse, OfAQuarterEndsOnItsMinorAxis)
{
    EXPECT_EQ(TraceOf(Ellipse({.end = "1.5707963267948966"})),
              Path("M 10.000000,-0.000000 A 10.000000,5.000000, 0 0,0 0.000000,-5.000000") + Turned({}));
}

TEST(Ellipse, KeepsYWhenTheAxisModeIsNot2)
{
    EXPECT_EQ(UnflippedEllipse(Ellipse({.centerX = "3", .centerY = "4", .end = "1.5707963267948966"})),
              Path("M 13.000000,4.000000 A 10.000000,5.000000, 0 0,1 3.000000,9.000000") +
                  Turned({.x = "3.000000", .y = "4.000000", .degrees = "0.000000"}));
    EXPECT_EQ(UnflippedEllipse(Ellipse({.centerX = "3", .centerY = "4"})),
              Whole("10, 5, 3, 4") + Turned({.x = "3.000000", .y = "4.000000", .degrees = "0.000000"}));
}

TEST(Ellipse, ScalesItsCentreAndItsRadii)
{
    EXPECT_EQ(TraceOf(Ellipse({.centerX = "3", .centerY = "4", .end = "1.5707963267948966"}),
                      [](CDxfReadToQuillmar& converter) { converter.scale = 2; }),
              Path("M 26.000000,-8.000000 A 20.000000,10.000000, 0 0,0 6.000000,-18.000000") +
                  Turned({.x = "6.000000", .y = "-8.000000"}, {.width = "1.000000"}));
}

TEST(Ellipse, WithItsMajorAxisAlongYTurnsBy90Degrees)
{
    const std::string upright = Ellipse({.majorX = "0", .majorY = "10"});
    EXPECT_EQ(UnflippedEllipse(upright),
              Whole("10, 5, 0, 0") + Turned({.y = "0.000000", .degrees = "90.000000"}));
    EXPECT_EQ(TraceOf(upright), Whole("10, 5, 0, -0") + Turned({.degrees = "-90.000000"}));
}

// 3, 4, 12 is 13 long; its direction in the plane is that of (3, 4), 53.130102 degrees.
TEST(Ellipse, CountsZInTheMajorRadiusButNotInTheRotation)
{
    EXPECT_EQ(TraceOf(Ellipse({.majorX = "3", .majorY = "4", .majorZ = "12"})),
              Whole("13, 6.5, 0, -0") + Turned({.degrees = "-53.130102"}));
}

TEST(Ellipse, IsDrawnUnrotatedWhateverItsAxis)
{
    EXPECT_EQ(TraceOf(Ellipse({.majorX = "-6", .majorY = "8", .end = "1.5707963267948966"})),
              Path("M 10.000000,-0.000000 A 10.000000,5.000000, 0 0,0 0.000000,-5.000000") +
                  Turned({.degrees = "-126.869898"}));
}

// The point of a parameter t is (a cos t, b sin t); no way round by polar angles.
TEST(Ellipse, StartsAndEndsAtThePointsOfItsParameters)
{
    for (double start = 0.1; start < 6.2; start += 0.7)
        for (double end = 0.4; end < 6.2; end += 0.9) {
            if (std::fabs(start - end) < 0.01)
                continue; // a whole ellipse
            char startText[40], endText[40], data[300];
            std::snprintf(startText, sizeof(startText), "%.17g", start);
            std::snprintf(endText, sizeof(endText), "%.17g", end);
            std::snprintf(data, sizeof(data), "M %f,%f A 12.000000,3.000000, 0 ", 1 + 12 * std::cos(start),
                          -(2 + 3 * std::sin(start)));
            const std::string trace = TraceOf(Ellipse({.centerX = "1",
                                                       .centerY = "2",
                                                       .majorX = "12",
                                                       .ratio = "0.25",
                                                       .start = startText,
                                                       .end = endText}));
            EXPECT_NE(trace.find(data), std::string::npos) << trace << data;
            std::snprintf(data, sizeof(data), " %f,%f\"", 1 + 12 * std::cos(end), -(2 + 3 * std::sin(end)));
            EXPECT_NE(trace.find(data), std::string::npos) << trace << data;
        }
}

// Angles are compared between -pi and pi: 4.5 lies below 0, so the arc from 1 to it passes that range's end.
TEST(Ellipse, IsLargeOnlyWhereItsStartAngleIsAboveItsEndAngle)
{
    EXPECT_EQ(Flags("1", "4.5"), "1,0");
    EXPECT_EQ(Flags("3", "3.5"), "0,0");
    EXPECT_EQ(Flags("4.5", "4"), "1,0");
}

TEST(Ellipse, OfExactlyHalfATurnAcrossTheEndOfTheRangeIsLarge)
{
    EXPECT_EQ(Flags(kPi, "0"), "1,0");
    EXPECT_EQ(Flags("3.1415926535", "0"), "1,0");
    EXPECT_EQ(Flags(kPi, "-1e-9"), "0,0");
}

// The difference that is tested is the wrong way round: no arc without a wrap is ever large.
TEST(Ellipse, FromAngleMinus3To3IsNotLarge)
{
    EXPECT_EQ(Flags("3.283185307179586", "3"), "0,0");
    EXPECT_EQ(Flags("3.2", "3.1"), "0,0");
}

TEST(Ellipse, WritesEachOfTheFourFlagStrings)
{
    EXPECT_EQ(Flags("1", "4.5", 1), "1,1");
    EXPECT_EQ(Flags("0", "1", 1), "0,1");
    EXPECT_EQ(Flags("1", "4.5", 2), "1,0");
    EXPECT_EQ(Flags("0", "1", 2), "0,0");
}

TEST(Ellipse, IsWholeWhenItsAnglesDifferByLessThanAThousandth)
{
    EXPECT_TRUE(IsWhole("0", kTwoPi));
    EXPECT_TRUE(IsWhole("1", "1.0009"));
    EXPECT_TRUE(IsWhole("1.0009", "1"));
    EXPECT_TRUE(IsWhole("2", "2"));
    EXPECT_FALSE(IsWhole("1", "1.0011"));
    EXPECT_FALSE(IsWhole("1.0011", "1"));
    EXPECT_FALSE(IsWhole("0", "0.001")) << "a thousandth is not less";
}

// Just below a full turn the angles are 0 and nearly 2 pi: far apart, so it is an arc.
TEST(Ellipse, ThatEndsShortOfAFullTurnIsAnArcBetweenNearlyEqualPoints)
{
    EXPECT_FALSE(IsWhole("0", "6.2829"));
    EXPECT_TRUE(IsWhole("0", "6.2833")) << "beyond the turn";
}

TEST(Ellipse, WithoutAnyGroupIsWholeAndOfNoSize)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "ELLIPSE"}})), Whole("0, 0, 0, -0") + Turned({.degrees = "nan"}));
}

TEST(Ellipse, OfAZeroMajorAxisPrintsWhatTheDivisionGives)
{
    EXPECT_EQ(TraceOf(Ellipse({.majorX = "0"})), Whole("0, 0, 0, -0") + Turned({.degrees = "nan"}));
    EXPECT_EQ(TraceOf(Ellipse({.majorX = "0", .end = "1"})),
              Path("M nan,nan A 0.000000,0.000000, 0 0,0 nan,nan") + Turned({.degrees = "nan"}));
}

TEST(Ellipse, OfAnInfiniteMajorAxisPrintsWhatComesOut)
{
    EXPECT_EQ(TraceOf(Ellipse({.majorX = "1e400"})), Whole("inf, inf, 0, -0") + Turned({.degrees = "nan"}));
    EXPECT_EQ(TraceOf(Ellipse({.majorX = "1e400", .end = "1"})),
              Path("M nan,nan A inf,inf, 0 0,0 nan,nan") + Turned({.degrees = "nan"}));
}

TEST(Ellipse, OfInfiniteParametersIsAnArcOfNoNumbers)
{
    EXPECT_EQ(TraceOf(Ellipse({.start = "1e400", .end = "-1e400"})),
              Path("M nan,nan A 10.000000,5.000000, 0 0,0 nan,nan") + Turned({}));
}

TEST(Ellipse, OfAnInfiniteCentreKeepsItInItsAttributes)
{
    EXPECT_EQ(TraceOf(Ellipse({.centerX = "1e400", .centerY = "1e400"})),
              Whole("10, 5, inf, -inf") + Turned({.x = "inf", .y = "-inf"}));
}

// With a ratio of -0.5 the angle of 1.57 is -1.57: the end is where the mirrored ellipse's would.
TEST(Ellipse, OfANegativeRatioHasANegativeMinorRadius)
{
    EXPECT_EQ(TraceOf(Ellipse({.ratio = "-0.5", .end = "1.5707963267948966"})),
              Path("M 10.000000,0.000000 A 10.000000,-5.000000, 0 1,0 -0.000000,5.000000") + Turned({}));
}

TEST(Ellipse, DoesNotLookAtItsExtrusion)
{
    EXPECT_EQ(
        TraceOf(EntitiesSection(
            {{0, "ELLIPSE"}, {10, 5}, {11, 10}, {40, 0.5}, {42, kTwoPi}, {210, 0.5}, {220, 0.5}, {230, -1}})),
        Whole("10, 5, 5, -0") + Turned({.x = "5.000000"}));
}

TEST(Ellipse, ThatIsInvisibleIsHiddenLast)
{
    EXPECT_EQ(TraceOf(EntitiesSection({{0, "ELLIPSE"}, {11, 10}, {40, 0.5}, {42, kTwoPi}, {60, 1}})),
              Whole("10, 5, 0, -0") + Turned({}, {.hidden = true}));
}
