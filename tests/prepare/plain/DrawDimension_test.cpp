#include "prepare/plain/DrawDimension.h"
#include "support/RecordingSink.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace prepare {

namespace {

using Lines = std::vector<std::string>;

constexpr std::int32_t kPlacedByUser = 128;

// Draws dimensions by a style with arrowheads and gaps of 1 and texts of height 2, in the colours that the
// style asks for.
class Trial {
public:
    Trial()
    {
        const NameId name = drawing.names.Of("TRIAL");
        drawing.dimStyles[name].values = {
            {41, "1"}, {42, "0.5"}, {44, "1"},  {140, "2"}, {141, "0"}, {147, "1"}, {271, "0"},
            {73, "0"}, {74, "0"},   {176, "1"}, {177, "2"}, {178, "3"}, {179, "0"},
        };
    }

    Dimension Of(std::int32_t kind)
    {
        Dimension dimension;
        dimension.kind = kind;
        dimension.line = 5;
        dimension.style = drawing.names.Find("TRIAL");
        dimension.typeName = drawing.names.Of("DIMENSION");
        return dimension;
    }
    // From 0,0 to 20,0 with the line 10 above.
    Dimension Linear()
    {
        Dimension dimension = Of(0);
        dimension.points[1] = {20, 0, 0};
        dimension.definition = {20, 10, 0};
        return dimension;
    }
    // In a circle of radius 10 around 0,0.
    Dimension Radial(std::int32_t kind)
    {
        Dimension dimension = Of(kind);
        dimension.points[2] = {10, 0, 0};
        if (kind == 3)
            dimension.definition = {-10, 0, 0};
        return dimension;
    }

    Lines Draw(const Dimension& dimension)
    {
        RecordingSink sink;
        Budget budget(0.01);
        const DrawingScale scale(0.01, {}, 0);
        const Placement placement{drawing, matrix, {}, scale, sink, report, budget};
        const PartStyler styleOf = [this](const StyleOfPart& part) {
            Style style;
            style.colour.index = part.colour;
            style.weight = part.weight;
            if (const auto found = dashed.find(part.lineType); found != dashed.end())
                style.lineType = &found->second;
            return style;
        };
        DrawDimension(dimension, placement, styleOf, [&](const Block& block, const Matrix& at, const Style&) {
            const Point2 tip = at.Flat(block.base), back = at.Flat(block.base + Point3{-1, 0, 0});
            sink.lines.push_back(
                "block at " + std::to_string(std::lround(tip.x)) + "," + std::to_string(std::lround(tip.y)) +
                " from " + std::to_string(std::lround(back.x)) + "," + std::to_string(std::lround(back.y)));
        });
        return std::move(sink.lines);
    }

    Drawing drawing;
    Matrix matrix;
    Report report;
    std::map<NameId, LineType> dashed; // line types that recordings know by their dashes
};

// Those of one colour, without it.
Lines OfColour(const Lines& lines, int colour)
{
    const std::string ending = " colour " + std::to_string(colour);
    Lines found;
    for (const std::string& line : lines)
        if (line.ends_with(ending))
            found.push_back(line.substr(0, line.size() - ending.size()));
    return found;
}

Lines LinePart(const Lines& lines)
{
    return OfColour(lines, 1);
}

Lines ExtensionPart(const Lines& lines)
{
    return OfColour(lines, 2);
}

Lines TextPart(const Lines& lines)
{
    return OfColour(lines, 3);
}

} // namespace

TEST(DrawDimension, LinearWithoutText)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.text = " ";
    EXPECT_EQ(trial.Draw(dimension), (Lines{
                                         "line 0,0.5 0,11 colour 2",
                                         "line 20,0.5 20,11 colour 2",
                                         "line 1,10 19,10 colour 1",
                                         "fill 0,10 1,10.1667 1,9.83333 colour 1",
                                         "fill 20,10 19,9.83333 19,10.1667 colour 1",
                                     }));
}

TEST(DrawDimension, TheLineLeavesRoomForTheText)
{
    Trial trial;
    const Lines lines = trial.Draw(trial.Linear());
    EXPECT_EQ(TextPart(lines), Lines{"text '20' at 10,9 along 2,0 up 0,2 middle"});
    EXPECT_EQ(LinePart(lines)[0], "line 1,10 7.44,10");
    EXPECT_EQ(LinePart(lines)[1], "line 12.56,10 19,10");
}

