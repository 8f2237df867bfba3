#include "prepare/plain/Viewports.h"

#include "prepare/plain/Curves.h"
#include "prepare/support/ReadText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace prepare {
namespace {

class Windows : public testing::Test {
protected:
    Windows() { layout.isActive = true; }

    static Viewport Window()
    {
        Viewport viewport;
        viewport.isInPaperSpace = 1;
        viewport.id = 2;
        viewport.centre = {100, 50, 0};
        viewport.width = 40;
        viewport.height = 20;
        viewport.viewHeight = 10;
        viewport.viewCentre = {7, 8};
        return viewport;
    }
    std::vector<prepare::Window> Read(const std::vector<Viewport>& viewports)
    {
        WindowReader reader(drawing, layout, sheet, report);
        for (const Viewport& viewport : viewports)
            reader.Take(viewport);
        return std::move(reader.Windows());
    }
    // Where the only window shows a point of the model.
    Point2 Shown(const Viewport& viewport, Point3 point)
    {
        const auto windows = Read({viewport});
        if (windows.size() != 1)
            return {-1, -1};
        const Point2 shown = windows[0].matrix.Flat(point);
        return {std::round(shown.x * 1e6) / 1e6 + 0.0, std::round(shown.y * 1e6) / 1e6 + 0.0};
    }
    std::string Found() const
    {
        std::string all;
        for (const auto& [key, met] : report.Entries())
            all += key.subject + ": " + key.detail + " (" + std::to_string(met.count) + ");";
        return all;
    }

