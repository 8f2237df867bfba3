// Several documents at once, on several threads; reports; writing.
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using namespace svghost_tests;

namespace {

std::wstring Message(const HostDocument& document, std::size_t index)
{
    SvgHostError error{};
    return svgHostGetError(document.Get(), index, &error) ? error.message : L"(none)";
}

int Report(int code, int kind, const wchar_t* text)
{
    return qlmSetLastError(code, L"DXF", kind, text, false, 0);
}

} // namespace

TEST(Documents, SeveralLiveBesideEachOther)
{
    const HostDocument first;
    const HostDocument second;
    first.Line(0, 0, 1, 1);
    second.Circle(1, 0, 0);
    first.Circle(2, 0, 0);
    EXPECT_EQ(first.Statistics().elements, 2u);
    EXPECT_EQ(second.Statistics().elements, 1u);
    EXPECT_FALSE(ParsedSvg(second).First("line"));
}

TEST(Documents, ReportsBelongToTheImportBegunLast)
{
    const HostDocument first;
    Report(0, 1, L"one");
    const HostDocument second;
    Report(1, 7, L"two");
    svgHostBeginImport(first.Get());
    Report(0, 3, L"three");
    ASSERT_EQ(svgHostErrorCount(first.Get()), 2u);
    ASSERT_EQ(svgHostErrorCount(second.Get()), 1u);
    EXPECT_EQ(Message(first, 0), L"one");
    EXPECT_EQ(Message(first, 1), L"three");
    SvgHostError error{};
    ASSERT_TRUE(svgHostGetError(second.Get(), 0, &error));
    EXPECT_EQ(error.code, 1);
    EXPECT_EQ(error.kind, 7);
    EXPECT_STREQ(error.message, L"two");
    EXPECT_FALSE(svgHostGetError(second.Get(), 1, &error));
}

TEST(Documents, MessagesOfAllCharactersComeBackUnchanged)
{
    const HostDocument document;
    const wchar_t* const texts[] = {L"", L"caf\x00E9 \x00FF", L"\x0100", L"\x4E2D\xD800", nullptr};
    for (const wchar_t* text : texts)
        Report(0, 0, text);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(Message(document, i), texts[i]);
    EXPECT_EQ(Message(document, 4), L"");
}

TEST(Documents, ListenerTakesReportsInsteadOfTheDocument)
{
    const HostDocument document;
    std::vector<std::wstring> heard;
    svgHostOnError(
        document.Get(),
        [](void* user, const SvgHostError* error) {
            static_cast<std::vector<std::wstring>*>(user)->push_back(error->message);
        },
        &heard);
    Report(0, 0, L"told");
    svgHostOnError(document.Get(), nullptr, nullptr);
    Report(0, 0, L"kept");
    EXPECT_EQ(heard, std::vector<std::wstring>{L"told"});
    ASSERT_EQ(svgHostErrorCount(document.Get()), 1u);
    EXPECT_EQ(Message(document, 0), L"kept");
}

TEST(Documents, ReportAfterTheDocumentIsGoneIsLost)
{
    auto document = std::make_unique<HostDocument>();
    document.reset();
    EXPECT_EQ(Report(5, 0, L"late"), 5);
    const HostDocument next;
    EXPECT_EQ(svgHostErrorCount(next.Get()), 0u);
}

