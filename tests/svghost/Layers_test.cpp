// Marks of layers, as prepared drawings have them.
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <string>

using namespace svghost_tests;

namespace {

void DefineMarks(const HostDocument& document)
{
    for (const wchar_t* name : {L"PLEXORN_LAYER_", L"PLEXORN_LAYER_A", L"PLEXORN_LAYER_<B> & \"C\""}) {
        document.Begin(name);
        document.End();
    }
}

void Mark(const HostDocument& document, const std::wstring& layer)
{
    document.Use((L"PLEXORN_LAYER_" + layer).c_str(), 0, 0);
}

// The lines of the file from the drawing's group on, without what is in each tag after its first attribute.
std::string Drawing(const HostDocument& document, const SvgHostWriteOptions& options = {})
{
    std::string svg = document.Write(options);
    svg.erase(0, svg.find("sans-serif"));
    svg.erase(0, svg.find('\n') + 1);
    return svg;
}

std::string LineTo(int x)
{
    return "<line x1=\"0\" y1=\"0\" x2=\"" + std::to_string(x) + "\" y2=\"0\" />\n";
}

const std::string kA = "<g data-layer=\"A\">\n", kEnd = "</g>\n", kWhole = "</g>\n</svg>\n";

} // namespace

TEST(Layers, RunsOfElementsOnOneLayerAreGroupsInTheirOrder)
{
    const HostDocument document;
    DefineMarks(document);
    document.Line(0, 0, 1, 0);
    Mark(document, L"A");
    document.Line(0, 0, 2, 0);
    document.Line(0, 0, 3, 0);
    Mark(document, L"<B> & \"C\"");
    document.Line(0, 0, 4, 0);
    Mark(document, L"A");
    document.Line(0, 0, 5, 0);
    Mark(document, L"");
    document.Line(0, 0, 6, 0);
    EXPECT_EQ(Drawing(document), LineTo(1) + kA + LineTo(2) + LineTo(3) + kEnd +
                                     "<g data-layer=\"&lt;B> &amp; &quot;C&quot;\">\n" + LineTo(4) + kEnd +
                                     kA + LineTo(5) + kEnd + LineTo(6) + kWhole);
    EXPECT_EQ(document.Write().find("<defs>"), std::string::npos);
}

TEST(Layers, MarksWithNothingAfterThemMakeNoGroups)
{
    const HostDocument document;
    DefineMarks(document);
    Mark(document, L"A");
    Mark(document, L"");
    document.Line(0, 0, 1, 0);
    Mark(document, L"A");
    EXPECT_EQ(Drawing(document), LineTo(1) + kWhole);
}

TEST(Layers, MarksAreElements)
{
    const HostDocument document;
    DefineMarks(document);
    const std::size_t symbols = document.Statistics().elements;
    document.Line(0, 0, 1, 0);
    Mark(document, L"A");
    Mark(document, L"A");
    EXPECT_EQ(document.Statistics().elements, symbols + 3);
}

TEST(Layers, AttributesOfAMarkChangeNothing)
{
    const HostDocument document;
    DefineMarks(document);
    const QlmNode mark = qlmCreateUse(document.Context(), L"", 0, 0, L"PLEXORN_LAYER_A", L"", 0, 0);
    ASSERT_NE(mark, nullptr);
    qlmSetAttributeByNode(document.Context(), mark, L"rotate", L"90");
    qlmSetAttributeByNode(document.Context(), mark, L"visibility", L"hidden");
    document.Line(0, 0, 1, 0);
    EXPECT_EQ(Drawing(document), kA + LineTo(1) + kEnd + kWhole);
}

TEST(Layers, SymbolsHaveTheirOwn)
{
    const HostDocument document;
    DefineMarks(document);
    document.Begin(L"PLEXORN_PART_1");
    Mark(document, L"A");
    document.Line(0, 0, 1, 0);
    document.End();
    document.Use(L"PLEXORN_PART_1", 0, 0);
    document.Line(0, 0, 2, 0);
    EXPECT_EQ(Drawing(document),
              "<g transform=\"translate(0,0)\">\n" + kA + LineTo(1) + kEnd + kEnd + LineTo(2) + kWhole);
    document.Use(L"PLEXORN_PART_1", 0, 0);
    const std::string svg = document.Write();
    EXPECT_NE(svg.find("overflow=\"visible\">\n" + kA + LineTo(1) + kEnd + "</symbol>"), std::string::npos);
}

