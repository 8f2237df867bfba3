// Two-line angular dimensions: where the lines meet, which sector is measured, and the marks.
//
// Most of them measure two lines that meet at X = (12, 20), y = 20 and x = 12, with the arc's own point 5
// away.
#include "support/DimensionTrace.h"
#include "support/Dimensions.h"

#include <gtest/gtest.h>

namespace {

struct Xy {
    std::string_view x;
    std::string_view y;
};

// D and B are the points of one line, A1 and A2 those of the other, A3 the arc's own point.
struct Angle {
    Xy a1, a2, d, b, a3;
    Xy t = {"14", "22"};
    std::string_view type = "0";
};

std::string PartsOf(const Angle& of)
{
    return Part("AcDbDimension",
                {{10, of.d.x}, {20, of.d.y}, {30, 9}, {11, of.t.x}, {21, of.t.y}, {31, 9}, {70, of.type}}) +
           Part("AcDb2LineAngularDimension", {{13, of.a1.x},
                                              {23, of.a1.y},
                                              {33, 9},
                                              {14, of.a2.x},
                                              {24, of.a2.y},
                                              {34, 9},
                                              {15, of.b.x},
                                              {25, of.b.y},
                                              {35, 9},
                                              {16, of.a3.x},
                                              {26, of.a3.y},
                                              {36, 9}});
}

std::string Drawn(const Angle& angle, std::int32_t yAxisMode, double scale = 1.0)
{
    return TraceOf(DimensionDrawing(PartsOf(angle)), [&](CDxfReadToQuillmar& converter) {
        converter.yAxisMode = yAxisMode;
        converter.scale = scale;
    });
}

// What an angle of the Y mode 1 is drawn as, with both ends of the arc as the trace writes floats.
std::string Trace(const Angle& angle, std::string_view path, std::string_view x, std::string_view start,
                  std::string_view end, std::string_view value, std::string_view textAt,
                  std::string_view rotation)
{
    const auto point = [](const Xy& of) { return std::string(of.x) + ", " + std::string(of.y); };
    return DimensionTrace()
        .Begin()
        .Path(path)
        .ColoredLine(point(angle.a1) + ", " + point(angle.a2), "#ff0000")
        .ColoredLine(point(angle.d) + ", " + point(angle.b), "#00ff00")
        .Circle(x)
        .Circle(start, "#ff0000")
        .Circle(end, "#00ff00")
        .Circle(point(angle.a3), "#0000ff")
        .Text(value, textAt, rotation)
        .End();
}

// The lines meet at (12, 20); A2 is farther than A1 (0 degrees), D farther than B (270): the bounds are 0,
// 90, 180 and 270.
Angle Crossing(Xy a3)
{
    return {.a1 = {"10", "20"}, .a2 = {"20", "20"}, .d = {"12", "10"}, .b = {"12", "25"}, .a3 = a3};
}

// From X to the text (14, 22) it is -135 degrees; 90 less is -225.
std::string CrossingTrace(const Angle& angle, std::string_view path, std::string_view start,
                          std::string_view end, std::string_view value)
{
    return Trace(angle, path, "12, 20", start, end, value, "14, 24", "-225");
}

constexpr const char* k0To90 = "M 17.000000,20.000000 A 5.000000,5.000000, 0 0,0 12.000000,25.000000";
constexpr const char* k90To180 = "M 12.000000,25.000000 A 5.000000,5.000000, 0 0,0 7.000000,20.000000";
constexpr const char* k180To270 = "M 7.000000,20.000000 A 5.000000,5.000000, 0 0,0 12.000000,15.000000";
constexpr const char* k270To360 = "M 12.000000,15.000000 A 5.000000,5.000000, 0 0,0 17.000000,20.000000";
constexpr const char* k360To90 = k0To90; // the same ends
constexpr const char* kNoArc = "M 0.000000,0.000000 A 5.000000,5.000000, 0 0,0 0.000000,0.000000";

} // namespace

TEST(AngularDimension, MeasuresTheSectorOfTheArcsOwnPoint)
{
    const Angle first = Crossing({"15", "24"}), second = Crossing({"9", "24"}), third = Crossing({"9", "16"});
    EXPECT_EQ(Drawn(first, 1), CrossingTrace(first, k0To90, "17, 20", "12, 25", "90.00"));
    EXPECT_EQ(Drawn(second, 1), CrossingTrace(second, k90To180, "12, 25", "7, 20", "90.00"));
    EXPECT_EQ(Drawn(third, 1), CrossingTrace(third, k180To270, "7, 20", "12, 15", "90.00"));
}

