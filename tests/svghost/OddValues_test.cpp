// Values that the module does not write, and other users of the host may: kept when viewers draw them, left
// out or passed on when not.
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>

using namespace svghost_tests;

namespace {

std::string ColourOf(const wchar_t* value)
{
    const HostDocument document;
    document.Set(document.Line(0, 0, 1, 1), L"stroke", value);
    return ParsedSvg(document).First("line").attribute("stroke").value();
}

// The path data in the file, "(none)" for a path that is left out.
std::string DataOf(const std::wstring& data)
{
    const HostDocument document;
    document.Path(data.c_str());
    const ParsedSvg svg(document);
    const pugi::xml_node path = svg.First("path");
    EXPECT_EQ(document.Statistics().undrawableElements, path ? 0u : 1u);
    return path ? path.attribute("d").value() : "(none)";
}

std::string WidthOf(const wchar_t* value)
{
    const HostDocument document;
    document.Set(document.Line(0, 0, 1, 1), L"stroke-width", value);
    const ParsedSvg svg(document);
    const pugi::xml_attribute width = svg.First("line").attribute("stroke-width");
    return width ? width.value() : "(none)";
}

std::string BackgroundOf(const char* colour)
{
    const HostDocument document;
    document.Line(0, 0, 1, 1);
    return ParsedSvg(document.Write(colour)).Root().child("rect").attribute("fill").value();
}

ViewBox BoxOfPath(const wchar_t* data)
{
    const HostDocument document;
    const QlmNode path = document.Path(data);
    document.Set(path, L"stroke-width", L"0.000001");
    return ViewBoxOf(ParsedSvg(document));
}

} // namespace

TEST(OddColours, RgbIsReadInSmallLettersAndWithBlanks)
{
    EXPECT_EQ(ColourOf(L"rgb(1,2,3)"), "#010203");
    EXPECT_EQ(ColourOf(L"rgb( 1 , 2 , 3 )"), "#010203");
}

TEST(OddColours, PartAboveTheLargestIsTheLargest)
{
    EXPECT_EQ(ColourOf(L"RGB(256,2555,4294967297)"), "#ffffff");
}

TEST(OddColours, RgbThatIsBrokenPasses)
{
    for (const wchar_t* text : {L"RGB(", L"RGB(,2,3)", L"RGB(1", L"RGB(1/2,3)", L"RGB(1:2,3)", L"RGB(1,2,3",
                                L"RGB(1,2,3,", L"RGB(1,2,3) ", L"rGB(1,2,3)"})
        EXPECT_EQ(ColourOf(text), std::string(text, text + std::char_traits<wchar_t>::length(text)));
}

TEST(OddColours, WhatAViewerWouldFetchIsLeftOut)
{
    for (const wchar_t* text : {L"url(http://localhost/a)", L"URL(#a)", L"red url(a)", L"src(a)",
                                L"u\\72l(a)", L"rgb(from url(a) r g b)", L"(a)", L"image-set(a)"}) {
        EXPECT_EQ(ColourOf(text), "") << text;
        const HostDocument document;
        const QlmNode line = document.Line(0, 0, 10, 0);
        document.Set(line, L"stroke", text);
        document.Set(line, L"visibility", text);
        document.Set(line, L"pg-end-arrow-type", L"stealth arrow");
        document.Set(document.Text(0, 0, L"a"), L"stroke", text);
        EXPECT_EQ(document.Write().find("a)"), std::string::npos) << text;
    }
}

TEST(OddColours, FunctionsOfColoursPass)
{
    for (const char* text : {"hsl(120deg 50% 20% / 0.5)", "RGBA(1,2,3,0.5)", "oklch(50% 0.1 20)"})
        EXPECT_EQ(ColourOf(std::wstring(text, text + std::strlen(text)).c_str()), text);
}

TEST(OddPaths, AnyBlanksSeparate)
{
    EXPECT_EQ(DataOf(L"M\t0,0\nL\r1\t1 "), DataOf(L"M 0,0 L 1,1"));
}

TEST(OddPaths, LetterWhoseLowByteIsACommandIsNone)
{
    EXPECT_EQ(DataOf(L"M 0,0 \x014C 1,1"), "(none)");
}

TEST(OddPaths, NumbersAfterAClosedPathAreInvalid)
{
    EXPECT_EQ(DataOf(L"M 0,0 L 1,1 Z 5,5"), "(none)");
}