TEST(Layers, GroupsOfTheDrawingStayWhole)
{
    const HostDocument document;
    DefineMarks(document);
    Mark(document, L"A");
    const QlmNode group = qlmCreateG(document.Context(), L"");
    qlmSetCurrentSvgNode(document.Context(), group);
    Mark(document, L"");
    document.Line(0, 0, 1, 0);
    qlmSetCurrentSvgNode(document.Context(), nullptr);
    document.Line(0, 0, 2, 0);
    EXPECT_EQ(Drawing(document), kA + "<g>\n" + LineTo(1) + kEnd + LineTo(2) + kEnd + kWhole);
}

TEST(Layers, OtherSymbolsOfTheNameAreSymbols)
{
    const HostDocument document;
    document.Begin(L"PLEXORN_LAYER_A");
    document.Line(0, 0, 1, 0);
    document.End();
    Mark(document, L"A");
    Mark(document, L"missing");
    document.Line(0, 0, 2, 0);
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("use").attribute("xlink:href").value(), "#s-PLEXORN_LAYER_A");
    EXPECT_FALSE(svg.First("g"));
}

TEST(Layers, AllOfALayerIsTogetherForInkscape)
{
    const HostDocument document;
    DefineMarks(document);
    Mark(document, L"A");
    document.Line(0, 0, 1, 0);
    Mark(document, L"<B> & \"C\"");
    document.Line(0, 0, 2, 0);
    Mark(document, L"");
    document.Line(0, 0, 3, 0);
    Mark(document, L"A");
    document.Line(0, 0, 4, 0);
    SvgHostWriteOptions options{};
    options.groupsLayers = true;
    const std::string layer = "<g inkscape:groupmode=\"layer\" inkscape:label=";
    EXPECT_EQ(Drawing(document, options),
              layer + "\"A\" data-layer=\"A\">\n" + LineTo(1) + LineTo(4) + kEnd + layer +
                  "\"&lt;B> &amp; &quot;C&quot;\" data-layer=\"&lt;B> &amp; &quot;C&quot;\">\n" + LineTo(2) +
                  kEnd + LineTo(3) + kWhole);
    const std::string svg = document.Write(options);
    EXPECT_NE(svg.find(" xmlns:inkscape=\"http://www.inkscape.org/namespaces/inkscape\""), std::string::npos);
    EXPECT_NE(svg.find(" inkscape:groupmode=\"layer\" inkscape:label=\"Drawing\">"), std::string::npos);
}

TEST(Layers, AMarkThatIsUsedBeforeItIsDefinedMakesNoGroupByItself)
{
    const HostDocument document;
    Mark(document, L"A");
    DefineMarks(document);
    Mark(document, L"");
    document.Line(0, 0, 1, 0);
    SvgHostWriteOptions options{};
    for (const bool groupsLayers : {false, true}) {
        options.groupsLayers = groupsLayers;
        EXPECT_EQ(Drawing(document, options), LineTo(1) + kWhole);
    }
}

TEST(Layers, ADrawingThatIsOnePartHasItsLayersInThatPart)
{
    const HostDocument document;
    DefineMarks(document);
    document.Begin(L"PLEXORN_PART_W1");
    Mark(document, L"A");
    document.Line(0, 0, 1, 0);
    Mark(document, L"");
    document.Line(0, 0, 2, 0);
    Mark(document, L"A");
    document.Line(0, 0, 3, 0);
    document.End();
    document.Use(L"PLEXORN_PART_W1", 0, 0);
    SvgHostWriteOptions options{};
    options.groupsLayers = true;
    const std::string layer = "inkscape:groupmode=\"layer\" inkscape:label=";
    EXPECT_EQ(Drawing(document, options), "<g transform=\"translate(0,0)\" " + layer + "\"Drawing\">\n<g " +
                                              layer + "\"A\" data-layer=\"A\">\n" + LineTo(1) + LineTo(3) +
                                              kEnd + LineTo(2) + kEnd + kWhole);
}
