// Symbols and uses: names, cycles, drawings that would unfold without end.
#include "support/CountedWork.h"
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace svghost_tests;

namespace {

std::string Target(const pugi::xml_node& use)
{
    return std::string(use.attribute("xlink:href").value()).substr(1);
}

pugi::xml_node SymbolOf(const ParsedSvg& svg, const pugi::xml_node& use)
{
    return svg.Definitions().find_child_by_attribute("symbol", "id", Target(use).c_str());
}

// A symbol with a line in it.
void AddSymbol(const HostDocument& document, const wchar_t* name, float length = 1)
{
    document.Begin(name);
    document.Line(0, 0, length, 0);
    document.End();
}

} // namespace

TEST(Uses, PlacementIsTranslateThenRotateThenScale)
{
    const HostDocument document;
    AddSymbol(document, L"DOOR");
    const QlmNode use = document.Use(L"DOOR", 10, -20);
    document.Set(use, L"rotate", L"-30.000000");
    document.Set(use, L"scale-x", L"-1.000000");
    document.Set(use, L"scale-y", L"2.000000");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("use").attribute("transform").value(),
                 "translate(10,-20) rotate(-30) scale(-1,2)");
    EXPECT_STREQ(SymbolOf(svg, svg.First("use")).attribute("overflow").value(), "visible");
}

TEST(Uses, OneScaleAloneLeavesTheOtherAtOne)
{
    const HostDocument document;
    AddSymbol(document, L"DOOR");
    document.Set(document.Use(L"DOOR", 0, 0), L"scale-y", L"-1.000000");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("use").attribute("transform").value(), "translate(0,0) scale(1,-1)");
}

TEST(Uses, ScaleOfZeroIsLeftOut)
{
    // librsvg refuses the whole file for it.
    for (const wchar_t* axis : {L"scale-x", L"scale-y"}) {
        const HostDocument document;
        AddSymbol(document, L"DOOR");
        document.Set(document.Use(L"DOOR", 0, 0), axis, L"0.000000");
        EXPECT_FALSE(ParsedSvg(document).First("use"));
        EXPECT_EQ(document.Statistics().undrawableElements, 1u);
    }
}

TEST(Uses, ScalesThatMultiplyBeyondReasonAreLeftOut)
{
    for (const wchar_t* scale : {L"0.000001", L"1000000.000000"}) {
        const HostDocument document;
        AddSymbol(document, L"0");
        for (int i = 0; i < 50; ++i) {
            document.Begin(std::to_wstring(i + 1).c_str());
            const QlmNode use = document.Use(std::to_wstring(i).c_str(), 0, 0);
            document.Set(use, L"scale-x", scale);
            document.Set(use, L"scale-y", scale);
            document.End();
        }
        const ParsedSvg svg(document);
        const pugi::xml_node five = svg.Definitions().find_child_by_attribute("symbol", "data-name", "5");
        EXPECT_TRUE(five.child("use"));
        EXPECT_EQ(document.Statistics().undrawableElements, 5u);
    }
}

TEST(Uses, SymbolMayBeDefinedLater)
{
    const HostDocument document;
    document.Use(L"LATER", 0, 0);
    AddSymbol(document, L"LATER");
    const ParsedSvg svg(document);
    EXPECT_STREQ(SymbolOf(svg, svg.First("use")).attribute("data-name").value(), "LATER");
    EXPECT_EQ(document.Statistics().missingSymbols, 0u);
}

TEST(Uses, MissingSymbolIsCountedAndTheUseKept)
{
    const HostDocument document;
    AddSymbol(document, L"A");
    document.Use(L"B", 0, 0);
    const ParsedSvg svg(document);
    ASSERT_TRUE(svg.First("use"));
    EXPECT_FALSE(SymbolOf(svg, svg.First("use")));
    EXPECT_EQ(document.Statistics().missingSymbols, 1u);
}

TEST(Uses, FirstOfEqualNamesIsTheTarget)
{
    const HostDocument document;
    AddSymbol(document, L"A", 1);
    AddSymbol(document, L"A", 2);
    AddSymbol(document, L"A", 3);
    document.Use(L"A", 0, 0);
    const ParsedSvg svg(document);
    EXPECT_EQ(SymbolOf(svg, svg.First("use")).child("line").attribute("x2").as_double(), 1);
    std::set<std::string> ids;
    for (const pugi::xml_node symbol : svg.Definitions().children("symbol"))
        ids.insert(symbol.attribute("id").value());
    EXPECT_EQ(ids.size(), 3u);
    EXPECT_EQ(document.Statistics().duplicateSymbols, 2u);
    EXPECT_EQ(document.Statistics().symbols, 3u);
}