TEST(OddPaths, ArcNeedsEachOfItsNumbers)
{
    EXPECT_NE(DataOf(L"M 0,0 A 1 1 0 0 1 5,5"), "(none)");
    for (const wchar_t* arc : {L"A", L"A 1", L"A 1 1", L"A 1 1 0", L"A 1 1 0 0", L"A 1 1 0 0 1",
                               L"A 1 1 0 0 1 5", L"A 1 1 0 2 1 5,5", L"A 1 1 0 0 -1 5,5"})
        EXPECT_EQ(DataOf(std::wstring(L"M 0,0 ") + arc), "(none)");
}

TEST(OddPaths, ArcOfNoRadiusIsALine)
{
    ExpectTight(BoxOfPath(L"M 0,0 A 0 5 0 0 1 10,10"), 0, 0, 10, 10, 0.5);
    ExpectTight(BoxOfPath(L"M 0,0 A 5 0 0 0 1 10,10"), 0, 0, 10, 10, 0.5);
}

TEST(OddPaths, ArcThatEndsWhereItBeginsDrawsNothing)
{
    ExpectTight(BoxOfPath(L"M 0,0 L 10,10 A 50 50 0 1 1 10,10"), 0, 0, 10, 10, 0.5);
}

TEST(OddPaths, ArcBetweenPointsAboveOrBesideEachOtherIsDrawn)
{
    ExpectTight(BoxOfPath(L"M 0,0 A 5 5 0 0 1 0,10"), 0, 0, 5, 10, 0.5);
    ExpectTight(BoxOfPath(L"M 0,0 A 5 5 0 0 0 10,0"), 0, 0, 10, 5, 0.5);
}

TEST(OddPaths, AxesOfAnArcMayBeTurned)
{
    // A quarter turn exchanges the radii: half an ellipse, 4 to the side.
    ExpectTight(BoxOfPath(L"M 0,0 A 5 4 90 0 1 0,10"), 0, 0, 4, 10, 0.5);
}

TEST(OddPaths, ArcTooSmallForItsOwnSquareIsDrawn)
{
    const ViewBox box = BoxOfPath(L"M 0,0 A 1e-170 1e-170 0 0 1 1e-170,1e-170 L 10,10");
    ExpectTight(box, 0, 0, 10, 10, 0.5);
}

TEST(OddPaths, TurnedPolylineHasTheBoxOfItsTurnedBox)
{
    const HostDocument document;
    const QlmNode line = document.Polyline(L"0,0 10,0");
    document.Set(line, L"stroke-width", L"0.000001");
    document.Set(line, L"rotate", L"90");
    document.Set(line, L"center-x", L"0");
    document.Set(line, L"center-y", L"0");
    ExpectTight(ViewBoxOf(ParsedSvg(document)), 0, 0, 0, 10, 0.5);
}

TEST(OddNumbers, ExponentsAreKept)
{
    EXPECT_EQ(WidthOf(L"1e1"), "1e1");
    EXPECT_EQ(WidthOf(L"1E+1"), "1E+1");
    EXPECT_EQ(WidthOf(L"25e-1"), "25e-1");
}

TEST(OddNumbers, BlanksRoundANumberAreDropped)
{
    EXPECT_EQ(WidthOf(L"  2.5  "), "2.5");
}

TEST(OddNumbers, ZeroIsWrittenShort)
{
    EXPECT_EQ(DataOf(L"M .000,-.0 L 0.0,-0.0"), DataOf(L"M 0,0 L 0,0"));
}

TEST(OddNumbers, ExponentWithoutDigitsAndNumbersOutOfRangeAreNone)
{
    for (const wchar_t* number : {L"1e", L"1e+", L"1e-x", L"1e999", L".", L"-"})
        EXPECT_EQ(DataOf(std::wstring(L"M 0,0 L 1,") + number), "(none)");
}

TEST(OddNumbers, NumberOfMoreDigitsThanADoubleHoldsIsNear)
{
    const ViewBox box = BoxOfPath(L"M 0,0 L 90071.99254740993123,90071.9925474099312345678");
    EXPECT_NEAR(box.width, 90071.99254740993 * 1.04, 0.01);
}

TEST(OddNumbers, EveryCoordinateHasToBeFinite)
{
    const float odd = std::numeric_limits<float>::infinity();
    const HostDocument document;
    document.Line(odd, 0, 1, 1);
    document.Line(0, 0, odd, 1);
    document.Ellipse(1, 1, 0, odd);
    document.Text(0, odd, L"a");
    document.Use(L"A", odd, 0);
    EXPECT_EQ(document.Statistics().undrawableElements, 5u);
}

