// Blocks that refer to each other, imported by a thread with a stack of 64 KiB: nothing is done for a block
// from within another, so no file can use the stack up. (A host may call from any thread it likes.)
#include "entry/dxfFileOpen.h"
#include "support/Import.h"
#include "support/NestedBlocks.h"

#include <gtest/gtest.h>

#include <pthread.h>
#include <unistd.h>

#include <cstdio>

namespace {

constexpr std::size_t kStack = 64 * 1024;

// An import through the export, by a thread of its own.
struct IMPORT {
    std::wstring path;
    bool result = false;
    std::size_t symbols = 0;
    std::size_t uses = 0;
    std::size_t errors = 0;
};

void* Run(void* argument)
{
    IMPORT& import = *static_cast<IMPORT*>(argument);
    RecordingHost& host = RecordingHost::OfThread();
    host.Reset();
    import.result = dxfFileOpen(import.path.c_str(), RecordingHost::Context());
    for (const std::string& call : host.calls) {
        import.symbols += call.compare(0, 16, "qlmCreateSymbol(") == 0;
        import.uses += call.compare(0, 13, "qlmCreateUse(") == 0;
        import.errors += call.compare(0, 16, "qlmSetLastError(") == 0;
    }
    return nullptr;
}

// Runs on a thread with the small stack. Past the stack's end lies a page that faults.
void RunOnSmallStack(IMPORT& import)
{
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, kStack), 0);
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, Run, &import), 0);
    EXPECT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attributes);
}

IMPORT ImportOnSmallStack(const std::string& drawing)
{
    const std::string path = testing::TempDir() + "blocks-" + std::to_string(getpid()) + ".dxf";
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    EXPECT_NE(file, nullptr);
    if (file == nullptr)
        return {};
    EXPECT_EQ(std::fwrite(drawing.data(), 1, drawing.size(), file), drawing.size());
    std::fclose(file);
    IMPORT import;
    import.path.assign(path.begin(), path.end());
    RunOnSmallStack(import);
    std::remove(path.c_str());
    EXPECT_TRUE(import.result);
    EXPECT_EQ(import.errors, 0u);
    return import;
}

} // namespace

TEST(BlocksOnASmallStack, BlockThatInsertsItself)
{
    const IMPORT import = ImportOnSmallStack(SelfInsertingBlock());
    EXPECT_EQ(import.symbols, 1u);
    EXPECT_EQ(import.uses, 2u);
}

TEST(BlocksOnASmallStack, BlocksThatInsertEachOther)
{
    const IMPORT import = ImportOnSmallStack(MutuallyInsertingBlocks());
    EXPECT_EQ(import.symbols, 2u);
    EXPECT_EQ(import.uses, 4u);
}

TEST(BlocksOnASmallStack, ChainOfAHundredThousand)
{
    const IMPORT import = ImportOnSmallStack(ChainOfBlocks(100'000, false));
    EXPECT_EQ(import.symbols, 100'000u);
    EXPECT_EQ(import.uses, 100'001u);
}

TEST(BlocksOnASmallStack, TowerOfNineLevelsOfTenInserts)
{
    const IMPORT import = ImportOnSmallStack(TowerOfBlocks(9, 10));
    EXPECT_EQ(import.symbols, 9u);
    EXPECT_EQ(import.uses, 91u);
}

TEST(BlocksOnASmallStack, BlockOfFiftyThousandInserts)
{
    const IMPORT import = ImportOnSmallStack(TowerOfBlocks(1, 50'000));
    EXPECT_EQ(import.symbols, 1u);
    EXPECT_EQ(import.uses, 50'001u);
}