TEST(AngularDimension, AboveTheLargestBoundIsAnAngleOfZeroWithItsArcAtTheOrigin)
{
    const Angle above = Crossing({"15", "16"});
    EXPECT_EQ(Drawn(above, 1), CrossingTrace(above, kNoArc, "0, 0", "0, 0", "0.00"));
}

TEST(AngularDimension, OnABoundTakesTheSectorThatIsTestedFirst)
{
    const Angle at0 = Crossing({"17", "20"}), at180 = Crossing({"7", "20"}), at270 = Crossing({"12", "15"});
    EXPECT_EQ(Drawn(at0, 1), CrossingTrace(at0, k0To90, "17, 20", "12, 25", "90.00"));
    EXPECT_EQ(Drawn(at180, 1), CrossingTrace(at180, k90To180, "12, 25", "7, 20", "90.00"));
    EXPECT_EQ(Drawn(at270, 1), CrossingTrace(at270, k180To270, "7, 20", "12, 15", "90.00"));
}

// The drawing's 53 degrees are the document's 307, above the largest bound of 270.
TEST(AngularDimension, WithYDownIsMeasuredInTheDocumentAndSweepsTheOtherWay)
{
    EXPECT_EQ(Drawn(Crossing({"15", "24"}), 2),
              DimensionTrace()
                  .Begin()
                  .Path("M 0.000000,0.000000 A 5.000000,5.000000, 0 0,1 0.000000,0.000000")
                  .ColoredLine("10, -20, 20, -20", "#ff0000")
                  .ColoredLine("12, -10, 12, -25", "#00ff00")
                  .Circle("12, -20")
                  .Circle("0, 0", "#ff0000")
                  .Circle("0, 0", "#00ff00")
                  .Circle("15, -24", "#0000ff")
                  .Text("0.00", "14, -20", "45")
                  .End());
    EXPECT_EQ(Drawn(Crossing({"15", "16"}), 2),
              DimensionTrace()
                  .Begin()
                  .Path("M 17.000000,-20.000000 A 5.000000,5.000000, 0 0,1 12.000000,-15.000000")
                  .ColoredLine("10, -20, 20, -20", "#ff0000")
                  .ColoredLine("12, -10, 12, -25", "#00ff00")
                  .Circle("12, -20")
                  .Circle("17, -20", "#ff0000")
                  .Circle("12, -15", "#00ff00")
                  .Circle("15, -16", "#0000ff")
                  .Text("90.00", "14, -20", "45")
                  .End());
}

TEST(AngularDimension, InAModeThatIsNeither1Nor2HasYUpAndTheFlagsOfYUp)
{
    const Angle first = Crossing({"15", "24"});
    for (const std::int32_t mode : {0, 3, -2})
        EXPECT_EQ(Drawn(first, mode), CrossingTrace(first, k0To90, "17, 20", "12, 25", "90.00")) << mode;
}

TEST(AngularDimension, ScalesEverythingButTheMarks)
{
    EXPECT_EQ(Drawn(Crossing({"15", "24"}), 1, 2.0),
              DimensionTrace()
                  .Width("0.300000")
                  .Size("4.00")
                  .Begin()
                  .Path("M 34.000000,40.000000 A 10.000000,10.000000, 0 0,0 24.000000,50.000000")
                  .ColoredLine("20, 40, 40, 40", "#ff0000")
                  .ColoredLine("24, 20, 24, 50", "#00ff00")
                  .Circle("24, 40")
                  .Circle("34, 40", "#ff0000")
                  .Circle("24, 50", "#00ff00")
                  .Circle("30, 48", "#0000ff")
                  .Text("90.00", "28, 48", "-225")
                  .End());
}

// A1 is farther, at 180 degrees, whose opposite is 360 and not reduced: the bounds are 90, 180, 270 and 360.
TEST(AngularDimension, TakesTheFartherOfA1AndA2)
{
    Angle wrapped = Crossing({"15", "24"});
    wrapped.a1 = {"0", "20"};
    EXPECT_EQ(Drawn(wrapped, 1), CrossingTrace(wrapped, k360To90, "17, 20", "12, 25", "630.00"));
    Angle last = Crossing({"15", "16"});
    last.a1 = {"0", "20"};
    EXPECT_EQ(Drawn(last, 1), CrossingTrace(last, k270To360, "12, 15", "17, 20", "90.00"));
}

TEST(AngularDimension, TakesA2OfTwoPointsThatAreEquallyFar)
{
    Angle right = Crossing({"15", "24"});
    right.a1 = {"2", "20"};
    right.a2 = {"22", "20"};
    EXPECT_EQ(Drawn(right, 1), CrossingTrace(right, k0To90, "17, 20", "12, 25", "90.00"));
    Angle left = Crossing({"15", "24"});
    left.a1 = {"22", "20"};
    left.a2 = {"2", "20"};
    EXPECT_EQ(Drawn(left, 1), CrossingTrace(left, k360To90, "17, 20", "12, 25", "630.00"));
}

