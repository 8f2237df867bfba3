// The n-th allocation fails, n = 1, 2, ...: no exception leaves the host, and a drawing with holes is never
// written as if it were whole. Allocations of pugixml count too: the host uses the same shared library as
// these tests.
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <new>
#include <string>
#include <utility>

namespace {

// How many more allocations of this thread succeed; negative: all.
thread_local long allocationsLeft = -1;

void* AllocateOrNull(std::size_t size)
{
    if (allocationsLeft == 0)
        return nullptr;
    if (allocationsLeft > 0)
        --allocationsLeft;
    return std::malloc(size ? size : 1);
}

void* Allocate(std::size_t size)
{
    void* memory = AllocateOrNull(size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

// What pugixml holds, and held at most, while its memory comes from here.
std::size_t nodeBytes = 0;
std::size_t mostNodeBytes = 0;

constexpr std::size_t kSizeRoom = alignof(std::max_align_t);

void* AllocateNodes(std::size_t size)
{
    void* memory = AllocateOrNull(size + kSizeRoom);
    if (!memory)
        return nullptr;
    std::memcpy(memory, &size, sizeof size);
    nodeBytes += size;
    mostNodeBytes = std::max(mostNodeBytes, nodeBytes);
    return static_cast<char*>(memory) + kSizeRoom;
}

void FreeNodes(void* nodes)
{
    if (!nodes)
        return;
    char* memory = static_cast<char*>(nodes) - kSizeRoom;
    std::size_t size = 0;
    std::memcpy(&size, memory, sizeof size);
    nodeBytes -= size;
    std::free(memory);
}

// Takes pugixml's memory from the functions above for as long as it lives.
class NodeMemory {
public:
    NodeMemory()
    {
        nodeBytes = mostNodeBytes = 0;
        pugi::set_memory_management_functions(AllocateNodes, FreeNodes);
    }
    ~NodeMemory() { pugi::set_memory_management_functions(m_allocate, m_free); }
    NodeMemory(const NodeMemory&) = delete;
    NodeMemory& operator=(const NodeMemory&) = delete;

private:
    pugi::allocation_function m_allocate = pugi::get_memory_allocation_function();
    pugi::deallocation_function m_free = pugi::get_memory_deallocation_function();
};

} // namespace

void* operator new(std::size_t size)
{
    return Allocate(size);
}

void* operator new[](std::size_t size)
{
    return Allocate(size);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}

using namespace svghost_tests;

namespace {

struct Outcome {
    std::string text;
    bool written = false;
};

bool Append(void* user, const char* bytes, std::size_t size)
{
    // The receiver's own memory is not what is tested.
    const long left = std::exchange(allocationsLeft, -1);
    static_cast<std::string*>(user)->append(bytes, size);
    allocationsLeft = left;
    return true;
}

// An import with everything in it; texts are long, so that they need memory of their own.
Outcome Import(long allocations)
{
    Outcome outcome;
    const std::wstring longText(70'000, L'x');
    allocationsLeft = allocations;
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
    qlmSetLastError(0, L"DXF", 7, L"a message that is kept", false, 0);
    outcome.written = svgHostWrite(document, nullptr, Append, &outcome.text);
    svgHostDestroy(document);
    allocationsLeft = -1;
    return outcome;
}

} // namespace

TEST(ShortMemory, EveryAllocationMayFail)
{
    const NodeMemory nodeMemory;
    const Outcome whole = Import(-1);
    ASSERT_TRUE(whole.written);
    ASSERT_GT(mostNodeBytes, 0u);
    long allocations = 0;
    int failures = 0;
    for (; allocations < 10'000; ++allocations) {
        const Outcome outcome = Import(allocations);
        if (!outcome.written) {
            ++failures;
            continue;
        }
        // Only a report can be lost without a trace in the file.
        EXPECT_EQ(outcome.text, whole.text) << "allocation " << allocations;
        if (allocations > 4 * failures + 100)
            break;
    }
    EXPECT_GT(failures, 20);
    EXPECT_LT(allocations, 10'000);
}

TEST(ShortMemory, NoNodeOfAnyBatchMayBeMissing)
{
    const NodeMemory nodeMemory;
    const HostDocument document;
    for (int i = 0; i < 2'000; ++i)
        document.Set(document.Line(0, 0, 1, static_cast<float>(i)), L"stroke", L"RGB(1,2,3)");
    std::string whole;
    ASSERT_TRUE(svgHostWrite(document.Get(), nullptr, Append, &whole));
    int failures = 0;
    for (bool written = false; !written; ++failures) {
        ASSERT_LT(failures, 1'000);
        std::string text;
        allocationsLeft = failures;
        written = svgHostWrite(document.Get(), nullptr, Append, &text);
        allocationsLeft = -1;
        EXPECT_EQ(written, text == whole);
    }
    EXPECT_GT(failures, 20);
    EXPECT_EQ(nodeBytes, 0u);
}

TEST(ShortMemory, ElementsBeyondTheLimitTakeNone)
{
    const HostDocument document;
    document.Line(0, 0, 1, 1);
    svgHostLimitElements(document.Get(), 1);
    const std::wstring longText(70'000, L'x');
    allocationsLeft = 0;
    for (int i = 0; i < 10'000; ++i) {
        document.Text(0, 0, longText.c_str());
        document.Polyline(longText.c_str());
        document.Use(longText.c_str(), 0, 0);
        qlmCreateSymbol(document.Context(), longText.c_str());
        qlmSetCurrentSvgNode(document.Context(), document.Group());
        qlmSetCurrentSvgNode(document.Context(), nullptr);
    }
    allocationsLeft = -1;
    EXPECT_EQ(document.Statistics().elementsBeyondLimit, 50'000u); // false when memory was short
}

// The drawing is measured when it is first asked about, and again when memory was short.
TEST(ShortMemory, QuestionsAreAnsweredOrRefused)
{
    SvgHostStatistics statistics;
    const auto getStatistics = [&](SvgHostDocument* document) {
        return svgHostGetStatistics(document, &statistics) && statistics.elements == 3;
    };
    SvgHostViewBox box;
    const auto getViewBox = [&](SvgHostDocument* document) {
        return svgHostGetViewBox(document, &box) && !box.isMadeUp && box.width > 6;
    };
    for (const std::function<bool(SvgHostDocument*)>& ask :
         {std::function(getStatistics), std::function(getViewBox)}) {
        const HostDocument document;
        const QlmNode symbol = qlmCreateSymbol(document.Context(), L"SYMBOL");
        qlmSetCurrentSvgNode(document.Context(), symbol);
        document.Line(0, 0, 6, 1);
        qlmSetCurrentSvgNode(document.Context(), nullptr);
        document.Use(L"SYMBOL", 0, 0);
        int failures = 0;
        for (bool answered = false; !answered; ++failures) {
            ASSERT_LT(failures, 100);
            allocationsLeft = failures;
            answered = ask(document.Get());
            allocationsLeft = -1;
        }
        EXPECT_GT(failures, 1);
    }
}

TEST(ShortMemory, WritingALargeDrawingTakesNoMoreThanASmallOne)
{
    const NodeMemory nodeMemory;
    std::size_t most[2];
    for (int large = 0; large < 2; ++large) {
        const HostDocument document;
        for (int i = 0; i < (large ? 50'000 : 1'000); ++i)
            document.Set(document.Line(0, 0, 1, static_cast<float>(i)), L"stroke", L"RGB(1,2,3)");
        mostNodeBytes = 0;
        const auto swallow = [](void*, const char*, std::size_t) { return true; };
        ASSERT_TRUE(svgHostWrite(document.Get(), nullptr, swallow, nullptr));
        most[large] = mostNodeBytes;
    }
    EXPECT_GT(most[0], 0u);
    EXPECT_LE(most[1], most[0] + 65'536);
    EXPECT_LT(most[1], 500'000u);
}
