#include "prepare/plain/Sheet.h"

#include "prepare/support/ReadText.h"

#include <gtest/gtest.h>

#include <cmath>

namespace prepare {
namespace {

Layout Paper(double width, double height)
{
    Layout layout;
    layout.paperWidth = width;
    layout.paperHeight = height;
    layout.leftMargin = 1;
    layout.bottomMargin = 2;
    layout.rightMargin = 3;
    layout.topMargin = 4;
    return layout;
}

// Where a point of the paper space comes to on the sheet.
Point2 Placed(const Layout& layout, Point2 point)
{
    return SheetOf(layout).matrix.Flat({point.x, point.y, 0});
}

TEST(Sheet, OriginIsTheCornerOfTheMarginsAndTheOffset)
{
    Layout layout = Paper(420, 297);
    EXPECT_EQ(Placed(layout, {0, 0}), (Point2{1, 2}));
    EXPECT_EQ(Placed(layout, {10, 20}), (Point2{11, 22}));
    layout.offsetX = 5;
    layout.offsetY = 6;
    EXPECT_EQ(Placed(layout, {0, 0}), (Point2{6, 8}));
    EXPECT_EQ(SheetOf(layout).width, 420);
    EXPECT_EQ(SheetOf(layout).height, 297);
}

TEST(Sheet, PaperIsTurnedWithItsMargins)
{
    const Point2 corners[] = {{1, 2}, {4, 1}, {3, 4}, {2, 3}};
    for (std::int32_t turns = -4; turns < 8; ++turns) {
        Layout layout = Paper(420, 297);
        layout.quarterTurns = turns;
        EXPECT_EQ(Placed(layout, {0, 0}), corners[(turns + 4) % 4]) << turns;
        EXPECT_EQ(SheetOf(layout).width, turns % 2 == 0 ? 420 : 297) << turns;
    }
}

TEST(Sheet, InchesAndScalesBecomeMillimetres)
{
    Layout layout = Paper(420, 297);
    layout.paperUnits = 0;
    EXPECT_EQ(SheetOf(layout).scale, 25.4);
    EXPECT_DOUBLE_EQ(Placed(layout, {10, 0}).x, 255);
    EXPECT_DOUBLE_EQ(Placed(layout, {10, 0}).y, 2);
    layout.paperUnits = 1;
    layout.scaledLength = 1000; // paper space in metres
    EXPECT_EQ(Placed(layout, {0.25, 0}), (Point2{251, 2}));
    layout.unscaledLength = 2;
    EXPECT_EQ(SheetOf(layout).scale, 500);
}

TEST(Sheet, ScalesThatAreNoneAreOne)
{
    for (const double length : {0.0, -1.0, 1e-300, std::nan(""), HUGE_VAL}) {
        Layout layout = Paper(420, 297);
        layout.scaledLength = length;
        EXPECT_EQ(SheetOf(layout).scale, 1) << length;
        layout.scaledLength = 1;
        layout.unscaledLength = length;
        EXPECT_EQ(SheetOf(layout).scale, 1) << length;
    }
}

TEST(Sheet, WindowIsAtTheCornerOrInTheMiddle)
{
    Layout layout = Paper(420, 297);
    layout.plotArea = 4;
    layout.windowLeft = 100;
    layout.windowBottom = 50;
    layout.windowRight = 300;
    layout.windowTop = 150;
    EXPECT_EQ(Placed(layout, {100, 50}), (Point2{1, 2}));
    layout.plotFlags = 4;
    EXPECT_EQ(Placed(layout, {200, 100}), (Point2{210, 148.5}));
    layout.windowTop = 50; // no window
    EXPECT_EQ(Placed(layout, {0, 0}), (Point2{1, 2}));
}

TEST(Sheet, WithoutAPaperThePaperSpaceIsAsItIs)
{
    for (const double side : {0.0, -420.0, 0.5, 1e7, std::nan(""), HUGE_VAL}) {
        const Sheet sheet = SheetOf(Paper(side, 297));
        EXPECT_FALSE(sheet.HasPaper()) << side;
        EXPECT_TRUE(sheet.Paper().IsEmpty()) << side;
        EXPECT_EQ(sheet.matrix.Flat({7, 8, 0}), (Point2{7, 8})) << side;
    }
}

std::string LayoutObject(const std::string& name, const std::string& record, const std::string& order)
{
    return Dxf({{0, "LAYOUT"},
                {5, "A1"},
                {330, "1A"},
                {100, "AcDbPlotSettings"},
                {1, "a setup"},
                {40, "7.5"},
                {44, "210"},
                {45, "297"},
                {70, "688"},
                {72, "1"},
                {73, "1"},
                {100, "AcDbLayout"},
                {1, name},
                {70, "1"},
                {71, order},
                {330, record},
                {331, "33"}});
}

const std::string kRecords = Dxf({{0, "SECTION"},
                                  {2, "TABLES"},
                                  {0, "TABLE"},
                                  {2, "BLOCK_RECORD"},
                                  {0, "BLOCK_RECORD"},
                                  {5, "10"},
                                  {2, "*Model_Space"},
                                  {0, "BLOCK_RECORD"},
                                  {5, "20"},
                                  {2, "*Paper_Space"},
                                  {0, "BLOCK_RECORD"},
                                  {5, "30"},
                                  {2, "*Paper_Space0"},
                                  {0, "ENDTAB"},
                                  {0, "ENDSEC"}});

ReadDrawingOf DrawingWith(const std::string& objects)
{
    return ReadDrawingOf(kRecords + Dxf({{0, "SECTION"}, {2, "OBJECTS"}}) + objects +
                         Dxf({{0, "ENDSEC"}, {0, "EOF"}}));
}

TEST(Sheet, LayoutsAreThoseOfTheObjectsInTheOrderOfTheirTabs)
{
    const ReadDrawingOf read =
        DrawingWith(LayoutObject("Second", "30", "2") + LayoutObject("Model", "10", "0") +
                    LayoutObject("First", "20", "1") + LayoutObject("SECOND", "30", "3"));
    ASSERT_EQ(read.drawing.layouts.size(), 2U);
    const Layout& first = read.drawing.layouts[0];
    EXPECT_EQ(first.name, "First");
    EXPECT_EQ(first.record, 0x20U);
    EXPECT_TRUE(first.isActive);
    EXPECT_EQ(first.leftMargin, 7.5);
    EXPECT_EQ(first.plotFlags, 688);
    EXPECT_EQ(SheetOf(first).width, 297);
    EXPECT_EQ(read.drawing.layouts[1].name, "Second");
    EXPECT_FALSE(read.drawing.layouts[1].isActive);
    EXPECT_EQ(FindLayout(read.drawing, "second"), &read.drawing.layouts[1]);
    EXPECT_EQ(FindLayout(read.drawing, "Model"), nullptr);
    EXPECT_EQ(FindLayout(read.drawing, ""), nullptr);
}

TEST(Sheet, WithoutObjectsTheBlocksAreTheLayouts)
{
    const ReadDrawingOf read(Dxf({{0, "SECTION"},
                                  {2, "BLOCKS"},
                                  {0, "BLOCK"},
                                  {2, "$PAPER_SPACE"},
                                  {0, "ENDBLK"},
                                  {0, "BLOCK"},
                                  {2, "$MODEL_SPACE"},
                                  {0, "ENDBLK"},
                                  {0, "ENDSEC"},
                                  {0, "EOF"}}));
    ASSERT_EQ(read.drawing.layouts.size(), 1U);
    EXPECT_EQ(read.drawing.layouts[0].name, "Layout1");
    EXPECT_TRUE(read.drawing.layouts[0].isActive);
}

TEST(Sheet, MembersAreKnownByOwnerNameOrSpace)
{
    ReadDrawingOf read = DrawingWith(LayoutObject("First", "20", "1") + LayoutObject("Second", "30", "2"));
    const LayoutMembers first(read.drawing, read.drawing.layouts[0]);
    const LayoutMembers second(read.drawing, read.drawing.layouts[1]);
    Line line;
    EXPECT_FALSE(first.Has(line));
    line.isInPaperSpace = 1;
    EXPECT_TRUE(first.Has(line));
    EXPECT_FALSE(second.Has(line));
    line.layout = read.drawing.names.Of("SECOND");
    EXPECT_FALSE(first.Has(line));
    EXPECT_TRUE(second.Has(line));
    line.owner = 0x20;
    EXPECT_TRUE(first.Has(line));
    EXPECT_FALSE(second.Has(line));
}

} // namespace
} // namespace prepare