TEST(AngularDimension, TakesTheFartherOfDAndBAndBOfTwoThatAreEquallyFar)
{
    Angle angle = {
        .a1 = {"12", "10"}, .a2 = {"12", "25"}, .d = {"0", "20"}, .b = {"20", "20"}, .a3 = {"15", "24"}};
    EXPECT_EQ(Drawn(angle, 1), CrossingTrace(angle, k360To90, "17, 20", "12, 25", "630.00")); // D, at 180
    angle.d = {"4", "20"};
    EXPECT_EQ(Drawn(angle, 1), CrossingTrace(angle, k0To90, "17, 20", "12, 25", "90.00")); // B, at 0
    angle.d = {"22", "20"};
    angle.b = {"2", "20"};
    EXPECT_EQ(Drawn(angle, 1), CrossingTrace(angle, k360To90, "17, 20", "12, 25", "630.00"));
}

// The lines are at 45 and 90 degrees, so the bounds are 45, 90, 225 and 270, and the arc's own point at 11:
// 360 - 45 + 270 is shown, where the angle would be 135. The radius is the root of 26.
TEST(AngularDimension, BelowTheSmallestBoundShowsMoreThanAFullTurn)
{
    const Angle angle = {.a1 = {"8", "18"},
                         .a2 = {"14", "24"},
                         .d = {"10", "18"},
                         .b = {"10", "25"},
                         .a3 = {"15", "21"},
                         .t = {"10", "10"}};
    EXPECT_EQ(Drawn(angle, 1),
              Trace(angle, "M 10.000000,14.900980 A 5.099020,5.099020, 0 0,0 13.605551,23.605551", "10, 20",
                    "10, 14.900981", "13.605552, 23.60555", "585.00", "10, 12", "0"));
}

// Lines at 30 and 120 degrees through (100, 50), the arc's own point at 10 degrees and 10 away.
TEST(AngularDimension, BetweenBoundsOf30And300Shows630Degrees)
{
    const Angle angle = {.a1 = {"95.669872981077806", "47.5"},
                         .a2 = {"117.32050807568878", "60"},
                         .d = {"102.5", "45.669872981077806"},
                         .b = {"90", "67.320508075688778"},
                         .a3 = {"109.84807753012208", "51.736481776669303"},
                         .t = {"90", "40"},
                         .type = "2"};
    EXPECT_EQ(Drawn(angle, 1),
              DimensionTrace()
                  .Begin()
                  .Path("M 105.000000,41.339746 A 10.000000,10.000000, 0 0,0 108.660254,55.000000")
                  .ColoredLine("95.669876, 47.5, 117.32051, 60", "#ff0000")
                  .ColoredLine("102.5, 45.669872, 90, 67.32051", "#00ff00")
                  .Circle("100, 50")
                  .Circle("105, 41.339745", "#ff0000")
                  .Circle("108.660255, 55", "#00ff00")
                  .Circle("109.848076, 51.73648", "#0000ff")
                  .Text("630.00\u02DA", "90, 42", "-45")
                  .End());
}

// Both lines are seen from (0, 0) under 26.565 degrees, so the sectors are 0, 180 and 0 degrees wide; the
// arc's own point, at 90 and 6 away, is in the second.
TEST(AngularDimension, OfParallelLinesHasItsVertexAtTheOrigin)
{
    const Angle angle = {.a1 = {"0", "5"},
                         .a2 = {"10", "5"},
                         .d = {"0", "10"},
                         .b = {"20", "10"},
                         .a3 = {"0", "6"},
                         .t = {"3", "4"}};
    EXPECT_EQ(Drawn(angle, 1),
              Trace(angle, "M 5.366563,2.683282 A 6.000000,6.000000, 0 0,0 -5.366563,-2.683282", "0, 0",
                    "5.3665633, 2.6832817", "-5.3665633, -2.6832817", "180.00", "3, 6", "-216.87"));
}

// The lines meet at (12, 20), where both begin, but both numerators are 0 there. Seen from (0, 0): A2 is
// farther than A1 (45 degrees), B farther than D (64.36), the arc's own point at 63.43, the root of 500 away.
TEST(AngularDimension, OfLinesThatBeginAtOnePointHasItsVertexAtTheOrigin)
{
    const Angle angle = {.a1 = {"12", "20"},
                         .a2 = {"20", "20"},
                         .d = {"12", "20"},
                         .b = {"12", "25"},
                         .a3 = {"10", "20"},
                         .t = {"0", "-5"}};
    EXPECT_EQ(Drawn(angle, 1),
              Trace(angle, "M 15.811388,15.811388 A 22.360680,22.360680, 0 0,0 9.676161,20.158668", "0, 0",
                    "15.811388, 15.811388", "9.676161, 20.158669", "19.36", "0, -3", "0"));
}

