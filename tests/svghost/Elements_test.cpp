// Every kind of element, and where it lands in the file.
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <string>

using namespace svghost_tests;

TEST(Elements, LineHasItsFourNumbers)
{
    const HostDocument document;
    document.Line(1, -2.5f, 3, 0.1f);
    const ParsedSvg svg(document);
    const pugi::xml_node line = svg.First("line");
    EXPECT_STREQ(line.attribute("x1").value(), "1");
    EXPECT_STREQ(line.attribute("y1").value(), "-2.5");
    EXPECT_STREQ(line.attribute("x2").value(), "3");
    EXPECT_STREQ(line.attribute("y2").value(), "0.1");
}

TEST(Elements, CircleTakesTheRadiusFirst)
{
    const HostDocument document;
    document.Circle(2, 10, 20);
    const ParsedSvg svg(document);
    const pugi::xml_node circle = svg.First("circle");
    EXPECT_EQ(circle.attribute("r").as_double(), 2);
    EXPECT_EQ(circle.attribute("cx").as_double(), 10);
    EXPECT_EQ(circle.attribute("cy").as_double(), 20);
}

TEST(Elements, NegativeRadiiAreDrawnAsPositiveOnes)
{
    const HostDocument document;
    document.Circle(-2, 0, 0);
    document.Ellipse(3, -4, 0, 0);
    const ParsedSvg svg(document);
    EXPECT_EQ(svg.First("circle").attribute("r").as_double(), 2);
    EXPECT_EQ(svg.First("ellipse").attribute("rx").as_double(), 3);
    EXPECT_EQ(svg.First("ellipse").attribute("ry").as_double(), 4);
}

TEST(Elements, PathDataLosesOnlyZerosThatSayNothing)
{
    const HostDocument document;
    document.Path(L"M 10.000000,-0.000000 A 10.500000,10.500000, 0 0,1 100.000000,-10.000010");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("path").attribute("d").value(), "M10 0A10.5 10.5 0 0 1 100 -10.00001");
}

TEST(Elements, PathWithLinesAndCloseIsKept)
{
    const HostDocument document;
    document.Path(L"M0,0 L10,0 10,10 Z");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("path").attribute("d").value(), "M0 0L10 0 10 10Z");
}

TEST(Elements, PointsArePairs)
{
    const HostDocument document;
    document.Polyline(L"0.000000,-0.000000 10.000000,-5.250000");
    document.Polygon(L"");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("polyline").attribute("points").value(), "0,0 10,-5.25");
    EXPECT_TRUE(svg.First("polygon").attribute("points"));
    EXPECT_STREQ(svg.First("polygon").attribute("points").value(), "");
}

TEST(Elements, TextIsAtTheSumOfBothPairs)
{
    const HostDocument document;
    qlmCreateText(document.Context(), L"", 1, 2, 0, 0, L"a", 0, 0);
    qlmCreateText(document.Context(), L"", 0, 0, 0, 0, L"b", 3, 4);
    const ParsedSvg svg(document);
    const pugi::xml_node first = svg.First("text");
    EXPECT_EQ(first.attribute("x").as_double(), 1);
    EXPECT_EQ(first.attribute("y").as_double(), 2);
    EXPECT_EQ(first.next_sibling("text").attribute("x").as_double(), 3);
    EXPECT_EQ(first.next_sibling("text").attribute("y").as_double(), 4);
}

TEST(Elements, ElementsAreInTheOrderOfCreation)
{
    const HostDocument document;
    document.Line(0, 0, 1, 1);
    document.Circle(1, 0, 0);
    document.Line(2, 2, 3, 3);
    const ParsedSvg svg(document);
    std::string names;
    for (const pugi::xml_node node : svg.Drawing().children())
        names += std::string(node.name()) + ' ';
    EXPECT_EQ(names, "line circle line ");
}

