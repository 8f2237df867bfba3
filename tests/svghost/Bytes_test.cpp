// How large the file becomes: its limit, and long dash patterns that are written once.
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <sstream>
#include <string>

using namespace svghost_tests;

namespace {

std::string WriteWithin(const HostDocument& document, std::size_t mostBytes)
{
    SvgHostWriteOptions options = {};
    options.mostBytes = mostBytes;
    return document.Write(options);
}

std::size_t CountOf(const pugi::xml_node& parent, const char* element)
{
    const auto children = parent.children(element);
    return static_cast<std::size_t>(std::distance(children.begin(), children.end()));
}

// The classes that the style sheet has, by their patterns.
std::map<std::string, std::string> DashClasses(const ParsedSvg& svg)
{
    std::map<std::string, std::string> classes;
    std::istringstream style(svg.Root().child("style").child_value());
    for (std::string rule; std::getline(style, rule, '}');)
        classes[rule.substr(1, rule.find('{') - 1)] = rule.substr(rule.find(':') + 1);
    return classes;
}

std::wstring DashPattern(std::size_t numbers)
{
    std::wstring pattern;
    for (std::size_t i = 0; i < numbers; ++i)
        pattern += L"12345,";
    return pattern + L"1";
}

} // namespace

TEST(Bytes, AnyNumberIsWrittenWithoutALimit)
{
    const HostDocument document;
    for (int i = 0; i < 1000; ++i)
        document.Line(0, 0, 1, 1);
    EXPECT_EQ(CountOf(ParsedSvg(document).Drawing(), "line"), 1000u);
    EXPECT_EQ(document.Statistics().elementsBeyondBytes, 0u);
}