    Drawing drawing;
    Layout layout;
    Sheet sheet;
    Report report;
};

TEST_F(Windows, CentreOfTheViewIsAtTheCentreOfTheWindow)
{
    EXPECT_EQ(Shown(Window(), {7, 8, 3}), (Point2{100, 50}));
    EXPECT_EQ(Shown(Window(), {8, 8, 0}), (Point2{102, 50}));
    const auto windows = Read({Window()});
    EXPECT_EQ(windows[0].scale, 2);
    EXPECT_EQ(windows[0].outline, (std::vector<Point2>{{80, 40}, {120, 40}, {120, 60}, {80, 60}}));
}

TEST_F(Windows, TwistTurnsWhatIsShownAboutTheTarget)
{
    Viewport viewport = Window();
    viewport.twist = 90;
    viewport.viewCentre = {};
    viewport.target = {7, 8, 0};
    EXPECT_EQ(Shown(viewport, {7, 8, 0}), (Point2{100, 50}));
    EXPECT_EQ(Shown(viewport, {8, 8, 0}), (Point2{100, 52}));
}

TEST_F(Windows, ViewsFromTheFrontAndFromBelow)
{
    Viewport viewport = Window();
    viewport.viewCentre = {};
    viewport.direction = {0, -1, 0};
    EXPECT_EQ(Shown(viewport, {1, 5, 2}), (Point2{102, 54}));
    EXPECT_FALSE(Read({viewport})[0].isFromAbove);
    viewport.direction = {0, 0, -1};
    EXPECT_EQ(Shown(viewport, {1, 5, 2}), (Point2{98, 60}));
    viewport.direction = {}; // none: from above
    EXPECT_EQ(Shown(viewport, {1, 5, 2}), (Point2{102, 60}));
}

TEST_F(Windows, SheetItselfIsNoWindow)
{
    Viewport itself = Window();
    itself.id = 1;
    EXPECT_TRUE(Read({itself}).empty());
    itself.id = 0; // as in layouts that were never looked at
    EXPECT_EQ(Read({itself, itself}).size(), 1U);
    itself.id = 5;
    EXPECT_EQ(Read({itself}).size(), 1U);
    itself.viewCentre = {100, 50};
    itself.viewHeight = 20;
    EXPECT_TRUE(Read({itself}).empty());
    EXPECT_EQ(Found(), "");
}

// Or what comes after it would count as the sheet.
TEST_F(Windows, OneWithABrokenNumberComesFirst)
{
    Viewport broken = Window();
    broken.id = 3;
    broken.fault = Fault::NotFinite;
    Viewport second = Window();
    second.id = 0;
    const std::string told = "VIEWPORT: " + std::string(TextOf(broken.fault)) + " (1);";
    EXPECT_EQ(Read({broken, second}).size(), 1U);
    EXPECT_EQ(Found(), told);
    Viewport sheetItself = broken;
    sheetItself.id = 1;
    EXPECT_EQ(Read({sheetItself, second}).size(), 1U);
    EXPECT_EQ(Found(), told);
}

TEST_F(Windows, ThoseThatAreOffShowNothing)
{
    Viewport viewport = Window();
    viewport.status = 0; // of an old drawing
    EXPECT_TRUE(Read({viewport}).empty());
    viewport.hasFlags = true;
    EXPECT_EQ(Read({viewport}).size(), 1U);
    viewport.flags = 0x20000;
    viewport.status = 2;
    EXPECT_TRUE(Read({viewport}).empty());
    viewport = Window();
    viewport.isInvisible = 1;
    EXPECT_TRUE(Read({viewport}).empty());
    EXPECT_EQ(Found(), "");
}

TEST_F(Windows, OtherLayoutsHaveTheirOwn)
{
    Viewport viewport = Window();
    viewport.isInPaperSpace = 0;
    EXPECT_TRUE(Read({viewport}).empty());
    viewport.isInPaperSpace = 1;
    layout.isActive = false;
    EXPECT_TRUE(Read({viewport}).empty());
}

TEST_F(Windows, WithoutASizeOrAPlaceThereIsNone)
{
    for (double Viewport::*const size : {&Viewport::width, &Viewport::height, &Viewport::viewHeight})
        for (const double value : {0.0, -1.0, std::nan(""), HUGE_VAL}) {
            Viewport viewport = Window();
            viewport.*size = value;
            EXPECT_TRUE(Read({viewport}).empty());
        }
    EXPECT_EQ(Found(), "VIEWPORT: it has no size (12);");
    report = {};
    Viewport far = Window();
    far.centre.x = 1e308;
    far.width = 1e308;
    far.height = 1e-300;
    far.viewHeight = 1e300;
    EXPECT_TRUE(Read({far}).empty());
    far = Window();
    far.viewCentre.x = std::nan("");
    EXPECT_TRUE(Read({far}).empty());
    EXPECT_EQ(Found(), "VIEWPORT: its place is no number (2);");
}

TEST_F(Windows, PerspectiveIsSaid)
{
    Viewport viewport = Window();
    viewport.flags = 1;
    EXPECT_EQ(Read({viewport}).size(), 1U);
    EXPECT_EQ(Found(), "VIEWPORT: its perspective is drawn as a parallel view (1);");
}

TEST_F(Windows, MoreThanAreLookedAtAreLeftOut)
{
    EXPECT_EQ(Read(std::vector<Viewport>(10'000, Window())).size(), 256U);
    EXPECT_EQ(Found(), "layout: more than 256 viewports (9744);");
}

TEST_F(Windows, FrozenLayersAreKnownByHandleAndByName)
{
    Layer layer;
    layer.name = drawing.names.Of("A");
    layer.handle = 0x77;
    drawing.layers.try_emplace(layer.name, layer);
    Viewport viewport = Window();
    viewport.frozen = {0x77, 0x78};
    viewport.frozenByName = {drawing.names.Of("B")};
    const auto windows = Read({viewport});
    EXPECT_EQ(windows[0].frozen, (std::set<NameId>{drawing.names.Of("A"), drawing.names.Of("B")}));
}

TEST_F(Windows, OldDrawingsSayInTheirDataWhatIsShown)
{
    const ReadBlock read(
        {{0, "VIEWPORT"}, {10, "1"},   {20, "2"},       {40, "3"},    {41, "4"},
         {68, "2"},       {69, "2"},   {1001, "OTHER"}, {1040, "99"}, {1001, "ACAD"},
         {1000, "MVIEW"}, {1002, "{"}, {1070, "16"},    {1010, "5"},  {1020, "6"},
         {1030, "7"},     {1010, "0"}, {1020, "0"},     {1030, "1"},  {1040, "3.14159265358979"},
         {1040, "8"},     {1040, "9"}, {1040, "10"},    {1040, "50"}, {1070, "1"},
         {1070, "100"},   {1002, "{"}, {1003, "HID"},   {1002, "}"},  {1002, "}"}});
    const Viewport& viewport = read.As<Viewport>();
    EXPECT_EQ(viewport.target, (Point3{5, 6, 7}));
    EXPECT_EQ(viewport.direction, (Point3{0, 0, 1}));
    EXPECT_NEAR(viewport.twist, 180, 1e-9);
    EXPECT_EQ(viewport.viewHeight, 8);
    EXPECT_EQ(viewport.viewCentre, (Point2{9, 10}));
    EXPECT_EQ(viewport.flags, 1);
    EXPECT_FALSE(viewport.hasFlags);
    ASSERT_EQ(viewport.frozenByName.size(), 1U);
    EXPECT_EQ(read.Text(viewport.frozenByName[0]), "HID");
}

class Outlines : public Windows {
protected:
    std::vector<prepare::Window> Cut(const Entity& entity, const ConvertSettings& limits = {})
    {
        Viewport viewport = Window();
        viewport.clip = 0x9;
        auto windows = Read({viewport, viewport});
        OutlineReader reader(drawing, sheet, limits, windows);
        EXPECT_TRUE(reader.IsNeeded());
        reader.Take(entity);
        reader.Finish(report);
        return windows;
    }
};

TEST_F(Outlines, AreTheEntitysPoints)
{
    LwPolyline polyline;
    polyline.handle = 0x9;
    polyline.isInPaperSpace = 1;
    polyline.flags = 1;
    for (const Point2 point : {Point2{0, 0}, Point2{4, 0}, Point2{0, 4}})
        polyline.vertices.push_back({{point.x, point.y, 0}});
    for (const prepare::Window& window : Cut(polyline))
        EXPECT_EQ(window.outline, (std::vector<Point2>{{0, 0}, {4, 0}, {0, 4}, {0, 0}}));
    EXPECT_EQ(Found(), "");
    Circle circle;
    circle.handle = 0x9;
    circle.isInPaperSpace = 1;
    circle.centre = {100, 50, 0};
    circle.radius = 10;
    const auto round = Cut(circle);
    EXPECT_GT(round[1].outline.size(), 30U);
    for (const Point2 point : round[1].outline)
        EXPECT_NEAR(Length(point - Point2{100, 50}), 10, 1e-9);
}

LwPolyline Circles(std::size_t halves)
{
    LwPolyline polyline;
    polyline.handle = 0x9;
    polyline.isInPaperSpace = 1;
    PolylineVertex vertex;
    vertex.bulge = 1;
    polyline.vertices.resize(halves, vertex);
    for (std::size_t i = 1; i < halves; i += 2)
        polyline.vertices[i].point.x = 100;
    return polyline;
}

TEST_F(Outlines, OfMoreCornersThanThingsAreCutAlongAreBoxes)
{
    EXPECT_GT(Cut(Circles(3))[0].outline.size(), 60U);
    for (const prepare::Window& window : Cut(Circles(101)))
        EXPECT_EQ(window.outline.size(), 4U);
    EXPECT_EQ(Found(), "VIEWPORT: " + std::string(kCutAlongBox) + " (2);");
}

TEST_F(Outlines, ShareWhatTheDrawingMayComeTo)
{
    ConvertSettings limits;
    limits.sparePointsOfCurves = 20;
    const std::size_t whole = Cut(Circles(3))[0].outline.size();
    EXPECT_LT(Cut(Circles(3), limits)[0].outline.size(), whole);
    limits.mostPoints = 0;
    EXPECT_EQ(Cut(Circles(3), limits)[0].outline.size(), 4U);
    EXPECT_EQ(Found(), "VIEWPORT: its outline is missing: its rectangle is in its place (2);");
}

TEST_F(Outlines, ThatAreNoneLeaveTheRectangle)
{
    Line line;
    line.handle = 0x9;
    line.isInPaperSpace = 1;
    Viewport itself = Window();
    itself.handle = 0x9;
    Circle elsewhere;
    elsewhere.handle = 0x9;
    elsewhere.radius = 10;
    Circle huge = elsewhere;
    huge.isInPaperSpace = 1;
    huge.radius = HUGE_VAL;
    Insert insert;
    insert.handle = 0x9;
    insert.isInPaperSpace = 1;
    insert.block = drawing.names.Of("A");
    auto block = std::make_unique<Block>();
    block->entities.push_back(std::make_unique<LwPolyline>(Circles(3)));
    drawing.blocks.emplace(insert.block, std::move(block));
    const Entity* const entities[] = {&line, &itself, &elsewhere, &huge, &insert};
    for (const Entity* const entity : entities) {
        report = {};
        EXPECT_EQ(Cut(*entity)[0].outline.size(), 4U);
        EXPECT_EQ(Found(), "VIEWPORT: its outline is missing: its rectangle is in its place (2);");
    }
}

} // namespace
} // namespace prepare