TEST(DrawDimension, ATextAboveTheLineLeavesItWhole)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.overrides = {{77, "1"}};
    const Lines lines = trial.Draw(dimension);
    EXPECT_EQ(TextPart(lines), Lines{"text '20' at 10,11 along 2,0 up 0,2 middle"});
    EXPECT_EQ(LinePart(lines)[0], "line 1,10 19,10");
    dimension.overrides = {{77, "4"}};
    EXPECT_EQ(TextPart(trial.Draw(dimension)), Lines{"text '20' at 10,7 along 2,0 up 0,2 middle"});
}

TEST(DrawDimension, TolerancesAreNextToTheNumberAndAGapAboveTheLine)
{
    // Both are 4.8 high together.
    Trial trial;
    Dimension dimension = trial.Linear();
    const auto heightsBy = [&](const char* alignment) {
        dimension.overrides = {{77, "1"}, {71, "1"}, {47, "3"}, {48, "2"}, {272, "0"}, {283, alignment}};
        std::map<std::string, std::string> heights; // by what is there
        for (const std::string& text : TextPart(trial.Draw(dimension))) {
            const std::size_t end = text.find("' at "), comma = text.find(',', end);
            heights[text.substr(6, end - 6)] = text.substr(comma + 1, text.find(' ', comma) - comma - 1);
        }
        return heights;
    };
    using Heights = std::map<std::string, std::string>;
    EXPECT_EQ(heightsBy("0"), (Heights{{"20", "11"}, {"+3", "13.8"}, {"-2", "11"}}));
    EXPECT_EQ(heightsBy("1"), (Heights{{"20", "12.4"}, {"+3", "13.8"}, {"-2", "11"}}));
    EXPECT_EQ(heightsBy("2"), (Heights{{"20", "13.8"}, {"+3", "13.8"}, {"-2", "11"}}));
}

TEST(DrawDimension, TheTextIsWhereTheFileHasIt)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.textPoint = {4, 12, 0};
    EXPECT_EQ(TextPart(trial.Draw(dimension)), Lines{"text '20' at 4,11 along 2,0 up 0,2 middle"});
    dimension.textPoint = {};
    dimension.kind |= kPlacedByUser;
    EXPECT_EQ(TextPart(trial.Draw(dimension)), Lines{"text '20' at 0,-1 along 2,0 up 0,2 middle"});
}

TEST(DrawDimension, AnUprightTextIsReadFromTheRight)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.rotation = 270;
    dimension.points[1] = {0, 20, 0};
    dimension.definition = {-10, 0, 0};
    const Lines lines = trial.Draw(dimension);
    EXPECT_EQ(TextPart(lines), Lines{"text '20' at -9,10 along 0,2 up -2,0 middle"});
    EXPECT_EQ(ExtensionPart(lines), (Lines{"line -0.5,0 -11,0", "line -0.5,20 -11,20"}));
    dimension.overrides = {{73, "1"}};
    EXPECT_EQ(TextPart(trial.Draw(dimension)), Lines{"text '20' at -10,9 along 2,0 up 0,2 middle"});
    dimension.textRotation = 180;
    EXPECT_EQ(TextPart(trial.Draw(dimension)), Lines{"text '20' at -10,11 along -2,0 up 0,-2 middle"});
}

TEST(DrawDimension, ARotatedTextIsTurnedFromTheHorizontalDirection)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.textRotation = 180;
    dimension.horizontalDirection = 90;
    EXPECT_EQ(TextPart(trial.Draw(dimension)), Lines{"text '20' at 11,10 along 0,2 up -2,0 middle"});
}

TEST(DrawDimension, AlignedMeasuresAlongItsPoints)
{
    Trial trial;
    Dimension dimension = trial.Of(1);
    dimension.points[1] = {30, 40, 0};
    dimension.definition = {-8, 6, 0};
    dimension.text = "<>";
    const Lines lines = trial.Draw(dimension);
    EXPECT_EQ(TextPart(lines), Lines{"text '50' at 7.8,25.4 along 1.2,1.6 up -1.6,1.2 middle"});
    EXPECT_EQ(ExtensionPart(lines), (Lines{"line -0.4,0.3 -8.8,6.6", "line 29.6,40.3 21.2,46.6"}));
}