TEST(OddAttributes, EachNameHasItsOwnValue)
{
    const HostDocument document;
    const QlmNode line = document.Line(0, 0, 1, 1);
    for (const wchar_t* name : {L"first", L"second", L"first"})
        document.Set(line, name, name[0] == L'f' ? L"1" : L"2");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("line").attribute("data-first").value(), "1");
    EXPECT_STREQ(svg.First("line").attribute("data-second").value(), "2");
}

TEST(OddAttributes, SymbolKeepsItsOwnNameAndOthersValues)
{
    const HostDocument document;
    const QlmNode symbol = document.Begin(L"S");
    document.Set(symbol, L"name", L"another");
    document.Set(symbol, L"first", L"1");
    document.Line(0, 0, 1, 1);
    document.End();
    document.Use(L"S", 0, 0);
    const ParsedSvg svg(document);
    const pugi::xml_node written = svg.Definitions().child("symbol");
    EXPECT_STREQ(written.attribute("data-name").value(), "S");
    EXPECT_STREQ(written.attribute("data-first").value(), "1");
}

TEST(OddAttributes, ArrowOfALineWithAnEmptyColourHasTheColourOfLinesWithoutOne)
{
    const HostDocument document;
    const QlmNode line = document.Line(0, 0, 10, 0);
    document.Set(line, L"stroke", L"");
    document.Set(line, L"pg-end-arrow-type", L"stealth arrow");
    document.Set(line, L"pg-end-arrow-size", L"1");
    const ParsedSvg svg(document);
    const pugi::xml_node marker = svg.Definitions().child("marker");
    ASSERT_TRUE(marker);
    EXPECT_STREQ(marker.child("path").attribute("fill").value(), svg.Drawing().attribute("stroke").value());
}

TEST(OddAttributes, ArrowOfALineWithoutColourHasTheColourOfLinesWithoutOne)
{
    const HostDocument document;
    const QlmNode line = document.Line(0, 0, 10, 0);
    document.Set(line, L"pg-end-arrow-type", L"stealth arrow");
    document.Set(line, L"pg-end-arrow-size", L"1");
    const ParsedSvg svg(document);
    const pugi::xml_node marker = svg.Definitions().child("marker");
    ASSERT_TRUE(marker);
    EXPECT_STREQ(marker.child("path").attribute("fill").value(), svg.Drawing().attribute("stroke").value());
}

TEST(OddNodes, WhatHoldsNothingDoesNotBecomeCurrent)
{
    const HostDocument document;
    const QlmNode line = document.Line(0, 0, 1, 1);
    qlmSetCurrentSvgNode(document.Context(), line);
    EXPECT_EQ(qlmGetCurrentSvgNode(document.Context()), nullptr);
    document.Circle(1, 0, 0);
    EXPECT_TRUE(ParsedSvg(document).First("circle"));
}

TEST(OddTexts, BlanksAtEitherEndAreKept)
{
    for (const wchar_t* text : {L" a", L"a ", L"a  b", L"a\tb"}) {
        const HostDocument document;
        document.Text(0, 0, text);
        EXPECT_STREQ(ParsedSvg(document).First("text").attribute("xml:space").value(), "preserve");
    }
    const HostDocument document;
    document.Text(0, 0, L"a b");
    EXPECT_FALSE(ParsedSvg(document).First("text").attribute("xml:space"));
}

TEST(OddBackgrounds, Utf8Passes)
{
    for (const char* text : {"a", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80"})
        EXPECT_EQ(BackgroundOf(text), text);
}

TEST(OddBackgrounds, WhatIsNoUtf8IsReplaced)
{
    // Cut off, a lead without its rest, no lead, longer than it need be, beyond Unicode.
    for (const char* text : {"\xC3", "\xE2\x82", "\xC3(", "\x80", "\xC0\xAF", "\xE0\x80\x80",
                             "\xF0\x80\x80\x80", "\xF5\x80\x80\x80"}) {
        const std::string background = BackgroundOf(text);
        EXPECT_NE(background, text);
        EXPECT_EQ(background.rfind("\xEF\xBF\xBD", 0), 0u) << background;
    }
}

TEST(Errors, MissingPlacesForResultsAreRefused)
{
    const HostDocument document;
    EXPECT_FALSE(svgHostGetError(document.Get(), 0, nullptr));
    EXPECT_FALSE(svgHostGetStatistics(document.Get(), nullptr));
    EXPECT_FALSE(svgHostWrite(document.Get(), nullptr, nullptr, nullptr));
}
