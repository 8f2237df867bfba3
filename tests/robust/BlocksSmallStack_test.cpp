// Blocks that refer to each other, imported by a thread with a stack of 64 KiB: nothing is done for a block
// from within another, so no file can use the stack up. (A host may call from any thread it likes.)
#include "entry/dxfFileOpen.h"
#include "support/Import.h"
#include "support/NestedBlocks.h"
#include "support/SmallStack.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

namespace {

// An import through the export.
struct ImportCase {
    bool result = false;
    std::size_t symbols = 0;
    std::size_t uses = 0;
    std::size_t errors = 0;
};

ImportCase ImportOf(const std::wstring& path)
{
    ImportCase import;
    RecordingHost& host = RecordingHost::OfThread();
    host.Reset();
    import.result = dxfFileOpen(path.c_str(), RecordingHost::Context());
    for (const std::string& call : host.calls) {
        import.symbols += call.compare(0, 16, "qlmCreateSymbol(") == 0;
        import.uses += call.compare(0, 13, "qlmCreateUse(") == 0;
        import.errors += call.compare(0, 16, "qlmSetLastError(") == 0;
    }
    return import;
}

ImportCase ImportOnSmallStack(const std::string& drawing)
{
    const TempFile file(drawing);
    const std::wstring path = file.WidePath();
    ImportCase import;
    EXPECT_TRUE(RunOnSmallStack([&] { import = ImportOf(path); }, 64 * 1024));
    EXPECT_TRUE(import.result);
    EXPECT_EQ(import.errors, 0u);
    return import;
}

} // namespace

TEST(BlocksOnASmallStack, BlockThatInsertsItself)
{
    const ImportCase import = ImportOnSmallStack(SelfInsertingBlock());
    EXPECT_EQ(import.symbols, 1u);
    EXPECT_EQ(import.uses, 2u);
}

TEST(BlocksOnASmallStack, BlocksThatInsertEachOther)
{
    const ImportCase import = ImportOnSmallStack(MutuallyInsertingBlocks());
    EXPECT_EQ(import.symbols, 2u);
    EXPECT_EQ(import.uses, 4u);
}

TEST(BlocksOnASmallStack, ChainOfAHundredThousand)
{
    const ImportCase import = ImportOnSmallStack(ChainOfBlocks(100'000, false));
    EXPECT_EQ(import.symbols, 100'000u);
    EXPECT_EQ(import.uses, 100'001u);
}

TEST(BlocksOnASmallStack, TowerOfNineLevelsOfTenInserts)
{
    const ImportCase import = ImportOnSmallStack(TowerOfBlocks(9, 10));
    EXPECT_EQ(import.symbols, 9u);
    EXPECT_EQ(import.uses, 91u);
}

TEST(BlocksOnASmallStack, BlockOfFiftyThousandInserts)
{
    const ImportCase import = ImportOnSmallStack(TowerOfBlocks(1, 50'000));
    EXPECT_EQ(import.symbols, 1u);
    EXPECT_EQ(import.uses, 50'001u);
}
