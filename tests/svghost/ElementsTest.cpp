// Every kind of element, and where it lands in the file.
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <string>

using namespace svghost_tests;

TEST(Elements, LineHasItsFourNumbers)
{
    const HostDocument document;
    document.line(1, -2.5f, 3, 0.1f);
    const ParsedSvg svg(document);
    const pugi::xml_node line = svg.first("line");
    EXPECT_STREQ(line.attribute("x1").value(), "1");
    EXPECT_STREQ(line.attribute("y1").value(), "-2.5");
    EXPECT_STREQ(line.attribute("x2").value(), "3");
    EXPECT_STREQ(line.attribute("y2").value(), "0.1");
}

TEST(Elements, CircleTakesTheRadiusFirst)
{
    const HostDocument document;
    document.circle(2, 10, 20);
    const ParsedSvg svg(document);
    const pugi::xml_node circle = svg.first("circle");
    EXPECT_EQ(circle.attribute("r").as_double(), 2);
    EXPECT_EQ(circle.attribute("cx").as_double(), 10);
    EXPECT_EQ(circle.attribute("cy").as_double(), 20);
}

TEST(Elements, NegativeRadiiAreDrawnAsPositiveOnes)
{
    const HostDocument document;
    document.circle(-2, 0, 0);
    document.ellipse(3, -4, 0, 0);
    const ParsedSvg svg(document);
    EXPECT_EQ(svg.first("circle").attribute("r").as_double(), 2);
    EXPECT_EQ(svg.first("ellipse").attribute("rx").as_double(), 3);
    EXPECT_EQ(svg.first("ellipse").attribute("ry").as_double(), 4);
}

TEST(Elements, PathDataLosesOnlyZerosThatSayNothing)
{
    const HostDocument document;
    document.path(L"M 10.000000,-0.000000 A 10.500000,10.500000, 0 0,1 100.000000,-10.000010");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.first("path").attribute("d").value(), "M10 0A10.5 10.5 0 0 1 100 -10.00001");
}

TEST(Elements, PathWithLinesAndCloseIsKept)
{
    const HostDocument document;
    document.path(L"M0,0 L10,0 10,10 Z");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.first("path").attribute("d").value(), "M0 0L10 0 10 10Z");
}

TEST(Elements, PointsArePairs)
{
    const HostDocument document;
    document.polyline(L"0.000000,-0.000000 10.000000,-5.250000");
    document.polygon(L"");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.first("polyline").attribute("points").value(), "0,0 10,-5.25");
    EXPECT_TRUE(svg.first("polygon").attribute("points"));
    EXPECT_STREQ(svg.first("polygon").attribute("points").value(), "");
}

TEST(Elements, TextStandsAtTheSumOfBothPairs)
{
    const HostDocument document;
    qlmCreateText(document.context(), L"", 1, 2, 0, 0, L"a", 0, 0);
    qlmCreateText(document.context(), L"", 0, 0, 0, 0, L"b", 3, 4);
    const ParsedSvg svg(document);
    const pugi::xml_node first = svg.first("text");
    EXPECT_EQ(first.attribute("x").as_double(), 1);
    EXPECT_EQ(first.attribute("y").as_double(), 2);
    EXPECT_EQ(first.next_sibling("text").attribute("x").as_double(), 3);
    EXPECT_EQ(first.next_sibling("text").attribute("y").as_double(), 4);
}

TEST(Elements, ElementsStandInTheOrderOfCreation)
{
    const HostDocument document;
    document.line(0, 0, 1, 1);
    document.circle(1, 0, 0);
    document.line(2, 2, 3, 3);
    const ParsedSvg svg(document);
    std::string names;
    for (const pugi::xml_node node : svg.drawing().children())
        names += std::string(node.name()) + ' ';
    EXPECT_EQ(names, "line circle line ");
}

TEST(Elements, GroupCollectsUntilTheFormerNodeIsCurrentAgain)
{
    const HostDocument document;
    const QlmNode before = qlmGetCurrentSvgNode(document.context());
    EXPECT_EQ(before, nullptr);
    const QlmNode group = document.group();
    qlmSetCurrentSvgNode(document.context(), group);
    EXPECT_EQ(qlmGetCurrentSvgNode(document.context()), group);
    document.line(0, 0, 1, 1);
    qlmSetCurrentSvgNode(document.context(), before);
    document.circle(1, 0, 0);
    const ParsedSvg svg(document);
    EXPECT_TRUE(svg.first("g").child("line"));
    EXPECT_TRUE(svg.first("circle"));
    EXPECT_FALSE(svg.first("g").child("circle"));
}

TEST(Elements, GroupInASymbolStandsInTheSymbol)
{
    const HostDocument document;
    const QlmNode symbol = document.begin(L"S");
    const QlmNode group = document.group();
    qlmSetCurrentSvgNode(document.context(), group);
    document.line(0, 0, 1, 1);
    qlmSetCurrentSvgNode(document.context(), symbol);
    document.circle(1, 0, 0);
    document.end();
    const ParsedSvg svg(document);
    const pugi::xml_node written = svg.definitions().child("symbol");
    EXPECT_TRUE(written.child("g").child("line"));
    EXPECT_TRUE(written.child("circle"));
    EXPECT_FALSE(svg.drawing().first_child().first_child());
}

