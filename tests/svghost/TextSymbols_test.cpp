// Lines of writing and parts: symbols whose names begin as prepared drawings' do.
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

using namespace svghost_tests;

namespace {

void AddRun(const HostDocument& document, const wchar_t* text, const wchar_t* colour, const wchar_t* size,
            float x = 0)
{
    const QlmNode node = document.Text(x, 0, text);
    document.Set(node, L"stroke", colour);
    document.Set(node, L"font-size", size);
    document.Set(node, L"text-anchor", L"middle");
}

void AddWord(const HostDocument& document, const wchar_t* symbol, const wchar_t* text)
{
    document.Begin(symbol);
    AddRun(document, text, L"#ff8000", L"2");
    document.End();
}

} // namespace

TEST(Texts, ALineOfWritingIsATextWhereItIsUsed)
{
    const HostDocument document;
    AddWord(document, L"PLEXORN_TEXT_1", L"up");
    document.Set(document.Use(L"PLEXORN_TEXT_1", 5, 6), L"rotate", L"-90");
    document.Use(L"PLEXORN_TEXT_1", 7, 8);
    const ParsedSvg svg(document);
    const pugi::xml_node text = svg.First("text");
    EXPECT_STREQ(text.text().get(), "up");
    EXPECT_STREQ(text.attribute("transform").value(), "translate(5,6) rotate(-90)");
    EXPECT_STREQ(text.attribute("fill").value(), "#ff8000");
    EXPECT_STREQ(text.attribute("font-size").value(), "2");
    EXPECT_STREQ(text.attribute("text-anchor").value(), "middle");
    EXPECT_FALSE(text.attribute("x"));
    EXPECT_FALSE(text.attribute("xml:space"));
    EXPECT_STREQ(text.next_sibling("text").attribute("transform").value(), "translate(7,8)");
    EXPECT_FALSE(svg.First("use"));
    EXPECT_FALSE(svg.Definitions().child("symbol"));
}

TEST(Texts, ALineWhoseOnlyUseIsHiddenShowsNothing)
{
    const HostDocument document;
    AddWord(document, L"PLEXORN_TEXT_1", L"up");
    document.Begin(L"PLEXORN_TEXT_2");
    document.Set(document.Use(L"PLEXORN_TEXT_1", 1, 1), L"visibility", L"hidden");
    document.End();
    document.Use(L"PLEXORN_TEXT_2", 5, 6);
    const ParsedSvg svg(document);
    EXPECT_FALSE(svg.Drawing().child("text"));
    EXPECT_EQ(document.Statistics().visibleElements, 0u);
}

TEST(Texts, EmptySymbolsThoseOfOtherNamesAndThoseWithAttributesAreNoLines)
{
    const HostDocument document;
    document.Begin(L"PLEXORN_TEXT_1");
    document.End();
    AddWord(document, L"PLEXORN_WORD_2", L"other");
    document.Set(document.Begin(L"PLEXORN_TEXT_3"), L"own", L"value");
    document.Text(0, 0, L"marked");
    document.End();
    for (const wchar_t* name : {L"PLEXORN_TEXT_1", L"PLEXORN_WORD_2", L"PLEXORN_TEXT_3"})
        document.Use(name, 1, 1);
    const ParsedSvg svg(document);
    EXPECT_FALSE(svg.Drawing().child("text"));
    const auto uses = svg.Drawing().children("use");
    EXPECT_EQ(std::distance(uses.begin(), uses.end()), 3);
}

TEST(Texts, ASecondSymbolOfALineIsASymbol)
{
    const HostDocument document;
    AddWord(document, L"PLEXORN_TEXT_1", L"first");
    AddWord(document, L"PLEXORN_TEXT_1", L"second");
    document.Use(L"PLEXORN_TEXT_1", 1, 1);
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("text").text().get(), "first");
    EXPECT_STREQ(svg.Definitions().child("symbol").child("text").text().get(), "second");
}

TEST(Texts, RunsOfALineFollowEachOther)
{
    const HostDocument document;
    document.Begin(L"PLEXORN_TEXT_1");
    AddRun(document, L"red ", L"#ff0000", L"2", -3);
    AddRun(document, L"<large>", L"#ff0000", L"4", 0);
    AddRun(document, L"blue", L"#0000ff", L"2", 3);
    document.End();
    document.Use(L"PLEXORN_TEXT_1", 5, 6);
    const std::string svg = document.Write();
    EXPECT_NE(svg.find("<text transform=\"translate(5,6)\" fill=\"#ff0000\" stroke=\"none\" "
                       "xml:space=\"preserve\" font-size=\"2\" text-anchor=\"middle\">red "
                       "<tspan font-size=\"4\">&lt;large&gt;</tspan>"
                       "<tspan fill=\"#0000ff\">blue</tspan></text>\n"),
              std::string::npos)
        << svg;
}