TEST(DrawDimension, ObliqueExtensionLinesKeepTheMeasure)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.oblique = 45;
    const Lines lines = trial.Draw(dimension);
    EXPECT_EQ(TextPart(lines), Lines{"text '20' at 20,9 along 2,0 up 0,2 middle"});
    EXPECT_EQ(ExtensionPart(lines),
              (Lines{"line 0.353553,0.353553 10.7071,10.7071", "line 20.3536,0.353553 30.7071,10.7071"}));
}

TEST(DrawDimension, WithoutRoomArrowsAndTextGoOutside)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.points[1] = {2, 0, 0};
    const Lines lines = trial.Draw(dimension);
    EXPECT_EQ(TextPart(lines), Lines{"text '2' at 5.785,9 along 2,0 up 0,2 middle"});
    EXPECT_EQ(LinePart(lines), (Lines{
                                   "line -1,10 -2,10",
                                   "fill 0,10 -1,9.83333 -1,10.1667",
                                   "line 3,10 4,10",
                                   "fill 2,10 3,10.1667 3,9.83333",
                               }));
    dimension.overrides = {{172, "1"}};
    EXPECT_EQ(LinePart(trial.Draw(dimension))[0], "line 0,10 2,10");
    dimension.overrides = {{174, "1"}, {175, "1"}};
    EXPECT_EQ(LinePart(trial.Draw(dimension)), Lines{});
}

TEST(DrawDimension, WithoutATextAtItsLineAShortOneHasAllOfIt)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.points[1] = {2, 0, 0};
    const Lines whole{
        "line 0,10 2,10",
        "line -1,10 -2,10",
        "fill 0,10 -1,9.83333 -1,10.1667",
        "line 3,10 4,10",
        "fill 2,10 3,10.1667 3,9.83333",
    };
    Dimension moved = dimension;
    moved.textPoint = {25, 20, 0};
    EXPECT_EQ(LinePart(trial.Draw(moved)), whole);
    dimension.text = " ";
    EXPECT_EQ(LinePart(trial.Draw(dimension)), whole);
}

TEST(DrawDimension, APointThatIsTheDefinitionPointOnceMoreIsNoPlaceOfTheText)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    const Lines own = trial.Draw(dimension);
    dimension.textPoint = dimension.definition;
    EXPECT_EQ(trial.Draw(dimension), own);
    dimension.kind = kPlacedByUser;
    EXPECT_EQ(TextPart(trial.Draw(dimension)), Lines{"text '20' at 20,9 along 2,0 up 0,2 middle"});
    trial.drawing.header["$ACADVER"].values = {{1, "AC1009"}};
    EXPECT_EQ(TextPart(trial.Draw(dimension)), TextPart(own));
    dimension.textPoint.x += 5;
    EXPECT_EQ(TextPart(trial.Draw(dimension)), Lines{"text '20' at 25,9 along 2,0 up 0,2 middle"});
}

TEST(DrawDimension, AMovedTextHasALeader)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.overrides = {{279, "1"}};
    dimension.textPoint = {25, 20, 0};
    const Lines lines = trial.Draw(dimension);
    EXPECT_EQ(TextPart(lines), Lines{"text '20' at 26.57,19 along 2,0 up 0,2 middle"});
    EXPECT_EQ(LinePart(lines)[0], "line 10,10 23,20");
    EXPECT_EQ(LinePart(lines)[1], "line 23,20 24,20");
}

TEST(DrawDimension, LinesAreLeftOutAsAsked)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.text = " ";
    dimension.overrides = {{75, "1"}, {282, "1"}};
    EXPECT_EQ(trial.Draw(dimension), (Lines{
                                         "line 20,0.5 20,11 colour 2",
                                         "line 1,10 10,10 colour 1",
                                         "fill 0,10 1,10.1667 1,9.83333 colour 1",
                                     }));
}

TEST(DrawDimension, ExtensionLinesOfOneLength)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.overrides = {{290, "1"}, {49, "3"}};
    EXPECT_EQ(ExtensionPart(trial.Draw(dimension)), (Lines{"line 0,7 0,11", "line 20,7 20,11"}));
}