TEST(AngularDimension, OfSlantingLinesThatBeginAtOnePointHasItsVertexAtTheOriginToo)
{
    const Angle angle = {.a1 = {"12", "20"},
                         .a2 = {"20", "26"},
                         .d = {"12", "20"},
                         .b = {"10", "25"},
                         .a3 = {"10", "20"},
                         .t = {"0", "-5"}};
    EXPECT_NE(Drawn(angle, 1).find("qlmCreateCircle(ctx, \"\", 0.5, 0, 0, 0, 0)"), std::string::npos);
}

// One line begins on the other, as steep as it and the other way: one numerator alone is 0.
TEST(AngularDimension, OfALineThatBeginsOnTheOtherHasItsVertexThere)
{
    const Angle angle = {.a1 = {"10", "10"},
                         .a2 = {"20", "15"},
                         .d = {"0", "15"},
                         .b = {"20", "5"},
                         .a3 = {"17", "10"},
                         .t = {"0", "-5"}};
    EXPECT_NE(Drawn(angle, 1).find("qlmCreateCircle(ctx, \"\", 0.5, 10, 10, 0, 0)"), std::string::npos);
}

TEST(AngularDimension, OfALineAcrossAnAxisThatBeginsOnTheOtherHasItsVertexThere)
{
    const Angle level = {.a1 = {"5", "5"},
                         .a2 = {"-5", "5"},
                         .d = {"5", "8"},
                         .b = {"5", "2"},
                         .a3 = {"7", "7"},
                         .t = {"0", "-5"}};
    const Angle upright = {.a1 = {"5", "5"},
                           .a2 = {"5", "-5"},
                           .d = {"8", "5"},
                           .b = {"2", "5"},
                           .a3 = {"7", "7"},
                           .t = {"0", "-5"}};
    for (const Angle& angle : {level, upright})
        EXPECT_NE(Drawn(angle, 1).find("qlmCreateCircle(ctx, \"\", 0.5, 5, 5, 0, 0)"), std::string::npos);
}

TEST(AngularDimension, OfLinesThatNearlyAreParallelStillMeet)
{
    // y = 0 and y = (x - 1000) / 1000 meet at (1000, 0).
    const Angle angle = {.a1 = {"0", "0"},
                         .a2 = {"1", "0"},
                         .d = {"0", "-1"},
                         .b = {"1", "-0.999"},
                         .a3 = {"1000", "7"},
                         .t = {"1000", "-5"}};
    EXPECT_NE(Drawn(angle, 1).find("qlmCreateCircle(ctx, \"\", 0.5, 1000, 0, 0, 0)"), std::string::npos);
}

// The value is a text of two decimals at least; the sign is U+02DA and only for a type of exactly 2.
TEST(AngularDimension, ShowsTheSignForATypeOfExactly2)
{
    for (const auto& [type, value] : {std::pair("2", "90.00\u02DA"),
                                      {"0", "90.00"},
                                      {"34", "90.00"},
                                      {"162", "90.00"},
                                      {"-2", "90.00"},
                                      {"3", "90.00"},
                                      {"2.9", "90.00\u02DA"}}) {
        Angle angle = Crossing({"15", "24"});
        angle.type = type;
        EXPECT_EQ(Drawn(angle, 1), CrossingTrace(angle, k0To90, "17, 20", "12, 25", value)) << type;
    }
}

TEST(AngularDimension, WhoseArcPointIsItsVertexHasARadiusOfZero)
{
    const Angle angle = Crossing({"12", "20"});
    EXPECT_EQ(Drawn(angle, 1),
              CrossingTrace(angle, "M 12.000000,20.000000 A 0.000000,0.000000, 0 0,0 12.000000,20.000000",
                            "12, 20", "12, 20", "90.00"));
}

// Seen from (0, 0), where the vertex of parallel lines is, the squares of the distances of A1 and A2 differ
// in their last bit and the distances do not: A2 is taken, at 0 degrees. A1 would give more than a full turn.
TEST(AngularDimension, ComparesDistancesAndNotTheirSquares)
{
    const Angle angle = {.a1 = {"-1", "1.4901161193847656e-08"},
                         .a2 = {"1", "0"},
                         .d = {"0", "10"},
                         .b = {"2", "9.9999999850988388"},
                         .a3 = {"1", "1"}};
    EXPECT_NE(Drawn(angle, 1).find("\"78.69\""), std::string::npos) << Drawn(angle, 1);
}
