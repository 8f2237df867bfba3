// Documents beside each other, on several threads; reports; writing.
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using namespace svghost_tests;

namespace {

std::wstring message(const HostDocument& document, std::size_t index)
{
    SvgHostError error{};
    return svgHostGetError(document.get(), index, &error) ? error.message : L"(none)";
}

int report(int code, int kind, const wchar_t* text)
{
    return qlmSetLastError(code, L"DXF", kind, text, false, 0);
}

} // namespace

TEST(Documents, SeveralLiveBesideEachOther)
{
    const HostDocument first;
    const HostDocument second;
    first.line(0, 0, 1, 1);
    second.circle(1, 0, 0);
    first.circle(2, 0, 0);
    EXPECT_EQ(first.statistics().elements, 2u);
    EXPECT_EQ(second.statistics().elements, 1u);
    EXPECT_FALSE(ParsedSvg(second).first("line"));
}

TEST(Documents, ReportsBelongToTheImportBegunLast)
{
    const HostDocument first;
    report(0, 1, L"one");
    const HostDocument second;
    report(1, 7, L"two");
    svgHostBeginImport(first.get());
    report(0, 3, L"three");
    ASSERT_EQ(svgHostErrorCount(first.get()), 2u);
    ASSERT_EQ(svgHostErrorCount(second.get()), 1u);
    EXPECT_EQ(message(first, 0), L"one");
    EXPECT_EQ(message(first, 1), L"three");
    SvgHostError error{};
    ASSERT_TRUE(svgHostGetError(second.get(), 0, &error));
    EXPECT_EQ(error.code, 1);
    EXPECT_EQ(error.kind, 7);
    EXPECT_STREQ(error.message, L"two");
    EXPECT_FALSE(svgHostGetError(second.get(), 1, &error));
}

TEST(Documents, MessagesOfAllCharactersComeBackUnchanged)
{
    const HostDocument document;
    const wchar_t* const texts[] = {L"", L"caf\x00E9 \x00FF", L"\x0100", L"\x4E2D\xD800", nullptr};
    for (const wchar_t* text : texts)
        report(0, 0, text);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(message(document, i), texts[i]);
    EXPECT_EQ(message(document, 4), L"");
}

TEST(Documents, ListenerTakesReportsInsteadOfTheDocument)
{
    const HostDocument document;
    std::vector<std::wstring> heard;
    svgHostOnError(
        document.get(),
        [](void* user, const SvgHostError* error) {
            static_cast<std::vector<std::wstring>*>(user)->push_back(error->message);
        },
        &heard);
    report(0, 0, L"told");
    svgHostOnError(document.get(), nullptr, nullptr);
    report(0, 0, L"kept");
    EXPECT_EQ(heard, std::vector<std::wstring>{L"told"});
    ASSERT_EQ(svgHostErrorCount(document.get()), 1u);
    EXPECT_EQ(message(document, 0), L"kept");
}

