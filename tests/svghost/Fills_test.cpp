// Areas: symbols whose names begin as prepared drawings' fills do.
#include "svghost/AgreedSymbols.h"
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <string>

using namespace svghost_tests;

namespace {

void AddSquare(const HostDocument& document, const wchar_t* name)
{
    document.Begin(name);
    document.Set(document.Polygon(L"0,0 10,0 10,10 0,10"), L"stroke", L"#ff8000");
    document.End();
}

void AddSquareWithHole(const HostDocument& document, const wchar_t* name)
{
    document.Begin(name);
    document.Set(document.Polygon(L"0,0 10,0 10,10 0,10"), L"stroke", L"#ff8000");
    document.Set(document.Polygon(L"2,2 8,2 8,8"), L"stroke", L"#ff8000");
    document.End();
}

} // namespace

TEST(Fills, AnAreaIsOnePathWhereItIsUsed)
{
    const HostDocument document;
    document.Line(0, 0, 1, 1);
    AddSquareWithHole(document, L"PLEXORN_FILL_1");
    document.Use(L"PLEXORN_FILL_1", 0, 0);
    document.Line(2, 2, 3, 3);
    const ParsedSvg svg(document);
    const pugi::xml_node path = svg.First("path");
    EXPECT_STREQ(path.attribute("d").value(), "M0,0 10,0 10,10 0,10ZM2,2 8,2 8,8Z");
    EXPECT_STREQ(path.attribute("fill").value(), "#ff8000");
    EXPECT_STREQ(path.attribute("fill-rule").value(), "evenodd");
    EXPECT_STREQ(path.attribute("stroke").value(), "none");
    EXPECT_FALSE(path.attribute("transform"));
    EXPECT_STREQ(path.previous_sibling().attribute("x2").value(), "1");
    EXPECT_STREQ(path.next_sibling().attribute("x2").value(), "3");
    EXPECT_FALSE(svg.First("use"));
    EXPECT_FALSE(svg.Definitions().child("symbol"));
}

TEST(Fills, AMaskHasTheColourOfTheBackground)
{
    const HostDocument document;
    AddSquareWithHole(document, L"PLEXORN_FILL_MASK_1");
    document.Use(L"PLEXORN_FILL_MASK_1", 0, 0);
    SvgHostWriteOptions options = {};
    EXPECT_FALSE(ParsedSvg(document.Write(options)).First("path").attribute("style"));
    options.background = "#1e1e1e";
    const ParsedSvg svg(document.Write(options));
    EXPECT_STREQ(svg.First("path").attribute("d").value(), "M0,0 10,0 10,10 0,10ZM2,2 8,2 8,8Z");
    EXPECT_STREQ(svg.First("path").attribute("fill").value(), "none");
    EXPECT_STREQ(svg.First("path").attribute("style").value(), "fill:#1e1e1e");
}

TEST(Fills, AMaskShowsNothingByItself)
{
    const HostDocument document;
    AddSquare(document, L"PLEXORN_FILL_MASK_1");
    document.Use(L"PLEXORN_FILL_MASK_1", 0, 0);
    EXPECT_EQ(document.Statistics().visibleElements, 0U);
    AddSquare(document, L"PLEXORN_FILL_1");
    document.Use(L"PLEXORN_FILL_1", 0, 0);
    EXPECT_EQ(document.Statistics().visibleElements, 1U);
}

TEST(Fills, AnAreaIsMovedAndTurnedAsItsUseIs)
{
    const HostDocument document;
    AddSquare(document, L"PLEXORN_FILL_A");
    const QlmNode use = document.Use(L"PLEXORN_FILL_A", 5, 6);
    document.Set(use, L"rotate", L"90");
    document.Set(use, L"scale-y", L"-2");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("path").attribute("transform").value(), "translate(5,6) rotate(90) scale(1,-2)");
}

TEST(Fills, AnAreaInASymbolStaysThere)
{
    const HostDocument document;
    AddSquare(document, L"PLEXORN_FILL_1");
    document.Begin(L"Door");
    document.Use(L"PLEXORN_FILL_1", 0, 0);
    document.End();
    document.Use(L"Door", 1, 1);
    document.Use(L"Door", 2, 2);
    const ParsedSvg svg(document);
    const pugi::xml_node symbol = svg.Definitions().child("symbol");
    EXPECT_STREQ(symbol.attribute("data-name").value(), "Door");
    EXPECT_STREQ(symbol.child("path").attribute("d").value(), "M0,0 10,0 10,10 0,10Z");
    EXPECT_FALSE(symbol.next_sibling());
}

TEST(Fills, AnAreaThatIsUsedAgainIsWrittenOnce)
{
    const HostDocument document;
    AddSquare(document, L"PLEXORN_FILL_1");
    document.Use(L"PLEXORN_FILL_1", 0, 0);
    document.Use(L"PLEXORN_FILL_1", 20, 0);
    const ParsedSvg svg(document);
    EXPECT_FALSE(svg.First("path"));
    EXPECT_STREQ(svg.First("use").attribute("xlink:href").value(), "#s-PLEXORN_FILL_1");
    const pugi::xml_node path = svg.Definitions().child("symbol").child("path");
    EXPECT_STREQ(path.attribute("fill").value(), "#ff8000");
    EXPECT_FALSE(path.next_sibling());
}

