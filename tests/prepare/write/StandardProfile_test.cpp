#include "support/WrittenDrawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace prepare {
namespace {

constexpr const char* kRed = "330 F 100 AcDbEntity 8 0 62 1 370 25 ";

class StandardProfile : public testing::Test {
protected:
    WrittenDrawing written{Profile::Standard};
    const Style red = StyleOf(1, 27); // the format has no weight of 27

    PlainSink& Model() { return written.Model(); }

    // The pairs of the only entity after its handle and those of the red style.
    std::string Entity(const std::string& type)
    {
        const std::string entities = written.Entities();
        const std::string begin = "0 " + type + " 5 ";
        EXPECT_EQ(entities.find(begin), 0u) << entities;
        const std::size_t style = entities.find(kRed);
        if (style == std::string::npos)
            return entities;
        return entities.substr(style + std::string(kRed).size());
    }

    std::string Flat()
    {
        std::string text = written.Text();
        std::replace(text.begin(), text.end(), '\n', ' ');
        return text;
    }
};

TEST_F(StandardProfile, Line)
{
    Model().Line(red, {0, 0}, {10, 5.5});
    EXPECT_EQ(Entity("LINE"), "100 AcDbLine 10 0 20 0 30 0 11 10 21 5.5 31 0");
}

TEST_F(StandardProfile, ADotIsALineAsLongAsTheThinnestStrokeIsWide)
{
    Model().Line(red, {1, 2}, {1, 2});
    EXPECT_EQ(Entity("LINE"), "100 AcDbLine 10 0.875 20 2 30 0 11 1.125 21 2 31 0");
}

TEST_F(StandardProfile, CircleAndArc)
{
    Model().Circle(red, {1, 2}, 3);
    EXPECT_EQ(Entity("CIRCLE"), "100 AcDbCircle 10 1 20 2 30 0 40 3");
    written = WrittenDrawing(Profile::Standard);
    Model().Arc(red, {1, 2}, 3, -std::numbers::pi / 2, std::numbers::pi / 3);
    EXPECT_EQ(Entity("ARC"), "100 AcDbCircle 10 1 20 2 30 0 40 3 100 AcDbArc 50 270 51 60");
}

TEST_F(StandardProfile, Ellipses)
{
    Model().Ellipse(red, {1, 2}, {3, 1}, 0.5, 0.1, 0.1 + 2 * std::numbers::pi);
    EXPECT_EQ(Entity("ELLIPSE"),
              "100 AcDbEllipse 10 1 20 2 30 0 11 3 21 1 31 0 40 0.5 41 0 42 6.283185307179586");
    written = WrittenDrawing(Profile::Standard);
    Model().Ellipse(red, {1, 2}, {3, 1}, 0.5, 1, 5);
    EXPECT_EQ(Entity("ELLIPSE"), "100 AcDbEllipse 10 1 20 2 30 0 11 3 21 1 31 0 40 0.5 41 1 42 5");
}

TEST_F(StandardProfile, PolylineKeepsItsBulges)
{
    const PlainVertex vertices[] = {{{0, 0}, 0}, {{5, 0}, -0.5}, {{5, 5}, 0}};
    Model().Polyline(red, vertices, true);
    EXPECT_EQ(Entity("LWPOLYLINE"), "100 AcDbPolyline 90 3 70 1 10 0 20 0 10 5 20 0 42 -0.5 10 5 20 5");
}

TEST_F(StandardProfile, WhatIsWideIsAPolyline)
{
    Style wide = red;
    wide.width = 0.7;
    Model().Line(wide, {0, 0}, {1, 1});
    EXPECT_EQ(Entity("LWPOLYLINE"), "100 AcDbPolyline 90 2 70 0 43 0.7 10 0 20 0 10 1 20 1");
    written = WrittenDrawing(Profile::Standard);
    Model().Circle(wide, {0, 0}, 5);
    EXPECT_EQ(Entity("LWPOLYLINE"), "100 AcDbPolyline 90 2 70 1 43 0.7 10 -5 20 0 42 1 10 5 20 0 42 1");
    written = WrittenDrawing(Profile::Standard);
    Model().Arc(wide, {0, 0}, 5, 0, std::numbers::pi);
    EXPECT_EQ(Entity("LWPOLYLINE"), "100 AcDbPolyline 90 2 70 0 43 0.7 10 5 20 0 42 1 10 -5 20 0");
}

TEST_F(StandardProfile, Texts)
{
    Model().Text(red, {"\xC3\x84 50%%", {1, 2}, {2, 0}, {0, 2}, Anchor::Start, kNoName});
    EXPECT_EQ(Entity("TEXT"), "100 AcDbText 10 1 20 2 30 0 40 2 1 \xC4 50%%%%%% 50 0 41 1 51 0 7 Standard "
                              "100 AcDbText");
    written = WrittenDrawing(Profile::Standard);
    Model().Text(red, {"m^2", {1, 2}, {0, 3}, {-2, 2}, Anchor::Middle, kNoName});
    EXPECT_EQ(Entity("TEXT"), "100 AcDbText 10 1 20 2 30 0 40 2 1 m^ 2 50 90 41 1.5 51 45 7 Standard 72 1 "
                              "11 1 21 2 31 0 100 AcDbText");
    written = WrittenDrawing(Profile::Standard);
    Model().Text(red, {"x", {1, 2}, {-2, 0}, {0, 2}, Anchor::End, kNoName});
    EXPECT_EQ(Entity("TEXT"), "100 AcDbText 10 1 20 2 30 0 40 2 1 x 50 180 41 1 51 0 7 Standard 71 4 72 2 "
                              "11 1 21 2 31 0 100 AcDbText");
}

TEST_F(StandardProfile, StylesAreNamed)
{
    Names& names = written.drawing.names;
    Layer& walls = written.drawing.layers[names.Of("Walls|1")];
    walls.name = names.Of("Walls|1");
    walls.colour = -3; // off: what is written was to be seen
    Style style = StyleOf(1, 27);
    style.layer = walls.name;
    style.lineType = written.Dashed({5, -2.5, 0, -2.5});
    style.lineTypeScale = 0.5;
    style.colour = {true, 0x2899FF, 7};
    Model().Line(style, {0, 0}, {1, 0});
    const std::string text = Flat();
    EXPECT_NE(text.find("100 AcDbEntity 8 Walls_1 6 DASHED 62 150 420 2660863 370 25 48 0.5 100 AcDbLine"),
              std::string::npos);
    EXPECT_NE(text.find("AcDbLayerTableRecord 2 Walls_1 70 0 62 3 6 Continuous 370 -3 390 E"),
              std::string::npos);
    EXPECT_NE(text.find("AcDbLinetypeTableRecord 2 DASHED 70 0 3  72 65 73 4 40 10 49 5 74 0 49 -2.5 74 0 "
                        "49 0 74 0 49 -2.5 74 0 0 ENDTAB"),
              std::string::npos);
}

TEST_F(StandardProfile, BlocksAreInTheOrderOfTheirNamesAndOwnWhatIsInThem)
{
    DrawingWriter& writer = written.Writer();
    const std::size_t window = writer.NewBlock("Window");
    const std::size_t door = writer.NewBlock("*D1");
    writer.NewBlock("unused");
    writer.Block(window).Insert(door, {3, 4}, 0, false);
    writer.Block(door).Line(red, {0, 0}, {1, 0});
    Model().Insert(window, {1, 1}, std::numbers::pi / 6, true);
    const std::string text = Flat();
    // The records of both blocks, D1 first, and their handles as owners.
    EXPECT_NE(
        text.find("0 BLOCK_RECORD 5 20 330 9 100 AcDbSymbolTableRecord 100 AcDbBlockTableRecord 2 Window"),
        std::string::npos);
    EXPECT_NE(text.find("0 BLOCK_RECORD 5 21 330 9 100 AcDbSymbolTableRecord 100 AcDbBlockTableRecord 2 _D1"),
              std::string::npos);
    EXPECT_NE(text.find("330 20 100 AcDbEntity 8 0 100 AcDbBlockReference 2 _D1 10 3 20 4 30 0 50 0"),
              std::string::npos);
    EXPECT_NE(text.find("330 21 100 AcDbEntity 8 0 62 1 370 25 100 AcDbLine"), std::string::npos);
    EXPECT_NE(
        text.find("330 F 100 AcDbEntity 8 0 100 AcDbBlockReference 2 Window 10 1 20 1 30 0 42 -1 50 30"),
        std::string::npos);
    EXPECT_EQ(text.find("unused"), std::string::npos);
}

// They are of what is written, however far the drawing was measured to reach: so they are the same again.
TEST_F(StandardProfile, ExtentsAreOfWhatIsWritten)
{
    DrawingWriter& writer = written.Writer();
    const std::size_t outer = writer.NewBlock("Outer"), inner = writer.NewBlock("Inner");
    writer.Block(inner).Arc(red, {0, 0}, 5, 0, std::numbers::pi / 2);
    writer.Block(outer).Insert(inner, {10, 0}, std::numbers::pi, false);
    writer.Block(writer.NewBlock("unused")).Line(red, {0, 0}, {1000, 0});
    Model().Insert(outer, {0, 20}, 0, true);
    Model().Line(red, {5, 18}, {12, 18.5});
    EXPECT_NE(Flat().find("$EXTMIN 10 5 20 18 30 0 9 $EXTMAX 10 12 20 25 30 0"), std::string::npos);
}

// In a window twice as wide as high, without a snap that would move what is picked.
TEST_F(StandardProfile, TheViewShowsWhatIsWritten)
{
    Model().Line(red, {5, 18}, {15, 22});
    EXPECT_NE(
        Flat().find("100 AcDbViewportTableRecord 2 *Active 70 0 10 0 20 0 11 1 21 1 12 10 22 20 13 0 23 0 "
                    "14 10 24 10 15 10 25 10 16 0 26 0 36 1 17 0 27 0 37 0 40 5 41 2 42 50 43 0 44 0 "
                    "50 0 51 0 71 0 72 1000 73 1 74 3 75 0 76 0 77 0 78 0 0 ENDTAB"),
        std::string::npos);
}

// Both are A3 sheets without margins, in millimetres, at 1:1, and have the world's axes.
TEST_F(StandardProfile, TheLayoutOfTheModelKnowsItsExtentsAndTheSheetIsEmpty)
{
    const std::string sheet = "1  2  4  6  40 0 41 0 42 0 43 0 44 420 45 297 46 0 47 0 48 0 49 0 140 0 141 0 "
                              "142 1 143 1 70 ";
    const std::string scale = " 72 1 73 0 74 5 7  75 16 147 1 148 0 149 0 100 AcDbLayout ";
    const std::string limits = " 10 0 20 0 11 420 21 297 12 0 22 0 32 0 ";
    const std::string axes = " 146 0 13 0 23 0 33 0 16 1 26 0 36 0 17 0 27 1 37 0 76 0 ";
    Model().Line(red, {5, 18}, {15, 22});
    const std::string text = Flat();
    EXPECT_NE(text.find(sheet + "1696" + scale + "1 Model 70 1 71 0" + limits +
                        "14 5 24 18 34 0 15 15 25 22 35 0" + axes + "330 F 0 LAYOUT"),
              std::string::npos);
    EXPECT_NE(text.find(sheet + "672" + scale + "1 Layout1 70 1 71 1" + limits +
                        "14 0 24 0 34 0 15 0 25 0 35 0" + axes + "330 10 0 ENDSEC"),
              std::string::npos);
}

// Each point once, as a reader has it, and no ring that bounds nothing. Handles are counted without the fill
// that is left out.
TEST_F(StandardProfile, FillsHaveNoPointTwice)
{
    const double near = 1e-16;
    const std::vector<Point2> triangle{{0, 0}, {4, 0}, {4, near}, {4 + near, 0}, {0, 3}, {0, near}};
    const std::vector<Point2> line{{1, 1}, {2, 1}, {2, 1 + near}};
    Model().Fill(red, std::vector<std::vector<Point2>>{triangle, line});
    Model().Fill(red, std::vector<std::vector<Point2>>{line});
    const std::string text = Flat();
    EXPECT_NE(text.find("91 1 92 3 72 0 73 1 93 3 10 0 20 0 10 4 20 0 10 0 20 3 97 0 75 0"),
              std::string::npos);
    EXPECT_EQ(text.find("0 HATCH"), text.rfind("0 HATCH"));
    const std::string without = text.substr(text.find("$HANDSEED"), 20);
    written = WrittenDrawing(Profile::Standard);
    Model().Fill(red, std::vector<std::vector<Point2>>{triangle});
    EXPECT_NE(Flat().find(without), std::string::npos);
}

// Each handle (5, and 105 of a dimension style) once, all below the seed.
TEST_F(StandardProfile, HandlesDifferAndAreBelowTheSeed)
{
    const std::size_t block = written.Writer().NewBlock("Door");
    written.Writer().Block(block).Line(red, {0, 0}, {1, 0});
    Model().Insert(block, {1, 1}, 0, false);
    Model().Line(red, {0, 0}, {1, 0});
    std::string text = written.Text();
    std::vector<unsigned long> handles;
    unsigned long seed = 0;
    std::vector<std::string> lines;
    for (std::size_t end; (end = text.find('\n')) != std::string::npos; text.erase(0, end + 1))
        lines.push_back(text.substr(0, end));
    for (std::size_t i = 0; i + 1 < lines.size(); i += 2) {
        if (lines[i] != "5" && lines[i] != "105")
            continue;
        const unsigned long handle = std::stoul(lines[i + 1], nullptr, 16);
        if (i >= 2 && lines[i - 1] == "$HANDSEED")
            seed = handle;
        else
            handles.push_back(handle);
    }
    ASSERT_GT(handles.size(), 30u);
    std::sort(handles.begin(), handles.end());
    EXPECT_EQ(std::adjacent_find(handles.begin(), handles.end()), handles.end());
    EXPECT_EQ(seed, handles.back() + 1);
}

} // namespace
} // namespace prepare
