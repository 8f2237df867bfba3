// The view box: what is drawn, no more and no less.
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace svghost_tests;

namespace {

// A stroke that adds next to nothing.
void Thin(const HostDocument& document, QlmNode node)
{
    document.Set(node, L"stroke-width", L"0.001000");
}

} // namespace

TEST(ViewBox, EmptyDrawingHasASmallFixedOne)
{
    const HostDocument document;
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.Root().attribute("viewBox").value(), "0 0 100 100");
    EXPECT_EQ(svg.Root().attribute("width").as_int(), 1024);
}

TEST(ViewBox, HasAMarginOfTwoPercent)
{
    const HostDocument document;
    Thin(document, document.Line(0, 0, 100, 50));
    const ViewBox box = ViewBoxOf(ParsedSvg(document));
    ExpectTight(box, 0, 0, 100, 50, 2.1);
    EXPECT_LT(box.x, -1.9);
}

TEST(ViewBox, HoldsTheStroke)
{
    const HostDocument document;
    document.Set(document.Line(0, 0, 100, 0), L"stroke-width", L"40");
    ExpectTight(ViewBoxOf(ParsedSvg(document)), -20, -20, 120, 20, 3);
}

TEST(ViewBox, LargerSideIsAThousandAndTwentyFourPixels)
{
    const HostDocument document;
    Thin(document, document.Line(0, 0, 96, 46));
    const ParsedSvg svg(document);
    EXPECT_EQ(svg.Root().attribute("width").as_int(), 1024);
    EXPECT_NEAR(svg.Root().attribute("height").as_int(), 512, 6);
}

TEST(ViewBox, ArcCountsAsFarAsItIsDrawn)
{
    const HostDocument document;
    // A quarter from (10, 0) to (0, -10), against growing angles: upwards.
    Thin(document, document.Path(L"M 10,0 A 10,10, 0 0,0 0,-10"));
    ExpectTight(ViewBoxOf(ParsedSvg(document)), 0, -10, 10, 0, 0.3);
}

TEST(ViewBox, AShortArcReachesNoFartherThanItsEnds)
{
    // From 35 to 55 degrees of a circle round (0, 0) and the other way round, in each quarter of the plane.
    const float near = 57.357644F, far = 81.915204F;
    for (const float x : {1.0F, -1.0F})
        for (const float y : {1.0F, -1.0F})
            for (const bool isReversed : {false, true}) {
                const HostDocument document;
                const bool startsFar = (x * y > 0) != isReversed;
                const auto point = [&](bool isFar) {
                    return std::to_wstring(x * (isFar ? far : near)) + L"," +
                           std::to_wstring(y * (isFar ? near : far));
                };
                const std::wstring data = L"M " + point(startsFar) + L" A 100,100, 0 0," +
                                          (isReversed ? L"0 " : L"1 ") + point(!startsFar);
                Thin(document, document.Path(data.c_str()));
                ExpectTight(ViewBoxOf(ParsedSvg(document)), std::min(x * near, x * far),
                            std::min(y * near, y * far), std::max(x * near, x * far),
                            std::max(y * near, y * far), 0.6);
            }
}

TEST(ViewBox, LargeArcReachesItsExtremePoints)
{
    const HostDocument document;
    Thin(document, document.Path(L"M 10,0 A 10,10, 0 1,0 0,10"));
    ExpectTight(ViewBoxOf(ParsedSvg(document)), -10, -10, 10, 10, 0.5);
}

TEST(ViewBox, SweepTurnsTheArcTheOtherWay)
{
    const HostDocument document;
    Thin(document, document.Path(L"M -10,0 A 10,10, 0 0,1 10,0"));
    ExpectTight(ViewBoxOf(ParsedSvg(document)), -10, -10, 10, 0, 0.5);
}

TEST(ViewBox, ArcWithRadiiTooSmallIsEnlargedAsViewersDo)
{
    const HostDocument document;
    Thin(document, document.Path(L"M -10,0 A 1,1, 0 0,1 10,0"));
    ExpectTight(ViewBoxOf(ParsedSvg(document)), -10, -10, 10, 0, 0.5);
}

TEST(ViewBox, ArcAfterAClosedFigureStartsWhereThatBegan)
{
    const HostDocument document;
    Thin(document, document.Path(L"M 0,0 L 0,50 Z A 10,10, 0 0,1 20,0"));
    ExpectTight(ViewBoxOf(ParsedSvg(document)), 0, -10, 20, 50, 1.5);
}

TEST(ViewBox, RotatedEllipseIsExact)
{
    const HostDocument document;
    const QlmNode ellipse = document.Ellipse(10, 2, 100, 100);
    Thin(document, ellipse);
    document.Set(ellipse, L"center-x", L"100");
    document.Set(ellipse, L"center-y", L"100");
    document.Set(ellipse, L"rotate", L"90");
    ExpectTight(ViewBoxOf(ParsedSvg(document)), 98, 90, 102, 110, 0.5);
}