TEST(DrawDimension, TicksCrossTheLinesEnds)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.text = " ";
    dimension.overrides = {{142, "1"}, {46, "3"}};
    EXPECT_EQ(LinePart(trial.Draw(dimension)), (Lines{
                                                   "line -3,10 23,10",
                                                   "line -1,9 1,11",
                                                   "line 21,11 19,9",
                                               }));
}

TEST(DrawDimension, ArrowheadsByName)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.text = " ";
    dimension.overrides = {{173, "1"}, {6, "_DotBlank"}, {7, "none"}};
    EXPECT_EQ(LinePart(trial.Draw(dimension)), (Lines{
                                                   "line 0.5,10 20,10",
                                                   "circle 0,10 radius 0.5",
                                               }));
}

TEST(DrawDimension, ArrowheadsByHandle)
{
    Trial trial;
    trial.drawing.blockOfRecord[0x2A] = trial.drawing.names.Of("_Open90");
    Dimension dimension = trial.Linear();
    dimension.text = " ";
    dimension.overrides = {{342, "2a"}, {281, "1"}};
    EXPECT_EQ(LinePart(trial.Draw(dimension)),
              (Lines{"line 10,10 20,10", "polyline 19.5,9.5 20,10 19.5,10.5"}));
}

TEST(DrawDimension, ArrowheadsOfTheDrawingsOwnArePlaced)
{
    Trial trial;
    const NameId name = trial.drawing.names.Of("Mine");
    auto block = std::make_unique<Block>();
    block->entities.push_back(std::make_unique<Line>());
    trial.drawing.blocks[name] = std::move(block);
    Dimension dimension = trial.Linear();
    dimension.overrides = {{5, "MINE"}, {41, "3"}};
    const Lines lines = trial.Draw(dimension);
    EXPECT_EQ(lines[4], "block at 0,10 from 3,10");
    EXPECT_EQ(lines[5], "block at 20,10 from 17,10");
    dimension.extrusion = {0, 0.6, 0.8}; // they are in the dimension's plane
    dimension.definition = {20, 8, -6};
    const Lines tilted = trial.Draw(dimension);
    EXPECT_EQ(tilted[4], "block at 0,8 from 3,8");
    EXPECT_EQ(tilted[5], "block at 20,8 from 17,8");
}

TEST(DrawDimension, AFramedText)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.overrides = {{147, "-1"}};
    EXPECT_EQ(trial.Draw(dimension).back(), "closed polyline 7.43,8 12.57,8 12.57,12 7.43,12 colour 1");
}

TEST(DrawDimension, AngleOfTwoLines)
{
    Trial trial;
    Dimension dimension = trial.Of(2);
    dimension.points[0] = {2, 0, 0};
    dimension.points[1] = {20, 0, 0};
    dimension.points[2] = {0, 1, 0};
    dimension.definition = {0, 5, 0};
    dimension.points[3] = {6, 8, 0};
    dimension.text = " ";
    EXPECT_EQ(trial.Draw(dimension), (Lines{
                                         "line 0,5.5 0,11 colour 2",
                                         "arc 0,0 radius 10 from 0.100042 to 1.47075 colour 1",
                                         "fill 10,0 9.78354,0.990416 10.1165,1.00708 colour 1",
                                         "fill 0,10 1.00708,10.1165 0.990416,9.78354 colour 1",
                                     }));
}

TEST(DrawDimension, ThePointChoosesAmongTheAnglesOfTwoLines)
{
    Trial trial;
    Dimension dimension = trial.Of(2);
    dimension.points[1] = {20, 0, 0};
    dimension.points[2] = {0, 0, 0};
    dimension.definition = {20, 20, 0};
    for (const auto& [point, text] :
         {std::pair{Point3{10, 1, 0}, "45°"}, std::pair{Point3{-10, -1, 0}, "45°"},
          std::pair{Point3{0, 10, 0}, "135°"}, std::pair{Point3{0, -10, 0}, "135°"}}) {
        dimension.points[3] = point;
        const Lines texts = TextPart(trial.Draw(dimension));
        ASSERT_EQ(texts.size(), 1U);
        EXPECT_EQ(texts[0].substr(0, texts[0].find(" at")), "text '" + std::string(text) + "'");
    }
}

