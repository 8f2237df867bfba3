// What becomes of the attributes that the module sets.
#include "support/CountedWork.h"
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <string>

using namespace svghost_tests;

namespace {

// The value in the file of an attribute that a line was given.
std::string Written(const wchar_t* name, const wchar_t* value, const char* as)
{
    const HostDocument document;
    document.Set(document.Line(0, 0, 1, 1), name, value);
    const ParsedSvg svg(document);
    const pugi::xml_attribute attribute = svg.First("line").attribute(as);
    return attribute ? attribute.value() : "(none)";
}

} // namespace

TEST(Attributes, RgbBecomesAValidColour)
{
    EXPECT_EQ(Written(L"stroke", L"RGB(255,0,10)", "stroke"), "#ff000a");
    EXPECT_EQ(Written(L"stroke", L"RGB(0,0,0)", "stroke"), "#000000");
}

TEST(Attributes, OtherColoursPass)
{
    EXPECT_EQ(Written(L"stroke", L"#ff0000", "stroke"), "#ff0000");
    EXPECT_EQ(Written(L"stroke", L"red", "stroke"), "red");
    EXPECT_EQ(Written(L"stroke", L"RGB(1,2)", "stroke"), "RGB(1,2)");
}

TEST(Attributes, EmptyAndAllZeroDashArraysAreLeftOut)
{
    EXPECT_EQ(Written(L"stroke-dasharray", L"", "stroke-dasharray"), "(none)");
    EXPECT_EQ(Written(L"stroke-dasharray", L"0.000000", "stroke-dasharray"), "(none)");
    EXPECT_EQ(Written(L"stroke-dasharray", L"0.000000,0.000000", "stroke-dasharray"), "(none)");
}

TEST(Attributes, DashArrayStaysAsGiven)
{
    EXPECT_EQ(Written(L"stroke-dasharray", L"0.500000,0.250000,0.000000", "stroke-dasharray"),
              "0.500000,0.250000,0.000000");
}

TEST(Attributes, DashArrayThatIsNoListOfLengthsIsLeftOut)
{
    EXPECT_EQ(Written(L"stroke-dasharray", L"1,inf", "stroke-dasharray"), "(none)");
    EXPECT_EQ(Written(L"stroke-dasharray", L"nan", "stroke-dasharray"), "(none)");
    EXPECT_EQ(Written(L"stroke-dasharray", L"1,-1", "stroke-dasharray"), "(none)");
    for (const wchar_t* const text : {L"5+7", L"1,,2", L"1, ,2", L"1,2,", L",1", L"1.2.3"})
        EXPECT_EQ(Written(L"stroke-dasharray", text, "stroke-dasharray"), "(none)") << text;
    EXPECT_EQ(Written(L"stroke-dasharray", L"1 2 , 3", "stroke-dasharray"), "1 2 , 3");
}

TEST(Attributes, OnlyPatternsWithDotsHaveRoundEnds)
{
    // At the usual width of 0.5 round ends fill a gap of 0.25 from both sides.
    EXPECT_EQ(Written(L"stroke-dasharray", L"0.500000,0.250000", "stroke-linecap"), "(none)");
    EXPECT_EQ(Written(L"stroke-dasharray", L"", "stroke-linecap"), "(none)");
    EXPECT_EQ(Written(L"stroke-dasharray", L"0.000000,0.000000", "stroke-linecap"), "(none)");
    EXPECT_EQ(Written(L"stroke-dasharray", L"0.500000,0.250000,0.000000,0.250000", "stroke-linecap"),
              "round");
    const HostDocument document;
    document.Line(0, 0, 1, 1);
    const ParsedSvg svg(document);
    for (const pugi::xml_node node : {svg.Root(), svg.Drawing(), svg.First("line")})
        EXPECT_FALSE(node.attribute("stroke-linecap"));
}

TEST(Attributes, LongestDashArrayIsWrittenAndALongerOneLeftOutAndCounted)
{
    std::wstring dashes = L"1.000000";
    while (dashes.size() < 512)
        dashes += L",1";
    ASSERT_EQ(dashes.size(), 512u);
    const HostDocument document;
    document.Set(document.Line(0, 0, 1, 1), L"stroke-dasharray", dashes.c_str());
    EXPECT_EQ(document.Statistics().longDashPatterns, 0u);
    dashes += L"0";
    document.Set(document.Line(0, 0, 1, 1), L"stroke-dasharray", dashes.c_str());
    dashes += L",2";
    document.Set(document.Line(0, 0, 1, 1), L"stroke-dasharray", dashes.c_str());
    EXPECT_EQ(document.Statistics().longDashPatterns, 2u);
    const ParsedSvg svg(document);
    const pugi::xml_node line = svg.First("line");
    EXPECT_EQ(std::string(line.attribute("stroke-dasharray").value()).size(), 512u);
    EXPECT_FALSE(line.next_sibling().attribute("stroke-dasharray"));
    EXPECT_FALSE(line.next_sibling().next_sibling().attribute("stroke-dasharray"));
}