TEST(Elements, GroupCollectsUntilTheFormerNodeIsCurrentAgain)
{
    const HostDocument document;
    const QlmNode before = qlmGetCurrentSvgNode(document.Context());
    EXPECT_EQ(before, nullptr);
    const QlmNode group = document.Group();
    qlmSetCurrentSvgNode(document.Context(), group);
    EXPECT_EQ(qlmGetCurrentSvgNode(document.Context()), group);
    document.Line(0, 0, 1, 1);
    qlmSetCurrentSvgNode(document.Context(), before);
    document.Circle(1, 0, 0);
    const ParsedSvg svg(document);
    EXPECT_TRUE(svg.First("g").child("line"));
    EXPECT_TRUE(svg.First("circle"));
    EXPECT_FALSE(svg.First("g").child("circle"));
}

TEST(Elements, GroupInASymbolIsInTheSymbol)
{
    const HostDocument document;
    const QlmNode symbol = document.Begin(L"S");
    const QlmNode group = document.Group();
    qlmSetCurrentSvgNode(document.Context(), group);
    document.Line(0, 0, 1, 1);
    qlmSetCurrentSvgNode(document.Context(), symbol);
    document.Circle(1, 0, 0);
    document.End();
    const ParsedSvg svg(document);
    const pugi::xml_node written = svg.Definitions().child("symbol");
    EXPECT_TRUE(written.child("g").child("line"));
    EXPECT_TRUE(written.child("circle"));
    EXPECT_FALSE(svg.Drawing().first_child().first_child());
}

namespace {

// Thousands of lines, numbered in x1, in groups within groups; more follow after a group that ends.
void AddNestedLines(const HostDocument& document, int& number, int depth)
{
    const QlmNode outside = qlmGetCurrentSvgNode(document.Context());
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 100; ++k)
            document.Line(static_cast<float>(number++), 0, 0, 0);
        if (depth == 0)
            continue;
        qlmSetCurrentSvgNode(document.Context(), document.Group());
        AddNestedLines(document, number, depth - 1);
        qlmSetCurrentSvgNode(document.Context(), outside);
    }
}

void ExpectNestedLines(const pugi::xml_node& container, int& number, int depth)
{
    pugi::xml_node node = container.first_child();
    const auto next = [&] {
        while (node && node.type() != pugi::node_element)
            node = node.next_sibling();
        const pugi::xml_node element = node;
        node = node.next_sibling();
        return element;
    };
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 100; ++k)
            ASSERT_EQ(next().attribute("x1").as_int(-1), number++);
        if (depth == 0)
            continue;
        const pugi::xml_node group = next();
        ASSERT_STREQ(group.name(), "g");
        ExpectNestedLines(group, number, depth - 1);
    }
    EXPECT_FALSE(next());
}

} // namespace