TEST(ViewBox, RotatedArcIsExact)
{
    const HostDocument document;
    // The upper half of a circle round (50, 50), turned to the right half.
    const QlmNode path = document.Path(L"M 40,50 A 10,10, 0 0,1 60,50");
    Thin(document, path);
    document.Set(path, L"center-x", L"50");
    document.Set(path, L"center-y", L"50");
    document.Set(path, L"rotate", L"90");
    ExpectTight(ViewBoxOf(ParsedSvg(document)), 50, 40, 60, 60, 0.5);
}

TEST(ViewBox, GoesThroughUsesWithTheirTransforms)
{
    const HostDocument document;
    document.Begin(L"INNER");
    Thin(document, document.Line(0, 0, 10, 5));
    document.End();
    document.Begin(L"OUTER");
    document.Set(document.Use(L"INNER", 100, 0), L"scale-x", L"-2");
    document.End();
    document.Set(document.Use(L"OUTER", 0, 1000), L"rotate", L"90");
    // INNER in OUTER covers (80, 0) to (100, 5); turned by 90 degrees x becomes y and y becomes -x.
    ExpectTight(ViewBoxOf(ParsedSvg(document)), -5, 1080, 0, 1100, 0.5);
}

TEST(ViewBox, SymbolsThatNobodyUsesDoNotCount)
{
    const HostDocument document;
    document.Begin(L"FAR");
    document.Line(5000, 5000, 6000, 6000);
    document.End();
    Thin(document, document.Line(0, 0, 10, 10));
    ExpectTight(ViewBoxOf(ParsedSvg(document)), 0, 0, 10, 10, 0.3);
}

TEST(ViewBox, HiddenElementsDoNotCount)
{
    const HostDocument document;
    Thin(document, document.Line(0, 0, 10, 10));
    document.Set(document.Line(0, 0, 1000, 1000), L"visibility", L"hidden");
    const QlmNode group = document.Group();
    document.Set(group, L"visibility", L"hidden");
    qlmSetCurrentSvgNode(document.Context(), group);
    document.Circle(500, 0, 0);
    qlmSetCurrentSvgNode(document.Context(), nullptr);
    ExpectTight(ViewBoxOf(ParsedSvg(document)), 0, 0, 10, 10, 0.3);
}

TEST(ViewBox, ElementsThatAreShownAgainCount)
{
    const HostDocument document;
    Thin(document, document.Line(0, 0, 10, 10));
    const QlmNode line = document.Line(0, 0, 1000, 1000);
    Thin(document, line);
    document.Set(line, L"visibility", L"hidden");
    document.Set(line, L"visibility", L"visible");
    ExpectTight(ViewBoxOf(ParsedSvg(document)), 0, 0, 1000, 1000, 21);
}

TEST(ViewBox, TextTakesRoomByItsAnchor)
{
    const HostDocument document;
    for (const wchar_t* anchor : {L"left", L"right"}) {
        const QlmNode text = document.Text(0, 0, L"0123456789");
        document.Set(text, L"font-size", L"10.00");
        document.Set(text, L"text-anchor", anchor);
    }
    ExpectTight(ViewBoxOf(ParsedSvg(document)), -60, -9, 60, 2.5, 3);
}

TEST(ViewBox, IdeographsAreAnEmWideIfTheHostIsAskedTo)
{
    const HostDocument document;
    document.Set(document.Text(0, 0, L"\u3044\u308D\u306F\u306Babcde\uFF76"), L"font-size", L"10.00");
    ExpectTight(ViewBoxOf(ParsedSvg(document)), 0, -9, 60, 2.5, 1.8);
    svgHostWidenIdeographs(document.Get());
    document.Set(document.Text(0, 0, L"\u3044\u308D\u306F\u306Babcde\uFF76"), L"font-size", L"10.00");
    ExpectTight(ViewBoxOf(ParsedSvg(document)), 0, -9, 76, 2.5, 2.28);
    svgHostWidenIdeographs(nullptr);
}

TEST(ViewBox, SinglePointHasSomeExtent)
{
    const HostDocument document;
    document.Set(document.Line(1e6f, 1e6f, 1e6f, 1e6f), L"stroke-width", L"0");
    const ViewBox box = ViewBoxOf(ParsedSvg(document));
    EXPECT_GT(static_cast<float>(box.x + box.width), static_cast<float>(box.x));
    EXPECT_GT(static_cast<float>(box.y + box.height), static_cast<float>(box.y));
}

TEST(ViewBox, FollowsLaterChanges)
{
    const HostDocument document;
    const QlmNode line = document.Line(0, 0, 10, 10);
    const std::string before = document.Write();
    document.Set(line, L"visibility", L"hidden");
    EXPECT_NE(document.Write(), before);
    EXPECT_STREQ(ParsedSvg(document).Root().attribute("viewBox").value(), "0 0 100 100");
}