namespace {

// As many lines as there are dashes in the pattern of each.
void DrawLinesOfDashes(const HostDocument& document, int count)
{
    std::wstring dashes = L"1.000000";
    for (int i = 1; i < count; ++i)
        dashes += L",1.000000";
    for (int i = 0; i < count; ++i)
        document.Set(document.Line(0, 0, 1, 1), L"stroke-dasharray", dashes.c_str());
}

} // namespace

TEST(Attributes, APatternOfAHundredThousandDashesIsLeftOutOfEachLine)
{
    const HostDocument document;
    DrawLinesOfDashes(document, 100'000);
    EXPECT_LT(document.Write().size(), 10'000'000u);
    EXPECT_EQ(document.Statistics().longDashPatterns, 100'000u);
}

// Compared by tests/robust/work_test.py: to read the pattern through for each line would cost four times the
// work for twice of both.
TEST(Work, OfLongDashPatterns)
{
    for (const int count : {0, 2000, 4000})
        RunCounted("dashes/of every line", static_cast<std::size_t>(count), [&] {
            const HostDocument document;
            DrawLinesOfDashes(document, count);
            return document.Write().size();
        });
}

TEST(Attributes, StrokeWidthPassesInShortForm)
{
    EXPECT_EQ(Written(L"stroke-width", L"0.500000", "stroke-width"), "0.5");
    EXPECT_EQ(Written(L"stroke-width", L"1", "stroke-width"), "1");
    EXPECT_EQ(Written(L"stroke-width", L"100.000000", "stroke-width"), "100");
}

TEST(Attributes, StrokeWidthThatSvgForbidsIsLeftOut)
{
    EXPECT_EQ(Written(L"stroke-width", L"-1", "stroke-width"), "(none)");
    EXPECT_EQ(Written(L"stroke-width", L"inf", "stroke-width"), "(none)");
    EXPECT_EQ(Written(L"stroke-width", L"", "stroke-width"), "(none)");
}

TEST(Attributes, LaterValueWins)
{
    const HostDocument document;
    const QlmNode path = document.Path(L"M0,0 A1,1,0 0,0 2,0");
    for (const wchar_t* width : {L"1", L"0.250000"})
        document.Set(path, L"stroke-width", width);
    for (const wchar_t* opacity : {L"1", L"0"})
        document.Set(path, L"fill-opacity", opacity);
    for (const wchar_t* odd : {L"one", L"two"})
        document.Set(path, L"odd", odd);
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("path").attribute("stroke-width").value(), "0.25");
    EXPECT_STREQ(svg.First("path").attribute("fill-opacity").value(), "0");
    EXPECT_STREQ(svg.First("path").attribute("data-odd").value(), "two");
    const std::string text = document.Write();
    EXPECT_EQ(text.find("stroke-width"), text.rfind("stroke-width"));
    EXPECT_EQ(text.find("data-odd"), text.rfind("data-odd"));
}

TEST(Attributes, EqualBuffersWithOtherContentsAreNotConfused)
{
    const HostDocument document;
    wchar_t value[] = L"RGB(1,2,3)";
    document.Set(document.Line(0, 0, 1, 1), L"stroke", value);
    value[4] = L'9';
    document.Set(document.Line(0, 0, 1, 1), L"stroke", value);
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("line").attribute("stroke").value(), "#010203");
    EXPECT_STREQ(svg.First("line").next_sibling().attribute("stroke").value(), "#090203");
}

TEST(Attributes, VisibilityAndFillOpacityPass)
{
    EXPECT_EQ(Written(L"visibility", L"hidden", "visibility"), "hidden");
    EXPECT_EQ(Written(L"fill-opacity", L"0", "fill-opacity"), "0");
}

TEST(Attributes, UnknownOnesAreKeptAsData)
{
    EXPECT_EQ(Written(L"layer", L"a<b", "data-layer"), "a<b");
    EXPECT_EQ(Written(L"pg-middle-arrow-type", L"x", "data-pg-middle-arrow-type"), "x");
}

TEST(Attributes, NamesThatAreNoXmlNamesAreDropped)
{
    for (const wchar_t* name : {L"", L"two words", L"a=\"b\"", L"<", L"\x00E4"}) {
        const HostDocument document;
        document.Set(document.Line(0, 0, 1, 1), name, L"x");
        EXPECT_EQ(document.Write().find("data-"), std::string::npos);
    }
}

TEST(Attributes, SymbolKeepsItsOwnDataName)
{
    const HostDocument document;
    const QlmNode symbol = document.Begin(L"S");
    document.Set(symbol, L"name", L"other");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.Definitions().child("symbol").attribute("data-name").value(), "S");
}

TEST(Attributes, EllipseIsRotatedAboutItsCentre)
{
    const HostDocument document;
    const QlmNode ellipse = document.Ellipse(10, 5, 1, 2);
    document.Set(ellipse, L"center-x", L"1.000000");
    document.Set(ellipse, L"center-y", L"2.000000");
    document.Set(ellipse, L"rotate", L"-90.000000");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("ellipse").attribute("transform").value(), "rotate(-90 1 2)");
    EXPECT_FALSE(svg.First("ellipse").attribute("rotate"));
    EXPECT_FALSE(svg.First("ellipse").attribute("center-x"));
}