TEST(Uses, NamesStayApartWhateverTheyHold)
{
    const HostDocument document;
    const wchar_t* const names[] = {L"A",      L"a",      L"_x41_",  L"_",      L"_x5F_",  L"",
                                    L" ",      L"A B",    L"2-A",    L"d2-A",   L"*U1",    L"\x00DC\x4E2D",
                                    L"\"<&>'", L"\xD800", L"\xDC00", L"\xFFFD", L"\x1\x2", L"\xFFFF",
                                    L"x_",     L"_x",     L"_x20_"};
    float length = 1;
    for (const wchar_t* name : names)
        AddSymbol(document, name, length++);
    AddSymbol(document, L"A", 1000);
    for (const wchar_t* name : names)
        document.Use(name, 0, 0);
    const ParsedSvg svg(document);
    double expected = 1;
    for (const pugi::xml_node use : svg.Drawing().children("use"))
        EXPECT_EQ(SymbolOf(svg, use).child("line").attribute("x2").as_double(), expected++) << Target(use);
    EXPECT_EQ(expected, static_cast<double>(length));
    std::set<std::string> ids;
    for (const pugi::xml_node symbol : svg.Definitions().children("symbol"))
        ids.insert(symbol.attribute("id").value());
    EXPECT_EQ(ids.size(), std::size(names) + 1);
    for (const std::string& id : ids)
        EXPECT_EQ(id.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._"),
                  std::string::npos);
}

TEST(Uses, LettersDigitsAndThreeMarksOfANameStay)
{
    const HostDocument document;
    AddSymbol(document, L"azAZ09-._", 1);
    AddSymbol(document, L"`{@[/:", 2); // next to them
    const ParsedSvg svg(document);
    const pugi::xml_node symbol = svg.Definitions().child("symbol");
    EXPECT_STREQ(symbol.attribute("id").value(), "s-azAZ09-._");
    EXPECT_STREQ(symbol.next_sibling().attribute("id").value(), "s-_x60__x7B__x40__x5B__x2F__x3A_");
}

TEST(Uses, NameIsKeptBesideTheIdentifier)
{
    const HostDocument document;
    AddSymbol(document, L"T\x00FCr <1>");
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.Definitions().child("symbol").attribute("data-name").value(), "T\xC3\xBCr <1>");
    EXPECT_STREQ(svg.Definitions().child("symbol").attribute("id").value(), "s-T_xFC_r_x20__x3C_1_x3E_");
}

TEST(Cycles, UseOfTheOwnSymbolIsLeftOut)
{
    const HostDocument document;
    document.Begin(L"A");
    document.Line(0, 0, 1, 1);
    document.Use(L"A", 1, 1);
    document.End();
    document.Use(L"A", 0, 0);
    const ParsedSvg svg(document);
    EXPECT_TRUE(svg.First("use"));
    EXPECT_TRUE(SymbolOf(svg, svg.First("use")).child("line"));
    EXPECT_FALSE(SymbolOf(svg, svg.First("use")).child("use"));
    EXPECT_EQ(document.Statistics().cyclicUses, 1u);
}

TEST(Cycles, UsesRoundACycleAreLeftOutAndOthersStay)
{
    const HostDocument document;
    AddSymbol(document, L"LEAF");
    const wchar_t* const names[] = {L"A", L"B", L"C", L"A"};
    for (int i = 0; i < 3; ++i) {
        document.Begin(names[i]);
        document.Use(names[i + 1], 0, 0);
        document.Use(L"LEAF", 0, 0);
        document.End();
    }
    document.Begin(L"OUTSIDE");
    document.Use(L"A", 0, 0);
    document.End();
    document.Use(L"OUTSIDE", 0, 0);
    const ParsedSvg svg(document);
    EXPECT_EQ(document.Statistics().cyclicUses, 3u);
    for (const pugi::xml_node symbol : svg.Definitions().children("symbol")) {
        const std::string name = symbol.attribute("data-name").value();
        for (const pugi::xml_node use : symbol.children("use"))
            EXPECT_EQ(Target(use), name == "OUTSIDE" ? "s-A" : "s-LEAF");
    }
    EXPECT_TRUE(SymbolOf(svg, svg.First("use")).child("use"));
}

TEST(Cycles, UseInAGroupOfTheSymbolCountsToo)
{
    const HostDocument document;
    document.Begin(L"A");
    qlmSetCurrentSvgNode(document.Context(), document.Group());
    document.Use(L"A", 0, 0);
    document.End();
    const ParsedSvg svg(document);
    EXPECT_EQ(document.Statistics().cyclicUses, 1u);
    EXPECT_FALSE(svg.Definitions().child("symbol").child("g").child("use"));
}

TEST(Cycles, LaterSymbolOfTheSameNameMayUseTheFirst)
{
    const HostDocument document;
    AddSymbol(document, L"A");
    document.Begin(L"A");
    document.Use(L"A", 0, 0);
    document.End();
    const ParsedSvg svg(document);
    EXPECT_EQ(document.Statistics().cyclicUses, 0u);
    EXPECT_TRUE(svg.Definitions().last_child().child("use"));
}

