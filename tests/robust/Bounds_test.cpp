// What a hostile file can cost: memory and work for each of its bytes have a bound, whatever it holds.
#include "input/CDxfMemory.h"
#include "support/CountedWork.h"
#include "support/FailingMemory.h"
#include "support/Hostile.h"
#include "support/Import.h"
#include "support/TestScale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace {

constexpr std::size_t kSize = kIsOptimized ? 1'000'000 : 200'000;
constexpr std::size_t kCountedSize = 20'000;
// What takes thousands of calls for each line needs none of the room of many lines.
constexpr std::size_t kSizeOfManyCalls = 20'000;

// The read buffer, and the room at the end of the last chunk.
constexpr std::size_t kFixed = (std::size_t{128} << 10) + (std::size_t{2} << 20);

// What may be taken for each byte of a file.
constexpr std::size_t kMostMemory = 64;
// 1e308 is written with 309 digits, in a text that its host gets in one piece: with a 0 after it, 327
// characters for a point of four bytes, besides the point itself in a list that doubles.
constexpr std::size_t kMostMemoryOfFarNumbers = 82 * sizeof(wchar_t) + 16;

// Twice the 689,280 bytes that a drawing of many calls takes at its small size.
constexpr std::size_t kMostMemoryOfManyCalls = 1'380'000;

struct Cost {
    std::size_t bytes = 0; // at most at once
    std::size_t allocations = 0;
    std::size_t calls = 0;
};

Cost CostOf(const std::string& drawing)
{
    RecordingHost& host = RecordingHost::OfThread();
    host.Reset();
    host.countOnly = true;
    FailingMemory memory(0);
    {
        CDxfReadToQuillmar converter(RecordingHost::Context());
        CDxfMemory source(drawing);
        converter.ReadDxfSource(source);
    }
    EXPECT_EQ(memory.Live(), 0u);
    return {memory.MostBytes(), memory.Allocations(), host.callCount};
}

std::string OrdinaryDrawing(std::size_t size)
{
    std::string drawing = Dxf({{0, "SECTION"}, {2, "ENTITIES"}});
    for (std::size_t i = 0; drawing.size() < size; ++i)
        drawing += "  0\nLINE\n  5\n1F\n100\nAcDbEntity\n  8\nWalls\n100\nAcDbLine\n 10\n" +
                   std::to_string(i) + ".25\n 20\n17.5\n 30\n0.0\n 11\n4.125\n 21\n3.5\n 31\n0.0\n";
    return drawing + Dxf({{0, "ENDSEC"}, {0, "EOF"}});
}

const HostilePattern& Pattern(const std::string& name)
{
    const auto& patterns = HostilePatterns();
    return *std::find_if(patterns.begin(), patterns.end(),
                         [&](const auto& pattern) { return pattern.name == name; });
}

std::vector<std::string> Names()
{
    std::vector<std::string> names;
    for (const HostilePattern& pattern : HostilePatterns())
        names.push_back(pattern.name);
    return names;
}

// Texts of many of these, which their host gets in one piece.
bool HasFarNumbers(const std::string& name)
{
    return name.starts_with("polyline-far-") || name.starts_with("far-dashes");
}

bool HasManyCalls(const std::string& name)
{
    return name.starts_with("stacked-");
}

std::size_t CountedSize(const std::string& name)
{
    return HasManyCalls(name) ? kSizeOfManyCalls / 20 : kCountedSize;
}

// A drawing with so many bytes that are repeated.
std::string DrawingOf(const HostilePattern& pattern, std::size_t repeated)
{
    return pattern.Drawing(pattern.first.size() + pattern.middle.size() + pattern.last.size() + repeated);
}

void RunAtSizes(const std::string& label, const std::string& empty, const std::string& half,
                const std::string& whole)
{
    RunCounted(label, 0, [&] { return CostOf(empty).calls; });
    for (const std::string* const drawing : {&half, &whole})
        RunCounted(label, drawing->size() - empty.size(), [&] { return CostOf(*drawing).calls; });
}

class Bounds : public testing::TestWithParam<std::string> {};

} // namespace