TEST(Fills, OtherSymbolsAreDrawnAsTheyAre)
{
    const HostDocument document;
    AddSquare(document, L"PLEXORN_FILLING");
    document.Use(L"PLEXORN_FILLING", 0, 0);
    document.Begin(L"PLEXORN_FILL_2");
    document.Polygon(L"0,0 10,0 10,10");
    document.Line(0, 0, 1, 1); // no edge of an area
    document.End();
    document.Use(L"PLEXORN_FILL_2", 0, 0);
    document.Begin(L"PLEXORN_FILL_3"); // nothing is in it
    document.End();
    document.Use(L"PLEXORN_FILL_3", 0, 0);
    const ParsedSvg svg(document);
    EXPECT_FALSE(svg.First("path"));
    int symbols = 0, polygons = 0;
    for (const pugi::xml_node symbol : svg.Definitions().children("symbol")) {
        ++symbols;
        polygons += symbol.child("polygon") ? 1 : 0;
    }
    EXPECT_EQ(symbols, 3);
    EXPECT_EQ(polygons, 2);
}

// The strokes reach beyond the edges and are wide: nothing of them counts.
TEST(Fills, StrokesThatCoverAnAreaAreForOtherHosts)
{
    const HostDocument plain;
    AddSquareWithHole(plain, L"PLEXORN_FILL_1");
    plain.Use(L"PLEXORN_FILL_1", 5, 5);
    const HostDocument document;
    document.Begin(L"PLEXORN_FILL_1");
    document.Set(document.Polygon(L"0,0 10,0 10,10 0,10"), L"stroke", L"#ff8000");
    document.Set(document.Polygon(L"2,2 8,2 8,8"), L"stroke", L"#ff8000");
    document.Set(document.Polyline(L"1,-5 1,15"), L"stroke-width", L"40");
    document.Polyline(L"9,1 9,9 1,9");
    document.End();
    document.Use(L"PLEXORN_FILL_1", 5, 5);
    EXPECT_EQ(document.Write(), plain.Write());
    EXPECT_EQ(document.Statistics().visibleElements, plain.Statistics().visibleElements);
    EXPECT_EQ(document.Statistics().drawnElements, plain.Statistics().drawnElements);
}

TEST(Fills, EdgesAfterStrokesAreNone)
{
    const HostDocument document;
    document.Begin(L"PLEXORN_FILL_1");
    document.Polygon(L"0,0 10,0 10,10 0,10");
    document.Polyline(L"1,1 9,1");
    document.Polygon(L"2,2 8,2 8,8");
    document.End();
    document.Use(L"PLEXORN_FILL_1", 0, 0);
    document.Begin(L"PLEXORN_FILL_2");
    document.Polyline(L"1,1 9,1");
    document.End();
    document.Use(L"PLEXORN_FILL_2", 0, 0);
    EXPECT_FALSE(ParsedSvg(document).First("path"));
}

TEST(Fills, EdgesThatCannotBeDrawnAreLeftOut)
{
    const HostDocument document;
    AddSquare(document, L"PLEXORN_FILL_1");
    document.Begin(L"PLEXORN_FILL_2");
    document.Polygon(L"0,0 nan,0 10,10");
    document.Polygon(L"");
    document.Polygon(L"0,0 4,0 4,4");
    document.Set(document.Polygon(L"1,1 2,1 2,2"), L"visibility", L"hidden");
    document.End();
    document.Use(L"PLEXORN_FILL_2", 0, 0);
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("path").attribute("d").value(), "M0,0 4,0 4,4Z");
    EXPECT_STREQ(svg.First("path").attribute("fill").value(), "#00ff00"); // that of all without a colour
    EXPECT_FALSE(svg.Definitions().child("symbol"));
}

TEST(Fills, TheSecondSymbolOfANameIsNoArea)
{
    const HostDocument document;
    AddSquare(document, L"PLEXORN_FILL_1");
    AddSquareWithHole(document, L"PLEXORN_FILL_1");
    document.Use(L"PLEXORN_FILL_1", 0, 0);
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("path").attribute("d").value(), "M0,0 10,0 10,10 0,10Z");
    EXPECT_STREQ(svg.Definitions().child("symbol").attribute("id").value(), "d2-PLEXORN_FILL_1");
}

TEST(Fills, AnAreaTakesItsRoomInTheViewBox)
{
    const HostDocument document;
    AddSquare(document, L"PLEXORN_FILL_1");
    document.Use(L"PLEXORN_FILL_1", 100, 200);
    ExpectTight(ViewBoxOf(ParsedSvg(document)), 100, 200, 110, 210, 1);
}

TEST(Fills, TheNameIsTheAgreedOne)
{
    EXPECT_EQ(svghost::kFillPrefix, L"PLEXORN_FILL_");
}
