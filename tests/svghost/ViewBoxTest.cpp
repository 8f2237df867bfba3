// The view box: what is drawn, no more and no less.
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <string>

using namespace svghost_tests;

namespace {

// A stroke that adds next to nothing.
void thin(const HostDocument& document, QlmNode node)
{
    document.set(node, L"stroke-width", L"0.001000");
}

} // namespace

TEST(ViewBox, EmptyDrawingHasASmallFixedOne)
{
    const HostDocument document;
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.root().attribute("viewBox").value(), "0 0 100 100");
    EXPECT_EQ(svg.root().attribute("width").as_int(), 1024);
}

TEST(ViewBox, HasAMarginOfTwoPercent)
{
    const HostDocument document;
    thin(document, document.line(0, 0, 100, 50));
    const ViewBox box = viewBoxOf(ParsedSvg(document));
    expectTight(box, 0, 0, 100, 50, 2.1);
    EXPECT_LT(box.x, -1.9);
}

TEST(ViewBox, HoldsTheStroke)
{
    const HostDocument document;
    document.set(document.line(0, 0, 100, 0), L"stroke-width", L"40");
    expectTight(viewBoxOf(ParsedSvg(document)), -20, -20, 120, 20, 3);
}

TEST(ViewBox, LargerSideIsAThousandAndTwentyFourPixels)
{
    const HostDocument document;
    thin(document, document.line(0, 0, 96, 46));
    const ParsedSvg svg(document);
    EXPECT_EQ(svg.root().attribute("width").as_int(), 1024);
    EXPECT_NEAR(svg.root().attribute("height").as_int(), 512, 6);
}

TEST(ViewBox, ArcCountsAsFarAsItIsDrawn)
{
    const HostDocument document;
    // A quarter from (10, 0) to (0, -10), against growing angles: upwards.
    thin(document, document.path(L"M 10,0 A 10,10, 0 0,0 0,-10"));
    expectTight(viewBoxOf(ParsedSvg(document)), 0, -10, 10, 0, 0.3);
}

TEST(ViewBox, LargeArcReachesItsExtremePoints)
{
    const HostDocument document;
    thin(document, document.path(L"M 10,0 A 10,10, 0 1,0 0,10"));
    expectTight(viewBoxOf(ParsedSvg(document)), -10, -10, 10, 10, 0.5);
}

TEST(ViewBox, SweepTurnsTheArcTheOtherWay)
{
    const HostDocument document;
    thin(document, document.path(L"M -10,0 A 10,10, 0 0,1 10,0"));
    expectTight(viewBoxOf(ParsedSvg(document)), -10, -10, 10, 0, 0.5);
}

TEST(ViewBox, ArcWithRadiiTooSmallIsEnlargedAsViewersDo)
{
    const HostDocument document;
    thin(document, document.path(L"M -10,0 A 1,1, 0 0,1 10,0"));
    expectTight(viewBoxOf(ParsedSvg(document)), -10, -10, 10, 0, 0.5);
}

TEST(ViewBox, RotatedEllipseIsExact)
{
    const HostDocument document;
    const QlmNode ellipse = document.ellipse(10, 2, 100, 100);
    thin(document, ellipse);
    document.set(ellipse, L"center-x", L"100");
    document.set(ellipse, L"center-y", L"100");
    document.set(ellipse, L"rotate", L"90");
    expectTight(viewBoxOf(ParsedSvg(document)), 98, 90, 102, 110, 0.5);
}

TEST(ViewBox, RotatedArcIsExact)
{
    const HostDocument document;
    // The upper half of a circle round (50, 50), turned to the right half.
    const QlmNode path = document.path(L"M 40,50 A 10,10, 0 0,1 60,50");
    thin(document, path);
    document.set(path, L"center-x", L"50");
    document.set(path, L"center-y", L"50");
    document.set(path, L"rotate", L"90");
    expectTight(viewBoxOf(ParsedSvg(document)), 50, 40, 60, 60, 0.5);
}

TEST(ViewBox, GoesThroughUsesWithTheirTransforms)
{
    const HostDocument document;
    document.begin(L"INNER");
    thin(document, document.line(0, 0, 10, 5));
    document.end();
    document.begin(L"OUTER");
    document.set(document.use(L"INNER", 100, 0), L"scale-x", L"-2");
    document.end();
    document.set(document.use(L"OUTER", 0, 1000), L"rotate", L"90");
    // INNER in OUTER covers (80, 0) to (100, 5); turned by 90 degrees x becomes y and y becomes -x.
    expectTight(viewBoxOf(ParsedSvg(document)), -5, 1080, 0, 1100, 0.5);
}

TEST(ViewBox, SymbolsThatNobodyUsesDoNotCount)
{
    const HostDocument document;
    document.begin(L"FAR");
    document.line(5000, 5000, 6000, 6000);
    document.end();
    thin(document, document.line(0, 0, 10, 10));
    expectTight(viewBoxOf(ParsedSvg(document)), 0, 0, 10, 10, 0.3);
}

TEST(ViewBox, HiddenElementsDoNotCount)
{
    const HostDocument document;
    thin(document, document.line(0, 0, 10, 10));
    document.set(document.line(0, 0, 1000, 1000), L"visibility", L"hidden");
    const QlmNode group = document.group();
    document.set(group, L"visibility", L"hidden");
    qlmSetCurrentSvgNode(document.context(), group);
    document.circle(500, 0, 0);
    qlmSetCurrentSvgNode(document.context(), nullptr);
    expectTight(viewBoxOf(ParsedSvg(document)), 0, 0, 10, 10, 0.3);
}

TEST(ViewBox, TextTakesRoomByItsAnchor)
{
    const HostDocument document;
    for (const wchar_t* anchor : {L"left", L"right"}) {
        const QlmNode text = document.text(0, 0, L"0123456789");
        document.set(text, L"font-size", L"10.00");
        document.set(text, L"text-anchor", anchor);
    }
    expectTight(viewBoxOf(ParsedSvg(document)), -60, -9, 60, 2.5, 3);
}

TEST(ViewBox, SinglePointHasSomeExtent)
{
    const HostDocument document;
    document.set(document.line(1e6f, 1e6f, 1e6f, 1e6f), L"stroke-width", L"0");
    const ViewBox box = viewBoxOf(ParsedSvg(document));
    EXPECT_GT(static_cast<float>(box.x + box.width), static_cast<float>(box.x));
    EXPECT_GT(static_cast<float>(box.y + box.height), static_cast<float>(box.y));
}

TEST(ViewBox, FollowsLaterChanges)
{
    const HostDocument document;
    const QlmNode line = document.line(0, 0, 10, 10);
    const std::string before = document.write();
    document.set(line, L"visibility", L"hidden");
    EXPECT_NE(document.write(), before);
    EXPECT_STREQ(ParsedSvg(document).root().attribute("viewBox").value(), "0 0 100 100");
}