TEST(Texts, RunsWithoutASizeHaveThatOfTheLine)
{
    const HostDocument document;
    document.Begin(L"PLEXORN_TEXT_1");
    for (const wchar_t* size : {L"2", L"1", L"0", L"-3"})
        AddRun(document, size, L"#ff0000", size);
    document.End();
    document.Use(L"PLEXORN_TEXT_1", 5, 6);
    const std::string svg = document.Write();
    EXPECT_NE(svg.find(">2<tspan font-size=\"1\">1</tspan>0<tspan font-size=\"3\">-3</tspan></text>\n"),
              std::string::npos)
        << svg;
}

TEST(Texts, BlanksOfAnyRunAreKept)
{
    const HostDocument document;
    document.Begin(L"PLEXORN_TEXT_1");
    AddRun(document, L"a", L"#ff0000", L"2");
    AddRun(document, L"b  c", L"#ff0000", L"2");
    document.End();
    document.Use(L"PLEXORN_TEXT_1", 5, 6);
    EXPECT_STREQ(ParsedSvg(document).First("text").attribute("xml:space").value(), "preserve");
}

TEST(Texts, RunsOfANegativeSizeHaveThePositiveOne)
{
    const HostDocument document;
    document.Begin(L"PLEXORN_TEXT_1");
    AddRun(document, L"a", L"#ff0000", L"-2");
    AddRun(document, L"b", L"#ff0000", L"-3");
    document.End();
    document.Use(L"PLEXORN_TEXT_1", 5, 6);
    const ParsedSvg svg(document);
    const pugi::xml_node text = svg.First("text");
    EXPECT_STREQ(text.attribute("font-size").value(), "2");
    EXPECT_STREQ(text.child("tspan").attribute("font-size").value(), "3");
}

TEST(Texts, StretchedWritingStartsWhereItDoesAndHasItsWidth)
{
    // Viewers that place a stretched text wrongly around its middle or before its end need no anchor.
    const HostDocument document;
    const auto add = [&](const wchar_t* symbol) {
        document.Begin(symbol);
        document.Text(-3.4F, 0, L"wide");
        document.End();
        document.Set(document.Use(symbol, 5, 6), L"scale-x", L"2");
    };
    add(L"PLEXORN_TEXT_MIDDLE_1");
    add(L"PLEXORN_TEXT_END_2");
    add(L"PLEXORN_TEXT_3");
    document.Begin(L"PLEXORN_TEXT_END_4");
    AddRun(document, L"anchored", L"#ff8000", L"2", -3);
    document.End();
    document.Use(L"PLEXORN_TEXT_END_4", 0, 0);
    const ParsedSvg svg(document);
    const pugi::xml_node middle = svg.First("text");
    EXPECT_STREQ(middle.attribute("transform").value(), "translate(5,6) scale(2,1)");
    EXPECT_STREQ(middle.attribute("x").value(), "-3.4");
    EXPECT_STREQ(middle.attribute("textLength").value(), "6.8");
    EXPECT_STREQ(middle.attribute("lengthAdjust").value(), "spacingAndGlyphs");
    EXPECT_FALSE(middle.attribute("text-anchor"));
    const pugi::xml_node end = middle.next_sibling("text");
    EXPECT_STREQ(end.attribute("x").value(), "-3.4");
    EXPECT_STREQ(end.attribute("textLength").value(), "3.4");
    const pugi::xml_node plain = end.next_sibling("text");
    EXPECT_STREQ(plain.attribute("x").value(), "-3.4");
    EXPECT_FALSE(plain.attribute("textLength"));
    EXPECT_FALSE(plain.next_sibling("text").attribute("textLength"));
}

TEST(Texts, BlanksOfALineThatIsSpreadAreWiderAndTheLineHasItsWidth)
{
    const HostDocument document;
    const auto add = [&](const wchar_t* symbol, float x) {
        document.Begin(symbol);
        for (const wchar_t* word : {L"one ", L"two  ", L"thr", L"ee"})
            document.Set(document.Text(x++, 0, word), L"font-size", L"2");
        document.End();
        document.Use(symbol, 5, 6);
    };
    add(L"PLEXORN_TEXT_SPREAD_250_1", -9);
    add(L"PLEXORN_TEXT_SPREAD_1", -9);
    add(L"PLEXORN_TEXT_SPREAD_250_2", 0);
    const ParsedSvg svg(document);
    const pugi::xml_node spread = svg.First("text");
    EXPECT_STREQ(spread.attribute("transform").value(), "translate(5,6)");
    EXPECT_STREQ(spread.attribute("x").value(), "-9");
    EXPECT_STREQ(spread.attribute("textLength").value(), "9");
    EXPECT_STREQ(spread.attribute("lengthAdjust").value(), "spacingAndGlyphs");
    const pugi::xml_node two = spread.child("tspan"), three = two.next_sibling();
    EXPECT_STREQ(two.attribute("dx").value(), "0.5");
    EXPECT_STREQ(three.attribute("dx").value(), "1");
    EXPECT_STREQ(three.next_sibling().value(), "ee"); // no blank before it
    const pugi::xml_node unknown = spread.next_sibling("text");
    EXPECT_FALSE(unknown.attribute("x"));
    EXPECT_FALSE(unknown.attribute("textLength"));
    EXPECT_STREQ(unknown.text().get(), "one two  three");
    EXPECT_FALSE(unknown.next_sibling("text").attribute("textLength")); // does not end where it should
}

