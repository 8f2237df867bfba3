// An allocation fails, each in its turn: no exception leaves the host, and a drawing with holes is never
// written as if it were whole.
#include "support/FailingMemory.h"
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

using namespace svghost_tests;

namespace {

struct Outcome {
    std::string text;
    bool isWritten = false;
    bool hasFailed = false;
    std::size_t leaked = 0;
};

bool AppendWhilePaused(void* user, const char* bytes, std::size_t size)
{
    const FailingMemory::Pause pause; // the receiver's own memory is not what is tested
    static_cast<std::string*>(user)->append(bytes, size);
    return true;
}

// What a prepared drawing says by names: marks of layers, an area, a line of writing, a part.
void DrawNamed(QlmNode context)
{
    for (const wchar_t* name :
         {L"PLEXORN_LAYER_A", L"PLEXORN_FILL_1", L"PLEXORN_TEXT_1", L"PLEXORN_PART_W1"}) {
        qlmSetCurrentSvgNode(context, qlmCreateSymbol(context, name));
        const std::wstring_view kind(name);
        if (kind == L"PLEXORN_FILL_1")
            qlmCreatePolygon(context, L"", L"0,0 1,0 1,1", 0, 0);
        for (int run = 0; kind == L"PLEXORN_TEXT_1" && run < 2; ++run)
            qlmSetAttributeByNode(context, qlmCreateText(context, L"", 0, 0, 0, 0, L"a run ", 0, 0),
                                  L"stroke", run == 0 ? L"RGB(1,2,3)" : L"RGB(4,5,6)");
        if (kind == L"PLEXORN_PART_W1")
            qlmCreateLine(context, L"", 0, 0, 2, 2, 0, 0);
        qlmSetCurrentSvgNode(context, nullptr);
        qlmCreateUse(context, L"", 0, 0, name, L"hmi", 1, 1);
    }
}

// An import with everything in it, in which an allocation fails, or it and all after it, none for 0. Texts
// are long, so that they need memory of their own.
Outcome Import(std::size_t failing, FailingMemory::Which which, const SvgHostWriteOptions* options)
{
    Outcome outcome;
    const std::wstring longText(70'000, L'x');
    const std::wstring dashes = std::wstring(300, L'1') + L",1";
    const FailingMemory memory(failing, which);
    SvgHostDocument* document = svgHostCreate();
    const QlmNode context = svgHostBeginImport(document);
    const QlmNode symbol = qlmCreateSymbol(context, L"SYMBOL");
    qlmSetCurrentSvgNode(context, symbol);
    const QlmNode line = qlmCreateLine(context, L"", 0, 0, 1, 1, 0, 0);
    qlmSetAttributeByNode(context, line, L"stroke", L"RGB(1,2,3)");
    qlmSetAttributeByNode(context, line, L"stroke-dasharray", L"0.500000,0.250000,0.500000,0.250000");
    qlmSetAttributeByNode(context, line, L"pg-end-arrow-type", L"stealth arrow");
    qlmSetAttributeByNode(context, line, L"unknown", L"a value of some length, with \"quotes\"");
    qlmSetCurrentSvgNode(context, nullptr);
    qlmSetCurrentSvgNode(context, qlmCreateG(context, L""));
    qlmCreateText(context, L"", 0, 0, 0, 0, longText.c_str(), 0, 0);
    qlmSetCurrentSvgNode(context, nullptr);
    const QlmNode path = qlmCreatePath(context, L"", L"M 1.000000,2.000000 A 3,3, 0 0,0 4,4", 0, 0);
    qlmSetAttributeByNode(context, path, L"rotate", L"30.000000");
    qlmCreatePolyline(context, L"", L"0.000000,1.000000 2.000000,3.000000", 0, 0);
    qlmCreateUse(context, L"", 0, 0, L"SYMBOL", L"hmi", 1, 1);
    qlmCreateUse(context, L"", 0, 0, L"MISSING", L"hmi", 1, 1);
    qlmSetAttributeByNode(context, path, L"stroke-dasharray", dashes.c_str());
    DrawNamed(context);
    qlmSetLastError(0, L"DXF", 7, L"a message that is kept", false, 0);
    outcome.isWritten = svgHostWrite(document, options, AppendWhilePaused, &outcome.text);
    svgHostDestroy(document);
    svgHostBeginImport(nullptr); // this thread keeps nothing of the document any more
    outcome.leaked = memory.Live();
    outcome.hasFailed = memory.HasFailed();
    return outcome;
}

} // namespace

TEST(ShortMemory, EveryAllocationMayFailOnceAndFromThereOn)
{
    SvgHostWriteOptions all{};
    all.background = "white";
    all.style = "text{fill:black}";
    all.generator = "test";
    all.unit = 1;
    all.sheet = 420;
    all.showsMost = all.usesStandardScale = all.groupsLayers = all.sharesDashPatterns = true;
    for (const SvgHostWriteOptions* options :
         {static_cast<const SvgHostWriteOptions*>(nullptr), &std::as_const(all)})
        for (const FailingMemory::Which which :
             {FailingMemory::Which::Nth, FailingMemory::Which::NthAndLater}) {
            const Outcome whole = Import(0, which, options);
            ASSERT_TRUE(whole.isWritten);
            ASSERT_EQ(whole.leaked, 0u);
            int failures = 0;
            for (std::size_t n = 1;; ++n) {
                ASSERT_LT(n, 10'000u);
                const Outcome outcome = Import(n, which, options);
                EXPECT_EQ(outcome.leaked, 0u) << "allocation " << n;
                if (!outcome.hasFailed)
                    break;
                // Only a report can be lost without a trace in the file.
                if (outcome.isWritten)
                    EXPECT_EQ(outcome.text, whole.text) << "allocation " << n;
                else
                    ++failures;
            }
            EXPECT_GT(failures, 40);
        }
}

TEST(ShortMemory, NoElementMayBeMissingFromAWrittenDrawing)
{
    const HostDocument document;
    for (int i = 0; i < 2'000; ++i)
        document.Set(document.Line(0, 0, 1, static_cast<float>(i)), L"stroke", L"RGB(1,2,3)");
    std::string whole;
    ASSERT_TRUE(svgHostWrite(document.Get(), nullptr, AppendWhilePaused, &whole));
    std::size_t failures = 0;
    for (bool isWritten = false; !isWritten; ++failures) {
        ASSERT_LT(failures, 1'000u);
        std::string text;
        const FailingMemory memory(failures + 1, FailingMemory::Which::NthAndLater);
        isWritten = svgHostWrite(document.Get(), nullptr, AppendWhilePaused, &text);
        EXPECT_EQ(isWritten, text == whole);
        EXPECT_EQ(isWritten, !memory.HasFailed());
        EXPECT_EQ(memory.Live(), 0u);
    }
    EXPECT_GT(failures, 1u);
}

TEST(ShortMemory, NoAttributeMayBeMissingFromAWrittenDrawing)
{
    const HostDocument document;
    const QlmNode line = document.Line(0, 0, 1, 1);
    const std::wstring longText(70'000, L'x');
    {
        const FailingMemory memory(1, FailingMemory::Which::Nth);
        document.Set(line, L"unknown", longText.c_str());
        ASSERT_TRUE(memory.HasFailed());
    }
    std::string text;
    EXPECT_FALSE(svgHostWrite(document.Get(), nullptr, AppendWhilePaused, &text));
}

TEST(ShortMemory, ElementsBeyondTheLimitTakeNone)
{
    const HostDocument document;
    document.Line(0, 0, 1, 1);
    svgHostLimitElements(document.Get(), 1);
    const std::wstring longText(70'000, L'x');
    {
        const FailingMemory memory(1, FailingMemory::Which::NthAndLater);
        for (int i = 0; i < 10'000; ++i) {
            document.Text(0, 0, longText.c_str());
            document.Polyline(longText.c_str());
            document.Use(longText.c_str(), 0, 0);
            qlmCreateSymbol(document.Context(), longText.c_str());
            qlmSetCurrentSvgNode(document.Context(), document.Group());
            qlmSetCurrentSvgNode(document.Context(), nullptr);
        }
        EXPECT_FALSE(memory.HasFailed());
    }
    EXPECT_EQ(document.Statistics().elementsBeyondLimit, 50'000u); // false when memory was short
}

// The drawing is measured when it is first asked about, and again when memory was short.
TEST(ShortMemory, QuestionsAreAnsweredOrRefused)
{
    const auto getStatistics = [](SvgHostDocument* document) {
        SvgHostStatistics statistics{};
        const bool answered = svgHostGetStatistics(document, &statistics);
        EXPECT_EQ(answered, statistics.elements == 3);
        return answered;
    };
    const auto getViewBox = [](SvgHostDocument* document) {
        SvgHostViewBox box{};
        const bool answered = svgHostGetViewBox(document, &box);
        EXPECT_EQ(answered, !box.isMadeUp && box.width > 6);
        return answered;
    };
    const auto getPicture = [](SvgHostDocument* document) {
        SvgHostPicture picture{};
        const bool answered = svgHostGetPicture(document, nullptr, &picture);
        EXPECT_EQ(answered, !picture.viewBox.isMadeUp && picture.viewBox.width > 6);
        return answered;
    };
    for (const std::function<bool(SvgHostDocument*)>& ask :
         {std::function<bool(SvgHostDocument*)>(getStatistics),
          std::function<bool(SvgHostDocument*)>(getViewBox),
          std::function<bool(SvgHostDocument*)>(getPicture)}) {
        const HostDocument document;
        const QlmNode symbol = qlmCreateSymbol(document.Context(), L"SYMBOL");
        qlmSetCurrentSvgNode(document.Context(), symbol);
        document.Line(0, 0, 6, 1);
        qlmSetCurrentSvgNode(document.Context(), nullptr);
        document.Use(L"SYMBOL", 0, 0);
        int failures = 0;
        for (bool answered = false; !answered; ++failures) {
            ASSERT_LT(failures, 100);
            const FailingMemory memory(static_cast<std::size_t>(failures) + 1,
                                       FailingMemory::Which::NthAndLater);
            answered = ask(document.Get());
        }
        EXPECT_GT(failures, 1);
    }
}

TEST(ShortMemory, WritingALargeDrawingTakesNoMoreThanASmallOne)
{
    std::size_t most[2];
    for (int large = 0; large < 2; ++large) {
        const HostDocument document;
        for (int i = 0; i < (large ? 50'000 : 1'000); ++i)
            document.Set(document.Line(0, 0, 1, static_cast<float>(i)), L"stroke", L"RGB(1,2,3)");
        const FailingMemory memory(0);
        const auto swallow = [](void*, const char*, std::size_t) { return true; };
        ASSERT_TRUE(svgHostWrite(document.Get(), nullptr, swallow, nullptr));
        most[large] = memory.MostBytes();
    }
    EXPECT_GT(most[0], 0u);
    EXPECT_LE(most[1], most[0] + 65'536);
    EXPECT_LT(most[1], 500'000u);
}