namespace {

// Thousands of lines, numbered in x1, in groups within groups; more follow behind a group that ends.
void addNestedLines(const HostDocument& document, int& number, int depth)
{
    const QlmNode outside = qlmGetCurrentSvgNode(document.context());
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 100; ++k)
            document.line(static_cast<float>(number++), 0, 0, 0);
        if (depth == 0)
            continue;
        qlmSetCurrentSvgNode(document.context(), document.group());
        addNestedLines(document, number, depth - 1);
        qlmSetCurrentSvgNode(document.context(), outside);
    }
}

void expectNestedLines(const pugi::xml_node& container, int& number, int depth)
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
        expectNestedLines(group, number, depth - 1);
    }
    EXPECT_FALSE(next());
}

} // namespace

TEST(Elements, OrderAndGroupsHoldOverThousands)
{
    const HostDocument document;
    int made = 0;
    addNestedLines(document, made, 4);
    ASSERT_GT(made, 30'000);
    const ParsedSvg svg(document);
    int read = 0;
    expectNestedLines(svg.drawing(), read, 4);
    EXPECT_EQ(read, made);
}

TEST(Elements, HugeOnesAreWhole)
{
    const HostDocument document;
    std::wstring points;
    for (int i = 0; i < 200'000; ++i)
        points += std::to_wstring(i) + L",1 ";
    document.polyline(points.c_str());
    const std::wstring name(300'000, L'"');
    document.text(0, 0, name.c_str());
    document.set(document.group(), L"odd", name.c_str());
    document.line(0, 0, 1, 1);
    const ParsedSvg svg(document);
    const std::string written = svg.first("polyline").attribute("points").value();
    EXPECT_EQ(written.size() + 1, points.size());
    EXPECT_EQ(written.substr(written.size() - 9), " 199999,1");
    EXPECT_EQ(svg.first("text").text().get(), std::string(300'000, '"'));
    EXPECT_EQ(svg.first("g").attribute("data-odd").value(), std::string(300'000, '"'));
    EXPECT_TRUE(svg.first("line"));
}

TEST(Elements, GroupIsDrawnWhateverItsAttributes)
{
    for (const wchar_t* name : {L"rotate", L"center-x", L"scale-y"}) {
        const HostDocument document;
        const QlmNode group = document.group();
        document.set(group, name, L"nan");
        qlmSetCurrentSvgNode(document.context(), group);
        document.set(document.line(0, 0, 10, 10), L"stroke-width", L"0");
        qlmSetCurrentSvgNode(document.context(), nullptr);
        document.set(document.line(20, 20, 100, 100), L"stroke-width", L"0");
        const ParsedSvg svg(document);
        EXPECT_TRUE(svg.first("g").child("line"));
        EXPECT_TRUE(svg.first("line"));
        expectTight(viewBoxOf(svg), 0, 0, 100, 100, 3);
        EXPECT_EQ(document.statistics().undrawableElements, 0u);
    }
}

TEST(Elements, HiddenGroupWithANumberThatIsNoneHidesNothingBehindIt)
{
    const HostDocument document;
    const QlmNode group = document.group();
    document.set(group, L"visibility", L"hidden");
    document.set(group, L"rotate", L"inf");
    qlmSetCurrentSvgNode(document.context(), group);
    document.circle(500, 0, 0);
    qlmSetCurrentSvgNode(document.context(), nullptr);
    document.set(document.line(20, 20, 100, 100), L"stroke-width", L"0");
    expectTight(viewBoxOf(ParsedSvg(document)), 20, 20, 100, 100, 3);
}

TEST(Elements, GroupsTooDeepForReadersAreRefused)
{
    const HostDocument document;
    int depth = 0;
    while (const QlmNode group = document.group()) {
        qlmSetCurrentSvgNode(document.context(), group);
        ASSERT_LT(++depth, 1000);
    }
    EXPECT_GE(depth, 16);
    document.line(0, 0, 1, 1);
    const ParsedSvg svg(document);
    EXPECT_TRUE(
        svg.drawing().find_node([](pugi::xml_node node) { return std::string(node.name()) == "line"; }));
}

TEST(Elements, NothingIsFilledThatHasNoFill)
{
    const HostDocument document;
    document.circle(1, 0, 0);
    document.path(L"M0,0 A1,1,0 0,0 2,0");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.drawing().attribute("fill").value(), "none");
    EXPECT_FALSE(svg.first("circle").attribute("fill"));
    EXPECT_FALSE(svg.first("path").attribute("fill"));
}

TEST(Elements, LinesWithoutColourAreVisible)
{
    const HostDocument document;
    document.line(0, 0, 1, 1);
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.drawing().attribute("stroke").value(), "#00ff00");
}

TEST(Elements, NullTextsCountAsEmpty)
{
    const HostDocument document;
    document.path(nullptr);
    document.polyline(nullptr);
    document.set(document.text(0, 0, nullptr), nullptr, nullptr);
    document.use(nullptr, 0, 0);
    EXPECT_NE(qlmCreateSymbol(document.context(), nullptr), nullptr);
    const ParsedSvg svg(document);
    EXPECT_TRUE(svg.first("text"));
    EXPECT_TRUE(svg.first("use"));
}