TEST(Attributes, WhatHasNoCentreTurnsAboutTheOrigin)
{
    const HostDocument document;
    for (const QlmNode node :
         {document.Line(5, 0, 6, 0), document.Circle(1, 5, 0), document.Path(L"M 5,0 L 6,0")})
        document.Set(node, L"rotate", L"90");
    const ParsedSvg svg(document);
    for (const char* name : {"line", "circle", "path"})
        EXPECT_STREQ(svg.First(name).attribute("transform").value(), "rotate(90 0 0)") << name;
    const ViewBox box = ViewBoxOf(svg);
    EXPECT_GT(box.y, 3);
    EXPECT_LT(box.x + box.width, 2);
}

TEST(Attributes, TextTurnsAboutItsOwnPosition)
{
    const HostDocument document;
    const QlmNode text = qlmCreateText(document.Context(), L"", 0, 0, 0, 0, L"12.5", 30, -7);
    document.Set(text, L"rotate", L"45");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("text").attribute("transform").value(), "rotate(45 30 -7)");
}

TEST(Attributes, TextIsFilledInItsStrokeColour)
{
    const HostDocument document;
    document.Set(document.Text(0, 0, L"a"), L"stroke", L"RGB(255,0,0)");
    document.Text(0, 0, L"b");
    const ParsedSvg svg(document);
    const pugi::xml_node text = svg.First("text");
    EXPECT_STREQ(text.attribute("fill").value(), "#ff0000");
    EXPECT_STREQ(text.attribute("stroke").value(), "none");
    EXPECT_STREQ(text.next_sibling("text").attribute("fill").value(), "#00ff00");
}

TEST(Attributes, TextAnchorsAreTheWordsOfSvg)
{
    const HostDocument document;
    const wchar_t* const words[] = {L"left", L"right", L"middle", L"end"};
    for (const wchar_t* word : words)
        document.Set(document.Text(0, 0, L"a"), L"text-anchor", word);
    const ParsedSvg svg(document);
    std::string anchors;
    for (const pugi::xml_node text : svg.Drawing().children("text"))
        anchors += std::string(text.attribute("text-anchor").value()) + ' ';
    EXPECT_EQ(anchors, "start end middle end ");
}

TEST(Attributes, FontSizeIsInUserUnits)
{
    const HostDocument document;
    document.Set(document.Text(0, 0, L"a"), L"font-size", L"2.50");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("text").attribute("font-size").value(), "2.5");
}

TEST(Attributes, BlanksInTextAreKept)
{
    const HostDocument document;
    document.Text(0, 0, L"  a  b ");
    document.Text(0, 0, L"a b");
    const ParsedSvg svg(document);
    const pugi::xml_node text = svg.First("text");
    EXPECT_STREQ(text.text().get(), "  a  b ");
    EXPECT_STREQ(text.attribute("xml:space").value(), "preserve");
    EXPECT_FALSE(text.next_sibling("text").attribute("xml:space"));
}

TEST(Attributes, ZeroNodeAndZeroContextDoNothing)
{
    const HostDocument document;
    const QlmNode line = document.Line(0, 0, 1, 1);
    const std::string before = document.Write();
    qlmSetAttributeByNode(document.Context(), nullptr, L"stroke", L"red");
    qlmSetAttributeByNode(document.Context(), document.Context(), L"stroke", L"red");
    qlmSetAttributeByNode(nullptr, line, L"stroke", L"red");
    qlmSetCurrentSvgNode(nullptr, line);
    EXPECT_EQ(document.Write(), before);
    EXPECT_EQ(qlmCreateLine(nullptr, L"", 0, 0, 1, 1, 0, 0), nullptr);
    EXPECT_EQ(qlmCreatePath(nullptr, L"", L"", 0, 0), nullptr);
    EXPECT_EQ(qlmCreateCircle(nullptr, L"", 1, 0, 0, 0, 0), nullptr);
    EXPECT_EQ(qlmCreateEllipse(nullptr, L"", 1, 1, 0, 0, 0, 0), nullptr);
    EXPECT_EQ(qlmCreatePolyline(nullptr, L"", L"", 0, 0), nullptr);
    EXPECT_EQ(qlmCreatePolygon(nullptr, L"", L"", 0, 0), nullptr);
    EXPECT_EQ(qlmCreateText(nullptr, L"", 0, 0, 0, 0, L"", 0, 0), nullptr);
    EXPECT_EQ(qlmCreateUse(nullptr, L"", 0, 0, L"", L"hmi", 0, 0), nullptr);
    EXPECT_EQ(qlmCreateSymbol(nullptr, L""), nullptr);
    EXPECT_EQ(qlmCreateG(nullptr, L""), nullptr);
    EXPECT_EQ(qlmGetCurrentSvgNode(nullptr), nullptr);
}

TEST(Attributes, AnElementIsNoContext)
{
    const HostDocument document;
    const QlmNode line = document.Line(0, 0, 1, 1);
    EXPECT_EQ(qlmCreateLine(line, L"", 0, 0, 1, 1, 0, 0), nullptr);
    EXPECT_EQ(document.Statistics().elements, 1u);
}
