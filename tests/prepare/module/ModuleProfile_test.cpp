// What is written for the module, as the module reads it: without a message, and the calls are what is meant.
// The numbers in names are those of docs/quirks.md.
#include "support/Import.h"
#include "support/WrittenDrawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace prepare {
namespace {

constexpr double kPi = std::numbers::pi;

// The calls that follow a stroke's creation: width, colour (red), dashes.
std::string StrokeCalls(const std::string& node, const std::string& dashes = "")
{
    return "qlmSetAttributeByNode(ctx, " + node + ", \"stroke-width\", \"0.250000\")\n" +
           "qlmSetAttributeByNode(ctx, " + node + ", \"stroke\", \"RGB(255,0,0)\")\n" +
           "qlmSetAttributeByNode(ctx, " + node + ", \"stroke-dasharray\", \"" + dashes + "\")\n";
}

class ModuleProfile : public testing::Test {
protected:
    WrittenDrawing written;
    const Style red = StyleOf(1);

    PlainSink& Model() { return written.Model(); }

    // All calls; a message would be one of them.
    std::string Calls() { return TraceOf(written.Text()); }

    // The calls that create something, without their styles.
    std::string Created() { return Without("qlmSet", Calls()); }
};

TEST_F(ModuleProfile, EmptyDrawingHasNoCalls)
{
    EXPECT_EQ(Calls(), "");
}

TEST_F(ModuleProfile, DashesAreScaled35)
{
    Style style = StyleOf(3, 50);
    style.lineType = written.Dashed({5, -2.5});
    style.lineTypeScale = 2;
    Model().Line(style, {0, 0}, {10, 5.5});
    EXPECT_EQ(Calls(), R"calls(qlmCreateLine(ctx, "", 0, -0, 10, -5.5, 0, 0) = n1
qlmSetAttributeByNode(ctx, n1, "stroke-width", "0.500000")
qlmSetAttributeByNode(ctx, n1, "stroke", "RGB(0,255,0)")
qlmSetAttributeByNode(ctx, n1, "stroke-dasharray", "10.000000,5.000000")
)calls");
}

TEST_F(ModuleProfile, ADotIsAsLongAsItsStrokeIsWide)
{
    Model().Line(StyleOf(1, 100), {5, 5}, {5, 5});
    Model().Line(StyleOf(1, 0), {7, 5}, {7, 5});
    EXPECT_EQ(Created(), "qlmCreateLine(ctx, \"\", 4.5, -5, 5.5, -5, 0, 0) = n1\n"
                         "qlmCreateLine(ctx, \"\", 6.875, -5, 7.125, -5, 0, 0) = n2\n");
}

TEST_F(ModuleProfile, LineTypesDifferByScaleAndDotsByWidth37)
{
    Style style = red;
    style.lineType = written.Dashed({2, -1, 0, -1});
    Model().Line(style, {0, 0}, {1, 0});
    style.lineTypeScale = 3;
    Model().Line(style, {0, 0}, {2, 0});
    style.lineTypeScale = 1;
    Model().Line(style, {0, 0}, {3, 0});
    EXPECT_EQ(Calls(), "qlmCreateLine(ctx, \"\", 0, -0, 1, -0, 0, 0) = n1\n" +
                           StrokeCalls("n1", "2.000000,1.000000,0.250000,1.000000") +
                           "qlmCreateLine(ctx, \"\", 0, -0, 2, -0, 0, 0) = n2\n" +
                           StrokeCalls("n2", "6.000000,3.000000,0.250000,3.000000") +
                           "qlmCreateLine(ctx, \"\", 0, -0, 3, -0, 0, 0) = n3\n" +
                           StrokeCalls("n3", "2.000000,1.000000,0.250000,1.000000"));
}

TEST_F(ModuleProfile, ColoursAreWhatTheyWere24And25)
{
    Style style = red;
    style.colour = {true, 0xFF8001, 7};
    Model().Line(style, {0, 0}, {1, 0});
    style.colour = {true, 0, 7};
    Model().Line(style, {0, 0}, {2, 0});
    style.colour = {false, 0, 7};
    Model().Line(style, {0, 0}, {3, 0});
    const std::string calls = Calls();
    EXPECT_NE(calls.find("n1, \"stroke\", \"RGB(255,128,1)\""), std::string::npos) << calls;
    EXPECT_NE(calls.find("n2, \"stroke\", \"RGB(255,255,255)\""), std::string::npos) << calls;
    EXPECT_NE(calls.find("n3, \"stroke\", \"RGB(255,255,255)\""), std::string::npos) << calls;
}

TEST_F(ModuleProfile, WidthsAreWeights32And34)
{
    written.settings.unitsPerMm = 10;
    Style style = StyleOf(1, 50);
    Model().Line(style, {0, 0}, {1, 0});
    style.width = 1.75;
    Model().Line(style, {0, 0}, {2, 0});
    Model().Line(StyleOf(1, 1), {0, 0}, {3, 0});
    const std::string calls = Calls();
    EXPECT_NE(calls.find("n1, \"stroke-width\", \"5.000000\""), std::string::npos) << calls;
    EXPECT_NE(calls.find("n2, \"stroke-width\", \"1.750000\""), std::string::npos) << calls;
    EXPECT_NE(calls.find("n3, \"stroke-width\", \"0.250000\""), std::string::npos) << calls; // the thinnest
}

TEST_F(ModuleProfile, TheFormThatIsReadFasterIsTheSameDrawing)
{
    const auto callsIn = [&](bool isReadAtOnce) {
        WrittenDrawing drawing;
        drawing.settings.isReadAtOnce = isReadAtOnce;
        Style dashed = StyleOf(3, 50);
        dashed.lineType = drawing.Dashed({5, -2.5});
        drawing.Model().Line(dashed, {0, -7}, {10, 5.5});
        drawing.Model().Circle(red, {1, 2}, 3.5);
        drawing.Model().Arc(red, {123456, -2}, 40, 0.25, 1.5);
        return TraceOf(drawing.Text());
    };
    EXPECT_EQ(callsIn(true), callsIn(false));
    EXPECT_NE(callsIn(true).find("qlmCreateCircle(ctx, \"\", 3.5, 1, -2, 0, 0)"), std::string::npos);
}

TEST_F(ModuleProfile, AnglesHaveTheDecimalsThatTheRadiusNeeds)
{
    const auto anglesAt = [](double radius) {
        WrittenDrawing drawing;
        drawing.Model().Arc(StyleOf(1), {0, 0}, radius, 12.3456789 * kPi / 180, 65.4321 * kPi / 180);
        const std::string entities = drawing.Entities();
        return entities.substr(std::min(entities.find(" 50 ") + 1, entities.size()));
    };
    EXPECT_EQ(anglesAt(0.003), "50 12 51 65");
    EXPECT_EQ(anglesAt(0.03), "50 12.3 51 65.4");
    EXPECT_EQ(anglesAt(0.3), "50 12.35 51 65.43");
    EXPECT_EQ(anglesAt(30), "50 12.3457 51 65.4321");
}

TEST_F(ModuleProfile, CircleIsACircle)
{
    Model().Circle(red, {1, 2}, 3.5);
    EXPECT_EQ(Calls(), "qlmCreateCircle(ctx, \"\", 3.5, 1, -2, 0, 0) = n1\n"
                       "qlmSetAttributeByNode(ctx, n1, \"fill-opacity\", \"0\")\n" +
                           StrokeCalls("n1"));
}

TEST_F(ModuleProfile, TwoHalfCirclesThatTurnTheSameWayAreACircle)
{
    Model().Polyline(red, std::vector<PlainVertex>{{{-1, 0}, 1}, {{1, 0}, 1}}, true);
    EXPECT_EQ(Created(), "qlmCreateCircle(ctx, \"\", 1, 0, -0, 0, 0) = n1\n");
}

TEST_F(ModuleProfile, TwoHalfCirclesThatTurnOppositeWaysAreNone)
{
    Model().Polyline(red, std::vector<PlainVertex>{{{-1, 0}, 1}, {{1, 0}, -1}}, true);
    EXPECT_EQ(Created().find("qlmCreateCircle"), std::string::npos);
}

TEST_F(ModuleProfile, ArcsEndWhereTheyShould50)
{
    Model().Arc(red, {0, 0}, 10, 0, kPi / 2);
    Model().Arc(red, {0, 0}, 10, kPi / 2, 2 * kPi);
    Model().Arc(red, {0, 0}, 10, 0, 2 * kPi);
    Model().Arc(red, {0, 0}, 10, -kPi, kPi - 0.001); // nearly a turn; angles have four decimals
    EXPECT_EQ(
        Created(),
        R"calls(qlmCreatePath(ctx, "", "M 10.000000,-0.000000 A 10.000000,10.000000, 0 0,0 0.000000,-10.000000", 0, 0) = n1
qlmCreatePath(ctx, "", "M 0.000000,-10.000000 A 10.000000,10.000000, 0 1,0 10.000000,-0.000000", 0, 0) = n2
qlmCreateCircle(ctx, "", 10, 0, -0, 0, 0) = n3
qlmCreatePath(ctx, "", "M -10.000000,-0.000000 A 10.000000,10.000000, 0 0,0 9.999999,0.004992", 0, 0) = n4
qlmCreatePath(ctx, "", "M 9.999999,0.004992 A 10.000000,10.000000, 0 0,0 -9.999995,-0.010001", 0, 0) = n5
)calls");
}

TEST_F(ModuleProfile, EllipticalArcsAreOnTheRightSide52)
{
    Model().Ellipse(red, {0, 0}, {4, 0}, 0.5, -3, 1);        // large, and the module would not say so
    Model().Ellipse(red, {0, 0}, {4, 0}, 0.5, kPi / 2, 5.5); // it does where the parameters wrap
    Model().Ellipse(red, {0, 0}, {4, 0}, 0.5, 0, 2 * kPi);   // whole
    Model().Ellipse(red, {0, 0}, {4, 0}, 0.5, 1, 1.0005);    // the module would draw it whole
    const std::string created = Created();
    EXPECT_EQ(created.find("qlmCreatePath"), 0u) << created;
    std::size_t paths = 0, large = 0, whole = 0, lines = 0;
    for (std::size_t at = 0; (at = created.find("qlmCreate", at)) != std::string::npos; ++at) {
        const std::string call = created.substr(at, created.find('\n', at) - at);
        paths += call.find("Path") != std::string::npos ? 1 : 0;
        large += call.find(" 0 1,0 ") != std::string::npos ? 1 : 0;
        whole += call.find("Ellipse") != std::string::npos ? 1 : 0;
        lines += call.find("Line") != std::string::npos ? 1 : 0;
    }
    EXPECT_EQ(paths, 3u) << created; // two halves of the first, the second
    EXPECT_EQ(large, 1u) << created;
    EXPECT_EQ(whole, 1u) << created;
    EXPECT_EQ(lines, 1u) << created;
}

TEST_F(ModuleProfile, PolylinesAreClosedAndRound56And57)
{
    const PlainVertex triangle[] = {{{0, 0}, 0}, {{5, 0}, 0}, {{5, 0}, 0}, {{5, 5}, 0}};
    Model().Polyline(red, triangle, false);
    Model().Polyline(red, triangle, true);
    const PlainVertex half[] = {{{0, 0}, 1}, {{10, 0}, 1}};
    Model().Polyline(red, half, false);
    Model().Polyline(red, half, true);
    const PlainVertex point[] = {{{3, 3}, 0}, {{3, 3}, 0}};
    Model().Polyline(red, point, true);
    EXPECT_EQ(
        Created(),
        R"calls(qlmCreatePolyline(ctx, "", "0.000000,-0.000000 5.000000,-0.000000 5.000000,-5.000000", 0, 0) = n1
qlmCreatePolygon(ctx, "", "0.000000,-0.000000 5.000000,-0.000000 5.000000,-5.000000", 0, 0) = n2
qlmCreatePath(ctx, "", "M 0.000000,-0.000000 A 5.000000,5.000000, 0 1,0 10.000000,-0.000000", 0, 0) = n3
qlmCreateCircle(ctx, "", 5, 5, -0, 0, 0) = n4
)calls");
}

TEST_F(ModuleProfile, BulgesAreChordsNearEnough56)
{
    written.settings.tolerance = 0.5;
    const PlainVertex vertices[] = {{{0, 0}, -1}, {{10, 0}, 0}, {{10, -5}, 0}};
    Model().Polyline(red, vertices, false);
    // Half a circle of radius 5 in four: each chord is 0.38 from it.
    EXPECT_EQ(Created(),
              "qlmCreatePolyline(ctx, \"\", \"0.000000,-0.000000 1.464500,-3.535500 5.000000,-5.000000 "
              "8.535500,-3.535500 10.000000,-0.000000 10.000000,5.000000\", 0, 0) = n1\n");
}

TEST_F(ModuleProfile, UprightTextIsAtItsPoint62)
{
    Model().Text(red, {"Door", {1, 2}, {2, 0}, {0, 2}, Anchor::Start, kNoName});
    Model().Text(red, {"  to  ", {1, 2}, {2, 0}, {0, 2}, Anchor::Middle, kNoName});
    Model().Text(red, {"end", {1, 2}, {2, 0}, {0, 2}, Anchor::End, kNoName});
    EXPECT_EQ(Calls(), R"calls(qlmCreateText(ctx, "", 1, -2, 0, 0, "Door", 0, 0) = n1
qlmSetAttributeByNode(ctx, n1, "font-size", "2.78")
qlmSetAttributeByNode(ctx, n1, "stroke", "RGB(255,0,0)")
qlmCreateText(ctx, "", 1, -2, 0, 0, "  to  ", 0, 0) = n2
qlmSetAttributeByNode(ctx, n2, "font-size", "2.78")
qlmSetAttributeByNode(ctx, n2, "stroke", "RGB(255,0,0)")
qlmSetAttributeByNode(ctx, n2, "text-anchor", "middle")
qlmCreateText(ctx, "", 1, -2, 0, 0, "end", 0, 0) = n3
qlmSetAttributeByNode(ctx, n3, "font-size", "2.78")
qlmSetAttributeByNode(ctx, n3, "stroke", "RGB(255,0,0)")
qlmSetAttributeByNode(ctx, n3, "text-anchor", "end")
)calls");
}

TEST_F(ModuleProfile, OtherTextsAreInBlocksAndEqualOnesShareThem63)
{
    Model().Text(red, {"up", {1, 2}, {0, 2}, {-2, 0}, Anchor::Start, kNoName});
    Model().Text(red, {"up", {3, 4}, {-4, 0}, {0, 2}, Anchor::Start, kNoName});
    EXPECT_EQ(Calls(), R"calls(qlmSetCurrentSvgNode(ctx, 0)
qlmCreateSymbol(ctx, "PLEXORN_TEXT_1") = n1
qlmSetCurrentSvgNode(ctx, n1)
qlmCreateText(ctx, "", 0, 0, 0, 0, "up", 0, 0) = n2
qlmSetAttributeByNode(ctx, n2, "font-size", "2.78")
qlmSetAttributeByNode(ctx, n2, "stroke", "RGB(255,0,0)")
qlmSetCurrentSvgNode(ctx, 0)
qlmCreateUse(ctx, "", 0, 0, "PLEXORN_TEXT_1", "hmi", 1, -2) = n3
qlmSetAttributeByNode(ctx, n3, "rotate", "-90.000000")
qlmCreateUse(ctx, "", 0, 0, "PLEXORN_TEXT_1", "hmi", 3, -4) = n4
qlmSetAttributeByNode(ctx, n4, "rotate", "-180.000000")
qlmSetAttributeByNode(ctx, n4, "scale-x", "2.000000")
qlmSetAttributeByNode(ctx, n4, "scale-y", "-1.000000")
)calls");
}

TEST_F(ModuleProfile, StretchedTextStartsWhereItsWidthPutsIt)
{
    // "up" is 1.566 times as wide as capitals are high, 2 in the block; the use makes it half as wide.
    Model().Text(red, {"up", {1, 2}, {1, 0}, {0, 2}, Anchor::Middle, kNoName});
    Model().Text(red, {"up", {1, 2}, {0, 4}, {-2, 0}, Anchor::End, kNoName});
    const std::string calls = Created();
    EXPECT_NE(calls.find("qlmCreateSymbol(ctx, \"PLEXORN_TEXT_MIDDLE_1\")"), std::string::npos) << calls;
    EXPECT_NE(calls.find("qlmCreateSymbol(ctx, \"PLEXORN_TEXT_END_2\")"), std::string::npos) << calls;
    EXPECT_NE(calls.find("qlmCreateText(ctx, \"\", -1.566, 0,"), std::string::npos) << calls;
    EXPECT_NE(calls.find("qlmCreateText(ctx, \"\", -3.132, 0,"), std::string::npos) << calls;
    EXPECT_EQ(calls.find("text-anchor"), std::string::npos) << calls;
}

TEST_F(ModuleProfile, TextThatIsHardlyStretchedOrOfUnknownWidthKeepsItsAnchor)
{
    Model().Text(red, {"up", {1, 2}, {2.02, 0}, {0, 2}, Anchor::Middle, kNoName});
    Model().Text(red, {"\xE0\xB8\x81", {1, 2}, {1, 0}, {0, 2}, Anchor::Middle, kNoName}); // Thai
    const std::string calls = Calls();
    EXPECT_EQ(calls.find("PLEXORN_TEXT_MIDDLE_"), std::string::npos) << calls;
    const std::size_t first = calls.find("\"text-anchor\", \"middle\"");
    ASSERT_NE(first, std::string::npos) << calls;
    EXPECT_NE(calls.find("\"text-anchor\", \"middle\"", first + 1), std::string::npos) << calls;
}

TEST_F(ModuleProfile, SlantedTextIsTurnedScaledAndTurned63)
{
    Model().Text(red, {"lean", {1, 2}, {2, 0}, {1, 2}, Anchor::Start, kNoName});
    // Half the angle of the shear, and the golden ratio: the axes of a shear by one half.
    EXPECT_EQ(Without("qlmSetCurrent", Calls()), R"calls(qlmCreateSymbol(ctx, "PLEXORN_TEXT_1") = n1
qlmCreateText(ctx, "", 0, 0, 0, 0, "lean", 0, 0) = n2
qlmSetAttributeByNode(ctx, n2, "font-size", "2.78")
qlmSetAttributeByNode(ctx, n2, "stroke", "RGB(255,0,0)")
qlmCreateSymbol(ctx, "PLEXORN_TEXT_2") = n3
qlmCreateUse(ctx, "", 0, 0, "PLEXORN_TEXT_1", "hmi", 0, -0) = n4
qlmSetAttributeByNode(ctx, n4, "rotate", "-307.981873")
qlmCreateUse(ctx, "", 0, 0, "PLEXORN_TEXT_2", "hmi", 1, -2) = n5
qlmSetAttributeByNode(ctx, n5, "rotate", "-37.981876")
qlmSetAttributeByNode(ctx, n5, "scale-x", "1.280776")
qlmSetAttributeByNode(ctx, n5, "scale-y", "0.780776")
)calls");
}

TEST_F(ModuleProfile, RunsOfALineAreInABlockInTheirOrder)
{
    const Style blue = StyleOf(5);
    const std::vector<PlainRun> runs = {
        {red, {"one", {10, 2}, {2, 0}, {0, 2}, Anchor::Middle, kNoName}, 2},
        {blue, {"two", {16, 2}, {4, 0}, {0, 4}, Anchor::Middle, kNoName}, 0},
    };
    Model().LineOfText({12, 2}, 0, runs);
    Model().LineOfText({12, 2}, 0, runs);
    EXPECT_EQ(Without("qlmSetCurrent", Calls()), R"calls(qlmCreateSymbol(ctx, "PLEXORN_TEXT_1") = n1
qlmCreateText(ctx, "", -2, 0, 0, 0, "one  ", 0, 0) = n2
qlmSetAttributeByNode(ctx, n2, "font-size", "2.78")
qlmSetAttributeByNode(ctx, n2, "stroke", "RGB(255,0,0)")
qlmSetAttributeByNode(ctx, n2, "text-anchor", "middle")
qlmCreateText(ctx, "", 4, 0, 0, 0, "two", 0, 0) = n3
qlmSetAttributeByNode(ctx, n3, "font-size", "5.56")
qlmSetAttributeByNode(ctx, n3, "stroke", "RGB(0,0,255)")
qlmSetAttributeByNode(ctx, n3, "text-anchor", "middle")
qlmCreateUse(ctx, "", 0, 0, "PLEXORN_TEXT_1", "hmi", 12, -2) = n4
qlmCreateUse(ctx, "", 0, 0, "PLEXORN_TEXT_1", "hmi", 12, -2) = n5
)calls");
}

TEST_F(ModuleProfile, RunsOfATurnedLineAreTurnedTogether)
{
    const std::vector<PlainRun> runs = {
        {red, {"one", {1, 2}, {0, 2}, {-1, 0}, Anchor::Start, kNoName}, 0},
        {red, {"two", {1, 8}, {0, 4}, {-2, 0}, Anchor::Start, kNoName}, 0},
    };
    Model().LineOfText({1, 2}, 0, runs);
    // The block is in heights of the letters, 1, and the use is twice as wide.
    const std::string calls = Created();
    EXPECT_NE(calls.find("qlmCreateText(ctx, \"\", 3, 0, 0, 0, \"two\""), std::string::npos) << calls;
    EXPECT_NE(Calls().find("\"rotate\", \"-90.000000\""), std::string::npos);
    EXPECT_NE(Calls().find("\"scale-x\", \"2.000000\""), std::string::npos);
}

TEST_F(ModuleProfile, ARaisedRunIsRaisedInItsBlock)
{
    const std::vector<PlainRun> runs = {
        {red, {"m", {0, 2}, {0, 2}, {-2, 0}, Anchor::Start, kNoName}, 0},
        {red, {"2", {-1, 6}, {0, 1}, {-1, 0}, Anchor::Start, kNoName}, 0},
    };
    Model().LineOfText({0, 2}, 0, runs);
    const std::string calls = Created();
    EXPECT_NE(calls.find("qlmCreateText(ctx, \"\", 0, 0, 0, 0, \"m\""), std::string::npos) << calls;
    EXPECT_NE(calls.find("qlmCreateText(ctx, \"\", 4, -1, 0, 0, \"2\""), std::string::npos) << calls;
}

TEST_F(ModuleProfile, RunsOfAStretchedLineStartWhereItsWidthPutsThem)
{
    // "up" is 1.566 times as wide as capitals are high. The use makes all half as wide.
    const std::vector<PlainRun> runs = {
        {red, {"up", {3, 2}, {1, 0}, {0, 2}, Anchor::Middle, kNoName}, 0},
        {red, {"up", {6, 2}, {2, 0}, {0, 4}, Anchor::Middle, kNoName}, 0},
    };
    Model().LineOfText({5, 2}, 0, runs);
    const std::string calls = Created();
    EXPECT_NE(calls.find("qlmCreateSymbol(ctx, \"PLEXORN_TEXT_MIDDLE_1\")"), std::string::npos) << calls;
    EXPECT_NE(calls.find("qlmCreateText(ctx, \"\", -5.566, 0,"), std::string::npos) << calls;
    EXPECT_NE(calls.find("qlmCreateText(ctx, \"\", -1.132, 0,"), std::string::npos) << calls;
    EXPECT_EQ(calls.find("text-anchor"), std::string::npos) << calls;
}

TEST_F(ModuleProfile, ALineThatIsSpreadEndsAtItsOriginAndSaysHowWideItsBlanksAre)
{
    // The letters are two high, so that the font's size is 2.78, and a blank is wider by half of 2.
    const std::vector<PlainRun> runs = {
        {red, {"one", {4, 2}, {2, 0}, {0, 2}, Anchor::Start, kNoName}, 1},
        {red, {"two", {10, 2}, {2, 0}, {0, 2}, Anchor::Start, kNoName}, 0},
    };
    Model().LineOfText({14, 2}, 0.5, runs);
    EXPECT_EQ(Without("qlmSet", Calls()), R"calls(qlmCreateSymbol(ctx, "PLEXORN_TEXT_SPREAD_360_1") = n1
qlmCreateText(ctx, "", -10, 0, 0, 0, "one ", 0, 0) = n2
qlmCreateText(ctx, "", -4, 0, 0, 0, "two", 0, 0) = n3
qlmCreateUse(ctx, "", 0, 0, "PLEXORN_TEXT_SPREAD_360_1", "hmi", 14, -2) = n4
)calls");
}

TEST_F(ModuleProfile, RunsThatCannotBeSeenTogetherAreTexts)
{
    Model().LineOfText({0, 0}, 0,
                       std::vector<PlainRun>{
                           {red, {"one", {0, 0}, {2, 0}, {0, 2}, Anchor::Start, kNoName}, 0},
                           {red, {"two", {6, 0}, {2e-4, 0}, {0, 2e-4}, Anchor::Start, kNoName}, 0},
                       });
    EXPECT_EQ(Calls().find("qlmCreateSymbol"), std::string::npos);
}

TEST_F(ModuleProfile, LongTextsAreCutAndReported5)
{
    Model().Text(red, {std::string(1001, 'x'), {1, 2}, {2, 0}, {0, 2}, Anchor::Start, kNoName});
    EXPECT_NE(Calls().find('"' + std::string(1000, 'x') + '"'), std::string::npos);
    ASSERT_EQ(written.report.Entries().size(), 1u);
    EXPECT_EQ(written.report.Entries().begin()->first,
              (Report::Key{Finding::Cut, "TEXT", "its letters beyond 1000 bytes are left out"}));
}

TEST_F(ModuleProfile, InsertsAreMirroredTurnedAndMoved)
{
    const std::size_t outer = written.Writer().NewBlock("Outer");
    const std::size_t inner = written.Writer().NewBlock("Inner");
    const std::size_t empty = written.Writer().NewBlock("Empty");
    written.Writer().NewBlock("Unused");
    Model().Insert(outer, {3, 4}, kPi / 6, true);
    Model().Insert(empty, {3, 4}, 0, false);
    written.Writer().Block(outer).Line(red, {0, 0}, {1, 1});
    written.Writer().Block(outer).Insert(inner, {1, 1}, 0, false);
    written.Writer().Block(inner).Line(red, {0, 0}, {2, 0});
    EXPECT_EQ(Without("qlmSetAttributeByNode(ctx, n4", Without("qlmSetAttributeByNode(ctx, n2", Calls())),
              R"calls(qlmSetCurrentSvgNode(ctx, 0)
qlmCreateSymbol(ctx, "PLEXORN_PART_2") = n1
qlmSetCurrentSvgNode(ctx, n1)
qlmCreateLine(ctx, "", 0, -0, 2, -0, 0, 0) = n2
qlmSetCurrentSvgNode(ctx, 0)
qlmSetCurrentSvgNode(ctx, 0)
qlmCreateSymbol(ctx, "PLEXORN_PART_1") = n3
qlmSetCurrentSvgNode(ctx, n3)
qlmCreateLine(ctx, "", 0, -0, 1, -1, 0, 0) = n4
qlmCreateUse(ctx, "", 0, 0, "PLEXORN_PART_2", "hmi", 1, -1) = n5
qlmSetCurrentSvgNode(ctx, 0)
qlmCreateUse(ctx, "", 0, 0, "PLEXORN_PART_1", "hmi", 3, -4) = n6
qlmSetAttributeByNode(ctx, n6, "rotate", "-30.000000")
qlmSetAttributeByNode(ctx, n6, "scale-y", "-1.000000")
)calls");
}

TEST_F(ModuleProfile, BlocksFarFromTheirOriginGetOneOfTheirOwn45)
{
    const std::size_t block = written.Writer().NewBlock("Far");
    written.Writer().Block(block).Line(red, {1'000'000, 2'000'000}, {1'000'010, 2'000'004.5});
    Model().Insert(block, {-1'000'000, -2'000'000}, 0, false);
    Model().Insert(block, {-2'000'000, 1'000'000}, -kPi / 2, false);
    EXPECT_EQ(Created(), R"calls(qlmCreateSymbol(ctx, "PLEXORN_PART_1") = n1
qlmCreateLine(ctx, "", 0, -0, 10, -4.5, 0, 0) = n2
qlmCreateUse(ctx, "", 0, 0, "PLEXORN_PART_1", "hmi", 0, -0) = n3
qlmCreateUse(ctx, "", 0, 0, "PLEXORN_PART_1", "hmi", 0, -0) = n4
)calls");
}

TEST_F(ModuleProfile, DrawingsFarFromTheOriginAreWrapped45)
{
    written.settings.extents = {};
    written.settings.extents.Add({2'500'000, 5'600'000});
    written.settings.extents.Add({2'500'020, 5'600'010});
    written.settings.thinnest = 0.01;
    written.settings.thinnestWeight = 0;
    Model().Line(StyleOf(1, 1), {2'500'000, 5'600'000}, {2'500'020, 5'600'010.001});
    EXPECT_EQ(Calls(), R"calls(qlmSetCurrentSvgNode(ctx, 0)
qlmCreateSymbol(ctx, "PLEXORN_PART_W1") = n1
qlmSetCurrentSvgNode(ctx, n1)
qlmCreateLine(ctx, "", -10000, 5000, 10000, -5001, 0, 0) = n2
qlmSetAttributeByNode(ctx, n2, "stroke-width", "10.000000")
qlmSetAttributeByNode(ctx, n2, "stroke", "RGB(255,0,0)")
qlmSetAttributeByNode(ctx, n2, "stroke-dasharray", "")
qlmSetCurrentSvgNode(ctx, 0)
qlmCreateUse(ctx, "", 0, 0, "PLEXORN_PART_W1", "hmi", 2500010, -5600005) = n3
qlmSetAttributeByNode(ctx, n3, "scale-x", "0.001000")
qlmSetAttributeByNode(ctx, n3, "scale-y", "0.001000")
)calls");
    EXPECT_EQ(written.report.Entries().begin()->first,
              (Report::Key{Finding::Rewritten, "drawing", "one block near the origin"}));
}

// The middle of this one is neither a 32-bit float nor what a float's shortest text says.
TEST_F(ModuleProfile, DrawingsFarFromTheOriginAreAsSharpAsThere)
{
    written.settings.extents = {};
    written.settings.extents.Add({2'499'999.5, 5'599'999});
    written.settings.extents.Add({2'500'020.14842, 5'600'019.8845});
    written.settings.thinnest = 0.01;
    written.settings.thinnestWeight = 0;
    Model().Line(StyleOf(1, 1), {2'500'000.125, 5'600'000.003}, {2'500'020.014, 5'600'010.001});
    const std::string calls = Calls();
    EXPECT_NE(calls.find("qlmCreateLine(ctx, \"\", -9875, 9497, 10014, -501, 0, 0)"), std::string::npos)
        << calls;
    EXPECT_NE(calls.find("\"PLEXORN_PART_W1\", \"hmi\", 2500010, -5600009.5)"), std::string::npos) << calls;
}

TEST_F(ModuleProfile, TinyDrawingsAreWrappedTwice67)
{
    written.settings.extents = {};
    written.settings.extents.Add({-1e-6, -1e-6});
    written.settings.extents.Add({1e-6, 1e-6});
    written.settings.thinnest = 1e-9;
    written.settings.thinnestWeight = 0;
    Model().Line(StyleOf(1, 0), {-1e-6, 0}, {1e-6, 0});
    EXPECT_EQ(Without("qlmSetCurrent", Calls()), R"calls(qlmCreateSymbol(ctx, "PLEXORN_PART_W1") = n1
qlmCreateLine(ctx, "", -10000, -0, 10000, -0, 0, 0) = n2
qlmSetAttributeByNode(ctx, n2, "stroke-width", "10.000000")
qlmSetAttributeByNode(ctx, n2, "stroke", "RGB(255,0,0)")
qlmSetAttributeByNode(ctx, n2, "stroke-dasharray", "")
qlmCreateSymbol(ctx, "PLEXORN_PART_W2") = n3
qlmCreateUse(ctx, "", 0, 0, "PLEXORN_PART_W1", "hmi", 0, -0) = n4
qlmSetAttributeByNode(ctx, n4, "scale-x", "0.000001")
qlmSetAttributeByNode(ctx, n4, "scale-y", "0.000001")
qlmCreateUse(ctx, "", 0, 0, "PLEXORN_PART_W2", "hmi", 0, -0) = n5
qlmSetAttributeByNode(ctx, n5, "scale-x", "0.000100")
qlmSetAttributeByNode(ctx, n5, "scale-y", "0.000100")
)calls");
}

TEST_F(ModuleProfile, SmallTextsAreWrappedUnlessThatIsForbidden67)
{
    written.settings.smallestText = 0.5;
    Model().Text(red, {"small", {1, 2}, {0.5, 0}, {0, 0.5}, Anchor::Start, kNoName});
    EXPECT_NE(Calls().find("\"font-size\", \"69.50\""), std::string::npos);

    WrittenDrawing plain;
    plain.settings = written.settings;
    plain.settings.mayWrap = false;
    plain.Model().Text(red, {"small", {1, 2}, {0.5, 0}, {0, 0.5}, Anchor::Start, kNoName});
    const std::string calls = TraceOf(plain.Text());
    EXPECT_NE(calls.find("\"font-size\", \"0.69\""), std::string::npos) << calls;
    EXPECT_EQ(calls.find("qlmCreateUse"), std::string::npos);
}

TEST_F(ModuleProfile, WhatIsNotFiniteIsLeftOut)
{
    Model().Line(red, {0, 0}, {INFINITY, 0});
    Model().Circle(red, {0, NAN}, 1);
    Model().Circle(red, {0, 0}, 0);
    const PlainVertex vertices[] = {{{0, 0}, NAN}, {{5, 0}, 0}};
    Model().Polyline(red, vertices, false);
    Model().Text(red, {"flat", {0, 0}, {1, 0}, {1, 0}, Anchor::Start, kNoName});
    EXPECT_EQ(Calls(), "");
}

} // namespace
} // namespace prepare