TEST(DrawDimension, AngleOfThreePointsMayBeReflex)
{
    Trial trial;
    Dimension dimension = trial.Of(5);
    dimension.points[0] = {5, 0, 0};
    dimension.points[1] = {0, 5, 0};
    dimension.definition = {-8, -6, 0};
    dimension.text = "<> ";
    const Lines lines = trial.Draw(dimension);
    EXPECT_EQ(ExtensionPart(lines), (Lines{"line 0,5.5 0,11", "line 5.5,0 11,0"}));
    ASSERT_EQ(TextPart(lines).size(), 1U);
    EXPECT_EQ(TextPart(lines)[0].substr(0, 13), "text '270°' ");
}

// A place that nobody chose is left over where it is far from the arc.
TEST(DrawDimension, TheTextOfAnAngleIsAtItsArcUnlessTheUserPlacedIt)
{
    Trial trial;
    const auto draw = [&](std::int32_t kind, Point3 text) {
        Dimension dimension = trial.Of(kind);
        dimension.points[0] = {20, 0, 0};
        dimension.points[1] = {0, 20, 0};
        dimension.definition = {6, 8, 0};
        dimension.textPoint = text;
        return TextPart(trial.Draw(dimension));
    };
    const Lines usual = draw(5, {});
    EXPECT_EQ(draw(5, {-80, 40, 0}), usual);
    EXPECT_NE(draw(5, {9, 9, 0}), usual);
    EXPECT_NE(draw(5 | kPlacedByUser, {-80, 40, 0}), usual);
}

TEST(DrawDimension, ParallelLinesHaveNoAngle)
{
    Trial trial;
    Dimension dimension = trial.Of(2);
    dimension.points[1] = {20, 0, 0};
    dimension.points[2] = {0, 1, 0};
    dimension.definition = {20, 1, 0};
    EXPECT_EQ(trial.Draw(dimension), Lines{});
    EXPECT_EQ(trial.report.Entries().begin()->first.detail, "its lines do not meet");
}

TEST(DrawDimension, RadiusWithItsTextAlong)
{
    Trial trial;
    Dimension dimension = trial.Radial(4);
    dimension.textPoint = {18, 0, 0};
    const Lines lines = trial.Draw(dimension);
    EXPECT_EQ(TextPart(lines), Lines{"text 'R10' at 18,-1 along 2,0 up 0,2 middle"});
    EXPECT_EQ(LinePart(lines), (Lines{"line 11,0 14.583,0", "fill 10,0 11,0.166667 11,-0.166667"}));
}

TEST(DrawDimension, RadiusWithALeader)
{
    Trial trial;
    Dimension dimension = trial.Radial(4);
    dimension.overrides = {{74, "1"}, {141, "2"}};
    dimension.textPoint = {20, 8, 0};
    const Lines lines = trial.Draw(dimension);
    EXPECT_EQ(LinePart(lines)[0], "line -2,0 2,0");
    EXPECT_EQ(LinePart(lines)[1], "line 0,-2 0,2");
    EXPECT_EQ(LinePart(lines)[2], "line 10.5716,0.820531 15.573,8");
    EXPECT_EQ(LinePart(lines)[3], "line 15.573,8 16.573,8");
}

TEST(DrawDimension, CentreLinesPassTheCircle)
{
    Trial trial;
    Dimension dimension = trial.Radial(4);
    dimension.overrides = {{141, "-2"}};
    dimension.textPoint = {18, 0, 0};
    const Lines lines = LinePart(trial.Draw(dimension));
    EXPECT_EQ(Lines(lines.begin(), lines.begin() + 6), (Lines{
                                                           "line -2,0 2,0",
                                                           "line -4,0 -12,0",
                                                           "line 4,0 12,0",
                                                           "line 0,-2 0,2",
                                                           "line 0,-4 0,-12",
                                                           "line 0,4 0,12",
                                                       }));
}

TEST(DrawDimension, DiameterWithItsTextInside)
{
    Trial trial;
    const Lines lines = trial.Draw(trial.Radial(3));
    EXPECT_EQ(TextPart(lines), Lines{"text 'Ø20' at 0,-1 along 2,0 up 0,2 middle"});
    EXPECT_EQ(LinePart(lines), (Lines{
                                   "line -9,0 -3.531,0",
                                   "line 3.531,0 9,0",
                                   "fill 10,0 9,-0.166667 9,0.166667",
                                   "fill -10,0 -9,0.166667 -9,-0.166667",
                               }));
}