TEST(Texts, RunsOfStretchedWritingAreAtTheirPlacesAndAsWideAsTheirAuthors)
{
    // Some viewers take them for as wide as unstretched ones.
    const HostDocument document;
    const auto add = [&](const wchar_t* symbol, const wchar_t* anchor) {
        document.Begin(symbol);
        float x = -10, y = 0;
        for (const wchar_t* word : {L"one ", L"two ", L"three"}) {
            const QlmNode node = document.Text(x, y, word);
            document.Set(node, L"font-size", L"2");
            if (anchor)
                document.Set(node, L"text-anchor", anchor);
            x += 3;
            y = x < -5 ? -1.F : 0.F;
        }
        document.End();
        document.Set(document.Use(symbol, 5, 6), L"scale-x", L"0.5");
    };
    add(L"PLEXORN_TEXT_SPREAD_250_1", nullptr);
    add(L"PLEXORN_TEXT_MIDDLE_2", nullptr);
    add(L"PLEXORN_TEXT_3", nullptr);
    add(L"PLEXORN_TEXT_4", L"middle");
    const ParsedSvg svg(document);
    const auto looks = [](const pugi::xml_node& text) {
        std::string all;
        for (const pugi::xml_node run : text.children("tspan"))
            all += std::string(run.attribute("x").value()) + "," + run.attribute("y").value() + ":" +
                   run.attribute("textLength").value() + "|";
        return all;
    };
    const pugi::xml_node spread = svg.First("text"), middle = spread.next_sibling("text");
    const pugi::xml_node plain = middle.next_sibling("text"), anchored = plain.next_sibling("text");
    EXPECT_EQ(looks(spread), "-10,:2.5|-7,-1:2.5|-4,0:4|");
    EXPECT_FALSE(spread.attribute("x"));
    EXPECT_FALSE(spread.attribute("textLength"));
    EXPECT_EQ(looks(middle), "-10,:3|-7,-1:3|-4,0:14|");
    EXPECT_EQ(looks(plain), "-10,:3|-7,-1:3|-4,0:|");
    EXPECT_FALSE(anchored.child("tspan").attribute("x"));
}

TEST(Texts, LengthsThatNoViewerCanHoldAreNotWritten)
{
    const HostDocument document;
    document.Begin(L"PLEXORN_TEXT_SPREAD_1000000_1");
    document.Set(document.Text(-3e38F, 3e38F, L"one "), L"font-size", L"3e38");
    document.Text(0, -3e38F, L"two");
    document.End();
    document.Begin(L"PLEXORN_TEXT_MIDDLE_2");
    document.Text(-3e38F, 0, L"three");
    document.End();
    document.Use(L"PLEXORN_TEXT_SPREAD_1000000_1", 0, 0);
    document.Use(L"PLEXORN_TEXT_MIDDLE_2", 0, 0);
    document.Set(document.Use(L"PLEXORN_TEXT_SPREAD_1000000_1", 0, 0), L"scale-x", L"2");
    EXPECT_EQ(document.Write().find("inf"), std::string::npos) << document.Write();
}

TEST(Texts, ARaisedRunIsRaisedInItsLine)
{
    const HostDocument document;
    document.Begin(L"PLEXORN_TEXT_1");
    document.Text(0, 0, L"m");
    document.Text(1, -0.5F, L"2");
    document.Text(2, 0, L" a");
    document.Text(3, 0, L" year");
    document.End();
    document.Use(L"PLEXORN_TEXT_1", 5, 6);
    const std::string svg = document.Write();
    EXPECT_NE(svg.find(">m<tspan dy=\"-0.5\">2</tspan><tspan dy=\"0.5\"> a</tspan> year</text>\n"),
              std::string::npos)
        << svg;
}