namespace {

// How many elements a viewer makes of the container, uses followed.
std::size_t Unfolded(const ParsedSvg& svg, const pugi::xml_node& container, std::size_t limit)
{
    std::size_t count = 1;
    for (const pugi::xml_node node : container.children()) {
        count += node == pugi::xml_node() ? 0 : 1;
        if (std::string(node.name()) == "use" && count < limit)
            count += Unfolded(svg, SymbolOf(svg, node), limit);
    }
    return count;
}

// Levels of symbols, each with ten uses of the one below; "L0" is the lowest.
void DrawLevels(const HostDocument& document, int levels)
{
    std::wstring below = L"L0";
    AddSymbol(document, L"L0");
    for (int level = 1; level <= levels; ++level) {
        const std::wstring name = L"L" + std::to_wstring(level);
        document.Begin(name.c_str());
        for (int i = 0; i < 10; ++i)
            document.Use(below.c_str(), static_cast<float>(i), 0);
        document.End();
        below = name;
    }
    document.Use(below.c_str(), 0, 0);
}

// Symbols that each use the next one, which the last one lacks.
void DrawChain(const HostDocument& document, int length)
{
    for (int i = 0; i < length; ++i) {
        document.Begin((L"C" + std::to_wstring(i)).c_str());
        document.Line(0, 0, 1, 1);
        document.Use((L"C" + std::to_wstring(i + 1)).c_str(), 1, 1);
        document.End();
    }
    document.Use(L"C0", 0, 0);
}

// Compared by tests/robust/work_test.py.
void RunAtSizes(const char* label, void (*draw)(const HostDocument&, int), int size)
{
    for (const int count : {0, size, 2 * size})
        RunCounted(label, static_cast<std::size_t>(count), [&] {
            const HostDocument document;
            draw(document, count);
            return document.Write().size();
        });
}

} // namespace

TEST(Unfolding, NineLevelsOfTenStayWithinTheBudget)
{
    const HostDocument document;
    DrawLevels(document, 9);
    document.Use(L"L2", 0, 0);
    const ParsedSvg svg(document);
    EXPECT_GT(document.Statistics().unboundedUses, 0u);
    const std::size_t drawn = Unfolded(svg, svg.Drawing(), 2'000'000);
    EXPECT_GT(drawn, 200'000u);
    EXPECT_LT(drawn, 310'000u);
    EXPECT_TRUE(svg.Definitions().find_child_by_attribute("symbol", "data-name", "L3").child("use"));
}

TEST(Unfolding, ManyInsertsOfAModestBlockAreAllDrawn)
{
    const HostDocument document;
    document.Begin(L"B");
    for (int i = 0; i < 10; ++i)
        document.Line(0, 0, 1, static_cast<float>(i));
    document.End();
    for (int i = 0; i < 200'000; ++i)
        document.Use(L"B", static_cast<float>(i), 0);
    EXPECT_EQ(document.Statistics().unboundedUses, 0u);
}

TEST(Uses, ThoseOfLayersAndOfTheWholeDrawingAreNoElementsOfIt)
{
    const HostDocument document;
    document.Begin(L"A");
    document.Line(0, 0, 1, 1);
    document.End();
    document.Begin(L"PLEXORN_LAYER_A");
    document.End();
    document.Begin(L"PLEXORN_PART_W1");
    document.Use(L"PLEXORN_LAYER_A", 0, 0);
    document.Use(L"A", 0, 0);
    document.Use(L"A", 1, 1);
    document.Circle(1, 0, 0);
    document.End();
    document.Use(L"PLEXORN_PART_W1", 0, 0);
    // The line, the circle and both uses of A.
    EXPECT_EQ(document.Statistics().drawnElements, 4u);
}

TEST(Unfolding, AChainAsLongAsIsDrawnIsDrawnWhereverItIsUsed)
{
    for (const int length : {100, 101}) {
        const HostDocument document;
        DrawChain(document, length);
        EXPECT_EQ(document.Statistics().unboundedUses, length > 100 ? 1u : 0u) << length;
    }
}

TEST(Unfolding, ChainOfAHundredThousandIsCutIntoShortOnes)
{
    const HostDocument document;
    constexpr int kLength = 100'000;
    DrawChain(document, kLength);
    const ParsedSvg svg(document);
    EXPECT_EQ(document.Statistics().missingSymbols, 1u);
    EXPECT_EQ(document.Statistics().unboundedUses, static_cast<std::size_t>(kLength / 100 - 1));
    // Symbols come in the order of creation: the longest run of links is the depth that is drawn.
    int longest = 0;
    int run = 0;
    for (const pugi::xml_node symbol : svg.Definitions().children("symbol")) {
        longest = std::max(longest, ++run);
        if (!symbol.child("use"))
            run = 0;
    }
    EXPECT_EQ(longest, 100);
    EXPECT_TRUE(svg.First("use"));
}

// What the levels would unfold to grows tenfold with each.
TEST(Work, OfLevelsOfSymbols)
{
    RunAtSizes("symbols/levels", DrawLevels, 100);
}

TEST(Work, OfChainsOfSymbols)
{
    RunAtSizes("symbols/chain", DrawChain, 2000);
}