TEST(DrawDimension, DiameterWithItsTextOutsideMayCrossTheCircle)
{
    Trial trial;
    Dimension dimension = trial.Radial(3);
    dimension.overrides = {{172, "1"}};
    dimension.textPoint = {20, 0, 0};
    EXPECT_EQ(LinePart(trial.Draw(dimension)), (Lines{
                                                   "line -10,0 10,0",
                                                   "line -11,0 -12,0",
                                                   "fill -10,0 -11,-0.166667 -11,0.166667",
                                                   "line 11,0 16.469,0",
                                                   "fill 10,0 11,0.166667 11,-0.166667",
                                               }));
}

TEST(DrawDimension, TheLeaderOfADiameterIsAtTheNearerEnd)
{
    Trial trial;
    Dimension dimension = trial.Radial(3);
    dimension.textPoint = {-20, 0, 0};
    EXPECT_EQ(LinePart(trial.Draw(dimension))[0], "line -11,0 -16.469,0");
}

TEST(DrawDimension, OrdinatesAreMeasuredFromTheOrigin)
{
    Trial trial;
    Dimension dimension = trial.Of(6);
    dimension.definition = {1, 2, 0};
    dimension.points[0] = {5, 9, 0};
    dimension.points[1] = {15, 9, 0};
    EXPECT_EQ(trial.Draw(dimension),
              (Lines{"line 5.5,9 15,9 colour 2", "text '7' at 16.785,8 along 2,0 up 0,2 middle colour 3"}));
    dimension.kind = 6 + 64;
    dimension.points[1] = {5, 19, 0};
    EXPECT_EQ(trial.Draw(dimension),
              (Lines{"line 5,9.5 5,19 colour 2", "text '4' at 6,20.785 along 0,2 up -2,0 middle colour 3"}));
}

TEST(DrawDimension, TheLeaderOfAnOrdinateMayStepAside)
{
    Trial trial;
    Dimension dimension = trial.Of(6);
    dimension.points[0] = {5, 7, 0};
    dimension.points[1] = {15, 9, 0};
    EXPECT_EQ(ExtensionPart(trial.Draw(dimension)),
              (Lines{"line 5.5,7 11,7", "line 11,7 13,9", "line 13,9 15,9"}));
}

TEST(DrawDimension, ArcLength)
{
    Trial trial;
    Dimension dimension = trial.Of(5);
    dimension.typeName = trial.drawing.names.Of("ARC_DIMENSION");
    dimension.points[0] = {10, 0, 0};
    dimension.points[1] = {0, 10, 0};
    dimension.definition = {12, 0.001, 0};
    dimension.overrides = {{73, "1"}};
    const Lines lines = trial.Draw(dimension);
    EXPECT_EQ(ExtensionPart(lines), (Lines{"line 10.5,0 13,0", "line 0,10.5 0,13"}));
    EXPECT_EQ(TextPart(lines), Lines{"text '16' at 8.48528,7.48528 along 2,0 up 0,2 middle"});
    EXPECT_EQ(LinePart(lines).back(), "arc 4.91528,7.68528 radius 1.6 from 0 to 3.14159");
}

TEST(DrawDimension, ExtensionLinesOfALongArcAreHiddenByTheirPoints)
{
    Trial trial;
    Dimension dimension = trial.Of(8);
    dimension.points[0] = {10, 0, 0};
    dimension.points[1] = {0, 10, 0};
    dimension.definition = {-12, -0.001, 0};
    dimension.overrides = {{75, "1"}};
    EXPECT_EQ(ExtensionPart(trial.Draw(dimension)), Lines{"line 0,10.5 0,13"});
    dimension.overrides = {{76, "1"}};
    EXPECT_EQ(ExtensionPart(trial.Draw(dimension)), Lines{"line 10.5,0 13,0"});
}

TEST(DrawDimension, ShortArcsHaveParallelExtensionLines)
{
    Trial trial;
    Dimension dimension = trial.Of(8);
    dimension.points[0] = {6, 8, 0};
    dimension.points[1] = {-6, 8, 0};
    dimension.definition = {0, 12, 0};
    EXPECT_EQ(ExtensionPart(trial.Draw(dimension)),
              (Lines{"line 6,8.5 6,11.3923", "line -6,8.5 -6,11.3923"}));
}

