// Blocks that insert themselves or each other: every block is drawn once and every INSERT is one use,
// whatever they refer to.
#include "input/CDxfMemory.h"
#include "support/CountedWork.h"
#include "support/Import.h"
#include "support/NestedBlocks.h"

#include <gtest/gtest.h>

namespace {

std::string NodeText(int number)
{
    return " = n" + std::to_string(number) + "\n";
}

std::string Use(const std::string& name, int node)
{
    return "qlmCreateUse(ctx, \"\", 0, 0, \"" + name + "\", \"hmi\", 0, -0)" + NodeText(node);
}

// The host calls of a symbol that holds one use, the symbol being node.
std::string Symbol(const std::string& name, const std::string& inserted, int node)
{
    return "qlmSetCurrentSvgNode(ctx, 0)\nqlmCreateSymbol(ctx, \"" + name + "\")" + NodeText(node) +
           "qlmSetCurrentSvgNode(ctx, n" + std::to_string(node) + ")\n" + Use(inserted, node + 1) +
           "qlmSetCurrentSvgNode(ctx, 0)\n";
}

// The number of calls of an operation in a trace.
std::size_t CountOf(std::string_view operation, std::string_view trace)
{
    std::size_t count = 0;
    for (std::size_t at = 0; at < trace.size(); at = trace.find('\n', at) + 1)
        count += trace.substr(at, operation.size()) == operation ? 1u : 0u;
    return count;
}

// Counts the callbacks of blocks and inserts.
class CountingReader : public CDxfRead {
public:
    void OnBlockBegin(const DXF_BLOCKS_BLOCK&) override { ++calls; }
    void OnBlockEnd(const DXF_BLOCKS_BLOCK&) override { ++calls; }
    void OnInsert(const DXF_GRAPHIC_INSERT&) override { ++calls; }

    std::size_t calls = 0;
};

std::size_t CallsOf(const std::string& drawing)
{
    CountingReader reader;
    CDxfMemory memory(drawing);
    reader.ReadDxfSource(memory);
    return reader.calls;
}

} // namespace

TEST(NestedBlocks, BlockThatInsertsItselfIsOneSymbolWithOneUse)
{
    EXPECT_EQ(TraceOf(SelfInsertingBlock()), Symbol("A", "A", 1) + Use("A", 3));
}

TEST(NestedBlocks, BlocksThatInsertEachOtherAreASymbolEach)
{
    EXPECT_EQ(TraceOf(MutuallyInsertingBlocks()),
              Symbol("A", "B", 1) + Symbol("B", "A", 3) + Use("A", 5) + Use("B", 6));
}

TEST(NestedBlocks, ChainIsDrawnInFileOrder)
{
    EXPECT_EQ(TraceOf(ChainOfBlocks(3, false)),
              Symbol("0", "1", 1) + Symbol("1", "2", 3) + Symbol("2", "3", 5) + Use("0", 7));
    EXPECT_EQ(TraceOf(ChainOfBlocks(3, true)),
              Symbol("2", "3", 1) + Symbol("1", "2", 3) + Symbol("0", "1", 5) + Use("0", 7));
}

TEST(NestedBlocks, ChainOfAHundredThousandIsDrawnOnceEach)
{
    const std::string trace = TraceOf(ChainOfBlocks(100'000, true));
    EXPECT_EQ(CountOf("qlmCreateSymbol(", trace), 100'000u);
    EXPECT_EQ(CountOf("qlmCreateUse(", trace), 100'001u);
    EXPECT_EQ(CountOf("qlmSetCurrentSvgNode(", trace), 300'000u);
    EXPECT_EQ(CountOf("", trace), 500'001u); // and nothing else
}

TEST(NestedBlocks, TowerOfNineLevelsOfTenInsertsHasNinetyOneUses)
{
    const std::string trace = TraceOf(TowerOfBlocks(9, 10));
    EXPECT_EQ(CountOf("qlmCreateSymbol(", trace), 9u);
    EXPECT_EQ(CountOf("qlmCreateUse(", trace), 91u);
    EXPECT_EQ(CountOf("", trace), 9u * 4u + 91u);
}

TEST(NestedBlocks, ChainMakesThreeCallsForEachBlock)
{
    for (const bool backward : {false, true})
        for (const int length : {10'000, 100'000})
            EXPECT_EQ(CallsOf(ChainOfBlocks(length, backward)), 3u * static_cast<std::size_t>(length) + 1);
}

// Compared by tests/robust/work_test.py: a search through the blocks would grow with the square of the
// length.
TEST(Work, OfChainsOfBlocks)
{
    for (const bool backward : {false, true})
        for (const int length : {0, 2000, 4000}) {
            const std::string drawing = ChainOfBlocks(length, backward);
            RunCounted(backward ? "blocks/backward" : "blocks/forward", static_cast<std::size_t>(length),
                       [&] { return CallsOf(drawing); });
        }
}