TEST(Documents, ThreadsDoNotMeet)
{
    std::vector<std::thread> threads;
    std::vector<std::string> files(4);
    std::vector<std::size_t> errors(4);
    for (std::size_t t = 0; t < files.size(); ++t) {
        threads.emplace_back([&, t] {
            const HostDocument document;
            for (int i = 0; i < 5000; ++i) {
                const QlmNode line = document.Line(0, 0, static_cast<float>(t), static_cast<float>(i));
                document.Set(line, L"stroke", (L"RGB(" + std::to_wstring(t) + L",0,0)").c_str());
                if (i % 100 == 0)
                    Report(static_cast<int>(t), 0, L"report");
            }
            files[t] = document.Write();
            errors[t] = svgHostErrorCount(document.Get());
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (std::size_t t = 0; t < files.size(); ++t) {
        EXPECT_EQ(errors[t], 50u);
        const ParsedSvg svg(files[t]);
        std::size_t lines = 0;
        for (const pugi::xml_node line : svg.Drawing().children("line")) {
            ++lines;
            EXPECT_EQ(line.attribute("x2").as_uint(), t);
            EXPECT_EQ(line.attribute("stroke").value(),
                      std::string("#0").append(std::to_string(t)).append("0000"));
        }
        EXPECT_EQ(lines, 5000u);
    }
}

TEST(Documents, WritingStopsWhenTheReceiverSaysSo)
{
    const HostDocument document;
    for (int i = 0; i < 20'000; ++i)
        document.Line(0, 0, 1, static_cast<float>(i));
    struct Receiver {
        int refused; // the number of the call that gets false, 0 for none
        int calls = 0;
    };
    const auto receive = [](void* user, const char*, std::size_t) {
        auto* const receiver = static_cast<Receiver*>(user);
        return ++receiver->calls != receiver->refused;
    };
    Receiver willing{0};
    ASSERT_TRUE(svgHostWrite(document.Get(), nullptr, receive, &willing));
    ASSERT_GT(willing.calls, 3);
    for (int number = 1; number <= willing.calls; ++number) {
        Receiver receiver{number};
        EXPECT_FALSE(svgHostWrite(document.Get(), nullptr, receive, &receiver));
        EXPECT_EQ(receiver.calls, number);
    }
}

// A value far longer than a piece goes over its end, and so does an escape.
TEST(Documents, PiecesAreOfSomeTensOfKilobytes)
{
    const HostDocument document;
    for (int i = 0; i < 20'000; ++i)
        document.Line(0, 0, 1, static_cast<float>(i));
    document.Text(0, 0, std::wstring(300'000, L'<').c_str());
    document.Polyline((L"0,0" + std::wstring(300'000, L' ') + L"1.5,2 ").c_str());
    std::vector<std::size_t> sizes;
    const auto add = [](void* user, const char*, std::size_t size) {
        static_cast<std::vector<std::size_t>*>(user)->push_back(size);
        return true;
    };
    ASSERT_TRUE(svgHostWrite(document.Get(), nullptr, add, &sizes));
    ASSERT_GT(sizes.size(), 30u);
    EXPECT_LE(*std::max_element(sizes.begin(), sizes.end()), 100'000u);
    sizes.pop_back();
    EXPECT_GE(*std::min_element(sizes.begin(), sizes.end()), 10'000u);
}

TEST(Documents, WritingTwiceGivesTheSame)
{
    const HostDocument document;
    document.Begin(L"A");
    document.Circle(1, 2, 3);
    document.End();
    document.Use(L"A", 1, 1);
    EXPECT_EQ(document.Write(), document.Write());
}

TEST(Documents, FurtherImportAddsToWhatIsThereAndWasWritten)
{
    const HostDocument document;
    document.Line(0, 0, 1, 1);
    EXPECT_FALSE(ParsedSvg(document).First("circle"));
    EXPECT_EQ(svgHostBeginImport(document.Get()), document.Context());
    document.Circle(1, 0, 0);
    const ParsedSvg both(document);
    EXPECT_TRUE(both.First("line"));
    EXPECT_TRUE(both.First("circle"));
    EXPECT_EQ(document.Statistics().elements, 2u);
}

TEST(Documents, ErrorStaysAsItWasWhenThereIsNoReport)
{
    const HostDocument document;
    const wchar_t* const own = L"mine";
    SvgHostError error{1, 2, own};
    EXPECT_FALSE(svgHostGetError(document.Get(), 0, &error));
    EXPECT_FALSE(svgHostGetError(document.Get(), 0, nullptr));
    EXPECT_EQ(error.code, 1);
    EXPECT_EQ(error.kind, 2);
    EXPECT_EQ(error.message, own);
}

TEST(Documents, ReportsKeptBeforeAListenerStay)
{
    const HostDocument document;
    Report(0, 0, L"kept");
    const auto ignore = [](void*, const SvgHostError*) {};
    svgHostOnError(document.Get(), ignore, nullptr);
    Report(0, 0, L"told");
    ASSERT_EQ(svgHostErrorCount(document.Get()), 1u);
    EXPECT_EQ(Message(document, 0), L"kept");
}

TEST(Documents, BackgroundIsEscaped)
{
    const HostDocument document;
    document.Line(0, 0, 1, 1);
    const ParsedSvg svg(document.Write("<\"&\xC3\xA9"));
    EXPECT_STREQ(svg.Root().child("rect").attribute("fill").value(), "<\"&\xC3\xA9");
}

TEST(Documents, ElementsBeyondTheLimitAreCountedAndNotMade)
{
    const HostDocument document;
    svgHostLimitElements(document.Get(), 2);
    EXPECT_TRUE(document.Line(0, 0, 1, 1));
    EXPECT_TRUE(document.Group());
    const QlmNode refused[] = {document.Line(0, 0, 2, 2),
                               document.Circle(1, 0, 0),
                               document.Ellipse(1, 2, 0, 0),
                               document.Path(L"M 0,0 A 1,1, 0 0,0 2,2"),
                               document.Polyline(L"0,0 1,1"),
                               document.Polygon(L"0,0 1,1"),
                               document.Text(0, 0, L"late"),
                               document.Use(L"A", 0, 0),
                               document.Group(),
                               qlmCreateSymbol(document.Context(), L"A")};
    for (const QlmNode node : refused) {
        EXPECT_FALSE(node);
        document.Set(node, L"stroke", L"RGB(1,2,3)");
    }
    const SvgHostStatistics statistics = document.Statistics();
    EXPECT_EQ(statistics.elements, 2u);
    EXPECT_EQ(statistics.symbols, 0u);
    EXPECT_EQ(statistics.missingSymbols, 0u);
    EXPECT_EQ(statistics.elementsBeyondLimit, std::size(refused));
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.First("line").attribute("x2").value(), "1");
    EXPECT_FALSE(svg.First("line").attribute("stroke"));
    EXPECT_FALSE(svg.First("circle"));
    EXPECT_FALSE(svg.First("text"));
}

TEST(Documents, LimitIsNoneAtFirstAndWithZeroAndTakesNothingAway)
{
    const HostDocument document;
    for (int i = 0; i < 3; ++i)
        document.Line(0, 0, 1, 1);
    svgHostLimitElements(document.Get(), 1);
    EXPECT_FALSE(document.Line(0, 0, 1, 1));
    EXPECT_EQ(document.Statistics().elements, 3u);
    svgHostLimitElements(document.Get(), 0);
    EXPECT_TRUE(document.Line(0, 0, 1, 1));
    EXPECT_EQ(document.Statistics().elements, 4u);
    EXPECT_EQ(document.Statistics().elementsBeyondLimit, 1u);
}

// As the module draws a dimension: the group's end sets the current node to what it was before.
TEST(Documents, WhatShowsNothingIsNotVisible)
{
    using Make = std::function<void(const HostDocument&)>;
    const auto countVisible = [](const Make& make) {
        const HostDocument document;
        document.Begin(L"EMPTY");
        document.End();
        document.Begin(L"FULL");
        document.Line(0, 0, 1, 1);
        document.End();
        make(document);
        return document.Statistics().visibleElements;
    };
    const Make shown[] = {
        [](const HostDocument& document) { document.Line(0, 0, 0, 0); },
        [](const HostDocument& document) { document.Circle(1, 0, 0); },
        [](const HostDocument& document) { document.Ellipse(1, 2, 0, 0); },
        [](const HostDocument& document) { document.Text(0, 0, L" x "); },
        [](const HostDocument& document) { document.Use(L"FULL", 0, 0); },
    };
    for (const Make& make : shown)
        EXPECT_EQ(countVisible(make), 1U) << &make - shown;
    const Make notShown[] = {
        [](const HostDocument& document) { document.Circle(0, 0, 0); },
        [](const HostDocument& document) { document.Ellipse(1, 0, 0, 0); },
        [](const HostDocument& document) { document.Ellipse(0, 1, 0, 0); },
        [](const HostDocument& document) { document.Text(0, 0, L" \t\r\n"); },
        [](const HostDocument& document) { document.Set(document.Text(0, 0, L"x"), L"font-size", L"0"); },
        [](const HostDocument& document) { document.Use(L"EMPTY", 0, 0); },
        [](const HostDocument& document) { document.Use(L"MISSING", 0, 0); },
        [](const HostDocument& document) { document.Polyline(L""); },
        [](const HostDocument& document) {
            document.Set(document.Line(0, 0, 1, 1), L"visibility", L"hidden");
        },
    };
    for (const Make& make : notShown)
        EXPECT_EQ(countVisible(make), 0U) << &make - notShown;
}

TEST(Documents, EndOfAnIgnoredGroupClosesNoOther)
{
    const HostDocument document;
    const QlmNode symbol = document.Begin(L"A");
    const QlmNode group = document.Group();
    qlmSetCurrentSvgNode(document.Context(), group);
    svgHostLimitElements(document.Get(), 2);
    const QlmNode outer = qlmGetCurrentSvgNode(document.Context());
    qlmSetCurrentSvgNode(document.Context(), document.Group());
    EXPECT_FALSE(document.Line(0, 0, 1, 1));
    qlmSetCurrentSvgNode(document.Context(), outer);
    EXPECT_EQ(qlmGetCurrentSvgNode(document.Context()), group);
    svgHostLimitElements(document.Get(), 0);
    document.Circle(1, 0, 0);
    qlmSetCurrentSvgNode(document.Context(), symbol);
    document.Line(0, 0, 1, 1);
    document.End();
    document.Use(L"A", 0, 0);
    EXPECT_EQ(document.Statistics().elementsBeyondLimit, 2u);
    const ParsedSvg svg(document);
    EXPECT_TRUE(svg.Definitions().child("symbol").child("g").child("circle"));
    EXPECT_TRUE(svg.Definitions().child("symbol").child("line"));
    EXPECT_FALSE(svg.First("line"));
}

TEST(Documents, NullDocumentsAreAccepted)
{
    svgHostDestroy(nullptr);
    EXPECT_EQ(svgHostBeginImport(nullptr), nullptr);
    EXPECT_EQ(svgHostErrorCount(nullptr), 0u);
    SvgHostStatistics statistics{};
    EXPECT_FALSE(svgHostGetStatistics(nullptr, &statistics));
    EXPECT_FALSE(svgHostWrite(nullptr, nullptr, nullptr, nullptr));
    SvgHostError error{};
    EXPECT_FALSE(svgHostGetError(nullptr, 0, &error));
    svgHostOnError(nullptr, nullptr, nullptr);
    svgHostLimitElements(nullptr, 1);
}