TEST(DrawDimension, JoggedRadius)
{
    Trial trial;
    Dimension dimension = trial.Of(9);
    dimension.definition = {0, 0, 0};
    dimension.points[0] = {20, 4, 0};
    dimension.points[1] = {50, 2, 0};
    dimension.points[2] = {100, 0, 0};
    dimension.textPoint = {75, 10, 0};
    const Lines lines = trial.Draw(dimension);
    EXPECT_EQ(LinePart(lines), (Lines{
                                   "line 20,4 52,4",
                                   "line 52,4 48,0",
                                   "line 48,0 99,0",
                                   "fill 100,0 99,-0.166667 99,0.166667",
                               }));
    EXPECT_EQ(TextPart(lines), Lines{"text 'R100' at 75,9 along 2,0 up 0,2 middle"});
}

TEST(DrawDimension, PointsAreOfTheWorldAndTheTextIsOfTheObject)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.extrusion = {0, 0, -1};
    dimension.textPoint = {-10, 10, 0};
    const Lines lines = trial.Draw(dimension);
    EXPECT_EQ(ExtensionPart(lines), (Lines{"line 0,0.5 0,11", "line 20,0.5 20,11"}));
    EXPECT_EQ(TextPart(lines), Lines{"text '20' at 10,9 along -2,0 up 0,2 middle"});
}

TEST(DrawDimension, ArcsUnderASkewAreEllipses)
{
    Trial trial;
    trial.matrix = Scaled({2, 1, 1});
    Dimension dimension = trial.Of(5);
    dimension.points[0] = {10, 0, 0};
    dimension.points[1] = {0, 10, 0};
    dimension.definition = {6, 8, 0};
    dimension.text = " ";
    EXPECT_EQ(LinePart(trial.Draw(dimension))[0], "ellipse 0,0 axis 20,0 ratio 0.5 from 0.100042 to 1.47075");
}

TEST(DrawDimension, WithoutAStyleTheDrawingsVariablesCount)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.style = trial.drawing.names.Of("MISSING");
    trial.drawing.header["$DIMSCALE"].values = {{40, "10"}};
    trial.drawing.header["$DIMTXT"].values = {{40, "0.3"}};
    trial.drawing.header["$DIMDEC"].values = {{70, "1"}};
    trial.drawing.header["$DIMEXO"].values = {{40, "0.2"}};
    EXPECT_EQ(trial.Draw(dimension)[0], "line 0,2 0,11.8 colour 0");
    EXPECT_EQ(TextPart(trial.Draw(dimension)), Lines{});
    EXPECT_EQ(OfColour(trial.Draw(dimension), 0).back().substr(0, 11), "text '20.0'");
}

TEST(DrawDimension, WithoutAnyVariableSizesAreOneUnitAndZerosAreDropped)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.style = trial.drawing.names.Of("MISSING");
    const Lines lines = trial.Draw(dimension);
    EXPECT_EQ(lines[0], "line 0,0.25 0,10.5 colour 0");
    EXPECT_EQ(lines.back(), "text '20' at 10,9.5 along 1,0 up 0,1 middle colour 0");
}

TEST(DrawDimension, LinesHaveTheirLineTypes)
{
    Trial trial;
    trial.drawing.lineTypeOfHandle = {{0xA, trial.drawing.names.Of("DASHED")},
                                      {0xB, trial.drawing.names.Of("DOTTED")}};
    trial.dashed[trial.drawing.names.Of("DASHED")].dashes = {2, -1};
    trial.dashed[trial.drawing.names.Of("DOTTED")].dashes = {0, -1};
    Dimension dimension = trial.Linear();
    dimension.text = " ";
    dimension.overrides = {{345, "A"}, {346, "B"}};
    EXPECT_EQ(trial.Draw(dimension), (Lines{
                                         "line 0,0.5 0,11 colour 2 dashes 0 -1",
                                         "line 20,0.5 20,11 colour 2",
                                         "line 1,10 19,10 colour 1 dashes 2 -1",
                                         "fill 0,10 1,10.1667 1,9.83333 colour 1",
                                         "fill 20,10 19,9.83333 19,10.1667 colour 1",
                                     }));
    dimension.overrides = {{347, "A"}, {346, "C"}};
    const Lines lines = trial.Draw(dimension);
    EXPECT_EQ(lines[0], "line 0,0.5 0,11 colour 2");
    EXPECT_EQ(lines[1], "line 20,0.5 20,11 colour 2 dashes 2 -1");
}