// Storage that doubles may be caught at its worst by a size between.
TEST_P(Bounds, MemoryForEachByteHasOne)
{
    const std::size_t least = HasManyCalls(GetParam()) ? kSizeOfManyCalls : kSize;
    for (const std::size_t size : {least, least * 7 / 5}) {
        const std::string drawing = Pattern(GetParam()).Drawing(size);
        const Cost cost = CostOf(drawing);
        const std::size_t most = HasFarNumbers(GetParam()) ? kMostMemoryOfFarNumbers : kMostMemory;
        EXPECT_LE(cost.bytes,
                  HasManyCalls(GetParam()) ? kMostMemoryOfManyCalls : most * drawing.size() + kFixed)
            << static_cast<double>(cost.bytes) / static_cast<double>(drawing.size()) << " for each byte";
    }
}

// What is counted is the same on every machine. Lists that double have a step more at twice the size.
TEST_P(Bounds, CallsAndAllocationsAreInProportionToTheSize)
{
    const HostilePattern& pattern = Pattern(GetParam());
    const std::size_t size = CountedSize(GetParam());
    const Cost half = CostOf(DrawingOf(pattern, size));
    const Cost whole = CostOf(DrawingOf(pattern, 2 * size));
    EXPECT_LE(whole.calls, 2 * half.calls + half.calls / 5 + 20);
    EXPECT_LE(whole.allocations, 2 * half.allocations + half.allocations / 5 + 20);
}

INSTANTIATE_TEST_SUITE_P(Of, Bounds, testing::ValuesIn(Names()), [](const auto& pattern) {
    std::string name = pattern.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

// Compared by tests/robust/work_test.py: twice the size, and an ordinary drawing.
TEST(Work, OfHostileDrawings)
{
    RunAtSizes("hostile/ordinary", OrdinaryDrawing(0), OrdinaryDrawing(kCountedSize),
               OrdinaryDrawing(2 * kCountedSize));
    for (const HostilePattern& pattern : HostilePatterns()) {
        const std::size_t size = CountedSize(pattern.name);
        RunAtSizes((HasFarNumbers(pattern.name) ? "hostile-far/" : "hostile/") + pattern.name,
                   DrawingOf(pattern, 0), DrawingOf(pattern, size), DrawingOf(pattern, 2 * size));
    }
}

// What docs/bounds.md says of the module's memory and calls; with PLEXORN_BOUNDS=1 in the environment the
// measured figures are printed. A wide character has four bytes there.
TEST(FullBounds, FiguresOfTheDocumentationAreThose)
{
    if (sizeof(wchar_t) != 4 || !kIsOptimized)
        GTEST_SKIP() << "the figures are those of another build";
    const bool isPrinted = std::getenv("PLEXORN_BOUNDS") != nullptr;
    std::ifstream page(PLEXORN_TEST_DATA "/../docs/bounds.md");
    const std::string text{std::istreambuf_iterator<char>(page), {}};
    for (const HostilePattern& pattern : HostilePatterns()) {
        double memory = 0, calls = 0;
        for (const std::size_t size : {kSize, kSize * 7 / 5}) {
            const Cost cost = CostOf(pattern.Drawing(size));
            memory = std::max(memory, static_cast<double>(cost.bytes) / static_cast<double>(size));
            calls = std::max(calls, static_cast<double>(cost.calls) / static_cast<double>(size));
        }
        if (isPrinted)
            std::printf("%-34s %8.2f %8.2f\n", pattern.name.c_str(), memory, calls);
        const std::string row = "| `" + pattern.name + "` | ";
        const std::size_t begin = text.find(row);
        ASSERT_NE(begin, std::string::npos) << pattern.name;
        double toldMemory = 0, toldCalls = 0;
        ASSERT_EQ(std::sscanf(text.c_str() + begin + row.size(), "%lf | %lf |", &toldMemory, &toldCalls), 2);
        EXPECT_NEAR(memory, toldMemory, 0.1 + 0.02 * toldMemory) << pattern.name;
        EXPECT_NEAR(calls, toldCalls, 0.01 + 0.01 * toldCalls) << pattern.name;
    }
}