TEST(Elements, OrderAndGroupsHoldOverThousands)
{
    const HostDocument document;
    int made = 0;
    AddNestedLines(document, made, 4);
    ASSERT_GT(made, 30'000);
    const ParsedSvg svg(document);
    int read = 0;
    ExpectNestedLines(svg.Drawing(), read, 4);
    EXPECT_EQ(read, made);
}

TEST(Elements, HugeOnesAreWhole)
{
    const HostDocument document;
    std::wstring points;
    for (int i = 0; i < 200'000; ++i)
        points += std::to_wstring(i) + L",1 ";
    document.Polyline(points.c_str());
    const std::wstring name(300'000, L'"');
    document.Text(0, 0, name.c_str());
    document.Set(document.Group(), L"odd", name.c_str());
    document.Line(0, 0, 1, 1);
    const ParsedSvg svg(document);
    const std::string written = svg.First("polyline").attribute("points").value();
    EXPECT_EQ(written.size() + 1, points.size());
    EXPECT_EQ(written.substr(written.size() - 9), " 199999,1");
    EXPECT_EQ(svg.First("text").text().get(), std::string(300'000, '"'));
    EXPECT_EQ(svg.First("g").attribute("data-odd").value(), std::string(300'000, '"'));
    EXPECT_TRUE(svg.First("line"));
}

TEST(Elements, LongTextsOfPointsAreReadToTheirEnds)
{
    std::wstring points;
    for (int i = 0; i < 30'000; ++i)
        points += std::to_wstring(i) + (i % 3 == 0 ? L", 1\n" : L" 1 ,");
    points += L"5,";
    for (const auto& [end, isDrawn] :
         {std::pair(L"7", true), std::pair(L"", false), std::pair(L"7 8", false), std::pair(L"7,,8,9", false),
          std::pair(L"1e39", false), std::pair(L"7\x663", false)}) {
        const HostDocument document;
        document.Polyline((points + end).c_str());
        const ParsedSvg svg(document);
        EXPECT_EQ(bool(svg.First("polyline")), isDrawn);
        if (isDrawn) {
            EXPECT_EQ(std::string(svg.First("polyline").attribute("points").value()).substr(0, 20),
                      "0,1 1,1 2,1 3,1 4,1 ");
        }
    }
}

TEST(Elements, GroupIsDrawnWhateverItsAttributes)
{
    for (const wchar_t* name : {L"rotate", L"center-x", L"scale-y"}) {
        const HostDocument document;
        const QlmNode group = document.Group();
        document.Set(group, name, L"nan");
        qlmSetCurrentSvgNode(document.Context(), group);
        document.Set(document.Line(0, 0, 10, 10), L"stroke-width", L"0");
        qlmSetCurrentSvgNode(document.Context(), nullptr);
        document.Set(document.Line(20, 20, 100, 100), L"stroke-width", L"0");
        const ParsedSvg svg(document);
        EXPECT_TRUE(svg.First("g").child("line"));
        EXPECT_TRUE(svg.First("line"));
        ExpectTight(ViewBoxOf(svg), 0, 0, 100, 100, 3);
        EXPECT_EQ(document.Statistics().undrawableElements, 0u);
    }
}

TEST(Elements, HiddenGroupWithAnInvalidNumberHidesNothingAfterIt)
{
    const HostDocument document;
    const QlmNode group = document.Group();
    document.Set(group, L"visibility", L"hidden");
    document.Set(group, L"rotate", L"inf");
    qlmSetCurrentSvgNode(document.Context(), group);
    document.Circle(500, 0, 0);
    qlmSetCurrentSvgNode(document.Context(), nullptr);
    document.Set(document.Line(20, 20, 100, 100), L"stroke-width", L"0");
    ExpectTight(ViewBoxOf(ParsedSvg(document)), 20, 20, 100, 100, 3);
}

TEST(Elements, GroupsTooDeepForReadersAreRefused)
{
    const HostDocument document;
    int depth = 0;
    while (const QlmNode group = document.Group()) {
        qlmSetCurrentSvgNode(document.Context(), group);
        ASSERT_LT(++depth, 1000);
    }
    EXPECT_GE(depth, 16);
    document.Line(0, 0, 1, 1);
    const ParsedSvg svg(document);
    EXPECT_TRUE(
        svg.Drawing().find_node([](pugi::xml_node node) { return std::string(node.name()) == "line"; }));
}

TEST(Elements, NothingIsFilledThatHasNoFill)
{
    const HostDocument document;
    document.Circle(1, 0, 0);
    document.Path(L"M0,0 A1,1,0 0,0 2,0");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.Drawing().attribute("fill").value(), "none");
    EXPECT_FALSE(svg.First("circle").attribute("fill"));
    EXPECT_FALSE(svg.First("path").attribute("fill"));
}

TEST(Elements, LinesWithoutColourAreVisible)
{
    const HostDocument document;
    document.Line(0, 0, 1, 1);
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.Drawing().attribute("stroke").value(), "#00ff00");
}

TEST(Elements, NullTextsCountAsEmpty)
{
    const HostDocument document;
    document.Path(nullptr);
    document.Polyline(nullptr);
    document.Set(document.Text(0, 0, nullptr), nullptr, nullptr);
    document.Use(nullptr, 0, 0);
    EXPECT_NE(qlmCreateSymbol(document.Context(), nullptr), nullptr);
    const ParsedSvg svg(document);
    EXPECT_TRUE(svg.First("text"));
    EXPECT_TRUE(svg.First("use"));
}