TEST(Texts, WritingThatIsTurnedInItsSymbolHasBothTurns)
{
    const HostDocument document;
    AddWord(document, L"PLEXORN_TEXT_1", L"lean");
    document.Begin(L"PLEXORN_TEXT_2");
    document.Set(document.Use(L"PLEXORN_TEXT_1", 0, 0), L"rotate", L"30");
    document.End();
    document.Set(document.Use(L"PLEXORN_TEXT_2", 5, 6), L"scale-x", L"2");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("text").attribute("transform").value(),
                 "translate(5,6) scale(2,1) translate(0,0) rotate(30)");
    EXPECT_FALSE(svg.First("use"));
    EXPECT_FALSE(svg.Definitions().child("symbol"));
}

TEST(Texts, OtherSymbolsOfTheNameAreSymbols)
{
    const HostDocument document;
    document.Begin(L"PLEXORN_TEXT_1");
    document.Line(0, 0, 1, 1);
    document.End();
    document.Begin(L"PLEXORN_TEXT_2");
    document.Set(document.Text(0, 0, L"turned"), L"rotate", L"1");
    document.End();
    document.Begin(L"PLEXORN_TEXT_3");
    document.Use(L"PLEXORN_TEXT_3", 0, 0);
    document.End();
    document.Begin(L"PLEXORN_TEXT_4");
    document.End();
    for (const wchar_t* name : {L"PLEXORN_TEXT_1", L"PLEXORN_TEXT_2", L"PLEXORN_TEXT_3", L"PLEXORN_TEXT_4"})
        document.Use(name, 0, 0);
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("use").attribute("xlink:href").value(), "#s-PLEXORN_TEXT_1");
    EXPECT_STREQ(svg.First("use").next_sibling().attribute("xlink:href").value(), "#s-PLEXORN_TEXT_2");
}

TEST(Texts, LongWritingThatIsUsedAgainIsWrittenOnce)
{
    const HostDocument document;
    AddWord(document, L"PLEXORN_TEXT_1", std::wstring(1001, L'x').c_str());
    document.Use(L"PLEXORN_TEXT_1", 0, 0);
    document.Use(L"PLEXORN_TEXT_1", 0, 10);
    const ParsedSvg svg(document);
    EXPECT_TRUE(svg.Definitions().child("symbol").child("text"));
    EXPECT_STREQ(svg.First("use").attribute("xlink:href").value(), "#s-PLEXORN_TEXT_1");
}

TEST(Texts, ManyRunsAreLongTogether)
{
    for (const std::size_t second : {500U, 501U}) {
        const HostDocument document;
        document.Begin(L"PLEXORN_TEXT_1");
        AddRun(document, std::wstring(500, L'x').c_str(), L"#ff0000", L"2");
        AddRun(document, std::wstring(second, L'x').c_str(), L"#0000ff", L"2");
        document.End();
        document.Use(L"PLEXORN_TEXT_1", 0, 0);
        document.Use(L"PLEXORN_TEXT_1", 0, 10);
        EXPECT_EQ(ParsedSvg(document).Definitions().child("symbol").empty(), second == 500) << second;
    }
}

TEST(Parts, APartThatIsUsedOnceIsWhereItIsUsed)
{
    const HostDocument document;
    document.Begin(L"PLEXORN_PART_1");
    document.Line(0, 0, 1, 1);
    document.End();
    document.Begin(L"PLEXORN_PART_2");
    document.Set(document.Use(L"PLEXORN_PART_1", 1, 2), L"scale-x", L"0.5");
    document.End();
    document.Use(L"PLEXORN_PART_2", 3, 4);
    const ParsedSvg svg(document);
    const pugi::xml_node outer = svg.First("g"), inner = outer.child("g");
    EXPECT_STREQ(outer.attribute("transform").value(), "translate(3,4)");
    EXPECT_STREQ(inner.attribute("transform").value(), "translate(1,2) scale(0.5,1)");
    EXPECT_STREQ(inner.child("line").attribute("x2").value(), "1");
    EXPECT_FALSE(svg.Definitions().child("symbol"));
}

TEST(Parts, APartThatIsUsedAgainOrInItselfIsASymbol)
{
    const HostDocument document;
    document.Begin(L"PLEXORN_PART_1");
    document.Line(0, 0, 1, 1);
    document.End();
    document.Use(L"PLEXORN_PART_1", 0, 0);
    document.Use(L"PLEXORN_PART_1", 3, 4);
    document.Begin(L"PLEXORN_PART_2");
    document.Use(L"PLEXORN_PART_2", 0, 0);
    document.Line(0, 0, 2, 2);
    document.End();
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("use").attribute("xlink:href").value(), "#s-PLEXORN_PART_1");
    EXPECT_STREQ(svg.Definitions().child("symbol").child("line").attribute("x2").value(), "1");
}