TEST(Bytes, ElementsBeyondTheLimitAreLeftOutAndCounted)
{
    const HostDocument document;
    for (int i = 0; i < 1000; ++i)
        document.Line(0, 0, 1, 1);
    const std::string text = WriteWithin(document, 20'000);
    EXPECT_LE(text.size(), 20'000u);
    EXPECT_GE(text.size(), 19'500u);
    const std::size_t written = CountOf(ParsedSvg(text).Drawing(), "line");
    EXPECT_GT(written, 0u);
    EXPECT_EQ(document.Statistics().elementsBeyondBytes, 1000 - written);
    EXPECT_EQ(document.Statistics().elements, 1000u);
}

TEST(Bytes, LongElementsAreLeftOutAndShortOnesAfterThemWritten)
{
    const std::wstring words(30'000, L'a');
    std::wstring points;
    for (int i = 0; i < 5000; ++i)
        points += L"1,2 ";
    const HostDocument document;
    document.Text(0, 0, words.c_str());
    document.Polyline(points.c_str());
    document.Line(0, 0, 1, 1);
    const ParsedSvg svg(WriteWithin(document, 10'000));
    EXPECT_FALSE(svg.First("text"));
    EXPECT_FALSE(svg.First("polyline"));
    EXPECT_TRUE(svg.First("line"));
    EXPECT_EQ(document.Statistics().elementsBeyondBytes, 2u);
}

TEST(Bytes, AttributesOfOthersCount)
{
    const std::wstring words(30'000, L'a');
    const HostDocument document;
    document.Set(document.Line(0, 0, 1, 1), L"own", words.c_str());
    document.Set(document.Line(0, 0, 1, 1), words.c_str(), L"own");
    document.Line(0, 0, 1, 1);
    document.Set(document.Line(0, 0, 1, 1), words.c_str(), words.c_str());
    const ParsedSvg svg(WriteWithin(document, 10'000));
    EXPECT_EQ(CountOf(svg.Drawing(), "line"), 1u);
    EXPECT_FALSE(svg.First("line").attribute("data-own"));
}

TEST(Bytes, LongNamesOfSymbolsCountForEachUse)
{
    const std::wstring name(3000, L'a');
    const HostDocument document;
    for (int i = 0; i < 10; ++i)
        document.Use(name.c_str(), 0, 0);
    const ParsedSvg svg(WriteWithin(document, 10'000));
    EXPECT_EQ(CountOf(svg.Drawing(), "use"), 3u);
    EXPECT_EQ(document.Statistics().elementsBeyondBytes, 7u);
}

TEST(Bytes, LongDataCountsWhateverTheShape)
{
    std::wstring points = L"0,0";
    while (points.size() < 3000)
        points += L" 12345,6789";
    const HostDocument document;
    for (int i = 0; i < 4; ++i) {
        document.Polyline(points.c_str());
        document.Polygon(points.c_str());
        document.Path((L"M" + points).c_str());
    }
    const std::string text = WriteWithin(document, 20'000);
    EXPECT_LE(text.size(), 20'000u);
    const ParsedSvg svg(text);
    for (const char* shape : {"polyline", "polygon", "path"})
        EXPECT_EQ(CountOf(svg.Drawing(), shape), 2u);
    EXPECT_EQ(document.Statistics().elementsBeyondBytes, 6u);
}

TEST(Bytes, SymbolsLeaveHalfOfTheRoomForTheDrawing)
{
    const HostDocument document;
    document.Begin(L"A");
    for (int i = 0; i < 1000; ++i)
        document.Line(0, 0, 1, 1);
    document.End();
    document.Use(L"A", 0, 0);
    for (int i = 0; i < 50; ++i)
        document.Circle(1, 0, 0);
    const std::string text = WriteWithin(document, 20'000);
    EXPECT_LE(text.size(), 20'000u);
    const ParsedSvg svg(text);
    EXPECT_LT(CountOf(svg.Definitions().child("symbol"), "line"), 500u);
    EXPECT_EQ(CountOf(svg.Drawing(), "use"), 1u);
    EXPECT_EQ(CountOf(svg.Drawing(), "circle"), 50u);
}

TEST(Bytes, WritingCountsWhereverItIsDrawn)
{
    const std::wstring words(900, L'a');
    const HostDocument document;
    document.Begin(L"PLEXORN_TEXT_1");
    document.Text(0, 0, words.c_str());
    document.End();
    for (int i = 0; i < 100; ++i)
        document.Use(L"PLEXORN_TEXT_1", 0, 0);
    const std::string text = WriteWithin(document, 20'000);
    EXPECT_LE(text.size(), 20'000u);
    const std::size_t written = CountOf(ParsedSvg(text).Drawing(), "text");
    EXPECT_GE(written, 15u);
    EXPECT_EQ(document.Statistics().elementsBeyondBytes, 100 - written);
}

TEST(Bytes, AreasCountWithTheirEdges)
{
    std::wstring points;
    for (int i = 0; i < 5000; ++i)
        points += L"1,2 3,4 ";
    for (const int uses : {1, 2}) {
        const HostDocument document;
        document.Begin(L"PLEXORN_FILL_1");
        document.Polygon(points.c_str());
        document.End();
        for (int i = 0; i < uses; ++i)
            document.Use(L"PLEXORN_FILL_1", 0, 0);
        const std::string text = WriteWithin(document, 10'000);
        EXPECT_LE(text.size(), 10'000u);
        EXPECT_EQ(document.Statistics().elementsBeyondBytes, 1u);
    }
}

TEST(Bytes, CountIsThatOfTheLastFile)
{
    const HostDocument document;
    for (int i = 0; i < 1000; ++i)
        document.Line(0, 0, 1, 1);
    WriteWithin(document, 20'000);
    EXPECT_NE(document.Statistics().elementsBeyondBytes, 0u);
    WriteWithin(document, 0);
    EXPECT_EQ(document.Statistics().elementsBeyondBytes, 0u);
}

TEST(Bytes, LongDashPatternsAreWrittenOnce)
{
    const HostDocument document;
    const std::wstring longPattern = DashPattern(40), shortPattern = DashPattern(3);
    for (int i = 0; i < 3; ++i)
        document.Set(document.Line(0, 0, 1, 1), L"stroke-dasharray", longPattern.c_str());
    document.Set(document.Circle(1, 0, 0), L"stroke-dasharray", shortPattern.c_str());
    SvgHostWriteOptions options = {};
    const ParsedSvg repeated(document.Write(options));
    EXPECT_EQ(repeated.First("line").attribute("stroke-dasharray").value(),
              std::string(longPattern.begin(), longPattern.end()));
    EXPECT_FALSE(repeated.Root().child("style"));
    options.sharesDashPatterns = true;
    const ParsedSvg shared(document.Write(options));
    const std::string written(longPattern.begin(), longPattern.end());
    EXPECT_EQ(shared.Root().child("style").child_value(), ".dashes-1{stroke-dasharray:" + written + "}");
    for (const pugi::xml_node line : shared.Drawing().children("line")) {
        EXPECT_STREQ(line.attribute("class").value(), "dashes-1");
        EXPECT_FALSE(line.attribute("stroke-dasharray"));
    }
    EXPECT_TRUE(shared.First("circle").attribute("stroke-dasharray"));
    EXPECT_FALSE(shared.First("circle").attribute("class"));
}

TEST(Bytes, ClassesOfDashPatternsLeaveDotsTheirRoundEnds)
{
    const HostDocument document;
    document.Set(document.Line(0, 0, 1, 1), L"stroke-dasharray", (L"0 " + DashPattern(40) + L" 1").c_str());
    document.Set(document.Circle(1, 0, 0), L"stroke-dasharray", DashPattern(40).c_str());
    SvgHostWriteOptions options = {};
    options.sharesDashPatterns = true;
    const ParsedSvg shared(document.Write(options));
    EXPECT_STREQ(shared.First("line").attribute("class").value(), "dashes-1");
    EXPECT_STREQ(shared.First("line").attribute("stroke-linecap").value(), "round");
    EXPECT_STREQ(shared.First("circle").attribute("class").value(), "dashes-2");
    EXPECT_FALSE(shared.First("circle").attribute("stroke-linecap"));
}

TEST(Bytes, ClassesOfDashPatternsAreNamedInFull)
{
    const HostDocument document;
    for (int i = 1; i < 100'000; ++i)
        document.Set(document.Line(0, 0, 1, 1), L"stroke-dasharray", std::to_wstring(i).c_str());
    const std::wstring pattern = DashPattern(40);
    document.Set(document.Circle(1, 0, 0), L"stroke-dasharray", pattern.c_str());
    SvgHostWriteOptions options = {};
    options.sharesDashPatterns = true;
    const ParsedSvg shared(document.Write(options));
    const std::map<std::string, std::string> classes = DashClasses(shared);
    EXPECT_EQ(classes.at("dashes-100000"), std::string(pattern.begin(), pattern.end()));
    EXPECT_STREQ(shared.First("circle").attribute("class").value(), "dashes-100000");
}

TEST(Bytes, ClassesOfDashPatternsKeepRoomForTheElements)
{
    const HostDocument document;
    for (int i = 0; i < 1000; ++i) {
        const std::wstring pattern = std::to_wstring(i) + L" " + DashPattern(40);
        document.Set(document.Line(0, 0, 1, 1), L"stroke-dasharray", pattern.c_str());
    }
    SvgHostWriteOptions options = {};
    options.sharesDashPatterns = true;
    options.mostBytes = 200'000;
    const std::string written = document.Write(options);
    EXPECT_LE(written.size(), options.mostBytes);
    const ParsedSvg shared(written);
    const std::map<std::string, std::string> classes = DashClasses(shared);
    EXPECT_FALSE(classes.empty());
    EXPECT_LT(classes.size(), 1000u);
    std::size_t inFull = 0;
    for (const pugi::xml_node line : shared.Drawing().children("line"))
        if (line.attribute("class"))
            EXPECT_TRUE(classes.contains(line.attribute("class").value()));
        else
            inFull += line.attribute("stroke-dasharray") != nullptr;
    EXPECT_GT(inFull, 0u);
}

TEST(Bytes, RunsOfALineOfWritingTakeRoom)
{
    const HostDocument document;
    document.Begin(L"PLEXORN_TEXT_1");
    for (int i = 0; i < 100; ++i)
        document.Set(document.Text(0, 0, L"x"), L"stroke", i % 2 == 0 ? L"#ff0000" : L"#0000ff");
    document.End();
    for (int i = 0; i < 100; ++i)
        document.Use(L"PLEXORN_TEXT_1", 0, 0);
    for (std::size_t mostBytes = 20'000; mostBytes < 24'000; mostBytes += 500) {
        const std::string written = WriteWithin(document, mostBytes);
        EXPECT_LE(written.size(), mostBytes);
        EXPECT_GE(CountOf(ParsedSvg(written).Drawing(), "text"), 1u);
    }
}

TEST(Bytes, APatternWithoutRoomAmongTheClassesIsWrittenInFullAndSoAreThoseAfterIt)
{
    const HostDocument document;
    for (const std::wstring& pattern : {DashPattern(40), DashPattern(80), L"7 " + DashPattern(40)})
        document.Set(document.Line(0, 0, 1, 1), L"stroke-dasharray", pattern.c_str());
    SvgHostWriteOptions options = {};
    options.sharesDashPatterns = true;
    options.mostBytes = 2400;
    const ParsedSvg shared(document.Write(options));
    EXPECT_EQ(DashClasses(shared).size(), 1u);
    pugi::xml_node line = shared.First("line");
    EXPECT_STREQ(line.attribute("class").value(), "dashes-1");
    for (int i = 0; i < 2; ++i) {
        line = line.next_sibling("line");
        EXPECT_FALSE(line.attribute("class"));
        EXPECT_TRUE(line.attribute("stroke-dasharray"));
    }
}