TEST(Documents, ReportAfterTheDocumentIsGoneIsLost)
{
    auto document = std::make_unique<HostDocument>();
    document.reset();
    EXPECT_EQ(report(5, 0, L"late"), 5);
    const HostDocument next;
    EXPECT_EQ(svgHostErrorCount(next.get()), 0u);
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
                const QlmNode line = document.line(0, 0, static_cast<float>(t), static_cast<float>(i));
                document.set(line, L"stroke", (L"RGB(" + std::to_wstring(t) + L",0,0)").c_str());
                if (i % 100 == 0)
                    report(static_cast<int>(t), 0, L"report");
            }
            files[t] = document.write();
            errors[t] = svgHostErrorCount(document.get());
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (std::size_t t = 0; t < files.size(); ++t) {
        EXPECT_EQ(errors[t], 50u);
        const ParsedSvg svg(files[t]);
        std::size_t lines = 0;
        for (const pugi::xml_node line : svg.drawing().children("line")) {
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
        document.line(0, 0, 1, static_cast<float>(i));
    int calls = 0;
    const auto refuse = [](void* user, const char*, size_t) { return ++*static_cast<int*>(user) < 3; };
    EXPECT_FALSE(svgHostWrite(document.get(), nullptr, refuse, &calls));
    EXPECT_EQ(calls, 3);
}

TEST(Documents, WritingTwiceGivesTheSame)
{
    const HostDocument document;
    document.begin(L"A");
    document.circle(1, 2, 3);
    document.end();
    document.use(L"A", 1, 1);
    EXPECT_EQ(document.write(), document.write());
}

TEST(Documents, FurtherImportAddsToWhatIsThereAndWasWritten)
{
    const HostDocument document;
    document.line(0, 0, 1, 1);
    EXPECT_FALSE(ParsedSvg(document).first("circle"));
    EXPECT_EQ(svgHostBeginImport(document.get()), document.context());
    document.circle(1, 0, 0);
    const ParsedSvg both(document);
    EXPECT_TRUE(both.first("line"));
    EXPECT_TRUE(both.first("circle"));
    EXPECT_EQ(document.statistics().elements, 2u);
}

TEST(Documents, ErrorStaysAsItWasWhenThereIsNoReport)
{
    const HostDocument document;
    const wchar_t* const own = L"mine";
    SvgHostError error{1, 2, own};
    EXPECT_FALSE(svgHostGetError(document.get(), 0, &error));
    EXPECT_FALSE(svgHostGetError(document.get(), 0, nullptr));
    EXPECT_EQ(error.code, 1);
    EXPECT_EQ(error.kind, 2);
    EXPECT_EQ(error.message, own);
}

TEST(Documents, ReportsKeptBeforeAListenerStay)
{
    const HostDocument document;
    report(0, 0, L"kept");
    const auto ignore = [](void*, const SvgHostError*) {};
    svgHostOnError(document.get(), ignore, nullptr);
    report(0, 0, L"told");
    ASSERT_EQ(svgHostErrorCount(document.get()), 1u);
    EXPECT_EQ(message(document, 0), L"kept");
}

TEST(Documents, BackgroundIsEscaped)
{
    const HostDocument document;
    document.line(0, 0, 1, 1);
    const ParsedSvg svg(document.write("<\"&\xC3\xA9"));
    EXPECT_STREQ(svg.root().child("rect").attribute("fill").value(), "<\"&\xC3\xA9");
}

TEST(Documents, ElementsBeyondTheLimitAreCountedAndNotMade)
{
    const HostDocument document;
    svgHostLimitElements(document.get(), 2);
    EXPECT_TRUE(document.line(0, 0, 1, 1));
    EXPECT_TRUE(document.group());
    const QlmNode refused[] = {document.line(0, 0, 2, 2),
                               document.circle(1, 0, 0),
                               document.ellipse(1, 2, 0, 0),
                               document.path(L"M 0,0 A 1,1, 0 0,0 2,2"),
                               document.polyline(L"0,0 1,1"),
                               document.polygon(L"0,0 1,1"),
                               document.text(0, 0, L"late"),
                               document.use(L"A", 0, 0),
                               document.group(),
                               qlmCreateSymbol(document.context(), L"A")};
    for (const QlmNode node : refused) {
        EXPECT_FALSE(node);
        document.set(node, L"stroke", L"RGB(1,2,3)");
    }
    const SvgHostStatistics statistics = document.statistics();
    EXPECT_EQ(statistics.elements, 2u);
    EXPECT_EQ(statistics.symbols, 0u);
    EXPECT_EQ(statistics.missingSymbols, 0u);
    EXPECT_EQ(statistics.elementsBeyondLimit, std::size(refused));
    const ParsedSvg svg(document);
    EXPECT_STREQ(svg.first("line").attribute("x2").value(), "1");
    EXPECT_FALSE(svg.first("line").attribute("stroke"));
    EXPECT_FALSE(svg.first("circle"));
    EXPECT_FALSE(svg.first("text"));
}

TEST(Documents, LimitIsNoneAtFirstAndWithZeroAndTakesNothingAway)
{
    const HostDocument document;
    for (int i = 0; i < 3; ++i)
        document.line(0, 0, 1, 1);
    svgHostLimitElements(document.get(), 1);
    EXPECT_FALSE(document.line(0, 0, 1, 1));
    EXPECT_EQ(document.statistics().elements, 3u);
    svgHostLimitElements(document.get(), 0);
    EXPECT_TRUE(document.line(0, 0, 1, 1));
    EXPECT_EQ(document.statistics().elements, 4u);
    EXPECT_EQ(document.statistics().elementsBeyondLimit, 1u);
}

// As the module draws a dimension: the group's end sets the current node to what it was before.
TEST(Documents, EndOfAnIgnoredGroupClosesNoOther)
{
    const HostDocument document;
    const QlmNode symbol = document.begin(L"A");
    const QlmNode group = document.group();
    qlmSetCurrentSvgNode(document.context(), group);
    svgHostLimitElements(document.get(), 2);
    const QlmNode outer = qlmGetCurrentSvgNode(document.context());
    qlmSetCurrentSvgNode(document.context(), document.group());
    EXPECT_FALSE(document.line(0, 0, 1, 1));
    qlmSetCurrentSvgNode(document.context(), outer);
    EXPECT_EQ(qlmGetCurrentSvgNode(document.context()), group);
    svgHostLimitElements(document.get(), 0);
    document.circle(1, 0, 0);
    qlmSetCurrentSvgNode(document.context(), symbol);
    document.line(0, 0, 1, 1);
    document.end();
    document.use(L"A", 0, 0);
    EXPECT_EQ(document.statistics().elementsBeyondLimit, 2u);
    const ParsedSvg svg(document);
    EXPECT_TRUE(svg.definitions().child("symbol").child("g").child("circle"));
    EXPECT_TRUE(svg.definitions().child("symbol").child("line"));
    EXPECT_FALSE(svg.first("line"));
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