TEST(DrawDimension, TheTextMayHaveAColourBehindIt)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    dimension.text = "A";
    const auto behind = [&](const char* fill) {
        dimension.overrides = {{69, fill}, {70, "4"}};
        const Lines lines = trial.Draw(dimension);
        return lines[lines.size() - 2];
    };
    EXPECT_EQ(behind("0").substr(0, 4), "fill"); // an arrowhead
    EXPECT_EQ(behind("1"), "mask 8.156,8 11.844,8 11.844,12 8.156,12");
    EXPECT_EQ(behind("2"), "fill 8.156,8 11.844,8 11.844,12 8.156,12 colour 4");
}

TEST(DrawDimension, AStyleThatIsSilentHasTheFormatsValues)
{
    Trial trial;
    Dimension dimension = trial.Linear();
    trial.drawing.dimStyles[dimension.style].values.clear();
    trial.drawing.header["$DIMTXT"].values = {{40, "3"}};
    const Lines lines = trial.Draw(dimension);
    EXPECT_EQ(lines[0], "line 0,0.0625 0,10.18 colour 0");
    EXPECT_EQ(lines.back(), "text '20.0000' at 10,9.91 along 0.18,0 up 0,0.18 middle colour 0");
}

TEST(DrawDimension, OldDrawingsHaveOneUnitForAll)
{
    Trial trial;
    trial.drawing.header["$ACADVER"].values = {{1, "AC1009"}};
    trial.drawing.header["$LUNITS"].values = {{70, "4"}};
    trial.drawing.header["$LUPREC"].values = {{70, "4"}};
    Dimension dimension = trial.Linear();
    dimension.points[1] = {18.5, 0, 0};
    dimension.overrides = {{78, "0"}};
    trial.drawing.dimStyles[dimension.style].values = {{40, "1"}};
    EXPECT_EQ(trial.Draw(dimension).back().substr(0, 17), "text '1'-6 1/2\"' ");
}

TEST(DrawDimension, TolerancesOfOldDrawingsHaveTheDigitsOfAllNumbers)
{
    Trial trial;
    trial.drawing.header["$ACADVER"].values = {{1, "AC1009"}};
    trial.drawing.header["$LUPREC"].values = {{70, "1"}};
    Dimension dimension = trial.Linear();
    trial.drawing.dimStyles[dimension.style].values = {{40, "1"}, {71, "1"}, {47, "0.25"}, {48, "0.25"}};
    EXPECT_EQ(trial.Draw(dimension).back().substr(0, 17), "text '20.0±0.3' ");
}

TEST(DrawDimension, AnUnknownKindIsReported)
{
    Trial trial;
    EXPECT_EQ(trial.Draw(trial.Of(7)), Lines{});
    EXPECT_EQ(trial.report.Entries().begin()->first.detail, "its kind is not known");
}

TEST(DrawDimension, NoNumberThatIsNotFiniteComesOut)
{
    constexpr double kBad[] = {std::numeric_limits<double>::quiet_NaN(),
                               std::numeric_limits<double>::infinity(), 1e308, -1e308, 0};
    for (std::int32_t kind = 0; kind < 10; ++kind)
        for (const double bad : kBad)
            for (int place = 0; place < 6; ++place) {
                Trial trial;
                Dimension dimension = trial.Of(kind);
                dimension.points[1] = {20, 0, 0};
                dimension.points[2] = {0, 10, 0};
                dimension.points[3] = {5, 5, 0};
                dimension.definition = {8, 8, 0};
                Point3& point = place < 4    ? dimension.points[place]
                                : place == 4 ? dimension.definition
                                             : dimension.textPoint;
                point = {bad, bad, 0};
                for (const std::string& line : trial.Draw(dimension)) {
                    EXPECT_EQ(line.find("nan"), std::string::npos) << kind << " " << place << " " << line;
                    EXPECT_EQ(line.find("inf"), std::string::npos) << kind << " " << place << " " << line;
                }
            }
}

} // namespace prepare
