#include "support/Stage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace prepare {
namespace {

MultiLineVertex At(Point3 point, Point3 direction, Point3 mitre, std::vector<double> places)
{
    MultiLineVertex vertex{point, direction, mitre, {}};
    for (const double place : places)
        vertex.parameters.push_back({place, 0});
    return vertex;
}

// To the right, then up, with lines 1 to the left and 1 to the right.
MultiLine Corner()
{
    const double diagonal = std::sqrt(0.5), mitred = std::sqrt(2);
    MultiLine line;
    line.vertices = {At({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, -1}),
                     At({10, 0, 0}, {0, 1, 0}, {-diagonal, diagonal, 0}, {mitred, -mitred}),
                     At({10, 10, 0}, {0, 1, 0}, {-1, 0, 0}, {1, -1})};
    return line;
}

class DrawMultiLines : public testing::Test {
protected:
    MultiLineStyle& StyleFor(MultiLine& line, std::int32_t flags)
    {
        line.style = stage.drawing.names.Of("WALL");
        MultiLineStyle& style = stage.drawing.multiLineStyles[line.style];
        style.flags = flags;
        style.elements.resize(2);
        style.elements[0].colour = 1;
        style.elements[1].colour = 3;
        return style;
    }

    Stage stage;
};

TEST_F(DrawMultiLines, AnElementIsAPolylineOfItsColour)
{
    MultiLine line = Corner();
    StyleFor(line, 0);
    EXPECT_EQ(stage.Draw(line),
              (Lines{"polyline 0,1 9,1 9,10 colour 1", "polyline 0,-1 11,-1 11,10 colour 3"}));
    EXPECT_EQ(stage.Findings(), Lines{});
}

TEST_F(DrawMultiLines, TheStyleIsFoundByItsHandleToo)
{
    MultiLine line = Corner();
    StyleFor(line, 0);
    stage.drawing.multiLineStyleOfHandle[0x2F] = line.style;
    line.style = kNoName;
    line.styleHandle = 0x2F;
    EXPECT_EQ(stage.Draw(line)[0], "polyline 0,1 9,1 9,10 colour 1");
}

TEST_F(DrawMultiLines, WithoutItsStyleItIsDrawnInItsOwn)
{
    EXPECT_EQ(stage.Draw(Corner()), (Lines{"polyline 0,1 9,1 9,10", "polyline 0,-1 11,-1 11,10"}));
    EXPECT_EQ(stage.Findings(), (Lines{"changed: its style is missing"}));
}

TEST_F(DrawMultiLines, WithoutElementsItIsOneLine)
{
    MultiLine line = Corner();
    for (MultiLineVertex& vertex : line.vertices)
        vertex.parameters.clear();
    EXPECT_EQ(stage.Draw(line), Lines{"polyline 0,0 10,0 10,10"});
    EXPECT_EQ(stage.Findings().back(), "changed: its style is missing");
}

TEST_F(DrawMultiLines, ClosedItEndsWhereItBegan)
{
    MultiLine line;
    const double d = std::sqrt(0.5);
    line.flags = 1 | 2;
    line.vertices = {At({0, 0, 0}, {1, 0, 0}, {d, d, 0}, {0}), At({4, 0, 0}, {0, 1, 0}, {-d, d, 0}, {0}),
                     At({4, 4, 0}, {-1, -1, 0}, {-d, -d, 0}, {0})};
    EXPECT_EQ(stage.Draw(line), Lines{"closed polyline 0,0 4,0 4,4"});
}

// Element 0 is cut from 2 to 3 and from 5 to the end.
TEST_F(DrawMultiLines, CutsAreLeftOut)
{
    MultiLine line = Corner();
    line.vertices[0].parameters[0] = {1, 0, 2, 3, 5};
    EXPECT_EQ(stage.Draw(line),
              (Lines{"line 0,1 2,1", "line 3,1 5,1", "line 9,1 9,10", "polyline 0,-1 11,-1 11,10"}));
    line.vertices[0].parameters[0] = {1, 4};
    EXPECT_EQ(stage.Draw(line)[0], "polyline 4,1 9,1 9,10");
}

TEST_F(DrawMultiLines, JointsAndStraightCapsAreHalfOfEachColour)
{
    MultiLine line = Corner();
    StyleFor(line, 2 | 16 | 256);
    const Lines lines = stage.Draw(line);
    EXPECT_EQ(Lines(lines.begin() + 2, lines.end()),
              (Lines{"line 9,1 10,0 colour 1", "line 10,0 11,-1 colour 3", "line 0,1 0,0 colour 1",
                     "line 0,0 0,-1 colour 3", "line 9,10 10,10 colour 1", "line 10,10 11,10 colour 3"}));
    line.flags = 4 | 8;
    EXPECT_EQ(stage.Draw(line).size(), 4U);
}

TEST_F(DrawMultiLines, RoundCapsAreQuartersOfEachColour)
{
    MultiLine line = Corner();
    StyleFor(line, 64 | 1024);
    const Lines lines = stage.Draw(line);
    EXPECT_EQ(Lines(lines.begin() + 2, lines.end()),
              (Lines{"arc 0,0 radius 1 from 1.5708 to 3.14159 colour 1",
                     "arc 0,0 radius 1 from 3.14159 to 4.71239 colour 3",
                     "arc 10,10 radius 1 from 1.5708 to 3.14159 colour 1",
                     "arc 10,10 radius 1 from 0 to 1.5708 colour 3"}));
}

TEST_F(DrawMultiLines, InnerArcsJoinTheInnerPairs)
{
    MultiLine line = Corner();
    for (MultiLineVertex& vertex : line.vertices) {
        const double outer = vertex.parameters[0][0];
        vertex.parameters = {{outer, 0}, {outer / 2, 0}, {0, 0}, {-outer / 2, 0}, {-outer, 0}};
    }
    StyleFor(line, 32);
    const Lines lines = stage.Draw(line);
    EXPECT_EQ(Lines(lines.begin() + 5, lines.end()),
              (Lines{"arc 0,0 radius 0.5 from 1.5708 to 3.14159 colour 3",
                     "arc 0,0 radius 0.5 from 3.14159 to 4.71239"}));
}

TEST_F(DrawMultiLines, AFillIsBetweenTheOutermostElementsAndUnderAllLines)
{
    MultiLine line = Corner();
    StyleFor(line, 1).fillColour = 5;
    EXPECT_EQ(stage.Draw(line),
              (Lines{"fill 0,1 0,-1 11,-1 9,1 and 9,1 11,-1 11,10 9,10 colour 5",
                     "polyline 0,1 9,1 9,10 colour 1", "polyline 0,-1 11,-1 11,10 colour 3"}));
    line.vertices.resize(1);
    EXPECT_EQ(stage.Draw(line), Lines{});
}

TEST_F(DrawMultiLines, AFillOfUnsortedElementsIsBetweenTheOutermost)
{
    MultiLine line = Corner();
    line.vertices.pop_back();
    for (MultiLineVertex& vertex : line.vertices)
        vertex.parameters = {{0.5, 0}, {2, 0}, {-3, 0}, {1, 0}};
    line.vertices[1].mitre = {0, 1, 0};
    StyleFor(line, 1).fillTrueColour = 0x0080FF;
    EXPECT_EQ(stage.Draw(line)[0], "fill 0,2 0,-3 10,-3 10,2 rgb 0080ff");
}

TEST_F(DrawMultiLines, AFillReachesIntoRoundCapsThatAreDrawn)
{
    MultiLine line = Corner();
    line.vertices.pop_back();
    line.vertices[1].mitre = {0, 1, 0};
    line.vertices[1].parameters = line.vertices[0].parameters;
    StyleFor(line, 1 | 64 | 1024);
    const std::string round = stage.Draw(line)[0];
    EXPECT_NE(round.find(" -1,0 "), std::string::npos) << round;
    EXPECT_NE(round.find(" 11,0 "), std::string::npos) << round;
    line.flags = 4;
    const std::string atEnd = stage.Draw(line)[0];
    EXPECT_EQ(atEnd.find(" -1,0 "), std::string::npos) << atEnd;
    EXPECT_NE(atEnd.find(" 11,0 "), std::string::npos) << atEnd;
    line.flags = 4 | 8;
    EXPECT_EQ(stage.Draw(line)[0], "fill 0,1 0,-1 10,-1 10,1");
}

TEST_F(DrawMultiLines, AFillThatCrossesItselfHasNoHole)
{
    MultiLine line = Corner();
    line.vertices = {
        At({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, -1}), At({10, 0, 0}, {0, 1, 0}, {-1, 1, 0}, {1, -1}),
        At({10, 10, 0}, {-1, 0, 0}, {-1, -1, 0}, {1, -1}), At({5, 10, 0}, {0, -1, 0}, {1, -1, 0}, {1, -1}),
        At({5, -5, 0}, {0, -1, 0}, {1, 0, 0}, {1, -1})};
    StyleFor(line, 1);
    const Lines lines = stage.Draw(line);
    EXPECT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[1], "fill 6,9 4,11 4,-5 6,-5") << lines[0];
}

TEST_F(DrawMultiLines, NumbersThatAreNotFiniteAreReported)
{
    MultiLine line = Corner();
    line.vertices[1].parameters[0][0] = std::numeric_limits<double>::infinity();
    EXPECT_EQ(stage.Draw(line), (Lines{"polyline 0,1 9,10", "polyline 0,-1 11,-1 11,10"}));
    EXPECT_EQ(stage.Findings().at(0), "changed: its style is missing");
    EXPECT_EQ(stage.Findings().at(1), "changed: parts with numbers out of range are left out");
    line.vertices.resize(1);
    EXPECT_EQ(stage.Draw(line), Lines{});
}

} // namespace
} // namespace prepare
