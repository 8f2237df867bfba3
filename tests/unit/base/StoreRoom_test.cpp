// What a store does with its room: what is given back is used again, and what is outgrown is released.
#include "base/CDxfStore.h"
#include "base/DXF_LIST.h"
#include "support/FailingMemory.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

// Larger than any block that shares a chunk with others.
constexpr std::size_t kLarge = std::size_t{300} << 10;

// Seven digits, whatever the number.
std::string NameOf(int number)
{
    return std::to_string(1'000'000 + number);
}

} // namespace

TEST(StoreRoom, ShrunkBlockGivesItsEndToTheNextOne)
{
    CDxfStore store;
    char* const block = static_cast<char*>(store.Allocate(1000));
    EXPECT_TRUE(store.Shrink(block, 1000, 104));
    EXPECT_EQ(store.Allocate(8), block + 104);
}

TEST(StoreRoom, BlockThatIsShrunkToNothingGivesAllOfItsRoom)
{
    CDxfStore store;
    void* const block = store.Allocate(1000);
    EXPECT_TRUE(store.Shrink(block, 1000, 0));
    EXPECT_EQ(store.Allocate(8), block);
}

TEST(StoreRoom, ShrunkBlockKeepsWholeUnitsOfAlignment)
{
    CDxfStore store;
    char* const block = static_cast<char*>(store.Allocate(1001));
    EXPECT_TRUE(store.Shrink(block, 1001, 97));
    EXPECT_EQ(store.Allocate(8), block + 104);
}

TEST(StoreRoom, BlockThatSomethingFollowsIsNotShrunk)
{
    CDxfStore store;
    char* const block = static_cast<char*>(store.Allocate(1000));
    char* const next = static_cast<char*>(store.Allocate(8));
    EXPECT_FALSE(store.Shrink(block, 1000, 104));
    EXPECT_EQ(store.Allocate(8), next + 8);
}

TEST(StoreRoom, BlockOfAChunkOfItsOwnAndNoBlockAreNotShrunk)
{
    CDxfStore store;
    char* const before = static_cast<char*>(store.Allocate(8));
    void* const large = store.Allocate(kLarge);
    EXPECT_FALSE(store.Shrink(large, kLarge, 8));
    EXPECT_FALSE(store.Shrink(nullptr, 0, 0));
    EXPECT_EQ(store.Allocate(8), before + 8);
}

TEST(StoreRoom, ShrunkListGivesItsRoomAndCanStillGrow)
{
    CDxfStore store;
    DXF_LIST<double> list;
    for (int i = 0; i < 5; ++i)
        list.Add(store, i); // room for eight
    list.Shrink(store);
    double* const next = static_cast<double*>(store.Allocate(sizeof(double)));
    EXPECT_EQ(next, list.begin() + 5);
    *next = -1;
    list.Add(store, 5);
    EXPECT_EQ(*next, -1);
    EXPECT_EQ(std::vector<double>(list.begin(), list.end()), (std::vector<double>{0, 1, 2, 3, 4, 5}));
}

TEST(StoreRoom, OutgrownLargeBlockIsReleased)
{
    std::vector<std::size_t> live;
    live.reserve(8);
    bool isKept = true;
    FailingMemory memory(0);
    {
        CDxfStore store;
        std::size_t size = kLarge;
        char* block = static_cast<char*>(store.Resize(nullptr, 0, size));
        std::memset(block, 'x', size);
        for (int i = 0; i < 6; ++i, size *= 2) { // to 19 MB
            block = static_cast<char*>(store.Resize(block, size, size * 2));
            isKept = isKept && block[0] == 'x' && block[size - 1] == 'x';
            std::memset(block + size, 'x', size);
            live.push_back(memory.Live());
        }
    }
    const std::size_t left = memory.Live();
    const FailingMemory::Pause pause;
    EXPECT_TRUE(isKept);
    EXPECT_EQ(live, std::vector<std::size_t>(6, 1));
    EXPECT_EQ(left, 0u);
}

// Whichever of some large blocks is outgrown, the others stay and all are released in the end.
TEST(StoreRoom, OtherLargeBlocksStayWhenOneIsOutgrown)
{
    for (std::size_t outgrown = 0; outgrown < 3; ++outgrown) {
        bool isKept = true;
        std::size_t live = 0;
        FailingMemory memory(0);
        {
            CDxfStore store;
            char* blocks[3];
            for (char*& block : blocks) {
                block = static_cast<char*>(store.Allocate(kLarge));
                std::memset(block, 'x', kLarge);
            }
            blocks[outgrown] = static_cast<char*>(store.Resize(blocks[outgrown], kLarge, 2 * kLarge));
            live = memory.Live();
            for (const char* const block : blocks)
                isKept = isKept && block[0] == 'x' && block[kLarge - 1] == 'x';
        }
        const std::size_t left = memory.Live();
        const FailingMemory::Pause pause;
        EXPECT_TRUE(isKept) << outgrown;
        EXPECT_EQ(live, 3u) << outgrown;
        EXPECT_EQ(left, 0u) << outgrown;
    }
}

// Of so many names of one length about eighteen pairs have the same hash of 32 bits. They differ in their
// first eight bytes, in the eight after them, or after those.
TEST(StoreRoom, NamesOfTheSameHashAreKeptApart)
{
    constexpr int kNames = 400'000;
    for (const std::string before : {"", "LAYER_OF", "LAYER_OF_A_LONG_NAME_"}) {
        CDxfStore store;
        for (int i = 0; i < kNames; ++i) {
            const std::string name = before + NameOf(i);
            ASSERT_EQ(store.KeepOnce(name), std::wstring(name.begin(), name.end()));
        }
    }
}
